#!/usr/bin/env python3
"""Compares what complete records say about geometry with what ezdxf reads.

Every DXF of the corpus that ezdxf reads: each record of a type below is looked up by
its handle, and each attribute compared, numbers within 1e-9 of their size (documents
carry ten digits). Differences that have a reason are listed in KNOWN. Exits with 77
without a folder of drawings or without ezdxf.
"""

import argparse
import collections
import math
import os
import pathlib
import sys

from complete_document import SKIPPED, TOLERANCE, convert, records_of
from drawing_records import open_with_ezdxf

try:
    import ezdxf
    from ezdxf.colors import DXF_DEFAULT_COLORS, int2rgb
    from ezdxf.math import OCS
    from ezdxf.xclip import XClip
except ImportError:
    ezdxf = None

INDEXED = "ezdxf takes the word of an index for channels"
UNNAMED = "the file names a text and has none: the record has no annotation"
STYLED = "the file leaves it out: ezdxf takes 2.5 for it, CAD programs 0.18"
MISREAD = "the file has what the record says; ezdxf falls back to a default"
OTHER_BLOCK = "its owner is the block of another space, which the worker repairs"
OWN_NUMBER = "the file has 0 for an inactive sheet; the record has the viewport's place"
OWN_VIEW = "ezdxf does not read the view from the extended data of so old a drawing"
TWICE = "handles occur twice in the file"
SPELLED = "named in other letter case than the style's own record"

# (drawing, or "*", type, or "*", attribute): why the two differ.
KNOWN = {
    ("gdal/hatch_pattern_generated_by_gdal.dxf", "HATCH", "background"): INDEXED,
    ("gdal/attrib.dxf", "INSERT", "attributes"): MISREAD,
    ("libredwg/example_r14.dxf", "*", "owner"): OTHER_BLOCK,
    ("mlightcad-cad-viewer/visible-lwpolylines-in-block.dxf", "*", "owner"): OTHER_BLOCK,
    ("skymakerolof-dxf/floorplan.dxf", "LEADER", "annotationType"): UNNAMED,
    ("gdal/leader-mleader.dxf", "LEADER", "arrowSize"): STYLED,
    ("libredwg/2010/Leader.dxf", "LEADER", "arrowSize"): STYLED,
    ("gdal/leader-mleader.dxf", "LEADER", "dimStyle"): SPELLED,
    ("dxf-parser/mleader.dxf", "MULTILEADER", "hasDogleg"): MISREAD,
    ("dxf-parser/mleader.dxf", "MULTILEADER", "hasLanding"): MISREAD,
    ("dxf-parser/arcs-as-splines.dxf", "SPLINE", "closed"): MISREAD,
    ("dxf-parser/arcs-as-splines.dxf", "SPLINE", "degree"): MISREAD,
    ("dxf-parser/arcs-as-splines.dxf", "SPLINE", "periodic"): MISREAD,
    ("dxf-parser/splines.dxf", "SPLINE", "startTangent"): MISREAD,
    ("ezdxf/duplicate_handles.dxf", "model space", "drawOrder"): TWICE,
    ("acadsharp-old/sample_AC1024_ascii.dxf", "VIEWPORT", "id"): OWN_NUMBER,
    ("acadsharp/sample_AC1009_ascii.dxf", "VIEWPORT", "scale"): OWN_VIEW,
    ("acadsharp/sample_AC1009_ascii.dxf", "VIEWPORT", "viewCtrX"): OWN_VIEW,
    ("acadsharp/sample_AC1009_ascii.dxf", "VIEWPORT", "viewCtrY"): OWN_VIEW,
    ("acadsharp/sample_AC1009_ascii.dxf", "VIEWPORT", "viewSize"): OWN_VIEW,
}


def triple(point):
    return [point[0], point[1], point[2] if len(point) > 2 else 0.0]


def angle(degrees):
    return math.radians(degrees)


def z_axis(extrusion):
    return abs(extrusion[0]) < 1e-15 and abs(extrusion[1]) < 1e-15 and extrusion[2] > 0


def plane(entity, elevation, thickness=None):
    extrusion = entity.dxf.get("extrusion", (0, 0, 1))
    expected = {"elevation": elevation,
                "extrusion": [0.0, 0.0, 1.0] if z_axis(extrusion) else triple(extrusion)}
    if thickness is not None:
        expected["thickness"] = thickness
    return expected


