#include "document/prepass.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/test_drawing.hpp"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class PrepassTest : public testing::Test {
 protected:
  template <typename T>
  T& AddObject(DWG_OBJECT_TYPE type, T* ObjectTio::*member, Handle handle) {
    return drawing_.AddObject(type, member, handle);
  }

  const LookupTables& Tables() {
    drawing_.Prepass();
    return drawing_.tables;
  }

  TestDrawing drawing_;
};

TEST_F(PrepassTest, EmptyDrawingFillsNothing) {
  const LookupTables& tables = Tables();
  EXPECT_EQ(tables.modelSpace, 0U);
  EXPECT_THAT(tables.paperSpaces, IsEmpty());
  EXPECT_THAT(tables.entitiesByOwner, IsEmpty());
}

TEST_F(PrepassTest, LayersAreKnownByHandle) {
  drawing_.AddLayer(0x10, "WALLS");
  AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, 0x11);
  drawing_.AddBareObject(DWG_TYPE_LAYER, 0x12);
  EXPECT_THAT(Tables().layerNames, UnorderedElementsAre(Pair(0x10, "WALLS")));
}

TEST_F(PrepassTest, LaterObjectsOfAHandleReplaceEarlierOnes) {
  drawing_.AddLayer(0x10, "OLD");
  drawing_.AddLayer(0x10, "NEW");
  EXPECT_THAT(Tables().layerNames, ElementsAre(Pair(0x10, "NEW")));
}

TEST_F(PrepassTest, NamesOfNewDrawingsAreSixteenBit) {
  AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, 0x10).name = drawing_.Utf16(u"Wände");
  drawing_.unicodeText = true;
  EXPECT_THAT(Tables().layerNames, ElementsAre(Pair(0x10, "W\xC3\xA4nde")));
}

TEST_F(PrepassTest, LayerOfTheWrongSupertypeIsLeftOut) {
  drawing_.AddLayer(0x10, "WALLS");
  drawing_.last().supertype = DWG_SUPERTYPE_ENTITY;
  drawing_.last().tio.entity = nullptr;
  EXPECT_THAT(Tables().layerNames, IsEmpty());
}

TEST_F(PrepassTest, StylesKeepTheirHeightAndFontFamily) {
  auto& style = AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x10);
  style.text_size = 2.5;
  style.font_file = drawing_.Text("Verdana.ttf");
  AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x11).font_file = drawing_.Text("");
  AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x12);
  const LookupTables& tables = Tables();
  EXPECT_THAT(tables.textStyles,
              UnorderedElementsAre(Pair(0x10, 2.5), Pair(0x11, 0), Pair(0x12, 0)));
  EXPECT_THAT(tables.styleFonts, ElementsAre(Pair(0x10, testing::Not(testing::IsEmpty()))));
}

TEST_F(PrepassTest, DimensionStyleIsKeptWithItsVariables) {
  auto& style = AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, 0x10);
  style.DIMTXT = 2.5;
  style.DIMSCALE = 50;
  style.DIMASZ = 3;
  style.DIMTXSTY = drawing_.Ref(0x20);
  style.DIMCLRT.index = 1;
  style.DIMCLRD.index = 256;
  style.DIMDEC = 65535;
  style.DIMLFAC = 0.5;
  style.DIMRND = 0.25;
  style.DIMZIN = 8;
  style.DIMLUNIT = 2;
  style.DIMPOST = drawing_.Text("<> mm");
  const DimStyleEntry entry = Tables().dimStyles.at(0x10);
  EXPECT_EQ(entry.textHeight, 2.5);
  EXPECT_EQ(entry.overallScale, 50);
  EXPECT_EQ(entry.arrowSize, 3);
  EXPECT_EQ(entry.textStyle, 0x20U);
  EXPECT_EQ(entry.textColor, R"({"r":255,"g":0,"b":0})");
  EXPECT_EQ(entry.lineColor, "");
  EXPECT_EQ(entry.decimalPlaces, 65535);
  EXPECT_EQ(entry.linearFactor, 0.5);
  EXPECT_EQ(entry.rounding, 0.25);
  EXPECT_EQ(entry.zeroSuppression, 8);
  EXPECT_EQ(entry.linearUnit, 2);
  EXPECT_EQ(entry.postfix, "<> mm");
}

