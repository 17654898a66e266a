"""The schema for readers, and what the writers of models see of it."""

import collections
import re

# What is left out: rules that only what writes documents has to keep.
WRITERS_RULES = {"additionalProperties", "dependentRequired", "minimum", "maximum", "minLength",
                 "minItems", "maxItems", "minProperties", "pattern", "not", "if", "then", "else",
                 "exclusiveMinimum", "propertyNames", "$comment"}
# Objects that stand within others, by their keys, and what they are called; the others
# are called by where they stand.
NAMED = {("r", "g", "b"): "rgb", ("r", "g", "b", "a"): "rgba",
         ("html", "x", "y", "height", "rotationRad"): "leaderText",
         ("dwgReadMs", "prepassMs", "layersMs", "assetsMs", "entitiesMs", "workerTotalMs"): "timings",
         ("line", "innerArcs", "outerArc", "angleRad"): "mlineCaps",
         ("viewport", "target", "direction", "up", "isPerspective", "wires"): "silhouette"}
# What would bear the name of something else, of the record POINT or of what languages
# have, and what begins with a digit.
OTHERWISE_CALLED = {"error": "Refusal", "record": "Entity", "point": "Point2",
                    "3DFACE": "Face3d", "3DSOLID": "Solid3d", "3DLINE": "Line3d"}
RECORDS = ("record", "listedRecord", "nestedRecord")
SINGULAR = {"dashes": "dash"}

Field = collections.namedtuple("Field", "key type required description")
# `tag` is the record's type word, None for other objects.
Object = collections.namedtuple("Object", "name fields tag description")
# Another name for a type.
Alias = collections.namedtuple("Alias", "name type description")
# `definitions` are aliases and objects, each behind those that it refers to. `records` are
# the names of the objects that the alias Entity stands for. `command` prints the
# documents, `name` is what the models are called.
Types = collections.namedtuple("Types", "version command name definitions records")


class Reduction:
    """What readers see of a strict schema's definitions, in `found`."""

    def __init__(self, strict):
        self.strict = strict["$defs"]
        self.found = {}
        # The keys that the complete form's records of a list share.
        self.common = self.strict.get("common", {"properties": {}})
        for name, schema in self.strict.items():
            if name not in RECORDS and name != "common":
                self.found[name] = self.definition(name, schema)

    def record_names(self):
        record = self.strict["record"]
        if "oneOf" in record:
            return [one["$ref"].rpartition("/")[2] for one in record["oneOf"]]
        return record["properties"]["type"]["enum"]

    def definition(self, name, schema):
        if "properties" not in schema:
            return self.reduced(schema, name)
        if name in self.record_names():
            # What stands within another record has not all of the shared keys.
            schema = {**schema, "properties": {**schema["properties"], **{
                key: value for key, value in self.common["properties"].items()
                if key not in schema["properties"]}},
                "required": ["type", "layer", *(key for key in schema["required"]
                                                if key not in ("type", "layer"))]}
        return self.object_of(schema, name)

    def reduced(self, schema, place):
        """`place` is what an object that stands here is called."""
        if "$ref" in schema:
            name = schema["$ref"].rpartition("/")[2]
            return {"$ref": "#/$defs/" + ("record" if name in RECORDS else name)}
        if "properties" in schema:
            return self.hoisted(schema, place)
        # How many numbers a point has is its form, not a limit.
        left_out = WRITERS_RULES - ({"minItems"} if "prefixItems" in schema else set())
        result = {key: self.value_of(key, value, place) for key, value in schema.items()
                  if key not in left_out}
        if isinstance(schema.get("additionalProperties"), dict):
            result["additionalProperties"] = self.reduced(schema["additionalProperties"], place)
        if "oneOf" in schema and all(map(tag_of, schema["oneOf"])):
            result["discriminator"] = {"propertyName": "type"}
        return result

    def value_of(self, key, value, place):
        if key in ("oneOf", "prefixItems"):
            return [self.reduced(one, place + capital(type_name(tag_of(one) or ""))) for one in value]
        return self.reduced(value, place) if key == "items" and isinstance(value, dict) else value

    def hoisted(self, schema, place):
        name = NAMED.get(tuple(schema["properties"])) or place
        made = self.object_of(schema, name)
        alike = [key for key, one in self.found.items()
                 if one.get("properties") == made["properties"] and not tag_of(one)]
        if not alike:
            if name in self.found:
                raise ValueError(f"two objects would be called {name}")
            self.found[name] = made
        return {"$ref": f"#/$defs/{(alike or [name])[0]}"}

    def object_of(self, schema, name):
        result = {"type": "object",
                  "properties": {key: self.reduced(value, place_of(name, key, value))
                                 for key, value in schema["properties"].items()},
                  "required": schema.get("required", [])}
        return {**result, **{"description": schema[key] for key in ("description",) if key in schema}}


