"""One form for what the worker and ezdxf find in a drawing, so that they can be compared.

An entity becomes an Entity: the space it stands in (`model`, `sheet` or
`block NAME`), its type in the worker's words, its layer, a name (of the block it
refers to, or an attribute's tag), its numbers, its text where the text is plain, and
its looks (colour and lineweight). Numbers are those that the worker writes: X and Y
only, as stored. `differences` pairs two collections of them.
"""

import collections
import dataclasses
import html
import json
import math
import pathlib
import re
import subprocess

try:
    import ezdxf
    from ezdxf import recover
except ImportError:
    ezdxf = None

# Stands for a value that a file does not hold, and that readers take differently.
UNSAID = math.nan
# Values that differ by less than this, relative to their size, are one: the
# document has ten digits.
CLOSE = 1e-8
# Only a hang reaches it.
TIMEOUT_SECONDS = 600
# In a drawing that is wrong all over a search among all would cost the square.
MOST_TRIED = 400
SPLINE_FEWEST_SAMPLES = 20
SPLINE_SAMPLES_PER_POINT = 4
# Codes of texts, and characters behind a caret, which LibreDWG's reader decodes.
CODES = re.compile(r"%%|\\|\^")
TAGS = re.compile(r"<[^>]*>")
DIMENSIONS = {0: "DIMENSION_LINEAR", 1: "DIMENSION_ALIGNED", 4: "DIMENSION_RADIUS"}


@dataclasses.dataclass(frozen=True)
class Entity:
    space: str
    kind: str
    layer: str
    name: str
    numbers: tuple
    text: object = None
    looks: tuple = ()


@dataclasses.dataclass
class Drawing:
    entities: list
    layers: dict
    blocks: set


def folded(name):
    """A name for comparison: without regard to case and to blanks behind it. What is
    not ASCII is `?`, since the worker reads 8-bit text as Windows-1252 on purpose."""
    name = name.rstrip()
    return name.lower() if name.isascii() else "?"


def angle(radians):
    return math.fmod(math.fmod(radians, math.tau) + math.tau, math.tau)


def flat(points):
    return tuple(coordinate for point in points for coordinate in (point[0], point[1]))


def number(value):
    return float(value) if math.isfinite(value) else 0.0


def said(value):
    """As `number`, but what the file does not say stays so."""
    return value if math.isnan(value) else number(value)


# -- the worker's document

def text_of_html(fragment):
    """The text of a one-line fragment; None when it holds codes."""
    return html.unescape(TAGS.sub("", fragment))


def looks_of_record(record):
    color = record["color"]
    if isinstance(color, dict):
        color = (color["r"], color["g"], color["b"])
    return (color, record["lw"])


NUMBERS_OF_RECORD = {
    "LINE": lambda r: (r["startX"], r["startY"], r["endX"], r["endY"]),
    "RAY": lambda r: (r["x"], r["y"], r["dx"], r["dy"]),
    "XLINE": lambda r: (r["x"], r["y"], r["dx"], r["dy"]),
    "POINT": lambda r: (r["x"], r["y"]),
    "CIRCLE": lambda r: (r["cx"], r["cy"], r["radius"]),
    "ARC": lambda r: (r["cx"], r["cy"], r["radius"], angle(r["startAngleRad"]),
                      angle(r["endAngleRad"])),
    "ELLIPSE": lambda r: (r["cx"], r["cy"], r["smAxisX"], r["smAxisY"], r["axisRatio"],
                          angle(r["startAngleRad"]), angle(r["endAngleRad"])),
    "LWPOLYLINE": lambda r: (r["closed"], *flat(r["points"]), *r["bulges"]),
    "POLYLINE_2D": lambda r: (r["closed"], *flat(r["points"]), *r["bulges"]),
    "POLYLINE_3D": lambda r: (r["closed"], *(c for p in r["points"] for c in p)),
    "SOLID": lambda r: flat(r["pts"]),
    "SPLINE": lambda r: (r["closed"], len(r["fit_pts"])),
    "HATCH": lambda r: (r["solid"],),
    "INSERT": lambda r: (r["x"], r["y"], angle(r["rotationRad"]), r["scaleX"], r["scaleY"],
                         r["scaleZ"]),
    "TEXT": lambda r: (r["x"], r["y"], r["height"], angle(r["rotationRad"]),
                       r.get("halign", 0), r.get("valign", 0)),
    "MTEXT": lambda r: (r["x"], r["y"], r["height"], r["width"], angle(r["rotationRad"]),
                        r["attachment"]),
    "DYNTEXT": lambda r: (r["x"], r["y"], r["height"], angle(r["rotationRad"]), r["flags"]),
    "DIMENSION_LINEAR": lambda r: (r["x1"], r["y1"], r["x2"], r["y2"], r["defX"], r["defY"],
                                   angle(r["dimRotationRad"]), r["textMidX"], r["textMidY"]),
    "DIMENSION_ALIGNED": lambda r: (r["x1"], r["y1"], r["x2"], r["y2"], r["defX"], r["defY"],
                                    r["textMidX"], r["textMidY"]),
    "DIMENSION_RADIUS": lambda r: (r["defX"], r["defY"], r["arcX"], r["arcY"], r["textMidX"],
                                   r["textMidY"]),
    "LEADER": lambda r: (*flat(r["points"]), r["arrowOn"]),
    "IMAGE": lambda r: (r["px0"], r["py0"], r["sw"], r["sh"]),
    "VIEWPORT": lambda r: (r["cx"], r["cy"], r["width"], r["height"], r["viewSize"]),
}
TEXT_OF_RECORD = {
    "TEXT": lambda r: text_of_html(r["html"]),
    "DYNTEXT": lambda r: text_of_html(r["html"]),
    "MTEXT": lambda r: r["rawMtext"],
    "DIMENSION_LINEAR": lambda r: r["userText"],
    "DIMENSION_ALIGNED": lambda r: r["userText"],
    "DIMENSION_RADIUS": lambda r: r["userText"],
}


