"""What dwg_import_worker prints. Made by scripts/make_models.py from the
schema, version 1.0.0. Do not edit.

    document = parse_document(line)

Objects may have further keys, which are kept.
"""

from __future__ import annotations

from typing import Annotated, Literal

from pydantic import BaseModel, ConfigDict, Field


class Model(BaseModel):
    model_config = ConfigDict(extra="allow", populate_by_name=True)


class Rgb(Model):
    """Opaque colour."""

    r: int
    g: int
    b: int


class Rgba(Model):
    r: int
    g: int
    b: int
    a: int | None = None  # Opacity; 255 is opaque


# Hundredths of a millimetre, or L.
Lineweight = Literal["L"] | int


class Debug(Model):
    """Only with --verbose."""

    color_index: int
    color_alpha_type: int
    color_alpha: int
    color_alpha_raw: int


Point2 = tuple[float, float]


Point3 = tuple[float, float, float]


Html = str


class Run(Model):
    start: int
    length: int
    stretch: int | None = None
    tracking: int | None = None
    fixedPitch: bool | None = None


class Block(Model):
    index: int
    alignment: str | None = None
    textIndent: float | None = None
    leftMargin: float | None = None
    rightMargin: float | None = None
    tabStops: list[float] | None = None


class Timings(Model):
    """Milliseconds since the start of the run."""

    dwgReadMs: int
    prepassMs: int
    layersMs: int
    assetsMs: int
    entitiesMs: int
    workerTotalMs: int


class Refusal(Model):
    error: str


# L by layer, K by block, W white on dark and black on light backgrounds.
Color = Literal["L", "K", "W"] | Rgba


# As color, never inherited.
StyleColor = Literal["W"] | Rgba


class Layer(Model):
    name: str
    visible: bool
    locked: bool
    color: Rgb
    lw: Lineweight
    alpha: int | None = None  # Opacity; 255 is opaque
    dbg: Debug | None = Field(default=None, alias="_dbg")


class LeaderText(Model):
    html: Html
    x: float
    y: float
    height: float
    rotationRad: float


class Line(Model):
    type: Literal["LINE"]
    layer: str
    startX: float
    startY: float
    endX: float
    endY: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Point(Model):
    type: Literal["POINT"]
    layer: str
    x: float
    y: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Ray(Model):
    type: Literal["RAY"]
    layer: str
    x: float
    y: float
    dx: float
    dy: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Xline(Model):
    type: Literal["XLINE"]
    layer: str
    x: float
    y: float
    dx: float
    dy: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Circle(Model):
    type: Literal["CIRCLE"]
    layer: str
    cx: float
    cy: float
    radius: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Arc(Model):
    type: Literal["ARC"]
    layer: str
    cx: float
    cy: float
    radius: float
    startAngleRad: float
    endAngleRad: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Ellipse(Model):
    type: Literal["ELLIPSE"]
    layer: str
    cx: float
    cy: float
    smAxisX: float
    smAxisY: float
    semiMajor: float
    axisRatio: float
    startAngleRad: float
    endAngleRad: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Lwpolyline(Model):
    type: Literal["LWPOLYLINE"]
    layer: str
    closed: bool
    points: list[Point2]
    bulges: list[float]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Polyline2d(Model):
    type: Literal["POLYLINE_2D"]
    layer: str
    closed: bool
    points: list[Point2]
    bulges: list[float]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Polyline3d(Model):
    type: Literal["POLYLINE_3D"]
    layer: str
    closed: bool
    points: list[Point3]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Spline(Model):
    type: Literal["SPLINE"]
    layer: str
    closed: bool
    fit_pts: list[Point2]
    beg_tan: Point2 | None = None
    end_tan: Point2 | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Hatch(Model):
    type: Literal["HATCH"]
    layer: str
    solid: bool
    loops: list[list[float]]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Solid(Model):
    type: Literal["SOLID"]
    layer: str
    pts: list[Point2]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Wipeout(Model):
    type: Literal["WIPEOUT"]
    layer: str
    verts: list[Point2]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Insert(Model):
    type: Literal["INSERT"]
    layer: str
    blockName: str
    x: float
    y: float
    rotationRad: float
    scaleX: float
    scaleY: float
    scaleZ: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Image(Model):
    type: Literal["IMAGE"]
    layer: str
    path: str
    px0: float
    py0: float
    ux: float
    uy: float
    vx: float
    vy: float
    sw: float
    sh: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Pdfunderlay(Model):
    type: Literal["PDFUNDERLAY"]
    layer: str
    path: str
    page: int
    ix: float
    iy: float
    sx: float
    sy: float
    angle: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Viewport(Model):
    type: Literal["VIEWPORT"]
    layer: str
    cx: float
    cy: float
    width: float
    height: float
    viewCtrX: float
    viewCtrY: float
    viewSize: float
    targetX: float
    targetY: float
    targetZ: float
    dirX: float
    dirY: float
    dirZ: float
    twist: float
    status: int
    frozenLayers: list[str]
    clip: Entity | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Text(Model):
    type: Literal["TEXT"]
    layer: str
    x: float
    y: float
    html: Html
    height: float
    rotationRad: float
    halign: int | None = None
    valign: int | None = None
    ax: float | None = None
    ay: float | None = None
    fontFamily: str | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Dyntext(Model):
    type: Literal["DYNTEXT"]
    layer: str
    kind: Literal["attrib", "attdef"]
    x: float
    y: float
    html: Html
    height: float
    rotationRad: float
    fontFamily: str | None = None
    tag: str
    prompt: str | None = None
    defaultValue: str | None = None
    flags: int
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Mtext(Model):
    type: Literal["MTEXT"]
    layer: str
    x: float
    y: float
    html: Html
    rawMtext: str
    width: float
    height: float
    rotationRad: float
    attachment: int
    runs: list[Run] | None = None
    blocks: list[Block] | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class DimensionLinear(Model):
    type: Literal["DIMENSION_LINEAR"]
    layer: str
    x1: float
    y1: float
    x2: float
    y2: float
    defX: float
    defY: float
    dimRotationRad: float
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    textHeight: float | None = None
    arrowSize: float | None = None
    fontFamily: str | None = None
    textColorRgb: StyleColor | None = None
    lineColorRgb: StyleColor | None = None
    dimDec: int | None = None
    dimLFac: float | None = None
    dimRnd: float | None = None
    dimZin: int | None = None
    dimLUnit: int | None = None
    dimPost: str | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class DimensionAligned(Model):
    type: Literal["DIMENSION_ALIGNED"]
    layer: str
    x1: float
    y1: float
    x2: float
    y2: float
    defX: float
    defY: float
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    textHeight: float | None = None
    arrowSize: float | None = None
    fontFamily: str | None = None
    textColorRgb: StyleColor | None = None
    lineColorRgb: StyleColor | None = None
    dimDec: int | None = None
    dimLFac: float | None = None
    dimRnd: float | None = None
    dimZin: int | None = None
    dimLUnit: int | None = None
    dimPost: str | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class DimensionRadius(Model):
    type: Literal["DIMENSION_RADIUS"]
    layer: str
    defX: float
    defY: float
    arcX: float
    arcY: float
    leaderLen: float
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    textHeight: float | None = None
    arrowSize: float | None = None
    fontFamily: str | None = None
    textColorRgb: StyleColor | None = None
    lineColorRgb: StyleColor | None = None
    dimDec: int | None = None
    dimLFac: float | None = None
    dimRnd: float | None = None
    dimZin: int | None = None
    dimLUnit: int | None = None
    dimPost: str | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Leader(Model):
    type: Literal["LEADER"]
    layer: str
    points: list[Point2]
    arrowOn: bool
    arrowSize: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


