#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors

"""Writes bench/RESULTS.md and the scaling plot from the outputs of
scripts/bench.sh: Google Benchmark JSON files, callgrind dumps with their
case lists, the ARM target's counts from the insn_count QEMU plugin with
their case lists, and the heap-bytes-per-leaf program's output.

    bench_report.py <results folder> <RESULTS.md> <plot.png> [<baseline folder>]
    bench_report.py --check-plugin <folder>

A baseline folder (the callgrind outputs of an earlier build, same layout)
adds a column with the instructions the library's code took before.

The prose of bench/RESULTS-notes.md takes its figures from the tables:
"{{arm path.resolve/8 ours/floor}}" is the ARM ratio of ours to the floor at
depth 8, "{{x86 path.resolve/8 ours}}" callgrind's instructions per element;
the sources are x86 (callgrind), arm (the plugin under qemu-arm), arm_alloc
(heap allocations per element on ARM), x86_alloc and x86_outside (callgrind's
instructions inside and outside the allocator) and time (nanoseconds);
"{{leaf arm sizeof VideoItemImpl}}" is a row of the heap-per-leaf table. A
figure the tables do not have stops the report, and so does a ratio written
as a literal ("2.3x") instead of a placeholder.

--check-plugin compares one case counted by callgrind (callgrind.cases and
callgrind.out.*) with the same case counted by the plugin under qemu-x86_64
(plugin.cases, plugin.counts) and fails when they differ by more than 0.5%.
"""
import glob
import json
import os
import platform
import re
import subprocess
import sys
import textwrap
from collections import OrderedDict, defaultdict

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402

# What each scenario compares, its target, and what in the contract limits
# it. Keyed by scenario name; the first variant listed is the denominator of
# the target.
SCENARIOS = OrderedDict([
    ("message.round_trip", dict(
        title="1. Item message round trip (item -> message -> item -> release), per item",
        unit="item", target=("floor", 1.05), also=("peer", 0.5),
        note="floor: one malloc + copy + free per string the message carries and an item "
             "built with the same setters; peer: the same fields through protobuf "
             "(serialise + parse). Target: at most 1.05 x the floor and at most 0.5 x the peer.")),
    ("message.to_message", dict(
        title="1a. Item to message (and release), per item", unit="item", target=("floor", 1.05),
        note="floor: one malloc + copy + free per string.")),
    ("message.to_item", dict(
        title="1b. Message to item, per item", unit="item", target=("floor", 1.05),
        note="floor: the item built with the same setters from values that already are strings.")),
    ("sort.title_ascending", dict(
        title="2a. Sorted iteration by \"+dc:title\", per child", unit="child",
        target=("floor", 1.0), also=("radix", None),
        note="floor: (caption head, caption, position) triples already extracted, sorted, the "
             "child pointers permuted and walked; radix: a radix sort of the 8-byte caption heads.")),
    ("sort.title_descending", dict(
        title="2b. Sorted iteration by \"-dc:title\", per child", unit="child",
        target=("floor", 1.0), also=("radix", None), note="as 2a, descending.")),
    ("sort.date", dict(
        title="2c. Sorted iteration by date (newest first), per child", unit="child",
        target=("radix", 1.2), also=("floor", None),
        note="floor: (date, position) pairs already extracted, sorted with std::sort, permuted "
             "and walked; radix: a radix sort of the same pairs.")),
    ("sort.title_series", dict(
        title="2d. Sorted iteration by \"+dc:title\" of a series (captions share their first "
              "8 bytes), per child", unit="child",
        target=("floor", 1.0), also=("radix", None),
        note="as 2a, on captions that all begin with \"Tatort: \" and end in 12 random letters "
             "(the episodes of a series): every 8-byte head is equal, so every comparison goes on "
             "to the whole captions, and the radix sort of the heads orders nothing.")),
    ("browse.find_uuid", dict(
        title="3a. findUuid over 10,000 children, per child", unit="child",
        target=("direct_loop", 10.0), also=("floor", None),
        note="direct_loop: findEntrybyUUID(); floor: what findUuid must do per child at the "
             "least, two synchronous calls at their floor and the identifier comparison.")),
    ("browse.walk", dict(
        title="3b. Synchronous walk, getCurrentChild() + advance(), per child", unit="child",
        target=("floor", 2.0), also=("vector", None),
        note="floor: per synchronous call one allocation, sem_init/sem_post/sem_wait/sem_destroy "
             "and the four gate checks of the call (two calls per child); vector: walking a "
             "std::vector of the children.")),
    ("browse.page", dict(
        title="3c. Paging, seekTo() + getCurrentChild(), per page", unit="page",
        target=("floor", 2.0), note="floor: as 3b, two synchronous calls per page.")),
    ("path.resolve", dict(
        title="4. resolvePath() in a tree of fan-out 1,000, per level (argument: depth)",
        unit="level", target=("floor", 2.0),
        note="floor: each index parsed with strtol and the child vector indexed.")),
    ("tree.add_entry", dict(
        title="5. Building a folder: a leaf with a video record made and addEntry()'d, per leaf",
        unit="leaf", target=("floor", None),
        note="floor: the same leaves made and kept in a std::vector.")),
    ("trace.walk", dict(
        title="6. Trace cost: synchronous walk with the gate closed, per child", unit="child",
        target=("stubbed", 1.03),
        note="ours: the walk of 3b, in a program that calls the platform's level check as it "
             "is; stubbed: the same walk in a program whose level check answers 0 at once "
             "(the library calls it instead of the platform's). No wrapper on either side.")),
])

