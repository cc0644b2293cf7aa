#!/usr/bin/env bash
# Builds the example plug-in examples/site-policy-plugin against an installed
# tree twice, with its CMake project (find_package) and with pkg-config
# alone, and checks each build with that tree's ipapp-validate --plugin on
# the example candidates its expected/ directory names, with --trace: the
# trace lines a case's .log file lists must show. Usage:
#   example_plugin.sh PREFIX EXAMPLES_DIR WORK_DIR RUN_CASE
set -euo pipefail
prefix=$1 examples=$2 work=$3 run_case=$4
source_dir=$examples/site-policy-plugin
warnings="-Wall -Wextra -Werror"
rm -rf "$work"
mkdir -p "$work/pkg-config"

cmake -S "$source_dir" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_C_FLAGS="$warnings" >"$work/cmake.log" 2>&1 &&
    cmake --build "$work/cmake" >>"$work/cmake.log" 2>&1 ||
    { cat "$work/cmake.log"; exit 1; }
# shellcheck disable=SC2046,SC2086
cc -std=c11 $warnings -shared -fPIC -fvisibility=hidden -o "$work/pkg-config/libsite_policy.so" \
    "$source_dir/site_policy.c" \
    $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs ipapp-platform)

failures=0
for plugin in "$work/cmake/libsite_policy.so" "$work/pkg-config/libsite_policy.so"; do
    printf -- '--trace\n--plugin\n%s\n' "$plugin" >"$work/args"
    for expected in "$source_dir"/expected/*.expected; do
        candidate=$examples/$(basename "$expected" .expected).xml
        cmake -DTOOL="$prefix/bin/ipapp-validate" -DRUNNING="$examples/running.xml" \
            -DCANDIDATE="$candidate" -DEXPECTED="$expected" -DARGS_FILE="$work/args" \
            -DEXPECTED_LOG="${expected%.expected}.log" -P "$run_case" || { echo "with $plugin"; failures=$((failures + 1)); }
    done
done
exit $((failures > 0))
