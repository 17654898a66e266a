#include "complete/dimension_format.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "complete/attached_data.hpp"
#include "complete/common_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"

namespace {

struct Variable {
  std::int32_t code;
  std::string_view name;
};

constexpr std::array kVariables = {
    Variable{3, "DIMPOST"},     Variable{4, "DIMAPOST"},    Variable{40, "DIMSCALE"},
    Variable{41, "DIMASZ"},     Variable{42, "DIMEXO"},     Variable{43, "DIMDLI"},
    Variable{44, "DIMEXE"},     Variable{45, "DIMRND"},     Variable{46, "DIMDLE"},
    Variable{47, "DIMTP"},      Variable{48, "DIMTM"},      Variable{49, "DIMFXL"},
    Variable{50, "DIMJOGANG"},  Variable{69, "DIMTFILL"},   Variable{70, "DIMTFILLCLR"},
    Variable{71, "DIMTOL"},     Variable{72, "DIMLIM"},     Variable{73, "DIMTIH"},
    Variable{74, "DIMTOH"},     Variable{75, "DIMSE1"},     Variable{76, "DIMSE2"},
    Variable{77, "DIMTAD"},     Variable{78, "DIMZIN"},     Variable{79, "DIMAZIN"},
    Variable{90, "DIMARCSYM"},  Variable{140, "DIMTXT"},    Variable{141, "DIMCEN"},
    Variable{142, "DIMTSZ"},    Variable{143, "DIMALTF"},   Variable{144, "DIMLFAC"},
    Variable{145, "DIMTVP"},    Variable{146, "DIMTFAC"},   Variable{147, "DIMGAP"},
    Variable{148, "DIMALTRND"}, Variable{170, "DIMALT"},    Variable{171, "DIMALTD"},
    Variable{172, "DIMTOFL"},   Variable{173, "DIMSAH"},    Variable{174, "DIMTIX"},
    Variable{175, "DIMSOXD"},   Variable{176, "DIMCLRD"},   Variable{177, "DIMCLRE"},
    Variable{178, "DIMCLRT"},   Variable{179, "DIMADEC"},   Variable{270, "DIMUNIT"},
    Variable{271, "DIMDEC"},    Variable{272, "DIMTDEC"},   Variable{273, "DIMALTU"},
    Variable{274, "DIMALTTD"},  Variable{275, "DIMAUNIT"},  Variable{276, "DIMFRAC"},
    Variable{277, "DIMLUNIT"},  Variable{278, "DIMDSEP"},   Variable{279, "DIMTMOVE"},
    Variable{280, "DIMJUST"},   Variable{281, "DIMSD1"},    Variable{282, "DIMSD2"},
    Variable{283, "DIMTOLJ"},   Variable{284, "DIMTZIN"},   Variable{285, "DIMALTZ"},
    Variable{286, "DIMALTTZ"},  Variable{287, "DIMFIT"},    Variable{288, "DIMUPT"},
    Variable{289, "DIMATFIT"},  Variable{290, "DIMFXLON"},  Variable{294, "DIMTXTDIRECTION"},
    Variable{340, "DIMTXSTY"},  Variable{341, "DIMLDRBLK"}, Variable{342, "DIMBLK"},
    Variable{343, "DIMBLK1"},   Variable{344, "DIMBLK2"},   Variable{345, "DIMLTYPE"},
    Variable{346, "DIMLTEX1"},  Variable{347, "DIMLTEX2"},  Variable{371, "DIMLWD"},
    Variable{372, "DIMLWE"},
};

std::string_view VariableName(std::int32_t code) {
  const auto* const found =
      std::find_if(kVariables.begin(), kVariables.end(),
                   [&](const Variable& variable) { return variable.code == code; });
  return found == kVariables.end() ? std::string_view{} : found->name;
}

DimensionOverride ValueOf(std::int32_t code, const Dwg_Eed_Data& data,
                          const CompleteContext& context) {
  using Kind = DimensionOverride::Kind;
  DimensionOverride result{.code = code};
  switch (data.code) {
    case kAttachedText:
      result.kind = Kind::kText;
      result.text = AttachedText(data, context.base.drawing);
      break;
    case kAttachedLayer:
    case kAttachedHandle:
      result.kind = Kind::kHandle;
      result.integer = static_cast<std::int64_t>(data.u.eed_5.entity);
      break;
    case kAttachedShort:
      result.kind = Kind::kInteger;
      result.integer = static_cast<std::int16_t>(data.u.eed_70.rs);
      result.number = static_cast<double>(result.integer);
      break;
    case kAttachedLong:
      result.kind = Kind::kInteger;
      result.integer = static_cast<std::int32_t>(data.u.eed_71.rl);
      result.number = static_cast<double>(result.integer);
      break;
    case kAttachedReal: result.number = data.u.eed_40.real; break;
    default: result.code = 0; break;
  }
  return result;
}

const DimensionOverride* Find(const std::vector<DimensionOverride>& overrides, std::int32_t code) {
  const auto found = std::find_if(overrides.rbegin(), overrides.rend(),
                                  [&](const DimensionOverride& item) { return item.code == code; });
  return found == overrides.rend() ? nullptr : &*found;
}

void AppendValue(JsonOut& out, const DimensionOverride& value) {
  using Kind = DimensionOverride::Kind;
  switch (value.kind) {
    case Kind::kNumber: return AppendNumber(out, value.number);
    case Kind::kInteger: return AppendInt(out, value.integer);
    case Kind::kText: return AppendQuoted(out, value.text);
    case Kind::kHandle:
      return value.integer == 0 ? AppendQuoted(out, "0")
                                : AppendHandleKey(out, "", static_cast<Handle>(value.integer));
  }
}

// Lets a dimension's own variables replace those of its style.
class Settings {
 public:
  explicit Settings(const std::vector<DimensionOverride>& overrides) : overrides_(overrides) {}

