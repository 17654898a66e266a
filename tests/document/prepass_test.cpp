#include "document/prepass.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "encode/text_decoding.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/value_at.hpp"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

std::vector<const Dwg_Object*> ListOf(std::span<const Dwg_Object* const> objects) {
  return {objects.begin(), objects.end()};
}

class Prepass : public testing::Test {
 protected:
  // The names of all layers in object order.
  std::vector<std::string> LayerNames() {
    std::vector<std::string> names;
    for (const LayerEntry& layer : Run().layers.All()) {
      names.push_back(layer.name);
    }
    return names;
  }

  // The name of the layer with that handle; none without one.
  std::optional<std::string> LayerName(Handle handle) {
    const LayerEntry* layer = drawing_.tables.layers.Find(drawing_.Ref(handle));
    return layer == nullptr ? std::nullopt : std::optional(layer->name);
  }

  const LookupTables& Run() {
    drawing_.Prepass();
    return drawing_.tables;
  }

  Dwg_Object_BLOCK_HEADER& AddBlock(Handle handle, const std::string& name) {
    auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle);
    block.name = drawing_.Text(name);
    return block;
  }

  Dwg_Object_DIMSTYLE& AddDimStyle(Handle handle) {
    return drawing_.AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, handle);
  }

  const Dwg_Object* AddLine(Handle handle, Handle owner) {
    drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE, handle, owner);
    return &drawing_.last();
  }

  TestDrawing drawing_;
};

}  // namespace

TEST_F(Prepass, EmptyDrawingFillsNothing) {
  const LookupTables& tables = Run();
  EXPECT_TRUE(tables.layers.All().empty());
  EXPECT_THAT(ListOf(tables.OwnedBy(Handle{0})), IsEmpty());
  EXPECT_EQ(tables.modelSpace, 0U);
  EXPECT_TRUE(tables.paperSpaces.empty());
}

TEST_F(Prepass, LayerNamesAreDecoded) {
  drawing_.AddLayer(0x10, "T\xFCr");
  drawing_.AddLayer(0x11, "");
  EXPECT_THAT(LayerNames(), ElementsAre("T\xC3\xBCr", ""));
  EXPECT_EQ(LayerName(0x10), "T\xC3\xBCr");
  EXPECT_EQ(LayerName(0x11), "");
  EXPECT_EQ(LayerName(0x12), std::nullopt);
}

TEST_F(Prepass, SixteenBitNamesAreDecoded) {
  auto& layer = drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, 0x10);
  layer.name = drawing_.Utf16(u"\u65E5");
  drawing_.textForm = TextForm::kUtf16;
  EXPECT_THAT(LayerNames(), ElementsAre("\xE6\x97\xA5"));
}

TEST_F(Prepass, NamesOfANewDxfAreCopied) {
  drawing_.textForm = TextForm::kUtf8;
  drawing_.AddLayer(0x10, "T\xC3\xBCr");
  EXPECT_THAT(LayerNames(), ElementsAre("T\xC3\xBCr"));
}

TEST_F(Prepass, LayersWithoutDataOrNameAreLeftOut) {
  drawing_.AddBareObject(DWG_TYPE_LAYER, 0x10);
  drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, 0x11);
  EXPECT_THAT(LayerNames(), IsEmpty());
}

TEST_F(Prepass, LaterObjectOverwritesTheEntryOfItsHandle) {
  drawing_.AddLayer(0x10, "first");
  drawing_.AddLayer(0x10, "second");
  EXPECT_THAT(LayerNames(), ElementsAre("first", "second"));
  EXPECT_EQ(LayerName(0x10), "second");
}

TEST_F(Prepass, GoesByTheFixedType) {
  drawing_.AddLayer(0x10, "A");
  drawing_.last().type = 500;
  EXPECT_THAT(LayerNames(), ElementsAre("A"));
  EXPECT_EQ(LayerName(0x10), "A");
  EXPECT_EQ(drawing_.tables.layers.All().front().record, nullptr);
}

