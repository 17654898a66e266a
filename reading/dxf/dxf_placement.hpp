// Where the records of BLOCKS and ENTITIES belong, by what stands before them.
#pragma once

#include <cstdint>

#include "reading/dxf/dxf_record.hpp"

enum class DxfPlace : std::uint8_t {
  kBlockBegin,
  kBlockEnd,
  kEntity,     // of the space or block that is open
  kSubentity,  // a vertex, attribute or end of the sequence that is open
  kOrphan,     // a vertex or end without a sequence
  kOutside,    // in BLOCKS, but in no block
};

struct DxfPlaced {
  DxfPlace place = DxfPlace::kEntity;
  bool lacksSequenceEnd = false;  // of the sequence before it
  bool lacksBlockEnd = false;     // of the block before it
};

class DxfPlacement {
 public:
  explicit DxfPlacement(bool isInBlocks) : isInBlocks_(isInBlocks) {}

  DxfPlaced Next(const DxfRecord& record);

  // What is still open at the end of the section.
  DxfPlaced Finish();

 private:
  enum class Sequence : std::uint8_t { kNone, kVertices, kInsert, kAttributes };

  DxfPlace PlaceOfEntity(std::string_view name);

  bool isInBlocks_;
  bool isBlockOpen_ = false;
  Sequence sequence_ = Sequence::kNone;
};
