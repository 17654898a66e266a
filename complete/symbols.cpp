#include "complete/symbols.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "complete/common_keys.hpp"
#include "complete/dimension_format.hpp"
#include "complete/lookup.hpp"
#include "complete/plane_keys.hpp"
#include "encode/ascii.hpp"
#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"

namespace {

struct Symbol {
  char letter;
  std::string_view character;
};

// The letters of the geometric tolerance font.
constexpr std::array kSymbols = {
    Symbol{'a', "\u2220"}, Symbol{'b', "\u27C2"}, Symbol{'c', "\u23E5"}, Symbol{'d', "\u2313"},
    Symbol{'e', "\u25CB"}, Symbol{'f', "\u2225"}, Symbol{'g', "\u232D"}, Symbol{'h', "\u2197"},
    Symbol{'i', "\u232F"}, Symbol{'j', "\u2316"}, Symbol{'k', "\u2312"}, Symbol{'l', "\u24C1"},
    Symbol{'m', "\u24C2"}, Symbol{'n', "\u2300"}, Symbol{'p', "\u24C5"}, Symbol{'r', "\u25CE"},
    Symbol{'s', "\u24C8"}, Symbol{'t', "\u2330"}, Symbol{'u', "\u23E4"},
};

std::string_view SymbolOf(char letter) {
  for (const Symbol& symbol : kSymbols) {
    if (symbol.letter == letter) {
      return symbol.character;
    }
  }
  return {};
}

class ToleranceParser {
 public:
  explicit ToleranceParser(std::string_view text) : rest_(text) {}

  ToleranceCells Parse() {
    while (!rest_.empty()) {
      Step();
    }
    EndRow();
    return std::move(rows_);
  }

 private:
  bool Take(std::string_view start) {
    if (!StartsWithIgnoringCase(rest_, start)) {
      return false;
    }
    rest_.remove_prefix(start.size());
    return true;
  }

  void Step() {
    if (Take("%%v")) {
      EndCell();
    } else if (Take("^j") || Take("\n") || Take("\\p")) {
      EndRow();
    } else if (Take("%%d")) {
      cell_ += "°";
    } else if (Take("%%p")) {
      cell_ += "±";
    } else if (Take("%%c")) {
      cell_ += "\u2300";
    } else if (Take("\\f")) {
      TakeFont();
    } else {
      TakeCharacter();
    }
  }

  // The font holds up to the end of the group that names it.
  void TakeFont() {
    const std::size_t end = rest_.find(';');
    hasSymbols_ = StartsWithIgnoringCase(rest_, "gdt");
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  }

  void TakeCharacter() {
    const char character = rest_.front();
    rest_.remove_prefix(1);
    if (character == '}') {
      hasSymbols_ = false;
    } else if (character == '\\') {
      // The character behind it stands for itself.
      cell_ += rest_.substr(0, 1);
      rest_ = rest_.substr(std::min<std::size_t>(1, rest_.size()));
    } else if (character != '{') {
      const std::string_view symbol = hasSymbols_ ? SymbolOf(character) : std::string_view{};
      cell_ += symbol.empty() ? std::string_view{&character, 1} : symbol;
    }
  }

  void EndCell() {
    cells_.push_back(std::move(cell_));
    cell_.clear();
  }

  void EndRow() {
    if (!cell_.empty()) {
      EndCell();
    }
    if (!cells_.empty()) {
      rows_.push_back(std::move(cells_));
      cells_.clear();
    }
  }

  std::string_view rest_;
  ToleranceCells rows_;
  std::vector<std::string> cells_;
  std::string cell_;
  bool hasSymbols_ = false;
};

double TextHeight(const Dwg_Entity_TOLERANCE& tolerance, const CompleteContext& context,
                  const EntityOrigin& origin) {
  if (tolerance.height > 0) {
    return tolerance.height;
  }
  const auto* style =
      ReferencedObject(tolerance.dimstyle, DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, context);
  return FormatOf(style, DimensionOverrides(*origin.object.tio.entity, context), context)
      .textHeight;
}

}  // namespace

ToleranceCells ParseTolerance(std::string_view text) {
  return ToleranceParser(text).Parse();
}

void AppendShape(JsonOut& out, const Dwg_Entity_SHAPE& shape, const CompleteContext& context) {
  AppendNumberKey(out, ",\"x\":", shape.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", shape.ins_pt.y);
  AppendNumberKey(out, ",\"size\":", shape.scale);
  AppendNumberKey(out, ",\"rotationRad\":", shape.rotation);
  AppendNumberKey(out, ",\"widthFactor\":", shape.width_factor);
  AppendNumberKey(out, ",\"obliqueRad\":", shape.oblique_angle);
  // The library's DXF reader has no place for the name that stands there instead.
  const bool isFromDxf = (context.dwg().opts & DWG_OPTS_INDXF) != 0;
  if (shape.style_id != 0 && !isFromDxf) {
    AppendIntKey(out, ",\"shapeNumber\":", shape.style_id);
  }
  const auto* style = ReferencedObject(shape.style, DWG_TYPE_STYLE, &ObjectTio::STYLE, context);
  if (style != nullptr) {
    AppendQuotedKey(out, ",\"shapeFile\":", context.Decode(style->font_file));
  }
}

void AppendShapeFurtherKeys(JsonOut& out, const Dwg_Entity_SHAPE& shape) {
  AppendPlaneKeys(out, shape.ins_pt.z, shape.thickness, shape.extrusion);
}

void AppendTolerance(JsonOut& out, const Dwg_Entity_TOLERANCE& tolerance,
                     const CompleteContext& context, const EntityOrigin& origin) {
  const DecodedText text = context.Decode(tolerance.text_value);
  AppendNumberKey(out, ",\"x\":", tolerance.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", tolerance.ins_pt.y);
  AppendNumberKey(
      out, ",\"rotationRad\":", PortableAtan2(tolerance.x_direction.y, tolerance.x_direction.x));
  AppendNumberKey(out, ",\"height\":", TextHeight(tolerance, context, origin));
  AppendQuotedKey(out, ",\"rawText\":", text);
  JsonList rows(out, ",\"rows\":[");
  for (const auto& cells : ParseTolerance(text)) {
    rows.Item([&] {
      JsonList row(out);
      for (const std::string& cell : cells) {
        row.Quoted(cell);
      }
      row.Close();
    });
  }
  rows.Close();
}

void AppendToleranceFurtherKeys(JsonOut& out, const Dwg_Entity_TOLERANCE& tolerance,
                                const CompleteContext& context) {
  AppendPointKey(out, ",\"position\":", tolerance.ins_pt.x, tolerance.ins_pt.y, tolerance.ins_pt.z);
  const BITCODE_3BD& axis = tolerance.x_direction;
  const bool isMissing = axis.x == 0 && axis.y == 0 && axis.z == 0;
  AppendPointKey(out, ",\"xDirection\":", isMissing ? 1 : axis.x, axis.y, axis.z);
  if (const std::string* name = context.tables.dimensionStyles.Find(HandleOf(tolerance.dimstyle))) {
    out += ",\"dimensionStyle\":";
    out += *name;
  }
  AppendPlaneKeys(out, 0, 0, tolerance.extrusion);
}