# The operations of the summary table: (scenario, argument, what one element is).
SUMMARY = [
    ("message.round_trip", 1, "Item message round trip, one item at a time (per item)"),
    ("message.round_trip", 100, "Item message round trip, batches of 100 (per item)"),
    ("message.to_message", 1, "Item to message and release (per item)"),
    ("message.to_item", 1, "Message to item (per item)"),
    ("sort.title_ascending", 10000, "Sorted walk by caption, 10,000 children (per child)"),
    ("sort.title_series", 10000, "Sorted walk by caption, a series of 10,000 (per child)"),
    ("sort.date", 10000, "Sorted walk by date, 10,000 children (per child)"),
    ("browse.walk", 10000, "Synchronous walk (per child)"),
    ("browse.page", 10000, "Paging, seekTo + getCurrentChild (per page)"),
    ("browse.find_uuid", 10000, "findUuid (per child searched)"),
    ("path.resolve", 1, "resolvePath, depth 1 (per level)"),
    ("path.resolve", 8, "resolvePath, depth 8 (per level)"),
    ("tree.add_entry", 10000, "Leaf made and addEntry'd, 10,000 (per leaf)"),
    ("trace.walk", 10000, "Synchronous walk, gate closed (per child)"),
]

# Functions of the allocator in callgrind's profiles: glibc's malloc.c and
# libstdc++'s operator new and delete around it.
ALLOCATOR = re.compile(r"malloc/malloc\.c:|:operator (new|delete)\b")


def read_time(folder):
    """{case name: (ns per operation, elements per operation)}."""
    times = {}
    scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    for path in glob.glob(os.path.join(folder, "*.json")):
        with open(path) as f:
            data = json.load(f)
        for b in data.get("benchmarks", []):
            if b.get("run_type") == "aggregate":
                continue
            times[b["name"]] = (b["real_time"] * scale[b["time_unit"]],
                                b.get("elements", 1.0))
    return times


REQUEST = "desc: Trigger: Client Request: "


def read_cases(path):
    """[(case name, operations, elements per operation)] in the order run."""
    cases = []
    with open(path) as f:
        for line in f:
            parts = line.split()
            if len(parts) == 3:
                cases.append((parts[0], int(parts[1]), int(parts[2])))
    return cases


def callgrind_dumps(base):
    """{case name: dump file} of the callgrind outputs base.*."""
    dumps = {}
    for dump in glob.glob(base + ".*"):
        with open(dump) as f:
            for line in f:
                if line.startswith(REQUEST):
                    dumps[line[len(REQUEST):].strip()] = dump
                    break
    return dumps


