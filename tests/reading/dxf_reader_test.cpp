// What our patches to LibreDWG's DXF reader mend: each test reads a small file
// that the reader refuses, or reads otherwise, without one of them.
#include <map>

#include "dxf_reader_fixture.hpp"

namespace {

using TypeCounts = std::map<std::string, std::size_t>;

// A frame whose data would be larger than the file.
constexpr std::string_view kUnreadable =
    "0\nOLE2FRAME\n100\nAcDbEntity\n8\n0\n100\nAcDbOle2Frame\n90\n999999999\n";

TEST_F(DxfReaderTest, AnUnreadableEntityIsLeftOutAndTold) {
  Read(Drawing(Line() + std::string(kUnreadable) + Line()));
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 2U);
  EXPECT_TRUE(OfType(DWG_TYPE_OLE2FRAME).empty());
  EXPECT_EQ(losses_->unreadable().CountOf(DxfRepair::kUnreadableEntities), 1U);
}

TEST_F(DxfReaderTest, AnEntityOfAnUnknownTypeEndsNothing) {
  const std::string unknown = "0\nTCH_WALL\n5\nA1\n100\nAcDbEntity\n8\n0\n10\n1.0\n";
  const std::string blocks =
      Section("BLOCKS", "0\nBLOCK\n8\n0\n2\nB\n70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n3\nB\n" + unknown +
                            Line() + "0\nENDBLK\n8\n0\n");
  Read(Header("AC1009") + Section("TABLES", "") + blocks +
       Entities(Line() + unknown + unknown + Line()) + "0\nEOF\n");
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 3U);
  EXPECT_EQ(losses_->unknownEntities(), (TypeCounts{{"TCH_WALL", 3}}));
  EXPECT_TRUE(losses_->unreadable().IsEmpty());
}

TEST_F(DxfReaderTest, UnknownObjectsAndTableRecordsArePassedOver) {
  const std::string tables = Section(
      "TABLES",
      "0\nTABLE\n2\nLAYER\n5\n2\n70\n1\n0\nODDITY\n2\nX\n0\nLAYER\n5\n10\n2\nA\n70\n0\n62\n3\n"
      "0\nENDTAB\n");
  const std::string objects = Section("OBJECTS", "0\nODDITY\n5\nB1\n0\nDICTIONARY\n5\nB2\n");
  Read(Header("AC1015") + tables + Entities(Line()) + objects + "0\nEOF\n");
  EXPECT_EQ(OfType(DWG_TYPE_LAYER).size(), 1U);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
  EXPECT_TRUE(losses_->unknownEntities().empty());
}

TEST_F(DxfReaderTest, UnknownGroupsInAnEntityArePassedOver) {
  Read(Drawing("0\nVERTEX\n8\n0\n71\n3\n10\n7.0\n20\n8.0\n30\n0.0\n100\nAcDbOddity\n90\n5\n" +
               Line("168\n2\n7777\nx\n-7\nAB\n")));
  EXPECT_EQ(Only(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D).point.x, 7.0);
  EXPECT_EQ(Only(DWG_TYPE_LINE, &EntityTio::LINE).end.y, 4.0);
}

