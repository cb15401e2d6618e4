#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Compares what the tool says of the examples of all format pages, and of the documents in tests/tool/shown, with what
is stored there.

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


def said(tool, folder, *arguments):
    run = subprocess.run([tool, *arguments], cwd=folder, capture_output=True, text=True, check=False)
    return f"$ xmlframework {' '.join(arguments)}\n{run.stdout}{run.stderr}(exit status {run.returncode})\n"


def shown(tool, document, *more):
    """As a table, and as a table of what differs from the same record without anything in it."""
    with tempfile.TemporaryDirectory() as folder:
        full, empty = pathlib.Path(folder, "full.xml"), pathlib.Path(folder, "empty.xml")
        full.write_text(document, encoding="utf-8")
        empty.write_text("<%s/>" % re.search(r"<([A-Za-z][^\s/>]*)", document)[1], encoding="utf-8")
        commands = [["show", "full.xml"], ["diff", "empty.xml", "full.xml"], *more]
        return "".join(said(tool, folder, *command) for command in commands)


def main():
    tool = sys.argv[1]
    different = 0
    examples = 0
    texts = {}
    for page in sorted(FORMATS.glob("*.md")):
        for document in re.findall(r"```xml [^\n ]+\n(<.*?)```", page.read_text(encoding="utf-8"), re.DOTALL):
            examples += 1
            texts[page.stem] = texts.get(page.stem, "") + shown(tool, document)
    for page in sorted(STORED.glob("*.xml")):
        examples += 1
        texts[page.stem] = shown(tool, page.read_text(encoding="utf-8"), ["check", "--complete", "full.xml"],
                                 ["show", "--format", "json", "full.xml"], ["convert", "--pretty", "full.xml"])
    for stem, text in texts.items():
        stored = STORED / (stem + ".txt")
        if "store" in sys.argv[2:]:
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
