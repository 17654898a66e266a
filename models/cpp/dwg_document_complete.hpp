// clang-format off
// Made by scripts/make_models.py from the schema, version 2.0.0. Do not edit.
//
// What dwg_import_worker --complete prints, as structures. Keys that they do not name are passed over.
// What does not have the form of the schema raises std::runtime_error or one of nlohmann's
// exceptions, which derive from std::exception.
// NOLINTBEGIN(readability-identifier-naming)
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace dwg_document_complete {

using Json = nlohmann::json;

struct Entity;

// Opaque colour.
struct Rgb {
  std::int64_t r = 0;
  std::int64_t g = 0;
  std::int64_t b = 0;
};

struct Rgba {
  std::int64_t r = 0;
  std::int64_t g = 0;
  std::int64_t b = 0;
  std::optional<std::int64_t> a;  // Opacity; 255 is opaque
};

// Hundredths of a millimetre, or L.
using Lineweight = std::variant<std::string, std::int64_t>;

// Only with --verbose.
struct Debug {
  std::int64_t color_index = 0;
  std::int64_t color_alpha_type = 0;
  std::int64_t color_alpha = 0;
  std::int64_t color_alpha_raw = 0;
};

using Point2 = std::array<double, 2>;

using Point3 = std::array<double, 3>;

using Html = std::string;

struct Run {
  std::int64_t start = 0;
  std::int64_t length = 0;
  std::optional<std::int64_t> stretch;
  std::optional<std::int64_t> tracking;
  std::optional<bool> fixedPitch;
};

struct Block {
  std::int64_t index = 0;
  std::optional<std::string> alignment;
  std::optional<double> textIndent;
  std::optional<double> leftMargin;
  std::optional<double> rightMargin;
  std::optional<std::vector<double>> tabStops;
};

struct AssetXref {
  std::string path;
  bool overlay = false;
  bool found = false;
};

struct DocumentForm {
  std::string name;
  std::string version;
};

// Milliseconds since the start of the run.
struct Timings {
  std::int64_t dwgReadMs = 0;
  std::int64_t prepassMs = 0;
  std::int64_t layersMs = 0;
  std::int64_t assetsMs = 0;
  std::int64_t entitiesMs = 0;
  std::int64_t workerTotalMs = 0;
};

struct Refusal {
  std::string error;
};

// Hexadecimal digits, as drawings write them.
using Handle = std::string;

struct LinetypeDash {
  double length = 0;
  std::optional<std::string> text;
  std::optional<std::int64_t> shape;
  std::optional<std::string> textStyle;
  std::optional<double> scale;
  std::optional<double> rotationRad;
  std::optional<bool> absoluteRotation;
  std::optional<double> x;
  std::optional<double> y;
};

struct PropertiesCustom {
  std::string name;
  std::string value;
};

struct Thumbnail {
  std::string kind;
  std::string base64;
};

struct CodePage {
  std::string name;
  std::string by;
  std::optional<std::string> named;
};

struct AcadTableMerged {
  std::int64_t row = 0;
  std::int64_t column = 0;
  std::int64_t lastRow = 0;
  std::int64_t lastColumn = 0;
};

struct MlineCaps {
  bool line = false;
  bool innerArcs = false;
  bool outerArc = false;
  double angleRad = 0;
};

struct GraphicsItemPushMatrix {
  static constexpr std::string_view kType = "PUSH_MATRIX";
  std::vector<std::vector<double>> matrix;
};

struct GraphicsItemPopMatrix {
  static constexpr std::string_view kType = "POP_MATRIX";
};

struct GraphicsItemPopClip {
  static constexpr std::string_view kType = "POP_CLIP";
};

// L by layer, K by block, W white on dark and black on light backgrounds.
using Color = std::variant<std::string, Rgba>;

// As color, never inherited.
using StyleColor = std::variant<std::string, Rgba>;

struct Layer {
  std::string name;
  bool visible = false;
  bool locked = false;
  Rgb color;
  Lineweight lw;
  std::optional<std::int64_t> alpha;  // Opacity; 255 is opaque
  std::optional<Debug> dbg;
  bool frozen = false;
  bool plotted = false;
  std::string linetype;
  std::optional<Handle> handle;
  std::optional<std::string> description;
};

struct CircleWorld {
  Point3 xAxis;
  Point3 yAxis;
  Point3 center;
};

struct LwpolylineWorld {
  Point3 xAxis;
  Point3 yAxis;
  std::vector<Point3> points;
};

struct HatchPatternLine {
  double angle = 0;
  Point2 base;
  Point2 offset;
  std::vector<double> dashes;
};

struct HatchBoundaryEdgeLine {
  static constexpr std::string_view kType = "line";
  Point2 start;
  Point2 end;
};

struct HatchBoundaryEdgeArc {
  static constexpr std::string_view kType = "arc";
  Point2 center;
  double radius = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  bool ccw = false;
};

struct HatchBoundaryEdgeEllipse {
  static constexpr std::string_view kType = "ellipse";
  Point2 center;
  Point2 majorAxis;
  double axisRatio = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  bool ccw = false;
};

struct HatchBoundaryEdgeSpline {
  static constexpr std::string_view kType = "spline";
  std::int64_t degree = 0;
  bool periodic = false;
  std::vector<double> knots;
  std::vector<Point2> controlPoints;
  std::optional<std::vector<double>> weights;
  std::optional<std::vector<Point2>> fitPoints;
  std::optional<Point2> startTangent;
  std::optional<Point2> endTangent;
};

struct HatchWorld {
  Point3 xAxis;
  Point3 yAxis;
  std::vector<std::vector<double>> loops;
};

struct SolidWorld {
  Point3 xAxis;
  Point3 yAxis;
  std::vector<Point3> pts;
};

struct InsertAttribute {
  std::string tag;
  std::string text;
  std::optional<Handle> handle;
};

struct InsertClip {
  bool on = false;
  bool inverted = false;
  std::vector<Point2> boundary;
  std::vector<Point3> block;
  std::vector<Point3> world;
  std::optional<double> front;
  std::optional<double> back;
};

struct InsertWorld {
  Point3 xAxis;
  Point3 yAxis;
  Point3 position;
};

struct ImageClip {
  bool on = false;
  bool inverted = false;
  std::vector<Point2> pixels;
  std::vector<Point3> world;
};

struct PdfunderlayClip {
  bool on = false;
  bool inverted = false;
  std::vector<Point2> boundary;
  std::vector<Point3> world;
};

struct ViewportUcs {
  Point3 origin;
  Point3 xAxis;
  Point3 yAxis;
  double elevation = 0;
};

struct MtextColumns {
  std::string type;
  std::int64_t count = 0;
  double width = 0;
  double gutter = 0;
  bool autoHeight = false;
  bool reversed = false;
  std::optional<std::vector<double>> heights;
  std::optional<std::vector<Handle>> linked;
};

struct LeaderText {
  Html html;
  double x = 0;
  double y = 0;
  double height = 0;
  double rotationRad = 0;
};

struct MultileaderBlockAttribute {
  std::string text;
  std::optional<Handle> definition;
  double width = 0;
};

struct LayoutViewport {
  std::int64_t id = 0;
  std::optional<Handle> handle;
  double cx = 0;
  double cy = 0;
  double width = 0;
  double height = 0;
  double viewCtrX = 0;
  double viewCtrY = 0;
  double viewSize = 0;
};

struct MpolygonBoundaryEdgeLine {
  static constexpr std::string_view kType = "line";
  Point2 start;
  Point2 end;
};

struct MpolygonBoundaryEdgeArc {
  static constexpr std::string_view kType = "arc";
  Point2 center;
  double radius = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  bool ccw = false;
};

struct MpolygonBoundaryEdgeEllipse {
  static constexpr std::string_view kType = "ellipse";
  Point2 center;
  Point2 majorAxis;
  double axisRatio = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  bool ccw = false;
};

struct MpolygonBoundaryEdgeSpline {
  static constexpr std::string_view kType = "spline";
  std::int64_t degree = 0;
  bool periodic = false;
  std::vector<double> knots;
  std::vector<Point2> controlPoints;
  std::optional<std::vector<double>> weights;
  std::optional<std::vector<Point2>> fitPoints;
  std::optional<Point2> startTangent;
  std::optional<Point2> endTangent;
};

struct Ucs {
  Point3 origin;
  Point3 xAxis;
  Point3 yAxis;
  double elevation = 0;
};

// A number, a text or a name, a point, or a colour.
using VariableValue = std::variant<double, std::string, Point2, Point3, Rgb>;

struct Linetype {
  std::string name;
  std::optional<Handle> handle;
  std::string description;
  double length = 0;
  std::vector<LinetypeDash> dashes;
};

struct TextStyle {
  std::string name;
  std::optional<Handle> handle;
  std::string font;
  std::string bigFont;
  double height = 0;
  double lastHeight = 0;
  double widthFactor = 0;
  double obliqueRad = 0;
  bool mirroredX = false;
  bool mirroredY = false;
  bool vertical = false;
  bool shapes = false;
};

struct CoordinateSystem {
  std::string name;
  std::optional<Handle> handle;
  Point3 origin;
  Point3 xAxis;
  Point3 yAxis;
  double elevation = 0;
};

struct Group {
  std::string name;
  std::optional<Handle> handle;
  std::string description;
  bool selectable = false;
  bool unnamed = false;
  std::vector<Handle> members;
};

struct Properties {
  std::optional<std::string> title;
  std::optional<std::string> subject;
  std::optional<std::string> author;
  std::optional<std::string> keywords;
  std::optional<std::string> comments;
  std::optional<std::string> lastSavedBy;
  std::optional<std::string> revision;
  std::optional<std::string> hyperlinkBase;
  std::optional<std::string> created;
  std::optional<std::string> updated;
  std::optional<double> editingDays;
  std::optional<std::vector<PropertiesCustom>> custom;
};

struct GraphicsItemPushClip {
  static constexpr std::string_view kType = "PUSH_CLIP";
  Point3 normal;
  Point3 origin;
  std::vector<Point2> points;
  std::vector<std::vector<double>> clipMatrix;
  std::vector<std::vector<double>> inverseBlockMatrix;
};

struct WireTransform {
  Point3 x;
  Point3 y;
  Point3 z;
  Point3 translation;
  Point3 scale;
};

struct Line {
  static constexpr std::string_view kType = "LINE";
  std::string layer;
  double startX = 0;
  double startY = 0;
  double endX = 0;
  double endY = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> startZ;
  std::optional<double> endZ;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Point {
  static constexpr std::string_view kType = "POINT";
  std::string layer;
  double x = 0;
  double y = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> z;
  std::optional<double> angleRad;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Ray {
  static constexpr std::string_view kType = "RAY";
  std::string layer;
  double x = 0;
  double y = 0;
  double dx = 0;
  double dy = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> z;
  std::optional<double> dz;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Xline {
  static constexpr std::string_view kType = "XLINE";
  std::string layer;
  double x = 0;
  double y = 0;
  double dx = 0;
  double dy = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> z;
  std::optional<double> dz;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Circle {
  static constexpr std::string_view kType = "CIRCLE";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double radius = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<CircleWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Arc {
  static constexpr std::string_view kType = "ARC";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double radius = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<CircleWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Ellipse {
  static constexpr std::string_view kType = "ELLIPSE";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double smAxisX = 0;
  double smAxisY = 0;
  double semiMajor = 0;
  double axisRatio = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> cz;
  std::optional<double> smAxisZ;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Lwpolyline {
  static constexpr std::string_view kType = "LWPOLYLINE";
  std::string layer;
  bool closed = false;
  std::vector<Point2> points;
  std::vector<double> bulges;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> constWidth;
  std::optional<std::vector<Point2>> widths;
  std::optional<bool> linetypeGeneration;
  std::optional<std::vector<std::int64_t>> vertexIds;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<LwpolylineWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Polyline2d {
  static constexpr std::string_view kType = "POLYLINE_2D";
  std::string layer;
  bool closed = false;
  std::vector<Point2> points;
  std::vector<double> bulges;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> startWidth;
  std::optional<double> endWidth;
  std::optional<std::vector<Point2>> widths;
  std::optional<std::vector<std::int64_t>> vertexFlags;
  std::optional<std::vector<double>> tangents;
  std::optional<bool> curveFit;
  std::optional<bool> splineFit;
  std::optional<bool> linetypeGeneration;
  std::optional<std::int64_t> curveType;
  std::optional<std::vector<Point2>> frame;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<LwpolylineWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Polyline3d {
  static constexpr std::string_view kType = "POLYLINE_3D";
  std::string layer;
  bool closed = false;
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<bool> splineFit;
  std::optional<std::int64_t> curveType;
  std::optional<std::vector<Point3>> frame;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Spline {
  static constexpr std::string_view kType = "SPLINE";
  std::string layer;
  bool closed = false;
  std::vector<Point2> fit_pts;
  std::optional<Point2> beg_tan;
  std::optional<Point2> end_tan;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::int64_t> degree;
  std::optional<bool> periodic;
  std::optional<std::vector<double>> knots;
  std::optional<std::vector<double>> weights;
  std::optional<std::vector<Point3>> controlPoints;
  std::optional<std::vector<Point3>> fitPoints;
  std::optional<Point3> startTangent;
  std::optional<Point3> endTangent;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct HatchPattern {
  std::string name;
  std::int64_t type = 0;
  std::optional<double> angle;
  std::optional<double> scale;
  std::optional<bool> double_;
  std::optional<std::vector<HatchPatternLine>> lines;
};

struct HatchGradientColor {
  double at = 0;
  Color color;
};

struct HatchBoundary {
  std::int64_t flags = 0;
  std::optional<bool> closed;
  std::optional<std::vector<Point2>> points;
  std::optional<std::vector<double>> bulges;
  std::optional<std::vector<std::variant<HatchBoundaryEdgeLine, HatchBoundaryEdgeArc, HatchBoundaryEdgeEllipse, HatchBoundaryEdgeSpline>>> edges;
  std::optional<std::vector<Handle>> sources;
};

struct Solid {
  static constexpr std::string_view kType = "SOLID";
  std::string layer;
  std::vector<Point2> pts;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<SolidWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Wipeout {
  static constexpr std::string_view kType = "WIPEOUT";
  std::string layer;
  std::vector<Point2> verts;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<bool> inverted;
  std::optional<std::vector<Point3>> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Insert {
  static constexpr std::string_view kType = "INSERT";
  std::string layer;
  std::string blockName;
  double x = 0;
  double y = 0;
  double rotationRad = 0;
  double scaleX = 0;
  double scaleY = 0;
  double scaleZ = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> z;
  std::optional<Point3> extrusion;
  std::optional<std::string> dynamicBlock;
  std::optional<std::vector<InsertAttribute>> attributes;
  std::optional<InsertClip> clip;
  std::optional<InsertWorld> world;
  std::optional<std::int64_t> columns;
  std::optional<std::int64_t> rows;
  std::optional<double> columnSpacing;
  std::optional<double> rowSpacing;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Image {
  static constexpr std::string_view kType = "IMAGE";
  std::string layer;
  std::string path;
  double px0 = 0;
  double py0 = 0;
  double ux = 0;
  double uy = 0;
  double vx = 0;
  double vy = 0;
  double sw = 0;
  double sh = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<double> pz0;
  std::optional<double> uz;
  std::optional<double> vz;
  std::optional<bool> shown;
  std::optional<std::int64_t> brightness;
  std::optional<std::int64_t> contrast;
  std::optional<std::int64_t> fade;
  std::optional<bool> transparent;
  std::optional<ImageClip> clip;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Pdfunderlay {
  static constexpr std::string_view kType = "PDFUNDERLAY";
  std::string layer;
  std::string path;
  std::int64_t page = 0;
  double ix = 0;
  double iy = 0;
  double sx = 0;
  double sy = 0;
  double angle = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<bool> found;
  std::optional<double> iz;
  std::optional<double> sz;
  std::optional<bool> shown;
  std::optional<bool> monochrome;
  std::optional<bool> adjusted;
  std::optional<std::int64_t> contrast;
  std::optional<std::int64_t> fade;
  std::optional<PdfunderlayClip> clip;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Viewport {
  static constexpr std::string_view kType = "VIEWPORT";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double width = 0;
  double height = 0;
  double viewCtrX = 0;
  double viewCtrY = 0;
  double viewSize = 0;
  double targetX = 0;
  double targetY = 0;
  double targetZ = 0;
  double dirX = 0;
  double dirY = 0;
  double dirZ = 0;
  double twist = 0;
  std::int64_t status = 0;
  std::vector<std::string> frozenLayers;
  std::shared_ptr<const Entity> clip;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::int64_t> id;
  std::optional<double> cz;
  std::optional<bool> on;
  std::optional<double> scale;
  std::optional<double> lens;
  std::optional<bool> perspective;
  std::optional<bool> locked;
  std::optional<bool> clipped;
  std::optional<double> frontZ;
  std::optional<double> backZ;
  std::optional<std::int64_t> renderMode;
  std::optional<std::int64_t> shadePlot;
  std::optional<ViewportUcs> ucs;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Text {
  static constexpr std::string_view kType = "TEXT";
  std::string layer;
  double x = 0;
  double y = 0;
  Html html;
  double height = 0;
  double rotationRad = 0;
  std::optional<std::int64_t> halign;
  std::optional<std::int64_t> valign;
  std::optional<double> ax;
  std::optional<double> ay;
  std::optional<std::string> fontFamily;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::string> textStyle;
  std::optional<double> widthFactor;
  std::optional<double> obliqueRad;
  std::optional<bool> mirroredX;
  std::optional<bool> mirroredY;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Dyntext {
  static constexpr std::string_view kType = "DYNTEXT";
  std::string layer;
  std::string kind;
  double x = 0;
  double y = 0;
  Html html;
  double height = 0;
  double rotationRad = 0;
  std::optional<std::string> fontFamily;
  std::string tag;
  std::optional<std::string> prompt;
  std::optional<std::string> defaultValue;
  std::int64_t flags = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::string> textStyle;
  std::optional<double> widthFactor;
  std::optional<double> obliqueRad;
  std::optional<bool> mirroredX;
  std::optional<bool> mirroredY;
  std::optional<std::int64_t> halign;
  std::optional<std::int64_t> valign;
  std::optional<double> ax;
  std::optional<double> ay;
  std::optional<std::int64_t> fieldLength;
  std::optional<bool> lockedPosition;
  std::optional<bool> multiline;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct MtextBackground {
  std::string fill;
  std::optional<Color> color;
  double scale = 0;
  bool frame = false;
};

struct DimensionLinear {
  static constexpr std::string_view kType = "DIMENSION_LINEAR";
  std::string layer;
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double defX = 0;
  double defY = 0;
  double dimRotationRad = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  Point3 definitionPoint;
  Point3 extensionPoint1;
  Point3 extensionPoint2;
  std::optional<double> obliqueRad;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct DimensionAligned {
  static constexpr std::string_view kType = "DIMENSION_ALIGNED";
  std::string layer;
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double defX = 0;
  double defY = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  Point3 definitionPoint;
  Point3 extensionPoint1;
  Point3 extensionPoint2;
  std::optional<double> obliqueRad;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct DimensionRadius {
  static constexpr std::string_view kType = "DIMENSION_RADIUS";
  std::string layer;
  double defX = 0;
  double defY = 0;
  double arcX = 0;
  double arcY = 0;
  double leaderLen = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  Point3 center;
  Point3 curvePoint;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Leader {
  static constexpr std::string_view kType = "LEADER";
  std::string layer;
  std::vector<Point2> points;
  bool arrowOn = false;
  double arrowSize = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::vector<double>> z;
  std::optional<std::string> dimStyle;
  std::optional<bool> spline;
  std::optional<std::int64_t> annotationType;
  std::optional<Handle> annotation;
  std::optional<bool> hookLine;
  std::optional<double> textHeight;
  std::optional<double> textWidth;
  std::optional<Point3> xDirection;
  std::optional<std::string> arrowBlock;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct MultileaderLeaderLine {
  std::int64_t index = 0;
  std::vector<Point3> points;
  std::optional<std::vector<std::vector<Point3>>> breaks;
  std::optional<std::int64_t> leaderType;
  std::optional<Color> color;
  std::optional<std::string> linetype;
  std::optional<Lineweight> lw;
  std::optional<double> arrowSize;
  std::optional<std::string> arrowBlock;
};

struct MultileaderTextContentBackground {
  Color color;
  bool ofDrawing = false;
  double scale = 0;
};

struct MultileaderBlock {
  Point3 position;
  std::optional<std::string> blockName;
  Point3 scale;
  double rotationRad = 0;
  Point3 normal;
  Color color;
  std::vector<MultileaderBlockAttribute> attributes;
};

struct Face3d {
  static constexpr std::string_view kType = "3DFACE";
  std::vector<Point3> points;
  std::vector<bool> edges;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Trace {
  static constexpr std::string_view kType = "TRACE";
  std::vector<Point2> points;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::optional<LwpolylineWorld> world;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct MpolygonBoundary {
  std::int64_t flags = 0;
  std::optional<bool> closed;
  std::optional<std::vector<Point2>> points;
  std::optional<std::vector<double>> bulges;
  std::optional<std::vector<std::variant<MpolygonBoundaryEdgeLine, MpolygonBoundaryEdgeArc, MpolygonBoundaryEdgeEllipse, MpolygonBoundaryEdgeSpline>>> edges;
  std::optional<std::vector<Handle>> sources;
};

using Variables = std::map<std::string, VariableValue>;

struct View {
  std::string name;
  std::optional<Handle> handle;
  double height = 0;
  double width = 0;
  double centerX = 0;
  double centerY = 0;
  Point3 target;
  Point3 direction;
  double twistRad = 0;
  double lensLength = 0;
  double frontClip = 0;
  double backClip = 0;
  std::int64_t mode = 0;
  bool paperSpace = false;
  std::optional<Ucs> ucs;
};

struct DimensionDiameter {
  static constexpr std::string_view kType = "DIMENSION_DIAMETER";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  Point3 curvePoint;
  Point3 farCurvePoint;
  double leaderLen = 0;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct DimensionAng2ln {
  static constexpr std::string_view kType = "DIMENSION_ANG2LN";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::vector<Point3> line1;
  std::vector<Point3> line2;
  Point3 arcPoint;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct DimensionAng3pt {
  static constexpr std::string_view kType = "DIMENSION_ANG3PT";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  Point3 center;
  Point3 extensionPoint1;
  Point3 extensionPoint2;
  Point3 arcPoint;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct DimensionOrdinate {
  static constexpr std::string_view kType = "DIMENSION_ORDINATE";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  Point3 origin;
  Point3 featurePoint;
  Point3 leaderEnd;
  std::string axis;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct ArcDimension {
  static constexpr std::string_view kType = "ARC_DIMENSION";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  Point3 center;
  Point3 extensionPoint1;
  Point3 extensionPoint2;
  Point3 arcPoint;
  bool isPartial = false;
  double startAngleRad = 0;
  double endAngleRad = 0;
  std::int64_t arcSymbol = 0;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<std::vector<Point3>> leader;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct LargeRadialDimension {
  static constexpr std::string_view kType = "LARGE_RADIAL_DIMENSION";
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  Point3 center;
  Point3 curvePoint;
  Point3 overrideCenter;
  Point3 jogPoint;
  double jogAngleRad = 0;
  double measured = 0;
  std::string measuredText;
  std::string text;
  std::string html;
  std::int64_t attachment = 0;
  double textRotationRad = 0;
  bool textIsPlacedByUser = false;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<double> horizontalDirectionRad;
  std::optional<bool> flipArrow1;
  std::optional<bool> flipArrow2;
  std::optional<std::string> dimensionStyle;
  std::optional<std::map<std::string, std::variant<double, std::string>>> styleOverrides;
  std::optional<std::string> blockName;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct TableCell {
  std::int64_t row = 0;
  std::int64_t column = 0;
  std::optional<std::string> text;
  std::optional<std::string> blockName;
  std::optional<double> blockScale;
  std::optional<double> rotationRad;
  std::optional<std::int64_t> alignment;
  std::optional<double> textHeight;
  std::optional<Color> background;
  std::optional<Color> textColor;
  std::optional<std::string> textStyle;
};

struct MlineElement {
  double offset = 0;
  Color color;
  std::string linetype;
  std::vector<std::vector<Point3>> lines;
};

struct Tolerance {
  static constexpr std::string_view kType = "TOLERANCE";
  double x = 0;
  double y = 0;
  double rotationRad = 0;
  double height = 0;
  std::string rawText;
  std::vector<std::vector<std::string>> rows;
  Point3 position;
  Point3 xDirection;
  std::optional<std::string> dimensionStyle;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Shape {
  static constexpr std::string_view kType = "SHAPE";
  double x = 0;
  double y = 0;
  double size = 0;
  double rotationRad = 0;
  double widthFactor = 0;
  double obliqueRad = 0;
  std::optional<std::int64_t> shapeNumber;
  std::optional<std::string> shapeFile;
  std::optional<double> elevation;
  std::optional<double> thickness;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct PolylineMesh {
  static constexpr std::string_view kType = "POLYLINE_MESH";
  std::int64_t m = 0;
  std::int64_t n = 0;
  bool closedM = false;
  bool closedN = false;
  std::vector<Point3> points;
  std::optional<std::int64_t> curveType;
  std::optional<std::int64_t> controlM;
  std::optional<std::int64_t> controlN;
  std::optional<std::vector<Point3>> controlPoints;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct PolylinePfaceFace {
  std::vector<std::int64_t> vertices;
  std::vector<bool> edges;
  Color color;
  std::optional<std::string> layer;
};

struct Mesh {
  static constexpr std::string_view kType = "MESH";
  std::vector<Point3> points;
  std::vector<std::vector<std::int64_t>> faces;
  std::vector<std::vector<std::int64_t>> edges;
  std::vector<double> creases;
  std::int64_t subdivisionLevel = 0;
  bool blendsCreases = false;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct GraphicsItemCircle {
  static constexpr std::string_view kType = "CIRCLE";
  Point3 center;
  double radius = 0;
  Point3 normal;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemCircle3p {
  static constexpr std::string_view kType = "CIRCLE_3P";
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemArc3p {
  static constexpr std::string_view kType = "ARC_3P";
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemArc {
  static constexpr std::string_view kType = "ARC";
  Point3 center;
  double radius = 0;
  Point3 normal;
  Point3 startDirection;
  double sweepRad = 0;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemEllipse {
  static constexpr std::string_view kType = "ELLIPSE";
  Point3 center;
  Point3 normal;
  double majorRadius = 0;
  double minorRadius = 0;
  double startParam = 0;
  double endParam = 0;
  double rotationRad = 0;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemPolyline {
  static constexpr std::string_view kType = "POLYLINE";
  std::vector<Point3> points;
  std::optional<Point3> normal;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemPolygon {
  static constexpr std::string_view kType = "POLYGON";
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemLwpolyline {
  static constexpr std::string_view kType = "LWPOLYLINE";
  bool closed = false;
  std::vector<Point2> points;
  std::vector<double> bulges;
  std::vector<Point2> widths;
  double constantWidth = 0;
  double elevation = 0;
  Point3 normal;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemMesh {
  static constexpr std::string_view kType = "MESH";
  std::int64_t rows = 0;
  std::int64_t columns = 0;
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemShell {
  static constexpr std::string_view kType = "SHELL";
  std::vector<Point3> points;
  std::vector<std::vector<std::int64_t>> faces;
  std::optional<std::vector<std::int64_t>> holes;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemText {
  static constexpr std::string_view kType = "TEXT";
  Point3 position;
  Point3 normal;
  Point3 direction;
  std::string text;
  double height = 0;
  double widthFactor = 0;
  double obliqueRad = 0;
  std::optional<double> tracking;
  std::optional<bool> isRaw;
  std::optional<bool> isBackward;
  std::optional<bool> isUpsideDown;
  std::optional<bool> isVertical;
  std::optional<bool> isUnderlined;
  std::optional<bool> isOverlined;
  std::optional<bool> isBold;
  std::optional<bool> isItalic;
  std::optional<std::string> typeface;
  std::optional<std::string> fontFile;
  std::optional<std::string> bigFontFile;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemXline {
  static constexpr std::string_view kType = "XLINE";
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct GraphicsItemRay {
  static constexpr std::string_view kType = "RAY";
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<std::string> layer;
  std::optional<std::string> linetype;
  std::optional<double> linetypeScale;
  std::optional<std::int64_t> lw;
  std::optional<double> thickness;
  std::optional<bool> filled;
};

struct Wire {
  std::vector<Point3> points;
  std::optional<WireTransform> transform;
};

struct Dwfunderlay {
  static constexpr std::string_view kType = "DWFUNDERLAY";
  std::string path;
  std::int64_t page = 0;
  double ix = 0;
  double iy = 0;
  double sx = 0;
  double sy = 0;
  double angle = 0;
  std::string sheet;
  bool found = false;
  bool shown = false;
  std::int64_t contrast = 0;
  std::int64_t fade = 0;
  bool isMonochrome = false;
  bool isAdjustedToBackground = false;
  std::optional<std::vector<Point2>> clip;
  std::optional<std::vector<Point2>> clipHole;
  std::optional<bool> isClipInverted;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Dgnunderlay {
  static constexpr std::string_view kType = "DGNUNDERLAY";
  std::string path;
  std::int64_t page = 0;
  double ix = 0;
  double iy = 0;
  double sx = 0;
  double sy = 0;
  double angle = 0;
  std::string sheet;
  bool found = false;
  bool shown = false;
  std::int64_t contrast = 0;
  std::int64_t fade = 0;
  bool isMonochrome = false;
  bool isAdjustedToBackground = false;
  std::optional<std::vector<Point2>> clip;
  std::optional<std::vector<Point2>> clipHole;
  std::optional<bool> isClipInverted;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Ole2frame {
  static constexpr std::string_view kType = "OLE2FRAME";
  std::string kind;
  std::vector<Point3> corners;
  std::optional<std::string> pictureKind;
  std::optional<std::string> picture;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Oleframe {
  static constexpr std::string_view kType = "OLEFRAME";
  std::optional<std::string> pictureKind;
  std::optional<std::string> picture;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Light {
  static constexpr std::string_view kType = "LIGHT";
  std::string name;
  std::string kind;
  bool on = false;
  Point3 position;
  Point3 target;
  double intensity = 0;
  Color lightColor;
  double hotspotRad = 0;
  double falloffRad = 0;
  bool plotsGlyph = false;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Sectionobject {
  static constexpr std::string_view kType = "SECTIONOBJECT";
  std::string name;
  std::vector<Point3> points;
  std::vector<Point3> backPoints;
  std::int64_t state = 0;
  Point3 verticalDirection;
  double topHeight = 0;
  double bottomHeight = 0;
  Color indicatorColor;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Pointcloud {
  static constexpr std::string_view kType = "POINTCLOUD";
  std::string path;
  Point3 origin;
  Point3 min;
  Point3 max;
  Point3 ucsOrigin;
  Point3 ucsX;
  Point3 ucsY;
  Point3 ucsZ;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Pointcloudex {
  static constexpr std::string_view kType = "POINTCLOUDEX";
  std::string name;
  Point3 min;
  Point3 max;
  Point3 ucsOrigin;
  Point3 ucsX;
  Point3 ucsY;
  Point3 ucsZ;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Geopositionmarker {
  static constexpr std::string_view kType = "GEOPOSITIONMARKER";
  Point3 position;
  double radius = 0;
  std::string notes;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Line3d {
  static constexpr std::string_view kType = "3DLINE";
  double startX = 0;
  double startY = 0;
  double startZ = 0;
  double endX = 0;
  double endY = 0;
  double endZ = 0;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Repeat {
  static constexpr std::string_view kType = "REPEAT";
  bool begins = false;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Endrep {
  static constexpr std::string_view kType = "ENDREP";
  std::int64_t columns = 0;
  std::int64_t rows = 0;
  double columnSpacing = 0;
  double rowSpacing = 0;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct HatchGradient {
  std::string name;
  double angle = 0;
  double shift = 0;
  bool oneColor = false;
  double tint = 0;
  std::vector<HatchGradientColor> colors;
};

struct Mtext {
  static constexpr std::string_view kType = "MTEXT";
  std::string layer;
  double x = 0;
  double y = 0;
  Html html;
  std::string rawMtext;
  double width = 0;
  double height = 0;
  double rotationRad = 0;
  std::int64_t attachment = 0;
  std::optional<std::vector<Run>> runs;
  std::optional<std::vector<Block>> blocks;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::string> textStyle;
  std::optional<std::int64_t> lineSpacingStyle;
  std::optional<double> lineSpacingFactor;
  std::optional<std::int64_t> flowDirection;
  std::optional<double> extentsWidth;
  std::optional<double> extentsHeight;
  std::optional<double> frameHeight;
  std::optional<MtextBackground> background;
  std::optional<MtextColumns> columns;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct MultileaderLeader {
  std::int64_t index = 0;
  std::optional<Point3> landing;
  std::optional<Point3> doglegDirection;
  std::optional<double> doglegLength;
  std::optional<std::vector<std::vector<Point3>>> breaks;
  std::vector<MultileaderLeaderLine> lines;
};

struct MultileaderTextContent {
  Point3 position;
  Point3 direction;
  Point3 normal;
  std::optional<std::string> textStyle;
  Color color;
  double width = 0;
  std::int64_t attachment = 0;
  std::int64_t flow = 0;
  double lineSpacing = 0;
  std::int64_t lineSpacingStyle = 0;
  std::optional<MultileaderTextContentBackground> background;
};

struct DimensionStyle {
  std::string name;
  std::optional<Handle> handle;
  Variables variables;
};

struct AcadTable {
  static constexpr std::string_view kType = "ACAD_TABLE";
  double x = 0;
  double y = 0;
  double rotationRad = 0;
  std::vector<double> columnWidths;
  std::vector<double> rowHeights;
  std::vector<TableCell> cells;
  std::vector<AcadTableMerged> merged;
  Point3 position;
  Point3 horizontalDirection;
  std::optional<std::string> blockName;
  std::optional<std::string> tableStyle;
  std::optional<Point3> extrusion;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Mline {
  static constexpr std::string_view kType = "MLINE";
  bool closed = false;
  std::vector<Point3> points;
  std::vector<Point3> directions;
  std::vector<Point3> miters;
  double scale = 0;
  std::int64_t justification = 0;
  Point3 base;
  std::vector<MlineElement> elements;
  std::optional<std::string> style;
  std::optional<Color> fillColor;
  std::optional<bool> showsMiters;
  std::optional<MlineCaps> startCaps;
  std::optional<MlineCaps> endCaps;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct PolylinePface {
  static constexpr std::string_view kType = "POLYLINE_PFACE";
  std::vector<Point3> points;
  std::vector<PolylinePfaceFace> faces;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

using GraphicsItem = std::variant<GraphicsItemCircle, GraphicsItemCircle3p, GraphicsItemArc3p, GraphicsItemArc, GraphicsItemEllipse, GraphicsItemPolyline, GraphicsItemPolygon, GraphicsItemLwpolyline, GraphicsItemMesh, GraphicsItemShell, GraphicsItemText, GraphicsItemXline, GraphicsItemRay, GraphicsItemPushMatrix, GraphicsItemPopMatrix, GraphicsItemPushClip, GraphicsItemPopClip>;

struct Silhouette {
  std::int64_t viewport = 0;
  Point3 target;
  Point3 direction;
  Point3 up;
  bool isPerspective = false;
  std::vector<Wire> wires;
};

struct Hatch {
  static constexpr std::string_view kType = "HATCH";
  std::string layer;
  bool solid = false;
  std::vector<std::vector<double>> loops;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<HatchPattern> pattern;
  std::optional<HatchGradient> gradient;
  std::optional<Color> background;
  std::optional<std::int64_t> islandStyle;
  std::optional<bool> associative;
  std::optional<std::vector<HatchBoundary>> boundary;
  std::optional<std::vector<Point2>> seeds;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<HatchWorld> world;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Multileader {
  static constexpr std::string_view kType = "MULTILEADER";
  std::string layer;
  std::vector<std::vector<double>> lines;
  double arrowSize = 0;
  std::optional<LeaderText> text;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<std::int64_t> leaderType;
  std::optional<Color> leaderColor;
  std::optional<std::string> leaderLinetype;
  std::optional<Lineweight> leaderLw;
  std::optional<std::string> arrowBlock;
  std::optional<bool> hasLanding;
  std::optional<bool> hasDogleg;
  std::optional<double> landingGap;
  std::optional<double> scale;
  std::optional<std::int64_t> contentType;
  std::optional<bool> textFrame;
  std::optional<std::int64_t> attachmentLeft;
  std::optional<std::int64_t> attachmentRight;
  std::optional<std::int64_t> textAlignment;
  std::optional<std::vector<MultileaderLeader>> leaders;
  std::optional<MultileaderTextContent> textContent;
  std::optional<MultileaderBlock> block;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Mpolygon {
  static constexpr std::string_view kType = "MPOLYGON";
  std::string layer;
  bool solid = false;
  std::vector<std::vector<double>> loops;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<HatchPattern> pattern;
  std::optional<HatchGradient> gradient;
  std::optional<Color> background;
  std::optional<std::int64_t> islandStyle;
  std::optional<bool> associative;
  std::optional<std::vector<MpolygonBoundary>> boundary;
  std::optional<std::vector<Point2>> seeds;
  std::optional<double> elevation;
  std::optional<Point3> extrusion;
  std::optional<HatchWorld> world;
  std::optional<Color> fillColor;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Helix {
  static constexpr std::string_view kType = "HELIX";
  std::optional<Point3> axisBase;
  std::optional<Point3> axisVector;
  std::optional<Point3> startPoint;
  std::optional<double> radius;
  std::optional<double> turns;
  std::optional<double> turnHeight;
  std::optional<bool> isCounterClockwise;
  std::optional<bool> closed;
  std::optional<std::vector<Point2>> fit_pts;
  std::optional<std::vector<GraphicsItem>> graphics;
  std::optional<std::int64_t> degree;
  std::optional<bool> periodic;
  std::optional<std::vector<double>> knots;
  std::optional<std::vector<double>> weights;
  std::optional<std::vector<Point3>> controlPoints;
  std::optional<std::vector<Point3>> fitPoints;
  std::optional<Point3> startTangent;
  std::optional<Point3> endTangent;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct ProxyEntity {
  static constexpr std::string_view kType = "PROXY_ENTITY";
  std::vector<GraphicsItem> graphics;
  std::optional<std::string> className;
  std::optional<std::string> cppName;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct UnknownEnt {
  static constexpr std::string_view kType = "UNKNOWN_ENT";
  std::vector<GraphicsItem> graphics;
  std::optional<std::string> className;
  std::optional<std::string> cppName;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Solid3d {
  static constexpr std::string_view kType = "3DSOLID";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Region {
  static constexpr std::string_view kType = "REGION";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Body {
  static constexpr std::string_view kType = "BODY";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Planesurface {
  static constexpr std::string_view kType = "PLANESURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Extrudedsurface {
  static constexpr std::string_view kType = "EXTRUDEDSURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Loftedsurface {
  static constexpr std::string_view kType = "LOFTEDSURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Revolvedsurface {
  static constexpr std::string_view kType = "REVOLVEDSURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Sweptsurface {
  static constexpr std::string_view kType = "SWEPTSURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

struct Nurbsurface {
  static constexpr std::string_view kType = "NURBSURFACE";
  bool hasModelerData = false;
  std::int64_t modelerVersion = 0;
  std::optional<std::vector<Wire>> wires;
  std::optional<std::vector<Silhouette>> silhouettes;
  std::optional<std::string> reason;
  std::string layer;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
  std::optional<Handle> handle;
  std::optional<Handle> owner;
  std::optional<std::string> linetype;  // L by layer, K by block, else a line type's name
  std::optional<double> linetypeScale;
  std::optional<bool> invisible;
  std::optional<std::int64_t> drawOrder;
};

// Any entity; its type tells which.
struct Entity {
  std::variant<Line, Point, Ray, Xline, Circle, Arc, Ellipse, Lwpolyline, Polyline2d, Polyline3d, Spline, Hatch, Solid, Wipeout, Insert, Image, Pdfunderlay, Viewport, Text, Dyntext, Mtext, DimensionLinear, DimensionAligned, DimensionRadius, Leader, Multileader, Face3d, Trace, Mpolygon, DimensionDiameter, DimensionAng2ln, DimensionAng3pt, DimensionOrdinate, ArcDimension, LargeRadialDimension, AcadTable, Mline, Tolerance, Shape, PolylineMesh, PolylinePface, Mesh, Helix, ProxyEntity, UnknownEnt, Solid3d, Region, Body, Planesurface, Extrudedsurface, Loftedsurface, Revolvedsurface, Sweptsurface, Nurbsurface, Dwfunderlay, Dgnunderlay, Ole2frame, Oleframe, Light, Sectionobject, Pointcloud, Pointcloudex, Geopositionmarker, Line3d, Repeat, Endrep> value;
};

struct Asset {
  std::string name;
  std::optional<double> baseX;
  std::optional<double> baseY;
  std::vector<Entity> entities;
  std::optional<Handle> handle;
  std::int64_t units = 0;
  std::optional<double> baseZ;
  std::optional<bool> anonymous;
  std::optional<bool> hasAttributes;
  bool explodable = false;
  std::optional<bool> scaledUniformly;
  std::optional<std::string> description;
  std::optional<AssetXref> xref;
};

struct Layout {
  std::string name;
  std::optional<std::int64_t> tabOrder;
  std::optional<double> paperW;
  std::optional<double> paperH;
  std::optional<double> marginL;
  std::optional<double> marginB;
  std::optional<double> marginR;
  std::optional<double> marginT;
  std::optional<double> plotOriginX;
  std::optional<double> plotOriginY;
  std::optional<std::int64_t> paperUnit;
  std::optional<std::int64_t> rotation;
  std::optional<double> scaleNum;
  std::optional<double> scaleDen;
  std::optional<double> limMinX;
  std::optional<double> limMinY;
  std::optional<double> limMaxX;
  std::optional<double> limMaxY;
  std::optional<double> extMinX;
  std::optional<double> extMinY;
  std::optional<double> extMaxX;
  std::optional<double> extMaxY;
  std::vector<Entity> entities;
  std::optional<Handle> block;
  bool active = false;
  std::optional<std::string> pageSetup;
  std::optional<std::string> plotDevice;
  std::optional<std::string> paperSize;
  std::optional<std::string> plotStyleSheet;
  std::optional<std::int64_t> plotFlags;
  std::optional<std::int64_t> plotType;
  std::optional<std::string> plotView;
  std::optional<std::vector<Point2>> plotWindow;
  std::optional<std::int64_t> standardScale;
  std::optional<double> standardScaleFactor;
  std::optional<std::int64_t> shadePlot;
  std::optional<std::int64_t> shadeResolution;
  std::optional<std::int64_t> shadeDpi;
  std::optional<double> paperImageOriginX;
  std::optional<double> paperImageOriginY;
  std::optional<std::int64_t> layoutFlags;
  std::optional<Point3> insertionBase;
  std::optional<Ucs> ucs;
  std::optional<LayoutViewport> viewport;
};

struct Document {
  DocumentForm form;
  std::string dwgVersion;
  std::int64_t insunits = 0;
  std::vector<Layer> layers;
  std::vector<Asset> assets;
  std::vector<Entity> entities;
  std::vector<Layout> layouts;
  std::vector<std::string> warnings;
  Timings timings;
  Variables header;
  CodePage codePage;
  std::vector<Linetype> linetypes;
  std::vector<TextStyle> textStyles;
  std::vector<DimensionStyle> dimensionStyles;
  std::vector<View> views;
  std::vector<CoordinateSystem> coordinateSystems;
  std::vector<Group> groups;
  Properties properties;
  std::optional<Thumbnail> thumbnail;
};

inline void Read(const Json& json, double& to) {
  to = json.get<double>();
}
inline void Read(const Json& json, std::int64_t& to) {
  to = json.get<std::int64_t>();
}
inline void Read(const Json& json, bool& to) {
  to = json.get<bool>();
}
inline void Read(const Json& json, std::string& to) {
  to = json.get<std::string>();
}
template <std::size_t kCount>
void Read(const Json& json, std::array<double, kCount>& to) {
  json.get_to(to);
}
template <typename Item>
void Read(const Json& json, std::vector<Item>& to);
template <typename Item>
void Read(const Json& json, std::map<std::string, Item>& to);
template <typename... Choices>
void Read(const Json& json, std::variant<Choices...>& to);
void Read(const Json& json, Entity& to);
void Read(const Json& json, std::shared_ptr<const Entity>& to);

template <typename Value>
void ReadIfThere(const Json& json, const char* key, std::optional<Value>& to) {
  if (const auto found = json.find(key); found != json.end()) {
    Read(*found, to.emplace());
  }
}
inline void ReadIfThere(const Json& json, const char* key, std::shared_ptr<const Entity>& to) {
  if (const auto found = json.find(key); found != json.end()) {
    Read(*found, to);
  }
}

inline void Read(const Json& json, Rgb& to) {
  Read(json.at("r"), to.r);
  Read(json.at("g"), to.g);
  Read(json.at("b"), to.b);
}

inline void Read(const Json& json, Rgba& to) {
  Read(json.at("r"), to.r);
  Read(json.at("g"), to.g);
  Read(json.at("b"), to.b);
  ReadIfThere(json, "a", to.a);
}

inline void Read(const Json& json, Debug& to) {
  Read(json.at("color_index"), to.color_index);
  Read(json.at("color_alpha_type"), to.color_alpha_type);
  Read(json.at("color_alpha"), to.color_alpha);
  Read(json.at("color_alpha_raw"), to.color_alpha_raw);
}

inline void Read(const Json& json, Run& to) {
  Read(json.at("start"), to.start);
  Read(json.at("length"), to.length);
  ReadIfThere(json, "stretch", to.stretch);
  ReadIfThere(json, "tracking", to.tracking);
  ReadIfThere(json, "fixedPitch", to.fixedPitch);
}

inline void Read(const Json& json, Block& to) {
  Read(json.at("index"), to.index);
  ReadIfThere(json, "alignment", to.alignment);
  ReadIfThere(json, "textIndent", to.textIndent);
  ReadIfThere(json, "leftMargin", to.leftMargin);
  ReadIfThere(json, "rightMargin", to.rightMargin);
  ReadIfThere(json, "tabStops", to.tabStops);
}

inline void Read(const Json& json, AssetXref& to) {
  Read(json.at("path"), to.path);
  Read(json.at("overlay"), to.overlay);
  Read(json.at("found"), to.found);
}

inline void Read(const Json& json, DocumentForm& to) {
  Read(json.at("name"), to.name);
  Read(json.at("version"), to.version);
}

inline void Read(const Json& json, Timings& to) {
  Read(json.at("dwgReadMs"), to.dwgReadMs);
  Read(json.at("prepassMs"), to.prepassMs);
  Read(json.at("layersMs"), to.layersMs);
  Read(json.at("assetsMs"), to.assetsMs);
  Read(json.at("entitiesMs"), to.entitiesMs);
  Read(json.at("workerTotalMs"), to.workerTotalMs);
}

inline void Read(const Json& json, LinetypeDash& to) {
  Read(json.at("length"), to.length);
  ReadIfThere(json, "text", to.text);
  ReadIfThere(json, "shape", to.shape);
  ReadIfThere(json, "textStyle", to.textStyle);
  ReadIfThere(json, "scale", to.scale);
  ReadIfThere(json, "rotationRad", to.rotationRad);
  ReadIfThere(json, "absoluteRotation", to.absoluteRotation);
  ReadIfThere(json, "x", to.x);
  ReadIfThere(json, "y", to.y);
}

inline void Read(const Json& json, PropertiesCustom& to) {
  Read(json.at("name"), to.name);
  Read(json.at("value"), to.value);
}

inline void Read(const Json& json, Thumbnail& to) {
  Read(json.at("kind"), to.kind);
  Read(json.at("base64"), to.base64);
}

inline void Read(const Json& json, CodePage& to) {
  Read(json.at("name"), to.name);
  Read(json.at("by"), to.by);
  ReadIfThere(json, "named", to.named);
}

inline void Read(const Json& json, AcadTableMerged& to) {
  Read(json.at("row"), to.row);
  Read(json.at("column"), to.column);
  Read(json.at("lastRow"), to.lastRow);
  Read(json.at("lastColumn"), to.lastColumn);
}

inline void Read(const Json& json, MlineCaps& to) {
  Read(json.at("line"), to.line);
  Read(json.at("innerArcs"), to.innerArcs);
  Read(json.at("outerArc"), to.outerArc);
  Read(json.at("angleRad"), to.angleRad);
}

inline void Read(const Json& json, GraphicsItemPushMatrix& to) {
  Read(json.at("matrix"), to.matrix);
}

inline void Read(const Json& /*json*/, GraphicsItemPopMatrix& /*to*/) {}

inline void Read(const Json& /*json*/, GraphicsItemPopClip& /*to*/) {}

inline void Read(const Json& json, Layer& to) {
  Read(json.at("name"), to.name);
  Read(json.at("visible"), to.visible);
  Read(json.at("locked"), to.locked);
  Read(json.at("color"), to.color);
  Read(json.at("lw"), to.lw);
  ReadIfThere(json, "alpha", to.alpha);
  ReadIfThere(json, "_dbg", to.dbg);
  Read(json.at("frozen"), to.frozen);
  Read(json.at("plotted"), to.plotted);
  Read(json.at("linetype"), to.linetype);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "description", to.description);
}

inline void Read(const Json& json, CircleWorld& to) {
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("center"), to.center);
}

inline void Read(const Json& json, LwpolylineWorld& to) {
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("points"), to.points);
}

inline void Read(const Json& json, HatchPatternLine& to) {
  Read(json.at("angle"), to.angle);
  Read(json.at("base"), to.base);
  Read(json.at("offset"), to.offset);
  Read(json.at("dashes"), to.dashes);
}

inline void Read(const Json& json, HatchBoundaryEdgeLine& to) {
  Read(json.at("start"), to.start);
  Read(json.at("end"), to.end);
}

inline void Read(const Json& json, HatchBoundaryEdgeArc& to) {
  Read(json.at("center"), to.center);
  Read(json.at("radius"), to.radius);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  Read(json.at("ccw"), to.ccw);
}

inline void Read(const Json& json, HatchBoundaryEdgeEllipse& to) {
  Read(json.at("center"), to.center);
  Read(json.at("majorAxis"), to.majorAxis);
  Read(json.at("axisRatio"), to.axisRatio);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  Read(json.at("ccw"), to.ccw);
}

inline void Read(const Json& json, HatchBoundaryEdgeSpline& to) {
  Read(json.at("degree"), to.degree);
  Read(json.at("periodic"), to.periodic);
  Read(json.at("knots"), to.knots);
  Read(json.at("controlPoints"), to.controlPoints);
  ReadIfThere(json, "weights", to.weights);
  ReadIfThere(json, "fitPoints", to.fitPoints);
  ReadIfThere(json, "startTangent", to.startTangent);
  ReadIfThere(json, "endTangent", to.endTangent);
}

inline void Read(const Json& json, HatchWorld& to) {
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("loops"), to.loops);
}

inline void Read(const Json& json, SolidWorld& to) {
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("pts"), to.pts);
}

inline void Read(const Json& json, InsertAttribute& to) {
  Read(json.at("tag"), to.tag);
  Read(json.at("text"), to.text);
  ReadIfThere(json, "handle", to.handle);
}

inline void Read(const Json& json, InsertClip& to) {
  Read(json.at("on"), to.on);
  Read(json.at("inverted"), to.inverted);
  Read(json.at("boundary"), to.boundary);
  Read(json.at("block"), to.block);
  Read(json.at("world"), to.world);
  ReadIfThere(json, "front", to.front);
  ReadIfThere(json, "back", to.back);
}

inline void Read(const Json& json, InsertWorld& to) {
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("position"), to.position);
}

inline void Read(const Json& json, ImageClip& to) {
  Read(json.at("on"), to.on);
  Read(json.at("inverted"), to.inverted);
  Read(json.at("pixels"), to.pixels);
  Read(json.at("world"), to.world);
}

inline void Read(const Json& json, PdfunderlayClip& to) {
  Read(json.at("on"), to.on);
  Read(json.at("inverted"), to.inverted);
  Read(json.at("boundary"), to.boundary);
  Read(json.at("world"), to.world);
}

inline void Read(const Json& json, ViewportUcs& to) {
  Read(json.at("origin"), to.origin);
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("elevation"), to.elevation);
}

inline void Read(const Json& json, MtextColumns& to) {
  Read(json.at("type"), to.type);
  Read(json.at("count"), to.count);
  Read(json.at("width"), to.width);
  Read(json.at("gutter"), to.gutter);
  Read(json.at("autoHeight"), to.autoHeight);
  Read(json.at("reversed"), to.reversed);
  ReadIfThere(json, "heights", to.heights);
  ReadIfThere(json, "linked", to.linked);
}

inline void Read(const Json& json, LeaderText& to) {
  Read(json.at("html"), to.html);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
}

inline void Read(const Json& json, MultileaderBlockAttribute& to) {
  Read(json.at("text"), to.text);
  ReadIfThere(json, "definition", to.definition);
  Read(json.at("width"), to.width);
}

inline void Read(const Json& json, LayoutViewport& to) {
  Read(json.at("id"), to.id);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("width"), to.width);
  Read(json.at("height"), to.height);
  Read(json.at("viewCtrX"), to.viewCtrX);
  Read(json.at("viewCtrY"), to.viewCtrY);
  Read(json.at("viewSize"), to.viewSize);
}

inline void Read(const Json& json, MpolygonBoundaryEdgeLine& to) {
  Read(json.at("start"), to.start);
  Read(json.at("end"), to.end);
}

inline void Read(const Json& json, MpolygonBoundaryEdgeArc& to) {
  Read(json.at("center"), to.center);
  Read(json.at("radius"), to.radius);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  Read(json.at("ccw"), to.ccw);
}

inline void Read(const Json& json, MpolygonBoundaryEdgeEllipse& to) {
  Read(json.at("center"), to.center);
  Read(json.at("majorAxis"), to.majorAxis);
  Read(json.at("axisRatio"), to.axisRatio);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  Read(json.at("ccw"), to.ccw);
}

inline void Read(const Json& json, MpolygonBoundaryEdgeSpline& to) {
  Read(json.at("degree"), to.degree);
  Read(json.at("periodic"), to.periodic);
  Read(json.at("knots"), to.knots);
  Read(json.at("controlPoints"), to.controlPoints);
  ReadIfThere(json, "weights", to.weights);
  ReadIfThere(json, "fitPoints", to.fitPoints);
  ReadIfThere(json, "startTangent", to.startTangent);
  ReadIfThere(json, "endTangent", to.endTangent);
}

inline void Read(const Json& json, Ucs& to) {
  Read(json.at("origin"), to.origin);
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("elevation"), to.elevation);
}

inline void Read(const Json& json, Linetype& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("description"), to.description);
  Read(json.at("length"), to.length);
  Read(json.at("dashes"), to.dashes);
}

inline void Read(const Json& json, TextStyle& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("font"), to.font);
  Read(json.at("bigFont"), to.bigFont);
  Read(json.at("height"), to.height);
  Read(json.at("lastHeight"), to.lastHeight);
  Read(json.at("widthFactor"), to.widthFactor);
  Read(json.at("obliqueRad"), to.obliqueRad);
  Read(json.at("mirroredX"), to.mirroredX);
  Read(json.at("mirroredY"), to.mirroredY);
  Read(json.at("vertical"), to.vertical);
  Read(json.at("shapes"), to.shapes);
}

inline void Read(const Json& json, CoordinateSystem& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("origin"), to.origin);
  Read(json.at("xAxis"), to.xAxis);
  Read(json.at("yAxis"), to.yAxis);
  Read(json.at("elevation"), to.elevation);
}

inline void Read(const Json& json, Group& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("description"), to.description);
  Read(json.at("selectable"), to.selectable);
  Read(json.at("unnamed"), to.unnamed);
  Read(json.at("members"), to.members);
}

inline void Read(const Json& json, Properties& to) {
  ReadIfThere(json, "title", to.title);
  ReadIfThere(json, "subject", to.subject);
  ReadIfThere(json, "author", to.author);
  ReadIfThere(json, "keywords", to.keywords);
  ReadIfThere(json, "comments", to.comments);
  ReadIfThere(json, "lastSavedBy", to.lastSavedBy);
  ReadIfThere(json, "revision", to.revision);
  ReadIfThere(json, "hyperlinkBase", to.hyperlinkBase);
  ReadIfThere(json, "created", to.created);
  ReadIfThere(json, "updated", to.updated);
  ReadIfThere(json, "editingDays", to.editingDays);
  ReadIfThere(json, "custom", to.custom);
}

inline void Read(const Json& json, GraphicsItemPushClip& to) {
  Read(json.at("normal"), to.normal);
  Read(json.at("origin"), to.origin);
  Read(json.at("points"), to.points);
  Read(json.at("clipMatrix"), to.clipMatrix);
  Read(json.at("inverseBlockMatrix"), to.inverseBlockMatrix);
}

inline void Read(const Json& json, WireTransform& to) {
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("z"), to.z);
  Read(json.at("translation"), to.translation);
  Read(json.at("scale"), to.scale);
}

inline void Read(const Json& json, Line& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("startX"), to.startX);
  Read(json.at("startY"), to.startY);
  Read(json.at("endX"), to.endX);
  Read(json.at("endY"), to.endY);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "startZ", to.startZ);
  ReadIfThere(json, "endZ", to.endZ);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Point& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "z", to.z);
  ReadIfThere(json, "angleRad", to.angleRad);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Ray& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("dx"), to.dx);
  Read(json.at("dy"), to.dy);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "z", to.z);
  ReadIfThere(json, "dz", to.dz);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Xline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("dx"), to.dx);
  Read(json.at("dy"), to.dy);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "z", to.z);
  ReadIfThere(json, "dz", to.dz);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Circle& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("radius"), to.radius);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Arc& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("radius"), to.radius);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Ellipse& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("smAxisX"), to.smAxisX);
  Read(json.at("smAxisY"), to.smAxisY);
  Read(json.at("semiMajor"), to.semiMajor);
  Read(json.at("axisRatio"), to.axisRatio);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "cz", to.cz);
  ReadIfThere(json, "smAxisZ", to.smAxisZ);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Lwpolyline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("bulges"), to.bulges);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "constWidth", to.constWidth);
  ReadIfThere(json, "widths", to.widths);
  ReadIfThere(json, "linetypeGeneration", to.linetypeGeneration);
  ReadIfThere(json, "vertexIds", to.vertexIds);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Polyline2d& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("bulges"), to.bulges);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "startWidth", to.startWidth);
  ReadIfThere(json, "endWidth", to.endWidth);
  ReadIfThere(json, "widths", to.widths);
  ReadIfThere(json, "vertexFlags", to.vertexFlags);
  ReadIfThere(json, "tangents", to.tangents);
  ReadIfThere(json, "curveFit", to.curveFit);
  ReadIfThere(json, "splineFit", to.splineFit);
  ReadIfThere(json, "linetypeGeneration", to.linetypeGeneration);
  ReadIfThere(json, "curveType", to.curveType);
  ReadIfThere(json, "frame", to.frame);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Polyline3d& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "splineFit", to.splineFit);
  ReadIfThere(json, "curveType", to.curveType);
  ReadIfThere(json, "frame", to.frame);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Spline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("fit_pts"), to.fit_pts);
  ReadIfThere(json, "beg_tan", to.beg_tan);
  ReadIfThere(json, "end_tan", to.end_tan);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "degree", to.degree);
  ReadIfThere(json, "periodic", to.periodic);
  ReadIfThere(json, "knots", to.knots);
  ReadIfThere(json, "weights", to.weights);
  ReadIfThere(json, "controlPoints", to.controlPoints);
  ReadIfThere(json, "fitPoints", to.fitPoints);
  ReadIfThere(json, "startTangent", to.startTangent);
  ReadIfThere(json, "endTangent", to.endTangent);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, HatchPattern& to) {
  Read(json.at("name"), to.name);
  Read(json.at("type"), to.type);
  ReadIfThere(json, "angle", to.angle);
  ReadIfThere(json, "scale", to.scale);
  ReadIfThere(json, "double", to.double_);
  ReadIfThere(json, "lines", to.lines);
}

inline void Read(const Json& json, HatchGradientColor& to) {
  Read(json.at("at"), to.at);
  Read(json.at("color"), to.color);
}

inline void Read(const Json& json, HatchBoundary& to) {
  Read(json.at("flags"), to.flags);
  ReadIfThere(json, "closed", to.closed);
  ReadIfThere(json, "points", to.points);
  ReadIfThere(json, "bulges", to.bulges);
  ReadIfThere(json, "edges", to.edges);
  ReadIfThere(json, "sources", to.sources);
}

inline void Read(const Json& json, Solid& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("pts"), to.pts);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Wipeout& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("verts"), to.verts);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "inverted", to.inverted);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Insert& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("blockName"), to.blockName);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("scaleX"), to.scaleX);
  Read(json.at("scaleY"), to.scaleY);
  Read(json.at("scaleZ"), to.scaleZ);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "z", to.z);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "dynamicBlock", to.dynamicBlock);
  ReadIfThere(json, "attributes", to.attributes);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "columns", to.columns);
  ReadIfThere(json, "rows", to.rows);
  ReadIfThere(json, "columnSpacing", to.columnSpacing);
  ReadIfThere(json, "rowSpacing", to.rowSpacing);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Image& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("path"), to.path);
  Read(json.at("px0"), to.px0);
  Read(json.at("py0"), to.py0);
  Read(json.at("ux"), to.ux);
  Read(json.at("uy"), to.uy);
  Read(json.at("vx"), to.vx);
  Read(json.at("vy"), to.vy);
  Read(json.at("sw"), to.sw);
  Read(json.at("sh"), to.sh);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "pz0", to.pz0);
  ReadIfThere(json, "uz", to.uz);
  ReadIfThere(json, "vz", to.vz);
  ReadIfThere(json, "shown", to.shown);
  ReadIfThere(json, "brightness", to.brightness);
  ReadIfThere(json, "contrast", to.contrast);
  ReadIfThere(json, "fade", to.fade);
  ReadIfThere(json, "transparent", to.transparent);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Pdfunderlay& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("path"), to.path);
  Read(json.at("page"), to.page);
  Read(json.at("ix"), to.ix);
  Read(json.at("iy"), to.iy);
  Read(json.at("sx"), to.sx);
  Read(json.at("sy"), to.sy);
  Read(json.at("angle"), to.angle);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "found", to.found);
  ReadIfThere(json, "iz", to.iz);
  ReadIfThere(json, "sz", to.sz);
  ReadIfThere(json, "shown", to.shown);
  ReadIfThere(json, "monochrome", to.monochrome);
  ReadIfThere(json, "adjusted", to.adjusted);
  ReadIfThere(json, "contrast", to.contrast);
  ReadIfThere(json, "fade", to.fade);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Viewport& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("width"), to.width);
  Read(json.at("height"), to.height);
  Read(json.at("viewCtrX"), to.viewCtrX);
  Read(json.at("viewCtrY"), to.viewCtrY);
  Read(json.at("viewSize"), to.viewSize);
  Read(json.at("targetX"), to.targetX);
  Read(json.at("targetY"), to.targetY);
  Read(json.at("targetZ"), to.targetZ);
  Read(json.at("dirX"), to.dirX);
  Read(json.at("dirY"), to.dirY);
  Read(json.at("dirZ"), to.dirZ);
  Read(json.at("twist"), to.twist);
  Read(json.at("status"), to.status);
  Read(json.at("frozenLayers"), to.frozenLayers);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "id", to.id);
  ReadIfThere(json, "cz", to.cz);
  ReadIfThere(json, "on", to.on);
  ReadIfThere(json, "scale", to.scale);
  ReadIfThere(json, "lens", to.lens);
  ReadIfThere(json, "perspective", to.perspective);
  ReadIfThere(json, "locked", to.locked);
  ReadIfThere(json, "clipped", to.clipped);
  ReadIfThere(json, "frontZ", to.frontZ);
  ReadIfThere(json, "backZ", to.backZ);
  ReadIfThere(json, "renderMode", to.renderMode);
  ReadIfThere(json, "shadePlot", to.shadePlot);
  ReadIfThere(json, "ucs", to.ucs);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Text& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  ReadIfThere(json, "halign", to.halign);
  ReadIfThere(json, "valign", to.valign);
  ReadIfThere(json, "ax", to.ax);
  ReadIfThere(json, "ay", to.ay);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "textStyle", to.textStyle);
  ReadIfThere(json, "widthFactor", to.widthFactor);
  ReadIfThere(json, "obliqueRad", to.obliqueRad);
  ReadIfThere(json, "mirroredX", to.mirroredX);
  ReadIfThere(json, "mirroredY", to.mirroredY);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Dyntext& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("kind"), to.kind);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  Read(json.at("tag"), to.tag);
  ReadIfThere(json, "prompt", to.prompt);
  ReadIfThere(json, "defaultValue", to.defaultValue);
  Read(json.at("flags"), to.flags);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "textStyle", to.textStyle);
  ReadIfThere(json, "widthFactor", to.widthFactor);
  ReadIfThere(json, "obliqueRad", to.obliqueRad);
  ReadIfThere(json, "mirroredX", to.mirroredX);
  ReadIfThere(json, "mirroredY", to.mirroredY);
  ReadIfThere(json, "halign", to.halign);
  ReadIfThere(json, "valign", to.valign);
  ReadIfThere(json, "ax", to.ax);
  ReadIfThere(json, "ay", to.ay);
  ReadIfThere(json, "fieldLength", to.fieldLength);
  ReadIfThere(json, "lockedPosition", to.lockedPosition);
  ReadIfThere(json, "multiline", to.multiline);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, MtextBackground& to) {
  Read(json.at("fill"), to.fill);
  ReadIfThere(json, "color", to.color);
  Read(json.at("scale"), to.scale);
  Read(json.at("frame"), to.frame);
}

inline void Read(const Json& json, DimensionLinear& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x1"), to.x1);
  Read(json.at("y1"), to.y1);
  Read(json.at("x2"), to.x2);
  Read(json.at("y2"), to.y2);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("dimRotationRad"), to.dimRotationRad);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  Read(json.at("definitionPoint"), to.definitionPoint);
  Read(json.at("extensionPoint1"), to.extensionPoint1);
  Read(json.at("extensionPoint2"), to.extensionPoint2);
  ReadIfThere(json, "obliqueRad", to.obliqueRad);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, DimensionAligned& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x1"), to.x1);
  Read(json.at("y1"), to.y1);
  Read(json.at("x2"), to.x2);
  Read(json.at("y2"), to.y2);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  Read(json.at("definitionPoint"), to.definitionPoint);
  Read(json.at("extensionPoint1"), to.extensionPoint1);
  Read(json.at("extensionPoint2"), to.extensionPoint2);
  ReadIfThere(json, "obliqueRad", to.obliqueRad);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, DimensionRadius& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("arcX"), to.arcX);
  Read(json.at("arcY"), to.arcY);
  Read(json.at("leaderLen"), to.leaderLen);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  Read(json.at("center"), to.center);
  Read(json.at("curvePoint"), to.curvePoint);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Leader& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("points"), to.points);
  Read(json.at("arrowOn"), to.arrowOn);
  Read(json.at("arrowSize"), to.arrowSize);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "z", to.z);
  ReadIfThere(json, "dimStyle", to.dimStyle);
  ReadIfThere(json, "spline", to.spline);
  ReadIfThere(json, "annotationType", to.annotationType);
  ReadIfThere(json, "annotation", to.annotation);
  ReadIfThere(json, "hookLine", to.hookLine);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "textWidth", to.textWidth);
  ReadIfThere(json, "xDirection", to.xDirection);
  ReadIfThere(json, "arrowBlock", to.arrowBlock);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, MultileaderLeaderLine& to) {
  Read(json.at("index"), to.index);
  Read(json.at("points"), to.points);
  ReadIfThere(json, "breaks", to.breaks);
  ReadIfThere(json, "leaderType", to.leaderType);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "arrowBlock", to.arrowBlock);
}

inline void Read(const Json& json, MultileaderTextContentBackground& to) {
  Read(json.at("color"), to.color);
  Read(json.at("ofDrawing"), to.ofDrawing);
  Read(json.at("scale"), to.scale);
}

inline void Read(const Json& json, MultileaderBlock& to) {
  Read(json.at("position"), to.position);
  ReadIfThere(json, "blockName", to.blockName);
  Read(json.at("scale"), to.scale);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("normal"), to.normal);
  Read(json.at("color"), to.color);
  Read(json.at("attributes"), to.attributes);
}

inline void Read(const Json& json, Face3d& to) {
  Read(json.at("points"), to.points);
  Read(json.at("edges"), to.edges);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Trace& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, MpolygonBoundary& to) {
  Read(json.at("flags"), to.flags);
  ReadIfThere(json, "closed", to.closed);
  ReadIfThere(json, "points", to.points);
  ReadIfThere(json, "bulges", to.bulges);
  ReadIfThere(json, "edges", to.edges);
  ReadIfThere(json, "sources", to.sources);
}

inline void Read(const Json& json, View& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("height"), to.height);
  Read(json.at("width"), to.width);
  Read(json.at("centerX"), to.centerX);
  Read(json.at("centerY"), to.centerY);
  Read(json.at("target"), to.target);
  Read(json.at("direction"), to.direction);
  Read(json.at("twistRad"), to.twistRad);
  Read(json.at("lensLength"), to.lensLength);
  Read(json.at("frontClip"), to.frontClip);
  Read(json.at("backClip"), to.backClip);
  Read(json.at("mode"), to.mode);
  Read(json.at("paperSpace"), to.paperSpace);
  ReadIfThere(json, "ucs", to.ucs);
}

inline void Read(const Json& json, DimensionDiameter& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("curvePoint"), to.curvePoint);
  Read(json.at("farCurvePoint"), to.farCurvePoint);
  Read(json.at("leaderLen"), to.leaderLen);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, DimensionAng2ln& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("line1"), to.line1);
  Read(json.at("line2"), to.line2);
  Read(json.at("arcPoint"), to.arcPoint);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, DimensionAng3pt& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("center"), to.center);
  Read(json.at("extensionPoint1"), to.extensionPoint1);
  Read(json.at("extensionPoint2"), to.extensionPoint2);
  Read(json.at("arcPoint"), to.arcPoint);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, DimensionOrdinate& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("origin"), to.origin);
  Read(json.at("featurePoint"), to.featurePoint);
  Read(json.at("leaderEnd"), to.leaderEnd);
  Read(json.at("axis"), to.axis);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, ArcDimension& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("center"), to.center);
  Read(json.at("extensionPoint1"), to.extensionPoint1);
  Read(json.at("extensionPoint2"), to.extensionPoint2);
  Read(json.at("arcPoint"), to.arcPoint);
  Read(json.at("isPartial"), to.isPartial);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  Read(json.at("arcSymbol"), to.arcSymbol);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "leader", to.leader);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, LargeRadialDimension& to) {
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  Read(json.at("center"), to.center);
  Read(json.at("curvePoint"), to.curvePoint);
  Read(json.at("overrideCenter"), to.overrideCenter);
  Read(json.at("jogPoint"), to.jogPoint);
  Read(json.at("jogAngleRad"), to.jogAngleRad);
  Read(json.at("measured"), to.measured);
  Read(json.at("measuredText"), to.measuredText);
  Read(json.at("text"), to.text);
  Read(json.at("html"), to.html);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("textRotationRad"), to.textRotationRad);
  Read(json.at("textIsPlacedByUser"), to.textIsPlacedByUser);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "horizontalDirectionRad", to.horizontalDirectionRad);
  ReadIfThere(json, "flipArrow1", to.flipArrow1);
  ReadIfThere(json, "flipArrow2", to.flipArrow2);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "styleOverrides", to.styleOverrides);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, TableCell& to) {
  Read(json.at("row"), to.row);
  Read(json.at("column"), to.column);
  ReadIfThere(json, "text", to.text);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "blockScale", to.blockScale);
  ReadIfThere(json, "rotationRad", to.rotationRad);
  ReadIfThere(json, "alignment", to.alignment);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "background", to.background);
  ReadIfThere(json, "textColor", to.textColor);
  ReadIfThere(json, "textStyle", to.textStyle);
}

inline void Read(const Json& json, MlineElement& to) {
  Read(json.at("offset"), to.offset);
  Read(json.at("color"), to.color);
  Read(json.at("linetype"), to.linetype);
  Read(json.at("lines"), to.lines);
}

inline void Read(const Json& json, Tolerance& to) {
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("height"), to.height);
  Read(json.at("rawText"), to.rawText);
  Read(json.at("rows"), to.rows);
  Read(json.at("position"), to.position);
  Read(json.at("xDirection"), to.xDirection);
  ReadIfThere(json, "dimensionStyle", to.dimensionStyle);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Shape& to) {
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("size"), to.size);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("widthFactor"), to.widthFactor);
  Read(json.at("obliqueRad"), to.obliqueRad);
  ReadIfThere(json, "shapeNumber", to.shapeNumber);
  ReadIfThere(json, "shapeFile", to.shapeFile);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, PolylineMesh& to) {
  Read(json.at("m"), to.m);
  Read(json.at("n"), to.n);
  Read(json.at("closedM"), to.closedM);
  Read(json.at("closedN"), to.closedN);
  Read(json.at("points"), to.points);
  ReadIfThere(json, "curveType", to.curveType);
  ReadIfThere(json, "controlM", to.controlM);
  ReadIfThere(json, "controlN", to.controlN);
  ReadIfThere(json, "controlPoints", to.controlPoints);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, PolylinePfaceFace& to) {
  Read(json.at("vertices"), to.vertices);
  Read(json.at("edges"), to.edges);
  Read(json.at("color"), to.color);
  ReadIfThere(json, "layer", to.layer);
}

inline void Read(const Json& json, Mesh& to) {
  Read(json.at("points"), to.points);
  Read(json.at("faces"), to.faces);
  Read(json.at("edges"), to.edges);
  Read(json.at("creases"), to.creases);
  Read(json.at("subdivisionLevel"), to.subdivisionLevel);
  Read(json.at("blendsCreases"), to.blendsCreases);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, GraphicsItemCircle& to) {
  Read(json.at("center"), to.center);
  Read(json.at("radius"), to.radius);
  Read(json.at("normal"), to.normal);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemCircle3p& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemArc3p& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemArc& to) {
  Read(json.at("center"), to.center);
  Read(json.at("radius"), to.radius);
  Read(json.at("normal"), to.normal);
  Read(json.at("startDirection"), to.startDirection);
  Read(json.at("sweepRad"), to.sweepRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemEllipse& to) {
  Read(json.at("center"), to.center);
  Read(json.at("normal"), to.normal);
  Read(json.at("majorRadius"), to.majorRadius);
  Read(json.at("minorRadius"), to.minorRadius);
  Read(json.at("startParam"), to.startParam);
  Read(json.at("endParam"), to.endParam);
  Read(json.at("rotationRad"), to.rotationRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemPolyline& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "normal", to.normal);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemPolygon& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemLwpolyline& to) {
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("bulges"), to.bulges);
  Read(json.at("widths"), to.widths);
  Read(json.at("constantWidth"), to.constantWidth);
  Read(json.at("elevation"), to.elevation);
  Read(json.at("normal"), to.normal);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemMesh& to) {
  Read(json.at("rows"), to.rows);
  Read(json.at("columns"), to.columns);
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemShell& to) {
  Read(json.at("points"), to.points);
  Read(json.at("faces"), to.faces);
  ReadIfThere(json, "holes", to.holes);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemText& to) {
  Read(json.at("position"), to.position);
  Read(json.at("normal"), to.normal);
  Read(json.at("direction"), to.direction);
  Read(json.at("text"), to.text);
  Read(json.at("height"), to.height);
  Read(json.at("widthFactor"), to.widthFactor);
  Read(json.at("obliqueRad"), to.obliqueRad);
  ReadIfThere(json, "tracking", to.tracking);
  ReadIfThere(json, "isRaw", to.isRaw);
  ReadIfThere(json, "isBackward", to.isBackward);
  ReadIfThere(json, "isUpsideDown", to.isUpsideDown);
  ReadIfThere(json, "isVertical", to.isVertical);
  ReadIfThere(json, "isUnderlined", to.isUnderlined);
  ReadIfThere(json, "isOverlined", to.isOverlined);
  ReadIfThere(json, "isBold", to.isBold);
  ReadIfThere(json, "isItalic", to.isItalic);
  ReadIfThere(json, "typeface", to.typeface);
  ReadIfThere(json, "fontFile", to.fontFile);
  ReadIfThere(json, "bigFontFile", to.bigFontFile);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemXline& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, GraphicsItemRay& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "layer", to.layer);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "thickness", to.thickness);
  ReadIfThere(json, "filled", to.filled);
}

inline void Read(const Json& json, Wire& to) {
  Read(json.at("points"), to.points);
  ReadIfThere(json, "transform", to.transform);
}

inline void Read(const Json& json, Dwfunderlay& to) {
  Read(json.at("path"), to.path);
  Read(json.at("page"), to.page);
  Read(json.at("ix"), to.ix);
  Read(json.at("iy"), to.iy);
  Read(json.at("sx"), to.sx);
  Read(json.at("sy"), to.sy);
  Read(json.at("angle"), to.angle);
  Read(json.at("sheet"), to.sheet);
  Read(json.at("found"), to.found);
  Read(json.at("shown"), to.shown);
  Read(json.at("contrast"), to.contrast);
  Read(json.at("fade"), to.fade);
  Read(json.at("isMonochrome"), to.isMonochrome);
  Read(json.at("isAdjustedToBackground"), to.isAdjustedToBackground);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "clipHole", to.clipHole);
  ReadIfThere(json, "isClipInverted", to.isClipInverted);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Dgnunderlay& to) {
  Read(json.at("path"), to.path);
  Read(json.at("page"), to.page);
  Read(json.at("ix"), to.ix);
  Read(json.at("iy"), to.iy);
  Read(json.at("sx"), to.sx);
  Read(json.at("sy"), to.sy);
  Read(json.at("angle"), to.angle);
  Read(json.at("sheet"), to.sheet);
  Read(json.at("found"), to.found);
  Read(json.at("shown"), to.shown);
  Read(json.at("contrast"), to.contrast);
  Read(json.at("fade"), to.fade);
  Read(json.at("isMonochrome"), to.isMonochrome);
  Read(json.at("isAdjustedToBackground"), to.isAdjustedToBackground);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "clipHole", to.clipHole);
  ReadIfThere(json, "isClipInverted", to.isClipInverted);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Ole2frame& to) {
  Read(json.at("kind"), to.kind);
  Read(json.at("corners"), to.corners);
  ReadIfThere(json, "pictureKind", to.pictureKind);
  ReadIfThere(json, "picture", to.picture);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Oleframe& to) {
  ReadIfThere(json, "pictureKind", to.pictureKind);
  ReadIfThere(json, "picture", to.picture);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Light& to) {
  Read(json.at("name"), to.name);
  Read(json.at("kind"), to.kind);
  Read(json.at("on"), to.on);
  Read(json.at("position"), to.position);
  Read(json.at("target"), to.target);
  Read(json.at("intensity"), to.intensity);
  Read(json.at("lightColor"), to.lightColor);
  Read(json.at("hotspotRad"), to.hotspotRad);
  Read(json.at("falloffRad"), to.falloffRad);
  Read(json.at("plotsGlyph"), to.plotsGlyph);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Sectionobject& to) {
  Read(json.at("name"), to.name);
  Read(json.at("points"), to.points);
  Read(json.at("backPoints"), to.backPoints);
  Read(json.at("state"), to.state);
  Read(json.at("verticalDirection"), to.verticalDirection);
  Read(json.at("topHeight"), to.topHeight);
  Read(json.at("bottomHeight"), to.bottomHeight);
  Read(json.at("indicatorColor"), to.indicatorColor);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Pointcloud& to) {
  Read(json.at("path"), to.path);
  Read(json.at("origin"), to.origin);
  Read(json.at("min"), to.min);
  Read(json.at("max"), to.max);
  Read(json.at("ucsOrigin"), to.ucsOrigin);
  Read(json.at("ucsX"), to.ucsX);
  Read(json.at("ucsY"), to.ucsY);
  Read(json.at("ucsZ"), to.ucsZ);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Pointcloudex& to) {
  Read(json.at("name"), to.name);
  Read(json.at("min"), to.min);
  Read(json.at("max"), to.max);
  Read(json.at("ucsOrigin"), to.ucsOrigin);
  Read(json.at("ucsX"), to.ucsX);
  Read(json.at("ucsY"), to.ucsY);
  Read(json.at("ucsZ"), to.ucsZ);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Geopositionmarker& to) {
  Read(json.at("position"), to.position);
  Read(json.at("radius"), to.radius);
  Read(json.at("notes"), to.notes);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Line3d& to) {
  Read(json.at("startX"), to.startX);
  Read(json.at("startY"), to.startY);
  Read(json.at("startZ"), to.startZ);
  Read(json.at("endX"), to.endX);
  Read(json.at("endY"), to.endY);
  Read(json.at("endZ"), to.endZ);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Repeat& to) {
  Read(json.at("begins"), to.begins);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Endrep& to) {
  Read(json.at("columns"), to.columns);
  Read(json.at("rows"), to.rows);
  Read(json.at("columnSpacing"), to.columnSpacing);
  Read(json.at("rowSpacing"), to.rowSpacing);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, HatchGradient& to) {
  Read(json.at("name"), to.name);
  Read(json.at("angle"), to.angle);
  Read(json.at("shift"), to.shift);
  Read(json.at("oneColor"), to.oneColor);
  Read(json.at("tint"), to.tint);
  Read(json.at("colors"), to.colors);
}

