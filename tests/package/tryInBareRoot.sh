#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# tryInBareRoot.sh PACKAGES_DIR
#
# Makes a bare Debian 12 in a folder of its own, installs the packages there, runs the tool on a file that is broken,
# and builds and runs the consumer project by CMake and by pkg-config. Needs root.
set -euo pipefail

packages=$(realpath "$1")
source_dir=$(cd "$(dirname "$0")/../.." && pwd)
root=$(mktemp -d)
chmod 755 "$root" # apt reads packages as somebody else
trap 'rm -rf "$root"' EXIT

say() { printf -- '-- %s\n' "$*"; }
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

say "debootstrap"
debootstrap --variant=minbase bookworm "$root" "${MIRROR:-http://deb.debian.org/debian}" >"$root.log" 2>&1 || { tail "$root.log"; exit 1; }
cp -r /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/"
cp /etc/resolv.conf "$root/etc/" 2>/dev/null || true
mkdir "$root/packages"
cp "$packages"/*.deb "$root/packages/"

say "the tool alone"
inside apt-get update -qq
inside bash -c 'apt-get install -y --no-install-recommends /packages/libnxcore1_*.deb /packages/libxmlframework1_*.deb \
    /packages/xmlframework_*.deb' >"$root.log" 2>&1 || { tail "$root.log"; exit 1; }
inside xmlframework --version
cp "$source_dir/tests/package/broken.xml" "$root/tmp/"
status=0
inside xmlframework check --strict /tmp/broken.xml || status=$?
[ "$status" -eq 1 ] || { echo "exit status $status instead of 1"; exit 1; }

say "the development files without the tool, and the consumers"
inside bash -c 'apt-get remove -y xmlframework && apt-get install -y --no-install-recommends /packages/libxmlframework-dev_*.deb \
    cmake ninja-build g++ pkgconf' >"$root.log" 2>&1 || { tail "$root.log"; exit 1; }
cp -r "$source_dir/tests/consumer" "$root/tmp/"
for way in find-package pkg-config; do
    inside /tmp/consumer/buildAndRun.sh "$way" /usr "/tmp/$way" g++ >"$root.log" 2>&1 || { tail "$root.log"; exit 1; }
    tail -n 1 "$root.log"
done
say "removed again"
inside bash -c 'apt-get purge -y "libxmlframework*" "libnxcore*"' >"$root.log" 2>&1 || { tail "$root.log"; exit 1; }
left=$(inside find /usr /etc -iname '*xmlframework*' -o -iname '*nxcore*')
[ -z "$left" ] || { printf 'left behind:\n%s\n' "$left"; exit 1; }
rm -f "$root.log"