def dump_total(dump):
    with open(dump) as f:
        for line in f:
            if line.startswith("totals:") or line.startswith("summary:"):
                return int(line.split()[1])
    return None


def read_callgrind(cases_path, base):
    """{case name: (instructions per operation, elements per operation)}."""
    dumps = callgrind_dumps(base)
    result = {}
    for name, operations, elements in read_cases(cases_path):
        total = dump_total(dumps[name]) if name in dumps else None
        if total is not None:
            result[name] = (total / operations, elements)
    return result


def read_instructions(folder):
    """{case name: (instructions per operation, elements per operation)}."""
    result = {}
    for cases in glob.glob(os.path.join(folder, "callgrind", "*.cases")):
        result.update(read_callgrind(cases, cases[:-len(".cases")] + ".out"))
    return result


def read_allocator(folder, scenario_prefix="message."):
    """Callgrind's instructions in the allocator, for the message cases:
    {case name: (allocator instructions per operation, elements)}."""
    result = {}
    for cases in glob.glob(os.path.join(folder, "callgrind", "*.cases")):
        dumps = callgrind_dumps(cases[:-len(".cases")] + ".out")
        for name, operations, elements in read_cases(cases):
            if not name.startswith(scenario_prefix) or name not in dumps:
                continue
            listing = subprocess.run(
                ["callgrind_annotate", "--inclusive=no", "--threshold=100", dumps[name]],
                capture_output=True, text=True, check=True).stdout
            inside = 0
            for line in listing.splitlines():
                match = re.match(r"\s*([\d,]+) \(\s*[\d.]+%\)\s+(.*)$", line)
                if match and ALLOCATOR.search(match.group(2)):
                    inside += int(match.group(1).replace(",", ""))
            result[name] = (inside / operations, elements)
    return result


def read_plugin(cases_path, counts_path):
    """The insn_count plugin's counts: {case name: (instructions per operation,
    elements per operation, allocations per operation)}; the plugin numbers
    the phases in the order the program printed its cases."""
    counts = {}
    with open(counts_path) as f:
        for line in f:
            phase, instructions, calls = (int(x) for x in line.split())
            counts[phase] = (instructions, calls)
    result = {}
    for phase, (name, operations, elements) in enumerate(read_cases(cases_path)):
        if phase in counts:
            instructions, calls = counts[phase]
            result[name] = (instructions / operations, elements, calls / operations)
    return result


def read_arm(folder):
    """{case name: (instructions per operation, elements, allocations per operation)}."""
    result = {}
    for cases in glob.glob(os.path.join(folder, "arm", "*.cases")):
        counts = cases[:-len(".cases")] + ".counts"
        if os.path.exists(counts):
            result.update(read_plugin(cases, counts))
    return result


def plugin_comparisons(folder):
    """The cases counted both by callgrind and by the plugin under qemu-x86_64
    in `folder`: [(case name, callgrind's count, the plugin's count, relative
    difference)], instructions per operation."""
    callgrind = read_callgrind(os.path.join(folder, "callgrind.cases"),
                               os.path.join(folder, "callgrind.out"))
    plugin = read_plugin(os.path.join(folder, "plugin.cases"),
                         os.path.join(folder, "plugin.counts"))
    return [(name, callgrind[name][0], plugin[name][0],
             (plugin[name][0] - callgrind[name][0]) / callgrind[name][0])
            for name in sorted(set(callgrind) & set(plugin))]


def check_plugin(folder):
    """The plugin under qemu-x86_64 against callgrind on the same cases."""
    comparisons = plugin_comparisons(folder)
    if not comparisons:
        print("plugin check: no case counted by both callgrind and the plugin")
        return 1
    failed = 0
    for name, expected, counted, difference in comparisons:
        ok = abs(difference) <= 0.005
        failed += not ok
        print("plugin check: %s: callgrind %.1f, plugin %.1f instructions per operation "
              "(%+.3f%%) %s" % (name, expected, counted, 100 * difference,
                                "ok" if ok else "DIFFER BY MORE THAN 0.5%"))
    return 1 if failed else 0


def split(name):
    scenario, variant, arg = name.rsplit("/", 2)
    return scenario, variant, int(arg)


