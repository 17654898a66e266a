#include "scene/shapes.hpp"

#include <QBuffer>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QJsonArray>
#include <QPainter>

#include <cmath>

#include "model/record.hpp"
#include "scene/curves.hpp"
#include "scene/dimension.hpp"
#include "scene/hatch.hpp"
#include "scene/plane.hpp"
#include "scene/spline.hpp"
#include "scene/tables.hpp"
#include "scene/text_layout.hpp"
#include "scene/vectors.hpp"
#include "scene/viewport_mapping.hpp"
#include "scene/wide_lines.hpp"
#include "scene/wires.hpp"

namespace preview {
namespace {

// Larger pictures are read at a smaller size.
constexpr int kLargestImageSide = 4096;

std::vector<QPointF> FlatPointsOf(const QJsonArray& array) {
  std::vector<QPointF> points;
  for (qsizetype i = 0; i + 1 < array.size(); i += 2) {
    points.emplace_back(array[i].toDouble(), array[i + 1].toDouble());
  }
  return points;
}

std::optional<QPointF> TangentOf(const QJsonObject& record, const char* key) {
  const QJsonArray pair = record[QLatin1String(key)].toArray();
  return pair.size() == 2 ? std::optional<QPointF>({pair[0].toDouble(), pair[1].toDouble()})
                          : std::nullopt;
}

bool HasCurves(const QPainterPath& path) {
  for (int i = 0; i < path.elementCount(); ++i) {
    if (path.elementAt(i).isCurveTo()) {
      return true;
    }
  }
  return false;
}

int Subpaths(const QPainterPath& path) {
  int moves = 0;
  for (int i = 0; i < path.elementCount(); ++i) {
    moves += path.elementAt(i).isMoveTo() ? 1 : 0;
  }
  return moves;
}

QPolygonF StraightRun(const QPainterPath& path) {
  QPolygonF points;
  for (int i = 0; i < path.elementCount(); ++i) {
    points.append(path.elementAt(i));
  }
  return points;
}

ShapePtr Outline(const QPainterPath& path) {
  if (path.elementCount() < 2) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->parts.push_back({path, Fill::kNone, std::nullopt});
  if (!HasCurves(path) && Subpaths(path) == 1) {
    shape->polyline = StraightRun(path);
  }
  return shape;
}

ShapePtr Filled(QPainterPath path, Fill fill) {
  if (path.isEmpty()) {
    return nullptr;
  }
  path.setFillRule(Qt::OddEvenFill);
  auto shape = std::make_shared<Shape>();
  shape->parts.push_back({path, fill, std::nullopt});
  return shape;
}

ShapePtr LineShape(const QJsonObject& record) {
  const QPointF ends[] = {PointOf(record, "startX", "startY"), PointOf(record, "endX", "endY")};
  return Outline(StraightPath(ends, false));
}

// Bits of PDMODE, and what its low bits mean.
constexpr int kPointFigure = 7;
constexpr int kPointCircle = 32;
constexpr int kPointSquare = 64;
enum PointFigure { kDot, kNothing, kPlus, kCross, kTick };

// A share of the view's height without a size of its own.
double PointSize(const ShapeContext& context) {
  constexpr double kShareOfView = 5;
  const double size = NumberOf(context.header, "PDSIZE");
  return size > 0 ? size : context.viewHeight * (size < 0 ? -size : kShareOfView) / 100;
}

QPainterPath PointMark(QPointF at, int mode, double size) {
  const double half = size / 2;
  QPainterPath path;
  const auto line = [&](double x1, double y1, double x2, double y2) {
    path.moveTo(at + QPointF(x1, y1) * half);
    path.lineTo(at + QPointF(x2, y2) * half);
  };
  switch (mode & kPointFigure) {
    case kDot: line(0, 0, 0, 0); break;
    case kPlus:
      line(-2, 0, 2, 0);
      line(0, -2, 0, 2);
      break;
    case kCross:
      line(-2, -2, 2, 2);
      line(-2, 2, 2, -2);
      break;
    case kTick: line(0, 0, 0, 1); break;
    default: break;
  }
  if ((mode & kPointCircle) != 0) {
    path.addEllipse(at, half, half);
  }
  if ((mode & kPointSquare) != 0) {
    path.addRect(QRectF(at - QPointF(half, half), QSizeF(size, size)));
  }
  return path;
}

// A line without length, which every pen draws as a dot.
ShapePtr DotAt(QPointF at) {
  auto shape = std::make_shared<Shape>();
  QPainterPath path(at);
  path.lineTo(at);
  shape->parts.push_back({path, Fill::kNone, std::nullopt});
  shape->polyline = QPolygonF({at, at});
  return shape;
}

// As the drawing marks its points; without a mark a dot.
ShapePtr PointShape(const QJsonObject& record, const ShapeContext& context) {
  const QPointF at = PointOf(record, "x", "y");
  const int mode = context.header["PDMODE"].toInt();
  // The definition points of dimensions are dots whatever the mode is.
  if (record["layer"].toString().compare("Defpoints", Qt::CaseInsensitive) == 0) {
    return DotAt(at);
  }
  if (mode == kNothing) {
    return nullptr;
  }
  const double size = PointSize(context);
  if (mode > 0 && size > 0 && std::isfinite(size)) {
    QTransform turn;
    turn.translate(at.x(), at.y());
    turn.rotateRadians(-NumberOf(record, "angleRad"));
    return Outline(turn.map(PointMark({}, mode, size)));
  }
  return DotAt(at);
}

ShapePtr RayShape(const QJsonObject& record, double reach, bool bothWays) {
  const QPointF at = PointOf(record, "x", "y");
  QPointF way = PointOf(record, "dx", "dy");
  const double length = Length(way);
  if (!(length > 0)) {
    return nullptr;
  }
  way *= reach / length;
  const QPointF ends[] = {bothWays ? at - way : at, at + way};
  return Outline(StraightPath(ends, false));
}

QPainterPath CirclePath(const QJsonObject& record) {
  const double radius = NumberOf(record, "radius");
  QPainterPath path;
  path.addEllipse(PointOf(record, "cx", "cy"), radius, radius);
  return path;
}

ShapePtr ArcShape(const QJsonObject& record) {
  const double radius = NumberOf(record, "radius");
  return radius > 0
             ? Outline(ArcPath(PointOf(record, "cx", "cy"), radius,
                               NumberOf(record, "startAngleRad"), NumberOf(record, "endAngleRad")))
             : nullptr;
}

// Centre and major axis are in the world; the normal gives the minor axis.
QPainterPath TiltedEllipse(const QJsonObject& record) {
  const Vector3 major{NumberOf(record, "smAxisX"), NumberOf(record, "smAxisY"),
                      NumberOf(record, "smAxisZ")};
  const Vector3 normal =
      record.contains("extrusion") ? VectorOf(record["extrusion"]) : Vector3{0, 0, 1};
  const double size = std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
  const double ratio = size > 0 ? NumberOf(record, "axisRatio") / size : 0;
  const Vector3 minor = Cross(normal, major);
  const QTransform place(major.x, major.y, minor.x * ratio, minor.y * ratio, NumberOf(record, "cx"),
                         NumberOf(record, "cy"));
  return place.map(
      ArcPath({}, 1, NumberOf(record, "startAngleRad"), NumberOf(record, "endAngleRad")));
}

QPainterPath EllipsePathOf(const QJsonObject& record) {
  if (record.contains("extrusion") || record.contains("smAxisZ")) {
    return TiltedEllipse(record);
  }
  return EllipsePath(
      {.center = PointOf(record, "cx", "cy"),
       .majorLength = NumberOf(record, "semiMajor"),
       .majorAngle = std::atan2(NumberOf(record, "smAxisY"), NumberOf(record, "smAxisX")),
       .ratio = NumberOf(record, "axisRatio")},
      NumberOf(record, "startAngleRad"), NumberOf(record, "endAngleRad"));
}

QPainterPath PolylinePath(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsFromAbove(record["points"]);
  const std::vector<double> bulges = NumbersOf(record["bulges"]);
  return BulgedPath(points, bulges, record["closed"].toBool());
}

// Of each segment; empty for a polyline without width.
std::vector<SegmentWidth> WidthsOf(const QJsonObject& record, std::size_t segments) {
  const double all = NumberOf(record, "constWidth");
  if (all > 0) {
    std::vector<SegmentWidth> same(segments);
    std::fill(same.begin(), same.end(), SegmentWidth(all, all));
    return same;
  }
  std::vector<SegmentWidth> widths;
  for (const auto& value : record["widths"].toArray()) {
    const QJsonArray pair = value.toArray();
    widths.emplace_back(std::max(0.0, pair[0].toDouble()), std::max(0.0, pair[1].toDouble()));
  }
  return widths;
}

// A point that is one vertex twice, or one vertex only, still shows.
ShapePtr PolylineShape(const QJsonObject& record, const ShapeContext& context) {
  const std::vector<QPointF> points = PointsFromAbove(record["points"]);
  const std::vector<SegmentWidth> widths = WidthsOf(record, points.size());
  const bool generates = record["linetypeGeneration"].toBool();
  ShapePtr outline = Outline(PolylinePath(record));
  if (!outline || (widths.empty() && generates)) {
    return outline;
  }
  auto shape = std::make_shared<Shape>(*outline);
  shape->restartsDashes = !generates;
  if (!widths.empty()) {
    shape->polyline.clear();
    shape->parts[0].hairline = true;
    const std::vector<double> bulges = NumbersOf(record["bulges"]);
    shape->parts.push_back({WidePath(points, bulges, widths, record["closed"].toBool()),
                            context.header["FILLMODE"].toBool(true) ? Fill::kSolid : Fill::kNone,
                            std::nullopt});
  }
  return shape;
}

// Whether the last point is the first one again, but for the ten digits that
// documents have.
bool EndsMeet(const std::vector<QPointF>& points) {
  double largest = 0;
  for (const QPointF& point : points) {
    largest = std::max(largest, Length(point));
  }
  return Length(points.back() - points.front()) <= 1e-8 * largest;
}

// Whether the points of a spline may be samples of its curve. A record does not
// say which they are: fit points, which a smooth curve runs through, or samples,
// four for each control point and never fewer than twenty, of a curve that may
// have corners. Three things rule samples out: a tangent, another number of
// points, and ends that lie apart although the spline is closed. What is left may
// still be fit points.
bool MayBeSamples(const QJsonObject& record, const std::vector<QPointF>& points) {
  constexpr std::size_t kFewestSamples = 20;
  constexpr std::size_t kSamplesPerControlPoint = 4;
  if (record.contains("beg_tan") || record.contains("end_tan") || points.size() < kFewestSamples ||
      points.size() % kSamplesPerControlPoint != 0) {
    return false;
  }
  return !record["closed"].toBool() || EndsMeet(points);
}

// Through the points in any case. Where they may be samples, sharp turns stay
// corners: fit points that turn so sharply get corners too, which is the price.
// The complete form has the curve itself.
ShapePtr SplineShape(const QJsonObject& record) {
  const QPainterPath exact = SplinePath(SplineOf(record));
  if (!exact.isEmpty()) {
    return Outline(exact);
  }
  const std::vector<QPointF> points = PointsFromAbove(record["fit_pts"]);
  if (MayBeSamples(record, points)) {
    return Outline(SmoothedPath(points));
  }
  return Outline(InterpolatedPath(points, record["closed"].toBool(),
                                  {TangentOf(record, "beg_tan"), TangentOf(record, "end_tan")}));
}

void AddBackground(Shape& shape, const QPainterPath& area, const QJsonObject& record,
                   const ShapeContext& context) {
  if (record.contains("background")) {
    Part part{area, Fill::kSolid, context.styleInk(record["background"])};
    part.isBackground = true;
    shape.parts.push_back(part);
  }
}

// A pattern that the record does not hold, or that is too dense, is a tint.
ShapePtr HatchShape(const QJsonObject& record, const ShapeContext& context) {
  const QPainterPath area = HatchPath(record);
  if (area.isEmpty()) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  if (record.contains("gradient")) {
    Part part{area, Fill::kSolid, std::nullopt};
    part.gradient = GradientOf(area.boundingRect(), record["gradient"].toObject());
    shape->parts.push_back(part);
    return shape;
  }
  if (record["solid"].toBool()) {
    return Filled(area, Fill::kSolid);
  }
  AddBackground(*shape, area, record, context);
  const auto lines = LinesOfPattern(area, record["pattern"].toObject());
  if (!lines) {
    shape->parts.push_back({area, Fill::kPattern, std::nullopt});
    return shape;
  }
  Part tint{area, Fill::kPattern, std::nullopt};
  tint.spacing = lines->spacing;
  Part part{lines->path, Fill::kNone, std::nullopt};
  part.spacing = lines->spacing;
  shape->parts.insert(shape->parts.end(), {tint, part});
  return shape;
}

// A rectangular outline may come as two opposite corners.
ShapePtr WipeoutShape(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsFromAbove(record["verts"]);
  if (points.size() == 2) {
    QPainterPath path;
    path.addRect(QRectF(points[0], points[1]).normalized());
    return Filled(path, Fill::kPaper);
  }
  return Filled(StraightPath(points, true), Fill::kPaper);
}

ShapePtr PlacedText(const TextLayout& layout, const QTransform& place) {
  if (layout.parts.empty()) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->isText = true;
  shape->hasText = true;
  AppendPlaced(shape->parts, layout, place);
  return shape;
}

TextSource SingleLineSource(const QJsonObject& record, const ShapeContext& context) {
  return {.html = record["html"].toString(),
          .family = record["fontFamily"].toString(),
          .height = NumberOf(record, "height"),
          .widthFactor = record["widthFactor"].toDouble(1),
          .obliqueRad = NumberOf(record, "obliqueRad"),
          .asBars = context.textAsBars};
}

// The letters are made when they are seen.
ShapePtr LateText(const TextLayout& layout, const QTransform& place, double height) {
  if (layout.parts.empty()) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->isText = true;
  shape->hasText = true;
  shape->lateHeight = static_cast<float>(height);
  shape->polyline = place.map(QPolygonF(
      QRectF(QPointF(0, layout.ascent - layout.height), QPointF(layout.width, layout.ascent))));
  return shape;
}

ShapePtr SingleLineShape(const TextSource& source, const QJsonObject& record) {
  const TextLayout layout = LayOutText(source);
  const QTransform place = PlaceSingleLine(layout, record);
  return source.asBars ? LateText(layout, place, source.height) : PlacedText(layout, place);
}

constexpr int kInvisible = 1;
constexpr int kConstant = 2;

// Definitions show their tag, as in the program that made them, unless their
// value is part of the block.
ShapePtr AttributeShape(const QJsonObject& record, const ShapeContext& context) {
  const int flags = record["flags"].toInt();
  if ((flags & kInvisible) != 0) {
    return nullptr;
  }
  TextSource source = SingleLineSource(record, context);
  if (record["kind"].toString() == QLatin1String("attdef") && (flags & kConstant) == 0) {
    source.html = HtmlOfPlainText(record["tag"].toString());
  }
  return SingleLineShape(source, record);
}

// Where the heights of columns are not stored, all have the frame's.
std::vector<double> ColumnHeights(const QJsonObject& record, const QJsonObject& columns) {
  std::vector<double> heights = NumbersOf(columns["heights"]);
  // Linked texts hold what stands in the further columns themselves.
  if (!columns.contains("type") || (heights.empty() && columns.contains("linked"))) {
    return {};
  }
  const auto count = static_cast<std::size_t>(std::clamp(columns["count"].toInt(1), 1, 100));
  heights.resize(std::max(count, heights.size()), NumberOf(record, "frameHeight"));
  const bool known =
      std::all_of(heights.begin(), heights.end() - 1, [](double h) { return h > 0; });
  return known ? heights : std::vector<double>{};
}

// What lies behind a text: a mask, a frame.
void AddBackground(std::vector<Part>& parts, const TextLayout& layout, const QTransform& place,
                   const QJsonObject& background, double height, const ShapeContext& context) {
  if (background.isEmpty() || layout.parts.empty()) {
    return;
  }
  const double rim = std::max(0.0, background["scale"].toDouble(1.5) - 1) * height;
  QPainterPath path;
  path.addRect(QRectF(QPointF(-rim, layout.ascent - layout.height - rim),
                      QPointF(layout.width + rim, layout.ascent + rim)));
  path = place.map(path);
  const QString fill = background["fill"].toString();
  if (fill == QLatin1String("color")) {
    Part part{path, Fill::kSolid, context.styleInk(background["color"])};
    part.isBackground = true;
    parts.push_back(part);
  } else if (fill == QLatin1String("window")) {
    parts.push_back({path, Fill::kPaper, std::nullopt});
  }
  if (background["frame"].toBool()) {
    parts.push_back({path, Fill::kNone, std::nullopt});
  }
}

ShapePtr MtextShape(const QJsonObject& record, const ShapeContext& context) {
  const QJsonObject columns = record["columns"].toObject();
  const double columnWidth = NumberOf(columns, "width");
  const TextStyle style = context.textStyles.value(record["textStyle"].toString());
  const QString codes = record["rawMtext"].toString();
  const TextLayout layout =
      LayOutText({.html = record["html"].toString(),
                  .family = record["fontFamily"].toString(),
                  .height = NumberOf(record, "height"),
                  .width = columnWidth > 0 ? columnWidth : std::max(0.0, NumberOf(record, "width")),
                  .runs = record["runs"].toArray(),
                  .blocks = record["blocks"].toArray(),
                  .alignment = AlignmentOfAttachment(record["attachment"].toInt(1)),
                  .widthFactor = style.widthFactor,
                  .obliqueRad = style.obliqueRad,
                  .lineSpacing = std::clamp(record["lineSpacingFactor"].toDouble(1), 0.25, 4.0),
                  .columnHeights = ColumnHeights(record, columns),
                  .columnGutter = NumberOf(columns, "gutter"),
                  .columnBreaks = ColumnBreaksOf(codes),
                  .asBars = context.textAsBars,
                  .stackAlignment = StackAlignmentOf(codes)});
  QJsonObject at = record;
  // The place and the direction are in the world; from behind only the text is
  // turned.
  if (VectorOf(record["extrusion"]).z < 0) {
    at["mirroredY"] = true;
  }
  const QTransform place = PlaceMultiLine(layout, at);
  if (context.textAsBars && !record.contains("background")) {
    return LateText(layout, place, NumberOf(record, "height"));
  }
  ShapePtr text = PlacedText(layout, place);
  if (!text || !record.contains("background")) {
    return text;
  }
  auto shape = std::make_shared<Shape>(*text);
  shape->isText = false;
  shape->parts.clear();
  AddBackground(shape->parts, layout, place, record["background"].toObject(),
                NumberOf(record, "height"), context);
  AppendPlaced(shape->parts, layout, place);
  return shape;
}

// An arrow needs a first segment of twice its length, or it is left out.
void AddLeaderLine(Shape& shape, const std::vector<QPointF>& points, bool arrow, double size) {
  shape.parts.push_back({StraightPath(points, false), Fill::kNone, std::nullopt});
  const QPointF first = points[0] - points[1];
  if (arrow && size > 0 && Length(first) >= 2 * size) {
    shape.parts.push_back({ArrowPath(points[0], first, size), Fill::kSolid, std::nullopt});
  }
}

// From the last point towards the text, as long as an arrow.
void AddHookLine(Shape& shape, const QJsonObject& record, const std::vector<QPointF>& points) {
  const QPointF along = PointFromAbove(record["xDirection"]);
  const bool hooks = record["hookLine"].toBool() && record["annotationType"].toInt(3) == 0;
  if (!hooks || along.isNull()) {
    return;
  }
  const QPointF way = points.back() - points[points.size() - 2];
  const double side = Dot(way, along) < 0 ? -1 : 1;
  const QPointF ends[] = {points.back(),
                          points.back() + along * (side * NumberOf(record, "arrowSize"))};
  shape.parts.push_back({StraightPath(ends, false), Fill::kNone, std::nullopt});
}

// Whether an arrow is the filled triangle: neither none nor a block that the drawing has.
bool IsFilledArrow(const QString& block, const ShapeContext& context) {
  return block.compare("_None", Qt::CaseInsensitive) != 0 &&
         !(context.hasBlock && context.hasBlock(block));
}

ShapePtr LeaderShape(const QJsonObject& record, const ShapeContext& context) {
  const std::vector<QPointF> points = PointsFromAbove(record["points"]);
  if (points.size() < 2) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  const bool isFilled = IsFilledArrow(record["arrowBlock"].toString(), context);
  AddLeaderLine(*shape, points, record["arrowOn"].toBool() && isFilled,
                NumberOf(record, "arrowSize"));
  if (record["spline"].toBool() && points.size() > 2) {
    shape->parts[0].path = InterpolatedPath(points, false, {});
  }
  AddHookLine(*shape, record, points);
  return shape;
}

void AddMultileaderText(Shape& shape, const QJsonObject& text) {
  const TextLayout layout =
      LayOutText({.html = text["html"].toString(), .height = NumberOf(text, "height")});
  AppendPlaced(shape.parts, layout, PlaceMultiLine(layout, text));
}

// A line of the complete form, with what it has of its own.
void AddMultileaderLine(Shape& shape, const QJsonObject& line, const QJsonObject& leader,
                        const QJsonObject& record, const ShapeContext& context) {
  const std::vector<QPointF> points = PointsOfLeaderLine(line, leader);
  const int type = line["leaderType"].toInt(record["leaderType"].toInt(1));
  if (points.size() < 2 || type == 0) {
    return;
  }
  const double size = line["arrowSize"].toDouble(NumberOf(record, "arrowSize"));
  const QString arrow = line["arrowBlock"].toString(record["arrowBlock"].toString());
  const std::size_t first = shape.parts.size();
  AddLeaderLine(shape, points, IsFilledArrow(arrow, context), size);
  if (type == 2 && points.size() > 2) {
    shape.parts[first].path = InterpolatedPath(points, false, {});
  }
}

void AddMultileaderLines(Shape& shape, const QJsonObject& record, const ShapeContext& context) {
  for (const auto& value : record["leaders"].toArray()) {
    const QJsonObject leader = value.toObject();
    for (const auto& line : leader["lines"].toArray()) {
      AddMultileaderLine(shape, line.toObject(), leader, record, context);
    }
    const QPointF landing = PointFromAbove(leader["landing"]);
    const QPointF dogleg =
        PointFromAbove(leader["doglegDirection"]) * NumberOf(leader, "doglegLength");
    if (record["hasDogleg"].toBool() && !dogleg.isNull()) {
      const QPointF ends[] = {landing, landing + dogleg};
      shape.parts.push_back({StraightPath(ends, false), Fill::kNone, std::nullopt});
    }
  }
}

// The text of the complete form stands at its place by its own alignment.
void AddMultileaderContent(Shape& shape, const QJsonObject& record, const ShapeContext& context) {
  const QJsonObject content = record["textContent"].toObject();
  const QJsonObject text = record["text"].toObject();
  const int attachment = std::clamp(content["attachment"].toInt(1), 1, 3);
  const TextStyle style = context.textStyles.value(content["textStyle"].toString());
  const TextLayout layout = LayOutText({.html = text["html"].toString(),
                                        .height = NumberOf(text, "height"),
                                        .width = std::max(0.0, NumberOf(content, "width")),
                                        .alignment = AlignmentOfAttachment(attachment),
                                        .widthFactor = style.widthFactor,
                                        .obliqueRad = style.obliqueRad});
  QJsonObject at = text;
  at["attachment"] = attachment;
  const QTransform place = PlaceMultiLine(layout, at);
  AppendPlaced(shape.parts, layout, place);
  if (record["textFrame"].toBool() && !layout.parts.empty()) {
    const double gap = NumberOf(record, "landingGap");
    QPainterPath frame;
    frame.addRect(QRectF(QPointF(-gap, layout.ascent - layout.height - gap),
                         QPointF(layout.width + gap, layout.ascent + gap)));
    shape.parts.push_back({place.map(frame), Fill::kNone, std::nullopt});
  }
}

// The last line, when it is a single segment, is the dogleg beside the text:
// it has no arrow.
ShapePtr MultileaderShape(const QJsonObject& record, const ShapeContext& context) {
  auto shape = std::make_shared<Shape>();
  shape->hasText = true;
  if (record.contains("leaders")) {
    AddMultileaderLines(*shape, record, context);
    AddMultileaderContent(*shape, record, context);
    return shape->parts.empty() ? nullptr : shape;
  }
  const QJsonArray lines = record["lines"].toArray();
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const std::vector<QPointF> points = FlatPointsOf(lines[i].toArray());
    if (points.size() >= 2) {
      const bool dogleg = i + 1 == lines.size() && points.size() == 2;
      AddLeaderLine(*shape, points, !dogleg, NumberOf(record, "arrowSize"));
    }
  }
  AddMultileaderText(*shape, record["text"].toObject());
  return shape->parts.empty() ? nullptr : shape;
}

ShapePtr DimensionShape(const QJsonObject& record, const ShapeContext& context) {
  const auto inkOf = [&](const char* key) {
    const QJsonValue color = record[QLatin1String(key)];
    return context.styleInk(color.isUndefined() ? record["color"] : color);
  };
  auto shape = std::make_shared<Shape>();
  shape->hasText = true;
  shape->parts = DimensionParts(record, inkOf("lineColorRgb"), inkOf("textColorRgb"));
  return shape->parts.empty() ? nullptr : shape;
}

// Of a file or of bytes.
template <typename Source>
QImage ReadImage(Source source) {
  QImageReader reader(source);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && std::max(size.width(), size.height()) > kLargestImageSide) {
    reader.setScaledSize(size.scaled(kLargestImageSide, kLargestImageSide, Qt::KeepAspectRatio));
  }
  return reader.read();
}

