#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors

"""Checks the links of the API reference's HTML pages.

Usage: check_html_links.py HTML_FOLDER [PAGE...]

Every local link (href) of every *.html page of HTML_FOLDER must name a
file of HTML_FOLDER, and its "#anchor", if any, an element id of that file.
Web addresses are not followed. Each PAGE named (such as guide.html) must
be there. Exits 1, naming each broken link and each missing PAGE.
"""
import html
import pathlib
import re
import sys

HREF = re.compile(r'href="([^"]*)"')
ID = re.compile(r'\sid="([^"]*)"')


def ids_of(path, cache):
    if path not in cache:
        cache[path] = set(ID.findall(path.read_text(encoding="utf-8")))
    return cache[path]


def main():
    folder = pathlib.Path(sys.argv[1])
    problems = []
    cache = {}
    checked = 0
    pages = sorted(path.name for path in folder.glob("*.html"))
    problems += [f"{name}: no such page" for name in sys.argv[2:] if name not in pages]
    for name in pages:
        page = folder / name
        for href in HREF.findall(page.read_text(encoding="utf-8")):
            href = html.unescape(href)
            if re.match(r"^[a-z]+:", href):
                continue  # web address, mail, javascript
            target, _, anchor = href.partition("#")
            path = folder / target if target else page
            checked += 1
            if not path.is_file():
                problems.append(f"{name}: link {href!r}: no file {target}")
            elif anchor and anchor not in ids_of(path, cache):
                problems.append(f"{name}: link {href!r}: no anchor {anchor} in {path.name}")
    for problem in problems:
        print(problem)
    if problems:
        return 1
    print(f"{checked} links of {len(pages)} pages resolve")
    return 0


if __name__ == "__main__":
    sys.exit(main())
