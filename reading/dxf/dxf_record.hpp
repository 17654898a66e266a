// One record of a DXF (a group 0 and what follows it) as far as its place in
// the drawing depends on it, and the words that records and sections have.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "reading/dxf/dxf_pairs.hpp"

// In the order in which LibreDWG's reader wants them.
enum class DxfSection : std::uint8_t {
  kHeader,
  kClasses,
  kTables,
  kBlocks,
  kEntities,
  kObjects,
  kThumbnail,
  kData,
  kUnknown,
};
inline constexpr std::size_t kDxfSectionCount = static_cast<std::size_t>(DxfSection::kUnknown);

// "HEADER" and so on. kUnknown for another name.
DxfSection DxfSectionOfName(std::string_view name);
std::string_view DxfSectionName(DxfSection section);

// The section in which records of that name stand; kUnknown for names that are
// no well-known ones, which may be entities or objects.
DxfSection DxfSectionOfRecord(std::string_view name);

// The names of the tables and of their records.
bool IsDxfTable(std::string_view name);

// A well-known name of a record or section for one in lower case or with blanks
// around it; the name itself, without the blanks, when there is none.
std::string DxfRecordName(std::string_view written);

// The key by which names of layers and blocks are told apart: without regard
// to the case of ASCII letters and to blanks at the end.
std::string DxfNameKey(std::string_view name);

// Whether a group of a record is the name of something in a table or block, in
// which blanks at the end mean nothing.
bool IsDxfNameCode(std::string_view recordName, int code);

// Without blanks at the end; names of spaces in the usual spelling.
std::string UsualDxfName(std::string_view name);

// The name of a header variable without blanks around it and in capitals.
std::string UsualDxfVariable(std::string_view name);

// The two names that blocks have for a space, R12 and earlier with a dollar.
bool IsDxfModelSpace(std::string_view name);
bool IsDxfPaperSpace(std::string_view name);

// Whether a block is model space or any sheet.
bool IsDxfSpace(std::string_view name);

// A group that a type of entity cannot do without, and what it means when it is
// missing; empty: the corner of a triangle, which is the one before it.
struct DxfRequiredGroup {
  std::string_view record;
  int code;
  std::string_view value;
};
std::span<const DxfRequiredGroup> DxfRequiredGroups(std::string_view recordName);

// Which group counts which other; 0 for types without such a list.
struct DxfListCodes {
  int count = 0;
  int item = 0;
};

