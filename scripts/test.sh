#!/usr/bin/env bash
# Runs every test: installs what is missing, builds, runs the tests, then
# builds and runs them once more under AddressSanitizer and
# UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh

./scripts/build.sh build
ctest --test-dir build --output-on-failure -j "$(nproc)"

./scripts/build.sh build-sanitize -DIPAPP_SANITIZE=ON -DIPAPP_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug
ctest --test-dir build-sanitize --output-on-failure -j "$(nproc)"
