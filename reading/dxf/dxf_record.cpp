#include "reading/dxf/dxf_record.hpp"

#include <algorithm>
#include <array>

#include "encode/ascii.hpp"

namespace {

struct SectionWord {
  DxfSection section;
  std::string_view name;
};

constexpr std::array kSectionWords = {
    SectionWord{DxfSection::kHeader, "HEADER"},
    SectionWord{DxfSection::kClasses, "CLASSES"},
    SectionWord{DxfSection::kTables, "TABLES"},
    SectionWord{DxfSection::kBlocks, "BLOCKS"},
    SectionWord{DxfSection::kEntities, "ENTITIES"},
    SectionWord{DxfSection::kObjects, "OBJECTS"},
    SectionWord{DxfSection::kThumbnail, "THUMBNAILIMAGE"},
    SectionWord{DxfSection::kData, "ACDSDATA"},
};
static_assert(kSectionWords.size() == kDxfSectionCount);

constexpr std::array<std::string_view, 10> kTables = {
    "APPID", "BLOCK_RECORD", "DIMSTYLE", "LAYER", "LTYPE", "STYLE", "UCS", "VIEW", "VPORT", "VX"};

constexpr std::array<std::string_view, 48> kEntities = {"3DFACE",      "3DSOLID",
                                                        "ARC",         "ARC_DIMENSION",
                                                        "ATTDEF",      "ATTRIB",
                                                        "BODY",        "CIRCLE",
                                                        "DIMENSION",   "ELLIPSE",
                                                        "HATCH",       "HELIX",
                                                        "IMAGE",       "INSERT",
                                                        "LEADER",      "LIGHT",
                                                        "LINE",        "LWPOLYLINE",
                                                        "MESH",        "MLINE",
                                                        "MLEADER",     "MTEXT",
                                                        "MULTILEADER", "OLE2FRAME",
                                                        "OLEFRAME",    "PDFUNDERLAY",
                                                        "POINT",       "POLYLINE",
                                                        "RAY",         "REGION",
                                                        "SEQEND",      "SHAPE",
                                                        "SOLID",       "SPLINE",
                                                        "SURFACE",     "TABLE",
                                                        "TEXT",        "TOLERANCE",
                                                        "TRACE",       "VERTEX",
                                                        "VIEWPORT",    "WIPEOUT",
                                                        "XLINE",       "3DLINE",
                                                        "ACAD_TABLE",  "ACAD_PROXY_ENTITY",
                                                        "DGNUNDERLAY", "DWFUNDERLAY"};

constexpr std::array<std::string_view, 14> kObjects = {
    "ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "DICTIONARY",
    "DICTIONARYVAR",       "GROUP",           "IMAGEDEF",
    "IMAGEDEF_REACTOR",    "LAYOUT",          "MATERIAL",
    "MLINESTYLE",          "PLOTSETTINGS",    "SCALE",
    "SORTENTSTABLE",       "XRECORD"};

constexpr std::array<std::string_view, 8> kBrackets = {"SECTION", "ENDSEC", "TABLE", "ENDTAB",
                                                       "BLOCK",   "ENDBLK", "CLASS", "EOF"};

template <std::size_t N>
constexpr bool Holds(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsWellKnown(std::string_view name) {
  return Holds(kBrackets, name) || DxfSectionOfName(name) != DxfSection::kUnknown ||
         DxfSectionOfRecord(name) != DxfSection::kUnknown;
}

std::string UpperAscii(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return out;
}

bool IsSpace(std::string_view name, std::string_view space) {
  return name.size() == space.size() + 1 && (name[0] == '*' || name[0] == '$') &&
         LowerAscii(name.substr(1)) == space;
}

// Types whose own part gives none of the common codes a meaning of its own.
constexpr std::array<std::string_view, 18> kPlainTypes = {
    "3DFACE", "ARC", "ATTDEF",   "ATTRIB", "CIRCLE", "ELLIPSE", "INSERT", "LINE",   "LWPOLYLINE",
    "POINT",  "RAY", "POLYLINE", "SOLID",  "SPLINE", "TEXT",    "TRACE",  "VERTEX", "XLINE"};

// Their parts.
constexpr std::array<std::string_view, 34> kPlainSubclasses = {"AcDbEntity",
                                                               "AcDbLine",
                                                               "AcDbCircle",
                                                               "AcDbArc",
                                                               "AcDbPoint",
                                                               "AcDbEllipse",
                                                               "AcDbPolyline",
                                                               "AcDbText",
                                                               "AcDbAttribute",
                                                               "AcDbAttributeDefinition",
                                                               "AcDbBlockReference",
                                                               "AcDbMInsertBlock",
                                                               "AcDbTrace",
                                                               "AcDbSolid",
                                                               "AcDbFace",
                                                               "AcDb2dPolyline",
                                                               "AcDb3dPolyline",
                                                               "AcDbPolyFaceMesh",
                                                               "AcDbPolygonMesh",
                                                               "AcDbVertex",
                                                               "AcDb2dVertex",
                                                               "AcDb3dPolylineVertex",
                                                               "AcDbPolyFaceMeshVertex",
                                                               "AcDbPolygonMeshVertex",
                                                               "AcDbFaceRecord",
                                                               "AcDbSpline",
                                                               "AcDbRay",
                                                               "AcDbXline",
                                                               "AcDbXrecord",
                                                               "AcDbMText",
                                                               "AcDbHelix",
                                                               "AcDbCurve",
                                                               "AcDbEmbeddedObject",
                                                               "AcDbBlockRefs"};

bool IsKnownSubclass(std::string_view recordName, std::string_view subclass) {
  return Holds(kPlainSubclasses, subclass) || !Holds(kPlainTypes, recordName);
}

struct TypeSubclass {
  std::string_view name;
  std::string_view subclass;
};

constexpr std::array kTypeSubclasses = {
    TypeSubclass{"3DFACE", "AcDbFace"},     TypeSubclass{"CIRCLE", "AcDbCircle"},
    TypeSubclass{"ELLIPSE", "AcDbEllipse"}, TypeSubclass{"INSERT", "AcDbBlockReference"},
    TypeSubclass{"LINE", "AcDbLine"},       TypeSubclass{"LWPOLYLINE", "AcDbPolyline"},
    TypeSubclass{"POINT", "AcDbPoint"},     TypeSubclass{"RAY", "AcDbRay"},
    TypeSubclass{"SOLID", "AcDbTrace"},     TypeSubclass{"SPLINE", "AcDbSpline"},
    TypeSubclass{"TRACE", "AcDbTrace"},     TypeSubclass{"XLINE", "AcDbXline"}};

}  // namespace

DxfSection DxfSectionOfName(std::string_view name) {
  for (const SectionWord& word : kSectionWords) {
    if (word.name == name) {
      return word.section;
    }
  }
  return DxfSection::kUnknown;
}

std::string_view DxfSectionName(DxfSection section) {
  return section == DxfSection::kUnknown ? std::string_view{}
                                         : kSectionWords.at(static_cast<std::size_t>(section)).name;
}

bool IsDxfTable(std::string_view name) {
  return Holds(kTables, name);
}

DxfSection DxfSectionOfRecord(std::string_view name) {
  if (name == "ENDTAB" || name == "TABLE" || IsDxfTable(name)) {
    return DxfSection::kTables;
  }
  if (name == "BLOCK" || name == "ENDBLK") {
    return DxfSection::kBlocks;
  }
  if (name == "CLASS") {
    return DxfSection::kClasses;
  }
  if (Holds(kEntities, name)) {
    return DxfSection::kEntities;
  }
  return Holds(kObjects, name) ? DxfSection::kObjects : DxfSection::kUnknown;
}

std::string DxfRecordName(std::string_view written) {
  const std::string_view trimmed = TrimmedDxf(written);
  std::string upper = UpperAscii(trimmed);
  return IsWellKnown(upper) ? upper : std::string(trimmed);
}

std::string DxfNameKey(std::string_view name) {
  return LowerAscii(TrimmedDxfEnd(name));
}

bool IsDxfModelSpace(std::string_view name) {
  return IsSpace(name, "model_space");
}

bool IsDxfPaperSpace(std::string_view name) {
  return IsSpace(name, "paper_space");
}

bool IsDxfSpace(std::string_view name) {
  // Sheets that are not the active one have a number behind it.
  return IsDxfModelSpace(name) || StartsWithIgnoringCase(name, "*paper_space") ||
         StartsWithIgnoringCase(name, "$paper_space");
}

DxfRecord DxfRecord::Begin(const DxfPair& pair) {
  DxfRecord record;
  record.name = pair.value;
  record.begin = pair.begin;
  record.isDimStyle_ = pair.value == "DIMSTYLE";
  return record;
}

DxfRecord::Meaning DxfRecord::NoteOwner(std::string_view value) {
  // Behind the common part a 330 is something else.
  if (groupDepth != 0 || hasOwner || subclassCount > 1) {
    return Meaning::kOther;
  }
  hasOwner = true;
  owner = ParseDxfHandle(value).value_or(0);
  return Meaning::kOwner;
}

DxfRecord::Meaning DxfRecord::Note(const DxfPair& pair) {
  constexpr int kTitle = 2;
  constexpr int kHandleCode = 5;
  constexpr int kLayerCode = 8;
  constexpr int kPaperCode = 67;
  constexpr int kSubclass = 100;
  constexpr int kGroup = 102;
  constexpr int kDimStyleHandle = 105;
  constexpr int kOwnerCode = 330;
  switch (pair.code) {
    case kTitle:
      if (title.data() == nullptr) {
        title = pair.value;
      }
      return Meaning::kOther;
    case kHandleCode:
    case kDimStyleHandle:
      if (isDimStyle_ != (pair.code == kDimStyleHandle) || hasHandle) {
        return Meaning::kOther;
      }
      hasHandle = true;
      handle = ParseDxfHandle(pair.value).value_or(0);
      return Meaning::kHandle;
    case kOwnerCode: return NoteOwner(pair.value);
    case kSubclass:
      if (!IsKnownSubclass(name, pair.value)) {
        hasUnknownSubclass = true;
        return Meaning::kUnknownSubclass;
      }
      ++subclassCount;
      return Meaning::kOther;
    case kGroup: groupDepth = pair.value.starts_with('{') ? 1 : 0; return Meaning::kOther;
    case kPaperCode: isInPaper = TrimmedDxf(pair.value) == "1"; break;
    case kLayerCode:
      if (hasLayer) {
        return Meaning::kOther;
      }
      hasLayer = true;
      layer = pair.value;
      return Meaning::kLayer;
    default: break;
  }
  if (subclassCount > 1 && IsMovableDxfProperty(name, pair.code)) {
    hasMisplacedProperty = true;
    return Meaning::kMisplacedProperty;
  }
  return Meaning::kOther;
}

bool IsPlainDxfType(std::string_view recordName) {
  return Holds(kPlainTypes, recordName);
}

bool LacksDxfSubclasses(const DxfRecord& record) {
  return record.subclassCount == 0 && IsPlainDxfType(record.name);
}

std::string_view DxfSubclassOfType(std::string_view recordName) {
  for (const TypeSubclass& type : kTypeSubclasses) {
    if (type.name == recordName) {
      return type.subclass;
    }
  }
  return {};
}

bool IsCommonDxfCode(int code) {
  switch (code) {
    case 6:
    case 8:
    case 48:
    case 60:
    case 62:
    case 67:
    case 370:
    case 420:
    case 440: return true;
    default: return false;
  }
}

bool IsMovableDxfProperty(std::string_view recordName, int code) {
  constexpr int kLayerCode = 8;
  return code != kLayerCode && IsCommonDxfCode(code) && IsPlainDxfType(recordName);
}
