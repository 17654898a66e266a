"""Types for TypeScript, and a function that parses."""

import json


def written(one):
    kind = one[0]
    if kind == "name":
        return one[1]
    if kind == "words":
        return " | ".join(map(json.dumps, one[1:]))
    if kind in ("either", "tagged"):
        return " | ".join(map(written, one[1:]))
    if kind == "list":
        return f"Array<{written(one[1])}>"
    if kind == "map":
        return f"Record<string, {written(one[1])}>"
    if kind == "numbers":
        return f"[{', '.join(['number'] * one[1])}]"
    return {"text": "string", "number": "number", "integer": "number", "boolean": "boolean"}[kind]


def comment(text, indent=""):
    return f"{indent}/** {text} */\n" if text else ""


def interface(one):
    lines = [f"{comment(one.description)}export interface {one.name} {{\n"]
    if one.tag:
        lines.append(f"  type: {json.dumps(one.tag)};\n")
    for field in one.fields:
        mark = "" if field.required else "?"
        lines.append(f"{comment(field.description, '  ')}  {field.key}{mark}: {written(field.type)};\n")
    return "".join([*lines, "}\n"])


def union(one):
    """An alias for many records, a line each."""
    return "".join(f"\n  | {written(part)}" for part in one[1:])


def alias(one):
    value = union(one.type) if one.type[0] == "tagged" else " " + written(one.type)
    return f"{comment(one.description)}export type {one.name} ={value};\n"


def write(types):
    parts = [f"// Made by scripts/make_models.py from the schema, version {types.version}. Do not edit.\n"
             f"// What {types.command} prints. Objects may have further keys.\n"]
    parts += [interface(one) if hasattr(one, "fields") else alias(one) for one in types.definitions]
    parts.append("""/** The document of a line that the worker has printed. Throws when the worker has refused the
 * drawing, or when the line is none of its own. */
export function parseDocument(line: string): Document {
  const answer = JSON.parse(line) as Document | Refusal;
  if ("error" in answer) {
    throw new Error(answer.error);
  }
  if (!Array.isArray(answer.entities)) {
    throw new Error("this is no document of dwg_import_worker");
  }
  return answer;
}
""")
    return "\n".join(parts)
