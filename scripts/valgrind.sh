#!/usr/bin/env bash
# Runs the tests whose suite names contain "Lifecycle" under valgrind: scripts/valgrind.sh BUILD_DIRECTORY
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?name the build directory}
readonly FILTER='*Lifecycle*'
log=$build/valgrind.log
readonly log

# Mismatched frees: some tests count allocations with an operator new of their own, which valgrind replaces by half.
count=0
for program in "$build"/tests/ostrel_*_tests; do
    tests=$("$program" --gtest_filter="$FILTER" --gtest_list_tests | grep -c '^  ' || true)
    [[ $tests -gt 0 ]] || continue
    printf '%s: %d tests\n' "$(basename "$program")" "$tests"
    valgrind --quiet --show-mismatched-frees=no --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite \
        --show-leak-kinds=definite --suppressions=tests/support/valgrind.supp --gen-suppressions=no \
        "$program" --gtest_filter="$FILTER" --gtest_brief=1 >"$log" 2>&1 || { cat "$log"; exit 1; }
    count=$((count + tests))
done
# A filter that matches nothing must not pass for a clean run.
[[ $count -gt 0 ]] || { echo "no lifecycle test found"; exit 1; }
printf '%d lifecycle tests clean under valgrind\n' "$count"
