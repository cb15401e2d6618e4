#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""prepare.py SOURCE_DIR PUBLIC_HEADERS TYPES_JSON OUT_DIR

Makes of the tree what Doxygen reads: the public headers with their comments marked as documentation, and the pages with
links and headings in Doxygen's way and a picture of each record. The tree itself stays free of Doxygen's marks."""
import json
import pathlib
import re
import sys

PAGES = ["README.md", "CONTRIBUTING.md", "CHANGELOG.md", "SECURITY.md",
         "docs/guide/README.md", "docs/guide/*.md", "docs/*.md", "docs/formats/README.md", "docs/formats/*.md"]


# ---- Headers

def escaped(text):
    """Text of a comment as Markdown that says just that; code in backquotes stays."""
    parts = re.split(r"(`[^`]*`)", text)
    return "".join(part if part.startswith("`") else re.sub(r"([\\@<>#&*])", r"\\\1", part) for part in parts)


def documentation(indent, lines):
    """A comment as Doxygen wants it. What stands four blanks in is code."""
    return [indent + "///" + (" " + (line if line.startswith("    ") else escaped(line)) if line else "") for line in lines]


def marked(source):
    """A header whose comments are documentation. In this tree a comment goes for all declarations down to the next blank
    line, and one with a blank line behind it for what follows."""
    out, comment, aside, outer = [], None, [], []
    in_comment, begins = False, True
    for line in source.split("\n"):
        indent, code = re.match(r"(\s*)(.*)", line).groups()
        if re.fullmatch(r"friend (class |struct )?nx\w+;.*", code):
            continue
        if code.startswith("// SPDX") or code.startswith("#"):
            out.append(line)
            continue
        if code.startswith("//"):
            text = code[3:]
            if not in_comment:
                comment = []
            if not text.startswith("----"):
                comment.append(text)
            in_comment, begins = True, True
            continue
        if not code:
            if in_comment:
                aside = comment
            in_comment, comment, begins = False, None, True
            out.append(line)
            continue
        before_was_code, in_comment = not in_comment, False
        if code.startswith("}"):
            comment = outer.pop() if outer else None
        elif begins and not re.match(r"(public|protected|private):|using namespace", code):
            text = aside + ([""] if aside and comment else []) + (comment or [])
            aside = []
            if before_was_code and re.search(r"= default;|= delete;|operator=|~nx", code):
                text = []  # what is the compiler's goes without saying
            out += documentation(indent, text)
        elif re.match(r"(public|protected|private):", code):
            comment = None
        before, slashes, behind = code.partition(" // ")
        if slashes and "NOLINT" not in behind and not before.startswith("}") and not before.endswith('"'):
            line = indent + before + "///< " + escaped(behind)
        out.append(line)
        statement = before.rstrip()
        if statement.endswith("{") and not re.match(r"\}", statement):
            outer.append(comment)
            comment = None
        begins = statement.endswith((";", "{", "}", ":", ","))  # a list of enumerators, too
        if statement.endswith(",") and not re.match(r"[A-Z]\w*( = \w+)?,$", statement):
            begins = False
    return "\n".join(out)


# ---- Pages

def label(page):
    name = re.sub(r"\.md$", "", page).lower()
    return "page_" + re.sub(r"[^a-z0-9]+", "_", name)


def slug(heading):
    """The anchor that a heading has where the pages are shown as they stand."""
    text = re.sub(r"`|\*|\[([^]]*)\]\([^)]*\)", r"\1", heading).strip().lower()
    return re.sub(r" ", "-", re.sub(r"[^\w\- ]", "", text))


class Page:
    def __init__(self, name, root, names):
        self.name, self.root, self.names = name, root, names

    def target(self, link):
        """Where a link leads in the site; None when it leads to a file that is not in it."""
        path, _, anchor = link.partition("#")
        file = (self.root / self.name).parent.joinpath(path).resolve() if path else self.root / self.name
        if file.is_dir() and (file / "README.md").exists():
            file = file / "README.md"
        name = file.relative_to(self.root).as_posix()
        if name in self.names:
            return f"@ref {label(name)}" + (f"_{anchor}" if anchor else "")
        return None

    def linked(self, line):
        def link(match):
            text, where = match.group(1).replace("`", ""), match.group(2)
            if re.match("https?:", where):
                return match.group(0)
            if where.endswith(".svg"):
                return f"[{text}]({pathlib.Path(where).name})"
            target = self.target(where)
            return f"[{text}]({target})" if target else text
        line = re.sub(r"\*\*(`[^`]*`)\*\*", r"<b>\1</b>", line)
        parts = re.split(r"(\[(?:`[^`]*`|[^]\[`])*\]\([^)\s]+\)|`[^`]*`)", line)
        return "".join(part if part.startswith("`") else
                       re.sub(r"^\[(.*)\]\(([^)]+)\)$", link, part) if part.startswith("[") else escaped_text(part)
                       for part in parts)

    def converted(self, text):
        out, fence, first = [], False, True
        for line in text.split("\n"):
            if line.lstrip().startswith("```"):
                fence = not fence
                info = line.strip("` ").split(" ")[0]
                out.append("```" + {"cpp": "{.cpp}", "xml": "{.xml}", "cmake": "{.cmake}"}.get(info, "{.unparsed}" if fence else ""))
            elif fence or line.startswith("    "):
                out.append(line)
            elif line.startswith("<!--"):
                out.append("")
            elif match := re.match(r"(#+) (.*)", line):
                marks, heading = match.groups()
                if first:
                    title = heading if self.name != "README.md" else "XMLFramework"
                    out.append(f"# {title} {{#{label(self.name)}}}")
                    first = False
                else:
                    out.append(f"{marks} {heading} {{#{label(self.name)}_{slug(heading)}}}")
            else:
                out.append(self.linked(line))
        return "\n".join(out)


def escaped_text(text):
    """A page's plain text, in which Doxygen is to find no commands."""
    return re.sub(r"([@\\])(?=\w)", r"\\\1", text)


