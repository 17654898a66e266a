// Records of solids, regions, bodies and surfaces.
#pragma once

#include <dwg.h>

#include <string_view>

#include "complete/complete_context.hpp"
#include "encode/json_list.hpp"
#include "encode/json_out.hpp"

// The lines that CAD programs draw for a solid, where the drawing stores them: `wires`
// and, for single views, `silhouettes`. Else `reason` names what is missing: the shape
// is then in the modeller's own data alone.
void AppendSolid3d(JsonOut& out, const Dwg_Entity_3DSOLID& solid);

// The same of surfaces. Their types share the modeller's members, not their place.
template <typename Surface>
void AppendSurface(JsonOut& out, const Surface& surface);

void AppendWires(JsonOut& out, std::string_view key, const Dwg_3DSOLID_wire* wires,
                 std::size_t count);
void AppendSilhouettes(JsonOut& out, const Dwg_3DSOLID_silhouette* silhouettes, std::size_t count);
void AppendModelerData(JsonOut& out, bool isDrawn, bool isEmpty, unsigned version);

template <typename Surface>
void AppendSurface(JsonOut& out, const Surface& surface) {
  const bool isDrawn = surface.wires != nullptr && surface.num_wires > 0;
  AppendModelerData(out, isDrawn, surface.acis_empty != 0, surface.version);
  if (isDrawn) {
    AppendWires(out, ",\"wires\":[", surface.wires, surface.num_wires);
    AppendSilhouettes(out, surface.silhouettes, surface.num_silhouettes);
  }
}
