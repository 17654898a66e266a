// Made by scripts/make_models.py from the schema, version 2.0.0. Do not edit.
// What dwg_import_worker --complete prints. Objects may have further keys.

/** Opaque colour */
export interface Rgb {
  r: number;
  g: number;
  b: number;
}

export interface Rgba {
  r: number;
  g: number;
  b: number;
  /** Opacity; 255 is opaque */
  a?: number;
}

/** Hundredths of a millimetre, or L */
export type Lineweight = "L" | number;

/** Only with --verbose */
export interface Debug {
  color_index: number;
  color_alpha_type: number;
  color_alpha: number;
  color_alpha_raw: number;
}

export type Point2 = [number, number];

export type Point3 = [number, number, number];

export type Html = string;

export interface Run {
  start: number;
  length: number;
  stretch?: number;
  tracking?: number;
  fixedPitch?: boolean;
}

export interface Block {
  index: number;
  alignment?: string;
  textIndent?: number;
  leftMargin?: number;
  rightMargin?: number;
  tabStops?: Array<number>;
}

export interface AssetXref {
  path: string;
  overlay: boolean;
  found: boolean;
}

export interface DocumentForm {
  name: "complete";
  version: string;
}

/** Milliseconds since the start of the run */
export interface Timings {
  dwgReadMs: number;
  prepassMs: number;
  layersMs: number;
  assetsMs: number;
  entitiesMs: number;
  workerTotalMs: number;
}

export interface Refusal {
  error: string;
}

/** Hexadecimal digits, as drawings write them */
export type Handle = string;

export interface LinetypeDash {
  length: number;
  text?: string;
  shape?: number;
  textStyle?: string;
  scale?: number;
  rotationRad?: number;
  absoluteRotation?: boolean;
  x?: number;
  y?: number;
}

export interface PropertiesCustom {
  name: string;
  value: string;
}

export interface Thumbnail {
  kind: "BMP" | "PNG" | "WMF";
  base64: string;
}

export interface CodePage {
  name: string;
  by: "drawing" | "release" | "content" | "default";
  named?: string;
}

export interface AcadTableMerged {
  row: number;
  column: number;
  lastRow: number;
  lastColumn: number;
}

export interface MlineCaps {
  line: boolean;
  innerArcs: boolean;
  outerArc: boolean;
  angleRad: number;
}

export interface GraphicsItemPushMatrix {
  type: "PUSH_MATRIX";
  matrix: Array<Array<number>>;
}

export interface GraphicsItemPopMatrix {
  type: "POP_MATRIX";
}

export interface GraphicsItemPopClip {
  type: "POP_CLIP";
}

/** L by layer, K by block, W white on dark and black on light backgrounds */
export type Color = "L" | "K" | "W" | Rgba;

/** As color, never inherited */
export type StyleColor = "W" | Rgba;

export interface Layer {
  name: string;
  visible: boolean;
  locked: boolean;
  color: Rgb;
  lw: Lineweight;
  /** Opacity; 255 is opaque */
  alpha?: number;
  _dbg?: Debug;
  frozen: boolean;
  plotted: boolean;
  linetype: string;
  handle?: Handle;
  description?: string;
}

export interface CircleWorld {
  xAxis: Point3;
  yAxis: Point3;
  center: Point3;
}

export interface LwpolylineWorld {
  xAxis: Point3;
  yAxis: Point3;
  points: Array<Point3>;
}

export interface HatchPatternLine {
  angle: number;
  base: Point2;
  offset: Point2;
  dashes: Array<number>;
}

export interface HatchBoundaryEdgeLine {
  type: "line";
  start: Point2;
  end: Point2;
}

export interface HatchBoundaryEdgeArc {
  type: "arc";
  center: Point2;
  radius: number;
  startAngleRad: number;
  endAngleRad: number;
  ccw: boolean;
}

export interface HatchBoundaryEdgeEllipse {
  type: "ellipse";
  center: Point2;
  majorAxis: Point2;
  axisRatio: number;
  startAngleRad: number;
  endAngleRad: number;
  ccw: boolean;
}

export interface HatchBoundaryEdgeSpline {
  type: "spline";
  degree: number;
  periodic: boolean;
  knots: Array<number>;
  controlPoints: Array<Point2>;
  weights?: Array<number>;
  fitPoints?: Array<Point2>;
  startTangent?: Point2;
  endTangent?: Point2;
}

export interface HatchWorld {
  xAxis: Point3;
  yAxis: Point3;
  loops: Array<Array<number>>;
}

