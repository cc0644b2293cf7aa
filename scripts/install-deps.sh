#!/usr/bin/env bash
# Installs the Debian packages the project builds and tests with (clang and
# its sanitizer and libFuzzer runtimes for the fuzz build, valgrind for the
# memcheck tests). Does nothing when they are all present already.
set -euo pipefail

packages=(
    build-essential cmake pkg-config
    libyang2-dev libyang2-tools
    libboost-dev libboost-system-dev
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    clang-format
    netconfd libyuma-dev libxml2-dev python3-ncclient openssh-server
    clang libclang-rt-14-dev
    valgrind
)

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get update
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
