"""The schema for readers, and what the writers of models see of it."""

import collections

# What is left out: rules that only what writes documents has to keep.
WRITERS_RULES = {"additionalProperties", "dependentRequired", "minimum", "maximum", "minLength",
                 "minItems", "maxItems", "minProperties", "pattern", "not", "if", "then", "else",
                 "$comment"}
# Objects that stand within others, by their keys, and what they are called.
NAMED = {("r", "g", "b", "a"): "rgba", ("html", "x", "y", "height", "rotationRad"): "leaderText",
         ("dwgReadMs", "prepassMs", "layersMs", "assetsMs", "entitiesMs", "workerTotalMs"): "timings"}
# What would bear the name of something else: of the record POINT, of what languages have.
OTHERWISE_CALLED = {"error": "Refusal", "record": "Entity", "point": "Point2"}
RECORDS = ("record", "listedRecord", "nestedRecord")

Field = collections.namedtuple("Field", "key type required description")
# `tag` is the record's type word, None for other objects.
Object = collections.namedtuple("Object", "name fields tag description")
# Another name for a type.
Alias = collections.namedtuple("Alias", "name type description")
Types = collections.namedtuple("Types", "version aliases objects records")


def derive(strict):
    """The schema for readers."""
    found = {}

    def reduced(schema):
        if "$ref" in schema:
            name = schema["$ref"].rpartition("/")[2]
            return {"$ref": "#/$defs/" + ("record" if name in RECORDS else name)}
        if schema.get("type") == "object" and "properties" in schema:
            return hoisted(schema)
        # How many numbers a point has is its form, not a limit.
        left_out = WRITERS_RULES - ({"minItems"} if "prefixItems" in schema else set())
        return {key: value_of(key, value) for key, value in schema.items() if key not in left_out}

    def value_of(key, value):
        if key in ("oneOf", "prefixItems"):
            return [reduced(one) for one in value]
        return reduced(value) if key == "items" and isinstance(value, dict) else value

    def hoisted(schema):
        name = NAMED[tuple(schema["properties"])]
        found[name] = object_of(schema)
        return {"$ref": f"#/$defs/{name}"}

    def object_of(schema):
        result = {"type": "object",
                  "properties": {key: reduced(value) for key, value in schema["properties"].items()},
                  "required": schema.get("required", [])}
        return {**result, **{"description": schema[key] for key in ("description",) if key in schema}}

    for name, schema in strict["$defs"].items():
        if name not in RECORDS:
            found[name] = object_of(schema) if "properties" in schema else reduced(schema)
    # Any number may come: newer drawings have further lineweights and releases.
    found["lineweight"]["oneOf"][1] = {"type": "integer"}
    found["document"]["properties"]["dwgVersion"] = {
        "type": "string", "examples": strict["$defs"]["document"]["properties"]["dwgVersion"]["enum"]}
    names = strict["$defs"]["record"]["properties"]["type"]["enum"]
    found["record"] = {"description": "Any entity; its type tells which",
                       "oneOf": [{"$ref": f"#/$defs/{name}"} for name in names],
                       "discriminator": {"propertyName": "type"}}
    return {"$schema": strict["$schema"], "$id": strict["$id"].replace(":document:", ":reader:"),
            "title": "What dwg_import_worker prints on standard output, for readers",
            "$comment": "Made by scripts/make_models.py", "oneOf": strict["oneOf"], "$defs": found}


def type_name(definition):
    """DIMENSION_LINEAR becomes DimensionLinear, leaderText LeaderText."""
    if definition in OTHERWISE_CALLED:
        return OTHERWISE_CALLED[definition]
    parts = definition.split("_") if definition.isupper() or "_" in definition else [definition]
    if len(parts) == 1 and not definition.isupper():
        return definition[0].upper() + definition[1:]
    return "".join(part.capitalize() for part in parts)


def parsed(schema):
    """A type as a tuple: ("name", N), ("text",), ("number",), ("integer",), ("boolean",),
    ("list", T), ("numbers", count), ("words", W...), ("either", T...)."""
    if "$ref" in schema:
        return "name", type_name(schema["$ref"].rpartition("/")[2])
    if "oneOf" in schema:
        return ("either", *map(parsed, schema["oneOf"]))
    if "enum" in schema or isinstance(schema.get("const"), str):
        return ("words", *schema.get("enum", [schema.get("const")]))
    if schema.get("const") is True:
        return ("boolean",)
    if schema["type"] == "array":
        if "prefixItems" in schema:
            return "numbers", len(schema["prefixItems"])
        return "list", parsed(schema["items"])
    return {"string": ("text",), "number": ("number",), "integer": ("integer",),
            "boolean": ("boolean",)}[schema["type"]]


def named_by(one):
    """The names that a type refers to."""
    if one[0] == "name":
        return {one[1]}
    return set().union(*(named_by(part) for part in one[1:] if isinstance(part, tuple)))


def in_order(objects, before):
    """What is referred to comes first; records, which refer to each other, stand for
    themselves."""
    done, result = set(before), []
    while len(result) < len(objects):
        ready = [one for one in objects if one not in result and all(
            named_by(field.type) <= done for field in one.fields)]
        if not ready:
            raise ValueError("objects refer to each other in a circle")
        result += ready
        done |= {one.name for one in ready}
    return result


def types(schema):
    """All types, each behind those that it refers to; records come before what lists
    them."""
    aliases, objects = [], []
    for name, definition in schema["$defs"].items():
        description = definition.get("description", "")
        if name == "record":
            records = [parsed(one)[1] for one in definition["oneOf"]]
        elif "properties" in definition:
            tag = definition["properties"].get("type", {}).get("const")
            fields = [Field(key, parsed(value), key in definition["required"],
                            value.get("description", ""))
                      for key, value in definition["properties"].items()
                      if not (tag and key == "type")]
            objects.append(Object(type_name(name), fields, tag, description))
        else:
            aliases.append(Alias(type_name(name), parsed(definition), description))
    names = {alias.name for alias in aliases}
    if len(names | {one.name for one in objects}) < len(aliases) + len(objects):
        raise ValueError("two types have the same name")
    return Types(schema["$id"].rpartition(":")[2], aliases,
                 in_order(objects, names | {"Entity"}), records)
