#!/usr/bin/env python3
"""Text of DXF files in every code page, as the complete form has it, against Python's
codecs: every byte and every code of two bytes, in texts and in names of layers, and
the same drawing saved in many code pages by ezdxf (skipped without it)."""

import argparse
import html
import json
import pathlib
import subprocess
import sys
import tempfile

try:
    import ezdxf
    from ezdxf.tools.codepage import toencoding
except ImportError:
    ezdxf = None

TIMEOUT_SECONDS = 600
# The names that DXF files have for code pages, and Python's codecs for them.
SINGLE_BYTE = {
    "iso8859-1": "iso8859_1", "iso8859-2": "iso8859_2", "iso8859-3": "iso8859_3",
    "iso8859-4": "iso8859_4", "iso8859-5": "iso8859_5", "iso8859-6": "iso8859_6",
    "iso8859-7": "iso8859_7", "iso8859-8": "iso8859_8", "iso8859-9": "iso8859_9",
    "dos437": "cp437", "dos720": "cp720", "dos737": "cp737", "dos775": "cp775",
    "dos850": "cp850", "dos852": "cp852", "dos855": "cp855", "dos857": "cp857",
    "dos860": "cp860", "dos861": "cp861", "dos862": "cp862", "dos863": "cp863",
    "dos864": "cp864", "dos865": "cp865", "dos866": "cp866", "dos869": "cp869",
    "ANSI_874": "cp874", "ansi_1250": "cp1250", "ANSI_1251": "cp1251",
    "ANSI_1252": "cp1252", "ANSI_1253": "cp1253", "ANSI_1254": "cp1254",
    "ANSI_1255": "cp1255", "ANSI_1256": "cp1256", "ANSI_1257": "cp1257",
    "ANSI_1258": "cp1258", "mac-roman": "mac_roman",
}
DOUBLE_BYTE = {"ANSI_932": "cp932", "dos932": "cp932", "ANSI_936": "gbk", "gb2312": "gbk",
               "ANSI_949": "cp949", "ksc5601": "cp949", "ANSI_950": "cp950", "big5": "cp950",
               "ANSI_1361": "johab", "johab": "johab"}
# Texts that eight code pages and more share with ezdxf's drawings.
SAMPLES = {"ANSI_1250": "Půdorys střechy – žluťoučký kůň", "ANSI_1251": "План этажа № 3 ёЁяЯ",
           "ANSI_1252": "Grundriß Ø 12 ± 0,5 ÿ €", "ANSI_1253": "Κάτοψη ορόφου Ώ",
           "ANSI_1254": "Zemin katı planı ğĞşŞİ", "ANSI_1255": "תוכנית קומה",
           "ANSI_932": "平面図 ソ表能ァ ｱｲｳ", "ANSI_936": "首层平面图 電氣",
           "ANSI_949": "평면도 똠방각하 詰", "ANSI_950": "平面圖 許功蓋"}


def pairs(*values):
    return b"".join(str(code).encode() + b"\n" + value + b"\n" for code, value in values)


def drawing(page, texts, version=b"AC1009"):
    """A DXF file with one TEXT for each stored text, on a layer of that name."""
    body = pairs((0, b"SECTION"), (2, b"HEADER"), (9, b"$ACADVER"), (1, version),
                 (9, b"$DWGCODEPAGE"), (3, page.encode()), (0, b"ENDSEC"),
                 (0, b"SECTION"), (2, b"ENTITIES"))
    for i, text in enumerate(texts):
        body += pairs((0, b"TEXT"), (8, b"0"), (10, str(i).encode()), (20, b"0"), (30, b"0"),
                      (40, b"1"), (1, text))
    return body + pairs((0, b"ENDSEC"), (0, b"EOF"))


