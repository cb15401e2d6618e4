#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Plants small faults in the sources, one at a time, and tells which of them no test sees.

Works in copies of the tree under build/mutate, never in the tree itself. A fault that does not compile is replaced
by another; a test that runs for too long has seen the fault, too.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("core", "include", "xmlFramework/xml", "xmlFramework/market", "xmlFramework/kestrum",
           "xmlFramework/spread", "tool")

# What a fault is: a piece of code and what stands there instead. Binary operators have spaces around them here, so
# the brackets of templates are none.
SWAPS = [(re.compile(pattern), replacement) for pattern, replacement in (
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "), (r" == ", " != "), (r" != ", " == "),
    (r" && ", " || "), (r" \|\| ", " && "), (r" \+ ", " - "), (r" - ", " + "), (r" \* (?=[\w(])", " / "),
    (r" \+= ", " -= "), (r" -= ", " += "), (r"(?<![+\w])\+\+(?=\w)", "--"), (r"(?<!-)--(?=\w)", "++"),
    (r"(?<=[ (])!(?=[\w(])", ""), (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\bbreak;", ";"),
    (r"\bcontinue;", ";"), (r"\.begin\(\)", ".end()"), (r"\bmin\(", "max("), (r"\bmax\(", "min("),
    (r"\.front\(\)", ".back()"), (r"\.back\(\)", ".front()"))]
NUMBER = re.compile(r"(?<![\w.])(\d[\d']*)(?=U?[,;)\]} ])")
CONDITION = re.compile(r"\b(if|while) (?:constexpr )?\((?!const |auto |[\w:]+(?:<[^;]*>)?[&*]* \w+[;=])(.*)\)(?: \{)?$")
CALL = re.compile(r"^( +)(?!return\b|throw\b|delete\b|using\b|case\b)"
                  r"[\w:.>*()\[\]-]*[\w>]\([^;]*\);$")


@dataclasses.dataclass(frozen=True)
class Fault:
    path: str
    line: int  # counted from 1
    before: str
    after: str

    @property
    def folder(self):
        return next(folder for folder in FOLDERS if self.path.startswith(folder + "/"))

    def __str__(self):
        return f"{self.path}:{self.line}\n  - {self.before.strip()}\n  + {self.after.strip()}"


def code_of(line):
    """The line with what stands in quotes and comments blanked out, every character in its place."""
    def blank(match):
        text = match.group()
        return " " * len(text) if text.startswith("//") else text[0] + "_" * (len(text) - 2) + text[-1]
    return re.sub(r'"(?:\\.|[^"\\])*"|(?<!\w)\'(?:\\.|[^\'\\])*\'|//.*', blank, line)


def changes_of(line):
    """Each line that differs from this one by one fault."""
    code = code_of(line)
    if not code.strip() or code.lstrip().startswith(("#", "*", "/*", "using ", "template", "class ", "struct ",
                                                     "friend ")):
        return
    if ".reserve(" in code:
        return  # nothing but time is seen of it

    def put(begin, end, text):
        return line[:begin] + text + line[end:]

    for pattern, replacement in SWAPS:
        if replacement == " - " and '"' in code:
            continue  # texts are not subtracted
        for match in pattern.finditer(code):
            yield put(match.start(), match.end(), replacement)
    for match in NUMBER.finditer(code):
        number = int(match.group().replace("'", ""))
        yield put(match.start(), match.end(), str(number + 1))
        if number > 0:
            yield put(match.start(), match.end(), str(number - 1))
    for match in re.finditer(r"\"_*\"|'_+'", code):
        if match.group()[0] == "'":
            yield put(match.start(), match.end(), "'~'")
        else:
            yield put(match.start() + 1, match.start() + 1, "~")
    if match := CONDITION.search(code.rstrip()):
        yield put(match.start(2), match.end(2), "!(" + line[match.start(2):match.end(2)] + ")")
    if CALL.match(code.rstrip()):
        yield line[:len(line) - len(line.lstrip())] + ";"


def faults_in(path):
    is_asserted = False  # when it is compiled, not when it is run
    for number, line in enumerate((ROOT / path).read_text().split("\n"), 1):
        is_asserted = is_asserted or "static_assert(" in line
        if not is_asserted:
            for changed in changes_of(line):
                if changed != line:
                    yield Fault(path, number, line, changed)
        is_asserted = is_asserted and not line.rstrip().endswith(");")


# A fault in what writes files may write anywhere: where tests could replace the system's devices, they see them in a
# place that is closed to that.
SHELTER = ["unshare", "--mount", "sh", "-c", 'mount --rbind /dev /dev && mount -o remount,bind,ro /dev && exec "$@"', "sh"]


def run_test(command, cwd, timeout):
    return run([*(SHELTER if os.geteuid() == 0 else []), *command], cwd, timeout)


def run(command, cwd=None, timeout=None):
    """The exit status and the output; None as the status of what did not end in time."""
    process = subprocess.Popen(command, cwd=cwd, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, start_new_session=True)
    try:
        output, _ = process.communicate(timeout=timeout)
        return process.returncode, output
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        process.communicate()
        return None, b""


class Copy:
    """A copy of the tree with a build of its own."""

    def __init__(self, folder):
        self.tree = folder / "tree"
        self.build = folder / "build"
        shutil.rmtree(self.tree, ignore_errors=True)
        files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                               capture_output=True, text=True).stdout.split("\n")
        for name in filter(None, files):
            if (ROOT / name).exists():
                (self.tree / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(ROOT / name, self.tree / name)
        if not (folder / "shared").exists() and (ROOT.parent / "shared").exists():
            (folder / "shared").symlink_to(ROOT.parent / "shared")
        self.must(["cmake", "-S", str(self.tree), "-B", str(self.build), "-G", "Ninja",
                   "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -w -D_GLIBCXX_ASSERTIONS",
                   "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"])
        self.must(["cmake", "--build", str(self.build)])
        self.tests = self.tests_by_program()

    @staticmethod
    def must(command):
        status, output = run(command)
        if status != 0:
            sys.exit(output.decode(errors="replace")[-5000:])

    def tests_by_program(self):
        """The commands that run the tests: each program of many tests once, and what takes longest last."""
        text = subprocess.run(["ctest", "--test-dir", str(self.build), "--show-only=json-v1"], check=True,
                              capture_output=True, text=True).stdout
        commands = {}
        for test in json.loads(text)["tests"]:
            command = test["command"]
            labels = {label for item in test["properties"] if item["name"] == "LABELS" for label in item["value"]}
            if labels & {"package", "source"}:
                continue
            if any(argument.startswith("--gtest_filter") for argument in command):
                command = [command[0], "--gtest_fail_fast", "--gtest_brief=1"]
            commands[tuple(command)] = 0.0
        for command in list(commands):
            start = time.monotonic()
            status, output = run_test(command, self.build, 600)
            if status != 0:
                sys.exit(f"fails without any fault: {' '.join(command)}\n{output.decode(errors='replace')[-3000:]}")
            commands[command] = time.monotonic() - start
        return sorted(commands.items(), key=lambda item: item[1])

    def targets_of(self, command):
        """What has to be built before a test runs."""
        if pathlib.Path(command[0]).name.endswith("_tests") and "tool" not in command[0]:
            return [pathlib.Path(command[0]).name]
        return ["all"]

    def order_for(self, folder):
        """The program named after the fault's folder first, as it is the likeliest to see it."""
        name = {"include": "core", "xmlFramework/xml": "xml"}.get(folder, folder.rpartition("/")[2]) + "_tests"
        own = {"xml_tests": ("fields_tests", "xml_memory_tests"), "tool_tests": ("tool_show_tests",)}.get(name, ())
        return sorted(self.tests, key=lambda item: (pathlib.Path(item[0][0]).name not in (name, *own), item[1]))

    def outcome(self, fault):
        """The name of the test that sees the fault, "" for none, or None when it does not compile."""
        path = self.tree / fault.path
        original = path.read_text()
        lines = original.split("\n")
        assert lines[fault.line - 1] == fault.before
        lines[fault.line - 1] = fault.after
        path.write_text("\n".join(lines))
        try:
            for command, seconds in self.order_for(fault.folder):
                status, _ = run(["ninja", "-C", str(self.build), *self.targets_of(command)])
                if status != 0:
                    return None
                status, _ = run_test(command, self.build, 5 * seconds + 10)
                if status != 0:
                    return pathlib.Path(command[0]).name + (" (too long)" if status is None else "")
            return ""
        finally:
            path.write_text(original)


def choose(arguments):
    paths = subprocess.run(["git", "ls-files", *FOLDERS], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.split()
    paths = [path for path in paths if path.endswith((".h", ".cpp")) and re.search(arguments.only, path)]
    faults = [fault for path in sorted(paths) for fault in faults_in(path)]
    random.Random(arguments.seed).shuffle(faults)
    return faults


def survivors_of(results):
    """What no test saw then, where that line stands now; without those whose line is gone."""
    faults = []
    for entry in json.loads(results.read_text())["faults"]:
        if entry.pop("seen_by"):
            continue
        lines = (ROOT / entry["path"]).read_text().split("\n")
        places = [number for number, line in enumerate(lines, 1) if line == entry["before"]]
        if places:
            entry["line"] = min(places, key=lambda place: abs(place - entry["line"]))
            faults.append(Fault(**entry))
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=300, help="faults that compile (300)")
    parser.add_argument("--seed", type=int, default=1, help="of the choice (1)")
    parser.add_argument("--only", default="", metavar="PATTERN", help="in files whose name this pattern finds")
    parser.add_argument("--jobs", type=int, default=2, help="copies of the tree to work in (2)")
    parser.add_argument("--again", type=pathlib.Path, metavar="RESULTS", help="those that survived then, no others")
    parser.add_argument("--output", type=pathlib.Path, default=ROOT / "build/mutate/results.json")
    parser.add_argument("--list", action="store_true", help="show the faults, plant none")
    arguments = parser.parse_args()

    faults = survivors_of(arguments.again) if arguments.again else choose(arguments)
    if arguments.list:
        for folder, number in sorted(collections.Counter(fault.folder for fault in faults).items()):
            print(f"{folder:20} {number:6}")
        for fault in faults[:arguments.count]:
            print(fault)
        return

    copies = queue.SimpleQueue()
    for number in range(arguments.jobs):
        copies.put(Copy(ROOT / f"build/mutate/{number}"))

    def try_one(fault):
        copy = copies.get()
        try:
            return fault, copy.outcome(fault)
        finally:
            copies.put(copy)

    results = []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        rest = iter(faults)
        while len(results) < arguments.count:
            # One file's faults one after another: each build then compiles that file once.
            batch = sorted((fault for _, fault in zip(range(arguments.count - len(results)), rest)),
                           key=lambda fault: (fault.path, fault.line))
            if not batch:
                break
            for fault, seen_by in pool.map(try_one, batch):
                if seen_by is None:
                    continue
                results.append((fault, seen_by))
                print(f"{len(results):4} {'seen by ' + seen_by if seen_by else 'SURVIVES'}  {fault}", flush=True)

    total = collections.Counter(fault.folder for fault, _ in results)
    seen = collections.Counter(fault.folder for fault, seen_by in results if seen_by)
    for folder in FOLDERS:
        if total[folder]:
            print(f"{folder:20} {seen[folder]:4} of {total[folder]:4}  {100 * seen[folder] / total[folder]:5.1f} %")
    print(f"{'all':20} {seen.total():4} of {total.total():4}  {100 * seen.total() / max(total.total(), 1):5.1f} %")
    arguments.output.parent.mkdir(parents=True, exist_ok=True)
    arguments.output.write_text(json.dumps(
        {"seed": arguments.seed, "faults": [dataclasses.asdict(fault) | {"seen_by": seen_by}
                                            for fault, seen_by in results]}, indent=1) + "\n")


if __name__ == "__main__":
    main()
