#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# stageInstall.sh BUILD_DIR PREFIX
#
# Installs into one folder and moves the result to PREFIX, so that all who use PREFIX see a tree that was moved;
# then starts the installed tool, and looks at the names under which programs will load the libraries and at what the
# tool made of itself.
set -euo pipefail

build_dir=$1
prefix=$2
rm -rf "$prefix" "$prefix.first"
mkdir -p "$(dirname "$prefix")"
cmake --install "$build_dir" --prefix "$prefix.first" >/dev/null
mv "$prefix.first" "$prefix"

for library in nxcore XMLFramework; do
    file=$(find "$prefix" -name "lib$library.so")
    readelf -d "$file" | grep -q "SONAME.*\[lib$library\.so\.1\]" || { echo "$file: no SONAME lib$library.so.1"; exit 1; }
    # grep reads to its end: with -q it would close the pipe and nm's exit status would tell of that instead.
    foreign=$(nm -DC --defined-only "$file" | grep -E ' [TBDR] .*\b(xercesc_|spdlog::|fmt::|icu_)' || true)
    [ -z "$foreign" ] || { printf '%s exports what is not ours:\n%s\n' "$file" "$foreign"; exit 1; }
done
if grep -rIl -e "$prefix.first" -e "$build_dir" "$prefix"; then
    echo "these installed files name a folder of the build machine"
    exit 1
fi
for made in man/man1/xmlframework.1 bash-completion/completions/xmlframework zsh/site-functions/_xmlframework; do
    [ -s "$prefix/share/$made" ] || { echo "share/$made is missing or empty"; exit 1; }
done
"$prefix/bin/xmlframework" types
types=$("$prefix/bin/xmlframework" types | tail -n +2 | wc -l)
schemas=$(find "$prefix/share/xmlframework/schemas" -name '*.xsd' -size +0 | wc -l)
[ "$types" -eq "$schemas" ] || { echo "$schemas schemas of $types types"; exit 1; }