// By per cent towards the background.
QImage Faded(const QImage& image, double fade) {
  if (image.isNull() || !(fade > 0)) {
    return image;
  }
  QImage faded(image.size(), QImage::Format_ARGB32_Premultiplied);
  faded.fill(Qt::transparent);
  QPainter painter(&faded);
  painter.setOpacity(1 - std::min(fade, 100.0) / 100);
  painter.drawImage(0, 0, image);
  return faded;
}

QPainterPath FramePath(const QTransform& place) {
  QPainterPath path;
  path.addRect(0, 0, 1, 1);
  return place.map(path);
}

// The name of a picture that is not there, over three quarters of its frame.
void AddMissing(Shape& shape, const QJsonObject& record) {
  constexpr double kShare = 0.75;
  const QString path = record["path"].toString();
  const TextLayout layout =
      LayOutText({.html = HtmlOfPlainText(path.trimmed().isEmpty() ? "?" : path), .height = 1});
  const double width = NumberOf(record, "sw");
  const double height = NumberOf(record, "sh");
  if (!(layout.width > 0) || !(width > 0) || !(height > 0)) {
    return;
  }
  const double pixels = kShare * width / layout.width;
  const QTransform place(kShare / layout.width, 0, 0, pixels / height, (1 - kShare) / 2,
                         0.5 - pixels / height / 2);
  AppendPlaced(shape.parts, layout, place * shape.picture->place);
}

