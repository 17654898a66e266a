// What single writers keep from one entity to the next. Each member is the
// matter of the writer that it names.
#pragma once

#include <dwg.h>

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "entities/vertex_index.hpp"

// Of viewports.
struct ClipMemory {
  // Viewports whose conversion is under way, outermost first.
  std::vector<const Dwg_Object*> openViewports;

  // Clip outlines that cost more than their records are long, once converted:
  // any number of viewports may name the same one.
  std::unordered_map<const Dwg_Object*, std::string> records;
};

struct WriterMemory {
  ClipMemory clips;

  // Of polylines; built when the first one asks for it.
  std::optional<VertexIndex> vertices;
};
