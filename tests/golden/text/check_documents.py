#!/usr/bin/env python3
"""Checks the golden documents of this folder against independent readers.

DXF drawings are read with ezdxf, an independent reader, and each text and
annotation record of the golden document is compared with what ezdxf reads. A
DWG drawing is compared with the DXF file that another program saved of it,
where cases.json names one in "twin". The HTML of multi-line text is compared
with what tests/text/mtext_model.py makes of the text, for every drawing.

Exits with 77 where ezdxf cannot be imported, unless CI is set.
"""

import json
import math
import os
import pathlib
import re
import sys
from collections import Counter

HERE = pathlib.Path(__file__).resolve().parent
DRAWINGS = HERE.parents[1] / "drawings"
sys.path.insert(0, str(HERE.parents[1] / "text"))

from mtext_model import Converter  # noqa: E402

try:
    import ezdxf
    from ezdxf.lldxf.encoding import decode_dxf_unicode
except ImportError:
    print("ezdxf cannot be imported")
    sys.exit(1 if os.environ.get("CI") else 77)

DIMENSIONS = {0: "DIMENSION_LINEAR", 1: "DIMENSION_ALIGNED", 4: "DIMENSION_RADIUS"}
TYPES = {"TEXT", "DYNTEXT", "MTEXT", "LEADER", "MULTILEADER", *DIMENSIONS.values()}
CODE = re.compile(r"%%(?:([cdp%uo])|(\d{1,3}))", re.IGNORECASE)


def shown(value):
    """A number as the document shows it; -0 and 0 are one here."""
    return float(f"{value:.10g}") + 0.0


def turned(angle):
    """An angle that may differ by a full turn, as a text without last digits."""
    return f"{math.remainder(angle, 2 * math.pi):.8f}".replace("-0.00000000", "0.00000000")


def cp1252(text):
    """Bytes that Windows-1252 leaves unassigned stand for themselves."""
    return re.sub("[\udc80-\udcff]", lambda m: chr(ord(m[0]) - 0xDC00), text or "")


def text_html(text):
    """Single-line text with its %% codes as HTML, by a regular expression."""
    state = {"u": False, "o": False}
    tags = {"u": ("<u>", "</u>"), "o": ('<span style="text-decoration:overline">', "</span>")}
    marks = {"c": "∅", "d": "°", "p": "±", "%": "%"}

    def escape(data):
        return data.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")

    def toggle(letter):
        state[letter] = not state[letter]
        return tags[letter][not state[letter]]

    parts, end = [], 0
    for match in CODE.finditer(text):
        letter = (match[1] or "").lower()
        parts.append(escape(text[end:match.start()]))
        end = match.end()
        if letter:
            parts.append(marks[letter] if letter in marks else toggle(letter))
        else:
            byte = bytes([int(match[2]) % 256])
            parts.append(escape(cp1252(byte.decode("cp1252", "surrogateescape"))))
    parts.append(escape(text[end:]))
    parts += [tags[letter][1] for letter in "uo" if state[letter]]
    return "<p>" + "".join(parts) + "</p>"


def point(vector, names):
    return dict(zip(names, (shown(vector.x), shown(vector.y))))


def style_height(document, entity):
    name = entity.dxf.get("style", "Standard")
    return document.styles.get(name).dxf.height if name in document.styles else 0


def text_record(document, entity):
    dxf = entity.dxf
    text = cp1252(dxf.get("text", ""))
    record = {**point(dxf.insert, "xy"), "html": text_html(text),
              "height": shown(dxf.get("height", 0) or style_height(document, entity)),
              "rotationRad": shown(math.radians(dxf.get("rotation", 0)))}
    kind = entity.dxftype()
    if kind == "TEXT":
        horizontal, vertical = dxf.get("halign", 0), dxf.get("valign", 0)
        if horizontal or vertical:
            record |= {"halign": horizontal, "valign": vertical,
                       **point(dxf.get("align_point", ezdxf.math.Vec3()), ["ax", "ay"])}
        return {"type": "TEXT", **record}
    record |= {"kind": kind.lower(), "tag": cp1252(dxf.tag), "flags": dxf.get("flags", 0)}
    if kind == "ATTDEF":
        record["defaultValue"] = text
        if dxf.get("prompt"):
            record["prompt"] = cp1252(dxf.prompt)
    return {"type": "DYNTEXT", **record}


