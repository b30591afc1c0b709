#!/usr/bin/env bash
# Configures and builds Zentra into ${ZENTRA_BUILD_DIR:-build}; extra arguments go to CMake's configure step.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
"$root/scripts/setup.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=${ZENTRA_BUILD_TYPE:-RelWithDebInfo} "$@" >/dev/null
cmake --build "$build" --parallel "$(nproc)"
