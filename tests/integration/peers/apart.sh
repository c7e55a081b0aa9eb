#!/usr/bin/env bash
# Runs a program where it meets the daemons that it starts itself and nobody else's: with processes, a network, /tmp and
# /dev of its own. In that network wlan0 and ap0 are the two ends of a cable. Nothing outside is touched.
# Exit code 77: the kernel refuses to set anything apart here.
#   apart.sh SOURCE_DIRECTORY BUILD_DIRECTORY MOUNT_POINT PROGRAM [ARGUMENTS...]
set -euo pipefail

# Where the daemons and their tools are, which is not in every user's PATH.
export PATH=$PATH:/usr/sbin:/sbin
readonly ADDRESS=192.168.50.7/24
# Every process inside ends with the first one, and that one with unshare: no daemon outlives its test.
readonly APART=(unshare --map-root-user --net --mount --pid --fork --kill-child --mount-proc --propagation private)

usage() { sed -n '2,5s/^# \{0,1\}//p' "$0"; }

fail() {
    printf '%s\n' "$1" >&2
    exit 1
}

lay_cable() {
    ip link set lo up
    ip link add wlan0 type veth peer name ap0
    ip link set wlan0 address 02:00:00:00:00:01
    ip address add "$ADDRESS" dev wlan0
    ip link set wlan0 up
    ip link set ap0 up
}

# make_dev DIRECTORY: the devices that every program counts on. Whoever binds /dev/log then is the system's log.
make_dev() {
    local device
    mkdir "$1" "$1/shm"
    for device in null zero full random urandom tty; do
        [[ -e /dev/$device ]] || continue
        : >"$1/$device"
        mount --bind "/dev/$device" "$1/$device"
    done
    ln -s /proc/self/fd "$1/fd"
    mount --rbind "$1" /dev
}

# make_tmp DIRECTORY KEPT...: an empty /tmp, in which the kept directories that lie below it are still to be seen.
make_tmp() {
    local tmp=$1 kept
    shift
    mkdir "$tmp"
    for kept in "$@"; do
        [[ $kept == /tmp/* ]] || continue
        mkdir -p "$tmp${kept#/tmp}"
        mount --rbind "$kept" "$tmp${kept#/tmp}"
    done
    mount --rbind "$tmp" /tmp
}

run_inside() {
    local source=$1 build=$2 mount_point=$3
    shift 3
    lay_cable
    mount -t tmpfs tmpfs "$mount_point"
    make_dev "$mount_point/dev"
    make_tmp "$mount_point/tmp" "$source" "$build"
    unset TMPDIR
    "$@"
}

if [[ ${1:-} == --inside ]]; then
    shift
    run_inside "$@"
    exit
fi
[[ $# -ge 4 ]] || { usage >&2; exit 2; }
for tool in unshare ip mount; do
    command -v "$tool" >/dev/null || fail "The tool $tool is not installed."
done
mkdir -p "$3"
# shellcheck disable=SC2016  # expanded by the inner shell
readonly TRIAL='mount -t tmpfs tmpfs "$1" && ip link add wlan0 type veth peer name ap0'
if ! refusal=$("${APART[@]}" sh -c "$TRIAL" sh "$3" 2>&1); then
    printf 'Skipped, the kernel allows no place apart: %s\n' "$refusal"
    exit 77
fi
exec "${APART[@]}" "$BASH" "$0" --inside "$@"
