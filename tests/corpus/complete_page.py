#!/usr/bin/env python3
"""Writes a page that shows, for each drawing below a folder, which entities the plain
document skips and what the complete one has instead.

    complete_page.py --worker PATH --page FILE [--drawings FOLDER]

The folder is DWG_CORPUS when it is not given. Exits with 1 when a drawing's complete
document leaves out a type that is not among those which docs/document-complete.md
explains, and with 77 without a folder.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

SKIPPED = 77
TIMEOUT_SECONDS = 600
LEFT_OUT = re.compile(r"Skipped (\d+) (\S+) entit(?:y|ies) \(not yet supported\)")
# Types whose entities may go without a record, as the page about the document says:
# those without stored graphics, and those that are not drawn.
NOT_DRAWN = {"CAMERA", "LOAD", "JUMP"}
DRAWN_BY_THE_LIBRARY = {"VERTEX_PFACE", "VERTEX_PFACE_FACE"}  # strays of damaged drawings


def convert(worker, path, options=()):
    try:
        run = subprocess.run([worker, str(path), *options], capture_output=True, check=False,
                             timeout=TIMEOUT_SECONDS)
        document = json.loads(run.stdout.decode("utf-8", "replace"))
    except (subprocess.TimeoutExpired, ValueError):
        return None
    return document if "entities" in document else None


def left_out(document):
    found = collections.Counter()
    for warning in document["warnings"]:
        match = LEFT_OUT.fullmatch(warning)
        if match:
            found[match[2]] += int(match[1])
    return found


def records_of(document):
    yield from document["entities"]
    for part in document["assets"] + document["layouts"]:
        yield from part["entities"]


def count_types(document):
    return collections.Counter(record["type"] for record in records_of(document))


def classes_without_graphics(complete, plain):
    """What the plain form calls unknown or a proxy, by the class' name."""
    return {kind for kind in left_out(complete) if kind not in left_out(plain)}


def row_of(worker, path):
    """What is skipped, what is there instead, what is left out still, and of that what
    nothing explains; None when either document is missing."""
    plain = convert(worker, path)
    complete = convert(worker, path, ["--complete"])
    if plain is None or complete is None:
        return None
    still = left_out(complete)
    explained = NOT_DRAWN | DRAWN_BY_THE_LIBRARY | classes_without_graphics(complete, plain)
    gained = count_types(complete) - count_types(plain)
    return left_out(plain), gained, still, set(still) - explained


def listed(counts):
    return ", ".join(f"{count} {kind}" for kind, count in sorted(counts.items())) or "nothing"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--worker", required=True)
    parser.add_argument("--page", required=True, type=pathlib.Path)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") and pathlib.Path(os.environ["DWG_CORPUS"]))
    options = parser.parse_args()
    if options.drawings is None or not options.drawings.is_dir():
        print("skipped: needs a folder of drawings (DWG_CORPUS)")
        return SKIPPED
    paths = [path for path in sorted(options.drawings.rglob("*"))
             if path.suffix.lower() in (".dwg", ".dxf")]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        rows = list(pool.map(lambda path: row_of(options.worker, path), paths))
    lines = ["# What the complete document has beyond the plain one", "",
             "| drawing | the plain form skips | the complete form has besides | and leaves out |",
             "|---|---|---|---|"]
    totals, failures = [collections.Counter() for _ in range(3)], []
    for path, row in zip(paths, rows):
        if row is None:
            continue
        name = path.relative_to(options.drawings).as_posix()
        skipped, gained, still, unexplained = row
        for total, counts in zip(totals, (skipped, gained, still)):
            total.update(counts)
        if skipped or still:
            lines.append(f"| {name} | {listed(skipped)} | {listed(gained)} | {listed(still)} |")
        failures += [f"{name}: {kind}" for kind in sorted(unexplained)]
    lines += ["", f"All: the plain form skips {listed(totals[0])}; the complete form has besides "
                  f"{listed(totals[1])}, and leaves out {listed(totals[2])}."]
    options.page.write_text("\n".join(lines) + "\n", encoding="utf-8")
    read = sum(row is not None for row in rows)
    print(f"{read} drawings: {sum(totals[0].values())} entities skipped by the plain form, "
          f"{sum(totals[2].values())} by the complete form")
    for failure in failures:
        print(f"FAILED {failure} is neither a record nor explained")
    return 1 if failures or not read else 0


if __name__ == "__main__":
    sys.exit(main())