inline void Read(const Json& json, Mtext& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("rawMtext"), to.rawMtext);
  Read(json.at("width"), to.width);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("attachment"), to.attachment);
  ReadIfThere(json, "runs", to.runs);
  ReadIfThere(json, "blocks", to.blocks);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "textStyle", to.textStyle);
  ReadIfThere(json, "lineSpacingStyle", to.lineSpacingStyle);
  ReadIfThere(json, "lineSpacingFactor", to.lineSpacingFactor);
  ReadIfThere(json, "flowDirection", to.flowDirection);
  ReadIfThere(json, "extentsWidth", to.extentsWidth);
  ReadIfThere(json, "extentsHeight", to.extentsHeight);
  ReadIfThere(json, "frameHeight", to.frameHeight);
  ReadIfThere(json, "background", to.background);
  ReadIfThere(json, "columns", to.columns);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, MultileaderLeader& to) {
  Read(json.at("index"), to.index);
  ReadIfThere(json, "landing", to.landing);
  ReadIfThere(json, "doglegDirection", to.doglegDirection);
  ReadIfThere(json, "doglegLength", to.doglegLength);
  ReadIfThere(json, "breaks", to.breaks);
  Read(json.at("lines"), to.lines);
}

inline void Read(const Json& json, MultileaderTextContent& to) {
  Read(json.at("position"), to.position);
  Read(json.at("direction"), to.direction);
  Read(json.at("normal"), to.normal);
  ReadIfThere(json, "textStyle", to.textStyle);
  Read(json.at("color"), to.color);
  Read(json.at("width"), to.width);
  Read(json.at("attachment"), to.attachment);
  Read(json.at("flow"), to.flow);
  Read(json.at("lineSpacing"), to.lineSpacing);
  Read(json.at("lineSpacingStyle"), to.lineSpacingStyle);
  ReadIfThere(json, "background", to.background);
}

