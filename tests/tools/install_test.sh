#!/usr/bin/env bash
# An install to a prefix chosen at install time gives a program that runs from there: the bus
# starts the installed binary, and the desktop and AppStream files pass their validators.
set -uo pipefail
build="$1"
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null || { echo "install failed"; exit 1; }
status=0
for f in bin/parlane bin/parlane-data share/applications/parlane.desktop \
         share/metainfo/org.parlane.Parlane.metainfo.xml share/man/man1/parlane.1 \
         share/man/man1/parlane-data.1 share/icons/hicolor/scalable/apps/parlane.svg \
         share/icons/hicolor/48x48/apps/parlane.png \
         share/dbus-1/interfaces/org.parlane.Parlane.Remote.xml; do
    [ -e "$prefix/$f" ] || { echo "not installed: $f"; status=1; }
done
service="$prefix/share/dbus-1/services/org.parlane.Parlane.service"
grep -qx "Exec=$prefix/bin/parlane --embedding" "$service" ||
    { echo "service does not start the installed program:"; cat "$service"; status=1; }
"$prefix/bin/parlane" --version | grep -q '^parlane [0-9]' || { echo "no version"; status=1; }
desktop-file-validate "$prefix/share/applications/parlane.desktop" || status=1
appstreamcli validate --no-net "$prefix/share/metainfo/org.parlane.Parlane.metainfo.xml" \
    >/dev/null || { echo "metainfo does not validate"; status=1; }
exit $status
