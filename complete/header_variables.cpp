#include "complete/header_variables.hpp"

#include <array>
#include <cstdint>
#include <numbers>

#include "complete/variables.hpp"

namespace {

using Vars = Dwg_Header_Variables;

// Since release 2000 a DWG keeps it beside the variables.
void AppendMeasurement(JsonOut& out, const Vars& vars, const CompleteContext& context) {
  const Dwg_Data& dwg = context.dwg();
  const bool isElsewhere =
      context.base.drawing.dxfHeader == nullptr && dwg.header.version >= R_2000b;
  AppendInt(out, isElsewhere ? dwg.Template.MEASUREMENT : vars.MEASUREMENT);
}

// A text has degrees.
void AppendBaseAngle(JsonOut& out, const Vars& vars, const CompleteContext& context) {
  constexpr double kRadiansPerDegree = std::numbers::pi / 180;
  AppendNumber(out, context.tables.isDxf ? vars.ANGBASE * kRadiansPerDegree : vars.ANGBASE);
}

// LibreDWG has no sign for it, and cuts that of a DXF file to 16 bits.
void AppendTimeZone(JsonOut& out, const Vars& vars, const CompleteContext& /*context*/) {
  const bool isCut = vars.TIMEZONE > 0x7FFF && vars.TIMEZONE <= 0xFFFF;
  AppendInt(out, isCut ? static_cast<std::int16_t>(vars.TIMEZONE)
                       : static_cast<std::int32_t>(vars.TIMEZONE));
}

constexpr std::array kVariables = {
    Variable<Vars>{"ANGBASE", R_INVALID, AppendBaseAngle},
    Variable<Vars>{"ANGDIR", R_INVALID, AppendMember<Vars, &Vars::ANGDIR>},
    Variable<Vars>{"ATTMODE", R_INVALID, AppendMember<Vars, &Vars::ATTMODE>},
    Variable<Vars>{"AUNITS", R_INVALID, AppendMember<Vars, &Vars::AUNITS>},
    Variable<Vars>{"AUPREC", R_INVALID, AppendMember<Vars, &Vars::AUPREC>},
    Variable<Vars>{"CECOLOR", R_INVALID, AppendMember<Vars, &Vars::CECOLOR>},
    Variable<Vars>{"CELTSCALE", R_13b1, AppendMember<Vars, &Vars::CELTSCALE>},
    Variable<Vars>{"CELTYPE", R_INVALID, AppendMember<Vars, &Vars::CELTYPE>},
    Variable<Vars>{"CELWEIGHT", R_2000b, AppendMember<Vars, &Vars::CELWEIGHT>},
    Variable<Vars>{"CHAMFERA", R_INVALID, AppendMember<Vars, &Vars::CHAMFERA>},
    Variable<Vars>{"CHAMFERB", R_INVALID, AppendMember<Vars, &Vars::CHAMFERB>},
    Variable<Vars>{"CHAMFERC", R_13b1, AppendMember<Vars, &Vars::CHAMFERC>},
    Variable<Vars>{"CHAMFERD", R_13b1, AppendMember<Vars, &Vars::CHAMFERD>},
    Variable<Vars>{"CLAYER", R_INVALID, AppendMember<Vars, &Vars::CLAYER>},
    Variable<Vars>{"CMLJUST", R_13b1, AppendMember<Vars, &Vars::CMLJUST>},
    Variable<Vars>{"CMLSCALE", R_13b1, AppendMember<Vars, &Vars::CMLSCALE>},
    Variable<Vars>{"CMLSTYLE", R_13b1, AppendMember<Vars, &Vars::CMLSTYLE>},
    Variable<Vars>{"DGNFRAME", R_2007a, AppendMember<Vars, &Vars::DGNFRAME>},
    Variable<Vars>{"DIMASO", R_INVALID, AppendMember<Vars, &Vars::DIMASO>},
    Variable<Vars>{"DIMASSOC", R_2004a, AppendMember<Vars, &Vars::DIMASSOC>},
    Variable<Vars>{"DIMASZ", R_INVALID, AppendMember<Vars, &Vars::DIMASZ>},
    Variable<Vars>{"DIMEXE", R_INVALID, AppendMember<Vars, &Vars::DIMEXE>},
    Variable<Vars>{"DIMEXO", R_INVALID, AppendMember<Vars, &Vars::DIMEXO>},
    Variable<Vars>{"DIMGAP", R_INVALID, AppendMember<Vars, &Vars::DIMGAP>},
    Variable<Vars>{"DIMLFAC", R_INVALID, AppendMember<Vars, &Vars::DIMLFAC>},
    Variable<Vars>{"DIMSCALE", R_INVALID, AppendMember<Vars, &Vars::DIMSCALE>},
    Variable<Vars>{"DIMSHO", R_INVALID, AppendMember<Vars, &Vars::DIMSHO>},
    Variable<Vars>{"DIMSTYLE", R_INVALID, AppendMember<Vars, &Vars::DIMSTYLE>},
    Variable<Vars>{"DIMTXSTY", R_INVALID, AppendMember<Vars, &Vars::DIMTXSTY>},
    Variable<Vars>{"DIMTXT", R_INVALID, AppendMember<Vars, &Vars::DIMTXT>},
    Variable<Vars>{"DISPSILH", R_13b1, AppendMember<Vars, &Vars::DISPSILH>},
    Variable<Vars>{"DWFFRAME", R_2007a, AppendMember<Vars, &Vars::DWFFRAME>},
    Variable<Vars>{"ELEVATION", R_INVALID, AppendMember<Vars, &Vars::ELEVATION>},
    Variable<Vars>{"ENDCAPS", R_2000b, AppendMember<Vars, &Vars::ENDCAPS>},
    Variable<Vars>{"EXTMAX", R_INVALID, AppendMember<Vars, &Vars::EXTMAX>},
    Variable<Vars>{"EXTMIN", R_INVALID, AppendMember<Vars, &Vars::EXTMIN>},
    Variable<Vars>{"EXTNAMES", R_2000b, AppendMember<Vars, &Vars::EXTNAMES>},
    Variable<Vars>{"FACETRES", R_13b1, AppendMember<Vars, &Vars::FACETRES>},
    Variable<Vars>{"FILLETRAD", R_INVALID, AppendMember<Vars, &Vars::FILLETRAD>},
    Variable<Vars>{"FILLMODE", R_INVALID, AppendMember<Vars, &Vars::FILLMODE>},
    Variable<Vars>{"HALOGAP", R_2004a, AppendMember<Vars, &Vars::HALOGAP>},
    Variable<Vars>{"HIDETEXT", R_2004a, AppendMember<Vars, &Vars::HIDETEXT>},
    Variable<Vars>{"HYPERLINKBASE", R_2000b, AppendMember<Vars, &Vars::HYPERLINKBASE>},
    Variable<Vars>{"INDEXCTL", R_2004a, AppendMember<Vars, &Vars::INDEXCTL>},
    Variable<Vars>{"INSBASE", R_INVALID, AppendMember<Vars, &Vars::INSBASE>},
    Variable<Vars>{"INSUNITS", R_2000b, AppendMember<Vars, &Vars::INSUNITS>},
    Variable<Vars>{"INTERSECTIONCOLOR", R_2004a, AppendMember<Vars, &Vars::INTERSECTIONCOLOR>},
    Variable<Vars>{"INTERSECTIONDISPLAY", R_2004a, AppendMember<Vars, &Vars::INTERSECTIONDISPLAY>},
    Variable<Vars>{"ISOLINES", R_13b1, AppendMember<Vars, &Vars::ISOLINES>},
    Variable<Vars>{"JOINSTYLE", R_2000b, AppendMember<Vars, &Vars::JOINSTYLE>},
    Variable<Vars>{"LATITUDE", R_2007a, AppendMember<Vars, &Vars::LATITUDE>},
    Variable<Vars>{"LENSLENGTH", R_2007a, AppendMember<Vars, &Vars::LENSLENGTH>},
    Variable<Vars>{"LIMCHECK", R_INVALID, AppendMember<Vars, &Vars::LIMCHECK>},
    Variable<Vars>{"LIMMAX", R_INVALID, AppendMember<Vars, &Vars::LIMMAX>},
    Variable<Vars>{"LIMMIN", R_INVALID, AppendMember<Vars, &Vars::LIMMIN>},
    Variable<Vars>{"LONGITUDE", R_2007a, AppendMember<Vars, &Vars::LONGITUDE>},
    Variable<Vars>{"LTSCALE", R_INVALID, AppendMember<Vars, &Vars::LTSCALE>},
    Variable<Vars>{"LUNITS", R_INVALID, AppendMember<Vars, &Vars::LUNITS>},
    Variable<Vars>{"LUPREC", R_INVALID, AppendMember<Vars, &Vars::LUPREC>},
    Variable<Vars>{"LWDISPLAY", R_2000b, AppendMember<Vars, &Vars::LWDISPLAY>},
    Variable<Vars>{"MAXACTVP", R_11b1, AppendMember<Vars, &Vars::MAXACTVP>},
    Variable<Vars>{"MEASUREMENT", R_13b1, AppendMeasurement},
    Variable<Vars>{"MIRRTEXT", R_INVALID, AppendMember<Vars, &Vars::MIRRTEXT>},
    Variable<Vars>{"NORTHDIRECTION", R_2007a, AppendMember<Vars, &Vars::NORTHDIRECTION>},
    Variable<Vars>{"OBSCOLOR", R_2004a, AppendMember<Vars, &Vars::OBSCOLOR>},
    Variable<Vars>{"OBSLTYPE", R_2004a, AppendMember<Vars, &Vars::OBSLTYPE>},
    Variable<Vars>{"ORTHOMODE", R_INVALID, AppendMember<Vars, &Vars::ORTHOMODE>},
    Variable<Vars>{"PDMODE", R_INVALID, AppendMember<Vars, &Vars::PDMODE>},
    Variable<Vars>{"PDSIZE", R_INVALID, AppendMember<Vars, &Vars::PDSIZE>},
    Variable<Vars>{"PELEVATION", R_11b1, AppendMember<Vars, &Vars::PELEVATION>},
    Variable<Vars>{"PEXTMAX", R_11b1, AppendMember<Vars, &Vars::PEXTMAX>},
    Variable<Vars>{"PEXTMIN", R_11b1, AppendMember<Vars, &Vars::PEXTMIN>},
    Variable<Vars>{"PINSBASE", R_11b1, AppendMember<Vars, &Vars::PINSBASE>},
    Variable<Vars>{"PLIMCHECK", R_11b1, AppendMember<Vars, &Vars::PLIMCHECK>},
    Variable<Vars>{"PLIMMAX", R_11b1, AppendMember<Vars, &Vars::PLIMMAX>},
    Variable<Vars>{"PLIMMIN", R_11b1, AppendMember<Vars, &Vars::PLIMMIN>},
    Variable<Vars>{"PLINEGEN", R_11b1, AppendMember<Vars, &Vars::PLINEGEN>},
    Variable<Vars>{"PLINEWID", R_INVALID, AppendMember<Vars, &Vars::PLINEWID>},
    Variable<Vars>{"PROJECTNAME", R_2004a, AppendMember<Vars, &Vars::PROJECTNAME>},
    Variable<Vars>{"PROXYGRAPHICS", R_13b1, AppendMember<Vars, &Vars::PROXYGRAPHICS>},
    Variable<Vars>{"PSLTSCALE", R_11b1, AppendMember<Vars, &Vars::PSLTSCALE>},
    Variable<Vars>{"PSOLHEIGHT", R_2007a, AppendMember<Vars, &Vars::PSOLHEIGHT>},
    Variable<Vars>{"PSOLWIDTH", R_2007a, AppendMember<Vars, &Vars::PSOLWIDTH>},
    Variable<Vars>{"PSTYLEMODE", R_2000b, AppendMember<Vars, &Vars::PSTYLEMODE>},
    Variable<Vars>{"PSVPSCALE", R_2000b, AppendMember<Vars, &Vars::PSVPSCALE>},
    Variable<Vars>{"PUCSNAME", R_11b1, AppendMember<Vars, &Vars::PUCSNAME>},
    Variable<Vars>{"PUCSORG", R_11b1, AppendMember<Vars, &Vars::PUCSORG>},
    Variable<Vars>{"PUCSXDIR", R_11b1, AppendMember<Vars, &Vars::PUCSXDIR>},
    Variable<Vars>{"PUCSYDIR", R_11b1, AppendMember<Vars, &Vars::PUCSYDIR>},
    Variable<Vars>{"QTEXTMODE", R_INVALID, AppendMember<Vars, &Vars::QTEXTMODE>},
    Variable<Vars>{"REGENMODE", R_INVALID, AppendMember<Vars, &Vars::REGENMODE>},
    Variable<Vars>{"SHADEDGE", R_INVALID, AppendMember<Vars, &Vars::SHADEDGE>},
    Variable<Vars>{"SHADEDIF", R_INVALID, AppendMember<Vars, &Vars::SHADEDIF>},
    Variable<Vars>{"SHOWHIST", R_2007a, AppendMember<Vars, &Vars::SHOWHIST>},
    Variable<Vars>{"SKETCHINC", R_INVALID, AppendMember<Vars, &Vars::SKETCHINC>},
    Variable<Vars>{"SKPOLY", R_INVALID, AppendMember<Vars, &Vars::SKPOLY>},
    Variable<Vars>{"SOLIDHIST", R_2007a, AppendMember<Vars, &Vars::SOLIDHIST>},
    Variable<Vars>{"SORTENTS", R_2004a, AppendMember<Vars, &Vars::SORTENTS>},
    Variable<Vars>{"SPLFRAME", R_INVALID, AppendMember<Vars, &Vars::SPLFRAME>},
    Variable<Vars>{"SPLINESEGS", R_INVALID, AppendMember<Vars, &Vars::SPLINESEGS>},
    Variable<Vars>{"SPLINETYPE", R_INVALID, AppendMember<Vars, &Vars::SPLINETYPE>},
    Variable<Vars>{"STYLESHEET", R_2000b, AppendMember<Vars, &Vars::STYLESHEET>},
    Variable<Vars>{"SURFTAB1", R_INVALID, AppendMember<Vars, &Vars::SURFTAB1>},
    Variable<Vars>{"SURFTAB2", R_INVALID, AppendMember<Vars, &Vars::SURFTAB2>},
    Variable<Vars>{"SURFTYPE", R_INVALID, AppendMember<Vars, &Vars::SURFTYPE>},
    Variable<Vars>{"SURFU", R_INVALID, AppendMember<Vars, &Vars::SURFU>},
    Variable<Vars>{"SURFV", R_INVALID, AppendMember<Vars, &Vars::SURFV>},
    Variable<Vars>{"TEXTQLTY", R_13b1, AppendMember<Vars, &Vars::TEXTQLTY>},
    Variable<Vars>{"TEXTSIZE", R_INVALID, AppendMember<Vars, &Vars::TEXTSIZE>},
    Variable<Vars>{"TEXTSTYLE", R_INVALID, AppendMember<Vars, &Vars::TEXTSTYLE>},
    Variable<Vars>{"THICKNESS", R_INVALID, AppendMember<Vars, &Vars::THICKNESS>},
    Variable<Vars>{"TILEMODE", R_11b1, AppendMember<Vars, &Vars::TILEMODE>},
    Variable<Vars>{"TIMEZONE", R_2007a, AppendTimeZone},
    Variable<Vars>{"TRACEWID", R_INVALID, AppendMember<Vars, &Vars::TRACEWID>},
    Variable<Vars>{"TREEDEPTH", R_11b1, AppendMember<Vars, &Vars::TREEDEPTH>},
    Variable<Vars>{"UCSBASE", R_2000b, AppendMember<Vars, &Vars::UCSBASE>},
    Variable<Vars>{"UCSNAME", R_INVALID, AppendMember<Vars, &Vars::UCSNAME>},
    Variable<Vars>{"UCSORG", R_INVALID, AppendMember<Vars, &Vars::UCSORG>},
    Variable<Vars>{"UCSORTHOVIEW", R_2000b, AppendMember<Vars, &Vars::UCSORTHOVIEW>},
    Variable<Vars>{"UCSXDIR", R_INVALID, AppendMember<Vars, &Vars::UCSXDIR>},
    Variable<Vars>{"UCSYDIR", R_INVALID, AppendMember<Vars, &Vars::UCSYDIR>},
    Variable<Vars>{"UNITMODE", R_11b1, AppendMember<Vars, &Vars::UNITMODE>},
    Variable<Vars>{"USERI1", R_INVALID, AppendMember<Vars, &Vars::USERI1>},
    Variable<Vars>{"USERI2", R_INVALID, AppendMember<Vars, &Vars::USERI2>},
    Variable<Vars>{"USERI3", R_INVALID, AppendMember<Vars, &Vars::USERI3>},
    Variable<Vars>{"USERI4", R_INVALID, AppendMember<Vars, &Vars::USERI4>},
    Variable<Vars>{"USERI5", R_INVALID, AppendMember<Vars, &Vars::USERI5>},
    Variable<Vars>{"USERR1", R_INVALID, AppendMember<Vars, &Vars::USERR1>},
    Variable<Vars>{"USERR2", R_INVALID, AppendMember<Vars, &Vars::USERR2>},
    Variable<Vars>{"USERR3", R_INVALID, AppendMember<Vars, &Vars::USERR3>},
    Variable<Vars>{"USERR4", R_INVALID, AppendMember<Vars, &Vars::USERR4>},
    Variable<Vars>{"USERR5", R_INVALID, AppendMember<Vars, &Vars::USERR5>},
    Variable<Vars>{"VISRETAIN", R_11b1, AppendMember<Vars, &Vars::VISRETAIN>},
    Variable<Vars>{"WORLDVIEW", R_11b1, AppendMember<Vars, &Vars::WORLDVIEW>},
    Variable<Vars>{"XCLIPFRAME", R_2004a, AppendMember<Vars, &Vars::XCLIPFRAME>},
    Variable<Vars>{"XEDIT", R_2000b, AppendMember<Vars, &Vars::XEDIT>},
};

// A DXF file has the variables that its header names, a DWG those of its release.
bool IsThere(const Variable<Vars>& variable, const CompleteContext& context) {
  const DxfHeader* header = context.base.drawing.dxfHeader;
  return header == nullptr ? context.dwg().header.version >= variable.since
                           : header->names.contains(variable.name);
}

}  // namespace

void AppendHeaderVariables(JsonOut& out, const CompleteContext& context) {
  JsonObject object(out, ",\"header\":{");
  for (const Variable<Vars>& variable : kVariables) {
    if (IsThere(variable, context)) {
      AppendVariable(object, variable, context.dwg().header_vars, context);
    }
  }
  object.Close();
}
