#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Spoils the documents of all records, one element at a time, and counts what `check --strict` finds.

usage: spoil.py TOOL

Documents are the examples of docs/formats in their written form. Every element and attribute is renamed, every
value that is no text is replaced by "~bad~", every item with a key and every required field is doubled and left
out, which shows at the item around it. Prints how many were spoiled, how many of these found, and how many of these in the right line and column.
Exit status 1 when less than 99 of 100 are found.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

FORMATS = pathlib.Path(__file__).resolve().parents[2] / "docs" / "formats"
START = re.compile(r"<([A-Za-z][^\s/>]*)([^>]*?)(/?)>")


def run(tool, *arguments):
    return subprocess.run([tool, *arguments], capture_output=True, text=True, check=False)


def fields_by_name(fields, found=None):
    found = {} if found is None else found
    for field in fields:
        found.setdefault(field.get("name"), field)
        fields_by_name(field.get("items", {}).get("fields", []), found)
    return found


def element_end(text, match):
    if match[3]:
        return match.end()
    depth = 0
    for tag in re.finditer(r"<(/?)%s(?=[\s/>])[^>]*?(/?)>" % re.escape(match[1]), text[match.start():]):
        depth += -1 if tag[1] else 0 if tag[2] else 1
        if depth == 0:
            return match.start() + tag.end()
    raise ValueError(match[1])


def place(text, at):
    before = text[:at]
    return before.count("\n") + 1, at - (before.rfind("\n") + 1) + 1


def spoiled(text, fields):
    """Yields (kind, text, line, column) for each way to spoil the document."""
    root = True
    ends = [] # of the elements around
    for match in START.finditer(text):
        name, start, end = match[1], match.start(), element_end(text, match)
        element, before, behind = text[start:end], text[:start], text[end:]
        while ends and ends[-1][1] <= start:
            ends.pop()
        around = ends[-1][0] if ends else 0
        ends.append((start, end))
        line, column = place(text, start)
        renamed = "<" + name + "x" + element[1 + len(name):]
        if not match[3]:
            renamed = renamed[: renamed.rfind("</")] + "</" + name + "x>"
        yield "renamed", before + renamed + behind, line, column
        for attribute in re.finditer(r"\s([A-Za-z]+)=", match[2]):
            at = match.start(2) + attribute.start(1)
            yield "renamed", text[:at] + "x" + text[at:], *place(text, at)
        field = fields.get(name, {})
        is_leaf = match[3] or "<" not in element[1:].removesuffix("</%s>" % name)
        if is_leaf and field.get("value", {}).get("type", "text") not in ("text", "texts") and not root:
            tag = "<" + name + ">"
            yield "replaced", before + tag + "~bad~</" + name + ">" + behind, *place(before + tag, len(before + tag))
        if (field.get("isRequired") or field.get("isKey")) and is_leaf:
            yield "doubled", before + element + element + behind, line, None
            if field.get("isRequired"):
                yield "removed", before + behind, *place(text, around)
        root = False


def main():
    tool = sys.argv[1]
    types = {kind["root"]: kind for kind in json.loads(run(tool, "types", "--format", "json").stdout)}
    counts = {}
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        cases = {}
        good = []
        for page in sorted(FORMATS.glob("*.md")):
            for number, example in enumerate(re.findall(r"```xml [^\n ]+\n(<.*?)```", page.read_text(), re.S)):
                path = folder / f"{page.stem}-{number}.xml"
                path.write_text(example)
                text = run(tool, "convert", "--pretty", str(path)).stdout
                root = START.search(text)[1] if text else None
                if root not in types:
                    path.unlink()
                    continue
                path.write_text(text)
                good.append(path)
                for index, (kind, bad, line, column) in enumerate(spoiled(text, fields_by_name(types[root]["fields"]))):
                    other = folder / f"{page.stem}-{number}-{index:04}.xml"
                    other.write_text(bad)
                    cases[str(other)] = (root, kind, line, column)
        for path in good:
            result = json.loads(run(tool, "check", "--strict", "--format", "json", str(path)).stdout.splitlines()[0])
            if result["findings"]:
                sys.exit(f"{path} is good, but: {result['findings']}")
        (folder / "all").write_text("\n".join(cases))
        output = run(tool, "check", "--strict", "--format", "json", "-j", "0", "@" + str(folder / "all")).stdout
        for line in output.splitlines():
            report = json.loads(line)
            if "file" not in report:
                continue
            root, kind, row, column = cases.pop(report["file"])
            count = counts.setdefault((root, kind), [0, 0, 0])
            count[0] += 1
            if report["result"] == "OK":
                print("not found:", report["file"], kind, row, column)
                continue
            count[1] += 1
            count[2] += any(
                finding["line"] == row and column in (None, finding["column"]) for finding in report["findings"])
    if cases:
        sys.exit(f"{len(cases)} files without an answer")
    print(f"{'record':34}{'how':10}{'spoiled':>8}{'found':>8}{'in place':>9}")
    for (root, kind), count in sorted(counts.items()):
        print(f"{root:34}{kind:10}{count[0]:8}{count[1]:8}{count[2]:9}")
    total = [sum(count[i] for count in counts.values()) for i in range(3)]
    print(f"{'all ' + str(len({root for root, _ in counts})) + ' records':44}{total[0]:8}{total[1]:8}{total[2]:9}")
    sys.exit(0 if total[1] >= 0.99 * total[0] else 1)


main()
