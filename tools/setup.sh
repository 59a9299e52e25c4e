# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
#
# What ./play and ./check share: packages, and the build. Read by both, never run by itself.

# Debian's names; Ubuntu has the same.
build_packages="cmake ninja-build g++ qt6-base-dev qt6-svg-dev libsdl2-dev libsdl2-mixer-dev abcmidi"
run_packages="libsdl2-mixer-2.0-0 qt6-wayland timgm6mb-soundfont fonts-dejavu-core"
virtual_display_packages="xvfb openbox"
check_packages="libgtest-dev libbenchmark-dev clang-format clang-tidy cppcheck fluidsynth desktop-file-utils appstream man-db lintian clang libclang-rt-dev locales python3-xlib faketime dbus at-spi2-core python3-gi gir1.2-atspi-2.0"

fail() {
    echo "$1" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# A sound server for a test, unless it would put out the machine's own.
is_installed pipewire-pulse || is_installed pipewire-alsa || check_packages="$check_packages pulseaudio"

# install_missing PACKAGE...: quiet when there is nothing to do.
install_missing() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        if [ ! -d build ]; then
            echo "This system has no apt-get. If the build fails, install what these packages of Debian hold: $*"
        fi
        return 0
    fi
    missing=
    for package in "$@"; do
        is_installed "$package" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing"
    as_root=
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || fail "These packages are missing, and there is no sudo to install them with:$missing"
        as_root=sudo
    fi
    log=$(mktemp)
    # shellcheck disable=SC2086  # the lists are meant to be split
    if ! { $as_root apt-get update -qq &&
           $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing; } >"$log" 2>&1
    then
        tail -n 5 "$log" >&2
        rm -f "$log"
        fail "The packages could not be installed:$missing"
    fi
    rm -f "$log"
}

# build PRESET [CMAKE-OPTION...]: configures once and builds; prints only what goes wrong.
build() {
    preset=$1
    shift
    folder=build
    [ "$preset" = release ] || folder=build/$preset
    log=build/$preset.log
    mkdir -p build
    if [ ! -f "$folder/build.ninja" ] && ! cmake --preset "$preset" "$@" >"$log" 2>&1; then
        cat "$log" >&2
        fail "The build could not be set up ($preset); see $log."
    fi
    if ! cmake --build "$folder" >"$log" 2>&1; then
        grep -E 'error|Error|FAILED' "$log" | head -n 20 >&2
        fail "The build failed ($preset); see $log."
    fi
}
