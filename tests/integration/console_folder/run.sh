#!/usr/bin/env bash
# Runs one case of the tests of scripts/console.sh and scripts/capture-device.sh, in a folder of its own.
#   run.sh CASE LAUNCHER PROBE FOLDER
# shellcheck disable=SC2317  # the cases are called by their names
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
readonly root case=$1 probe=$3 work=$4
readonly device=$work/console
export OSTREL_LAUNCHER=$2
export SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy TZ=UTC
failures=0
launcher=

console() { "$root/scripts/console.sh" "$device" "$@"; }

# expect WHAT VALUE EXPECTED
expect() {
    [[ $2 == "$3" ]] && return
    printf '%s:\n  found    "%s"\n  expected "%s"\n' "$1" "$2" "$3" >&2
    failures=$((failures + 1))
}

# expect_match WHAT VALUE PATTERN
# shellcheck disable=SC2053  # a pattern, and meant as one
expect_match() { if [[ $2 == $3 ]]; then return; fi; expect "$1" "$2" "$3"; }

content() { cat "$device/$1" 2>/dev/null || echo 'no such file'; }

shown() { console --show | sed -n "s/^$1=//p"; }

# fails_with CODE LAST_LINE COMMAND...
fails_with() {
    local code=0 output
    output=$("${@:3}" 2>&1 >/dev/null) || code=$?
    expect "exit code of ${*:3}" "$code" "$1"
    expect_match "message of ${*:3}" "$output" "$2"
}

# The process is the launcher itself: console.sh becomes it.
start_launcher() {
    console --make
    "$root/scripts/console.sh" "$device" >"$work/launcher.log" 2>&1 &
    launcher=$!
    trap 'kill -9 "$launcher" 2>/dev/null || true' EXIT
    local turn
    for turn in 1 2 3 4; do
        if console --shot "$work/first.png" 2>/dev/null; then return; fi
        echo "start-up takes long, turn $turn" >&2
    done
    cat "$work/launcher.log" >&2
    exit 1
}

stop_launcher() {
    local code=0
    kill "$launcher"
    wait "$launcher" || code=$?
    expect 'exit code of the launcher' "$code" 0
    trap - EXIT
}

# Cases.

files() { find "$device" -type f | sort; }

case_layout() {
    local file
    console --make
    for file in mnt/UDISK/system.json mnt/SDCARD/features.json mnt/SDCARD/games/Hearth\ 16/system.json proc/meminfo \
        sys/class/power_supply/axp2202-{battery/{capacity,status},usb/online} bin/wpa_cli dev/shm/ostrel_status \
        sys/devices/virtual/disp/disp/attr/{enhance_{bright,contrast,saturation},color_temperature}; do
        [[ -s $device/$file ]] || expect "$file" missing there
    done
    for file in tmp/ostrel_inputd usr/ostrel; do [[ -d $device/$file ]] || expect "$file" missing there; done
    expect 'size of the status block' "$(stat -c %s "$device/dev/shm/ostrel_status")" 84
    expect 'nothing plugged in' "$(content dev/dsp1)" 'no such file'

    echo 42 >"$device/sys/class/power_supply/axp2202-battery/capacity"
    rm "$device/sys/class/power_supply/axp2202-usb/online" "$device/proc/523/cmdline"
    rm -r "$device/mnt/SDCARD/games"
    mkdir "$device/mnt/SDCARD/games"
    echo mine >"$device/mnt/SDCARD/games/Mine.game"
    local before
    before=$(files)
    console --make
    expect 'nothing comes, nothing goes' "$(files)" "$before"
    expect 'what was changed stays' "$(content sys/class/power_supply/axp2202-battery/capacity)" 42
    expect 'what was taken away stays away' "$(content sys/class/power_supply/axp2202-usb/online)" 'no such file'
    expect 'a process that was ended' "$(shown wifi)" off
    expect 'games of its own' "$(ls "$device/mnt/SDCARD/games")" Mine.game
    rm "$device/bin/wpa_cli" "$device/dev/shm/ostrel_status"
    console --set 'volume=3' 2>/dev/null && expect 'a folder that lacks a part' accepted refused
    console --make
    expect 'the block is filled from the settings' "$(shown volume)" 14
}

