#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# usage: checkHardening.sh BINARY...
#
# Whether each library or program, by its own notes, is bound at once and read-only afterwards, has no executable
# stack, watches its stack and the bounds of its copies, and can be unloaded.
set -euo pipefail
export LC_ALL=C

bad=0
fail() { echo "$binary: $*"; bad=1; }

for binary in "$@"; do
    dynamic=$(readelf -d "$binary")
    segments=$(readelf -lW "$binary")
    symbols=$(nm -D "$binary")
    grep -qE 'BIND_NOW|FLAGS_1.*NOW' <<<"$dynamic" || fail "symbols are bound late"
    grep -q GNU_RELRO <<<"$segments" || fail "relocations stay writable"
    grep -qE 'GNU_STACK .* RW ' <<<"$segments" || fail "the stack is executable"
    grep -q __stack_chk_fail <<<"$symbols" || fail "no stack protector"
    case $binary in
    *.so*) ! grep -q ' u ' <<<"$symbols" || fail "unique symbols keep it loaded" ;;
    *) grep -q 'Type:.*DYN' <(readelf -h "$binary") || fail "not position-independent" ;;
    esac
    checked=$(grep -cE ' U .*_chk(@|$)' <<<"$symbols" || true)
    [ "$checked" -gt 0 ] || fail "no checked functions of the C library"
done
[ "$bad" -eq 0 ] && echo "$# hardened: bound at once, read-only relocations, stack and copies watched"
exit "$bad"
