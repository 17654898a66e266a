#!/usr/bin/env python3
"""Compares the records of types that only the complete document has with what ezdxf
reads in DXF files, and those of a DWG with those of the same drawing as DXF.

    compare_types.py --worker PATH [--drawings FOLDER] [--verbose]

Entities are paired by their handles; where a file has none, only counts are compared.
Numbers agree within 1e-9 of their size or in the ten digits that documents carry.
What differs for a known reason is in the lists below; a listed difference that does
not show fails the run like one that is not listed. Exits with 77 without a folder of
drawings or without ezdxf.
"""

import argparse
import collections
import logging
import math
import os
import pathlib
import re
import sys

from complete_document import SKIPPED, TOLERANCE, convert, records_of
from drawing_records import open_with_ezdxf

try:
    import ezdxf
    from ezdxf.entities.acad_table import read_acad_table_content
    from ezdxf.proxygraphic import ProxyGraphic
except ImportError:
    ezdxf = None

FEWEST_FILES = 60
FEWEST_VALUES = 2000
FEWEST_PAIRS = 10

DIMENSIONS = {0: "DIMENSION_LINEAR", 1: "DIMENSION_ALIGNED", 2: "DIMENSION_ANG2LN",
              3: "DIMENSION_DIAMETER", 4: "DIMENSION_RADIUS", 5: "DIMENSION_ANG3PT",
              6: "DIMENSION_ORDINATE"}
COUNTED = {"DIMENSION_ANG2LN", "DIMENSION_ANG3PT", "DIMENSION_DIAMETER", "DIMENSION_ORDINATE",
           "DIMENSION_LINEAR", "DIMENSION_ALIGNED", "DIMENSION_RADIUS", "ARC_DIMENSION",
           "LARGE_RADIAL_DIMENSION", "MLINE", "SHAPE", "TOLERANCE", "POLYLINE_MESH",
           "POLYLINE_PFACE", "MESH", "HELIX", "ACAD_TABLE", "LIGHT", "OLE2FRAME", "3DSOLID",
           "REGION", "BODY", "DWFUNDERLAY", "DGNUNDERLAY", "PLANESURFACE", "EXTRUDEDSURFACE",
           "LOFTEDSURFACE", "REVOLVEDSURFACE", "SWEPTSURFACE", "SECTIONOBJECT"}
TYPE_WORDS = {"DWFUNDERLAY": "DWFUNDERLAY", "DGNUNDERLAY": "DGNUNDERLAY",
              "SECTION": "SECTIONOBJECT"}

OLD_SEPARATOR = "R13 and R14 took the decimal separator from the system"
CONVERTED = "the program that wrote the DXF changed it"

# File and record type (or `count`), and why it differs.
KNOWN = {
    ("acadsharp/sample_AC1009_ascii.dxf", "DIMENSION_ANG3PT"): "the drawn text has no degree sign",
    ("acadsharp/sample_AC1009_ascii.dxf", "DIMENSION_ANG2LN"): "the drawn text has no degree sign",
    ("acadsharp/sample_AC1009_ascii.dxf", "DIMENSION_ALIGNED"): "R12 styles have no decimals",
    ("acadsharp/sample_AC1032_binary.dxf", "TOLERANCE"): "the library reads ^J as a blank",
    ("ezdxf/duplicate_handles.dxf", "DIMENSION_LINEAR"): "its style's handle is another object's",
    ("ezdxf/duplicate_handles.dxf", "DIMENSION_RADIUS"): "its style's handle is another object's",
    ("gdal/assorted.dxf", "count"): "a dimension without a type, which ezdxf calls linear",
    ("libredwg/example_r12.dxf", "DIMENSION_ANG2LN"): "the drawn text has no degree sign",
    ("libredwg/example_r13.dxf", "DIMENSION_ALIGNED"): OLD_SEPARATOR,
    ("libredwg/example_r13.dxf", "DIMENSION_ORDINATE"): OLD_SEPARATOR,
    ("libredwg/example_r13.dxf", "DIMENSION_LINEAR"): OLD_SEPARATOR,
    ("libredwg/example_r14.dxf", "DIMENSION_ALIGNED"): OLD_SEPARATOR,
    ("libredwg/example_r14.dxf", "DIMENSION_ORDINATE"): OLD_SEPARATOR,
    ("libredwg/example_r14.dxf", "DIMENSION_LINEAR"): OLD_SEPARATOR,
    ("skymakerolof-dxf/dimensions.dxf", "DIMENSION_RADIUS"): "drawn without the R by its program",
}
# Of a pair: the DWG, and record type and key.
KNOWN_PAIRS = {
    **{(f"libredwg/2000/entities-{name}.dwg", f"DIMENSION_ALIGNED.{key}"):
       "a user text of one blank is trimmed in the DXF"
       for name in ("2d", "3d") for key in ("html", "userText", "text")},
    ("libredwg/example_2000.dwg", "LIGHT.lightColor"): "the DXF has no colour",
    ("libredwg/example_r14.dwg", "DIMENSION_ANG2LN.styleOverrides"): CONVERTED,
    **{("libredwg/2007/Helix.dwg", f"HELIX.{key}"): "each saving approximates the curve anew"
       for key in ("controlPoints", "fit_pts", "knots")},
}