ShapePtr ImageShape(const QJsonObject& record, const QDir& folder) {
  const QPointF u = PointOf(record, "ux", "uy") * NumberOf(record, "sw");
  const QPointF v = PointOf(record, "vx", "vy") * NumberOf(record, "sh");
  Picture picture;
  picture.place =
      QTransform(u.x(), u.y(), v.x(), v.y(), NumberOf(record, "px0"), NumberOf(record, "py0"));
  const QString file = FindImage(record["path"].toString(), folder);
  const bool isShown = record["shown"].toBool(true);
  if (!file.isEmpty() && isShown) {
    picture.image = Faded(ReadImage(file), NumberOf(record, "fade"));
  }
  const QPainterPath clip = ClipOutline(record, "world");
  auto shape = std::make_shared<Shape>();
  shape->parts.push_back(
      {clip.isEmpty() ? FramePath(picture.place) : clip, Fill::kNone, std::nullopt});
  shape->picture = std::make_shared<const Picture>(std::move(picture));
  if (isShown && !shape->hasImage()) {
    AddMissing(*shape, record);
  }
  return shape;
}

// Pictures of an embedded object, from its upper left corner clockwise; without a
// picture its frame.
ShapePtr OleShape(const QJsonObject& record) {
  const std::vector<QPointF> corners = PointsFromAbove(record["corners"]);
  if (corners.size() != 4) {
    return nullptr;
  }
  const QPointF u = corners[2] - corners[3];
  const QPointF v = corners[0] - corners[3];
  Picture picture;
  picture.place = QTransform(u.x(), u.y(), v.x(), v.y(), corners[3].x(), corners[3].y());
  QByteArray bytes = QByteArray::fromBase64(record["picture"].toString().toLatin1());
  QBuffer buffer(&bytes);
  picture.image = ReadImage(&buffer);
  auto shape = std::make_shared<Shape>();
  shape->parts.push_back({FramePath(picture.place), Fill::kNone, std::nullopt});
  shape->picture = std::make_shared<const Picture>(std::move(picture));
  return shape;
}

