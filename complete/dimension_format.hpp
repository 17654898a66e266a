// How a dimension shows its measured value: what its style says, and what the
// dimension itself says otherwise.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string>
#include <vector>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// One variable of a dimension style that a dimension sets for itself, as its
// extended data hold it.
struct DimensionOverride {
  enum class Kind { kNumber, kInteger, kText, kHandle };

  std::int32_t code = 0;  // DXF group code in the style
  Kind kind = Kind::kNumber;
  double number = 0;
  std::int64_t integer = 0;  // or the handle
  std::string text = {};
};

// Those in the entity's extended data, in order.
std::vector<DimensionOverride> DimensionOverrides(const Dwg_Object_Entity& entity,
                                                  const CompleteContext& context);

// `,"styleOverrides":{"DIMTXT":2.5,...}`, under the names of the variables; nothing
// for an empty list. Of variables that are set twice the last counts.
void AppendDimensionOverrides(JsonOut& out, const std::vector<DimensionOverride>& overrides);

// How a length or an angle becomes a text.
struct UnitFormat {
  std::int32_t unit = 0;       // as DIMLUNIT or DIMAUNIT
  std::int32_t decimals = 0;   // or the exponent of 2 of the least fraction
  std::int32_t zeros = 0;      // as DIMZIN or DIMAZIN
  std::int32_t fractions = 0;  // as DIMFRAC
  char separator = '.';
};

struct DimensionFormat {
  UnitFormat length = {.unit = 2, .decimals = 4};
  UnitFormat angle = {};
  UnitFormat alternateLength = {.unit = 2, .decimals = 2};
  double linearFactor = 1;
  double rounding = 0;
  std::string postfix = {};
  bool hasTolerance = false;
  bool hasLimits = false;
  double plus = 0;
  double minus = 0;
  std::int32_t toleranceDecimals = 4;
  std::int32_t toleranceZeros = 0;
  bool hasAlternate = false;
  double alternateFactor = 1;
  double alternateRounding = 0;
  std::string alternatePostfix = {};
  std::int32_t arcSymbol = 0;  // as DIMARCSYM
  double textHeight = 0;       // drawing units, scaled
};

// `style` may be null: then the format of a new drawing.
DimensionFormat FormatOf(const Dwg_Object_DIMSTYLE* style,
                         const std::vector<DimensionOverride>& overrides,
                         const CompleteContext& context);
