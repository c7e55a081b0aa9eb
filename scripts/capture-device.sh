#!/bin/sh
# Copies what the library and the launcher read on a real console into a folder, for console.sh to replay elsewhere.
#   capture-device.sh DIR                 run on the console; DIR is new or empty
#   capture-device.sh DIR --root ROOT     reads below another root directory
# It needs no other file and no more than a small shell: copy it to the console, run it, and bring DIR back. DIR then
# holds the settings and the name of the wireless network. What cannot be read is named and left out.
set -eu

# Files that a console has; one that is missing is worth a word.
FILES='
sys/class/power_supply/axp2202-battery/capacity
sys/class/power_supply/axp2202-battery/status
sys/class/power_supply/axp2202-usb/online
sys/devices/virtual/disp/disp/attr/enhance_bright
sys/devices/virtual/disp/disp/attr/enhance_contrast
sys/devices/virtual/disp/disp/attr/color_temperature
sys/devices/virtual/disp/disp/attr/enhance_saturation
mnt/UDISK/system.json
mnt/SDCARD/features.json
usr/ostrel/features.json
proc/meminfo
'
# Files that say something by being there, whatever they hold.
MARKERS='
tmp/stay_awake
tmp/ostrel_inputd/grab
tmp/osdd_show_up
tmp/btdev_addr
tmp/bluetooth_ready
dev/dsp1
'

usage() { sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

refuse() {
    echo "$1" >&2
    exit 2
}

leave_out() { echo "left out: $1" >&2; }

make_folder_of() { mkdir -p "$target/$(dirname "$1")"; }

# Read and written, because many a file of the system says that it is empty.
copy_file() {
    make_folder_of "$1"
    if ! cat "$root/$1" >"$target/$1" 2>/dev/null; then
        rm -f "$target/$1"
        leave_out "/$1"
    fi
}

copy_marker() {
    [ -e "$root/$1" ] || return 0
    make_folder_of "$1"
    : >"$target/$1"
}

# The daemons that tell what the wireless chip does, by the first of their arguments.
copy_daemon() {
    program=$(tr '\0' '\n' <"$1" 2>/dev/null | head -n 1) || return 0
    case $program in
        *wpa_supplicant | *hostapd) ;;
        *) return 0 ;;
    esac
    file=${1#"$root"/}
    make_folder_of "$file"
    cat "$1" >"$target/$file"
}

# copy_answer QUERY
copy_answer() {
    answer=$target/var/wpa_$1
    wpa_cli -p "$root/etc/wifi/sockets" -i wlan0 "$1" >"$answer" 2>/dev/null && return 0
    rm -f "$answer"
    leave_out "wpa_cli $1"
}

capture() {
    mkdir -p "$target/sys" "$target/proc" "$target/mnt/UDISK" "$target/mnt/SDCARD" "$target/var"
    for name in $FILES; do copy_file "$name"; done
    for name in $MARKERS; do copy_marker "$name"; done
    for name in "$root"/proc/[0-9]*/cmdline; do copy_daemon "$name"; done
    copy_answer status
    copy_answer signal_poll
}

case "${1:-}" in
    -h | --help) usage; exit 0 ;;
    "" | -*) usage >&2; exit 2 ;;
esac
target=$1
root=
case "$#,${2:-}" in
    1,) ;;
    3,--root) root=${3%/} ;;
    *) usage >&2; exit 2 ;;
esac
[ -d "$root/" ] || refuse "$root: there is no such directory"
[ ! -e "$target" ] || [ -z "$(ls -A "$target")" ] || refuse "$target: not empty; name a new folder"
capture