def world(entity, points, name, elevation=None, single=False):
    """The points that stand in the record's `world`, or nothing."""
    extrusion = entity.dxf.get("extrusion", (0, 0, 1))
    if z_axis(extrusion):
        return {}
    ocs = OCS(extrusion)
    placed = [triple(ocs.to_wcs((p[0], p[1], p[2] if elevation is None else elevation)))
              for p in points]
    return {"world." + name: placed[0] if single else placed,
            "world.xAxis": triple(ocs.ux), "world.yAxis": triple(ocs.uy)}


def line_type(name):
    return {"bylayer": "l", "byblock": "k"}.get(name.lower(), name.lower())


def common(entity, record):
    """What records of all types have."""
    dxf = entity.dxf
    expected = {"linetype.lower": line_type(dxf.get("linetype", "BYLAYER")),
                "linetypeScale": dxf.get("ltscale", 1.0), "invisible": bool(dxf.get("invisible", 0))}
    if entity.doc.loaded_dxfversion > "AC1009" and dxf.owner is not None:  # else it is made up
        expected["owner"] = dxf.owner
    return expected


def line(entity, _):
    dxf = entity.dxf
    return {"startX": dxf.start.x, "startY": dxf.start.y, "startZ": dxf.start.z,
            "endX": dxf.end.x, "endY": dxf.end.y, "endZ": dxf.end.z,
            **plane(entity, 0, dxf.thickness)}


def point(entity, _):
    dxf = entity.dxf
    return {"x": dxf.location.x, "y": dxf.location.y, "z": dxf.location.z,
            "angleRad": angle(dxf.get("angle", 0)), **plane(entity, 0, dxf.thickness)}


def ray(entity, _):
    dxf = entity.dxf
    return {"x": dxf.start.x, "y": dxf.start.y, "z": dxf.start.z, "dx": dxf.unit_vector.x,
            "dy": dxf.unit_vector.y, "dz": dxf.unit_vector.z}


def circle(entity, _):
    dxf = entity.dxf
    return {"cx": dxf.center.x, "cy": dxf.center.y, "radius": dxf.radius,
            **plane(entity, dxf.center.z, dxf.thickness),
            **world(entity, [dxf.center], "center", single=True)}


def arc(entity, _):
    dxf = entity.dxf
    return {**circle(entity, _), "startAngleRad": angle(dxf.start_angle),
            "endAngleRad": angle(dxf.end_angle)}


def ellipse(entity, _):
    dxf = entity.dxf
    return {"cx": dxf.center.x, "cy": dxf.center.y, "cz": dxf.center.z,
            "smAxisX": dxf.major_axis.x, "smAxisY": dxf.major_axis.y,
            "smAxisZ": dxf.major_axis.z, "axisRatio": dxf.ratio,
            "startAngleRad": dxf.start_param, "endAngleRad": dxf.end_param, **plane(entity, 0)}


def solid(entity, record):
    dxf = entity.dxf
    corners = [dxf.vtx0, dxf.vtx1, dxf.vtx3, dxf.vtx2]
    if len(record["pts"]) == 3:
        corners.pop(2)
    return {"pts": [[p.x, p.y] for p in corners], **plane(entity, dxf.vtx0.z, dxf.thickness),
            **world(entity, corners, "pts", dxf.vtx0.z)}


def face(entity, _):
    dxf = entity.dxf
    return {"points": [triple(dxf.get(f"vtx{i}", dxf.vtx2)) for i in range(4)],
            "edges": [not dxf.get("invisible_edges", 0) & 1 << i for i in range(4)]}


def trace(entity, _):
    dxf = entity.dxf
    corners = [dxf.vtx0, dxf.vtx1, dxf.vtx2, dxf.vtx3]
    return {"points": [[p.x, p.y] for p in corners], **plane(entity, dxf.vtx0.z, dxf.thickness),
            **world(entity, corners, "points", dxf.vtx0.z)}


def lwpolyline(entity, _):
    points = list(entity.get_points("xyseb"))
    constant = entity.dxf.get("const_width", 0)
    widths = [[p[2], p[3]] for p in points]
    if constant or not any(w[0] or w[1] for w in widths):
        widths = []
    elevation = entity.dxf.get("elevation", 0)
    return {"closed": entity.closed, "points": [[p[0], p[1]] for p in points],
            "bulges": [p[4] for p in points], "constWidth": constant, "widths": widths,
            "linetypeGeneration": bool(entity.dxf.flags & 128),
            **plane(entity, elevation, entity.dxf.get("thickness", 0)),
            **world(entity, points, "points", elevation)}


