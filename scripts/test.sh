#!/usr/bin/env bash
# Runs every test: installs what is missing, checks that every C++ file is
# formatted, builds, runs the tests (the memcheck ones under valgrind
# included), builds the plug-in once more against an install of our own
# platform as against a device SDK, installs the Debian package with apt-get,
# checks the examples with it and removes it, then builds and runs the tests
# once more under AddressSanitizer and UndefinedBehaviorSanitizer; last, a
# short run of every fuzz target and the fuzz build's regression inputs.
# FUZZ_SECONDS sets the time per fuzz target (default 20).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh

git ls-files -z '*.cc' '*.h' | xargs -0 clang-format --dry-run -Werror

./scripts/build.sh build
ctest --test-dir build --output-on-failure -j "$(nproc)"

./scripts/check-external-platform.sh build
./scripts/check-package-install.sh build

./scripts/build.sh build-sanitize -DIPAPP_SANITIZE=ON -DIPAPP_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug
ctest --test-dir build-sanitize --output-on-failure -j "$(nproc)"

./scripts/fuzz.sh "${FUZZ_SECONDS:-20}"
ctest --test-dir build-fuzz --output-on-failure -j "$(nproc)"