case_names() {
    console --make
    local pairs=(battery=7 charging=1 usb=1 headphones=1 overlay=1 grab=1 hotspot=1 bluetooth=1 volume=2 brightness=3
        keymap=1 mute=0 bgmvol=20 netplay=1 cpufreq=2 ledswitch=0 menustylel1=2 ledvalue=1 menustylel2=1 rumblelevel=5
        dimtime=86400 osdshortcut=22 bconfirm=1 fanlevel=-1 wifi=-71 'ssid=竹 "a\b' ip=10.0.0.255)
    console --set "${pairs[@]}"
    expect 'all names are shown as they were set' "$(console --show)" "$(printf '%s\n' "${pairs[@]}")"
    expect battery "$(content sys/class/power_supply/axp2202-battery/capacity)" 7
    expect charging "$(content sys/class/power_supply/axp2202-battery/status)" Charging
    expect usb "$(content sys/class/power_supply/axp2202-usb/online)" 1
    expect markers "$(content tmp/osdd_show_up)$(content tmp/btdev_addr)$(content tmp/bluetooth_ready)" ''
    expect 'markers in folders' "$(content tmp/ostrel_inputd/grab)$(content dev/dsp1)" ''
    expect 'status block' "$(od -An -v -t d4 -w84 "$device/dev/shm/ostrel_status" | xargs)" \
        '2 3 1 0 0 20 1 2 0 2 1 1 5 86400 1 1 1 0 22 1 -1'
    expect 'processes' "$(cat "$device"/proc/{523,612}/cmdline | tr '\0' ' ')" \
        '/usr/sbin/wpa_supplicant -B /usr/sbin/hostapd -B '
    expect 'settings' \
        "$(grep -cE '"(mute|ledswitch)":	0,|"(bluetooth|hostap|wifi)":	1,|"vol":	2,' "$device/mnt/UDISK/system.json")" 6
    local wpa=("$device/bin/wpa_cli" -p sockets -i wlan0)
    expect_match 'status of wpa_cli' "$("${wpa[@]}" status)" \
        $'*\nwpa_state=COMPLETED\nssid=\\\\xe7\\\\xab\\\\xb9 \\\\"a\\\\\\\\b\nip_address=10.0.0.255'
    expect_match 'signal of wpa_cli' "$("${wpa[@]}" signal_poll)" $'*\nRSSI=-71'

    console --set wifi=searching charging=0
    expect 'searching' "$(shown wifi)" searching
    expect 'status while searching' "$("${wpa[@]}" status)" $'address=02:00:00:00:00:01\nwpa_state=SCANNING'
    expect 'signal while searching' "$("${wpa[@]}" signal_poll)" FAIL
    expect 'unplugged' "$(content sys/class/power_supply/axp2202-battery/status)" Discharging
    console --set wifi=off hotspot=0 bluetooth=0 headphones=0 overlay=0 grab=0
    expect 'processes ended' "$(find "$device/proc" -name cmdline)" ''
    expect 'markers gone' "$(find "$device/tmp" "$device/dev/dsp1" -type f 2>/dev/null)" ''
    expect 'the network is remembered' "$(shown ssid)" '竹 "a\b'

    echo '{}' >"$device/mnt/UDISK/system.json"
    console --set volume=4 fanlevel=2
    expect 'settings from nothing' "$(tr -d '\n\t' <"$device/mnt/UDISK/system.json")" '{"fanlevel":2,"vol":4}'
}

checksums() { find "$device" -type f -not -path '*/SDCARD/*' -exec cksum {} +; }

