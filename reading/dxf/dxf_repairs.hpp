// What was put right in a DXF before LibreDWG read it, counted by kind.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// In the order of the table of their words.
enum class DxfRepair : std::uint8_t {
  kByteOrderMark,
  kUtf16Text,
  kUtf32Text,
  kLineEnds,
  kNulBytes,
  kGroupCodes,
  kUnknownCodes,
  kStrayLines,
  kBrokenTexts,
  kLongTexts,
  kMissingValues,
  kBadIntegers,
  kIntegersOutside,
  kOddDecimals,
  kBadDecimals,
  kDecimalsOutside,
  kBadHandles,
  kBadChunks,
  kCutBinary,
  kRecordNames,
  kSectionBegins,
  kSectionEnds,
  kTableBegins,
  kTableEnds,
  kBlockEnds,
  kSequenceEnds,
  kFileEnd,
  kRepeatedSections,
  kSectionOrder,
  kUnknownSections,
  kUnknownRecords,
  kOrphans,
  kRelease,
  kMissingBlockRecords,
  kMissingHandles,
  kRepeatedHandles,
  kRepeatedRecords,
  kOwners,
  kLayers,
  kSubclasses,
  kMisplacedProperties,
  kMissingGroups,
  kCounts,
  kTrailingLines,
  kUnreadableEntities,
  kUnreadableObjects,
  kCount,
};

class DxfRepairs {
 public:
  // `line` counts from 1. A stage that does not count lines may give other
  // rising positions and turn them into lines at the end.
  void Add(DxfRepair kind, std::size_t line) { Add(kind, line, 1); }
  void Add(DxfRepair kind, std::size_t line, std::size_t count);

  // Adds those of a stage whose positions `lineOf` turns into lines.
  template <typename LineOf>
  void AddAll(const DxfRepairs& others, LineOf&& lineOf) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      const Entry& entry = others.entries_.at(i);
      if (entry.count != 0) {
        Add(static_cast<DxfRepair>(i), lineOf(entry.firstLine), entry.count);
      }
    }
  }

  bool IsEmpty() const;
  std::size_t CountOf(DxfRepair kind) const { return At(kind).count; }

  // "DXF repaired: 12 integers that were no integers (first in line 3421)", one
  // line a kind, in the order of their first lines.
  std::vector<std::string> Lines() const;

 private:
  struct Entry {
    std::size_t count = 0;
    std::size_t firstLine = 0;
  };

  const Entry& At(DxfRepair kind) const { return entries_.at(static_cast<std::size_t>(kind)); }

  std::array<Entry, static_cast<std::size_t>(DxfRepair::kCount)> entries_{};
};
