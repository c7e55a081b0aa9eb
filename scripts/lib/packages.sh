#!/usr/bin/env bash
# The Debian packages that the scripts need, by what they are needed for. Sourced, not run.
# shellcheck disable=SC2034  # used by the scripts that source this file

# To build the library and the launcher, and the font and the time zones that the launcher shows.
BUILD_PACKAGES=(
    g++ cmake ninja-build pkg-config
    libsdl2-dev libsdl2-ttf-dev libsdl2-image-dev libsdl2-mixer-dev libcjson-dev
    fonts-wqy-microhei tzdata
)
# To build and run the tests.
TEST_PACKAGES=(
    libgtest-dev libgmock-dev python3 unicode-data
    groff-base desktop-file-utils librsvg2-bin dpkg-dev file
)
# The real programs that some tests let the library meet: Wi-Fi daemons and their network, an X server and its user.
TEST_PACKAGES+=(wpasupplicant hostapd iproute2 xvfb xdotool imagemagick)
# What the sanitizer, valgrind, benchmark and lint stages add.
CI_PACKAGES=(
    git clang libclang-rt-14-dev clang-format clang-tidy python3-clang-14 valgrind libbenchmark-dev shellcheck
    binutils
)
# To build the Debian packages and look at them.
PACKAGING_PACKAGES=(dpkg-dev file binutils gzip lintian)
# To build for 64-bit ARM and to run that here. The one jack is what both processors' mixer libraries can share.
ARM64_PACKAGES=(
    g++-aarch64-linux-gnu qemu-user
    libjack-jackd2-dev libjack-jackd2-dev:arm64 libstdc++6:arm64 libgtest-dev:arm64 libgmock-dev:arm64
    libsdl2-dev:arm64 libsdl2-ttf-dev:arm64 libsdl2-image-dev:arm64 libsdl2-mixer-dev:arm64 libcjson-dev:arm64
)
