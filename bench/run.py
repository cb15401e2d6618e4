#!/usr/bin/env python3
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
"""Compares the library with other XML stacks on the same work.

Checks first that all stacks find the records in the same documents, that the library writes exactly these, and
that it finds the records in what the others write. Then measures each stack in a process of its own, in
alternating rounds, and how the library's time grows with a list, and prints the medians.
"""

import argparse
import datetime
import json
import os
import pathlib
import platform
import re
import statistics
import subprocess
import sys
import tempfile
import time

OURS = "xmlframework"
PLAIN = "xerces-plain"  # the straightforward program
SCAN = "xerces-sax2"  # finds counts, not records
PROGRAMS = {
    OURS: "bench_nx",
    PLAIN: "bench_xerces_plain",
    SCAN: "bench_xerces_sax2",
    "libxml2": "bench_libxml2",
    "pugixml": "bench_pugixml",
}
IN_PARALLEL = (OURS, PLAIN)

ROUNDS = 15
LEAST_ROUNDS = 9
GROWTH = "growth"  # the program for growth and memory, and the lists that it knows
LISTS = ("mics", "exchanges", "hours", "brokers")
# Two threads' arithmetic against one's, below which the machine has no second processor to give.
LEAST_CONTROL = 1.88

CONTROL = "parallel/control"


class Failure(Exception):
    pass