TEST_F(Prepass, TextStylesHaveTheirHeightAndMappedFont) {
  auto& style = drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x20);
  style.text_size = 2.5;
  style.font_file = drawing_.Text("ROMANS.SHX");
  const LookupTables& tables = Run();
  EXPECT_THAT(EntriesOf(tables.textStyles), ElementsAre(Pair(0x20, 2.5)));
  EXPECT_THAT(EntriesOf(tables.styleFonts), ElementsAre(Pair(0x20, "Times New Roman")));
}

TEST_F(Prepass, TextStyleWithoutAFontFileHasAHeightOnly) {
  drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x20);
  drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x21).font_file = drawing_.Text("");
  const LookupTables& tables = Run();
  EXPECT_THAT(EntriesOf(tables.textStyles), UnorderedElementsAre(Pair(0x20, 0.0), Pair(0x21, 0.0)));
  EXPECT_THAT(EntriesOf(tables.styleFonts), IsEmpty());
}

TEST_F(Prepass, SixteenBitFontFileStartingWithAZeroByteIsNotEmpty) {
  auto& style = drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x20);
  style.font_file = drawing_.Utf16(u"\u0100");
  drawing_.textForm = TextForm::kUtf16;
  EXPECT_THAT(EntriesOf(Run().styleFonts), ElementsAre(Pair(0x20, "\xC4\x80")));
}

TEST_F(Prepass, DimensionStyleTakesEveryVariable) {
  auto& style = AddDimStyle(0x30);
  style.DIMTXT = 1.5;
  style.DIMSCALE = 2;
  style.DIMASZ = 0.18;
  style.DIMTXSTY = drawing_.Ref(0x20);
  style.DIMCLRT.index = 1;
  style.DIMCLRD.index = 7;
  style.DIMDEC = 4;
  style.DIMLFAC = 25.4;
  style.DIMRND = 0.5;
  style.DIMZIN = 8;
  style.DIMLUNIT = 2;
  style.DIMPOST = drawing_.Text("<> mm\xB2");
  const DimStyleEntry entry = ValueAt(Run().dimStyles, 0x30);
  EXPECT_EQ(entry.textHeight, 1.5);
  EXPECT_EQ(entry.overallScale, 2);
  EXPECT_EQ(entry.arrowSize, 0.18);
  EXPECT_EQ(entry.textStyle, 0x20U);
  EXPECT_EQ(entry.textColor, R"({"r":255,"g":0,"b":0})");
  EXPECT_EQ(entry.lineColor, R"("W")");
  EXPECT_EQ(entry.decimalPlaces, 4);
  EXPECT_EQ(entry.linearFactor, 25.4);
  EXPECT_EQ(entry.rounding, 0.5);
  EXPECT_EQ(entry.zeroSuppression, 8);
  EXPECT_EQ(entry.linearUnit, 2);
  EXPECT_EQ(entry.postfix, "<> mm\xC2\xB2");
}

TEST_F(Prepass, DimensionStyleLeavesInheritedColorsEmpty) {
  auto& style = AddDimStyle(0x30);
  style.DIMCLRT.index = 256;
  style.DIMCLRD.index = 0;
  const DimStyleEntry entry = ValueAt(Run().dimStyles, 0x30);
  EXPECT_EQ(entry.textColor, "");
  EXPECT_EQ(entry.lineColor, "");
  EXPECT_EQ(entry.textStyle, 0U);
  EXPECT_EQ(entry.postfix, "");
}

TEST_F(Prepass, DimensionStyleKeepsSixteenBitWordsUnsigned) {
  auto& style = AddDimStyle(0x30);
  style.DIMDEC = 0xFFFF;
  style.DIMZIN = 0x8000;
  style.DIMLUNIT = 0xFFFE;
  const DimStyleEntry entry = ValueAt(Run().dimStyles, 0x30);
  EXPECT_EQ(entry.decimalPlaces, 65535);
  EXPECT_EQ(entry.zeroSuppression, 32768);
  EXPECT_EQ(entry.linearUnit, 65534);
}

TEST_F(Prepass, DimensionStyleStartsWithUnsetDecimalsAndFactorOne) {
  const DimStyleEntry entry;
  EXPECT_EQ(entry.decimalPlaces, -1);
  EXPECT_EQ(entry.linearFactor, 1.0);
}

