#!/usr/bin/env bash
# The desktop entry, the icons and the manual page: that Debian's own tools accept them, and that the page names what the
# program does.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly files=$here/../../samples/launcher/desktop launcher=$here/../../samples/launcher
# shellcheck source=tests/packaging/expect.sh
source "$here/expect.sh"
need groff rsvg-convert desktop-file-validate

expect_status 0 groff -man -Tutf8 -ww -z "$files/ostrel-launcher.6"
[[ -z $said ]] || complain "groff says: $said"

# Every option of the program is in the page.
while read -r option; do
    grep --quiet -- "\\\\-\\\\-$option" "$files/ostrel-launcher.6" || complain "the manual page lacks --$option"
done < <(sed -n 's/^    {"\([a-z]*\)", .*_argument.*/\1/p' "$launcher/options.cpp")

# Width and height of the PNG, from its header.
size=$(od -An -tu1 -j16 -N8 "$files/ostrel-launcher.png" | tr -s ' ')
[[ $size == ' 0 0 0 128 0 0 0 128' ]] || complain "the icon is not 128 x 128: $size"

# The PNG is the drawing, as Debian 12 renders it.
rsvg-convert -w 128 -h 128 "$files/ostrel-launcher.svg" | cmp - "$files/ostrel-launcher.png" ||
    complain 'the PNG is not what rsvg-convert makes of the SVG'
expect_status 0 desktop-file-validate "$files/ostrel-launcher.desktop"
[[ -z $said ]] || complain "desktop-file-validate says: $said"
exit $((failures > 0))
