#!/usr/bin/env bash
# A tool's man page documents, and its bash completion offers, exactly the
# long options its --help lists. Usage:
#   options_in_step.sh TOOL MAN_PAGE COMPLETION
set -euo pipefail
tool=$1 man_page=$2 completion=$3
command=$(basename "$tool")

# The long options named in the text on stdin, one per line, sorted.
long_options() { grep -o -- '--[a-z][a-z0-9-]*' | sort -u || true; }

# --help: the lines that begin with an option.
listed=$("$tool" --help | grep -E '^ *--' | long_options)

# The man page: the tags of the OPTIONS section's paragraphs.
documented=$(awk '/^\.SH/ { in_options = ($2 == "OPTIONS") }
                  in_options && tag { print; tag = 0 }
                  in_options && /^\.TP/ { tag = 1 }' "$man_page" |
    sed 's/\\-/-/g' | long_options)

# The completion: what its function offers for "--".
offered=$(
    # shellcheck disable=SC1090
    source "$completion"
    function=$(complete -p "$command" | sed -n 's/.* -F \([^ ]*\) .*/\1/p')
    COMP_WORDS=("$command" --)
    COMP_CWORD=1
    "$function"
    printf '%s\n' "${COMPREPLY[@]}" | long_options
)

status=0
for source in documented offered; do
    if [ "${!source}" != "$listed" ]; then
        echo "$command: the options $source ('<') differ from those of --help ('>'):"
        diff <(echo "${!source}") <(echo "$listed") || true
        status=1
    fi
done
[ -n "$listed" ] || { echo "$command --help lists no option"; status=1; }
exit $status
