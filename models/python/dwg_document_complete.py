"""What dwg_import_worker --complete prints. Made by scripts/make_models.py from the
schema, version 2.0.0. Do not edit.

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


class AssetXref(Model):
    path: str
    overlay: bool
    found: bool


class DocumentForm(Model):
    name: Literal["complete"]
    version: str


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


# Hexadecimal digits, as drawings write them.
Handle = str


class LinetypeDash(Model):
    length: float
    text: str | None = None
    shape: int | None = None
    textStyle: str | None = None
    scale: float | None = None
    rotationRad: float | None = None
    absoluteRotation: bool | None = None
    x: float | None = None
    y: float | None = None


class PropertiesCustom(Model):
    name: str
    value: str


class Thumbnail(Model):
    kind: Literal["BMP", "PNG", "WMF"]
    base64: str


class CodePage(Model):
    name: str
    by: Literal["drawing", "release", "content", "default"]
    named: str | None = None


class AcadTableMerged(Model):
    row: int
    column: int
    lastRow: int
    lastColumn: int


class MlineCaps(Model):
    line: bool
    innerArcs: bool
    outerArc: bool
    angleRad: float


class GraphicsItemPushMatrix(Model):
    type: Literal["PUSH_MATRIX"]
    matrix: list[list[float]]


class GraphicsItemPopMatrix(Model):
    type: Literal["POP_MATRIX"]


class GraphicsItemPopClip(Model):
    type: Literal["POP_CLIP"]


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
    frozen: bool
    plotted: bool
    linetype: str
    handle: Handle | None = None
    description: str | None = None


class CircleWorld(Model):
    xAxis: Point3
    yAxis: Point3
    center: Point3


class LwpolylineWorld(Model):
    xAxis: Point3
    yAxis: Point3
    points: list[Point3]


class HatchPatternLine(Model):
    angle: float
    base: Point2
    offset: Point2
    dashes: list[float]


class HatchBoundaryEdgeLine(Model):
    type: Literal["line"]
    start: Point2
    end: Point2


class HatchBoundaryEdgeArc(Model):
    type: Literal["arc"]
    center: Point2
    radius: float
    startAngleRad: float
    endAngleRad: float
    ccw: bool


class HatchBoundaryEdgeEllipse(Model):
    type: Literal["ellipse"]
    center: Point2
    majorAxis: Point2
    axisRatio: float
    startAngleRad: float
    endAngleRad: float
    ccw: bool


class HatchBoundaryEdgeSpline(Model):
    type: Literal["spline"]
    degree: int
    periodic: bool
    knots: list[float]
    controlPoints: list[Point2]
    weights: list[float] | None = None
    fitPoints: list[Point2] | None = None
    startTangent: Point2 | None = None
    endTangent: Point2 | None = None


class HatchWorld(Model):
    xAxis: Point3
    yAxis: Point3
    loops: list[list[float]]


class SolidWorld(Model):
    xAxis: Point3
    yAxis: Point3
    pts: list[Point3]


class InsertAttribute(Model):
    tag: str
    text: str
    handle: Handle | None = None


class InsertClip(Model):
    on: bool
    inverted: bool
    boundary: list[Point2]
    block: list[Point3]
    world: list[Point3]
    front: float | None = None
    back: float | None = None


class InsertWorld(Model):
    xAxis: Point3
    yAxis: Point3
    position: Point3


class ImageClip(Model):
    on: bool
    inverted: bool
    pixels: list[Point2]
    world: list[Point3]


class PdfunderlayClip(Model):
    on: bool
    inverted: bool
    boundary: list[Point2]
    world: list[Point3]


class ViewportUcs(Model):
    origin: Point3
    xAxis: Point3
    yAxis: Point3
    elevation: float


class MtextColumns(Model):
    type: Literal["static", "dynamic"]
    count: int
    width: float
    gutter: float
    autoHeight: bool
    reversed: bool
    heights: list[float] | None = None
    linked: list[Handle] | None = None


class LeaderText(Model):
    html: Html
    x: float
    y: float
    height: float
    rotationRad: float


class MultileaderBlockAttribute(Model):
    text: str
    definition: Handle | None = None
    width: float


class LayoutViewport(Model):
    id: int
    handle: Handle | None = None
    cx: float
    cy: float
    width: float
    height: float
    viewCtrX: float
    viewCtrY: float
    viewSize: float


class MpolygonBoundaryEdgeLine(Model):
    type: Literal["line"]
    start: Point2
    end: Point2


class MpolygonBoundaryEdgeArc(Model):
    type: Literal["arc"]
    center: Point2
    radius: float
    startAngleRad: float
    endAngleRad: float
    ccw: bool


class MpolygonBoundaryEdgeEllipse(Model):
    type: Literal["ellipse"]
    center: Point2
    majorAxis: Point2
    axisRatio: float
    startAngleRad: float
    endAngleRad: float
    ccw: bool


class MpolygonBoundaryEdgeSpline(Model):
    type: Literal["spline"]
    degree: int
    periodic: bool
    knots: list[float]
    controlPoints: list[Point2]
    weights: list[float] | None = None
    fitPoints: list[Point2] | None = None
    startTangent: Point2 | None = None
    endTangent: Point2 | None = None


class Ucs(Model):
    origin: Point3
    xAxis: Point3
    yAxis: Point3
    elevation: float


# A number, a text or a name, a point, or a colour.
VariableValue = float | str | Point2 | Point3 | Rgb


class Linetype(Model):
    name: str
    handle: Handle | None = None
    description: str
    length: float
    dashes: list[LinetypeDash]


class TextStyle(Model):
    name: str
    handle: Handle | None = None
    font: str
    bigFont: str
    height: float
    lastHeight: float
    widthFactor: float
    obliqueRad: float
    mirroredX: bool
    mirroredY: bool
    vertical: bool
    shapes: bool


class CoordinateSystem(Model):
    name: str
    handle: Handle | None = None
    origin: Point3
    xAxis: Point3
    yAxis: Point3
    elevation: float


class Group(Model):
    name: str
    handle: Handle | None = None
    description: str
    selectable: bool
    unnamed: bool
    members: list[Handle]


class Properties(Model):
    title: str | None = None
    subject: str | None = None
    author: str | None = None
    keywords: str | None = None
    comments: str | None = None
    lastSavedBy: str | None = None
    revision: str | None = None
    hyperlinkBase: str | None = None
    created: str | None = None
    updated: str | None = None
    editingDays: float | None = None
    custom: list[PropertiesCustom] | None = None


class GraphicsItemPushClip(Model):
    type: Literal["PUSH_CLIP"]
    normal: Point3
    origin: Point3
    points: list[Point2]
    clipMatrix: list[list[float]]
    inverseBlockMatrix: list[list[float]]


class WireTransform(Model):
    x: Point3
    y: Point3
    z: Point3
    translation: Point3
    scale: Point3


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
    startZ: float | None = None
    endZ: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Point(Model):
    type: Literal["POINT"]
    layer: str
    x: float
    y: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    z: float | None = None
    angleRad: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    z: float | None = None
    dz: float | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    z: float | None = None
    dz: float | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Circle(Model):
    type: Literal["CIRCLE"]
    layer: str
    cx: float
    cy: float
    radius: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: CircleWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: CircleWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    cz: float | None = None
    smAxisZ: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Lwpolyline(Model):
    type: Literal["LWPOLYLINE"]
    layer: str
    closed: bool
    points: list[Point2]
    bulges: list[float]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    constWidth: float | None = None
    widths: list[Point2] | None = None
    linetypeGeneration: bool | None = None
    vertexIds: list[int] | None = None
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: LwpolylineWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Polyline2d(Model):
    type: Literal["POLYLINE_2D"]
    layer: str
    closed: bool
    points: list[Point2]
    bulges: list[float]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    startWidth: float | None = None
    endWidth: float | None = None
    widths: list[Point2] | None = None
    vertexFlags: list[int] | None = None
    tangents: list[float] | None = None
    curveFit: bool | None = None
    splineFit: bool | None = None
    linetypeGeneration: bool | None = None
    curveType: int | None = None
    frame: list[Point2] | None = None
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: LwpolylineWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Polyline3d(Model):
    type: Literal["POLYLINE_3D"]
    layer: str
    closed: bool
    points: list[Point3]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    splineFit: bool | None = None
    curveType: int | None = None
    frame: list[Point3] | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    degree: int | None = None
    periodic: bool | None = None
    knots: list[float] | None = None
    weights: list[float] | None = None
    controlPoints: list[Point3] | None = None
    fitPoints: list[Point3] | None = None
    startTangent: Point3 | None = None
    endTangent: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class HatchPattern(Model):
    name: str
    type: int
    angle: float | None = None
    scale: float | None = None
    double: bool | None = None
    lines: list[HatchPatternLine] | None = None


class HatchGradientColor(Model):
    at: float
    color: Color


class HatchBoundary(Model):
    flags: int
    closed: bool | None = None
    points: list[Point2] | None = None
    bulges: list[float] | None = None
    edges: list[Annotated[
    HatchBoundaryEdgeLine
    | HatchBoundaryEdgeArc
    | HatchBoundaryEdgeEllipse
    | HatchBoundaryEdgeSpline,
    Field(discriminator="type"),
]] | None = None
    sources: list[Handle] | None = None


class Solid(Model):
    type: Literal["SOLID"]
    layer: str
    pts: list[Point2]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: SolidWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Wipeout(Model):
    type: Literal["WIPEOUT"]
    layer: str
    verts: list[Point2]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    inverted: bool | None = None
    world: list[Point3] | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    z: float | None = None
    extrusion: Point3 | None = None
    dynamicBlock: str | None = None
    attributes: list[InsertAttribute] | None = None
    clip: InsertClip | None = None
    world: InsertWorld | None = None
    columns: int | None = None
    rows: int | None = None
    columnSpacing: float | None = None
    rowSpacing: float | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    pz0: float | None = None
    uz: float | None = None
    vz: float | None = None
    shown: bool | None = None
    brightness: int | None = None
    contrast: int | None = None
    fade: int | None = None
    transparent: bool | None = None
    clip: ImageClip | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    found: bool | None = None
    iz: float | None = None
    sz: float | None = None
    shown: bool | None = None
    monochrome: bool | None = None
    adjusted: bool | None = None
    contrast: int | None = None
    fade: int | None = None
    clip: PdfunderlayClip | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    id: int | None = None
    cz: float | None = None
    on: bool | None = None
    scale: float | None = None
    lens: float | None = None
    perspective: bool | None = None
    locked: bool | None = None
    clipped: bool | None = None
    frontZ: float | None = None
    backZ: float | None = None
    renderMode: int | None = None
    shadePlot: int | None = None
    ucs: ViewportUcs | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    textStyle: str | None = None
    widthFactor: float | None = None
    obliqueRad: float | None = None
    mirroredX: bool | None = None
    mirroredY: bool | None = None
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    textStyle: str | None = None
    widthFactor: float | None = None
    obliqueRad: float | None = None
    mirroredX: bool | None = None
    mirroredY: bool | None = None
    halign: int | None = None
    valign: int | None = None
    ax: float | None = None
    ay: float | None = None
    fieldLength: int | None = None
    lockedPosition: bool | None = None
    multiline: bool | None = None
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class MtextBackground(Model):
    fill: Literal["color", "window", "none"]
    color: Color | None = None
    scale: float
    frame: bool


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
    definitionPoint: Point3
    extensionPoint1: Point3
    extensionPoint2: Point3
    obliqueRad: float | None = None
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    definitionPoint: Point3
    extensionPoint1: Point3
    extensionPoint2: Point3
    obliqueRad: float | None = None
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    center: Point3
    curvePoint: Point3
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Leader(Model):
    type: Literal["LEADER"]
    layer: str
    points: list[Point2]
    arrowOn: bool
    arrowSize: float
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    z: list[float] | None = None
    dimStyle: str | None = None
    spline: bool | None = None
    annotationType: int | None = None
    annotation: Handle | None = None
    hookLine: bool | None = None
    textHeight: float | None = None
    textWidth: float | None = None
    xDirection: Point3 | None = None
    arrowBlock: str | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class MultileaderLeaderLine(Model):
    index: int
    points: list[Point3]
    breaks: list[list[Point3]] | None = None
    leaderType: int | None = None
    color: Color | None = None
    linetype: str | None = None
    lw: Lineweight | None = None
    arrowSize: float | None = None
    arrowBlock: str | None = None


class MultileaderTextContentBackground(Model):
    color: Color
    ofDrawing: bool
    scale: float


class MultileaderBlock(Model):
    position: Point3
    blockName: str | None = None
    scale: Point3
    rotationRad: float
    normal: Point3
    color: Color
    attributes: list[MultileaderBlockAttribute]


class Face3d(Model):
    type: Literal["3DFACE"]
    points: list[Point3]
    edges: list[bool]
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Trace(Model):
    type: Literal["TRACE"]
    points: list[Point2]
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    world: LwpolylineWorld | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class MpolygonBoundary(Model):
    flags: int
    closed: bool | None = None
    points: list[Point2] | None = None
    bulges: list[float] | None = None
    edges: list[Annotated[
    MpolygonBoundaryEdgeLine
    | MpolygonBoundaryEdgeArc
    | MpolygonBoundaryEdgeEllipse
    | MpolygonBoundaryEdgeSpline,
    Field(discriminator="type"),
]] | None = None
    sources: list[Handle] | None = None


Variables = dict[str, VariableValue]


class View(Model):
    name: str
    handle: Handle | None = None
    height: float
    width: float
    centerX: float
    centerY: float
    target: Point3
    direction: Point3
    twistRad: float
    lensLength: float
    frontClip: float
    backClip: float
    mode: int
    paperSpace: bool
    ucs: Ucs | None = None


class DimensionDiameter(Model):
    type: Literal["DIMENSION_DIAMETER"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    curvePoint: Point3
    farCurvePoint: Point3
    leaderLen: float
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class DimensionAng2ln(Model):
    type: Literal["DIMENSION_ANG2LN"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    line1: list[Point3]
    line2: list[Point3]
    arcPoint: Point3
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class DimensionAng3pt(Model):
    type: Literal["DIMENSION_ANG3PT"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    center: Point3
    extensionPoint1: Point3
    extensionPoint2: Point3
    arcPoint: Point3
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class DimensionOrdinate(Model):
    type: Literal["DIMENSION_ORDINATE"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    origin: Point3
    featurePoint: Point3
    leaderEnd: Point3
    axis: Literal["x", "y"]
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class ArcDimension(Model):
    type: Literal["ARC_DIMENSION"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    center: Point3
    extensionPoint1: Point3
    extensionPoint2: Point3
    arcPoint: Point3
    isPartial: bool
    startAngleRad: float
    endAngleRad: float
    arcSymbol: int
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    leader: list[Point3] | None = None
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class LargeRadialDimension(Model):
    type: Literal["LARGE_RADIAL_DIMENSION"]
    measurement: float
    userText: str
    textMidX: float
    textMidY: float
    center: Point3
    curvePoint: Point3
    overrideCenter: Point3
    jogPoint: Point3
    jogAngleRad: float
    measured: float
    measuredText: str
    text: str
    html: str
    attachment: int
    textRotationRad: float
    textIsPlacedByUser: bool
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
    horizontalDirectionRad: float | None = None
    flipArrow1: bool | None = None
    flipArrow2: bool | None = None
    dimensionStyle: str | None = None
    styleOverrides: dict[str, float | str] | None = None
    blockName: str | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class TableCell(Model):
    row: int
    column: int
    text: str | None = None
    blockName: str | None = None
    blockScale: float | None = None
    rotationRad: float | None = None
    alignment: int | None = None
    textHeight: float | None = None
    background: Color | None = None
    textColor: Color | None = None
    textStyle: str | None = None


class MlineElement(Model):
    offset: float
    color: Color
    linetype: str
    lines: list[list[Point3]]


class Tolerance(Model):
    type: Literal["TOLERANCE"]
    x: float
    y: float
    rotationRad: float
    height: float
    rawText: str
    rows: list[list[str]]
    position: Point3
    xDirection: Point3
    dimensionStyle: str | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Shape(Model):
    type: Literal["SHAPE"]
    x: float
    y: float
    size: float
    rotationRad: float
    widthFactor: float
    obliqueRad: float
    shapeNumber: int | None = None
    shapeFile: str | None = None
    elevation: float | None = None
    thickness: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class PolylineMesh(Model):
    type: Literal["POLYLINE_MESH"]
    m: int
    n: int
    closedM: bool
    closedN: bool
    points: list[Point3]
    curveType: int | None = None
    controlM: int | None = None
    controlN: int | None = None
    controlPoints: list[Point3] | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class PolylinePfaceFace(Model):
    vertices: list[int]
    edges: list[bool]
    color: Color
    layer: str | None = None


class Mesh(Model):
    type: Literal["MESH"]
    points: list[Point3]
    faces: list[list[int]]
    edges: list[list[int]]
    creases: list[float]
    subdivisionLevel: int
    blendsCreases: bool
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class GraphicsItemCircle(Model):
    type: Literal["CIRCLE"]
    center: Point3
    radius: float
    normal: Point3
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemCircle3p(Model):
    type: Literal["CIRCLE_3P"]
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemArc3p(Model):
    type: Literal["ARC_3P"]
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemArc(Model):
    type: Literal["ARC"]
    center: Point3
    radius: float
    normal: Point3
    startDirection: Point3
    sweepRad: float
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemEllipse(Model):
    type: Literal["ELLIPSE"]
    center: Point3
    normal: Point3
    majorRadius: float
    minorRadius: float
    startParam: float
    endParam: float
    rotationRad: float
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemPolyline(Model):
    type: Literal["POLYLINE"]
    points: list[Point3]
    normal: Point3 | None = None
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemPolygon(Model):
    type: Literal["POLYGON"]
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemLwpolyline(Model):
    type: Literal["LWPOLYLINE"]
    closed: bool
    points: list[Point2]
    bulges: list[float]
    widths: list[Point2]
    constantWidth: float
    elevation: float
    normal: Point3
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemMesh(Model):
    type: Literal["MESH"]
    rows: int
    columns: int
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemShell(Model):
    type: Literal["SHELL"]
    points: list[Point3]
    faces: list[list[int]]
    holes: list[int] | None = None
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemText(Model):
    type: Literal["TEXT"]
    position: Point3
    normal: Point3
    direction: Point3
    text: str
    height: float
    widthFactor: float
    obliqueRad: float
    tracking: float | None = None
    isRaw: bool | None = None
    isBackward: bool | None = None
    isUpsideDown: bool | None = None
    isVertical: bool | None = None
    isUnderlined: bool | None = None
    isOverlined: bool | None = None
    isBold: bool | None = None
    isItalic: bool | None = None
    typeface: str | None = None
    fontFile: str | None = None
    bigFontFile: str | None = None
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemXline(Model):
    type: Literal["XLINE"]
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class GraphicsItemRay(Model):
    type: Literal["RAY"]
    points: list[Point3]
    color: Color | None = None
    layer: str | None = None
    linetype: str | None = None
    linetypeScale: float | None = None
    lw: int | None = None
    thickness: float | None = None
    filled: bool | None = None


class Wire(Model):
    points: list[Point3]
    transform: WireTransform | None = None


class Dwfunderlay(Model):
    type: Literal["DWFUNDERLAY"]
    path: str
    page: int
    ix: float
    iy: float
    sx: float
    sy: float
    angle: float
    sheet: str
    found: bool
    shown: bool
    contrast: int
    fade: int
    isMonochrome: bool
    isAdjustedToBackground: bool
    clip: list[Point2] | None = None
    clipHole: list[Point2] | None = None
    isClipInverted: bool | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Dgnunderlay(Model):
    type: Literal["DGNUNDERLAY"]
    path: str
    page: int
    ix: float
    iy: float
    sx: float
    sy: float
    angle: float
    sheet: str
    found: bool
    shown: bool
    contrast: int
    fade: int
    isMonochrome: bool
    isAdjustedToBackground: bool
    clip: list[Point2] | None = None
    clipHole: list[Point2] | None = None
    isClipInverted: bool | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Ole2frame(Model):
    type: Literal["OLE2FRAME"]
    kind: Literal["link", "embedded", "static"]
    corners: list[Point3]
    pictureKind: Literal["bmp", "png", "jpeg", "gif"] | None = None
    picture: str | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Oleframe(Model):
    type: Literal["OLEFRAME"]
    pictureKind: Literal["bmp", "png", "jpeg", "gif"] | None = None
    picture: str | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Light(Model):
    type: Literal["LIGHT"]
    name: str
    kind: Literal["distant", "point", "spot"]
    on: bool
    position: Point3
    target: Point3
    intensity: float
    lightColor: Color
    hotspotRad: float
    falloffRad: float
    plotsGlyph: bool
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Sectionobject(Model):
    type: Literal["SECTIONOBJECT"]
    name: str
    points: list[Point3]
    backPoints: list[Point3]
    state: int
    verticalDirection: Point3
    topHeight: float
    bottomHeight: float
    indicatorColor: Color
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Pointcloud(Model):
    type: Literal["POINTCLOUD"]
    path: str
    origin: Point3
    min: Point3
    max: Point3
    ucsOrigin: Point3
    ucsX: Point3
    ucsY: Point3
    ucsZ: Point3
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Pointcloudex(Model):
    type: Literal["POINTCLOUDEX"]
    name: str
    min: Point3
    max: Point3
    ucsOrigin: Point3
    ucsX: Point3
    ucsY: Point3
    ucsZ: Point3
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Geopositionmarker(Model):
    type: Literal["GEOPOSITIONMARKER"]
    position: Point3
    radius: float
    notes: str
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Line3d(Model):
    type: Literal["3DLINE"]
    startX: float
    startY: float
    startZ: float
    endX: float
    endY: float
    endZ: float
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Repeat(Model):
    type: Literal["REPEAT"]
    begins: bool
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Endrep(Model):
    type: Literal["ENDREP"]
    columns: int
    rows: int
    columnSpacing: float
    rowSpacing: float
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class HatchGradient(Model):
    name: str
    angle: float
    shift: float
    oneColor: bool
    tint: float
    colors: list[HatchGradientColor]


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
    textStyle: str | None = None
    lineSpacingStyle: int | None = None
    lineSpacingFactor: float | None = None
    flowDirection: int | None = None
    extentsWidth: float | None = None
    extentsHeight: float | None = None
    frameHeight: float | None = None
    background: MtextBackground | None = None
    columns: MtextColumns | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class MultileaderLeader(Model):
    index: int
    landing: Point3 | None = None
    doglegDirection: Point3 | None = None
    doglegLength: float | None = None
    breaks: list[list[Point3]] | None = None
    lines: list[MultileaderLeaderLine]


class MultileaderTextContent(Model):
    position: Point3
    direction: Point3
    normal: Point3
    textStyle: str | None = None
    color: Color
    width: float
    attachment: int
    flow: int
    lineSpacing: float
    lineSpacingStyle: int
    background: MultileaderTextContentBackground | None = None


class DimensionStyle(Model):
    name: str
    handle: Handle | None = None
    variables: Variables


class AcadTable(Model):
    type: Literal["ACAD_TABLE"]
    x: float
    y: float
    rotationRad: float
    columnWidths: list[float]
    rowHeights: list[float]
    cells: list[TableCell]
    merged: list[AcadTableMerged]
    position: Point3
    horizontalDirection: Point3
    blockName: str | None = None
    tableStyle: str | None = None
    extrusion: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Mline(Model):
    type: Literal["MLINE"]
    closed: bool
    points: list[Point3]
    directions: list[Point3]
    miters: list[Point3]
    scale: float
    justification: int
    base: Point3
    elements: list[MlineElement]
    style: str | None = None
    fillColor: Color | None = None
    showsMiters: bool | None = None
    startCaps: MlineCaps | None = None
    endCaps: MlineCaps | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class PolylinePface(Model):
    type: Literal["POLYLINE_PFACE"]
    points: list[Point3]
    faces: list[PolylinePfaceFace]
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


GraphicsItem = Annotated[
    GraphicsItemCircle
    | GraphicsItemCircle3p
    | GraphicsItemArc3p
    | GraphicsItemArc
    | GraphicsItemEllipse
    | GraphicsItemPolyline
    | GraphicsItemPolygon
    | GraphicsItemLwpolyline
    | GraphicsItemMesh
    | GraphicsItemShell
    | GraphicsItemText
    | GraphicsItemXline
    | GraphicsItemRay
    | GraphicsItemPushMatrix
    | GraphicsItemPopMatrix
    | GraphicsItemPushClip
    | GraphicsItemPopClip,
    Field(discriminator="type"),
]


class Silhouette(Model):
    viewport: int
    target: Point3
    direction: Point3
    up: Point3
    isPerspective: bool
    wires: list[Wire]


class Hatch(Model):
    type: Literal["HATCH"]
    layer: str
    solid: bool
    loops: list[list[float]]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    pattern: HatchPattern | None = None
    gradient: HatchGradient | None = None
    background: Color | None = None
    islandStyle: int | None = None
    associative: bool | None = None
    boundary: list[HatchBoundary] | None = None
    seeds: list[Point2] | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    world: HatchWorld | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Multileader(Model):
    type: Literal["MULTILEADER"]
    layer: str
    lines: list[list[float]]
    arrowSize: float
    text: LeaderText | None = None
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    leaderType: int | None = None
    leaderColor: Color | None = None
    leaderLinetype: str | None = None
    leaderLw: Lineweight | None = None
    arrowBlock: str | None = None
    hasLanding: bool | None = None
    hasDogleg: bool | None = None
    landingGap: float | None = None
    scale: float | None = None
    contentType: int | None = None
    textFrame: bool | None = None
    attachmentLeft: int | None = None
    attachmentRight: int | None = None
    textAlignment: int | None = None
    leaders: list[MultileaderLeader] | None = None
    textContent: MultileaderTextContent | None = None
    block: MultileaderBlock | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Mpolygon(Model):
    type: Literal["MPOLYGON"]
    layer: str
    solid: bool
    loops: list[list[float]]
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    pattern: HatchPattern | None = None
    gradient: HatchGradient | None = None
    background: Color | None = None
    islandStyle: int | None = None
    associative: bool | None = None
    boundary: list[MpolygonBoundary] | None = None
    seeds: list[Point2] | None = None
    elevation: float | None = None
    extrusion: Point3 | None = None
    world: HatchWorld | None = None
    fillColor: Color | None = None
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Helix(Model):
    type: Literal["HELIX"]
    axisBase: Point3 | None = None
    axisVector: Point3 | None = None
    startPoint: Point3 | None = None
    radius: float | None = None
    turns: float | None = None
    turnHeight: float | None = None
    isCounterClockwise: bool | None = None
    closed: bool | None = None
    fit_pts: list[Point2] | None = None
    graphics: list[GraphicsItem] | None = None
    degree: int | None = None
    periodic: bool | None = None
    knots: list[float] | None = None
    weights: list[float] | None = None
    controlPoints: list[Point3] | None = None
    fitPoints: list[Point3] | None = None
    startTangent: Point3 | None = None
    endTangent: Point3 | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class ProxyEntity(Model):
    type: Literal["PROXY_ENTITY"]
    graphics: list[GraphicsItem]
    className: str | None = None
    cppName: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class UnknownEnt(Model):
    type: Literal["UNKNOWN_ENT"]
    graphics: list[GraphicsItem]
    className: str | None = None
    cppName: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Solid3d(Model):
    type: Literal["3DSOLID"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Region(Model):
    type: Literal["REGION"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Body(Model):
    type: Literal["BODY"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Planesurface(Model):
    type: Literal["PLANESURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Extrudedsurface(Model):
    type: Literal["EXTRUDEDSURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Loftedsurface(Model):
    type: Literal["LOFTEDSURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Revolvedsurface(Model):
    type: Literal["REVOLVEDSURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Sweptsurface(Model):
    type: Literal["SWEPTSURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


class Nurbsurface(Model):
    type: Literal["NURBSURFACE"]
    hasModelerData: bool
    modelerVersion: int
    wires: list[Wire] | None = None
    silhouettes: list[Silhouette] | None = None
    reason: str | None = None
    layer: str
    color: Color | None = None
    lw: Lineweight | None = None
    dbg: Debug | None = Field(default=None, alias="_dbg")
    handle: Handle | None = None
    owner: Handle | None = None
    linetype: str | None = None  # L by layer, K by block, else a line type's name
    linetypeScale: float | None = None
    invisible: bool | None = None
    drawOrder: int | None = None


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
    | Multileader
    | Face3d
    | Trace
    | Mpolygon
    | DimensionDiameter
    | DimensionAng2ln
    | DimensionAng3pt
    | DimensionOrdinate
    | ArcDimension
    | LargeRadialDimension
    | AcadTable
    | Mline
    | Tolerance
    | Shape
    | PolylineMesh
    | PolylinePface
    | Mesh
    | Helix
    | ProxyEntity
    | UnknownEnt
    | Solid3d
    | Region
    | Body
    | Planesurface
    | Extrudedsurface
    | Loftedsurface
    | Revolvedsurface
    | Sweptsurface
    | Nurbsurface
    | Dwfunderlay
    | Dgnunderlay
    | Ole2frame
    | Oleframe
    | Light
    | Sectionobject
    | Pointcloud
    | Pointcloudex
    | Geopositionmarker
    | Line3d
    | Repeat
    | Endrep,
    Field(discriminator="type"),
]


class Asset(Model):
    name: str
    baseX: float | None = None
    baseY: float | None = None
    entities: list[Entity]
    handle: Handle | None = None
    units: int
    baseZ: float | None = None
    anonymous: bool | None = None
    hasAttributes: bool | None = None
    explodable: bool
    scaledUniformly: bool | None = None
    description: str | None = None
    xref: AssetXref | None = None


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
    block: Handle | None = None
    active: bool
    pageSetup: str | None = None
    plotDevice: str | None = None
    paperSize: str | None = None
    plotStyleSheet: str | None = None
    plotFlags: int | None = None
    plotType: int | None = None
    plotView: str | None = None
    plotWindow: list[Point2] | None = None
    standardScale: int | None = None
    standardScaleFactor: float | None = None
    shadePlot: int | None = None
    shadeResolution: int | None = None
    shadeDpi: int | None = None
    paperImageOriginX: float | None = None
    paperImageOriginY: float | None = None
    layoutFlags: int | None = None
    insertionBase: Point3 | None = None
    ucs: Ucs | None = None
    viewport: LayoutViewport | None = None


class Document(Model):
    form: DocumentForm
    dwgVersion: str
    insunits: int
    layers: list[Layer]
    assets: list[Asset]
    entities: list[Entity]
    layouts: list[Layout]
    warnings: list[str]
    timings: Timings
    header: Variables
    codePage: CodePage
    linetypes: list[Linetype]
    textStyles: list[TextStyle]
    dimensionStyles: list[DimensionStyle]
    views: list[View]
    coordinateSystems: list[CoordinateSystem]
    groups: list[Group]
    properties: Properties
    thumbnail: Thumbnail | None = None


for _model in list(Model.__subclasses__()):
    _model.model_rebuild()


def parse_document(line: str | bytes) -> Document:
    """The document of a line that the worker has printed. Raises ValueError when the worker
    has refused the drawing, or when the line is none of its own."""
    text = line.decode("utf-8", "replace") if isinstance(line, bytes) else line
    if text.startswith('{"error"'):
        raise ValueError(Refusal.model_validate_json(text).error)
    return Document.model_validate_json(text)
