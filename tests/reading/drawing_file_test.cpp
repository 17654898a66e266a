#include "reading/drawing_file.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"

namespace {

namespace fs = std::filesystem;

class DrawingFileTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::temp_directory_path() / ("dwg_import_file_" + std::string(test->name()));
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Write(const std::string& name, const std::string& content) {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return (folder_ / name).string();
  }

  fs::path folder_;
};

bool IsReadAsDxf(const std::string& path) {
  return DrawingFile(path).isDxf();
}

// A drawing of one layer and one point. The comment brings it over the size
// that the library asks of a DXF file.
std::string Dxf(const std::string& release, const std::string& layerName,
                const std::string& color = "62\n-3\n") {
  return "999\n" + std::string(200, '-') + "\n0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\n" + release +
         "\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n5\n10\n2\n" +
         layerName + "\n70\n4\n" + color +
         "6\nCONTINUOUS\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
         "0\nPOINT\n5\n20\n8\n" +
         layerName + "\n10\n1.0\n20\n2.0\n30\n0.0\n0\nENDSEC\n0\nEOF\n";
}

// The same with other sections before the entities.
std::string DxfWithSections(const std::string& sections) {
  std::string text = Dxf("AC1015", "A");
  return text.insert(text.find("0\nSECTION\n2\nENTITIES"), sections);
}

const Dwg_Object_LAYER* FirstLayer(const DrawingFile& file) {
  for (const Dwg_Object& object : Objects(file.drawing().data)) {
    if (object.fixedtype == DWG_TYPE_LAYER) {
      return ObjectData(object, &ObjectTio::LAYER);
    }
  }
  return nullptr;
}

// One point for each text, which is its x coordinate.
std::string DxfWithPoints(const std::vector<std::string>& coordinates) {
  std::string points;
  for (const std::string& x : coordinates) {
    points += "0\nPOINT\n8\nA\n10\n" + x + "\n20\n2.0\n30\n0.0\n";
  }
  std::string text = Dxf("AC1015", "A");
  return text.insert(text.find("0\nPOINT\n5\n20"), points);
}

std::vector<double> PointCoordinates(const DrawingFile& file) {
  std::vector<double> coordinates;
  for (const Dwg_Object& object : Objects(file.drawing().data)) {
    if (object.fixedtype == DWG_TYPE_POINT) {
      coordinates.push_back(EntityData(object, &EntityTio::POINT)->x);
    }
  }
  return coordinates;
}

// With so many blanks before each group code that the library's own reader takes
// them, not our sources beside it.
std::string WithPaddedCodes(const std::string& text) {
  std::string padded;
  bool isCode = true;
  for (std::size_t at = 0; at < text.size(); isCode = !isCode) {
    const std::size_t end = text.find('\n', at) + 1;
    padded += std::string(isCode ? 12 : 0, ' ') + text.substr(at, end - at);
    at = end;
  }
  return padded;
}

std::string Entity(const std::string& type, const std::string& handle, const std::string& subclass,
                   const std::string& groups) {
  return "0\n" + type + "\n5\n" + handle +
         "\n100\nAcDbEntity\n8\nA\n62\n3\n370\n50\n48\n0.5\n60\n1\n6\nBYLAYER\n100\n" + subclass +
         "\n" + groups;
}

template <typename Data>
const Data& Only(const DrawingFile& file, DWG_OBJECT_TYPE type, Data* EntityTio::*member) {
  const Data* found = nullptr;
  for (const Dwg_Object& object : Objects(file.drawing().data)) {
    found = object.fixedtype == type ? EntityData(object, member) : found;
  }
  EXPECT_NE(found, nullptr);
  return *found;
}

}  // namespace

