#!/usr/bin/env bash
# Installs what is missing, builds the sample launcher and opens it.
#   ./scripts/run.sh [OPTION]... [DIRECTORY]    --help names the options; DIRECTORY is the folder to list
# Without a display it plays a short visit instead and names the pictures it took.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
# shellcheck source=scripts/lib/install-packages.sh
source "$root/scripts/lib/install-packages.sh"
# shellcheck source=scripts/lib/packages.sh
source "$root/scripts/lib/packages.sh"

# A build of its own, so that it needs none of the packages of the tests. ninja configures again by itself.
readonly build=$root/build/run
readonly programs=$build/samples/launcher

build_launcher() {
    local log=$build/configure.log
    mkdir -p "$build"
    if [[ ! -f $build/build.ninja ]]; then
        echo 'Building the launcher; the first time takes about a minute'
        (cd "$root" && cmake --preset release -B "$build" -DOSTREL_BUILD_TESTS=OFF) >"$log" 2>&1 ||
            { cat "$log" >&2; return 1; }
    fi
    ninja -C "$build" --quiet ostrel-launcher ostrel-visit
}

main() {
    install_packages "${BUILD_PACKAGES[@]}"
    build_launcher
    if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
        exec "$programs/ostrel-launcher" "$@"
    fi
    echo 'There is no display, so a short visit is played instead. Its pictures:'
    local visit=first_light
    [[ $# -eq 0 ]] || visit=any_folder
    exec "$programs/ostrel-visit" --visit "$root/samples/launcher/visits/$visit.visit" "$@"
}

main "$@"