export interface SolidWorld {
  xAxis: Point3;
  yAxis: Point3;
  pts: Array<Point3>;
}

export interface InsertAttribute {
  tag: string;
  text: string;
  handle?: Handle;
}

export interface InsertClip {
  on: boolean;
  inverted: boolean;
  boundary: Array<Point2>;
  block: Array<Point3>;
  world: Array<Point3>;
  front?: number;
  back?: number;
}

export interface InsertWorld {
  xAxis: Point3;
  yAxis: Point3;
  position: Point3;
}

export interface ImageClip {
  on: boolean;
  inverted: boolean;
  pixels: Array<Point2>;
  world: Array<Point3>;
}

export interface PdfunderlayClip {
  on: boolean;
  inverted: boolean;
  boundary: Array<Point2>;
  world: Array<Point3>;
}

export interface ViewportUcs {
  origin: Point3;
  xAxis: Point3;
  yAxis: Point3;
  elevation: number;
}

export interface MtextColumns {
  type: "static" | "dynamic";
  count: number;
  width: number;
  gutter: number;
  autoHeight: boolean;
  reversed: boolean;
  heights?: Array<number>;
  linked?: Array<Handle>;
}

export interface LeaderText {
  html: Html;
  x: number;
  y: number;
  height: number;
  rotationRad: number;
}

export interface MultileaderBlockAttribute {
  text: string;
  definition?: Handle;
  width: number;
}

export interface LayoutViewport {
  id: number;
  handle?: Handle;
  cx: number;
  cy: number;
  width: number;
  height: number;
  viewCtrX: number;
  viewCtrY: number;
  viewSize: number;
}

export interface MpolygonBoundaryEdgeLine {
  type: "line";
  start: Point2;
  end: Point2;
}

export interface MpolygonBoundaryEdgeArc {
  type: "arc";
  center: Point2;
  radius: number;
  startAngleRad: number;
  endAngleRad: number;
  ccw: boolean;
}

export interface MpolygonBoundaryEdgeEllipse {
  type: "ellipse";
  center: Point2;
  majorAxis: Point2;
  axisRatio: number;
  startAngleRad: number;
  endAngleRad: number;
  ccw: boolean;
}

export interface MpolygonBoundaryEdgeSpline {
  type: "spline";
  degree: number;
  periodic: boolean;
  knots: Array<number>;
  controlPoints: Array<Point2>;
  weights?: Array<number>;
  fitPoints?: Array<Point2>;
  startTangent?: Point2;
  endTangent?: Point2;
}

export interface Ucs {
  origin: Point3;
  xAxis: Point3;
  yAxis: Point3;
  elevation: number;
}

/** A number, a text or a name, a point, or a colour */
export type VariableValue = number | string | Point2 | Point3 | Rgb;

export interface Linetype {
  name: string;
  handle?: Handle;
  description: string;
  length: number;
  dashes: Array<LinetypeDash>;
}

export interface TextStyle {
  name: string;
  handle?: Handle;
  font: string;
  bigFont: string;
  height: number;
  lastHeight: number;
  widthFactor: number;
  obliqueRad: number;
  mirroredX: boolean;
  mirroredY: boolean;
  vertical: boolean;
  shapes: boolean;
}

export interface CoordinateSystem {
  name: string;
  handle?: Handle;
  origin: Point3;
  xAxis: Point3;
  yAxis: Point3;
  elevation: number;
}

export interface Group {
  name: string;
  handle?: Handle;
  description: string;
  selectable: boolean;
  unnamed: boolean;
  members: Array<Handle>;
}

export interface Properties {
  title?: string;
  subject?: string;
  author?: string;
  keywords?: string;
  comments?: string;
  lastSavedBy?: string;
  revision?: string;
  hyperlinkBase?: string;
  created?: string;
  updated?: string;
  editingDays?: number;
  custom?: Array<PropertiesCustom>;
}

export interface GraphicsItemPushClip {
  type: "PUSH_CLIP";
  normal: Point3;
  origin: Point3;
  points: Array<Point2>;
  clipMatrix: Array<Array<number>>;
  inverseBlockMatrix: Array<Array<number>>;
}

export interface WireTransform {
  x: Point3;
  y: Point3;
  z: Point3;
  translation: Point3;
  scale: Point3;
}