def run(program, *arguments):
    """The program's standard output."""
    done = subprocess.run([program, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if done.returncode != 0:
        raise Failure(f"{program} {' '.join(arguments)} failed:\n{done.stderr}")
    return done.stdout


def first_difference(ours, theirs):
    """Where and how two texts differ, for people; None when they are the same."""
    if ours == theirs:
        return None
    at = len(os.path.commonprefix([ours, theirs]))
    here = slice(max(0, at - 20), at + 20)
    return f"differs from ours at byte {at}: {theirs[here]!r} for {ours[here]!r}"


# ---- Checking --------------------------------------------------------------------------------------------


def verify_stack(program, directory):
    """For each job the digests of the document and of the text written, after the stack's own check."""
    directory.mkdir()
    lines = run(program, "--verify", str(directory)).splitlines()
    return {job: digests for job, *digests in map(str.split, lines)}


def verify_documents(stack, found, ours):
    if found.keys() != ours.keys():
        raise Failure(f"{stack} has other jobs: {', '.join(found)}")
    for job, (document, _) in found.items():
        if document != ours[job][0]:
            raise Failure(f"{stack} works on another document {job}")


def verify_text(programs, stack, job, directory):
    """Checks that the library finds the records in what the stack wrote. Returns how its bytes compare."""
    written = directory / stack / f"{job}.xml"
    run(programs[OURS], "--check", job, str(written))
    difference = first_difference((directory / OURS / f"{job}.xml").read_bytes(), written.read_bytes())
    return difference or "same bytes as ours"


def verify(programs):
    """Checks every stack; returns stack -> job -> how the text written compares with the library's."""
    texts = {}
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        found = {stack: verify_stack(program, directory / stack) for stack, program in programs.items()}
        for job, (document, written) in found[OURS].items():
            if written != document:
                raise Failure(f"the library writes {job} otherwise than the document that the stacks read")
        for stack, jobs in found.items():
            verify_documents(stack, jobs, found[OURS])
            texts[stack] = {
                job: verify_text(programs, stack, job, directory)
                for job, (_, written) in jobs.items()
                if written != "-"
            }
    return texts


# ---- Measuring -------------------------------------------------------------------------------------------


def measure_once(program, in_parallel, min_time):
    """One process: its context, and for each benchmark (CPU time, elapsed time) in nanoseconds a document."""
    pattern = "." if in_parallel else "^(read|write)/"
    output = run(
        program,
        "--benchmark_format=json",
        f"--benchmark_min_time={min_time}",
        f"--benchmark_filter={pattern}",
    )
    report = json.loads(output)
    times = {entry["name"]: (entry["cpu_time"], entry["real_time"]) for entry in report["benchmarks"]}
    return report["context"], times


def measure(programs, rounds, min_time):
    """stack -> context, and stack -> benchmark -> one (CPU time, elapsed time) a round."""
    contexts, times = {}, {stack: {} for stack in programs}
    order = list(programs)
    for number in range(rounds):
        print(f"round {number + 1} of {rounds}", file=sys.stderr)
        for stack in order[number % len(order):] + order[:number % len(order)]:
            contexts[stack], measured = measure_once(programs[stack], stack in IN_PARALLEL, min_time)
            for name, pair in measured.items():
                times[stack].setdefault(name, []).append(pair)
    return contexts, times


def document_sizes(context):
    """job -> bytes, the largest first."""
    sizes = {key.partition("/")[2]: int(value) for key, value in context.items() if key.startswith("bytes/")}
    return dict(sorted(sizes.items(), key=lambda entry: -entry[1]))


def ratio(times, others):
    """One stack's time against another's, round by round: what disturbs the machine for a while disturbs both."""
    return statistics.median(time / other for time, other in zip(times, others))


def summarise(times, sizes):
    """One entry for each job, operation and stack."""
    results = []
    for job, size in sizes.items():
        for operation in ("read", "write"):
            name = f"{operation}/{job}"
            cpu_times = {
                stack: [cpu for cpu, _ in measured[name]] for stack, measured in times.items() if name in measured
            }
            for stack, cpu in cpu_times.items():
                median = statistics.median(cpu)
                results.append({
                    "job": job,
                    "operation": operation,
                    "stack": stack,
                    "cpu_ns": median,
                    "elapsed_ns": statistics.median(elapsed for _, elapsed in times[stack][name]),
                    "mb_per_s": size / median * 1000,
                    "of_plain": ratio(cpu, cpu_times[PLAIN]),
                    "of_ours": ratio(cpu, cpu_times[OURS]),
                    "rounds_cpu_ns": cpu,
                })
    return results


def scaling(measured, name):
    """One thread's elapsed time a document against two threads', round by round."""
    one, two = (measured[f"{name}/real_time/threads:{threads}"] for threads in (1, 2))
    return [first[1] / second[1] for first, second in zip(one, two)]


def summarise_parallel(times, sizes):
    """Only the rounds count in which the control showed two processors, and only when they are the most."""
    results = []
    for stack in IN_PARALLEL:
        controls = scaling(times[stack], CONTROL)
        scaled = [number for number, control in enumerate(controls) if control >= LEAST_CONTROL]
        counted = 2 * len(scaled) > len(controls)
        used = scaled if counted else range(len(controls))
        for job in sizes:
            if f"parallel/read/{job}/real_time/threads:2" not in times[stack]:
                continue
            ratios = scaling(times[stack], f"parallel/read/{job}")
            results.append({
                "job": job,
                "stack": stack,
                "two_against_one": statistics.median(ratios[number] for number in used),
                "control": statistics.median(controls[number] for number in used),
                "counted": counted,
                "rounds_scaled": len(scaled),
                "rounds": ratios,
                "rounds_control": controls,
            })
    return results


def measure_growth(program, rounds):
    """How time grows with a list, an entry for each list, size and operation; and memory taken, in bytes."""
    times, memory = {}, []
    lines = [line for name in LISTS for line in run(program, name, str(rounds)).splitlines()]
    for line in lines:
        kind, operation, job, *figures = line.split()
        if kind == "memory":
            memory.append({"job": job, "case": operation, "bytes": int(figures[0])})
        else:
            times.setdefault((job, int(figures[0]), operation), []).append(float(figures[1]))
    growth = [
        {"job": job, "times": size, "operation": operation, "against_once": statistics.median(ratios), "rounds": ratios}
        for (job, size, operation), ratios in times.items()
    ]
    return growth, memory


def cpu_model():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        found = re.search(r"^model name\s*:\s*(.*)$", lines.read(), re.MULTILINE)
    return found.group(1) if found else platform.machine()


class Disturbance:
    """What other processes and the hypervisor took meanwhile, in processors."""

    def __init__(self):
        self._begin = self._now()

    @staticmethod
    def _now():
        with open("/proc/stat", encoding="ascii") as lines:
            ticks = [int(field) / os.sysconf("SC_CLK_TCK") for field in lines.readline().split()[1:9]]
        user, nice, system, _, _, interrupt, soft_interrupt, steal = ticks
        own = sum(os.times()[:4])
        return time.monotonic(), user + nice + system + interrupt + soft_interrupt - own, steal

    def so_far(self):
        elapsed, others, stolen = (now - then for now, then in zip(self._now(), self._begin))
        return {"other_processes": max(0.0, others / elapsed), "stolen": stolen / elapsed}


def machine():
    return {
        "cpu": cpu_model(),
        "processors": len(os.sched_getaffinity(0)),
        "kernel": platform.release(),
        "system": platform.freedesktop_os_release().get("PRETTY_NAME", platform.system()),
    }


# ---- Showing ---------------------------------------------------------------------------------------------


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("\u00b5s", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.2f} {unit}"
    return f"{nanoseconds:.0f} ns"


def share(value):
    return f"{value:.3f}" if value < 1 else f"{value:.2f}"


def print_table(results, sizes):
    row = "  {:<14}{:>14}{:>10}{:>10}{:>9}{:>16}"
    shown = None
    for entry in results:
        if (entry["job"], entry["operation"]) != shown:
            shown = (entry["job"], entry["operation"])
            print(f"\n{entry['operation']} {entry['job']} ({sizes[entry['job']]:,} bytes)")
            print(row.format("", "a document", "MB/s", "of plain", "of ours", "half of rounds"))
        quartiles = statistics.quantiles(entry["rounds_cpu_ns"])
        low, _, high = (quartile / entry["cpu_ns"] * 100 - 100 for quartile in quartiles)
        print(row.format(
            entry["stack"],
            duration(entry["cpu_ns"]),
            f"{entry['mb_per_s']:.1f}",
            share(entry["of_plain"]),
            share(entry["of_ours"]),
            f"{low:+.0f}% {high:+.0f}%",
        ))


def print_parallel(parallel):
    print("\ntwo threads, each reading documents of its own: their throughput against one thread's")
    row = "  {:<14}{:<10}{:>8}{:>12}  {}"
    print(row.format("", "", "ratio", "arithmetic", "").rstrip())
    for entry in parallel:
        note = f"arithmetic scaled in {entry['rounds_scaled']} of {len(entry['rounds'])} rounds"
        if not entry["counted"]:
            note = f"not counted: {note}"
        print(row.format(
            entry["stack"], entry["job"], f"{entry['two_against_one']:.2f}", f"{entry['control']:.2f}", note,
        ).rstrip())


MEMORY_CASES = {
    "write": "while writing to an empty string, beyond the text",
    "rewrite": "while writing to a string that has the text already, beyond the text",
    "read": "while reading, beyond text and records",
    "records": "the records",
}


def print_growth(growth, memory):
    print("\ngrowth and memory")
    row = "  {:<14}{:<22}{:<8}{:>8}{:>16}"
    print(row.format("", "a document", "", "time", "half of rounds"))
    for entry in growth:
        low, _, high = statistics.quantiles(entry["rounds"])
        print(row.format(
            entry["job"],
            f"{entry['times']} times as large",
            entry["operation"],
            f"{entry['against_once']:.1f}",
            f"{low:.1f} to {high:.1f}",
        ))
    for entry in memory:
        print(f"  {entry['job']:<14}{entry['bytes'] / 1e6:>6.2f} MB  {MEMORY_CASES[entry['case']]}")


def print_texts(texts):
    print("Every stack finds the same records; the library finds them in what every stack writes.")
    for stack, jobs in texts.items():
        if stack == OURS:
            continue
        for job, comparison in jobs.items():
            print(f"  {stack} writes {job}: {comparison}")


def print_head(report):
    about = report["machine"]
    print(f"\n{about['cpu']}, {about['processors']} processors, {about['system']}, Linux {about['kernel']}")
    print(f"Medians of {report['rounds']} alternating rounds, a process for each stack and round; CPU time.")
    disturbance = report["disturbance"]
    print(
        f"Meanwhile other processes took {disturbance['other_processes']:.0%} of a processor, "
        f"the hypervisor {disturbance['stolen']:.0%}."
    )
    for stack, context in report["stacks"].items():
        print(f"  {stack}: {context['library']}, compiler {context['compiler']}")
        if context["optimised"] != "yes":
            print("    BUILT WITHOUT OPTIMISATION: the figures mean nothing")


def as_json(report):
    """With each list of figures in one line."""
    text = json.dumps(report, indent=2, ensure_ascii=False)
    return re.sub(r"\[[-+\d.,e\s]*\]", lambda found: " ".join(found[0].split()), text) + "\n"


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("directory", type=pathlib.Path, help="where the benchmark programs are")
    parser.add_argument("-o", "--output", type=pathlib.Path, help="write the results there, as JSON")
    parser.add_argument("--rounds", type=int, default=ROUNDS, help=f"at least {LEAST_ROUNDS} ({ROUNDS})")
    parser.add_argument("--min-time", type=float, default=0.05, help="seconds a benchmark and round (0.05)")
    parser.add_argument("--verify-only", action="store_true", help="check that the stacks agree, no more")
    parsed = parser.parse_args()
    if parsed.rounds < LEAST_ROUNDS:
        parser.error(f"fewer than {LEAST_ROUNDS} rounds say nothing")
    return parsed


def main():
    options = arguments()
    programs = {stack: str(options.directory.resolve() / program) for stack, program in PROGRAMS.items()}
    texts = verify(programs)
    print_texts(texts)
    if options.verify_only:
        return

    report = {"date": datetime.datetime.now(datetime.timezone.utc).isoformat(timespec="seconds")}
    report["machine"] = machine()
    disturbance = Disturbance()
    contexts, times = measure(programs, options.rounds, options.min_time)
    growth, memory = measure_growth(options.directory.resolve() / GROWTH, options.rounds)
    sizes = document_sizes(contexts[OURS])
    report |= {
        "disturbance": disturbance.so_far(),
        "rounds": options.rounds,
        "min_time_s": options.min_time,
        "stacks": {
            stack: {key: context[key] for key in ("library", "compiler", "optimised")}
            for stack, context in contexts.items()
        },
        "bytes": sizes,
        "texts_written": texts,
        "results": summarise(times, sizes),
        "parallel": summarise_parallel(times, sizes),
        "growth": growth,
        "memory": memory,
    }
    print_head(report)
    print_table(report["results"], sizes)
    print_parallel(report["parallel"])
    print_growth(growth, memory)
    if options.output:
        options.output.write_text(as_json(report), encoding="utf-8")
        print(f"\nwritten: {options.output}")


if __name__ == "__main__":
    try:
        main()
    except (Failure, OSError) as error:
        sys.exit(f"{sys.argv[0]}: {error}")
