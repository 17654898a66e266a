#!/usr/bin/env python3
"""Recomputes the geometry of DXF drawings and compares it with documents.

The drawing is read here by a tag reader of its own, group code by group code
as the format's reference defines them, and every geometric record is computed
again from those tags: polylines, splines (by de Boor's algorithm, not by the
basis functions that the program sums), hatch loops, solids, wipeouts, inserts,
images, underlays, viewports and sheets, with layer, colour index and
lineweight. Texts, dimensions and leaders are only counted and keep their place
in the lists; true colours and transparency are not compared.

Without arguments every golden document of this folder is checked whose drawing
is a DXF, or whose case names a DXF of the same contents as its "twin". Other
pairs can be named: check_geometry.py DRAWING DOCUMENT ...
"""

import colorsys
import json
import math
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
DRAWINGS = HERE.parents[1] / "drawings"

TEXT_TYPES = {
    "TEXT": "TEXT", "MTEXT": "MTEXT", "ATTRIB": "DYNTEXT", "ATTDEF": "DYNTEXT",
    "LEADER": "LEADER", "MULTILEADER": "MULTILEADER", "MLEADER": "MULTILEADER",
}
DIMENSION_TYPES = {0: "DIMENSION_LINEAR", 1: "DIMENSION_ALIGNED", 4: "DIMENSION_RADIUS"}
LINEWEIGHTS = (0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120,
               140, 158, 200, 211)
MODEL_SPACE_HANDLE = 0x1F  # of drawings that do not say
TWO_PI = 6.283185307179586
ANGLE_STEP = math.pi / 18


# --- reading ---------------------------------------------------------------

def read_tags(path):
    """All (code, value) pairs of an ASCII DXF file, as texts."""
    data = path.read_bytes()
    if data.startswith(b"AutoCAD Binary DXF"):
        raise ValueError("binary DXF")
    try:
        text = data.decode("utf-8-sig")
    except UnicodeDecodeError:
        text = data.decode("cp1252", "replace")
    lines = text.replace("\r\n", "\n").replace("\r", "\n").split("\n")
    tags = []
    for code, value in zip(lines[::2], lines[1::2]):
        if not code.strip():
            break
        code = int(code)
        if code != 999:
            tags.append((code, value if code == 1 else value.strip()))
    return tags


class Entity:
    """One object of the file: its type and the tags that are its own."""

    def __init__(self, kind, tags):
        self.kind = kind
        self.tags = []
        self.followers = []  # vertices of a polyline, attributes of an insert
        depth = 0
        for code, value in tags:
            if code >= 1000:
                break
            if code == 102:
                depth += 1 if value.startswith("{") else -1
            elif depth == 0:
                self.tags.append((code, value))

    def all(self, code):
        return [value for c, value in self.tags if c == code]

    def text(self, code, default=""):
        return next((value for c, value in self.tags if c == code), default)

    def number(self, code, default=0.0):
        return float(self.text(code, default))

    def integer(self, code, default=0):
        return int(self.text(code, default))

    def point(self, code, default=(0.0, 0.0, 0.0)):
        return tuple(self.number(code + 10 * i, default[i]) for i in range(3))

    def handle(self):
        return int(self.text(5, "0"), 16)

    def owner(self):
        return int(self.text(330, "0"), 16)

    def subclass(self, name):
        """The tags behind one subclass marker."""
        part = Entity(self.kind, [])
        inside = False
        for code, value in self.tags:
            if code == 100:
                inside = value == name
            elif inside:
                part.tags.append((code, value))
        return part

    def pairs(self, code):
        """Every x of a code with the y that follows it."""
        points = []
        for c, value in self.tags:
            if c == code:
                points.append([float(value), 0.0])
            elif c == code + 10 and points:
                points[-1][1] = float(value)
        return points


def split_objects(tags):
    objects = []
    for code, value in tags:
        if code == 0:
            objects.append((value, []))
        elif objects:
            objects[-1][1].append((code, value))
    return [Entity(kind, own) for kind, own in objects]


def fold(objects):
    """Puts vertices and attributes under the object that they follow."""
    out = []
    owner = None
    for entity in objects:
        if entity.kind == "SEQEND":
            owner = None
        elif owner is not None and entity.kind in ("VERTEX", "ATTRIB"):
            owner.followers.append(entity)
        else:
            out.append(entity)
            takes = entity.kind == "POLYLINE" or (
                entity.kind == "INSERT" and entity.integer(66) == 1)
            owner = entity if takes else None
    return out


