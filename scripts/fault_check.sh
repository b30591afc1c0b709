#!/usr/bin/env bash
# Measures what the test suite catches: applies each deliberate fault kept under tests/faults/,
# builds, runs every test, reverts the fault, and prints which tests failed for it. A fault that
# nothing catches makes the run fail. Run it on a clean checkout: it edits the sources in turn.
# Usage: scripts/fault_check.sh [PATCH...]   (default: every patch under tests/faults/)
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
"$root/scripts/build.sh" >/dev/null || exit 1
cd "$root"
patches=("$@")
[ ${#patches[@]} -eq 0 ] && patches=(tests/faults/*.patch)
applied=""
revert() { [ -n "$applied" ] && patch -p1 -R --silent <"$applied"; applied=""; }
trap revert EXIT INT TERM
missed=0
for fault in "${patches[@]}"; do
  name=$(basename "$fault" .patch)
  if ! patch -p1 --forward --silent <"$fault" >/dev/null; then
    echo "$name: does not apply"
    missed=1
    continue
  fi
  applied=$fault
  if ! cmake --build "$build" --parallel "$(nproc)" >/dev/null 2>&1; then
    echo "$name: caught by the build"
  else
    failed=$(cd "$build" && xvfb-run -a -s "-screen 0 1280x1024x24" \
      ctest --parallel "$(nproc)" --timeout 300 2>&1 | sed -n 's/^[[:space:]]*[0-9]* - \([^ ]*\) .*/\1/p' | tr '\n' ' ')
    if [ -n "$failed" ]; then
      echo "$name: caught by $failed"
    else
      echo "$name: NOT CAUGHT"
      missed=1
    fi
  fi
  revert
done
cmake --build "$build" --parallel "$(nproc)" >/dev/null 2>&1
exit $missed
