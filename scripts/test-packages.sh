#!/usr/bin/env bash
# Installs the three packages in a bare Debian 12 and lets an ordinary user play a visit there, without a display.
#   ./scripts/test-packages.sh [--arm64] [DIRECTORY] [SHOTS]
# DIRECTORY holds the .deb files that scripts/package.sh made (default: build/packages), SHOTS gets the pictures (default:
# build/packages/shots). --arm64 takes the packages of 64-bit ARM, whose launcher an emulator runs there. The bare system
# comes from this machine's own apt sources; it lies in a temporary folder and is gone afterwards. Ends with 77 and the
# reason where such a system cannot be made, with 1 when a package is at fault.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
readonly visit=/usr/share/ostrel-launcher/visits/first_light.visit
readonly ready='the bare system is ready'

usage() { sed -n '2,7s/^# \{0,1\}//p' "$0"; }

skip() {
    printf 'Skipped: %s\n' "$1" >&2
    exit 77
}

fail() {
    printf '%s\n' "$1" >&2
    exit 1
}

# apt's enabled sources and proxies of this machine, as a bare system needs them.
apt_sources() { find /etc/apt -maxdepth 2 \( -name sources.list -o -name '*.list' -o -name '*.sources' \) -size +0; }
apt_proxies() { apt-config dump 2>/dev/null | grep -E '^Acquire::https?::Proxy' || true; }

# The processor whose packages are tested, and what plays a visit: in an emulator, which starts no second program for the
# first one, the program itself that the launcher would start.
architecture=$(dpkg --print-architecture)
player=ostrel-launcher

# What happens in the new system, one step a line; mmdebstrap runs each with the system's folder as $1.
hooks() {
    local in_root="chroot \"\$1\""
    printf '%s\n' "echo $ready" \
        "copy-in $* /opt" \
        "$in_root sh -c 'apt-get install --yes --quiet --no-install-recommends /opt/*.deb'" \
        "$in_root useradd --create-home player" \
        "$in_root runuser -u player -- env -i HOME=/home/player PATH=/usr/bin:/bin $player --visit $visit --shots /home/player/first_light" \
        "$in_root test -d /home/player/.local/state/ostrel-launcher/lang" \
        "copy-out /home/player/first_light $shots" \
        "$in_root apt-get purge --yes --quiet ostrel-launcher:$architecture libostrel-dev:$architecture libostrel1:$architecture" \
        "$in_root test ! -e /usr/share/ostrel-launcher"
}

play_in_bare_system() {
    local log=$1 mode=unshare options=() line
    shift
    [[ $(id -u) -ne 0 ]] || mode=root
    while read -r line; do options+=("--customize-hook=$line"); done < <(hooks "$@")
    while read -r line; do [[ -z $line ]] || options+=("--aptopt=$line"); done < <(apt_proxies)
    if [[ $player != ostrel-launcher ]]; then
        options+=("--architectures=$(dpkg --print-architecture),$architecture" --include=qemu-user)
    fi
    mapfile -t sources < <(apt_sources)
    mmdebstrap --variant=minbase --mode="$mode" "${options[@]}" bookworm /dev/null "${sources[@]}" >"$log" 2>&1
}

check_pictures() {
    local name
    while read -r name; do
        [[ $(head -c 4 "$shots/first_light/$name.png" 2>/dev/null | tail -c 3) == PNG ]] || fail "$shots/first_light/$name.png is no picture"
    done < <(sed -n 's/^shot \([^ ]*\).*/\1/p' "$root/samples/launcher/visits/first_light.visit")
}

main() {
    case "${1:-}" in
        --help) usage; exit 0 ;;
        --arm64) architecture=arm64 player='qemu-aarch64 /usr/bin/ostrel-visit'; shift ;;
    esac
    case "${1:-}" in
        -*) usage >&2; exit 2 ;;
    esac
    [[ $# -le 2 ]] || { usage >&2; exit 2; }
    local directory=${1:-$root/build/packages} debs=() log
    shots=${2:-$root/build/packages/shots}
    mapfile -t debs < <(find "$directory" -maxdepth 1 -name "*_$architecture.deb" 2>/dev/null | sort)
    [[ ${#debs[@]} -eq 3 ]] || { printf 'Not three packages in %s; scripts/package.sh makes them\n' "$directory" >&2; exit 2; }
    command -v mmdebstrap >/dev/null || skip 'mmdebstrap is not installed'
    mkdir -p "$shots"
    log=$shots/bare-system.log
    if ! play_in_bare_system "$log" "${debs[@]}"; then
        grep --quiet --line-regexp "$ready" "$log" || skip "no bare system: $(grep '^E:' "$log" | head -1)"
        tail -30 "$log" >&2
        fail 'The packages failed in a bare system; the lines above are the end of the log'
    fi
    check_pictures
    printf 'Installed, played and removed in a bare system. Pictures: %s\n' "$shots/first_light"
}

main "$@"
