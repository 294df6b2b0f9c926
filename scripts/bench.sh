#!/usr/bin/env bash
# Runs every benchmark of a build and prints the tables of docs/performance.md.
# usage: scripts/bench.sh [BUILD [SECONDS]]     SECONDS of each measurement, of which the best of seven counts
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/release}
seconds=${2:-0.05}
out=$build/bench
rm -rf "$out"
mkdir -p "$out"

for program in "$build"/bin/bench_*; do
    name=${program##*/}
    [[ $name == bench_worst_block || $name == bench_editor_* ]] && continue # they measure by themselves
    echo "$name" >&2
    "$program" --benchmark_min_time="$seconds" --benchmark_repetitions=7 --benchmark_out="$out/$name.json" \
        --benchmark_out_format=json >/dev/null 2>"$out/$name.log" || { cat "$out/$name.log" >&2; exit 1; }
done
for name in bench_editor_window bench_editor_paint; do
    echo "$name" >&2
    "$build/bin/$name" >"$out/$name.md"
done
echo bench_worst_block >&2
"$build/bin/bench_worst_block" >"$out/worst_block.txt"

python3 scripts/bench_tables.py "$out" | tee "$out/tables.md"
cat "$out"/bench_editor_*.md | tee -a "$out/tables.md"