def mtext_record(entity):
    dxf = entity.dxf
    direction = dxf.get("text_direction")
    angle = (math.atan2(direction.y, direction.x) if direction is not None
             else math.radians(dxf.get("rotation", 0)))
    return {"type": "MTEXT", **point(dxf.insert, "xy"), "rawMtext": cp1252(entity.text),
            "width": shown(dxf.get("width", 0)), "height": shown(dxf.get("char_height", 0)),
            "rotationRad": turned(angle), "attachment": dxf.get("attachment_point", 0)}


def dimension_record(entity):
    dxf = entity.dxf
    kind = DIMENSIONS.get(entity.dimtype)
    if kind is None:
        return None
    if kind == "DIMENSION_RADIUS":
        record = {**point(dxf.defpoint4, ["arcX", "arcY"]),
                  "leaderLen": shown(dxf.get("leader_length", 0))}
    else:
        record = {**point(dxf.defpoint2, ["x1", "y1"]), **point(dxf.defpoint3, ["x2", "y2"])}
    if kind == "DIMENSION_LINEAR":
        record["dimRotationRad"] = shown(math.radians(dxf.get("angle", 0)))
    return {"type": kind, **record, **point(dxf.defpoint, ["defX", "defY"]),
            **point(dxf.text_midpoint, ["textMidX", "textMidY"]),
            "measurement": shown(dxf.get("actual_measurement", 0)),
            "userText": cp1252(dxf.get("text", ""))}


def leader_record(entity):
    # LibreDWG reads a missing arrowhead flag as off, ezdxf as on.
    points = [[shown(p[0]), shown(p[1])] for p in entity.vertices]
    if len(points) < 2:
        return None
    return {"type": "LEADER", "points": points, "arrowOn": entity.dxf.hasattr("has_arrowhead") and bool(entity.dxf.has_arrowhead)}


def multileader_record(entity):
    context = entity.context
    lines = []
    for leader in context.leaders:
        lines += [[shown(c) for v in line.vertices for c in (v.x, v.y)]
                  for line in leader.lines if len(line.vertices) > 1]
        if leader.has_dogleg_vector and leader.dogleg_length:
            start, step = leader.last_leader_point, leader.dogleg_vector * leader.dogleg_length
            lines.append([shown(c) for c in (start.x, start.y, start.x + step.x,
                                             start.y + step.y)])
    if not lines:
        return None
    record = {"type": "MULTILEADER", "lines": lines,
              "arrowSize": shown(context.arrow_head_size or entity.dxf.get("arrow_head_size", 0))}
    text = context.mtext
    if text is not None and text.default_content:
        height = text.defined_height if text.defined_height > 0 else context.char_height
        html = Converter(cp1252(text.default_content).encode(), height).run().html.decode()
        record["text"] = {"html": html, **point(text.insert, "xy"), "height": shown(height),
                          "rotationRad": shown(text.rotation)}
    return record


def record_of(document, entity):
    kind = entity.dxftype()
    if kind in ("TEXT", "ATTRIB", "ATTDEF"):
        return text_record(document, entity)
    if kind == "MTEXT":
        return mtext_record(entity)
    if kind == "DIMENSION":
        return dimension_record(entity)
    if kind == "LEADER":
        return leader_record(entity)
    if kind in ("MULTILEADER", "MLEADER"):
        return multileader_record(entity)
    return None


def is_left_out(space, entity):
    """Attributes that vary with each insert are not drawn with their block."""
    return (entity.dxftype() == "ATTDEF" and not space.is_any_layout
            and not entity.dxf.get("flags", 0) & 2)


def read_records(path):
    """What ezdxf reads, each record as one comparable text."""
    document = ezdxf.readfile(path, encoding=None if utf8(path) else "cp1252",
                              errors="surrogateescape")
    entities = [e for space in document.blocks for e in space if not is_left_out(space, e)]
    entities += [a for e in entities if e.dxftype() == "INSERT" for a in e.attribs]
    records = [record_of(document, entity) for entity in entities]
    return Counter(comparable(record) for record in records if record)


