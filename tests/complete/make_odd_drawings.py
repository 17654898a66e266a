"""Drawings with every kind of entity and with values that are rarely seen.

Every release that DXF files have gives one drawing, with what that release knows. The
values come from a generator with a fixed seed, so that the drawings are the same in
every run. Nothing in them is taken from another drawing.
"""

import math
import pathlib
import random

import ezdxf
from ezdxf import colors
from ezdxf.math import OCS, Vec2, Vec3
from ezdxf.render import mleader

RELEASES = ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018")
EXTRUSIONS = ((0, 0, 1), (0, 0, -1), (1, 0, 0), (0, 1, 0), (0.01, 0.005, 1), (1, 2, 3),
              (-0.3, 0.4, -0.5), (0.015625, 0, 1))
TEXTS = ("plain", "50%% %%c10 %%p0.5 %%d", "%%uunder%%u %%oover%%o", " blanks ", "\\U+00B0C",
         "a\\Pb", "x\\Ny", "caret ^ I", "{braces}", "back\\\\slash", "%%065%%176")
MTEXTS = ("one\\Ptwo", "{\\fArial|b1|i0|c0|p34;bold} \\H2x;tall\\P\\S1/2; \\S1#2; \\S+0.1^-0.2;",
          "\\A1;\\C1;red\\c255;blue \\L under\\l \\O over\\o", "\\pi1,l2,t3;list\\Ptabs^I^I",
          "a\\~b \\W0.8;narrow \\T2;wide \\Q15;slanted", "{\\C3;{\\H0.5x;deep}} \\U+20AC")


