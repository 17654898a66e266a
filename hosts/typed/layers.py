#!/usr/bin/env python3
"""Says how many entities lie on each layer, and which texts a drawing holds.

    dwg_import_worker plan.dwg | layers.py     (needs Pydantic 2)
"""

import collections
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "models/python"))
from dwg_document import Dyntext, Mtext, Multileader, Text, parse_document  # noqa: E402


def plain(entity):
    """What a text says, without its formatting; None for what is no text."""
    if isinstance(entity, Multileader) and entity.text is not None:
        return re.sub("<[^>]*>", "", entity.text.html)
    if isinstance(entity, (Text, Dyntext, Mtext)):
        return re.sub("<[^>]*>", "", entity.html)
    return None


def report(document):
    for text in filter(lambda text: text is not None, map(plain, document.entities)):
        yield f"text {text}"
    counts = collections.Counter(entity.layer for entity in document.entities)
    for layer in document.layers:
        yield f"layer {layer.name}: {counts[layer.name]}{'' if layer.visible else ', off'}"


if __name__ == "__main__":
    print("\n".join(report(parse_document(sys.stdin.buffer.read()))))
