// Made by scripts/make_models.py from the schema, version 1.0.0. Do not edit.
// What dwg_import_worker prints. Objects may have further keys.

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
}

export interface LeaderText {
  html: Html;
  x: number;
  y: number;
  height: number;
  rotationRad: number;
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
}

export interface Point {
  type: "POINT";
  layer: string;
  x: number;
  y: number;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
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
}

export interface Polyline3d {
  type: "POLYLINE_3D";
  layer: string;
  closed: boolean;
  points: Array<Point3>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
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
}

export interface Hatch {
  type: "HATCH";
  layer: string;
  solid: boolean;
  loops: Array<Array<number>>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
}

export interface Solid {
  type: "SOLID";
  layer: string;
  pts: Array<Point2>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
}

export interface Wipeout {
  type: "WIPEOUT";
  layer: string;
  verts: Array<Point2>;
  color?: Color;
  lw?: Lineweight;
  _dbg?: Debug;
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
  | Multileader;

export interface Asset {
  name: string;
  baseX?: number;
  baseY?: number;
  entities: Array<Entity>;
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
}

export interface Document {
  dwgVersion: string;
  insunits: number;
  layers: Array<Layer>;
  assets: Array<Asset>;
  entities: Array<Entity>;
  layouts: Array<Layout>;
  warnings: Array<string>;
  timings: Timings;
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