def polyline_2d(entity, _):
    shown = [v for v in entity.vertices if not v.dxf.flags & 16]
    frame = [v for v in entity.vertices if v.dxf.flags & 16]
    if not shown:
        shown, frame = frame, []
    default = [entity.dxf.get("default_start_width", 0), entity.dxf.get("default_end_width", 0)]
    widths = [[v.dxf.get("start_width", default[0]), v.dxf.get("end_width", default[1])]
              for v in shown]
    elevation = triple(entity.dxf.get("elevation", (0, 0, 0)))[2]
    locations = [v.dxf.location for v in shown]
    return {"closed": entity.is_closed, "points": [[p.x, p.y] for p in locations],
            "bulges": [v.dxf.get("bulge", 0) for v in shown],
            "frame": [[v.dxf.location.x, v.dxf.location.y] for v in frame],
            "widths": widths if any(w[0] or w[1] for w in widths) else [],
            "startWidth": default[0], "endWidth": default[1],
            "curveFit": bool(entity.dxf.flags & 2), "splineFit": bool(entity.dxf.flags & 4),
            "linetypeGeneration": bool(entity.dxf.flags & 128),
            "curveType": entity.dxf.get("smooth_type", 0),
            **plane(entity, elevation, entity.dxf.get("thickness", 0)),
            **world(entity, locations, "points", elevation)}


def polyline_3d(entity, _):
    shown = [v.dxf.location for v in entity.vertices if not v.dxf.flags & 16]
    frame = [v.dxf.location for v in entity.vertices if v.dxf.flags & 16]
    if not shown:
        shown, frame = frame, []
    return {"closed": entity.is_closed, "points": [triple(p) for p in shown],
            "frame": [triple(p) for p in frame], "splineFit": bool(entity.dxf.flags & 4),
            "curveType": entity.dxf.get("smooth_type", 0)}


def spline(entity, _):
    weights = list(entity.weights)
    tangents = {key: triple(entity.dxf.get(name, (0, 0, 0)))
                for key, name in (("startTangent", "start_tangent"), ("endTangent", "end_tangent"))}
    return {"closed": bool(entity.dxf.flags & 1), "degree": entity.dxf.degree,
            "periodic": bool(entity.dxf.flags & 2), "knots": list(entity.knots),
            "weights": weights if any(w != 1 for w in weights) else [],
            "controlPoints": [triple(p) for p in entity.control_points],
            "fitPoints": [triple(p) for p in entity.fit_points], **tangents}


def rgb(color):
    return {"r": color[0], "g": color[1], "b": color[2]}


def hatch_edge(edge):
    kind = type(edge).__name__
    if kind == "LineEdge":
        return {"type": "line", "start": [edge.start[0], edge.start[1]],
                "end": [edge.end[0], edge.end[1]]}
    if kind == "SplineEdge":
        expected = {"type": "spline", "degree": edge.degree, "knots": list(edge.knot_values),
                    "controlPoints": [[p[0], p[1]] for p in edge.control_points]}
        if edge.weights:
            expected["weights"] = list(edge.weights)
        if edge.fit_points:
            expected["fitPoints"] = [[p[0], p[1]] for p in edge.fit_points]
        return expected
    # Clockwise arcs are stored with mirrored angles; ezdxf turns them round.
    start, end = (edge.start_angle, edge.end_angle) if edge.ccw else (
        360 - edge.end_angle, 360 - edge.start_angle)
    expected = {"ccw": bool(edge.ccw), "startAngleRad": angle(start), "endAngleRad": angle(end),
                "center": [edge.center[0], edge.center[1]]}
    if kind == "ArcEdge":
        return {"type": "arc", "radius": edge.radius, **expected}
    return {"type": "ellipse", "majorAxis": [edge.major_axis[0], edge.major_axis[1]],
            "axisRatio": edge.ratio, **expected}


def hatch_path(path):
    expected = {"flags": path.path_type_flags}
    if hasattr(path, "edges"):
        return {**expected, "edges": [hatch_edge(edge) for edge in path.edges]}
    bulges = [v[2] for v in path.vertices]
    return {**expected, "closed": bool(path.is_closed),
            "points": [[v[0], v[1]] for v in path.vertices],
            "bulges": bulges if any(bulges) else []}


