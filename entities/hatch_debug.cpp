#include "entities/hatch_debug.hpp"

#include <cstdio>
#include <cstdlib>

#include "entities/drawing_access.hpp"
#include "entities/stored_flags.hpp"

namespace {

void DumpVertices(const Dwg_HATCH_Path& path) {
  unsigned j = 0;
  for (const auto& vertex : SpanOf(path.polyline_paths, path.num_segs_or_paths)) {
    std::fprintf(stderr, "    v%02u (%0.6f, %0.6f) bulge=%g\n", j++, vertex.point.x, vertex.point.y,
                 path.bulges_present != 0 ? vertex.bulge : 0.0);
  }
}

void DumpSegments(const Dwg_HATCH_Path& path) {
  unsigned j = 0;
  for (const auto& segment : SpanOf(path.segs, path.num_segs_or_paths)) {
    switch (segment.curve_type) {
      case 1:
        std::fprintf(stderr, "    seg%02u LINE (%0.6f,%0.6f)->(%0.6f,%0.6f)\n", j,
                     segment.first_endpoint.x, segment.first_endpoint.y, segment.second_endpoint.x,
                     segment.second_endpoint.y);
        break;
      case 2:
        std::fprintf(stderr, "    seg%02u ARC c=(%0.6f,%0.6f) r=%0.6f a0=%0.6f a1=%0.6f ccw=%d\n",
                     j, segment.center.x, segment.center.y, segment.radius, segment.start_angle,
                     segment.end_angle, segment.is_ccw);
        break;
      default: std::fprintf(stderr, "    seg%02u type=%d\n", j, segment.curve_type); break;
    }
    ++j;
  }
}

}  // namespace

bool HatchDebugEnabled() {
  static const bool enabled = [] {
    const char* value = std::getenv("KVT_DWG_HATCH_DEBUG");
    return value != nullptr && value[0] != '\0' && value[0] != '0';
  }();
  return enabled;
}

void DumpHatch(const Dwg_Entity_HATCH& hatch) {
  std::fprintf(stderr, "[hatch-debug] HATCH num_paths=%u solid=%d extrusion=(%g,%g,%g)\n",
               hatch.num_paths, hatch.is_solid_fill, hatch.extrusion.x, hatch.extrusion.y,
               hatch.extrusion.z);
  unsigned i = 0;
  for (const Dwg_HATCH_Path& path : SpanOf(hatch.paths, hatch.num_paths)) {
    std::fprintf(stderr, "  path %u: flag=0x%x n=%u closed=%d bulges=%d\n", i++, path.flag,
                 path.num_segs_or_paths, path.closed, path.bulges_present);
    if (IsPolylinePath(path)) {
      DumpVertices(path);
    } else {
      DumpSegments(path);
    }
  }
}