ShapePtr ShapeOfParts(std::vector<Part> parts, bool hasText = false) {
  if (parts.empty()) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->parts = std::move(parts);
  shape->hasText = hasText;
  return shape;
}

// Corners in the order in which they are stored: the last two cross over.
ShapePtr TraceShape(const QJsonObject& record) {
  std::vector<QPointF> points = PointsFromAbove(record["points"]);
  if (points.size() == 4) {
    std::swap(points[2], points[3]);
  }
  return Filled(StraightPath(points, true), Fill::kSolid);
}

// How many heights of an underlay's text a ray would reach.
constexpr double kReachOfUnderlayText = 2000;

// Underlays are named where they begin: documents do not hold their size.
ShapePtr UnderlayShape(const QJsonObject& record, double reach) {
  const QPainterPath clip = ClipOutline(record, "world");
  const QString name = QFileInfo(QString(record["path"].toString()).replace('\\', '/')).fileName();
  const TextLayout layout = LayOutText(
      {.html = HtmlOfPlainText(QString("%1, page %2").arg(name).arg(record["page"].toInt(1))),
       .height = reach / kReachOfUnderlayText});
  QTransform place;
  place.translate(NumberOf(record, "ix"), NumberOf(record, "iy"));
  place.rotateRadians(NumberOf(record, "angle"));
  ShapePtr text = PlacedText(layout, place);
  if (!text || clip.isEmpty()) {
    return text;
  }
  // The clip's edge is what is known of the size.
  auto shape = std::make_shared<Shape>(*text);
  shape->isText = false;
  shape->parts.push_back({clip, Fill::kNone, std::nullopt});
  return shape;
}

