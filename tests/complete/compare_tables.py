#!/usr/bin/env python3
"""Compares the tables, header variables and text keys of the complete form with what
ezdxf finds in DXF files.

    compare_tables.py --worker PATH [--drawings FOLDER] [--all]

Every attribute that ezdxf finds in the file (not those that it makes up) has to be in
the document, numbers within 1e-9 of their size or within the tenth digit that
documents carry. What differs stands in KNOWN below with its reason; a difference that
does not, or one listed that no longer shows, fails the run. Files below a folder named
`bad`, which are damaged on purpose, are left out.

The folders are the repository's own drawings and that of DWG_CORPUS. Exits with 77
without ezdxf.
"""

import argparse
import collections
import concurrent.futures
import fnmatch
import html
import logging
import math
import os
import pathlib
import sys

from complete_document import SKIPPED, TOLERANCE, convert
from drawing_records import open_with_ezdxf

try:
    import ezdxf  # noqa: F401
except ImportError:
    sys.exit(SKIPPED)

ROOT = pathlib.Path(__file__).resolve().parents[2]
OWN_DRAWINGS = ROOT / "tests" / "drawings"

# (file, what, key): reason; patterns of shells.
KNOWN = {
    ("Leica_Disto_S910.dxf", "dimension style", "DIMLIM"): "1000 where only 0 and 1 mean something",
    ("qcad-example_R2000.dxf", "MTEXT", "textStyle"): "a style that the file does not have",
    ("testHatch.dxf", "sheet", "shadePlot"):
        "LibreDWG's DXF reader takes group 76 of the sheet for that of its plot settings",
}


def close(theirs, ours):
    """Documents carry ten significant digits."""
    if not (math.isfinite(theirs) and math.isfinite(ours)):
        return not math.isfinite(theirs) and ours == 0
    return abs(theirs - ours) <= max(TOLERANCE * abs(theirs), 5.1e-10 * abs(theirs), 1e-12)


def same(theirs, ours):
    if isinstance(theirs, (int, float)) and isinstance(ours, (int, float)):
        return close(float(theirs), float(ours))
    if isinstance(theirs, (list, tuple)) and isinstance(ours, (list, tuple)):
        return len(theirs) == len(ours) and all(same(a, b) for a, b in zip(theirs, ours))
    return theirs == ours


def held(entity, name):
    """An attribute that the file has; None for one that it leaves out."""
    return entity.dxf.get(name) if entity.dxf.hasattr(name) else None


class Comparison:
    def __init__(self):
        self.differences = collections.defaultdict(list)
        self.count = 0

    def expect(self, what, key, theirs, ours):
        if theirs is None:
            return
        self.count += 1
        if not same(theirs, ours):
            self.differences[what, key].append((theirs, ours))


def number(value):
    return None if value is None else float(value)


def vector(value, size=3):
    return None if value is None else [float(v) for v in list(value)[:size]]


def radians(value):
    return None if value is None else math.radians(value)


def flag(value, bit):
    return None if value is None else bool(value & bit)


def by_name(records):
    return {record["name"].lower(): record for record in records}


def names_of(path):
    """The names that the file itself has, in lower case: ezdxf adds records of its own."""
    data = path.read_bytes()
    if data.startswith(b"AutoCAD Binary DXF"):
        values = data.split(b"\0")
    else:
        values = data.split(b"\n")
    return {value.strip().lower() for value in values}


# What ezdxf adds to every drawing; other records have these names for values.
ADDED = {"0", "bylayer", "byblock", "continuous", "standard", "layout1"}


def is_made_up(drawing, name):
    if name.lower() in ADDED:
        return True
    return not any(name.lower().encode(encoding, "replace") in drawing.names
                   for encoding in ("utf-8", drawing.encoding))


def missing(drawing, into, what, name):
    if not is_made_up(drawing, name):
        into.expect(what, "missing", name, None)


def key_of(entity):
    return entity.dxf.name.lower()


def compare_layers(drawing, document, into):
    found = by_name(document["layers"])
    for layer in drawing.layers:
        ours = found.get(key_of(layer))
        if ours is None:
            missing(drawing, into, "layer", layer.dxf.name)
            continue
        into.expect("layer", "frozen", flag(layer.dxf.flags, 1), ours["frozen"])
        into.expect("layer", "locked", flag(layer.dxf.flags, 4), ours["locked"])
        # A layer without group 290 is plotted.
        into.expect("layer", "plotted", bool(layer.dxf.get("plot", 1)), ours["plotted"])
        into.expect("layer", "linetype", line_type(layer.dxf.linetype).lower(),
                    line_type(ours["linetype"]).lower())
        into.expect("layer", "description", layer.description or None, ours.get("description"))
        into.expect("layer", "lw", lineweight(layer.dxf.get("lineweight", -3)), ours["lw"])


