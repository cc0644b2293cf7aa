#!/usr/bin/env bash
# Measures what the tests catch: for each fault of scripts/seeded-faults.txt,
# puts it into the source, rebuilds the given build directory (default:
# build) and runs its tests, stopping at the first failure; the fault counts
# as caught when a test fails. The source is restored after each fault, also
# when the script is interrupted. Prints one line per fault and
# "caught N of M"; exits non-zero when a fault's text is no longer in its
# file (the list must follow the code) or a fault does not build.
#
# Each line of the list: FILE<TAB>TEXT<TAB>REPLACEMENT<TAB>WHAT; TEXT's
# first occurrence in FILE is replaced. "\n" in TEXT and REPLACEMENT stands
# for a line break. Lines starting with '#' are comments.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
list=scripts/seeded-faults.txt
# The valgrind runs and the NETCONF twin take long and find nothing a fault
# of the list could show that the other tests miss.
exclude_labels='memcheck|twin'

saved=""
restore() {
    if [[ -n "$saved" ]]; then
        cp "$saved" "$current_file"
        rm -f "$saved"
        saved=""
    fi
}
trap restore EXIT INT TERM

caught=0
total=0
broken=0
while IFS=$'\t' read -r current_file text replacement what; do
    [[ -z "$current_file" || "$current_file" == \#* ]] && continue
    total=$((total + 1))
    saved=$(mktemp)
    cp "$current_file" "$saved"
    if ! python3 - "$current_file" "$text" "$replacement" <<'PY'; then
import sys
path, text, replacement = sys.argv[1], sys.argv[2].replace("\\n", "\n"), sys.argv[3].replace("\\n", "\n")
source = open(path).read()
if text not in source:
    sys.exit(1)
open(path, "w").write(source.replace(text, replacement, 1))
PY
        echo "stale     $current_file: $what (its text is not in the file)"
        broken=$((broken + 1))
        restore
        continue
    fi
    if ! cmake --build "$build_dir" -j "$(nproc)" >/dev/null 2>&1; then
        echo "no build  $current_file: $what"
        broken=$((broken + 1))
    elif ctest --test-dir "$build_dir" -j "$(nproc)" -LE "$exclude_labels" --stop-on-failure \
        >/dev/null 2>&1; then
        echo "missed    $current_file: $what"
    else
        echo "caught    $current_file: $what"
        caught=$((caught + 1))
    fi
    restore
done <"$list"
cmake --build "$build_dir" -j "$(nproc)" >/dev/null
echo "caught $caught of $total"
[[ $broken -eq 0 ]]