class Drawing:
    def __init__(self, path):
        self.folder = path.parent
        sections = {}
        for entity in split_objects(read_tags(path)):
            if entity.kind == "SECTION":
                current = sections.setdefault(entity.text(2), [])
                current.append(entity)
            elif entity.kind != "ENDSEC" and sections:
                current.append(entity)
        self.version = self._version(sections)
        self.layers = {}
        self.block_records = {}
        for entity in sections.get("TABLES", []):
            if entity.kind == "LAYER":
                self.layers[entity.handle()] = entity.text(2)
            elif entity.kind == "BLOCK_RECORD":
                self.block_records[entity.handle()] = entity.text(2)
        self.layer_names = {name.lower(): name for name in self.layers.values()}
        self.objects = {e.handle(): e for e in sections.get("OBJECTS", [])}
        self.blocks = self._blocks(sections.get("BLOCKS", []))
        self.entities = fold(sections.get("ENTITIES", [])[1:])
        self.block_names = {e.text(2).lower(): e.text(2) for e, _ in self.blocks.values()}
        # In file order: the contents of blocks stand before all others.
        everything = [e for _, content in self.blocks.values() for e in content] + self.entities
        self.by_handle = {e.handle(): e for e in everything}
        for entity in everything:
            name = entity.text(8, "0")
            self.layer_names.setdefault(name.lower(), name)
        self.owned = {}
        self._find_owners()

    def _find_owners(self):
        """By the handles of block records: a block has what stands in its section; of
        the other entities those have a space of their own whose owner is a record."""
        records = {name.lower(): handle for handle, name in self.block_records.items()}
        for name, (_, content) in self.blocks.items():
            self.owned.setdefault(records.get(name.lower(), name), []).extend(content)
        for entity in self.entities:
            owner = entity.owner()
            if owner not in self.block_records:
                owner = records.get("*paper_space", 0) if entity.integer(67) else 0
            self.owned.setdefault(owner, []).append(entity)

    @staticmethod
    def _version(sections):
        tags = sections.get("HEADER", [Entity("SECTION", [])])[0].tags
        for (code, name), (_, value) in zip(tags, tags[1:]):
            if code == 9 and name == "$ACADVER":
                return value
        return ""

    @staticmethod
    def _blocks(objects):
        blocks = {}
        for entity in objects[1:]:
            if entity.kind == "BLOCK":
                content = []
                blocks[entity.text(2)] = (entity, content)
            elif entity.kind != "ENDBLK" and blocks:
                content.append(entity)
        return {name: (block, fold(content)) for name, (block, content) in blocks.items()}


# --- computing -------------------------------------------------------------

def steps(sweep):
    return max(2, math.ceil(abs(sweep) / ANGLE_STEP))


def bulge_points(a, b, bulge):
    (x1, y1), (x2, y2) = a, b
    chord = math.sqrt((x2 - x1) ** 2 + (y2 - y1) ** 2)
    angle = 4 * math.atan(bulge)
    if chord < 1e-12 or abs(angle) < 1e-9:
        return [a]
    radius = chord / (2 * math.sin(abs(angle) / 2))
    height = math.sqrt(max(radius ** 2 - (chord / 2) ** 2, 0.0)) * (1 if bulge > 0 else -1)
    cx = (x1 + x2) / 2 + height * (y2 - y1) / chord
    cy = (y1 + y2) / 2 - height * (x2 - x1) / chord
    start = math.atan2(y1 - cy, x1 - cx)
    count = steps(angle)
    return [(cx + radius * math.cos(start + i * angle / count),
             cy + radius * math.sin(start + i * angle / count)) for i in range(count)]


def sweep_angles(start, end, counterclockwise):
    if end < start:
        end += TWO_PI
    sweep = end - start
    if not counterclockwise:
        start, sweep = -start, -sweep
    count = steps(sweep)
    return [start + i * sweep / count for i in range(count + 1)]


