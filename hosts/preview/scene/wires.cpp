#include "scene/wires.hpp"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

#include "model/record.hpp"
#include "scene/curves.hpp"
#include "scene/plane.hpp"
#include "scene/text_layout.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

Part Line(const QPainterPath& path) {
  return {.path = path, .fill = Fill::kNone, .ink = std::nullopt};
}

std::vector<Part> OnlyPart(const QPainterPath& path) {
  return path.isEmpty() ? std::vector<Part>{} : std::vector<Part>{Line(path)};
}

std::optional<Ink> OwnInk(const QJsonObject& record, const char* key, const InkOfValue& inkOf) {
  const QJsonValue color = record[QLatin1String(key)];
  return color.isUndefined() ? std::nullopt : std::optional<Ink>(inkOf(color));
}

void AddEdge(QPainterPath& path, QPointF from, QPointF to) {
  path.moveTo(from);
  path.lineTo(to);
}

// Whether the number names one of so many things.
bool IsIndex(const QJsonValue& value, std::size_t count) {
  return value.isDouble() && value.toDouble() >= 0 && value.toDouble() < static_cast<double>(count);
}

std::vector<QPointF> PointsNamed(const QJsonArray& numbers, const std::vector<QPointF>& points) {
  std::vector<QPointF> named;
  for (const auto& number : numbers) {
    if (IsIndex(number, points.size())) {
      named.push_back(points[static_cast<std::size_t>(number.toDouble())]);
    }
  }
  return named;
}

QPainterPath GridPath(const std::vector<QPointF>& points, qsizetype rows, qsizetype columns,
                      bool closedRows, bool closedColumns) {
  QPainterPath path;
  if (rows < 1 || columns < 1 || static_cast<qsizetype>(points.size()) / columns < rows) {
    return path;
  }
  const auto at = [&](qsizetype row, qsizetype column) {
    return points[static_cast<std::size_t>((row % rows) * columns + column % columns)];
  };
  for (qsizetype row = 0; row < rows; ++row) {
    for (qsizetype column = 0; column < columns; ++column) {
      if (column + 1 < columns || closedColumns) {
        AddEdge(path, at(row, column), at(row, column + 1));
      }
      if (row + 1 < rows || closedRows) {
        AddEdge(path, at(row, column), at(row + 1, column));
      }
    }
  }
  return path;
}

QPainterPath FacePath(const QJsonObject& face, const std::vector<QPointF>& points) {
  QPainterPath path;
  const std::vector<QPointF> corners = PointsNamed(face["vertices"].toArray(), points);
  const QJsonArray edges = face["edges"].toArray();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    if (edges[static_cast<qsizetype>(i)].toBool(true)) {
      AddEdge(path, corners[i], corners[(i + 1) % corners.size()]);
    }
  }
  return path;
}

std::vector<Part> PolyfaceParts(const QJsonObject& record, const std::vector<QPointF>& points,
                                const InkOfValue& inkOf) {
  std::vector<Part> parts;
  for (const auto& value : record["faces"].toArray()) {
    const QJsonObject face = value.toObject();
    const QPainterPath path = FacePath(face, points);
    if (!path.isEmpty()) {
      parts.push_back({.path = path, .fill = Fill::kNone, .ink = OwnInk(face, "color", inkOf)});
    }
  }
  return parts;
}

QPainterPath FacesPath(const QJsonArray& faces, const std::vector<QPointF>& points) {
  QPainterPath path;
  for (const auto& face : faces) {
    const std::vector<QPointF> corners = PointsNamed(face.toArray(), points);
    if (corners.size() > 1) {
      path.addPath(StraightPath(corners, true));
    }
  }
  return path;
}

// Four rows of four numbers; points are columns.
struct Matrix {
  double row[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};

  Vector3 Map(const Vector3& v) const {
    const auto one = [&](const double* r) { return r[0] * v.x + r[1] * v.y + r[2] * v.z + r[3]; };
    return {one(row[0]), one(row[1]), one(row[2])};
  }
};

Matrix MatrixOf(const QJsonValue& rows) {
  Matrix matrix;
  const QJsonArray list = rows.toArray();
  for (qsizetype i = 0; i < 3 && i < list.size(); ++i) {
    const QJsonArray numbers = list[i].toArray();
    for (qsizetype j = 0; j < 4 && j < numbers.size(); ++j) {
      matrix.row[i][j] = numbers[j].toDouble(matrix.row[i][j]);
    }
  }
  return matrix;
}

