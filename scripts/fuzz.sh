#!/usr/bin/env bash
# Builds every libFuzzer target in fuzz/ with clang and runs each for a fixed time
# (${ZENTRA_FUZZ_SECONDS:-60} s) on a scratch copy of its seed corpus. A crash, leak, hang or
# sanitizer report fails the run and leaves the input in build-fuzz/findings/<target>/.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export ZENTRA_BUILD_DIR=${ZENTRA_FUZZ_BUILD_DIR:-$root/build-fuzz}
export CC=clang-14 CXX=clang++-14
"$root/scripts/build.sh" -DZENTRA_FUZZ=ON -DZENTRA_BUILD_TESTS=OFF -DZENTRA_BUILD_BENCH=OFF
seconds=${ZENTRA_FUZZ_SECONDS:-60}
status=0
for source in "$root"/fuzz/fuzz_*.cpp; do
  name=$(basename "$source" .cpp)
  topic=${name#fuzz_}
  work="$ZENTRA_BUILD_DIR/fuzz-work/$topic"
  findings="$ZENTRA_BUILD_DIR/findings/$topic"
  rm -rf "$work" && mkdir -p "$work" "$findings"
  [ -d "$root/fuzz/corpus/$topic" ] && cp -r "$root/fuzz/corpus/$topic/." "$work/"
  echo "fuzz: $name for ${seconds} s"
  if ! "$ZENTRA_BUILD_DIR/fuzz/$name" "$work" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
       -artifact_prefix="$findings/" -print_final_stats=1 >"$findings/log.txt" 2>&1; then
    echo "fuzz: $name FAILED; see $findings"
    tail -40 "$findings/log.txt"
    status=1
  else
    grep -E '^stat::number_of_executed_units' "$findings/log.txt" | sed "s/^/fuzz: $name /"
  fi
done
exit $status
