# shellcheck shell=bash
# What ./run, ./test and ./dev share: packages, builds, the environment of the program.
# Sourced, never started; what looks unused here is used there.
# shellcheck disable=SC2034

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

buildPackages=(
    g++ cmake ninja-build ccache qt6-base-dev qt6-webengine-dev qt6-pdf-dev libtomlplusplus-dev nlohmann-json3-dev
    libzip-dev libcsv-dev libqpdf-dev pkgconf
    ca-certificates fonts-dejavu-core
)
# What plays the program on a machine without a display.
displayPackages=(
    xvfb openbox dbus at-spi2-core python3 python3-gi gir1.2-atspi-2.0 xdotool imagemagick
)
# Debian's own: another python3 may come first in the path and has no python3-gi.
python=/usr/bin/python3
testPackages=(libgtest-dev libgmock-dev poppler-utils "${displayPackages[@]}")

Say() { echo "$(basename "$0"): $*"; }
Fail() {
    Say "$*" >&2
    exit 1
}

# Installs those of the named Debian packages that are missing; quick when none is.
Install() {
    local package missing=()
    if ! command -v dpkg-query >/dev/null; then
        Say "this is no Debian: taking for granted that there is what these packages hold: $*"
        return
    fi
    for package in "$@"; do
        # A package's state is asked for in full: "deinstall ok config-files" is not installed.
        [[ "$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null)" == "install ok installed" ]] ||
            missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    local asRoot=()
    if ((EUID)); then
        command -v sudo >/dev/null || Fail "please install, as root: ${missing[*]}"
        asRoot=(sudo)
    fi
    Say "installing from Debian's packages: ${missing[*]}"
    "${asRoot[@]}" apt-get update -q
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Configures a preset once (the build repeats it when a CMake file changes) and builds the targets.
Build() {
    local preset=$1
    shift
    # The precompiled headers and the build's own paths must not keep ccache from its work.
    export CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
    if [[ ! -f build/$preset/build.ninja ]]; then
        Say "configuring build/$preset"
        cmake --preset "$preset"
    fi
    Say "building build/$preset"
    cmake --build "build/$preset" ${1:+--target "$@"}
}

# The web engine refuses its sandbox to root and would end the program.
AllowRoot() {
    ((EUID)) && return
    Say "running as root: the web engine's sandbox is off (QTWEBENGINE_DISABLE_SANDBOX=1)"
    export QTWEBENGINE_DISABLE_SANDBOX=1
}