def blocks_of(document):
    return {asset["name"].upper(): asset["entities"] for asset in document["assets"]}


# -- what ezdxf reads

def kind_of(entity):
    kind = entity.dxftype()
    if kind == "DIMENSION":
        return DIMENSIONS.get(entity.dimtype, kind)
    if kind == "POLYLINE":
        return {True: "POLYLINE_PFACE"}.get(
            entity.is_poly_face_mesh, "POLYLINE_MESH" if entity.is_polygon_mesh else "POLYLINE")
    return TYPE_WORDS.get(kind, kind)


def entities_of(drawing):
    for block in drawing.blocks:
        yield from block


# -- values

class Found(Exception):
    """A difference."""


def agree(a, b):
    if isinstance(a, bool) or isinstance(b, bool) or isinstance(a, str) or isinstance(b, str):
        return a == b
    if isinstance(a, (int, float)):
        if not isinstance(b, (int, float)):
            return False
        return abs(a - b) <= max(TOLERANCE * max(abs(a), abs(b)), 1e-12) or f"{a:.9g}" == f"{b:.9g}"
    a, b = list(a), list(b)
    return len(a) == len(b) and all(agree(x, y) for x, y in zip(a, b))


class Checker:
    def __init__(self):
        self.values = 0
        self.by_key = collections.Counter()

    def same(self, what, ours, theirs):
        self.values += 1
        self.by_key[what] += 1
        if not agree(ours, theirs):
            raise Found(f"{what}: {str(ours)[:120]} here, {str(theirs)[:120]} there")

    def same_turn(self, what, ours, theirs):
        """Angles, of which both ends of a turn are one; a document has ten digits of them."""
        is_near = math.dist(turn(ours), turn(theirs)) <= TOLERANCE * max(1, abs(theirs))
        self.same(what, theirs if is_near else ours, theirs)


def point(vector):
    return [vector[0], vector[1], vector[2] if len(vector) > 2 else 0.0]


def turn(radians):
    return [math.cos(radians), math.sin(radians)]


def check_points(check, record, entity, names):
    for key, name in names.items():
        check.same(key, record[key], point(entity.dxf.get_default(name)))


POINTS = {
    "DIMENSION_LINEAR": {"definitionPoint": "defpoint", "extensionPoint1": "defpoint2",
                         "extensionPoint2": "defpoint3"},
    "DIMENSION_ALIGNED": {"definitionPoint": "defpoint", "extensionPoint1": "defpoint2",
                          "extensionPoint2": "defpoint3"},
    "DIMENSION_RADIUS": {"center": "defpoint", "curvePoint": "defpoint4"},
    "DIMENSION_DIAMETER": {"farCurvePoint": "defpoint", "curvePoint": "defpoint4"},
    "DIMENSION_ANG2LN": {"arcPoint": "defpoint5"},
    "DIMENSION_ANG3PT": {"arcPoint": "defpoint", "extensionPoint1": "defpoint2",
                         "extensionPoint2": "defpoint3", "center": "defpoint4"},
    "DIMENSION_ORDINATE": {"origin": "defpoint", "featurePoint": "defpoint2",
                           "leaderEnd": "defpoint3"},
    "ARC_DIMENSION": {"arcPoint": "defpoint", "extensionPoint1": "defpoint2",
                      "extensionPoint2": "defpoint3", "center": "defpoint4"},
    "LARGE_RADIAL_DIMENSION": {},
}

