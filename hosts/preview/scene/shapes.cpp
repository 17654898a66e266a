#include "scene/shapes.hpp"

#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QJsonArray>

#include <cmath>

#include "model/record.hpp"
#include "scene/curves.hpp"
#include "scene/dimension.hpp"
#include "scene/text_layout.hpp"
#include "scene/vectors.hpp"
#include "scene/viewport_mapping.hpp"

namespace preview {
namespace {

// Larger pictures are read at a smaller size.
constexpr int kLargestImageSide = 4096;

std::vector<double> NumbersOf(const QJsonArray& array) {
  std::vector<double> numbers;
  for (const auto& value : array) {
    numbers.push_back(value.toDouble());
  }
  return numbers;
}

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

// A dot: a line without length, which every pen draws as one.
ShapePtr PointShape(const QJsonObject& record) {
  const QPointF at = PointOf(record, "x", "y");
  auto shape = std::make_shared<Shape>();
  QPainterPath path(at);
  path.lineTo(at);
  shape->parts.push_back({path, Fill::kNone, std::nullopt});
  shape->polyline = QPolygonF({at, at});
  return shape;
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

QPainterPath EllipsePathOf(const QJsonObject& record) {
  return EllipsePath(
      {.center = PointOf(record, "cx", "cy"),
       .majorLength = NumberOf(record, "semiMajor"),
       .majorAngle = std::atan2(NumberOf(record, "smAxisY"), NumberOf(record, "smAxisX")),
       .ratio = NumberOf(record, "axisRatio")},
      NumberOf(record, "startAngleRad"), NumberOf(record, "endAngleRad"));
}

QPainterPath PolylinePath(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsOf(record["points"].toArray());
  const std::vector<double> bulges = NumbersOf(record["bulges"].toArray());
  return BulgedPath(points, bulges, record["closed"].toBool());
}

// A point that is one vertex twice, or one vertex only, still shows.
ShapePtr PolylineShape(const QJsonObject& record) {
  return Outline(PolylinePath(record));
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
ShapePtr SplineShape(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsOf(record["fit_pts"].toArray());
  if (MayBeSamples(record, points)) {
    return Outline(SmoothedPath(points));
  }
  return Outline(InterpolatedPath(points, record["closed"].toBool(),
                                  {TangentOf(record, "beg_tan"), TangentOf(record, "end_tan")}));
}

QPainterPath HatchPath(const QJsonObject& record) {
  QPainterPath path;
  for (const auto& loop : record["loops"].toArray()) {
    path.addPath(StraightPath(FlatPointsOf(loop.toArray()), true));
  }
  return path;
}

ShapePtr HatchShape(const QJsonObject& record) {
  return Filled(HatchPath(record), record["solid"].toBool() ? Fill::kSolid : Fill::kPattern);
}

// A rectangular outline may come as two opposite corners.
ShapePtr WipeoutShape(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsOf(record["verts"].toArray());
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

TextSource SingleLineSource(const QJsonObject& record) {
  return {.html = record["html"].toString(),
          .family = record["fontFamily"].toString(),
          .height = NumberOf(record, "height")};
}

ShapePtr SingleLineShape(const TextSource& source, const QJsonObject& record) {
  const TextLayout layout = LayOutText(source);
  return PlacedText(layout, PlaceSingleLine(layout, record));
}

constexpr int kInvisible = 1;
constexpr int kConstant = 2;

// Definitions show their tag, as in the program that made them, unless their
// value is part of the block.
ShapePtr AttributeShape(const QJsonObject& record) {
  const int flags = record["flags"].toInt();
  if ((flags & kInvisible) != 0) {
    return nullptr;
  }
  TextSource source = SingleLineSource(record);
  if (record["kind"].toString() == QLatin1String("attdef") && (flags & kConstant) == 0) {
    source.html = HtmlOfPlainText(record["tag"].toString());
  }
  return SingleLineShape(source, record);
}

ShapePtr MtextShape(const QJsonObject& record) {
  const TextLayout layout =
      LayOutText({.html = record["html"].toString(),
                  .family = record["fontFamily"].toString(),
                  .height = NumberOf(record, "height"),
                  .width = std::max(0.0, NumberOf(record, "width")),
                  .runs = record["runs"].toArray(),
                  .blocks = record["blocks"].toArray(),
                  .alignment = AlignmentOfAttachment(record["attachment"].toInt(1))});
  return PlacedText(layout, PlaceMultiLine(layout, record));
}

// An arrow needs a first segment of twice its length, or it is left out.
void AddLeaderLine(Shape& shape, const std::vector<QPointF>& points, bool arrow, double size) {
  shape.parts.push_back({StraightPath(points, false), Fill::kNone, std::nullopt});
  const QPointF first = points[0] - points[1];
  if (arrow && size > 0 && Length(first) >= 2 * size) {
    shape.parts.push_back({ArrowPath(points[0], first, size), Fill::kSolid, std::nullopt});
  }
}

ShapePtr LeaderShape(const QJsonObject& record) {
  const std::vector<QPointF> points = PointsOf(record["points"].toArray());
  if (points.size() < 2) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  AddLeaderLine(*shape, points, record["arrowOn"].toBool(), NumberOf(record, "arrowSize"));
  return shape;
}

void AddMultileaderText(Shape& shape, const QJsonObject& text) {
  const TextLayout layout =
      LayOutText({.html = text["html"].toString(), .height = NumberOf(text, "height")});
  AppendPlaced(shape.parts, layout, PlaceMultiLine(layout, text));
}

// The last line, when it is a single segment, is the dogleg beside the text:
// it has no arrow.
ShapePtr MultileaderShape(const QJsonObject& record) {
  auto shape = std::make_shared<Shape>();
  const QJsonArray lines = record["lines"].toArray();
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const std::vector<QPointF> points = FlatPointsOf(lines[i].toArray());
    if (points.size() >= 2) {
      const bool dogleg = i + 1 == lines.size() && points.size() == 2;
      AddLeaderLine(*shape, points, !dogleg, NumberOf(record, "arrowSize"));
    }
  }
  AddMultileaderText(*shape, record["text"].toObject());
  shape->hasText = true;
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

QImage ReadImage(const QString& file) {
  QImageReader reader(file);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && std::max(size.width(), size.height()) > kLargestImageSide) {
    reader.setScaledSize(size.scaled(kLargestImageSide, kLargestImageSide, Qt::KeepAspectRatio));
  }
  return reader.read();
}

QPainterPath FramePath(const QTransform& place) {
  QPainterPath path;
  path.addRect(0, 0, 1, 1);
  return place.map(path);
}

// A frame crossed out stands for a picture that is not there.
QPainterPath MissingPath(const QTransform& place) {
  QPainterPath path = FramePath(place);
  path.moveTo(place.map(QPointF(0, 0)));
  path.lineTo(place.map(QPointF(1, 1)));
  path.moveTo(place.map(QPointF(0, 1)));
  path.lineTo(place.map(QPointF(1, 0)));
  return path;
}

ShapePtr ImageShape(const QJsonObject& record, const QDir& folder) {
  const QPointF u = PointOf(record, "ux", "uy") * NumberOf(record, "sw");
  const QPointF v = PointOf(record, "vx", "vy") * NumberOf(record, "sh");
  auto shape = std::make_shared<Shape>();
  shape->imagePlace =
      QTransform(u.x(), u.y(), v.x(), v.y(), NumberOf(record, "px0"), NumberOf(record, "py0"));
  const QString file = FindImage(record["path"].toString(), folder);
  if (!file.isEmpty()) {
    shape->image = ReadImage(file);
  }
  shape->parts.push_back(
      {shape->image.isNull() ? MissingPath(shape->imagePlace) : FramePath(shape->imagePlace),
       Fill::kNone, std::nullopt});
  return shape;
}

// How many heights of an underlay's text a ray would reach.
constexpr double kReachOfUnderlayText = 400;

// Underlays are named where they begin: documents do not hold their size.
ShapePtr UnderlayShape(const QJsonObject& record, double reach) {
  const QString name = QFileInfo(QString(record["path"].toString()).replace('\\', '/')).fileName();
  const TextLayout layout = LayOutText(
      {.html = HtmlOfPlainText(QString("%1, page %2").arg(name).arg(record["page"].toInt(1))),
       .height = reach / kReachOfUnderlayText});
  QTransform place;
  place.translate(NumberOf(record, "ix"), NumberOf(record, "iy"));
  place.rotateRadians(NumberOf(record, "angle"));
  return PlacedText(layout, place);
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
  kUnderlay
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
                                             {"PDFUNDERLAY", Type::kUnderlay}};
  return types.value(word, Type::kUnknown);
}

}  // namespace

std::vector<QPointF> PointsOf(const QJsonArray& pairs) {
  std::vector<QPointF> points;
  for (const auto& pair : pairs) {
    const QJsonArray numbers = pair.toArray();
    points.emplace_back(numbers[0].toDouble(), numbers[1].toDouble());
  }
  return points;
}

ShapePtr MakeShape(const QJsonObject& record, const ShapeContext& context) {
  switch (TypeOf(record["type"].toString())) {
    case Type::kLine: return LineShape(record);
    case Type::kPoint: return PointShape(record);
    case Type::kRay: return RayShape(record, context.reach, false);
    case Type::kXline: return RayShape(record, context.reach, true);
    case Type::kCircle: return Outline(CirclePath(record));
    case Type::kArc: return ArcShape(record);
    case Type::kEllipse: return Outline(EllipsePathOf(record));
    case Type::kPolyline: return PolylineShape(record);
    case Type::kSpline: return SplineShape(record);
    case Type::kHatch: return HatchShape(record);
    case Type::kSolid:
      return Filled(StraightPath(PointsOf(record["pts"].toArray()), true), Fill::kSolid);
    case Type::kWipeout: return WipeoutShape(record);
    case Type::kText: return SingleLineShape(SingleLineSource(record), record);
    case Type::kDynText: return AttributeShape(record);
    case Type::kMtext: return MtextShape(record);
    case Type::kLeader: return LeaderShape(record);
    case Type::kMultileader: return MultileaderShape(record);
    case Type::kDimension: return DimensionShape(record, context);
    case Type::kImage: return ImageShape(record, context.folder);
    case Type::kUnderlay: return UnderlayShape(record, context.reach);
    case Type::kUnknown: break;
  }
  return nullptr;
}

QPainterPath OutlineOf(const QJsonObject& record) {
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
