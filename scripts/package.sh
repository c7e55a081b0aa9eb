#!/usr/bin/env bash
# Installs what is missing, builds a release and its three Debian packages, and has lintian look at them.
#   ./scripts/package.sh [OUTPUT_DIR] [-DNAME=VALUE...]
# OUTPUT_DIR gets the .deb files (default: build/packages). What begins with -D goes to cmake: with
# -DCMAKE_TOOLCHAIN_FILE=FILE the packages are those of that file's processor, whose libraries must be installed.
# Ends with 1 when lintian finds an error or a warning, with 2 when the command line cannot be understood.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
# shellcheck source=scripts/lib/install-packages.sh
source "$root/scripts/lib/install-packages.sh"
# shellcheck source=scripts/lib/packages.sh
source "$root/scripts/lib/packages.sh"
# The games have names in many scripts, which cpack loses in a locale of ASCII.
export LC_ALL=C.UTF-8

usage() { sed -n '2,6s/^# \{0,1\}//p' "$0"; }

output=$root/build/packages
cmake_options=()
cross=

# The settings of a Debian build, without this machine's paths in the files. The library's calls to its host stay lazily
# bound (no -z now): a program need not define what it never has called.
build_flags() { dpkg-buildflags --get "$1"; }

read_options() {
    local word directories=0
    for word in "$@"; do
        case $word in
            --help) usage; exit 0 ;;
            -DCMAKE_TOOLCHAIN_FILE=*) cross=-cross; cmake_options+=("$word") ;;
            -D?*) cmake_options+=("$word") ;;
            -*) usage >&2; exit 2 ;;
            *) directories=$((directories + 1)); output=$word ;;
        esac
    done
    [[ $directories -le 1 ]] || { usage >&2; exit 2; }
    mkdir -p "$output"
    output=$(cd "$output" && pwd)
}

build() {
    local build=$1 map="-ffile-prefix-map=$root=."
    mkdir -p "$build"
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX=/usr \
        -DOSTREL_BUILD_TESTS=OFF -DOSTREL_INSTALLED_ONLY=ON \
        -DCMAKE_CXX_FLAGS="$(build_flags CPPFLAGS) $(build_flags CXXFLAGS) $map" \
        -DCMAKE_SHARED_LINKER_FLAGS="$(build_flags LDFLAGS)" -DCMAKE_EXE_LINKER_FLAGS="$(build_flags LDFLAGS)" \
        "${cmake_options[@]}" >"$build/configure.log" || { cat "$build/configure.log" >&2; return 1; }
    cmake --build "$build" --parallel "$(nproc)" -- --quiet
}

# Builds a .deb of each component, and moves those that are complete.
pack() {
    local build=$1 made=$1/debs deb
    rm -rf "$made"
    (cd "$build" && cpack -G DEB -B "$made") >"$build/cpack.log" 2>&1 || { cat "$build/cpack.log" >&2; return 1; }
    for deb in "$made"/*.deb; do
        mv "$deb" "$output"/
        made_packages+=("$output/${deb##*/}")
    done
}

# lintian ends with 2 on a finding, which is our sign for a wrong command line.
look_at() {
    lintian --allow-root --fail-on error,warning --suppress-tags-from-file "$root/packaging/lintian-ignore" "$@" || return 1
}

main() {
    read_options "$@"
    install_packages "${BUILD_PACKAGES[@]}" "${PACKAGING_PACKAGES[@]}"
    local build=$root/build/package$cross made_packages=()
    build "$build"
    pack "$build"
    look_at "${made_packages[@]}"
    du --apparent-size --block-size=1K "${made_packages[@]}" | sed 's/^\([0-9]*\)\t/\1 KiB  /'
}

main "$@"
