#!/usr/bin/env bash
# A folder laid out like a console: made, completed, and its state read and changed by names. Sourced, not run.
# Every function works on the folder $console; every file is replaced as a whole, so that nobody reads half of it.
# shellcheck disable=SC2154  # console: the script that sources this one says which

# Each name, the numbers that it may have and, for what lies in the status block, its place there, its member of the
# settings file and the number that counts without one.
readonly NAME_TABLE='
    battery        0    100
    charging       0    1
    usb            0    1
    headphones     0    1
    overlay        0    1
    grab           0    1
    hotspot        0    1     15   hostap       0
    bluetooth      0    1     16   bluetooth    0
    volume         0    20    0    vol          14
    brightness     0    10    1    brightness   6
    keymap         0    1     2    keymap       0
    mute           0    1     3    mute         0
    bgmvol         0    20    5    bgmvol       10
    netplay        0    1     6    netplay      0
    cpufreq        0    9     7    cpufreq      0
    ledswitch      0    1     8    ledswitch    1
    menustylel1    0    9     9    menustylel1  1
    ledvalue       0    10    10   ledvalue     4
    menustylel2    0    9     11   menustylel2  0
    rumblelevel    0    5     12   rumblelevel  4
    dimtime        0    86400 13   dimtime      300
    osdshortcut    0    22    18   osdshortcut  0
    bconfirm       0    1     19   bconfirm     0
    fanlevel       -1   10    20   fanlevel     -1
'
readonly -a TEXT_NAMES=(wifi ssid ip)
readonly -a WIFI_SWITCH=(14 wifi 0)

readonly BATTERY=sys/class/power_supply/axp2202-battery
readonly USB=sys/class/power_supply/axp2202-usb
readonly SETTINGS=mnt/UDISK/system.json
readonly STATUS_BLOCK=dev/shm/ostrel_status
readonly STATUS_BYTES=84

# row_of NAME: its line of the table, as words; fails without one.
row_of() { awk -v name="$1" '$1 == name { print $2, $3, $4, $5, $6; found = 1 } END { exit !found }' <<<"$NAME_TABLE"; }

numeric_names() { awk 'NF { print $1 }' <<<"$NAME_TABLE"; }

all_names() { { numeric_names; printf '%s\n' "${TEXT_NAMES[@]}"; } | paste -sd ' '; }

# Files.

# put FILE TEXT: replaces a file of the console by a line.
put() {
    mkdir -p "$console/$(dirname "$1")"
    printf '%s\n' "$2" >"$console/$1.new"
    mv "$console/$1.new" "$console/$1"
}

# first_line FILE: "" when it cannot be read.
first_line() {
    local line=
    [[ ! -r $console/$1 ]] || IFS= read -r line <"$console/$1" || true
    printf '%s' "$line"
}

# first_number FILE: the number in it, 0 without one.
first_number() {
    local line
    line=$(first_line "$1")
    if is_number "$line"; then echo "$line"; else echo 0; fi
}

# mark FILE 0|1: takes a file away or makes it, empty.
mark() {
    if [[ $2 == 0 ]]; then rm -f "$console/$1" && return; fi
    mkdir -p "$console/$(dirname "$1")"
    : >>"$console/$1"
}

marked() { if [[ -e $console/$1 ]]; then echo 1; else echo 0; fi; }

# line_of FILE KEY: the text behind KEY= in an answer of wpa_cli.
line_of() { sed -n "s/^$2=//p" "$console/$1" 2>/dev/null | head -1 || true; }

# set_line FILE KEY TEXT: the same, changed.
set_line() { put "$1" "$(grep -v "^$2=" "$console/$1" 2>/dev/null || true; printf '%s=%s' "$2" "$3")"; }

# Processes.

# processes NAME: the folders of proc/ whose first argument ends in NAME, as the library looks for them.
processes() {
    local file program
    for file in "$console"/proc/[0-9]*/cmdline; do
        [[ -r $file ]] || continue
        IFS= read -r -d '' program <"$file" || true
        if [[ $program == *"$1" ]]; then printf '%s\n' "${file%/cmdline}"; fi
    done
}

runs() { if [[ -n $(processes "$1") ]]; then echo 1; else echo 0; fi; }

