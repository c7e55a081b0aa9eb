#!/usr/bin/env bash
# shellcheck disable=SC2317  # expect_status calls the functions by name
# scripts/package.sh and scripts/test-packages.sh: what they refuse, and how the second tells its own faults from those of
# the machine. A script stands in for mmdebstrap.
#   command_lines_test.sh WORK_DIR
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly root=$here/../.. work=$1
# shellcheck source=tests/packaging/expect.sh
source "$here/expect.sh"
need dpkg

package() { "$root/scripts/package.sh" "$@"; }
test_packages() { PATH=$work/bin:$PATH "$root/scripts/test-packages.sh" "$@"; }

# bare_system SCRIPT: what mmdebstrap does from now on.
bare_system() {
    printf '#!/bin/sh\n%s\n' "$1" >"$work/bin/mmdebstrap"
    chmod +x "$work/bin/mmdebstrap"
}

rm -rf "$work"
mkdir -p "$work/bin" "$work/debs" "$work/none"
arch=$(dpkg --print-architecture)
touch "$work/debs/"{libostrel1,libostrel-dev,ostrel-launcher}"_1_$arch.deb"

expect_status 0 package --help
expect_part "$said" 'OUTPUT_DIR'
expect_status 2 package --nonsense
expect_status 2 package "$work/none" "$work/none"

expect_status 0 test_packages --help
expect_status 2 test_packages --nonsense
expect_status 2 test_packages "$work/none"
expect_line "$said" "Not three packages in $work/none; scripts/package.sh makes them"

bare_system 'echo "E: no user namespaces here"; exit 25'
expect_status 77 test_packages "$work/debs" "$work/shots"
expect_line "$said" 'Skipped: no bare system: E: no user namespaces here'

bare_system 'echo "the bare system is ready"; echo "E: unmet dependencies"; exit 25'
expect_status 1 test_packages "$work/debs" "$work/shots"
expect_part "$said" 'E: unmet dependencies'

bare_system 'echo "the bare system is ready"'
expect_status 1 test_packages "$work/debs" "$work/shots"
expect_part "$said" '01-games.png is no picture'

# Packages of the other processor need its libraries in the bare system, and an emulator.
expect_status 2 test_packages --arm64 "$work/none"
touch "$work/debs/"{libostrel1,libostrel-dev,ostrel-launcher}"_1_arm64.deb"
bare_system "printf '%s\n' \"\$@\" >'$work/words'; exit 25"
expect_status 77 test_packages --arm64 "$work/debs" "$work/shots"
expect_line "$(cat "$work/words")" "--architectures=$arch,arm64"
expect_part "$(cat "$work/words")" '/libostrel1_1_arm64.deb'
expect_part "$(cat "$work/words")" ' qemu-aarch64 /usr/bin/ostrel-visit --visit '
expect_status 77 test_packages "$work/debs" "$work/shots"
[[ $arch == arm64 || $(cat "$work/words") != *_arm64.deb* ]] || complain 'the other processor without being asked for'

exit $((failures > 0))
