#!/usr/bin/env python3
"""Runs random, code-heavy texts through the real program and a second converter.

The texts go into generated DXF files as MTEXT entities, so that reading,
decoding and quoting are tested too. For each of them the record's `rawMtext`
must be the text that was written, and `html`, `runs` and `blocks` what
mtext_model.py makes of it. The warnings are counted as well.
"""

import argparse
import json
import math
import pathlib
import random
import subprocess
import sys
import tempfile

from mtext_model import Converter

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))
import dxf_writer  # noqa: E402

TEXTS_PER_DRAWING = 2500
WORDS = ["a", "Bc ", "<", "&", ">", "\"", "'", ";", ",", "|", "x", " ", "12", ".", "-", "%%c"]
LETTERS = {"western": ["é", "ß", "€", "–", "ÿ"],
           "unicode": ["é", "Ж", "中", "文字", "한", "😀", "\u00a0", "\ufffd", "𠀀", "e\u0301"]}
NUMBERS = ["", "0", "1", "2", "7", "10", "21", "134", "255", "256", "-1", "+3", " 5", "1.5", ".25",
           "-0.5", "2.54", "25.4", "1e3", "1e400", "1e-400", "4e-320", "0x1F", "0x1p-3", "inf",
           "nan", "abc", "1.5x", "2x", "x", "0.876", "99999999999", "2147483647", "-2147483648",
           "2147483648", "4294967295", "4294967296", "16711680", "-4294967295", "1e300", "--1",
           "1.", ".", "+", "3abc", "0.005", "-0.01"]
FONTS = ["Arial", "romans.shx", "TXT.SHX", "", "SimSun", "Times New Roman", ".shx", "a.shx",
         "fonts\\romans.shx", "monotxt"]
FIELDS = ["b0", "b1", "b", "i0", "i1", "c0", "c134", "c2", "c3", "cx", "p0", "p1", "p34", "p49",
          "px", "", "q1", "b12", "c-1", "p-3"]
FORMATS = ["i", "l", "r", "t", "q", "x", "", "z"]


def number(rng):
    return rng.choice(NUMBERS)


def end(rng):
    return ";" if rng.random() < 0.93 else ""


def font(rng):
    fields = [rng.choice(FONTS), *(rng.choice(FIELDS) for _ in range(rng.randrange(5)))]
    return "\\" + rng.choice("fF") + "|".join(fields) + end(rng)


def paragraph(rng):
    fields = []
    for _ in range(rng.randrange(5)):
        kind = rng.choice(FORMATS)
        value = rng.choice("lrcjd*") if kind == "q" and rng.random() < 0.8 else number(rng)
        fields.append(kind + value)
    return "\\p" + ",".join(fields) + end(rng)


def stack(rng, letters):
    def part():
        return "".join(rng.choice(WORDS[:7] + ["1", "0.5", *letters]) for _ in
                       range(rng.randrange(3))).replace(";", "")
    return "\\S" + part() + rng.choice("#/^ ") + part() + end(rng)


def token(rng, letters):
    choice = rng.randrange(20)
    if choice < 5:
        return rng.choice(WORDS + letters)
    if choice < 7:
        return rng.choice(["{", "{", "}"])
    if choice < 9:
        return "\\" + rng.choice("PnXx~\\{}LlKkOoNMabz;")
    if choice < 13:
        return "\\" + rng.choice("CcHWTCcHWTAQ") + number(rng) + end(rng)
    if choice < 15:
        return font(rng)
    if choice < 16:
        return stack(rng, letters)
    if choice < 17:
        return "\\U+" + rng.choice(["41", "00B0", "4E2D", "1F600", "3C", "g", "", "7B", "10FFFF"])
    if choice < 19:
        return paragraph(rng)
    return "\\" + chr(rng.randrange(0x21, 0x7F))


def random_text(rng, letters):
    text = "".join(token(rng, letters) for _ in range(rng.randrange(1, 14)))
    # The file keeps no blanks at the ends of its lines.
    return "x" + text.strip() + "x"