TEST_F(DrawingFileTest, DxfExtensionInAnyLetterCaseIsDxf) {
  EXPECT_TRUE(IsReadAsDxf("plan.dxf"));
  EXPECT_TRUE(IsReadAsDxf("PLAN.DXF"));
  EXPECT_TRUE(IsReadAsDxf("plan.Dxf"));
  EXPECT_TRUE(IsReadAsDxf("a.b.dxf"));
  EXPECT_TRUE(IsReadAsDxf("/folder.dwg/plan.dxf"));
  EXPECT_TRUE(IsReadAsDxf("..dxf"));
}

TEST_F(DrawingFileTest, AnyOtherExtensionIsDwg) {
  EXPECT_FALSE(IsReadAsDxf("plan.dwg"));
  EXPECT_FALSE(IsReadAsDxf("x.dxf.dwg"));
  EXPECT_FALSE(IsReadAsDxf("plan.dxf.bak"));
  EXPECT_FALSE(IsReadAsDxf("plan.dxf "));
  EXPECT_FALSE(IsReadAsDxf("plan.dxfx"));
  EXPECT_FALSE(IsReadAsDxf("plandxf"));
}

TEST_F(DrawingFileTest, NoExtensionIsDwg) {
  EXPECT_FALSE(IsReadAsDxf("x"));
  EXPECT_FALSE(IsReadAsDxf(""));
  EXPECT_FALSE(IsReadAsDxf("plan.dxf/x"));
  EXPECT_FALSE(IsReadAsDxf("plan.dxf/"));
  EXPECT_FALSE(IsReadAsDxf("--verbose"));
}

TEST_F(DrawingFileTest, FileNamedJustByTheExtensionIsDwg) {
  EXPECT_FALSE(IsReadAsDxf(".dxf"));
  EXPECT_FALSE(IsReadAsDxf("folder/.DXF"));
}

TEST_F(DrawingFileTest, MissingFileFails) {
  DrawingFile file((folder_ / "none.dwg").string());
  file.Read();
  EXPECT_TRUE(file.HasFailed());
  EXPECT_NE(file.result() & DWG_ERR_IOERROR, 0);
}

TEST_F(DrawingFileTest, OpenedFileIsReadThoughItsNameIsGone) {
  DrawingFile dxf(Write("a.dxf", Dxf("AC1015", "A")));
  dxf.Open();
  DrawingFile dwg(Write("a.dwg", "short"));
  dwg.Open();
  // Where the system does not let go of open files, this does nothing.
  std::error_code error;
  fs::remove(folder_ / "a.dxf", error);
  fs::remove(folder_ / "a.dwg", error);
  dxf.Read();
  EXPECT_FALSE(dxf.HasFailed());
  dwg.Read();
  // It was read, and is too short for a drawing.
  EXPECT_EQ(dwg.result(), DWG_ERR_INVALIDDWG);
}

