#include "reading/dxf_settling.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "encode/library_memory.hpp"
#include "entities/drawing_access.hpp"
#include "tests/support/test_drawing.hpp"

namespace {

constexpr Handle kPlaceholder = 0x1F;

// A drawing as the DXF reader leaves it. Block names are the library's to free
// and references the library's to add, so both are given back here.
class DxfSettling : public testing::Test {
 protected:
  ~DxfSettling() override {
    for (auto* block : blocks_) {
      LibraryFree(block->name);
    }
    Dwg_Data& dwg = drawing_.data();
    for (BITCODE_BL i = 0; i < dwg.num_object_refs; ++i) {
      LibraryFree(dwg.object_ref[i]);
    }
    LibraryFree(dwg.object_ref);
    LibraryFree(dwg.object_ordered_ref);
  }

  Dwg_Object_BLOCK_HEADER& AddBlock(Handle handle, const char* name, std::size_t bytes = 0) {
    auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle);
    if (name != nullptr) {
      const std::size_t size = bytes == 0 ? std::strlen(name) + 1 : bytes;
      block.name = static_cast<char*>(LibraryAllocate(size));
      std::memcpy(block.name, name, size);
    }
    blocks_.push_back(&block);
    return block;
  }

  const Dwg_Object_Entity& AddLine(Handle handle, Handle owner) {
    drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE, handle, owner);
    return drawing_.lastEntity();
  }

  Dwg_Object_LAYER& AddLayer(int index, std::uint32_t word, unsigned flag = 0) {
    auto& layer = drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
    layer.color.index = static_cast<BITCODE_BSd>(index);
    layer.color.rgb = word;
    layer.flag = static_cast<BITCODE_RC>(flag);
    return layer;
  }

  void Settle(DxfScales scales = DxfScales::kSettled) { SettleDxf(drawing_.data(), scales); }

  TestDrawing drawing_;

 private:
  std::vector<Dwg_Object_BLOCK_HEADER*> blocks_;
};

}  // namespace

TEST_F(DxfSettling, EmptyDrawingIsLeftAlone) {
  Settle();
  EXPECT_EQ(drawing_.data().num_objects, 0U);
}

TEST_F(DxfSettling, PlaceholderGivesWayToTheFilesModelSpace) {
  auto& placeholder = AddBlock(kPlaceholder, "*Model_Space");
  auto& own = AddBlock(0x70, "*Model_Space");
  const auto& ofPlaceholder = AddLine(0x80, kPlaceholder);
  const auto& ofOwn = AddLine(0x81, 0x70);
  const auto& ofOther = AddLine(0x82, 0x71);
  const auto& ofNobody = AddLine(0x83, 0);
  Settle();
  EXPECT_EQ(placeholder.name, nullptr);
  EXPECT_STREQ(own.name, "*Model_Space");
  EXPECT_EQ(HandleOf(ofPlaceholder.ownerhandle), 0x70U);
  EXPECT_EQ(HandleOf(ofOwn.ownerhandle), 0x70U);
  EXPECT_EQ(HandleOf(ofOther.ownerhandle), 0x71U);
  EXPECT_EQ(ofNobody.ownerhandle, nullptr);
}

TEST_F(DxfSettling, FilesModelSpaceMayBeInAnyLetterCase) {
  auto& placeholder = AddBlock(kPlaceholder, "*Model_Space");
  auto& own = AddBlock(0x70, "*MODEL_SPACE");
  const auto& line = AddLine(0x80, kPlaceholder);
  Settle();
  EXPECT_EQ(placeholder.name, nullptr);
  EXPECT_STREQ(own.name, "*MODEL_SPACE");
  EXPECT_EQ(HandleOf(line.ownerhandle), 0x70U);
}

