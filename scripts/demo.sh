#!/usr/bin/env bash
# Installs what is missing, builds, and runs the command-line tool's main job on the bundled
# sample project: its heads and counts, its container tree, a converted copy that must read
# back with the same counts, and a picture of it.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
"$root/scripts/build.sh" >/dev/null
zentra="$build/apps/zentra/zentra"
sample="$root/examples/sample-project"
"$zentra" --version
"$zentra" info "$sample"
"$zentra" tree "$sample"
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
"$zentra" convert "$sample" "$copy/sample-project"
counts() { "$zentra" info "$1" | sed -n '/containers:/,/schedules:/p'; }
if [ "$(counts "$sample")" = "$(counts "$copy/sample-project")" ]; then
    echo "the converted copy reads back with the same counts"
else
    echo "the converted copy reads back with other counts:" >&2
    diff <(counts "$sample") <(counts "$copy/sample-project") >&2
    exit 1
fi
picture="$build/sample-project.png"
"$zentra" render "$sample" -o "$picture"
echo "the sample drawn from the south-west: $picture"
