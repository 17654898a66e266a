#!/usr/bin/env python3
"""Checks the dump of hatch boundaries on standard error, line by line.

The expected lines are written out here from the drawing's own group codes; the
document must be the same bytes with and without the dump.
"""

import argparse
import os
import pathlib
import re
import shlex
import subprocess
import sys

DRAWINGS = pathlib.Path(__file__).resolve().parents[2] / "drawings"
DRAWING = "own/hatch_dump.dxf"
TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}')

# The second hatch of the drawing has no paths and is not dumped.
DUMP = """\
[hatch-debug] HATCH num_paths=3 solid=1 extrusion=(0,0,1)
  path 0: flag=0x2 n=3 closed=1 bulges=1
    v00 (0.000000, 0.000000) bulge=0.5
    v01 (4.000000, 0.000000) bulge=0
    v02 (4.000000, 3.000000) bulge=-1.25
  path 1: flag=0x3 n=3 closed=1 bulges=0
    v00 (0.000000, 0.000000) bulge=0
    v01 (1.000000, 0.000000) bulge=0
    v02 (1.000000, 1.500000) bulge=0
  path 2: flag=0x11 n=5 closed=0 bulges=0
    seg00 LINE (0.000000,0.000000)->(4.000000,0.000000)
    seg01 ARC c=(4.000000,1.500000) r=1.500000 a0=4.712389 a1=1.570796 ccw=1
    seg02 ARC c=(0.000000,1.500000) r=1.500000 a0=1.570796 a1=4.712389 ccw=0
    seg03 type=3
    seg04 type=4
[hatch-debug] HATCH num_paths=1 solid=0 extrusion=(0,0,1)
  path 0: flag=0x2 n=2 closed=0 bulges=0
    v00 (1234567.250000, -0.500000) bulge=0
    v01 (1.000000, 0.000000) bulge=0
"""

# The variable's value, None for unset, and whether it turns the dump on.
CASES = [(None, False), ("", False), ("0", False), ("0yes", False), ("00", False),
         ("1", True), ("yes", True), (" ", True), ("-0", True), ("false", True)]


def run(command, value):
    environment = {k: v for k, v in os.environ.items() if k != "KVT_DWG_HATCH_DEBUG"}
    if value is not None:
        environment["KVT_DWG_HATCH_DEBUG"] = value
    done = subprocess.run(command, cwd=DRAWINGS, capture_output=True, env=environment,
                          timeout=600, check=True)
    lines = done.stderr.decode().replace("\r\n", "\n").splitlines(keepends=True)
    dump = "".join(line for line in lines if not line.startswith("[DWG worker] "))
    return dump, TIMINGS.sub(b"", done.stdout)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path)
    parser.add_argument("--launcher", default="", help="command that runs the worker, as in wine")
    options = parser.parse_args()
    command = [*shlex.split(options.launcher), str(options.worker.resolve()), DRAWING]

    _, plain_document = run(command, None)
    failed = 0
    for value, is_on in CASES:
        dump, document = run(command, value)
        if dump != (DUMP if is_on else ""):
            failed += 1
            print(f"FAILED with {value!r}: standard error holds\n{dump}")
        if document != plain_document:
            failed += 1
            print(f"FAILED with {value!r}: the document differs")
    print(f"{len(CASES)} values, {failed} failures")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