def capital(word):
    return word[:1].upper() + word[1:]


def tag_of(schema):
    """The word that tells an object from others, if it has one."""
    return schema.get("properties", {}).get("type", {}).get("const")


def place_of(name, key, schema):
    """HATCH and pattern become hatchPattern, pattern and lines patternLine."""
    word = SINGULAR.get(key, key.removesuffix("s")) if "items" in schema else key
    owner = type_name(name)
    return owner[:1].lower() + owner[1:] + capital(word)


def derive(strict):
    """The schema for readers."""
    reduction = Reduction(strict)
    found = reduction.found
    # Any number may come: newer drawings have further lineweights and releases.
    found["lineweight"]["oneOf"][1] = {"type": "integer"}
    found["document"]["properties"]["dwgVersion"] = {
        "type": "string", "examples": strict["$defs"]["document"]["properties"]["dwgVersion"]["enum"]}
    found["record"] = {"description": "Any entity; its type tells which",
                       "oneOf": [{"$ref": f"#/$defs/{name}"} for name in reduction.record_names()],
                       "discriminator": {"propertyName": "type"}}
    return {"$schema": strict["$schema"],
            "$id": re.sub(":document(-complete)?:", r":reader\1:", strict["$id"]),
            "title": strict["title"] + ", for readers",
            "$comment": "Made by scripts/make_models.py", "oneOf": strict["oneOf"], "$defs": found}


def type_name(definition):
    """DIMENSION_LINEAR becomes DimensionLinear, leaderText LeaderText."""
    if definition in OTHERWISE_CALLED:
        return OTHERWISE_CALLED[definition]
    parts = definition.split("_") if definition.isupper() or "_" in definition else [definition]
    if len(parts) == 1 and not definition.isupper():
        return capital(definition)
    return "".join(part.capitalize() for part in parts)


def parsed(schema):
    """A type as a tuple: ("name", N), ("text",), ("number",), ("integer",), ("boolean",),
    ("list", T), ("map", T), ("numbers", count), ("words", W...), ("either", T...), and
    ("tagged", T...) where a type word tells which."""
    if "$ref" in schema:
        return "name", type_name(schema["$ref"].rpartition("/")[2])
    if "oneOf" in schema:
        return ("tagged" if "discriminator" in schema else "either", *map(parsed, schema["oneOf"]))
    if "enum" in schema or "const" in schema:
        values = schema.get("enum", [schema.get("const")])
        return {str: ("words", *values), bool: ("boolean",), int: ("integer",)}[type(values[0])]
    if isinstance(schema["type"], list):
        return ("either", *(parsed({"type": one}) for one in schema["type"]))
    if schema["type"] == "object":
        return "map", parsed(schema["additionalProperties"])
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


def needs(one, records):
    """The names that have to stand before a definition. Records may hold records, by
    reference."""
    if isinstance(one, Alias):
        return named_by(one.type)
    return set().union(*(named_by(field.type) for field in one.fields)) - (
        {"Entity"} if one.name in records else set())


def in_order(definitions, records):
    """What is referred to comes first."""
    done, result = set(), []
    while len(result) < len(definitions):
        ready = [one for one in definitions if one not in result and needs(one, records) <= done]
        if not ready:
            raise ValueError("definitions refer to each other in a circle")
        result += ready
        done |= {one.name for one in ready}
    return result


def types(schema, form):
    """All types. `form` is None for the plain form."""
    definitions = []
    for name, definition in schema["$defs"].items():
        description = definition.get("description", "")
        if "properties" in definition:
            tag = tag_of(definition)
            fields = [Field(key, parsed(value), key in definition["required"],
                            value.get("description", ""))
                      for key, value in definition["properties"].items()
                      if not (tag and key == "type")]
            definitions.append(Object(type_name(name), fields, tag, description))
        else:
            definitions.append(Alias(type_name(name), parsed(definition), description))
    if len({one.name for one in definitions}) < len(definitions):
        raise ValueError("two types have the same name")
    records = [parsed(one)[1] for one in schema["$defs"]["record"]["oneOf"]]
    return Types(schema["$id"].rpartition(":")[2],
                 f"dwg_import_worker --{form}" if form else "dwg_import_worker",
                 f"dwg_document_{form}" if form else "dwg_document",
                 in_order(definitions, records), records)