Matrix Product(const Matrix& a, const Matrix& b) {
  Matrix product;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 4; ++j) {
      product.row[i][j] = (j == 3 ? a.row[i][3] : 0);
      for (int k = 0; k < 3; ++k) {
        product.row[i][j] += a.row[i][k] * b.row[k][j];
      }
    }
  }
  return product;
}

// The circle through three points, as its centre; none for points on a line.
std::optional<QPointF> CenterOf(QPointF a, QPointF b, QPointF c) {
  const QPointF u = b - a;
  const QPointF v = c - a;
  const double area = 2 * (u.x() * v.y() - u.y() * v.x());
  if (area == 0 || !std::isfinite(area)) {
    return std::nullopt;
  }
  const double uu = Dot(u, u);
  const double vv = Dot(v, v);
  return a + QPointF(v.y() * uu - u.y() * vv, u.x() * vv - v.x() * uu) / area;
}

class ProxyReader {
 public:
  explicit ProxyReader(const InkOfValue& inkOf) : inkOf_(inkOf) {}

  std::vector<Part> Read(const QJsonArray& items) {
    for (const auto& value : items) {
      Add(value.toObject());
    }
    return std::move(parts_);
  }

 private:
  void Add(const QJsonObject& item) {
    const QString type = item["type"].toString();
    if (type == QLatin1String("PUSH_MATRIX")) {
      matrices_.push_back(Product(Current(), MatrixOf(item["matrix"])));
    } else if (type == QLatin1String("POP_MATRIX")) {
      if (!matrices_.empty()) {
        matrices_.pop_back();
      }
    } else if (type == QLatin1String("TEXT")) {
      AddText(item);
    } else {
      AddPath(item, PathOf(item, type));
    }
  }

  Matrix Current() const { return matrices_.empty() ? Matrix() : matrices_.back(); }

  std::vector<QPointF> Points(const QJsonValue& list) const {
    std::vector<QPointF> points;
    for (const auto& point : list.toArray()) {
      points.push_back(FromAbove(Current().Map(VectorOf(point))));
    }
    return points;
  }

  // A plane's axes, by its normal, and a place in it, mapped.
  QTransform PlaneAt(const QJsonObject& item, const char* origin, double radius) const {
    const QJsonValue normal = item["normal"];
    const QTransform axes =
        normal.isUndefined() ? QTransform() : PlaneOfNormal(VectorOf(normal), 0);
    const Vector3 at = VectorOf(item[QLatin1String(origin)]);
    const Matrix& m = Current();
    const QPointF center = FromAbove(m.Map(at));
    const auto axis = [&](double x, double y) {
      const Vector3 end{at.x + x * radius, at.y + y * radius, at.z};
      return FromAbove(m.Map(end)) - center;
    };
    const QPointF u = axis(axes.m11(), axes.m12());
    const QPointF v = axis(axes.m21(), axes.m22());
    return {u.x(), u.y(), v.x(), v.y(), center.x(), center.y()};
  }

  QPainterPath PathOf(const QJsonObject& item, const QString& type) const {
    if (type == QLatin1String("CIRCLE")) {
      return PlaneAt(item, "center", NumberOf(item, "radius")).map(ArcPath({}, 1, 0, 0));
    }
    if (type == QLatin1String("ARC")) {
      return ArcOf(item);
    }
    if (type == QLatin1String("CIRCLE_3P") || type == QLatin1String("ARC_3P")) {
      return ThreePoints(Points(item["points"]), type == QLatin1String("CIRCLE_3P"));
    }
    if (type == QLatin1String("ELLIPSE")) {
      return EllipseOf(item);
    }
    if (type == QLatin1String("MESH")) {
      return GridPath(Points(item["points"]), item["rows"].toInt(), item["columns"].toInt(), false,
                      false);
    }
    if (type == QLatin1String("SHELL")) {
      return FacesPath(item["faces"].toArray(), Points(item["points"]));
    }
    if (type == QLatin1String("LWPOLYLINE")) {
      return Bulged(item);
    }
    const bool isRun = type == QLatin1String("POLYLINE") || type == QLatin1String("POLYGON");
    return isRun ? StraightPath(Points(item["points"]), type == QLatin1String("POLYGON"))
                 : QPainterPath();
  }

