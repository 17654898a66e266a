#include "reading/dxf/dxf_placement.hpp"

DxfPlace DxfPlacement::PlaceOfEntity(std::string_view name) {
  const bool isEnd = name == "SEQEND";
  const bool continues = (sequence_ == Sequence::kVertices && (isEnd || name == "VERTEX")) ||
                         ((sequence_ == Sequence::kInsert || sequence_ == Sequence::kAttributes) &&
                          (isEnd || name == "ATTRIB"));
  if (continues) {
    sequence_ = isEnd                              ? Sequence::kNone
                : sequence_ == Sequence::kVertices ? Sequence::kVertices
                                                   : Sequence::kAttributes;
    return DxfPlace::kSubentity;
  }
  if (isEnd || name == "VERTEX") {
    return DxfPlace::kOrphan;
  }
  sequence_ = name == "POLYLINE" ? Sequence::kVertices
              : name == "INSERT" ? Sequence::kInsert
                                 : Sequence::kNone;
  return DxfPlace::kEntity;
}

DxfPlaced DxfPlacement::Next(const DxfRecord& record) {
  DxfPlaced placed;
  const Sequence before = sequence_;
  const bool isBegin = record.name == "BLOCK";
  if (isBegin || record.name == "ENDBLK") {
    sequence_ = Sequence::kNone;
    placed.lacksBlockEnd = isBegin && isBlockOpen_;
    placed.place = isBegin        ? DxfPlace::kBlockBegin
                   : isBlockOpen_ ? DxfPlace::kBlockEnd
                                  : DxfPlace::kOutside;
    isBlockOpen_ = isBegin;
  } else if (isInBlocks_ && !isBlockOpen_) {
    placed.place = DxfPlace::kOutside;
  } else {
    placed.place = PlaceOfEntity(record.name);
  }
  const bool isOpen = before == Sequence::kVertices || before == Sequence::kAttributes;
  placed.lacksSequenceEnd =
      isOpen && placed.place != DxfPlace::kSubentity && placed.place != DxfPlace::kOrphan;
  return placed;
}

DxfPlaced DxfPlacement::Finish() {
  const DxfPlaced placed{
      .lacksSequenceEnd = sequence_ == Sequence::kVertices || sequence_ == Sequence::kAttributes,
      .lacksBlockEnd = isBlockOpen_};
  sequence_ = Sequence::kNone;
  isBlockOpen_ = false;
  return placed;
}
