#!/usr/bin/env bash
# The three packages that cpack makes of a build: that the names which the library exports are the listed ones, the fields,
# and the files.
#   contents_test.sh BUILD_DIR LIBDIR WORK_DIR
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly build=$1 libdir=$2 work=$3
# shellcheck source=tests/packaging/expect.sh
source "$here/expect.sh"
need cpack dpkg-deb dpkg-shlibdeps dpkg-gensymbols file

architecture=$(sed -n 's/^set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE "\(.*\)")$/\1/p' "$build/CPackConfig.cmake")
deb() { echo "$work/${1}_0.1.0-1_$architecture.deb"; }
field() { dpkg-deb --field "$(deb "$1")" "$2"; }
files() { dpkg-deb --contents "$(deb "$1")" | sed 's,^.* \./,/,; s, -> .*,,'; }
control() { dpkg-deb --ctrl-tarfile "$(deb "$1")" | tar --list | sort | xargs; }

rm -rf "$work"
mkdir -p "$work"
# gzip is quick, and says as much about what is inside.
expect_status 0 cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip
[[ $failures -eq 0 ]] || exit 1

for package in libostrel1 libostrel-dev ostrel-launcher; do
    expect_line "$(field $package Maintainer)" 'Ostrel developers <ostrel@example.org>'
    for name in copyright changelog.gz changelog.Debian.gz; do
        expect_line "$(files $package)" "/usr/share/doc/$package/$name"
    done
done
expect_line "$(field libostrel1 Section)" libs
expect_line "$(field libostrel-dev Section)" libdevel
expect_line "$(field ostrel-launcher Section)" utils

# dpkg runs ldconfig by a trigger: no script of ours does.
expect_line "$(control libostrel1)" './control ./md5sums ./shlibs ./symbols ./triggers'
expect_line "$(control ostrel-launcher)" './control ./md5sums'
expect_line "$(dpkg-deb --info "$(deb libostrel1)" shlibs)" 'libostrel 1 libostrel1 (>= 0.1.0-1)'
expect_part "$(dpkg-deb --info "$(deb libostrel1)" symbols)" ' _Z10ScreenInitiiii@Base 0.1.0'

for needed in libsdl2-2.0-0 libsdl2-ttf-2.0-0 libsdl2-image-2.0-0 libcjson1 libc6; do
    expect_part "$(field libostrel1 Depends)" "$needed"
done
expect_part "$(field libostrel-dev Depends)" 'libostrel1 (= 0.1.0-1), libsdl2-dev, libsdl2-ttf-dev, libsdl2-mixer-dev, libcjson-dev'
expect_part "$(field ostrel-launcher Depends)" 'libostrel1 (>= 0.1.0), fonts-wqy-microhei, tzdata'

expect_line "$(files libostrel1)" "/usr/$libdir/libostrel.so.1"
expect_line "$(files libostrel1)" "/usr/$libdir/libostrel.so.1.1.0"
expect_line "$(files libostrel-dev)" "/usr/$libdir/libostrel.so"
expect_line "$(files libostrel-dev)" "/usr/$libdir/pkgconfig/ostrel.pc"
expect_line "$(files libostrel-dev)" "/usr/$libdir/cmake/ostrel/ostrel-config.cmake"
expect_line "$(files libostrel-dev)" '/usr/include/ostrel/ostrel.h'
for name in /usr/bin/ostrel-launcher /usr/bin/ostrel-visit /usr/share/man/man6/ostrel-launcher.6.gz \
    /usr/share/man/man6/ostrel-visit.6.gz /usr/share/applications/ostrel-launcher.desktop \
    /usr/share/icons/hicolor/scalable/apps/ostrel-launcher.svg \
    /usr/share/icons/hicolor/128x128/apps/ostrel-launcher.png \
    /usr/share/ostrel-launcher/theme/light/skin/bg.png /usr/share/ostrel-launcher/games/.art/ \
    '/usr/share/ostrel-launcher/games/Shelf for Later/' /usr/share/ostrel-launcher/lang/ko.lang \
    /usr/share/ostrel-launcher/sounds/key.wav /usr/share/ostrel-launcher/visits/first_light.visit; do
    expect_line "$(files ostrel-launcher)" "$name"
done
exit $((failures > 0))
