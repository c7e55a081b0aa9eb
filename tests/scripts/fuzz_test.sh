#!/usr/bin/env bash
# How scripts/fuzz.sh runs the fuzzers that there are.
#   fuzz_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"
readonly fuzzers=$tree/build/clang-asan-ubsan/fuzz
export work

# prepare_fuzzers NAME...: each writes down how many run, itself among them.
prepare_fuzzers() {
    prepare
    mkdir -p "$fuzzers" "$work/running"
    local name
    for name in "$@"; do
        # shellcheck disable=SC2016  # expanded when the program is called
        play "${name}_fuzzer" ': >"$work/running/$$"
            running=("$work"/running/*)
            echo "${#running[@]}" >>"$work/counts"
            sleep 0.2
            rm "$work/running/$$"
            exit $status'
        mv "$bin/${name}_fuzzer" "$fuzzers"
    done
}

prepare_fuzzers a b c d e f
run 0 fuzz.sh 7
for name in a b c d e f; do called "^${name}_fuzzer .*-max_total_time=7 "; done
[[ $(sort -n "$work/counts" | tail -n 1) -le 2 ]] || complain "at a time there ran $(xargs <"$work/counts")"

# A finding counts wherever it stands in the row.
for name in a b c d; do
    prepare_fuzzers a b c d
    sed -i 's/exit .*/exit 1/' "$fuzzers/${name}_fuzzer"
    run 1 fuzz.sh
    [[ $said == *"${name}_fuzzer failed; the input is in "* ]] || complain "${name}_fuzzer: said $said"
done

prepare
run 1 fuzz.sh
[[ $said == 'no fuzzer was built in '* ]] || complain "said $said"

exit $((failures > 0))
