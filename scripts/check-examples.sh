#!/usr/bin/env bash
# The project's main job on a fresh machine: installs what is missing,
# builds, and checks the example candidates in examples/ against the example
# running configuration with ipapp-validate. Each candidate-NAME.xml has a
# candidate-NAME.expected: the verdict on the first line (accepted, refused
# or crashed), then the exact text the plug-in gives. A refused example that
# prints its expected text is a success of this script. BUILD_DIR chooses
# another build directory than build/.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/install-deps.sh
build_dir=${BUILD_DIR:-build}
./scripts/build.sh "$build_dir"

tool=$build_dir/tools/ipapp-validate
failures=0

# Shows the report a person reads, then checks verdict, exit status and text
# with the scenario runner of the tests.
check() {
    local candidate=$1
    local status=0
    echo "\$ $tool --running examples/running.xml $candidate"
    "$tool" --running examples/running.xml "$candidate" || status=$?
    echo "(exit status $status)"
    if cmake -DTOOL="$tool" -DRUNNING=examples/running.xml -DCANDIDATE="$candidate" \
        -DEXPECTED="${candidate%.xml}.expected" -P tests/scenarios/run_case.cmake; then
        echo "=> as expected: $(head -n 1 "${candidate%.xml}.expected")"
    else
        echo "=> UNEXPECTED (see above)"
        return 1
    fi
}

for candidate in examples/candidate-*.xml; do
    echo
    check "$candidate" || failures=$((failures + 1))
done
echo
if [ "$failures" -ne 0 ]; then
    echo "$failures example(s) did not give the expected verdict"
    exit 1
fi
echo "All examples gave the expected verdicts."