  void Number(std::int32_t code, double& value) const {
    if (const DimensionOverride* found = Find(overrides_, code)) {
      value = found->number;
    }
  }
  void Integer(std::int32_t code, std::int32_t& value) const {
    if (const DimensionOverride* found = Find(overrides_, code)) {
      value = static_cast<std::int32_t>(found->integer);
    }
  }
  void Flag(std::int32_t code, bool& value) const {
    if (const DimensionOverride* found = Find(overrides_, code)) {
      value = found->integer != 0;
    }
  }
  void Text(std::int32_t code, std::string& value) const {
    if (const DimensionOverride* found = Find(overrides_, code)) {
      value = found->text;
    }
  }

 private:
  const std::vector<DimensionOverride>& overrides_;
};

char SeparatorOf(std::int32_t code) {
  constexpr std::int32_t kFirst = 0x20;
  constexpr std::int32_t kLast = 0x7E;
  return code >= kFirst && code <= kLast ? static_cast<char>(code) : '.';
}

// Of the variables that a DXF may leave out, those whose default is not 0 and which the
// library does not set by itself. Its reader says in the flag which of them were there.
constexpr unsigned kHasDecimals = 2;
constexpr unsigned kHasToleranceDecimals = 4;
constexpr unsigned kHasTextHeight = 8;
constexpr std::int32_t kDefaultDecimals = 4;
constexpr double kDefaultTextHeight = 0.18;

bool IsLeftOut(const Dwg_Object_DIMSTYLE& style, unsigned variable,
               const CompleteContext& context) {
  const bool isFromDxf = (context.dwg().opts & DWG_OPTS_INDXF) != 0;
  return isFromDxf && (style.flag0 & variable) == 0;
}

void TakeDefaults(DimensionFormat& format, const Dwg_Object_DIMSTYLE& style,
                  const CompleteContext& context) {
  if (IsLeftOut(style, kHasDecimals, context)) {
    format.length.decimals = kDefaultDecimals;
  }
  if (IsLeftOut(style, kHasToleranceDecimals, context)) {
    format.toleranceDecimals = kDefaultDecimals;
  }
}

void TakeFromStyle(DimensionFormat& format, const Dwg_Object_DIMSTYLE& style,
                   const CompleteContext& context) {
  const std::int32_t fractions = style.DIMFRAC;
  const char separator = SeparatorOf(style.DIMDSEP);
  format.length = {.unit = style.DIMLUNIT,
                   .decimals = style.DIMDEC,
                   .zeros = style.DIMZIN,
                   .fractions = fractions,
                   .separator = separator};
  format.angle = {.unit = style.DIMAUNIT,
                  .decimals = static_cast<std::int16_t>(style.DIMADEC),
                  .zeros = style.DIMAZIN,
                  .separator = separator};
  format.alternateLength = {.unit = style.DIMALTU,
                            .decimals = style.DIMALTD,
                            .zeros = style.DIMALTZ,
                            .fractions = fractions,
                            .separator = separator};
  format.linearFactor = style.DIMLFAC;
  format.rounding = style.DIMRND;
  format.postfix = std::string(context.Decode(style.DIMPOST));
  format.hasTolerance = style.DIMTOL != 0;
  format.hasLimits = style.DIMLIM != 0;
  format.plus = style.DIMTP;
  format.minus = style.DIMTM;
  format.toleranceDecimals = style.DIMTDEC;
  format.toleranceZeros = style.DIMTZIN;
  format.hasAlternate = style.DIMALT != 0;
  format.alternateFactor = style.DIMALTF;
  format.alternateRounding = style.DIMALTRND;
  format.alternatePostfix = std::string(context.Decode(style.DIMAPOST));
  format.arcSymbol = style.DIMARCSYM;
  TakeDefaults(format, style, context);
}

void TakeFromDimension(DimensionFormat& format, const Settings& settings) {
  std::int32_t separator = static_cast<unsigned char>(format.length.separator);
  settings.Integer(278, separator);
  settings.Integer(276, format.length.fractions);
  settings.Integer(277, format.length.unit);
  settings.Integer(271, format.length.decimals);
  settings.Integer(78, format.length.zeros);
  settings.Integer(275, format.angle.unit);
  settings.Integer(179, format.angle.decimals);
  settings.Integer(79, format.angle.zeros);
  settings.Integer(273, format.alternateLength.unit);
  settings.Integer(171, format.alternateLength.decimals);
  settings.Integer(285, format.alternateLength.zeros);
  settings.Number(144, format.linearFactor);
  settings.Number(45, format.rounding);
  settings.Text(3, format.postfix);
  settings.Flag(71, format.hasTolerance);
  settings.Flag(72, format.hasLimits);
  settings.Number(47, format.plus);
  settings.Number(48, format.minus);
  settings.Integer(272, format.toleranceDecimals);
  settings.Integer(284, format.toleranceZeros);
  settings.Flag(170, format.hasAlternate);
  settings.Number(143, format.alternateFactor);
  settings.Number(148, format.alternateRounding);
  settings.Text(4, format.alternatePostfix);
  settings.Integer(90, format.arcSymbol);
  format.alternateLength.fractions = format.length.fractions;
  for (UnitFormat* part : {&format.length, &format.angle, &format.alternateLength}) {
    part->separator = SeparatorOf(separator);
  }
}

double ScaledTextHeight(const Dwg_Object_DIMSTYLE& style, const Settings& settings,
                        const CompleteContext& context) {
  double height =
      IsLeftOut(style, kHasTextHeight, context) ? kDefaultTextHeight : double{style.DIMTXT};
  double scale = style.DIMSCALE;
  settings.Number(140, height);
  settings.Number(40, scale);
  return scale > 0 ? height * scale : height;
}

}  // namespace

