#include "reading/dxf/dxf_repairs.hpp"

#include <algorithm>
#include <string_view>

namespace {

struct RepairWords {
  DxfRepair kind;
  std::string_view one;
  std::string_view many;
};

constexpr std::array kWords = {
    RepairWords{DxfRepair::kByteOrderMark, "byte-order mark", "byte-order marks"},
    RepairWords{DxfRepair::kUtf16Text, "file of 16-bit characters", "files of 16-bit characters"},
    RepairWords{DxfRepair::kUtf32Text, "file of 32-bit characters", "files of 32-bit characters"},
    RepairWords{DxfRepair::kLineEnds, "line with an unusual end", "lines with unusual ends"},
    RepairWords{DxfRepair::kNulBytes, "NUL byte left out", "NUL bytes left out"},
    RepairWords{DxfRepair::kGroupCodes, "group code that was not a plain integer",
                "group codes that were not plain integers"},
    RepairWords{DxfRepair::kUnknownCodes, "value left out with a group code that does not exist",
                "values left out with group codes that do not exist"},
    RepairWords{DxfRepair::kStrayLines, "stray line left out", "stray lines left out"},
    RepairWords{DxfRepair::kBrokenTexts, "line joined to the text before it",
                "lines joined to the texts before them"},
    RepairWords{DxfRepair::kLongTexts, "text cut after 1,000,000 bytes",
                "texts cut after 1,000,000 bytes"},
    RepairWords{DxfRepair::kMissingValues, "group code left out that had no value",
                "group codes left out that had no value"},
    RepairWords{DxfRepair::kBadIntegers, "integer that was no integer",
                "integers that were no integers"},
    RepairWords{DxfRepair::kIntegersOutside, "integer out of range", "integers out of range"},
    RepairWords{DxfRepair::kOddDecimals, "decimal in another notation",
                "decimals in another notation"},
    RepairWords{DxfRepair::kBadDecimals, "decimal that was no number",
                "decimals that were no numbers"},
    RepairWords{DxfRepair::kDecimalsOutside, "decimal out of range", "decimals out of range"},
    RepairWords{DxfRepair::kBadHandles, "handle that was not hexadecimal",
                "handles that were not hexadecimal"},
    RepairWords{DxfRepair::kBadChunks, "binary value that was not hexadecimal",
                "binary values that were not hexadecimal"},
    RepairWords{DxfRepair::kCutBinary, "value cut off by the end of the file",
                "values cut off by the end of the file"},
    RepairWords{DxfRepair::kRecordNames, "record name with blanks or in lower case",
                "record names with blanks or in lower case"},
    RepairWords{DxfRepair::kSectionBegins, "section without a beginning",
                "sections without a beginning"},
    RepairWords{DxfRepair::kSectionEnds, "section without an end", "sections without an end"},
    RepairWords{DxfRepair::kTableBegins, "table without a beginning", "tables without a beginning"},
    RepairWords{DxfRepair::kTableEnds, "table without an end", "tables without an end"},
    RepairWords{DxfRepair::kBlockEnds, "block without an end", "blocks without an end"},
    RepairWords{DxfRepair::kSequenceEnds, "sequence of vertices or attributes without an end",
                "sequences of vertices or attributes without an end"},
    RepairWords{DxfRepair::kFileEnd, "missing end of the file", "missing ends of the file"},
    RepairWords{DxfRepair::kRepeatedSections, "repeated section or table joined to the first",
                "repeated sections or tables joined to the first"},
    RepairWords{DxfRepair::kSectionOrder, "section out of order", "sections out of order"},
    RepairWords{DxfRepair::kUnknownSections, "unknown section left out",
                "unknown sections left out"},
    RepairWords{DxfRepair::kUnknownRecords, "record left out where it has no place",
                "records left out where they have no place"},
    RepairWords{DxfRepair::kOrphans, "vertex, attribute or sequence end left out without its owner",
                "vertices, attributes or sequence ends left out without their owner"},
    RepairWords{DxfRepair::kRelease, "unknown release", "unknown releases"},
    RepairWords{DxfRepair::kMissingBlockRecords, "missing block record", "missing block records"},
    RepairWords{DxfRepair::kMissingHandles, "missing handle", "missing handles"},
    RepairWords{DxfRepair::kRepeatedHandles, "repeated handle", "repeated handles"},
    RepairWords{DxfRepair::kRepeatedRecords, "table entry left out that stood there before",
                "table entries left out that stood there before"},
    RepairWords{DxfRepair::kOwners, "wrong owner", "wrong owners"},
    RepairWords{DxfRepair::kLayers, "layer that no table names", "layers that no table names"},
    RepairWords{DxfRepair::kSubclasses, "missing or unknown subclass marker",
                "missing or unknown subclass markers"},
    RepairWords{DxfRepair::kMisplacedProperties, "common property in a wrong place",
                "common properties in a wrong place"},
    RepairWords{DxfRepair::kMissingGroups, "group added that was missing",
                "groups added that were missing"},
    RepairWords{DxfRepair::kCounts, "count that was not that of its list",
                "counts that were not those of their lists"},
    RepairWords{DxfRepair::kTrailingLines, "line left out behind the end of the file",
                "lines left out behind the end of the file"},
    RepairWords{DxfRepair::kUnreadableEntities, "entity that could not be read",
                "entities that could not be read"},
    RepairWords{DxfRepair::kUnreadableObjects, "object that could not be read",
                "objects that could not be read"},
};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    if (static_cast<std::size_t>(kWords[i].kind) != i) {
      return false;
    }
  }
  return kWords.size() == static_cast<std::size_t>(DxfRepair::kCount);
}
static_assert(IsInOrder());

}  // namespace

void DxfRepairs::Add(DxfRepair kind, std::size_t line, std::size_t count) {
  Entry& entry = entries_.at(static_cast<std::size_t>(kind));
  if (entry.count == 0 || line < entry.firstLine) {
    entry.firstLine = line;
  }
  entry.count += count;
}

bool DxfRepairs::IsEmpty() const {
  return std::all_of(entries_.begin(), entries_.end(),
                     [](const Entry& entry) { return entry.count == 0; });
}

std::vector<std::string> DxfRepairs::Lines() const {
  std::vector<DxfRepair> kinds;
  for (const RepairWords& words : kWords) {
    if (CountOf(words.kind) != 0) {
      kinds.push_back(words.kind);
    }
  }
  std::stable_sort(kinds.begin(), kinds.end(),
                   [this](DxfRepair a, DxfRepair b) { return At(a).firstLine < At(b).firstLine; });
  std::vector<std::string> lines;
  for (const DxfRepair kind : kinds) {
    const RepairWords& words = kWords.at(static_cast<std::size_t>(kind));
    const Entry& entry = At(kind);
    lines.push_back("DXF repaired: " + std::to_string(entry.count) + ' ' +
                    std::string(entry.count == 1 ? words.one : words.many) + " (first in line " +
                    std::to_string(entry.firstLine) + ')');
  }
  return lines;
}
