// Where the files of PDF definitions are found, with real files in a folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "document/pdf_files.hpp"
#include "document/prepass.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/value_at.hpp"

namespace {

namespace fs = std::filesystem;

class PdfDefinitions : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::temp_directory_path() /
              ("dwg_import_pdf_" + std::string(test->name()) + "_" + std::to_string(std::rand()));
    fs::create_directories(folder_ / "elsewhere");
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string MakeFile(const fs::path& name) {
    std::ofstream(folder_ / name) << "%PDF";
    return (folder_ / name).string();
  }

  PdfEntry Resolve(const std::string& declared, const fs::path& drawingFolder,
                   const std::string& page = "1") {
    TestDrawing drawing;
    auto& definition = drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x90);
    definition.filename = drawing.Text(declared);
    definition.name = drawing.Text(page);
    return ValueAt(
        BuildLookupTables({.data = drawing.data(), .textForm = {}, .folder = drawingFolder})
            .pdfDefs,
        0x90);
  }

  fs::path folder_;
};

}  // namespace

TEST_F(PdfDefinitions, FileAtItsDeclaredPathIsTakenFromThere) {
  const std::string path = MakeFile("elsewhere/plan.pdf");
  MakeFile("plan.pdf");
  const PdfEntry entry = Resolve(path, folder_);
  EXPECT_EQ(entry.resolvedPath, path);
  EXPECT_EQ(entry.declaredPath, path);
}

TEST_F(PdfDefinitions, FileBesideTheDrawingIsFound) {
  const std::string beside = MakeFile("plan.pdf");
  EXPECT_EQ(Resolve("/no/such/folder/plan.pdf", folder_).resolvedPath, beside);
  EXPECT_EQ(Resolve("..\\sheets\\plan.pdf", folder_).resolvedPath, beside);
  EXPECT_EQ(Resolve("C:\\plans\\plan.pdf", folder_).resolvedPath, beside);
  EXPECT_EQ(Resolve("C:/plans\\sub/plan.pdf", folder_).resolvedPath, beside);
  EXPECT_EQ(Resolve("C:plan.pdf", folder_).resolvedPath, beside);
  EXPECT_EQ(Resolve("plan.pdf", folder_).resolvedPath, beside);
}

TEST_F(PdfDefinitions, DeclaredPathIsKeptAsItWasDeclared) {
  MakeFile("plan.pdf");
  EXPECT_EQ(Resolve("C:\\pl\xE4ne\\plan.pdf", folder_).declaredPath, "C:\\pl\xC3\xA4ne\\plan.pdf");
}

TEST_F(PdfDefinitions, NonAsciiNameIsFoundBesideTheDrawing) {
  const fs::path name = std::u8string(u8"pl\u00E4ne.pdf");
  MakeFile(name);
  const std::u8string found = (folder_ / name).u8string();
  EXPECT_EQ(Resolve("C:\\x\\pl\xE4ne.pdf", folder_).resolvedPath,
            std::string(found.begin(), found.end()));
}

TEST_F(PdfDefinitions, PathEndingInASeparatorIsNeverFoundBesideTheDrawing) {
  MakeFile("plan.pdf");
  EXPECT_EQ(Resolve("C:\\plans\\plan.pdf\\", folder_).resolvedPath, "");
  EXPECT_EQ(Resolve("/no/such/plan.pdf/", folder_).resolvedPath, "");
  EXPECT_EQ(Resolve("C:", folder_).resolvedPath, "");
}

TEST_F(PdfDefinitions, MissingFileHasNoResolvedPath) {
  const PdfEntry entry = Resolve("C:\\plans\\plan.pdf", folder_);
  EXPECT_EQ(entry.resolvedPath, "");
  EXPECT_EQ(entry.declaredPath, "C:\\plans\\plan.pdf");
}