class TagQueue:
    def __init__(self, tags):
        self.tags = tags
        self.position = 0

    def peek(self):
        return self.tags[self.position][0] if self.position < len(self.tags) else None

    def take(self, code):
        """The next tag, which must have this code."""
        found, value = self.tags[self.position]
        if found != code:
            raise ValueError(f"group {found} where {code} belongs")
        self.position += 1
        return value

    def take_if(self, code, default):
        return self.take(code) if self.peek() == code else default

    def skip_to(self, code):
        while self.peek() not in (code, None):
            self.position += 1

    def xy(self, code):
        return float(self.take(code)), float(self.take(code + 10))


def hatch_polyline(queue):
    has_bulge = int(queue.take(72))
    closed = int(queue.take(73))
    vertices = []
    for _ in range(int(queue.take(93))):
        point = queue.xy(10)
        vertices.append((point, float(queue.take_if(42, 0)) if has_bulge else 0.0))
    loop = []
    for i, (point, bulge) in enumerate(vertices):
        if bulge == 0 or (i + 1 == len(vertices) and not closed):
            loop.append(point)
        else:
            loop += bulge_points(point, vertices[(i + 1) % len(vertices)][0], bulge)
    return loop


def hatch_spline(queue, version):
    queue.take(94)
    rational = int(queue.take(73))
    queue.take(74)
    knot_count = int(queue.take(95))
    control_count = int(queue.take(96))
    for _ in range(knot_count):
        queue.take(40)
    control = []
    for _ in range(control_count):
        control.append(queue.xy(10))
        if rational:
            queue.take_if(42, 1)
    fit = []
    # The count of fit points came with the 2010 release. The same code also
    # announces the path's source objects, so it counts only before fit points.
    if version >= "AC1024" and queue.peek() == 97:
        fit = [queue.xy(11) for _ in range(int(queue.take(97)))]
        for code in (12, 13):
            if queue.peek() == code:
                queue.xy(code)
    return fit or control


def hatch_edges(queue, version):
    loop = []
    count = int(queue.take(93))
    for i in range(count):
        kind = int(queue.take(72))
        if kind == 1:
            first, second = queue.xy(10), queue.xy(11)
            loop += [first, second] if i + 1 == count else [first]
        elif kind in (2, 3):
            cx, cy = queue.xy(10)
            axis = queue.xy(11) if kind == 3 else None
            size = float(queue.take(40))
            start = math.radians(float(queue.take(50)))
            end = math.radians(float(queue.take(51)))
            for a in sweep_angles(start, end, int(queue.take(73))):
                if axis is None:
                    loop.append((cx + size * math.cos(a), cy + size * math.sin(a)))
                else:
                    loop.append((cx + math.cos(a) * axis[0] - math.sin(a) * size * axis[1],
                                 cy + math.cos(a) * axis[1] + math.sin(a) * size * axis[0]))
        elif kind == 4:
            loop += hatch_spline(queue, version)
        else:
            raise ValueError(f"edge type {kind}")
    return loop


def hatch(entity, drawing):
    queue = TagQueue(entity.tags)
    queue.skip_to(91)
    loops = []
    for _ in range(int(queue.take(91))):
        queue.skip_to(92)
        flag = int(queue.take(92))
        loop = hatch_polyline(queue) if flag & 2 else hatch_edges(queue, drawing.version)
        if len(loop) >= 3:
            loops.append([value for point in loop for value in point])
    if not loops:
        return None
    solid = entity.integer(70) == 1 or entity.integer(450) != 0
    return {"type": "HATCH", "solid": solid, "loops": loops}


def de_boor(t, degree, knots, points):
    """A point of the curve through homogeneous control points."""
    count = len(points)
    span = degree
    while span < count - 1 and t >= knots[span + 1]:
        span += 1
    d = [list(points[span - degree + j]) for j in range(degree + 1)]
    for level in range(1, degree + 1):
        for j in range(degree, level - 1, -1):
            left = knots[span - degree + j]
            right = knots[span + 1 + j - level]
            share = 0.0 if right == left else (t - left) / (right - left)
            d[j] = [(1 - share) * a + share * b for a, b in zip(d[j - 1], d[j])]
    x, y, w = d[degree]
    return [x / w, y / w]