TEST_F(PrepassTest, ImagesWithoutAPathAreLeftOut) {
  AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x10).file_path = drawing_.Text("a.png");
  AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x11).file_path = drawing_.Text("");
  AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x12);
  EXPECT_THAT(Tables().imageDefs, ElementsAre(Pair(0x10, "a.png")));
}

TEST_F(PrepassTest, BlocksTellModelSpaceFromSheets) {
  const char* const names[] = {"*Model_Space", "*Paper_Space",  "*Paper_Space0",
                               "*Paper_Spac",  "*PAPER_SPACE1", "DOOR"};
  Handle handle = 0x10;
  for (const char* name : names) {
    AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle++).name = drawing_.Text(name);
  }
  AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle);
  const LookupTables& tables = Tables();
  EXPECT_EQ(tables.modelSpace, 0x10U);
  EXPECT_THAT(tables.paperSpaces, ElementsAre(0x11, 0x12));
  EXPECT_EQ(tables.blockNames.size(), 6U);
}

TEST_F(PrepassTest, ModelSpaceInAnotherLetterCaseIsNotRecorded) {
  AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x10).name =
      drawing_.Text("*Model_space");
  EXPECT_EQ(Tables().modelSpace, 0U);
}

TEST_F(PrepassTest, SheetOfOneHandleIsListedOnce) {
  for (int i = 0; i < 2; ++i) {
    AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x10).name =
        drawing_.Text("*Paper_Space");
  }
  EXPECT_THAT(Tables().paperSpaces, ElementsAre(0x10));
}

TEST_F(PrepassTest, LayoutsAreKnownByTheirBlock) {
  auto& layout = AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x10);
  layout.block_header = drawing_.Ref(0x20);
  AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x11);
  AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x12).block_header = drawing_.Ref(0);
  EXPECT_THAT(Tables().layoutsByBlock, ElementsAre(Pair(0x20, &layout)));
}

TEST_F(PrepassTest, ClipBoundariesNeedTheStatusBitAndAHandle) {
  const auto add = [this](unsigned status, Dwg_Object_Ref* clip) {
    auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT);
    viewport.status_flag = status;
    viewport.clip_boundary = clip;
  };
  add(0x10000, drawing_.Ref(0x60));
  add(0xFFFEFFFF, drawing_.Ref(0x61));
  add(0x10000, drawing_.Ref(0));
  add(0x10000, nullptr);
  EXPECT_THAT(Tables().clipBoundaries, ElementsAre(0x60));
}

TEST_F(PrepassTest, EntitiesAreListedByOwnerInObjectOrder) {
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x30, 0x20);
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x31);
  drawing_.AddBareEntity(DWG_TYPE_TEXT, 0x32, 0x20);
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x33);
  drawing_.lastEntity().ownerhandle = drawing_.Ref(0);
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0x34, 0x20);
  const LookupTables& tables = Tables();
  const auto handles = [&tables](Handle owner) {
    std::vector<Handle> result;
    for (const Dwg_Object* object : tables.OwnedBy(owner)) {
      result.push_back(object->handle.value);
    }
    return result;
  };
  EXPECT_THAT(handles(0x20), ElementsAre(0x30, 0x32, 0x34));
  EXPECT_THAT(handles(0), ElementsAre(0x31, 0x33));
  EXPECT_THAT(handles(0x99), IsEmpty());
}

TEST_F(PrepassTest, VerticesEndMarkersAndDatalessEntitiesAreNotListed) {
  for (const auto type :
       {DWG_TYPE_SEQEND, DWG_TYPE_VERTEX_2D, DWG_TYPE_VERTEX_3D, DWG_TYPE_VERTEX_MESH}) {
    drawing_.AddBareEntity(type, 0, 0x20);
  }
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0, 0x20).tio.entity = nullptr;
  drawing_.AddBareObject(DWG_TYPE_LINE);
  EXPECT_THAT(Tables().entitiesByOwner, IsEmpty());
}

TEST_F(PrepassTest, PolyfaceVerticesAreListed) {
  drawing_.AddBareEntity(DWG_TYPE_VERTEX_PFACE, 0, 0x20);
  EXPECT_EQ(Tables().OwnedBy(0x20).size(), 1U);
}

TEST(PdfPage, IsAtLeastOne) {
  EXPECT_EQ(PdfPage("3"), 3);
  EXPECT_EQ(PdfPage(" +12pages"), 12);
  EXPECT_EQ(PdfPage("0"), 1);
  EXPECT_EQ(PdfPage("-4"), 1);
}

