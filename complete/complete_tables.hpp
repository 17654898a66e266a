// What the complete form looks up besides the tables of the pre-pass, keyed by
// handle value.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "complete/draw_order.hpp"
#include "complete/reference_tables.hpp"
#include "complete/viewport_ids.hpp"
#include "entities/drawing.hpp"
#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"
#include "entities/lookup_tables.hpp"

// The objects that sections of their own are written from, in stored order.
struct SectionObjects {
  std::vector<const Dwg_Object*> layers;  // as in the layer table
  std::vector<const Dwg_Object*> linetypes;
  std::vector<const Dwg_Object*> textStyles;
  std::vector<const Dwg_Object*> dimensionStyles;
  std::vector<const Dwg_Object*> views;
  std::vector<const Dwg_Object*> coordinateSystems;
  std::vector<const Dwg_Object*> groups;
};

struct CompleteTables {
  // Names as JSON literals; line types by layer and by block are "L" and "K".
  HandleMap<std::string> linetypes;
  HandleMap<std::string> textStyles;
  HandleMap<std::string> dimensionStyles;
  HandleMap<std::string> coordinateSystems;
  HandleMap<std::string> views;
  HandleMap<std::string> groups;

  SectionObjects objects;

  // The block that the active sheet's contents belong to; 0 when there is none.
  Handle activeSheet = 0;

  // Whether the drawing was a text, which leaves out what has its default.
  bool isDxf = false;

  // False for releases before 2000, which know no lineweights.
  bool holdsLineweights = true;

  // The applications whose extended data holds what the CAD program itself attaches
  // (dimension variables, views, columns of text), what describes layers, and the colour
  // behind a hatch's pattern; 0 for one that the drawing does not name.
  Handle acadApplication = 0;
  Handle layerApplication = 0;
  Handle hatchBackgroundApplication = 0;

  // Vertices and end markers by the polyline that they name as their owner.
  EntitiesByOwner polylineParts;

  // See draw_order.hpp.
  DrawOrder drawOrder;

  ReferenceTables references;
  ViewportIds viewportIds;

  // The block or the entity that an entity belongs to. A DWG leaves the contents
  // of model space and of the active sheet without an owner and marks them
  // instead. 0 when nothing tells.
  Handle OwnerOf(const Dwg_Object_Entity& entity, Handle modelSpace) const;
};

// `base` are the tables of the same drawing. Its groups of entities by owner are
// made anew, with the contents of the active sheet under that sheet, and blocks of sheets
// that only tell their layout themselves get it.
CompleteTables BuildCompleteTables(const Drawing& drawing, LookupTables& base);
