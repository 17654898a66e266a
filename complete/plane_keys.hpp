// The keys of entities that lie in a plane of their own.
#pragma once

#include <dwg.h>

#include <string_view>

#include "complete/entity_plane.hpp"
#include "encode/json_list.hpp"
#include "encode/json_out.hpp"

// `elevation` (group 38, or the z of group 10), `thickness` (group 39) and `extrusion`
// (group 210), each where it is not 0, or not the z axis; lengths in drawing units.
void AppendPlaneKeys(JsonOut& out, double elevation, double thickness, const BITCODE_BE& extrusion);

// `key` and the number, unless it is 0.
void AppendNonZeroKey(JsonOut& out, std::string_view key, double value);

// `[x,y,z]` as an item of a list.
inline void AddPoint(JsonList& list, const SpacePoint& point) {
  list.Point(point.x, point.y, point.z);
}

// Begins `world` with the plane's axes `xAxis` and `yAxis`, as unit vectors.
void BeginWorld(JsonOut& out, const EntityPlane& plane);

// `key` and `[x,y,z]`.
void AppendSpacePoint(JsonOut& out, std::string_view key, const SpacePoint& point);

// `world`: where an entity lies whose system is not the world's. `append` is called
// with its plane and appends the points, each key with its comma.
template <typename Append>
void AppendWorld(JsonOut& out, const BITCODE_BE& extrusion, Append append) {
  const EntityPlane plane(extrusion);
  if (plane.IsWorld()) {
    return;
  }
  BeginWorld(out, plane);
  append(plane);
  out += '}';
}
