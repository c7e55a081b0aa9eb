#!/usr/bin/env bash
# Installs what is missing, builds the sample launcher and opens it.
#   ./scripts/run.sh [OPTION]... [DIRECTORY]
# DIRECTORY is the folder of games to list (default: games made for the launcher). Options that are asked for most:
#   --theme light      the other of the two themes
#   --lang ch.lang     another language: a file of samples/launcher/lang
#   --rotate           for a panel that is mounted turned
#   --help             all options, once the launcher is built
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
visit=first_light

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

# The launcher knows its options; until there is one, the most useful stand above.
show_help() { if [[ -x $programs/ostrel-launcher ]]; then "$programs/ostrel-launcher" --help; else usage; fi; }

# read_words WORD...: answers what needs no launcher, and looks for a DIRECTORY. The rest is the launcher's to read.
read_words() {
    local i
    for ((i = 1; i <= $#; i++)); do
        case ${!i} in
            -h | --help) show_help; exit 0 ;;
            -- | --rotate | --log | --*=*) ;;
            -*) i=$((i + 1)) ;;  # an option with a value
            *)
                [[ -d ${!i} ]] || { printf 'This is no directory: %s\n' "${!i}" >&2; exit 2; }
                visit=any_folder
                ;;
        esac
    done
}

main() {
    read_words "$@"
    install_packages "${BUILD_PACKAGES[@]}"
    build_launcher "$root"
    if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
        exec "$programs/ostrel-launcher" "$@"
    fi
    echo 'There is no display, so a short visit is played instead. Its pictures:'
    exec "$programs/ostrel-visit" --visit "$root/samples/launcher/visits/$visit.visit" "$@"
}

main "$@"