export interface Line {
  type: "LINE";
  layer: string;
  startX: number;
  startY: number;
  endX: number;
  endY: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  startZ?: number;
  endZ?: number;
  thickness?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Point {
  type: "POINT";
  layer: string;
  x: number;
  y: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  z?: number;
  angleRad?: number;
  thickness?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Ray {
  type: "RAY";
  layer: string;
  x: number;
  y: number;
  dx: number;
  dy: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  z?: number;
  dz?: number;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Xline {
  type: "XLINE";
  layer: string;
  x: number;
  y: number;
  dx: number;
  dy: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  z?: number;
  dz?: number;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Circle {
  type: "CIRCLE";
  layer: string;
  cx: number;
  cy: number;
  radius: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: CircleWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Arc {
  type: "ARC";
  layer: string;
  cx: number;
  cy: number;
  radius: number;
  startAngleRad: number;
  endAngleRad: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: CircleWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Ellipse {
  type: "ELLIPSE";
  layer: string;
  cx: number;
  cy: number;
  smAxisX: number;
  smAxisY: number;
  semiMajor: number;
  axisRatio: number;
  startAngleRad: number;
  endAngleRad: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  cz?: number;
  smAxisZ?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Lwpolyline {
  type: "LWPOLYLINE";
  layer: string;
  closed: boolean;
  points: Array<Point2>;
  bulges: Array<number>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  constWidth?: number;
  widths?: Array<Point2>;
  linetypeGeneration?: boolean;
  vertexIds?: Array<number>;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: LwpolylineWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Polyline2d {
  type: "POLYLINE_2D";
  layer: string;
  closed: boolean;
  points: Array<Point2>;
  bulges: Array<number>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  startWidth?: number;
  endWidth?: number;
  widths?: Array<Point2>;
  vertexFlags?: Array<number>;
  tangents?: Array<number>;
  curveFit?: boolean;
  splineFit?: boolean;
  linetypeGeneration?: boolean;
  curveType?: number;
  frame?: Array<Point2>;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: LwpolylineWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Polyline3d {
  type: "POLYLINE_3D";
  layer: string;
  closed: boolean;
  points: Array<Point3>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  splineFit?: boolean;
  curveType?: number;
  frame?: Array<Point3>;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Spline {
  type: "SPLINE";
  layer: string;
  closed: boolean;
  fit_pts: Array<Point2>;
  beg_tan?: Point2;
  end_tan?: Point2;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  degree?: number;
  periodic?: boolean;
  knots?: Array<number>;
  weights?: Array<number>;
  controlPoints?: Array<Point3>;
  fitPoints?: Array<Point3>;
  startTangent?: Point3;
  endTangent?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface HatchPattern {
  name: string;
  type: number;
  angle?: number;
  scale?: number;
  double?: boolean;
  lines?: Array<HatchPatternLine>;
}

export interface HatchGradientColor {
  at: number;
  color: Color;
}

export interface HatchBoundary {
  flags: number;
  closed?: boolean;
  points?: Array<Point2>;
  bulges?: Array<number>;
  edges?: Array<HatchBoundaryEdgeLine | HatchBoundaryEdgeArc | HatchBoundaryEdgeEllipse | HatchBoundaryEdgeSpline>;
  sources?: Array<Handle>;
}

export interface Solid {
  type: "SOLID";
  layer: string;
  pts: Array<Point2>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: SolidWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Wipeout {
  type: "WIPEOUT";
  layer: string;
  verts: Array<Point2>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  inverted?: boolean;
  world?: Array<Point3>;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Insert {
  type: "INSERT";
  layer: string;
  blockName: string;
  x: number;
  y: number;
  rotationRad: number;
  scaleX: number;
  scaleY: number;
  scaleZ: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  z?: number;
  extrusion?: Point3;
  dynamicBlock?: string;
  attributes?: Array<InsertAttribute>;
  clip?: InsertClip;
  world?: InsertWorld;
  columns?: number;
  rows?: number;
  columnSpacing?: number;
  rowSpacing?: number;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Image {
  type: "IMAGE";
  layer: string;
  path: string;
  px0: number;
  py0: number;
  ux: number;
  uy: number;
  vx: number;
  vy: number;
  sw: number;
  sh: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  pz0?: number;
  uz?: number;
  vz?: number;
  shown?: boolean;
  brightness?: number;
  contrast?: number;
  fade?: number;
  transparent?: boolean;
  clip?: ImageClip;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Pdfunderlay {
  type: "PDFUNDERLAY";
  layer: string;
  path: string;
  page: number;
  ix: number;
  iy: number;
  sx: number;
  sy: number;
  angle: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  found?: boolean;
  iz?: number;
  sz?: number;
  shown?: boolean;
  monochrome?: boolean;
  adjusted?: boolean;
  contrast?: number;
  fade?: number;
  clip?: PdfunderlayClip;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Viewport {
  type: "VIEWPORT";
  layer: string;
  cx: number;
  cy: number;
  width: number;
  height: number;
  viewCtrX: number;
  viewCtrY: number;
  viewSize: number;
  targetX: number;
  targetY: number;
  targetZ: number;
  dirX: number;
  dirY: number;
  dirZ: number;
  twist: number;
  status: number;
  frozenLayers: Array<string>;
  clip?: Entity;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  id?: number;
  cz?: number;
  on?: boolean;
  scale?: number;
  lens?: number;
  perspective?: boolean;
  locked?: boolean;
  clipped?: boolean;
  frontZ?: number;
  backZ?: number;
  renderMode?: number;
  shadePlot?: number;
  ucs?: ViewportUcs;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Text {
  type: "TEXT";
  layer: string;
  x: number;
  y: number;
  html: Html;
  height: number;
  rotationRad: number;
  halign?: number;
  valign?: number;
  ax?: number;
  ay?: number;
  fontFamily?: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  textStyle?: string;
  widthFactor?: number;
  obliqueRad?: number;
  mirroredX?: boolean;
  mirroredY?: boolean;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Dyntext {
  type: "DYNTEXT";
  layer: string;
  kind: "attrib" | "attdef";
  x: number;
  y: number;
  html: Html;
  height: number;
  rotationRad: number;
  fontFamily?: string;
  tag: string;
  prompt?: string;
  defaultValue?: string;
  flags: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  textStyle?: string;
  widthFactor?: number;
  obliqueRad?: number;
  mirroredX?: boolean;
  mirroredY?: boolean;
  halign?: number;
  valign?: number;
  ax?: number;
  ay?: number;
  fieldLength?: number;
  lockedPosition?: boolean;
  multiline?: boolean;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface MtextBackground {
  fill: "color" | "window" | "none";
  color?: Color;
  scale: number;
  frame: boolean;
}

export interface DimensionLinear {
  type: "DIMENSION_LINEAR";
  layer: string;
  x1: number;
  y1: number;
  x2: number;
  y2: number;
  defX: number;
  defY: number;
  dimRotationRad: number;
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  definitionPoint: Point3;
  extensionPoint1: Point3;
  extensionPoint2: Point3;
  obliqueRad?: number;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface DimensionAligned {
  type: "DIMENSION_ALIGNED";
  layer: string;
  x1: number;
  y1: number;
  x2: number;
  y2: number;
  defX: number;
  defY: number;
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  definitionPoint: Point3;
  extensionPoint1: Point3;
  extensionPoint2: Point3;
  obliqueRad?: number;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface DimensionRadius {
  type: "DIMENSION_RADIUS";
  layer: string;
  defX: number;
  defY: number;
  arcX: number;
  arcY: number;
  leaderLen: number;
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  center: Point3;
  curvePoint: Point3;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Leader {
  type: "LEADER";
  layer: string;
  points: Array<Point2>;
  arrowOn: boolean;
  arrowSize: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  z?: Array<number>;
  dimStyle?: string;
  spline?: boolean;
  annotationType?: number;
  annotation?: Handle;
  hookLine?: boolean;
  textHeight?: number;
  textWidth?: number;
  xDirection?: Point3;
  arrowBlock?: string;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface MultileaderLeaderLine {
  index: number;
  points: Array<Point3>;
  breaks?: Array<Array<Point3>>;
  leaderType?: number;
  color?: Color;
  linetype?: string;
  lw?: Lineweight;
  arrowSize?: number;
  arrowBlock?: string;
}

export interface MultileaderTextContentBackground {
  color: Color;
  ofDrawing: boolean;
  scale: number;
}

export interface MultileaderBlock {
  position: Point3;
  blockName?: string;
  scale: Point3;
  rotationRad: number;
  normal: Point3;
  color: Color;
  attributes: Array<MultileaderBlockAttribute>;
}

export interface Face3d {
  type: "3DFACE";
  points: Array<Point3>;
  edges: Array<boolean>;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Trace {
  type: "TRACE";
  points: Array<Point2>;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  world?: LwpolylineWorld;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface MpolygonBoundary {
  flags: number;
  closed?: boolean;
  points?: Array<Point2>;
  bulges?: Array<number>;
  edges?: Array<MpolygonBoundaryEdgeLine | MpolygonBoundaryEdgeArc | MpolygonBoundaryEdgeEllipse | MpolygonBoundaryEdgeSpline>;
  sources?: Array<Handle>;
}

export type Variables = Record<string, VariableValue>;

export interface View {
  name: string;
  handle?: Handle;
  height: number;
  width: number;
  centerX: number;
  centerY: number;
  target: Point3;
  direction: Point3;
  twistRad: number;
  lensLength: number;
  frontClip: number;
  backClip: number;
  mode: number;
  paperSpace: boolean;
  ucs?: Ucs;
}

export interface DimensionDiameter {
  type: "DIMENSION_DIAMETER";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  curvePoint: Point3;
  farCurvePoint: Point3;
  leaderLen: number;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface DimensionAng2ln {
  type: "DIMENSION_ANG2LN";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  line1: Array<Point3>;
  line2: Array<Point3>;
  arcPoint: Point3;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface DimensionAng3pt {
  type: "DIMENSION_ANG3PT";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  center: Point3;
  extensionPoint1: Point3;
  extensionPoint2: Point3;
  arcPoint: Point3;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface DimensionOrdinate {
  type: "DIMENSION_ORDINATE";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  origin: Point3;
  featurePoint: Point3;
  leaderEnd: Point3;
  axis: "x" | "y";
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface ArcDimension {
  type: "ARC_DIMENSION";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  center: Point3;
  extensionPoint1: Point3;
  extensionPoint2: Point3;
  arcPoint: Point3;
  isPartial: boolean;
  startAngleRad: number;
  endAngleRad: number;
  arcSymbol: number;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  leader?: Array<Point3>;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface LargeRadialDimension {
  type: "LARGE_RADIAL_DIMENSION";
  measurement: number;
  userText: string;
  textMidX: number;
  textMidY: number;
  center: Point3;
  curvePoint: Point3;
  overrideCenter: Point3;
  jogPoint: Point3;
  jogAngleRad: number;
  measured: number;
  measuredText: string;
  text: string;
  html: string;
  attachment: number;
  textRotationRad: number;
  textIsPlacedByUser: boolean;
  textHeight?: number;
  arrowSize?: number;
  fontFamily?: string;
  textColorRgb?: StyleColor;
  lineColorRgb?: StyleColor;
  dimDec?: number;
  dimLFac?: number;
  dimRnd?: number;
  dimZin?: number;
  dimLUnit?: number;
  dimPost?: string;
  horizontalDirectionRad?: number;
  flipArrow1?: boolean;
  flipArrow2?: boolean;
  dimensionStyle?: string;
  styleOverrides?: Record<string, number | string>;
  blockName?: string;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface TableCell {
  row: number;
  column: number;
  text?: string;
  blockName?: string;
  blockScale?: number;
  rotationRad?: number;
  alignment?: number;
  textHeight?: number;
  background?: Color;
  textColor?: Color;
  textStyle?: string;
}

export interface MlineElement {
  offset: number;
  color: Color;
  linetype: string;
  lines: Array<Array<Point3>>;
}

export interface Tolerance {
  type: "TOLERANCE";
  x: number;
  y: number;
  rotationRad: number;
  height: number;
  rawText: string;
  rows: Array<Array<string>>;
  position: Point3;
  xDirection: Point3;
  dimensionStyle?: string;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Shape {
  type: "SHAPE";
  x: number;
  y: number;
  size: number;
  rotationRad: number;
  widthFactor: number;
  obliqueRad: number;
  shapeNumber?: number;
  shapeFile?: string;
  elevation?: number;
  thickness?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface PolylineMesh {
  type: "POLYLINE_MESH";
  m: number;
  n: number;
  closedM: boolean;
  closedN: boolean;
  points: Array<Point3>;
  curveType?: number;
  controlM?: number;
  controlN?: number;
  controlPoints?: Array<Point3>;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface PolylinePfaceFace {
  vertices: Array<number>;
  edges: Array<boolean>;
  color: Color;
  layer?: string;
}

export interface Mesh {
  type: "MESH";
  points: Array<Point3>;
  faces: Array<Array<number>>;
  edges: Array<Array<number>>;
  creases: Array<number>;
  subdivisionLevel: number;
  blendsCreases: boolean;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface GraphicsItemCircle {
  type: "CIRCLE";
  center: Point3;
  radius: number;
  normal: Point3;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemCircle3p {
  type: "CIRCLE_3P";
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemArc3p {
  type: "ARC_3P";
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemArc {
  type: "ARC";
  center: Point3;
  radius: number;
  normal: Point3;
  startDirection: Point3;
  sweepRad: number;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemEllipse {
  type: "ELLIPSE";
  center: Point3;
  normal: Point3;
  majorRadius: number;
  minorRadius: number;
  startParam: number;
  endParam: number;
  rotationRad: number;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemPolyline {
  type: "POLYLINE";
  points: Array<Point3>;
  normal?: Point3;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemPolygon {
  type: "POLYGON";
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemLwpolyline {
  type: "LWPOLYLINE";
  closed: boolean;
  points: Array<Point2>;
  bulges: Array<number>;
  widths: Array<Point2>;
  constantWidth: number;
  elevation: number;
  normal: Point3;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemMesh {
  type: "MESH";
  rows: number;
  columns: number;
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemShell {
  type: "SHELL";
  points: Array<Point3>;
  faces: Array<Array<number>>;
  holes?: Array<number>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemText {
  type: "TEXT";
  position: Point3;
  normal: Point3;
  direction: Point3;
  text: string;
  height: number;
  widthFactor: number;
  obliqueRad: number;
  tracking?: number;
  isRaw?: boolean;
  isBackward?: boolean;
  isUpsideDown?: boolean;
  isVertical?: boolean;
  isUnderlined?: boolean;
  isOverlined?: boolean;
  isBold?: boolean;
  isItalic?: boolean;
  typeface?: string;
  fontFile?: string;
  bigFontFile?: string;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemXline {
  type: "XLINE";
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface GraphicsItemRay {
  type: "RAY";
  points: Array<Point3>;
  color?: Color;
  layer?: string;
  linetype?: string;
  linetypeScale?: number;
  lw?: number;
  thickness?: number;
  filled?: boolean;
}

export interface Wire {
  points: Array<Point3>;
  transform?: WireTransform;
}

export interface Dwfunderlay {
  type: "DWFUNDERLAY";
  path: string;
  page: number;
  ix: number;
  iy: number;
  sx: number;
  sy: number;
  angle: number;
  sheet: string;
  found: boolean;
  shown: boolean;
  contrast: number;
  fade: number;
  isMonochrome: boolean;
  isAdjustedToBackground: boolean;
  clip?: Array<Point2>;
  clipHole?: Array<Point2>;
  isClipInverted?: boolean;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Dgnunderlay {
  type: "DGNUNDERLAY";
  path: string;
  page: number;
  ix: number;
  iy: number;
  sx: number;
  sy: number;
  angle: number;
  sheet: string;
  found: boolean;
  shown: boolean;
  contrast: number;
  fade: number;
  isMonochrome: boolean;
  isAdjustedToBackground: boolean;
  clip?: Array<Point2>;
  clipHole?: Array<Point2>;
  isClipInverted?: boolean;
  elevation?: number;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Ole2frame {
  type: "OLE2FRAME";
  kind: "link" | "embedded" | "static";
  corners: Array<Point3>;
  pictureKind?: "bmp" | "png" | "jpeg" | "gif";
  picture?: string;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Oleframe {
  type: "OLEFRAME";
  pictureKind?: "bmp" | "png" | "jpeg" | "gif";
  picture?: string;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Light {
  type: "LIGHT";
  name: string;
  kind: "distant" | "point" | "spot";
  on: boolean;
  position: Point3;
  target: Point3;
  intensity: number;
  lightColor: Color;
  hotspotRad: number;
  falloffRad: number;
  plotsGlyph: boolean;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Sectionobject {
  type: "SECTIONOBJECT";
  name: string;
  points: Array<Point3>;
  backPoints: Array<Point3>;
  state: number;
  verticalDirection: Point3;
  topHeight: number;
  bottomHeight: number;
  indicatorColor: Color;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Pointcloud {
  type: "POINTCLOUD";
  path: string;
  origin: Point3;
  min: Point3;
  max: Point3;
  ucsOrigin: Point3;
  ucsX: Point3;
  ucsY: Point3;
  ucsZ: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Pointcloudex {
  type: "POINTCLOUDEX";
  name: string;
  min: Point3;
  max: Point3;
  ucsOrigin: Point3;
  ucsX: Point3;
  ucsY: Point3;
  ucsZ: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Geopositionmarker {
  type: "GEOPOSITIONMARKER";
  position: Point3;
  radius: number;
  notes: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Line3d {
  type: "3DLINE";
  startX: number;
  startY: number;
  startZ: number;
  endX: number;
  endY: number;
  endZ: number;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Repeat {
  type: "REPEAT";
  begins: boolean;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Endrep {
  type: "ENDREP";
  columns: number;
  rows: number;
  columnSpacing: number;
  rowSpacing: number;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface HatchGradient {
  name: string;
  angle: number;
  shift: number;
  oneColor: boolean;
  tint: number;
  colors: Array<HatchGradientColor>;
}

export interface Mtext {
  type: "MTEXT";
  layer: string;
  x: number;
  y: number;
  html: Html;
  rawMtext: string;
  width: number;
  height: number;
  rotationRad: number;
  attachment: number;
  runs?: Array<Run>;
  blocks?: Array<Block>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  textStyle?: string;
  lineSpacingStyle?: number;
  lineSpacingFactor?: number;
  flowDirection?: number;
  extentsWidth?: number;
  extentsHeight?: number;
  frameHeight?: number;
  background?: MtextBackground;
  columns?: MtextColumns;
  elevation?: number;
  extrusion?: Point3;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface MultileaderLeader {
  index: number;
  landing?: Point3;
  doglegDirection?: Point3;
  doglegLength?: number;
  breaks?: Array<Array<Point3>>;
  lines: Array<MultileaderLeaderLine>;
}

export interface MultileaderTextContent {
  position: Point3;
  direction: Point3;
  normal: Point3;
  textStyle?: string;
  color: Color;
  width: number;
  attachment: number;
  flow: number;
  lineSpacing: number;
  lineSpacingStyle: number;
  background?: MultileaderTextContentBackground;
}

export interface DimensionStyle {
  name: string;
  handle?: Handle;
  variables: Variables;
}

export interface AcadTable {
  type: "ACAD_TABLE";
  x: number;
  y: number;
  rotationRad: number;
  columnWidths: Array<number>;
  rowHeights: Array<number>;
  cells: Array<TableCell>;
  merged: Array<AcadTableMerged>;
  position: Point3;
  horizontalDirection: Point3;
  blockName?: string;
  tableStyle?: string;
  extrusion?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Mline {
  type: "MLINE";
  closed: boolean;
  points: Array<Point3>;
  directions: Array<Point3>;
  miters: Array<Point3>;
  scale: number;
  justification: number;
  base: Point3;
  elements: Array<MlineElement>;
  style?: string;
  fillColor?: Color;
  showsMiters?: boolean;
  startCaps?: MlineCaps;
  endCaps?: MlineCaps;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface PolylinePface {
  type: "POLYLINE_PFACE";
  points: Array<Point3>;
  faces: Array<PolylinePfaceFace>;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export type GraphicsItem =
  | GraphicsItemCircle
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
  | GraphicsItemPopClip;

export interface Silhouette {
  viewport: number;
  target: Point3;
  direction: Point3;
  up: Point3;
  isPerspective: boolean;
  wires: Array<Wire>;
}

export interface Hatch {
  type: "HATCH";
  layer: string;
  solid: boolean;
  loops: Array<Array<number>>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  pattern?: HatchPattern;
  gradient?: HatchGradient;
  background?: Color;
  islandStyle?: number;
  associative?: boolean;
  boundary?: Array<HatchBoundary>;
  seeds?: Array<Point2>;
  elevation?: number;
  extrusion?: Point3;
  world?: HatchWorld;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Multileader {
  type: "MULTILEADER";
  layer: string;
  lines: Array<Array<number>>;
  arrowSize: number;
  text?: LeaderText;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  leaderType?: number;
  leaderColor?: Color;
  leaderLinetype?: string;
  leaderLw?: Lineweight;
  arrowBlock?: string;
  hasLanding?: boolean;
  hasDogleg?: boolean;
  landingGap?: number;
  scale?: number;
  contentType?: number;
  textFrame?: boolean;
  attachmentLeft?: number;
  attachmentRight?: number;
  textAlignment?: number;
  leaders?: Array<MultileaderLeader>;
  textContent?: MultileaderTextContent;
  block?: MultileaderBlock;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Mpolygon {
  type: "MPOLYGON";
  layer: string;
  solid: boolean;
  loops: Array<Array<number>>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  pattern?: HatchPattern;
  gradient?: HatchGradient;
  background?: Color;
  islandStyle?: number;
  associative?: boolean;
  boundary?: Array<MpolygonBoundary>;
  seeds?: Array<Point2>;
  elevation?: number;
  extrusion?: Point3;
  world?: HatchWorld;
  fillColor?: Color;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Helix {
  type: "HELIX";
  axisBase?: Point3;
  axisVector?: Point3;
  startPoint?: Point3;
  radius?: number;
  turns?: number;
  turnHeight?: number;
  isCounterClockwise?: boolean;
  closed?: boolean;
  fit_pts?: Array<Point2>;
  graphics?: Array<GraphicsItem>;
  degree?: number;
  periodic?: boolean;
  knots?: Array<number>;
  weights?: Array<number>;
  controlPoints?: Array<Point3>;
  fitPoints?: Array<Point3>;
  startTangent?: Point3;
  endTangent?: Point3;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface ProxyEntity {
  type: "PROXY_ENTITY";
  graphics: Array<GraphicsItem>;
  className?: string;
  cppName?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface UnknownEnt {
  type: "UNKNOWN_ENT";
  graphics: Array<GraphicsItem>;
  className?: string;
  cppName?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Solid3d {
  type: "3DSOLID";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Region {
  type: "REGION";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Body {
  type: "BODY";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Planesurface {
  type: "PLANESURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Extrudedsurface {
  type: "EXTRUDEDSURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Loftedsurface {
  type: "LOFTEDSURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Revolvedsurface {
  type: "REVOLVEDSURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Sweptsurface {
  type: "SWEPTSURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

export interface Nurbsurface {
  type: "NURBSURFACE";
  hasModelerData: boolean;
  modelerVersion: number;
  wires?: Array<Wire>;
  silhouettes?: Array<Silhouette>;
  reason?: string;
  layer: string;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
  handle?: Handle;
  owner?: Handle;
  /** L by layer, K by block, else a line type's name */
  linetype?: string;
  linetypeScale?: number;
  invisible?: boolean;
  drawOrder?: number;
}

/** Any entity; its type tells which */
export type Entity =
  | Line
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
  | Endrep;

export interface Asset {
  name: string;
  baseX?: number;
  baseY?: number;
  entities: Array<Entity>;
  handle?: Handle;
  units: number;
  baseZ?: number;
  anonymous?: boolean;
  hasAttributes?: boolean;
  explodable: boolean;
  scaledUniformly?: boolean;
  description?: string;
  xref?: AssetXref;
}

export interface Layout {
  name: string;
  tabOrder?: number;
  paperW?: number;
  paperH?: number;
  marginL?: number;
  marginB?: number;
  marginR?: number;
  marginT?: number;
  plotOriginX?: number;
  plotOriginY?: number;
  paperUnit?: number;
  rotation?: number;
  scaleNum?: number;
  scaleDen?: number;
  limMinX?: number;
  limMinY?: number;
  limMaxX?: number;
  limMaxY?: number;
  extMinX?: number;
  extMinY?: number;
  extMaxX?: number;
  extMaxY?: number;
  entities: Array<Entity>;
  block?: Handle;
  active: boolean;
  pageSetup?: string;
  plotDevice?: string;
  paperSize?: string;
  plotStyleSheet?: string;
  plotFlags?: number;
  plotType?: number;
  plotView?: string;
  plotWindow?: Array<Point2>;
  standardScale?: number;
  standardScaleFactor?: number;
  shadePlot?: number;
  shadeResolution?: number;
  shadeDpi?: number;
  paperImageOriginX?: number;
  paperImageOriginY?: number;
  layoutFlags?: number;
  insertionBase?: Point3;
  ucs?: Ucs;
  viewport?: LayoutViewport;
}

export interface Document {
  form: DocumentForm;
  dwgVersion: string;
  insunits: number;
  layers: Array<Layer>;
  assets: Array<Asset>;
  entities: Array<Entity>;
  layouts: Array<Layout>;
  warnings: Array<string>;
  timings: Timings;
  header: Variables;
  codePage: CodePage;
  linetypes: Array<Linetype>;
  textStyles: Array<TextStyle>;
  dimensionStyles: Array<DimensionStyle>;
  views: Array<View>;
  coordinateSystems: Array<CoordinateSystem>;
  groups: Array<Group>;
  properties: Properties;
  thumbnail?: Thumbnail;
}

/** The document of a line that the worker has printed. Throws when the worker has refused the
 * drawing, or when the line is none of its own. */
export function parseDocument(line: string): Document {
  const answer = JSON.parse(line) as Document | Refusal;
  if ("error" in answer) {
    throw new Error(answer.error);
  }
  if (!Array.isArray(answer.entities)) {
    throw new Error("this is no document of dwg_import_worker");
  }
  return answer;
}
