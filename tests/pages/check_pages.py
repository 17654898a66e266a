#!/usr/bin/env python3
"""Checks that what the pages say about this repository is there.

Every relative link of every page leads to a file, and to a heading of it when it
names one. Every path of the repository that a page names in code style exists.
tests/drawings/SOURCES.md lists each drawing once and nothing else. Every warning
of a golden document is one of the texts in docs/document.md. docs/repairs.md has the
words of every kind of repair.

Each check is also run on a planted mistake, which it has to find.
"""

import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCES = "tests/drawings/SOURCES.md"
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
FENCE = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#+ (.+)$", re.MULTILINE)
PATH = re.compile(r"[\w.-]+(?:/[\w.*-]+)*/?")
INDENTED = re.compile(r"^ {7,}(\S.*)$", re.MULTILINE)
# Words in a warning's text that stand for what differs. The number of a finding
# stands at the start of its line.
PLACEHOLDER = re.compile(r"\b(?:NAMES|WHAT|LAYER|BLOCK|PATH|TYPE|[NL])\b")


def pages():
    """Every page of the repository by its path below the root."""
    found = {}
    for path in sorted(ROOT.rglob("*.md")):
        name = path.relative_to(ROOT)
        if not {"build", ".git"} & set(name.parts):
            found[name.as_posix()] = path.read_text(encoding="utf-8")
    return found


def anchors(text):
    """The names under which links reach the headings of a page."""
    titles = [re.sub(r"[^\w\- ]", "", title.lower()) for title in HEADING.findall(text)]
    return {title.strip().replace(" ", "-") for title in titles}


def broken_links(name, text):
    folder = (ROOT / name).parent
    for target in LINK.findall(FENCE.sub("", text)):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, anchor = target.partition("#")
        file = folder / path if path else ROOT / name
        if not file.exists():
            yield f"{name}: the link {target} leads to nothing"
        elif anchor and anchor not in anchors(file.read_text(encoding="utf-8")):
            yield f"{name}: the link {target} names no heading"


def missing_paths(name, text):
    """Paths in code style that begin with a folder of the repository."""
    folders = {path.name for path in ROOT.iterdir() if path.is_dir()} - {"build"}
    for code in CODE.findall(FENCE.sub("", text)):
        path = code.split()[0]
        if "/" not in path or path.split("/")[0] not in folders or not PATH.fullmatch(path):
            continue
        # A source may be named without its extension, for both of its files.
        if not any(ROOT.glob(path)) and not any(ROOT.glob(path + ".[ch]pp")):
            yield f"{name}: there is no {path}"


def wrong_sources(text, drawings):
    """`drawings` are the files below tests/drawings that have to be listed."""
    listed = [row.split("|")[1].strip(" `") for row in text.splitlines() if row.startswith("| ")]
    patterns = [entry for entry in listed if "*" in entry]
    for entry in set(listed):
        if listed.count(entry) > 1 and "/" in entry:
            yield f"{SOURCES}: {entry} is listed twice"
        if "/" in entry and "*" not in entry and " " not in entry and entry not in drawings:
            yield f"{SOURCES}: there is no {entry}"
    for drawing in drawings:
        by_hand = drawing.startswith("own/")  # those without a pattern share one row
        if drawing not in listed and not by_hand and not any(
                pathlib.PurePath(drawing).match(pattern) for pattern in patterns):
            yield f"{SOURCES}: {drawing} is not listed"


def warning_patterns(text):
    """The warnings in the section of docs/document.md, as regular expressions."""
    section = re.search(r"^## Warnings$(.*?)^## ", text, re.MULTILINE | re.DOTALL)[1]
    for line in INDENTED.findall(section):
        parts = PLACEHOLDER.split(line)
        yield re.compile(".+".join(re.escape(part) for part in parts), re.DOTALL)


def unknown_warnings(text, warnings):
    patterns = list(warning_patterns(text))
    for name, warning in warnings:
        if not any(pattern.fullmatch(warning) for pattern in patterns):
            yield f"{name}: docs/document.md does not have the warning {warning}"


def repair_words(code):
    """The words for several repairs of a kind in the table of the code."""
    entries = re.findall(r'RepairWords\{DxfRepair::\w+,\s*"[^"]*",\s*"([^"]*)"\}', code)
    assert len(entries) == code.count("RepairWords{"), "an entry of another form"
    return set(entries)


def unequal_repairs(text, words):
    """Kinds of repairs that the table of docs/repairs.md or the code lacks."""
    rows = [line.rsplit("|", 2)[1] for line in text.splitlines()
            if line.startswith("|") and not line.startswith(("|--", "| the file has "))]
    told = {word.strip() for row in rows for word in row.split(", ")}
    # One kind's words have commas themselves.
    told |= {row.strip() for row in rows}
    for word in sorted(words - told):
        yield f"docs/repairs.md does not have: {word}"
    parts = {part for word in words for part in word.split(", ")} | words
    for row in rows:
        for word in row.split(", "):
            if word.strip() not in parts:
                yield f"docs/repairs.md has what no repair is called: {word.strip()}"


def golden_warnings():
    for path in sorted((ROOT / "tests/golden").glob("*/expected/*.json")):
        document = json.loads(path.read_text(encoding="utf-8", errors="replace"))
        for warning in document.get("warnings", []):
            yield path.relative_to(ROOT).as_posix(), warning


def planted(texts, drawings, words):
    """The name of each planted mistake and what its check says about it."""
    page = "docs/document.md"
    return {
        "a link to no file": broken_links(page, "[x](no_such_page.md)"),
        "a link to no heading": broken_links(page, "[x](document-text.md#no-such-heading)"),
        "a path of no file": missing_paths(page, "`tests/no_such_file.py`"),
        "a drawing without a source": wrong_sources(texts[SOURCES], drawings | {"none/x.dwg"}),
        "a source without a drawing": wrong_sources("| none/x.dwg | | | | |", drawings),
        "a source listed twice": wrong_sources(texts[SOURCES] + "| qcad/spline007.dxf | |\n" * 2,
                                               drawings),
        "a repair that the page lacks": unequal_repairs(texts["docs/repairs.md"],
                                                        words | {"odd things"}),
        "a repair that the code lacks": unequal_repairs(texts["docs/repairs.md"],
                                                        words - {sorted(words)[0]}),
        "an unknown warning": unknown_warnings(texts[page], [("planted", "Something is odd")]),
    }


def main():
    texts = pages()
    drawings = {path.relative_to(ROOT / "tests/drawings").as_posix()
                for path in (ROOT / "tests/drawings").rglob("*")
                if path.suffix.lower() in (".dwg", ".dxf")}
    warnings = list(golden_warnings())
    words = repair_words((ROOT / "reading/dxf/dxf_repairs.cpp").read_text(encoding="utf-8"))
    mistakes = [mistake for name, text in texts.items()
                for check in (broken_links, missing_paths) for mistake in check(name, text)]
    mistakes += wrong_sources(texts[SOURCES], drawings)
    mistakes += unknown_warnings(texts["docs/document.md"], warnings)
    mistakes += unequal_repairs(texts["docs/repairs.md"], words)
    mistakes += [f"not found although planted: {name}"
                 for name, found in planted(texts, drawings, words).items() if not list(found)]
    for mistake in mistakes:
        print(mistake)
    print(f"{len(texts)} pages, {len(drawings)} drawings, {len(warnings)} warnings, "
          f"{len(mistakes)} mistakes")
    return 1 if mistakes or not warnings else 0


if __name__ == "__main__":
    sys.exit(main())
