#!/usr/bin/env bash
# Installs what is missing, builds, and runs the command-line tool's main job.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
"$root/scripts/build.sh" >/dev/null
zentra="$build/apps/zentra/zentra"
"$zentra" --version
"$zentra" about
