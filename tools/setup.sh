#!/usr/bin/env bash
# Shared set-up of tools/start.sh and tools/test.sh: installs what is missing
# on a Debian 12 machine and builds Velmora into ./build.
set -euo pipefail

VELMORA_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
VELMORA_BUILD="${VELMORA_BUILD:-$VELMORA_ROOT/build}"

VELMORA_PACKAGES=(
    cmake g++ make ccache pkg-config
    qtbase5-dev qtbase5-dev-tools qtmultimedia5-dev zlib1g-dev libwoff-dev
    woff-tools woff2
    fontconfig fonts-dejavu-core python3
    xvfb xauth x11-utils imagemagick openbox xdg-utils
    # Installing and packaging: the validators of the desktop files the
    # install test runs, dpkg-shlibdeps for "cpack -G DEB", and rsvg-convert
    # for tools/packaging/make_icons.sh.
    desktop-file-utils appstream shared-mime-info dpkg-dev librsvg2-bin
)

velmora_missing_packages() {
    local missing=()
    for package in "${VELMORA_PACKAGES[@]}"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
            missing+=("$package")
        fi
    done
    echo "${missing[@]:-}"
}

velmora_install() {
    local missing
    missing="$(velmora_missing_packages)"
    [ -z "$missing" ] && return 0
    if [ "$(id -u)" -eq 0 ]; then
        echo "Installing: $missing"
        export DEBIAN_FRONTEND=noninteractive
        apt-get update -qq
        # shellcheck disable=SC2086
        apt-get install -y -qq --no-install-recommends $missing
    else
        echo "Velmora needs these Debian packages. As root, run:"
        echo "apt-get install -y $missing"
        exit 1
    fi
}

velmora_build() {
    export CCACHE_DIR="${CCACHE_DIR:-${HOME:-/tmp}/.cache/ccache}"
    # shellcheck disable=SC2086
    cmake -S "$VELMORA_ROOT" -B "$VELMORA_BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo ${VELMORA_CMAKE_ARGS:-} >/dev/null
    cmake --build "$VELMORA_BUILD" -j "$(nproc)"
}

velmora_install
velmora_build
