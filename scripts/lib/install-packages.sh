#!/usr/bin/env bash
# install_packages NAME...: installs the Debian packages of that list that are missing. Sourced, not run.
# When nothing is missing it asks dpkg alone, so a second run costs a few hundredths of a second and needs no network.

# missing_packages NAME...: prints those that are not installed, one a line. NAME:arm64 is another processor's package,
# NAME alone this machine's.
missing_packages() {
    local installed name own
    # Exits non-zero as soon as one name is unknown to dpkg, which is just what we are looking for.
    installed=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}:${Architecture}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p') || true
    own=$(dpkg --print-architecture)
    for name in "$@"; do
        local known=(-e "$name")
        [[ $name == *:* ]] || known=(-e "$name:$own" -e "$name:all")
        grep --quiet --line-regexp --fixed-strings "${known[@]}" <<<"$installed" || printf '%s\n' "$name"
    done
}

# as_root COMMAND...: runs it, through sudo when we are somebody else.
as_root() {
    if [[ $(id -u) -eq 0 ]]; then "$@"; else sudo "$@"; fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --quiet=2 --no-install-recommends "$@" >/dev/null
}

# allow_packages_of PROCESSOR: Debian's packages of that processor may be installed beside this machine's.
allow_packages_of() {
    dpkg --print-foreign-architectures | grep --quiet --line-regexp "$1" || as_root dpkg --add-architecture "$1"
}

install_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    if [[ $(id -u) -ne 0 ]] && ! command -v sudo >/dev/null; then
        printf 'Packages are missing, and there is no sudo. As root, run:\n  apt-get install %s\n' "${missing[*]}" >&2
        return 1
    fi
    printf 'Installing %s\n' "${missing[*]}"
    # The package lists of a fresh system are empty, and those of an old one name files that are gone.
    apt_install "${missing[@]}" 2>/dev/null && return 0
    as_root apt-get update --quiet=2
    apt_install "${missing[@]}"
}