# Codes that frame a drawn text, and its second writing of the same characters.
DRAWN = [(re.compile(r"\\A\d;"), ""), (re.compile(r"\\[HCWTQ][^;]*;"), ""),
         (re.compile(r"\\[Ff][^;]*;"), ""), (re.compile(r"[{}]"), ""),
         (re.compile(r"\\U\+([0-9A-Fa-f]{4})"), lambda code: chr(int(code[1], 16))),
         (re.compile(r"%%[dD]"), "°"), (re.compile(r"%%[cC]"), "\u2205"), (re.compile("Ø|⌀"), "\u2205"),
         (re.compile(r"%%[pP]"), "±"), (re.compile(r"\\S([^;/#^]*)[/#^] ?([^;]*);"), r"\1/\2"),
         (re.compile(r"\s+"), "")]


def plain(text):
    for pattern, instead in DRAWN:
        text = pattern.sub(instead, text)
    return text


def check_drawn_text(check, record, blocks):
    """The text that the program which made the drawing put into the block. Blocks that it
    has not drawn anew since the drawing changed may hold others, hence the list."""
    texts = [entity for entity in blocks.get(record.get("blockName", "").upper(), [])
             if entity["type"] in ("MTEXT", "TEXT")]
    if len(texts) != 1:
        return
    drawn = texts[0].get("rawMtext") or re.sub(r"<[^>]*>", "", texts[0]["html"])
    check.same("text", plain(record["text"]), plain(drawn))


def check_dimension(check, record, entity, blocks):
    check_points(check, record, entity, POINTS[record["type"]])
    if record["type"] == "DIMENSION_ANG2LN":
        check.same("line1", record["line1"], [point(entity.dxf.defpoint2), point(entity.dxf.defpoint3)])
        check.same("line2", record["line2"], [point(entity.dxf.defpoint4), point(entity.dxf.defpoint)])
    stored = entity.dxf.get("actual_measurement", 0)
    if stored > 0:
        # Readers take angles in either unit.
        angular = record["type"].startswith("DIMENSION_ANG")
        check.same("measured", record["measured"], math.radians(stored) if angular and
                   not agree(record["measured"], stored) else stored)
    if entity.dxf.hasattr("dimstyle"):
        check.same("dimensionStyle", record.get("dimensionStyle", "").lower(),
                   entity.dxf.dimstyle.lower())
    if entity.dxf.get("geometry") and entity.dxf.geometry in entity.doc.blocks:
        check.same("blockName", record.get("blockName", "").upper(), entity.dxf.geometry.upper())
    check_placing(check, record, entity)
    check_drawn_text(check, record, blocks)


def check_placing(check, record, entity):
    """How a dimension's text stands, and what it sets for itself."""
    dxf = entity.dxf
    check.same("userText", record["userText"], dxf.get("text", ""))
    check.same("attachment", record["attachment"], dxf.get("attachment_point", record["attachment"]))
    check.same_turn("textRotationRad", record["textRotationRad"],
                    math.radians(dxf.get("text_rotation", 0)))
    check.same_turn("obliqueRad", record.get("obliqueRad", 0),
                    math.radians(dxf.get("oblique_angle", 0)))
    check.same_turn("horizontalDirectionRad", record.get("horizontalDirectionRad", 0),
                    math.radians(dxf.get("horizontal_direction", 0)))
    check.same("extrusion", record.get("extrusion", [0, 0, 1]), point(dxf.get("extrusion", (0, 0, 1))))
    check.same("textIsPlacedByUser", record["textIsPlacedByUser"], bool(dxf.get("dimtype", 0) & 128))
    middle = dxf.get("text_midpoint")
    if middle is not None:
        check.same("text place", [record["textMidX"], record["textMidY"]], [middle.x, middle.y])


def drawn_lines(entity):
    """Of each element where it crosses the miters, and where its cuts begin and end."""
    for index in range(entity.dxf.style_element_count):
        crossings, ends = [], []
        for vertex in entity.vertices:
            parameters = vertex.line_params[index]
            start = vertex.location + vertex.miter_direction * (parameters[0] if parameters else 0)
            crossings.append(point(start))
            ends += [point(start + vertex.line_direction * value)
                     for value in parameters[1:] if value != 0]
        yield crossings, ends


def near_any(at, points):
    return any(math.dist(at, other) <= 1e-6 for other in points)


