// Further keys of block references, leaders and multileaders, the draw order, and the
// boundary of clips.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/complete_drawing.hpp"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// Extended data in the structs of the library.
class ExtendedData {
 public:
  explicit ExtendedData(CompleteDrawing& drawing) : drawing_(drawing) {}

  ExtendedData& Text(const std::string& text) {
    Dwg_Eed_Data& value = Add(0);
    value.u.eed_0.length = static_cast<BITCODE_RS>(text.size());
    std::memcpy(value.u.eed_0.string, text.data(), text.size());
    return *this;
  }
  ExtendedData& Bracket(bool closes) {
    Add(2).u.eed_2.close = closes ? 1 : 0;
    return *this;
  }
  ExtendedData& HandleValue(Handle handle) {
    Add(5).u.eed_5.entity = handle;
    return *this;
  }
  ExtendedData& Real(double real) {
    Add(40).u.eed_40.real = real;
    return *this;
  }
  ExtendedData& Short(unsigned number) {
    Add(70).u.eed_70.rs = static_cast<BITCODE_RS>(number);
    return *this;
  }
  ExtendedData& Long(unsigned number) {
    Add(71).u.eed_71.rl = number;
    return *this;
  }
  ExtendedData& Point(double x, double y, double z) {
    Add(10).u.eed_10.point = {x, y, z};
    return *this;
  }

  // The first value names the application, as in a DXF.
  template <typename Owner>
  void AttachTo(Owner& owner, Handle application) {
    items_.front().handle.value = application;
    owner.num_eed = static_cast<BITCODE_BL>(items_.size());
    owner.eed = drawing_.Array(items_);
  }

 private:
  Dwg_Eed_Data& Add(unsigned code) {
    constexpr std::size_t kRoom = 64;
    auto* value = reinterpret_cast<Dwg_Eed_Data*>(drawing_.Array(std::vector<char>(kRoom)));
    value->code = static_cast<BITCODE_RC>(code);
    Dwg_Eed item{};
    item.data = value;
    items_.push_back(item);
    return *value;
  }

  CompleteDrawing& drawing_;
  std::vector<Dwg_Eed> items_;
};

class ReferenceKeysTest : public testing::Test {
 protected:
  static constexpr Handle kApplication = 0x12;

  void AddApplication(const std::string& name) {
    drawing_.AddObject(DWG_TYPE_APPID, &ObjectTio::APPID, kApplication).name = drawing_.Text(name);
  }

  Dwg_Entity_INSERT& AddInsert(Handle handle, Handle block) {
    auto& insert = drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, handle);
    insert.block_header = drawing_.Ref(block);
    insert.scale = {1, 1, 1};
    return insert;
  }

  void AddAttribute(Handle owner) {
    auto& attribute = drawing_.AddEntity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, 0x99, owner);
    attribute.tag = drawing_.Text("NO");
    attribute.text_value = drawing_.Text("7");
  }

  CompleteDrawing drawing_;
};

TEST_F(ReferenceKeysTest, HaveTheAttributesThatTheyOwn) {
  drawing_.AddBlock(0x20, "door");
  AddInsert(0x30, 0x20);
  AddAttribute(0x30);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]),
              HasSubstr(R"("attributes":[{"tag":"NO","text":"7","handle":"99"}])"));
}

TEST_F(ReferenceKeysTest, ElseTheAttributesThatFollow) {
  drawing_.AddBlock(0x20, "door");
  AddInsert(0x30, 0x20);
  AddAttribute(0x1F);
  drawing_.AddBareEntity(DWG_TYPE_SEQEND, 0x9A);
  AddAttribute(0x1F);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]),
              HasSubstr(R"("attributes":[{"tag":"NO","text":"7","handle":"99"}])"));
}

TEST_F(ReferenceKeysTest, OfAnonymousBlocksNameTheirDynamicBlock) {
  AddApplication("AcDbBlockRepBTag");
  drawing_.AddBlock(0x20, "Door");
  drawing_.AddBlock(0x21, "*U5");
  ExtendedData(drawing_).Short(1).HandleValue(0x20).AttachTo(*drawing_.last().tio.object,
                                                             kApplication);
  AddInsert(0x30, 0x21);
  EXPECT_THAT(drawing_.RecordOfLast(), HasSubstr(R"("dynamicBlock":"Door")"));
}

