#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkHeaders.sh PREFIX PUBLIC_HEADERS CXX
#
# Fails unless every installed header compiles without a warning and with nothing before it (twice in one file, so that
# it also guards itself) with the installed folder as the only place to look, and unless exactly the listed headers are
# installed. A program of an older standard is told so in the first line, by every header that does not compile then.
set -euo pipefail
export LC_ALL=C

include_dir=$1/include/XMLFramework
public_headers=$2
cxx=$3

if ! difference=$(diff <(sort "$public_headers") <(cd "$include_dir" && find . -type f | sed 's,^\./,,' | sort)); then
    printf 'installed headers differ from the list (<: listed, >: installed):\n%s\n' "$difference"
    exit 1
fi

compile() {
    "$cxx" "$1" -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror \
        -I"$include_dir" -x c++ -
}

compile_alone() {
    local first
    printf '#include "%s"\n#include "%s"\n' "$1" "$1" | compile -std=c++20 2>&1 ||
        { echo "^ $1 does not compile alone"; return 1; }
    first=$("$cxx" -std=c++17 -fsyntax-only -Wfatal-errors -I"$include_dir" -x c++ -include "$1" /dev/null 2>&1 |
        grep -m 1 error: || true)
    [[ -z $first || $first == *"XMLFramework needs C++20"* ]] || { echo "$1 begins as C++17 with: $first"; return 1; }
}
export -f compile compile_alone
export include_dir cxx

xargs -a "$public_headers" -P "$(nproc)" -I{} bash -c 'compile_alone "$1"' compile_alone {}
sed 's/.*/#include "&"/' "$public_headers" | compile -std=c++2b
echo "$(wc -l <"$public_headers") headers compile alone"
