#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors

"""Writes bench/RESULTS.md and the scaling plot from the outputs of
scripts/bench.sh: Google Benchmark JSON files, callgrind dumps with their
case lists, and the heap-bytes-per-leaf program's output.

    bench_report.py <results folder> <RESULTS.md> <plot.png> [<baseline folder>]

A baseline folder (the callgrind outputs of an earlier build, same layout)
adds a column with the instructions the library's code took before.
"""
import glob
import json
import os
import platform
import re
import subprocess
import sys
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
        note="stubbed: the same walk with the platform's level check answering 0 at once.")),
])


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


def read_instructions(folder):
    """{case name: (instructions per operation, elements per operation)}."""
    result = {}
    for cases in glob.glob(os.path.join(folder, "callgrind", "*.cases")):
        base = cases[:-len(".cases")] + ".out"
        totals = {}
        for dump in glob.glob(base + ".*"):
            name = total = None
            with open(dump) as f:
                for line in f:
                    if line.startswith(REQUEST):
                        name = line[len(REQUEST):].strip()
                    elif line.startswith("totals:") or line.startswith("summary:"):
                        total = int(line.split()[1])
            if name is not None and total is not None:
                totals[name] = total
        with open(cases) as f:
            for line in f:
                parts = line.split()
                if len(parts) != 3 or parts[0] not in totals:
                    continue
                operations, elements = int(parts[1]), int(parts[2])
                result[parts[0]] = (totals[parts[0]] / operations, elements)
    return result


def split(name):
    scenario, variant, arg = name.rsplit("/", 2)
    return scenario, variant, int(arg)


def per_element(table):
    """{scenario: {arg: {variant: value per element}}}."""
    out = defaultdict(lambda: defaultdict(dict))
    for name, (value, elements) in table.items():
        scenario, variant, arg = split(name)
        out[scenario][arg][variant] = value / max(elements, 1)
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


def main():
    folder, results_path, plot_path = sys.argv[1:4]
    baseline = per_element(read_instructions(sys.argv[4])) if len(sys.argv) > 4 else None
    times = per_element(read_time(folder))
    instructions = per_element(read_instructions(folder))

    lines = ["# Benchmark results", "",
             "Written by `scripts/bench.sh` (do not edit by hand). Machine: %s." % machine(), "",
             "Each scenario runs the library's code path (*ours*) beside its floor (the least "
             "its contract requires) or a peer, in the same process. **Instructions** come "
             "from callgrind (`valgrind --tool=callgrind`, instructions per element, "
             "repeatable on a loaded machine): read these first. **Time** is Google "
             "Benchmark's wall-clock time per element; the machine is shared with other "
             "builds, so times are noisy. Callgrind runs stop at %s elements; larger sizes "
             "have times only." % os.environ.get("BENCH_CALLGRIND_MAX_ARG", "100,000"),
             "", "![time per element against N](scaling.png)", ""]
    if baseline is not None:
        lines += ["The *before* columns and ratios are the same benchmarks' instruction counts "
                  "against the library as it was before its hot paths were brought to their "
                  "floors (%s)." % os.environ.get("BENCH_BASELINE_NAME", "the baseline run"), ""]
    verdicts = []
    for scenario, scenario_info in SCENARIOS.items():
        args = sorted(set(times.get(scenario, {})) | set(instructions.get(scenario, {})))
        if not args:
            continue
        present = {v for a in args for v in
                   list(times[scenario].get(a, {})) + list(instructions[scenario].get(a, {}))}
        ours = sorted(v for v in present if v.startswith("ours"))  # "ours" first
        others = sorted(present - set(ours))
        variants = ours + others
        pairs = [(o, b) for o in ours for b in others]
        lines += ["## " + scenario_info["title"], "", scenario_info["note"], ""]
        header = ["N"] + ["%s instr" % v for v in variants]
        if baseline is not None:
            header.append("ours before instr")
            header.append("%s before instr" % (scenario_info["target"][0] if scenario_info.get("target") else "-"))
        header += ["%s / %s instr" % pair for pair in pairs]
        header += ["%s ns" % v for v in variants] + ["%s / %s time" % pair for pair in pairs]
        lines.append("| " + " | ".join(header) + " |")
        lines.append("|" + "---|" * len(header))
        for arg in args:
            inst = instructions[scenario].get(arg, {})
            tim = times[scenario].get(arg, {})
            row = [str(arg)] + [fmt(inst.get(v)) for v in variants]
            if baseline is not None:
                row.append(fmt(baseline.get(scenario, {}).get(arg, {}).get("ours")))
                row.append(fmt(baseline.get(scenario, {}).get(arg, {}).get(scenario_info["target"][0]))
                           if scenario_info.get("target") else "-")
            row += [fmt(inst[o] / inst[b]) if o in inst and inst.get(b) else "-"
                    for o, b in pairs]
            row += [fmt(tim.get(v)) for v in variants]
            row += [fmt(tim[o] / tim[b]) if o in tim and tim.get(b) else "-" for o, b in pairs]
            lines.append("| " + " | ".join(row) + " |")
            goals = [g for g in (scenario_info.get("target"), scenario_info.get("also")) if g and g[1] is not None]
            before = baseline.get(scenario, {}).get(arg, {}) if baseline is not None else {}
            for o in ours:
                for against, limit in goals:
                    if against in inst and o in inst:
                        earlier = (before[o] / before[against]
                                   if o in before and before.get(against) else None)
                        verdicts.append((scenario, arg, o, against, earlier,
                                         inst[o] / inst[against], limit))
        lines.append("")

    memory = leaf_memory(folder)
    if memory:
        lines += ["## 5a. Heap bytes per leaf (entry, video record, control blocks)", "",
                  "From `bench/leaf_memory` (counted allocations and `sizeof`), on the host and "
                  "under qemu on the ARM target. *Made* is making the leaf (record facade, "
                  "field store, entry, two control blocks: what the caller allocates); *added* "
                  "is what `addEntry` adds (the children list's growth, amortised).", "",
                  "| | host | ARM |", "|---|---|---|"]
        for key, values in memory.items():
            lines.append("| %s | %s | %s |" % (key, values.get("host", "-"), values.get("arm", "-")))
        lines.append("")

    lines += ["## Targets (instructions)", "",
              "| scenario | N | ours | against | ratio before | ratio | target | met |",
              "|---|---|---|---|---|---|---|---|"]
    for scenario, arg, o, against, earlier, ratio, target in verdicts:
        lines.append("| %s | %d | %s | %s | %s | %.2f | %.2f | %s |" % (
            scenario, arg, o, against, "-" if earlier is None else "%.2f" % earlier, ratio,
            target, "yes" if ratio <= target else "**no**"))
    lines.append("")
    notes = os.path.join(os.path.dirname(results_path), "RESULTS-notes.md")
    if os.path.exists(notes):
        with open(notes) as f:
            lines += [f.read().rstrip(), ""]
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
