#!/usr/bin/env bash
# Runs every fuzzer of the Clang build for SECONDS each: scripts/fuzz.sh [SECONDS]
# Findings stay in build/clang-asan-ubsan/fuzz; each finding becomes a test.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
readonly BUILD=build/clang-asan-ubsan/fuzz
export SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy
export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0

run_fuzzer() {
    local name=$1 folder=$PWD/$BUILD/$1.run
    mkdir -p "$folder/corpus"
    local seeds=()
    [[ -d fuzz/seeds/$name ]] && seeds=("$PWD/fuzz/seeds/$name")
    if (cd "$folder" && "$OLDPWD/$BUILD/$name" corpus "${seeds[@]}" -max_total_time="$seconds" -max_len=140000 \
        -timeout=20 -print_final_stats=1 >run.log 2>&1); then
        printf '%-24s %s inputs\n' "$name" "$(sed -n 's/^stat::number_of_executed_units: *//p' "$folder/run.log")"
    else
        tail -40 "$folder/run.log"
        printf '%s failed; the input is in %s\n' "$name" "$folder"
        return 1
    fi
}

found=0 failed=0
for program in "$BUILD"/*_fuzzer; do
    [[ -x $program ]] || continue
    # Two at a time: one for each core of a small machine.
    if [[ $found -ge 2 ]]; then wait -n || failed=1; fi
    run_fuzzer "$(basename "$program")" &
    found=$((found + 1))
done
[[ $found -gt 0 ]] || { echo "no fuzzer was built in $BUILD"; exit 1; }
while [[ -n $(jobs -p) ]]; do wait -n || failed=1; done
exit "$failed"