std::vector<DimensionOverride> DimensionOverrides(const Dwg_Object_Entity& entity,
                                                  const CompleteContext& context) {
  std::vector<DimensionOverride> overrides;
  const auto take = [&](std::int32_t code, const Dwg_Eed_Data& data) {
    DimensionOverride value = ValueOf(code, data, context);
    if (!VariableName(value.code).empty()) {
      overrides.push_back(std::move(value));
    }
  };
  ForEachOverride(AttachedDataOf(entity), take);
  return overrides;
}

void AppendDimensionOverrides(JsonOut& out, const std::vector<DimensionOverride>& overrides) {
  char separator = '{';
  for (const Variable& variable : kVariables) {
    const DimensionOverride* found = Find(overrides, variable.code);
    if (found == nullptr) {
      continue;
    }
    if (separator == '{') {
      out += ",\"styleOverrides\":";
    }
    out += separator;
    AppendQuoted(out, variable.name);
    out += ':';
    AppendValue(out, *found);
    separator = ',';
  }
  if (separator == ',') {
    out += '}';
  }
}

DimensionFormat FormatOf(const Dwg_Object_DIMSTYLE* style,
                         const std::vector<DimensionOverride>& overrides,
                         const CompleteContext& context) {
  DimensionFormat format;
  if (style != nullptr) {
    TakeFromStyle(format, *style, context);
  }
  const Settings settings(overrides);
  TakeFromDimension(format, settings);
  if (style != nullptr) {
    format.textHeight = ScaledTextHeight(*style, settings, context);
  }
  return format;
}
