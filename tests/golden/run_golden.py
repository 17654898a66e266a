#!/usr/bin/env python3
"""Compares what the real program prints with the golden documents.

Each folder beside this file that holds a cases.json is one group of cases. A
case names a drawing below tests/drawings (or none), further arguments, the
expected exit status and, in expected/NAME.json, the bytes of standard output
with the numbers of `timings` set to 0. The program runs in tests/drawings, so
that paths in its output are the same everywhere.

With DWG_GOLDEN_REFRESH=1 in the environment a differing document is rewritten,
and the run still fails: a refreshed document has to be looked at.
"""

import argparse
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
DRAWINGS = HERE.parent / "drawings"
TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\n$')
NUMBER = re.compile(rb":\d+")
CONTEXT = 80
# Only a hang reaches it.
TIMEOUT_SECONDS = 600


def masked(output):
    """The output with every timing set to 0."""
    match = TIMINGS.search(output)
    if not match:
        return output
    return output[: match.start()] + NUMBER.sub(b":0", match.group())


def first_difference(expected, actual):
    """The surroundings of the first differing byte, for people."""
    position = next(
        (i for i, (a, b) in enumerate(zip(expected, actual)) if a != b),
        min(len(expected), len(actual)),
    )
    start = max(0, position - CONTEXT)
    return (
        f"    first difference at byte {position}\n"
        f"    expected ...{expected[start:position + CONTEXT]!r}\n"
        f"    actual   ...{actual[start:position + CONTEXT]!r}"
    )


def run_case(launcher, worker, group, case, refresh):
    """An empty text when the case holds, else what is wrong with it."""
    command = [*launcher, worker]
    if case.get("drawing"):
        command.append(case["drawing"])
    command += case.get("args", [])
    environment = {**os.environ, **case.get("env", {})}
    run = subprocess.run(command, cwd=DRAWINGS, capture_output=True, env=environment,
                         timeout=TIMEOUT_SECONDS, check=False)
    problems = []
    if run.returncode != case.get("exit", 0):
        problems.append(f"    exit status {run.returncode}, expected {case.get('exit', 0)}")
    actual = masked(run.stdout)
    path = group / "expected" / (case["name"] + ".json")
    # Where a document holds a path that the program joined itself.
    windows_path = path.with_suffix(".windows.json")
    if worker.endswith(".exe") and windows_path.exists():
        path = windows_path
    expected = path.read_bytes() if path.exists() else b""
    if actual != expected:
        problems.append(first_difference(expected, actual))
        if refresh:
            path.parent.mkdir(exist_ok=True)
            path.write_bytes(actual)
            problems.append("    rewritten; look at the change before you commit it")
    for line in case.get("stderr", []):
        if line.encode() not in run.stderr.replace(b"\r\n", b"\n"):
            problems.append(f"    standard error lacks {line!r}")
    return "\n".join(problems)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path)
    parser.add_argument("--launcher", default="", help="command that runs the worker, as in wine")
    parser.add_argument("--only", help="run only the cases whose name contains this text")
    options = parser.parse_args()

    refresh = os.environ.get("DWG_GOLDEN_REFRESH") == "1"
    launcher = shlex.split(options.launcher)
    worker = str(options.worker.resolve())
    passed = failed = 0
    for cases in sorted(HERE.glob("*/cases.json")):
        for case in json.loads(cases.read_text(encoding="utf-8")):
            if options.only and options.only not in case["name"]:
                continue
            problems = run_case(launcher, worker, cases.parent, case, refresh)
            if problems:
                failed += 1
                print(f"FAILED {cases.parent.name}/{case['name']}\n{problems}")
            else:
                passed += 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