TEST_F(DxfReaderTest, TextsAreOfAnyLength) {
  const std::string text(10000, 'x');
  Read(Drawing("0\nTEXT\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\n" + text + "\n" + Line()));
  EXPECT_EQ(Only(DWG_TYPE_TEXT, &EntityTio::TEXT).text_value, text);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

// Shift JIS 82A0 is HIRAGANA LETTER A.
TEST_F(DxfReaderTest, DoubleByteCharactersMayBeginWithADigit) {
  Read(Drawing("0\nTEXT\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\na\\M+182A0b\n"));
  EXPECT_STREQ(Only(DWG_TYPE_TEXT, &EntityTio::TEXT).text_value, "a\\U+3042b");
}

TEST_F(DxfReaderTest, EmbeddedObjectsLeaveTheTextAsItIs) {
  Read(
      Drawing("0\nMTEXT\n100\nAcDbEntity\n8\n0\n100\nAcDbMText\n10\n5.0\n20\n6.0\n30\n0.0\n"
              "40\n2.5\n41\n30.0\n71\n1\n72\n5\n1\ntext\n11\n0.0\n21\n1.0\n31\n0.0\n"
              "101\nEmbedded Object\n70\n1\n10\n1.0\n20\n0.0\n30\n0.0\n11\n5.0\n21\n6.0\n"
              "31\n0.0\n40\n30.0\n41\n0.0\n42\n3.0\n43\n2.5\n71\n0\n",
              "AC1032"));
  const auto& text = Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  EXPECT_EQ(text.ins_pt.x, 5.0);
  EXPECT_EQ(text.ins_pt.y, 6.0);
  EXPECT_EQ(text.x_axis_dir.x, 0.0);
  EXPECT_EQ(text.x_axis_dir.y, 1.0);
  EXPECT_EQ(text.text_height, 2.5);
  EXPECT_EQ(text.attachment, 1);
}

TEST_F(DxfReaderTest, ATrueColourStaysBesideAnIndex) {
  Read(Drawing(Line("62\n1\n420\n1056816\n"), "AC1032"));
  EXPECT_EQ(ColorOfLine().rgb, 0xC2102030U);
  EXPECT_EQ(ColorOfLine().index, 1);
}

TEST_F(DxfReaderTest, ATrueColourStaysBeforeAnIndex) {
  Read(Drawing(Line("420\n1056816\n62\n1\n"), "AC1032"));
  EXPECT_EQ(ColorOfLine().rgb, 0xC2102030U);
  EXPECT_EQ(ColorOfLine().index, 1);
}

TEST_F(DxfReaderTest, ATrueColourAloneIsNotByLayer) {
  Read(Drawing(Line("420\n1056816\n"), "AC1032"));
  EXPECT_EQ(ColorOfLine().rgb, 0xC2102030U);
  EXPECT_EQ(ColorOfLine().index, 257);
}

TEST_F(DxfReaderTest, ABlockMayHaveTheHandleOfTheReadersModelSpace) {
  Read(Header("AC1015") +
       Section("TABLES", BlockRecords({{"1F", "Chair"}, {"50", "*Model_Space"}})) +
       Entities("0\nINSERT\n5\n60\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n2\nChair\n"
                "10\n1.0\n20\n2.0\n30\n0.0\n") +
       "0\nEOF\n");
  EXPECT_EQ(BlockName(0x1F), "Chair");
  EXPECT_EQ(BlockName(0x50), "*Model_Space");
  const auto& insert = Only(DWG_TYPE_INSERT, &EntityTio::INSERT);
  EXPECT_EQ(HandleOf(insert.block_header), 0x1FU);
}

TEST_F(DxfReaderTest, TheFilesModelSpaceTakesThePlaceOfTheReaders) {
  Read(Header("AC1032") + Section("TABLES", BlockRecords({{"50", "*Model_Space"}})) +
       Entities(Line()) + "0\nEOF\n");
  EXPECT_EQ(OfType(DWG_TYPE_BLOCK_HEADER).size(), 1U);
  EXPECT_EQ(BlockName(0x50), "*Model_Space");
}

TEST_F(DxfReaderTest, ALayerMayHaveTheHandleOfTheReadersModelSpace) {
  Read(Header("AC1015") +
       Section("TABLES",
               "0\nTABLE\n2\nLAYER\n5\n2\n70\n1\n0\nLAYER\n5\n1F\n2\nWalls\n70\n0\n62\n3\n"
               "0\nENDTAB\n") +
       Entities("0\nPOINT\n5\n60\n100\nAcDbEntity\n8\nWalls\n100\nAcDbPoint\n10\n1.0\n20\n2.0\n"
                "30\n0.0\n") +
       "0\nEOF\n");
  EXPECT_EQ(HandleOf(OfType(DWG_TYPE_POINT).at(0)->tio.entity->layer), 0x1FU);
  for (const Dwg_Object* block : OfType(DWG_TYPE_BLOCK_HEADER)) {
    EXPECT_NE(block->handle.value, 0x1FU);
  }
}

TEST_F(DxfReaderTest, AnEndMayBelongToABlockWithoutAName) {
  Read(Header("AC1015") +
       Section("TABLES",
               "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n330\n0\n100\nAcDbSymbolTable\n70\n1\n"
               "0\nBLOCK_RECORD\n5\nEEEF6\n0\nENDTAB\n") +
       Section("BLOCKS",
               "0\nENDBLK\n5\n21\n330\nEEEF6\n100\nAcDbEntity\n67\n0\n100\n"
               "AcDbBlockEnd\n") +
       Entities(Line()) + "0\nEOF\n");
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, HandlesHave64Bits) {
  Read(Header("AC1015") +
       Section("TABLES", BlockRecords({{"100000000000001F", "A"}, {"200000000000001F", "B"}})) +
       Entities("0\nINSERT\n5\n3000000000000060\n330\n200000000000001F\n100\nAcDbEntity\n8\n0\n"
                "100\nAcDbBlockReference\n2\nA\n10\n1.0\n20\n2.0\n30\n0.0\n") +
       "0\nEOF\n");
  const Dwg_Object& insert = *OfType(DWG_TYPE_INSERT).at(0);
  EXPECT_EQ(insert.handle.value, 0x3000000000000060U);
  EXPECT_EQ(HandleOf(insert.tio.entity->ownerhandle), 0x200000000000001FU);
  EXPECT_EQ(HandleOf(insert.tio.entity->tio.INSERT->block_header), 0x100000000000001FU);
}

TEST_F(DxfReaderTest, ContentsOfABlockBelongToItInReleasesWithoutOwners) {
  const std::string insert = "0\nINSERT\n8\n0\n66\n1\n2\nB\n10\n1.0\n20\n2.0\n30\n0.0\n";
  const std::string attribute =
      "0\nATTRIB\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\nv\n2\nTAG\n70\n0\n";
  Read(Header("AC1009") + Section("TABLES", "") +
       Section("BLOCKS", "0\nBLOCK\n8\n0\n2\nA\n70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n3\nA\n" + Line() +
                             insert + attribute + "0\nSEQEND\n8\n0\n0\nENDBLK\n8\n0\n") +
       Entities("0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n") + "0\nEOF\n");
  const auto owner = [this](DWG_OBJECT_TYPE type) {
    return HandleOf(OfType(type).at(0)->tio.entity->ownerhandle);
  };
  EXPECT_EQ(BlockName(owner(DWG_TYPE_LINE)), "A");
  EXPECT_EQ(BlockName(owner(DWG_TYPE_INSERT)), "A");
  EXPECT_EQ(owner(DWG_TYPE_ATTRIB), OfType(DWG_TYPE_INSERT).at(0)->handle.value);
  EXPECT_EQ(owner(DWG_TYPE_POINT), 0U);
}

TEST_F(DxfReaderTest, HandlesThatTheReaderGivesOutAreFree) {
  Read(Drawing("0\nPOINT\n5\n500\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n" + Line() +
                   "0\nPOINT\n5\n3\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n" + Line() + Line(),
               "AC1009"));
  std::map<Handle, int> uses;
  for (const Dwg_Object& object : Objects(dwg_)) {
    EXPECT_EQ(++uses[object.handle.value], 1) << object.handle.value;
  }
}

TEST_F(DxfReaderTest, ShortFilesAreRead) {
  Read("0\nSECTION\n2\nENTITIES\n" + std::string("0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n") +
       "0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(Only(DWG_TYPE_POINT, &EntityTio::POINT).y, 2.0);
}

TEST_F(DxfReaderTest, WhatAFileHoldsThatBreaksOffIsKept) {
  Read(Header("AC1015") + "0\nSECTION\n2\nENTITIES\n" + Line() + Line() + "0\nPOINT\n8\n0\n");
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 2U);
}

TEST_F(DxfReaderTest, AFileThatBreaksOffBeforeAnyEntityIsRefused) {
  EXPECT_NE(ResultOf(Header("AC1015") + "0\nSECTION\n2\nTABLES\n"), 0);
  EXPECT_NE(ResultOf("0\nEOF\n"), 0);
}

std::string Polyline(const std::string& count, int points) {
  std::string text = "0\nLWPOLYLINE\n100\nAcDbEntity\n8\n0\n100\nAcDbPolyline\n" + count;
  for (int i = 0; i < points; ++i) {
    text += "10\n" + std::to_string(i) + ".0\n20\n5.0\n";
    text += i == 1 ? "42\n0.5\n" : "";
  }
  return text;
}

TEST_F(DxfReaderTest, APolylineHasThePointsThatItHas) {
  for (const std::string count :
       {"90\n3\n70\n1\n", "90\n2\n70\n1\n", "90\n99999999\n70\n1\n", "70\n1\n",
        "90\n3\n70\n65535\n", "90\n3\n70\n1\n91\n7\n1070\n5\n"}) {
    Read(Drawing(Polyline(count, 3)));
    const auto& line = Only(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE);
    ASSERT_EQ(line.num_points, 3U) << count;
    EXPECT_EQ(line.points[2].x, 2.0);
    EXPECT_EQ(line.points[2].y, 5.0);
    ASSERT_EQ(line.num_bulges, 3U);
    EXPECT_EQ(line.bulges[1], 0.5);
    EXPECT_EQ(line.bulges[2], 0.0);
    EXPECT_EQ(line.flag & 512U, 512U);
  }
}

TEST_F(DxfReaderTest, ASplineHasTheValuesThatItHas) {
  const std::string values =
      "40\n0.0\n40\n0.0\n40\n1.0\n40\n1.0\n41\n1.0\n41\n2.0\n"
      "10\n1.0\n20\n2.0\n30\n3.0\n10\n4.0\n20\n5.0\n30\n6.0\n11\n7.0\n21\n8.0\n31\n9.0\n";
  for (const std::string counts :
       {"72\n4\n73\n2\n74\n1\n", "72\n1\n73\n1\n74\n0\n", "72\n9\n73\n9\n74\n9\n", ""}) {
    std::string entity = "0\nSPLINE\n100\nAcDbEntity\n8\n0\n100\nAcDbSpline\n70\n12\n71\n1\n";
    entity += counts;
    entity += values;
    Read(Drawing(entity));
    const auto& spline = Only(DWG_TYPE_SPLINE, &EntityTio::SPLINE);
    ASSERT_EQ(spline.num_knots, 4U) << counts;
    EXPECT_EQ(spline.knots[1], 0.0);
    EXPECT_EQ(spline.knots[2], 1.0);
    ASSERT_EQ(spline.num_ctrl_pts, 2U);
    EXPECT_EQ(spline.ctrl_pts[0].z, 3.0);
    EXPECT_EQ(spline.ctrl_pts[0].w, 1.0);
    EXPECT_EQ(spline.ctrl_pts[1].x, 4.0);
    EXPECT_EQ(spline.ctrl_pts[1].w, 2.0);
    ASSERT_EQ(spline.num_fit_pts, 1U);
    EXPECT_EQ(spline.fit_pts[0].y, 8.0);
  }
}

TEST_F(DxfReaderTest, ASequenceEndBelongsToWhatStandsBeforeIt) {
  const std::string insert = "0\nINSERT\n5\n60\n8\n0\n2\nB\n10\n1.0\n20\n2.0\n30\n0.0\n";
  Read(Drawing("0\nSEQEND\n5\n50\n8\n0\n" + insert + Line() + "0\nSEQEND\n5\n61\n330\n60\n8\n0\n" +
               Line()));
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 2U);
  EXPECT_EQ(Only(DWG_TYPE_INSERT, &EntityTio::INSERT).num_owned, 0U);
}