# run_process NAME PID 0|1
run_process() {
    local folder
    if [[ $3 == 1 && $(runs "$1") == 0 ]]; then
        mkdir -p "$console/proc/$2"
        printf '%s\0-B\0' "/usr/sbin/$1" >"$console/proc/$2/cmdline"
    elif [[ $3 == 0 ]]; then
        processes "$1" | while read -r folder; do rm -r "$folder"; done
    fi
}

# The status block, and the settings that it is filled from when the launcher starts.

# put_int KEY NUMBER: one int of the block, little endian as every console is; the others are left alone.
put_int() {
    local shift byte bytes=''
    for shift in 0 8 16 24; do
        printf -v byte '\\x%02x' $(($2 >> shift & 255))
        bytes+=$byte
    done
    printf '%b' "$bytes" | dd of="$console/$STATUS_BLOCK" bs=4 seek="$1" conv=notrunc status=none
}

get_int() { od -An -t d4 -j $((4 * $1)) -N 4 "$console/$STATUS_BLOCK" 2>/dev/null | tr -d ' \n'; }

# settings_number MEMBER: "" when there is none.
settings_number() {
    sed -nE "s/.*\"$1\"[[:space:]]*:[[:space:]]*(-?[0-9]+).*/\1/p" "$console/$SETTINGS" 2>/dev/null | head -1 || true
}

# settings_with MEMBER NUMBER: the whole file, changed.
settings_with() {
    if grep -Eqs "\"$1\"[[:space:]]*:" "$console/$SETTINGS"; then
        sed -E "s/(\"$1\"[[:space:]]*:[[:space:]]*)[^,}]*/\1$2/" "$console/$SETTINGS"
    elif grep -qs '":' "$console/$SETTINGS"; then
        sed "0,/{/s//{\n\t\"$1\":\t$2,/" "$console/$SETTINGS"
    else
        printf '{\n\t"%s":\t%s\n}' "$1" "$2"
    fi
}

# set_status KEY MEMBER NUMBER: for the launcher that runs, and for the next one.
set_status() {
    put_int "$1" "$3"
    put "$SETTINGS" "$(settings_with "$2" "$3")"
}

# A block that was not there yet holds what a launcher would load.
fill_status_block() {
    local key member fallback number
    [[ ! -e $console/$STATUS_BLOCK ]] || return 0
    head -c "$STATUS_BYTES" /dev/zero >"$console/$STATUS_BLOCK"
    while read -r _ _ _ key member fallback; do
        [[ -n $key ]] || continue
        number=$(settings_number "$member")
        put_int "$key" "${number:-$fallback}"
    done <<<"$NAME_TABLE
    wifi - - ${WIFI_SWITCH[*]}"
}

# Layout.

# Completes the folder from the one in samples/console. What is there stays as it is, and what was taken away stays
# away: of each folder at the top, all or nothing is copied.
# lay_out REPOSITORY
lay_out() {
    local skeleton=$1/samples/console part isNew=0
    [[ -e $console/proc ]] || isNew=1
    mkdir -p "$console"
    for part in bin mnt proc sys var; do
        [[ -e $console/$part ]] || cp -R "$skeleton/$part" "$console/$part"
    done
    mkdir -p "$console"/{dev/shm,tmp/ostrel_inputd,usr/ostrel,mnt/UDISK,mnt/SDCARD}
    [[ -e $console/mnt/SDCARD/games ]] || cp -R "$1/samples/launcher/games" "$console/mnt/SDCARD/games"
    [[ $isNew == 0 ]] || run_process wpa_supplicant 523 1
    fill_status_block
}

is_console() { [[ -d $console/sys && -d $console/proc && -e $console/$STATUS_BLOCK ]]; }

# Names.