TEST_F(DrawingFileTest, FreeMayBeRepeated) {
  DrawingFile file(Write("a.dxf", Dxf("AC1015", "A")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  file.Free();
  file.Free();
}

TEST_F(DrawingFileTest, DxfHasTheVersionOfItsOwnRelease) {
  DrawingFile file(Write("a.dxf", Dxf("AC1015", "A")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  EXPECT_EQ(file.drawing().data.header.version, R_2000);
}

TEST_F(DrawingFileTest, OldDxfHasCodePageText) {
  DrawingFile file(Write("a.dxf", Dxf("AC1015", "T\xFCr")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  EXPECT_EQ(file.drawing().textForm, TextForm::kWindows1252);
  const Dwg_Object_LAYER* layer = FirstLayer(file);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(DecodeText(file.drawing().textForm, layer->name).view(), "T\xC3\xBCr");
}

TEST_F(DrawingFileTest, NewDxfHasUtf8TextInEightBitForm) {
  DrawingFile file(Write("a.dxf", Dxf("AC1021", "T\xC3\xBCr")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  EXPECT_EQ(file.drawing().data.header.version, R_2007);
  EXPECT_EQ(file.drawing().textForm, TextForm::kUtf8);
  const Dwg_Object_LAYER* layer = FirstLayer(file);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(DecodeText(file.drawing().textForm, layer->name).view(), "T\xC3\xBCr");
}

TEST_F(DrawingFileTest, DxfIsSettledAfterTheRead) {
  DrawingFile file(Write("a.dxf", Dxf("AC1015", "A")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  const Dwg_Object_LAYER* layer = FirstLayer(file);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->color.index, -3);
  EXPECT_EQ(layer->off, 1);
  EXPECT_EQ(layer->locked, 1);
}

TEST_F(DrawingFileTest, NameOfAColorIsNotItsIndex) {
  DrawingFile file(Write("a.dxf", Dxf("AC1032", "A", "62\n31\n420\n16564615\n430\nBOOK$C\n")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  const Dwg_Object_LAYER* layer = FirstLayer(file);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->color.index, 0);
  EXPECT_EQ(layer->color.rgb, 0xC3000000U);
  EXPECT_EQ(layer->off, 0);
}

TEST_F(DrawingFileTest, LayerWithANamedColorStaysOff) {
  DrawingFile file(Write("a.dxf", Dxf("AC1032", "A", "62\n-31\n430\nBOOK$C\n")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  const Dwg_Object_LAYER* layer = FirstLayer(file);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->color.index, -31);
  EXPECT_EQ(layer->off, 1);
}

TEST_F(DrawingFileTest, EndOfABlockWithoutANameIsRead) {
  DrawingFile file(Write(
      "a.dxf",
      DxfWithSections("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n330\n0\n100\n"
                      "AcDbSymbolTable\n70\n1\n0\nBLOCK_RECORD\n5\nEEEF6\n0\nENDTAB\n0\nENDSEC\n"
                      "0\nSECTION\n2\nBLOCKS\n0\nENDBLK\n5\n21\n330\nEEEF6\n100\nAcDbEntity\n67\n"
                      "0\n100\nAcDbBlockEnd\n0\nENDSEC\n")));
  file.Read();
  EXPECT_FALSE(file.HasFailed());
}

// The name is Windows-1252; as UTF-8 its last byte begins a character of three.
TEST_F(DrawingFileTest, TextThatEndsWithinACharacterIsCut) {
  DrawingFile file(Write(
      "a.dxf",
      DxfWithSections("0\nSECTION\n2\nCLASSES\n0\nCLASS\n1\nDICTIONARYVAR\n2\n"
                      "AcDbDictionaryVar\n3\nMus\xE9\n90\n0\n91\n1\n280\n0\n281\n0\n0\nENDSEC\n")));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  ASSERT_GE(file.drawing().data.num_classes, 1);
  EXPECT_STREQ(file.drawing().data.dwg_class[0].appname, "Mus");
}

// Each is the nearest number: of few digits and many, ties between two numbers,
// with and without an exponent.
TEST_F(DrawingFileTest, DecimalsOfADxfAreReadExactly) {
  const std::vector<std::string> texts = {"0.1",
                                          "-2.5",
                                          "+7",
                                          ".5",
                                          "3.",
                                          "-0.0",
                                          "0.30000000000000004",
                                          "1234.5678901234567",
                                          "-3.141592653589793",
                                          "0.000000000000000000000012345",
                                          "9007199254740993",
                                          "9007199254740992.5",
                                          "9007199254740995.5",
                                          "4503599627370497.5",
                                          "9999999999999999999",
                                          "18446744073709551617",
                                          "0.1234567890123456789",
                                          "0.99999999999999994448",
                                          "123456789012345678.9",
                                          "0.0000000000000000000000000",
                                          "1e-07",
                                          "2.5E+3",
                                          "0.00000000000000000000000000000012345",
                                          "1.000000000000000000000"};
  DrawingFile file(Write("a.dxf", DxfWithPoints(texts)));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  const std::vector<double> coordinates = PointCoordinates(file);
  ASSERT_EQ(coordinates.size(), texts.size() + 1);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(coordinates[i]),
              std::bit_cast<std::uint64_t>(std::strtod(texts[i].c_str(), nullptr)))
        << texts[i];
  }
}

// Group codes and values are integers with spaces, tabs, signs and zeros before
// them, and lines end in two ways.
TEST_F(DrawingFileTest, IntegersOfADxfMayBePadded) {
  for (const std::string number : {"-3", "     -3", "\t-3", " \t -3", "-0000000003"}) {
    for (const std::string code : {"62", " 62", "         62", "+62", "\t62", "000000000062"}) {
      for (const std::string end : {"\n", "\r\n"}) {
        std::string color;
        for (const std::string& line : {code, number, std::string("370"), std::string("50")}) {
          color += line;
          color += end;
        }
        DrawingFile file(Write("a.dxf", Dxf("AC1015", "A", color)));
        file.Read();
        ASSERT_FALSE(file.HasFailed());
        const Dwg_Object_LAYER* layer = FirstLayer(file);
        ASSERT_NE(layer, nullptr);
        EXPECT_EQ(layer->color.index, -3) << code << number;
        EXPECT_EQ(layer->off, 1);
      }
    }
  }
}

// With the file's end at the end of a page there is no NUL behind it, and without a
// line feed there is no end of the last line: both are read otherwise.
TEST_F(DrawingFileTest, DxfOfWholePagesIsRead) {
  constexpr std::size_t kPage = 65536;
  std::string text = Dxf("AC1015", "A");
  text.insert(4, std::string(kPage - text.size(), '-'));
  text.insert(kPage / 2, "\n999\n");
  for (const std::size_t size : {kPage - 1, kPage, kPage + 1}) {
    std::string sized = text;
    for (std::size_t left = sized.size() - size; left != 0; --left) {
      sized.erase(8, 1);
    }
    for (const bool endsWithLine : {true, false}) {
      DrawingFile file(Write("a.dxf", endsWithLine ? sized : sized.substr(0, size - 1)));
      file.Read();
      ASSERT_FALSE(file.HasFailed());
      EXPECT_EQ(PointCoordinates(file), std::vector<double>{1.0});
    }
  }
}

TEST_F(DrawingFileTest, GroupsAreReadAlikeHoweverTheirCodesAreWritten) {
  const std::string entities = Entity("ARC", "A1", "AcDbCircle",
                                      "10\n1.5\n20\n2.5\n30\n3.5\n40\n7.25\n100\nAcDbArc\n50\n30."
                                      "0\n51\n0.0\n39\n0.75\n210\n0.0\n"
                                      "220\n0.0\n230\n-1.0\n") +
                               Entity("TEXT", "A2", "AcDbText",
                                      "10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\nOne ^J "
                                      "two\n41\n0.8\n50\n45.0\n51\n15.0\n71\n2\n72\n1\n"
                                      "11\n4.0\n21\n5.0\n31\n6.0\n100\nAcDbText\n73\n3\n") +
                               Entity("INSERT", "A3", "AcDbBlockReference",
                                      "2\nDoor\n10\n1.0\n20\n2.0\n30\n3.0\n41\n2.0\n42\n2.0\n43\n2."
                                      "0\n50\n90.0\n44\n5.0\n45\n6.0\n") +
                               Entity("MTEXT", "A4", "AcDbMText",
                                      "10\n1.0\n20\n2.0\n30\n3.0\n40\n2.5\n41\n10."
                                      "0\n71\n5\n3\nfirst \n1\nlast\n11\n0.0\n21\n1.0\n31\n0.0\n");
  std::string text = Dxf("AC1015", "A");
  // The last few groups of a file are always left to the library.
  std::string last;
  for (const std::string handle : {"B1", "B2", "B3", "B4"}) {
    last += Entity("POINT", handle, "AcDbPoint", "10\n1.0\n20\n2.0\n30\n0.0\n");
  }
  const std::size_t begin = text.find("0\nPOINT\n5\n20");
  text.replace(begin, text.find("0\nENDSEC", begin) - begin, entities + last);
  DrawingFile plain(Write("plain.dxf", text));
  DrawingFile padded(Write("padded.dxf", WithPaddedCodes(text)));
  plain.Read();
  padded.Read();
  ASSERT_FALSE(plain.HasFailed());
  ASSERT_FALSE(padded.HasFailed());
  EXPECT_EQ(plain.warnings(), std::vector<std::string>{});
  EXPECT_EQ(padded.warnings(), std::vector<std::string>{});

  const auto& arc = Only(plain, DWG_TYPE_ARC, &EntityTio::ARC);
  const auto& paddedArc = Only(padded, DWG_TYPE_ARC, &EntityTio::ARC);
  EXPECT_EQ(arc.radius, 7.25);
  EXPECT_EQ(arc.extrusion.z, -1.0);
  for (const auto member : {&Dwg_Entity_ARC::radius, &Dwg_Entity_ARC::start_angle,
                            &Dwg_Entity_ARC::end_angle, &Dwg_Entity_ARC::thickness}) {
    EXPECT_EQ(arc.*member, paddedArc.*member);
  }
  EXPECT_EQ(arc.parent->color.index, paddedArc.parent->color.index);
  EXPECT_EQ(arc.parent->linewt, paddedArc.parent->linewt);
  EXPECT_EQ(arc.parent->ltype_scale, paddedArc.parent->ltype_scale);
  EXPECT_EQ(arc.parent->invisible, paddedArc.parent->invisible);
  ASSERT_NE(arc.parent->layer, nullptr);
  EXPECT_EQ(arc.parent->layer->absolute_ref, paddedArc.parent->layer->absolute_ref);

  const auto& words = Only(plain, DWG_TYPE_TEXT, &EntityTio::TEXT);
  const auto& paddedWords = Only(padded, DWG_TYPE_TEXT, &EntityTio::TEXT);
  EXPECT_STREQ(words.text_value, "One \n two");
  EXPECT_STREQ(words.text_value, paddedWords.text_value);
  EXPECT_EQ(words.rotation, paddedWords.rotation);
  EXPECT_EQ(words.dataflags, paddedWords.dataflags);
  EXPECT_EQ(words.vert_alignment, 3);
  EXPECT_EQ(words.alignment_pt.y, paddedWords.alignment_pt.y);

  const auto& insert = Only(plain, DWG_TYPE_INSERT, &EntityTio::INSERT);
  const auto& paddedInsert = Only(padded, DWG_TYPE_INSERT, &EntityTio::INSERT);
  EXPECT_EQ(insert.scale_flag, paddedInsert.scale_flag);
  EXPECT_EQ(insert.scale.z, 2.0);
  EXPECT_EQ(insert.rotation, paddedInsert.rotation);
  EXPECT_EQ(insert.row_spacing, paddedInsert.row_spacing);

  const auto& mtext = Only(plain, DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  EXPECT_STREQ(mtext.text, "first last");
  EXPECT_STREQ(mtext.text, Only(padded, DWG_TYPE_MTEXT, &EntityTio::MTEXT).text);
  EXPECT_EQ(mtext.x_axis_dir.y, 1.0);
}

// Only the second one opens a section.
TEST_F(DrawingFileTest, SectionWithoutANameDoesNotHideTheNext) {
  DrawingFile file(
      Write("a.dxf",
            "0\nSECTION\n5\n1\n0\nSECTION\n2\nENTITIES\n0\nPOINT\n5\nA\n8\n0\n10\n3.0\n20\n"
            "0.0\n0\nENDSEC\n0\nEOF\n"));
  file.Read();
  ASSERT_FALSE(file.HasFailed());
  EXPECT_EQ(file.drawing().unknownEntities.at("SECTION"), 1U);
  EXPECT_EQ(PointCoordinates(file), std::vector<double>{3.0});
}
