#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Runs the printer subjects under gdb in batch mode and compares each
printed section with the expected text.

Usage:
  run_printer_test.py --gdb GDB --program PROG --commands FILE --expected FILE
      [--safe-path DIR] [--source SCRIPT] [--set NAME=VALUE]...
      [--emulator "qemu-arm -L ROOT"] [--sysroot DIR] [--solib-search-path DIRS]
      [--timeout SECONDS]

On the host gdb starts the program itself; with --emulator the program runs
under the emulator's gdb stub (qemu-arm -g PORT) on a free port and gdb
connects to it. With --source the printers are loaded by sourcing that
script and gdb's own auto-loading of Python scripts is off; without it they
must come from the library's auto-load script (--safe-path names where gdb
may load it from).

In the expected text, addresses (0x...) match any address, "$N = " any
value history number, and @NAME@ is
replaced by the value given with --set. A section whose expected text is
"<any>" may print anything except an error. Every section must be present,
and nothing may show a Python exception or a gdb error. Exits 0 when all
match, 1 with a diff per differing section, 2 when gdb or the emulator could
not be run.
"""
import argparse
import difflib
import os
import re
import shlex
import socket
import subprocess
import sys
import time

SECTION = re.compile(r"^==== (.*)$")
ADDRESS = re.compile(r"0x[0-9a-f]+")
HISTORY_NUMBER = re.compile(r"^\$\d+ = ", re.MULTILINE)
FAILURE_SIGNS = ("Python Exception", "Traceback", "<error:", "Cannot access memory",
               "gdb.MemoryError", "Error occurred in Python", "_vptr")


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--gdb", required=True)
    parser.add_argument("--program", required=True)
    parser.add_argument("--commands", required=True)
    parser.add_argument("--expected", required=True)
    parser.add_argument("--safe-path", default="")
    parser.add_argument("--source", default="")
    parser.add_argument("--set", action="append", default=[], metavar="NAME=VALUE")
    parser.add_argument("--emulator", default="")
    parser.add_argument("--sysroot", default="")
    parser.add_argument("--solib-search-path", default="")
    parser.add_argument("--timeout", type=float, default=180)
    return parser.parse_args()


def sections(text):
    """{name: text} of the "==== name" sections of gdb's output or of the
    expected file, in order."""
    found, name, lines = {}, None, []
    for line in text.splitlines():
        match = SECTION.match(line)
        if match:
            if name is not None:
                found[name] = "\n".join(lines).strip("\n")
            name, lines = match.group(1), []
        elif name is not None:
            lines.append(line.rstrip())
    if name is not None:
        found[name] = "\n".join(lines).strip("\n")
    return found


def normalise(text):
    """`text` with every address as 0x... and value history numbers as $N."""
    return HISTORY_NUMBER.sub("$N = ", ADDRESS.sub("0x...", text))


def free_port():
    """A TCP port that nothing listens on right now."""
    with socket.socket(socket.AF_INET, socket.SOCK_STREAM) as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def gdb_command(args, port):
    """The gdb command line: load the printers, reach inspectHere(), go up to
    main's frame, run the commands."""
    command = [args.gdb, "-batch", "-nx"]
    if args.safe_path:
        command += ["-iex", "set auto-load safe-path " + args.safe_path]
    if args.source:
        command += ["-iex", "set auto-load python-scripts off"]
    if args.sysroot:
        command += ["-iex", "set sysroot " + args.sysroot]
    if args.solib_search_path:
        command += ["-iex", "set solib-search-path " + args.solib_search_path]
    command += ["-ex", "set pagination off", "-ex", "set confirm off"]
    if args.source:
        command += ["-ex", "source " + args.source]
    if port is None:
        command += ["-ex", "break inspectHere", "-ex", "run"]
    else:
        command += ["-ex", "set tcp connect-timeout 20",
                    "-ex", "target remote 127.0.0.1:%d" % port,
                    "-ex", "break inspectHere", "-ex", "continue"]
    command += ["-ex", "up", "-x", args.commands, "-ex", "kill", args.program]
    return command


def run_gdb(args):
    """gdb's output (stdout and stderr), the program started by gdb or under
    the emulator's stub. Never waits longer than --timeout."""
    if not args.emulator:
        result = subprocess.run(gdb_command(args, None), stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, timeout=args.timeout)
        return result.stdout
    last_error = ""
    for _ in range(5):  # another process may take the port in between
        port = free_port()
        emulator = subprocess.Popen(shlex.split(args.emulator) + ["-g", str(port), args.program],
                                    stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        try:
            time.sleep(0.2)
            if emulator.poll() is not None:  # could not listen there
                last_error = emulator.stdout.read()
                continue
            result = subprocess.run(gdb_command(args, port), stdout=subprocess.PIPE,
                                    stderr=subprocess.STDOUT, text=True, timeout=args.timeout)
            if "Connection refused" in result.stdout or "Connection timed out" in result.stdout:
                last_error = result.stdout
                continue
            return result.stdout
        finally:
            if emulator.poll() is None:
                emulator.terminate()
                try:
                    emulator.wait(timeout=10)
                except subprocess.TimeoutExpired:
                    emulator.kill()
                    emulator.wait()
    raise RuntimeError("could not connect gdb to the emulator:\n" + last_error)


def main():
    args = parse_arguments()
    with open(args.expected, encoding="utf-8") as file:
        expected_text = file.read()
    for setting in args.set:
        name, _, value = setting.partition("=")
        expected_text = expected_text.replace("@%s@" % name, value)
    for path in (args.program, args.commands, args.source):
        if path and not os.path.isfile(path):
            print("run_printer_test: no file %s" % path, file=sys.stderr)
            return 2
    try:
        output = run_gdb(args)
    except (OSError, RuntimeError, subprocess.TimeoutExpired) as error:
        print("run_printer_test: %s" % error, file=sys.stderr)
        return 2
    expected = sections(expected_text)
    printed = sections(output)
    problems = []
    if "ma_common_gdb was not found" in output:
        problems.append("the auto-load script did not find the printers")
    for name, text in expected.items():
        if name not in printed:
            problems.append("section '%s' was not printed" % name)
            continue
        shown = normalise(printed[name])
        for sign in FAILURE_SIGNS:
            if sign in shown:
                problems.append("section '%s' shows a failure (%s):\n%s" % (name, sign, shown))
        if text == "<any>" or normalise(text) == shown:
            continue
        diff = difflib.unified_diff(normalise(text).splitlines(), shown.splitlines(),
                                    "expected", "printed", lineterm="")
        problems.append("section '%s' differs:\n%s" % (name, "\n".join(diff)))
    if problems:
        print("\n\n".join(problems))
        print("\n---- gdb's whole output ----\n" + output)
        return 1
    print("%d sections as expected" % len(expected))
    return 0


if __name__ == "__main__":
    sys.exit(main())