  QPainterPath ArcOf(const QJsonObject& item) const {
    const Vector3 start = VectorOf(item["startDirection"]);
    const Vector3 normal = VectorOf(item["normal"]);
    const double sign = normal.z < 0 ? -1 : 1;
    const double from = std::atan2(start.y, start.x);
    const double sweep = sign * NumberOf(item, "sweepRad");
    QJsonObject flat = item;
    flat.remove("normal");
    return PlaneAt(flat, "center", NumberOf(item, "radius"))
        .map(ArcPath({}, 1, sweep < 0 ? from + sweep : from, sweep < 0 ? from : from + sweep));
  }

  QPainterPath EllipseOf(const QJsonObject& item) const {
    const double major = NumberOf(item, "majorRadius");
    const QPainterPath unit =
        EllipsePath({.center = {},
                     .majorLength = major,
                     .majorAngle = NumberOf(item, "rotationRad"),
                     .ratio = major > 0 ? NumberOf(item, "minorRadius") / major : 1},
                    NumberOf(item, "startParam"), NumberOf(item, "endParam"));
    return PlaneAt(item, "center", 1).map(unit);
  }

  static QPainterPath ThreePoints(const std::vector<QPointF>& points, bool whole) {
    if (points.size() != 3) {
      return {};
    }
    const std::optional<QPointF> center = CenterOf(points[0], points[1], points[2]);
    if (!center) {
      return StraightPath(points, false);
    }
    const auto angle = [&](QPointF p) {
      return std::atan2(p.y() - center->y(), p.x() - center->x());
    };
    const double radius = Length(points[0] - *center);
    if (whole) {
      return ArcPath(*center, radius, 0, 0);
    }
    const QPointF u = points[1] - points[0];
    const QPointF v = points[2] - points[1];
    const bool ccw = u.x() * v.y() - u.y() * v.x() > 0;
    return ArcPath(*center, radius, angle(points[ccw ? 0 : 2]), angle(points[ccw ? 2 : 0]));
  }

  QPainterPath Bulged(const QJsonObject& item) const {
    std::vector<double> bulges;
    for (const auto& bulge : item["bulges"].toArray()) {
      bulges.push_back(bulge.toDouble());
    }
    return BulgedPath(Points(item["points"]), bulges, item["closed"].toBool());
  }

  void AddPath(const QJsonObject& item, QPainterPath path) {
    if (path.isEmpty()) {
      return;
    }
    const bool filled = item["filled"].toBool();
    path.setFillRule(Qt::OddEvenFill);
    parts_.push_back({.path = path,
                      .fill = filled ? Fill::kSolid : Fill::kNone,
                      .ink = OwnInk(item, "color", inkOf_)});
  }

  void AddText(const QJsonObject& item) {
    const TextLayout layout = LayOutText({.html = HtmlOfPlainText(item["text"].toString()),
                                          .family = item["typeface"].toString(),
                                          .height = NumberOf(item, "height"),
                                          .widthFactor = item["widthFactor"].toDouble(1),
                                          .obliqueRad = NumberOf(item, "obliqueRad")});
    const Vector3 along = VectorOf(item["direction"]);
    const QPointF at = FromAbove(Current().Map(VectorOf(item["position"])));
    QTransform place;
    place.translate(at.x(), at.y());
    place.rotateRadians(std::atan2(along.y, along.x));
    const std::size_t first = parts_.size();
    AppendPlaced(parts_, layout, place);
    for (std::size_t i = first; i < parts_.size(); ++i) {
      parts_[i].ink = OwnInk(item, "color", inkOf_);
    }
  }

  const InkOfValue& inkOf_;
  std::vector<Part> parts_;
  std::vector<Matrix> matrices_;
};

// From the outermost element's corner to the other's, at one end.
QPainterPath CapPath(const QJsonObject& caps, QPointF a, QPointF b) {
  QPainterPath path;
  if (caps["line"].toBool()) {
    AddEdge(path, a, b);
  }
  if (caps["outerArc"].toBool()) {
    const QPointF ends[] = {a, b};
    const double bulges[] = {-1};
    path.addPath(BulgedPath(ends, bulges, false));
  }
  return path;
}

