"""The good drawings that flaws are put into, as lists of lines.

Written through ezdxf with fixed metadata, so that each run gives the same files;
BARE is written by hand, as small programs write: no handles, no block records.
"""

import io

import ezdxf

TEXT = "Plain text"


def fill_space(space, release):
    """One entity of each common type; points are chosen so that no two entities and
    no two values are the same."""
    space.add_line((1.5, 2.5), (31.5, 22.5), dxfattribs={"layer": "WALLS", "color": 3})
    space.add_circle((40.5, 12.5), 7.25, dxfattribs={"layer": "WALLS"})
    space.add_arc((60.5, 14.5), 5.75, 30, 135, dxfattribs={"layer": "DOORS", "color": 1})
    space.add_point((71.5, 18.5), dxfattribs={"layer": "DOORS"})
    space.add_text(TEXT, height=2.75, rotation=15, dxfattribs={
        "layer": "NOTES", "insert": (5.5, 33.5)})
    space.add_solid([(80.5, 1.5), (90.5, 2.5), (81.5, 11.5), (91.5, 12.5)],
                    dxfattribs={"layer": "WALLS", "color": 5})
    space.add_polyline2d([(10.5, 50.5, 0, 0, 0.5), (20.5, 51.5, 0, 0, 0), (21.5, 60.5, 0, 0, 0)],
                         format="xyseb", close=True, dxfattribs={"layer": "DOORS"})
    space.add_polyline3d([(60.5, 50.5, 1.5), (62.5, 51.5, 2.5), (63.5, 55.5, 3.5)],
                         dxfattribs={"layer": "DOORS"})
    if release != "R12":
        space.add_ellipse((100.5, 20.5), (12.5, 3.5), 0.5, 0.25, 2.5,
                          dxfattribs={"layer": "WALLS", "lineweight": 35})
        space.add_lwpolyline([(30.5, 50.5, 0.25), (40.5, 52.5, 0), (41.5, 60.5, 0)],
                             format="xyb", close=True, dxfattribs={"layer": "DOORS"})
        space.add_mtext("First\\PSecond", dxfattribs={
            "layer": "NOTES", "insert": (50.5, 40.5), "char_height": 1.75, "width": 30.25,
            "attachment_point": 5, "rotation": 20})
    space.add_line((2.25, 80.5), (32.25, 81.5), dxfattribs={"layer": "DOORS"})


def drawing_of(release):
    doc = ezdxf.new(release)
    for name, color in (("WALLS", 1), ("DOORS", 4), ("NOTES", 6)):
        doc.layers.add(name, color=color)
    doc.layers.get("NOTES").lock()
    block = doc.blocks.new("WINDOW", base_point=(0.5, 0.25))
    block.add_line((0.5, 0.75), (8.5, 1.75), dxfattribs={"layer": "DOORS"})
    block.add_circle((4.5, 3.5), 1.125, dxfattribs={"layer": "WALLS", "color": 0})
    block.add_attdef("SIZE", (1.5, 4.5), dxfattribs={"height": 0.75})
    inner = doc.blocks.new("HANDLE")
    inner.add_arc((0.25, 0.5), 0.625, 0, 180, dxfattribs={"layer": "DOORS"})
    block.add_blockref("HANDLE", (2.5, 1.25), dxfattribs={"layer": "DOORS"})
    space = doc.modelspace()
    fill_space(space, release)
    reference = space.add_blockref("WINDOW", (110.5, 70.5), dxfattribs={
        "layer": "DOORS", "rotation": 45, "xscale": 2, "yscale": 3})
    reference.add_attrib("SIZE", "120x80", (111.5, 74.5), dxfattribs={
        "layer": "NOTES", "height": 0.75})
    space.add_blockref("WINDOW", (130.5, 72.5), dxfattribs={"layer": "WALLS"})
    space.add_line((3.25, 90.5), (33.25, 91.5), dxfattribs={"layer": "WALLS"})
    if release != "R12":
        doc.layout("Layout1").add_line((10.25, 10.5), (200.25, 10.75),
                                       dxfattribs={"layer": "NOTES"})
    return doc


def lines_of(doc):
    stream = io.StringIO()
    doc.write(stream)
    return stream.getvalue().splitlines()


def written(release):
    ezdxf.options.write_fixed_meta_data_for_testing = True
    return lines_of(drawing_of(release))


def pairs(*groups):
    """Lines of (code, value) groups."""
    return [line for code, value in groups for line in (f"{code:3}", str(value))]


def point(x, y, first=10):
    return (first, x), (first + 10, y), (first + 20, "0.0")


def bare():
    """A file of Release 12 with little but what it draws: its entities and blocks have
    no handles, its blocks no records."""
    layers = [group for name, color in (("WALLS", 1), ("DOORS", 4), ("NOTES", 6))
              for group in ((0, "LAYER"), (2, name), (70, 0), (62, color), (6, "CONTINUOUS"))]
    window = [(0, "BLOCK"), (8, "0"), (2, "WINDOW"), (70, 0), *point(0.0, 0.0), (3, "WINDOW"),
              (0, "LINE"), (8, "DOORS"), *point(0.5, 0.75), *point(8.5, 1.75, 11),
              (0, "CIRCLE"), (8, "WALLS"), *point(4.5, 3.5), (40, 1.125),
              (0, "ENDBLK"), (8, "0")]
    vertices = [group for x, y in ((10.5, 50.5), (20.5, 51.5), (21.5, 60.5))
                for group in ((0, "VERTEX"), (8, "DOORS"), *point(x, y))]
    entities = [(0, "LINE"), (8, "WALLS"), (62, 3), *point(1.5, 2.5), *point(31.5, 22.5, 11),
                (0, "CIRCLE"), (8, "WALLS"), *point(40.5, 12.5), (40, 7.25),
                (0, "ARC"), (8, "DOORS"), *point(60.5, 14.5), (40, 5.75), (50, 30.0), (51, 135.0),
                (0, "TEXT"), (8, "NOTES"), *point(5.5, 33.5), (40, 2.75), (1, TEXT), (50, 15.0),
                (0, "POLYLINE"), (8, "DOORS"), (66, 1), *point(0.0, 0.0), (70, 1),
                *vertices, (0, "SEQEND"), (8, "DOORS"),
                (0, "INSERT"), (8, "DOORS"), (2, "WINDOW"), *point(110.5, 70.5), (41, 2.0),
                (42, 3.0), (43, 1.0), (50, 45.0),
                (0, "LINE"), (8, "DOORS"), *point(2.25, 80.5), *point(32.25, 81.5, 11)]
    section, end = (0, "SECTION"), (0, "ENDSEC")
    return pairs(section, (2, "HEADER"), (9, "$ACADVER"), (1, "AC1009"), end,
                 section, (2, "TABLES"), (0, "TABLE"), (2, "LAYER"), (70, 3), *layers,
                 (0, "ENDTAB"), end,
                 section, (2, "BLOCKS"), *window, end,
                 section, (2, "ENTITIES"), *entities, end, (0, "EOF"))


def all_bases():
    return {"R12": written("R12"), "R2000": written("R2000"), "R2018": written("R2018"),
            "BARE": bare()}
