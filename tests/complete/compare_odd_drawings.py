#!/usr/bin/env python3
"""Compares drawings that are made for it with what ezdxf reads in them.

    compare_odd_drawings.py --worker PATH [--seeds N] [--keep FOLDER]

The drawings hold every kind of entity with values that are rarely seen, in every
release, as text and as binary files. Each attribute that compare_geometry.py,
compare_types.py and compare_tables.py look at is compared. Exits with 77 without ezdxf.
"""

import argparse
import contextlib
import logging
import pathlib
import sys
import tempfile

from complete_document import SKIPPED, convert, records_of
from drawing_records import open_with_ezdxf

try:
    import compare_geometry
    import compare_tables
    import compare_types
    from make_odd_drawings import RELEASES, make_all
except ImportError:
    sys.exit(SKIPPED)

# What every release has, and what those from R2000 on have besides.
OLD_TYPES = {"3DFACE", "ARC", "CIRCLE", "DYNTEXT", "INSERT", "LINE", "POINT", "POLYLINE_2D",
             "POLYLINE_3D", "POLYLINE_MESH", "POLYLINE_PFACE", "SOLID", "TEXT", "TRACE", "VIEWPORT",
             "DIMENSION_LINEAR", "DIMENSION_RADIUS", "DIMENSION_DIAMETER", "DIMENSION_ANG2LN",
             "DIMENSION_ANG3PT", "DIMENSION_ORDINATE"}
TYPES = OLD_TYPES | {"DGNUNDERLAY", "DIMENSION_ALIGNED", "DWFUNDERLAY", "ELLIPSE", "HATCH", "HELIX",
                     "IMAGE", "LEADER", "LWPOLYLINE", "MESH", "MLINE", "MPOLYGON", "MTEXT",
                     "MULTILEADER", "PDFUNDERLAY", "RAY", "SHAPE", "SPLINE", "WIPEOUT", "XLINE"}
FEWEST_VALUES = 3000  # of a drawing


def is_known(name, kind, key):
    """ezdxf writes the view of a viewport of R12, and does not read it."""
    return "_R12_" in name and kind == "VIEWPORT" and key in {
        "viewCtrX", "viewCtrY", "viewSize", "scale", "targetX", "targetY", "targetZ", "dirX",
        "dirY", "dirZ", "lens", "twist", "frozenLayers"}


def differences_of(worker, path):
    """([what differs], number of values) of one drawing."""
    name = path.name
    document, drawing = convert(worker, path), open_with_ezdxf(path)
    if document is None or drawing is None:
        return [f"{name}: not read"], 0
    found = [f"{name}: no {kind}" for kind in sorted(
        (OLD_TYPES if "_R12_" in name else TYPES) - {r["type"] for r in records_of(document)})]
    found += [f"{name}: {warning}" for warning in document["warnings"]
              if warning.startswith("Skipped") and "not yet supported" in warning]

    geometry = compare_geometry.Comparison()
    for record in records_of(document):
        entity = drawing.entitydb.get(record.get("handle", "0"))
        if record["type"] in compare_geometry.CHECKS and entity is not None:
            geometry.record(name, entity, record)
    found += [f"{name}: {kind} {key} {one[1]}: {str(one[2])[:200]} instead of {str(one[3])[:200]}"
              for (kind, key), ones in geometry.differences.items() for one in ones
              if not is_known(name, kind, key)] + geometry.errors

    types = compare_types.Checker()
    # The texts that ezdxf draws into the blocks of dimensions follow rules of its own.
    with unlooked(compare_types, "check_drawn_text"):
        found += [f"{name}: {kind}: {text}" for kind, text in
                  compare_types.check_entities(types, document, drawing).items()]

    tables = compare_tables.Comparison()
    drawing.path_of_file, drawing.names = path, compare_tables.names_of(path)
    for check in compare_tables.CHECKS:
        check(drawing, document, tables)
    found += [f"{name}: {what} {key}: {pairs[0][0]!r} there and {pairs[0][1]!r} here"
              for (what, key), pairs in tables.differences.items()]
    return found, geometry.values + types.values + tables.count


@contextlib.contextmanager
def unlooked(module, name):
    original = getattr(module, name)
    setattr(module, name, lambda *_: None)
    try:
        yield
    finally:
        setattr(module, name, original)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--seeds", type=int, default=2, help="drawings of each release")
    parser.add_argument("--keep", type=pathlib.Path, help="a folder for the drawings")
    options = parser.parse_args()
    logging.getLogger("ezdxf").setLevel(logging.CRITICAL)
    failures, values, files = [], 0, 0
    with tempfile.TemporaryDirectory() as folder:
        for path in make_all(options.keep or folder, range(1, options.seeds + 1)):
            found, count = differences_of(options.worker, path)
            failures += found
            values, files = values + count, files + 1
            if count < FEWEST_VALUES and "_R12_" not in path.name:
                failures.append(f"{path.name}: {count} values only")
    for failure in failures:
        print(f"FAILED {failure}")
    print(f"{files} drawings of {len(RELEASES)} releases, {values} values compared, "
          f"{len(failures)} failed")
    return 1 if failures or not values else 0


if __name__ == "__main__":
    sys.exit(main())