TEST_F(PdfDefinitions, DrawingWithoutAFolderIsNotSearched) {
  MakeFile("plan.pdf");
  const fs::path before = fs::current_path();
  fs::current_path(folder_);
  EXPECT_EQ(Resolve("C:\\plans\\plan.pdf", {}).resolvedPath, "");
  EXPECT_EQ(Resolve("plan.pdf", {}).resolvedPath, "plan.pdf");
  fs::current_path(before);
}

TEST_F(PdfDefinitions, AnyFileSystemEntryCounts) {
  EXPECT_EQ(Resolve("C:\\x\\elsewhere", folder_).resolvedPath, (folder_ / "elsewhere").string());
  const std::string declared = (folder_ / "elsewhere").string();
  EXPECT_EQ(Resolve(declared, {}).resolvedPath, declared);
}

TEST_F(PdfDefinitions, QueryThatFailsCountsAsAbsent) {
  const std::string tooLong(5000, 'x');
  EXPECT_EQ(Resolve(tooLong, folder_).resolvedPath, "");
}

TEST_F(PdfDefinitions, DefinitionWithoutAFileNameOrDataIsLeftOut) {
  TestDrawing drawing;
  drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x90);
  drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x91).filename =
      drawing.Text("");
  drawing.AddBareObject(DWG_TYPE_PDFDEFINITION, 0x92);
  const LookupTables tables =
      BuildLookupTables({.data = drawing.data(), .textForm = {}, .folder = folder_});
  for (const Handle handle : {Handle{0x90}, Handle{0x91}, Handle{0x92}}) {
    EXPECT_EQ(tables.pdfDefs.Find(handle), nullptr) << handle;
  }
}

TEST_F(PdfDefinitions, DefinitionWithoutAPageNameHasPageOne) {
  TestDrawing drawing;
  drawing.AddObject(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION, 0x90).filename =
      drawing.Text("a.pdf");
  EXPECT_EQ(ValueAt(BuildLookupTables(drawing.drawing()).pdfDefs, 0x90).page, 1);
}

TEST_F(PdfDefinitions, PageIsReadFromTheDefinitionsName) {
  EXPECT_EQ(Resolve("a.pdf", {}, "3").page, 3);
}

TEST(PdfPage, IsTheNumberThatTheNameBeginsWith) {
  EXPECT_EQ(PdfPage("12"), 12);
  EXPECT_EQ(PdfPage(" +12 of 20"), 12);
  EXPECT_EQ(PdfPage("2147483647"), 2147483647);
}

TEST(PdfPage, IsAtLeastOne) {
  EXPECT_EQ(PdfPage("0"), 1);
  EXPECT_EQ(PdfPage("-5"), 1);
  EXPECT_EQ(PdfPage("-99999999999"), 1);
}

TEST(PdfPage, IsOneForTextsThatAreNoNumber) {
  EXPECT_EQ(PdfPage(""), 1);
  EXPECT_EQ(PdfPage("Page 3"), 1);
  EXPECT_EQ(PdfPage("-"), 1);
}

TEST(PdfPage, IsOneAboveThe32BitRange) {
  EXPECT_EQ(PdfPage("2147483648"), 1);
  EXPECT_EQ(PdfPage("99999999999999999999"), 1);
}

TEST(FileNameComponent, FollowsTheLastSeparator) {
  EXPECT_EQ(FileNameComponent("a/b\\c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("a\\b/c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("\\\\server\\share\\c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("a/"), "");
  EXPECT_EQ(FileNameComponent("a\\"), "");
  EXPECT_EQ(FileNameComponent(""), "");
}

TEST(FileNameComponent, LeavesADriveLetterOut) {
  EXPECT_EQ(FileNameComponent("C:c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("z:c.pdf"), "c.pdf");
  EXPECT_EQ(FileNameComponent("C:"), "");
  EXPECT_EQ(FileNameComponent("1:c.pdf"), "1:c.pdf");
  EXPECT_EQ(FileNameComponent("CD:c.pdf"), "CD:c.pdf");
}
