#!/usr/bin/env bash
# Runs a program whose root directory is this machine's with a console folder laid over it. console.sh starts it as the
# first process of user, mount and process namespaces of its own, so nothing outside is touched, and all ends with it.
#   console-root.sh CONSOLE REPOSITORY PROGRAM [ARG]...
set -euo pipefail
readonly console=$1 repository=$2
shift 2
# shellcheck source=scripts/lib/console-folder.sh
source "$repository/scripts/lib/console-folder.sh"
readonly new=$console/.root  # where the new root is put together
declare -A started=()        # daemon: its process

# show ENTRY [PLACE]: lets a file or directory be seen in the new root, at its own place or another.
show() {
    local place=$new${2:-$1}
    if [[ -L $1 ]]; then cp -P "$1" "$place"; return; fi
    if [[ -d $1 ]]; then mkdir -p "$place"; else : >>"$place"; fi
    mount --rbind "$1" "$place"
}

# Consoles have none of these, and a machine a great many.
is_left_out() {
    case $1 in
        /dev/tty[0-9S]* | /dev/vcs* | /dev/loop* | /dev/ram*) return 0 ;;
        /dev/dsp1) return 0 ;;  # comes and goes: copy_changes
        *) return 1 ;;
    esac
}

# What a program writes or looks for by name: the console's alone, without what the machine has there.
is_the_consoles() { [[ $1 == /mnt/* || $1 == /dev/shm || $1 == /usr/ostrel ]]; }

# merge DIRECTORY: the machine's with the console's over it, folder by folder.
merge() {
    local entry
    mkdir -p "$new$1"
    for entry in "$1"/* "$console$1"/*; do
        entry=${entry#"$console"}
        if is_left_out "$entry" || [[ -e $new$entry || -L $new$entry ]]; then continue; fi
        if [[ ! -e $console$entry ]]; then
            [[ ! -e $entry && ! -L $entry ]] || show "$entry"
        elif [[ -d $entry && ! -L $entry ]] && ! is_the_consoles "$entry"; then
            merge "$entry"
        else
            show "$console$entry" "$entry"
        fi
    done
}

# What has to be seen although the console's /tmp hides it. Of the machine's /tmp a whole folder, because a program
# brings libraries from beside its own.
show_from_tmp() {
    local path folder
    for path in "$@"; do
        path=$(realpath -m -- "$path")
        [[ $path == /tmp/* ]] || continue
        folder=$(cut -d / -f 1-3 <<<"$path")
        if [[ -e $folder ]] && ! mountpoint --quiet "$new$folder"; then show "$folder"; fi
    done
}

# The machine's own processes stay out of sight; its Wi-Fi daemon would count as the console's. Where the kernel refuses
# that, they are seen.
show_processes() {
    mkdir "$new/proc"
    mount -t proc proc "$new/proc" 2>/dev/null || mount --rbind /proc "$new/proc"
}

# put_together PROGRAM
put_together() {
    local entry
    mkdir -p "$new"
    mount -t tmpfs tmpfs "$new"
    mount --make-unbindable "$new"  # else each directory shown from here on would hold all that was shown before
    for entry in /*; do
        case $entry in /dev | /mnt | /proc | /sys | /tmp | /usr) ;; *) [[ ! -d $entry ]] || show "$entry" ;; esac
    done
    for entry in /dev /mnt /sys /usr; do merge "$entry"; done
    show_processes
    show "$console/tmp" /tmp
    show_from_tmp "$console" "$repository" "$PWD" "$(command -v "$1" || printf '%s' "$1")" /tmp/.X11-unix
}

# A process that does nothing, but has the right name.
follow_process() {
    local wanted
    wanted=$(runs "$1")
    if [[ $wanted == 1 && -z ${started[$1]:-} ]]; then
        (exec -a "$1" sleep infinity) </dev/null >/dev/null 2>&1 &
        started[$1]=$!
    elif [[ $wanted == 0 && -n ${started[$1]:-} ]]; then
        kill "${started[$1]}"
        started[$1]=
    fi
}

# What cannot be shown in place has to be copied: processes, and the device node of headphones in a /dev of the machine.
copy_changes() {
    follow_process wpa_supplicant
    follow_process hostapd
    if [[ -e $console/dev/dsp1 ]]; then : >>"$new/dev/dsp1"; else rm -f "$new/dev/dsp1"; fi
}

keep_copying() { while sleep 0.2; do copy_changes; done; }

put_together "$1"
copy_changes
keep_copying </dev/null >/dev/null 2>&1 &
export PATH=$console/bin:$PATH
# shellcheck disable=SC2016  # expanded by the inner shell
chroot "$new" "$BASH" -c 'cd "$1" && shift && exec "$@"' bash "$PWD" "$@" && code=0 || code=$?
exit "$code"