TEST_F(DxfSettling, LastOfSeveralModelSpacesCounts) {
  AddBlock(kPlaceholder, "*Model_Space");
  AddBlock(0x70, "*Model_Space");
  AddBlock(0x71, "*model_space");
  AddBlock(0x72, "*Model_Space_");
  AddBlock(0x73, nullptr);
  drawing_.AddBareObject(DWG_TYPE_BLOCK_HEADER, 0x74);
  const auto& line = AddLine(0x80, kPlaceholder);
  Settle();
  EXPECT_EQ(HandleOf(line.ownerhandle), 0x71U);
}

TEST_F(DxfSettling, FilesModelSpaceMayHaveThePlaceholdersHandle) {
  auto& placeholder = AddBlock(kPlaceholder, "*Model_Space");
  auto& own = AddBlock(kPlaceholder, "*Model_Space");
  const auto& line = AddLine(0x80, kPlaceholder);
  Settle();
  EXPECT_EQ(placeholder.name, nullptr);
  EXPECT_STREQ(own.name, "*Model_Space");
  EXPECT_EQ(HandleOf(line.ownerhandle), kPlaceholder);
}

TEST_F(DxfSettling, OtherEntitiesThatShareAReferenceAreGivenTheBlockToo) {
  AddBlock(kPlaceholder, "*Model_Space");
  AddBlock(0x70, "*Model_Space");
  Dwg_Object_Ref* shared = drawing_.Ref(kPlaceholder);
  std::vector<const Dwg_Object_Entity*> lines;
  for (int i = 0; i < 3; ++i) {
    AddLine(0, 0);
    drawing_.lastEntity().ownerhandle = shared;
    lines.push_back(&drawing_.lastEntity());
  }
  Settle();
  for (const auto* line : lines) {
    EXPECT_EQ(HandleOf(line->ownerhandle), 0x70U);
  }
  EXPECT_EQ(shared->absolute_ref, kPlaceholder);
}

TEST_F(DxfSettling, EntityWithoutDataIsSkipped) {
  AddBlock(kPlaceholder, "*Model_Space");
  AddBlock(0x70, "*Model_Space");
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x80, kPlaceholder).tio.entity = nullptr;
  Settle();
  EXPECT_EQ(drawing_.last().tio.entity, nullptr);
}

TEST_F(DxfSettling, PlaceholderIsModelSpaceOfAFileWithoutOne) {
  auto& placeholder = AddBlock(kPlaceholder, "*Model_Space");
  AddBlock(0x70, "DOOR");
  const auto& line = AddLine(0x80, kPlaceholder);
  Settle();
  EXPECT_STREQ(placeholder.name, "*Model_Space");
  EXPECT_EQ(HandleOf(line.ownerhandle), kPlaceholder);
}

TEST_F(DxfSettling, SixteenBitPlaceholderNameBecomesEightBit) {
  constexpr char kUtf16[] = "*\0M\0o\0d\0e\0l\0_\0S\0p\0a\0c\0e\0\0";
  auto& placeholder = AddBlock(kPlaceholder, kUtf16, sizeof kUtf16);
  Settle();
  EXPECT_STREQ(placeholder.name, "*Model_Space");
}

TEST_F(DxfSettling, SixteenBitPlaceholderGivesWayToo) {
  auto& placeholder = AddBlock(kPlaceholder, "*\0M\0\0", 6);
  AddBlock(0x70, "*Model_Space");
  Settle();
  EXPECT_EQ(placeholder.name, nullptr);
}

TEST_F(DxfSettling, OtherPlaceholderNamesStay) {
  auto& placeholder = AddBlock(kPlaceholder, "*Model_Space2");
  Settle();
  EXPECT_STREQ(placeholder.name, "*Model_Space2");
}

TEST_F(DxfSettling, PlaceholderWithoutANameStaysWithout) {
  auto& placeholder = AddBlock(kPlaceholder, nullptr);
  Settle();
  EXPECT_EQ(placeholder.name, nullptr);
}

