#!/usr/bin/env bash
# Sets everything up and sends one message through the simulated modem, printing its road.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh build -DPARLANE_BUILD_QT=ON -DPARLANE_BUILD_TESTS=OFF -DPARLANE_BUILD_BENCH=OFF -DPARLANE_SANITIZE=OFF
exec build/src/qt/parlane --home "${PARLANE_DEMO_HOME:-demo-home}" --demo "$@"
