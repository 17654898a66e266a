#include "reading/dxf/dxf_record.hpp"

#include <algorithm>
#include <array>

#include "encode/ascii.hpp"
#include "reading/dxf/word_index.hpp"

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

constexpr std::array<std::string_view, 2> kTableWords = {"TABLE", "ENDTAB"};
constexpr std::array<std::string_view, 2> kBlockWords = {"BLOCK", "ENDBLK"};
constexpr std::array<std::string_view, 1> kClassWords = {"CLASS"};

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

constexpr std::array<std::string_view, 10> kDimensionSubclasses = {"AcDbEntity",
                                                                   "AcDbDimension",
                                                                   "AcDbAlignedDimension",
                                                                   "AcDbRotatedDimension",
                                                                   "AcDbRadialDimension",
                                                                   "AcDbDiametricDimension",
                                                                   "AcDbOrdinateDimension",
                                                                   "AcDb2LineAngularDimension",
                                                                   "AcDb3PointAngularDimension",
                                                                   "AcDbArcDimension"};

constexpr WordIndex kPlainSubclassIndex(kPlainSubclasses);

bool IsKnownSubclass(std::string_view recordName, std::string_view subclass) {
  if (recordName == "DIMENSION") {
    return Holds(kDimensionSubclasses, subclass);
  }
  return kPlainSubclassIndex.Holds(subclass) || !IsPlainDxfType(recordName);
}

// The reader looks for a layer only before the lists of these.
bool HasLists(std::string_view recordName) {
  return recordName == "LWPOLYLINE" || recordName == "HATCH";
}

bool HasBlankEnd(std::string_view value) {
  return !value.empty() && TrimmedDxfEnd(value).size() != value.size();
}

constexpr std::array<DxfRequiredGroup, 7> kRequiredGroups = {{{"ELLIPSE", 41, "0.0"},
                                                              {"ELLIPSE", 42, "6.283185307179586"},
                                                              {"IMAGE", 70, "3"},
                                                              {"MTEXT", 71, "1"},
                                                              {"SOLID", 13, {}},
                                                              {"SPLINE", 71, "3"},
                                                              {"TRACE", 13, {}}}};

constexpr std::span<const DxfRequiredGroup> RequiredGroups(std::string_view name) {
  const auto isOfType = [name](const DxfRequiredGroup& group) { return group.record == name; };
  const auto* const first = std::find_if(kRequiredGroups.begin(), kRequiredGroups.end(), isOfType);
  return {first, std::find_if_not(first, kRequiredGroups.end(), isOfType)};
}

constexpr DxfListCodes ListOfType(std::string_view name) {
  if (name == "HATCH") {
    return {.count = 91, .item = 92};
  }
  if (name == "LEADER") {
    return {.count = 76, .item = 10};
  }
  return name == "WIPEOUT" || name == "IMAGE" ? DxfListCodes{.count = 91, .item = 14}
                                              : DxfListCodes{};
}

// What is known of the records of one name.
struct RecordType {
  DxfSection section = DxfSection::kUnknown;
  bool isPlain = false;
  DxfListCodes list;
  std::span<const DxfRequiredGroup> required;
};

constexpr std::size_t kTypeCount = kTableWords.size() + kTables.size() + kBlockWords.size() +
                                   kClassWords.size() + kEntities.size() + kObjects.size();

struct RecordTypes {
  std::array<std::string_view, kTypeCount> names;
  std::array<RecordType, kTypeCount + 1> types;  // the last is that of all others
};

consteval RecordTypes AllRecordTypes() {
  RecordTypes all;
  std::size_t count = 0;
  const auto add = [&all, &count](const auto& names, DxfSection section) {
    for (const std::string_view name : names) {
      all.names.at(count) = name;
      all.types.at(count) = {.section = section,
                             .isPlain = Holds(kPlainTypes, name),
                             .list = ListOfType(name),
                             .required = RequiredGroups(name)};
      ++count;
    }
  };
  add(kTableWords, DxfSection::kTables);
  add(kTables, DxfSection::kTables);
  add(kBlockWords, DxfSection::kBlocks);
  add(kClassWords, DxfSection::kClasses);
  add(kEntities, DxfSection::kEntities);
  add(kObjects, DxfSection::kObjects);
  return all;
}

constexpr RecordTypes kRecordTypes = AllRecordTypes();
constexpr WordIndex kRecordTypeIndex(kRecordTypes.names);