def hatch(entity, record):
    dxf = entity.dxf
    return {**filled_polygon(entity, record), "islandStyle": dxf.hatch_style,
            "associative": bool(dxf.associative), "seeds": [[s[0], s[1]] for s in entity.seeds]}


def filled_polygon(entity, record):
    """What hatches and MPOLYGONs share."""
    dxf = entity.dxf
    elevation = triple(dxf.elevation)[2]
    expected = {"pattern.name": dxf.pattern_name, "pattern.type": dxf.pattern_type,
                "solid": bool(dxf.solid_fill),
                "boundary": [hatch_path(path) for path in entity.paths], **plane(entity, elevation)}
    if not dxf.solid_fill:
        expected["pattern.angle"] = angle(dxf.get("pattern_angle", 0))
        expected["pattern.scale"] = dxf.get("pattern_scale", 1)
        expected["pattern.double"] = bool(dxf.get("pattern_double", 0))
        expected["pattern.lines"] = [] if entity.pattern is None else [
            {"angle": angle(one.angle), "base": [one.base_point.x, one.base_point.y],
             "offset": [one.offset.x, one.offset.y], "dashes": list(one.dash_length_items)}
            for one in entity.pattern.lines]
    if entity.bgcolor is not None:
        expected["background"] = rgb(entity.bgcolor)
    if entity.gradient is not None and entity.gradient.kind:
        gradient = entity.gradient
        expected["gradient.name"] = gradient.name
        expected["gradient.angle"] = angle(gradient.rotation)
        expected["gradient.shift"] = gradient.centered
        expected["gradient.tint"] = gradient.tint
        expected["gradient.oneColor"] = bool(gradient.one_color)
        stops = [stop["color"] for stop in record.get("gradient", {}).get("colors", [])]
        wanted = [rgb(gradient.color1), rgb(gradient.color2)][:max(len(stops), 1)]
        expected["gradient.colors.color"] = wanted
    return expected


def mpolygon(entity, record):
    expected = filled_polygon(entity, record)
    if (entity.gradient is None or not entity.gradient.kind) and entity.dxf.hasattr("fill_color"):
        expected["fillColor"] = entity.dxf.fill_color
    return expected


def insert(entity, record):
    position = entity.dxf.insert
    expected = {"z": position.z, **{key: value for key, value in plane(entity, 0).items()},
                "attributes": [[a.dxf.tag, a.dxf.handle] for a in entity.attribs],
                **world(entity, [position], "position", single=True)}
    clip = XClip(entity)
    if clip.has_clipping_path:
        found = record.get("clip", {})
        path = clip.get_block_clipping_path()
        expected["clip.on"] = clip.is_clipping_enabled
        expected["clip.inverted"] = clip.is_inverted_clip
        expected["clip.boundary"] = [[p.x, p.y] for p in
                                     clip.get_spatial_filter().boundary_vertices]
        if len(found.get("boundary", [])) != 2:  # ezdxf turns a rectangle in another order
            expected["clip.block.xy"] = [[p.x, p.y] for p in path.vertices]
            if not path.is_inverted_clip:
                expected["clip.world.xy"] = [
                    [p.x, p.y] for p in clip.get_wcs_clipping_path().vertices]
    else:
        expected["clip"] = None
    return expected


def image(entity, _):
    dxf = entity.dxf
    return {"px0": dxf.insert.x, "py0": dxf.insert.y, "pz0": dxf.insert.z, "ux": dxf.u_pixel.x,
            "uy": dxf.u_pixel.y, "uz": dxf.u_pixel.z, "vx": dxf.v_pixel.x, "vy": dxf.v_pixel.y,
            "vz": dxf.v_pixel.z, "sw": dxf.image_size.x, "sh": dxf.image_size.y,
            "shown": bool(dxf.flags & 1), "transparent": bool(dxf.flags & 8),
            "brightness": dxf.brightness, "contrast": dxf.contrast, "fade": dxf.fade,
            "clip.on": bool(dxf.clipping), "clip.inverted": bool(dxf.get("clip_mode", 0)),
            "clip.points": [[p.x, p.y] for p in entity.boundary_path_wcs()[:-1]]}


def wipeout(entity, _):
    return {"inverted": bool(entity.dxf.get("clip_mode", 0)),
            "world.open": [[p.x, p.y] for p in entity.boundary_path_wcs()[:-1]]}


