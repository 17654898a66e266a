// The values that our patches to LibreDWG's DXF reader bring to the right field.
#include <dwg_dxf_text.h>

#include <numbers>

#include "dxf_reader_fixture.hpp"

namespace {

constexpr double kThirtyDegrees = std::numbers::pi / 6;

std::string Multileader(const std::string& context, const std::string& behind = "") {
  return Drawing(
      "0\nMULTILEADER\n5\n50\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbMLeader\n"
      "300\nCONTEXT_DATA{\n40\n1.0\n" +
          context + "301\n}\n" + behind + Line(),
      "AC1024");
}

TEST_F(DxfReaderTest, AMultileaderHasEveryLineWithAllItsPoints) {
  const std::string lines =
      "304\nLEADER_LINE{\n10\n1.0\n20\n2.0\n30\n0.0\n10\n3.0\n20\n4.0\n30\n0.0\n91\n0\n305\n}\n"
      "304\nLEADER_LINE{\n10\n5.0\n20\n6.0\n30\n0.0\n91\n1\n305\n}\n";
  const std::string leader =
      "302\nLEADER{\n290\n1\n291\n1\n10\n9.0\n20\n8.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n"
      "90\n0\n40\n2.5\n" +
      lines + "303\n}\n";
  Read(Multileader(leader + leader));
  const auto& context = Only(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER).ctx;
  ASSERT_EQ(context.num_leaders, 2U);
  for (const Dwg_LEADER_Node& node : SpanOf(context.leaders, context.num_leaders)) {
    ASSERT_EQ(node.num_lines, 2U);
    ASSERT_EQ(node.lines[0].num_points, 2U);
    EXPECT_EQ(node.lines[0].points[1].y, 4.0);
    ASSERT_EQ(node.lines[1].num_points, 1U);
    EXPECT_EQ(node.lines[1].points[0].x, 5.0);
    EXPECT_EQ(node.lastleaderlinepoint.x, 9.0);
  }
  EXPECT_EQ(OfType(DWG_TYPE_LINE).size(), 1U);
}

TEST_F(DxfReaderTest, ARotatedDimensionKeepsItsRotation) {
  Read(
      Drawing("0\nDIMENSION\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbDimension\n2\n*D1\n10\n1.0\n"
              "20\n2.0\n30\n0.0\n70\n32\n100\nAcDbAlignedDimension\n13\n3.0\n23\n4.0\n33\n0.0\n"
              "14\n5.0\n24\n6.0\n34\n0.0\n50\n30.0\n100\nAcDbRotatedDimension\n"));
  const auto& dimension = Only(DWG_TYPE_DIMENSION_LINEAR, &EntityTio::DIMENSION_LINEAR);
  EXPECT_DOUBLE_EQ(dimension.dim_rotation, kThirtyDegrees);
  EXPECT_EQ(dimension.oblique_angle, 0.0);
}

TEST_F(DxfReaderTest, ABlockAttributeIsNotTheOwnerOfItsMultileader) {
  const std::string spaces =
      Section("TABLES", BlockRecords({{"1F", "*Model_Space"}, {"1B", "*Paper_Space"}}));
  std::string drawing = Multileader("", "330\n92\n177\n1\n44\n2.5\n302\nA7\n");
  drawing.insert(drawing.find("0\nSECTION\n2\nENTITIES"), spaces);
  drawing.replace(drawing.find("330\n1F"), 6, "330\n1B");
  Read(drawing);
  const Dwg_Object& leader = *OfType(DWG_TYPE_MULTILEADER).at(0);
  EXPECT_EQ(HandleOf(leader.tio.entity->ownerhandle), 0x1BU);
}

// The colour of the text is a palette's 5, that of its background by layer.
TEST_F(DxfReaderTest, TheTextOfAMultileaderIsTurnedByRadians) {
  Read(Multileader("290\n1\n304\nwords\n42\n0.5\n90\n-1023410171\n91\n-1073741824\n"));
  const auto& text = Only(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER).ctx.content.txt;
  EXPECT_EQ(text.rotation, 0.5);
}

TEST_F(DxfReaderTest, TheColoursOfAMultileadersTextAreWords) {
  Read(Multileader("290\n1\n304\nwords\n90\n-1023410171\n91\n-1073741824\n"));
  const auto& text = Only(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER).ctx.content.txt;
  EXPECT_EQ(text.color.rgb, 0xC3000005U);
  EXPECT_EQ(text.color.index, 5);
  EXPECT_EQ(text.bg_color.rgb, 0xC0000000U);
}

TEST_F(DxfReaderTest, TheBlockOfAMultileaderStandsWhereItStands) {
  Read(
      Multileader("290\n0\n296\n1\n341\n40\n14\n0.0\n24\n0.0\n34\n1.0\n15\n7.0\n25\n8.0\n35\n9.0\n"
                  "46\n0.5\n"));
  const auto& block = Only(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER).ctx.content.blk;
  EXPECT_EQ(block.location.x, 7.0);
  EXPECT_EQ(block.location.y, 8.0);
  EXPECT_EQ(block.location.z, 9.0);
  EXPECT_EQ(block.normal.x, 0.0);
  EXPECT_EQ(block.normal.z, 1.0);
  EXPECT_EQ(block.rotation, 0.5);
}

// A caret code, and a character of two bytes whose second one is a caret.
TEST_F(DxfReaderTest, TextsComeAsTheyAreStoredForThoseWhoAsk) {
  const std::string stored = "a^Jb\\M+182A0c";
  const std::string drawing =
      Drawing("0\nTEXT\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\n" + stored + "\n");
  dwg_dxf_keep_text_codes(1);
  Read(drawing);
  dwg_dxf_keep_text_codes(0);
  EXPECT_EQ(Only(DWG_TYPE_TEXT, &EntityTio::TEXT).text_value, stored);
  Read(drawing);
  EXPECT_STREQ(Only(DWG_TYPE_TEXT, &EntityTio::TEXT).text_value, "a\nb\\U+3042c");
}

std::string FilterValues(int first, int count) {
  std::string values;
  for (int i = 0; i < count; ++i) {
    values += "40\n" + std::to_string(first + i) + ".0\n";
  }
  return values;
}

TEST_F(DxfReaderTest, AFilterHasItsBoundaryAndItsMatrices) {
  constexpr int kMatrix = 12;
  ReadAll(Header("AC1015") + Entities(Line()) +
          Section("OBJECTS",
                  "0\nSPATIAL_FILTER\n5\nA0\n330\n0\n100\nAcDbFilter\n100\nAcDbSpatialFilter\n"
                  "70\n2\n10\n1.0\n20\n2.0\n10\n3.0\n20\n4.0\n210\n0.0\n220\n0.0\n230\n1.0\n"
                  "11\n5.0\n21\n6.0\n31\n7.0\n71\n1\n72\n1\n40\n0.25\n73\n0\n" +
                      FilterValues(100, kMatrix) + FilterValues(200, kMatrix)) +
          "0\nEOF\n");
  const auto found = OfType(DWG_TYPE_SPATIAL_FILTER);
  ASSERT_EQ(found.size(), 1U);
  const auto* filter = ObjectData(*found[0], &ObjectTio::SPATIAL_FILTER);
  ASSERT_NE(filter, nullptr);
  ASSERT_EQ(filter->num_clip_verts, 2U);
  EXPECT_EQ(filter->clip_verts[0].x, 1.0);
  EXPECT_EQ(filter->clip_verts[1].y, 4.0);
  EXPECT_EQ(filter->origin.x, 5.0);
  EXPECT_EQ(filter->front_clip_z, 0.25);
  ASSERT_NE(filter->inverse_transform, nullptr);
  ASSERT_NE(filter->transform, nullptr);
  EXPECT_EQ(filter->inverse_transform[kMatrix - 1], 111.0);
  EXPECT_EQ(filter->transform[0], 200.0);
}

TEST_F(DxfReaderTest, AVertexTellsAMissingWidthFromNone) {
  const std::string begin = "0\nVERTEX\n100\nAcDbEntity\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n";
  const auto read = [&](const std::string& widths) -> const Dwg_Entity_VERTEX_2D& {
    Read(
        Drawing("0\nPOLYLINE\n100\nAcDbEntity\n8\n0\n100\nAcDb2dPolyline\n66\n1\n10\n0.0\n20\n0.0\n"
                "30\n0.0\n40\n0.5\n41\n0.5\n" +
                begin + widths + "0\nSEQEND\n8\n0\n"));
    return Only(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D);
  };
  EXPECT_EQ(read("").start_width, -1.0);
  EXPECT_EQ(read("").end_width, -1.0);
  EXPECT_EQ(read("40\n0.0\n41\n0.25\n").start_width, 0.0);
  EXPECT_EQ(read("40\n0.0\n41\n0.25\n").end_width, 0.25);
}

TEST_F(DxfReaderTest, ASeedOfAHatchMayHaveACoordinateOf0) {
  Read(
      Drawing("0\nHATCH\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0.0\n20\n0.0\n30\n0.0\n"
              "2\nSOLID\n70\n1\n71\n0\n91\n1\n92\n2\n72\n0\n73\n1\n93\n3\n10\n0.0\n20\n0.0\n"
              "10\n4.0\n20\n0.0\n10\n4.0\n20\n4.0\n97\n0\n75\n0\n76\n1\n98\n2\n10\n0.0\n20\n5.0\n"
              "10\n6.0\n20\n0.0\n"));
  const auto& hatch = Only(DWG_TYPE_HATCH, &EntityTio::HATCH);
  ASSERT_EQ(hatch.num_seeds, 2U);
  EXPECT_EQ(hatch.seeds[0].x, 0.0);
  EXPECT_EQ(hatch.seeds[0].y, 5.0);
  EXPECT_EQ(hatch.seeds[1].x, 6.0);
  EXPECT_EQ(hatch.seeds[1].y, 0.0);
}

TEST_F(DxfReaderTest, ATableMayHaveOneRowAndOneColumn) {
  Read(Header("AC1021") + Class("ACAD_TABLE", "AcDbTable") +
       Entities("0\nACAD_TABLE\n5\n50\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n10\n0.0\n"
                "20\n0.0\n30\n0.0\n100\nAcDbTable\n91\n1\n92\n1\n141\n1.5\n142\n2.5\n"
                "171\n1\n1\nonly\n") +
       "0\nEOF\n");
  const auto& table = Only(DWG_TYPE_TABLE, &EntityTio::TABLE);
  ASSERT_NE(table.row_heights, nullptr);
  ASSERT_NE(table.col_widths, nullptr);
  EXPECT_EQ(table.row_heights[0], 1.5);
  EXPECT_EQ(table.col_widths[0], 2.5);
}

// What the count behind the dashes says, or a second run of them, made the reader free
// what is not there.
TEST_F(DxfReaderTest, ALinetypeHasTheDashesThatItHas) {
  const std::string dashes = "49\n2.0\n74\n0\n49\n-1.0\n74\n0\n";
  const std::string length = "40\n3.0\n";
  const std::string halves = "49\n2.0\n74\n0\n73\n6\n" + length + "49\n-1.0\n";
  const std::vector<std::string> contents = {"73\n2\n" + length + dashes,
                                             "73\n1\n" + length + dashes,
                                             "73\n9\n" + length + dashes,
                                             dashes + "73\n9\n" + length,
                                             dashes + length,
                                             halves};
  for (const std::string& content : contents) {
    Read(Header("AC1015") +
         Section("TABLES",
                 "0\nTABLE\n2\nLTYPE\n5\n5\n70\n1\n0\nLTYPE\n5\n31\n100\n"
                 "AcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n2\nX\n70\n0\n3\n"
                 "dashed\n72\n65\n" +
                     content + "0\nENDTAB\n") +
         Entities(Line()) + "0\nEOF\n");
    const auto found = OfType(DWG_TYPE_LTYPE);
    ASSERT_EQ(found.size(), 1U);
    const auto* type = ObjectData(*found[0], &ObjectTio::LTYPE);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->pattern_len, 3.0) << content;
    ASSERT_EQ(type->numdashes, 2U) << content;
    EXPECT_EQ(type->dashes[0].length, 2.0);
    EXPECT_EQ(type->dashes[1].length, -1.0);
  }
}

}  // namespace
