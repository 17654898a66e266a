"""Models for Pydantic 2."""


def written(one):
    kind = one[0]
    if kind == "name":
        return one[1]
    if kind == "words":
        return f"Literal[{', '.join(map(repr, one[1:]))}]".replace("'", '"')
    if kind == "either":
        return " | ".join(map(written, one[1:]))
    if kind == "tagged":
        choices = "\n    | ".join(map(written, one[1:]))
        return f'Annotated[\n    {choices},\n    Field(discriminator="type"),\n]'
    if kind == "map":
        return f"dict[str, {written(one[1])}]"
    if kind == "list":
        return f"list[{written(one[1])}]"
    if kind == "numbers":
        return f"tuple[{', '.join(['float'] * one[1])}]"
    return {"text": "str", "number": "float", "integer": "int", "boolean": "bool"}[kind]


def line(field):
    """A field's definition; names that begin with an underscore have an alias."""
    name, written_type = field.key.lstrip("_"), written(field.type)
    if name != field.key:
        default = f'Field(alias="{field.key}")' if field.required else \
            f'Field(default=None, alias="{field.key}")'
    else:
        default = None if field.required else "None"
    if not field.required:
        written_type += " | None"
    comment = f"  # {field.description}" if field.description else ""
    return f"    {name}: {written_type}{f' = {default}' if default else ''}{comment}\n"


def model(one):
    lines = [f"class {one.name}(Model):\n"]
    if one.description:
        lines.append(f'    """{one.description}."""\n\n')
    if one.tag:
        lines.append(f'    type: Literal["{one.tag}"]\n')
    return "".join([*lines, *map(line, one.fields)])


def alias(one):
    comment = f"# {one.description}.\n" if one.description else ""
    return f"{comment}{one.name} = {written(one.type)}\n"


def write(types):
    head = f'''"""What {types.command} prints. Made by scripts/make_models.py from the
schema, version {types.version}. Do not edit.

    document = parse_document(line)

Objects may have further keys, which are kept.
"""

from __future__ import annotations

from typing import Annotated, Literal

from pydantic import BaseModel, ConfigDict, Field


class Model(BaseModel):
    model_config = ConfigDict(extra="allow", populate_by_name=True)
'''
    parts = [head]
    parts += [model(one) if hasattr(one, "fields") else alias(one) for one in types.definitions]
    parts.append("for _model in list(Model.__subclasses__()):\n    _model.model_rebuild()\n")
    parts.append('''def parse_document(line: str | bytes) -> Document:
    """The document of a line that the worker has printed. Raises ValueError when the worker
    has refused the drawing, or when the line is none of its own."""
    text = line.decode("utf-8", "replace") if isinstance(line, bytes) else line
    if text.startswith('{"error"'):
        raise ValueError(Refusal.model_validate_json(text).error)
    return Document.model_validate_json(text)
''')
    return "\n\n".join(parts)