inline void Read(const Json& json, DimensionStyle& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("variables"), to.variables);
}

inline void Read(const Json& json, AcadTable& to) {
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("columnWidths"), to.columnWidths);
  Read(json.at("rowHeights"), to.rowHeights);
  Read(json.at("cells"), to.cells);
  Read(json.at("merged"), to.merged);
  Read(json.at("position"), to.position);
  Read(json.at("horizontalDirection"), to.horizontalDirection);
  ReadIfThere(json, "blockName", to.blockName);
  ReadIfThere(json, "tableStyle", to.tableStyle);
  ReadIfThere(json, "extrusion", to.extrusion);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Mline& to) {
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("directions"), to.directions);
  Read(json.at("miters"), to.miters);
  Read(json.at("scale"), to.scale);
  Read(json.at("justification"), to.justification);
  Read(json.at("base"), to.base);
  Read(json.at("elements"), to.elements);
  ReadIfThere(json, "style", to.style);
  ReadIfThere(json, "fillColor", to.fillColor);
  ReadIfThere(json, "showsMiters", to.showsMiters);
  ReadIfThere(json, "startCaps", to.startCaps);
  ReadIfThere(json, "endCaps", to.endCaps);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, PolylinePface& to) {
  Read(json.at("points"), to.points);
  Read(json.at("faces"), to.faces);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Silhouette& to) {
  Read(json.at("viewport"), to.viewport);
  Read(json.at("target"), to.target);
  Read(json.at("direction"), to.direction);
  Read(json.at("up"), to.up);
  Read(json.at("isPerspective"), to.isPerspective);
  Read(json.at("wires"), to.wires);
}

