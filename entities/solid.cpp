#include "entities/solid.hpp"

#include "encode/json_list.hpp"

namespace {

// Square of the distance under which two corners are one.
constexpr double kSameCornerSquared = 1e-20;

bool Coincide(const BITCODE_2RD& a, const BITCODE_2RD& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return dx * dx + dy * dy < kSameCornerSquared;
}

}  // namespace

void AppendSolid(JsonOut& out, const Dwg_Entity_SOLID& solid) {
  JsonList points(out, ",\"pts\":[");
  points.Point(solid.corner1.x, solid.corner1.y);
  points.Point(solid.corner2.x, solid.corner2.y);
  if (!Coincide(solid.corner3, solid.corner4)) {
    points.Point(solid.corner4.x, solid.corner4.y);
  }
  points.Point(solid.corner3.x, solid.corner3.y);
  points.Close();
}
