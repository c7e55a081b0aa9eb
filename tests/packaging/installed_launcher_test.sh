#!/usr/bin/env bash
# An installed launcher: it finds its data beside itself, and works in the user's own folder.
#   installed_launcher_test.sh BUILD_DIR WORK_DIR [EMULATOR...]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly build=$1 work=$2 emulator=("${@:3}")
# shellcheck source=tests/packaging/expect.sh
source "$here/expect.sh"

rm -rf "$work"
mkdir -p "$work"
for component in runtime launcher; do
    cmake --install "$build" --prefix "$work/usr" --component "$component" >/dev/null
done
library=$(find "$work/usr" -name 'libostrel.so.1')
[[ -n $library ]] || complain 'no libostrel.so.1 is installed'
export LD_LIBRARY_PATH=${library%/*} XDG_STATE_HOME=$work/state

readonly data=$work/usr/share/ostrel-launcher
expect_status 0 "${emulator[@]}" "$work/usr/bin/ostrel-launcher" --visit "$data/visits/first_light.visit"
for name in 01-games 06-back; do
    [[ -s $work/state/ostrel-launcher/shots/first_light/$name.png ]] || complain "no picture $name"
done
[[ $(readlink "$work/state/ostrel-launcher/skin") == "$data/theme/dark/skin" ]] || complain 'the skin is not the installed one'

# The same pictures as from the source tree: no game and no picture of a theme was left behind.
expect_status 0 "${emulator[@]}" "$build/samples/launcher/ostrel-visit" --run "$work/built" --shots "$work/built/shots" \
    --visit "$here/../../samples/launcher/visits/first_light.visit"
for picture in "$work"/built/shots/*.png; do
    cmp "$picture" "$work/state/ostrel-launcher/shots/first_light/${picture##*/}" || complain "${picture##*/} differs"
done

# A theme goes by its name, and a game that is missing is missed here and not found in the source tree.
expect_status 0 "${emulator[@]}" "$work/usr/bin/ostrel-launcher" --theme light --visit "$data/visits/first_light.visit"
rm -r "$data/games"
expect_status 2 "${emulator[@]}" "$work/usr/bin/ostrel-launcher" --visit "$data/visits/first_light.visit"
expect_line "$said" "This is no directory: $data/games"
exit $((failures > 0))
