#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors

"""Turns the user guide into a page of the API reference.

Usage: guide_page.py GUIDE OUTPUT

The guide is written for a Markdown reader (a code host, a text viewer):
its links to sections use the anchors such readers derive from the
headings ("## Sorted iteration" is "#sorted-iteration"), and its links to
files point into the source tree. Doxygen derives no such anchors, and the
source tree is not beside the HTML. So the copy Doxygen reads gets:

- every heading outside code blocks labelled with the anchor a Markdown
  reader gives it ("## Sorted iteration {#sorted-iteration}"; a repeated
  heading gets "-1", "-2", ...), the title heading labelled "guide", so
  that the guide's "#..." links resolve and other pages can refer to it;
- every link to a file of the source tree replaced by its text (which names
  the file); links to sections and to web addresses stay.

Doxygen then reports a link to a section that does not exist as a warning,
which fails the build.
"""
import re
import sys

HEADING = re.compile(r"^(#{1,6})\s+(.*?)\s*#*\s*$")
FENCE = re.compile(r"^\s*(```|~~~)")
LINK = re.compile(r"\[([^\]]+)\]\(([^)\s]+)\)")
KEPT_TARGETS = ("#", "http://", "https://", "mailto:")


def anchor_of(title, seen):
    """The anchor a Markdown reader derives from a heading, made unique."""
    plain = re.sub(r"[`*_]|\[([^\]]*)\]\([^)]*\)", r"\1", title)
    slug = re.sub(r"[^\w\- ]", "", plain.lower()).replace(" ", "-")
    count = seen.get(slug, 0)
    seen[slug] = count + 1
    return slug if count == 0 else f"{slug}-{count}"


def unlink_files(line):
    def replace(match):
        text, target = match.group(1), match.group(2)
        return match.group(0) if target.startswith(KEPT_TARGETS) else text
    return LINK.sub(replace, line)


def page_of(lines):
    out = []
    seen = {}
    fence = None
    titled = False
    for line in lines:
        match = FENCE.match(line)
        if match:
            if fence is None:
                fence = match.group(1)
            elif match.group(1) == fence:
                fence = None
            out.append(line)
            continue
        if fence is not None:
            out.append(line)
            continue
        heading = HEADING.match(line)
        if heading:
            level, title = heading.groups()
            if len(level) == 1 and not titled:
                label = "guide"
                titled = True
            else:
                label = anchor_of(title, seen)
            out.append(f"{level} {unlink_files(title)} {{#{label}}}")
            continue
        out.append(unlink_files(line))
    return out


def main():
    source, target = sys.argv[1], sys.argv[2]
    with open(source, encoding="utf-8") as guide:
        lines = guide.read().splitlines()
    with open(target, "w", encoding="utf-8") as page:
        page.write("\n".join(page_of(lines)) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
