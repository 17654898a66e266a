// Looks once through a DXF text whose pairs are proper, finds its sections,
// blocks, layers and handles, and says whether LibreDWG's reader would make of
// it what it says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "reading/dxf/dxf_handles.hpp"
#include "reading/dxf/dxf_record.hpp"

// Consecutive records of one section, without SECTION and ENDSEC.
struct DxfPart {
  DxfSection section = DxfSection::kUnknown;
  std::size_t begin = 0;
  std::size_t end = 0;
  bool hasBegin = true;  // a SECTION stands before it
  bool hasName = true;   // and has the name of the section
  bool hasEnd = false;   // an ENDSEC stands behind it
  bool hasRecords = false;
};

struct DxfBlockName {
  std::string_view name;
  std::uint64_t record = 0;  // the handle of the BLOCK_RECORD; 0: it has none
  std::uint64_t owner = 0;   // without one: the handle that the BLOCK says it has
  std::size_t begin = 0;     // of the BLOCK_RECORD, else of the BLOCK
  bool hasRecord = false;
  bool isRenamed = false;  // the BLOCK's name instead of the record's
};

struct DxfLayerName {
  std::string_view name;
  std::size_t begin = 0;  // of the first record that names it
  bool isInTable = false;
};

struct DxfSurvey {
  // The offset at which the text is not proper; the rest is not filled then.
  std::size_t flawAt = 0;
  bool isProper = true;

  // Whether the text has to be written anew.
  bool needsRewriting = false;

  bool hasEnd = false;  // an EOF
  std::size_t end = 0;  // offset behind it
  std::vector<DxfPart> parts;
  std::string_view release;  // $ACADVER, empty when there is none
  std::size_t releaseAt = 0;
  bool hasSubclasses = false;   // of entities
  std::size_t entityCount = 0;  // in BLOCKS and ENTITIES
  std::size_t recordCount = 0;  // of all sections

  DxfHandleSet handles;
  std::uint64_t largestHandle = 0;  // of those that leave room for more

  // By name key, in the order of the file.
  std::vector<DxfBlockName> blocks;
  std::unordered_map<std::string, std::size_t> blockByKey;
  std::unordered_map<std::uint64_t, std::size_t, HandleHash> blockByRecord;
  std::vector<DxfLayerName> layers;
  std::unordered_map<std::string, std::size_t> layerByKey;
  bool hasLayerTable = false;
  bool usesPaperSpace = false;  // an entity of ENTITIES belongs there

  // The release is older than R13, or there is none: handles, owners and block
  // records are not expected.
  bool IsOld() const;

  const DxfBlockName* FindBlock(std::string_view name) const;
  const DxfBlockName* FindModelSpace() const;

  // The block of that record if it is a space, else null: what stands in
  // ENTITIES belongs to no other.
  const DxfBlockName* FindSpace(std::uint64_t record) const;
  const DxfBlockName* FindPaperSpace() const;
};

// What $ACADVER may say. Empty for a release that does not exist and is no
// later one, which LibreDWG would not know.
std::string_view KnownDxfRelease(std::string_view written);

// Whether a release of that name is older than R13.
bool IsOldDxfRelease(std::string_view release);

DxfSurvey SurveyDxf(std::string_view text);