def other_underlay(entity, _):
    dxf = entity.dxf
    expected = {"ix": dxf.insert.x, "iy": dxf.insert.y, "sx": dxf.scale_x, "sy": dxf.scale_y,
                "angle": angle(dxf.rotation), "shown": bool(dxf.flags & 2),
                "contrast": dxf.contrast, "fade": dxf.fade, "isMonochrome": bool(dxf.flags & 4),
                "isAdjustedToBackground": bool(dxf.flags & 8), **plane(entity, dxf.insert.z)}
    if dxf.flags & 1:
        expected["clip"] = [[p[0], p[1]] for p in entity.boundary_path]
    definition = entity.get_underlay_def()
    if definition is not None:
        expected["sheet"] = definition.dxf.name
    return expected


def underlay(entity, _):
    dxf = entity.dxf
    return {"ix": dxf.insert.x, "iy": dxf.insert.y, "iz": dxf.insert.z, "sx": dxf.scale_x,
            "sy": dxf.scale_y, "sz": dxf.scale_z, "angle": angle(dxf.rotation),
            "shown": bool(dxf.flags & 2), "monochrome": bool(dxf.flags & 4),
            "adjusted": bool(dxf.flags & 8), "contrast": dxf.contrast, "fade": dxf.fade}


def leader(entity, _):
    dxf = entity.dxf
    vertices = [triple(v) for v in entity.vertices]
    style = entity.override()
    scale = style.get("dimscale", 1.0) or 1.0
    annotation = dxf.get("annotation_handle")
    return {"points": [[v[0], v[1]] for v in vertices],
            "z": [v[2] for v in vertices] if any(v[2] for v in vertices) else [],
            "arrowOn": bool(dxf.has_arrowhead), "arrowSize": style.get("dimasz", 2.5) * scale,
            "spline": dxf.path_type == 1, "annotationType": dxf.annotation_type,
            "annotation": None if annotation in (None, "0") else annotation.upper(),
            "hookLine": bool(dxf.get("has_hookline", 0)),
            "dimStyle": dxf.get("dimstyle", "Standard"),
            "extrusion": triple(dxf.get("normal_vector", (0, 0, 1)))}


def mleader_breaks(breaks):
    return [[triple(breaks[i]), triple(breaks[i + 1])] for i in range(0, len(breaks) - 1, 2)]


def multileader(entity, _):
    dxf = entity.dxf
    context = entity.context
    expected = {"leaderType": dxf.leader_type, "hasLanding": bool(dxf.has_landing),
                "hasDogleg": bool(dxf.has_dogleg), "landingGap": context.landing_gap_size,
                "scale": context.scale, "contentType": dxf.content_type,
                "textFrame": bool(dxf.has_text_frame)}
    leaders = []
    for node in context.leaders:
        one = {"index": node.index,
               "lines": [{"index": item.index, "points": [triple(v) for v in item.vertices]}
                         for item in node.lines]}
        if node.has_last_leader_line:
            one["landing"] = triple(node.last_leader_point)
        if node.has_dogleg_vector:
            one["doglegDirection"] = triple(node.dogleg_vector)
            one["doglegLength"] = node.dogleg_length
        leaders.append(one)
    expected["leaders"] = leaders
    if context.mtext is not None:
        expected["textContent.position"] = triple(context.mtext.insert)
        expected["textContent.width"] = context.mtext.width
        expected["textContent.attachment"] = context.mtext.alignment
    if context.block is not None:
        expected["block.position"] = triple(context.block.insert)
        expected["block.scale"] = triple(context.block.scale)
        expected["block.rotationRad"] = context.block.rotation
        expected["block.attributes.text"] = [a.text for a in entity.block_attribs]
    return expected


def viewport(entity, _):
    dxf = entity.dxf
    expected = {"id": dxf.id, "cx": dxf.center.x, "cy": dxf.center.y, "cz": dxf.center.z,
                "width": dxf.width, "height": dxf.height, "viewCtrX": dxf.view_center_point.x,
                "viewCtrY": dxf.view_center_point.y, "viewSize": dxf.view_height,
                "targetX": dxf.view_target_point.x, "targetY": dxf.view_target_point.y,
                "targetZ": dxf.view_target_point.z, "dirX": dxf.view_direction_vector.x,
                "dirY": dxf.view_direction_vector.y, "dirZ": dxf.view_direction_vector.z,
                "twist": angle(dxf.view_twist_angle), "lens": dxf.perspective_lens_length,
                "renderMode": dxf.render_mode, "frozenLayers": sorted(entity.frozen_layers),
                "on": not dxf.flags & 0x20000, "locked": bool(dxf.flags & 0x4000),
                "perspective": bool(dxf.flags & 1)}
    if dxf.view_height > 0:
        expected["scale"] = dxf.height / dxf.view_height
    return expected


