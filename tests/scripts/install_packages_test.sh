#!/usr/bin/env bash
# What the scripts install, seen from scripts/test.sh.
#   install_packages_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"

prepare
run 0 test.sh
not_called '^apt-get\|^sudo'

prepare
echo 'cmake libsdl2-dev' >"$wanting"
run 0 test.sh
[[ $said == 'Installing cmake libsdl2-dev'* ]] || complain "said $said"
[[ $(grep '^apt-get' "$calls") == 'apt-get install --yes --quiet=2 --no-install-recommends cmake libsdl2-dev' ]] ||
    complain "not installed once: $(cat "$calls")"
not_called '^sudo'
: >"$calls"
run 0 test.sh
not_called '^apt-get'

# The package lists of a fresh system are empty.
prepare
# shellcheck disable=SC2016  # expanded when the program is called
play apt-get 'case $1 in
    update) : >"$wanting.known" ;;
    install) [[ -e $wanting.known ]] || exit 100; : >"$wanting" ;;
esac'
echo cmake >"$wanting"
run 0 test.sh
[[ $(grep '^apt-get' "$calls" | cut -d ' ' -f 2 | xargs) == 'install update install' ]] ||
    complain "not installed after an update: $(cat "$calls")"

prepare
user=1000
echo cmake >"$wanting"
run 0 test.sh
called '^sudo env DEBIAN_FRONTEND=noninteractive apt-get install .* cmake$'

# Nobody to install them.
prepare
user=1000
rm "$bin/sudo"
echo 'cmake libsdl2-dev' >"$wanting"
run 1 test.sh
[[ $errors == $'Packages are missing, and there is no sudo. As root, run:\n  apt-get install cmake libsdl2-dev' ]] ||
    complain "said on standard error: $errors"
not_called '^apt-get\|^cmake'

exit $((failures > 0))