class Multileader(Model):
    type: Literal["MULTILEADER"]
    layer: str
    lines: list[list[float]]
    arrowSize: float
    text: LeaderText | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")


# Any entity; its type tells which.
Entity = Annotated[
    Line
    | Point
    | Ray
    | Xline
    | Circle
    | Arc
    | Ellipse
    | Lwpolyline
    | Polyline2d
    | Polyline3d
    | Spline
    | Hatch
    | Solid
    | Wipeout
    | Insert
    | Image
    | Pdfunderlay
    | Viewport
    | Text
    | Dyntext
    | Mtext
    | DimensionLinear
    | DimensionAligned
    | DimensionRadius
    | Leader
    | Multileader,
    Field(discriminator="type"),
]


class Asset(Model):
    name: str
    baseX: float | None = None
    baseY: float | None = None
    entities: list[Entity]


class Layout(Model):
    name: str
    tabOrder: int | None = None
    paperW: float | None = None
    paperH: float | None = None
    marginL: float | None = None
    marginB: float | None = None
    marginR: float | None = None
    marginT: float | None = None
    plotOriginX: float | None = None
    plotOriginY: float | None = None
    paperUnit: int | None = None
    rotation: int | None = None
    scaleNum: float | None = None
    scaleDen: float | None = None
    limMinX: float | None = None
    limMinY: float | None = None
    limMaxX: float | None = None
    limMaxY: float | None = None
    extMinX: float | None = None
    extMinY: float | None = None
    extMaxX: float | None = None
    extMaxY: float | None = None
    entities: list[Entity]


class Document(Model):
    dwgVersion: str
    insunits: int
    layers: list[Layer]
    assets: list[Asset]
    entities: list[Entity]
    layouts: list[Layout]
    warnings: list[str]
    timings: Timings


for _model in list(Model.__subclasses__()):
    _model.model_rebuild()


def parse_document(line: str | bytes) -> Document:
    """The document of a line that the worker has printed. Raises ValueError when the worker
    has refused the drawing, or when the line is none of its own."""
    text = line.decode("utf-8", "replace") if isinstance(line, bytes) else line
    if text.startswith('{"error"'):
        raise ValueError(Refusal.model_validate_json(text).error)
    return Document.model_validate_json(text)
