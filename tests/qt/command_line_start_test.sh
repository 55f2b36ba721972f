#!/usr/bin/env bash
# The program started with a name and a message delivers through the simulated modem, ends by
# itself, and leaves one archive file that says the delivery was simulated. A script is never
# told "sent" for a message that did not leave the machine.
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
grep -q "Status: 	Message Sent Successfully (simulated)" "${files[0]}" || { cat "${files[0]}"; exit 1; }
grep -q "Sent To: 	Ann" "${files[0]}" || { cat "${files[0]}"; exit 1; }
[ ! -e "$home/queue.dat" ] || { echo "queue.dat left behind"; exit 1; }
echo "delivered and ended by itself"

# For scripts: the same start that ends with the run and says how it went.
status=0
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Ann again \
    2>"$home/err" || status=$?
[ "$status" -eq 10 ] || { cat "$home/err"; echo "exit status $status"; exit 1; }
grep -q "Message #[0-9]*: Message Sent Successfully (simulated)" "$home/err" || { cat "$home/err"; exit 1; }
status=0
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Nobody hi \
    2>/dev/null || status=$?
[ "$status" -eq 3 ] || { echo "a name not in the directory gave $status"; exit 1; }
echo "--send-and-exit: 10 when only simulated, 3 for a name not in the directory"

# A home whose centre dials a serial port this machine does not have, and whose stored modem
# choice no longer matches: no one answers the modem question for the script, nothing is dialled
# (least of all through the simulated modem), the centre keeps its port and the message waits.
home2="$(mktemp -d)"
trap 'rm -rf "$home" "$home2"' EXIT
echo '{"ProviderName":"Office","TapiDevice":"2","CountryCode":"44","AreaCode":"0800","Number":"100100","MaxChars":"160","Protocol":0,"MultiMessage":1,"AllowASCII":"0","MaxMessages":"3","UCPOperation":"01"}' \
    | "$data_tool" write provider "$home2/smsc.dat"
echo '{"Name":"Ann","CountryCode":"44","AreaCode":"07700","Number":"900123"}' \
    | "$data_tool" write directory "$home2/phones.dat"
printf '[FirstRun]\nModem=4\n[Modem]\nIndex=2\nName=USB modem ttyACM7\n' > "$home2/Parlane.ini"
status=0
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home2" --send-and-exit Ann page me \
    2>"$home2/err" || status=$?
[ "$status" -eq 9 ] || { cat "$home2/err"; echo "a missing line gave $status"; exit 1; }
! grep -q "Dialling" "$home2/err" || { cat "$home2/err"; echo "dialled"; exit 1; }
grep -q '"Office" uses a line that is not on this computer' "$home2/err" || { cat "$home2/err"; exit 1; }
[ -z "$(ls "$home2/SMS/Outbox")" ] || { ls "$home2/SMS/Outbox"; echo "archived"; exit 1; }
"$data_tool" show "$home2/queue.dat" | grep -q '"Text":"page me"' || { echo "not kept"; exit 1; }
"$data_tool" show "$home2/smsc.dat" | grep -q '"TapiDevice":"2"' || { echo "centre moved"; exit 1; }
echo "--send-and-exit: 9 and the message kept when the centre's line is not here"
