#!/usr/bin/env bash
# Builds the library and the tests that cancel a read from another thread with clang's
# ThreadSanitizer into build-tsan and runs only those tests; any data race fails the run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_TSAN_BUILD_DIR:-$root/build-tsan}
# The reader and project tests hold the cancel from another thread while a read reports
# progress.
targets=(tst_oxa_OxaXmlReader tst_oxa_OxaRoot)
tests='^oxa\.(OxaXmlReader|OxaRoot)$'
"$root/scripts/setup.sh"
CC=clang-14 CXX=clang++-14 cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DZENTRA_TSAN=ON -DZENTRA_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]}"
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1"
cd "$build"
xvfb-run -a -s "-screen 0 1280x1024x24" ctest --output-on-failure --timeout 900 -R "$tests" "$@"