// The lines of a shape are in a file that nobody has at hand: a square of its size and,
// over three quarters of it, its name.
ShapePtr MarkOfShape(const QJsonObject& record) {
  constexpr double kShare = 0.75;
  const double size = NumberOf(record, "size");
  const QString path = QString(record["shapeFile"].toString()).replace('\\', '/');
  const QString file = QFileInfo(path).fileName();
  const QString number = QString::number(record["shapeNumber"].toInt());
  const QString name = (file.isEmpty() ? QString("shape") : file) +
                       (record.contains("shapeNumber") ? " " + number : QString());
  const TextLayout layout = LayOutText({.html = HtmlOfPlainText(name), .height = 1});
  if (!(size > 0) || !(layout.width > 0)) {
    return nullptr;
  }
  QTransform place;
  place.translate(NumberOf(record, "x"), NumberOf(record, "y"));
  place.rotateRadians(NumberOf(record, "rotationRad"));
  place.scale(size, size);
  const double letters = kShare / layout.width;
  auto shape = std::make_shared<Shape>();
  shape->hasText = true;
  shape->parts.push_back({FramePath(place), Fill::kNone, std::nullopt});
  AppendPlaced(shape->parts, layout,
               QTransform(letters, 0, 0, letters, (1 - kShare) / 2, (1 - letters) / 2) * place);
  return shape;
}

