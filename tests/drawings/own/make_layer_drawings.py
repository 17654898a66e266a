#!/usr/bin/env python3
"""Writes layers_R2000.dxf, layers_R2007.dxf and layers_R2018.dxf beside itself.

Layers with names beyond ASCII, in every state and kind of colour, and the
simple curves on them. Needs ezdxf; the files are kept in the repository.
"""

import pathlib

import ezdxf

HERE = pathlib.Path(__file__).resolve().parent
NAMES = {
    "R2000": ("Wände", "Größe 50 €", "Café “Été”", "Über"),
    "R2007": ("Wände", "日本語", "Ελληνικά", "Чертёж 𝄞"),
    "R2018": ("Wände", "日本語", "עברית", "Чертёж 𝄞"),
}


def add_layers(drawing, names):
    walls, locked, off, true_color = names
    drawing.layers.add(walls, color=1, lineweight=50)
    drawing.layers.add(locked, color=11, lineweight=0).lock()
    drawing.layers.add(off, color=3).off()
    layer = drawing.layers.add(true_color, color=5, lineweight=211)
    layer.freeze()
    if drawing.dxfversion >= "AC1018":
        layer.rgb = (18, 52, 86)


def add_curves(drawing, names):
    walls, locked, off, true_color = names
    space = drawing.modelspace()
    space.add_line((0, 0, 5), (10, 5, 7), dxfattribs={"layer": walls})
    space.add_line((1 / 3, -1e-7), (1e10, 123456.789), dxfattribs={"layer": locked, "color": 7})
    space.add_point((1.5, -2.25), dxfattribs={"layer": off, "color": 0, "lineweight": 13})
    space.add_ray((1, 2), (0.6, 0.8), dxfattribs={"color": 30, "lineweight": -2})
    space.add_xline((-1, -2), (0, 1), dxfattribs={"color": 250, "lineweight": -3})
    space.add_circle((5, 6, 7), 0.25, dxfattribs={"layer": true_color, "extrusion": (0, 0, -1)})
    space.add_arc((5, 6), 2, 330, 30, dxfattribs={"layer": walls, "lineweight": 100})
    space.add_ellipse((1, 2), (3, 4, 12), 0.5, 0.5, 6, dxfattribs={"color": 255})
    space.add_circle((0, 0), 1000000.5, dxfattribs={"layer": "Not defined"})
    for height in (1, 2):
        space.add_3dface([(0, 0, height), (1, 0, height), (1, 1, height)])
    space.add_shape("TRACK1", (0, 0))


def make(release):
    drawing = ezdxf.new(release)
    drawing.header["$INSUNITS"] = 4
    add_layers(drawing, NAMES[release])
    add_curves(drawing, NAMES[release])
    drawing.saveas(HERE / f"layers_{release}.dxf")


if __name__ == "__main__":
    for each in NAMES:
        make(each)