inline void Read(const Json& json, Hatch& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("solid"), to.solid);
  Read(json.at("loops"), to.loops);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "pattern", to.pattern);
  ReadIfThere(json, "gradient", to.gradient);
  ReadIfThere(json, "background", to.background);
  ReadIfThere(json, "islandStyle", to.islandStyle);
  ReadIfThere(json, "associative", to.associative);
  ReadIfThere(json, "boundary", to.boundary);
  ReadIfThere(json, "seeds", to.seeds);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Multileader& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("lines"), to.lines);
  Read(json.at("arrowSize"), to.arrowSize);
  ReadIfThere(json, "text", to.text);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "leaderType", to.leaderType);
  ReadIfThere(json, "leaderColor", to.leaderColor);
  ReadIfThere(json, "leaderLinetype", to.leaderLinetype);
  ReadIfThere(json, "leaderLw", to.leaderLw);
  ReadIfThere(json, "arrowBlock", to.arrowBlock);
  ReadIfThere(json, "hasLanding", to.hasLanding);
  ReadIfThere(json, "hasDogleg", to.hasDogleg);
  ReadIfThere(json, "landingGap", to.landingGap);
  ReadIfThere(json, "scale", to.scale);
  ReadIfThere(json, "contentType", to.contentType);
  ReadIfThere(json, "textFrame", to.textFrame);
  ReadIfThere(json, "attachmentLeft", to.attachmentLeft);
  ReadIfThere(json, "attachmentRight", to.attachmentRight);
  ReadIfThere(json, "textAlignment", to.textAlignment);
  ReadIfThere(json, "leaders", to.leaders);
  ReadIfThere(json, "textContent", to.textContent);
  ReadIfThere(json, "block", to.block);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Mpolygon& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("solid"), to.solid);
  Read(json.at("loops"), to.loops);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "pattern", to.pattern);
  ReadIfThere(json, "gradient", to.gradient);
  ReadIfThere(json, "background", to.background);
  ReadIfThere(json, "islandStyle", to.islandStyle);
  ReadIfThere(json, "associative", to.associative);
  ReadIfThere(json, "boundary", to.boundary);
  ReadIfThere(json, "seeds", to.seeds);
  ReadIfThere(json, "elevation", to.elevation);
  ReadIfThere(json, "extrusion", to.extrusion);
  ReadIfThere(json, "world", to.world);
  ReadIfThere(json, "fillColor", to.fillColor);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Helix& to) {
  ReadIfThere(json, "axisBase", to.axisBase);
  ReadIfThere(json, "axisVector", to.axisVector);
  ReadIfThere(json, "startPoint", to.startPoint);
  ReadIfThere(json, "radius", to.radius);
  ReadIfThere(json, "turns", to.turns);
  ReadIfThere(json, "turnHeight", to.turnHeight);
  ReadIfThere(json, "isCounterClockwise", to.isCounterClockwise);
  ReadIfThere(json, "closed", to.closed);
  ReadIfThere(json, "fit_pts", to.fit_pts);
  ReadIfThere(json, "graphics", to.graphics);
  ReadIfThere(json, "degree", to.degree);
  ReadIfThere(json, "periodic", to.periodic);
  ReadIfThere(json, "knots", to.knots);
  ReadIfThere(json, "weights", to.weights);
  ReadIfThere(json, "controlPoints", to.controlPoints);
  ReadIfThere(json, "fitPoints", to.fitPoints);
  ReadIfThere(json, "startTangent", to.startTangent);
  ReadIfThere(json, "endTangent", to.endTangent);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, ProxyEntity& to) {
  Read(json.at("graphics"), to.graphics);
  ReadIfThere(json, "className", to.className);
  ReadIfThere(json, "cppName", to.cppName);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, UnknownEnt& to) {
  Read(json.at("graphics"), to.graphics);
  ReadIfThere(json, "className", to.className);
  ReadIfThere(json, "cppName", to.cppName);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Solid3d& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Region& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Body& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Planesurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Extrudedsurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Loftedsurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Revolvedsurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Sweptsurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Nurbsurface& to) {
  Read(json.at("hasModelerData"), to.hasModelerData);
  Read(json.at("modelerVersion"), to.modelerVersion);
  ReadIfThere(json, "wires", to.wires);
  ReadIfThere(json, "silhouettes", to.silhouettes);
  ReadIfThere(json, "reason", to.reason);
  Read(json.at("layer"), to.layer);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
  ReadIfThere(json, "handle", to.handle);
  ReadIfThere(json, "owner", to.owner);
  ReadIfThere(json, "linetype", to.linetype);
  ReadIfThere(json, "linetypeScale", to.linetypeScale);
  ReadIfThere(json, "invisible", to.invisible);
  ReadIfThere(json, "drawOrder", to.drawOrder);
}

