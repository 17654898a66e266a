#!/usr/bin/env python3
"""Makes the models of the document for languages of hosts anew.

    make_models.py [FOLDER]

From docs/document.schema.json, which rules what the worker writes, it makes the schema
for readers, docs/document.reader.schema.json: one "oneOf" of named records, objects that
are open for further keys, no limits that a reader would not check. From that it makes
the models in FOLDER (models/ by default): TypeScript, Python (Pydantic 2) and C++ (on
nlohmann/json).
"""

import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "scripts"))
from models import cpp, python, reader_schema, typescript  # noqa: E402

MODELS = {"typescript/dwg_document.ts": typescript.write, "python/dwg_document.py": python.write,
          "cpp/dwg_document.hpp": cpp.write}


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "models"
    strict = json.loads((ROOT / "docs/document.schema.json").read_text(encoding="utf-8"))
    schema = reader_schema.derive(strict)
    target = ROOT / "docs" if len(sys.argv) < 2 else folder
    target.mkdir(parents=True, exist_ok=True)
    (target / "document.reader.schema.json").write_text(json.dumps(schema, indent=1) + "\n",
                                                        encoding="utf-8")
    types = reader_schema.types(schema)
    for name, write in MODELS.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(write(types), encoding="utf-8")


if __name__ == "__main__":
    main()
