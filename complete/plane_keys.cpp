#include "complete/plane_keys.hpp"

#include "complete/common_keys.hpp"
#include "encode/json_text.hpp"

void AppendPlaneKeys(JsonOut& out, double elevation, double thickness,
                     const BITCODE_BE& extrusion) {
  AppendNonZeroKey(out, ",\"elevation\":", elevation);
  AppendNonZeroKey(out, ",\"thickness\":", thickness);
  const EntityPlane plane(extrusion);
  if (!plane.IsWorld()) {
    AppendPointKey(out, ",\"extrusion\":", extrusion.x, extrusion.y, extrusion.z);
  }
}

void AppendNonZeroKey(JsonOut& out, std::string_view key, double value) {
  if (value != 0) {
    AppendNumberKey(out, key, value);
  }
}

void AppendSpacePoint(JsonOut& out, std::string_view key, const SpacePoint& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

void BeginWorld(JsonOut& out, const EntityPlane& plane) {
  AppendSpacePoint(out, ",\"world\":{\"xAxis\":", plane.xAxis());
  AppendSpacePoint(out, ",\"yAxis\":", plane.yAxis());
}