def entity_of_record(record, space):
    kind = record["type"]
    numbers = NUMBERS_OF_RECORD.get(kind, lambda _: ())(record)
    return Entity(space, kind, folded(record["layer"]),
                  folded(record.get("blockName", record.get("tag", ""))),
                  tuple(number(n) for n in numbers),
                  TEXT_OF_RECORD.get(kind, lambda _: None)(record), looks_of_record(record))


def read_document(document):
    """The document's entities, layers and blocks."""
    spaces = [("model", document["entities"])]
    spaces += [("block " + folded(asset["name"]), asset["entities"])
               for asset in document["assets"]]
    spaces += [("sheet", layout["entities"]) for layout in document["layouts"]]
    layers = {folded(layer["name"]): (layer["visible"], layer["locked"], layer["lw"])
              for layer in document["layers"]}
    return Drawing([entity_of_record(record, space) for space, records in spaces
                    for record in records], layers,
                   {folded(asset["name"]) for asset in document["assets"]})


def convert(worker, path):
    """The exit status and the document, or None without one."""
    run = subprocess.run([worker, str(path)], capture_output=True, timeout=TIMEOUT_SECONDS,
                         check=False)
    if run.returncode != 0:
        return run.returncode, None
    return 0, json.loads(run.stdout.decode("utf-8", "replace"))


# -- ezdxf's drawing

def open_with_ezdxf(path):
    """The drawing, or None when ezdxf cannot read it."""
    try:
        return ezdxf.readfile(path)
    except Exception:  # whatever a broken file makes of another reader  pylint: disable=broad-except
        pass
    try:
        return recover.readfile(path)[0]
    except Exception:  # pylint: disable=broad-except
        return None


def lineweight(value):
    """Negative ones stand for the layer, the block and the default."""
    return "L" if value < 0 else value


def looks_of_ezdxf(entity):
    """A true colour as it is. Of an index only its kind, since the colours of the
    palette are the document's own."""
    if entity.dxf.hasattr("true_color"):
        value = entity.dxf.true_color
        color = (value >> 16 & 255, value >> 8 & 255, value & 255)
    else:
        color = {256: "L", 0: "K", 7: "W"}.get(entity.dxf.get("color", 256), "index")
    return (color, lineweight(entity.dxf.get("lineweight", -1)))


def plain_text(text):
    """The text when the worker writes it as it stands, else None: no codes, no
    bytes that depend on a code page, nothing that a line cannot hold."""
    if text.isascii() and text.isprintable() and not CODES.search(text):
        return text
    return None


def text_height(entity):
    """The entity's height, or its style's fixed one when it has none."""
    height = entity.dxf.get("height", 0)
    style = entity.doc.styles.get(entity.dxf.get("style", "Standard")) \
        if height == 0 and entity.dxf.get("style", "Standard") in entity.doc.styles else None
    return height if style is None else style.dxf.get("height", 0)


