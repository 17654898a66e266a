// One record of a DXF (a group 0 and what follows it) as far as its place in
// the drawing depends on it, and the words that records and sections have.
#pragma once

#include <cstddef>
#include <cstdint>
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

// The two names that blocks have for a space, R12 and earlier with a dollar.
bool IsDxfModelSpace(std::string_view name);
bool IsDxfPaperSpace(std::string_view name);

// Whether a block is model space or any sheet.
bool IsDxfSpace(std::string_view name);

struct DxfRecord {
  std::string_view name;
  std::size_t begin = 0;
  std::uint64_t handle = 0;
  std::uint64_t owner = 0;
  std::string_view layer;
  std::string_view title;  // the first group 2
  int groupDepth = 0;      // of application groups
  int subclassCount = 0;
  bool hasHandle = false;
  bool hasOwner = false;
  bool hasLayer = false;
  bool isInPaper = false;
  bool hasMisplacedProperty = false;
  bool hasUnknownSubclass = false;

  // Starts with the pair of code 0.
  static DxfRecord Begin(const DxfPair& pair);

  // Takes one of the pairs that follow. Returns what the pair says.
  enum class Meaning : std::uint8_t {
    kOther,
    kHandle,
    kOwner,
    kLayer,
    kMisplacedProperty,
    kUnknownSubclass
  };
  Meaning Note(const DxfPair& pair);

 private:
  Meaning NoteOwner(std::string_view value);
  bool isDimStyle_ = false;
};

// Whether entities of that type have few parts, of which all are known, and
// give none of the common codes a meaning of their own.
bool IsPlainDxfType(std::string_view recordName);

// Whether an entity without any subclass markers lacks them.
bool LacksDxfSubclasses(const DxfRecord& record);

// The marker of a type that has one part of its own; empty for others.
std::string_view DxfSubclassOfType(std::string_view recordName);

// Whether a code belongs to the common part of every entity.
bool IsCommonDxfCode(int code);

// Whether the group code of an entity's common part has no other meaning in
// the parts of its own type, so that it may be found there and moved.
bool IsMovableDxfProperty(std::string_view recordName, int code);
