#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkCommandLine.sh TOOL ABI_DIR [store]
#
# Compares all commands, options, their values and what is said of them, as the manual page and the completions have
# them, and the schemas, with what is stored; `store` writes that anew.
set -euo pipefail

tool=$1
abi_dir=$2
bad=0
words() {
    if [ "$1" = help ]; then # of all commands
        "$tool" generate man | sed -nE 's/^\\fBxmlframework ([a-z ]+)\\fR.*/\1/p' | sort -u |
            while read -ra command; do "$tool" "${command[@]}" --help; done
    else
        "$tool" generate "$1" | sed -E 's/"xmlframework [0-9.]+"/"xmlframework"/'
    fi
}
for form in man bash zsh help; do
    stored=$abi_dir/xmlframework.$form
    if [ "${3:-}" = store ]; then
        words "$form" >"$stored"
    elif ! diff -u "$stored" <(words "$form"); then
        bad=1
    fi
done
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$tool" schema --all "$scratch"
if [ "${3:-}" = store ]; then
    rm -rf "$abi_dir/schemas"
    cp -r "$scratch" "$abi_dir/schemas"
    chmod 755 "$abi_dir/schemas"
elif ! diff -ru "$abi_dir/schemas" "$scratch"; then
    bad=1
fi
exit "$bad"
