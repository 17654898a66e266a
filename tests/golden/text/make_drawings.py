#!/usr/bin/env python3
"""Writes the drawings of tests/drawings/own: every text and annotation type.

One small drawing for each way in which text is stored: 8-bit code pages of
several scripts, UTF-8, text and binary DXF, and the releases whose dimensions
LibreDWG reads in different ways. The drawings are committed; this script says
how they came about and makes more of them.
"""

import pathlib
import struct
import sys

OWN = pathlib.Path(__file__).resolve().parents[2] / "drawings" / "own"
SENTINEL = b"AutoCAD Binary DXF\r\n\x1a\x00"

LATIN = "Größe é"
CYRILLIC = "План этажа"
CHINESE = "平面图"
JAPANESE = "平面図テスト"
KOREAN = "평면도"

# name: release, code page of the text, code page as the drawing names it, words, binary
DRAWINGS = {
    "text_latin_r14": ("AC1014", "cp1252", "ANSI_1252", LATIN, False),
    "text_latin_r2000": ("AC1015", "cp1252", "ANSI_1252", LATIN, False),
    "text_latin_r2000_binary": ("AC1015", "cp1252", "ANSI_1252", LATIN, True),
    "text_cyrillic_r2000": ("AC1015", "cp1251", "ANSI_1251", CYRILLIC, False),
    "text_japanese_r2004": ("AC1018", "cp932", "ANSI_932", JAPANESE, False),
    "text_korean_r2004": ("AC1018", "cp949", "ANSI_949", KOREAN, False),
    "text_scripts_r2007": ("AC1021", "utf-8", "ANSI_1252",
                           " ".join([LATIN, CYRILLIC, CHINESE, JAPANESE, KOREAN, "😀"]), False),
    "text_scripts_r2018_binary": ("AC1032", "utf-8", "ANSI_1252",
                                  " ".join([CYRILLIC, KOREAN, "😀"]), True),
}


def point(code, x, y, z=0.0):
    return [(code, float(x)), (code + 10, float(y)), (code + 20, float(z))]


def section(name, *parts):
    return [(0, "SECTION"), (2, name), *sum(parts, []), (0, "ENDSEC")]


def table(name, handle, *records):
    return [(0, "TABLE"), (2, name), (5, handle), (100, "AcDbSymbolTable"), (70, len(records)),
            *sum(records, []), (0, "ENDTAB")]


def layer(handle, name):
    return [(0, "LAYER"), (5, handle), (100, "AcDbSymbolTableRecord"),
            (100, "AcDbLayerTableRecord"), (2, name), (70, 0), (62, 7), (6, "Continuous")]


def style(handle, name, height, font):
    return [(0, "STYLE"), (5, handle), (100, "AcDbSymbolTableRecord"),
            (100, "AcDbTextStyleTableRecord"), (2, name), (70, 0), (40, height), (41, 1.0),
            (50, 0.0), (71, 0), (42, 2.5), (3, font), (4, "")]


def dim_style():
    return [(0, "DIMSTYLE"), (105, "27"), (100, "AcDbSymbolTableRecord"),
            (100, "AcDbDimStyleTableRecord"), (2, "MASS"), (70, 0), (3, "<> mm"), (40, 2.0),
            (41, 2.5), (140, 3.5), (144, 0.5), (45, 0.25), (78, 8), (176, 1), (178, 5), (271, 2),
            (277, 2), (340, "12")]


class Entities:
    def __init__(self):
        self.handle = 0x100
        self.pairs = []

    def add(self, name, *subclasses):
        self.handle += 1
        self.pairs += [(0, name), (5, f"{self.handle:X}"), (100, "AcDbEntity"), (8, "T1")]
        for subclass, pairs in subclasses:
            self.pairs += [(100, subclass), *pairs]

    def dimension(self, flag, measurement, text, *subclasses):
        common = [*point(10, 9, 8), *point(11, 7, 6), (70, flag), (1, text), (42, measurement),
                  (3, "MASS")]
        self.add("DIMENSION", ("AcDbDimension", common), *subclasses)


def texts(entities, words):
    entities.add("TEXT", ("AcDbText", [*point(10, 1, 2), (40, 2.5), (1, f"{words} %%c50 <&>"),
                                       (50, 30.0), (7, "FIXED")]), ("AcDbText", []))
    entities.add("TEXT", ("AcDbText", [*point(10, 1, 2), (40, 2.5), (1, f"%%u{words}%%u %%065"),
                                       (72, 1), *point(11, 5, 6)]), ("AcDbText", [(73, 2)]))
    entities.add("ATTDEF", ("AcDbText", [*point(10, 3, 4), (40, 1.5), (1, words)]),
                 ("AcDbAttributeDefinition", [(3, f"{words}?"), (2, "TAG"), (70, 2)]))
    entities.add("MTEXT", ("AcDbMText", [
        *point(10, 11, 12), (40, 2.5), (41, 60.0), (71, 5), (72, 1),
        (1, f"{{\\fSimSun|b1|i0|c134|p2;{words}}}\\P\\pi-2,l2,t4,8,qc;\\C1;a\\W1.5;{words}\\S1/2;"
            f"\\U+0416\\Q15;{{\\H.5x;\\T2;b}}"),
        (11, 0.0), (21, 1.0), (31, 0.0)]))