def spline(entity, _drawing):
    flags = entity.integer(70)
    record = {"type": "SPLINE", "closed": bool(flags & 1)}
    fit = entity.pairs(11)
    if fit:
        record["fit_pts"] = fit
        for code, key in ((12, "beg_tan"), (13, "end_tan")):
            x, y, _ = entity.point(code)
            if math.sqrt(x * x + y * y) > 1e-10:
                record[key] = [x, y]
        return record
    control = entity.pairs(10)
    knots = [float(value) for value in entity.all(40)]
    weights = [float(value) for value in entity.all(41)] or [1.0] * len(control)
    degree = entity.integer(71)
    if not control or len(knots) < len(control) + degree + 1:
        return None
    start, end = knots[degree], knots[-1 - degree]
    if end - start < 1e-12:
        return None
    points = [(x * w, y * w, w) for (x, y), w in zip(control, weights)]
    count = max(20, 4 * len(control))
    record["fit_pts"] = [
        de_boor(start + i / (count - 1) * (end - start), degree, knots, points)
        for i in range(count)]
    return record


def polyline(entity, _drawing):
    flags = entity.integer(70)
    if flags & (16 | 64):
        return None
    vertices = entity.followers
    if flags & 8:
        points = [list(v.point(10)) for v in vertices]
        return points and {"type": "POLYLINE_3D", "closed": bool(flags & 1), "points": points}
    frame = [v for v in vertices if v.integer(70) & 16]
    kept = [v for v in vertices if not v.integer(70) & 16] or frame
    return kept and {"type": "POLYLINE_2D", "closed": bool(flags & 1),
                     "points": [list(v.point(10)[:2]) for v in kept],
                     "bulges": [v.number(42) for v in kept]}


def lwpolyline(entity, _drawing):
    points, bulges = [], []
    for code, value in entity.tags:
        if code == 10:
            points.append([float(value), 0.0])
            bulges.append(0.0)
        elif code == 20 and points:
            points[-1][1] = float(value)
        elif code == 42 and points:
            bulges[-1] = float(value)
    closed = bool(entity.integer(70) & 1)
    return points and {"type": "LWPOLYLINE", "closed": closed, "points": points, "bulges": bulges}


def insert(entity, drawing):
    name = drawing.block_names.get(entity.text(2).lower())
    if not name or name.lower().startswith(("*model_space", "*paper_space")):
        return None
    x, y, z = entity.point(10)
    scale_y, scale_z = entity.number(42, 1), entity.number(43, 1)
    return {"type": "INSERT", "blockName": name, "x": x, "y": y,
            "rotationRad": math.radians(entity.number(50)), "scaleX": entity.number(41, 1),
            "scaleY": 1.0 if scale_y == y else scale_y,
            "scaleZ": 1.0 if scale_z == z else scale_z}


def solid(entity, _drawing):
    corners = [list(entity.point(code)[:2]) for code in (10, 11, 12, 13)]
    if not entity.all(13):
        corners[3] = corners[2]
    apart = sum((a - b) ** 2 for a, b in zip(corners[2], corners[3]))
    kept = [0, 1, 2] if apart < 1e-20 else [0, 1, 3, 2]
    return {"type": "SOLID", "pts": [corners[i] for i in kept]}


def wipeout(entity, _drawing):
    frame = entity.pairs(14)
    if not entity.integer(70) & 1 or not frame:
        return None
    (px, py, _), (ux, uy, _), (vx, vy, _) = (entity.point(code) for code in (10, 11, 12))
    return {"type": "WIPEOUT", "verts": [
        [px + (u + 0.5) * ux + (0.5 - v) * vx, py + (u + 0.5) * uy + (0.5 - v) * vy]
        for u, v in frame]}


def image(entity, drawing):
    definition = drawing.objects.get(int(entity.text(340, "0"), 16))
    width, height, _ = entity.point(13)
    if not entity.integer(70) & 1 or width <= 0 or height <= 0 or definition is None:
        return None
    p, u, v = (entity.point(code) for code in (10, 11, 12))
    return definition.text(1) and {
        "type": "IMAGE", "path": definition.text(1), "px0": p[0], "py0": p[1], "ux": u[0],
        "uy": u[1], "vx": v[0], "vy": v[1], "sw": width, "sh": height}