const RecordType& TypeOf(std::string_view recordName) {
  return kRecordTypes.types.at(kRecordTypeIndex.Find(recordName));
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
  return TypeOf(name).section;
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

std::span<const DxfRequiredGroup> DxfRequiredGroups(std::string_view recordName) {
  return TypeOf(recordName).required;
}

bool IsDxfNameCode(std::string_view recordName, int code) {
  constexpr int kName = 2;
  constexpr int kSecondName = 3;
  constexpr int kLineType = 6;
  constexpr int kStyle = 7;
  constexpr int kLayer = 8;
  switch (code) {
    case kName:
      return IsDxfTable(recordName) || recordName == "BLOCK" || recordName == "INSERT" ||
             recordName == "ATTRIB" || recordName == "ATTDEF";
    case kSecondName:
      return recordName == "BLOCK" || recordName == "STYLE" || recordName == "DIMENSION" ||
             recordName == "LEADER";
    case kLineType:
    case kStyle:
    case kLayer: {
      const DxfSection section = DxfSectionOfRecord(recordName);
      return section == DxfSection::kTables || section == DxfSection::kBlocks ||
             section == DxfSection::kEntities;
    }
    default: return false;
  }
}

std::string UsualDxfName(std::string_view name) {
  const std::string_view trimmed = TrimmedDxfEnd(name);
  constexpr std::string_view kModelSpace = "*Model_Space";
  constexpr std::string_view kPaperSpace = "*Paper_Space";
  if (trimmed.starts_with('*') && IsDxfModelSpace(trimmed)) {
    return std::string(kModelSpace);
  }
  if (StartsWithIgnoringCase(trimmed, "*paper_space")) {
    return std::string(kPaperSpace).append(trimmed.substr(kPaperSpace.size()));
  }
  return std::string(trimmed);
}

std::string UsualDxfVariable(std::string_view name) {
  return UpperAscii(TrimmedDxf(name));
}

void DxfPathCounts::Note(const DxfPair& pair) {
  constexpr int kPolyline = 2;
  if (pair.code == kPath || pair.code == kStyle) {
    wrongOnes_ = WrongOnes();
    const bool isPolyline = (ParseDxfCode(pair.value).value_or(0) & kPolyline) != 0;
    itemCode_ = pair.code == kStyle ? 0 : isPolyline ? kCorner : kEdge;
    said_ = -1;
    found_ = 0;
  } else if (pair.code == kCount && said_ < 0) {
    said_ = ParseDxfCode(pair.value).value_or(-1);
  }
}

DxfRecord DxfRecord::Begin(const DxfPair& pair) {
  DxfRecord record;
  record.name = pair.value;
  record.begin = pair.begin;
  record.isDimStyle_ = pair.value == "DIMSTYLE";
  record.isHatch_ = pair.value == "HATCH";
  const RecordType& type = TypeOf(pair.value);
  record.requiredGroups_ = (1U << type.required.size()) - 1;
  record.list_ = type.list;
  return record;
}

DxfRecord::Meaning DxfRecord::NoteOwner(std::string_view value) {
  if (groupDepth != 0 && isForeignGroup) {
    hasForeignHandle = hasForeignHandle || hasOwner;
    return Meaning::kForeignHandle;
  }
  // Behind the common part a 330 is something else.
  if (groupDepth != 0 || hasOwner || subclassCount > 1) {
    return Meaning::kOther;
  }
  hasOwner = true;
  owner = ParseDxfHandle(value).value_or(0);
  return Meaning::kOwner;
}

DxfRecord::Meaning DxfRecord::NoteGroupBracket(std::string_view value) {
  groupDepth = value.starts_with('{') ? 1 : 0;
  isForeignGroup = groupDepth != 0 && !value.starts_with("{ACAD_");
  return Meaning::kOther;
}

DxfRecord::Meaning DxfRecord::NoteLayer(std::string_view value) {
  if (hasLayer) {
    return Meaning::kOther;
  }
  hasLayer = true;
  layer = value;
  if (IsBehindCommonPart() && HasLists(name)) {
    hasMisplacedProperty = true;
    return Meaning::kMisplacedProperty;
  }
  return Meaning::kLayer;
}

DxfRecord::Meaning DxfRecord::NoteSubclass(std::string_view value) {
  if (!IsKnownSubclass(name, value)) {
    hasUnknownSubclass = true;
    return Meaning::kUnknownSubclass;
  }
  ++subclassCount;
  groupDepth = 0;  // no group goes on behind it
  hasEntityMarker = hasEntityMarker || value == "AcDbEntity";
  hasDimensionMarker =
      hasDimensionMarker || (value.ends_with("Dimension") && value != "AcDbDimension");
  return Meaning::kOther;
}

// Groups 2 and 3.
void DxfRecord::NoteName(const DxfPair& pair) {
  constexpr int kTitle = 2;
  hasOddName =
      hasOddName || (IsDxfNameCode(name, pair.code) &&
                     (HasBlankEnd(pair.value) ||
                      (pair.value.starts_with('*') && UsualDxfName(pair.value) != pair.value)));
  if (pair.code == kTitle && (title.data() == nullptr || hasSecondName)) {
    title = pair.value;
    hasSecondName = false;
  } else if (title.data() == nullptr && name == "BLOCK") {
    title = pair.value;
    hasSecondName = true;
  }
}

void DxfRecord::NoteGroup(const DxfPair& pair) {
  if (requiredGroups_ != 0) {
    const auto groups = DxfRequiredGroups(name);
    for (std::size_t i = 0; i < groups.size(); ++i) {
      foundGroups_ |= groups[i].code == pair.code ? 1U << i : 0U;
    }
  }
  if (isHatch_) {
    paths_.Note(pair);
  }
  if (list_.count == 0) {
    return;
  }
  if (pair.code == list_.item) {
    ++itemCount;
  } else if (pair.code == list_.count && !hasCount) {
    hasCount = true;
    saidCount_ = ParseDxfCode(pair.value).value_or(-1);
  }
}

DxfRecord::Meaning DxfRecord::Weigh(const DxfPair& pair) {
  if (requiredGroups_ != 0 || list_.count != 0) {
    NoteGroup(pair);
  }
  constexpr int kTitle = 2;
  constexpr int kSecondName = 3;
  constexpr int kLineType = 6;
  constexpr int kStyle = 7;
  constexpr int kColumns = 70;
  constexpr int kRows = 71;
  constexpr int kHandleCode = 5;
  constexpr int kLayerCode = 8;
  constexpr int kPaperCode = 67;
  constexpr int kSubclass = 100;
  constexpr int kGroup = 102;
  constexpr int kDimStyleHandle = 105;
  constexpr int kOwnerCode = 330;
  switch (pair.code) {
    case kTitle:
    case kSecondName: NoteName(pair); return Meaning::kOther;
    case kLineType:
    case kStyle:
      hasOddName = hasOddName || (HasBlankEnd(pair.value) && IsDxfNameCode(name, pair.code));
      break;
    case kColumns:
    case kRows:
      isArray = isArray || (name == "INSERT" && TrimmedDxf(pair.value) != "1" &&
                            TrimmedDxf(pair.value) != "0");
      break;
    case kHandleCode:
    case kDimStyleHandle:
      if (isDimStyle_ != (pair.code == kDimStyleHandle) || hasHandle) {
        return Meaning::kOther;
      }
      hasHandle = true;
      handle = ParseDxfHandle(pair.value).value_or(0);
      return Meaning::kHandle;
    case kOwnerCode: return NoteOwner(pair.value);
    case kSubclass: return NoteSubclass(pair.value);
    case kGroup: return NoteGroupBracket(pair.value);
    case kPaperCode: isInPaper = TrimmedDxf(pair.value) == "1"; break;
    case kLayerCode: return NoteLayer(pair.value);
    default: break;
  }
  if (IsBehindCommonPart() && IsMovableDxfProperty(name, pair.code)) {
    hasMisplacedProperty = true;
    return Meaning::kMisplacedProperty;
  }
  return Meaning::kOther;
}

bool IsPlainDxfType(std::string_view recordName) {
  return TypeOf(recordName).isPlain;
}

bool LacksDxfSubclasses(const DxfRecord& record) {
  if (record.name == "DIMENSION") {
    return !record.hasDimensionMarker;
  }
  return record.subclassCount == 0 && IsPlainDxfType(record.name);
}

bool LacksDxfEntityMarker(const DxfRecord& record) {
  return record.subclassCount != 0 && !record.hasEntityMarker &&
         DxfSectionOfRecord(record.name) == DxfSection::kEntities;
}

std::string_view DxfSubclassOfType(std::string_view recordName) {
  for (const TypeSubclass& type : kTypeSubclasses) {
    if (type.name == recordName) {
      return type.subclass;
    }
  }
  return {};
}

DxfDimensionSubclasses DxfSubclassesOfDimension(int kind) {
  constexpr std::array<DxfDimensionSubclasses, 7> kSubclasses = {
      {{"AcDbAlignedDimension", "AcDbRotatedDimension"},
       {"AcDbAlignedDimension", {}},
       {"AcDb2LineAngularDimension", {}},
       {"AcDbDiametricDimension", {}},
       {"AcDbRadialDimension", {}},
       {"AcDb3PointAngularDimension", {}},
       {"AcDbOrdinateDimension", {}}}};
  const auto index = static_cast<std::size_t>(kind);
  return index < kSubclasses.size() ? kSubclasses.at(index) : kSubclasses.front();
}

bool IsSharedDxfDimensionCode(int code) {
  constexpr std::array kShared = {1,  2,  3,  10, 11, 20, 21, 30,  31,  41,  42, 51,
                                  53, 70, 71, 72, 73, 74, 75, 210, 220, 230, 280};
  return std::find(kShared.begin(), kShared.end(), code) != kShared.end();
}

bool IsMovableDxfProperty(std::string_view recordName, int code) {
  constexpr int kLayerCode = 8;
  return code != kLayerCode && IsCommonDxfCode(code) && IsPlainDxfType(recordName);
}
