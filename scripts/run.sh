#!/usr/bin/env bash
# Installs what is missing, builds the sample launcher and opens it.
#   ./scripts/run.sh [OPTION]... [DIRECTORY]    --help names the options; DIRECTORY is the folder to list
# Without a display it plays a short visit instead and names the pictures it took.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
# shellcheck source=scripts/lib/build-launcher.sh
source "$root/scripts/lib/build-launcher.sh"
# shellcheck source=scripts/lib/install-packages.sh
source "$root/scripts/lib/install-packages.sh"
# shellcheck source=scripts/lib/packages.sh
source "$root/scripts/lib/packages.sh"

readonly programs=$root/build/run/samples/launcher

main() {
    install_packages "${BUILD_PACKAGES[@]}"
    build_launcher "$root"
    if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
        exec "$programs/ostrel-launcher" "$@"
    fi
    echo 'There is no display, so a short visit is played instead. Its pictures:'
    local visit=first_light
    [[ $# -eq 0 ]] || visit=any_folder
    exec "$programs/ostrel-visit" --visit "$root/samples/launcher/visits/$visit.visit" "$@"
}

main "$@"
