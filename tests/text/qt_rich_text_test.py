#!/usr/bin/env python3
"""Loads the HTML of real drawings' MTEXT into Qt's rich-text document.

For every MTEXT of the drawings below, the codes of `rawMtext` are followed by
their meaning (a state that groups save and restore), and the document that Qt
builds from `html` must show the same: the plain text, the paragraphs, which
characters are bold and which have a colour; and each of `runs` must cover the
characters that its code stands before.

Where the fragment or Qt is odd on purpose, the test says so: search for "odd".

Exits with 77 where PySide6 cannot be imported, unless CI is set.
"""

import argparse
import json
import os
import pathlib
import re
import subprocess
import sys
from dataclasses import dataclass, field, replace

from mtext_model import aci

os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
try:
    from PySide6.QtGui import QFont, QGuiApplication, QTextDocument, QTextFormat
except ImportError as error:
    print(f"PySide6 cannot be imported: {error}")
    sys.exit(1 if os.environ.get("CI") else 77)

DRAWINGS = pathlib.Path(__file__).resolve().parents[1] / "drawings"
REAL = ["aspose-cad/Multileaders.dwg", "autodim/test3.DWG", "dxf-renewed/dimensions-large-scale.dxf",
        "ezdwg/mtext_2004.dwg", "ezdxf/dimstyle-vars.dwg", "ezdxf/mtext_columns_R2007.dxf",
        "gdal/leader-mleader.dxf", "libdxf/qcad-example_R2000.dxf", "libredwg/2018/Leader.dwg",
        "libredwg/2018/Text.dwg", "skymakerolof-dxf/dimensions.dxf", "zenyun/example3.dwg"]
SYNTHETIC = ["generated/text_all_scripts_R2007.dxf", "generated/text_cp936_R2000.dxf",
             "own/text_latin_r2000.dxf", "own/text_scripts_r2007.dxf"]

# Blanks of the drawing stay blanks only with this style; without it Qt folds
# them as HTML does.
KEEP_BLANKS = "p { white-space: pre-wrap; }"

RED = "#ff0000"


@dataclass
class State:
    bold: bool = False
    color: str = ""
    runs: tuple = ()


@dataclass
class Character:
    text: str
    position: int  # as `runs` count
    bold: bool
    color: str
    runs: tuple


@dataclass
class Reading:
    """What the codes of one text mean."""

    paragraphs: list = field(default_factory=lambda: [[]])
    runs: list = field(default_factory=list)  # (kind, value) in the order of their codes
    colors: int = 0
    bolds: int = 0


def units(text):
    return len(text.encode("utf-16-le")) // 2


def read_codes(raw):
    reading, stack, position, at = Reading(), [State()], 0, 0

    def add(text, length=None):
        nonlocal position
        state = stack[-1]
        reading.paragraphs[-1].append(
            Character(text, position, state.bold, state.color, state.runs))
        position += units(text) if length is None else length

    def start_run(kind, value):
        reading.runs.append((kind, value))
        stack[-1] = replace(stack[-1], runs=stack[-1].runs + (len(reading.runs) - 1,))

    while at < len(raw):
        code = re.compile(r"\\U\+([0-9A-Fa-f]{1,6})|\\([PnXx~\\{}LlKkOo])|"
                          r"\\([ACcHQWTfFSp])([^;]*);?|\\(?:(?=.)|$)", re.DOTALL).match(raw, at)
        if not code:
            char, at = raw[at], at + 1
            if char == "{":
                stack.append(stack[-1])
            elif char == "}" and len(stack) > 1:
                stack.pop()
            elif char != "}":
                add(char)
            continue
        at = code.end()
        if code[1]:
            add(chr(int(code[1], 16)))
        elif code[2] and code[2] in "Pn":
            position += 1
            reading.paragraphs.append([])
            # Odd: the fragment leaves its spans open over the break, and Qt
            # ends them with the paragraph.
            stack = [replace(state, bold=False, color="") for state in stack]
        elif code[2]:
            text = {"X": "\u2028", "x": "\u2028", "~": "\u00a0"}.get(code[2], code[2])
            if code[2] not in "LlKkOo":
                add(text)
        elif code[3] == "C":
            reading.colors += 1
            stack[-1] = replace(stack[-1], color="#%02x%02x%02x" % aci(int(code[4])))
        elif code[3] and code[3] in "WT":
            start_run({"W": "stretch", "T": "tracking"}[code[3]], float(code[4]))
        elif code[3] and code[3] in "fF":
            fields = code[4].split("|")[1:]
            # A font code never clears the bold of an outer group.
            if "b1" in fields:
                reading.bolds += 1
                stack[-1] = replace(stack[-1], bold=True)
            if any(re.match(r"p-?\d*[13579](?!\d)", item) for item in fields):
                start_run("fixedPitch", True)
        elif code[3] == "S":
            upper, separator, lower = re.match(r"([^#/^]*)([#/^]?)(.*)", code[4], re.DOTALL).groups()
            # Odd: a stack counts its bytes, and its separator where it shows none.
            before = position
            for char in upper + ("/" if separator in "#/" and separator else "") + lower:
                add(char)
            position = before + len(code[4].encode())
    return reading