TEST_F(Prepass, DimensionStyleWithoutDataIsLeftOut) {
  drawing_.AddBareObject(DWG_TYPE_DIMSTYLE, 0x30);
  EXPECT_THAT(EntriesOf(Run().dimStyles), IsEmpty());
}

TEST_F(Prepass, ImageDefinitionsHaveTheirPath) {
  auto& full = drawing_.AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x40);
  full.file_path = drawing_.Text("C:\\M\xE4rz.png");
  drawing_.AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x41).file_path = drawing_.Text("");
  drawing_.AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x42);
  EXPECT_THAT(EntriesOf(Run().imageDefs), ElementsAre(Pair(0x40, "C:\\M\xC3\xA4rz.png")));
}

TEST_F(Prepass, BlockNamesAreKeptByHandle) {
  AddBlock(0x50, "DOOR");
  AddBlock(0x51, "");
  drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x52);
  drawing_.AddBareObject(DWG_TYPE_BLOCK_HEADER, 0x53);
  EXPECT_THAT(EntriesOf(Run().blockNames),
              UnorderedElementsAre(Pair(0x50, "DOOR"), Pair(0x51, "")));
}

TEST_F(Prepass, ModelSpaceIsTheBlockOfExactlyThatName) {
  AddBlock(0x50, "*Model_space");
  AddBlock(0x51, "*MODEL_SPACE");
  AddBlock(0x52, "*Model_Space2");
  EXPECT_EQ(Run().modelSpace, 0U);
  AddBlock(0x53, "*Model_Space");
  EXPECT_EQ(Run().modelSpace, 0x53U);
  EXPECT_THAT(Run().paperSpaces, IsEmpty());
}

TEST_F(Prepass, LaterModelSpaceReplacesAnEarlierOne) {
  AddBlock(0x50, "*Model_Space");
  AddBlock(0x51, "*Model_Space");
  EXPECT_EQ(Run().modelSpace, 0x51U);
}

TEST_F(Prepass, PaperSpacesAreTheBlocksWhoseNameBeginsSo) {
  AddBlock(0x53, "*Paper_Space0");
  AddBlock(0x50, "*Paper_Space");
  AddBlock(0x51, "*Paper_Spacious");
  AddBlock(0x54, "*Paper_Spac");
  AddBlock(0x55, "*PAPER_SPACE");
  AddBlock(0x56, "x*Paper_Space");
  AddBlock(0x52, "*Paper_Space_anything");
  EXPECT_THAT(Run().paperSpaces, ElementsAre(0x53, 0x50, 0x52));
}

TEST_F(Prepass, PaperSpaceIsListedOnce) {
  AddBlock(0x50, "*Paper_Space");
  AddBlock(0x50, "*Paper_Space");
  EXPECT_THAT(Run().paperSpaces, ElementsAre(0x50));
}

TEST_F(Prepass, LayoutsAreFoundByTheirBlock) {
  auto& layout = drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x60);
  layout.block_header = drawing_.Ref(0x50);
  drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x61).block_header = drawing_.Ref(0);
  drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x62);
  drawing_.AddBareObject(DWG_TYPE_LAYOUT, 0x63);
  EXPECT_THAT(EntriesOf(Run().layoutsByBlock), ElementsAre(Pair(0x50, &layout)));
}

TEST_F(Prepass, LaterLayoutOfABlockReplacesTheEarlierOne) {
  drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x60).block_header = drawing_.Ref(0x50);
  auto& later = drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x61);
  later.block_header = drawing_.Ref(0x50);
  EXPECT_THAT(EntriesOf(Run().layoutsByBlock), ElementsAre(Pair(0x50, &later)));
}

TEST_F(Prepass, ClipBoundariesNeedTheClippingBit) {
  const auto addViewport = [this](unsigned status, Handle boundary) {
    auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT);
    viewport.status_flag = status;
    viewport.clip_boundary = boundary == 0 ? nullptr : drawing_.Ref(boundary);
  };
  addViewport(0x10000, 0x70);
  addViewport(0xFFFEFFFF, 0x71);
  addViewport(0x10021, 0x72);
  addViewport(0x10000, 0);
  auto& nowhere = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT);
  nowhere.status_flag = 0x10000;
  nowhere.clip_boundary = drawing_.Ref(0);
  drawing_.AddBareEntity(DWG_TYPE_VIEWPORT);
  EXPECT_THAT(Run().clipBoundaries, UnorderedElementsAre(0x70, 0x72));
}

