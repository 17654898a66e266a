#!/usr/bin/env python3
"""Writes the generated drawings of the benchmarks, as DXF of 2000.

    generate.py KIND COUNT FILE

Kinds: mixed (everyday entities), text (TEXT and MTEXT with codes), blocks (500
layers, COUNT blocks and twice as many inserts), hatch (dense boundaries).
The same arguments give the same bytes.
"""

import math
import random
import sys

LAYERS = 20
BLOCKS = 50
WORDS = ("plan section elevation detail concrete steel beam column slab footing "
         "drainage level datum north scale revision drawn checked").split()


class Dxf:
    """A DXF file under construction: group lines, and handles in order."""

    def __init__(self):
        self.lines = []
        self.last_handle = 0x100

    def add(self, *groups):
        for code, value in zip(groups[::2], groups[1::2]):
            self.lines.append(f"{code}\n{value}\n")

    def handle(self):
        self.last_handle += 1
        return f"{self.last_handle:X}"

    def entity(self, name, layer, subclass, owner="1F"):
        self.add(0, name, 5, self.handle(), 330, owner, 100, "AcDbEntity", 8, layer, 100, subclass)


def table(dxf, name, handle, count):
    dxf.add(0, "TABLE", 2, name, 5, handle, 330, 0, 100, "AcDbSymbolTable", 70, count)


def record(dxf, kind, handle, table_handle, subclass, name):
    dxf.add(0, kind, 5, handle, 330, table_handle, 100, "AcDbSymbolTableRecord", 100, subclass,
            2, name)


def tables(dxf, layers, block_handles):
    dxf.add(0, "SECTION", 2, "TABLES")
    table(dxf, "LTYPE", "5", 3)
    for handle, name in (("14", "ByBlock"), ("15", "ByLayer"), ("16", "Continuous")):
        record(dxf, "LTYPE", handle, "5", "AcDbLinetypeTableRecord", name)
        dxf.add(70, 0, 3, "", 72, 65, 73, 0, 40, 0.0)
    dxf.add(0, "ENDTAB")
    table(dxf, "LAYER", "2", len(layers))
    for index, name in enumerate(layers):
        record(dxf, "LAYER", "10" if index == 0 else dxf.handle(), "2",
               "AcDbLayerTableRecord", name)
        dxf.add(70, 0, 62, index % 255 + 1, 6, "Continuous", 370, -3)
    dxf.add(0, "ENDTAB")
    table(dxf, "STYLE", "3", 1)
    record(dxf, "STYLE", "11", "3", "AcDbTextStyleTableRecord", "Standard")
    dxf.add(70, 0, 40, 0.0, 41, 1.0, 50, 0.0, 71, 0, 42, 2.5, 3, "arial.ttf", 4, "")
    dxf.add(0, "ENDTAB")
    table(dxf, "BLOCK_RECORD", "1", len(block_handles))
    for name, handle in block_handles.items():
        record(dxf, "BLOCK_RECORD", handle, "1", "AcDbBlockTableRecord", name)
    dxf.add(0, "ENDTAB", 0, "ENDSEC")


def begin_block(dxf, name, owner):
    dxf.entity("BLOCK", "0", "AcDbBlockBegin", owner)
    dxf.add(2, name, 70, 0, 10, 0.0, 20, 0.0, 30, 0.0, 3, name, 1, "")


def end_block(dxf, owner):
    dxf.entity("ENDBLK", "0", "AcDbBlockEnd", owner)


