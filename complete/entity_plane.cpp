#include "complete/entity_plane.hpp"

#include <algorithm>
#include <cmath>

namespace {

// Nearer than this to the world's z axis, the x axis is found from the y axis.
constexpr double kNearZAxis = 1.0 / 64;

SpacePoint Cross(const SpacePoint& a, const SpacePoint& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// Divided by its largest coordinate first, so that no square runs over.
SpacePoint Normalized(const SpacePoint& v) {
  const double largest = std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)});
  const SpacePoint scaled{v.x / largest, v.y / largest, v.z / largest};
  const double length = std::sqrt(scaled.x * scaled.x + scaled.y * scaled.y + scaled.z * scaled.z);
  return {scaled.x / length, scaled.y / length, scaled.z / length};
}

bool IsDirection(const BITCODE_BE& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z) &&
         (v.x != 0 || v.y != 0 || v.z != 0);
}

bool IsZAxis(const BITCODE_BE& v) {
  return v.x == 0 && v.y == 0 && v.z > 0;
}

}  // namespace

EntityPlane::EntityPlane(const BITCODE_BE& extrusion) {
  if (IsZAxis(extrusion) || !IsDirection(extrusion)) {
    return;
  }
  isWorld_ = false;
  normal_ = Normalized({extrusion.x, extrusion.y, extrusion.z});
  const bool isNearZ = std::fabs(normal_.x) < kNearZAxis && std::fabs(normal_.y) < kNearZAxis;
  const SpacePoint reference = isNearZ ? SpacePoint{0, 1, 0} : SpacePoint{0, 0, 1};
  xAxis_ = Normalized(Cross(reference, normal_));
  yAxis_ = Normalized(Cross(normal_, xAxis_));
}

SpacePoint EntityPlane::ToWorld(double x, double y, double z) const {
  return {x * xAxis_.x + y * yAxis_.x + z * normal_.x, x * xAxis_.y + y * yAxis_.y + z * normal_.y,
          x * xAxis_.z + y * yAxis_.z + z * normal_.z};
}