def per_element(table, field=0):
    """{scenario: {arg: {variant: value per element}}} of field `field`
    (0: the count per operation) of each case's (count, elements, ...)."""
    out = defaultdict(lambda: defaultdict(dict))
    for name, values in table.items():
        scenario, variant, arg = split(name)
        out[scenario][arg][variant] = values[field] / max(values[1], 1)
    return out


def fmt(value):
    if value is None:
        return "-"
    if value >= 100:
        return "%.0f" % value
    if value >= 10:
        return "%.1f" % value
    return "%.2f" % value


def machine():
    cpu = "unknown CPU"
    try:
        with open("/proc/cpuinfo") as f:
            for line in f:
                if line.startswith("model name"):
                    cpu = line.split(":", 1)[1].strip()
                    break
    except OSError:
        pass
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True).stdout
    compiler = compiler.splitlines()[0] if compiler else "unknown compiler"
    return "%s, %d cores, %s, %s; %s" % (platform.machine(), os.cpu_count(), cpu,
                                         platform.platform(), compiler)


def leaf_memory(folder):
    rows = OrderedDict()
    for target in ("host", "arm"):
        path = os.path.join(folder, "leaf_memory.%s.txt" % target)
        if not os.path.exists(path):
            continue
        with open(path) as f:
            for line in f:
                if ":" in line:
                    key, value = line.split(":", 1)
                    rows.setdefault(key.strip(), {})[target] = value.strip()
    return rows


def fmt_prose(value):
    """A figure for the prose: thousands separated, as fmt() otherwise."""
    return "{:,.0f}".format(value) if value >= 1000 else fmt(value)


def fmt_count(value):
    """A count per element (allocations): exact zeros and small shares kept."""
    if value is None:
        return "-"
    if value == 0:
        return "0"
    return "%.2g" % value if value < 0.1 else fmt(value)


def reflow(text):
    """Paragraphs of prose wrapped again at 76 columns (figures filled in
    change their lengths)."""
    paragraphs = text.split("\n\n")
    return "\n\n".join(
        p if p.lstrip().startswith(("#", "|", "-", "`")) else
        textwrap.fill(" ".join(p.split()), width=76, break_on_hyphens=False)
        for p in paragraphs)


PLACEHOLDER = re.compile(r"\{\{(\w+) ([\w.]+)/(\d+) (\w+)(?:/(\w+))?\}\}")
LEAF_PLACEHOLDER = re.compile(r"\{\{leaf (host|arm) ([^}]+)\}\}")


def fill_notes(text, sources, memory):
    """The notes with every {{source scenario/arg variant[/variant]}} replaced
    by its figure; raises ValueError on a figure the tables lack or on a
    ratio written as a literal."""
    literal = re.search(r"(?<![\w{/.])\d+(\.\d+)?x\b",
                        LEAF_PLACEHOLDER.sub("", PLACEHOLDER.sub("", text)))
    if literal:
        raise ValueError("RESULTS-notes.md: ratio %r written as a literal; use a placeholder"
                         % literal.group(0))

    def figure(match):
        source, scenario, arg, variant, against = match.groups()
        values = sources.get(source, {}).get(scenario, {}).get(int(arg), {})
        if variant not in values or (against and not values.get(against)):
            raise ValueError("RESULTS-notes.md: no figure for %s" % match.group(0))
        if against:
            return fmt(values[variant] / values[against])
        if source == "arm_alloc":
            return fmt_count(values[variant])
        return fmt_prose(values[variant])

    def leaf(match):
        target, key = match.groups()
        if target not in memory.get(key, {}):
            raise ValueError("RESULTS-notes.md: no figure for %s" % match.group(0))
        value = memory[key][target]
        return fmt_prose(float(value)) if float(value) >= 1000 else value

    return reflow(LEAF_PLACEHOLDER.sub(leaf, PLACEHOLDER.sub(figure, text)))


def table(header, rows):
    return (["| " + " | ".join(header) + " |", "|" + "---|" * len(header)]
            + ["| " + " | ".join(row) + " |" for row in rows])


def ratio(values, over, under):
    return fmt(values[over] / values[under]) if over in values and values.get(under) else "-"


