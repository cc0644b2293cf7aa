#!/usr/bin/env bash
# Makes the Debian package of a build directory with CPack into OUT_DIR and
# extracts it into OUT_DIR/root (no root privileges needed). Usage:
#   build_package.sh BUILD_DIR OUT_DIR
set -euo pipefail
build_dir=$1 out_dir=$2
rm -rf "$out_dir"
mkdir -p "$out_dir"
if ! cpack --config "$build_dir/CPackConfig.cmake" -B "$out_dir" >"$out_dir/cpack.log" 2>&1; then
    cat "$out_dir/cpack.log"
    exit 1
fi
packages=("$out_dir"/*.deb)
if [ ${#packages[@]} -ne 1 ] || [ ! -f "${packages[0]}" ]; then
    echo "expected one .deb in $out_dir, found: ${packages[*]}"
    exit 1
fi
dpkg-deb -x "${packages[0]}" "$out_dir/root"