TEST_F(ReferenceKeysTest, OtherApplicationsSayNothingOfDynamicBlocks) {
  AddApplication("OTHER");
  drawing_.AddBlock(0x20, "Door");
  drawing_.AddBlock(0x21, "*U5");
  ExtendedData(drawing_).HandleValue(0x20).AttachTo(*drawing_.last().tio.object, kApplication);
  AddInsert(0x30, 0x21);
  EXPECT_THAT(drawing_.RecordOfLast(), Not(HasSubstr("dynamicBlock")));
}

// The filter's dictionary belongs to the extension dictionary of the reference. The
// block's base point is (1,1); the reference stands at (10,20), twice as large and
// turned by a quarter: (x,y) of the block goes to (10 - 2 (y - 1), 20 + 2 (x - 1)).
TEST_F(ReferenceKeysTest, HaveTheirClipInBlockAndWorld) {
  drawing_.AddBlock(0x20, "door").base_pt = {1, 1, 0};
  auto& insert = AddInsert(0x30, 0x20);
  insert.ins_pt = {10, 20, 0};
  insert.scale = {2, 2, 2};
  insert.rotation = 1.5707963267948966;
  drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, 0x31);
  drawing_.OwnLast(0x30);
  drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, 0x32);
  drawing_.OwnLast(0x31);
  auto& filter = drawing_.AddObject(DWG_TYPE_SPATIAL_FILTER, &ObjectTio::SPATIAL_FILTER, 0x33);
  drawing_.OwnLast(0x32);
  filter.display_boundary_on = 1;
  filter.num_clip_verts = 2;
  filter.clip_verts = drawing_.Array<BITCODE_2RD>({{0, 0}, {4, 2}});
  // Moves by (1,1).
  filter.inverse_transform = drawing_.Array<double>({1, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 0});
  filter.back_clip_on = 1;
  filter.back_clip_z = -5;
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]),
              HasSubstr(R"("clip":{"on":true,"inverted":false,"boundary":[[0,0],[4,2]],)"
                        R"("block":[[1,1,0],[5,1,0],[5,3,0],[1,3,0]],)"
                        R"("world":[[10,20,0],[10,28,0],[6,28,0],[6,20,0]],"back":-5})"));
}

TEST_F(ReferenceKeysTest, AClipWhoseDictionariesGoInACircleIsNobodys) {
  drawing_.AddBlock(0x20, "door");
  AddInsert(0x30, 0x20);
  drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, 0x31);
  drawing_.OwnLast(0x31);
  drawing_.AddObject(DWG_TYPE_SPATIAL_FILTER, &ObjectTio::SPATIAL_FILTER, 0x33);
  drawing_.OwnLast(0x31);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]), Not(HasSubstr("clip")));
}

class LeaderTest : public ReferenceKeysTest {
 protected:
  Dwg_Entity_LEADER& AddLeader() {
    auto& leader = drawing_.AddEntity(DWG_TYPE_LEADER, &EntityTio::LEADER, 0x40);
    leader.num_points = 2;
    leader.points = drawing_.Array<BITCODE_3DPOINT>({{0, 0, 0}, {1, 1, 0}});
    leader.dimstyle = drawing_.Ref(0x41);
    leader.dimasz = 99;
    return leader;
  }
  void AddStyle(double size, double scale) {
    auto& style = drawing_.AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, 0x41);
    style.name = drawing_.Text("ISO");
    style.DIMASZ = size;
    style.DIMSCALE = scale;
  }
};

TEST_F(LeaderTest, HasTheArrowSizeOfItsStyle) {
  AddStyle(2.5, 10);
  AddLeader();
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("arrowSize":25,)"), HasSubstr(R"("dimStyle":"ISO")")));
}

TEST_F(LeaderTest, OfATextHasTheArrowThatItDoesNotName) {
  drawing_.data().header.from_version = R_2018;
  AddLeader();
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("arrowOn":false,)"), HasSubstr(R"("annotationType":0,)")));
  drawing_.data().opts |= DWG_OPTS_INDXF;
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("arrowOn":true,)"), HasSubstr(R"("annotationType":3,)")));
  auto& named = AddLeader();
  named.unknown_bit_1 = 1;
  named.associated_annotation = drawing_.Ref(0x60);
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("arrowOn":false,)"), HasSubstr(R"("annotationType":0,)")));
}

TEST_F(LeaderTest, AScaleOfZeroCountsAsOne) {
  AddStyle(2.5, 0);
  AddLeader();
  EXPECT_THAT(drawing_.RecordOfLast(), HasSubstr(R"("arrowSize":2.5,)"));
}