def formats(document):
    """The text of each paragraph and the format of each of its UTF-16 units."""
    block = document.begin()
    while block.isValid():
        text, states = "", []
        fragments = block.begin()
        while not fragments.atEnd():
            fragment = fragments.fragment()
            style = fragment.charFormat()
            color = (style.foreground().color().name()
                     if style.hasProperty(QTextFormat.Property.ForegroundBrush) else "")
            bold = style.fontWeight() >= QFont.Weight.Bold
            text += fragment.text()
            states += [(bold, color)] * units(fragment.text())
            fragments += 1
        yield text, states
        block = block.next()


def shown_paragraphs(paragraphs):
    """Odd: Qt drops empty paragraphs, but for the last one."""
    return [p for i, p in enumerate(paragraphs) if p or i == len(paragraphs) - 1]


def check_formats(reading, document):
    expected = shown_paragraphs(reading.paragraphs)
    actual = list(formats(document))
    expected_texts = ["".join(c.text for c in paragraph) for paragraph in expected]
    actual_texts = [text for text, _ in actual]
    if actual_texts != expected_texts:
        return [f"plain text {actual_texts}, expected {expected_texts}"]
    problems = []
    for paragraph, (_, states) in zip(expected, actual):
        wanted = [(c.bold, c.color) for c in paragraph for _ in range(units(c.text))]
        if states != wanted:
            problems.append(f"bold and colour {states}, expected {wanted}")
    return problems


def check_runs(reading, runs):
    characters = [c for paragraph in reading.paragraphs for c in paragraph]
    wanted = []
    for index, (kind, value) in enumerate(reading.runs):
        covered = [c for c in characters if index in c.runs]
        if covered:
            wanted.append((kind, covered[0].position, value))
    problems = [f"{len(runs)} runs, expected {wanted}"] * (len(runs) != len(wanted))
    for run in runs:
        kind = next(key for key in ("stretch", "tracking", "fixedPitch") if key in run)
        inside = [c for c in characters
                  if run["start"] <= c.position < run["start"] + run["length"]]
        owners = [i for i, (k, _) in enumerate(reading.runs) if k == kind and inside
                  and all(i in c.runs for c in inside)
                  and not any(i in c.runs for c in characters if c not in inside)]
        if not owners:
            problems.append(f"run {run} covers {''.join(c.text for c in inside)!r}")
    return problems


def check_drawing(worker, name, totals):
    run = subprocess.run([worker, name], cwd=DRAWINGS, capture_output=True, check=True, timeout=600)
    document = json.loads(run.stdout.decode("utf-8"))
    lists = [document["entities"], *(asset["entities"] for asset in document["assets"]),
             *(layout["entities"] for layout in document["layouts"])]
    problems, count = [], 0
    for record in (r for records in lists for r in records if r["type"] == "MTEXT"):
        reading = read_codes(record["rawMtext"])
        text = QTextDocument()
        text.setDefaultStyleSheet(KEEP_BLANKS)
        text.setHtml(record["html"])
        found = check_formats(reading, text) + check_runs(reading, record.get("runs", []))
        problems += [f"{record['rawMtext']!r}: {problem}" for problem in found]
        count += 1
        totals["paragraphs"] += len(reading.paragraphs) - 1
        totals["bold"] += reading.bolds
        totals["colour"] += reading.colors
        totals["runs"] += len(record.get("runs", []))
    print(f"{name}: {count} texts, {len(problems)} problems")
    for problem in problems[:5]:
        print("  " + problem)
    if not count:
        problems.append("no text at all")
    return len(problems)


def check_oddities():
    """The oddities that the readings above allow for, each shown by itself."""
    def paragraphs(html, style=KEEP_BLANKS):
        document = QTextDocument()
        document.setDefaultStyleSheet(style)
        document.setHtml(html)
        return list(formats(document))

    red = '<span style="color:rgb(255,0,0)">'
    cases = [
        ("a span ends with its paragraph", f"<p>{red}a</p><p>b</span>c</p>",
         [("a", [(False, RED)]), ("bc", [(False, "")] * 2)]),
        ("empty paragraphs vanish but for the last", "<p></p><p>a</p><p></p><p>b</p><p></p>",
         [("a", [(False, "")]), ("b", [(False, "")]), ("", [])]),
        ("an end tag without a start is ignored", "<p>a</span>b</u></p>",
         [("ab", [(False, "")] * 2)]),
        ("a family needs no quotes",
         '<p><span style="font-family:Times New Roman;font-weight:bold;">a</span>b</p>',
         [("ab", [(True, ""), (False, "")])]),
    ]
    failed = [name for name, html, expected in cases if paragraphs(html) != expected]
    if paragraphs("<p>a  b</p>", "")[0][0] != "a b":
        failed.append("blanks are folded without the style")
    for name in failed:
        print(f"oddity: {name}: Qt does otherwise")
    return len(failed)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    options = parser.parse_args()
    application = QGuiApplication([])
    totals = {"paragraphs": 0, "bold": 0, "colour": 0, "runs": 0}
    worker = str(pathlib.Path(options.worker).resolve())
    failed = sum(check_drawing(worker, name, totals) for name in REAL + SYNTHETIC)
    failed += check_oddities()
    print(f"{totals}, {failed} problems")
    del application
    return 1 if failed or not all(totals.values()) else 0


if __name__ == "__main__":
    sys.exit(main())
