#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# buildStatic.sh SOURCE_DIR WORK_DIR CXX
#
# Makes static libraries, installs them with what programs are built from, and has both kinds of consumer use them.
set -euo pipefail

source_dir=$1
work_dir=$2
cxx=$3
prefix=$work_dir/prefix

rm -rf "$prefix"
cmake -S "$source_dir" -B "$work_dir/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$cxx" \
    -DBUILD_SHARED_LIBS=OFF -DXMLFRAMEWORK_DEVELOPER=OFF
cmake --build "$work_dir/build" --target nxcore XMLFramework
cmake --install "$work_dir/build" --prefix "$prefix" --component development
for way in find-package pkg-config; do
    "$source_dir/tests/consumer/buildAndRun.sh" "$way" "$prefix" "$work_dir/$way" "$cxx"
    ! ldd "$work_dir/$way/consumer" | grep -E 'libnxcore|libXMLFramework' || { echo "loads a shared library"; exit 1; }
done