class Checker:
    def __init__(self, worker, folder):
        self.worker, self.folder = worker, folder
        self.passed = self.failed = 0

    def expect(self, holds, message):
        self.passed, self.failed = self.passed + holds, self.failed + (not holds)
        if not holds:
            print(f"FAILED {message}")

    def document(self, path):
        run = subprocess.run([self.worker, str(path), "--complete"], capture_output=True,
                             timeout=TIMEOUT_SECONDS, check=True)
        return json.loads(run.stdout.decode("utf-8"))

    def convert(self, data):
        path = self.folder / "page.dxf"
        path.write_bytes(data)
        return self.document(path)


def plain(record):
    return html.unescape(record["html"].removeprefix("<p>").removesuffix("</p>"))


def decoded(code, codec):
    """The character that Python has for a code; None where it has none."""
    try:
        text = code.decode(codec)
    except UnicodeDecodeError:
        return None
    return text if len(text) == 1 else None


def codes_of(codec, is_double):
    codes = [bytes([byte]) for byte in range(0x80, 0x100)]
    if is_double:
        codes += [bytes([lead, trail]) for lead in range(0x81, 0xFF)
                  for trail in range(0x31, 0xFF)]
    found = ((code, decoded(code, codec)) for code in codes)
    # Single bytes that Python has for control and for private characters are none here.
    return [(code, text) for code, text in found
            if text is not None and (len(code) == 2 or not is_double or
                                     0xA0 <= ord(text) < 0xE000 or ord(text) >= 0xF900)]


def check_page(checker, page, codec, is_double):
    """Every code between two letters, so that nothing is taken for a mark of the page."""
    codes = codes_of(codec, is_double)
    document = checker.convert(drawing(page, [b"a" + code + b"z" for code, _ in codes]))
    records = document["entities"]
    checker.expect(len(records) == len(codes), f"{page}: {len(records)} of {len(codes)} texts")
    wrong = [f"{code.hex()}: {text!r}, not {plain(record)!r}"
             for (code, text), record in zip(codes, records) if plain(record) != f"a{text}z"]
    checker.expect(not wrong, f"{page}: {len(wrong)} wrong codes, as {wrong[:5]}")
    checker.expect(document["codePage"]["by"] == "drawing" and
                   document["codePage"]["named"] == page, f"{page}: {document['codePage']}")


def check_samples(checker, version):
    for page, text in SAMPLES.items():
        document = ezdxf.new(version)
        document.encoding = toencoding(page.removeprefix("ANSI_"))
        document.layers.add(text)
        document.styles.add(text, font="txt.shx")
        block = document.blocks.new(name=text)
        block.add_text(text)
        space = document.modelspace()
        space.add_text(text, dxfattribs={"layer": text, "style": text})
        space.add_blockref(text, (0, 0))
        if version != "R12":
            space.add_mtext(text)
            document.layouts.rename("Layout1", text)
        path = checker.folder / "sample.dxf"
        document.saveas(path)
        found = checker.document(path)
        where = f"{page} as {version}"
        by_type = {record["type"]: record for record in found["entities"]}
        checker.expect(plain(by_type["TEXT"]) == text, f"{where}: text {by_type['TEXT']['html']}")
        checker.expect(by_type["TEXT"]["layer"] == text, f"{where}: layer of the text")
        checker.expect(by_type["TEXT"]["textStyle"] == text, f"{where}: style of the text")
        checker.expect(by_type["INSERT"]["blockName"] == text, f"{where}: block name")
        checker.expect(text in [layer["name"] for layer in found["layers"]], f"{where}: layers")
        checker.expect(text in [style["name"] for style in found["textStyles"]],
                       f"{where}: text styles")
        asset = next(asset for asset in found["assets"] if asset["name"] == text)
        checker.expect(plain(asset["entities"][0]) == text, f"{where}: text in the block")
        if version != "R12":
            checker.expect(by_type["MTEXT"]["rawMtext"] == text, f"{where}: multi-line text")
            checker.expect(text in [sheet["name"] for sheet in found["layouts"]],
                           f"{where}: sheets {[sheet['name'] for sheet in found['layouts']]}")


