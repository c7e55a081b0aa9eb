#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test headless.
#   ./scripts/test.sh            the release build and its tests
#   ./scripts/test.sh --ci       that and the sanitizer, valgrind, lint and 64-bit ARM stages, with the time of each
#   ./scripts/test.sh --stage S  one stage alone: release, asan, tsan, valgrind, lint or arm64; or char, which --ci
#                                leaves out: plain char as on the other processor
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib/install-packages.sh
source scripts/lib/install-packages.sh
# shellcheck source=scripts/lib/packages.sh
source scripts/lib/packages.sh
# shellcheck source=scripts/lib/build-and-test.sh
source scripts/lib/build-and-test.sh

readonly CI_STAGES=(release asan tsan valgrind lint arm64)
# The release is built file by file, as everybody builds it; the other builds in a third of the time.
readonly QUICK_BUILD=(-DCMAKE_UNITY_BUILD=ON -DOSTREL_FORKED_TESTS=suites)
# Among other stages the release has its benchmarks compiled, so that they stay true, and its tests started faster.
release_build=(-DOSTREL_BUILD_BENCH=OFF -DOSTREL_FORKED_TESTS=OFF)
stage_times=()

usage() { sed -n '2,6s/^# \{0,1\}//p' scripts/test.sh; }

# The release build as it is configured, brought up to date for those who look at it: cheap when it is.
update_release() {
    [[ -f build/release/build.ninja ]] || configure release "${release_build[@]}"
    build release "$@"
}

stage_release() {
    configure_and_build release "${release_build[@]}"
    run_ctest release
}

stage_asan() {
    configure_and_build clang-asan-ubsan "${QUICK_BUILD[@]}" -DOSTREL_BUILD_FUZZ=ON
    ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1:allocator_may_return_null=1 UBSAN_OPTIONS=print_stacktrace=1 \
        LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0 run_ctest clang-asan-ubsan
    ./scripts/fuzz.sh 5
}

stage_tsan() {
    configure_and_build tsan "${QUICK_BUILD[@]}"
    TSAN_OPTIONS=halt_on_error=1:suppressions=$PWD/tests/support/tsan.supp run_ctest tsan
}

# Textures are freed inside SDL, which no sanitizer sees: valgrind watches start-up, shut-down, caches and themes.
stage_valgrind() {
    update_release
    ./scripts/valgrind.sh build/release
}

stage_lint() {
    update_release --target ostrel
    ./scripts/lint build/release
}

stage_arm64() { ./scripts/cross-arm64.sh; }

# Plain char is signed on x86-64 and unsigned on 64-bit ARM; neither may matter.
stage_char() {
    configure_and_build unsigned-char
    run_ctest unsigned-char
}

run_stage() {
    local name=$1 begin=$SECONDS
    printf '\n== %s ==\n' "$name"
    "stage_$name"
    stage_times+=("$(printf '%-10s %4d s' "$name" $((SECONDS - begin)))")
}

is_stage() { declare -F "stage_$1" >/dev/null; }

main() {
    local stages=(release)
    case "$#,${1:-}" in
        0,) ;;
        1,--help) usage; exit 0 ;;
        1,--ci) stages=("${CI_STAGES[@]}") ;;
        2,--stage) is_stage "$2" || { usage >&2; exit 2; }; stages=("$2") ;;
        *) usage >&2; exit 2 ;;
    esac
    local packages=("${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}")
    if [[ $# -gt 0 ]]; then
        packages+=("${CI_PACKAGES[@]}")
        release_build=(-DOSTREL_BUILD_BENCH=ON -DOSTREL_FORKED_TESTS=tests)
    fi
    install_packages "${packages[@]}"
    mkdir -p build
    for stage in "${stages[@]}"; do run_stage "$stage"; done
    printf '\nTimes:\n'
    printf '  %s\n' "${stage_times[@]}"
    printf 'All stages passed: %s\n' "${stages[*]}"
}

main "$@"
