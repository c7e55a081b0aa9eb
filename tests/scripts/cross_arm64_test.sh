#!/usr/bin/env bash
# What scripts/cross-arm64.sh installs, builds and runs.
#   cross_arm64_test.sh FOLDER
set -euo pipefail
# shellcheck source=tests/scripts/stand_ins.sh
source "$(dirname "${BASH_SOURCE[0]}")/stand_ins.sh"

prepare
run 0 cross-arm64.sh --help
[[ $said == *--signed-char* ]] || complain 'the help does not name --signed-char'
not_called .

for mistake in Visit '--build -R' '--signed-char Visit'; do
    prepare
    # shellcheck disable=SC2086  # words
    run 2 cross-arm64.sh $mistake
    [[ -z $said && $errors == *--build* ]] || complain "no usage on standard error for $mistake"
    not_called .
done

prepare
run 0 cross-arm64.sh
not_called '^apt-get\|--add-architecture'
called '^cmake --preset arm64 '
called '^cmake --build --preset arm64 '
called '^ctest --preset arm64 --parallel [0-9]*$'

prepare
run 0 cross-arm64.sh --signed-char -R menu_tests
called '^cmake --build --preset arm64-signed-char '
called '^ctest --preset arm64-signed-char --parallel [0-9]* -R menu_tests$'

prepare
run 0 cross-arm64.sh --build
called '^cmake --build --preset arm64 '
not_called '^ctest'

# A package of this machine's own processor is no replacement for that of the other one.
prepare
foreign=''
echo 'libsdl2-dev:arm64 libgtest-dev:arm64' >"$wanting"
run 0 cross-arm64.sh --build
called '^dpkg --add-architecture arm64$'
called '^apt-get install .* libgtest-dev:arm64 libsdl2-dev:arm64$'

prepare
echo libsdl2-dev >"$wanting"
run 0 cross-arm64.sh --build
called '^apt-get install .* libsdl2-dev$'

prepare
status=8
run 1 cross-arm64.sh

exit $((failures > 0))