def check_mline(check, record, entity, _blocks):
    check.same("points", record["points"], [point(v.location) for v in entity.vertices])
    check.same("directions", record["directions"], [point(v.line_direction) for v in entity.vertices])
    check.same("miters", record["miters"], [point(v.miter_direction) for v in entity.vertices])
    check.same("scale", record["scale"], entity.dxf.scale_factor)
    check.same("justification", record["justification"], entity.dxf.justification)
    check.same("closed", record["closed"], bool(entity.dxf.flags & 2))
    check.same("style", record.get("style", "").lower(), entity.dxf.style_name.lower())
    for ours, (crossings, ends) in zip(record["elements"], drawn_lines(entity)):
        drawn = [at for line in ours["lines"] for at in line]
        if not ends:
            check.same("lines", drawn[:len(crossings)], crossings)
        check.same("cuts", [at for at in drawn if not near_any(at, crossings)], ends)
    style = entity.style
    if style is not None:
        check.same("offsets", [e["offset"] for e in record["elements"]],
                   [e.offset for e in style.elements][:len(record["elements"])])


def check_tolerance(check, record, entity, _blocks):
    check.same("rawText", record["rawText"].replace("\n", "^J"), entity.dxf.content.replace("\n", "^J"))
    check.same("position", record["position"], point(entity.dxf.insert))
    check.same("xDirection", record["xDirection"], point(entity.dxf.get("x_axis_vector", (1, 0, 0))))
    rows = [row for row in re.split(r"\^J|\n", entity.dxf.content) if row]
    cells = [[cell for cell in row.split("%%v")] for row in rows]
    expected = [len(row) - (row[-1] == "") for row in cells]
    check.same("rows", [len(row) for row in record["rows"]], expected)


def check_shape(check, record, entity, _blocks):
    check.same("place", [record["x"], record["y"]], list(entity.dxf.insert)[:2])
    check.same("size", record["size"], entity.dxf.size)
    check.same_turn("rotationRad", record["rotationRad"], math.radians(entity.dxf.rotation))
    check.same("widthFactor", record["widthFactor"], entity.dxf.xscale)


def check_polyface(check, record, entity, _blocks):
    vertices = [v for v in entity.vertices if v.is_poly_face_mesh_vertex]
    faces = [v for v in entity.vertices if v.is_face_record]
    check.same("points", record["points"], [point(v.dxf.location) for v in vertices])
    numbers = [[v.dxf.get(f"vtx{i}", 0) for i in range(4)] for v in faces]
    check.same("faces", [face["vertices"] for face in record["faces"]],
               [[abs(n) - 1 for n in face if n] for face in numbers])
    check.same("edges", [face["edges"] for face in record["faces"]],
               [[n > 0 for n in face if n] for face in numbers])


def check_polymesh(check, record, entity, _blocks):
    drawn = [v for v in entity.vertices if not v.dxf.flags & 16]
    check.same("points", record["points"], [point(v.dxf.location) for v in drawn])
    if len(drawn) == entity.dxf.m_count * entity.dxf.n_count:
        check.same("m", [record["m"], record["n"]], [entity.dxf.m_count, entity.dxf.n_count])
    check.same("closed", [record["closedM"], record["closedN"]],
               [entity.is_m_closed, entity.is_n_closed])


def check_mesh(check, record, entity, _blocks):
    check.same("points", record["points"], [point(v) for v in entity.vertices])
    check.same("faces", record["faces"], [list(f) for f in entity.faces])
    check.same("edges", record["edges"], [list(e) for e in entity.edges])
    check.same("creases", record["creases"], list(entity.creases))
    check.same("subdivisionLevel", record["subdivisionLevel"], entity.dxf.subdivision_levels)


def check_helix(check, record, entity, _blocks):
    if "graphics" in record:  # what the library does not read, see the page
        check.same("graphics", len(record["graphics"]) > 0, True)
        return
    check_points(check, record, entity, {"axisBase": "axis_base_point", "startPoint": "start_point",
                                         "axisVector": "axis_vector"})
    check.same("radius", record["radius"], entity.dxf.radius)
    check.same("turns", record["turns"], entity.dxf.turns)
    check.same("turnHeight", record["turnHeight"], entity.dxf.turn_height)
    check.same("counter-clockwise", record["isCounterClockwise"], bool(entity.dxf.handedness))
    check.same("degree", record.get("degree"), entity.dxf.degree)
    check.same("knots", record.get("knots", []), list(entity.knots))
    check.same("controlPoints", record.get("controlPoints", []),
               [point(p) for p in entity.control_points])
    check.same("fitPoints", record.get("fitPoints", []), [point(p) for p in entity.fit_points])


