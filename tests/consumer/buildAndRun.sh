#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# buildAndRun.sh find-package|pkg-config|own-record PREFIX WORK_DIR CXX [FLAG...]
#
# Builds the consumer project, or the example with a record of its own, against the tree installed at PREFIX and runs
# what it built.
set -euo pipefail

way=$1
prefix=$2
work_dir=$3
cxx=$4
shift 4
source_dir=$(cd "$(dirname "$0")" && pwd)

# build PROJECT_DIR
build() {
    cmake -S "$1" -B "$work_dir" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="${*:2}" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
    cmake --build "$work_dir"
}

rm -rf "$work_dir"
mkdir -p "$work_dir"
case $way in
find-package)
    build "$source_dir" "$@"
    ;;
own-record)
    examples=$source_dir/../../examples
    build "$examples/own_record" "$@" -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror
    exec "$source_dir/../expectOutput.sh" "$examples/expected/own_record.txt" \
        "$work_dir/own-record-host" "$work_dir/desk-profile.so"
    ;;
pkg-config)
    pc_file=$(find "$prefix" -name XMLFramework.pc)
    PKG_CONFIG_PATH=$(dirname "$pc_file")
    export PKG_CONFIG_PATH
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir XMLFramework)
    export LD_LIBRARY_PATH
    kind=()
    [ -n "$(find "$prefix" -name libnxcore.so)" ] || kind=(--static)
    # pkg-config's answers are lists of words.
    # shellcheck disable=SC2046
    "$cxx" -std=c++20 "$@" "$source_dir/consumer.cpp" -o "$work_dir/consumer" \
        $(pkg-config --cflags --libs "${kind[@]}" 'XMLFramework >= 1.0')
    # shellcheck disable=SC2046
    "$cxx" -std=c++20 "$@" -DPACKAGE_VERSION="\"$(pkg-config --modversion nxcore)\"" "$source_dir/coreConsumer.cpp" -o "$work_dir/core-consumer" \
        $(pkg-config --cflags --libs "${kind[@]}" nxcore)
    ;;
*)
    echo "unknown way: $way" >&2
    exit 2
    ;;
esac
"$work_dir/core-consumer"
"$work_dir/consumer"
