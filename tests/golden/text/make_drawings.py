#!/usr/bin/env python3
"""Writes tests/drawings/own/text_*.dxf: every text and annotation type.

One small drawing for each way in which text is stored: 8-bit code pages of
several scripts, UTF-8, text and binary DXF, and the releases whose dimensions
LibreDWG reads in different ways. The drawings are committed; this script says
how they came about and makes more of them.
"""

import pathlib
import sys

TESTS = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TESTS / "support"))
import dxf_writer  # noqa: E402

OWN = TESTS / "drawings" / "own"

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
    return dxf_writer.point(code, float(x), float(y), float(z))


def tables(dxf):
    with dxf.table("LAYER", "2", 2, owner=None):
        for handle, name in (("10", "0"), ("13", "T1")):
            dxf.record("LAYER", "AcDbLayerTableRecord", name, (70, 0), (62, 7), (6, "Continuous"),
                       handle=handle)
    with dxf.table("STYLE", "3", 2, owner=None):
        for handle, name, height, font in (("11", "Standard", 0.0, "txt"),
                                           ("12", "FIXED", 3.5, "romans.shx")):
            dxf.record("STYLE", "AcDbTextStyleTableRecord", name, (70, 0), (40, height), (41, 1.0),
                       (50, 0.0), (71, 0), (42, 2.5), (3, font), (4, ""), handle=handle)
    with dxf.table("DIMSTYLE", "A", 1, owner=None):
        # The only record whose handle has another code.
        dxf.put((0, "DIMSTYLE"), (105, "27"), (100, "AcDbSymbolTableRecord"),
                (100, "AcDbDimStyleTableRecord"), (2, "MASS"), (70, 0), (3, "<> mm"), (40, 2.0),
                (41, 2.5), (140, 3.5), (144, 0.5), (45, 0.25), (78, 8), (176, 1), (178, 5),
                (271, 2), (277, 2), (340, "12"))


class Entities:
    """The entities of model space. LibreDWG finds their owner by itself."""

    def __init__(self, dxf):
        self.dxf = dxf

    def add(self, name, *subclasses):
        (first, pairs), *others = subclasses
        self.dxf.entity(name, first, *pairs, layer="T1", owner=None)
        for subclass, more in others:
            self.dxf.put((100, subclass), *more)

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
    """The pairs of a file."""
    pairs = []
    dxf = dxf_writer.Dxf(pairs.extend)
    dxf.header(version, (9, "$DWGCODEPAGE"), (3, code_page_name), (9, "$INSUNITS"), (70, 4))
    with dxf.section("TABLES"):
        tables(dxf)
    with dxf.section("ENTITIES"):
        entities = Entities(dxf)
        texts(entities, words)
        dimensions(entities, words)
        leaders(entities, words)
    dxf.end()
    return pairs


def main():
    OWN.mkdir(parents=True, exist_ok=True)
    for name, (version, code_page, code_page_name, words, is_binary) in DRAWINGS.items():
        pairs = drawing(version, code_page_name, words)
        data = (dxf_writer.binary(pairs, code_page) if is_binary
                else dxf_writer.text(pairs, width=3).encode(code_page))
        (OWN / f"{name}.dxf").write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
