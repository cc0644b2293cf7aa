#!/usr/bin/env bash
# Builds the fuzz targets (clang, libFuzzer, ASan and UBSan) into build-fuzz
# and runs each for SECONDS (default 20), printing one line per target:
#   NAME: N execs, M findings
# A finding (crash, sanitizer report, leak, timeout, out of memory) is saved
# in build-fuzz/fuzz/findings/NAME/ and the script exits 1. Each target's
# corpus grows in build-fuzz/fuzz/corpus/NAME/ from run to run, and its
# libFuzzer output is in build-fuzz/fuzz/NAME.log. FUZZ_BUILD_DIR chooses
# another build directory. See docs/fuzzing.md.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-20}
build_dir=${FUZZ_BUILD_DIR:-build-fuzz}

mkdir -p "$build_dir"
build_log=$build_dir/fuzz-build.log
if ! ./scripts/build.sh "$build_dir" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DIPAPP_BUILD_FUZZ=ON -DIPAPP_BUILD_TESTS=OFF -DIPAPP_BUILD_BENCH=OFF >"$build_log" 2>&1; then
    cat "$build_log" >&2
    echo "fuzz.sh: the fuzz build failed (log: $build_log)" >&2
    exit 2
fi

fuzz_dir=$build_dir/fuzz
artifacts() {
    find "$1" -type f \( -name 'crash-*' -o -name 'leak-*' -o -name 'timeout-*' -o -name 'oom-*' \) |
        wc -l
}

status=0
for fuzzer in "$fuzz_dir"/*_fuzzer; do
    name=$(basename "$fuzzer" _fuzzer)
    corpus=$fuzz_dir/corpus/$name
    findings=$fuzz_dir/findings/$name
    log=$fuzz_dir/$name.log
    mkdir -p "$corpus" "$findings"
    before=$(artifacts "$findings")
    exit_status=0
    # -len_control=0: full-length inputs from the start, which the plug-in
    # target needs to describe configurations of some size.
    "$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -len_control=0 \
        -print_final_stats=1 -artifact_prefix="$findings/" \
        "$corpus" "$fuzz_dir/seeds/$name" >"$log" 2>&1 ||
        exit_status=$?
    execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
    found=$(($(artifacts "$findings") - before))
    # A fuzzer that failed without saving an input (it died while starting)
    # is a finding too; its log tells what happened.
    if [ "$exit_status" -ne 0 ] && [ "$found" -eq 0 ]; then
        found=1
    fi
    echo "$name: ${execs:-0} execs, $found findings"
    [ "$found" -eq 0 ] || status=1
done
exit $status
