#!/usr/bin/env python3
"""Compares what two workers print for every drawing of some folders.

    compare_documents.py --worker FILE --other FILE [--mutated COUNT] FOLDER...

The timings are left out. This is for changes that must not change any document,
such as the performance patches. With --mutated, as many text DXF files are
compared as well that are made from those of the folders by small random changes,
the same in every run (mutated_dxf.py).
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from mutated_dxf import is_text_dxf, write_mutated

TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\n$')
DRAWING_SUFFIXES = {".dwg", ".dxf"}


def document(worker, drawing):
    run = subprocess.run([worker, drawing], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                         timeout=600, check=False)
    return run.returncode, TIMINGS.sub(b"", run.stdout)


def differing(options, drawings):
    def same(drawing):
        return document(options.worker, drawing) == document(options.other, drawing)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [drawing for drawing, equal in zip(drawings, pool.map(same, drawings)) if not equal]


def differing_mutated(options, originals):
    different = []
    with tempfile.TemporaryDirectory() as name:
        for drawing in differing(options, list(write_mutated(originals, options.mutated,
                                                             pathlib.Path(name)))):
            different.append(drawing.name)
            if options.keep:
                options.keep.mkdir(parents=True, exist_ok=True)
                (options.keep / drawing.name).write_bytes(drawing.read_bytes())
    return different


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--other", required=True)
    parser.add_argument("folders", nargs="+", type=pathlib.Path)
    parser.add_argument("--mutated", type=int, default=0, metavar="COUNT")
    parser.add_argument("--keep", type=pathlib.Path, metavar="FOLDER",
                        help="where changed files go that differ")
    options = parser.parse_args()
    drawings = sorted(path for folder in options.folders for path in folder.rglob("*")
                      if path.suffix.lower() in DRAWING_SUFFIXES)
    if not drawings:
        sys.exit("no drawings there")

    count = len(drawings)
    different = differing(options, drawings)
    if options.mutated:
        count += options.mutated
        different += differing_mutated(options, [path for path in drawings if is_text_dxf(path)])
    for drawing in different:
        print(f"DIFFERS {drawing}")
    print(f"{count} drawings, {len(different)} with other documents")
    sys.exit(1 if different else 0)


if __name__ == "__main__":
    main()