TEST_F(LeaderTest, ItsOwnVariablesComeFirst) {
  AddApplication("ACAD");
  AddStyle(2.5, 10);
  AddLeader();
  drawing_.AddBlock(0x22, "_Dot");
  Dwg_Object& leader = drawing_.objects()[2];
  ExtendedData(drawing_)
      .Text("DSTYLE")
      .Bracket(false)
      .Short(147)
      .Real(7)
      .Short(41)
      .Real(3)
      .Short(341)
      .HandleValue(0x22)
      .Bracket(true)
      .Short(40)
      .Real(99)
      .AttachTo(*leader.tio.entity, kApplication);
  EXPECT_THAT(drawing_.Record(leader),
              AllOf(HasSubstr(R"("arrowSize":30,)"), HasSubstr(R"("arrowBlock":"_Dot")")));
}

TEST_F(LeaderTest, WithoutAStyleTheDrawingsVariablesCount) {
  drawing_.data().header_vars.DIMASZ = 3;
  drawing_.data().header_vars.DIMSCALE = 2;
  AddLeader();
  EXPECT_THAT(drawing_.RecordOfLast(), HasSubstr(R"("arrowSize":6,)"));
}

TEST_F(ReferenceKeysTest, MultileaderLinesHaveTheirOwnLook) {
  auto& multileader = drawing_.AddEntity(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER, 0x50);
  Dwg_LEADER_Line line{};
  line.num_points = 1;
  line.points = drawing_.Array<BITCODE_3DPOINT>({{1, 2, 3}});
  line.flags = 2 | 8 | 16;
  line.color.rgb = 0xC3000001;
  line.linewt = 25;
  line.arrow_size = 4;
  line.type = 2;  // not its own
  Dwg_LEADER_Node node{};
  node.has_dogleg = 1;
  node.dogleg_vector = {1, 0, 0};
  node.dogleg_length = 5;
  node.num_lines = 1;
  node.lines = drawing_.Array<Dwg_LEADER_Line>({line});
  multileader.ctx.num_leaders = 1;
  multileader.ctx.leaders = drawing_.Array<Dwg_LEADER_Node>({node});
  multileader.line_color.rgb = 0xC1000000;
  multileader.line_linewt = -2;
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("leaderColor":"K","leaderLw":"L",)"),
                    HasSubstr(R"("leaders":[{"index":0,"doglegDirection":[1,0,0],"doglegLength":5,)"
                              R"("lines":[{"index":0,"points":[[1,2,3]],)"
                              R"("color":{"r":255,"g":0,"b":0},"lw":25,"arrowSize":4}]}])")));
}

TEST_F(ReferenceKeysTest, AMultileaderOfABlockAloneIsWritten) {
  drawing_.AddBlock(0x20, "tag");
  auto& multileader = drawing_.AddEntity(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER, 0x50);
  multileader.ctx.has_content_blk = 1;
  multileader.ctx.content.blk.block_table = drawing_.Ref(0x20);
  multileader.ctx.content.blk.location = {1, 2, 3};
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("lines":[],)"),
                    HasSubstr(R"("block":{"position":[1,2,3],"blockName":"tag",)")));
}

// A drawing before 2000: the view stands behind MVIEW, after its version 16.
TEST_F(ReferenceKeysTest, OldViewportsHaveTheirViewFromExtendedData) {
  AddApplication("ACAD");
  drawing_.data().header.from_version = R_14;
  auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT, 0x60);
  viewport.width = 10;
  viewport.height = 8;
  viewport.id = 2;
  ExtendedData(drawing_)
      .Text("MVIEW")
      .Bracket(false)
      .Short(16)
      .Point(1, 2, 3)
      .Point(0, 0, 1)
      .Real(0.5)
      .Real(4)
      .Real(6)
      .Real(7)
      .Real(50)
      .Real(0)
      .Real(0)
      .Short(1)
      .AttachTo(drawing_.lastEntity(), kApplication);
  EXPECT_THAT(drawing_.RecordOfLast(),
              AllOf(HasSubstr(R"("viewCtrX":6,"viewCtrY":7,"viewSize":4,"targetX":1,"targetY":2,)"
                              R"("targetZ":3,"dirX":0,"dirY":0,"dirZ":1,"twist":0.5,)"),
                    HasSubstr(R"("scale":2,"lens":50,"perspective":true,)")));
}

class DrawOrderTest : public ReferenceKeysTest {
 protected:
  void AddLine(Handle handle) {
    drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE, handle, kBlock);
  }
  std::string RecordOf(std::size_t i) { return drawing_.Record(drawing_.objects()[i]); }

  static constexpr Handle kBlock = 0x20;
};

