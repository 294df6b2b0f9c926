#!/usr/bin/env bash
# Installs the Debian packages that the build needs, if any is missing, and says so.
set -euo pipefail

packages=(
    g++
    clang
    libclang-rt-dev
    cmake
    make
    ninja-build
    pkg-config
    libgtest-dev
    libbenchmark-dev
    libsndfile1-dev
    python3
    libcli11-dev
    libcairo2-dev
    libfontconfig-dev
    fontconfig
    fonts-liberation
    fonts-urw-base35
    libpango1.0-dev
    fonts-comic-neue
    libxcb1-dev
    libxcb-shm0-dev
    libxcb-xkb-dev
    libxcb-xtest0-dev
    libxkbcommon-dev
    libxkbcommon-x11-dev
    xvfb
    x11-xkb-utils
    libx11-dev
    libgtk-3-dev
    qtbase5-dev
)

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
done

if ((${#missing[@]} == 0)); then
    exit 0
fi

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "install-dependencies: these packages are missing and there is no sudo; as root, run:" >&2
        echo "  apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing missing Debian packages: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