enum class Type {
  kUnknown,
  kLine,
  kPoint,
  kRay,
  kXline,
  kCircle,
  kArc,
  kEllipse,
  kPolyline,
  kSpline,
  kHatch,
  kSolid,
  kWipeout,
  kText,
  kDynText,
  kMtext,
  kLeader,
  kMultileader,
  kDimension,
  kImage,
  kUnderlay,
  kFace,
  kTrace,
  kMesh,
  kWires,
  kMline,
  kProxy,
  kHelix,
  kOle,
  kTable,
  kTolerance,
  kShape
};

Type TypeOf(const QString& word) {
  static const QHash<QString, Type> types = {{"LINE", Type::kLine},
                                             {"POINT", Type::kPoint},
                                             {"RAY", Type::kRay},
                                             {"XLINE", Type::kXline},
                                             {"CIRCLE", Type::kCircle},
                                             {"ARC", Type::kArc},
                                             {"ELLIPSE", Type::kEllipse},
                                             {"LWPOLYLINE", Type::kPolyline},
                                             {"POLYLINE_2D", Type::kPolyline},
                                             {"POLYLINE_3D", Type::kPolyline},
                                             {"SPLINE", Type::kSpline},
                                             {"HATCH", Type::kHatch},
                                             {"SOLID", Type::kSolid},
                                             {"WIPEOUT", Type::kWipeout},
                                             {"TEXT", Type::kText},
                                             {"DYNTEXT", Type::kDynText},
                                             {"MTEXT", Type::kMtext},
                                             {"LEADER", Type::kLeader},
                                             {"MULTILEADER", Type::kMultileader},
                                             {"DIMENSION_LINEAR", Type::kDimension},
                                             {"DIMENSION_ALIGNED", Type::kDimension},
                                             {"DIMENSION_RADIUS", Type::kDimension},
                                             {"IMAGE", Type::kImage},
                                             {"PDFUNDERLAY", Type::kUnderlay},
                                             {"DWFUNDERLAY", Type::kUnderlay},
                                             {"DGNUNDERLAY", Type::kUnderlay},
                                             {"3DLINE", Type::kLine},
                                             {"3DFACE", Type::kFace},
                                             {"TRACE", Type::kTrace},
                                             {"POLYLINE_MESH", Type::kMesh},
                                             {"POLYLINE_PFACE", Type::kMesh},
                                             {"MESH", Type::kMesh},
                                             {"3DSOLID", Type::kWires},
                                             {"REGION", Type::kWires},
                                             {"BODY", Type::kWires},
                                             {"PLANESURFACE", Type::kWires},
                                             {"EXTRUDEDSURFACE", Type::kWires},
                                             {"LOFTEDSURFACE", Type::kWires},
                                             {"REVOLVEDSURFACE", Type::kWires},
                                             {"SWEPTSURFACE", Type::kWires},
                                             {"NURBSURFACE", Type::kWires},
                                             {"MLINE", Type::kMline},
                                             {"PROXY_ENTITY", Type::kProxy},
                                             {"UNKNOWN_ENT", Type::kProxy},
                                             {"HELIX", Type::kHelix},
                                             {"OLE2FRAME", Type::kOle},
                                             {"ACAD_TABLE", Type::kTable},
                                             {"TOLERANCE", Type::kTolerance},
                                             {"SHAPE", Type::kShape},
                                             {"DIMENSION_DIAMETER", Type::kDimension},
                                             {"DIMENSION_ANG2LN", Type::kDimension},
                                             {"DIMENSION_ANG3PT", Type::kDimension},
                                             {"DIMENSION_ORDINATE", Type::kDimension},
                                             {"ARC_DIMENSION", Type::kDimension},
                                             {"LARGE_RADIAL_DIMENSION", Type::kDimension}};
  return types.value(word, Type::kUnknown);
}