def resolve_pdf(declared, drawing):
    beside = declared.replace("\\", "/").rsplit("/", 1)[-1]
    if (DRAWINGS / declared).exists():
        return declared
    if beside and (drawing.folder / beside).exists():
        return str((drawing.folder / beside).relative_to(DRAWINGS))
    return ""


def pdf_underlay(entity, drawing):
    definition = drawing.objects.get(int(entity.text(340, "0"), 16))
    path = resolve_pdf(definition.text(1), drawing) if definition else ""
    x, y, _ = entity.point(10)
    return path and {"type": "PDFUNDERLAY", "path": path, "page": max(1, definition.integer(2, 1)),
                     "ix": x, "iy": y, "sx": entity.number(41, 1), "sy": entity.number(42, 1),
                     "angle": math.radians(entity.number(50))}


def viewport(entity, drawing, outer=()):
    width, height = entity.number(40), entity.number(41)
    if entity.integer(69) == 1 or width <= 0 or height <= 0:
        return None
    center, view = entity.point(10), entity.point(12)
    target, direction = entity.point(17), entity.point(16)
    status = entity.integer(90)
    frozen = [int(value, 16) for code in (331, 341) for value in entity.all(code)]
    record = {"type": "VIEWPORT", "cx": center[0], "cy": center[1], "width": width,
              "height": height, "viewCtrX": view[0], "viewCtrY": view[1],
              "viewSize": entity.number(45), "targetX": target[0], "targetY": target[1],
              "targetZ": target[2], "dirX": direction[0], "dirY": direction[1],
              "dirZ": direction[2], "twist": math.radians(entity.number(51)), "status": status,
              "frozenLayers": [drawing.layers[h] for h in frozen if h in drawing.layers]}
    clip = drawing.by_handle.get(int(entity.text(340, "0"), 16))
    inside = (*outer, entity)
    if status & 0x10000 and clip is not None and clip not in inside and len(outer) < 8:
        nested = geometry(clip, drawing, inside)
        if nested:
            record["clip"] = nested
    return record


def dimension(entity, _drawing):
    kind = DIMENSION_TYPES.get(entity.integer(70) & 7)
    return kind and {"type": kind}


def xy_record(kind, **codes):
    """A writer of a flat record: key prefixes by point code."""
    def write(entity, _drawing):
        record = {"type": kind}
        for (key_x, key_y), code in codes.values():
            x, y, _ = entity.point(code)
            record[key_x], record[key_y] = x, y
        return record
    return write


def round_record(kind, has_angles):
    def write(entity, _drawing):
        x, y, _ = entity.point(10)
        record = {"type": kind, "cx": x, "cy": y, "radius": entity.number(40)}
        if has_angles:
            record["startAngleRad"] = math.radians(entity.number(50))
            record["endAngleRad"] = math.radians(entity.number(51))
        return record
    return write


def ellipse(entity, _drawing):
    x, y, _ = entity.point(10)
    axis = entity.point(11)
    return {"type": "ELLIPSE", "cx": x, "cy": y, "smAxisX": axis[0], "smAxisY": axis[1],
            "semiMajor": math.sqrt(sum(c * c for c in axis)), "axisRatio": entity.number(40),
            "startAngleRad": entity.number(41), "endAngleRad": entity.number(42, TWO_PI)}


DIRECTED = {"a": (("x", "y"), 10), "b": (("dx", "dy"), 11)}
WRITERS = {
    "LINE": xy_record("LINE", a=(("startX", "startY"), 10), b=(("endX", "endY"), 11)),
    "POINT": xy_record("POINT", a=(("x", "y"), 10)),
    "RAY": xy_record("RAY", **DIRECTED), "XLINE": xy_record("XLINE", **DIRECTED),
    "CIRCLE": round_record("CIRCLE", False), "ARC": round_record("ARC", True),
    "ELLIPSE": ellipse, "LWPOLYLINE": lwpolyline, "POLYLINE": polyline, "SPLINE": spline,
    "HATCH": hatch, "SOLID": solid, "WIPEOUT": wipeout, "INSERT": insert, "IMAGE": image,
    "PDFUNDERLAY": pdf_underlay, "VIEWPORT": viewport, "DIMENSION": dimension,
}


