#!/usr/bin/env bash
# build_launcher ROOT: builds the sample launcher and its visit player into ROOT/build/run/samples/launcher. Sourced, not
# run. The build is one of its own, so that it needs none of the packages of the tests; ninja configures again by itself.

build_launcher() {
    local build=$1/build/run
    local log=$build/configure.log
    mkdir -p "$build"
    if [[ ! -f $build/build.ninja ]]; then
        echo 'Building the launcher; the first time takes about a minute'
        (cd "$1" && cmake --preset release -B "$build" -DOSTREL_BUILD_TESTS=OFF) >"$log" 2>&1 ||
            { cat "$log" >&2; return 1; }
    fi
    # Quiet as it is asked to be, ninja still says when there is nothing to do.
    ninja -C "$build" --quiet ostrel-launcher ostrel-visit | sed '/^ninja: no work to do\.$/d'
}