// The record's shape in the plane that its plain keys count in.
ShapePtr ShapeInPlane(const QJsonObject& record, const ShapeContext& context) {
  switch (TypeOf(record["type"].toString())) {
    case Type::kLine: return LineShape(record);
    case Type::kPoint: return PointShape(record, context);
    case Type::kRay: return RayShape(record, context.reach, false);
    case Type::kXline: return RayShape(record, context.reach, true);
    case Type::kCircle: return Outline(CirclePath(record));
    case Type::kArc: return ArcShape(record);
    case Type::kEllipse: return Outline(EllipsePathOf(record));
    case Type::kPolyline: return PolylineShape(record, context);
    case Type::kSpline: return SplineShape(record);
    case Type::kHatch: return HatchShape(record, context);
    case Type::kSolid:
      return Filled(StraightPath(PointsFromAbove(record["pts"]), true), Fill::kSolid);
    case Type::kWipeout: return WipeoutShape(record);
    case Type::kText: return SingleLineShape(SingleLineSource(record, context), record);
    case Type::kDynText: return AttributeShape(record, context);
    case Type::kMtext: return MtextShape(record, context);
    case Type::kLeader: return LeaderShape(record, context);
    case Type::kMultileader: return MultileaderShape(record, context);
    case Type::kDimension: return DimensionShape(record, context);
    case Type::kImage: return ImageShape(record, context.folder);
    case Type::kUnderlay: return UnderlayShape(record, context.reach);
    case Type::kFace: return ShapeOfParts(FaceParts(record));
    case Type::kTrace: return TraceShape(record);
    case Type::kMesh: return ShapeOfParts(MeshParts(record, context.styleInk));
    case Type::kWires: return ShapeOfParts(WireParts(record));
    case Type::kMline: return ShapeOfParts(MultilineParts(record, context.styleInk));
    case Type::kProxy: return ShapeOfParts(ProxyParts(record, context.styleInk));
    case Type::kHelix:
      return record.contains("graphics") ? ShapeOfParts(ProxyParts(record, context.styleInk))
                                         : SplineShape(record);
    case Type::kOle: return OleShape(record);
    case Type::kTable: return ShapeOfParts(TableParts(record, context.styleInk), true);
    case Type::kTolerance: return ShapeOfParts(ToleranceParts(record), true);
    case Type::kShape: return MarkOfShape(record);
    case Type::kUnknown: break;
  }
  return nullptr;
}