TEST(PdfPage, IsOneWithoutANumberInRange) {
  EXPECT_EQ(PdfPage(""), 1);
  EXPECT_EQ(PdfPage("cover"), 1);
  EXPECT_EQ(PdfPage("2147483647"), 2147483647);
  EXPECT_EQ(PdfPage("2147483648"), 1);
}

TEST(FileNameComponent, FollowsTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(FileNameComponent("site.pdf"), "site.pdf");
  EXPECT_EQ(FileNameComponent("/a/b\\site.pdf"), "site.pdf");
  EXPECT_EQ(FileNameComponent("C:\\plans/site.pdf"), "site.pdf");
  EXPECT_EQ(FileNameComponent("c:site.pdf"), "site.pdf");
  EXPECT_EQ(FileNameComponent("plans\\"), "");
  EXPECT_EQ(FileNameComponent(""), "");
}

class PdfLookupTest : public testing::Test {
 protected:
  PdfLookupTest()
      : folder_(fs::path(testing::TempDir()) /
                ("pdf_lookup_" +
                 std::string(testing::UnitTest::GetInstance()->current_test_info()->name()))) {
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "drawings");
  }
  ~PdfLookupTest() override { fs::remove_all(folder_); }

  void Touch(const fs::path& path) { std::ofstream(folder_ / path) << "%PDF"; }

  PdfEntry Lookup(const std::string& declaredPath, const fs::path& drawingFolder,
                  const char* page = nullptr) {
    auto& definition = drawing_.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x40);
    definition.filename = drawing_.Text(declaredPath);
    definition.name = page == nullptr ? nullptr : drawing_.Text(page);
    return BuildLookupTables(drawing_.data(), false, drawingFolder).pdfDefs.at(0x40);
  }

  fs::path folder_;
  TestDrawing drawing_;
};

TEST_F(PdfLookupTest, FileAtItsDeclaredPathIsTakenFromThere) {
  Touch("site.pdf");
  Touch("drawings/site.pdf");
  const std::string declared = (folder_ / "site.pdf").string();
  const PdfEntry entry = Lookup(declared, folder_ / "drawings", "7");
  EXPECT_EQ(entry.resolvedPath, declared);
  EXPECT_EQ(entry.declaredPath, declared);
  EXPECT_EQ(entry.page, 7);
}

TEST_F(PdfLookupTest, FileBesideTheDrawingIsFound) {
  Touch("drawings/site.pdf");
  const PdfEntry entry = Lookup("X:\\elsewhere\\site.pdf", folder_ / "drawings");
  EXPECT_EQ(fs::path(entry.resolvedPath), folder_ / "drawings" / "site.pdf");
  EXPECT_EQ(entry.declaredPath, "X:\\elsewhere\\site.pdf");
  EXPECT_EQ(entry.page, 1);
}

TEST_F(PdfLookupTest, MissingFileLeavesThePathEmpty) {
  const PdfEntry entry = Lookup("site.pdf", folder_ / "drawings");
  EXPECT_EQ(entry.resolvedPath, "");
  EXPECT_EQ(entry.declaredPath, "site.pdf");
}

TEST_F(PdfLookupTest, PathThatEndsInASeparatorIsNotFound) {
  EXPECT_EQ(Lookup("elsewhere\\", folder_ / "drawings").resolvedPath, "");
}

TEST_F(PdfLookupTest, NothingIsFoundBesideADrawingWithoutAFolder) {
  EXPECT_EQ(Lookup("elsewhere\\CMakeLists.txt", {}).resolvedPath, "");
}

TEST_F(PdfLookupTest, FolderCountsAsAFileSystemEntry) {
  fs::create_directory(folder_ / "drawings" / "site.pdf");
  EXPECT_EQ(fs::path(Lookup("a/site.pdf", folder_ / "drawings").resolvedPath),
            folder_ / "drawings" / "site.pdf");
}

TEST_F(PdfLookupTest, NameThatNoFileSystemTakesIsAbsent) {
  EXPECT_EQ(Lookup(std::string(100000, 'x'), folder_ / "drawings").resolvedPath, "");
}

TEST(PdfDefinition, WithoutAFileNameIsLeftOut) {
  TestDrawing drawing;
  drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x40);
  drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x41).filename =
      drawing.Text("");
  drawing.AddBareObject(DWG_TYPE_PDFDEFINITION, 0x42);
  drawing.Prepass();
  EXPECT_THAT(drawing.tables.pdfDefs, IsEmpty());
}

}  // namespace
