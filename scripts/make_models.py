#!/usr/bin/env python3
"""Makes the models of the document for languages of hosts anew.

    make_models.py [FOLDER]

From docs/document.schema.json, which rules what the worker writes, it makes the schema
for readers, docs/document.reader.schema.json: one "oneOf" of named records, objects that
are open for further keys, no limits that a reader would not check. From that it makes
the models in FOLDER (models/ by default): TypeScript, Python (Pydantic 2) and C++ (on
nlohmann/json). The same for the complete form, from docs/document-complete.schema.json.
"""

import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "scripts"))
from models import cpp, python, reader_schema, typescript  # noqa: E402

WRITERS = {"typescript/{}.ts": typescript.write, "python/{}.py": python.write,
           "cpp/{}.hpp": cpp.write}


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def make(form, schemas, folder):
    document = f"document-{form}" if form else "document"
    strict = json.loads((ROOT / f"docs/{document}.schema.json").read_text(encoding="utf-8"))
    schema = reader_schema.derive(strict)
    write(schemas / f"{document}.reader.schema.json", json.dumps(schema, indent=1) + "\n")
    types = reader_schema.types(schema, form)
    for name, writer in WRITERS.items():
        write(folder / name.format(types.name), writer(types))


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "models"
    for form in (None, "complete"):
        make(form, ROOT / "docs" if len(sys.argv) < 2 else folder, folder)


if __name__ == "__main__":
    main()
