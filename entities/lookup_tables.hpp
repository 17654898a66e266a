// What the pre-pass collects from a drawing, keyed by handle value, so that no
// converter has to search the drawing.
//
// The iteration order of the hash tables never reaches the document.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "entities/drawing_access.hpp"

// Mixes a handle with a number that differs from run to run. A drawing chooses
// its handles; hashed by their value alone, as the standard library does, they
// could all be made to fall into one bucket, where a look-up searches them all.
struct HandleHash {
  std::size_t operator()(Handle handle) const;
};

template <typename Value>
using HandleMap = std::unordered_map<Handle, Value, HandleHash>;
using HandleSet = std::unordered_set<Handle, HandleHash>;

// What a dimension style says about drawing its dimensions. The colour texts
// are JSON, empty when the colour is inherited.
struct DimStyleEntry {
  double textHeight = 0;
  double overallScale = 0;
  double arrowSize = 0;
  Handle textStyle = 0;
  std::string textColor;
  std::string lineColor;
  std::int32_t decimalPlaces = -1;
  double linearFactor = 1.0;
  double rounding = 0;
  std::int32_t zeroSuppression = 0;
  std::int32_t linearUnit = 0;
  std::string postfix;
};

// The resolved path is empty when the file was not found.
struct PdfEntry {
  std::string resolvedPath;
  std::string declaredPath;
  std::int32_t page = 1;
};

struct LookupTables {
  HandleMap<std::string> layerNames;
  HandleMap<double> textStyles;  // fixed text height, 0 when the style has none
  HandleMap<std::string> styleFonts;
  HandleMap<DimStyleEntry> dimStyles;
  HandleMap<std::string> imageDefs;
  HandleMap<PdfEntry> pdfDefs;
  HandleMap<std::string> blockNames;
  Handle modelSpace = 0;
  std::vector<Handle> paperSpaces;  // in object order
  HandleMap<const Dwg_Object_LAYOUT*> layoutsByBlock;
  HandleSet clipBoundaries;
  HandleMap<std::vector<const Dwg_Object*>> entitiesByOwner;

  // The entities under an owner, in object order; none for an unknown one.
  const std::vector<const Dwg_Object*>& OwnedBy(Handle owner) const;

  // The attributes under a block reference and the like: an object without a
  // handle owns nothing, although entities without an owner are kept under 0.
  const std::vector<const Dwg_Object*>& OwnedBy(const Dwg_Object& owner) const;
};
