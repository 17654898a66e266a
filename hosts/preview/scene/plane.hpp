// Points of space as they are seen from above, which is how a preview looks at
// everything but views of viewports.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QPointF>
#include <QTransform>

#include <vector>

namespace preview {

struct Vector3 {
  double x = 0;
  double y = 0;
  double z = 0;
};

Vector3 Cross(const Vector3& a, const Vector3& b);

std::vector<double> NumbersOf(const QJsonValue& list);

// A list of three numbers; missing ones are 0.
Vector3 VectorOf(const QJsonValue& numbers);

inline QPointF FromAbove(const Vector3& v) {
  return {v.x, v.y};
}

// The same of a list, and of a list of lists.
QPointF PointFromAbove(const QJsonValue& numbers);
std::vector<QPointF> PointsFromAbove(const QJsonValue& points);

// A block's own coordinates to those that its reference counts in.
QTransform PlaceOfReference(QPointF at, double rotation, QPointF scale);

// The axes of a plane with this normal by the arbitrary axis algorithm, as a
// transform of its points to the world seen from above.
QTransform PlaneOfNormal(const Vector3& normal, double elevation);

// Of a record whose points lie in a plane of their own; the identity for one that
// has no `extrusion`, or whose points are in the world all the same.
QTransform PlaneOf(const QJsonObject& record);

}  // namespace preview
