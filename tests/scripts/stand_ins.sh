#!/usr/bin/env bash
# A copy of the scripts, and programs in the place of those that would install, build and test: they write down how they
# were called, and no others are within reach. Sourced, not run, by a test whose first argument is a folder to work in.
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
readonly source work=$1
readonly tree=$work/tree calls=$work/calls bin=$work/bin wanting=$work/wanting
export wanting
failures=0

# play NAME [SCRIPT]: a program of that name; without a script it does nothing.
play() {
    rm -f "$bin/$1"
    printf '#!/bin/bash\necho "%s $*" >>"%s"\n%s\n' "$1" "$calls" "${2:-}" >"$bin/$1"
    chmod +x "$bin/$1"
}

# play_script NAME: a program in the place of one of the scripts.
play_script() {
    play "$1"
    mv "$bin/$1" "$tree/scripts/$1"
}

# use NAME...: the real programs.
use() {
    local name
    for name in "$@"; do ln -s "$(type -P "$name")" "$bin/$name"; done
}

# A Debian on amd64, with us as root, where every package is installed but those named in the file $wanting, until
# apt-get installs these. cmake makes a folder that counts as configured, ninja a launcher.
# shellcheck disable=SC2016  # expanded when the programs are called
prepare() {
    rm -rf "$work"
    mkdir -p "$tree" "$bin"
    cp -R "$source/scripts" "$tree"
    export foreign=arm64 status=0 user=0
    unset TMPDIR  # a run of all tests has set it
    use awk basename bash cat chmod cp df dirname env grep head mkdir mktemp nproc rm sed sleep tail
    play dpkg 'case $1 in --print-architecture) echo amd64 ;; --print-foreign-architectures) echo $foreign ;; esac'
    play dpkg-query 'for name in "${@:3}"; do
        if [[ " $(<"$wanting") " == *" $name "* ]]; then continue; fi
        case $name in *:*) ;; fonts-*) name+=:all ;; *) name+=:amd64 ;; esac
        echo "installed $name"
    done'
    play apt-get 'if [[ $1 == install ]]; then : >"$wanting"; fi'
    play id 'echo "$user"'
    play sudo '"$@"'
    play cmake 'folder=build/$2
        if [[ ${3:-} == -B ]]; then folder=$4; fi
        if [[ $1 == --preset ]]; then mkdir -p "$folder"; : >"$folder/build.ninja"; fi'
    play ninja 'mkdir -p "$2/samples/launcher"; cp "${0%/*}"/ostrel-* "$2/samples/launcher"
        echo "ninja: no work to do."'
    play ostrel-launcher
    play ostrel-visit
    play ctest 'echo "100% tests passed"; exit $status'
    : >"$wanting"
    : >"$calls"
}

# run CODE SCRIPT [ARGUMENT]...: runs it in its folder, and it must end with that code. What it said is in $said and
# $errors.
# shellcheck disable=SC2034  # the tests read them
run() {
    local expected=$1 code=0
    shift
    said=$(cd "$tree/scripts" && PATH=$bin "./$1" "${@:2}" 2>"$work/errors") || code=$?
    errors=$(cat "$work/errors")
    [[ $code -eq $expected ]] || complain "$* ended with $code: $errors"
}

complain() {
    printf '%s\n' "$1" >&2
    failures=$((failures + 1))
}

called() { grep --quiet -- "$1" "$calls" || complain "not called: $1; but $(cat "$calls")"; }
not_called() { if grep -- "$1" "$calls" >&2; then complain "called all the same: $1"; fi; }

# called_last LINE...: the last calls, in this order.
called_last() {
    [[ $(tail -n $# "$calls") == "$(printf '%s\n' "$@")" ]] || complain "not called last: $*; but $(cat "$calls")"
}
