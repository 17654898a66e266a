// The bundle that every entity conversion receives: the drawing and its lookup
// tables to read, the warnings and the counts of skipped types to write.
//
// Built once per drawing. Includes no writer, so that writers can share it.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"
#include "entities/lookup_tables.hpp"

// The last stretch of polyline vertices that was walked: the vertex objects at
// array positions from `begin` up to the object at `end` that ended the walk.
// Polylines without an end marker would otherwise walk over each other's
// followers again and again.
struct VertexRun {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::vector<const Dwg_Object*> vertices = {};
};

struct EntityContext {
  const Dwg_Data& dwg;
  const LookupTables& tables;
  bool unicodeText;  // strings are UTF-16
  std::vector<std::string>& warnings;
  std::map<std::string, std::size_t>& unknownTypeCounts;

  // Viewports whose conversion is under way, outermost first.
  std::vector<const Dwg_Object*> openViewports = {};

  VertexRun vertexRun = {};

  // A string of the drawing as UTF-8.
  DecodedText Decode(const char* text) const { return ViewText(unicodeText, text); }
};

// Whether the drawing was read from a DXF file; process-wide, set once after
// the drawing is read.
void SetInputIsDxf(bool value);
bool InputIsDxf();

// The entity's layer name, "0" when it has no layer or an unknown one.
std::string_view LayerNameOf(const Dwg_Object_Entity& entity, const EntityContext& context);

// `{"type":"TYPE","layer":"NAME"`: the start of every record.
inline void BeginRecord(JsonOut& out, std::string_view type, std::string_view layer) {
  out += "{\"type\":\"";
  out += type;
  out += "\",\"layer\":";
  AppendQuoted(out, layer);
}

// The family of a text style, empty when there is none.
std::string_view FontFamilyOf(Handle style, const LookupTables& tables);
