#include "entities/simple_curves.hpp"

#include <cmath>

#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"

namespace {

// RAY and XLINE share one layout.
template <typename Curve>
void AppendDirectedRecord(JsonOut& out, std::string_view type, const Curve& curve,
                          std::string_view layer) {
  BeginRecord(out, type, layer);
  AppendNumberKey(out, ",\"x\":", curve.point.x);
  AppendNumberKey(out, ",\"y\":", curve.point.y);
  AppendNumberKey(out, ",\"dx\":", curve.vector.x);
  AppendNumberKey(out, ",\"dy\":", curve.vector.y);
  out += '}';
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

void AppendLineRecord(JsonOut& out, const Dwg_Entity_LINE& line, std::string_view layer) {
  BeginRecord(out, "LINE", layer);
  AppendNumberKey(out, ",\"startX\":", line.start.x);
  AppendNumberKey(out, ",\"startY\":", line.start.y);
  AppendNumberKey(out, ",\"endX\":", line.end.x);
  AppendNumberKey(out, ",\"endY\":", line.end.y);
  out += '}';
}

void AppendPointRecord(JsonOut& out, const Dwg_Entity_POINT& point, std::string_view layer) {
  BeginRecord(out, "POINT", layer);
  AppendNumberKey(out, ",\"x\":", point.x);
  AppendNumberKey(out, ",\"y\":", point.y);
  out += '}';
}

void AppendRayRecord(JsonOut& out, const Dwg_Entity_RAY& ray, std::string_view layer) {
  AppendDirectedRecord(out, "RAY", ray, layer);
}

void AppendXlineRecord(JsonOut& out, const Dwg_Entity_XLINE& xline, std::string_view layer) {
  AppendDirectedRecord(out, "XLINE", xline, layer);
}

void AppendCircleRecord(JsonOut& out, const Dwg_Entity_CIRCLE& circle, std::string_view layer) {
  BeginRecord(out, "CIRCLE", layer);
  AppendCenterAndRadius(out, circle);
  out += '}';
}

void AppendArcRecord(JsonOut& out, const Dwg_Entity_ARC& arc, std::string_view layer) {
  BeginRecord(out, "ARC", layer);
  AppendCenterAndRadius(out, arc);
  AppendAngles(out, arc);
  out += '}';
}

void AppendEllipseRecord(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse, std::string_view layer) {
  const BITCODE_3BD& axis = ellipse.sm_axis;
  BeginRecord(out, "ELLIPSE", layer);
  AppendNumberKey(out, ",\"cx\":", ellipse.center.x);
  AppendNumberKey(out, ",\"cy\":", ellipse.center.y);
  AppendNumberKey(out, ",\"smAxisX\":", axis.x);
  AppendNumberKey(out, ",\"smAxisY\":", axis.y);
  AppendNumberKey(
      out, ",\"semiMajor\":", std::sqrt(axis.x * axis.x + axis.y * axis.y + axis.z * axis.z));
  AppendNumberKey(out, ",\"axisRatio\":", ellipse.axis_ratio);
  AppendAngles(out, ellipse);
  out += '}';
}
