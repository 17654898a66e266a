#!/usr/bin/env python3
"""Checks the models of the document for languages of hosts.

    check_models.py --worker PATH [--layers PROGRAM] [--tables PROGRAM] [--drawings FOLDER]

For the plain form and for the complete one:
- The models that are checked in are those that scripts/make_models.py makes.
- Every document is valid by the schema for readers.
- Pydantic parses every document, and knows every key: written again, it is the same.
- TypeScript accepts small documents of the repository's own drawings, golden ones in the
  plain form, as literals of the type, and parses all.
- The C++ structures parse every document (the programs are hosts/typed/layers.cpp and
  tables.cpp).
- The small hosts in three languages say the same of each.
- Each refuses planted mistakes.

Documents are the golden ones, in the complete form those of the repository's drawings, and
with --drawings (or DWG_CORPUS) those of every drawing there. Without tsc, Pydantic or the
programs their part is left out with a line that says so, but not when the environment has CI.
"""

import argparse
import collections
import importlib.util
import json
import math
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import jsonschema_rs

ROOT = pathlib.Path(__file__).resolve().parents[2]
TIMEOUT_SECONDS = 600
# What the C++ parser refuses as the page says: numbers beyond the largest double.
MOST_DIGITS = re.compile(rb"-?1\.79769313[5-9]\d*e\+?308")
# Types of literals take the compiler long.
LARGEST_LITERAL = 100_000
# What tells the two forms apart here: what the worker is asked for, the names of the schema,
# the models and the host, and what stands in a document and in a record besides.
Form = collections.namedtuple("Form", "option schema models host sections keys")
PLAIN = Form([], "document", "dwg_document", "layers", {}, {})
COMPLETE = Form(
    ["--complete"], "document-complete", "dwg_document_complete", "tables",
    {"form": {"name": "complete", "version": "2.0.0"}, "properties": {},
     "codePage": {"name": "ANSI_1252", "by": "default"}, "header": {"EXTMIN": [0, 0, 0]},
     **{section: [] for section in ("linetypes", "textStyles", "dimensionStyles", "views",
                                    "coordinateSystems", "groups")}},
    {"linetype": "L", "linetypeScale": 1})
NODE_TYPES = """declare module "node:fs" {
  export function readFileSync(file: number | string, encoding: "utf8"): string;
}
"""
COUNT = """
const {parseDocument} = require(process.argv[2]);
const {readFileSync} = require("node:fs");
for (const file of readFileSync(0, "utf8").split("\\n")) {
  let answer;
  try {
    answer = parseDocument(readFileSync(file, "utf8")).entities.length;
  } catch (error) {
    answer = "refused";
  }
  console.log(answer);
}
"""


def load(name, path):
    spec = importlib.util.spec_from_file_location(name, path)
    module = importlib.util.module_from_spec(spec)
    sys.modules[name] = module
    spec.loader.exec_module(module)
    return module


def converted(worker, folder, *options):
    for path in sorted(folder.rglob("*")):
        if path.suffix.lower() in (".dwg", ".dxf") and path.is_file():
            run = subprocess.run([worker, path, *options], stdout=subprocess.PIPE,
                                 stderr=subprocess.DEVNULL, timeout=TIMEOUT_SECONDS, check=False)
            if run.returncode in (0, 1):
                yield str(path.relative_to(folder)), run.stdout


def own_documents(form, worker):
    """The bytes of documents of the repository, by name."""
    yield "one line", json.dumps(one_line(form)).encode()
    if form.option:
        yield from converted(worker, ROOT / "tests/drawings", *form.option)
        return
    for path in sorted((ROOT / "tests/golden").glob("*/expected/*.json")):
        yield f"{path.parent.parent.name}/{path.stem}", path.read_bytes()


def parsed(data):
    return json.loads(data.decode("utf-8", "replace"))


LINE = {"type": "LINE", "layer": "0", "startX": 0, "startY": 0, "endX": 1, "endY": 1,
        "color": "L", "lw": "L"}


def one_line(form):
    """A document of one record."""
    return {"dwgVersion": "2018", "insunits": 4, "layers": [], "assets": [], "layouts": [],
            "warnings": [], "timings": {key: 0 for key in (
                "dwgReadMs", "prepassMs", "layersMs", "assetsMs", "entitiesMs", "workerTotalMs")},
            **form.sections, "entities": [{**LINE, **form.keys}]}