def drawing(version, texts):
    pairs = []
    dxf = dxf_writer.Dxf(pairs.extend, first_handle=0x1000)
    dxf.header(version)
    with dxf.section("ENTITIES"):
        for text, height in texts:
            chunks = [text[i:i + 250] for i in range(0, len(text), 250)]
            # The X coordinate tells which text a record comes from.
            dxf.entity("MTEXT", "AcDbMText", *dxf_writer.point(10, dxf.next_handle, 0), (40, height), (41, 0),
                       (71, 1), (72, 1), *((3, chunk) for chunk in chunks[:-1]), (1, chunks[-1]),
                       owner=None)
    dxf.end()
    return dxf_writer.text(pairs)


def shown(value):
    """A number as the document shows it."""
    return float(f"{value:.10g}") if math.isfinite(value) else 0


def until_nul(data):
    return data.split(b"\0")[0].decode("utf-8", "surrogateescape")


def expected_record(text, height):
    model = Converter(text.encode(), height).run()
    record = {"html": until_nul(model.html), "rawMtext": text}
    if model.runs:
        record["runs"] = [
            {"start": start, "length": length, **({"stretch": stretch} if stretch else {}),
             **({"tracking": tracking} if tracking else {}),
             **({"fixedPitch": True} if fixed else {})}
            for start, length, stretch, tracking, fixed in model.runs]
    if model.blocks:
        record["blocks"] = [expected_block(block) for block in model.blocks]
    return record, model


def expected_block(block):
    out = {"index": block["index"]}
    if block["alignment"]:
        out["alignment"] = until_nul(block["alignment"])
    for key in ("textIndent", "leftMargin", "rightMargin"):
        if block[key] != 0:
            out[key] = shown(block[key])
    if block["tabStops"]:
        out["tabStops"] = [shown(stop) for stop in block["tabStops"]]
    return out


def check_drawing(worker, version, encoding, texts):
    """The number of differing records; the first few are printed."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "texts.dxf"
        path.write_bytes(drawing(version, texts).encode(encoding))
        run = subprocess.run([worker, path], capture_output=True, timeout=600, check=True)
    document = json.loads(run.stdout.decode("utf-8", "surrogateescape"))
    records = document["entities"]
    problems = [f"{len(records)} records for {len(texts)} texts"] * (len(records) != len(texts))
    obliques = charsets = 0
    for (text, height), record in zip(texts, records):
        expected, model = expected_record(text, height)
        actual = {key: record[key] for key in ("html", "rawMtext", "runs", "blocks")
                  if key in record}
        if actual != expected:
            problems.append(f"text     {text!r}\n  expected {expected}\n  actual   {actual}")
        obliques += model.obliques > 0
        charsets += model.non_western and not text.isascii()
    warned = [sum(word in warning for warning in document["warnings"])
              for word in ("oblique angle code", "charset detected")]
    if warned != [obliques, charsets]:
        problems.append(f"warnings {warned}, expected {[obliques, charsets]}")
    for problem in problems[:5]:
        print(f"{version}: {problem}")
    return len(problems)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--texts", type=int, default=20000)
    parser.add_argument("--seed", type=int, default=5)
    options = parser.parse_args()
    rng = random.Random(options.seed)
    failed = done = 0
    while done < options.texts:
        version, encoding, letters = rng.choice(
            [("AC1032", "utf-8", LETTERS["unicode"]), ("AC1021", "utf-8", LETTERS["unicode"]),
             ("AC1015", "cp1252", LETTERS["western"]), ("AC1018", "cp1252", LETTERS["western"])])
        texts = [(random_text(rng, letters), rng.choice([2.5, 2.54, 0.18, 100.0]))
                 for _ in range(TEXTS_PER_DRAWING)]
        failed += check_drawing(options.worker, version, encoding, texts)
        done += len(texts)
    print(f"{done} texts, {failed} differences, seed {options.seed}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
