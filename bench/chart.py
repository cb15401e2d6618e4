#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Puts the benchmark's results into docs/: the results themselves, their chart, and the tables of the page.

The page keeps everything but what stands between its lines "<!-- NAME -->" and "<!-- end -->".
"""

import argparse
import json
import math
import pathlib
import re
import sys
from xml.sax.saxutils import escape

import run

DOCS = pathlib.Path(__file__).resolve().parent.parent / "docs"

LABELS = {
    run.OURS: "XMLFramework",
    "pugixml": "pugixml",
    "libxml2": "libxml2",
    run.SCAN: "Xerces-C, bare scan",
    run.PLAIN: "plain: straightforward program with Xerces-C",
}
OPERATIONS = {"read": "Reading", "write": "Writing"}

# ---- The chart -------------------------------------------------------------------------------------------

WIDTH, MARGIN, GAP = 920, 24, 36
LABEL_WIDTH, NOTE_WIDTH = 88, 96
PANEL_WIDTH = (WIDTH - 2 * MARGIN - GAP) / 2
ROW, HEAD = 26, 54

COLOURS = {  # light, dark
    "page": ("#ffffff", "#0d1117"),
    "text": ("#1f2328", "#e6edf3"),
    "dim": ("#59636e", "#9198a1"),
    "line": ("#d1d9e0", "#3d444d"),
    run.OURS: ("#c2410c", "#ff9a4d"),
    "pugixml": ("#1d4ed8", "#79b0ff"),
    "libxml2": ("#7c3aed", "#c4a5ff"),
    run.SCAN: ("#0f766e", "#3fd0bd"),
    run.PLAIN: ("#59636e", "#aab4be"),
}
# Around the origin; they differ for those who do not see the colours.
SHAPES = {
    run.OURS: '<circle r="6"/>',
    "pugixml": '<path d="M0-6 6 0 0 6-6 0Z"/>',
    "libxml2": '<path d="M0-5.5 5.5 4.5H-5.5Z"/>',
    run.SCAN: '<path d="M-4-4 4 4M4-4-4 4" fill="none" stroke-width="2.2"/>',
    run.PLAIN: '<rect x="-4.5" y="-4.5" width="9" height="9"/>',
    "10": '<circle r="4" fill="none" stroke-width="2"/>',
    "100": '<circle r="5.5"/>',
}


def style():
    def rules(which):
        rule = ".{0} {{ fill: {1}; stroke: none }} .{0} [stroke-width] {{ fill: none; stroke: {1} }}"
        return " ".join([
            *(rule.format(name, colours[which]) for name, colours in COLOURS.items() if name != "line"),
            f".line {{ stroke: {COLOURS['line'][which]} }}",
        ])

    return (
        "<style>text { font: 13px system-ui, sans-serif } .title { font-weight: 600; font-size: 15px } "
        f".small {{ font-size: 11px }} {rules(0)} @media (prefers-color-scheme: dark) {{ {rules(1)} }}</style>"
    )


def text(x, y, content, classes="text", anchor="start"):
    return f'<text x="{x:.1f}" y="{y:.1f}" class="{classes}" text-anchor="{anchor}">{escape(content)}</text>'


def mark(x, y, shape, colour, title=""):
    said = f"<title>{escape(title)}</title>" if title else ""
    return f'<g transform="translate({x:.1f} {y:.1f})" class="{colour}">{said}{SHAPES[shape]}</g>'


def line(x1, y1, x2, y2):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" class="line"/>'


class Axis:
    """Logarithmic, from left to right."""

    def __init__(self, left, low, high):
        self._left = left + LABEL_WIDTH
        self._width = PANEL_WIDTH - LABEL_WIDTH - NOTE_WIDTH
        self._low, self._high = math.log(low), math.log(high)

    def place(self, value):
        return self._left + (math.log(value) - self._low) / (self._high - self._low) * self._width


def panel(left, top, title, ticks, rows, note):
    """A row for each (label, marks, note): its marks are (value, shape, colour, what to say)."""
    axis = Axis(left, ticks[0], ticks[-1])
    bottom = top + HEAD + ROW * len(rows)
    parts = [
        text(left, top + 16, title, "text title"),
        text(left + PANEL_WIDTH, top + 38, note, "dim small", "end"),
    ]
    for tick in ticks:
        parts.append(line(axis.place(tick), top + HEAD - 8, axis.place(tick), bottom - 4))
        parts.append(text(axis.place(tick), top + 38, f"{tick:,}", "dim small", "middle"))
    for number, (label, marks, said) in enumerate(rows):
        y = top + HEAD + ROW * number + ROW / 2 - 4
        places = [axis.place(value) for value, *_ in marks]
        parts.append(text(left, y + 4, label))
        parts.append(line(min(places), y, max(places), y))
        parts += [mark(axis.place(value), y, *how) for value, *how in marks]
        parts.append(text(left + PANEL_WIDTH, y + 4, said, "text", "end"))
    return parts, bottom


def speed_rows(report, operation):
    rows = []
    for job in report["bytes"]:
        found = {
            entry["stack"]: entry
            for entry in report["results"]
            if entry["job"] == job and entry["operation"] == operation
        }
        marks = [
            (found[stack]["mb_per_s"], stack, stack, f"{LABELS[stack]}: {found[stack]['mb_per_s']:.0f} MB/s")
            for stack in reversed(LABELS)
            if stack in found
        ]
        rows.append((job, marks, f"{1 / found[run.OURS]['of_plain']:.0f}\u00d7"))
    return rows


def growth_rows(report, operation):
    rows = {}
    for entry in report["growth"]:
        if entry["operation"] == operation:
            an_item = entry["against_once"] / entry["times"]
            rows.setdefault(entry["job"], []).append((entry["times"], an_item))
    return [
        (
            job,
            [(value, str(times), run.OURS, f"{times} times as large: {value:.2f}") for times, value in values],
            f"{values[-1][1]:.2f}",
        )
        for job, values in rows.items()
    ]


def legend(y, entries):
    parts, x = [], MARGIN + 6
    for shape, colour, label in entries:
        parts += [mark(x, y - 4, shape, colour), text(x + 12, y, label)]
        x += 48 + 7 * len(label)
    return parts


def panels(top, titles, ticks, rows, note):
    parts = []
    for column, (operation, title) in enumerate(titles.items()):
        left = MARGIN + column * (PANEL_WIDTH + GAP)
        drawn, bottom = panel(left, top, title, ticks, rows(operation), note)
        parts += drawn
    return parts, bottom


def chart(report):
    speed, bottom = panels(
        52,
        {operation: f"{title}, MB/s (more is better)" for operation, title in OPERATIONS.items()},
        (10, 30, 100, 300, 1000, 3000),
        lambda operation: speed_rows(report, operation),
        "to plain",
    )
    growth, end = panels(
        bottom + 58,
        {operation: f"{title} larger lists, time an item" for operation, title in OPERATIONS.items()},
        (0.5, 1, 2, 4, 8),
        lambda operation: growth_rows(report, operation),
        "100 times",
    )
    parts = [
        *legend(30, [(stack, stack, label) for stack, label in LABELS.items()]),
        *speed,
        *legend(bottom + 40, [(times, run.OURS, f"{times} times as large, against once") for times in ("10", "100")]),
        *growth,
    ]
    height = end + MARGIN
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" width="{WIDTH}" height="{height}">',
        "<title>Speed of reading and writing, and how time grows with a list</title>",
        style(),
        '<rect width="100%" height="100%" rx="8" class="page"/>',
        *parts,
        "</svg>\n",
    ])


# ---- The page --------------------------------------------------------------------------------------------


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|---|" + "---:|" * (len(head) - 1)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def speed_table(report, operation):
    stacks = [stack for stack in LABELS if operation == "read" or stack != run.SCAN]
    rows = []
    for job, size in report["bytes"].items():
        found = {
            entry["stack"]: entry
            for entry in report["results"]
            if entry["job"] == job and entry["operation"] == operation
        }
        ours = found[run.OURS]
        rows.append([
            job,
            f"{size:,}",
            run.duration(ours["cpu_ns"]),
            *(f"{found[stack]['mb_per_s']:,.0f}" for stack in stacks),
            run.share(ours["of_plain"]),
            run.share(1 / found["pugixml"]["of_ours"]),
        ])
    names = [stack if stack != run.OURS else "ours" for stack in stacks]
    return table(
        ["Document", "Bytes", "Time, ours", *(f"{name}, MB/s" for name in names), "Of plain", "Of pugixml"], rows
    )


def growth_table(report):
    found = {(entry["job"], entry["times"], entry["operation"]): entry["against_once"] for entry in report["growth"]}
    jobs = dict.fromkeys(job for job, _, _ in found)
    cases = [(operation, times) for operation in OPERATIONS for times in (10, 100)]
    return table(
        ["List", *(f"{operation}, {times} times as large" for operation, times in cases)],
        [[job, *(f"{found[job, times, operation]:.1f}" for operation, times in cases)] for job in jobs],
    )


def memory_table(report):
    found = {(entry["job"], entry["case"]): entry["bytes"] for entry in report["memory"]}
    jobs = dict.fromkeys(job for job, _ in found)
    return table(
        ["List", "Text", "Records", "Reading", "Writing, empty string", "Writing, string in use"],
        [
            [
                job,
                f"{report['bytes'][job] / 1e6:.2f} MB",
                *(f"{found[job, case] / 1e6:.2f} MB" for case in ("records", "read", "write", "rewrite")),
            ]
            for job in jobs
        ],
    )


def threads_table(report):
    return table(
        ["Document", "Stack", "Two against one", "Arithmetic", "Rounds with two processors"],
        [
            [
                entry["job"],
                entry["stack"],
                f"{entry['two_against_one']:.2f}",
                f"{entry['control']:.2f}",
                f"{entry['rounds_scaled']} of {len(entry['rounds'])}" + ("" if entry["counted"] else ", not counted"),
            ]
            for entry in report["parallel"]
        ],
    )


def machine_lines(report):
    about, disturbance = report["machine"], report["disturbance"]
    stacks = ", ".join(dict.fromkeys(about["library"] for about in report["stacks"].values()))
    compilers = ", ".join(dict.fromkeys(about["compiler"] for about in report["stacks"].values()))
    return (
        f"{report['date'][:10]}: {about['cpu']}, {about['processors']} processors, {about['system']}, Linux "
        f"{about['kernel']};\n{stacks}; compiler {compilers}. Medians of {report['rounds']} rounds, meanwhile other\n"
        f"processes took {disturbance['other_processes']:.0%} of a processor and the hypervisor "
        f"{disturbance['stolen']:.0%}."
    )


def fill_page(page, report):
    sections = {
        "machine": machine_lines(report),
        "read": speed_table(report, "read"),
        "write": speed_table(report, "write"),
        "growth": growth_table(report),
        "memory": memory_table(report),
        "threads": threads_table(report),
    }
    for name, content in sections.items():
        page, count = re.subn(
            rf"(<!-- {name} -->\n).*?(<!-- end -->)", lambda found: f"{found[1]}{content}\n{found[2]}", page, flags=re.S
        )
        if count != 1:
            raise run.Failure(f"the page has {count} sections {name}")
    return page


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("results", type=pathlib.Path, help="what run.py has written")
    parser.add_argument("--docs", type=pathlib.Path, default=DOCS, help="where performance.md is (docs)")
    options = parser.parse_args()
    results = options.results.read_text(encoding="utf-8")
    report = json.loads(results)
    page = options.docs / "performance.md"
    filled = fill_page(page.read_text(encoding="utf-8"), report)
    (options.docs / "performance.svg").write_text(chart(report), encoding="utf-8")
    (options.docs / "performance.json").write_text(results, encoding="utf-8")
    page.write_text(filled, encoding="utf-8")


if __name__ == "__main__":
    try:
        main()
    except (run.Failure, OSError) as error:
        sys.exit(f"{sys.argv[0]}: {error}")
