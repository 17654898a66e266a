#!/usr/bin/env python3
"""Prints what stands in a drawing's tables and in the attributes of its blocks.

    dwg_import_worker plan.dwg --complete | tables.py     (needs Pydantic 2)
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "models/python"))
from dwg_document_complete import AcadTable, Insert, parse_document  # noqa: E402


def report(document):
    for entities in [document.entities, *(layout.entities for layout in document.layouts)]:
        for entity in entities:
            if isinstance(entity, AcadTable):
                for cell in entity.cells:
                    if cell.text is not None:
                        yield f"cell {cell.row} {cell.column}: {cell.text}"
            elif isinstance(entity, Insert):
                for attribute in entity.attributes or []:
                    yield f"{entity.blockName} {attribute.tag}: {attribute.text}"


if __name__ == "__main__":
    for line in report(parse_document(sys.stdin.buffer.read())):
        print(line)
