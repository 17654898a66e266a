#include "complete/curve_keys.hpp"

#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/solid.hpp"

namespace {

// CIRCLE and ARC share their centre.
template <typename Curve>
void AppendCenterFurtherKeys(JsonOut& out, const Curve& curve) {
  AppendPlaneKeys(out, curve.center.z, curve.thickness, curve.extrusion);
  AppendWorld(out, curve.extrusion, [&](const EntityPlane& plane) {
    AppendSpacePoint(out,
                     ",\"center\":", plane.ToWorld(curve.center.x, curve.center.y, curve.center.z));
  });
}

}  // namespace

void AppendLineFurtherKeys(JsonOut& out, const Dwg_Entity_LINE& line) {
  AppendNonZeroKey(out, ",\"startZ\":", line.start.z);
  AppendNonZeroKey(out, ",\"endZ\":", line.end.z);
  AppendPlaneKeys(out, 0, line.thickness, line.extrusion);
}

void AppendPointFurtherKeys(JsonOut& out, const Dwg_Entity_POINT& point) {
  AppendNonZeroKey(out, ",\"z\":", point.z);
  AppendNonZeroKey(out, ",\"angleRad\":", point.x_ang);
  AppendPlaneKeys(out, 0, point.thickness, point.extrusion);
}

void AppendRayFurtherKeys(JsonOut& out, const Dwg_Entity_RAY& ray) {
  AppendNonZeroKey(out, ",\"z\":", ray.point.z);
  AppendNonZeroKey(out, ",\"dz\":", ray.vector.z);
}

void AppendCircleFurtherKeys(JsonOut& out, const Dwg_Entity_CIRCLE& circle) {
  AppendCenterFurtherKeys(out, circle);
}

void AppendArcFurtherKeys(JsonOut& out, const Dwg_Entity_ARC& arc) {
  AppendCenterFurtherKeys(out, arc);
}

void AppendEllipseFurtherKeys(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse) {
  AppendNonZeroKey(out, ",\"cz\":", ellipse.center.z);
  AppendNonZeroKey(out, ",\"smAxisZ\":", ellipse.sm_axis.z);
  AppendPlaneKeys(out, 0, 0, ellipse.extrusion);
}

void AppendSolidFurtherKeys(JsonOut& out, const Dwg_Entity_SOLID& solid) {
  AppendPlaneKeys(out, solid.elevation, solid.thickness, solid.extrusion);
  AppendWorld(out, solid.extrusion, [&](const EntityPlane& plane) {
    JsonList points(out, ",\"pts\":[");
    ForEachSolidCorner(solid, [&](const BITCODE_2RD& corner) {
      AddPoint(points, plane.ToWorld(corner.x, corner.y, solid.elevation));
    });
    points.Close();
  });
}

void AppendTraceFurtherKeys(JsonOut& out, const Dwg_Entity_TRACE& trace) {
  AppendPlaneKeys(out, trace.elevation, trace.thickness, trace.extrusion);
  AppendWorld(out, trace.extrusion, [&](const EntityPlane& plane) {
    JsonList points(out, ",\"points\":[");
    for (const BITCODE_2RD* corner :
         {&trace.corner1, &trace.corner2, &trace.corner3, &trace.corner4}) {
      AddPoint(points, plane.ToWorld(corner->x, corner->y, trace.elevation));
    }
    points.Close();
  });
}
