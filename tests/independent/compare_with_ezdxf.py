#!/usr/bin/env python3
"""Compares the worker's documents of DXF files with what ezdxf reads in them.

Both have to see the same layers (name, off, locked, colour) and the same number
of lines, circles and arcs in model space. Files that differ for a known reason
are listed in known_differences.txt beside this file; any other difference fails
the run, and so does a listed one that no longer shows. Exits with 77 without a
folder of drawings or without ezdxf.
"""

import argparse
import collections
import colorsys
import json
import logging
import os
import pathlib
import re
import subprocess
import sys

import drawing_records as records

try:
    import ezdxf
    from ezdxf.lldxf.tagger import binary_tags_loader
except ImportError:
    ezdxf = None

HERE = pathlib.Path(__file__).resolve().parent
SKIPPED = 77
FEWEST_FILES = 40
CURVES = ("LINE", "CIRCLE", "ARC")
UNICODE_CODE = re.compile(r"\\U\+([0-9A-Fa-f]{4})")
BASIC = [(0, 0, 0), (255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255),
         (255, 0, 255), (0, 0, 0), (65, 65, 65), (128, 128, 128)]
RAMP = {250: 51, 251: 102, 252: 153, 253: 204, 254: 255, 255: 0}
SHADES = [(1.0, 1.0), (0.8, 1.0), (0.6, 1.0), (0.4, 1.0), (0.2, 1.0), (1.0, 0.75), (1.0, 0.5),
          (1.0, 0.25), (0.0, 0.75), (0.0, 0.5)]


def layer_rgb(index):
    """What a layer of this colour index is shown in; index 7 is black."""
    if index < 10:
        return BASIC[index]
    if index >= 250:
        return (RAMP[index],) * 3
    hue, shade = divmod(index - 10, 10)
    saturation, value = SHADES[shade]
    return tuple(int(channel * 255) for channel in colorsys.hsv_to_rgb(hue / 24, saturation, value))


def tags_of_file(path, drawing):
    data = path.read_bytes()
    if data.startswith(b"AutoCAD Binary DXF"):
        return list(binary_tags_loader(data))
    encoding = "utf-8" if drawing.dxfversion >= "AC1021" else drawing.encoding
    lines = [line.strip() for line in data.decode(encoding, "replace").split("\n")]
    return [(int(code), value) for code, value in zip(lines[::2], lines[1::2]) if code.isdigit()]


def layers_in_table(tags):
    """The names of the file's own layers; ezdxf adds what it needs."""
    names, in_kind = set(), False
    for code, value in tags:
        if code == 0:
            in_kind = value == "LAYER"
        elif code == 2 and in_kind:
            names.add(value.lower())
    return names


def layers_of_entities(tags):
    """The names of the layers that the file's entities lie on, as first written."""
    names, section, is_begun = {}, None, False
    for code, value in tags:
        if is_begun and code == 2:
            section = value
        elif code == 8 and section in ("BLOCKS", "ENTITIES") and value:
            names.setdefault(value.lower(), value)
        is_begun = code == 0 and value == "SECTION"
    return names


def layers_of_ezdxf(drawing, path):
    """Layers of the table, and those that only entities name: CAD programs create
    these with colour 7. Layer 0 is always there."""
    tags = tags_of_file(path, drawing)
    own = layers_in_table(tags)
    layers = {name: (False, False, layer_rgb(7))
              for key, name in layers_of_entities(tags).items() if key != "0" and key not in own}
    for layer in drawing.layers:
        if layer.dxf.name.lower() not in own:
            continue
        color = None if layer.is_off() else layer_rgb(layer.color)
        if layer.rgb is not None:
            color = tuple(layer.rgb)
        layers[layer.dxf.name] = (layer.is_off(), layer.is_locked(), color)
    return layers


def curves_of_ezdxf(drawing):
    counts = collections.Counter(entity.dxftype() for entity in drawing.modelspace())
    return {curve: counts[curve] for curve in CURVES}


