#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# expectOutput.sh FILE COMMAND...: runs the command; succeeds when it does and its standard output is the file's text.
set -euo pipefail

expected=$1
shift
actual=$(mktemp)
trap 'rm -f "$actual"' EXIT
"$@" >"$actual"
diff -u "$expected" "$actual"
