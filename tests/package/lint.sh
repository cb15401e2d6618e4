#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# lint.sh PACKAGES_DIR
#
# Fails for whatever lintian says of the packages, but for what stands in lintian.txt with its reason.
set -euo pipefail

allowed=$(sed -E '/^(#|$)/d' "$(dirname "$0")/lintian.txt")
[ -n "$allowed" ] # an empty pattern would be found in everything
found=$(lintian --no-cfg --tag-display-limit 0 "$1"/*.deb 2>/dev/null | grep -E '^[EWI]:' | grep -vE -f <(printf '%s\n' "$allowed") || true)
[ -z "$found" ] || { printf '%s\n' "$found"; exit 1; }
echo "nothing but $(wc -l <<<"$allowed") explained"