ShapePtr Moved(const ShapePtr& shape, const QTransform& place) {
  auto moved = std::make_shared<Shape>(*shape);
  for (Part& part : moved->parts) {
    part.path = place.map(part.path);
  }
  moved->polyline = place.map(moved->polyline);
  if (shape->picture) {
    moved->picture = std::make_shared<const Picture>(
        Picture{shape->picture->image, shape->picture->place * place});
  }
  return moved;
}

}  // namespace

ShapePtr MakeShape(const QJsonObject& record, const ShapeContext& context) {
  const ShapePtr shape = ShapeInPlane(record, context);
  const QTransform plane = PlaneOf(record);
  return shape && !plane.isIdentity() ? Moved(shape, plane) : shape;
}

bool IsMarkedByView(const QJsonObject& record, const QJsonObject& header) {
  return IsType(record, "POINT") && header["PDMODE"].toInt() > kNothing &&
         !(NumberOf(header, "PDSIZE") > 0);
}

std::vector<QPointF> PointsOfLeaderLine(const QJsonObject& line, const QJsonObject& leader) {
  std::vector<QPointF> points = PointsFromAbove(line["points"]);
  if (leader.contains("landing")) {
    points.push_back(PointFromAbove(leader["landing"]));
  }
  return points;
}

bool HasOwnColors(const QJsonObject& record) {
  constexpr const char* kKeys[] = {"textMidX", "graphics",   "elements",
                                   "faces",    "background", "cells"};
  return std::any_of(std::begin(kKeys), std::end(kKeys),
                     [&](const char* key) { return record.contains(QLatin1String(key)); });
}

QPainterPath ClipOutline(const QJsonObject& record, const char* points) {
  const QJsonObject clip = record["clip"].toObject();
  if (!clip["on"].toBool()) {
    return {};
  }
  QPainterPath outline = StraightPath(PointsFromAbove(clip[QLatin1String(points)]), true);
  // The boundary of an inverted clip of a reference runs around all and around what
  // is cut off already.
  if (clip["inverted"].toBool() && !outline.isEmpty() && !IsType(record, "INSERT")) {
    // What lies outside, as far as a block will reach; painters know no greater
    // numbers.
    constexpr double kFar = 20;
    const QRectF box = outline.boundingRect();
    const double far = kFar * std::max(box.width(), box.height());
    outline.addRect(box.adjusted(-far, -far, far, far));
  }
  outline.setFillRule(Qt::OddEvenFill);
  return outline;
}

namespace {

QPainterPath OutlineInPlane(const QJsonObject& record) {
  if (IsType(record, "VIEWPORT")) {
    QPainterPath path;
    path.addRect(FrameOf(record));
    return path;
  }
  switch (TypeOf(record["type"].toString())) {
    case Type::kPolyline: return PolylinePath(record);
    case Type::kCircle: return CirclePath(record);
    case Type::kEllipse: return EllipsePathOf(record);
    case Type::kHatch: return HatchPath(record);
    case Type::kSpline: {
      const ShapePtr shape = SplineShape(record);
      return shape ? shape->parts[0].path : QPainterPath();
    }
    default: return {};
  }
}

}  // namespace

QPainterPath OutlineOf(const QJsonObject& record) {
  return PlaneOf(record).map(OutlineInPlane(record));
}

bool IsInfinite(const QJsonObject& record) {
  const Type type = TypeOf(record["type"].toString());
  return type == Type::kRay || type == Type::kXline || type == Type::kUnderlay;
}

QString FindImage(const QString& path, const QDir& folder) {
  const QString native = QString(path).replace('\\', '/');
  for (const QString& candidate :
       {native, folder.filePath(native), folder.filePath(QFileInfo(native).fileName())}) {
    if (QFileInfo(candidate).isFile()) {
      return candidate;
    }
  }
  return {};
}

}  // namespace preview
