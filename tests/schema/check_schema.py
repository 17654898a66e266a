#!/usr/bin/env python3
"""Holds documents against docs/document.schema.json, and those of the complete form
against docs/document-complete.schema.json.

Without arguments: every golden document must be valid, and every planted
mistake must be rejected. With --worker: the complete documents of the repository's
own drawings; with --drawings as well, both documents of every drawing in a folder.
With --fuzz-replay and --fuzz-inputs: those of the kept inputs of the fuzz target
that makes up whole drawings.
"""

import argparse
import copy
import json
import math
import os
import pathlib
import subprocess
import sys

import jsonschema_rs

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = json.loads((ROOT / "docs" / "document.schema.json").read_text(encoding="utf-8"))
COMPLETE_SCHEMA = json.loads(
    (ROOT / "docs" / "document-complete.schema.json").read_text(encoding="utf-8"))
OWN_DRAWINGS = ROOT / "tests" / "drawings"
# Only a hang reaches it.
TIMEOUT_SECONDS = 600


def finite(text):
    """Ten digits may round the largest doubles up beyond what a double holds."""
    value = float(text)
    return value if math.isfinite(value) else math.copysign(sys.float_info.max, value)


def parse(data):
    """The document, with bytes that are no UTF-8 replaced as hosts do."""
    return json.loads(data.decode("utf-8", "replace"), parse_float=finite)


def golden_documents():
    for path in sorted((ROOT / "tests" / "golden").glob("*/expected/*.json")):
        yield f"{path.parent.parent.name}/{path.stem}", parse(path.read_bytes())


def corpus_documents(worker, drawings, *arguments):
    for path in sorted(pathlib.Path(drawings).rglob("*")):
        if path.suffix.lower() in (".dwg", ".dxf") and path.is_file():
            run = subprocess.run([worker, str(path), "--verbose", *arguments], capture_output=True,
                                 timeout=TIMEOUT_SECONDS, check=False)
            if run.returncode in (0, 1):
                yield str(path.relative_to(drawings)), parse(run.stdout)


