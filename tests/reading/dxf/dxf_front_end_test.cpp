#include "reading/dxf/dxf_front_end.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "reading/dxf/dxf_binary.hpp"
#include "reading/dxf/dxf_encoding.hpp"

namespace {

using Outcome = PreparedDxf::Outcome;

std::string Section(const std::string& name, const std::string& content) {
  return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
}

std::string Header(const std::string& release) {
  return Section("HEADER", "9\n$ACADVER\n1\n" + release + "\n");
}

const std::string kEnd = "0\nEOF\n";
const std::string kTables = Section(
    "TABLES",
    "0\nTABLE\n2\nLAYER\n5\n2\n70\n1\n0\nLAYER\n5\n10\n330\n2\n2\nWalls\n70\n0\n62\n1\n0\nENDTAB\n"
    "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n70\n2\n"
    "0\nBLOCK_RECORD\n5\n20\n330\n1\n2\n*Model_Space\n"
    "0\nBLOCK_RECORD\n5\n21\n330\n1\n2\nDoor\n0\nENDTAB\n");

std::string Point(const std::string& handle, const std::string& owner,
                  const std::string& layer = "Walls") {
  return "0\nPOINT\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbEntity\n8\n" + layer +
         "\n100\nAcDbPoint\n10\n1.0\n20\n2.0\n30\n0.0\n";
}

std::string Block(const std::string& content,
                  const std::string& end = "0\nENDBLK\n5\n31\n330\n21\n8\n0\n") {
  return "0\nBLOCK\n5\n30\n330\n21\n8\n0\n2\nDoor\n70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n" + content +
         end;
}

std::string Good() {
  return Header("AC1015") + kTables + Section("BLOCKS", Block(Point("40", "21"))) +
         Section("ENTITIES", Point("50", "20")) + kEnd;
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  const std::size_t at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return text.replace(at, what.size(), by);
}

// The lines without blanks, as one text with commas.
std::string Flat(std::string_view text) {
  std::string flat;
  for (const char c : text) {
    if (c == '\n') {
      flat += ',';
    } else if (c != ' ') {
      flat += c;
    }
  }
  return flat;
}

std::string Prepared(const std::string& file) {
  return Flat(PreparedDxf(file).text());
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::size_t Repairs(const std::string& file, DxfRepair kind) {
  return PreparedDxf(file).repairs().CountOf(kind);
}

TEST(DxfFrontEnd, PassesAFileWithoutFlawsOnAsItIs) {
  const std::string file = Good();
  const PreparedDxf prepared(file);
  EXPECT_EQ(prepared.outcome(), Outcome::kPassedOn);
  EXPECT_EQ(prepared.text().data(), file.data());
  EXPECT_TRUE(prepared.repairs().IsEmpty());
}

TEST(DxfFrontEnd, RefusesWhatIsNoDxf) {
  EXPECT_EQ(PreparedDxf("\n").outcome(), Outcome::kNoDxf);
  EXPECT_EQ(PreparedDxf("some words\n").outcome(), Outcome::kNoDxf);
  EXPECT_EQ(PreparedDxf("0\nEOF\n").outcome(), Outcome::kNoDxf);
}

TEST(DxfFrontEnd, RefusesWhatBreaksOffBeforeAnyEntity) {
  EXPECT_EQ(PreparedDxf(Header("AC1015")).outcome(), Outcome::kBrokenOff);
  EXPECT_EQ(PreparedDxf(Header("AC1015") + kEnd).outcome(), Outcome::kRewritten);
}

TEST(DxfFrontEnd, LeavesADwgToTheLibrary) {
  EXPECT_EQ(PreparedDxf("AC1015 and so on\n").outcome(), Outcome::kPassedOn);
}

TEST(DxfFrontEnd, EndsWhatHasNoEnd) {
  const std::string noEof = Header("AC1015") + kTables + Section("ENTITIES", Point("50", "20"));
  EXPECT_TRUE(Prepared(noEof).ends_with("0,EOF,"));
  EXPECT_EQ(Repairs(noEof, DxfRepair::kFileEnd), 1U);

  const std::string noEndSec =
      Replaced(Good(), "0\nENDSEC\n0\nSECTION\n2\nBLOCKS", "0\nSECTION\n2\nBLOCKS");
  EXPECT_TRUE(Holds(Prepared(noEndSec), "0,ENDTAB,0,ENDSEC,0,SECTION,2,BLOCKS,"));
  EXPECT_EQ(Repairs(noEndSec, DxfRepair::kSectionEnds), 1U);

  const std::string noEndTab = Replaced(Good(), "0\nENDTAB\n", "");
  EXPECT_TRUE(Holds(Prepared(noEndTab), "62,1,0,ENDTAB,0,TABLE,2,BLOCK_RECORD,"));
  EXPECT_EQ(Repairs(noEndTab, DxfRepair::kTableEnds), 1U);
}

TEST(DxfFrontEnd, EndsABlockAndASequence) {
  const std::string file = Header("AC1015") + kTables +
                           Section("BLOCKS", Block("0\nPOLYLINE\n5\n40\n330\n21\n8\n0\n66\n1\n"
                                                   "0\nVERTEX\n5\n41\n330\n40\n8\n0\n10\n1.0\n",
                                                   "")) +
                           kEnd;
  const std::string text = Prepared(file);
  EXPECT_TRUE(Holds(text, ",0,SEQEND,5,1000,330,40,8,0,0,ENDBLK,5,1001,330,21,8,0,0,ENDSEC,"))
      << text;
  EXPECT_EQ(Repairs(file, DxfRepair::kSequenceEnds), 1U);
  EXPECT_EQ(Repairs(file, DxfRepair::kBlockEnds), 1U);
}

TEST(DxfFrontEnd, GivesBlockContentsToTheirBlock) {
  const std::string file = Replaced(Good(), "5\n40\n330\n21\n", "5\n40\n");
  EXPECT_TRUE(Holds(Prepared(file), "0,POINT,5,40,330,21,100,AcDbEntity,8,Walls,"));
  // Many programs write none.
  EXPECT_TRUE(PreparedDxf(file).repairs().IsEmpty());
}

TEST(DxfFrontEnd, PutsEntitiesWithoutAnOwnerIntoTheirSpace) {
  const std::string file = Header("AC1015") + kTables +
                           Section("ENTITIES",
                                   "0\nPOINT\n5\n50\n100\nAcDbEntity\n67\n1\n8\nWalls\n"
                                   "100\nAcDbPoint\n10\n1.0\n20\n2.0\n") +
                           kEnd;
  const std::string text = Prepared(file);
  EXPECT_TRUE(Holds(text,
                    "0,BLOCK_RECORD,5,1000,330,1,100,AcDbSymbolTableRecord,"
                    "100,AcDbBlockTableRecord,2,*Paper_Space,"))
      << text;
  EXPECT_TRUE(Holds(text, "0,POINT,5,50,330,1000,100,AcDbEntity,67,1,8,Walls,")) << text;
}

TEST(DxfFrontEnd, SaysWhatIsWrongWithAnOwner) {
  const std::string file = Replaced(Good(), "5\n40\n330\n21\n", "5\n40\n330\n777\n");
  EXPECT_TRUE(Holds(Prepared(file), "0,POINT,5,40,330,21,"));
  EXPECT_EQ(Repairs(file, DxfRepair::kOwners), 1U);
}

TEST(DxfFrontEnd, MakesBlockRecordsForAnOldFileWithoutAWord) {
  const std::string file = Header("AC1009") +
                           Section("BLOCKS",
                                   "0\nBLOCK\n8\n0\n2\nDoor\n70\n0\n10\n0.0\n20\n0.0\n"
                                   "0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n0\nENDBLK\n8\n0\n") +
                           Section("ENTITIES", "0\nINSERT\n8\n0\n2\nDoor\n10\n1.0\n20\n2.0\n") +
                           kEnd;
  const PreparedDxf prepared(file);
  EXPECT_EQ(prepared.outcome(), Outcome::kRewritten);
  EXPECT_TRUE(prepared.repairs().IsEmpty());
  const std::string text = Flat(prepared.text());
  EXPECT_TRUE(Holds(
      text, "5,1001,330,1000,100,AcDbSymbolTableRecord,100,AcDbBlockTableRecord,2,*Model_Space,"))
      << text;
  EXPECT_TRUE(
      Holds(text, "5,1002,330,1000,100,AcDbSymbolTableRecord,100,AcDbBlockTableRecord,2,Door,"))
      << text;
  EXPECT_TRUE(Holds(text, "0,POINT,5,1004,330,1002,8,0,10,1.0,")) << text;
  EXPECT_TRUE(Holds(text, "0,INSERT,5,1006,330,1001,8,0,2,Door,")) << text;
}

TEST(DxfFrontEnd, WritesLayersAsTheTableDoes) {
  const std::string file = Replaced(Good(), "8\nWalls\n", "8\nWALLS \n");
  EXPECT_TRUE(Holds(Prepared(file), "5,40,330,21,100,AcDbEntity,8,Walls,"));
  EXPECT_TRUE(PreparedDxf(file).repairs().IsEmpty());
}

TEST(DxfFrontEnd, AddsLayersThatNoTableNames) {
  const std::string file = Replaced(Good(), "8\nWalls\n", "8\nDoors \n");
  const std::string text = Prepared(file);
  EXPECT_TRUE(
      Holds(text, "100,AcDbLayerTableRecord,2,Doors,70,0,62,7,6,CONTINUOUS,370,-3,0,ENDTAB,"))
      << text;
  EXPECT_TRUE(Holds(text, "5,40,330,21,100,AcDbEntity,8,Doors,")) << text;
  EXPECT_EQ(Repairs(file, DxfRepair::kLayers), 1U);
}

TEST(DxfFrontEnd, LeavesOutBlanksBehindNamesOfTablesAndBlocks) {
  for (const char* const name : {"2\nWalls\n", "2\nDoor\n70", "2\n*Model_Space\n"}) {
    std::string blank(name);
    blank.insert(blank.find('\n', 2), "  ");
    const PreparedDxf prepared(Replaced(Good(), name, blank));
    EXPECT_EQ(Flat(prepared.text()), Flat(Good())) << name;
    EXPECT_TRUE(prepared.repairs().IsEmpty()) << name;
  }
  EXPECT_EQ(Prepared(Replaced(Good(), "*Model_Space", "*MODEL_SPACE")), Flat(Good()));
}

TEST(DxfFrontEnd, LeavesOutTableEntriesThatStoodThereBefore) {
  for (const std::string entry : {"0\nLAYER\n5\n10\n330\n2\n2\nWalls\n70\n0\n62\n1\n",
                                  "0\nBLOCK_RECORD\n5\n21\n330\n1\n2\nDoor\n"}) {
    const std::string file = Replaced(Good(), entry, entry + entry);
    const std::string text = Prepared(file);
    EXPECT_EQ(text.find(Flat(entry)), text.rfind(Flat(entry))) << text;
    EXPECT_TRUE(Holds(text, Flat(entry))) << text;
    EXPECT_EQ(Repairs(file, DxfRepair::kRepeatedRecords), 1U);
  }
}

TEST(DxfFrontEnd, CallsALostBlockRecordAsItsBlockDoes) {
  const std::string file = Replaced(Good(), "0\nBLOCK_RECORD\n5\n21\n330\n1\n2\nDoor\n", "");
  EXPECT_TRUE(Holds(Prepared(file), "0,BLOCK_RECORD,5,21,")) << Prepared(file);
  EXPECT_EQ(Repairs(file, DxfRepair::kMissingBlockRecords), 1U);
  EXPECT_EQ(Repairs(file, DxfRepair::kOwners), 0U);
}

TEST(DxfFrontEnd, CallsARecordWithoutANameAsItsBlockIsCalled) {
  const std::string file = Replaced(Good(), "330\n1\n2\nDoor\n", "330\n1\n");
  EXPECT_TRUE(Holds(Prepared(file), "0,BLOCK_RECORD,5,21,2,Door,330,1,")) << Prepared(file);
  EXPECT_EQ(Repairs(file, DxfRepair::kMissingGroups), 1U);
  EXPECT_EQ(Repairs(file, DxfRepair::kOwners), 0U);
  const PreparedDxf prepared(file);
  EXPECT_EQ(PreparedDxf(prepared.text()).outcome(), Outcome::kPassedOn);
}

TEST(DxfFrontEnd, GivesAnAttributeOfAStrangeOwnerToItsReference) {
  const auto file = [](const std::string& owner) {
    return Header("AC1015") + kTables + Section("BLOCKS", Block(Point("40", "21"))) +
           Section("ENTITIES",
                   "0\nINSERT\n5\n50\n330\n20\n100\nAcDbEntity\n8\nWalls\n"
                   "100\nAcDbBlockReference\n66\n1\n2\nDoor\n10\n1.0\n20\n2.0\n"
                   "0\nATTRIB\n5\n51\n330\n" +
                       owner +
                       "\n100\nAcDbEntity\n8\nWalls\n100\nAcDbText\n10\n1.0\n20\n2.0\n1\nx\n"
                       "100\nAcDbAttribute\n2\nTAG\n70\n0\n"
                       "0\nSEQEND\n5\n52\n330\n50\n100\nAcDbEntity\n8\nWalls\n") +
           kEnd;
  };
  EXPECT_EQ(PreparedDxf(file("50")).outcome(), Outcome::kPassedOn);
  EXPECT_EQ(PreparedDxf(file("20")).outcome(), Outcome::kPassedOn);
  EXPECT_TRUE(Holds(Prepared(file("DEAD")), "0,ATTRIB,5,51,330,50,"));
  EXPECT_EQ(Repairs(file("DEAD"), DxfRepair::kOwners), 1U);
}

TEST(DxfFrontEnd, GivesNewHandlesForMissingAndRepeatedOnes) {
  const std::string missing = Replaced(Good(), "0\nPOINT\n5\n50\n", "0\nPOINT\n");
  EXPECT_TRUE(Holds(Prepared(missing), "0,POINT,5,1000,330,20,"));
  EXPECT_EQ(Repairs(missing, DxfRepair::kMissingHandles), 1U);
  const std::string repeated = Replaced(Good(), "0\nPOINT\n5\n50\n", "0\nPOINT\n5\n40\n");
  EXPECT_TRUE(Holds(Prepared(repeated), "0,POINT,5,1000,330,20,"));
  EXPECT_EQ(Repairs(repeated, DxfRepair::kRepeatedHandles), 1U);
}

TEST(DxfFrontEnd, JoinsRepeatedSectionsAndSortsThem) {
  const std::string file = Header("AC1015") + Section("ENTITIES", Point("50", "20")) + kTables +
                           Section("ENTITIES", Point("51", "20")) + kEnd;
  const std::string text = Prepared(file);
  EXPECT_LT(text.find("2,TABLES"), text.find("2,ENTITIES"));
  EXPECT_EQ(text.find("2,ENTITIES"), text.rfind("2,ENTITIES"));
  EXPECT_TRUE(Holds(text, "5,50,330,20,"));
  EXPECT_TRUE(Holds(text, "5,51,330,20,"));
  EXPECT_EQ(Repairs(file, DxfRepair::kSectionOrder), 1U);
  EXPECT_EQ(Repairs(file, DxfRepair::kRepeatedSections), 1U);
}

TEST(DxfFrontEnd, LeavesOutUnknownSections) {
  const std::string file =
      Replaced(Good(), "0\nEOF\n", Section("VENDOR", "0\nTHING\n1\nx\n") + kEnd);
  EXPECT_FALSE(Holds(Prepared(file), "THING"));
  EXPECT_EQ(Repairs(file, DxfRepair::kUnknownSections), 1U);
}

TEST(DxfFrontEnd, TakesAReleaseThatTheFileLooksLike) {
  EXPECT_TRUE(Holds(Prepared(Replaced(Good(), "AC1015", "AC9999")), "1,AC1015,"));
  EXPECT_TRUE(Holds(Prepared(Replaced(Good(), "AC1015", "AC1019")), "1,AC1018,"));
  EXPECT_TRUE(Holds(Prepared(Replaced(Good(), "AC1015", " ac1015")), "1,AC1015,"));
  EXPECT_TRUE(Holds(Prepared(Replaced(Good(), "1\nAC1015", "3\nAC1015")), "1,AC1015,"));
  EXPECT_TRUE(
      Holds(Prepared(Replaced(Replaced(Good(), "AC1015", "AC9999"), "Walls", "W\xC3\xA4nde")),
            "1,AC1021,"));
  const std::string noHeader = kTables + Section("ENTITIES", Point("50", "20")) + kEnd;
  const PreparedDxf prepared(noHeader);
  EXPECT_TRUE(prepared.IsReleaseMadeUp());
  EXPECT_TRUE(prepared.repairs().IsEmpty());
}

TEST(DxfFrontEnd, MovesCommonPropertiesToTheirPlace) {
  const std::string file = Replaced(Good(), "100\nAcDbPoint\n", "100\nAcDbPoint\n62\n3\n");
  EXPECT_TRUE(Holds(Prepared(file), "100,AcDbEntity,62,3,8,Walls,100,AcDbPoint,10,1.0,"));
  EXPECT_EQ(Repairs(file, DxfRepair::kMisplacedProperties), 1U);
}

TEST(DxfFrontEnd, AddsSubclassMarkers) {
  const std::string file =
      Replaced(Good(), "100\nAcDbEntity\n8\nWalls\n100\nAcDbPoint\n", "8\nWalls\n");
  EXPECT_TRUE(Holds(Prepared(file), "5,40,330,21,100,AcDbEntity,8,Walls,100,AcDbPoint,10,1.0,"));
  EXPECT_EQ(Repairs(file, DxfRepair::kSubclasses), 1U);
}

TEST(DxfFrontEnd, LeavesOutVerticesWithoutAPolyline) {
  const std::string file =
      Replaced(Good(), "0\nPOINT\n5\n50\n", "0\nSEQEND\n5\n60\n330\n20\n0\nPOINT\n5\n50\n");
  EXPECT_FALSE(Holds(Prepared(file), "SEQEND"));
  EXPECT_EQ(Repairs(file, DxfRepair::kOrphans), 1U);
}

TEST(DxfFrontEnd, LeavesOutHeaderVariablesWithoutAValue) {
  const std::string file = Replaced(Good(), "9\n$ACADVER\n", "9\n$LTSCALE\n9\n$ACADVER\n");
  EXPECT_TRUE(Holds(Prepared(file), "2,HEADER,9,$ACADVER,1,AC1015,"));
  EXPECT_EQ(Repairs(file, DxfRepair::kMissingValues), 1U);
}

TEST(DxfFrontEnd, CountsWhatStandsBehindTheEnd) {
  const std::string file = Good() + "junk\nand more\n \n\x1A\n";
  const PreparedDxf prepared(file);
  EXPECT_EQ(prepared.outcome(), Outcome::kPassedOn);
  EXPECT_EQ(prepared.repairs().CountOf(DxfRepair::kTrailingLines), 2U);
}

TEST(DxfFrontEnd, TakesByteOrderMarksAnd16BitText) {
  EXPECT_EQ(PreparedDxf("\xEF\xBB\xBF" + Good()).text(), Good());
  std::string wide = "\xFF\xFE";
  for (const char c : Good()) {
    wide += c;
    wide += '\0';
  }
  wide += '\n';
  EXPECT_EQ(PreparedDxf(wide).text(), Good());
  EXPECT_EQ(Repairs(wide, DxfRepair::kUtf16Text), 1U);
  EXPECT_EQ(PreparedDxf(std::string_view(wide).substr(2)).text(), Good());
  EXPECT_EQ(Utf8FromUtf16(std::string("\xFE\xFF\xD8\x3D\xDE\x00\xD8\x00\x00\x41", 10)),
            "\xF0\x9F\x98\x80\xEF\xBF\xBD"
            "A");
}

TEST(DxfFrontEnd, Takes32BitText) {
  const std::string text = Good();
  for (const std::size_t place : {0U, 3U}) {
    std::string wide;
    for (const char c : text) {
      wide.append(place, '\0');
      wide += c;
      wide.append(3 - place, '\0');
    }
    EXPECT_EQ(PreparedDxf(wide).text(), Good());
    EXPECT_EQ(Repairs(wide, DxfRepair::kUtf32Text), 1U);
    EXPECT_EQ(Repairs(wide, DxfRepair::kUtf16Text), 0U);
    const std::string mark(place == 0 ? "\xFF\xFE\0\0" : "\0\0\xFE\xFF", 4);
    EXPECT_EQ(PreparedDxf(mark + wide).text(), Good());
    EXPECT_EQ(PreparedDxf(mark + wide + "cut").text(), Good());
  }
  EXPECT_EQ(Utf8FromUtf32(std::string("\0\0\xFE\xFF\0\1\xF6\0\0\0\xD8\0\0\x11\0\0\0\0\0A", 20)),
            "\xF0\x9F\x98\x80\xEF\xBF\xBD\xEF\xBF\xBD"
            "A");
}

TEST(DxfFrontEnd, ReadsBinaryFilesOfBothWidths) {
  DxfRepairs repairs;
  const std::string sentinel("AutoCAD Binary DXF\r\n\x1A\0", 22);
  ASSERT_TRUE(IsBinaryDxf(sentinel));
  const std::string narrow = sentinel + std::string(
                                            "\0LINE\0\x0A\0\0\0\0\0\0\xF8\x3F\x3E\x07\0"
                                            "\xFF\xE8\x03words\0\0EOF\0",
                                            32);
  EXPECT_EQ(TextFromBinaryDxf(narrow, repairs), "0\nLINE\n10\n1.5\n62\n7\n1000\nwords\n0\nEOF\n");
  const std::string wide = sentinel + std::string(
                                          "\0\0LINE\0\x22\x01\x01\x18\x01\x02\0"
                                          "\x36\x01\x02\xAB\x01\0\0EOF\0",
                                          25);
  EXPECT_EQ(TextFromBinaryDxf(wide, repairs), "0\nLINE\n290\n1\n280\n2\n310\nAB01\n0\nEOF\n");
  EXPECT_TRUE(repairs.IsEmpty());
  EXPECT_EQ(TextFromBinaryDxf(wide.substr(0, wide.size() - 4), repairs),
            "0\nLINE\n290\n1\n280\n2\n310\nAB01\n");
  EXPECT_EQ(repairs.CountOf(DxfRepair::kCutBinary), 1U);
}

TEST(DxfFrontEnd, KnowsTheLinesThatRecordsComeFrom) {
  const std::string file = Replaced(Good(), "5\n40\n330\n21\n", "5\n40\n");
  const PreparedDxf prepared(file);
  const std::size_t at = prepared.text().find("POINT");
  ASSERT_NE(at, std::string::npos);
  const auto lineEnd = file.begin() + static_cast<std::ptrdiff_t>(file.find("POINT"));
  EXPECT_EQ(prepared.LineAt(at), static_cast<std::size_t>(std::count(file.begin(), lineEnd, '\n')));
}

}  // namespace
