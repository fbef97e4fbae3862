#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors

"""Checks that every C++ block of the user guide is a region of a program the tests run.

Usage: check_guide_snippets.py GUIDE FOLDER...

A block is introduced by a line "<!-- snippet: NAME -->" right before its
opening fence. A region of a program's file (*.cpp, *.h, *.sh, *.cmake.in,
CMakeLists.txt under one of the FOLDERs: the guide's example programs, the
installed-library consumer) lies between the lines "// [guide:NAME]" and
"// [guide:end]" ("#" instead of "//" in scripts). Block and region must be
equal after the common indentation of each is removed. Every "```cpp" block
needs a marker; blocks of other languages (shell commands, CMake) are checked
when they have one. Exits 1, naming each problem, when a C++ block has no
marker, a marker names no region, a region is defined twice or is shown
nowhere, or a block differs from its region.
"""
import pathlib
import re
import sys
import textwrap

MARKER = re.compile(r"^<!-- snippet: ([\w-]+) -->$")
REGION_START = re.compile(r"^\s*(?://|#) \[guide:([\w-]+)\]$")
REGION_END = re.compile(r"^\s*(?://|#) \[guide:end\]$")
PATTERNS = ("*.cpp", "*.h", "*.sh", "*.cmake.in", "CMakeLists.txt")


def dedent(lines):
    return textwrap.dedent("\n".join(lines)).strip("\n")


def read_regions(folders, problems):
    """Maps each region name to (file, text); a file is named from its folder on."""
    regions = {}
    files = sorted((path.relative_to(folder.parent), path) for folder in folders
                   for pattern in PATTERNS for path in folder.rglob(pattern))
    for name_of_file, path in files:
        lines = path.read_text().splitlines()
        index = 0
        while index < len(lines):
            match = REGION_START.match(lines[index])
            index += 1
            if not match or match.group(1) == "end":
                continue
            name = match.group(1)
            body = []
            while index < len(lines) and not REGION_END.match(lines[index]):
                body.append(lines[index])
                index += 1
            if index == len(lines):
                problems.append(f"{name_of_file}: region {name} has no end marker")
            if name in regions:
                problems.append(f"{name_of_file}: region {name} is defined twice")
            regions[name] = (name_of_file, dedent(body))
    return regions


def read_blocks(guide, problems):
    blocks = []
    lines = guide.read_text().splitlines()
    index = 0
    while index < len(lines):
        line = lines[index]
        if line.startswith("```"):
            language = line[3:].strip()
            marker = MARKER.match(lines[index - 1]) if index > 0 else None
            body = []
            index += 1
            while index < len(lines) and not lines[index].startswith("```"):
                body.append(lines[index])
                index += 1
            if marker is None and language == "cpp":
                problems.append(f"guide line {index - len(body)}: C++ block without "
                                "<!-- snippet: NAME --> marker")
            elif marker is not None:
                blocks.append((marker.group(1), index - len(body), dedent(body)))
        index += 1
    return blocks


def first_difference(expected, actual):
    for number, (want, got) in enumerate(zip(expected.splitlines(), actual.splitlines()), 1):
        if want != got:
            return f"line {number}:\n    program: {want!r}\n    guide:   {got!r}"
    return "one of them is longer"


def main():
    guide, folders = pathlib.Path(sys.argv[1]), [pathlib.Path(arg) for arg in sys.argv[2:]]
    problems = []
    regions = read_regions(folders, problems)
    blocks = read_blocks(guide, problems)
    shown = set()
    for name, line, text in blocks:
        if name not in regions:
            problems.append(f"guide line {line}: no example region named {name}")
            continue
        shown.add(name)
        program, region = regions[name]
        if region != text:
            problems.append(f"guide line {line}: snippet {name} differs from {program}, "
                            + first_difference(region, text))
    for name in sorted(set(regions) - shown):
        problems.append(f"{regions[name][0]}: region {name} is not shown in the guide")
    for problem in problems:
        print(problem)
    if problems:
        return 1
    print(f"{len(blocks)} guide snippets match the programs' regions")
    return 0


if __name__ == "__main__":
    sys.exit(main())