// Whether a code belongs to the common part of every entity.
constexpr bool IsCommonDxfCode(int code) {
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

namespace dxf_record_detail {

// The groups besides those of the common part that records of any type heed: names,
// handles, owners, brackets, rows and columns.
inline constexpr std::array<int, 10> kHeededCodes = {2, 3, 5, 7, 70, 71, 100, 102, 105, 330};

consteval auto HeededByCode() {
  std::array<bool, kLastDxfGroupCode + 1> heeded{};
  for (int code = 0; code <= kLastDxfGroupCode; ++code) {
    heeded.at(static_cast<std::size_t>(code)) =
        IsCommonDxfCode(code) ||
        std::find(kHeededCodes.begin(), kHeededCodes.end(), code) != kHeededCodes.end();
  }
  return heeded;
}

inline constexpr auto kHeededByCode = HeededByCode();

constexpr bool IsHeeded(int code) {
  const auto index = static_cast<std::size_t>(code);
  return index < kHeededByCode.size() && kHeededByCode[index];
}

}  // namespace dxf_record_detail

// How many paths of a hatch have another number of edges or corners than they say.
class DxfPathCounts {
 public:
  // Counts what most of a hatch consists of. Returns whether the group is of that kind.
  bool Counts(int code) {
    found_ += code == itemCode_ ? 1 : 0;
    return code == kCorner || code == kEdge;
  }

  // Whether it has to see another group.
  static constexpr bool Heeds(int code) {
    return code == kStyle || code == kPath || code == kCount;
  }

  void Note(const DxfPair& pair);
  std::size_t WrongOnes() const { return wrongOnes_ + (IsOpenOneWrong() ? 1 : 0); }

 private:
  static constexpr int kCorner = 10;  // of a path that is a polyline
  static constexpr int kEdge = 72;    // of another one
  static constexpr int kStyle = 75;   // behind all paths
  static constexpr int kPath = 92;    // begins one
  static constexpr int kCount = 93;

  bool IsOpenOneWrong() const { return itemCode_ != 0 && said_ != found_; }

  int itemCode_ = 0;  // 0: in no path
  long long said_ = 0;
  long long found_ = 0;
  std::size_t wrongOnes_ = 0;
};

struct DxfRecord {
  std::string_view name;
  std::size_t begin = 0;
  std::uint64_t handle = 0;
  std::uint64_t owner = 0;
  std::string_view layer;
  std::string_view title;       // the first group 2, for a BLOCK without one its group 3
  int groupDepth = 0;           // of application groups
  bool isForeignGroup = false;  // it is another program's
  bool hasForeignHandle = false;
  int subclassCount = 0;
  bool hasHandle = false;
  bool hasOwner = false;
  bool hasLayer = false;
  bool isInPaper = false;
  bool hasMisplacedProperty = false;
  bool hasUnknownSubclass = false;
  bool hasEntityMarker = false;     // AcDbEntity
  bool hasDimensionMarker = false;  // of one kind of dimension
  bool isArray = false;             // more than one row or column
  bool hasSecondName = false;       // the title is of group 3
  bool hasOddName = false;          // a name to be written as UsualDxfName has it
  bool hasCount = false;            // of its list
  long long itemCount = 0;          // of it

  bool LacksGroups() const { return foundGroups_ != requiredGroups_; }
  // Those of its list and of its parts' lists.
  std::size_t WrongCounts() const { return (HasWrongListCount() ? 1 : 0) + paths_.WrongOnes(); }
  bool HasWrongListCount() const { return list_.count != 0 && saidCount_ != itemCount; }
  DxfListCodes list() const { return list_; }

  // Starts with the pair of code 0.
  static DxfRecord Begin(const DxfPair& pair);

  // Takes one of the pairs that follow. Returns what the pair says.
  enum class Meaning : std::uint8_t {
    kOther,
    kHandle,
    kOwner,
    kLayer,
    kMisplacedProperty,
    kUnknownSubclass,
    kForeignHandle,  // in a group of another program: the reader takes it for an owner
  };
  Meaning Note(const DxfPair& pair) {
    const bool isCounted = isHatch_ && paths_.Counts(pair.code);
    return isCounted || SaysNothing(pair.code) ? Meaning::kOther : Weigh(pair);
  }

 private:
  // Whether no record of this one's type heeds that group: most are such.
  bool SaysNothing(int code) const {
    return requiredGroups_ == 0 && code != list_.item && code != list_.count &&
           !dxf_record_detail::IsHeeded(code) && !(isHatch_ && DxfPathCounts::Heeds(code));
  }
  Meaning Weigh(const DxfPair& pair);
  Meaning NoteOwner(std::string_view value);
  Meaning NoteGroupBracket(std::string_view value);
  Meaning NoteLayer(std::string_view value);
  Meaning NoteSubclass(std::string_view value);
  void NoteName(const DxfPair& pair);
  void NoteGroup(const DxfPair& pair);
  bool IsBehindCommonPart() const { return subclassCount > (hasEntityMarker ? 1 : 0); }
  bool isDimStyle_ = false;
  bool isHatch_ = false;
  unsigned requiredGroups_ = 0;  // bits by DxfRequiredGroups
  unsigned foundGroups_ = 0;
  DxfListCodes list_;
  long long saidCount_ = 0;
  DxfPathCounts paths_;
};

// Whether entities of that type have few parts, of which all are known, and
// give none of the common codes a meaning of their own.
bool IsPlainDxfType(std::string_view recordName);

// Whether an entity without subclass markers of its own part lacks them.
bool LacksDxfSubclasses(const DxfRecord& record);

// Whether only the marker of the common part is missing.
bool LacksDxfEntityMarker(const DxfRecord& record);

// The marker of a type that has one part of its own; empty for others.
std::string_view DxfSubclassOfType(std::string_view recordName);

// The markers of a kind of dimension (group 70, bits 0 to 2) before and behind its
// own groups; those of a rotated one for another number.
struct DxfDimensionSubclasses {
  std::string_view before;
  std::string_view behind;
};
DxfDimensionSubclasses DxfSubclassesOfDimension(int kind);

// Whether a group belongs to the part that all kinds of dimensions have.
bool IsSharedDxfDimensionCode(int code);

// Whether the group code of an entity's common part has no other meaning in
// the parts of its own type, so that it may be found there and moved.
bool IsMovableDxfProperty(std::string_view recordName, int code);