def line_type(name):
    lower = name.lower()
    return {"bylayer": "L", "byblock": "K"}.get(lower, name)


def lineweight(value):
    return "L" if value < 0 else value


def dashes_of(linetype):
    """(length, text or shape, style handle, scale, rotation, x, y) of each dash."""
    dashes = []
    for tag in linetype.pattern_tags.tags:
        if tag.code == 49:
            dashes.append({"length": tag.value})
        elif tag.code == 74 and dashes:
            dashes[-1]["flags"] = tag.value
        elif tag.code == 75 and dashes:
            dashes[-1]["shape"] = tag.value
        elif dashes and tag.code in (9, 44, 45, 46, 50):
            dashes[-1][{9: "text", 44: "x", 45: "y", 46: "scale", 50: "rotation"}[tag.code]] = \
                tag.value
    return dashes


def compare_linetypes(drawing, document, into):
    found = by_name(document["linetypes"])
    for linetype in drawing.linetypes:
        ours = found.get(key_of(linetype))
        if ours is None:
            missing(drawing, into, "linetype", linetype.dxf.name)
            continue
        into.expect("linetype", "description", held(linetype, "description"), ours["description"])
        theirs = dashes_of(linetype)
        into.expect("linetype", "dashes", [dash["length"] for dash in theirs],
                    [dash["length"] for dash in ours["dashes"]])
        for dash, our in zip(theirs, ours["dashes"]):
            flags = dash.get("flags", 0)
            if flags & 6:
                into.expect("linetype", "text", dash.get("text") if flags & 2 else None,
                            our.get("text"))
                into.expect("linetype", "shape", dash.get("shape") if flags & 4 else None,
                            our.get("shape"))
                into.expect("linetype", "x", dash.get("x"), our.get("x"))
                into.expect("linetype", "y", dash.get("y"), our.get("y"))
                into.expect("linetype", "scale", dash.get("scale"), our.get("scale"))
                into.expect("linetype", "rotation", radians(dash.get("rotation")),
                            our.get("rotationRad"))
                into.expect("linetype", "absolute", bool(flags & 1), our.get("absoluteRotation"))


def compare_text_styles(drawing, document, into):
    found = collections.defaultdict(list)
    for style in document["textStyles"]:
        found[style["name"].lower()].append(style)
    for style in drawing.styles:
        candidates = found.get(key_of(style), [])
        ours = next((s for s in candidates if s["font"] == style.dxf.font),
                    candidates[0] if candidates else None)
        if ours is None:
            missing(drawing, into, "text style", style.dxf.name)
            continue
        into.expect("text style", "font", held(style, "font"), ours["font"])
        into.expect("text style", "bigFont", held(style, "bigfont"), ours["bigFont"])
        into.expect("text style", "height", number(held(style, "height")), ours["height"])
        into.expect("text style", "widthFactor", number(held(style, "width")), ours["widthFactor"])
        into.expect("text style", "oblique", radians(held(style, "oblique")), ours["obliqueRad"])
        into.expect("text style", "lastHeight", number(held(style, "last_height")),
                    ours["lastHeight"])
        flags = held(style, "generation_flags") or 0
        into.expect("text style", "mirroredX", bool(flags & 2), ours["mirroredX"])
        into.expect("text style", "mirroredY", bool(flags & 4), ours["mirroredY"])
        into.expect("text style", "vertical", flag(style.dxf.flags, 4), ours["vertical"])
        into.expect("text style", "shapes", flag(style.dxf.flags, 1), ours["shapes"])


# The releases that have the variable; files may have it all the same.
SINCE = {"DIMLUNIT": "AC1015", "DIMARCSYM": "AC1021", "DIMJOGANG": "AC1021"}
COLORS = {0: "K", 256: "L", 7: "W"}