CHECKS = {"LINE": line, "POINT": point, "RAY": ray, "XLINE": ray, "CIRCLE": circle, "ARC": arc,
          "ELLIPSE": ellipse, "SOLID": solid, "LWPOLYLINE": lwpolyline,
          "POLYLINE_2D": polyline_2d, "POLYLINE_3D": polyline_3d, "SPLINE": spline, "HATCH": hatch,
          "INSERT": insert, "IMAGE": image, "PDFUNDERLAY": underlay, "LEADER": leader,
          "MULTILEADER": multileader, "VIEWPORT": viewport, "3DFACE": face, "TRACE": trace,
          "MPOLYGON": mpolygon, "WIPEOUT": wipeout, "DWFUNDERLAY": other_underlay,
          "DGNUNDERLAY": other_underlay}
DXF_TYPES = {"POLYLINE_2D": ("POLYLINE",), "POLYLINE_3D": ("POLYLINE",),
             "MULTILEADER": ("MULTILEADER", "MLEADER")}
WORLD_KEYS = ("world.", "clip.world", "clip.block", "clip.points")
DEFAULTS = {"elevation": 0, "thickness": 0, "extrusion": [0.0, 0.0, 1.0], "clip": None,
            "annotation": None, "startTangent": [0, 0, 0], "endTangent": [0, 0, 0]}


def found_value(record, key):
    """What the record says under a dotted key, with the default of what is left out."""
    if key == "clip.points":
        return [p[:2] for p in record.get("clip", {}).get("world", [])]
    if key in ("clip.block.xy", "clip.world.xy"):
        return [p[:2] for p in record["clip"][key.split(".")[1]]] if "clip" in record else None
    if key == "attributes":
        return [[a["tag"], a["handle"]] for a in record.get("attributes", [])]
    if key == "gradient.colors.color":
        return [stop["color"] for stop in record.get("gradient", {}).get("colors", [])]
    if key == "block.attributes.text":
        return [a["text"] for a in record.get("block", {}).get("attributes", [])]
    if key == "linetype.lower":
        return line_type(record["linetype"])
    if key == "world.open":
        return [p[:2] for p in record["world"]]
    if key == "fillColor":
        return index_of(record.get(key))
    if key == "frozenLayers":
        return sorted(record["frozenLayers"])
    value = record
    for part in key.split("."):
        value = value.get(part) if isinstance(value, dict) else None
    return DEFAULTS.get(key) if value is None else value


def index_of(color):
    """Of the colours that made drawings have; others stand for themselves."""
    return {"L": 256, "K": 0, "W": 7}.get(color, color) if isinstance(color, str) else next(
        (index for index, value in enumerate(DXF_DEFAULT_COLORS) if index and color ==
         rgb(int2rgb(value))), color)


def agree(found, expected):
    if isinstance(expected, dict):
        return isinstance(found, dict) and all(
            agree(found.get(key), value) for key, value in expected.items())
    if isinstance(expected, (list, tuple)):
        found = [] if found is None else found
        return len(found) == len(expected) and all(map(agree, found, expected))
    if isinstance(expected, bool):
        return bool(found) == expected
    if isinstance(expected, (int, float)):
        found = 0 if found is None else found
        if not isinstance(found, (int, float)):
            return False
        return abs(found - expected) <= max(TOLERANCE * abs(expected), 1e-9 if abs(expected) < 1
                                            else 0) or not math.isfinite(expected)
    return found == expected


def agree_points(found, expected):
    """Points of the world are sums: their error goes by the largest coordinate. Those
    of an image may begin at another corner."""
    if not isinstance(found, list):
        return False
    if found and isinstance(found[0], list) and len(found) == len(expected):
        found = min((found[i:] + found[:i] for i in range(len(found))), key=lambda turned: sum(
            abs(a - b) for a, b in zip(flat(turned), flat(expected))))
    numbers, wanted = flat(found), flat(expected)
    size = max((abs(n) for n in wanted), default=0)
    return len(numbers) == len(wanted) and all(
        abs(a - b) <= TOLERANCE * max(size, 1) for a, b in zip(numbers, wanted))