case_mistakes() {
    fails_with 2 "$device: no console yet*--make*" console --set battery=7
    fails_with 2 "$device: no console yet*--make*" console --show
    console --make
    local before
    before=$(checksums)
    fails_with 2 'light: no such name. Names: battery charging *wifi ssid ip' console --set battery=7 light=3
    fails_with 2 'battery=130: battery takes a number from 0 to 100' console --set charging=1 battery=130
    fails_with 2 'volume=: volume takes a number from 0 to 20' console --set volume=
    fails_with 2 'volume=007: volume takes *' console --set volume=007
    fails_with 2 'volume=HOME: volume takes *' console --set volume=HOME
    fails_with 2 'fanlevel=-2: fanlevel takes a number from -1 to 10' console --set fanlevel=-2
    fails_with 2 'wifi=on: wifi takes off, searching, or the signal in dBm from -126 to 0' console --set wifi=on
    fails_with 2 'wifi=3: wifi takes *' console --set wifi=3
    fails_with 2 'ip=1.2.3.256: ip takes an address such as *' console --set ip=1.2.3.256
    fails_with 2 'ssid=: ssid takes a name of 1 to 32 bytes *' console --set ssid=
    fails_with 2 "ssid=*: ssid takes *" console --set ssid=一二三四五六七八九十十
    fails_with 2 $'ssid=a\nwpa_state=INACTIVE: ssid takes *' console --set $'ssid=a\nwpa_state=INACTIVE'
    fails_with 2 'battery: write NAME=VALUE' console --set battery
    fails_with 2 '--set what? Names: *' console --set
    expect 'nothing was changed' "$(checksums)" "$before"
    fails_with 2 '*.jpg: name a .png file' console --shot "$work/a.jpg"
    fails_with 2 '*: there is no such folder' console --shot "$work/no/a.png"
    fails_with 2 'A console in a folder*' console --frobnicate
    fails_with 2 '-- what? Name a program' console --
    fails_with 2 'A console in a folder*' "$root/scripts/console.sh"
    fails_with 2 '/ is the machine itself; name a folder' "$root/scripts/console.sh" / --make
    expect_match 'help' "$("$root/scripts/console.sh" --help)" 'A console in a folder*--shot FILE.png*77*'
}

# changes_the_screen THERE THERE BACK BACK: pairs for --set
# A minute may end between two pictures, and the clock differ: then all is done anew.
changes_the_screen() {
    local there=("$1" "$2") back=("$3" "$4") turn
    for turn in 1 2 3; do
        console --shot "$work/before.png"
        console --set "${there[@]}"
        console --shot "$work/set.png"
        console --set "${back[@]}"
        console --shot "$work/back.png"
        if cmp --silent "$work/before.png" "$work/back.png"; then break; fi
        echo "the clock moved, turn $turn" >&2
    done
    cmp --silent "$work/before.png" "$work/back.png" || expect "the screen after ${back[*]}" changed 'as before'
    ! cmp --silent "$work/before.png" "$work/set.png" || expect "the screen with ${there[*]}" 'as before' changed
}

case_screen() {
    start_launcher
    expect 'size of the picture' "$(od -An -t x1 -j 16 -N 8 "$work/first.png" | xargs)" '00 00 05 00 00 00 02 d0'
    changes_the_screen battery=7 charging=1 battery=78 charging=0
    changes_the_screen volume=0 bconfirm=1 volume=14 bconfirm=0
    changes_the_screen wifi=off headphones=1 wifi=-57 headphones=0
    console --set volume=5 brightness=2
    expect 'no leftovers' "$(find "$device/tmp" -name 'launcher_shot*')" ''
    stop_launcher
    expect 'saved as if the player had set it' \
        "$(grep -cE '"vol":	5,|"brightness":	2,' "$device/mnt/UDISK/system.json")" 2

    # Without a file to be shared the launcher keeps the block to itself.
    rm "$device/dev/shm/ostrel_status"
    mkdir "$device/dev/shm/ostrel_status"
    start_launcher
    stop_launcher
    expect 'settings of a launcher alone' "$(grep -c '"vol":	5,' "$device/mnt/UDISK/system.json")" 1
}

case_missing_launcher() {
    console --make
    echo mine >"$work/keep.png"
    fails_with 1 "No launcher draws in $device: start it with ./scripts/console.sh $device" \
        console --shot "$work/keep.png"
    expect 'a picture of before stays' "$(cat "$work/keep.png")" mine
    expect 'no request is left behind' "$(content tmp/launcher_shot)" 'no such file'
}

# ask PATTERN: what the probe says now; processes follow within a moment.
# shellcheck disable=SC2053  # a pattern, and meant as one
ask() {
    local turn answer=
    for turn in {1..30}; do
        echo >&"${program[1]}"
        read -r answer <&"${program[0]}"
        [[ $answer != $1 ]] || return 0
        sleep 0.1
    done
    expect "the program after $turn turns" "$answer" "$1"
}

