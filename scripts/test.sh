#!/usr/bin/env bash
# Sets everything up, builds, and runs every test; then the core tests again under the address
# and undefined-behaviour sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
scripts/build.sh build -DPARLANE_BUILD_QT=ON -DPARLANE_BUILD_TESTS=ON -DPARLANE_BUILD_BENCH=ON -DPARLANE_SANITIZE=OFF
(cd build && ctest --output-on-failure -j"$(nproc)")
scripts/build.sh build-sanitize -DPARLANE_SANITIZE=ON -DPARLANE_BUILD_QT=OFF -DPARLANE_BUILD_BENCH=OFF
(cd build-sanitize && ctest --output-on-failure -j"$(nproc)")