def compare_dimension_styles(drawing, document, into):
    found = by_name(document["dimensionStyles"])
    for style in drawing.dimstyles:
        ours = found.get(key_of(style))
        if ours is None:
            missing(drawing, into, "dimension style", style.dxf.name)
            continue
        variables = ours["variables"]
        for name in style.dxf.all_existing_dxf_attribs():
            if not name.startswith("dim") or name.endswith("_handle"):
                continue
            key, value = name.upper(), style.dxf.get(name)
            if key.startswith("DIMCLR") or key == "DIMTFILLCLR":
                if value not in COLORS:
                    continue
                value = COLORS[value]
            if key == "DIMLDRBLK" and value == "":
                continue  # the filled arrow, for which there is no key
            if (drawing.loaded_dxfversion or drawing.dxfversion) < SINCE.get(key, ""):
                continue
            if key == "DIMJOGANG":
                value = math.radians(value)
            if key in ("DIMLTYPE", "DIMLTEX1", "DIMLTEX2"):
                value = line_type(value)
            into.expect("dimension style", key, value, variables.get(key))


def compare_header(drawing, document, into):
    ours = document["header"]
    names = header_names(drawing.path_of_file)
    for key in drawing.header.varnames():
        name = key.lstrip("$")
        if name not in names or name not in ours:
            continue
        value = drawing.header[key]
        if name in ("CECOLOR",):
            value = COLORS.get(value)
        elif name in ("CELTYPE",):
            value = line_type(value)
        elif not isinstance(value, (int, float, str)):
            value = vector(value)
            if isinstance(ours[name], list):
                value = (value + [0.0])[:len(ours[name])]
        elif name in ("ANGBASE",):
            value = math.radians(value)
        if isinstance(value, str) and isinstance(ours[name], str):
            # References have the name as its record writes it.
            into.expect("header", name, value.lower(), ours[name].lower())
        else:
            into.expect("header", name, value, ours[name])


def header_names(path):
    """Those that the file itself has: ezdxf adds some."""
    data = path.read_bytes()
    lines = data[:data.find(b"ENDSEC")].split(b"\n")
    return {line.strip().decode("latin1")[1:] for line in lines if line.strip().startswith(b"$")}


def compare_views(drawing, document, into):
    found = by_name(document["views"])
    for view in drawing.views:
        ours = found.get(key_of(view))
        if ours is None:
            missing(drawing, into, "view", view.dxf.name)
            continue
        into.expect("view", "height", number(held(view, "height")), ours["height"])
        into.expect("view", "width", number(held(view, "width")), ours["width"])
        into.expect("view", "center", vector(held(view, "center"), 2),
                    [ours["centerX"], ours["centerY"]])
        into.expect("view", "target", vector(held(view, "target")), ours["target"])
        into.expect("view", "direction", vector(held(view, "direction")), ours["direction"])
        into.expect("view", "twist", radians(held(view, "view_twist")), ours["twistRad"])
        into.expect("view", "lensLength", number(held(view, "focal_length")), ours["lensLength"])
        into.expect("view", "frontClip", number(held(view, "front_clipping")), ours["frontClip"])
        into.expect("view", "backClip", number(held(view, "back_clipping")), ours["backClip"])
        into.expect("view", "mode", held(view, "view_mode"), ours["mode"])
        if held(view, "ucs"):
            system = ours.get("ucs", {})
            into.expect("view", "ucs origin", vector(held(view, "ucs_origin")),
                        system.get("origin"))
            into.expect("view", "ucs x", vector(held(view, "ucs_xaxis")), system.get("xAxis"))
            into.expect("view", "ucs y", vector(held(view, "ucs_yaxis")), system.get("yAxis"))
    found = by_name(document["coordinateSystems"])
    for system in drawing.ucs:
        ours = found.get(key_of(system))
        if ours is None:
            into.expect("ucs", "missing", system.dxf.name, None)
            continue
        into.expect("ucs", "origin", vector(held(system, "origin")), ours["origin"])
        into.expect("ucs", "xAxis", vector(held(system, "xaxis")), ours["xAxis"])
        into.expect("ucs", "yAxis", vector(held(system, "yaxis")), ours["yAxis"])


def compare_groups(drawing, document, into):
    found = {group["handle"]: group for group in document["groups"] if "handle" in group}
    for name, group in drawing.groups:
        ours = found.get(group.dxf.handle)
        if ours is None:
            into.expect("group", "missing", name, None)
            continue
        into.expect("group", "name", name, ours["name"])
        into.expect("group", "description", group.dxf.description, ours["description"])
        into.expect("group", "selectable", bool(group.dxf.selectable), ours["selectable"])
        into.expect("group", "unnamed", bool(group.dxf.unnamed), ours["unnamed"])
        into.expect("group", "members", sorted(entity.dxf.handle for entity in group),
                    sorted(set(ours["members"]) & set(drawing.entitydb.keys())))