TEST_F(DxfSettling, FirstObjectOfAnotherHandleOrTypeIsNoPlaceholder) {
  auto& first = AddBlock(0x70, "*Model_Space");
  AddBlock(kPlaceholder, "*Model_Space");
  const auto& line = AddLine(0x80, kPlaceholder);
  Settle();
  EXPECT_STREQ(first.name, "*Model_Space");
  EXPECT_EQ(HandleOf(line.ownerhandle), kPlaceholder);
}

TEST_F(DxfSettling, IndexGoesIntoTheLowByteOfAnIndexedWord) {
  auto& red = AddLayer(1, 0xC3FF0000);
  auto& last = AddLayer(255, 0xC3FFFFFF);
  Settle();
  EXPECT_EQ(red.color.rgb, 0xC3000001U);
  EXPECT_EQ(last.color.rgb, 0xC30000FFU);
  EXPECT_EQ(red.color.index, 1);
}

TEST_F(DxfSettling, WordsOfOtherMethodsStay) {
  auto& trueColor = AddLayer(1, 0xC2102030);
  auto& none = AddLayer(1, 0);
  Settle();
  EXPECT_EQ(trueColor.color.rgb, 0xC2102030U);
  EXPECT_EQ(none.color.rgb, 0U);
}

TEST_F(DxfSettling, IndexOutsideThePaletteLeavesTheWord) {
  auto& byLayer = AddLayer(256, 0xC3FF0000);
  auto& zero = AddLayer(0, 0xC3FF0000);
  auto& off = AddLayer(-1, 0xC3FF0000);
  Settle();
  EXPECT_EQ(byLayer.color.rgb, 0xC3FF0000U);
  EXPECT_EQ(byLayer.color.index, 256);
  EXPECT_EQ(zero.color.rgb, 0xC3FF0000U);
  EXPECT_EQ(off.color.rgb, 0xC3FF0000U);
}

TEST_F(DxfSettling, IndexOfAColorBookLayerIsCleared) {
  auto& positive = AddLayer(77, 0xC3000000);
  auto& large = AddLayer(-256, 0xC3000000);
  auto& off = AddLayer(-255, 0xC3000000);
  Settle();
  EXPECT_EQ(positive.color.index, 0);
  EXPECT_EQ(positive.color.rgb, 0xC3000000U);
  EXPECT_EQ(large.color.index, 0);
  EXPECT_EQ(large.off, 0);
  EXPECT_EQ(off.color.index, -255);
  EXPECT_EQ(off.off, 1);
}

TEST_F(DxfSettling, NegativePaletteIndexMeansOff) {
  auto& off = AddLayer(-7, 0xC3FFFFFF);
  auto& first = AddLayer(-1, 0xC3FF0000);
  auto& beyond = AddLayer(-256, 0xC3FF0000);
  auto& on = AddLayer(7, 0xC3FFFFFF);
  beyond.off = 1;
  on.off = 1;
  Settle();
  EXPECT_EQ(off.off, 1);
  EXPECT_EQ(first.off, 1);
  EXPECT_EQ(beyond.off, 0);
  EXPECT_EQ(on.off, 0);
}

TEST_F(DxfSettling, FlagBitFourMeansLocked) {
  auto& locked = AddLayer(7, 0, 4);
  auto& frozenAndLocked = AddLayer(7, 0, 0x45);
  auto& open = AddLayer(7, 0, 0xFB);
  open.locked = 1;
  Settle();
  EXPECT_EQ(locked.locked, 1);
  EXPECT_EQ(frozenAndLocked.locked, 1);
  EXPECT_EQ(open.locked, 0);
}

TEST_F(DxfSettling, LayerWithoutDataIsSkipped) {
  drawing_.AddBareObject(DWG_TYPE_LAYER, 0x10);
  auto& layer = AddLayer(-7, 0);
  Settle();
  EXPECT_EQ(layer.off, 1);
}

