#!/usr/bin/env bash
# Makes the Debian package of a build directory (default: build), installs it
# with apt-get (as root or with sudo) as on a fresh machine, checks the
# example candidates with the installed /usr/bin/ipapp-validate, builds the
# example plug-in against the installed platform and checks it, then removes
# the package again. Refuses to run when the package is installed already.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=$(realpath "${1:-build}")
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
if dpkg-query -W -f='${Status}' ip-app-valid 2>/dev/null | grep -q "install ok installed"; then
    echo "check-package-install.sh: ip-app-valid is installed already; remove it first" >&2
    exit 2
fi

out_dir=$build_dir/package-install
tests/package/build_package.sh "$build_dir" "$out_dir"
trap '$sudo apt-get purge -y ip-app-valid >/dev/null' EXIT
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends \
    "$out_dir"/ip-app-valid_*.deb >/dev/null

run_case=$PWD/tests/scenarios/run_case.cmake
for candidate in examples/candidate-*.xml; do
    cmake -DTOOL=/usr/bin/ipapp-validate -DRUNNING=examples/running.xml -DCANDIDATE="$candidate" \
        -DEXPECTED="${candidate%.xml}.expected" -P "$run_case"
done
tests/package/example_plugin.sh /usr "$PWD/examples" "$out_dir/example-plugin" "$run_case"
echo "check-package-install.sh: the installed package checks the examples and builds the" \
    "example plug-in"
