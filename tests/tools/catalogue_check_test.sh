#!/usr/bin/env bash
# The banks' generator refuses a broken catalogue and names every fault.
set -uo pipefail
tool="$1"
po="$(dirname "$0")/broken_catalogue.po"
out="$(mktemp)"
trap 'rm -f "$out" "$out.cpp"' EXIT
if "$tool" banks "$out.cpp" "4=$po" 2>"$out"; then
    echo "accepted a broken catalogue"; exit 1
fi
[ ! -e "$out.cpp" ] || { echo "wrote banks anyway"; exit 1; }
status=0
for fault in "id 1012: fuzzy" "id 1013: empty translation" "id 1063: file pattern differs" \
             "id 1144: trailing blanks differ" "id 1014: more than one accelerator" \
             "id 1020: accelerator missing" "id 1021: English text differs" \
             "id 1185: not a bank-1 id in use" "id 1092: characters outside Windows-1252" "id 1284: placeholders differ" \
             "missing ids (add them from parlane.pot): 1000, 1001,"; do
    grep -qF "$fault" "$out" || { echo "not reported: $fault"; status=1; }
done
[ $status -eq 0 ] || cat "$out"
exit $status