def fuzz_documents(replay, inputs):
    """Documents of made-up drawings, one a line, which end before the timings."""
    run = subprocess.run([replay, str(inputs)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                         env={**os.environ, "DWG_FUZZ_PRINT": "1"}, timeout=TIMEOUT_SECONDS,
                         check=True)
    for i, line in enumerate(run.stdout.splitlines()):
        yield f"made-up drawing {i}", {**parse(line), "timings": minimal()["timings"]}


def minimal():
    """A valid document with one record, to plant mistakes into."""
    record = {"type": "LINE", "layer": "0", "startX": 0, "startY": 0, "endX": 1, "endY": 1,
              "color": "L", "lw": "L"}
    return {"dwgVersion": "2000", "insunits": 4,
            "layers": [{"name": "0", "visible": True, "locked": False,
                        "color": {"r": 1, "g": 2, "b": 3}, "lw": 25}],
            "assets": [{"name": "b", "baseX": 1, "baseY": 2, "entities": [record]}],
            "entities": [copy.deepcopy(record)],
            "layouts": [{"name": "s", "entities": [copy.deepcopy(record)]}],
            "warnings": ["w"],
            "timings": {key: 0 for key in ("dwgReadMs", "prepassMs", "layersMs", "assetsMs",
                                           "entitiesMs", "workerTotalMs")}}


def minimal_complete():
    """The same in the complete form."""
    document = {"form": {"name": "complete", "version": "2.0.0"}, **minimal(),
                "codePage": {"name": "ANSI_1251", "by": "drawing", "named": "ansi_1251"},
                "header": {"LTSCALE": 1, "EXTMIN": [0, 0, 0], "CLAYER": "0"},
                "linetypes": [{"name": "D", "description": "", "length": 1,
                               "dashes": [{"length": 1}]}],
                "textStyles": [], "dimensionStyles": [{"name": "S", "variables": {"DIMTXT": 1}}],
                "views": [], "coordinateSystems": [],
                "groups": [{"name": "G", "description": "", "selectable": True,
                            "unnamed": False, "members": ["2A"]}],
                "properties": {"created": "2008-05-06T20:15:39"},
                "thumbnail": {"kind": "PNG", "base64": "iVBORw0KGgo="}}
    further = {"handle": "2A", "owner": "1F", "linetype": "L", "linetypeScale": 1}
    for section in ("assets", "layouts"):
        document[section][0]["entities"][0].update(further)
    document["entities"][0].update(further)
    document["layers"][0].update({"frozen": False, "plotted": True, "linetype": "Continuous"})
    document["layouts"][0].update({"block": "2B", "active": True})
    document["assets"][0].update({"handle": "2C", "units": 4, "explodable": True})
    return document


def put(path, value):
    """A mistake: the value at a path of keys; DELETE removes the key."""
    def plant(document):
        target = document
        for key in path[:-1]:
            target = target[key]
        if value is DELETE:
            del target[path[-1]]
        else:
            target[path[-1]] = value
    return plant


DELETE = object()
PLANTED = {
    "a missing section": put(["layers"], DELETE),
    "an unknown section": put(["blocks"], []),
    "a release word in lower case": put(["dwgVersion"], "r14"),
    "units as a text": put(["insunits"], "4"),
    "a nameless layer": put(["layers", 0, "name"], ""),
    "a layer colour as a tag": put(["layers", 0, "color"], "L"),
    "a channel above 255": put(["layers", 0, "color", "r"], 256),
    "a lineweight that no code stands for": put(["layers", 0, "lw"], 26),
    "an alpha of 0": put(["layers", 0, "alpha"], 0),
    "a base point without its y": put(["assets", 0, "baseY"], DELETE),
    "an unknown record type": put(["entities", 0, "type"], "LINES"),
    "a record without its layer": put(["entities", 0, "layer"], DELETE),
    "a record without its colour": put(["entities", 0, "color"], DELETE),
    "a colour tag that does not exist": put(["entities", 0, "color"], "B"),
    "a coordinate as null": put(["entities", 0, "endX"], None),
    "a key of another record": put(["entities", 0, "radius"], 1),
    "a sheet without entities": put(["layouts", 0, "entities"], []),
    "half of the plot settings": put(["layouts", 0, "paperW"], 210),
    "a negative time": put(["timings", "prepassMs"], -1),
    "a time that is no integer": put(["timings", "prepassMs"], 0.5),
    "an error beside a document": put(["error"], "Failed to read x: IOERROR"),
}
PLANTED_RECORDS = {
    "a polyline without bulges": {"type": "LWPOLYLINE", "closed": True, "points": [[0, 0]]},
    "a point of three coordinates": {"type": "SOLID", "pts": [[0, 0], [1, 0], [1, 1, 1]]},
    "a loop of two points": {"type": "HATCH", "solid": True, "loops": [[0, 0, 1, 1]]},
    "an alignment without its point": {"type": "TEXT", "x": 0, "y": 0, "html": "<p></p>",
                                       "height": 1, "rotationRad": 0, "halign": 1, "valign": 0},
    "a default value of an attribute": {"type": "DYNTEXT", "kind": "attrib", "x": 0, "y": 0,
                                        "html": "<p></p>", "height": 1, "rotationRad": 0,
                                        "tag": "T", "defaultValue": "", "flags": 0},
    "an empty run": {"type": "MTEXT", "x": 0, "y": 0, "html": "<p></p>", "rawMtext": "",
                     "width": 0, "height": 0, "rotationRad": 0, "attachment": 1,
                     "runs": [{"start": 0, "length": 1}]},
    "an inherited dimension colour": {"type": "DIMENSION_RADIUS", "defX": 0, "defY": 0, "arcX": 0,
                                      "arcY": 0, "leaderLen": 0, "measurement": 0,
                                      "userText": "", "textMidX": 0, "textMidY": 0,
                                      "textColorRgb": "L"},
    "a leader of one point": {"type": "LEADER", "points": [[0, 0]], "arrowOn": True,
                              "arrowSize": 1},
    "a multileader without lines": {"type": "MULTILEADER", "lines": [], "arrowSize": 1},
}


PLANTED_COMPLETE = {
    "a document without its form": put(["form"], DELETE),
    "the form of another version": put(["form", "version"], "1.0.0"),
    "no header variables": put(["header"], DELETE),
    "a layer that is neither frozen nor thawed": put(["layers", 0, "frozen"], DELETE),
    "a record without a line type": put(["entities", 0, "linetype"], DELETE),
    "a handle in lower case": put(["entities", 0, "handle"], "2a"),
    "a visible record that says so": put(["entities", 0, "invisible"], False),
    "a further coordinate as a text": put(["entities", 0, "startZ"], "0"),
    "a record of a type without a name": put(["entities", 0, "type"], "LINES"),
    "a plain key that is missing": put(["entities", 0, "endX"], DELETE),
    "a line type of a layer that is missing": put(["layers", 0, "linetype"], DELETE),
    "a block without units": put(["assets", 0, "units"], DELETE),
    "a code page found by chance": put(["codePage", "by"], "chance"),
    "a variable that is a flag": put(["header", "LTSCALE"], True),
    "a variable with a dollar sign": put(["header", "$LTSCALE"], 1),
    "a point of one number": put(["header", "EXTMIN"], [0]),
    "a dash that is text and shape": put(["linetypes", 0, "dashes", 0],
                                         {"length": 1, "text": "A", "shape": 1}),
    "a style without variables": put(["dimensionStyles", 0, "variables"], DELETE),
    "a member that is a number": put(["groups", 0, "members", 0], 42),
    "a time with a zone": put(["properties", "created"], "2008-05-06T20:15:39Z"),
    "a picture of another kind": put(["thumbnail", "kind"], "GIF"),
    "a sheet that tells not whether it is active": put(["layouts", 0, "active"], DELETE),
}


def planted_complete_documents():
    for name, plant in PLANTED_COMPLETE.items():
        document = minimal_complete()
        plant(document)
        yield name, document


def planted_documents():
    for name, plant in PLANTED.items():
        document = minimal()
        plant(document)
        yield name, document
    for name, record in PLANTED_RECORDS.items():
        document = minimal()
        document["entities"] = [{"layer": "0", **record, "color": "L", "lw": "L"}]
        yield name, document


def faults(validator, document):
    """What is wrong with a complete document, one text a fault. An error of the whole
    document would say no more than that one of its records fits no type, so records
    are held against the schema one by one where there is one."""
    if validator.is_valid(document):
        return
    records = jsonschema_rs.Draft202012Validator(
        {**COMPLETE_SCHEMA, "oneOf": [{"$ref": "#/$defs/listedRecord"}]})
    lists = [document.get("entities", [])]
    lists += [part["entities"] for part in document.get("assets", []) + document.get("layouts", [])]
    found = False
    for record in (record for records_of_list in lists for record in records_of_list):
        if not records.is_valid(record):
            found = True
            yield f"record {json.dumps(record)[:300]}"
    if not found:
        yield from (f"{error.message[:200]} at {error.instance_path}"
                    for error in validator.iter_errors(document))


def check_complete(options, expect):
    validator = jsonschema_rs.Draft202012Validator(COMPLETE_SCHEMA)
    jsonschema_rs.meta.validate(COMPLETE_SCHEMA)
    expect(validator.is_valid(minimal_complete()), "the minimal complete document is rejected")
    for name, document in planted_complete_documents():
        expect(not validator.is_valid(document), f"accepted in the complete form: {name}")
    if not options.worker:
        return
    for folder in filter(None, (OWN_DRAWINGS, options.drawings)):
        for name, document in corpus_documents(options.worker, folder, "--complete"):
            fault = next(faults(validator, document), None)
            expect(fault is None, f"complete form of {name}: {fault}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker")
    parser.add_argument("--drawings", default=os.environ.get("DWG_CORPUS"))
    parser.add_argument("--fuzz-replay", help="the replay program of fuzz_drawing")
    parser.add_argument("--fuzz-inputs", type=pathlib.Path,
                        help="its kept inputs, as the build unpacks them")
    options = parser.parse_args()
    if options.fuzz_replay and not options.fuzz_inputs:
        parser.error("--fuzz-replay needs --fuzz-inputs")

    validator = jsonschema_rs.Draft202012Validator(SCHEMA)
    jsonschema_rs.meta.validate(SCHEMA)
    passed = failed = 0

    def expect(holds, message):
        nonlocal passed, failed
        passed, failed = passed + holds, failed + (not holds)
        if not holds:
            print(f"FAILED {message}")

    expect(validator.is_valid(minimal()), "the minimal document is rejected")
    for name, document in planted_documents():
        expect(not validator.is_valid(document), f"accepted: {name}")
    documents = list(golden_documents())
    expect(bool(documents), "there is no golden document")
    if options.worker and options.drawings:
        documents += corpus_documents(options.worker, options.drawings)
    if options.fuzz_replay:
        made_up = list(fuzz_documents(options.fuzz_replay, options.fuzz_inputs))
        expect(bool(made_up), "the replay program prints no document")
        documents += made_up
    for name, document in documents:
        error = next(validator.iter_errors(document), None)
        expect(error is None, f"{name}: {str(error)[:400]}")
    check_complete(options, expect)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
