#!/usr/bin/env bash
# A console in a folder: lays out or reuses DIR and runs the sample launcher, or a program of your own, in it.
#   ./scripts/console.sh DIR                        the sample launcher
#   ./scripts/console.sh DIR -- PROGRAM [ARG]...    any program that links the library: DIR/mnt, DIR/sys, DIR/tmp and
#                                                   DIR/usr/ostrel stand at /mnt, /sys, /tmp and /usr/ostrel for it
#   ./scripts/console.sh DIR --make                 lays the folder out, and no more
# While it runs, write to a file in DIR, or set it by name, and the next frame shows it (Wi-Fi within three seconds):
#   ./scripts/console.sh DIR --set NAME=VALUE...    such as battery=7 charging=1 wifi=-71 volume=0 overlay=1
#   ./scripts/console.sh DIR --show                 every name and its value, as --set takes them
#   ./scripts/console.sh DIR --shot FILE.png        keeps the screen of the running launcher
# OSTREL_LAUNCHER names a launcher that is built already. Exit codes: 2 for wrong usage, 77 when this system allows no
# private mounts, which PROGRAM needs.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
# shellcheck source=scripts/lib/build-launcher.sh
source "$root/scripts/lib/build-launcher.sh"
# shellcheck source=scripts/lib/console-folder.sh
source "$root/scripts/lib/console-folder.sh"
# shellcheck source=scripts/lib/install-packages.sh
source "$root/scripts/lib/install-packages.sh"
# shellcheck source=scripts/lib/packages.sh
source "$root/scripts/lib/packages.sh"

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

# refuse LINE: wrong usage.
refuse() {
    printf '%s\n' "$1" >&2
    exit 2
}

need_console() { is_console || refuse "$console: no console yet; ./scripts/console.sh $console --make lays it out"; }

# The launcher.

find_launcher() {
    if [[ -z ${OSTREL_LAUNCHER:-} ]]; then
        install_packages "${BUILD_PACKAGES[@]}"
        build_launcher "$root"
    fi
    launcher=${OSTREL_LAUNCHER:-$root/build/run/samples/launcher/ostrel-launcher}
}

run_launcher() {
    if [[ -z ${DISPLAY:-}${WAYLAND_DISPLAY:-}${SDL_VIDEODRIVER:-} ]]; then
        echo 'There is no display: the launcher runs unseen, and --shot shows its screen'
        export SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy
    fi
    PATH=$console/bin:$PATH exec "$launcher" --device "$console" \
        --games "$console/mnt/SDCARD/games" --run "$console/run"
}

# Another program.

# Whoever ends this script ends all that it has started there.
in_namespaces() {
    setpriv --pdeathsig KILL unshare --map-root-user --mount --pid --fork --kill-child --propagation private "$@"
}

# shellcheck disable=SC2016  # expanded by the inner shell
may_mount() {
    mkdir -p "$console/.root"
    in_namespaces sh -c 'mount -t tmpfs tmpfs "$1" && mkdir "$1/usr" && mount --rbind /usr "$1/usr" && chroot / true' \
        sh "$console/.root" 2>/dev/null
}

run_program() {
    if ! may_mount; then
        echo 'This system allows no private mounts (user namespaces), which the program needs to meet /mnt and /sys' >&2
        exit 77
    fi
    in_namespaces "$root/scripts/lib/console-root.sh" "$console" "$root" "$@" && exit 0 || exit $?
}

# While it runs.

# Looks at all of them first: with a mistake in one, nothing is changed.
check_pairs() {
    local pair words
    [[ $# -gt 0 ]] || refuse "--set what? Names: $(all_names)"
    for pair in "$@"; do
        [[ $pair == *=* ]] || refuse "$pair: write NAME=VALUE"
        words=$(allowed "${pair%%=*}")
        [[ -n $words ]] || refuse "${pair%%=*}: no such name. Names: $(all_names)"
        is_allowed "${pair%%=*}" "${pair#*=}" || refuse "$pair: ${pair%%=*} takes $words"
    done
}

set_pairs() {
    local pair
    check_pairs "$@"
    for pair in "$@"; do set_value "${pair%%=*}" "${pair#*=}"; done
}

show() {
    local name
    for name in $(all_names); do printf '%s=%s\n' "$name" "$(get_value "$name")"; done
}

# The launcher looks for the request in each frame, and takes it away when the picture is there.
shot() {
    local file=$1 request=$console/tmp/launcher_shot turn
    [[ $file == *.png ]] || refuse "$file: name a .png file"
    [[ -d $(dirname "$file") ]] || refuse "$file: there is no such folder"
    rm -f "$request.png"
    : >"$request"
    for ((turn = 0; turn < 80; turn++)); do
        if [[ ! -e $request ]]; then
            mv "$request.png" "$file" 2>/dev/null && return 0
            echo "$file: the launcher could not write its screen" >&2
            return 1
        fi
        sleep 0.05
    done
    rm -f "$request"
    echo "No launcher draws in $console: start it with ./scripts/console.sh $console" >&2
    return 1
}

run_here() {
    lay_out "$root"
    [[ $# -eq 0 ]] || run_program "$@"
    find_launcher
    run_launcher
}

main() {
    case "${1:-}" in
        -h | --help) usage; exit 0 ;;
        "" | -*) usage >&2; exit 2 ;;
    esac
    console=$(realpath -m -- "$1")
    readonly console
    [[ $console != / ]] || refuse '/ is the machine itself; name a folder'
    shift
    case "${1:-}" in
        "") run_here ;;
        --) [[ $# -gt 1 ]] || refuse '-- what? Name a program'; shift; run_here "$@" ;;
        --make) lay_out "$root" ;;
        --set) need_console; shift; set_pairs "$@" ;;
        --show) need_console; show ;;
        --shot) [[ $# -eq 2 ]] || refuse '--shot FILE.png'; need_console; shot "$2" ;;
        *) usage >&2; exit 2 ;;
    esac
}

main "$@"
