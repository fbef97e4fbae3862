#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Checks that every source, header, script and build file carries the
licence identifier and a copyright line near its top.

Usage: check_licence_headers.py SOURCE_ROOT [--fix]

A file is checked when its name or extension is in FILE_KINDS (build folders,
.git, fuzz corpora and expected outputs are skipped); it passes when one of
its first HEAD_LINES lines holds "SPDX-License-Identifier: Apache-2.0" and
another one "Copyright". With --fix, the two lines are added, in the file's
comment syntax, after a "#!" line if there is one. Exits 1 naming each file
without them.
"""
import os
import pathlib
import sys

IDENTIFIER = "SPDX-License-Identifier: Apache-2.0"
COPYRIGHT = "Copyright 2026 The libma-common Authors"
HEAD_LINES = 6

# File name suffix (or whole name) -> comment leader.
FILE_KINDS = {
    ".c": "//", ".cpp": "//", ".h": "//", ".proto": "//",
    ".py": "#", ".sh": "#", ".cmake": "#", "CMakeLists.txt": "#",
    ".cmake.in": "#", ".pc.in": "#", "Doxyfile.in": "#",
    ".supp": "#", ".ini": "#", ".gdb": "#", "run": "#",
}
SKIPPED_FOLDERS = {".git", "corpus", "expected", "__pycache__"}


def comment_leader(path):
    name = path.name
    if name in FILE_KINDS:
        return FILE_KINDS[name]
    for suffix in sorted(FILE_KINDS, key=len, reverse=True):
        if suffix.startswith(".") and name.endswith(suffix):
            return FILE_KINDS[suffix]
    if name == "run" and path.parent.name == ".ci":
        return "#"
    return None


def source_files(root):
    for folder, subfolders, files in os.walk(root):
        subfolders[:] = sorted(d for d in subfolders
                               if d not in SKIPPED_FOLDERS and not d.startswith("build"))
        for name in sorted(files):
            path = pathlib.Path(folder, name)
            if name == "run" and path.parent.name != ".ci":
                continue
            leader = comment_leader(path)
            if leader:
                yield path, leader


def has_header(lines):
    head = lines[:HEAD_LINES]
    return any(IDENTIFIER in line for line in head) and any("Copyright" in line for line in head)


def add_header(path, leader, lines):
    at = 1 if lines and lines[0].startswith("#!") else 0
    header = [f"{leader} {IDENTIFIER}", f"{leader} {COPYRIGHT}"]
    if at < len(lines) and lines[at].strip():
        header.append(leader if lines[at].startswith(leader) else "")
    path.write_text("\n".join(lines[:at] + header + lines[at:]) + "\n")


def main(argv):
    if len(argv) not in (2, 3) or (len(argv) == 3 and argv[2] != "--fix"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    root = pathlib.Path(argv[1])
    missing = []
    for path, leader in source_files(root):
        lines = path.read_text(errors="replace").splitlines()
        if has_header(lines):
            continue
        if len(argv) == 3:
            add_header(path, leader, lines)
        else:
            missing.append(path.relative_to(root))
    for path in missing:
        print(f"{path}: no '{IDENTIFIER}' and copyright line in its first {HEAD_LINES} lines")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
