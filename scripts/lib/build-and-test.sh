#!/usr/bin/env bash
# How the scripts build a preset and run its tests. Sourced, not run, from the root of the tree.
JOBS=$(nproc)
readonly JOBS

# configure PRESET [cmake options]
configure() {
    mkdir -p build
    cmake --preset "$@" >"build/$1.configure.log" 2>&1 || { cat "build/$1.configure.log"; return 1; }
}

# build PRESET [options of cmake --build]
build() {
    local preset=$1
    shift
    cmake --build --preset "$preset" --parallel "$JOBS" "$@" -- --quiet
}

# configure_and_build PRESET [cmake options]
configure_and_build() { configure "$@" && build "$1"; }

# Programs that fork their tests are one test each to ctest: how many there were stands in what they said.
count_forked() {
    local said=build/$1/Testing/Temporary/LastTest.log
    [[ -f $said ]] || return 0
    awk '/^[0-9]+ tests, [0-9]+ failed$/ { tests += $1; failed += $3; programs++ }
        END { if (programs) print tests " tests in " programs " starts, " failed " failed" }' "$said"
}

# Tests make and remove so many small files that a disk's file system costs as much as the tests. Prints a new folder in
# memory, where the machine has a gigabyte of it that may hold programs.
make_folder_in_memory() {
    local folder
    folder=$(mktemp -d /dev/shm/ostrel-tests-XXXXXX 2>/dev/null) || return 1
    if [[ $(df --output=avail -B1M "$folder" | tail -n 1) -ge 1024 ]] &&
        cp /bin/true "$folder/program" && "$folder/program" 2>/dev/null; then
        chmod 755 "$folder"  # some tests play a user who may not do everything
        echo "$folder"
    else
        rm -rf "$folder"
        return 1
    fi
}

# run_ctest PRESET [ctest options]: a line per test would bury what failed, so the log holds everything, the screen the
# failures and the closing lines. Of many failures it holds the first; sed reads on, where head would end grep and us.
# In a process of its own, which leaves nothing behind however it ends.
run_ctest() (
    local preset=$1 log=build/$1.tests.log failed=0 memory
    shift
    if [[ -z ${TMPDIR:-} ]] && memory=$(make_folder_in_memory); then
        trap 'rm -rf "$memory"' EXIT
        export TMPDIR=$memory
    fi
    # One more than there are processors: some tests wait, for daemons above all, and need none meanwhile.
    ctest --preset "$preset" --parallel $((JOBS + 1)) "$@" >"$log" 2>&1 || failed=1
    [[ $failed -eq 0 ]] || grep -avE '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test .* Passed)' "$log" | sed -n 1,400p
    count_forked "$preset"
    grep -aE '^([0-9]+% tests passed|Total Test time)' "$log" || failed=1
    return "$failed"
)
