#!/usr/bin/env bash
# Fuzzes every format that strangers write.
# usage: scripts/fuzz.sh [SECONDS [TARGET...]]     30 seconds and all targets by default
# Two targets run at a time, or FUZZ_JOBS. The corpus grows in build/fuzz/corpus, logs lie in build/fuzz/logs.
# An input that breaks something is written to fuzz/regressions/TARGET, where the tests replay it from then on.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-30}
shift || true
targets=("$@")
((${#targets[@]})) || targets=(chunk preset_file clipboard settings parameter_text automation_csv)
build=build/fuzz

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake --preset fuzz "${launcher[@]}" --log-level=WARNING
cmake --build $build --parallel "$(nproc)" --target fuzz_targets
mkdir -p $build/logs

fuzz_one() {
    local target=$1 found
    local corpus=$build/corpus/$target kept=fuzz/regressions/$target log=$build/logs/$target.log
    mkdir -p "$corpus" "$kept"
    if $build/bin/fuzz_"$target" -max_total_time="$seconds" -max_len=65536 -timeout=20 -print_final_stats=1 \
        -artifact_prefix="$kept/" "$corpus" "$build/fuzz-seeds/$target" "$kept" >"$log" 2>&1; then
        printf '%-16s %s executions, no finding\n' "$target" \
            "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
    else
        found=$?
        printf '%-16s FOUND, see %s\n' "$target" "$log"
        tail -n 40 "$log"
    fi
    rmdir --ignore-fail-on-non-empty "$kept"
    return "${found:-0}"
}
if [[ -d /dev/shm ]]; then export TMPDIR=/dev/shm; fi # stored values go to disk otherwise, which is slow
export -f fuzz_one
export build seconds
printf '%s\0' "${targets[@]}" | xargs -0 -n 1 -P "${FUZZ_JOBS:-2}" bash -c 'fuzz_one "$0"'