def solid_points(entity):
    d = entity.dxf
    corners = [d.vtx0, d.vtx1, d.vtx2, d.get("vtx3", d.vtx2)]
    if (corners[2] - corners[3]).magnitude < 1e-10:
        return flat(corners[:3])
    return flat([corners[0], corners[1], corners[3], corners[2]])


def polyline_numbers(entity):
    """A spline's frame is written only for three dimensions, or in place of vertices."""
    if entity.get_mode() == "AcDb3dPolyline":
        return (entity.is_closed, *(c for v in entity.vertices for c in v.dxf.location))
    vertices = [v for v in entity.vertices if not v.dxf.get("flags", 0) & 16] or entity.vertices
    return (entity.is_closed, *flat(v.dxf.location for v in vertices),
            *(v.dxf.get("bulge", 0) for v in vertices))


def spline_numbers(entity):
    count = len(entity.fit_points) or max(
        SPLINE_FEWEST_SAMPLES, SPLINE_SAMPLES_PER_POINT * len(entity.control_points))
    return (entity.closed, count)


def mtext_numbers(entity):
    d = entity.dxf
    return (d.insert.x, d.insert.y, d.get("char_height", 0), d.get("width", 0),
            angle(math.radians(entity.get_rotation())), d.get("attachment_point", 1))


def text_numbers(entity):
    d = entity.dxf
    return (d.insert.x, d.insert.y, text_height(entity),
            angle(math.radians(d.get("rotation", 0))), d.get("halign", 0), d.get("valign", 0))


def attribute_numbers(entity):
    d = entity.dxf
    return (d.insert.x, d.insert.y, text_height(entity),
            angle(math.radians(d.get("rotation", 0))), d.get("flags", 0))


def insert_numbers(entity):
    d = entity.dxf
    return (d.insert.x, d.insert.y, angle(math.radians(d.get("rotation", 0))),
            d.get("xscale", 1), d.get("yscale", 1), d.get("zscale", 1))


def dimension_numbers(entity):
    d, kind = entity.dxf, entity.dimtype
    middle = flat([d.get("text_midpoint", (0, 0))])
    if kind == 4:
        return flat([d.defpoint, d.get("defpoint4", (0, 0))]) + middle
    ends = flat([d.get("defpoint2", (0, 0)), d.get("defpoint3", (0, 0)), d.defpoint])
    turned = () if kind else (angle(math.radians(d.get("angle", 0))),)
    return ends + turned + middle


NUMBERS_OF_EZDXF = {
    "LINE": lambda e: flat([e.dxf.start, e.dxf.end]),
    "RAY": lambda e: flat([e.dxf.start, e.dxf.unit_vector]),
    "XLINE": lambda e: flat([e.dxf.start, e.dxf.unit_vector]),
    "POINT": lambda e: flat([e.dxf.location]),
    "CIRCLE": lambda e: flat([e.dxf.center]) + (e.dxf.radius,),
    "ARC": lambda e: flat([e.dxf.center]) + (
        e.dxf.radius, angle(math.radians(e.dxf.start_angle)),
        angle(math.radians(e.dxf.end_angle))),
    "ELLIPSE": lambda e: flat([e.dxf.center, e.dxf.major_axis]) + (
        e.dxf.ratio, angle(e.dxf.start_param), angle(e.dxf.end_param)),
    "LWPOLYLINE": lambda e: (e.closed, *flat(e.get_points("xy")),
                             *(p[0] for p in e.get_points("b"))),
    "POLYLINE_2D": polyline_numbers,
    "POLYLINE_3D": polyline_numbers,
    "SOLID": solid_points,
    "SPLINE": spline_numbers,
    "HATCH": lambda e: (bool(e.dxf.get("solid_fill", 0)) or e.has_gradient_data,),
    "INSERT": insert_numbers,
    "TEXT": text_numbers,
    "MTEXT": mtext_numbers,
    "DYNTEXT": attribute_numbers,
    "DIMENSION_LINEAR": dimension_numbers,
    "DIMENSION_ALIGNED": dimension_numbers,
    "DIMENSION_RADIUS": dimension_numbers,
    "LEADER": lambda e: (*flat(e.vertices), e.dxf.get("has_arrowhead", UNSAID)),
    "IMAGE": lambda e: flat([e.dxf.insert, e.dxf.image_size]),
    "VIEWPORT": lambda e: flat([e.dxf.center]) + (e.dxf.width, e.dxf.height,
                                                    e.dxf.get("view_height", UNSAID)),
}
TEXT_OF_EZDXF = {
    "TEXT": lambda e: plain_text(e.dxf.get("text", "")),
    "DYNTEXT": lambda e: plain_text(e.dxf.get("text", "")),
    "MTEXT": lambda e: plain_text(e.text),
    "DIMENSION_LINEAR": lambda e: plain_text(e.dxf.get("text", "")),
    "DIMENSION_ALIGNED": lambda e: plain_text(e.dxf.get("text", "")),
    "DIMENSION_RADIUS": lambda e: plain_text(e.dxf.get("text", "")),
}
POLYLINES = {"AcDb2dPolyline": "POLYLINE_2D", "AcDb3dPolyline": "POLYLINE_3D"}
SAME_KINDS = {"ATTRIB": "DYNTEXT", "ATTDEF": "DYNTEXT", "ACAD_PROXY_ENTITY": None}
# The worker has records for these alone; it counts the others.
KINDS = {*NUMBERS_OF_EZDXF, "MULTILEADER", "WIPEOUT"} - {"DYNTEXT"}