def flat(value):
    return [n for item in value for n in flat(item)] if isinstance(value, list) else [value]


def stored_handles(path):
    """The handles in the file that stand there once; None for a binary file. The others
    are made up by each reader for itself."""
    text = path.read_bytes()
    if text.startswith(b"AutoCAD Binary DXF"):
        return None
    lines = [line.strip() for line in text.split(b"\n")]
    found = collections.Counter(lines[i + 1].decode("latin-1").upper()
                                for i in range(0, len(lines) - 1, 2) if lines[i] == b"5")
    return {handle for handle, count in found.items() if count == 1}


class Comparison:
    def __init__(self):
        self.values = 0
        self.records = collections.Counter()
        self.differences = collections.defaultdict(list)
        self.errors = []

    def record(self, name, entity, record):
        kind = record["type"]
        self.records[kind] += 1
        try:
            expected = {**common(entity, record), **CHECKS[kind](entity, record)}
        except Exception as error:  # what ezdxf itself cannot evaluate
            self.errors.append(f"{name} {kind} {record['handle']}: {error!r}")
            return
        for key, value in expected.items():
            self.values += 1
            found = found_value(record, key)
            same = agree_points(found, value) if key.startswith(WORLD_KEYS) else agree(found, value)
            if not same and not any(
                    known in KNOWN for known in ((name, kind, key), ("*", kind, key),
                                                 (name, "*", key))):
                self.differences[kind, key].append((name, record["handle"], found, value))

    def draw_order(self, name, drawing, document):
        orders = {e["handle"]: e["drawOrder"] for e in document["entities"] if "drawOrder" in e}
        space = drawing.modelspace()
        # Without a table of sort handles ezdxf sorts by handle; CAD programs do not.
        entities = space.entities_in_redraw_order() if list(space.get_redraw_order()) else space
        wanted = [e.dxf.handle for e in entities]
        placed = {e["handle"] for e in document["entities"] if "handle" in e}
        wanted = [handle for handle in wanted if handle in placed]
        own = [e["handle"] for e in document["entities"] if e.get("handle") in set(wanted)]
        shown = sorted(own, key=lambda handle: orders.get(handle, 0)) if orders else own
        self.values += 1
        if shown != wanted and (name, "model space", "drawOrder") not in KNOWN:
            first = next(i for i, pair in enumerate(zip(shown, wanted)) if pair[0] != pair[1])
            self.differences["model space", "drawOrder"].append(
                (name, "", shown[first:first + 4], wanted[first:first + 4]))


def compare(comparison, worker, path, name):
    document = convert(worker, path)
    drawing = open_with_ezdxf(path) if document is not None else None
    if drawing is None:
        return
    stored = stored_handles(path)
    for record in records_of(document):
        entity = drawing.entitydb.get(record.get("handle", "0"))
        types = DXF_TYPES.get(record["type"], (record["type"],))
        if record["type"] in CHECKS and entity is not None and entity.dxftype() in types and (
                stored is None or record["handle"] in stored):
            comparison.record(name, entity, record)
    if stored is None or stored:
        comparison.draw_order(name, drawing, document)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--only", default="", help="a part of the drawings' names")
    parser.add_argument("--show", type=int, default=3, help="differences shown of each kind")
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED
    if ezdxf is None:
        print("ezdxf is not installed")
        return SKIPPED
    comparison = Comparison()
    for path in sorted(options.drawings.rglob("*.dxf")):
        name = path.relative_to(options.drawings).as_posix()
        if options.only in name and not name.startswith("bad/"):
            compare(comparison, options.worker, path, name)
    for (kind, key), found in sorted(comparison.differences.items()):
        print(f"FAILED {kind} {key}: {len(found)} in {len({one[0] for one in found})} drawings")
        for name, handle, value, expected in found[:options.show]:
            print(f"    {name} {handle}: {str(value)[:300]} instead of {str(expected)[:300]}")
    for error in comparison.errors[:options.show]:
        print(f"not evaluated: {error}")
    print(f"{comparison.values} values of {sum(comparison.records.values())} records compared, "
          f"{sum(map(len, comparison.differences.values()))} differ, "
          f"{len(comparison.errors)} records not evaluated")
    return 1 if comparison.differences or not comparison.values else 0


if __name__ == "__main__":
    sys.exit(main())
