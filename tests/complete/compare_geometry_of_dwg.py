#!/usr/bin/env python3
"""Compares complete records of drawings that were saved both as DWG and as DXF.

The two formats are read by different code from different bytes. Records of the same
handle have to say the same about geometry; numbers agree within 1e-9 of the largest of
their key. Differences that have a reason are listed in KNOWN. Exits with 77 without a
folder of drawings.
"""

import argparse
import collections
import os
import pathlib
import sys

from compare_geometry import CHECKS
from complete_document import SKIPPED, TOLERANCE, convert, records_of

TYPES = {*CHECKS, "WIPEOUT"}

# Told elsewhere, or not of geometry.
OTHER_KEYS = {"color", "lw", "owner", "drawOrder", "text", "attributes"}

ONE_KIND = "a DWG stores fit points or control points, a DXF both"
BOX = "LibreDWG misreads what follows the points of a leader in a DWG of 2010 and later"
OTHER = "the DXF file itself differs"

# (pair, or "*", type, key): why the two differ.
KNOWN = {
    ("*", "SPLINE", "controlPoints"): ONE_KIND,
    ("*", "SPLINE", "knots"): ONE_KIND,
    ("libredwg/2010/Leader", "LEADER", "arrowOn"): BOX,
    ("*", "LEADER", "hookLine"): BOX,
    ("*", "LEADER", "textHeight"): BOX,
    ("*", "LEADER", "textWidth"): BOX,
    ("libredwg/2018/Leader", "LEADER", "layer"): OTHER,
    ("libredwg/2010/Leader", "LEADER", "points"): OTHER,
    ("libredwg/example_r13", "INSERT", "blockName"): OTHER,
}


def pairs_in(folder):
    for dxf in sorted(folder.rglob("*.dxf")):
        for suffix in (".dwg", ".DWG"):
            if dxf.with_suffix(suffix).is_file():
                yield dxf.with_suffix("").relative_to(folder).as_posix(), dxf.with_suffix(suffix), dxf


def records(document):
    return {(record["type"], record["handle"]): record for record in records_of(document)
            if record["type"] in TYPES and "handle" in record}


def numbers(value):
    if isinstance(value, dict):
        return [n for item in value.values() for n in numbers(item)]
    if isinstance(value, list):
        return [n for item in value for n in numbers(item)]
    return [value] if isinstance(value, (int, float)) and not isinstance(value, bool) else []


def agree(a, b, size):
    if isinstance(a, dict) and isinstance(b, dict):
        return a.keys() == b.keys() and all(agree(a[key], b[key], size) for key in a)
    if isinstance(a, list) and isinstance(b, list):
        return len(a) == len(b) and all(agree(x, y, size) for x, y in zip(a, b))
    if isinstance(a, (int, float)) and isinstance(b, (int, float)):
        return abs(a - b) <= TOLERANCE * size
    return a == b


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--show", type=int, default=2, help="differences shown of each kind")
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED
    values = count = pairs = 0
    differences = collections.defaultdict(list)
    for name, dwg, dxf in pairs_in(options.drawings):
        documents = [convert(options.worker, path) for path in (dwg, dxf)]
        if None in documents or name.startswith("bad/"):
            continue
        pairs += 1
        of_dwg, of_dxf = map(records, documents)
        for identity in of_dwg.keys() & of_dxf.keys():
            a, b = of_dwg[identity], of_dxf[identity]
            count += 1
            for key in (a.keys() | b.keys()) - OTHER_KEYS:
                values += 1
                size = max([abs(n) for n in numbers(a.get(key)) + numbers(b.get(key))] + [1])
                if not agree(a.get(key), b.get(key), size) and not any(
                        known in KNOWN for known in ((name, identity[0], key),
                                                     ("*", identity[0], key))):
                    differences[identity[0], key].append((name, identity[1], a.get(key), b.get(key)))
    for (kind, key), found in sorted(differences.items()):
        print(f"FAILED {kind} {key}: {len(found)} in {len({one[0] for one in found})} pairs")
        for name, handle, a, b in sorted(found, key=lambda one: one[:2])[:options.show]:
            print(f"    {name} {handle}: DWG {str(a)[:300]}, DXF {str(b)[:300]}")
    print(f"{values} values of {count} records in {pairs} pairs compared, "
          f"{sum(map(len, differences.values()))} differ")
    return 1 if differences or not values else 0


if __name__ == "__main__":
    sys.exit(main())