inline void Read(const Json& json, Asset& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "baseX", to.baseX);
  ReadIfThere(json, "baseY", to.baseY);
  Read(json.at("entities"), to.entities);
  ReadIfThere(json, "handle", to.handle);
  Read(json.at("units"), to.units);
  ReadIfThere(json, "baseZ", to.baseZ);
  ReadIfThere(json, "anonymous", to.anonymous);
  ReadIfThere(json, "hasAttributes", to.hasAttributes);
  Read(json.at("explodable"), to.explodable);
  ReadIfThere(json, "scaledUniformly", to.scaledUniformly);
  ReadIfThere(json, "description", to.description);
  ReadIfThere(json, "xref", to.xref);
}

inline void Read(const Json& json, Layout& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "tabOrder", to.tabOrder);
  ReadIfThere(json, "paperW", to.paperW);
  ReadIfThere(json, "paperH", to.paperH);
  ReadIfThere(json, "marginL", to.marginL);
  ReadIfThere(json, "marginB", to.marginB);
  ReadIfThere(json, "marginR", to.marginR);
  ReadIfThere(json, "marginT", to.marginT);
  ReadIfThere(json, "plotOriginX", to.plotOriginX);
  ReadIfThere(json, "plotOriginY", to.plotOriginY);
  ReadIfThere(json, "paperUnit", to.paperUnit);
  ReadIfThere(json, "rotation", to.rotation);
  ReadIfThere(json, "scaleNum", to.scaleNum);
  ReadIfThere(json, "scaleDen", to.scaleDen);
  ReadIfThere(json, "limMinX", to.limMinX);
  ReadIfThere(json, "limMinY", to.limMinY);
  ReadIfThere(json, "limMaxX", to.limMaxX);
  ReadIfThere(json, "limMaxY", to.limMaxY);
  ReadIfThere(json, "extMinX", to.extMinX);
  ReadIfThere(json, "extMinY", to.extMinY);
  ReadIfThere(json, "extMaxX", to.extMaxX);
  ReadIfThere(json, "extMaxY", to.extMaxY);
  Read(json.at("entities"), to.entities);
  ReadIfThere(json, "block", to.block);
  Read(json.at("active"), to.active);
  ReadIfThere(json, "pageSetup", to.pageSetup);
  ReadIfThere(json, "plotDevice", to.plotDevice);
  ReadIfThere(json, "paperSize", to.paperSize);
  ReadIfThere(json, "plotStyleSheet", to.plotStyleSheet);
  ReadIfThere(json, "plotFlags", to.plotFlags);
  ReadIfThere(json, "plotType", to.plotType);
  ReadIfThere(json, "plotView", to.plotView);
  ReadIfThere(json, "plotWindow", to.plotWindow);
  ReadIfThere(json, "standardScale", to.standardScale);
  ReadIfThere(json, "standardScaleFactor", to.standardScaleFactor);
  ReadIfThere(json, "shadePlot", to.shadePlot);
  ReadIfThere(json, "shadeResolution", to.shadeResolution);
  ReadIfThere(json, "shadeDpi", to.shadeDpi);
  ReadIfThere(json, "paperImageOriginX", to.paperImageOriginX);
  ReadIfThere(json, "paperImageOriginY", to.paperImageOriginY);
  ReadIfThere(json, "layoutFlags", to.layoutFlags);
  ReadIfThere(json, "insertionBase", to.insertionBase);
  ReadIfThere(json, "ucs", to.ucs);
  ReadIfThere(json, "viewport", to.viewport);
}

