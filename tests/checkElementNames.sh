#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkElementNames.sh SOURCE_DIR
#
# Fails when the name of an element or an attribute stands more than once in xmlFramework/: a record states each of
# its fields once, and reading, writing and all else follow from that.
set -euo pipefail
export LC_ALL=C

cd "$1/xmlFramework"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# How often a name may stand: once for each kind of element that is called so.
cat >"$scratch/allowed" <<'END'
AccountID 2 of a limit and of a job
Description 2 of an exchange and of a parameter
Finesse 2 of a leg, and a label in its log line
Name 3 of a MIC, a parameter and a module
Parameters 2 of an algorithm, where it is a list, and of a job, where it is a text
name 2 of a broker, and a label in what an update of a MIC says
END

# Every text that is handed to a verb as a name, and those that wait in tables.
find . \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z | xargs -0 cat | grep -v '^ *//' | tr '\n' ' ' >"$scratch/code"
{
    grep -oE '\b(field|Field|Save|ListOf(<[A-Za-z]+>)?)\( *"[^"]+"' "$scratch/code"
    grep -oE '\b(Root|ItemName) = "[^"]+"' "$scratch/code"
    grep -oE '\b[A-Za-z]+Names\[\] = \{[^}]*\}' "$scratch/code"
} | grep -oE '"[^"]+"' | tr -d '"' | sort -u >"$scratch/names"

bad=0
while read -r name; do
    count=$(grep -oF "\"$name\"" "$scratch/code" | wc -l)
    allowed=$(awk -v name="$name" '$1 == name { print $2 }' "$scratch/allowed")
    if [ "$count" -ne "${allowed:-1}" ]; then
        echo "\"$name\" stands $count times, not ${allowed:-1}:"
        grep -rnF "\"$name\"" . || true
        bad=1
    fi
done <"$scratch/names"

total=$(wc -l <"$scratch/names")
if [ "$total" -lt 100 ]; then
    echo "only $total names found: the check does not see the records"
    bad=1
fi
[ "$bad" -eq 0 ] && echo "$total names, each of them once but for $(wc -l <"$scratch/allowed") that mean several things"
exit "$bad"
