#!/usr/bin/env python3
"""Compares dwg_preview's pictures of DWG files with those of the same drawings as DXF.

    compare_dwg_with_dxf.py --preview PATH --worker PATH [--keep FOLDER] [--jobs N] [NAME...]

Both files of a pair lie beside each other and have one name. Their model spaces must
look the same, and a picture that was damaged on purpose must not. Pairs that may differ
are listed in drawings.json, each with its reason; one that does not differ any more
must leave the list.

Pairs are looked for in the repository and in DWG_CORPUS. Exits with 77 where there are
none, or where a Python package is missing and CI is not set.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import sys
import tempfile

from compare_with_ezdxf import (COMMITTED, HERE, WIDTH, check_damages, ink, picture_area,
                                print_distribution, run_preview, share_similar, similarity,
                                unexpected)
from PIL import Image, ImageChops

SIMILAR = 0.98


def pairs():
    """The DWG and the DXF file of every drawing that both exist of, by its name."""
    found = {}
    for folder in (COMMITTED, pathlib.Path(os.environ.get("DWG_CORPUS") or "/nonexistent")):
        for path in folder.rglob("*"):
            kind = path.suffix.lower()
            if kind in (".dwg", ".dxf"):
                name = path.relative_to(folder).with_suffix("").as_posix().lower()
                found.setdefault(name, {})[kind] = path
    return {name: (both[".dwg"], both[".dxf"]) for name, both in found.items() if len(both) == 2}


def model_area(options, drawing):
    """The area of model space that a picture shows."""
    return picture_area(json.loads(run_preview(options, drawing, "--list"))[0]["extents"])


def picture(options, drawing, area):
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "picture.png")
        run_preview(options, drawing, "--png", file, "--width", str(WIDTH), "--monochrome",
                    "--no-lineweights", "--region=" + ",".join(map(repr, area)))
        with Image.open(file) as image:
            return image.convert("L")


def keep(options, name, images):
    if options.keep:
        stem = os.path.join(options.keep, name.replace("/", "_"))
        for kind, image in zip(("dwg", "dxf"), images):
            image.save(f"{stem}.{kind}.png")
        ImageChops.difference(*images).save(f"{stem}.difference.png")


def check(options, name, files):
    """The likeness of one pair and what is wrong with it; None for files that are no
    drawings."""
    try:
        area = model_area(options, files[1])
        images = [picture(options, file, area) for file in files]
    except RuntimeError as error:
        print(f"skip  {name}: {str(error).strip()[:200]!r}", flush=True)
        return None
    keep(options, name, images)
    one, other = map(ink, images)
    if not one.any() and not other.any():
        print(f"skip  {name}: nothing to be seen", flush=True)
        return None
    likeness = similarity(one, other)
    problems = []
    if not likeness >= SIMILAR:
        problems.append(f"{name}: the pictures are not similar ({likeness:.3f})")
    print(f"{'differs' if problems else 'ok     '} {name}: similarity {likeness:.3f}", flush=True)
    return name, likeness, problems or check_damages(name, one, other, SIMILAR)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--preview", required=True)
    parser.add_argument("--worker", required=True)
    parser.add_argument("--keep", help="folder for the pictures")
    parser.add_argument("--jobs", type=int, default=2, help="drawings at a time")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    at_hand = pairs()
    names = sorted(options.names or at_hand)
    if not names:
        print("skip  no drawing is there as DWG and as DXF, and DWG_CORPUS is not set")
        return 77
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        checked = pool.map(lambda name: check(options, name, at_hand[name]), names)
        results = [result for result in checked if result]
    exceptions = {case["drawing"]
                  for case in json.loads((HERE / "drawings.json").read_text())["pairs"]}
    problems = unexpected(results, exceptions)
    print("\n".join(problems))
    print_distribution(results)
    print(f"{len(results)} pairs compared, {len(names) - len(results)} skipped, "
          f"{share_similar(results, SIMILAR):.1%} similar, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
