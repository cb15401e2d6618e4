#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# abi.sh check|store SOURCE_DIR PUBLIC_HEADERS LIBRARY...
#
# Compares what programs see of each library with what is stored in abi/: the exported names, and, from the debug
# information, the types of public headers with their layout and virtual operations. `store` writes abi/ anew; names and
# types may be added within a version 1.x, but none may go or change.
set -euo pipefail
export LC_ALL=C

mode=$1
abi=$2/abi
mkdir -p "$abi"
public_headers=$3
shift 3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

headers=$scratch/headers
mkdir "$headers"
while read -r header; do
    mkdir -p "$headers/$(dirname "$header")"
    cp "$abi/../$header" "$headers/$header"
done <"$public_headers"

bad=0
for library in "$@"; do
    name=$(basename "$library")
    name=${name%%.so*}
    nm -DC --defined-only "$library" | cut -c20- | sort -u >"$scratch/$name.names"
    foreign=$(grep -vE '^(vtable for |typeinfo (name )?for )?nx|^operator(==|<=>)\(nx' "$scratch/$name.names" || true)
    [ -z "$foreign" ] || { printf '%s exports what is not ours:\n%s\n' "$library" "$foreign"; bad=1; }

    abidw --no-corpus-path --no-comp-dir-path --no-show-locs --drop-private-types --headers-dir "$headers" \
        "$library" --out-file "$scratch/$name.abi"
    if [ "$mode" = store ]; then
        mkdir -p "$abi"
        cp "$scratch/$name.names" "$abi/$name.names"
        xz -9c "$scratch/$name.abi" >"$abi/$name.abi.xz"
        continue
    fi
    diff "$abi/$name.names" "$scratch/$name.names" >"$scratch/names.diff" ||
        { printf '%s: exported names differ (<: stored, >: built)\n' "$name"; cat "$scratch/names.diff"; bad=1; }
    xz -dc "$abi/$name.abi.xz" >"$scratch/$name.stored.abi"
    abidiff "$scratch/$name.stored.abi" "$scratch/$name.abi" || bad=1
    echo "$name: $(wc -l <"$scratch/$name.names") names"
done
exit "$bad"