def aci_rgb(index):
    """The palette entry of a colour index, by the usual construction in HSV."""
    fixed = {1: (255, 0, 0), 2: (255, 255, 0), 3: (0, 255, 0), 4: (0, 255, 255), 5: (0, 0, 255),
             6: (255, 0, 255), 8: (65, 65, 65), 9: (128, 128, 128), 250: (51,) * 3,
             251: (102,) * 3, 252: (153,) * 3, 253: (204,) * 3, 254: (255,) * 3, 255: (0,) * 3}
    if index in fixed:
        return fixed[index]
    tens, ones = divmod(index - 10, 10)
    saturation = (1, .8, .6, .4, .2, 1, 1, 1, 0, 0)[ones]
    value = (1, 1, 1, 1, 1, .75, .5, .25, .75, .5)[ones]
    return tuple(int(c * 255) for c in colorsys.hsv_to_rgb(tens * 15 / 360, saturation, value))


def color(entity):
    index = entity.integer(62, 256)
    if index in (256, 0, 7):
        return {256: "L", 0: "K", 7: "W"}[index]
    return dict(zip("rgb", aci_rgb(index)))


def with_color(record, entity):
    weight = entity.integer(370, -1)
    return {**record, "color": color(entity), "lw": weight if weight in LINEWEIGHTS else "L"}


def geometry(entity, drawing, outer=()):
    """The record that the entity must give, None for none."""
    if entity.kind in TEXT_TYPES:
        return {"type": TEXT_TYPES[entity.kind]}
    writer = WRITERS.get(entity.kind)
    more = (outer,) if entity.kind == "VIEWPORT" else ()
    record = writer(entity, drawing, *more) if writer else None
    if not record:
        return None
    layer = drawing.layer_names.get(entity.text(8, "0").lower(), "0")
    return {"type": record["type"], "layer": layer, **record}


def entity_list(entities, drawing, with_attributes):
    records = []
    for entity in entities:
        record = geometry(entity, drawing)
        if record:
            records.append(with_color(record, entity))
        if with_attributes and entity.kind == "INSERT":
            records += [{"type": "DYNTEXT"} for _ in entity.followers]
    return records


def is_variable_attribute(entity):
    return entity.kind == "ATTDEF" and not entity.integer(70) & 2


def assets(drawing):
    result = []
    handles = {name.lower(): handle for handle, name in drawing.block_records.items()}
    for name, (block, _) in drawing.blocks.items():
        content = drawing.owned.get(handles.get(name.lower(), name), [])
        if name.lower().startswith(("*model_space", "*paper_space")):
            continue
        x, y, _ = block.point(10)
        record = {"name": name}
        if x != 0 or y != 0:
            record.update(baseX=x, baseY=y)
        kept = [e for e in content if not is_variable_attribute(e)]
        record["entities"] = entity_list(kept, drawing, False)
        result.append(record)
    return result


def plot_settings(layout):
    plot, sheet = layout.subclass("AcDbPlotSettings"), layout.subclass("AcDbLayout")
    record = {"tabOrder": sheet.integer(71)}
    for key, code in (("paperW", 44), ("paperH", 45), ("marginL", 40), ("marginB", 41),
                      ("marginR", 42), ("marginT", 43), ("plotOriginX", 46), ("plotOriginY", 47)):
        record[key] = plot.number(code)
    record["paperUnit"] = plot.integer(72)
    record["rotation"] = plot.integer(73)
    record["scaleNum"], record["scaleDen"] = plot.number(142), plot.number(143)
    for key, code in (("limMin", 10), ("limMax", 11), ("extMin", 14), ("extMax", 15)):
        record[key + "X"], record[key + "Y"], _ = sheet.point(code)
    return record


def layouts(drawing):
    """The sheets by name; a sheet's order in the document is not checked."""
    by_block = {}
    for entity in drawing.objects.values():
        if entity.kind == "LAYOUT":
            by_block[int(entity.subclass("AcDbLayout").text(330, "0"), 16)] = entity
    content = {handle: drawing.owned.get(handle, [])
               for handle, name in drawing.block_records.items()
               if name.startswith("*Paper_Space")}
    clips = {int(e.text(340, "0"), 16) for own in content.values() for e in own
             if e.kind == "VIEWPORT" and e.integer(90) & 0x10000}
    result = {}
    for handle, own in content.items():
        records = entity_list([e for e in own if e.handle() not in clips], drawing, True)
        if records:
            layout = by_block.get(handle)
            name = layout.subclass("AcDbLayout").text(1) if layout else ""
            name = name or drawing.block_records[handle]
            result[name] = {"name": name, **(plot_settings(layout) if layout else {}),
                            "entities": records}
    return result