def utf8(path):
    return re.search(rb"AC10(2[147]|32)", path.read_bytes()[:400]) is not None


def comparable(record):
    record = {key: decode_dxf_unicode(value) if isinstance(value, str) else value
              for key, value in record.items()}
    if record["type"] == "MTEXT":
        record.pop("html", None)  # compared with the model
    return json.dumps(record, sort_keys=True, ensure_ascii=False)


def compared_keys(record):
    """The golden record's keys that another reader can tell."""
    left_out = {"layer", "color", "lw", "fontFamily", "textHeight", "arrowSize", "textColorRgb",
                "lineColorRgb", "dimDec", "dimLFac", "dimRnd", "dimZin", "dimLUnit", "dimPost",
                "runs", "blocks"}
    if record["type"] == "MULTILEADER":
        left_out = left_out - {"arrowSize"}

    def plain(value):
        if isinstance(value, bool) or isinstance(value, str):
            return value
        if isinstance(value, list):
            return [plain(item) for item in value]
        if isinstance(value, dict):
            return {key: plain(item) for key, item in value.items()}
        return shown(value) if isinstance(value, float) else value

    kept = {key: plain(value) for key, value in record.items() if key not in left_out}
    if record["type"] == "MTEXT":
        kept["rotationRad"] = turned(record["rotationRad"])
    return kept


def golden_records(document):
    lists = [document["entities"], *(a["entities"] for a in document["assets"]),
             *(layout["entities"] for layout in document["layouts"])]
    return [record for records in lists for record in records if record["type"] in TYPES]


def normalized(text):
    """Integral numbers may be written as 2 or 2.0."""
    return re.sub(r"(?<![\w.])(-?\d+)\.0(?![\d])", r"\1", text).replace("-0,", "0,")


def check_html(name, records):
    problems = []
    for record in records:
        if record["type"] != "MTEXT":
            continue
        model = Converter(record["rawMtext"].encode(), record["height"]).run()
        if model.html.decode() != record["html"]:
            problems.append(f"{name}: html {record['html']!r} of {record['rawMtext']!r}")
        runs = [(run["start"], run["length"], run.get("stretch", 0), run.get("tracking", 0),
                 run.get("fixedPitch", False)) for run in record.get("runs", [])]
        if model.runs != runs:
            problems.append(f"{name}: runs {runs}, the model has {model.runs}")
        if len(model.blocks) != len(record.get("blocks", [])):
            problems.append(f"{name}: blocks {record.get('blocks')}")
    return problems


def check_case(case):
    name = case["name"]
    document = json.loads((HERE / "expected" / f"{name}.json").read_text(encoding="utf-8"))
    records = golden_records(document)
    problems = check_html(name, records)
    source = case.get("twin", case["drawing"])
    if not source.lower().endswith(".dxf"):
        return problems, 0
    ignored = set(case.get("notCompared", []))
    ours = Counter(normalized(comparable({k: v for k, v in compared_keys(record).items()
                                          if k not in ignored})) for record in records)
    theirs = Counter()
    for text, count in read_records(DRAWINGS / source).items():
        record = {k: v for k, v in json.loads(text).items() if k not in ignored}
        theirs[normalized(json.dumps(record, sort_keys=True, ensure_ascii=False))] += count
    problems += [f"{name}: only in the golden document: {text}" for text in ours - theirs]
    problems += [f"{name}: only in the other reading: {text}" for text in theirs - ours]
    return problems, sum(ours.values())


def main():
    failed = compared = 0
    for case in json.loads((HERE / "cases.json").read_text(encoding="utf-8")):
        problems, count = check_case(case)
        compared += count
        failed += len(problems)
        print(f"{case['name']}: {count} records compared, {len(problems)} problems")
        for problem in problems:
            print("  " + problem)
    print(f"{compared} records compared, {failed} problems")
    return 1 if failed or not compared else 0


if __name__ == "__main__":
    sys.exit(main())