def check_table(check, record, entity, _blocks):
    check.same("position", record["position"], point(entity.dxf.insert))
    content = read_acad_table_content(entity)
    check.same("size", [len(record["rowHeights"]), len(record["columnWidths"])],
               [len(content), len(content[0]) if content else 0])
    rows = collections.defaultdict(dict)
    for cell in record["cells"]:
        rows[cell["row"]][cell["column"]] = cell.get("text", "")
    check.same("cells", [[rows[r].get(c, "") for c in range(len(row))] for r, row in enumerate(content)],
               content)


def check_light(check, record, entity, _blocks):
    check_points(check, record, entity, {"position": "location", "target": "target"})
    check.same("name", record["name"], entity.dxf.name)


def check_proxy(check, record, entity, _blocks):
    words = {"CIRCLE_3P": "CIRCLE_3P", "CIRCULAR_ARC": "ARC", "CIRCULAR_ARC_3P": "ARC_3P",
             "POLYLINE_WITH_NORMALS": "POLYLINE", "TEXT2": "TEXT", "UNICODE_TEXT": "TEXT",
             "UNICODE_TEXT2": "TEXT", "ELLIPTIC_ARC": "ELLIPSE", "PUSH_MATRIX2": "PUSH_MATRIX"}
    graphic = ProxyGraphic(entity.proxy_graphic, entity.doc)
    names = [name for _, _, name in graphic.info()
             if not name.startswith(("ATTRIBUTE", "UNUSED", "UNKNOWN", "EXTENTS"))]
    check.same("items", [item["type"] for item in record["graphics"]],
               [words.get(name, name) for name in names])
    theirs = [e for e in ProxyGraphic(entity.proxy_graphic, entity.doc).virtual_entities()]
    if any("MATRIX" in name for name in names):
        return
    drawn = [item for item in record["graphics"] if item["type"] not in ("PUSH_CLIP", "POP_CLIP")]
    for ours, other in zip(drawn, theirs if len(theirs) == len(drawn) else []):
        check_proxy_item(check, ours, other)


def check_proxy_item(check, ours, other):
    kind = other.dxftype()
    if kind == "POLYLINE" and not other.is_poly_face_mesh and ours["type"] != "MESH":
        check.same("proxy points", ours["points"], [point(v.dxf.location) for v in other.vertices])
    elif kind == "LWPOLYLINE":
        check.same("proxy lwpolyline", ours["points"], [list(p[:2]) for p in other.get_points()])
        check.same("proxy bulges", ours["bulges"] or [0] * len(ours["points"]),
                   [p[4] for p in other.get_points()])
        check.same("proxy closed", ours["closed"], other.closed)
    elif kind == "CIRCLE" and ours["type"] == "CIRCLE" and ours["normal"] == [0, 0, 1]:
        check.same("proxy center", ours["center"], point(other.dxf.center))
        check.same("proxy radius", ours["radius"], other.dxf.radius)
    elif kind == "TEXT":
        check.same("proxy text", [ours["text"], ours["height"]], [other.dxf.text, other.dxf.height])
        check.same("proxy position", ours["position"], point(other.dxf.insert))


CHECKS = {"MLINE": check_mline, "TOLERANCE": check_tolerance, "SHAPE": check_shape,
          "POLYLINE_PFACE": check_polyface, "POLYLINE_MESH": check_polymesh, "MESH": check_mesh,
          "HELIX": check_helix, "ACAD_TABLE": check_table, "LIGHT": check_light,
          **{kind: check_dimension for kind in POINTS}}


def has_proxy_graphic(entity):
    return entity.dxftype() == "ACAD_PROXY_ENTITY" and bool(entity.proxy_graphic)


def check_entities(check, document, drawing):
    """The differences, by record type."""
    found = {}
    ours = {record.get("handle"): record for record in records_of(document)}
    blocks = blocks_of(document)
    theirs_by_kind = collections.Counter(kind_of(entity) for entity in entities_of(drawing))
    ours_by_kind = collections.Counter(record["type"] for record in records_of(document))
    for kind in sorted(COUNTED):
        check.values += 1
        if ours_by_kind[kind] != theirs_by_kind[kind]:
            found.setdefault("count", f"{ours_by_kind[kind]} {kind} here, {theirs_by_kind[kind]} there")
    for entity in entities_of(drawing):
        record = ours.get(entity.dxf.handle)
        kind = kind_of(entity)
        checker = check_proxy if has_proxy_graphic(entity) else CHECKS.get(kind)
        if checker is None or record is None:
            continue
        try:
            if checker is not check_proxy and record["type"] != kind:
                raise Found(f"{record['type']} here, {kind} there")
            checker(check, record, entity, blocks)
        except Found as difference:
            found.setdefault(kind, f"{entity.dxf.handle} {difference}")
    return found


