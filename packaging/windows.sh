#!/bin/sh
# Makes of the preset `windows` an installer and a zip for Windows that need nothing else:
# build/windows/orvane-3.2-win32.exe and .zip.
set -eu
cd "$(dirname "$0")/.."
. packaging/packages.sh

install_packages nsis
packaging/windows/tools.sh libraries qt
cmake --preset windows >/dev/null
cmake --build --preset windows --target orvane orvanew
cpack --config build/windows/CPackConfig.cmake -B build/windows