def model_space(drawing):
    """Model space and what has no owner; an owner that is no block is neither."""
    handle = next((h for h, name in drawing.block_records.items()
                   if name.lower() == "*model_space"), MODEL_SPACE_HANDLE)
    own = drawing.owned.get(handle, [])
    if MODEL_SPACE_HANDLE not in drawing.block_records and handle != MODEL_SPACE_HANDLE:
        own = own + drawing.owned.get(MODEL_SPACE_HANDLE, [])
    return entity_list(own + drawing.owned.get(0, []), drawing, True)


# --- comparing -------------------------------------------------------------

def is_number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def differences(expected, actual, where):
    if is_number(expected) and is_number(actual):
        # Ten significant digits are written; sums of larger terms lose more.
        if not math.isclose(expected, actual, rel_tol=2e-9, abs_tol=1e-8):
            yield f"{where}: expected {expected!r}, found {actual!r}"
    elif isinstance(expected, dict) and isinstance(actual, dict):
        skipped = expected.get("type") in TEXT_KINDS
        keys = [key for key in actual if key != "_dbg"]
        if not skipped and list(expected) != keys:
            yield f"{where}: keys {keys}, expected {list(expected)}"
            return
        for key, value in ({"type": expected["type"]} if skipped else expected).items():
            yield from differences(value, actual.get(key), f"{where}.{key}")
    elif isinstance(expected, list) and isinstance(actual, list):
        if len(expected) != len(actual):
            yield f"{where}: {len(actual)} items, expected {len(expected)}{list_hint(expected, actual)}"
            return
        for i, (a, b) in enumerate(zip(expected, actual)):
            yield from differences(a, b, f"{where}[{i}]")
    elif expected != actual:
        yield f"{where}: expected {expected!r}, found {actual!r}"


TEXT_KINDS = set(TEXT_TYPES.values()) | set(DIMENSION_TYPES.values())


def list_hint(expected, actual):
    """Which record types are missing or too many."""
    if not all(isinstance(item, dict) and "type" in item for item in expected + actual):
        return ""
    counts = {}
    for item in expected:
        counts[item["type"]] = counts.get(item["type"], 0) - 1
    for item in actual:
        counts[item["type"]] = counts.get(item["type"], 0) + 1
    return " " + ", ".join(f"{k} {n:+}" for k, n in sorted(counts.items()) if n)


def check(drawing_path, document):
    drawing = Drawing(drawing_path)
    found = []
    by_name = {asset["name"]: asset for asset in document["assets"]}
    for asset in assets(drawing):
        found += differences(asset, by_name.pop(asset["name"], None), f"asset {asset['name']}")
    found += [f"asset {name}: not in the drawing" for name in by_name]
    found += differences(model_space(drawing), document["entities"], "entities")
    sheets = {sheet["name"]: sheet for sheet in document["layouts"]}
    for name, sheet in layouts(drawing).items():
        found += differences(sheet, sheets.pop(name, None), f"layout {name}")
    found += [f"layout {name}: not in the drawing" for name in sheets]
    return found


def golden_pairs():
    for case in json.loads((HERE / "cases.json").read_text(encoding="utf-8")):
        drawing = case.get("twin", case.get("drawing", ""))
        if drawing.lower().endswith(".dxf"):
            yield DRAWINGS / drawing, HERE / "expected" / (case["name"] + ".json")


def main():
    names = [pathlib.Path(name) for name in sys.argv[1:]]
    pairs = list(zip(names[::2], names[1::2])) or list(golden_pairs())
    failed = 0
    for drawing, document in pairs:
        found = check(drawing, json.loads(document.read_text("utf-8", "replace")))
        failed += bool(found)
        print(f"{'FAILED' if found else 'ok'} {document.name}")
        for line in found:
            print("    " + line)
    print(f"{len(pairs) - failed} of {len(pairs)} documents agree with their drawings")
    return 1 if failed or not pairs else 0


if __name__ == "__main__":
    sys.exit(main())