def read_name(name, drawing):
    """A name of the document as ezdxf reads it.

    The worker reads the bytes of old files as Windows-1252 and leaves codes of
    characters alone, on purpose.
    """
    if drawing.dxfversion < "AC1021":
        try:
            name = latin_bytes(name).decode(drawing.encoding)
        except UnicodeError:
            pass
    return UNICODE_CODE.sub(lambda code: chr(int(code.group(1), 16)), name)


def latin_bytes(name):
    """The Windows-1252 bytes; the five that it leaves out stand for themselves."""
    return b"".join(bytes([ord(c)]) if 0x80 <= ord(c) < 0xA0 else c.encode("cp1252") for c in name)


def layers_of_worker(document, drawing):
    layers = {}
    for layer in document["layers"]:
        color = tuple(layer["color"][channel] for channel in "rgb")
        layers[read_name(layer["name"], drawing)] = (not layer["visible"], layer["locked"], color)
    return layers


def curves_of_worker(document):
    counts = collections.Counter(record["type"] for record in document["entities"])
    return {curve: counts[curve] for curve in CURVES}


def layer_differences(ours, theirs):
    differences = []
    for name in sorted(set(ours) | set(theirs)):
        if name not in ours or name not in theirs:
            differences.append(f"layer {name!r} {'missing' if name in theirs else 'added'}")
            continue
        off, locked, color = theirs[name]
        if ours[name][:2] != (off, locked):
            differences.append(f"layer {name!r} off, locked {ours[name][:2]} not {(off, locked)}")
        if color is not None and ours[name][2] != color:
            differences.append(f"layer {name!r} colour {ours[name][2]} not {color}")
    return differences


def differences_of(document, drawing, path):
    found = layer_differences(layers_of_worker(document, drawing), layers_of_ezdxf(drawing, path))
    ours, theirs = curves_of_worker(document), curves_of_ezdxf(drawing)
    return found + [f"{curve} {ours[curve]} not {theirs[curve]}" for curve in CURVES
                    if ours[curve] != theirs[curve]]


def convert(worker, path):
    run = subprocess.run([worker, str(path)], capture_output=True, check=False)
    if run.returncode != 0:
        return None
    return json.loads(run.stdout.decode("utf-8", "surrogateescape"))


def read_known(path):
    lines = [line for line in path.read_text(encoding="utf-8").splitlines()
             if line.strip() and not line.startswith("#")]
    return {name.strip(): reason.strip()
            for name, reason in (line.split(": ", 1) for line in lines)}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--known", type=pathlib.Path, default=HERE / "known_differences.txt")
    options = parser.parse_args()
    if options.drawings is None or ezdxf is None:
        print("ezdxf is missing" if ezdxf is None
              else "no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    logging.disable()
    known = read_known(options.known)
    agreed = different = failed = unread = 0
    for path in sorted(options.drawings.rglob("*")):
        if path.suffix.lower() != ".dxf" or not path.is_file():
            continue
        name = path.relative_to(options.drawings).as_posix()
        document = convert(options.worker, path)
        drawing = records.open_with_ezdxf(path) if document else None
        if drawing is None:
            unread += 1
            continue
        reason = known.get(name)
        found = differences_of(document, drawing, path)
        if bool(found) != bool(reason):
            failed += 1
            print(f"FAILED {name}: {'; '.join(found) or 'agrees although listed as different'}")
        elif reason:
            different += 1
            print(f"differs {name}: {'; '.join(found)} ({reason})")
        else:
            agreed += 1
    print(f"{unread} files that one of the two does not read")
    print(f"{agreed} files agree, {different} differ for a listed reason")
    if agreed < FEWEST_FILES:
        failed += 1
        print(f"FAILED: fewer than {FEWEST_FILES} files agree")
    print(f"{agreed + different} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
