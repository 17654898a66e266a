#!/usr/bin/env python3
"""Tests of the comparison of two drawings: does it see what differs, and only that?
Exits with 77 without ezdxf."""

import dataclasses
import pathlib
import sys
import tempfile
import unittest

import drawing_records as records

LINE = records.Entity("model", "LINE", "walls", "", (1.0, 2.0, 3.0, 4.0), None, ("index", "L"))
MINE = dataclasses.replace(LINE, looks=((255, 0, 0), "L"))


def drawing(*entities, layers=None):
    return records.Drawing(list(entities), {"walls": (True, False, "L")} | (layers or {}), set())


class DifferencesTest(unittest.TestCase):
    def faults(self, theirs, ours):
        return [(kind, fault) for kind, fault, _, _ in records.differences(theirs, ours)]

    def changed(self, **changes):
        return self.faults(drawing(LINE), drawing(dataclasses.replace(MINE, **changes)))

    def test_the_same_has_none(self):
        self.assertEqual(self.changed(), [])
        self.assertEqual(self.changed(numbers=(1.0, 2.0, 3.0, 4.0000000001)), [])
        self.assertEqual(self.changed(layer="?"), [])  # a name that is not ASCII

    def test_each_attribute_counts(self):
        self.assertEqual(self.changed(space="sheet"), [("LINE", "space")])
        self.assertEqual(self.changed(space="block a"), [("LINE", "space")])
        self.assertEqual(self.changed(layer="0"), [("LINE", "layer")])
        self.assertEqual(self.changed(name="a"), [("LINE", "name")])
        self.assertEqual(self.changed(numbers=(1.0, 2.0, 3.0, 4.001)), [("LINE", "values")])
        self.assertEqual(self.changed(looks=("L", "L")), [("LINE", "looks")])
        self.assertEqual(self.changed(looks=((255, 0, 0), 25)), [("LINE", "looks")])
        self.assertEqual(self.changed(kind="RAY"), [("LINE", "missing"), ("RAY", "added")])

    def test_texts_count_where_they_are_plain(self):
        text = dataclasses.replace(LINE, kind="TEXT", text="a")
        self.assertEqual(self.faults(drawing(text), drawing(dataclasses.replace(
            MINE, kind="TEXT", text="b"))), [("TEXT", "text")])
        coded = dataclasses.replace(text, text=records.plain_text("a%%u"))
        self.assertEqual(self.faults(drawing(coded), drawing(dataclasses.replace(
            MINE, kind="TEXT", text="b"))), [])

    def test_numbers_of_entities_count(self):
        self.assertEqual(self.faults(drawing(LINE, LINE), drawing(MINE)), [("LINE", "missing")])
        self.assertEqual(self.faults(drawing(LINE), drawing(MINE, MINE)), [("LINE", "added")])

    def test_entities_pair_whatever_their_order(self):
        many = [dataclasses.replace(LINE, numbers=(float(i), 2.0, 3.0, 4.0)) for i in range(50)]
        mine = [dataclasses.replace(entity, looks=MINE.looks) for entity in reversed(many)]
        self.assertEqual(self.faults(drawing(*many), drawing(*mine)), [])
        mine[7] = dataclasses.replace(mine[7], layer="doors")
        self.assertEqual(self.faults(drawing(*many), drawing(*mine)), [("LINE", "layer")])

    def test_layers_count(self):
        theirs = drawing(layers={"doors": (True, True, None)})
        self.assertEqual(self.faults(theirs, drawing()), [("LAYER", "missing")])
        self.assertEqual(self.faults(theirs, drawing(layers={"doors": (True, False, "L")})),
                         [("LAYER", "flags")])
        self.assertEqual(self.faults(theirs, drawing(layers={"doors": (True, True, 25)})), [])
        self.assertEqual(self.faults(drawing(dataclasses.replace(LINE, layer="other")),
                                     drawing(dataclasses.replace(MINE, layer="other"))),
                         [("LAYER", "missing")])  # that no table names, but an entity


class ReadersTest(unittest.TestCase):
    def test_what_ezdxf_finds_is_put_in_the_worker_s_words(self):
        doc = records.ezdxf.new("R2010")
        doc.layers.add("Walls", color=1)
        block = doc.blocks.new("Door")
        block.add_line((1, 2), (3, 4), dxfattribs={"layer": "Walls", "color": 1})
        doc.modelspace().add_blockref("Door", (5, 6), dxfattribs={"rotation": -90})
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "a.dxf"
            doc.saveas(path)
            found = records.read_ezdxf(records.open_with_ezdxf(path))
        line = next(e for e in found.entities if e.kind == "LINE")
        self.assertEqual(line, dataclasses.replace(LINE, space="block door"))
        insert = next(e for e in found.entities if e.kind == "INSERT")
        self.assertEqual((insert.space, insert.name, insert.numbers[:2]), ("model", "door", (5, 6)))
        self.assertAlmostEqual(insert.numbers[2], 4.71238898038469)
        self.assertEqual(found.layers["walls"][:2], (True, False))


if __name__ == "__main__":
    if records.ezdxf is None:
        print("ezdxf is missing")
        sys.exit(77)
    unittest.main()