# -- a DWG and the same drawing as DXF

# What one of the two files does not hold, or numbers anew; `dimDec` is the plain form's.
UNPAIRED_KEYS = {"blockName", "dimDec", "owner", "handle", "layer", "shapeNumber", "shapeFile", "linetype", "lw", "modelerVersion",
                 "hasModelerData", "wires", "silhouettes", "reason", "className", "cppName"}


def pairs_in(folder):
    for dwg in sorted(folder.rglob("*")):
        if dwg.suffix.lower() == ".dwg":
            dxf = dwg.with_suffix(".dxf")
            if dxf.exists():
                yield dwg, dxf


def check_pair(check, of_dwg, of_dxf):
    found = {}
    theirs = {record.get("handle"): record for record in records_of(of_dxf)}
    for record in records_of(of_dwg):
        other = theirs.get(record.get("handle"))
        if record["type"] not in COUNTED or other is None or other["type"] != record["type"]:
            continue
        for key in record.keys() & other.keys() - UNPAIRED_KEYS:
            try:
                check.same(key, flat(texts(key, record[key])), flat(texts(key, other[key])))
            except Found as difference:
                found.setdefault(f"{record['type']}.{key}", f"{record['handle']} {difference}")
    return found


def texts(key, value):
    """Of a table's cells the texts: the two forms of tables hold different formats."""
    if key != "cells":
        return value
    return [[cell["row"], cell["column"], cell.get("text", "")] for cell in value]


def flat(value):
    if isinstance(value, dict):
        return [part for key in sorted(value) for part in (key, *as_list(flat(value[key])))]
    if isinstance(value, list):
        return [part for item in value for part in as_list(flat(item))]
    return value


def as_list(value):
    return value if isinstance(value, list) else [value]


# -- the run

def judge(name, found, known, failures):
    for what, difference in found.items():
        if (name, what) in known:
            print(f"differs {name}: {what}: {difference} ({known[name, what]})")
        else:
            failures.append(f"{name}: {what}: {difference}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") and pathlib.Path(os.environ["DWG_CORPUS"]))
    parser.add_argument("--verbose", action="store_true")
    options = parser.parse_args()
    if ezdxf is None or options.drawings is None or not options.drawings.is_dir():
        print("skipped: needs ezdxf and a folder of drawings (DWG_CORPUS)")
        return SKIPPED
    logging.getLogger("ezdxf").setLevel(logging.CRITICAL)
    failures, files, seen = [], 0, set()
    check = Checker()
    for path in sorted(options.drawings.rglob("*")):
        if path.suffix.lower() != ".dxf" or "bad" in path.relative_to(options.drawings).parts:
            continue
        drawing = open_with_ezdxf(path)
        document = convert(options.worker, path) if drawing is not None else None
        if document is None:
            continue
        name = path.relative_to(options.drawings).as_posix()
        found = check_entities(check, document, drawing)
        seen.update((name, what) for what in found)
        judge(name, found, KNOWN, failures)
        files += 1
    pair_check, pairs = Checker(), 0
    for dwg, dxf in pairs_in(options.drawings):
        of_dwg, of_dxf = convert(options.worker, dwg), convert(options.worker, dxf)
        if of_dwg is None or of_dxf is None:
            continue
        name = dwg.relative_to(options.drawings).as_posix()
        found = check_pair(pair_check, of_dwg, of_dxf)
        seen.update((name, what) for what in found)
        judge(name, found, KNOWN_PAIRS, failures)
        pairs += 1
    for entry in (KNOWN.keys() | KNOWN_PAIRS.keys()) - seen:
        failures.append(f"{entry[0]}: {entry[1]} agrees although listed as different")
    if options.verbose:
        print(dict(check.by_key))
    print(f"{files} DXF files with {check.values} values, {pairs} pairs with {pair_check.values}")
    if files < FEWEST_FILES or check.values < FEWEST_VALUES or pairs < FEWEST_PAIRS:
        failures.append("fewer files or values than there were")
    for failure in failures:
        print(f"FAILED {failure}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