inline void Read(const Json& json, Document& to) {
  Read(json.at("form"), to.form);
  Read(json.at("dwgVersion"), to.dwgVersion);
  Read(json.at("insunits"), to.insunits);
  Read(json.at("layers"), to.layers);
  Read(json.at("assets"), to.assets);
  Read(json.at("entities"), to.entities);
  Read(json.at("layouts"), to.layouts);
  Read(json.at("warnings"), to.warnings);
  Read(json.at("timings"), to.timings);
  Read(json.at("header"), to.header);
  Read(json.at("codePage"), to.codePage);
  Read(json.at("linetypes"), to.linetypes);
  Read(json.at("textStyles"), to.textStyles);
  Read(json.at("dimensionStyles"), to.dimensionStyles);
  Read(json.at("views"), to.views);
  Read(json.at("coordinateSystems"), to.coordinateSystems);
  Read(json.at("groups"), to.groups);
  Read(json.at("properties"), to.properties);
  ReadIfThere(json, "thumbnail", to.thumbnail);
}

template <typename Item>
void Read(const Json& json, std::vector<Item>& to) {
  to.reserve(json.size());
  for (const Json& item : json.get_ref<const Json::array_t&>()) {
    Item value{};
    Read(item, value);
    to.push_back(std::move(value));
  }
}