# As wpa_cli prints a network's name: bytes that are not of ASCII as \xNN.
escaped() {
    local LC_ALL=C byte out='' i
    for ((i = 0; i < ${#1}; i++)); do
        byte=${1:i:1}
        case $byte in
            [\\\"]) out+=\\$byte ;;
            [\ -~]) out+=$byte ;;
            *) printf -v byte '\\x%02x' $(($(printf '%d' "'$byte") & 255)) && out+=$byte ;;
        esac
    done
    printf '%s' "$out"
}

# The same back.
plain() { printf '%b\n' "${1//\\\"/\"}"; }

is_number() { [[ $1 =~ ^(0|-?[1-9][0-9]{0,5})$ ]]; }

is_number_in() { is_number "$1" && (($1 >= $2 && $1 <= $3)); }

is_address() {
    local part parts
    [[ $1 =~ ^[0-9]{1,3}(\.[0-9]{1,3}){3}$ ]] || return 1
    IFS=. read -r -a parts <<<"$1"
    for part in "${parts[@]}"; do ((10#$part <= 255)) || return 1; done
}

is_ssid() {
    local LC_ALL=C
    ((${#1} >= 1 && ${#1} <= 32)) && [[ $1 != *[[:cntrl:]]* ]]
}

# allowed NAME: what it may be set to, in words; "" for a name that there is not.
allowed() {
    local row
    case $1 in
        wifi) echo 'off, searching, or the signal in dBm from -126 to 0' ;;
        ssid) echo 'a name of 1 to 32 bytes without control characters' ;;
        ip) echo 'an address such as 192.168.1.23' ;;
        *)
            read -r -a row < <(row_of "$1") || true
            [[ ${#row[@]} -eq 0 ]] || echo "a number from ${row[0]} to ${row[1]}"
            ;;
    esac
}

is_allowed() {
    local row
    case $1 in
        wifi) [[ $2 == off || $2 == searching ]] || is_number_in "$2" -126 0 ;;
        ssid) is_ssid "$2" ;;
        ip) is_address "$2" ;;
        *) read -r -a row < <(row_of "$1") && is_number_in "$2" "${row[0]}" "${row[1]}" ;;
    esac
}

get_wifi() {
    local signal
    signal=$(line_of var/wpa_signal_poll RSSI)
    case $(runs wpa_supplicant),$(line_of var/wpa_status wpa_state) in
        0,*) echo off ;;
        1,COMPLETED) echo "${signal:-0}" ;;  # without one the library counts with 0 too
        *) echo searching ;;
    esac
}

set_wifi() {
    case $1 in
        off) ;;
        searching) set_line var/wpa_status wpa_state SCANNING ;;
        *)
            set_line var/wpa_signal_poll RSSI "$1"
            set_line var/wpa_status wpa_state COMPLETED
            ;;
    esac
    local on=1
    [[ $1 != off ]] || on=0
    run_process wpa_supplicant 523 "$on"
    set_status "${WIFI_SWITCH[0]}" "${WIFI_SWITCH[1]}" "$on"
}

set_bluetooth() {
    mark tmp/btdev_addr "$1"
    mark tmp/bluetooth_ready "$1"
}

# get_value NAME
get_value() {
    local row charging=0
    read -r -a row < <(row_of "$1") || true
    case $1 in
        wifi) get_wifi ;;
        ssid) plain "$(line_of var/wpa_status ssid)" ;;
        ip) line_of var/wpa_status ip_address ;;
        battery) first_number $BATTERY/capacity ;;
        charging) [[ $(first_line $BATTERY/status) != Charging* ]] || charging=1; echo "$charging" ;;
        usb) first_number $USB/online ;;
        headphones) marked dev/dsp1 ;;
        overlay) marked tmp/osdd_show_up ;;
        grab) marked tmp/ostrel_inputd/grab ;;
        hotspot) runs hostapd ;;
        bluetooth) echo $(($(marked tmp/btdev_addr) & $(marked tmp/bluetooth_ready))) ;;
        *) get_int "${row[2]}" ;;
    esac
}

# set_value NAME VALUE: a value that is allowed.
set_value() {
    local row states=(Discharging Charging)
    case $1 in
        wifi) set_wifi "$2" ;;
        ssid) set_line var/wpa_status ssid "$(escaped "$2")" ;;
        ip) set_line var/wpa_status ip_address "$2" ;;
        battery) put $BATTERY/capacity "$2" ;;
        charging) put $BATTERY/status "${states[$2]}" ;;
        usb) put $USB/online "$2" ;;
        headphones) mark dev/dsp1 "$2" ;;
        overlay) mark tmp/osdd_show_up "$2" ;;
        grab) mark tmp/ostrel_inputd/grab "$2" ;;
        hotspot) run_process hostapd 612 "$2" ;;
        bluetooth) set_bluetooth "$2" ;;
    esac
    read -r -a row < <(row_of "$1") || true
    [[ ${#row[@]} -lt 5 ]] || set_status "${row[2]}" "${row[3]}" "$2"
}
