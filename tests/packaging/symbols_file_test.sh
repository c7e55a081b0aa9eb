#!/usr/bin/env bash
# shellcheck disable=SC2119,SC2120  # without arguments, a list is written; expect_status passes some
# scripts/make-debian-symbols: what changes the binary interface changes the list, and no name is lost.
#   symbols_file_test.sh WORK_DIR
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly root=$here/../.. work=$1
# shellcheck source=tests/packaging/expect.sh
source "$here/expect.sh"

make_list() { "$root/scripts/make-debian-symbols" --root "$work" "$@"; }
list() { cat "$work/packaging/libostrel1.symbols"; }

# A small project with one name of C and one of C++.
begin() {
    rm -rf "$work"
    mkdir -p "$work/packaging" "$work/tests/abi"
    printf 'project(ostrel VERSION 0.4.0 LANGUAGES CXX)\nset(OSTREL_ABI_VERSION 1)\n' >"$work/CMakeLists.txt"
    printf 'data _end\ndata gShown\ntext Shelf::add(int)\n' >"$work/tests/abi/symbols.txt"
    printf 'Shelf: 8 bytes\n    slot 1 0\n' >"$work/tests/abi/layout.txt"
    make_list
}

begin
expect_line "$(list)" 'libostrel.so.1 libostrel1 #MINVER#'
expect_line "$(list)" ' gShown@Base 0.4.0'
expect_line "$(list)" ' (c++)"Shelf::add(int)@Base" 0.4.0'
[[ $(list) != *_end* ]] || complain 'a name of the linker is listed'
expect_status 0 make_list --check

# A new name fails the check, and gets the release in which it came.
echo 'text Shelf::take(int)' >>"$work/tests/abi/symbols.txt"
sed -i 's/0\.4\.0/0.5.0/' "$work/CMakeLists.txt"
expect_status 1 make_list --check
expect_part "$said" 'libostrel1.symbols does not follow from tests/abi'
make_list
expect_line "$(list)" ' (c++)"Shelf::add(int)@Base" 0.4.0'
expect_line "$(list)" ' (c++)"Shelf::take(int)@Base" 0.5.0'

# A slot that moves leaves every name as it was, and fails the check all the same.
begin
echo '    slot 2 Shelf::add' >>"$work/tests/abi/layout.txt"
expect_status 1 make_list --check

# A name that is gone is refused while the soname stays, and begins a new list when it rises.
begin
sed -i '/Shelf/d' "$work/tests/abi/symbols.txt"
expect_status 1 make_list
expect_part "$said" 'Shelf::add(int)'
sed -i 's/ABI_VERSION 1/ABI_VERSION 2/' "$work/CMakeLists.txt"
expect_status 0 make_list
expect_line "$(cat "$work/packaging/libostrel2.symbols")" 'libostrel.so.2 libostrel2 #MINVER#'

exit $((failures > 0))