def mistakes(form):
    """Texts that no model may take for a document."""
    good, line = one_line(form), {**LINE, **form.keys}
    yield "no entities", {key: value for key, value in good.items() if key != "entities"}
    if form is COMPLETE:
        yield "a document without a header", {k: v for k, v in good.items() if k != "header"}
        yield "a variable that is a list of texts", {**good, "header": {"EXTMIN": ["low", "left"]}}
        yield "an edge of no kind", {**good, "entities": [
            {"type": "HATCH", "layer": "0", "solid": True, "loops": [], **form.keys,
             "boundary": [{"flags": 0, "edges": [{"type": "zigzag"}]}]}]}
    yield "an unknown type", {**good, "entities": [{**line, "type": "LYNE"}]}
    yield "a missing key", {**good, "entities": [{k: v for k, v in line.items() if k != "endY"}]}
    yield "a text for a number", {**good, "entities": [{**line, "endY": "far"}]}
    yield "a colour that is none", {**good, "entities": [{**line, "color": {"r": 1}}]}
    yield "a list for an object", {**good, "entities": [], "timings": []}
    yield "a point of one number", {**good, "entities": [
        {"type": "SPLINE", "layer": "0", "closed": False, "fit_pts": [[1]]}]}


def check_current(folder):
    subprocess.run([sys.executable, ROOT / "scripts/make_models.py", folder], check=True)
    for made in sorted(path for path in folder.rglob("*") if path.is_file()):
        name = made.relative_to(folder)
        kept = ROOT / ("docs" if made.parent == folder else "models") / name
        if not kept.exists() or kept.read_bytes() != made.read_bytes():
            yield f"{kept.relative_to(ROOT)} is not current: run scripts/make_models.py"


def check_schema(form, found):
    schema = json.loads((ROOT / f"docs/{form.schema}.reader.schema.json").read_text(encoding="utf-8"))
    validator = jsonschema_rs.validator_for(schema)
    for name, data in found:
        text = re.sub(rb"(?<=[\[,:])" + MOST_DIGITS.pattern, b"1e300", data)
        if not validator.is_valid(parsed(text)):
            yield f"the schema for readers refuses {name}"
    for name, mistake in mistakes(form):
        if validator.is_valid(mistake):
            yield f"the schema for readers accepts {name}"


def same(one, other):
    """Whether two parsed texts are equal; 1 and 1.0 are."""
    if isinstance(one, dict):
        return isinstance(other, dict) and one.keys() == other.keys() and all(
            same(one[key], other[key]) for key in one)
    if isinstance(one, (list, tuple)):
        return len(one) == len(other) and all(map(same, one, other))
    if isinstance(one, float) and math.isnan(one):
        return isinstance(other, float) and math.isnan(other)
    return one == other and isinstance(one, bool) == isinstance(other, bool)


def extras(model):
    """The keys that a model holds without knowing them."""
    import pydantic
    if isinstance(model, pydantic.BaseModel):
        yield from model.model_extra or {}
        for name in type(model).model_fields:
            yield from extras(getattr(model, name))
    elif isinstance(model, (list, tuple)):
        for item in model:
            yield from extras(item)
    elif isinstance(model, dict):
        yield from extras(list(model.values()))


def check_pydantic(form, found, models):
    for name, data in found:
        original = parsed(data)
        try:
            document = models.parse_document(data)
        except ValueError as error:
            if "error" not in original:
                yield f"Pydantic refuses {name}: {str(error)[:300]}"
            continue
        if "error" in original or list(extras(document)):
            yield f"Pydantic does not know all of {name}: {list(extras(document))[:3]}"
        elif not same(document.model_dump(by_alias=True, exclude_unset=True), original):
            yield f"Pydantic makes something else of {name}"
    for name, mistake in mistakes(form):
        try:
            models.parse_document(json.dumps(mistake))
            yield f"Pydantic accepts {name}"
        except ValueError:
            pass


def check_cpp(form, found, program, host, models):
    def run(data):
        return subprocess.run([program], input=data, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=TIMEOUT_SECONDS, check=False)
    for name, data in found:
        result = run(data)
        if "error" in parsed(data):
            if result.returncode != 1:
                yield f"C++ accepts the refusal {name}"
        elif result.returncode != 0:
            if not MOST_DIGITS.search(data):
                yield f"C++ refuses {name}: {result.stderr[:300]!r}"
        else:
            expected = "".join(f"{line}\n" for line in host.report(models.parse_document(data)))
            if result.stdout.decode("utf-8") != expected:
                yield f"the hosts in C++ and Python say different things of {name}"
    for name, mistake in mistakes(form):
        if run(json.dumps(mistake).encode()).returncode != 1:
            yield f"C++ accepts {name}"