template <typename Item>
void Read(const Json& json, std::map<std::string, Item>& to) {
  for (const auto& [key, item] : json.get_ref<const Json::object_t&>()) {
    Read(item, to[key]);
  }
}

// Whether a value has the form of a type; objects without a type word are all alike.
template <typename Value>
bool Fits(const Json& json) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return json.is_string();
  } else if constexpr (std::is_same_v<Value, double>) {
    return json.is_number();
  } else if constexpr (std::is_same_v<Value, std::int64_t>) {
    return json.is_number_integer();
  } else if constexpr (requires { std::tuple_size<Value>::value; }) {
    return json.is_array() && json.size() == std::tuple_size_v<Value>;
  } else {
    return json.is_object();
  }
}

template <std::size_t kIndex, typename... Choices>
void ReadFitting(const Json& json, std::variant<Choices...>& to) {
  if constexpr (kIndex < sizeof...(Choices)) {
    if (Fits<std::variant_alternative_t<kIndex, std::variant<Choices...>>>(json)) {
      Read(json, to.template emplace<kIndex>());
    } else {
      ReadFitting<kIndex + 1>(json, to);
    }
  } else {
    throw std::runtime_error("a value has none of its forms: " + std::string(json.type_name()));
  }
}

template <std::size_t kIndex, typename... Choices>
void ReadTagged(const Json& json, std::string_view type, std::variant<Choices...>& to) {
  if constexpr (kIndex < sizeof...(Choices)) {
    if (type == std::variant_alternative_t<kIndex, std::variant<Choices...>>::kType) {
      Read(json, to.template emplace<kIndex>());
    } else {
      ReadTagged<kIndex + 1>(json, type, to);
    }
  } else {
    throw std::runtime_error("there is no record of the type " + std::string(type));
  }
}

