// The bundle that every entity conversion receives: the drawing and its lookup
// tables to read, the warnings and the counts of skipped types to write.
//
// Built once per drawing. Includes no writer, so that writers can share it.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"
#include "entities/lookup_tables.hpp"

// What the walks from polylines to their vertices meet, in object order: the
// objects that end a walk, and the vertices by kind, those with data only.
// Polylines without an end marker share their followers; looked up here, a
// walk costs no more than the vertices that it writes.
struct VertexIndex {
  std::vector<const Dwg_Object*> walkEnds;
  std::vector<const Dwg_Object*> points;         // two-dimensional
  std::vector<const Dwg_Object*> framePoints;    // spline frame control points
  std::vector<const Dwg_Object*> spatialPoints;  // three-dimensional
};

struct EntityContext {
  const Dwg_Data& dwg;
  const LookupTables& tables;
  bool unicodeText;  // strings are UTF-16
  std::vector<std::string>& warnings;
  std::map<std::string, std::size_t>& unknownTypeCounts;

  // Viewports whose conversion is under way, outermost first.
  std::vector<const Dwg_Object*> openViewports = {};

  // Clip outlines that cost more than their records are long, once converted:
  // any number of viewports may name the same one.
  std::unordered_map<const Dwg_Object*, std::string> clipRecords = {};

  // Built when the first polyline asks for it.
  std::optional<VertexIndex> vertexIndex = {};

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