class Maker:
    """The entities, each with numbers of a fixed random sequence."""

    def __init__(self, dxf, layers, block_names):
        self.dxf = dxf
        self.layers = layers
        self.block_names = block_names
        self.random = random.Random(7)

    def number(self, limit=1000.0):
        return repr(self.random.uniform(0.0, limit))

    def point(self, code):
        return (code, self.number(), code + 10, self.number(), code + 20, "0.0")

    def layer(self):
        return self.random.choice(self.layers)

    def words(self, count):
        return " ".join(self.random.choice(WORDS) for _ in range(count))

    def line(self, owner):
        self.dxf.entity("LINE", self.layer(), "AcDbLine", owner)
        self.dxf.add(*self.point(10), *self.point(11))

    def circle(self, owner):
        self.dxf.entity("CIRCLE", self.layer(), "AcDbCircle", owner)
        self.dxf.add(*self.point(10), 40, self.number(50.0))

    def arc(self, owner):
        self.circle_of_arc(owner)
        self.dxf.add(100, "AcDbArc", 50, self.number(360.0), 51, self.number(360.0))

    def circle_of_arc(self, owner):
        self.dxf.entity("ARC", self.layer(), "AcDbCircle", owner)
        self.dxf.add(*self.point(10), 40, self.number(50.0))

    def polyline(self, owner, points=6):
        self.dxf.entity("LWPOLYLINE", self.layer(), "AcDbPolyline", owner)
        self.dxf.add(90, points, 70, 0)
        for _ in range(points):
            self.dxf.add(10, self.number(), 20, self.number())

    def text(self, owner):
        self.dxf.entity("TEXT", self.layer(), "AcDbText", owner)
        self.dxf.add(*self.point(10), 40, 2.5, 1, self.words(3) + " %%c12", 100, "AcDbText")

    def mtext(self, owner):
        self.dxf.entity("MTEXT", self.layer(), "AcDbMText", owner)
        self.dxf.add(*self.point(10), 40, 2.5, 41, 100.0, 71, 1, 72, 1, 1,
                     f"{{\\fArial|b1|i0|c0|p34;\\C1;{self.words(4)}}}\\P{self.words(8)} "
                     f"\\H1.5x;\\S1/2; {self.words(3)}")

    def insert(self, owner):
        self.dxf.entity("INSERT", self.layer(), "AcDbBlockReference", owner)
        self.dxf.add(2, self.random.choice(self.block_names), *self.point(10), 50,
                     self.number(360.0))

    def hatch(self, owner, points=120):
        self.dxf.entity("HATCH", self.layer(), "AcDbHatch", owner)
        self.dxf.add(10, 0.0, 20, 0.0, 30, 0.0, 210, 0.0, 220, 0.0, 230, 1.0, 2, "SOLID", 70, 1,
                     71, 0, 91, 2)
        self.dxf.add(92, 2, 72, 1, 73, 1, 93, points)
        for i in range(points):
            self.dxf.add(10, repr(math.cos(i) * i), 20, repr(math.sin(i) * i), 42,
                         "0.25" if i % 4 == 0 else "0.0")
        self.dxf.add(97, 0, 92, 0, 93, points)
        for _ in range(points):
            self.dxf.add(72, 1, 10, self.number(), 20, self.number(), 11, self.number(), 21,
                         self.number())
        self.dxf.add(97, 0, 75, 0, 76, 1, 98, 0)

    def mixed(self, index, owner):
        kinds = (self.line, self.polyline, self.line, self.circle, self.line, self.arc, self.text,
                 self.polyline, self.insert, self.mtext)
        kinds[index % len(kinds)](owner)


def fill_model_space(maker, kind, count):
    for index in range(count):
        if kind == "text":
            (maker.mtext if index % 2 else maker.text)("1F")
        elif kind == "hatch":
            maker.hatch("1F")
        elif kind == "blocks":
            maker.insert("1F")
            maker.insert("1F")
        else:
            maker.mixed(index, "1F")


def generate(kind, count):
    dxf = Dxf()
    layers = ["0"] + [f"Layer {i}" for i in range(1, 500 if kind == "blocks" else LAYERS)]
    names = [f"Block {i}" for i in range(count if kind == "blocks" else BLOCKS)]
    handles = {"*Model_Space": "1F", "*Paper_Space": "1E", **{name: dxf.handle() for name in names}}
    dxf.add(999, "Generated for benchmarks " + "-" * 200)
    dxf.add(0, "SECTION", 2, "HEADER", 9, "$ACADVER", 1, "AC1015", 9, "$INSUNITS", 70, 4,
            9, "$HANDSEED", 5, "FFFFFF", 0, "ENDSEC")
    tables(dxf, layers, handles)
    maker = Maker(dxf, layers, names)
    dxf.add(0, "SECTION", 2, "BLOCKS")
    for name, owner in handles.items():
        begin_block(dxf, name, owner)
        if not name.startswith("*"):
            for index in (0, 1, 3, 5, 6, 7):
                maker.mixed(index, owner)
        end_block(dxf, owner)
    dxf.add(0, "ENDSEC", 0, "SECTION", 2, "ENTITIES")
    fill_model_space(maker, kind, count)
    dxf.add(0, "ENDSEC", 0, "EOF")
    return "".join(dxf.lines)


def main():
    kind, count, path = sys.argv[1:]
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write(generate(kind, int(count)))


if __name__ == "__main__":
    main()
