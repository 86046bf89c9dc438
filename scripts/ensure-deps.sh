#!/usr/bin/env bash
# Installs the Debian/Ubuntu packages the build and the tests need, when any is missing.
# Sourced by run.sh and test.sh.
koral_packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-serialport-dev libgl-dev
    qt6-qpa-plugins fonts-dejavu-core
    xvfb xauth
    # The rig-control protocol's reference client, for the network control tests only: the
    # programs never use it.
    libhamlib-utils
)

koral_missing_packages() {
    local missing=() pkg
    for pkg in "${koral_packages[@]}"; do
        dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" ||
            missing+=("$pkg")
    done
    echo "${missing[@]}"
}

koral_ensure_deps() {
    if ! command -v dpkg-query >/dev/null 2>&1; then
        echo "This script installs its dependencies on Debian or Ubuntu only." >&2
        echo "Install CMake 3.25+, Ninja, a C++20 compiler and Qt 6.4+ (Core, Network, SerialPort," >&2
        echo "Widgets, PrintSupport, Test) yourself, then run it again." >&2
        return 1
    fi
    local missing
    missing=$(koral_missing_packages)
    [ -z "$missing" ] && return 0
    echo "Installing missing packages: $missing"
    local sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null 2>&1; then
            sudo="sudo"
        else
            echo "These packages are missing, and this user is not root and has no sudo:" >&2
            echo "    $missing" >&2
            echo "Ask an administrator to run: apt-get install $missing" >&2
            return 1
        fi
    fi
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq || { echo "apt-get update failed." >&2; return 1; }
    # shellcheck disable=SC2086
    $sudo apt-get install -y -qq --no-install-recommends $missing ||
        { echo "Installing the packages failed: $missing" >&2; return 1; }
}

# Configures (once) and builds into build/.
koral_build() {
    local root="$1"
    if [ ! -f "$root/build/CMakeCache.txt" ]; then
        cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo || return 1
    fi
    cmake --build "$root/build" --parallel "$(nproc)"
}
