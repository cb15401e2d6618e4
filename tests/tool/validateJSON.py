# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

"""validateJSON.py SCHEMA: validates each JSON value on standard input and prints how many there are.

Exit status 77 where the package python3-jsonschema is not installed.
"""

import json
import sys

try:
    import jsonschema
except ImportError:
    sys.exit(77)

with open(sys.argv[1], encoding="utf-8") as file:
    validator = jsonschema.Draft202012Validator(json.load(file))
text = sys.stdin.read().strip()
count = 0
while text:
    value, end = json.JSONDecoder().raw_decode(text)
    validator.validate(value)
    text = text[end:].lstrip()
    count += 1
print(count)
