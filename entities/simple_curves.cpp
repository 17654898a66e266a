#include "entities/simple_curves.hpp"

#include <cmath>

#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"

namespace {

// RAY and XLINE share one layout.
template <typename Curve>
std::string DirectedRecord(std::string_view type, const Curve& curve, std::string_view layer) {
  std::string out = BeginRecord(type, layer);
  AppendNumberKey(out, ",\"x\":", curve.point.x);
  AppendNumberKey(out, ",\"y\":", curve.point.y);
  AppendNumberKey(out, ",\"dx\":", curve.vector.x);
  AppendNumberKey(out, ",\"dy\":", curve.vector.y);
  out += '}';
  return out;
}

template <typename Curve>
void AppendCenterAndRadius(std::string& out, const Curve& curve) {
  AppendNumberKey(out, ",\"cx\":", curve.center.x);
  AppendNumberKey(out, ",\"cy\":", curve.center.y);
  AppendNumberKey(out, ",\"radius\":", curve.radius);
}

template <typename Curve>
void AppendAngles(std::string& out, const Curve& curve) {
  AppendNumberKey(out, ",\"startAngleRad\":", curve.start_angle);
  AppendNumberKey(out, ",\"endAngleRad\":", curve.end_angle);
}

}  // namespace

std::string LineRecord(const Dwg_Entity_LINE& line, std::string_view layer) {
  std::string out = BeginRecord("LINE", layer);
  AppendNumberKey(out, ",\"startX\":", line.start.x);
  AppendNumberKey(out, ",\"startY\":", line.start.y);
  AppendNumberKey(out, ",\"endX\":", line.end.x);
  AppendNumberKey(out, ",\"endY\":", line.end.y);
  out += '}';
  return out;
}

std::string PointRecord(const Dwg_Entity_POINT& point, std::string_view layer) {
  std::string out = BeginRecord("POINT", layer);
  AppendNumberKey(out, ",\"x\":", point.x);
  AppendNumberKey(out, ",\"y\":", point.y);
  out += '}';
  return out;
}

std::string RayRecord(const Dwg_Entity_RAY& ray, std::string_view layer) {
  return DirectedRecord("RAY", ray, layer);
}

std::string XlineRecord(const Dwg_Entity_XLINE& xline, std::string_view layer) {
  return DirectedRecord("XLINE", xline, layer);
}

std::string CircleRecord(const Dwg_Entity_CIRCLE& circle, std::string_view layer) {
  std::string out = BeginRecord("CIRCLE", layer);
  AppendCenterAndRadius(out, circle);
  out += '}';
  return out;
}

std::string ArcRecord(const Dwg_Entity_ARC& arc, std::string_view layer) {
  std::string out = BeginRecord("ARC", layer);
  AppendCenterAndRadius(out, arc);
  AppendAngles(out, arc);
  out += '}';
  return out;
}

std::string EllipseRecord(const Dwg_Entity_ELLIPSE& ellipse, std::string_view layer) {
  const BITCODE_3BD& axis = ellipse.sm_axis;
  std::string out = BeginRecord("ELLIPSE", layer);
  AppendNumberKey(out, ",\"cx\":", ellipse.center.x);
  AppendNumberKey(out, ",\"cy\":", ellipse.center.y);
  AppendNumberKey(out, ",\"smAxisX\":", axis.x);
  AppendNumberKey(out, ",\"smAxisY\":", axis.y);
  AppendNumberKey(
      out, ",\"semiMajor\":", std::sqrt(axis.x * axis.x + axis.y * axis.y + axis.z * axis.z));
  AppendNumberKey(out, ",\"axisRatio\":", ellipse.axis_ratio);
  AppendAngles(out, ellipse);
  out += '}';
  return out;
}
