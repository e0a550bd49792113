#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the benchmarks need, and nothing more;
# `setup-deps.sh package` installs what `make package` needs instead (dpkg-shlibdeps and the
# tools CPack calls). As root it runs apt-get; otherwise it prints the one command to run. A
# machine that already has everything is left alone (checked with dpkg, so a second run costs a
# fraction of a second). `setup-deps.sh fuzz` adds clang and libFuzzer to the usual packages,
# which only the fuzz targets need.
set -euo pipefail

if [ "${1:-}" = package ]; then
    packages=(dpkg-dev file binutils gzip)
else
    packages=(
        cmake ninja-build g++ make pkg-config
        qt6-base-dev qt6-base-dev-tools libgl-dev
        zlib1g-dev libgtest-dev libgmock-dev libbenchmark-dev
        fonts-liberation2 fonts-dejavu-core
        xvfb xauth xdotool xclip x11-utils
        wamerican-small
        poppler-utils
    )
    if [ "${1:-}" = fuzz ]; then
        packages+=(clang-14 libclang-rt-14-dev libfuzzer-14-dev)
    fi
fi

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

if [ "$(id -u)" -eq 0 ]; then
    echo "Installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
    echo "These packages are missing: ${missing[*]}" >&2
    echo "Install them with:" >&2
    echo "  sudo apt-get install -y ${missing[*]}" >&2
    exit 1
fi
