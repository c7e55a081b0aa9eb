#!/usr/bin/env bash
# Builds library, launcher and tests for 64-bit ARM and runs the whole suite in an emulator of that processor.
#   ./scripts/cross-arm64.sh [--build | --signed-char] [ctest option]...
# Debian's cross compiler builds against Debian's arm64 libraries; what is missing is installed beside this machine's own.
# --build runs no tests; --signed-char builds and tests with the char of x86-64. The rest goes to ctest, which
# knows the test programs by name: -R ostrel_menu_tests.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/install-packages.sh
source scripts/lib/install-packages.sh
# shellcheck source=scripts/lib/packages.sh
source scripts/lib/packages.sh
# shellcheck source=scripts/lib/build-and-test.sh
source scripts/lib/build-and-test.sh

usage() { sed -n '2,6s/^# \{0,1\}//p' scripts/cross-arm64.sh; }

main() {
    local preset=arm64 tests=yes
    case "${1:-}" in
        --help) usage; exit 0 ;;
        --build) tests=no; shift ;;
        --signed-char) preset=arm64-signed-char; shift ;;
    esac
    if [[ $tests == no && $# -gt 0 || ${1:--} != -* ]]; then usage >&2; exit 2; fi
    install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    allow_packages_of arm64
    install_packages "${ARM64_PACKAGES[@]}"
    configure_and_build "$preset" -DCMAKE_UNITY_BUILD=ON  # several sources at once, in a third of the time
    [[ $tests == no ]] || run_ctest "$preset" "$@"
}

main "$@"