case_program() {
    console --make
    local code=0
    console -- "$BASH" -c 'echo 1 >/mnt/UDISK/note; touch /tmp/stay_awake; pwd; exit 5' >"$work/output" || code=$?
    if [[ $code == 77 ]]; then exit 77; fi
    expect 'exit code of the program' "$code" 5
    expect 'what a program writes' "$(content mnt/UDISK/note)$(content tmp/stay_awake)" 1
    expect 'where a program works' "$(cat "$work/output")" "$PWD"
    coproc program { console -- "$probe"; }
    ask 'battery=78 charging=0 usb=0 mode=2 state=4 rssi=-57 ssid=Living_room ip=192.168.1.23 headphones=0 overlay=0 *'
    console --set battery=5 charging=1 usb=1 wifi=off hotspot=1 headphones=1 overlay=1 grab=1 volume=2
    ask 'battery=5 charging=1 usb=1 mode=3 * headphones=1 overlay=1 grab=1 volume=2'
    console --set wifi=searching hotspot=0 headphones=0 overlay=0
    ask '* mode=2 state=2 rssi=0 ssid= ip= headphones=0 overlay=0 *'
    eval "exec ${program[1]}>&-"
    # shellcheck disable=SC2154  # set by the coprocess
    wait "$program_PID"
}

case_refused_program() {
    mkdir -p "$work/bin"
    printf '#!/bin/sh\necho refused >&2\nexit 1\n' >"$work/bin/unshare"
    chmod +x "$work/bin/unshare"
    PATH=$work/bin:$PATH fails_with 77 'This system allows no private mounts*' console -- true
}

case_capture() {
    local real=$work/real copy=$work/copy output code=0
    mkdir -p "$real"/{sys/class/power_supply/axp2202-battery,mnt/UDISK,mnt/SDCARD,proc/{40,41,self},tmp,dev,bin}
    echo 33 >"$real/sys/class/power_supply/axp2202-battery/capacity"
    echo Full >"$real/sys/class/power_supply/axp2202-battery/status"
    echo '{"vol": 6, "bconfirm": 1}' >"$real/mnt/UDISK/system.json"
    echo 'MemTotal: 1 kB' >"$real/proc/meminfo"
    printf 'bash\0wpa_supplicant\0' >"$real/proc/40/cmdline"
    printf '/sbin/wpa_supplicant\0-B\0' >"$real/proc/41/cmdline"
    touch "$real/tmp/osdd_show_up" "$real/dev/dsp1"
    # shellcheck disable=SC2016  # the tool's own arguments
    printf '#!/bin/sh\n[ "$5" = status ] && printf "wpa_state=COMPLETED\\nssid=%%s\\n" "$2"\n' >"$real/bin/wpa_cli"
    chmod +x "$real/bin/wpa_cli"

    local capture=("$root/scripts/capture-device.sh" "$copy" --root "$real")
    output=$(PATH=$real/bin:$PATH "${capture[@]}" 2>&1) || code=$?
    expect 'exit code' "$code" 0
    expect 'what is named' "$output" "left out: /sys/class/power_supply/axp2202-usb/online
left out: /sys/devices/virtual/disp/disp/attr/enhance_bright
left out: /sys/devices/virtual/disp/disp/attr/enhance_contrast
left out: /sys/devices/virtual/disp/disp/attr/color_temperature
left out: /sys/devices/virtual/disp/disp/attr/enhance_saturation
left out: /mnt/SDCARD/features.json
left out: /usr/ostrel/features.json
left out: wpa_cli signal_poll"
    expect 'what is copied' "$(cd "$copy" && find . -type f | sort | xargs)" "./dev/dsp1 ./mnt/UDISK/system.json \
./proc/41/cmdline ./proc/meminfo ./sys/class/power_supply/axp2202-battery/capacity \
./sys/class/power_supply/axp2202-battery/status ./tmp/osdd_show_up ./var/wpa_status"
    fails_with 2 "$copy: not empty; name a new folder" "${capture[@]}"
    fails_with 2 "$work/no: there is no such directory" "$root/scripts/capture-device.sh" "$work/new" --root "$work/no"
    fails_with 2 'Copies what*' "$root/scripts/capture-device.sh"

    mv "$copy" "$device"
    console --make
    expect 'replayed' "$(console --show | grep -E '^(battery|usb|head|over|vol|bgm|bcon|wifi|ssid)' | xargs)" \
        "battery=33 usb=0 headphones=1 overlay=1 volume=6 bgmvol=10 bconfirm=1 wifi=0 ssid=$real/etc/wifi/sockets"
    expect 'what was left out stays out' "$(content mnt/SDCARD/features.json)" 'no such file'
    start_launcher
    stop_launcher
}

rm -rf "$work"
mkdir -p "$work"
"case_$case"
exit $((failures > 0))
