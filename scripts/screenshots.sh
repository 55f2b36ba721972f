#!/usr/bin/env bash
# Pictures of the main window and of each dialogue on a demo home, into docs/screenshots/.
# Runs the windows under a virtual X display (xvfb-run); installs what is missing first.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-deps.sh
# The virtual display is needed here only, not by the build or the tests.
missing=()
for p in xvfb xauth; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo=""
    if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
fi

# The same build as the demo's: the program and the tools, without the tests.
./scripts/build.sh build -DPARLANE_BUILD_QT=ON -DPARLANE_BUILD_TESTS=OFF -DPARLANE_BUILD_BENCH=OFF \
    -DPARLANE_SANITIZE=OFF

out=docs/screenshots
mkdir -p "$out"
# A plain style and font, the same on every machine.
shots() {
    QT_QPA_PLATFORM=xcb QT_STYLE_OVERRIDE=Fusion \
        xvfb-run -a -s "-screen 0 1280x1024x24" build/tools/parlane-shots/parlane-shots "$@"
}
shots "$out"
# German and Italian run longest: the main window and three dialogues in each show they fit.
others=$(mktemp -d)
trap 'rm -rf "$others"' EXIT
for language in de it; do
    shots --language "$language" "$others"
    for name in main-window main-window-panels frmSMSCEdit frmImport frmModemInfo; do
        cp "$others/$name-$language.png" "$out/"
    done
done
echo "Pictures in $out/"