class Compiler:
    def __init__(self, form, tsc, folder):
        self.tsc = tsc
        self.folder = folder
        self.models = ROOT / f"models/typescript/{form.models}.ts"
        self.host = ROOT / f"hosts/typed/{form.host}.ts"
        (folder / "node.d.ts").write_text(NODE_TYPES)

    def compile(self, *files, options=("--noEmit",)):
        """What the compiler says."""
        return subprocess.run(
            [self.tsc, "--strict", "--target", "es2020", "--module", "commonjs", *options,
             self.folder / "node.d.ts", *files], stdout=subprocess.PIPE, text=True,
            timeout=TIMEOUT_SECONDS, check=False).stdout

    def literal(self, name, data):
        path = self.folder / name
        path.write_text(f'import {{Document, Refusal}} from {json.dumps(str(self.models.with_suffix("")))};\n'
                        f"export const one: Document | Refusal = {json.dumps(parsed(data))};\n")
        return path


def check_typescript(form, own, found, compiler, host, models):
    small = [(name, data) for name, data in own if len(data) <= LARGEST_LITERAL]
    planted = [(f"mistake{i}.ts", name, json.dumps(mistake).encode())
               for i, (name, mistake) in enumerate(mistakes(form))]
    said = compiler.compile(
        *(compiler.literal(f"small{i}.ts", data) for i, (_, data) in enumerate(small)),
        *(compiler.literal(file, data) for file, _, data in planted)).splitlines()
    for line in said:
        if "small" in line.partition("(")[0]:
            yield f"TypeScript refuses a document: {line[:500]}"
    for file, name, _ in planted:
        if not any(file + "(" in line for line in said):
            yield f"TypeScript accepts {name}"
    said = compiler.compile(compiler.models, compiler.host,
                            options=("--outDir", compiler.folder / "js"))
    if said:
        yield f"TypeScript refuses the models or the host: {said[:500]}"
        return
    yield from run_typescript(form, found, compiler.folder, host, models)


def run_typescript(form, found, folder, host, models):
    (folder / "count.js").write_text(COUNT)
    files = []
    for i, (_, data) in enumerate(found):
        files.append(folder / f"document{i}.json")
        files[-1].write_bytes(data)
    counts = subprocess.run(
        ["node", folder / "count.js", folder / f"js/models/typescript/{form.models}.js"],
        input="\n".join(map(str, files)), stdout=subprocess.PIPE, text=True,
        check=True).stdout.splitlines()
    for (name, data), count in zip(found, counts, strict=True):
        if count != str(len(parsed(data).get("entities", [])) if "error" not in parsed(data)
                        else "refused"):
            yield f"TypeScript finds {count} entities in {name}"
    for name, data in [pair for pair in found if "error" not in parsed(pair[1])][:20]:
        said = subprocess.run(["node", folder / f"js/hosts/typed/{form.host}.js"], input=data,
                              stdout=subprocess.PIPE, check=True).stdout.decode()
        if said != "".join(f"{line}\n" for line in host.report(models.parse_document(data))):
            yield f"the hosts in TypeScript and Python say different things of {name}"


def left_out(what):
    if os.environ.get("CI"):
        return [f"{what}: missing"]
    print(f"{what} is missing: its models were not checked")
    return []


def check_form(form, options, folder):
    own = list(own_documents(form, options.worker))
    found = own + list(converted(options.worker, options.drawings, "--verbose", *form.option)
                       if options.drawings else [])
    print(f"{len(found)} documents for {form.models}")
    yield from check_schema(form, found)
    try:
        models = load(form.models, ROOT / f"models/python/{form.models}.py")
        host = load(form.host, ROOT / f"hosts/typed/{form.host}.py")
    except ImportError:
        yield from left_out("Pydantic")
        return
    yield from check_pydantic(form, found, models)
    program = getattr(options, form.host)
    yield from check_cpp(form, found, program, host, models) if program \
        else left_out("nlohmann/json")
    tsc = shutil.which("tsc")
    folder.mkdir()
    yield from check_typescript(form, own, found, Compiler(form, tsc, folder), host, models) \
        if tsc else left_out("tsc")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--layers", help="hosts/typed/layers.cpp, compiled")
    parser.add_argument("--tables", help="hosts/typed/tables.cpp, compiled")
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") and pathlib.Path(os.environ["DWG_CORPUS"]))
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        faults = list(check_current(folder / "models"))
        for form in (PLAIN, COMPLETE):
            faults += check_form(form, options, folder / form.models)
    for fault in faults:
        print(fault)
    print(f"{len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
