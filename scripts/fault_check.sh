#!/usr/bin/env bash
# Measures what the test suite catches: applies each deliberate fault kept under tests/faults/,
# builds, runs every test, reverts the fault, and prints which tests failed for it. A fault that
# nothing catches makes the run fail, and so does a fault that stops the build: a fault counts only
# when a test catches it. It edits the sources in turn, so it refuses to run on a checkout with
# uncommitted changes.
# Usage: scripts/fault_check.sh [PATCH...]   (default: every patch under tests/faults/)
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
cd "$root"
if [ -n "$(git status --porcelain --untracked-files=no)" ]; then
  echo "fault_check: the checkout has uncommitted changes; commit or stash them first" >&2
  exit 2
fi
"$root/scripts/build.sh" >/dev/null || exit 1
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
    echo "$name: does not build"
    missed=1
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
