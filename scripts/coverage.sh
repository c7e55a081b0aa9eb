#!/usr/bin/env bash
# Line and branch coverage of src/ by the whole test suite: scripts/coverage.sh [HTML_FILE]
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/install-packages.sh
source scripts/lib/install-packages.sh
# shellcheck source=scripts/lib/packages.sh
source scripts/lib/packages.sh

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" gcovr
cmake --preset coverage >/dev/null
cmake --build --preset coverage --parallel "$(nproc)" -- --quiet
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --parallel "$(nproc)" --progress

# Branches that only an exception takes are the compiler's, not ours.
report=(gcovr --root . --filter 'src/' --object-directory build/coverage --exclude-throw-branches
    --exclude-unreachable-branches)
[[ $# -eq 0 ]] || "${report[@]}" --html-details "$1" >/dev/null
"${report[@]}" --print-summary
