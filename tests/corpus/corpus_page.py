"""The result of a corpus run as one self-contained page for a person to read.

Drawings with problems come first, then those that came through least well. A
click on a column's head sorts by it.
"""

import collections
import html
import re

SKIPPED = re.compile(r"Skipped (\d+) (.+) entit(?:y|ies) \(not yet supported\)$")

STYLE = """
body { font: 14px/1.4 system-ui, sans-serif; margin: 2em; color: #222; background: #fff; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { padding: .25em .7em; border-bottom: 1px solid #ddd; text-align: left;
         vertical-align: top; }
th { position: sticky; top: 0; background: #f4f4f4; cursor: pointer; white-space: nowrap; }
td.number { text-align: right; font-variant-numeric: tabular-nums; }
tr.problem td { background: #fde8e8; }
tr.excepted td { background: #fff4d6; }
tr.refused td { color: #666; }
.texts { max-width: 42em; overflow-wrap: anywhere; }
input { font: inherit; padding: .3em; width: 24em; }
"""

SCRIPT = """
const table = document.getElementById('drawings');
const body = table.tBodies[0];
const keyOf = (row, column) => {
  const cell = row.cells[column];
  return cell.className === 'number' ? Number(cell.dataset.key) : cell.textContent;
};
[...table.tHead.rows[0].cells].forEach((head, column) => {
  let ascending = false;
  head.onclick = () => {
    ascending = !ascending;
    const rows = [...body.rows].sort((a, b) => {
      const [x, y] = [keyOf(a, column), keyOf(b, column)];
      return (x < y ? -1 : x > y ? 1 : 0) * (ascending ? 1 : -1);
    });
    body.append(...rows);
  };
});
document.getElementById('filter').oninput = (event) => {
  const word = event.target.value.toLowerCase();
  for (const row of body.rows) row.hidden = !row.textContent.toLowerCase().includes(word);
};
"""

COLUMNS = ["drawing", "status", "release", "layers", "blocks", "records", "in model space",
           "sheets", "skipped", "types skipped", "warnings", "seconds", "peak MiB", "kB written",
           "problems, warnings"]


def skipped_types(warnings):
    """Type name to the number of its entities that have no record."""
    matches = (SKIPPED.match(warning) for warning in warnings)
    return {match[2]: int(match[1]) for match in matches if match}


def record_count(document):
    """All entity records: of model space, block definitions and sheets."""
    owners = document.get("assets", []) + document.get("layouts", [])
    return len(document.get("entities", [])) + sum(
        len(owner.get("entities", [])) for owner in owners if isinstance(owner, dict))


def skipped_text(skipped):
    return ", ".join(f"{count} {name}" for name, count in
                     sorted(skipped.items(), key=lambda item: (-item[1], item[0])))


def facts(name, result, exception):
    """What the page says of one drawing."""
    document = result.document or {}
    converted = result.run.status == 0 and "entities" in document
    warnings = document.get("warnings", []) if converted else []
    skipped = skipped_types(warnings)
    other = [warning for warning in warnings if not SKIPPED.match(warning)]
    if result.run.status == 1 and "error" in document:
        other = [document["error"]]
    kind = "good"
    if result.problems:
        kind = "excepted" if exception else "problem"
    elif result.run.status != 0:
        kind = "refused"
    texts = [*result.problems, *([f"excepted: {exception}"] if exception else []), *other]
    return {"kind": kind, "skipped": skipped, "texts": texts, "cells": [
        name, result.run.status, document.get("dwgVersion", "") if converted else "",
        len(document.get("layers", [])), len(document.get("assets", [])),
        record_count(document) if converted else 0, len(document.get("entities", [])),
        len(document.get("layouts", [])), sum(skipped.values()), skipped_text(skipped), len(other),
        round(result.run.seconds, 3), round(result.run.peak_kb / 1024, 1),
        round(len(result.run.stdout) / 1000, 1)]}


def urgency(fact):
    """Problems first, then drawings of which most is missing."""
    order = ["problem", "excepted", "good", "refused"].index(fact["kind"])
    return order, -sum(fact["skipped"].values()), fact["cells"][0]


def escape(text):
    """Text for the page, which no drawing can break."""
    return html.escape(str(text).encode("utf-8", "replace").decode("utf-8"))


def row_html(fact):
    cells = []
    for value in fact["cells"]:
        if isinstance(value, (int, float)):
            cells.append(f'<td class="number" data-key="{value}">{value:,}</td>')
        else:
            cells.append(f"<td>{escape(value)}</td>")
    texts = "<br>".join(escape(text) for text in fact["texts"])
    return f'<tr class="{fact["kind"]}">{"".join(cells)}<td class="texts">{texts}</td></tr>'


def types_html(all_facts):
    drawings, entities = collections.Counter(), collections.Counter()
    for fact in all_facts:
        drawings.update(fact["skipped"].keys())
        entities.update(fact["skipped"])
    rows = "".join(f'<tr><td>{escape(name)}</td><td class="number">{count:,}</td>'
                   f'<td class="number">{drawings[name]:,}</td></tr>'
                   for name, count in sorted(entities.items(), key=lambda item: (-item[1], item[0])))
    return ("<h2>Entities without a record, by type</h2><table><thead><tr><th>type</th>"
            f"<th>entities</th><th>drawings</th></tr></thead><tbody>{rows}</tbody></table>"
            if rows else "")


def summary_html(all_facts):
    kinds = collections.Counter(fact["kind"] for fact in all_facts)
    written = sum(fact["cells"][5] for fact in all_facts)
    skipped = sum(sum(fact["skipped"].values()) for fact in all_facts)
    share = f" ({100 * written / (written + skipped):.2f} % of all)" if written else ""
    return (f"<p>{len(all_facts)} drawings: {kinds['problem']} with problems, "
            f"{kinds['excepted']} excepted, {kinds['refused']} refused as they should be, "
            f"{kinds['good']} converted. {written:,} entity records written{share}, "
            f"{skipped:,} entities skipped.</p>")


def page(all_facts):
    """The page; `all_facts` as facts() gives them, in any order."""
    heads = "".join(f"<th>{column}</th>" for column in COLUMNS)
    rows = "\n".join(row_html(fact) for fact in sorted(all_facts, key=urgency))
    return ("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
            f"<title>Corpus run</title><style>{STYLE}</style></head><body><h1>Corpus run</h1>"
            f"{summary_html(all_facts)}"
            '<p><input id="filter" placeholder="Show rows that contain ..."></p>'
            f'<table id="drawings"><thead><tr>{heads}</tr></thead><tbody>\n{rows}\n</tbody></table>'
            f"{types_html(all_facts)}<script>{SCRIPT}</script></body></html>\n")


def write_page(path, folder, results, exceptions):
    names = [result.drawing.relative_to(folder).as_posix() for result in results]
    all_facts = [facts(name, result, exceptions.get(name, ""))
                 for name, result in zip(names, results)]
    path.write_text(page(all_facts), encoding="utf-8")