TEST_F(DxfReaderTest, ObjectsThatNoDocumentHoldsArePassedOver) {
  const std::string action =
      "0\nBLOCKROTATEACTION\n5\n70\n100\nAcDbEvalExpr\n90\n1\n98\n33\n99\n4\n100\n"
      "AcDbBlockElement\n300\nRotate\n98\n33\n99\n4\n1071\n0\n100\nAcDbBlockAction\n70\n0\n71\n0\n"
      "1010\n1.0\n1020\n2.0\n1030\n0.0\n100\nAcDbBlockRotationAction\n";
  const std::string definition = "0\nPDFDEFINITION\n5\n71\n1\nplan.pdf\n2\n1\n";
  Read(Header("AC1032") + Entities(Line()) + Section("OBJECTS", action + definition) + "0\nEOF\n");
  EXPECT_TRUE(OfType(DWG_TYPE_BLOCKROTATEACTION).empty());
  EXPECT_EQ(OfType(DWG_TYPE_PDFDEFINITION).size(), 1U);
}

TEST_F(DxfReaderTest, APolyfaceMeshOfR12IsNo2dPolyline) {
  Read(
      Drawing("0\nPOLYLINE\n8\n0\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n64\n71\n1\n72\n1\n"
              "0\nVERTEX\n8\n0\n10\n1.0\n20\n2.0\n30\n3.0\n70\n192\n"
              "0\nVERTEX\n8\n0\n10\n0.0\n20\n0.0\n30\n0.0\n70\n128\n71\n1\n"
              "0\nSEQEND\n8\n0\n" +
                  Line(),
              "AC1009"));
  EXPECT_EQ(OfType(DWG_TYPE_POLYLINE_PFACE).size(), 1U);
  EXPECT_TRUE(OfType(DWG_TYPE_POLYLINE_2D).empty());
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, FacesOfAPolyfaceMeshOfR12AreNoVertices) {
  Read(
      Drawing("0\nPOLYLINE\n5\n30\n8\n0\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n64\n"
              "0\nVERTEX\n5\n31\n8\n0\n10\n1.0\n20\n2.0\n30\n3.0\n70\n192\n"
              "0\nVERTEX\n5\n32\n8\n0\n10\n7.5\n20\n8.5\n30\n9.5\n70\n128\n"
              "71\n1\n72\n-2\n73\n3\n"
              "0\nSEQEND\n5\n33\n8\n0\n",
              "AC1009"));
  const auto& face = Only(DWG_TYPE_VERTEX_PFACE_FACE, &EntityTio::VERTEX_PFACE_FACE);
  EXPECT_EQ(face.vertind[0], 1);
  EXPECT_EQ(face.vertind[1], -2);
  EXPECT_EQ(face.vertind[2], 3);
  EXPECT_EQ(face.vertind[3], 0);
  ASSERT_NE(face.parent->ownerhandle, nullptr);
  EXPECT_EQ(face.parent->ownerhandle->absolute_ref, 0x30U);
  EXPECT_EQ(OfType(DWG_TYPE_VERTEX_2D).size(), 1U);
}

