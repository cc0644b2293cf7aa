#!/usr/bin/env bash
# Writes the seed corpora of the fuzz targets from the project's own inputs:
#   make-seeds.sh REPOSITORY SEEDS_DIR
# config_reading: every configuration of examples/ and tests/scenarios/
# behind the byte that picks its format and role (config_reading_fuzzer.cc);
# options: each scenario's args with a candidate, separated by zero bytes;
# confd_paths: the keypaths of their --call options. record_codec and plugin
# start empty: their inputs are no text of ours.
set -euo pipefail
repository=$1
seeds=$2

for target in config_reading confd_paths options record_codec plugin; do
    rm -rf "${seeds:?}/$target"
    mkdir -p "$seeds/$target"
done

count=0
while IFS= read -r -d '' configuration; do
    count=$((count + 1))
    # The first byte: bit 0 the format (0 XML, 1 JSON), bit 1 the role
    # (0 candidate, 1 running).
    format=0
    [[ $configuration == *.json ]] && format=1
    { printf '%s' "$format"; cat "$configuration"; } >"$seeds/config_reading/$count-candidate"
    { printf '%s' "$((format + 2))"; cat "$configuration"; } >"$seeds/config_reading/$count-running"
done < <(find "$repository/examples" "$repository/tests/scenarios" -type f \
    \( -name '*.xml' -o -name '*.json' \) -print0 | sort -z)

count=0
for args in "$repository"/tests/scenarios/*/args; do
    count=$((count + 1))
    mapfile -t arguments <"$args"
    printf '%s\0' "${arguments[@]}" candidate.xml >"$seeds/options/$count"
    for argument in "${arguments[@]}"; do
        if [[ $argument == *=/* ]]; then
            printf '%s' "/${argument#*=/}" >"$seeds/confd_paths/$count"
        fi
    done
done
