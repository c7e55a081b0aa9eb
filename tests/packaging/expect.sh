#!/usr/bin/env bash
# Expectations of the tests in this folder. Sourced, not run.
failures=0
# The games have names in many scripts, which cpack loses in a locale of ASCII.
export LC_ALL=C.UTF-8

# expect_status STATUS COMMAND...: runs it; what it says is in $said.
# shellcheck disable=SC2034  # the tests read $said
expect_status() {
    local expected=$1 status=0
    shift
    said=$("$@" 2>&1) || status=$?
    [[ $status -eq $expected ]] || complain "$* ended with $status, not $expected: $said"
}

# expect_line TEXT LINE: TEXT has a line that reads so.
expect_line() { grep --quiet --line-regexp --fixed-strings -- "$2" <<<"$1" || complain "no line \"$2\" in: $1"; }

# expect_part TEXT PART: TEXT holds it somewhere.
expect_part() { [[ $1 == *"$2"* ]] || complain "no \"$2\" in: $1"; }

complain() {
    printf '%.1000s\n' "$1" >&2  # the first lines tell enough
    failures=$((failures + 1))
}

# need PROGRAM...: skips the test when one is missing.
need() {
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null || { printf 'Skipped: %s is not installed\n' "$program"; exit 77; }
    done
}