class Odd:
    """Values that are allowed, and seldom round."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def number(self, low=-1000.0, high=1000.0):
        return self.random.choice((
            self.random.uniform(low, high), round(self.random.uniform(low, high), 3),
            float(round(self.random.uniform(low, high))), self.random.uniform(low, high) * 1e-5))

    def size(self):
        return abs(self.number(0.01, 50)) + 1e-6

    def angle(self):
        return self.random.choice((0.0, 30.0, 90.0, 180.0, 270.0, 359.5, -45.0, 400.0,
                                   self.random.uniform(0, 360)))

    def point(self):
        return Vec3(self.number(), self.number(), self.number(-10, 10))

    def flat(self):
        return Vec3(self.number(), self.number(), 0)

    def points(self, count):
        return [self.point() for _ in range(count)]

    def unit(self):
        return Vec3(self.number(), self.number(), self.number()).normalize()

    def choice(self, values):
        return self.random.choice(values)


def looks(odd, release):
    """Properties that all entities share."""
    found = {"layer": odd.choice(("0", "Walls", "Off layer", "Frozen")),
             "color": odd.choice((0, 1, 7, 30, 250, 255, 256)),
             "linetype": odd.choice(("ByLayer", "ByBlock", "Continuous", "DASHED", "DOT"))}
    if release != "R12":
        found["linetype"] = odd.choice((found["linetype"], "GAS"))
        found["ltscale"] = odd.choice((1.0, 0.25, 7.5))
        found["lineweight"] = odd.choice((-3, -2, -1, 0, 13, 211))
        found["invisible"] = odd.choice((0, 0, 0, 1))
    if release >= "R2004" or release in ("R2004",):
        if odd.choice((True, False, False)):
            found["true_color"] = colors.rgb2int((odd.random.randrange(256), 128, 3))
    return found


def set_up_tables(drawing, odd, release):
    drawing.layers.add("Walls", color=1, linetype="DASHED")
    drawing.layers.add("Off layer", color=3).off()
    frozen = drawing.layers.add("Frozen", color=170)
    frozen.freeze()
    frozen.lock()
    for index in range(3):
        layer = drawing.layers.add(f"Layer $ {index} ÄÖ", color=20 + index)
        if release != "R12":
            layer.dxf.lineweight = odd.choice((0, 5, 100))
            layer.dxf.plot = index % 2
            layer.description = f"layer number {index}"
    drawing.linetypes.add("GAS", "A,.5,-.2,[\"GAS\",STANDARD,S=.1,U=0.0,X=-0.1,Y=-.05],-.25",
                          description="Gas line ----GAS----GAS----", length=0.95)
    drawing.linetypes.add("LONGNAME", [1.25, 1.0, -0.25, 0.0, -0.0],
                          description="a description of a line type that is longer than 47 "
                                      "characters, as some are")
    for index in range(4):
        style = drawing.styles.add(f"Style {index}", font=odd.choice(("txt", "arial.ttf", "isocp.shx")))
        style.dxf.height = odd.choice((0, 2.5))
        style.dxf.width = odd.choice((1, 0.75))
        style.dxf.oblique = odd.choice((0, 15, -10))
        style.dxf.generation_flags = odd.choice((0, 2, 4, 6))
        style.dxf.last_height = odd.size()
        style.dxf.bigfont = odd.choice(("", "bigfont.shx"))
    for index in range(3):
        style = drawing.dimstyles.add(f"Dim {index}")
        style.dxf.dimtxt = odd.size()
        style.dxf.dimscale = odd.choice((1, 2.5, 50))
        style.dxf.dimasz = odd.size()
        style.dxf.dimexo = odd.size()
        style.dxf.dimlfac = odd.choice((1, 25.4, 0.5))
        style.dxf.dimrnd = odd.choice((0, 0.5))
        style.dxf.dimpost = odd.choice(("", "<> mm", "~<>"))
        style.dxf.dimtol = index == 1
        style.dxf.dimtp, style.dxf.dimtm = 0.1, 0.2
        style.dxf.dimzin = odd.choice((0, 4, 8, 12))
        if release != "R12":
            style.dxf.dimdec = odd.choice((0, 2, 4, 8))
            style.dxf.dimlunit = odd.choice((1, 2, 3, 4, 5))
            style.dxf.dimdsep = odd.choice((44, 46))
            style.dxf.dimaunit = odd.choice((0, 1, 2, 3))
            style.dxf.dimadec = odd.choice((0, 2, 4))
        style.dxf.dimalt = index == 2
        style.set_arrows(blk=odd.choice(("", ezdxf.ARROWS.dot_small, ezdxf.ARROWS.oblique)))
    drawing.views.add("Odd view").dxf.update({"center": (1.5, -2), "height": 4, "width": 8})
    ucs = drawing.ucs.add("Odd ucs")
    ucs.dxf.origin, ucs.dxf.xaxis, ucs.dxf.yaxis = (1, 2, 3), (0, 1, 0), (-1, 0, 0)
    drawing.header["$LTSCALE"] = 0.125
    drawing.header["$PDMODE"] = 35
    drawing.header["$PDSIZE"] = -2.5
    drawing.header["$INSBASE"] = (1.5, 2.5, -3)


def add_block(drawing, odd, release):
    block = drawing.blocks.new("Odd block", base_point=(1, -2, 0.5))
    block.add_line((0, 0), (3, 4), dxfattribs=looks(odd, release))
    block.add_circle((1, 1), 0.5)
    block.add_attdef("TAG1", (0, 0), "default", dxfattribs={"height": 0.3, "prompt": "what?"})
    block.add_attdef("TAG2", (0, 1), "b", dxfattribs={"height": 0.3, "flags": 2})
    other = drawing.blocks.new("Nested $1")
    other.add_blockref("Odd block", (2, 2), dxfattribs={"xscale": -1, "rotation": 15})
    return block


def add_plane_entities(space, odd, release):
    for extrusion in EXTRUSIONS:
        plane = {"extrusion": extrusion, "thickness": odd.choice((0, 2.5, -1))}
        space.add_circle(odd.point(), odd.size(), dxfattribs={**looks(odd, release), **plane})
        space.add_arc(odd.point(), odd.size(), odd.angle(), odd.angle(),
                      dxfattribs={**looks(odd, release), **plane})
        height = odd.number(-5, 5)
        corners = [Vec3(p.x, p.y, height) for p in odd.points(4)]
        space.add_solid(corners, dxfattribs={**looks(odd, release), **plane})
        space.add_solid([*corners[:3], corners[2]], dxfattribs={**looks(odd, release), **plane})
        space.add_trace(corners, dxfattribs={**looks(odd, release), **plane})
        space.add_blockref("Odd block", odd.point(), dxfattribs={
            **looks(odd, release), "extrusion": extrusion, "rotation": odd.angle(),
            "xscale": odd.choice((1, -2, 0.001)), "yscale": odd.choice((1, 3)),
            "zscale": odd.choice((1, -1)), "column_count": odd.choice((1, 3)),
            "row_count": odd.choice((1, 2)), "column_spacing": odd.number(),
            "row_spacing": odd.number()})
        points = [(odd.number(), odd.number(), odd.choice((0, 0.5)), odd.choice((0, 0.25)),
                   odd.choice((0, 1, -0.4142))) for _ in range(5)]
        polyline = space.add_polyline2d(points, format="xyseb",
                                        dxfattribs={**looks(odd, release), **plane})
        polyline.dxf.elevation = (0, 0, height)
        polyline.close(odd.choice((True, False)))
        if release != "R12":
            light = space.add_lwpolyline(points, format="xyseb",
                                         dxfattribs={**looks(odd, release), **plane,
                                                     "elevation": height})
            light.closed = odd.choice((True, False))
            narrow = space.add_lwpolyline([p[:2] for p in points], dxfattribs={
                **plane, "const_width": odd.choice((0, 0.75)), "flags": odd.choice((0, 1, 128, 129))})
            narrow.dxf.elevation = -height
            major = OCS(extrusion).to_wcs(Vec3(odd.size(), odd.size(), 0))
            space.add_ellipse(odd.point(), major, odd.choice((1, 0.5, 0.001)),
                              odd.choice((0, 1)), odd.choice((math.tau, 3, 5.5)),
                              dxfattribs={**looks(odd, release), "extrusion": extrusion})


def add_lines(space, odd, release):
    for extrusion in EXTRUSIONS[:4]:
        plane = {"extrusion": extrusion, "thickness": odd.choice((0, 3))}
        space.add_line(odd.point(), odd.point(), dxfattribs={**looks(odd, release), **plane})
        space.add_point(odd.point(), dxfattribs={**looks(odd, release), **plane, "angle": odd.angle()})
    for flags in range(16):
        space.add_3dface(odd.points(4), dxfattribs={**looks(odd, release), "invisible_edges": flags})
    space.add_polyline3d(odd.points(5), dxfattribs=looks(odd, release))
    space.add_polyline3d(odd.points(4), close=True)
    mesh = space.add_polymesh((3, 4), dxfattribs=looks(odd, release))
    for m in range(3):
        for n in range(4):
            mesh.set_mesh_vertex((m, n), odd.point())
    mesh.m_close(True)
    face = space.add_polyface(dxfattribs=looks(odd, release))
    corners = odd.points(6)
    face.append_faces([corners[:4], corners[2:5], [corners[0], corners[4], corners[5]]])
    if release != "R12":
        space.add_ray(odd.point(), odd.unit(), dxfattribs=looks(odd, release))
        space.add_xline(odd.point(), odd.unit(), dxfattribs=looks(odd, release))


def add_texts(space, odd, release):
    for index, text in enumerate(TEXTS):
        extrusion = EXTRUSIONS[index % len(EXTRUSIONS)]
        entity = space.add_text(text, height=odd.size(), dxfattribs={
            **looks(odd, release), "insert": odd.point(), "rotation": odd.angle(),
            "style": odd.choice(("Standard", "Style 0", "Style 1")), "width": odd.choice((1, 0.6)),
            "oblique": odd.choice((0, 12, -20)), "text_generation_flag": odd.choice((0, 2, 4, 6)),
            "extrusion": extrusion, "thickness": odd.choice((0, 1))})
        entity.dxf.halign = index % 6
        entity.dxf.valign = 0 if index % 6 in (3, 4, 5) else index % 4
        if entity.dxf.halign or entity.dxf.valign:
            entity.dxf.align_point = odd.point().replace(z=entity.dxf.insert.z)
    reference = space.add_blockref("Odd block", odd.point(), dxfattribs=looks(odd, release))
    for index, text in enumerate(TEXTS[:6]):
        reference.add_attrib(f"TAG{index}", text, odd.flat(), dxfattribs={
            "height": odd.size(), "rotation": odd.angle(), "flags": odd.choice((0, 1, 2, 4, 8)),
            "text_generation_flag": odd.choice((0, 2, 4))})
    if release == "R12":
        return
    for index, text in enumerate(MTEXTS):
        entity = space.add_mtext(text, dxfattribs={
            **looks(odd, release), "insert": odd.point(), "char_height": odd.size(),
            "width": odd.choice((0, 30, 1.5)), "attachment_point": 1 + index % 9,
            "flow_direction": odd.choice((1, 3, 5)), "line_spacing_style": odd.choice((1, 2)),
            "line_spacing_factor": odd.choice((0.25, 1, 4)), "style": "Style 2"})
        if index % 2:
            entity.dxf.text_direction = odd.unit().replace(z=0).normalize()
        else:
            entity.dxf.rotation = odd.angle()
        if index % 3 == 0:
            entity.dxf.extrusion = odd.choice(EXTRUSIONS)
        if index % 3 == 1 and release >= "R2007":
            entity.set_bg_color(odd.choice((1, (10, 20, 30))), scale=1.25)
    if release != "R12":
        columns = [f"column {n} " * 20 for n in range(3)]
        space.add_mtext_static_columns(columns, 10, 1, 20, dxfattribs={"char_height": 1})
        space.add_mtext_dynamic_manual_height_columns("\\P".join(columns), 10, 1, [20, 30, 40],
                                                      dxfattribs={"char_height": 1})
        space.add_mtext_dynamic_auto_height_columns("\\P".join(columns), 10, 1, 20, 3,
                                                    dxfattribs={"char_height": 1})


def add_splines(space, odd, release):
    for degree in (1, 2, 3, 5):
        points = odd.points(degree + 4)
        space.add_open_spline(points, degree, dxfattribs=looks(odd, release))
        space.add_rational_spline(points, [odd.size() for _ in points], degree)
    spline = space.add_spline(odd.points(5), dxfattribs=looks(odd, release))
    spline.dxf.start_tangent, spline.dxf.end_tangent = odd.unit(), odd.unit()
    closed = space.add_spline(dxfattribs={"degree": 3})
    closed.set_closed(odd.points(6), degree=3)
    helix = space.add_helix(radius=odd.size(), pitch=odd.size(), turns=2.5, ccw=False)
    helix.dxf.handedness = 0


def add_hatches(space, odd, release):
    for index, extrusion in enumerate(EXTRUSIONS):
        hatch = space.add_hatch(color=odd.choice((1, 256)), dxfattribs={
            "extrusion": extrusion, "elevation": (0, 0, odd.number(-5, 5)), "hatch_style": index % 3})
        if index % 2:
            hatch.set_pattern_fill(odd.choice(("ANSI31", "ANSI33", "AR-CONC", "GRAVEL", "NET")),
                                   angle=odd.angle(), scale=odd.size())
        elif index % 4 == 0 and release >= "R2004":
            hatch.set_gradient((1, 2, 3), (200, 100, 50), rotation=odd.angle(),
                               centered=odd.choice((0, 1)), one_color=odd.choice((0, 1)),
                               tint=0.3, name=odd.choice(("LINEAR", "CYLINDER", "INVSPHERICAL")))
        hatch.paths.add_polyline_path([(odd.number(), odd.number(), odd.choice((0, 1, -0.5)))
                                       for _ in range(4)], is_closed=True, flags=3)
        path = hatch.paths.add_edge_path(flags=odd.choice((0, 1, 16)))
        path.add_line((0, 0), (odd.number(), 0))
        path.add_arc((odd.number(), 2), odd.size(), odd.angle(), odd.angle(), ccw=index % 2 == 0)
        path.add_ellipse((1, 2), (3, odd.number()), 0.3, 10, 200, ccw=index % 2 == 1)
        path.add_spline(control_points=[(0, 0), (1, 2), (3, 1), (4, 4)],
                        knot_values=[0, 0, 0, 0, 1, 1, 1, 1], degree=3,
                        weights=[1, 0.5, 2, 1] if index % 2 else None)
        path.add_line((1, 1), (0, 0))
        if index % 3 == 0:
            hatch.set_seed_points([(odd.number(), 1), (2, odd.number())])
        if release >= "R2010" and index % 2:
            hatch.bgcolor = (10, 200, 30)
    polygon = space.add_mpolygon(color=3, fill_color=odd.choice((2, None)))
    polygon.paths.add_polyline_path([(0, 0), (10, 0), (10, 10), (0, 10)], is_closed=True)
    polygon.paths.add_polyline_path([(2, 2), (4, 2), (4, 4, 1)], is_closed=True)


def add_dimensions(space, odd, release):
    styles = ("Standard", "Dim 0", "Dim 1", "Dim 2")
    for style in styles:
        for text in ("<>", "", "R <> mm", " "):
            start, end = odd.flat(), odd.flat()
            space.add_linear_dim(base=odd.flat(), p1=start, p2=end, angle=odd.angle(), text=text,
                                 dimstyle=style).render()
        space.add_aligned_dim(p1=odd.flat(), p2=odd.flat(), distance=2, dimstyle=style).render()
        space.add_radius_dim(center=odd.flat(), radius=odd.size(), angle=odd.angle(),
                             dimstyle=style).render()
        space.add_diameter_dim(center=odd.flat(), radius=odd.size(), angle=odd.angle(),
                               dimstyle=style).render()
        space.add_angular_dim_2l(base=(5, 5), line1=((0, 0), (3, 1)), line2=((0, 0), (1, 4)),
                                 dimstyle=style).render()
        space.add_angular_dim_3p(base=(5, 5), center=(0, 0), p1=(3, 1), p2=(1, 4),
                                 dimstyle=style).render()
        space.add_ordinate_x_dim((odd.number(), 2), (odd.number(), 1), dimstyle=style).render()
        space.add_ordinate_y_dim((odd.number(), 2), (odd.number(), 1), dimstyle=style).render()
        if release >= "R2004":
            space.add_arc_dim_3p(base=(5, 5), center=(0, 0), p1=(3, 1), p2=(1, 3),
                                 dimstyle=style).render()


def add_placed_dimensions(space, odd):
    """Aligned ones, of which each sets other things for itself."""
    for index, extrusion in enumerate(EXTRUSIONS):
        space.new_entity("DIMENSION", {
            "dimtype": 1 | 32 | (128 if index % 2 else 0), "dimstyle": odd.choice(("Standard", "Dim 1")),
            "defpoint": odd.point(), "defpoint2": odd.point(), "defpoint3": odd.point(),
            "text_midpoint": odd.point(), "attachment_point": 1 + index, "text": odd.choice(("", "own")),
            "text_rotation": odd.angle(),
            "horizontal_direction": odd.choice((0, 30)), "extrusion": extrusion,
            "insert": odd.point()})


def add_leaders(space, odd, release):
    for style in ("Standard", "Dim 1"):
        space.add_leader([odd.flat() for _ in range(3)], dimstyle=style,
                         dxfattribs={**looks(odd, release), "path_type": odd.choice((0, 1)),
                                     "has_arrowhead": odd.choice((0, 1))})
    space.add_leader(odd.points(4), dimstyle="Dim 0", override={"dimasz": 0.75, "dimscale": 3})
    for name in ("Standard",):
        builder = space.add_multileader_mtext(name)
        builder.set_content("leader \\P{\\C1;text}", char_height=odd.size())
        builder.add_leader_line(mleader.ConnectionSide.left, Vec2.list([(-20, 15), (-5, 3)]))
        builder.add_leader_line(mleader.ConnectionSide.right, Vec2.list([(20, 15)]))
        builder.set_overall_scaling(odd.choice((1, 2)))
        builder.build(insert=Vec2(5, odd.number()))
        block = space.add_multileader_block(name)
        block.set_content("Odd block", scale=0.5)
        block.set_attribute("TAG1", "set")
        block.add_leader_line(mleader.ConnectionSide.left, Vec2.list([(-20, 15)]))
        block.build(insert=Vec2(5, 20), rotation=30)


def add_solids_and_meshes(space, odd, release):
    mesh = space.add_mesh(dxfattribs=looks(odd, release))
    with mesh.edit_data() as data:
        data.vertices = [tuple(p) for p in odd.points(6)]
        data.faces = [(0, 1, 2, 3), (3, 4, 5)]
        data.add_edge_crease(0, 1, 2.5)
        data.add_edge_crease(1, 2, -1)
    mesh.dxf.subdivision_levels = 2
    style = space.doc.mline_styles.new("Odd multiline")
    style.elements.append(0.75, color=1, linetype="DASHED")
    style.elements.append(0.0, color=256)
    style.elements.append(-1.5, color=3)
    style.dxf.flags = odd.choice((0, 1 + 2, 16 + 256))
    for justification in (0, 1, 2):
        line = space.add_mline([odd.flat(), (0, 0), (50, 1), (30, 70.5)], close=justification == 1, dxfattribs={
            **looks(odd, release), "style_name": "Odd multiline", "scale_factor": odd.size(),
            "justification": justification})
        line.update_geometry()


def add_pictures(drawing, space, odd, release):
    image = drawing.add_image_def("missing picture.png", size_in_pixel=(640, 480))
    for index in range(4):
        entity = space.add_image(image, odd.point(), (odd.size(), odd.size()), odd.angle())
        entity.dxf.flags = odd.choice((1, 3, 7, 15, 2))
        entity.dxf.brightness, entity.dxf.contrast, entity.dxf.fade = 10 * index, 60, 5 * index
        if index == 1:
            entity.set_boundary_path([(10, 20), (300, 400)])
        if index == 2:
            entity.set_boundary_path([(10, 20), (300, 100), (200, 400), (50, 60)])
    space.add_wipeout([(0, 0), (5, 0), (5, 4), (2, 6)])
    for kind, path in (("pdf", "odd.pdf"), ("dwf", "odd.dwf"), ("dgn", "odd.dgn")):
        definition = drawing.add_underlay_def(path, fmt=kind, name="1" if kind == "pdf" else "Model")
        underlay = space.add_underlay(definition, odd.point(), scale=(2, odd.size(), 1),
                                      rotation=odd.angle())
        underlay.dxf.contrast, underlay.dxf.fade = 70, 30
        underlay.dxf.flags = odd.choice((1, 2, 3, 7, 15))
        underlay.set_boundary_path([(0, 0), (5, 1), (4, 4)])


def add_sheet(drawing, odd, release):
    sheet = drawing.paperspace() if release == "R12" else drawing.layouts.new("Odd sheet")
    for index in range(4):
        attributes = {} if release == "R12" else {"flags": odd.choice((0, 1, 0x4000, 0x20000, 6))}
        viewport = sheet.add_viewport(
            center=(odd.number(0, 100), odd.number(0, 100)), size=(odd.size(), odd.size()),
            view_center_point=(odd.number(), odd.number()), view_height=odd.size(),
            dxfattribs=attributes)
        viewport.dxf.view_target_point = odd.point()
        viewport.dxf.view_direction_vector = odd.unit()
        viewport.dxf.view_twist_angle = odd.angle()
        viewport.dxf.perspective_lens_length = 35
        viewport.dxf.front_clip_plane_z_value = odd.number()
        viewport.dxf.back_clip_plane_z_value = odd.number()
        if index % 2:
            viewport.frozen_layers = ["Walls", "Layer $ 0 ÄÖ"]
        if release != "R12":
            viewport.dxf.render_mode = odd.choice((0, 2, 5))
    sheet.add_line((0, 0), (1, 1))


def make(release, seed=1):
    odd = Odd(f"{release} {seed}")
    drawing = ezdxf.new(release, setup=["linetypes"], units=odd.choice((0, 1, 4, 6)))
    set_up_tables(drawing, odd, release)
    add_block(drawing, odd, release)
    space = drawing.modelspace()
    add_plane_entities(space, odd, release)
    add_lines(space, odd, release)
    add_texts(space, odd, release)
    add_dimensions(space, odd, release)
    if release != "R12":
        add_splines(space, odd, release)
        add_hatches(space, odd, release)
        add_placed_dimensions(space, odd)
        add_leaders(space, odd, release)
        add_solids_and_meshes(space, odd, release)
        add_pictures(drawing, space, odd, release)
        space.add_shape("BOX", odd.point(), odd.size(), dxfattribs={"rotation": odd.angle()})
    add_sheet(drawing, odd, release)
    return drawing


def make_all(folder, seeds):
    """Writes drawings of all releases into a folder and gives their paths. Every second
    of them is a binary file."""
    paths = []
    for release in RELEASES:
        for seed in seeds:
            path = pathlib.Path(folder) / f"odd_{release}_{seed}.dxf"
            make(release, seed).saveas(path, fmt="bin" if seed % 2 == 0 else "asc")
            paths.append(path)
    return paths
