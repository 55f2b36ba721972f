#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, if any are missing.
set -euo pipefail

packages=(cmake ninja-build g++ pkg-config qt6-base-dev libgtest-dev libgmock-dev dbus-daemon
          libbenchmark-dev nlohmann-json3-dev qt6-svg-dev ccache poppler-utils
          gettext libgnutls28-dev openssl appstream desktop-file-utils
          python3-dbusmock libglib2.0-bin)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq "${missing[@]}" >/dev/null
