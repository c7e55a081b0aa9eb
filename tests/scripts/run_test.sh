#!/usr/bin/env bash
# What scripts/run.sh builds, and with which words it starts the launcher or plays which visit.
#   run_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"
unset DISPLAY WAYLAND_DISPLAY
readonly no_display='There is no display, so a short visit is played instead. Its pictures:'

# Before there is a launcher, the help builds none.
prepare
run 0 run.sh --help
[[ $said == *--theme*--lang*--rotate* ]] || complain "no options in the help: $said"
not_called .

prepare
run 0 run.sh
: >"$calls"
run 0 run.sh --rotate --help
called_last 'ostrel-launcher --help'
not_called '^dpkg\|^ninja'

# A value is no request and no directory.
prepare
run 0 run.sh --search --help --lang nowhere
called 'first_light.visit --search --help --lang nowhere$'

prepare
run 2 run.sh --rotate "$work/nowhere"
[[ -z $said && $errors == "This is no directory: $work/nowhere" ]] || complain "said $said, and $errors"
not_called .

# The tests of the library need packages that the launcher does not.
prepare
run 0 run.sh
called "^cmake --preset release -B $tree/build/run -DOSTREL_BUILD_TESTS=OFF$"
called "^ninja -C $tree/build/run --quiet ostrel-launcher ostrel-visit$"
called_last "ostrel-visit --visit $tree/samples/launcher/visits/first_light.visit"
[[ $said == *"$no_display" ]] || complain "no word of the display at the end of: $said"

# The second time, one line is all that it says itself.
: >"$calls"
run 0 run.sh
[[ $said == "$no_display" ]] || complain "said $said"
not_called '^cmake\|^apt-get'
called '^ninja '

# A launcher that does not build is not started; what the compiler said is told.
prepare
play ninja 'echo "error: no such type"; exit 1'
run 1 run.sh
[[ $said == *'error: no such type' ]] || complain "said $said"
not_called '^ostrel-'

# Options leave the games as they are; a directory is one of any content.
for options in '--theme light' '--theme=light' --log; do
    prepare
    # shellcheck disable=SC2086  # words
    run 0 run.sh $options
    called_last "ostrel-visit --visit $tree/samples/launcher/visits/first_light.visit $options"
done
for words in "$work" "--theme light $work" "--theme=light $work" "--rotate -- $work" "--log $work"; do
    prepare
    # shellcheck disable=SC2086
    run 0 run.sh $words
    called_last "ostrel-visit --visit $tree/samples/launcher/visits/any_folder.visit $words"
done

for display in DISPLAY WAYLAND_DISPLAY; do
    prepare
    export $display=:7
    run 0 run.sh --theme light "$work"
    unset $display
    called_last "ostrel-launcher --theme light $work"
    [[ $said != *display* ]] || complain "said $said"
done

exit $((failures > 0))