# ---- Pictures of records

def dot(record):
    """A record and its lists, each a box with its fields, as a graph."""
    lines = ["@dot", "digraph record {", "rankdir=LR; bgcolor=transparent;",
             'node [shape=plain, fontname="Helvetica", fontsize=10]; edge [fontname="Helvetica", fontsize=9, color="#4a6785"];']

    def box(node, title, fields):
        rows = [f'<tr><td bgcolor="#e4ecf5" colspan="2"><b>{title}</b></td></tr>']
        for number, field in enumerate(fields):
            name = field["name"] or field["items"]["name"]
            marks = ("@" if field["kind"] == "attribute" else "") + name
            kind = field["value"]["type"] if "value" in field else "list"
            style = "<b>%s</b>" if field["isRequired"] else "<u>%s</u>" if field["isKey"] else "%s"
            rows.append(f'<tr><td align="left">{style % marks.replace("@", "")}</td><td align="left" port="f{number}">{kind}</td></tr>')
        lines.append(f'{node} [label=<<table border="0" cellborder="1" cellspacing="0" cellpadding="3" color="#8aa4c0" '
                     f'bgcolor="white">{"".join(rows)}</table>>];')
        for number, field in enumerate(fields):
            if "items" in field:
                items = field["items"]
                child = f"{node}_{number}"
                ending = {"with-key": "-KEY", "with-number": "-N"}.get(items["names"], "")
                name = items["name"].rstrip("-") + ending
                box(child, name, items.get("fields", [{"name": "(text)", "kind": "element", "value": items.get("value"),
                                                       "isRequired": False, "isKey": False}]))
                lines.append(f'{node}:f{number} -> {child} [label="*"];')

    box("n", record["root"], record["fields"])
    return "\n".join(lines + ["}", "@enddot"])


def main():
    root, headers, types, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    for header in headers.read_text().split():
        target = out / "headers" / header
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(marked((root / header).read_text()))

    names = list(dict.fromkeys(path.relative_to(root).as_posix() for page in PAGES for path in sorted(root.glob(page))))
    records = {record["root"]: record for record in json.loads(types.read_text())}
    (out / "pages").mkdir(parents=True, exist_ok=True)
    for number, name in enumerate(names):
        text = Page(name, root, names).converted((root / name).read_text())
        record = records.get(pathlib.Path(name).stem)
        if name.startswith("docs/formats/") and record:
            caption = "Bold: without it the record, or the item, is not read. Underlined: tells an item from the others."
            text += f"\n## The document as a picture {{#{label(name)}_picture}}\n\n{dot(record)}\n\n{caption}\n"
        (out / "pages" / f"{number:02}_{label(name)}.md").write_text(text)


main()
