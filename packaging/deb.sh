#!/bin/sh
# Builds the Debian package: build/package/orvane_3.2_amd64.deb, for `apt install ./orvane_3.2_amd64.deb`.
set -eu
cd "$(dirname "$0")/.."
. packaging/packages.sh

# shellcheck disable=SC2086
install_packages $BUILD_PACKAGES dpkg-dev file
cmake --preset package >/dev/null
cmake --build --preset package
cpack --config build/package/CPackConfig.cmake -B build/package