TEST_F(DxfReaderTest, A3dPolylineWithoutSubclassesIsNo2dPolyline) {
  const std::string polyline =
      "0\nPOLYLINE\n8\n0\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n9\n"
      "0\nVERTEX\n8\n0\n10\n1.0\n20\n2.0\n30\n3.0\n70\n32\n"
      "0\nSEQEND\n8\n0\n";
  for (const char* release : {"AC1009", "AC1015"}) {
    Read(Drawing(polyline, release));
    EXPECT_TRUE(OfType(DWG_TYPE_POLYLINE_2D).empty());
    EXPECT_EQ(Only(DWG_TYPE_POLYLINE_3D, &EntityTio::POLYLINE_3D).flag, 9);
    const auto& vertex = Only(DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D);
    EXPECT_EQ(vertex.point.x, 1.0);
    EXPECT_EQ(vertex.point.z, 3.0);
  }
}

TEST_F(DxfReaderTest, APolygonMeshOfR12IsNo2dPolyline) {
  Read(
      Drawing("0\nPOLYLINE\n8\n0\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n16\n71\n2\n72\n2\n"
              "0\nSEQEND\n8\n0\n",
              "AC1009"));
  EXPECT_TRUE(OfType(DWG_TYPE_POLYLINE_2D).empty());
  EXPECT_EQ(OfType(DWG_TYPE_POLYLINE_MESH).size(), 1U);
}

TEST_F(DxfReaderTest, EntitiesOfAnotherBlockAreInModelSpace) {
  const std::string record = BlockRecords({{"50", "*Model_Space"}, {"51", "*U"}});
  for (const std::string owner : {"1F", "51"}) {
    Read(Header("AC1015") + Section("TABLES", record) + Entities(Line("330\n" + owner + "\n")) +
         "0\nEOF\n");
    EXPECT_EQ(HandleOf(OfType(DWG_TYPE_LINE).at(0)->tio.entity->ownerhandle), 0x50U) << owner;
  }
}

TEST_F(DxfReaderTest, ADimensionWithoutATypeIsARotatedOne) {
  Read(
      Drawing("0\nDIMENSION\n8\n0\n2\n*D1\n10\n1.0\n20\n2.0\n30\n0.0\n13\n3.0\n23\n4.0\n33\n0.0\n"
              "14\n5.0\n24\n6.0\n34\n0.0\n",
              "AC1009"));
  const auto& dimension = Only(DWG_TYPE_DIMENSION_LINEAR, &EntityTio::DIMENSION_LINEAR);
  EXPECT_EQ(dimension.xline1_pt.x, 3.0);
  EXPECT_EQ(dimension.xline2_pt.y, 6.0);
}

TEST_F(DxfReaderTest, AnAngularDimensionStaysOneWhateverItsGroup50) {
  Read(
      Drawing("0\nDIMENSION\n8\n0\n2\n*D1\n10\n1.0\n20\n2.0\n30\n0.0\n70\n34\n13\n3.0\n"
              "23\n4.0\n33\n0.0\n14\n5.0\n24\n6.0\n34\n0.0\n50\n0.0\n",
              "AC1009"));
  const auto& dimension = Only(DWG_TYPE_DIMENSION_ANG2LN, &EntityTio::DIMENSION_ANG2LN);
  EXPECT_EQ(dimension.xline1start_pt.x, 3.0);
  EXPECT_EQ(dimension.xline1end_pt.y, 6.0);
  EXPECT_TRUE(OfType(DWG_TYPE_DIMENSION_LINEAR).empty());
}

// An annotation context without its text, whose group 45 nobody takes.
TEST_F(DxfReaderTest, NoPairIsReadForEver) {
  Read(
      Drawing("0\nMULTILEADER\n100\nAcDbEntity\n8\n0\n100\nAcDbMLeader\n300\nCONTEXT_DATA{\n"
              "45\n1.0\n999\nx\n301\n}\n171\n1\n" +
                  Line(),
              "AC1021"));
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

// Group 176 belongs to the field before it, and the name of a style has none.
TEST_F(DxfReaderTest, AVisualStyleIsReadToItsEnd) {
  ReadAll(Header("AC1024") + Entities(Line()) +
          Section("OBJECTS",
                  "0\nVISUALSTYLE\n5\nA0\n330\n0\n100\nAcDbVisualStyle\n2\nX\n70\n4\n177\n3\n"
                  "291\n0\n176\n1\n71\n2\n176\n1\n176\n1\n") +
          "0\nEOF\n");
  EXPECT_EQ(OfType(DWG_TYPE_VISUALSTYLE).size(), 1U);
}

// What it refers to has the code of an owner, too.
TEST_F(DxfReaderTest, AProxyHasTheOwnerThatStandsFirst) {
  Read(
      Drawing("0\nACAD_PROXY_ENTITY\n5\nA0\n330\n1F\n100\nAcDbEntity\n8\n0\n"
              "100\nAcDbProxyEntity\n90\n498\n91\n500\n330\nB7\n330\n0\n94\n0\n" +
              Line()));
  ASSERT_EQ(OfType(DWG_TYPE_PROXY_ENTITY).size(), 1U);
  EXPECT_EQ(HandleOf(OfType(DWG_TYPE_PROXY_ENTITY)[0]->tio.entity->ownerhandle), 0x1FU);
}

namespace {

// Of two vertices and two elements; the fill of the first element has two parameters.
std::string Multiline(const std::string& counts) {
  const auto vertex = [](const std::string& x, const std::string& second) {
    return "11\n" + x +
           "\n21\n0.0\n31\n0.0\n12\n1.0\n22\n0.0\n32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n" +
           "74\n2\n41\n0.5\n41\n0.0\n75\n2\n42\n3.0\n42\n4.0\n" + second + "75\n0\n";
  };
  return "0\nMLINE\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbMline\n40\n1.0\n70\n0\n71\n1\n" +
         counts + "10\n0.0\n20\n0.0\n30\n0.0\n" +
         vertex("0.0", "74\n3\n41\n-0.5\n41\n0.0\n41\n7.0\n") + vertex("9.0", "74\n1\n41\n-0.25\n");
}

}  // namespace

TEST_F(DxfReaderTest, AMultilineKeepsWhereItsElementsRun) {
  Read(Drawing(Multiline("72\n2\n73\n2\n") + Line()));
  const auto& multiline = Only(DWG_TYPE_MLINE, &EntityTio::MLINE);
  ASSERT_EQ(multiline.num_verts, 2U);
  for (const Dwg_MLINE_vertex& vertex : SpanOf(multiline.verts, multiline.num_verts)) {
    ASSERT_EQ(vertex.num_lines, 2U);
    EXPECT_EQ(vertex.lines[0].segparms[0], 0.5);
    ASSERT_EQ(vertex.lines[0].num_areafillparms, 2U);
    EXPECT_EQ(vertex.lines[0].areafillparms[1], 4);
  }
  ASSERT_EQ(multiline.verts[0].lines[1].num_segparms, 3U);
  EXPECT_EQ(multiline.verts[0].lines[1].segparms[2], 7);
  EXPECT_EQ(multiline.verts[1].lines[1].segparms[0], -0.25);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, ACountOfNoElementsGivesWayToALaterOne) {
  Read(Drawing(Multiline("72\n2\n73\n0\n73\n2\n") + Line()));
  const auto& multiline = Only(DWG_TYPE_MLINE, &EntityTio::MLINE);
  ASSERT_EQ(multiline.num_verts, 2U);
  ASSERT_EQ(multiline.verts[1].num_lines, 2U);
  EXPECT_EQ(multiline.verts[1].lines[1].segparms[0], -0.25);
}

namespace {

std::string TextWithColumns(const std::string& columns, const std::string& release) {
  return Drawing(
      "0\nMTEXT\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbMText\n10\n1.0\n20\n2.0\n30\n0.0\n"
      "40\n2.5\n41\n30.0\n71\n1\n72\n5\n1\ntext\n73\n1\n44\n1.0\n101\nEmbedded Object\n"
      "70\n1\n10\n1.0\n20\n0.0\n30\n0.0\n11\n8.0\n21\n8.0\n31\n0.0\n40\n31.0\n41\n9.0\n" +
          columns + Line(),
      release);
}

}  // namespace

TEST_F(DxfReaderTest, ATextHasTheColumnsOfItsEmbeddedObject) {
  const std::string columns = "71\n2\n72\n2\n44\n14.0\n45\n1.5\n73\n0\n74\n1\n46\n4.0\n46\n5.0\n";
  Read(TextWithColumns(columns, "AC1032"));
  const auto& text = Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  EXPECT_EQ(text.column_type, 2U);
  EXPECT_EQ(text.numfragments, 2U);
  EXPECT_EQ(text.column_width, 14);
  EXPECT_EQ(text.gutter, 1.5);
  EXPECT_EQ(text.auto_height, 0);
  EXPECT_EQ(text.flow_reversed, 1);
  ASSERT_EQ(text.num_column_heights, 2U);
  EXPECT_EQ(text.column_heights[1], 5);
  EXPECT_EQ(text.ins_pt.x, 1);
  EXPECT_EQ(text.rect_width, 30);
  EXPECT_EQ(text.attachment, 1U);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, OnlyDynamicColumnsHaveHeights) {
  Read(TextWithColumns("71\n2\n72\n1\n73\n0\n46\n4.0\n71\n1\n73\n1\n", "AC1032"));
  const auto& text = Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  EXPECT_EQ(text.column_type, 2U);
  EXPECT_EQ(text.auto_height, 0);
  Read(TextWithColumns("71\n1\n72\n3\n73\n0\n46\n4.0\n", "AC1032"));
  EXPECT_EQ(Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT).num_column_heights, 0U);
  Read(TextWithColumns("71\n7\n72\n3\n", "AC1032"));
  EXPECT_EQ(Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT).column_type, 0U);
}

