#include "entities/simple_curves.hpp"

#include <cmath>

#include "encode/json_text.hpp"

namespace {

// RAY and XLINE share one layout.
template <typename Curve>
void AppendPointAndDirection(JsonOut& out, const Curve& curve) {
  AppendNumberKey(out, ",\"x\":", curve.point.x);
  AppendNumberKey(out, ",\"y\":", curve.point.y);
  AppendNumberKey(out, ",\"dx\":", curve.vector.x);
  AppendNumberKey(out, ",\"dy\":", curve.vector.y);
}

template <typename Curve>
void AppendCenterAndRadius(JsonOut& out, const Curve& curve) {
  AppendNumberKey(out, ",\"cx\":", curve.center.x);
  AppendNumberKey(out, ",\"cy\":", curve.center.y);
  AppendNumberKey(out, ",\"radius\":", curve.radius);
}

template <typename Curve>
void AppendAngles(JsonOut& out, const Curve& curve) {
  AppendNumberKey(out, ",\"startAngleRad\":", curve.start_angle);
  AppendNumberKey(out, ",\"endAngleRad\":", curve.end_angle);
}

}  // namespace

void AppendLine(JsonOut& out, const Dwg_Entity_LINE& line) {
  AppendNumberKey(out, ",\"startX\":", line.start.x);
  AppendNumberKey(out, ",\"startY\":", line.start.y);
  AppendNumberKey(out, ",\"endX\":", line.end.x);
  AppendNumberKey(out, ",\"endY\":", line.end.y);
}

void AppendPoint(JsonOut& out, const Dwg_Entity_POINT& point) {
  AppendNumberKey(out, ",\"x\":", point.x);
  AppendNumberKey(out, ",\"y\":", point.y);
}

void AppendRay(JsonOut& out, const Dwg_Entity_RAY& ray) {
  AppendPointAndDirection(out, ray);
}

void AppendXline(JsonOut& out, const Dwg_Entity_XLINE& xline) {
  AppendPointAndDirection(out, xline);
}

void AppendCircle(JsonOut& out, const Dwg_Entity_CIRCLE& circle) {
  AppendCenterAndRadius(out, circle);
}

void AppendArc(JsonOut& out, const Dwg_Entity_ARC& arc) {
  AppendCenterAndRadius(out, arc);
  AppendAngles(out, arc);
}

void AppendEllipse(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse) {
  const BITCODE_3BD& axis = ellipse.sm_axis;
  AppendNumberKey(out, ",\"cx\":", ellipse.center.x);
  AppendNumberKey(out, ",\"cy\":", ellipse.center.y);
  AppendNumberKey(out, ",\"smAxisX\":", axis.x);
  AppendNumberKey(out, ",\"smAxisY\":", axis.y);
  AppendNumberKey(
      out, ",\"semiMajor\":", std::sqrt(axis.x * axis.x + axis.y * axis.y + axis.z * axis.z));
  AppendNumberKey(out, ",\"axisRatio\":", ellipse.axis_ratio);
  AppendAngles(out, ellipse);
}
