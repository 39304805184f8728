#!/bin/sh
# Makes in build/windows-tools what building for 32-bit Windows and running the result need: the libraries from the
# distribution's sources, and a Wine of 32 bits in a root of its own. What is there stays; the first run takes an hour.
#
#     tools.sh [libraries] [qt] [wine]     these parts alone
set -eu
cd "$(dirname "$0")/../.."
. packaging/packages.sh

install_packages g++-mingw-w64-i686-posix cmake ninja-build ccache dpkg-dev debootstrap googletest libcli11-dev qt6-base-dev \
    qt6-base-dev-tools
windows=$PWD/build/windows-tools
mkdir -p "$windows/sources" "$windows/log"

# source_of PACKAGE: its source from the distribution. The lists of packages that this machine has stay as they are.
source_of() {
    ls -d "$windows/sources/$1"-*/ >/dev/null 2>&1 && return
    (
        cd "$windows/sources"
        if [ ! -f lists.done ]; then
            if [ -f /etc/apt/sources.list.d/debian.sources ]; then
                sed 's/^Types:.*/Types: deb-src/' /etc/apt/sources.list.d/debian.sources >debian.sources
            else
                sed -n 's/^deb \(.*debian.*\)/deb-src \1/p' /etc/apt/sources.list >debian.list
            fi
            mkdir -p lists/partial
            apt_here update -q || exit 1
            touch lists.done
        fi
        apt_here source -q "$1"
    ) >"$windows/log/source-$1" 2>&1 || { tail -n 30 "$windows/log/source-$1" >&2; return 1; }
}

apt_here() {
    apt-get -o Dir::Etc::sourcelist="$(echo "$windows"/sources/debian.*s*)" -o Dir::Etc::sourceparts=/dev/null \
        -o Dir::State::lists="$windows/sources/lists" -o APT::Sandbox::User=root "$@"
}

# cross_build NAME SOURCE PREFIX [OPTION...]: configures, builds and installs once
cross_build() {
    name=$1
    source=$2
    prefix=$3
    shift 3
    [ -f "$windows/$name.done" ] && return
    echo "Building $name for Windows; the log is build/windows-tools/log/$name"
    {
        cmake -S "$source" -B "$windows/build-$name" -G Ninja -DCMAKE_BUILD_TYPE=Release \
            -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/Windows32.cmake" -DCMAKE_INSTALL_PREFIX="$windows/$prefix" \
            -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@" &&
            cmake --build "$windows/build-$name" -j "${ORVANE_JOBS:-$(nproc)}" &&
            cmake --install "$windows/build-$name" --strip
    } >"$windows/log/$name" 2>&1 || { tail -n 30 "$windows/log/$name" >&2; return 1; }
    touch "$windows/$name.done"
}

# The libraries that Debian's compiler links dynamically, since exceptions pass from one library to another
runtime() {
    mkdir -p "$windows/runtime"
    for library in libgcc_s_dw2-1 libstdc++-6 libwinpthread-1; do
        [ -f "$windows/runtime/$library.dll" ] && continue
        file=$(i686-w64-mingw32-g++-posix -print-file-name=$library.dll)
        i686-w64-mingw32-strip -o "$windows/runtime/$library.dll" "$file"
    done
}

libraries() {
    runtime
    source_of pugixml
    cross_build pugixml "$windows/sources"/pugixml-*/ libraries
    source_of rtmidi
    cross_build rtmidi "$windows/sources"/rtmidi-*/ libraries -DBUILD_SHARED_LIBS=OFF -DRTMIDI_API_JACK=OFF \
        -DRTMIDI_BUILD_TESTING=OFF
    cross_build googletest /usr/src/googletest libraries -DBUILD_GMOCK=OFF
    # Headers alone
    mkdir -p "$windows/libraries/share/cmake"
    cp -r /usr/include/CLI "$windows/libraries/include/"
    cp -r /usr/share/cmake/CLI11 "$windows/libraries/share/cmake/"
}

qt() {
    source_of qt6-base
    set -- dbus concurrent network printsupport sql xml
    for feature in "$@"; do
        set -- "$@" -DFEATURE_"$feature"=OFF
        shift
    done
    for bundled in doubleconversion freetype harfbuzz jpeg pcre2 png zlib; do
        set -- "$@" -DFEATURE_system_$bundled=OFF
    done
    # The source has no wintab.h.
    cross_build qt "$windows/sources"/qt6-base-*/ qt -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no -DFEATURE_tabletevent=OFF "$@"
}

# A root of its own, because the packages of 32 bits conflict with those of 64 on some machines
wine() {
    if [ ! -f "$windows/wine.done" ]; then
        echo "Installing Wine; the log is build/windows-tools/log/wine"
        as_root=""
        [ "$(id -u)" -eq 0 ] || as_root=sudo
        $as_root rm -rf "$windows/wine"
        mirror=$(cat /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list 2>/dev/null |
            sed -n 's/^URIs: *//p; s/^deb  *\([a-z]*:[^ ]*debian[^ ]*\) .*/\1/p' | head -n 1)
        # What it mounts goes with the namespace.
        # shellcheck disable=SC2086
        $as_root unshare --mount --propagation private debootstrap --arch=i386 --variant=minbase \
            --include=wine,wine32,libxcursor1,libxi6,libxrandr2,libxrender1,libxinerama1,libxcomposite1,libxxf86vm1,fonts-liberation \
            bookworm "$windows/wine" ${mirror:+"$mirror"} >"$windows/log/wine" 2>&1 || {
            tail -n 30 "$windows/log/wine" >&2
            return 1
        }
        touch "$windows/wine.done"
    fi
    mkdir -p "$windows/home"
    [ -d "$windows/home/prefix" ] || packaging/windows/wine.sh wineboot --init
    cp "$windows"/wine/usr/share/fonts/truetype/liberation/*.ttf "$windows/home/prefix/drive_c/windows/Fonts/"
}

[ $# -gt 0 ] || set -- libraries wine qt
for part in "$@"; do
    "$part"
done
