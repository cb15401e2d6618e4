#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkLayering.sh SOURCE_DIR PUBLIC_HEADERS LIBRARY_FILES
#
# Reads every #include of the project and fails when one points upwards, when files include each other in a
# circle, when Xerces-C is included outside the XML layer, when a user of the library (tool, examples, consumer)
# includes a header that is not installed, or when a library file stands in no list of the build. The two lists
# are the build's own: the installed headers, and all files of the libraries.
set -euo pipefail
export LC_ALL=C

cd "$1"
public_headers=$2
library_files=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

folders=(core include xmlFramework tool tests examples fuzz bench)
find "${folders[@]}" -type f \( -name '*.h' -o -name '*.cpp' \) | sort >"$scratch/files"

# file:line, the kind of bracket, the included name
xargs -a "$scratch/files" grep -HnE '^[[:space:]]*#[[:space:]]*include' |
    sed -nE 's/^([^:]+):([0-9]+):[[:space:]]*#[[:space:]]*include[[:space:]]*([<"])([^>"]+)[>"].*/\1 \2 \3 \4/p' \
        >"$scratch/includes"

awk -v public_headers="$public_headers" -v files="$scratch/files" -v edges="$scratch/edges" '
    function rank(file) {
        if (file ~ /^(core|include)\//) return 1
        if (file ~ /^xmlFramework\/[^\/]+$/) return 2
        if (file ~ /^xmlFramework\/xml\//) return 3
        if (file ~ /^xmlFramework\/(market|kestrum|spread)\//) return 4
        if (file ~ /^xmlFramework\//) return 0
        return 5
    }
    function fail(what) { print $1 ":" $2 ": " what; bad = 1 }
    BEGIN {
        while ((getline line < files) > 0) {
            exists[line] = 1
            if (rank(line) == 0) { print line ": in a folder of no known layer"; bad = 1 }
        }
        while ((getline line < public_headers) > 0) { installed[line] = 1; ++count }
        if (count == 0) { print public_headers ": no public headers"; bad = 1 }
    }
    $3 == "\"" {
        if ($1 ~ /^examples\/own_record\// && ("examples/own_record/" $4) in exists) next # a project of its own
        if (!($4 in exists)) { fail("\"" $4 "\" is no file of the project (spell it from the top folder)"); next }
        print $1, $4 > edges
        if (rank($4) > rank($1)) fail("\"" $4 "\" lies in a higher layer")
        if (rank($1) < 5 && rank($4) == 5) fail("\"" $4 "\" is not part of the libraries")
        if ($1 ~ /^(tool|examples|tests\/consumer)\// && $4 ~ /^(core|include|xmlFramework)\// && !($4 in installed))
            fail("\"" $4 "\" is not an installed header")
    }
    $4 ~ /^xercesc\// && $1 !~ /^((xmlFramework|tests)\/xml|bench)\// { fail("Xerces-C outside xml/") }
    $4 ~ /^(xercesc|unicode|spdlog|fmt|date)\/|^csv\.h$/ && ($1 in installed) { fail("<" $4 "> in an installed header") }
    END { exit bad }
' "$scratch/includes"

if ! tsort "$scratch/edges" >/dev/null 2>"$scratch/circle"; then
    echo "files that include each other in a circle:"
    sed 's/^tsort: //' "$scratch/circle"
    exit 1
fi

grep -E '^(core|include|xmlFramework)/' "$scratch/files" | comm -23 - <(sort "$library_files") >"$scratch/unlisted"
if [ -s "$scratch/unlisted" ]; then
    echo "in no list of the build:"
    cat "$scratch/unlisted"
    exit 1
fi
echo "$(wc -l <"$scratch/files") files, $(wc -l <"$scratch/includes") includes, all of them downwards"
