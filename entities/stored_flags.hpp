// What single bits of LibreDWG's stored flags say, where more than one place
// asks.
#pragma once

#include <dwg.h>

#include <cstdint>

#include "entities/drawing_access.hpp"

// The handle of the entity that clips a non-rectangular viewport; 0 for any
// other viewport.
inline Handle ClipBoundaryOf(const Dwg_Entity_VIEWPORT& viewport) {
  constexpr std::uint32_t kNonRectangularClip = 0x10000;
  return (viewport.status_flag & kNonRectangularClip) == 0 ? 0 : HandleOf(viewport.clip_boundary);
}

// Whether a hatch boundary is a polyline; else it is a list of edges.
inline bool IsPolylinePath(const Dwg_HATCH_Path& path) {
  constexpr unsigned kPolylinePath = 2;
  return (path.flag & kPolylinePath) != 0;
}
