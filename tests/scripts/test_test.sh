#!/usr/bin/env bash
# The stages of scripts/test.sh: what they build and run, and what it says at the end.
#   test_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"
jobs=$(nproc)
readonly jobs
readonly build_release="cmake --build --preset release --parallel $jobs -- --quiet"

prepare
run 0 test.sh --help
[[ $said == *--ci*--stage* ]] || complain "no options in the help: $said"
not_called .

for mistake in nonsense --stage '--stage nonsense' '--stage lint lint' '--ci lint' '--help lint'; do
    prepare
    # shellcheck disable=SC2086  # words
    run 2 test.sh $mistake
    [[ -z $said && $errors == *--stage* ]] || complain "no usage on standard error for $mistake"
    not_called .
done

prepare
run 0 test.sh
called '^cmake --preset release -DOSTREL_BUILD_BENCH=OFF$'
called_last "$build_release" "ctest --preset release --parallel $jobs"
[[ $said == *'100% tests passed'*'All stages passed: release' ]] || complain "said $said"

# The failures come first, however many lines they have; what ctest says at the end is not lost behind them.
prepare
# shellcheck disable=SC2016  # expanded when the program is called
play ctest 'echo "1/2 Test #1: Good.Day ... Passed"
for ((line = 0; line < 20000; line++)); do echo "wrong $line"; done
echo "50% tests passed, 1 tests failed out of 2"; exit 8'
run 1 test.sh
[[ $said == *'wrong 0'* && $said != *Good.Day* ]] || complain 'not the failures alone'
[[ $said == *$'\n50% tests passed, 1 tests failed out of 2' ]] || complain "not the sum at the end of: ${said: -200}"

# A run of no test is none that passed.
prepare
play ctest 'echo "No tests were found!!!"'
run 1 test.sh

exit $((failures > 0))