TEST_F(Prepass, EntitiesStandUnderTheirOwnerInObjectOrder) {
  const Dwg_Object* first = AddLine(0x99, 0x50);
  const Dwg_Object* other = AddLine(0x01, 0x51);
  const Dwg_Object* second = AddLine(0x02, 0x50);
  const LookupTables& tables = Run();
  EXPECT_THAT(ListOf(tables.OwnedBy(Handle{0x50})), ElementsAre(first, second));
  EXPECT_THAT(ListOf(tables.OwnedBy(Handle{0x51})), ElementsAre(other));
  EXPECT_THAT(ListOf(tables.OwnedBy(Handle{0x52})), IsEmpty());
}

TEST_F(Prepass, ManyOwnersInTurnKeepTheirOwnEntities) {
  constexpr Handle kOwners = 300;
  std::vector<std::vector<const Dwg_Object*>> expected(kOwners);
  for (Handle i = 0; i < 7 * kOwners; ++i) {
    const Handle owner = i * i % kOwners;
    expected[owner].push_back(AddLine(i + 1, owner << 40U));
  }
  const LookupTables& tables = Run();
  for (Handle owner = 0; owner < kOwners; ++owner) {
    EXPECT_EQ(ListOf(tables.OwnedBy(owner << 40U)), expected[owner]) << owner;
  }
}

TEST_F(Prepass, EntitiesWithoutAnOwnerStandUnderZero) {
  const Dwg_Object* ownerless = AddLine(0x01, 0);
  const Dwg_Object* ownedByNothing = AddLine(0x02, 0);
  drawing_.lastEntity().ownerhandle = drawing_.Ref(0);
  EXPECT_THAT(ListOf(Run().OwnedBy(Handle{0})), ElementsAre(ownerless, ownedByNothing));
}

TEST_F(Prepass, ObjectWithHandleZeroOwnsNothing) {
  AddLine(0x01, 0);
  drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, 0, 0x50);
  EXPECT_THAT(ListOf(Run().OwnedBy(drawing_.last())), IsEmpty());
}

TEST_F(Prepass, VerticesAndEndMarkersAreLeftOut) {
  for (const DWG_OBJECT_TYPE type :
       {DWG_TYPE_SEQEND, DWG_TYPE_VERTEX_2D, DWG_TYPE_VERTEX_3D, DWG_TYPE_VERTEX_MESH}) {
    drawing_.AddBareEntity(type, 0, 0x50);
  }
  EXPECT_THAT(ListOf(Run().OwnedBy(Handle{0x50})), IsEmpty());
}

TEST_F(Prepass, OtherFacesBlockMarkersAndUnknownTypesAreKept) {
  for (const DWG_OBJECT_TYPE type : {DWG_TYPE_VERTEX_PFACE, DWG_TYPE_VERTEX_PFACE_FACE,
                                     DWG_TYPE_BLOCK, DWG_TYPE_ENDBLK, DWG_TYPE_UNKNOWN_ENT}) {
    drawing_.AddBareEntity(type, 0, 0x50);
  }
  EXPECT_EQ(Run().OwnedBy(Handle{0x50}).size(), 5U);
}

TEST_F(Prepass, EntitiesWithoutDataAndOtherObjectsAreLeftOut) {
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x01, 0x50).tio.entity = nullptr;
  drawing_.AddLayer(0x10, "A");
  Run();
  EXPECT_THAT(ListOf(drawing_.tables.OwnedBy(Handle{0x50})), IsEmpty());
  EXPECT_THAT(ListOf(drawing_.tables.OwnedBy(Handle{0})), IsEmpty());
}

TEST_F(Prepass, EntityCountsWithoutItsTypeData) {
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x01, 0x50);
  EXPECT_EQ(Run().OwnedBy(Handle{0x50}).size(), 1U);
}
