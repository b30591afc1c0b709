#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through CTest under a virtual X server,
# so that the GL-capable tests have a display. Exits non-zero on any failure.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
"$root/scripts/build.sh"
cd "$build"
xvfb-run -a -s "-screen 0 1280x1024x24" \
  ctest --output-on-failure --parallel "$(nproc)" --timeout 900 "$@"
