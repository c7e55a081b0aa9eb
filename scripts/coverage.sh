#!/usr/bin/env bash
# Line and branch coverage of src/ by the whole test suite: scripts/coverage.sh [HTML_FILE]
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/install-packages.sh
source scripts/lib/install-packages.sh
# shellcheck source=scripts/lib/packages.sh
source scripts/lib/packages.sh
# shellcheck source=scripts/lib/build-and-test.sh
source scripts/lib/build-and-test.sh

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" gcovr
configure_and_build coverage
find build/coverage -name '*.gcda' -delete
run_ctest coverage

# Branches that only an exception takes are the compiler's, not ours.
report=(gcovr --root . --filter 'src/' --object-directory build/coverage --exclude-throw-branches
    --exclude-unreachable-branches)
[[ $# -eq 0 ]] || "${report[@]}" --html-details "$1" >/dev/null
"${report[@]}" --print-summary