TEST_F(DxfReaderTest, ALeaderTellsWhetherItNamesItsArrow) {
  const auto read = [this](const std::string& arrow) -> const Dwg_Entity_LEADER& {
    Read(Drawing("0\nLEADER\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbLeader\n3\nS\n" + arrow +
                 "72\n0\n76\n2\n10\n0.0\n20\n0.0\n30\n0.0\n10\n1.0\n20\n0.0\n30\n0.0\n" + Line()));
    return Only(DWG_TYPE_LEADER, &EntityTio::LEADER);
  };
  EXPECT_EQ(read("").unknown_bit_1, 0);
  EXPECT_EQ(read("").arrowhead_on, 0);
  EXPECT_EQ(read("71\n0\n").unknown_bit_1, 1);
  EXPECT_EQ(read("71\n0\n").arrowhead_on, 0);
  EXPECT_EQ(read("71\n1\n").arrowhead_on, 1);
  EXPECT_EQ(read("71\n1\n").num_points, 2U);
}

TEST_F(DxfReaderTest, ASolidHasTheHeightOfItsFirstCorner) {
  Read(
      Drawing("0\nSOLID\n5\nA0\n8\n0\n10\n0.0\n20\n0.0\n30\n2.5\n11\n1.0\n21\n0.0\n31\n2.5\n"
              "12\n0.0\n22\n1.0\n32\n2.5\n13\n1.0\n23\n1.0\n33\n2.5\n" +
              Line()));
  ASSERT_EQ(OfType(DWG_TYPE_SOLID).size(), 1U);
  const auto* solid = EntityData(*OfType(DWG_TYPE_SOLID)[0], &EntityTio::SOLID);
  ASSERT_NE(solid, nullptr);
  EXPECT_EQ(solid->elevation, 2.5);
  EXPECT_EQ(solid->corner4.y, 1);
}

TEST_F(DxfReaderTest, AHatchHasThePathsThatItHas) {
  const std::string path =
      "92\n2\n72\n0\n73\n1\n93\n9\n10\n0.0\n20\n0.0\n10\n4.0\n20\n0.0\n10\n4.0\n20\n4.0\n97\n0\n";
  Read(
      Drawing("0\nHATCH\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0.0\n20\n0.0\n30\n0.0\n"
              "2\nSOLID\n70\n1\n71\n0\n91\n90000000\n" +
              path + path + "75\n0\n76\n1\n98\n0\n" + Line()));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 2U);
  EXPECT_EQ(hatch.paths[0].num_segs_or_paths, 3U);
  EXPECT_EQ(hatch.paths[1].num_segs_or_paths, 3U);
  EXPECT_EQ(hatch.paths[1].polyline_paths[2].point.y, 4.0);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

}  // namespace