def kind_of_ezdxf(entity):
    """The worker's word for the entity's type, or None for one without a record."""
    kind = entity.dxftype()
    if kind == "POLYLINE":
        return POLYLINES.get(entity.get_mode())
    if kind == "DIMENSION":
        return DIMENSIONS.get(entity.dimtype)
    return kind if kind in KINDS else SAME_KINDS.get(kind)


def has_a_record(entity, kind, space, clips):
    """False for what the document leaves out by its rules, or writes elsewhere."""
    if kind is None or entity.dxf.get("handle") in clips:
        return False
    if kind == "HATCH":
        return len(entity.paths) > 0
    if kind in ("POLYLINE_2D", "POLYLINE_3D"):
        return len(entity.vertices) > 0
    if kind == "INSERT":
        return not space_of(entity.dxf.get("name", "")) in ("model", "sheet") \
            and entity.dxf.get("name", "") in entity.doc.blocks
    if kind == "IMAGE":
        return bool(entity.dxf.get("flags", 1) & 1)  # is shown
    if kind == "MULTILEADER":
        return len(entity.context.leaders) > 0
    if kind == "VIEWPORT":
        return entity.dxf.get("id", 2) != 1 and entity.dxf.width > 0 and entity.dxf.height > 0
    if kind == "DYNTEXT" and entity.dxftype() == "ATTDEF":
        return bool(entity.dxf.get("flags", 0) & 2) or not space.startswith("block")
    return True


def entity_of_ezdxf(entity, kind, space):
    dxf = entity.dxf
    try:
        numbers = tuple(said(n) for n in NUMBERS_OF_EZDXF.get(kind, lambda _: ())(entity))
    except ezdxf.DXFError:
        return None  # without the points that its type needs
    name = dxf.get("name", "") if kind == "INSERT" else \
        dxf.get("tag", "") if kind == "DYNTEXT" else ""
    return Entity(space, kind, folded(dxf.get("layer", "0")), folded(name), numbers,
                  TEXT_OF_EZDXF.get(kind, lambda _: None)(entity), looks_of_ezdxf(entity))


def space_of(block_name):
    name = block_name.lower()
    if name.startswith(("*model_space", "$model_space")):
        return "model"
    if name.startswith(("*paper_space", "$paper_space")):
        return "sheet"
    return "block " + folded(block_name)


def names_in(contents, name):
    """Whether a group 2 of the file's bytes, text or binary, holds the name."""
    name = re.escape(name.lower().encode())
    return re.search(rb"\n *2 *\r?\n" + name + rb" *\r?\n|\x02\x00?" + name + rb"\x00", contents)


