#!/usr/bin/env python3
"""Computes the layers and simple curves of this folder's golden documents again.

Every document is compared with what ezdxf reads in the same drawing or, for a
DWG, in a DXF of the same drawing: each key of each layer and simple curve, with
numbers formatted by Python's own "%.10g". DXF twins that are too large for the
repository are looked for in the folder that DWG_CORPUS names. The circle of the
R12 drawing is read from the bytes of its file. Exits with 77 without ezdxf.
"""

import json
import math
import os
import pathlib
import struct
import sys

try:
    import ezdxf
except ImportError:
    ezdxf = None

HERE = pathlib.Path(__file__).resolve().parent
DRAWINGS = HERE.parents[1] / "drawings"
sys.path.insert(0, str(HERE.parents[1] / "independent"))
SKIPPED = 77
TWINS = {
    "dxf_2000_layers": "own/layers_R2000.dxf",
    "dxf_2007_layers": "own/layers_R2007.dxf",
    "dxf_2018_layers": "own/layers_R2018.dxf",
    "dwg_r14_door": "libredwg/r13/v.dxf",
    "dwg_2000_sample": "libredwg/sample_2000.dxf",
    "dwg_2004_ellipse": "libredwg/2007/Ellipse.dxf",
    "dwg_2007_construction_line": "libredwg/2007/ConstructionLine.dxf",
    "dwg_2010_ray": "libredwg/2007/RAY.dxf",
    "dwg_2013_constraints": "libredwg/2013/Constraints.dxf",
    "dwg_2018_sample": "libredwg/sample_2018.dxf",
}
# Twins that were written with fewer decimals than the document has.
DECIMALS = {"dwg_r14_door": 6}
# Releases whose drawings hold no lineweights.
WITHOUT_LINEWEIGHTS = ("R14", "Unknown")
CURVES = {"LINE", "POINT", "RAY", "XLINE", "CIRCLE", "ARC", "ELLIPSE"}


def number(value):
    return "%.10g" % value


def points(**named):
    return {key + axis: number(part)
            for key, vector in named.items() for axis, part in zip("XY", vector)}


def circle_keys(entity):
    x, y, _ = entity.dxf.center
    return {"cx": number(x), "cy": number(y), "radius": number(entity.dxf.radius)}


def own_keys(entity):
    """The record's own keys, by the type's table."""
    dxf, kind = entity.dxf, entity.dxftype()
    if kind == "LINE":
        return points(start=dxf.start, end=dxf.end)
    if kind == "POINT":
        return {"x": number(dxf.location.x), "y": number(dxf.location.y)}
    if kind in ("RAY", "XLINE"):
        return {"x": number(dxf.start.x), "y": number(dxf.start.y),
                "dx": number(dxf.unit_vector.x), "dy": number(dxf.unit_vector.y)}
    if kind == "CIRCLE":
        return circle_keys(entity)
    if kind == "ARC":
        return {**circle_keys(entity), "startAngleRad": number(math.radians(dxf.start_angle)),
                "endAngleRad": number(math.radians(dxf.end_angle))}
    x, y, z = dxf.major_axis
    return {"cx": number(dxf.center.x), "cy": number(dxf.center.y), "smAxisX": number(x),
            "smAxisY": number(y), "semiMajor": number(math.sqrt(x * x + y * y + z * z)),
            "axisRatio": number(dxf.ratio), "startAngleRad": number(dxf.start_param),
            "endAngleRad": number(dxf.end_param)}


def rgb(channels):
    return dict(zip("rgb", map(str, channels)))


def color_of(entity, layer_rgb):
    tags = {256: "L", 0: "K", 7: "W"}
    index = entity.dxf.get("color", 256)
    return tags.get(index) or rgb(layer_rgb(index))


def lineweight(value, release):
    if release in WITHOUT_LINEWEIGHTS:
        return "0"
    return str(value) if value >= 0 else "L"


def expected_record(entity, release, layer_rgb):
    return {"type": entity.dxftype(), "layer": entity.dxf.layer, **own_keys(entity),
            "color": color_of(entity, layer_rgb),
            "lw": lineweight(entity.dxf.get("lineweight", -1), release)}