def main():
    if sys.argv[1] == "--check-plugin":
        sys.exit(check_plugin(sys.argv[2]))
    folder, results_path, plot_path = sys.argv[1:4]
    baseline = per_element(read_instructions(sys.argv[4])) if len(sys.argv) > 4 else None
    times = per_element(read_time(folder))
    instructions = per_element(read_instructions(folder))
    arm_cases = read_arm(folder)
    arm = per_element(arm_cases)
    arm_alloc = per_element({n: (v[2], v[1]) for n, v in arm_cases.items()})
    allocator = read_allocator(folder)
    x86_alloc = per_element(allocator)
    outside = {}
    for name, (inside, elements) in allocator.items():
        scenario, variant, arg = split(name)
        outside[name] = (instructions[scenario][arg][variant] * elements - inside, elements)
    x86_outside = per_element(outside)
    sources = {"x86": instructions, "arm": arm, "arm_alloc": arm_alloc, "x86_alloc": x86_alloc,
               "x86_outside": x86_outside, "time": times}

    lines = ["# Benchmark results", "",
             "Written by `scripts/bench.sh` (do not edit by hand). Machine: %s." % machine(), "",
             "Each scenario runs the library's code path (*ours*) beside its floor (the least "
             "its contract requires) or a peer, in the same process. **Instructions** come "
             "from callgrind on the x86-64 host (`valgrind --tool=callgrind`, instructions per "
             "element, repeatable on a loaded machine) and, for the receiver's 32-bit ARM "
             "(Thumb-2, hard-float; the `arm-release` build), from the `insn_count` QEMU "
             "plugin under `qemu-arm` (`bench/insn_count/`: every executed guest instruction "
             "counted between the harness's phase markers, with the calls of `malloc`, "
             "`calloc`, `realloc` and `aligned_alloc`): read these first. **Time** is Google "
             "Benchmark's wall-clock time per element on the host; the machine is shared with "
             "other builds, so times are noisy. Instruction counts stop at %s elements; larger "
             "sizes have times only." % os.environ.get("BENCH_CALLGRIND_MAX_ARG", "100,000"), ""]
    check = os.path.join(folder, "plugin-check")
    if os.path.isdir(check):
        for name, expected, counted, difference in plugin_comparisons(check):
            lines += ["The plugin is checked against callgrind in every run (and in the test "
                      "command's `bench-smoke`): the same host program under `qemu-x86_64` with "
                      "the plugin counted %s instructions per operation of `%s` where callgrind "
                      "counted %s (%+.3f%%; the check allows 0.5%%)."
                      % ("{:,.1f}".format(counted), name, "{:,.1f}".format(expected),
                         100 * difference), ""]

    if arm_cases:
        rows = []
        for scenario, arg, what in SUMMARY:
            against = SCENARIOS[scenario]["target"][0]
            a = arm.get(scenario, {}).get(arg, {})
            h = arm_alloc.get(scenario, {}).get(arg, {})
            x = instructions.get(scenario, {}).get(arg, {})
            if "ours" not in a:
                continue
            rows.append([what, fmt(a.get("ours")), fmt(a.get(against)) + " (%s)" % against,
                         ratio(a, "ours", against), fmt_count(h.get("ours")),
                         fmt_count(h.get(against)),
                         ratio(x, "ours", against)])
        lines += ["## On the receiver: ARM instructions and heap allocations per element", "",
                  "32-bit ARM (`arm-release`, Thumb-2, hard-float, glibc's allocator), counted "
                  "under `qemu-arm` with the `insn_count` plugin. *Against* is what the "
                  "operation is measured against (its floor: the least its contract requires; "
                  "for findUuid the direct loop, for the closed gate the stubbed level check); "
                  "the last column is the same ratio on the x86-64 host (callgrind). The "
                  "sections below have every size and variant.", ""]
        lines += table(["operation", "ARM instr", "against: ARM instr", "ARM ratio",
                        "heap allocations", "against: heap allocations", "x86 ratio"], rows)
        lines += [""]

    lines += ["![time per element against N](scaling.png)", ""]
    if baseline is not None:
        lines += ["The *before* columns and ratios are the same benchmarks' instruction counts "
                  "against the library as it was before its hot paths were brought to their "
                  "floors (%s)." % os.environ.get("BENCH_BASELINE_NAME", "the baseline run"), ""]
    verdicts = []
    for scenario, scenario_info in SCENARIOS.items():
        args = sorted(set(times.get(scenario, {})) | set(instructions.get(scenario, {}))
                      | set(arm.get(scenario, {})))
        if not args:
            continue
        present = {v for a in args for v in
                   list(times[scenario].get(a, {})) + list(instructions[scenario].get(a, {}))
                   + list(arm[scenario].get(a, {}))}
        ours = sorted(v for v in present if v.startswith("ours"))  # "ours" first
        others = sorted(present - set(ours))
        variants = ours + others
        pairs = [(o, b) for o in ours for b in others]
        lines += ["## " + scenario_info["title"], "", scenario_info["note"], ""]
        header = ["N"] + ["%s instr" % v for v in variants]
        if baseline is not None:
            header.append("ours before instr")
            header.append("%s before instr" % scenario_info["target"][0])
        header += ["%s / %s instr" % pair for pair in pairs]
        # The ARM columns of the variants the target's build has (no protobuf peer).
        on_arm = {v for a in args for v in arm[scenario].get(a, {})}
        arm_variants = [v for v in variants if v in on_arm]
        arm_pairs = [(o, b) for o, b in pairs if o in on_arm and b in on_arm]
        header += ["%s ARM instr" % v for v in arm_variants]
        header += ["%s / %s ARM" % pair for pair in arm_pairs]
        header += ["%s ns" % v for v in variants] + ["%s / %s time" % pair for pair in pairs]
        rows = []
        for arg in args:
            inst = instructions[scenario].get(arg, {})
            target_arm = arm[scenario].get(arg, {})
            tim = times[scenario].get(arg, {})
            row = [str(arg)] + [fmt(inst.get(v)) for v in variants]
            if baseline is not None:
                row.append(fmt(baseline.get(scenario, {}).get(arg, {}).get("ours")))
                row.append(fmt(baseline.get(scenario, {}).get(arg, {}).get(
                    scenario_info["target"][0])))
            row += [ratio(inst, o, b) for o, b in pairs]
            row += [fmt(target_arm.get(v)) for v in arm_variants]
            row += [ratio(target_arm, o, b) for o, b in arm_pairs]
            row += [fmt(tim.get(v)) for v in variants]
            row += [ratio(tim, o, b) for o, b in pairs]
            rows.append(row)
            goals = [g for g in (scenario_info.get("target"), scenario_info.get("also"))
                     if g and g[1] is not None]
            before = baseline.get(scenario, {}).get(arg, {}) if baseline is not None else {}
            for o in ours:
                for against, limit in goals:
                    if against in inst and o in inst:
                        earlier = (before[o] / before[against]
                                   if o in before and before.get(against) else None)
                        arm_ratio = (target_arm[o] / target_arm[against]
                                     if o in target_arm and target_arm.get(against) else None)
                        verdicts.append((scenario, arg, o, against, earlier,
                                         inst[o] / inst[against], arm_ratio, limit))
        lines += table(header, rows) + [""]

        if scenario == "message.to_item" and allocator:
            lines += ["## 1c. The allocator's share of the item message round trip", "",
                      "Callgrind's instructions per item inside glibc's allocator (`malloc.c`: "
                      "`malloc`, `free`, `_int_malloc`, `_int_free`, `malloc_consolidate`, ... and "
                      "libstdc++'s `operator new`/`delete`) and outside it, for ours and the "
                      "floor, one item at a time and in batches of 100 items (each converted to "
                      "a message, each message back to an item, then all released). The "
                      "allocator's work depends on the order of allocations and frees, so the "
                      "ratio *outside* it is the one that measures the library's code; the ARM "
                      "ratio is the whole operation's.", ""]
            rows = []
            for arg in sorted(x86_alloc.get("message.round_trip", {})):
                inside = x86_alloc["message.round_trip"][arg]
                outside = x86_outside["message.round_trip"][arg]
                whole = instructions["message.round_trip"][arg]
                if "ours" not in inside or "floor" not in inside:
                    continue
                rows.append([str(arg)] + [
                    fmt(whole["ours"]), fmt(inside["ours"]),
                    "%.0f%%" % (100 * inside["ours"] / whole["ours"]), fmt(outside["ours"]),
                    fmt(whole["floor"]), fmt(inside["floor"]),
                    "%.0f%%" % (100 * inside["floor"] / whole["floor"]), fmt(outside["floor"]),
                    ratio(whole, "ours", "floor"), ratio(outside, "ours", "floor"),
                    ratio(arm.get("message.round_trip", {}).get(arg, {}), "ours", "floor")])
            lines += table(["batch", "ours instr", "ours in allocator", "share",
                            "ours outside", "floor instr", "floor in allocator", "share",
                            "floor outside", "ours / floor", "ours / floor outside allocator",
                            "ours / floor ARM"], rows) + [""]

    memory = leaf_memory(folder)
    if memory:
        lines += ["## 5a. Heap bytes per leaf (entry, video record, control blocks)", "",
                  "From `bench/leaf_memory` (counted allocations and `sizeof`), on the host and "
                  "under qemu on the ARM target (`arm-release`). *Made* is making the leaf "
                  "(record facade, field store, entry, two control blocks: what the caller "
                  "allocates); *added* is what `addEntry` adds (the children list's growth, "
                  "amortised).", "",
                  "| | host | ARM |", "|---|---|---|"]
        for key, values in memory.items():
            lines.append("| %s | %s | %s |" % (key, values.get("host", "-"),
                                               values.get("arm", "-")))
        lines.append("")

    lines += ["## Targets (instructions)", "",
              "The target applies to the host's callgrind ratio; the ARM ratio is beside it.", ""]
    rows = []
    for scenario, arg, o, against, earlier, value, arm_ratio, target in verdicts:
        rows.append([scenario, str(arg), o, against]
                    + (["-" if earlier is None else "%.2f" % earlier]
                       if baseline is not None else [])
                    + ["%.2f" % value, "-" if arm_ratio is None else "%.2f" % arm_ratio,
                       "%.2f" % target, "yes" if value <= target else "**no**"])
    lines += table(["scenario", "N", "ours", "against"]
                   + (["ratio before"] if baseline is not None else [])
                   + ["ratio", "ARM ratio", "target", "met"], rows) + [""]
    notes = os.path.join(os.path.dirname(results_path), "RESULTS-notes.md")
    if os.path.exists(notes):
        with open(notes) as f:
            lines += [fill_notes(f.read().rstrip(), sources, memory), ""]
    with open(results_path, "w") as f:
        f.write("\n".join(lines))

    # The plot: time per element against N for the sorts and tree building;
    # one colour per scenario, one line style per variant.
    styles = {"ours": "-", "ours_sort_only": "--", "floor": ":", "radix": "-."}
    figure, axes = plt.subplots(1, 2, figsize=(12, 5))
    for ax, scenarios, title in (
            (axes[0], ["sort.title_ascending", "sort.title_descending", "sort.date"],
             "Sorted iteration"),
            (axes[1], ["tree.add_entry"], "Tree building (addEntry)")):
        for colour, scenario in zip(("tab:blue", "tab:orange", "tab:green"), scenarios):
            data = times.get(scenario, {})
            for variant in sorted({v for a in data for v in data[a]}):
                points = sorted((a, data[a][variant]) for a in data if variant in data[a])
                if points:
                    ax.plot([p[0] for p in points], [p[1] for p in points], marker="o",
                            color=colour, linestyle=styles.get(variant, "-"),
                            label="%s %s" % (scenario.split(".", 1)[1], variant))
        ax.set_xscale("log")
        ax.set_yscale("log")
        ax.set_xlabel("N (children)")
        ax.set_ylabel("ns per element (wall clock)")
        ax.set_title(title)
        ax.grid(True, which="both", alpha=0.3)
        ax.legend(fontsize=7)
    figure.tight_layout()
    figure.savefig(plot_path, dpi=90)


if __name__ == "__main__":
    main()
