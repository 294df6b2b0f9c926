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
