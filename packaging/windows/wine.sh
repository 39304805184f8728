#!/bin/sh
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under the Wine that tools.sh made. Paths mean the same inside:
# the source tree and /tmp are mounted where they are, in a mount namespace that ends with the program. The user's folder
# is build/windows-tools/home, or what ORVANE_WINE_HOME names there or in /tmp. WINEPATH, if it is set, takes the place of
# the folders with the libraries that a program of the build needs.
set -eu
here=$(cd "$(dirname "$0")/../.." && pwd -P)
windows=$(cd "${ORVANE_WINDOWS_ROOT:-$here/build/windows-tools}" && pwd -P)

if [ "${1:-}" != --inside ]; then
    own=""
    [ "$(id -u)" -eq 0 ] || own=--map-root-user
    # shellcheck disable=SC2086
    exec unshare $own --mount --propagation private sh "$here/packaging/windows/wine.sh" --inside "$@"
fi
shift

root=$windows/wine
for folder in /dev /proc /tmp "$here" "$windows"; do
    mkdir -p "$root$folder"
    mount --rbind "$folder" "$root$folder"
done

for folder in qt/bin runtime; do
    dlls="${dlls:+$dlls;}Z:$(echo "$windows/$folder" | tr / '\\')"
done
export HOME="${ORVANE_WINE_HOME:-$windows/home}" WINEARCH=win32 WINEPATH="${WINEPATH-$dlls}" LANG=C.UTF-8
export WINEPREFIX="$HOME/prefix"
export WINEDEBUG="${WINEDEBUG:--all}" PATH=/usr/sbin:/usr/bin:/sbin:/bin
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_RUNTIME_DIR LD_PRELOAD LD_LIBRARY_PATH
# Without these two Wine asks whether to install them.
export WINEDLLOVERRIDES="mscoree=;mshtml=${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"
exec chroot "$root" env --chdir="$PWD" wine "$@"
