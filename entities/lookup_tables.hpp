// What the pre-pass collects from a drawing, keyed by handle value, so that no
// converter has to search the drawing.
//
// The iteration order of the hash tables never reaches the document.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"
#include "entities/layer_table.hpp"

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

// The entities of a drawing in groups by owner, each in object order.
class EntitiesByOwner {
 public:
  // Room for so many entities.
  void Reserve(std::size_t count) { entities_.reserve(count); }

  // Adds an entity behind the others of its owner.
  void Add(Handle owner, const Dwg_Object& entity);

  // Forms the groups; nothing may be added afterwards.
  void Finish();

  std::span<const Dwg_Object* const> Of(Handle owner) const;

 private:
  // Neighbours of one owner, in object order.
  struct Run {
    std::uint32_t group;
    std::uint32_t size;
  };

  // Where the group of an owner stands, by the order in which owners first came.
  std::uint32_t GroupOf(Handle owner);
  void MoveGroupsTogether();

  HandleMap<std::uint32_t> groupOf_;
  std::vector<std::size_t> ends_;  // of the groups
  std::vector<const Dwg_Object*> entities_;
  std::vector<Run> runs_;
  Handle lastOwner_ = 0;
};

struct LookupTables {
  LayerTable layers;
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
  EntitiesByOwner entitiesByOwner;

  // The fixed height of a text style, 0 when it has none; null without a style.
  const double* FixedTextHeight(Handle style) const;

  // The family of a text style, empty when there is none.
  std::string_view FontFamily(Handle style) const;

  // The entities under an owner, in object order; none for an unknown one.
  std::span<const Dwg_Object* const> OwnedBy(Handle owner) const {
    return entitiesByOwner.Of(owner);
  }

  // The attributes under a block reference and the like: an object without a
  // handle owns nothing, although entities without an owner are kept under 0.
  std::span<const Dwg_Object* const> OwnedBy(const Dwg_Object& owner) const {
    return owner.handle.value == 0 ? std::span<const Dwg_Object* const>{}
                                   : OwnedBy(owner.handle.value);
  }
};