// The outermost elements' points, from first to last: the one with the greatest
// offset and the one with the least.
std::pair<std::vector<QPointF>, std::vector<QPointF>> OuterRows(const QJsonArray& elements) {
  std::vector<QPointF> top;
  std::vector<QPointF> bottom;
  double greatest = 0;
  double least = 0;
  for (const auto& value : elements) {
    const QJsonObject element = value.toObject();
    std::vector<QPointF> points;
    for (const auto& line : element["lines"].toArray()) {
      const std::vector<QPointF> more = PointsFromAbove(line);
      points.insert(points.end(), more.begin(), more.end());
    }
    const double offset = NumberOf(element, "offset");
    if (points.empty()) {
      continue;
    }
    if (top.empty() || offset > greatest) {
      top = points;
      greatest = offset;
    }
    if (bottom.empty() || offset < least) {
      bottom = points;
      least = offset;
    }
  }
  return {top, bottom};
}

}  // namespace

std::vector<Part> FaceParts(const QJsonObject& record) {
  const std::vector<QPointF> corners = PointsFromAbove(record["points"]);
  const QJsonArray edges = record["edges"].toArray();
  QPainterPath path;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const QPointF next = corners[(i + 1) % corners.size()];
    if (edges[static_cast<qsizetype>(i)].toBool(true) && corners[i] != next) {
      AddEdge(path, corners[i], next);
    }
  }
  return OnlyPart(path);
}

std::vector<Part> MeshParts(const QJsonObject& record, const InkOfValue& inkOf) {
  const std::vector<QPointF> points = PointsFromAbove(record["points"]);
  if (IsType(record, "POLYLINE_MESH")) {
    return OnlyPart(GridPath(points, record["m"].toInt(), record["n"].toInt(),
                             record["closedM"].toBool(), record["closedN"].toBool()));
  }
  if (IsType(record, "POLYLINE_PFACE")) {
    return PolyfaceParts(record, points, inkOf);
  }
  return OnlyPart(FacesPath(record["faces"].toArray(), points));
}

std::vector<Part> WireParts(const QJsonObject& record) {
  QPainterPath path;
  for (const auto& value : record["wires"].toArray()) {
    const QJsonObject wire = value.toObject();
    std::vector<QPointF> points;
    const Matrix matrix = MatrixOf(wire["transform"]);
    for (const auto& point : wire["points"].toArray()) {
      points.push_back(FromAbove(matrix.Map(VectorOf(point))));
    }
    path.addPath(StraightPath(points, false));
  }
  return OnlyPart(path);
}

std::vector<Part> MultilineParts(const QJsonObject& record, const InkOfValue& inkOf) {
  std::vector<Part> parts;
  const QJsonArray elements = record["elements"].toArray();
  const auto [top, bottom] = OuterRows(elements);
  if (record.contains("fillColor") && top.size() > 1 && bottom.size() > 1) {
    std::vector<QPointF> around = top;
    around.insert(around.end(), bottom.rbegin(), bottom.rend());
    QPainterPath area = StraightPath(around, true);
    area.setFillRule(Qt::OddEvenFill);
    parts.push_back(
        {.path = area, .fill = Fill::kSolid, .ink = OwnInk(record, "fillColor", inkOf)});
  }
  for (const auto& value : elements) {
    const QJsonObject element = value.toObject();
    for (const auto& line : element["lines"].toArray()) {
      parts.push_back({.path = StraightPath(PointsFromAbove(line), false),
                       .fill = Fill::kNone,
                       .ink = OwnInk(element, "color", inkOf)});
    }
  }
  if (!top.empty() && !bottom.empty() && !record["closed"].toBool()) {
    QPainterPath caps = CapPath(record["startCaps"].toObject(), bottom.front(), top.front());
    caps.addPath(CapPath(record["endCaps"].toObject(), top.back(), bottom.back()));
    parts.push_back(Line(caps));
  }
  if (record["showsMiters"].toBool() && top.size() == bottom.size()) {
    QPainterPath miters;
    for (std::size_t i = 0; i < top.size(); ++i) {
      AddEdge(miters, top[i], bottom[i]);
    }
    parts.push_back(Line(miters));
  }
  return parts;
}

std::vector<Part> ProxyParts(const QJsonObject& record, const InkOfValue& inkOf) {
  return ProxyReader(inkOf).Read(record["graphics"].toArray());
}

}  // namespace preview
