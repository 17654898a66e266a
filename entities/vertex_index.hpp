// The vertices that follow polylines in the drawing's object array.
//
// Polylines without an end marker share their followers; looked up here, a walk
// costs no more than the vertices that it finds.
#pragma once

#include <dwg.h>

#include <span>
#include <vector>

class VertexIndex {
 public:
  using Vertices = std::span<const Dwg_Object* const>;

  explicit VertexIndex(std::span<const Dwg_Object> objects);

  // The vertices of one kind between a polyline and the end of its walk: the
  // next SEQEND or object that is no entity. All of them have data.
  Vertices PointsAfter(const Dwg_Object& polyline) const { return After(polyline, points_); }
  Vertices FramePointsAfter(const Dwg_Object& polyline) const {
    return After(polyline, framePoints_);
  }
  Vertices SpatialPointsAfter(const Dwg_Object& polyline) const {
    return After(polyline, spatialPoints_);
  }

 private:
  using ObjectList = std::vector<const Dwg_Object*>;

  void Add(const Dwg_Object& object);
  Vertices After(const Dwg_Object& polyline, const ObjectList& vertices) const;

  std::span<const Dwg_Object> objects_;
  ObjectList walkEnds_;
  ObjectList points_;         // two-dimensional
  ObjectList framePoints_;    // spline frame control points
  ObjectList spatialPoints_;  // three-dimensional
};
