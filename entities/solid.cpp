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

bool IsTriangle(const Dwg_Entity_SOLID& solid) {
  return Coincide(solid.corner3, solid.corner4);
}

void AppendSolid(JsonOut& out, const Dwg_Entity_SOLID& solid) {
  JsonList points(out, ",\"pts\":[");
  ForEachSolidCorner(solid, [&](const BITCODE_2RD& corner) { points.Point(corner.x, corner.y); });
  points.Close();
}
