# What the scripts beside it share. Sourcing it enters the project folder, with nothing to read
# from standard input, so that no tool can stop to ask.
# shellcheck shell=bash
set -euo pipefail
CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
exec </dev/null

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    [[ -w ${HOME:-/nonexistent} ]] || export CCACHE_DIR=${CCACHE_DIR:-$PWD/build/ccache}
fi

packages_for() {
    case $1 in
        build) echo cmake ninja-build g++ pkg-config libcairo2-dev libcli11-dev libglib2.0-dev libicu-dev \
            libmnl-dev libpugixml-dev libsimdjson-dev libssl-dev libzip-dev uuid-dev ;;
        tests) echo iproute2 libgmock-dev libgtest-dev librapidcheck-dev ;;
        demo) echo breeze-icon-theme ;;
        bench) echo libbenchmark-dev libboost-dev libeigen3-dev libglm-dev libmuparser-dev \
            libsigc++-2.0-dev lib2geom-dev nlohmann-json3-dev qt6-base-dev qt6-base-private-dev ;;
        clang) echo clang clang-format libclang-rt-14-dev llvm ;;
    esac
}

# need build tests: installs what these purposes lack, and touches nothing when they lack nothing.
need() {
    local purpose package missing=()
    for purpose in "$@"; do
        for package in $(packages_for "$purpose"); do
            is_installed "$package" || missing+=("$package")
        done
    done
    ((${#missing[@]})) || return 0
    step "Installing ${missing[*]}"
    quietly as_root apt-get update -o Acquire::Retries=3
    quietly as_root apt-get install -y --no-install-recommends \
        -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 "${missing[@]}"
}

is_installed() {
    dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

as_root() {
    local command=(env DEBIAN_FRONTEND=noninteractive "$@")
    if ((EUID == 0)); then
        "${command[@]}"
    else
        sudo "${command[@]}"
    fi
}

# build dev [TARGET...]
build() {
    local preset=$1
    shift
    local compile=(cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"})
    quietly cmake --preset "$preset"
    if [[ -t 1 ]]; then
        "${compile[@]}"
    else
        quietly "${compile[@]}" -- --quiet
    fi
}

# Passed tests are not worth a line each; failures and the summary are.
run_tests() {
    if [[ -t 1 ]]; then
        ctest --preset "$1" -j "$(nproc)" --progress
    else
        ctest --preset "$1" -j "$(nproc)" | grep -vE '^ +Start +[0-9]+:| Passed +[0-9.]+ sec$'
    fi
}

step() {
    printf '== %s\n' "$*"
}

# Runs a command and keeps its output for the case that it fails.
quietly() {
    local output status=0
    output=$("$@" 2>&1) || status=$?
    ((status == 0)) || printf '%s\n' "$output" >&2
    return "$status"
}
