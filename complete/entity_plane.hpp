// The plane that an entity lies in, and the way from it to the world's system.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

struct SpacePoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

// The entity's own system has the extrusion as its z axis; its other axes follow from
// that by the arbitrary axis algorithm of the DXF reference.
class EntityPlane {
 public:
  // An extrusion without length or with a coordinate that is not finite counts as the
  // z axis.
  explicit EntityPlane(const BITCODE_BE& extrusion);

  // Whether the entity's system is the world's.
  bool IsWorld() const { return isWorld_; }

  SpacePoint ToWorld(double x, double y, double z) const;

  // Of length 1.
  const SpacePoint& xAxis() const { return xAxis_; }
  const SpacePoint& yAxis() const { return yAxis_; }
  const SpacePoint& normal() const { return normal_; }

 private:
  bool isWorld_ = true;
  SpacePoint xAxis_{1, 0, 0};
  SpacePoint yAxis_{0, 1, 0};
  SpacePoint normal_{0, 0, 1};
};