def compare_blocks(drawing, document, into):
    found = by_name(document["assets"])
    for block in drawing.blocks:
        if block.is_any_layout:
            continue
        ours = found.get(block.name.lower())
        if ours is None:
            missing(drawing, into, "block", block.name)
            continue
        if drawing.dxfversion >= "AC1021":
            into.expect("block", "units", held(block.block_record, "units"), ours["units"])
        into.expect("block", "description", held(block.block, "description") or None,
                    ours.get("description"))
        into.expect("block", "base", vector(held(block.block, "base_point")),
                    [ours.get("baseX", 0), ours.get("baseY", 0), ours.get("baseZ", 0)])
        flags = held(block.block, "flags")
        into.expect("block", "xref", flag(flags, 4), "xref" in ours)
        if flags is not None and flags & 4:
            into.expect("block", "xref path", held(block.block, "xref_path"), ours["xref"]["path"])
            into.expect("block", "xref overlay", flag(flags, 8), ours["xref"]["overlay"])


def compare_sheets(drawing, document, into):
    if drawing.dxfversion < "AC1015":
        return
    found = by_name(document["layouts"])
    for sheet in drawing.layouts:
        layout = sheet.dxf_layout
        ours = found.get(layout.dxf.name.lower())
        if sheet.is_modelspace:
            continue
        if ours is None:
            missing(drawing, into, "sheet", layout.dxf.name)
            continue
        for attribute, key in (("page_setup_name", "pageSetup"),
                               ("plot_configuration_file", "plotDevice"),
                               ("paper_size", "paperSize"),
                               ("current_style_sheet", "plotStyleSheet"),
                               ("plot_layout_flags", "plotFlags"), ("plot_type", "plotType"),
                               ("standard_scale_type", "standardScale"),
                               ("unit_factor", "standardScaleFactor"),
                               ("shade_plot_mode", "shadePlot"),
                               ("shade_plot_resolution_level", "shadeResolution"),
                               ("shade_plot_custom_dpi", "shadeDpi"),
                               ("layout_flags", "layoutFlags")):
            into.expect("sheet", key, held(layout, attribute), ours.get(key))
        into.expect("sheet", "plotView", held(layout, "plot_view_name") or None,
                    ours.get("plotView"))
        into.expect("sheet", "insertionBase", vector(held(layout, "insert_base")),
                    ours.get("insertionBase"))
        for attribute, key in (("ucs_origin", "origin"), ("ucs_xaxis", "xAxis"),
                               ("ucs_yaxis", "yAxis"), ("elevation", "elevation")):
            value = held(layout, attribute)
            value = value if isinstance(value, float) else vector(value)
            into.expect("sheet", f"ucs {key}", value, ours.get("ucs", {}).get(key))


def compare_text(entity, ours, into):
    kind = entity.dxftype()
    if kind == "MTEXT":
        return compare_mtext(entity, ours, into)
    into.expect(kind, "textStyle", style_of(entity), (ours.get("textStyle") or "Standard").lower())
    into.expect(kind, "widthFactor", number(held(entity, "width")), ours["widthFactor"])
    into.expect(kind, "oblique", radians(held(entity, "oblique")), ours["obliqueRad"])
    flags = held(entity, "text_generation_flag") or 0
    into.expect(kind, "mirroredX", bool(flags & 2), ours.get("mirroredX", False))
    into.expect(kind, "mirroredY", bool(flags & 4), ours.get("mirroredY", False))
    into.expect(kind, "halign", held(entity, "halign"), ours.get("halign", 0))
    into.expect(kind, "valign", held(entity, "valign"), ours.get("valign", 0))
    if held(entity, "align_point") is not None and "ax" in ours:
        into.expect(kind, "second point", vector(held(entity, "align_point"), 2),
                    [ours["ax"], ours["ay"]])
    into.expect(kind, "thickness", number(held(entity, "thickness")), ours.get("thickness", 0))
    extrusion = vector(held(entity, "extrusion"))
    into.expect(kind, "extrusion", extrusion, ours.get("extrusion", [0, 0, 1]))
    if kind in ("ATTRIB", "ATTDEF"):
        into.expect(kind, "fieldLength", held(entity, "field_length"), ours["fieldLength"])
        into.expect(kind, "lockedPosition", bool(held(entity, "lock_position")),
                    ours.get("lockedPosition", False))


def style_of(entity):
    return (held(entity, "style") or "Standard").lower()