# Pages of eight writing systems and more; what a page has no code for stands as \U+XXXX.
SAVED_IN = ("ANSI_1251", "ANSI_936", "ANSI_949", "ANSI_932", "ANSI_950", "ANSI_1253", "ANSI_1255",
            "ANSI_1361", "ANSI_1252", "dos437")


def stored_in(codec, text):
    """The bytes that a drawing of that page has for a text."""
    return b"".join(code if (code := encoded(char, codec)) is not None
                    else b"\\U+%04X" % ord(char) for char in text)


def encoded(char, codec):
    """The page's code for a character; None where it has none that is read back."""
    try:
        code = char.encode(codec)
    except UnicodeEncodeError:
        return None
    return code if code.decode(codec) == char else None


def check_same_drawing(checker, version):
    """One drawing with texts of all writing systems, saved in each page."""
    for page in SAVED_IN:
        codec = {**SINGLE_BYTE, **DOUBLE_BYTE}[page]
        texts = list(SAMPLES.values())
        document = checker.convert(
            drawing(page, [stored_in(codec, text) for text in texts], version))
        found = [plain(record) for record in document["entities"]]
        checker.expect(found == texts, f"saved in {page} as {version}: {found}")
        checker.expect(document["codePage"]["by"] == "drawing", f"saved in {page}: code page")


def check_codes(checker):
    """What the reader must not touch before the bytes are decoded."""
    cases = {
        b"\\M+5D6D0\\M+5CEC4": "中文",
        b"\\M+182A0\\M+193FA": "あ日",
        b"\\U+4E2D 12\\U+00B0": "中 12°",
        b"\\U+D83D\\U+DE00": "\U0001F600",
        b"%%214%%208": "中",
        b"\xca\xa0": bytes.fromhex("caa0").decode("gbk"),
        b"\x81\x5eJ\x81\x5c": bytes.fromhex("815e").decode("gbk") + "J" +
                              bytes.fromhex("815c").decode("gbk"),
    }
    for version in (b"AC1009", b"AC1015"):
        document = checker.convert(drawing("ANSI_936", cases, version))
        for (stored, text), record in zip(cases.items(), document["entities"]):
            checker.expect(plain(record) == text,
                           f"{version}: {stored!r} gives {plain(record)!r}, not {text!r}")


def check_utf8(checker):
    texts = ["План 中文", "Ø"]
    for version in (b"AC1009", b"AC1015", b"AC1021"):
        document = checker.convert(drawing("ANSI_1251", [t.encode() for t in texts], version))
        checker.expect([plain(record) for record in document["entities"]] == texts,
                       f"UTF-8 in {version}")
        by = "release" if version == b"AC1021" else "content"
        checker.expect(document["codePage"] == {"name": "UTF-8", "by": by, "named": "ANSI_1251"},
                       f"UTF-8 in {version}: {document['codePage']}")
    stored = "План".encode("cp1251")
    document = checker.convert(drawing("ANSI_1251", [stored, texts[0].encode()], b"AC1021"))
    checker.expect([plain(record) for record in document["entities"]] == ["План", texts[0]],
                   "a string in the code page of a file of release 2007")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        checker = Checker(options.worker, pathlib.Path(folder))
        for page, codec in SINGLE_BYTE.items():
            check_page(checker, page, codec, False)
        for page, codec in DOUBLE_BYTE.items():
            check_page(checker, page, codec, True)
        for version in (b"AC1009", b"AC1015", b"AC1018"):
            check_same_drawing(checker, version)
        check_codes(checker)
        check_utf8(checker)
        if ezdxf is None:
            print("skipped: drawings of ezdxf, which is not installed")
        else:
            for version in ("R12", "R2000"):
                check_samples(checker, version)
    print(f"{checker.passed} passed, {checker.failed} failed")
    return 1 if checker.failed else 0


if __name__ == "__main__":
    sys.exit(main())
