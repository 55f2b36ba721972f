#!/usr/bin/env bash
# The program started with a name and a message delivers through the simulated modem, ends by
# itself, and leaves one archive file.
set -euo pipefail
parlane="$1"
data_tool="$2"
home="$(mktemp -d)"
trap 'rm -rf "$home"' EXIT

echo '{"ProviderName":"Sim TAP","TapiDevice":"0","CountryCode":"44","AreaCode":"0800","Number":"100100","MaxChars":"160","Protocol":0,"MultiMessage":1,"AllowASCII":"0","MaxMessages":"3","UCPOperation":"01"}' \
    | "$data_tool" write provider "$home/smsc.dat"
echo '{"Name":"Ann","CountryCode":"44","AreaCode":"07700","Number":"900123"}' \
    | "$data_tool" write directory "$home/phones.dat"
printf '[FirstRun]\nModem=4\n' > "$home/Parlane.ini"

QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" Ann hello from a script

files=("$home"/SMS/Outbox/*.msg)
[ "${#files[@]}" -eq 1 ] || { echo "expected one archive file, found ${#files[@]}"; exit 1; }
grep -q "Status: 	Message Sent Successfully" "${files[0]}" || { cat "${files[0]}"; exit 1; }
grep -q "Sent To: 	Ann" "${files[0]}" || { cat "${files[0]}"; exit 1; }
[ ! -e "$home/queue.dat" ] || { echo "queue.dat left behind"; exit 1; }
echo "delivered and ended by itself"

# For scripts: the same start that ends with the run and says how it went.
status=0
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Ann again \
    2>"$home/err" || status=$?
[ "$status" -eq 0 ] || { cat "$home/err"; echo "exit status $status"; exit 1; }
grep -q "Message #[0-9]*: Message Sent Successfully" "$home/err" || { cat "$home/err"; exit 1; }
status=0
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Nobody hi \
    2>/dev/null || status=$?
[ "$status" -eq 3 ] || { echo "a name not in the directory gave $status"; exit 1; }
echo "--send-and-exit: 0 when sent, 3 for a name not in the directory"
