#!/usr/bin/env python3
"""Writes the generated drawings of the benchmarks, as DXF of 2000.

    generate.py KIND COUNT FILE

Kinds: mixed (everyday entities), text (TEXT and MTEXT with codes), blocks (500
layers, COUNT blocks and twice as many inserts), hatch (dense boundaries).
The same arguments give the same bytes.
"""

import math
import pathlib
import random
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "support"))
from dxf_writer import MODEL_SPACE, PAPER_SPACE, Dxf, text_sink  # noqa: E402

LAYERS = 20
BLOCKS = 50
WORDS = ("plan section elevation detail concrete steel beam column slab footing "
         "drainage level datum north scale revision drawn checked").split()


def tables(dxf, layers, block_handles):
    with dxf.table("LTYPE", "5", 3):
        for handle, name in (("14", "ByBlock"), ("15", "ByLayer"), ("16", "Continuous")):
            dxf.record("LTYPE", "AcDbLinetypeTableRecord", name, (70, 0), (3, ""), (72, 65), (73, 0),
                       (40, 0.0), handle=handle, owner="5")
    with dxf.table("LAYER", "2", len(layers)):
        for index, name in enumerate(layers):
            dxf.record("LAYER", "AcDbLayerTableRecord", name, (70, 0), (62, index % 255 + 1),
                       (6, "Continuous"), (370, -3), handle="10" if index == 0 else None, owner="2")
    with dxf.table("STYLE", "3", 1):
        dxf.record("STYLE", "AcDbTextStyleTableRecord", "Standard", (70, 0), (40, 0.0), (41, 1.0),
                   (50, 0.0), (71, 0), (42, 2.5), (3, "arial.ttf"), (4, ""), handle="11", owner="3")
    with dxf.table("BLOCK_RECORD", "1", len(block_handles)):
        for name, handle in block_handles.items():
            dxf.record("BLOCK_RECORD", "AcDbBlockTableRecord", name, handle=handle, owner="1")


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
        return [(code, self.number()), (code + 10, self.number()), (code + 20, "0.0")]

    def begin(self, kind, subclass, owner):
        self.dxf.entity(kind, subclass, layer=self.random.choice(self.layers), owner=owner)

    def words(self, count):
        return " ".join(self.random.choice(WORDS) for _ in range(count))

    def line(self, owner):
        self.begin("LINE", "AcDbLine", owner)
        self.dxf.put(*self.point(10), *self.point(11))

    def round(self, kind, owner):
        self.begin(kind, "AcDbCircle", owner)
        self.dxf.put(*self.point(10), (40, self.number(50.0)))

    def circle(self, owner):
        self.round("CIRCLE", owner)

    def arc(self, owner):
        self.round("ARC", owner)
        self.dxf.put((100, "AcDbArc"), (50, self.number(360.0)), (51, self.number(360.0)))

    def polyline(self, owner, points=6):
        self.begin("LWPOLYLINE", "AcDbPolyline", owner)
        self.dxf.put((90, points), (70, 0))
        for _ in range(points):
            self.dxf.put((10, self.number()), (20, self.number()))

    def text(self, owner):
        self.begin("TEXT", "AcDbText", owner)
        self.dxf.put(*self.point(10), (40, 2.5), (1, self.words(3) + " %%c12"), (100, "AcDbText"))

    def mtext(self, owner):
        self.begin("MTEXT", "AcDbMText", owner)
        self.dxf.put(*self.point(10), (40, 2.5), (41, 100.0), (71, 1), (72, 1),
                     (1, f"{{\\fArial|b1|i0|c0|p34;\\C1;{self.words(4)}}}\\P{self.words(8)} "
                         f"\\H1.5x;\\S1/2; {self.words(3)}"))

    def insert(self, owner):
        self.begin("INSERT", "AcDbBlockReference", owner)
        self.dxf.put((2, self.random.choice(self.block_names)), *self.point(10),
                     (50, self.number(360.0)))

    def hatch(self, owner, points=120):
        self.begin("HATCH", "AcDbHatch", owner)
        self.dxf.put((10, 0.0), (20, 0.0), (30, 0.0), (210, 0.0), (220, 0.0), (230, 1.0),
                     (2, "SOLID"), (70, 1), (71, 0), (91, 2))
        self.dxf.put((92, 2), (72, 1), (73, 1), (93, points))
        for i in range(points):
            self.dxf.put((10, repr(math.cos(i) * i)), (20, repr(math.sin(i) * i)),
                         (42, "0.25" if i % 4 == 0 else "0.0"))
        self.dxf.put((97, 0), (92, 0), (93, points))
        for _ in range(points):
            self.dxf.put((72, 1), (10, self.number()), (20, self.number()), (11, self.number()),
                         (21, self.number()))
        self.dxf.put((97, 0), (75, 0), (76, 1), (98, 0))

    def mixed(self, index, owner):
        kinds = (self.line, self.polyline, self.line, self.circle, self.line, self.arc, self.text,
                 self.polyline, self.insert, self.mtext)
        kinds[index % len(kinds)](owner)


def fill_model_space(maker, kind, count):
    for index in range(count):
        if kind == "text":
            (maker.mtext if index % 2 else maker.text)(MODEL_SPACE)
        elif kind == "hatch":
            maker.hatch(MODEL_SPACE)
        elif kind == "blocks":
            maker.insert(MODEL_SPACE)
            maker.insert(MODEL_SPACE)
        else:
            maker.mixed(index, MODEL_SPACE)


def generate(kind, count, file):
    dxf = Dxf(text_sink(file))
    layers = ["0"] + [f"Layer {i}" for i in range(1, 500 if kind == "blocks" else LAYERS)]
    names = [f"Block {i}" for i in range(count if kind == "blocks" else BLOCKS)]
    handles = {"*Model_Space": MODEL_SPACE, "*Paper_Space": PAPER_SPACE,
               **{name: dxf.handle() for name in names}}
    dxf.put((999, "Generated for benchmarks " + "-" * 200))
    dxf.header("AC1015", (9, "$INSUNITS"), (70, 4), (9, "$HANDSEED"), (5, "FFFFFF"))
    with dxf.section("TABLES"):
        tables(dxf, layers, handles)
    maker = Maker(dxf, layers, names)
    with dxf.section("BLOCKS"):
        for name, owner in handles.items():
            with dxf.block(name, owner, base=(0.0, 0.0, 0.0)):
                if not name.startswith("*"):
                    for index in (0, 1, 3, 5, 6, 7):
                        maker.mixed(index, owner)
    with dxf.section("ENTITIES"):
        fill_model_space(maker, kind, count)
    dxf.end()


def main():
    kind, count, path = sys.argv[1:]
    with open(path, "w", encoding="ascii", newline="") as file:
        generate(kind, int(count), file)


if __name__ == "__main__":
    main()