namespace {

// A path of a hatch with these edges.
std::string HatchOfEdges(int count, const std::string& edges, const std::string& handles) {
  return Drawing(
      "0\nHATCH\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0.0\n20\n0.0\n30\n0.0\n"
      "2\nSOLID\n70\n1\n71\n0\n91\n1\n92\n1\n93\n" +
          std::to_string(count) + "\n" + edges + handles + "75\n0\n76\n1\n98\n0\n" + Line(),
      "AC1024");
}

// A straight one of two control points; `fitCount` is what it says of its fit points.
std::string SplineEdge(const std::string& weights, int fitCount, const std::string& fitPoints) {
  return "72\n4\n94\n1\n73\n" + std::string(weights.empty() ? "0" : "1") +
         "\n74\n0\n95\n4\n96\n2\n40\n0.0\n40\n0.0\n40\n1.0\n40\n1.0\n10\n1.0\n20\n2.0\n"
         "10\n3.0\n20\n4.0\n" +
         weights + "97\n" + std::to_string(fitCount) + "\n" + fitPoints;
}

constexpr const char* kStraightEdge = "72\n1\n10\n5.0\n20\n6.0\n11\n7.0\n21\n8.0\n";
constexpr const char* kFitPointsAndTangents =
    "11\n1.0\n21\n2.0\n11\n3.0\n21\n4.0\n12\n0.5\n22\n0.0\n13\n0.0\n23\n0.25\n";

}  // namespace