// 31 goes by 33, 33 by 31, 32 by its own handle.
TEST_F(DrawOrderTest, GoesBySortHandles) {
  drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  AddLine(0x32);
  AddLine(0x33);
  auto& table = drawing_.AddObject(DWG_TYPE_SORTENTSTABLE, &ObjectTio::SORTENTSTABLE, 0x40);
  table.block_owner = drawing_.Ref(kBlock);
  table.num_ents = 2;
  table.ents = drawing_.Array<BITCODE_H>({drawing_.Ref(0x31), drawing_.Ref(0x33)});
  table.sort_ents = drawing_.Array<BITCODE_H>({drawing_.Ref(0x33), drawing_.Ref(0x31)});
  EXPECT_THAT(RecordOf(1), HasSubstr(R"("drawOrder":2)"));
  EXPECT_THAT(RecordOf(2), HasSubstr(R"("drawOrder":1)"));
  EXPECT_THAT(RecordOf(3), HasSubstr(R"("drawOrder":0)"));
}

// By its first key 32 would come before 31.
TEST_F(DrawOrderTest, TheLastKeyOfAnEntityCounts) {
  drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  AddLine(0x32);
  auto& table = drawing_.AddObject(DWG_TYPE_SORTENTSTABLE, &ObjectTio::SORTENTSTABLE, 0x40);
  table.block_owner = drawing_.Ref(kBlock);
  table.num_ents = 3;
  table.ents =
      drawing_.Array<BITCODE_H>({drawing_.Ref(0x32), drawing_.Ref(0x31), drawing_.Ref(0x32)});
  table.sort_ents =
      drawing_.Array<BITCODE_H>({drawing_.Ref(0x20), drawing_.Ref(0x31), drawing_.Ref(0x40)});
  EXPECT_THAT(RecordOf(1), Not(HasSubstr("drawOrder")));
  EXPECT_THAT(RecordOf(2), Not(HasSubstr("drawOrder")));
}

TEST_F(DrawOrderTest, ATableThatChangesNothingIsNotWritten) {
  drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  AddLine(0x32);
  auto& table = drawing_.AddObject(DWG_TYPE_SORTENTSTABLE, &ObjectTio::SORTENTSTABLE, 0x40);
  table.block_owner = drawing_.Ref(kBlock);
  table.num_ents = 1;
  table.ents = drawing_.Array<BITCODE_H>({drawing_.Ref(0x31)});
  table.sort_ents = drawing_.Array<BITCODE_H>({drawing_.Ref(0x31)});
  EXPECT_THAT(RecordOf(1), Not(HasSubstr("drawOrder")));
}

TEST_F(DrawOrderTest, ElseByTheBlocksOwnList) {
  auto& block = drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  AddLine(0x32);
  block.num_owned = 2;
  block.entities = drawing_.Array<BITCODE_H>({drawing_.Ref(0x32), drawing_.Ref(0x31)});
  EXPECT_THAT(RecordOf(1), HasSubstr(R"("drawOrder":1)"));
  EXPECT_THAT(RecordOf(2), HasSubstr(R"("drawOrder":0)"));
  drawing_.data().opts |= DWG_OPTS_INDXF;
  EXPECT_THAT(RecordOf(1), Not(HasSubstr("drawOrder")));
}

// The library's notes and its own table of handles may both be wrong.
TEST_F(DrawOrderTest, GoesByHandlesWhateverIsNotedAtReferences) {
  auto& block = drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  AddLine(0x32);
  auto* const wrong = drawing_.Ref(0x32);
  wrong->obj = &drawing_.data().object[1];
  auto* const right = drawing_.Ref(0x31);
  right->obj = &drawing_.data().object[1];
  block.num_owned = 2;
  block.entities = drawing_.Array<BITCODE_H>({wrong, right});
  auto* const table = drawing_.data().object_map;
  drawing_.data().object_map = nullptr;
  EXPECT_THAT(RecordOf(1), HasSubstr(R"("drawOrder":1)"));
  EXPECT_THAT(RecordOf(2), HasSubstr(R"("drawOrder":0)"));
  drawing_.data().object_map = table;
}

TEST_F(DrawOrderTest, ATableWithoutKeysIsNone) {
  drawing_.AddBlock(kBlock, "*Model_Space");
  AddLine(0x31);
  auto& table = drawing_.AddObject(DWG_TYPE_SORTENTSTABLE, &ObjectTio::SORTENTSTABLE, 0x40);
  table.block_owner = drawing_.Ref(kBlock);
  table.num_ents = 1000000;
  EXPECT_THAT(RecordOf(1), Not(HasSubstr("drawOrder")));
}

}  // namespace
