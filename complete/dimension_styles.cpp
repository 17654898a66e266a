#include "complete/dimension_styles.hpp"

#include <array>

#include "complete/common_keys.hpp"
#include "complete/table_section.hpp"
#include "complete/variables.hpp"
#include "encode/json_text.hpp"

namespace {

using Style = Dwg_Object_DIMSTYLE;

// The block of an arrow head; old drawings name it instead of referring to it. An
// empty name is the filled arrow's.
template <Dwg_Object_Ref* Style::*Block, char* Style::*Name>
void AppendArrow(JsonOut& out, const Style& style, const CompleteContext& context) {
  const std::size_t start = out.size();
  AppendValue(out, style.*Block, context);
  if (out.size() == start) {
    AppendValue(out, style.*Name, context);
  }
}

constexpr std::array kVariables = {
    Variable<Style>{"DIMADEC", R_2000b, AppendMember<Style, &Style::DIMADEC>},
    Variable<Style>{"DIMALT", R_INVALID, AppendMember<Style, &Style::DIMALT>},
    Variable<Style>{"DIMALTD", R_INVALID, AppendMember<Style, &Style::DIMALTD>},
    Variable<Style>{"DIMALTF", R_INVALID, AppendMember<Style, &Style::DIMALTF>},
    Variable<Style>{"DIMALTMZF", R_2010b, AppendMember<Style, &Style::DIMALTMZF>},
    Variable<Style>{"DIMALTMZS", R_2010b, AppendMember<Style, &Style::DIMALTMZS>},
    Variable<Style>{"DIMALTRND", R_2000b, AppendMember<Style, &Style::DIMALTRND>},
    Variable<Style>{"DIMALTTD", R_13b1, AppendMember<Style, &Style::DIMALTTD>},
    Variable<Style>{"DIMALTTZ", R_13b1, AppendMember<Style, &Style::DIMALTTZ>},
    Variable<Style>{"DIMALTU", R_13b1, AppendMember<Style, &Style::DIMALTU>},
    Variable<Style>{"DIMALTZ", R_13b1, AppendMember<Style, &Style::DIMALTZ>},
    Variable<Style>{"DIMAPOST", R_INVALID, AppendMember<Style, &Style::DIMAPOST>},
    Variable<Style>{"DIMARCSYM", R_2007a, AppendMember<Style, &Style::DIMARCSYM>},
    Variable<Style>{"DIMASZ", R_INVALID, AppendMember<Style, &Style::DIMASZ>},
    Variable<Style>{"DIMATFIT", R_2000b, AppendMember<Style, &Style::DIMATFIT>},
    Variable<Style>{"DIMAUNIT", R_13b1, AppendMember<Style, &Style::DIMAUNIT>},
    Variable<Style>{"DIMAZIN", R_2000b, AppendMember<Style, &Style::DIMAZIN>},
    Variable<Style>{"DIMBLK", R_INVALID, AppendArrow<&Style::DIMBLK, &Style::DIMBLK_T>},
    Variable<Style>{"DIMBLK1", R_INVALID, AppendArrow<&Style::DIMBLK1, &Style::DIMBLK1_T>},
    Variable<Style>{"DIMBLK2", R_INVALID, AppendArrow<&Style::DIMBLK2, &Style::DIMBLK2_T>},
    Variable<Style>{"DIMCEN", R_INVALID, AppendMember<Style, &Style::DIMCEN>},
    Variable<Style>{"DIMCLRD", R_INVALID, AppendMember<Style, &Style::DIMCLRD>},
    Variable<Style>{"DIMCLRE", R_INVALID, AppendMember<Style, &Style::DIMCLRE>},
    Variable<Style>{"DIMCLRT", R_INVALID, AppendMember<Style, &Style::DIMCLRT>},
    Variable<Style>{"DIMDEC", R_13b1, AppendMember<Style, &Style::DIMDEC>},
    Variable<Style>{"DIMDLE", R_INVALID, AppendMember<Style, &Style::DIMDLE>},
    Variable<Style>{"DIMDLI", R_INVALID, AppendMember<Style, &Style::DIMDLI>},
    Variable<Style>{"DIMDSEP", R_2000b, AppendMember<Style, &Style::DIMDSEP>},
    Variable<Style>{"DIMEXE", R_INVALID, AppendMember<Style, &Style::DIMEXE>},
    Variable<Style>{"DIMEXO", R_INVALID, AppendMember<Style, &Style::DIMEXO>},
    Variable<Style>{"DIMFIT", R_INVALID, AppendMember<Style, &Style::DIMFIT>},
    Variable<Style>{"DIMFRAC", R_2000b, AppendMember<Style, &Style::DIMFRAC>},
    Variable<Style>{"DIMFXL", R_2007a, AppendMember<Style, &Style::DIMFXL>},
    Variable<Style>{"DIMFXLON", R_2007a, AppendMember<Style, &Style::DIMFXLON>},
    Variable<Style>{"DIMGAP", R_INVALID, AppendMember<Style, &Style::DIMGAP>},
    Variable<Style>{"DIMJOGANG", R_2007a, AppendMember<Style, &Style::DIMJOGANG>},
    Variable<Style>{"DIMJUST", R_13b1, AppendMember<Style, &Style::DIMJUST>},
    Variable<Style>{"DIMLDRBLK", R_2000b, AppendMember<Style, &Style::DIMLDRBLK>},
    Variable<Style>{"DIMLFAC", R_INVALID, AppendMember<Style, &Style::DIMLFAC>},
    Variable<Style>{"DIMLIM", R_INVALID, AppendMember<Style, &Style::DIMLIM>},
    Variable<Style>{"DIMLTEX1", R_2007a, AppendMember<Style, &Style::DIMLTEX1>},
    Variable<Style>{"DIMLTEX2", R_2007a, AppendMember<Style, &Style::DIMLTEX2>},
    Variable<Style>{"DIMLTYPE", R_2007a, AppendMember<Style, &Style::DIMLTYPE>},
    Variable<Style>{"DIMLUNIT", R_2000b, AppendMember<Style, &Style::DIMLUNIT>},
    Variable<Style>{"DIMLWD", R_2000b, AppendMember<Style, &Style::DIMLWD>},
    Variable<Style>{"DIMLWE", R_2000b, AppendMember<Style, &Style::DIMLWE>},
    Variable<Style>{"DIMMZF", R_2010b, AppendMember<Style, &Style::DIMMZF>},
    Variable<Style>{"DIMMZS", R_2010b, AppendMember<Style, &Style::DIMMZS>},
    Variable<Style>{"DIMPOST", R_INVALID, AppendMember<Style, &Style::DIMPOST>},
    Variable<Style>{"DIMRND", R_INVALID, AppendMember<Style, &Style::DIMRND>},
    Variable<Style>{"DIMSAH", R_INVALID, AppendMember<Style, &Style::DIMSAH>},
    Variable<Style>{"DIMSCALE", R_INVALID, AppendMember<Style, &Style::DIMSCALE>},
    Variable<Style>{"DIMSD1", R_13b1, AppendMember<Style, &Style::DIMSD1>},
    Variable<Style>{"DIMSD2", R_13b1, AppendMember<Style, &Style::DIMSD2>},
    Variable<Style>{"DIMSE1", R_INVALID, AppendMember<Style, &Style::DIMSE1>},
    Variable<Style>{"DIMSE2", R_INVALID, AppendMember<Style, &Style::DIMSE2>},
    Variable<Style>{"DIMSOXD", R_INVALID, AppendMember<Style, &Style::DIMSOXD>},
    Variable<Style>{"DIMTAD", R_INVALID, AppendMember<Style, &Style::DIMTAD>},
    Variable<Style>{"DIMTDEC", R_13b1, AppendMember<Style, &Style::DIMTDEC>},
    Variable<Style>{"DIMTFAC", R_INVALID, AppendMember<Style, &Style::DIMTFAC>},
    Variable<Style>{"DIMTFILL", R_2007a, AppendMember<Style, &Style::DIMTFILL>},
    Variable<Style>{"DIMTFILLCLR", R_2007a, AppendMember<Style, &Style::DIMTFILLCLR>},
    Variable<Style>{"DIMTIH", R_INVALID, AppendMember<Style, &Style::DIMTIH>},
    Variable<Style>{"DIMTIX", R_INVALID, AppendMember<Style, &Style::DIMTIX>},
    Variable<Style>{"DIMTM", R_INVALID, AppendMember<Style, &Style::DIMTM>},
    Variable<Style>{"DIMTMOVE", R_2000b, AppendMember<Style, &Style::DIMTMOVE>},
    Variable<Style>{"DIMTOFL", R_INVALID, AppendMember<Style, &Style::DIMTOFL>},
    Variable<Style>{"DIMTOH", R_INVALID, AppendMember<Style, &Style::DIMTOH>},
    Variable<Style>{"DIMTOL", R_INVALID, AppendMember<Style, &Style::DIMTOL>},
    Variable<Style>{"DIMTOLJ", R_13b1, AppendMember<Style, &Style::DIMTOLJ>},
    Variable<Style>{"DIMTP", R_INVALID, AppendMember<Style, &Style::DIMTP>},
    Variable<Style>{"DIMTSZ", R_INVALID, AppendMember<Style, &Style::DIMTSZ>},
    Variable<Style>{"DIMTVP", R_INVALID, AppendMember<Style, &Style::DIMTVP>},
    Variable<Style>{"DIMTXSTY", R_13b1, AppendMember<Style, &Style::DIMTXSTY>},
    Variable<Style>{"DIMTXT", R_INVALID, AppendMember<Style, &Style::DIMTXT>},
    Variable<Style>{"DIMTXTDIRECTION", R_2010b, AppendMember<Style, &Style::DIMTXTDIRECTION>},
    Variable<Style>{"DIMTZIN", R_13b1, AppendMember<Style, &Style::DIMTZIN>},
    Variable<Style>{"DIMUNIT", R_INVALID, AppendMember<Style, &Style::DIMUNIT>},
    Variable<Style>{"DIMUPT", R_13b1, AppendMember<Style, &Style::DIMUPT>},
    Variable<Style>{"DIMZIN", R_INVALID, AppendMember<Style, &Style::DIMZIN>},
};

void AppendStyle(JsonOut& out, const Dwg_Object& object, const Style& style,
                 const CompleteContext& context) {
  AppendQuotedKey(out, "{\"name\":", context.Decode(style.name));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  JsonObject variables(out, ",\"variables\":{");
  for (const Variable<Style>& variable : kVariables) {
    if (context.dwg().header.version >= variable.since) {
      AppendVariable(variables, variable, style, context);
    }
  }
  variables.Close();
  out += '}';
}

}  // namespace

void AppendDimensionStyles(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"dimensionStyles\":[", context.tables.objects.dimensionStyles,
                     &ObjectTio::DIMSTYLE, AppendStyle, context);
}
