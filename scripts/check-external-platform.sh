#!/usr/bin/env bash
# Builds the plug-in alone against an install of the platform of the given
# build directory (default: build), as it builds against a device SDK
# (IPAPP_PLATFORM_ROOT), and checks that it exports the same names as the
# plug-in of the full build. The install and the build go below
# <build>/external-platform/.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
work_dir=$(realpath "$build_dir")/external-platform
rm -rf "$work_dir"
cmake --install "$build_dir" --prefix "$work_dir/root" >/dev/null
./scripts/build.sh "$work_dir/plugin" -DIPAPP_PLATFORM_ROOT="$work_dir/root" >/dev/null
cmake -DNM="$(command -v nm)" -DLIBRARY="$work_dir/plugin/src/lib/libip_app_valid.so" \
    -P tests/plugin/check_exports.cmake
echo "check-external-platform.sh: the plug-in built against the installed platform exports" \
    "the plug-in's names"
