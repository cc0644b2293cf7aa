#!/usr/bin/env bash
# Configures and builds into the given build directory (default: build).
# Warnings are errors (IPAPP_WERROR); further arguments go to CMake's
# configure step.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
shift || true
cmake -S . -B "$build_dir" -DIPAPP_WERROR=ON "$@" >/dev/null
cmake --build "$build_dir" -j "$(nproc)"
