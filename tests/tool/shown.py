#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Compares what `show` says of the examples of all format pages with what is stored in tests/tool/shown.

usage: shown.py TOOL [store]

`store` writes that anew: what has changed shows in the commit.
"""
import difflib
import pathlib
import re
import subprocess
import sys
import tempfile

FORMATS = pathlib.Path(__file__).resolve().parents[2] / "docs" / "formats"
STORED = pathlib.Path(__file__).resolve().parent / "shown"


def shown(tool, document):
    """As a table, and as a table of what differs from the same record without anything in it."""
    with tempfile.TemporaryDirectory() as folder:
        full, empty = pathlib.Path(folder, "full.xml"), pathlib.Path(folder, "empty.xml")
        full.write_text(document, encoding="utf-8")
        empty.write_text("<%s/>" % re.search(r"<([A-Za-z][^\s/>]*)", document)[1], encoding="utf-8")
        text = ""
        for arguments in (["show", "full.xml"], ["diff", "empty.xml", "full.xml"]):
            run = subprocess.run([tool, *arguments], cwd=folder, capture_output=True, text=True, check=False)
            text += f"$ xmlframework {' '.join(arguments)}\n{run.stdout}{run.stderr}(exit status {run.returncode})\n"
        return text


def main():
    tool = sys.argv[1]
    different = 0
    examples = 0
    for page in sorted(FORMATS.glob("*.md")):
        text = ""
        for document in re.findall(r"```xml [^\n ]+\n(<.*?)```", page.read_text(encoding="utf-8"), re.DOTALL):
            examples += 1
            text += shown(tool, document)
        stored = STORED / (page.stem + ".txt")
        if "store" in sys.argv[2:]:
            STORED.mkdir(exist_ok=True)
            if text:
                stored.write_text(text, encoding="utf-8")
            continue
        before = stored.read_text(encoding="utf-8") if stored.exists() else ""
        if text != before:
            different += 1
            sys.stdout.writelines(difflib.unified_diff(before.splitlines(True), text.splitlines(True),
                                                       str(stored), "shown now"))
    print(f"{examples} examples, {different} pages shown otherwise")
    return 1 if different or examples == 0 else 0


sys.exit(main())
