#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkQuotes.sh SOURCE_DIR
#
# Fails unless every code block of the documentation that names its file stands in that file, indentation aside, unless
# every block of C++ in the guide names one that the tests compile, and unless every relative link leads to a file. A
# block names its file in the line before it:
#
#   <!-- from examples/read_record.cpp -->
set -euo pipefail
export LC_ALL=C

cd "$1"
bad=0
quotes=0
links=0

unindented() { sed 's/^[[:space:]]*//'; }

for page in README.md CHANGELOG.md CONTRIBUTING.md docs/*.md docs/*/*.md; do
    while IFS=' ' read -r line file; do
        quotes=$((quotes + 1))
        quote=$(tail -n "+$((line + 1))" "$page" | sed -n '2,/^```$/p' | sed '$d' | unindented)
        if [ -z "$quote" ] || [[ $(unindented <"$file") != *"$quote"* ]]; then
            echo "$page:$line: the block does not stand in $file"
            bad=1
        fi
    done < <(sed -nE '/^<!-- from /{=;s/^<!-- from ([^ ]+) -->$/\1/p}' "$page" | paste -d' ' - -)

    while IFS= read -r link; do
        links=$((links + 1))
        if [ ! -e "$(dirname "$page")/${link%%#*}" ]; then
            echo "$page: nothing at $link"
            bad=1
        fi
    done < <(sed '/^```/,/^```$/d' "$page" | grep -oE '\]\([^)#][^)]*\)' | sed -E 's/^\]\((.*)\)$/\1/' | grep -v '^https\?:' || true)
done
if grep -B1 -n '^```cpp' docs/guide/*.md | grep -v '```cpp' | grep -vE -- '-<!-- from (examples|tests)/[^ ]+\.(cpp|h) -->$' |
    grep -v '^--$'; then
    echo "(the lines before blocks of C++ that name no file of examples/ or tests/)"
    bad=1
fi
[ "$quotes" -gt 0 ] || { echo "no quotes found"; bad=1; }
echo "$quotes quotes, $links links"
exit "$bad"