def expected_layer(layer, release, layer_rgb):
    channels = layer.rgb or ((128,) * 3 if layer.is_off() else layer_rgb(layer.color))
    return {"name": layer.dxf.name, "visible": not layer.is_off(), "locked": layer.is_locked(),
            "color": rgb(channels), "lw": lineweight(layer.dxf.get("lineweight", -3), release)}


def in_order(records):
    return sorted(json.dumps(record, ensure_ascii=False) for record in records)


def rounded(record, decimals):
    """The record with its own numbers rounded, when the twin's are."""
    return {key: number(round(float(value), decimals))
            if decimals and key not in ("type", "layer", "color", "lw") else value
            for key, value in record.items()}


def check(name, path):
    """What differs between a golden document and its twin, keys in their order."""
    from compare_with_ezdxf import layer_rgb, layers_in_table, layers_of_entities, tags_of_file
    text = (HERE / "expected" / f"{name}.json").read_text(encoding="utf-8")
    document = json.loads(text, parse_int=str, parse_float=str)
    drawing = ezdxf.readfile(path)
    release = document["dwgVersion"]
    tags = tags_of_file(path, drawing)
    own = layers_in_table(tags)
    layers = [expected_layer(layer, release, layer_rgb) for layer in drawing.layers
              if layer.dxf.name.lower() in own]
    # CAD programs create the layers that only entities name.
    layers += [{"name": name, "visible": True, "locked": False, "color": rgb(layer_rgb(7)),
                "lw": "L"} for key, name in layers_of_entities(tags).items()
               if key != "0" and key not in own]
    problems = []
    if in_order(document["layers"]) != in_order(layers):
        problems.append(f"layers {document['layers']}")
    records = in_order(rounded(record, DECIMALS.get(name))
                       for record in document["entities"] if record["type"] in CURVES)
    expected = in_order(expected_record(entity, release, layer_rgb)
                        for entity in drawing.modelspace() if entity.dxftype() in CURVES)
    problems += [f"unexpected {record}" for record in records if record not in expected]
    problems += [f"missing {record}" for record in expected if record not in records]
    if len(records) != len(expected) or not records:
        problems.append(f"{len(records)} curves instead of {len(expected)}")
    if document["insunits"] != str(drawing.header.get("$INSUNITS", 0)):
        problems.append(f"insunits {document['insunits']}")
    return problems


def check_r12_circle():
    """The entities section of the file holds one circle: kind, flags, length,
    layer and options in eight bytes, then centre and radius as doubles."""
    data = (DRAWINGS / "cad-format-dwg-ac1009" / "CIRCLE1.DWG").read_bytes()
    start, = struct.unpack_from("<I", data, 0x14)
    x, y, radius = struct.unpack_from("<3d", data, start + 8)
    text = (HERE / "expected" / "dwg_r12_circle.json").read_text(encoding="utf-8")
    record = json.loads(text, parse_int=str, parse_float=str)["entities"][0]
    expected = {"type": "CIRCLE", "layer": "0", "cx": number(x), "cy": number(y),
                "radius": number(radius), "color": "K", "lw": "0"}
    return [] if data[start] == 3 and list(record.items()) == list(expected.items()) else [str(record)]


def twin_path(name):
    """The twin in the repository or in the folder of drawings; None without."""
    folders = [DRAWINGS, *map(pathlib.Path, filter(None, [os.environ.get("DWG_CORPUS")]))]
    return next((folder / TWINS[name] for folder in folders if (folder / TWINS[name]).is_file()),
                None)


def main():
    if ezdxf is None:
        print("ezdxf is missing")
        return SKIPPED
    results = {"dwg_r12_circle": check_r12_circle()}
    for name in TWINS:
        path = twin_path(name)
        if path is None:
            print(f"not checked, no {TWINS[name]}: {name}")
        else:
            results[name] = check(name, path)
    failed = {name: problems for name, problems in results.items() if problems}
    for name, problems in failed.items():
        print(f"FAILED {name}: {'; '.join(problems)}")
    print(f"{len(results) - len(failed)} passed, {len(failed)} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
