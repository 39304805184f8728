# Sourced by ./start and ./check: what they need from the distribution, and a function that installs what is missing.
# Rights are asked for only then.

BUILD_PACKAGES="g++ cmake ninja-build ccache pkg-config
    libcli11-dev libfluidsynth-dev libjack-jackd2-dev liblo-dev libpugixml-dev librtmidi-dev libsdl2-dev libx11-dev
    libxcb1-dev libxcb-xkb-dev libxkbcommon-dev qt6-base-dev fonts-liberation timgm6mb-soundfont"

TEST_PACKAGES="$BUILD_PACKAGES clang libclang-rt-14-dev libgtest-dev libbenchmark-dev
    appstream desktop-file-utils groff-base jackd2 pipewire pipewire-bin pipewire-jack abcmidi python3
    libxcb-xtest0-dev xauth xdotool xvfb"

install_packages() {
    missing=""
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -q '^installed$' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "These packages are missing, and there is no apt-get to install them:$missing" >&2
        return 1
    fi
    as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        as_root="sudo"
        echo "Installing packages (this asks for your password):$missing"
    else
        echo "Installing packages:$missing"
    fi
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q </dev/null >/dev/null || true
    # shellcheck disable=SC2086  # one word per package
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing </dev/null \
        >/tmp/orvane-packages.$$ 2>&1 || { cat /tmp/orvane-packages.$$ >&2; rm -f /tmp/orvane-packages.$$; return 1; }
    rm -f /tmp/orvane-packages.$$
}
