#!/usr/bin/env bash
# Runs a program in a file system of its own, laid out as on the console, so that the library meets the paths that it
# uses without a device root. Nothing outside is touched. Exit code 77: this system allows no private mounts.
#   run.sh PROGRAM SOURCE_DIRECTORY BUILD_DIRECTORY MOUNT_POINT
set -euo pipefail
readonly program=$1 source=$2 build=$3 root=$4

# bind DIRECTORY: shows it at the same place below the new root
bind() {
    mkdir -p "$root$1"
    mount --rbind "$1" "$root$1"
}

# bind_all DIRECTORY NAMES...: what the directory holds, but for those names
bind_all() {
    local directory=$1 entry
    shift
    for entry in "$directory"/*; do
        if [[ " $* " == *" ${entry##*/} "* ]]; then continue; fi
        if [[ -L $entry ]]; then
            cp -P "$entry" "$root$entry"
        elif [[ -d $entry ]]; then
            bind "$entry"
        fi
    done
}

make_console() {
    mkdir -p "$root"/mnt/{SDCARD,UDISK} "$root/usr/ostrel" "$root/tmp" "$root/console"
    echo '{"bluetooth": 1, "suspend": 0}' >"$root/mnt/SDCARD/features.json"
    echo '{"bluetooth": 2}' >"$root/usr/ostrel/features.json"
    echo '{"vol": 7, "colorbrightness": 3, "colorcontrast": 4, "colortemperature": 12, "colorsaturation": 6}' \
        >"$root/mnt/UDISK/system.json"
    mkdir -p "$root/sys/devices/virtual/disp/disp/attr" "$root"/sys/class/power_supply/axp2202-{battery,usb}
    echo Charging >"$root/sys/class/power_supply/axp2202-battery/status"
    echo 42 >"$root/sys/class/power_supply/axp2202-battery/capacity"
    echo 1 >"$root/sys/class/power_supply/axp2202-usb/online"
    # Answers with the folder that it was given as the network's name.
    # shellcheck disable=SC2016  # the tool's own arguments
    printf '#!/bin/sh\nprintf "wpa_state=COMPLETED\\nssid=%%s\\n" "$2"\n' >"$root/console/wpa_cli"
    chmod +x "$root/console/wpa_cli"
}

if [[ ${5:-} == inside ]]; then
    mount -t tmpfs tmpfs "$root"
    make_console
    bind_all /usr ostrel
    bind_all "" mnt sys tmp usr
    # Either may lie in a folder left out above; a sanitizer reads its list of exceptions from the sources.
    bind "$source"
    bind "$build"
    PATH=/console:$PATH exec chroot "$root" "$program"
fi

mkdir -p "$root"
# shellcheck disable=SC2016  # expanded by the inner shell
unshare -rm --propagation private sh -c \
    'mount -t tmpfs tmpfs "$1" && mkdir "$1/all" && mount --rbind / "$1/all" && chroot "$1/all" true' \
    sh "$root" 2>/dev/null || exit 77
exec unshare -rm --propagation private "$BASH" "$0" "$program" "$source" "$build" "$root" inside
