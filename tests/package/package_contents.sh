#!/usr/bin/env bash
# Checks the package in OUT_DIR (build_package.sh) against a table: each line
# "file PATH" (PATH is in the package), "absent PATTERN" (no path matches the
# extended regular expression), or "FIELD PACKAGE" (the control field FIELD
# names PACKAGE). A third column "twin" limits a line to builds with the
# NETCONF twin. Usage:
#   package_contents.sh OUT_DIR TABLE TWIN_BUILT(ON|OFF)
set -euo pipefail
out_dir=$1 table=$2 twin_built=$3
package=$(echo "$out_dir"/*.deb)
files=$(dpkg-deb -c "$package" | awk '{ print $6 }')
failures=0
fail() {
    echo "$package: $*"
    failures=$((failures + 1))
}
while read -r kind entry condition; do
    case $kind in "" | "#"*) continue ;; esac
    if [ "$condition" = twin ] && [ "$twin_built" != ON ]; then
        continue
    fi
    case $kind in
        file) grep -qxF -- "$entry" <<<"$files" || fail "lacks $entry" ;;
        absent) ! grep -E -- "$entry" <<<"$files" || fail "holds what matches $entry" ;;
        *)
            value=$(dpkg-deb -f "$package" "$kind")
            grep -qE "(^|, )$entry( |,|$)" <<<"$value" || fail "$kind '$value' lacks $entry"
            ;;
    esac
done <"$table"
if [ "$failures" -ne 0 ]; then
    echo "--- dpkg-deb -I:"
    dpkg-deb -I "$package"
    echo "--- dpkg-deb -c:"
    echo "$files"
    exit 1
fi
