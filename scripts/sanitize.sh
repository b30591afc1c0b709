#!/usr/bin/env bash
# Builds the library and its tests with clang's AddressSanitizer and UndefinedBehaviorSanitizer
# and runs every test; any report fails the run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export ZENTRA_BUILD_DIR=${ZENTRA_SANITIZE_BUILD_DIR:-$root/build-asan}
export CC=clang-14 CXX=clang++-14
"$root/scripts/build.sh" -DZENTRA_SANITIZE=ON -DZENTRA_BUILD_BENCH=OFF
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$root/scripts/lsan.supp
# Mesa unloads its driver before the leak check runs, which leaves the driver's own allocations
# without a module name to suppress them by; preloaded, it stays mapped and named.
driver=$(ls /usr/lib/*/dri/swrast_dri.so 2>/dev/null | head -1)
[ -n "$driver" ] && export LD_PRELOAD=$driver
cd "$ZENTRA_BUILD_DIR"
xvfb-run -a -s "-screen 0 1280x1024x24" \
  ctest --output-on-failure --parallel "$(nproc)" --timeout 1800 "$@"