def dimensions(entities, words):
    lines = [*point(13, 1, 1), *point(14, 4, 5)]
    rotated = ("AcDbRotatedDimension", [])
    for angle in (30.0, 90.0, 0.0, -45.5):
        entities.dimension(32, 3.5, f"{words} <>",
                           ("AcDbAlignedDimension", [*lines, (50, angle)]), rotated)
    entities.dimension(32, 3.5, "", ("AcDbAlignedDimension", [*lines, (50, 60.0), (52, 75.0)]),
                       rotated)
    entities.dimension(33, 5.0, "", ("AcDbAlignedDimension", lines))
    entities.dimension(36, 2.5, "R<>",
                       ("AcDbRadialDimension", [*point(15, 6, 7), (40, 1.25)]))


def leaders(entities, words):
    entities.add("LEADER", ("AcDbLeader", [
        (3, "MASS"), (71, 1), (72, 0), (73, 3), (74, 1), (75, 0), (40, 0.0), (41, 0.0), (76, 3),
        *point(10, 0, 0), *point(10, 5, 5), *point(10, 8, 5)]))
    lines = [[(0, 0), (5, 5), (6, 7.5), (9, 9)], [(1, 20), (5, 5)]]
    first = [(302, "LEADER{"), (290, 1), (291, 1), *point(10, 9, 9), *point(11, 1, 0),
             *point(12, 2, 2), *point(13, 3, 3), (90, 0), (40, 2.5)]
    for index, line in enumerate(lines):
        first += [(304, "LEADER_LINE{"), *sum((point(10, *xy) for xy in line), []),
                  (90, 0), *point(11, 2, 2), *point(12, 3, 3), (91, index), (305, "}")]
    second = [(302, "LEADER{"), (290, 1), (291, 1), *point(10, -9, 9), *point(11, -0.6, 0.8),
              (90, 1), (40, 10.0), (304, "LEADER_LINE{"), *point(10, -20, 1), *point(10, -9, 9),
              (91, 2), (305, "}"), (271, 0), (303, "}")]
    entities.add("MULTILEADER", ("AcDbMLeader", [
        (300, "CONTEXT_DATA{"), (40, 1.0), *point(10, 9, 9), (41, 4.0), (140, 3.0), (145, 2.0),
        (290, 1), (304, f"{words}\\P\\H2x;b"), *point(11, 0, 0, 1), (340, "12"),
        *point(12, 10, 11), *point(13, 1, 0), (42, 0.5), (43, 0.0), (44, 0.0), (45, 1.0),
        (296, 0), *first, (271, 0), (303, "}"), *second, (301, "}"), (340, "12"),
        (42, 1.0), (170, 2)]))


def drawing(version, code_page_name, words):
    entities = Entities()
    texts(entities, words)
    dimensions(entities, words)
    leaders(entities, words)
    return [
        *section("HEADER", [(9, "$ACADVER"), (1, version), (9, "$DWGCODEPAGE"),
                            (3, code_page_name), (9, "$INSUNITS"), (70, 4)]),
        *section("TABLES", table("LAYER", "2", layer("10", "0"), layer("13", "T1")),
                 table("STYLE", "3", style("11", "Standard", 0.0, "txt"),
                       style("12", "FIXED", 3.5, "romans.shx")),
                 table("DIMSTYLE", "A", dim_style())),
        *section("ENTITIES", entities.pairs), (0, "EOF")]


def kind(code):
    """How a binary file stores the value of a group."""
    if code < 10 or code in (100, 102, 105) or 300 <= code < 370:
        return "text"
    if code < 60 or 110 <= code < 150 or 210 <= code < 240:
        return "real"
    if 90 <= code < 100:
        return "long"
    return "byte" if 290 <= code < 300 else "short"


def text_file(pairs, code_page):
    return "".join(f"{code:>3}\n{value}\n" for code, value in pairs).encode(code_page)


def binary_file(pairs, code_page):
    formats = {"real": "<d", "long": "<i", "short": "<h", "byte": "<B"}
    parts = [SENTINEL]
    for code, value in pairs:
        parts.append(struct.pack("<h", code))
        if kind(code) == "text":
            parts.append(str(value).encode(code_page) + b"\0")
        else:
            parts.append(struct.pack(formats[kind(code)], value))
    return b"".join(parts)


def main():
    OWN.mkdir(parents=True, exist_ok=True)
    for name, (version, code_page, code_page_name, words, is_binary) in DRAWINGS.items():
        pairs = drawing(version, code_page_name, words)
        data = (binary_file if is_binary else text_file)(pairs, code_page)
        (OWN / f"{name}.dxf").write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
