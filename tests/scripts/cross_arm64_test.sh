#!/usr/bin/env bash
# What scripts/cross-arm64.sh installs, builds and runs. It works on a copy of the scripts; the programs that it calls are
# played by ours, which write down how they were called.
#   cross_arm64_test.sh FOLDER
set -euo pipefail
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
readonly source work=$1
readonly tree=$work/tree calls=$work/calls bin=$work/bin
failures=0

# play NAME [SCRIPT]: a program of that name; without a script it does nothing.
play() {
    printf '#!/bin/bash\necho "%s $*" >>"%s"\n%s\n' "$1" "$calls" "${2:-}" >"$bin/$1"
    chmod +x "$bin/$1"
}

# A Debian on amd64, where every package is installed but those named in $missing.
prepare() {
    rm -rf "$work"
    mkdir -p "$tree" "$bin"
    cp -R "$source/scripts" "$tree"
    export missing='' foreign=arm64 status=0
    # shellcheck disable=SC2016  # expanded when the programs are called
    play dpkg 'case $1 in --print-architecture) echo amd64 ;; --print-foreign-architectures) echo $foreign ;; esac'
    # shellcheck disable=SC2016
    play dpkg-query 'for name in "${@:3}"; do
        if [[ " $missing " == *" $name "* ]]; then continue; fi
        case $name in *:*) ;; fonts-*) name+=:all ;; *) name+=:amd64 ;; esac
        echo "installed $name"
    done'
    play apt-get
    play cmake
    # shellcheck disable=SC2016
    play ctest 'echo "100% tests passed"; exit $status'
    # shellcheck disable=SC2016
    play sudo '"$@"'
    : >"$calls"
}

# cross CODE [ARGUMENT]...: runs the script, which must end with that code.
cross() {
    local expected=$1 code=0
    shift
    said=$(PATH=$bin:$PATH "$tree/scripts/cross-arm64.sh" "$@" 2>"$work/errors") || code=$?
    [[ $code -eq $expected ]] || complain "cross-arm64.sh $* ended with $code: $(cat "$work/errors")"
}

complain() {
    printf '%s\n' "$1" >&2
    failures=$((failures + 1))
}

called() { grep --quiet -- "$1" "$calls" || complain "not called: $1; but $(cat "$calls")"; }
not_called() { if grep -- "$1" "$calls" >&2; then complain "called all the same: $1"; fi; }

prepare
cross 0 --help
[[ $said == *--signed-char* ]] || complain 'the help does not name --signed-char'
not_called .

for mistake in Visit '--build -R' '--signed-char Visit'; do
    prepare
    # shellcheck disable=SC2086  # words
    cross 2 $mistake
    [[ -z $said && $(cat "$work/errors") == *--build* ]] || complain "no usage on standard error for $mistake"
    not_called .
done

prepare
cross 0
not_called '^apt-get\|--add-architecture'
called '^cmake --preset arm64 '
called '^cmake --build --preset arm64 '
called '^ctest --preset arm64 --parallel [0-9]*$'

prepare
cross 0 --signed-char -R menu_tests
called '^cmake --build --preset arm64-signed-char '
called '^ctest --preset arm64-signed-char --parallel [0-9]* -R menu_tests$'

prepare
cross 0 --build
called '^cmake --build --preset arm64 '
not_called '^ctest'

# A package of this machine's own processor is no replacement for that of the other one.
prepare
foreign='' missing='libsdl2-dev:arm64 libgtest-dev:arm64'
cross 0 --build
called '^dpkg --add-architecture arm64$'
called '^apt-get install .* libgtest-dev:arm64 libsdl2-dev:arm64$'

prepare
missing=libsdl2-dev
cross 0 --build
called '^apt-get install .* libsdl2-dev$'

prepare
status=8
cross 1

exit $((failures > 0))