def read_ezdxf(drawing):
    """The drawing's entities, layers and blocks, as the worker would write them."""
    contents = pathlib.Path(drawing.filename).read_bytes().lower()
    clips = {e.dxf.get("clipping_boundary_handle") for block in drawing.blocks for e in block
             if e.dxftype() == "VIEWPORT"} - {None, "0"}
    entities, blocks = [], set()
    for block in drawing.blocks:
        space = space_of(block.name)
        if block.name.startswith("_") and not names_in(contents, block.name):
            continue  # an arrow that ezdxf adds to old files
        if space.startswith("block"):
            blocks.add(folded(block.name))
        for entity in block:
            members = [entity]
            if entity.dxftype() == "INSERT" and not space.startswith("block"):
                members += entity.attribs
            for member in members:
                kind = kind_of_ezdxf(member)
                if has_a_record(member, kind, space, clips):
                    found = entity_of_ezdxf(member, kind, space)
                    if found is not None:
                        entities.append(found)
    layers = {folded(layer.dxf.name): (not layer.is_off(), layer.is_locked(),
                                       lineweight(layer.dxf.lineweight)
                                       if layer.dxf.hasattr("lineweight") else None)
              for layer in drawing.layers}
    return Drawing(entities, layers, blocks)


# -- the comparison

def close(a, b):
    return math.isnan(a) or abs(a - b) <= CLOSE * max(1.0, abs(a), abs(b)) or \
        abs(abs(a - b) - math.tau) <= CLOSE


def same_name(a, b):
    return a == b or "?" in (a, b)


def same_space(a, b):
    return a == b or (a.startswith("block") and b.startswith("block") and
                      ("?" in (a[-1], b[-1])))


def same_looks(theirs, ours):
    color, width = theirs
    if color == "index":
        return isinstance(ours[0], tuple) and width == ours[1]
    return (color, width) == ours


def faults(theirs, ours):
    """In what two entities of one type differ, worst first."""
    found = []
    if not same_space(theirs.space, ours.space):
        found.append("space")
    if not same_name(theirs.layer, ours.layer):
        found.append("layer")
    if not same_name(theirs.name, ours.name):
        found.append("name")
    if len(theirs.numbers) != len(ours.numbers) or \
            not all(map(close, theirs.numbers, ours.numbers)):
        found.append("values")
    if theirs.text is not None and theirs.text != ours.text:
        found.append("text")
    if not same_looks(theirs.looks, ours.looks):
        found.append("looks")
    return found


def rough(entity):
    """Entities that could be one have this in common, but for the last digit."""
    return (entity.kind, *(f"{n:.5g}" for n in entity.numbers[:2]))


def pairs_of(theirs, ours):
    """Pairs the entities of one type: those without a fault, then those in one place,
    then the rest. Yields (theirs, ours, faults); one side is None without a partner."""
    buckets = collections.defaultdict(list)
    for entity in ours:
        buckets[rough(entity)].append(entity)
    left = []
    for entity in theirs:
        bucket = buckets[rough(entity)]
        match = next((other for other in bucket if not faults(entity, other)), None)
        if match is None:
            left.append(entity)
        else:
            bucket.remove(match)
    rest = [entity for bucket in buckets.values() for entity in bucket]
    for entity in left:
        if not rest:
            yield entity, None, ["missing"]
            continue
        best = min(range(min(len(rest), MOST_TRIED)), key=lambda i: penalty(entity, rest[i]))
        other = rest.pop(best)
        wrong = faults(entity, other)
        if wrong:
            yield entity, other, wrong
    for entity in rest:
        yield None, entity, ["added"]


def penalty(theirs, ours):
    wrong = faults(theirs, ours)
    if "values" not in wrong:
        return len(wrong)
    return 10 + len(wrong)


def differences(theirs, ours):
    """All (kind, fault, theirs, ours) in which two drawings differ."""
    found = []
    kinds = {e.kind for e in theirs.entities} | {e.kind for e in ours.entities}
    for kind in sorted(kinds):
        a = [e for e in theirs.entities if e.kind == kind]
        b = [e for e in ours.entities if e.kind == kind]
        found += [(kind, wrong, x, y) for x, y, all_wrong in pairs_of(a, b)
                  for wrong in all_wrong]
    used = {entity.layer: None for entity in theirs.entities}
    return found + layer_differences({**used, **theirs.layers}, ours.layers)


def layer_differences(theirs, ours):
    """Layers that the document lacks, those that entities stand on and no table names
    included, or whose flags differ. One that only the document has is none: ezdxf
    leaves out what it does not need."""
    found = []
    for name, flags in sorted(theirs.items()):
        if name == "?":
            continue
        if name not in ours:
            if name not in ("0", "defpoints") or flags is None:
                found.append(("LAYER", "missing", name, None))
        elif flags is None:
            continue  # in no table
        elif flags[:2] != ours[name][:2] or flags[2] not in (None, ours[name][2]):
            found.append(("LAYER", "flags", (name, *flags), ours[name]))
    return found
