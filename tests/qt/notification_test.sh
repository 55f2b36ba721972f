#!/usr/bin/env bash
# A run nobody watches (here a script's) ends with a desktop notification that says how it went;
# Settings/Notify=0 turns them off. Runs inside its own session bus with a mock notification
# service.
set -uo pipefail
parlane="$1"
data_tool="$2"
home="$(mktemp -d)"
log="$home/notifications.log"
/usr/bin/python3 -m dbusmock --template notification_daemon -l "$log" >/dev/null 2>&1 &
mock=$!
trap 'kill $mock 2>/dev/null; rm -rf "$home"' EXIT
for _ in $(seq 50); do
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.NameHasOwner org.freedesktop.Notifications 2>/dev/null |
        grep -q true && break
    sleep 0.1
done

echo '{"ProviderName":"Sim TAP","TapiDevice":"0","CountryCode":"44","AreaCode":"0800","Number":"100100","MaxChars":"160","Protocol":0,"MultiMessage":1,"AllowASCII":"0","MaxMessages":"3","UCPOperation":"01"}' \
    | "$data_tool" write provider "$home/smsc.dat"
echo '{"Name":"Ann","CountryCode":"44","AreaCode":"07700","Number":"900123"}' \
    | "$data_tool" write directory "$home/phones.dat"
printf '[FirstRun]\nModem=4\n' > "$home/Parlane.ini"

QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Ann hi 2>/dev/null
grep -q 'Notify "Parlane" 0 "parlane" "Parlane" "1 sent (simulated)"' "$log" ||
    { echo "no notification:"; cat "$log"; exit 1; }

printf '[FirstRun]\nModem=4\n[Settings]\nNotify=0\n' > "$home/Parlane.ini"
: > "$log"
QT_QPA_PLATFORM=offscreen timeout 90 "$parlane" --home "$home" --send-and-exit Ann hi 2>/dev/null
! grep -q Notify "$log" || { echo "notified although turned off:"; cat "$log"; exit 1; }
echo "told once, and not when turned off"
