#include "scene/plane.hpp"

#include <cmath>

#include "model/record.hpp"

namespace preview {
namespace {

// Nearer to the z axis than this, a normal's x axis comes from the world's Y.
constexpr double kNearZ = 1.0 / 64;

Vector3 Normalized(const Vector3& v) {
  const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
  return length > 0 && std::isfinite(length) ? Vector3{v.x / length, v.y / length, v.z / length}
                                             : Vector3{0, 0, 1};
}

QTransform Seen(const Vector3& x, const Vector3& y, const Vector3& z, double elevation) {
  return {x.x, x.y, y.x, y.y, z.x * elevation, z.y * elevation};
}

}  // namespace

Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

std::vector<double> NumbersOf(const QJsonValue& list) {
  std::vector<double> numbers;
  for (const auto& value : list.toArray()) {
    numbers.push_back(value.toDouble());
  }
  return numbers;
}

Vector3 VectorOf(const QJsonValue& numbers) {
  const QJsonArray list = numbers.toArray();
  return {list[0].toDouble(), list[1].toDouble(), list[2].toDouble()};
}

QPointF PointFromAbove(const QJsonValue& numbers) {
  return FromAbove(VectorOf(numbers));
}

std::vector<QPointF> PointsFromAbove(const QJsonValue& points) {
  std::vector<QPointF> all;
  for (const auto& point : points.toArray()) {
    all.push_back(PointFromAbove(point));
  }
  return all;
}

QTransform PlaceOfReference(QPointF at, double rotation, QPointF scale) {
  QTransform transform;
  transform.translate(at.x(), at.y());
  transform.rotateRadians(rotation);
  transform.scale(scale.x(), scale.y());
  return transform;
}

QTransform PlaneOfNormal(const Vector3& normal, double elevation) {
  const Vector3 z = Normalized(normal);
  const bool nearZ = std::abs(z.x) < kNearZ && std::abs(z.y) < kNearZ;
  const Vector3 x = Normalized(Cross(nearZ ? Vector3{0, 1, 0} : Vector3{0, 0, 1}, z));
  return Seen(x, Cross(z, x), z, elevation);
}

QTransform PlaneOf(const QJsonObject& record) {
  const QJsonObject world = record["world"].toObject();
  const double height = record["elevation"].toDouble(record["z"].toDouble());
  if (world.contains("xAxis")) {
    const Vector3 x = VectorOf(world["xAxis"]);
    const Vector3 y = VectorOf(world["yAxis"]);
    return Seen(x, y, Cross(x, y), height);
  }
  const bool isText =
      IsType(record, "TEXT") || IsType(record, "DYNTEXT") || IsType(record, "SHAPE");
  return isText && record.contains("extrusion")
             ? PlaneOfNormal(VectorOf(record["extrusion"]), height)
             : QTransform();
}

}  // namespace preview
