#!/usr/bin/env python3
"""Compares documents of R11 and R12 drawings with what a small reader finds in them.

The reader below walks the entities of such a DWG by their lengths and looks up
layers and blocks in the tables: how many entities there are of each type, on which
layer, in which space, and which blocks are inserted where. The drawings that
DWG_CORPUS names are read too.
"""

import argparse
import collections
import json
import os
import pathlib
import struct
import subprocess
import sys
import tempfile

DRAWINGS = pathlib.Path(__file__).resolve().parents[1] / "drawings"
KINDS = {1: "LINE", 2: "POINT", 3: "CIRCLE", 7: "TEXT", 8: "ARC", 11: "SOLID", 14: "INSERT", 21: "LINE"}
ERASED = 128
HAS_COLOR, HAS_LTYPE, HAS_ELEVATION, HAS_THICKNESS, HAS_HANDLE, HAS_EXTRA = 1, 2, 4, 8, 32, 64
WITHOUT_ELEVATION = {1, 2, 21, 22}  # lines, points and faces have three coordinates
EXTRA_DATA, EXTRA_VIEWPORT = 2, 4  # an entity of paper space names a viewport


def text(data, start, length):
    return data[start:start + length].split(b"\0")[0].decode("cp1252")


def table(data, number):
    """The names of a table: blocks are the first, layers the second."""
    size, count, _, start = struct.unpack_from("<HhHI", data, 0x2C + 10 * number)
    return [text(data, start + i * size + 1, 32) for i in range(count)]


def behind_data(data, start, flags, extra):
    """Where the extended data of an entity ends."""
    at = start + 8 + (1 if flags & HAS_EXTRA else 0)
    return at + 2 + struct.unpack_from("<H", data, at)[0] if extra & EXTRA_DATA else at


def viewport_of(data, start, flags, extra):
    """Where the number of the viewport stands, behind all other common fields."""
    at = behind_data(data, start, flags, extra)
    at += (1 if flags & HAS_COLOR else 0) + (2 if flags & HAS_LTYPE else 0)
    if flags & HAS_ELEVATION and data[start] not in WITHOUT_ELEVATION:
        at += 8
    at += 8 if flags & HAS_THICKNESS else 0
    return at + 1 + data[at] if flags & HAS_HANDLE else at


def insert_of(data, start, flags, extra):
    """Block number and insertion point behind the common fields."""
    at = viewport_of(data, start, flags, extra) + (2 if extra & EXTRA_VIEWPORT else 0)
    return struct.unpack_from("<H2d", data, at)


def entities(data, start, end):
    """Kind, whether it stands in paper space, type, layer, block and point of an INSERT."""
    blocks, layers = table(data, 0), table(data, 1)
    while start < end:
        kind, flags, size, layer = struct.unpack_from("<BBHH", data, start)
        extra = data[start + 8] if flags & HAS_EXTRA else 0
        name = KINDS.get(kind & ~ERASED)
        if name == "INSERT":
            block, x, y = insert_of(data, start, flags, extra)
            yield kind, bool(extra & EXTRA_VIEWPORT), name, layers[layer], blocks[block], x, y
        elif name:
            yield kind, bool(extra & EXTRA_VIEWPORT), name, layers[layer]
        if size == 0:
            raise ValueError(f"an entity without length at {start}")
        start += size


def in_file(path):
    """How many entities of each kind there are, and how many erased ones."""
    data = path.read_bytes()
    start, end, block_start, block_size = struct.unpack_from("<4I", data, 0x14)
    found, erased = collections.Counter(), collections.Counter()
    for kind, paper, *rest in entities(data, start, end):
        counter = erased if kind & ERASED else found
        counter["sheet" if paper else "model", *rest] += 1
    for kind, _, *rest in entities(data, block_start, block_start + (block_size & 0xFFFFFF)):
        counter = erased if kind & ERASED else found
        counter["block", *rest] += 1
    return rounded(found), rounded(erased)


def in_document(worker, path):
    run = subprocess.run([worker, str(path)], capture_output=True, check=True)
    document = json.loads(run.stdout.decode("utf-8", "surrogateescape"))
    places = [("model", document["entities"])]
    places += [("block", asset["entities"]) for asset in document["assets"]]
    places += [("sheet", layout["entities"]) for layout in document["layouts"]]
    found = collections.Counter()
    for place, records in places:
        for record in records:
            if record["type"] == "INSERT":
                found[place, "INSERT", record["layer"], record["blockName"], record["x"],
                      record["y"]] += 1
            elif record["type"] in KINDS.values():
                found[place, record["type"], record["layer"]] += 1
    return rounded(found)


def rounded(found):
    return collections.Counter(
        {tuple(float(f"{part:.10g}") if isinstance(part, float) else float(part)
               if isinstance(part, int) else part for part in key): count
         for key, count in found.items()})


def into_model_space(data, start, flags):
    """Takes its viewport from an entity with extended data, which gets two bytes more."""
    extra = EXTRA_DATA | EXTRA_VIEWPORT
    end, viewport = behind_data(data, start, flags, extra), viewport_of(data, start, flags, extra)
    data[start + 8] = EXTRA_DATA
    struct.pack_into("<H", data, start + 9, struct.unpack_from("<H", data, start + 9)[0] + 2)
    data[end:viewport + 2] = b"\x02\x00" + data[end:viewport]  # an opening brace


def with_model_space(path, copy):
    """A copy whose entities with extended data stand in model space, not on the sheet."""
    data = bytearray(path.read_bytes())
    start, end = struct.unpack_from("<2I", data, 0x14)
    while start < end:
        _, flags, size = struct.unpack_from("<BBH", data, start)
        if flags & HAS_EXTRA and data[start + 8] == EXTRA_DATA | EXTRA_VIEWPORT:
            into_model_space(data, start, flags)
        start += size
    copy.write_bytes(data)


def differences(worker, path):
    """What the document lacks or has too much; erased entities may be in it."""
    (theirs, erased), ours = in_file(path), in_document(worker, path)
    missing, unexpected = theirs - ours, ours - theirs - erased
    if not theirs:
        return "nothing found"
    return f"missing {missing}, unexpected {unexpected}" if missing or unexpected else ""


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    options = parser.parse_args()
    folders = [DRAWINGS, *map(pathlib.Path, filter(None, [os.environ.get("DWG_CORPUS")]))]
    drawings = [path for folder in folders for path in sorted(folder.rglob("*"))
                if path.suffix.lower() == ".dwg" and path.is_file() and "bad" not in path.parts
                and path.read_bytes()[:6] == b"AC1009"]
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder, "model_and_sheet.dwg")
        with_model_space(DRAWINGS / "libredwg" / "r11" / "ACEB10.dwg", copy)
        drawings.append(copy)
        results = {path: differences(options.worker, path) for path in drawings}
    failed = {path: difference for path, difference in results.items() if difference}
    for path, difference in failed.items():
        print(f"FAILED {path}: {difference}")
    print(f"{len(results) - len(failed)} passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
