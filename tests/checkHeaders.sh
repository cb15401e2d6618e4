#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkHeaders.sh PREFIX PUBLIC_HEADERS CXX
#
# Fails unless every installed header compiles without a warning and with nothing before it (twice in one file, so that
# it also guards itself) with the installed folder as the only place to look, and unless exactly the listed headers are
# installed.
set -euo pipefail
export LC_ALL=C

include_dir=$1/include/XMLFramework
public_headers=$2
cxx=$3

if ! difference=$(diff <(sort "$public_headers") <(cd "$include_dir" && find . -type f | sed 's,^\./,,' | sort)); then
    printf 'installed headers differ from the list (<: listed, >: installed):\n%s\n' "$difference"
    exit 1
fi

compile_alone() {
    printf '#include "%s"\n#include "%s"\n' "$1" "$1" |
        "$cxx" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor \
            -Werror -I"$include_dir" -x c++ - 2>&1 || { echo "^ $1 does not compile alone"; return 1; }
}
export -f compile_alone
export include_dir cxx

xargs -a "$public_headers" -P "$(nproc)" -I{} bash -c 'compile_alone "$1"' compile_alone {}
echo "$(wc -l <"$public_headers") headers compile alone"
