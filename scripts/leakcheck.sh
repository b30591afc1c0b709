#!/usr/bin/env bash
# Leak check: under LeakSanitizer (the AddressSanitizer build in build-asan, made by
# scripts/sanitize.sh when missing), reads the sample documents and a generated building of
# some 100 000 triangles, writes them, releases everything and fails on any definite leak.
# What the process keeps on purpose is suppressed by name in scripts/lsan.supp.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_SANITIZE_BUILD_DIR:-$root/build-asan}
export CC=clang-14 CXX=clang++-14
ZENTRA_BUILD_DIR=$build "$root/scripts/build.sh" -DZENTRA_SANITIZE=ON -DZENTRA_BUILD_BENCH=OFF
export ZENTRA_LEAKCHECK_LARGE=1
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$root/scripts/lsan.supp:print_suppressions=1
cd "$build"
"$build/tests/tst_oxa_ReadWriteRelease"
