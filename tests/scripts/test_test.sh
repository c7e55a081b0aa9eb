#!/usr/bin/env bash
# The stages of scripts/test.sh: what they build and run, and what it says at the end.
#   test_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"
jobs=$(nproc)
readonly jobs
# What brings the release build up to date, and its library alone.
readonly build_release="cmake --build --preset release --parallel $jobs -- --quiet"
readonly build_library="cmake --build --preset release --parallel $jobs --target ostrel -- --quiet"

prepare_stages() {
    prepare
    local script
    for script in cross-arm64.sh fuzz.sh lint valgrind.sh; do play_script $script; done
}

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
called '^cmake --preset release -DOSTREL_BUILD_BENCH=OFF -DOSTREL_FORKED_TESTS=OFF$'
called_last "$build_release" "ctest --preset release --parallel $((jobs + 1))"
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

# Of programs that fork their tests it says how many those were.
prepare
play ctest 'mkdir -p build/release/Testing/Temporary
printf "%s\n" "3 tests, 1 failed" "a line of 9 tests, 9 failed" "40 tests, 0 failed" >build/release/Testing/Temporary/LastTest.log
echo "100% tests passed"'
run 0 test.sh
[[ $said == *$'\n43 tests in 2 starts, 1 failed\n'* ]] || complain "said $said"

# The tests' files lie in memory and are gone afterwards, if there is memory that can hold them and a program.
# tests_files FOLDER: where they lay; "" when nobody said where.
tests_files() {
    run 0 test.sh
    [[ $(<"$work/files") == "$1" ]] || complain "the files lay in '$(<"$work/files")', not in '$1'"
    [[ ! -e $work/memory ]] || complain 'the memory is still taken'
}
prepare_memory() {
    prepare
    # shellcheck disable=SC2016  # expanded when the program is called
    play ctest 'echo "${TMPDIR:-}" >"$work/files"
        if [[ ${TMPDIR:-} == "$work/memory" ]]; then echo left >"$TMPDIR/behind" || exit 1; fi
        echo "100% tests passed"'
    # shellcheck disable=SC2016
    play mktemp 'mkdir -p "$work/memory" && echo "$work/memory"'
}
export work
prepare_memory
tests_files "$work/memory"
prepare_memory
TMPDIR=/elsewhere tests_files /elsewhere
prepare_memory
play mktemp 'exit 1'
tests_files ''
prepare_memory
play df 'echo Avail; echo 1023'
tests_files ''
prepare_memory
# shellcheck disable=SC2016
play cp 'printf "#!/nowhere\n" >"$2"; chmod +x "$2"'
tests_files ''

prepare_stages
run 0 test.sh --ci
[[ $(grep -c '^cmake --preset release ' "$calls") == 1 ]] || complain "release not configured once: $(cat "$calls")"
called '^cmake --preset release -DOSTREL_BUILD_BENCH=ON -DOSTREL_FORKED_TESTS=tests$'
for preset in release clang-asan-ubsan tsan; do called "^ctest --preset $preset "; done
called '^fuzz.sh 5$'
called_last "$build_release" 'valgrind.sh build/release' "$build_library" 'lint build/release' 'cross-arm64.sh '
[[ $said == *'All stages passed: release asan tsan valgrind lint arm64' ]] || complain "said $said"

# What these two look at is what the sources say: built when there is nothing yet, and brought up to date, as it is
# configured, when there is.
looks_at_the_release() {
    local stage=$1
    shift
    prepare_stages
    run 0 test.sh --stage "$stage"
    called '^cmake --preset release '
    called_last "$@"
    : >"$calls"
    run 0 test.sh --stage "$stage"
    not_called '^cmake --preset'
    called_last "$@"
}
looks_at_the_release lint "$build_library" 'lint build/release'
looks_at_the_release valgrind "$build_release" 'valgrind.sh build/release'

exit $((failures > 0))