TEST_F(DxfSettling, ScaleEqualToTheInsertionPointIsOne) {
  auto& insert = drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT);
  insert.ins_pt = {0, 2, 3};
  insert.scale = {1, 2, 3};
  auto& arrayed = drawing_.AddEntity(DWG_TYPE_MINSERT, &EntityTio::MINSERT);
  arrayed.ins_pt = {0, 2, 3};
  arrayed.scale = {1, 2, 4};
  Settle();
  EXPECT_EQ(insert.scale.x, 1);
  EXPECT_EQ(insert.scale.y, 1);
  EXPECT_EQ(insert.scale.z, 1);
  EXPECT_EQ(arrayed.scale.y, 1);
  EXPECT_EQ(arrayed.scale.z, 4);
}

TEST_F(DxfSettling, AStoredScaleMayBeTheInsertionPoint) {
  auto& insert = drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT);
  insert.ins_pt = {0, -1, 3};
  insert.scale = {1, -1, 3};
  Settle(DxfScales::kStored);
  EXPECT_EQ(insert.scale.y, -1);
  EXPECT_EQ(insert.scale.z, 3);
}

TEST_F(DxfSettling, ScaleThatDiffersFromTheInsertionPointIsKept) {
  auto& insert = drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT);
  insert.ins_pt = {0, 2, 3};
  insert.scale = {1, -2, 3.0000000001};
  Settle();
  EXPECT_EQ(insert.scale.y, -2);
  EXPECT_EQ(insert.scale.z, 3.0000000001);
}

TEST_F(DxfSettling, ScaleAlongXIsLeftAloneEvenWhenEqual) {
  auto& insert = drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT);
  insert.ins_pt.x = 5;
  insert.scale.x = 5;
  Settle();
  EXPECT_EQ(insert.scale.x, 5);
}

TEST_F(DxfSettling, FrameOfATextWithoutAHeightIsShiftedBack) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.rect_width = 3;
  mtext.rect_height = 7;
  Settle();
  EXPECT_EQ(mtext.rect_width, 7);
  EXPECT_EQ(mtext.text_height, 3);
}

TEST_F(DxfSettling, FrameOfATextWithAHeightIsLeftAlone) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.rect_width = 3;
  mtext.rect_height = 7;
  mtext.text_height = 2;
  Settle();
  EXPECT_EQ(mtext.rect_width, 3);
  EXPECT_EQ(mtext.text_height, 2);
}

// Its group 71 says what a hatch says by 70.
TEST_F(DxfSettling, AnMpolygonIsNoHatch) {
  std::string mpolygon = "MPOLYGON";
  std::string hatch = "HATCH";
  auto& polygon = drawing_.AddEntity(DWG_TYPE_HATCH, &EntityTio::HATCH);
  polygon.is_solid_fill = 1;
  drawing_.objects().back().dxfname = mpolygon.data();
  auto& other = drawing_.AddEntity(DWG_TYPE_HATCH, &EntityTio::HATCH);
  other.is_associative = 1;
  drawing_.objects().back().dxfname = hatch.data();
  Settle();
  EXPECT_EQ(polygon.is_solid_fill, 0);
  EXPECT_EQ(drawing_.objects()[0].fixedtype, DWG_TYPE_MPOLYGON);
  EXPECT_STREQ(drawing_.objects()[0].name, "MPOLYGON");
  EXPECT_EQ(other.is_associative, 1);
  EXPECT_EQ(drawing_.objects()[1].fixedtype, DWG_TYPE_HATCH);
}

TEST_F(DxfSettling, EntitiesWithoutDataAreLeftAlone) {
  for (const auto type : {DWG_TYPE_INSERT, DWG_TYPE_MINSERT, DWG_TYPE_MTEXT}) {
    drawing_.AddBareEntity(type);
    drawing_.AddBareEntity(type).tio.entity = nullptr;
  }
  Settle();
  EXPECT_EQ(drawing_.data().num_objects, 6U);
}