TEST_F(DxfReaderTest, ASplineOfAHatchHasItsWeights) {
  Read(
      Drawing("0\nHATCH\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0.0\n20\n0.0\n30\n0.0\n2\nX\n"
              "70\n1\n71\n0\n91\n1\n92\n1\n93\n1\n72\n4\n94\n1\n73\n1\n74\n0\n95\n4\n96\n2\n"
              "40\n0.0\n40\n0.0\n40\n1.0\n40\n1.0\n10\n0.0\n20\n0.0\n10\n5.0\n20\n0.0\n"
              "42\n2.0\n42\n3.0\n42\n4.0\n97\n0\n75\n0\n76\n1\n98\n0\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 1U);
  ASSERT_EQ(hatch.paths[0].num_segs_or_paths, 1U);
  const Dwg_HATCH_PathSeg& spline = hatch.paths[0].segs[0];
  ASSERT_EQ(spline.num_control_points, 2U);
  EXPECT_EQ(spline.control_points[0].weight, 2.0);
  EXPECT_EQ(spline.control_points[1].weight, 3.0);
  EXPECT_EQ(spline.control_points[1].point.x, 5.0);
}

TEST_F(DxfReaderTest, APolylineHasItsHeight) {
  Read(
      Drawing("0\nPOLYLINE\n100\nAcDbEntity\n8\n0\n100\nAcDb2dPolyline\n66\n1\n10\n0.0\n20\n0.0\n"
              "30\n7.0\n70\n1\n0\nVERTEX\n8\n0\n10\n1.0\n20\n2.0\n30\n7.0\n0\nSEQEND\n8\n0\n"));
  EXPECT_EQ(Only(DWG_TYPE_POLYLINE_2D, &EntityTio::POLYLINE_2D).elevation, 7.0);
}

TEST_F(DxfReaderTest, AMultileaderHasTheAttributesOfItsBlock) {
  Read(
      Drawing("0\nMULTILEADER\n5\n50\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbMLeader\n270\n2\n"
              "300\nCONTEXT_DATA{\n40\n1.0\n301\n}\n176\n0\n293\n0\n330\n92\n177\n1\n44\n2.5\n"
              "302\nA7\n330\n93\n177\n2\n302\nB8\n294\n0\n178\n0\n179\n1\n45\n3.0\n",
              "AC1027"));
  const auto& leader = Only(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER);
  ASSERT_EQ(leader.num_blocklabels, 2U);
  EXPECT_EQ(HandleOf(leader.blocklabels[0].attdef), 0x92U);
  EXPECT_EQ(leader.blocklabels[0].width, 2.5);
  EXPECT_EQ(leader.blocklabels[0].ui_index, 1);
  EXPECT_EQ(HandleOf(leader.blocklabels[1].attdef), 0x93U);
  EXPECT_EQ(leader.scale_factor, 3.0);
}

TEST_F(DxfReaderTest, AHelixHasItsCurveAndItsAxis) {
  Read(Header("AC1024") + Class("HELIX", "AcDbHelix") +
       Entities("0\nHELIX\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbSpline\n70\n0\n71\n1\n72\n4\n"
                "73\n2\n74\n0\n40\n0.0\n40\n0.0\n40\n1.0\n40\n1.0\n10\n3.0\n20\n0.0\n30\n0.0\n"
                "10\n3.0\n20\n1.0\n30\n2.0\n100\nAcDbHelix\n90\n29\n91\n63\n10\n0.5\n20\n0.0\n"
                "30\n0.0\n11\n3.0\n21\n0.0\n31\n0.0\n12\n0.0\n22\n0.0\n32\n1.0\n40\n2.5\n41\n4.0\n"
                "42\n2.0\n290\n1\n280\n1\n") +
       "0\nEOF\n");
  const auto& helix = Only(DWG_TYPE_HELIX, &EntityTio::HELIX);
  ASSERT_EQ(helix.num_knots, 4U);
  ASSERT_EQ(helix.num_ctrl_pts, 2U);
  ASSERT_NE(helix.ctrl_pts, nullptr);
  EXPECT_EQ(helix.degree, 1);
  EXPECT_EQ(helix.ctrl_pts[1].z, 2.0);
  EXPECT_EQ(helix.axis_base_pt.x, 0.5);
  EXPECT_EQ(helix.axis_vector.z, 1.0);
  EXPECT_EQ(helix.radius, 2.5);
  EXPECT_EQ(helix.turns, 4.0);
  EXPECT_EQ(helix.turn_height, 2.0);
  EXPECT_EQ(helix.handedness, 1);
}

// Programs write either group in files of any release.
TEST_F(DxfReaderTest, AViewportHasItsFrozenLayersInEitherGroup) {
  for (const char* release : {"AC1015", "AC1021"}) {
    Read(
        Drawing("0\nVIEWPORT\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbViewport\n10\n0.0\n20\n0.0\n"
                "30\n0.0\n40\n1.0\n41\n1.0\n331\n10\n341\n11\n",
                release));
    const auto& viewport = Only(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT);
    ASSERT_EQ(viewport.num_frozen_layers, 2U) << release;
    EXPECT_EQ(HandleOf(viewport.frozen_layers[0]), 0x10U);
    EXPECT_EQ(HandleOf(viewport.frozen_layers[1]), 0x11U);
  }
}

TEST_F(DxfReaderTest, AnAttributesKindLeavesTheTextAsItIs) {
  Read(
      Drawing("0\nATTDEF\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n0.0\n20\n0.0\n30\n0.0\n"
              "40\n1.0\n1\nx\n71\n6\n72\n1\n100\nAcDbAttributeDefinition\n3\nask\n2\nTAG\n"
              "70\n0\n71\n4\n72\n0\n",
              "AC1032"));
  const auto& definition = Only(DWG_TYPE_ATTDEF, &EntityTio::ATTDEF);
  EXPECT_EQ(definition.generation, 6);
  EXPECT_EQ(definition.horiz_alignment, 1);
  EXPECT_EQ(definition.mtext_type, 4);
}

TEST_F(DxfReaderTest, ATextWithColumnsHasItsExtents) {
  Read(
      Drawing("0\nMTEXT\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbMText\n10\n0.0\n20\n0.0\n30\n0.0\n"
              "40\n1.0\n1\nx\n101\nEmbedded Object\n42\n32.0\n43\n20.0\n71\n2\n72\n0\n44\n10.0\n"
              "45\n1.0\n73\n1\n74\n0\n",
              "AC1032"));
  const auto& mtext = Only(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  EXPECT_EQ(mtext.extents_width, 32.0);
  EXPECT_EQ(mtext.extents_height, 20.0);
}

// A DWG of these releases has room for 48 bytes of a description.
TEST_F(DxfReaderTest, OldTableRecordsKeepTheirTexts) {
  const std::string description(60, 'x');
  Read(Header("AC1009") +
       Section("TABLES", "0\nTABLE\n2\nLTYPE\n70\n1\n0\nLTYPE\n2\nLONG\n70\n0\n3\n" + description +
                             "\n72\n65\n73\n0\n40\n0.0\n0\nENDTAB\n"
                             "0\nTABLE\n2\nDIMSTYLE\n70\n2\n"
                             "0\nDIMSTYLE\n2\nA\n70\n0\n3\n\n5\nDECK\n6\nB1\n7\nB2\n"
                             "0\nDIMSTYLE\n2\nB\n70\n0\n5\n\n40\n1.0\n0\nENDTAB\n") +
       "0\nEOF\n");
  const auto linetypes = OfType(DWG_TYPE_LTYPE);
  ASSERT_FALSE(linetypes.empty());
  const auto* linetype = ObjectData(*linetypes.back(), &ObjectTio::LTYPE);
  ASSERT_NE(linetype, nullptr);
  EXPECT_STREQ(linetype->description, description.c_str());
  std::vector<std::string> arrows;
  for (const Dwg_Object* object : OfType(DWG_TYPE_DIMSTYLE)) {
    const auto* style = ObjectData(*object, &ObjectTio::DIMSTYLE);
    arrows.emplace_back(style == nullptr || style->DIMBLK_T == nullptr ? "" : style->DIMBLK_T);
  }
  EXPECT_EQ(arrows, (std::vector<std::string>{"DECK", ""}));
}

// Two paths, the second an edge, behind which groups 11 and 21 are the offset.
TEST_F(DxfReaderTest, AnMpolygonIsReadAsAHatch) {
  Read(
      Drawing("0\nMPOLYGON\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbMPolygon\n70\n1\n10\n0.0\n"
              "20\n0.0\n30\n0.0\n2\nANSI31\n71\n0\n91\n2\n92\n3\n73\n1\n72\n1\n93\n2\n"
              "10\n1.0\n20\n2.0\n42\n1.0\n10\n3.0\n20\n4.0\n42\n0.0\n"
              "92\n1\n93\n1\n72\n1\n10\n5.0\n20\n6.0\n11\n7.0\n21\n8.0\n"
              "76\n1\n52\n90.0\n41\n2.0\n77\n1\n78\n1\n53\n45.0\n43\n0.0\n44\n0.0\n45\n1.0\n"
              "46\n1.0\n79\n0\n63\n5\n11\n0.5\n21\n0.5\n99\n0\n450\n0\n453\n0\n" +
              Line()));
  ASSERT_EQ(OfType(DWG_TYPE_HATCH).size(), 1U);
  EXPECT_STREQ(OfType(DWG_TYPE_HATCH)[0]->dxfname, "MPOLYGON");
  const auto& polygon = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(polygon.num_paths, 2U);
  EXPECT_EQ(polygon.paths[0].closed, 1);
  ASSERT_EQ(polygon.paths[0].num_segs_or_paths, 2U);
  EXPECT_EQ(polygon.paths[0].polyline_paths[0].bulge, 1.0);
  ASSERT_EQ(polygon.paths[1].num_segs_or_paths, 1U);
  EXPECT_EQ(polygon.paths[1].segs[0].second_endpoint.x, 7.0);
  EXPECT_EQ(polygon.scale_spacing, 2.0);
  EXPECT_EQ(polygon.double_flag, 1);
  ASSERT_EQ(polygon.num_deflines, 1U);
  EXPECT_EQ(polygon.deflines[0].offset.x, 1.0);
  ASSERT_EQ(polygon.num_colors, 1U);
  EXPECT_EQ(polygon.colors[0].color.index, 5);
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, TheGradientOfAnMpolygonTakesThePlaceOfItsColour) {
  Read(
      Drawing("0\nMPOLYGON\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbMPolygon\n70\n1\n10\n0.0\n"
              "20\n0.0\n30\n0.0\n2\nSOLID\n71\n1\n91\n0\n76\n1\n63\n5\n450\n1\n453\n2\n463\n0.0\n"
              "63\n1\n421\n255\n463\n1.0\n63\n2\n421\n65280\n470\nLINEAR\n"));
  const auto& polygon = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(polygon.num_colors, 2U);
  EXPECT_EQ(polygon.colors[0].color.index, 1);
  EXPECT_EQ(polygon.colors[1].color.rgb, 65280U);
}

// A file of these releases need not have an entry for it.
TEST_F(DxfReaderTest, AnOldEntityKeepsTheLineTypeOfItsBlock) {
  Read(Drawing("0\nPOINT\n8\n0\n6\nBYBLOCK\n10\n0.0\n20\n0.0\n30\n0.0\n", "AC1009"));
  ASSERT_EQ(OfType(DWG_TYPE_POINT).size(), 1U);
  EXPECT_EQ(OfType(DWG_TYPE_POINT)[0]->tio.entity->ltype_flags, 1);
}

TEST_F(DxfReaderTest, TheDataOfAProxyAreNotItsGraphics) {
  Read(Drawing(
      "0\nACAD_PROXY_ENTITY\n5\nA0\n330\n1F\n100\nAcDbEntity\n8\n0\n"
      "100\nAcDbProxyEntity\n90\n498\n91\n500\n92\n4\n310\n01020304\n93\n32\n310\n0A0B0C0D\n"
      "94\n0\n",
      "AC1014"));
  ASSERT_EQ(OfType(DWG_TYPE_PROXY_ENTITY).size(), 1U);
  const Dwg_Object_Entity& entity = *OfType(DWG_TYPE_PROXY_ENTITY)[0]->tio.entity;
  ASSERT_EQ(entity.preview_size, 4U);
  EXPECT_EQ(entity.preview[0], 1);
  EXPECT_EQ(entity.preview[3], 4);
}

TEST_F(DxfReaderTest, EdgesOfAHatchGoOnBehindTheTangentsOfASpline) {
  Read(HatchOfEdges(2, SplineEdge("", 2, kFitPointsAndTangents) + kStraightEdge,
                    "97\n1\n330\n20\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 1U);
  const Dwg_HATCH_Path& path = hatch.paths[0];
  ASSERT_EQ(path.num_segs_or_paths, 2U);
  EXPECT_EQ(path.segs[0].curve_type, 4);
  EXPECT_EQ(path.segs[0].end_tangent.y, 0.25);
  EXPECT_EQ(path.segs[1].curve_type, 1);
  EXPECT_EQ(path.segs[1].second_endpoint.y, 8.0);
  EXPECT_EQ(path.num_boundary_handles, 1U);
}

TEST_F(DxfReaderTest, TheTangentsOfAHatchsLastSplineEndThePath) {
  Read(HatchOfEdges(2, kStraightEdge + SplineEdge("", 2, kFitPointsAndTangents),
                    "97\n1\n330\n20\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 1U);
  const Dwg_HATCH_Path& path = hatch.paths[0];
  ASSERT_EQ(path.num_segs_or_paths, 2U);
  ASSERT_EQ(path.segs[1].num_fitpts, 2U);
  EXPECT_EQ(path.segs[1].fitpts[1].x, 3.0);
  EXPECT_EQ(path.num_boundary_handles, 1U);
}

TEST_F(DxfReaderTest, WeightsOfASplineOfAHatchStandBehindTheirPoints) {
  std::string edge = SplineEdge("", 0, "");
  edge.replace(edge.find("73\n0"), 4, "73\n1");
  edge.insert(edge.find("10\n3.0"), "42\n2.0\n");
  edge.insert(edge.find("97\n"), "42\n0.5\n");
  Read(HatchOfEdges(1, edge, "97\n0\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 1U);
  const Dwg_HATCH_PathSeg& spline = hatch.paths[0].segs[0];
  EXPECT_EQ(spline.control_points[0].weight, 2.0);
  EXPECT_EQ(spline.control_points[1].weight, 0.5);
}

TEST_F(DxfReaderTest, FitPointsBeyondTheirCountAreNotFreedTwice) {
  ResultOf(HatchOfEdges(1, SplineEdge("", 1, kFitPointsAndTangents), "97\n0\n"));
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, AHatchHasTheEdgesThatItHas) {
  Read(HatchOfEdges(1, std::string(kStraightEdge) + kStraightEdge + kStraightEdge, "97\n0\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_paths, 1U);
  ASSERT_EQ(hatch.paths[0].num_segs_or_paths, 3U);
  EXPECT_EQ(hatch.paths[0].segs[2].second_endpoint.y, 8.0);
}

// The code 63 is none that a cell has.
TEST_F(DxfReaderTest, CellsOfATableGoOnBehindAnUnexpectedCode) {
  Read(Header("AC1021") + Class("ACAD_TABLE", "AcDbTable") +
       Entities("0\nACAD_TABLE\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n10\n0.0\n"
                "20\n0.0\n30\n0.0\n100\nAcDbTable\n91\n1\n92\n2\n141\n1.0\n142\n1.0\n142\n1.0\n"
                "171\n1\n1\nfirst\n63\n5\n302\nFIRST\n171\n1\n1\nsecond\n") +
       "0\nEOF\n");
  const auto& table = Only(DWG_TYPE_TABLE, &EntityTio::TABLE);
  ASSERT_EQ(table.num_cells, 2U);
  EXPECT_STREQ(table.cells[0].text_value, "first");
  EXPECT_STREQ(table.cells[0].value.value_string, "FIRST");
  EXPECT_STREQ(table.cells[1].text_value, "second");
}

TEST_F(DxfReaderTest, MeshKeepsItsCreases) {
  Read(Header("AC1024") + Class("MESH", "AcDbSubDMesh") +
       Entities("0\nMESH\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbSubDMesh\n71\n2\n72\n0\n91\n0\n"
                "92\n2\n10\n0.0\n20\n0.0\n30\n0.0\n10\n1.0\n20\n0.0\n30\n0.0\n93\n3\n90\n2\n90\n0\n"
                "90\n1\n94\n1\n90\n0\n90\n1\n95\n1\n140\n0.5\n90\n0\n") +
       "0\nEOF\n");
  const auto& mesh = Only(DWG_TYPE_MESH, &EntityTio::MESH);
  ASSERT_EQ(mesh.num_crease, 1U);
  EXPECT_EQ(mesh.crease[0], 0.5);
}

TEST_F(DxfReaderTest, DimensionStyleTellsWhichVariablesItHas) {
  const auto style = [](const std::string& name, const std::string& variables) {
    return "0\nDIMSTYLE\n105\n" + name +
           "\n100\nAcDbSymbolTableRecord\n100\nAcDbDimStyleTableRecord\n2\nS" + name + "\n70\n0\n" +
           variables;
  };
  Read(Header("AC1015") +
       Section("TABLES", "0\nTABLE\n2\nDIMSTYLE\n5\nA\n100\nAcDbSymbolTable\n70\n2\n" +
                             style("51", "") + style("52", "140\n0.0\n271\n0\n272\n0\n") +
                             "0\nENDTAB\n") +
       "0\nEOF\n");
  std::vector<int> flags;
  for (const Dwg_Object* object : OfType(DWG_TYPE_DIMSTYLE)) {
    if (const auto* data = ObjectData(*object, &ObjectTio::DIMSTYLE)) {
      flags.push_back(data->flag0);
    }
  }
  EXPECT_EQ(flags, (std::vector<int>{0, 2 + 4 + 8}));
}
