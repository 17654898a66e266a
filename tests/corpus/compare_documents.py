#!/usr/bin/env python3
"""Compares what two workers print for every drawing of some folders.

    compare_documents.py --worker FILE --other FILE FOLDER...

The timings are left out. This is for changes that must not change any document,
such as the performance patches.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys

TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\n$')
DRAWING_SUFFIXES = {".dwg", ".dxf"}


def document(worker, drawing):
    run = subprocess.run([worker, drawing], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                         timeout=600, check=False)
    return run.returncode, TIMINGS.sub(b"", run.stdout)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--other", required=True)
    parser.add_argument("folders", nargs="+", type=pathlib.Path)
    options = parser.parse_args()
    drawings = sorted(path for folder in options.folders for path in folder.rglob("*")
                      if path.suffix.lower() in DRAWING_SUFFIXES)
    if not drawings:
        sys.exit("no drawings there")

    def same(drawing):
        return document(options.worker, drawing) == document(options.other, drawing)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        different = [drawing for drawing, equal in zip(drawings, pool.map(same, drawings))
                     if not equal]
    for drawing in different:
        print(f"DIFFERS {drawing}")
    print(f"{len(drawings)} drawings, {len(different)} with other documents")
    sys.exit(1 if different else 0)


if __name__ == "__main__":
    main()