template <typename... Choices>
void Read(const Json& json, std::variant<Choices...>& to) {
  if constexpr ((requires { Choices::kType; } && ...)) {
    ReadTagged<0>(json, json.at("type").get_ref<const std::string&>(), to);
  } else {
    ReadFitting<0>(json, to);
  }
}

inline void Read(const Json& json, Entity& to) {
  Read(json, to.value);
}

inline void Read(const Json& json, std::shared_ptr<const Entity>& to) {
  auto record = std::make_shared<Entity>();
  Read(json, *record);
  to = std::move(record);
}

// The length of the character at the start of a text, 0 when its bytes are none: names
// of a broken drawing come as they are.
inline std::size_t Utf8Length(std::string_view text) {
  const auto byte = [text](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const unsigned first = byte(0);
  if (first < 0x80) {
    return 1;
  }
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  const unsigned second = byte(1);
  const unsigned least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const unsigned most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  if (first < 0xC2 || first > 0xF4 || second < least || second > most) {
    return 0;
  }
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) {
      return 0;
    }
  }
  return length;
}

// The text with U+FFFD for each byte that belongs to no character.
inline std::string ValidUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    valid += length != 0 ? text.substr(0, length) : std::string_view("\xEF\xBF\xBD");
    text.remove_prefix(length != 0 ? length : 1);
  }
  return valid;
}

// The document of a line that the worker has printed.
inline Document ParseDocument(std::string_view line) {
  const Json json = Json::parse(ValidUtf8(line));
  if (const auto error = json.find("error"); error != json.end()) {
    throw std::runtime_error(error->get<std::string>());
  }
  Document document;
  Read(json, document);
  return document;
}

}  // namespace dwg_document_complete
// NOLINTEND(readability-identifier-naming)
