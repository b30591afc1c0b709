#!/usr/bin/env bash
# Builds the benchmarks when needed, runs every bench/bench_* executable on the inputs it
# generates, and prints one table of the ratio lines: figure, value, baseline, ratio.
# Each benchmark's full output is kept in ${ZENTRA_BUILD_DIR:-build}/bench-output/.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${ZENTRA_BUILD_DIR:-$root/build}
ZENTRA_BUILD_DIR=$build "$root/scripts/build.sh" -DZENTRA_BUILD_BENCH=ON >&2
out="$build/bench-output"
mkdir -p "$out"
for source in "$root"/bench/bench_*.cpp; do
  name=$(basename "$source" .cpp)
  echo "bench: running $name" >&2
  start=$SECONDS
  # The view benchmarks need a display; give every run a virtual one when there is none.
  display=()
  [ -z "${DISPLAY:-}" ] && display=(xvfb-run -a -s "-screen 0 1600x1200x24")
  if ! "${display[@]}" "$build/bench/$name" >"$out/$name.txt" 2>&1; then
    echo "bench: $name FAILED" >&2
    tail -20 "$out/$name.txt" >&2
    exit 1
  fi
  echo "bench: $name took $((SECONDS - start)) s" >&2
done
python3 - "$out" <<'PY'
import pathlib, re, sys
# "figure: value; baseline: value; ratio r" becomes one row; any other line that states a
# ratio keeps its text as the figure; a bare "ratio ..." line takes the line before it.
pair = re.compile(r'^(?P<figure>[^:;]+): (?P<value>[^;]+); (?P<base>[^:;]+): (?P<basevalue>[^;]+); ratio (?P<ratio>.+)$')
rows = []
for path in sorted(pathlib.Path(sys.argv[1]).glob('bench_*.txt')):
    previous = ''
    for line in path.read_text(errors='replace').splitlines():
        if 'ratio' not in line:
            previous = line.strip()
            continue
        m = pair.match(line.strip())
        if m:
            rows.append((path.stem, m['figure'], m['value'], f"{m['base']}: {m['basevalue']}", m['ratio']))
        else:
            figure, _, ratio = line.strip().partition('ratio')
            rows.append((path.stem, figure.strip(' :;,') or previous, '', '', ratio.strip()))
print('| benchmark | figure | value | baseline | ratio |')
print('|---|---|---|---|---|')
for row in rows:
    print('| ' + ' | '.join(c.replace('|', '/') for c in row) + ' |')
PY