def compare_mtext(entity, ours, into):
    into.expect("MTEXT", "textStyle", style_of(entity), (ours.get("textStyle") or "Standard").lower())
    into.expect("MTEXT", "lineSpacingStyle", held(entity, "line_spacing_style") or None,
                ours["lineSpacingStyle"])
    into.expect("MTEXT", "lineSpacingFactor", held(entity, "line_spacing_factor"),
                ours["lineSpacingFactor"])
    into.expect("MTEXT", "flowDirection", held(entity, "flow_direction") or None,
                ours["flowDirection"])
    into.expect("MTEXT", "extentsWidth", held(entity, "rect_width"), ours.get("extentsWidth", 0))
    into.expect("MTEXT", "extentsHeight", held(entity, "rect_height"),
                ours.get("extentsHeight", 0))
    fill = held(entity, "bg_fill") or 0
    background = ours.get("background", {})
    into.expect("MTEXT", "background",
                None if not fill & 19 else
                "window" if fill & 2 else "color" if fill & 1 else "none",
                background.get("fill"))
    if fill & 3:
        into.expect("MTEXT", "background scale", held(entity, "box_fill_scale"),
                    background.get("scale"))
    columns = entity.columns
    if columns is not None and columns.column_type.value:
        into.expect("MTEXT", "columns", ["", "static", "dynamic"][columns.column_type.value],
                    ours.get("columns", {}).get("type"))
        for theirs, key in ((columns.count, "count"), (columns.width, "width"),
                            (columns.gutter_width, "gutter"),
                            (columns.auto_height, "autoHeight")):
            into.expect("MTEXT", f"columns {key}", theirs, ours.get("columns", {}).get(key))


def compare_texts(drawing, document, into):
    found = {}
    lists = [document["entities"]]
    lists += [part["entities"] for part in document["assets"] + document["layouts"]]
    for record in (record for records in lists for record in records):
        if record["type"] in ("TEXT", "DYNTEXT", "MTEXT") and "handle" in record:
            found[record["handle"]] = record
    for entity in drawing.entitydb.values():
        if entity.dxftype() in ("TEXT", "MTEXT", "ATTRIB", "ATTDEF") and \
                entity.dxf.handle in found:
            compare_text(entity, found[entity.dxf.handle], into)


CHECKS = (compare_layers, compare_linetypes, compare_text_styles, compare_dimension_styles,
          compare_header, compare_views, compare_groups, compare_blocks, compare_sheets,
          compare_texts)


def open_drawing(path):
    drawing = open_with_ezdxf(path)
    if drawing is not None:
        drawing.path_of_file = path
        drawing.names = names_of(path)
    return drawing


def compare_file(worker, path):
    """({(what, key): [(theirs, ours)]}, number of values); None for files that one of
    the readers refuses."""
    logging.disable()
    drawing = open_drawing(path)
    document = convert(worker, path) if drawing is not None else None
    if document is None:
        return None
    into = Comparison()
    for check in CHECKS:
        check(drawing, document, into)
    return dict(into.differences), into.count


def files_of(folders):
    for folder in folders:
        for path in sorted(pathlib.Path(folder).rglob("*")):
            if path.suffix.lower() == ".dxf" and path.is_file() and "bad" not in path.parts:
                yield path


def known(name, what, key):
    return next((entry for entry in KNOWN
                 if all(fnmatch.fnmatchcase(value, pattern)
                        for value, pattern in zip((name, what, key), entry))), None)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", default=os.environ.get("DWG_CORPUS"))
    parser.add_argument("--all", action="store_true", help="print every difference")
    options = parser.parse_args()
    paths = list(files_of(filter(None, (OWN_DRAWINGS, options.drawings))))
    failed = compared = values = 0
    used = set()
    with concurrent.futures.ProcessPoolExecutor() as pool:
        results = pool.map(compare_file, [options.worker] * len(paths), paths)
        for path, result in zip(paths, results):
            if result is None:
                continue
            compared, values = compared + 1, values + result[1]
            for (what, key), pairs in sorted(result[0].items()):
                entry = known(path.name, what, key)
                used.add(entry)
                failed += entry is None
                if entry is None or options.all:
                    print(f"{'FAILED' if entry is None else 'differs'} {path.name}: {len(pairs)} "
                          f"{what} {key}, as {pairs[0][0]!r} there and {pairs[0][1]!r} here")
    if options.drawings:
        for entry in KNOWN.keys() - used:
            failed += 1
            print(f"FAILED no longer differs: {entry}")
    print(f"{compared} files, {values} values compared, {failed} failed")
    return 1 if failed or not compared else 0


if __name__ == "__main__":
    sys.exit(main())
