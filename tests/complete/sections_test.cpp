#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "complete/document.hpp"
#include "tests/support/json_grammar.hpp"
#include "tests/support/test_drawing.hpp"

namespace {

using testing::HasSubstr;
using testing::Not;

class Silent : public StageObserver {
 public:
  void Begin(Stage /*stage*/) override {}
  void End(Stage /*stage*/) override {}
};

class CompleteSections : public testing::Test {
 protected:
  CompleteSections() { drawing_.data().header.version = R_2018; }

  // The whole document and its further sections.
  std::string Document(const DxfHeader* header = nullptr) {
    JsonOut out;
    JsonOut further;
    Silent observer;
    Drawing drawing{.data = drawing_.data(), .textForm = drawing_.textForm};
    drawing.dxfHeader = header;
    AppendCompleteDocument(out, further, drawing, {}, {}, observer);
    std::string text = out.Text() + further.Text() + '}';
    EXPECT_TRUE(IsGrammaticalJson(text)) << text;
    return text;
  }

  TestDrawing drawing_;
};

}  // namespace

TEST_F(CompleteSections, AreThereWithoutAnyRecord) {
  const std::string document = Document();
  for (const char* section : {"codePage", "header", "properties"}) {
    EXPECT_THAT(document, HasSubstr(",\"" + std::string(section) + "\":{"));
  }
  for (const char* section :
       {"linetypes", "textStyles", "dimensionStyles", "views", "coordinateSystems", "groups"}) {
    EXPECT_THAT(document, HasSubstr(",\"" + std::string(section) + "\":[]"));
  }
  EXPECT_THAT(document, Not(HasSubstr("thumbnail")));
}

TEST_F(CompleteSections, HeaderVariablesOfTheRelease) {
  Dwg_Header_Variables& vars = drawing_.data().header_vars;
  vars.LTSCALE = 2.5;
  vars.EXTMIN = {1, 2, 3};
  vars.CLAYER = drawing_.Ref(drawing_.AddLayer(0x10, "Walls"));
  vars.LWDISPLAY = 1;
  const std::string document = Document();
  EXPECT_THAT(document, HasSubstr("\"LTSCALE\":2.5"));
  EXPECT_THAT(document, HasSubstr("\"EXTMIN\":[1,2,3]"));
  EXPECT_THAT(document, HasSubstr("\"CLAYER\":\"Walls\""));
  EXPECT_THAT(document, HasSubstr("\"LWDISPLAY\":1"));
  EXPECT_THAT(document, Not(HasSubstr("\"CELTYPE\"")));
  drawing_.data().header.version = R_14;
  EXPECT_THAT(Document(), Not(HasSubstr("\"LWDISPLAY\"")));
}

TEST_F(CompleteSections, HeaderVariablesThatADxfNames) {
  DxfHeader header;
  header.names = {"PDMODE"};
  EXPECT_THAT(Document(&header), HasSubstr("\"header\":{\"PDMODE\":0}"));
}

TEST_F(CompleteSections, TheBaseAngleOfATextIsInDegrees) {
  drawing_.data().header_vars.ANGBASE = 90;
  EXPECT_THAT(Document(), HasSubstr("\"ANGBASE\":90,"));
  drawing_.data().opts |= DWG_OPTS_INDXF;
  EXPECT_THAT(Document(), HasSubstr("\"ANGBASE\":1.570796327,"));
}

TEST_F(CompleteSections, ColoursOfTables) {
  Dwg_Color& color = drawing_.data().header_vars.CECOLOR;
  color.rgb = 0xC0000000;
  EXPECT_THAT(Document(), HasSubstr("\"CECOLOR\":\"L\""));
  color.rgb = 0xC1000000;
  EXPECT_THAT(Document(), HasSubstr("\"CECOLOR\":\"K\""));
  color.rgb = 0xC3000007;
  EXPECT_THAT(Document(), HasSubstr("\"CECOLOR\":\"W\""));
  color.rgb = 0xC2010203;
  EXPECT_THAT(Document(), HasSubstr("\"CECOLOR\":{\"r\":1,\"g\":2,\"b\":3}"));
}

TEST_F(CompleteSections, Linetypes) {
  auto& style = drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x11);
  style.name = drawing_.Text("Standard");
  std::vector<Dwg_LTYPE_dash> dashes(3);
  dashes[0].length = 0.5;
  dashes[1].length = -0.25;
  dashes[1].shape_flag = 2 | 1;
  dashes[1].style = drawing_.Ref(0x11);
  dashes[1].scale = 0.1;
  dashes[1].text = drawing_.Text("GAS");
  dashes[1].x_offset = -0.1;
  dashes[2].length = -0.2;
  dashes[2].shape_flag = 4;
  dashes[2].complex_shapecode = 132;
  auto& linetype = drawing_.AddObject(DWG_TYPE_LTYPE, &ObjectTio::LTYPE, 0x12);
  linetype.name = drawing_.Text("GAS_LINE");
  linetype.description = drawing_.Text("Gas ----");
  linetype.pattern_len = 0.95;
  linetype.numdashes = 3;
  linetype.dashes = drawing_.Array(dashes);
  EXPECT_THAT(
      Document(),
      HasSubstr(R"({"name":"GAS_LINE","handle":"12","description":"Gas ----","length":0.95,)"
                R"("dashes":[{"length":0.5},{"length":-0.25,"text":"GAS","textStyle":"Standard",)"
                R"("scale":0.1,"rotationRad":0,"absoluteRotation":true,"x":-0.1,"y":0},)"
                R"({"length":-0.2,"shape":132,"scale":0,"rotationRad":0,)"
                R"("absoluteRotation":false,"x":0,"y":0}]})"));
}

TEST_F(CompleteSections, LinetypeTextsEndWithTheirArea) {
  std::vector<unsigned char> area(256, 'x');
  std::vector<Dwg_LTYPE_dash> dashes(1);
  auto& linetype = drawing_.AddObject(DWG_TYPE_LTYPE, &ObjectTio::LTYPE, 0x12);
  linetype.name = drawing_.Text("X");
  linetype.strings_area = drawing_.Array(area);
  dashes[0].shape_flag = 2;
  dashes[0].text = reinterpret_cast<char*>(linetype.strings_area) + 253;
  linetype.numdashes = 1;
  linetype.dashes = drawing_.Array(dashes);
  EXPECT_THAT(Document(), HasSubstr(R"("text":"xxx")"));
}

TEST_F(CompleteSections, LinetypesBeforeRelease13) {
  auto& linetype = drawing_.AddObject(DWG_TYPE_LTYPE, &ObjectTio::LTYPE, 0x12);
  linetype.name = drawing_.Text("DASHED");
  linetype.numdashes = 255;
  linetype.dashes_r11[0] = 0.5;
  linetype.dashes_r11[1] = -0.25;
  EXPECT_THAT(Document(), HasSubstr(R"("dashes":[{"length":0.5},{"length":-0.25},{"length":0})"));
}

TEST_F(CompleteSections, TextStyles) {
  auto& style = drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x11);
  style.name = drawing_.Text("Notes");
  style.font_file = drawing_.Text("romans.shx");
  style.bigfont_file = drawing_.Text("bigfont.shx");
  style.text_size = 2.5;
  style.width_factor = 0.8;
  style.oblique_angle = 0.25;
  style.generation = 2;
  style.flag = 4;
  EXPECT_THAT(Document(),
              HasSubstr(R"("textStyles":[{"name":"Notes","handle":"11","font":"romans.shx",)"
                        R"("bigFont":"bigfont.shx","height":2.5,"lastHeight":0,)"
                        R"("widthFactor":0.8,"obliqueRad":0.25,"mirroredX":true,)"
                        R"("mirroredY":false,"vertical":true,"shapes":false}])"));
}

TEST_F(CompleteSections, DimensionStyles) {
  auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x20);
  block.name = drawing_.Text("_Dot");
  auto& style = drawing_.AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, 0x21);
  style.name = drawing_.Text("ISO-25");
  style.DIMTXT = 2.5;
  style.DIMBLK = drawing_.Ref(0x20);
  style.DIMBLK1_T = drawing_.Text("OLD");
  style.DIMCLRD.index = 256;
  style.DIMLWD = -2;
  const std::string document = Document();
  EXPECT_THAT(document, HasSubstr(R"("dimensionStyles":[{"name":"ISO-25","handle":"21",)"
                                  R"("variables":{"DIMADEC":0,)"));
  EXPECT_THAT(document, HasSubstr(R"("DIMBLK":"_Dot","DIMBLK1":"OLD","DIMBLK2":"")"));
  EXPECT_THAT(document, HasSubstr(R"("DIMCLRD":"L")"));
  EXPECT_THAT(document, HasSubstr(R"("DIMLWD":-2)"));
  EXPECT_THAT(document, HasSubstr(R"("DIMTXT":2.5)"));
}

TEST_F(CompleteSections, ViewsAndCoordinateSystems) {
  auto& view = drawing_.AddObject(DWG_TYPE_VIEW, &ObjectTio::VIEW, 0x30);
  view.name = drawing_.Text("Front");
  view.VIEWSIZE = 10;
  view.view_width = 20;
  view.VIEWDIR = {0, -1, 0};
  view.associated_ucs = 1;
  view.ucsxdir = {1, 0, 0};
  auto& system = drawing_.AddObject(DWG_TYPE_UCS, &ObjectTio::UCS, 0x31);
  system.name = drawing_.Text("Roof");
  system.ucsorg = {1, 2, 3};
  const std::string document = Document();
  EXPECT_THAT(document, HasSubstr(R"("views":[{"name":"Front","handle":"30","height":10,)"
                                  R"("width":20,)"));
  EXPECT_THAT(document, HasSubstr(R"("direction":[0,-1,0])"));
  EXPECT_THAT(document, HasSubstr(R"("ucs":{"origin":[0,0,0],"xAxis":[1,0,0])"));
  EXPECT_THAT(document, HasSubstr(R"("coordinateSystems":[{"name":"Roof","handle":"31",)"
                                  R"("origin":[1,2,3])"));
}

TEST_F(CompleteSections, GroupsHaveTheNamesOfTheirDictionary) {
  auto& group = drawing_.AddObject(DWG_TYPE_GROUP, &ObjectTio::GROUP, 0x40);
  group.name = drawing_.Text("chairs");
  group.selectable = 1;
  group.num_groups = 3;
  group.groups = drawing_.Array<BITCODE_H>({drawing_.Ref(0x2A), nullptr, drawing_.Ref(0x2B)});
  auto& dictionary = drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, 0x41);
  dictionary.numitems = 3;
  dictionary.texts =
      drawing_.Array<char*>({drawing_.Text("nothing"), drawing_.Text("G1"), nullptr});
  dictionary.itemhandles =
      drawing_.Array<BITCODE_H>({nullptr, drawing_.Ref(0x40), drawing_.Ref(0x999)});
  EXPECT_THAT(Document(),
              HasSubstr(R"("groups":[{"name":"G1","handle":"40","description":"chairs",)"
                        R"("selectable":true,"unnamed":false,"members":["2A","2B"]}])"));
}

TEST_F(CompleteSections, CountsWithoutArraysAreNothing) {
  auto& group = drawing_.AddObject(DWG_TYPE_GROUP, &ObjectTio::GROUP, 0x40);
  group.num_groups = 1000;
  auto& dictionary = drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, 0x41);
  dictionary.numitems = 1000;
  drawing_.data().summaryinfo.num_props = 1000;
  drawing_.AddObject(DWG_TYPE_LTYPE, &ObjectTio::LTYPE, 0x42).numdashes = 255;
  EXPECT_THAT(Document(), HasSubstr(R"("members":[])"));
}

TEST_F(CompleteSections, PropertiesOfADwg) {
  Dwg_SummaryInfo& info = drawing_.data().summaryinfo;
  info.TITLE = drawing_.Text("Plan");
  info.num_props = 1;
  info.props =
      drawing_.Array<Dwg_SummaryInfo_Property>({{drawing_.Text("Checked"), drawing_.Text("yes")}});
  drawing_.data().header_vars.TDCREATE = {2451545, 43200000, 0};
  EXPECT_THAT(Document(), HasSubstr(R"("properties":{"title":"Plan",)"
                                    R"("created":"2000-01-01T12:00:00",)"
                                    R"("custom":[{"name":"Checked","value":"yes"}]})"));
}

TEST_F(CompleteSections, PropertiesOfADxf) {
  DxfHeader header;
  header.texts = {{"CUSTOMPROPERTY", "lost"},    {"AUTHOR", "me"},
                  {"CUSTOMPROPERTYTAG", "A"},    {"CUSTOMPROPERTY", "1"},
                  {"CUSTOMPROPERTYTAG", "B"},    {"CUSTOMPROPERTYTAG", "C"},
                  {"CUSTOMPROPERTY", "\\U+00B0"}};
  EXPECT_THAT(Document(&header),
              HasSubstr(R"("properties":{"author":"me","custom":[{"name":"A","value":"1"},)"
                        "{\"name\":\"C\",\"value\":\"\u00B0\"}]}"));
}

TEST_F(CompleteSections, LayersOfOldReleasesArePlottedAndOfTheDefaultWidth) {
  drawing_.data().header.version = R_14;
  drawing_.AddLayer(0x10, "Walls");
  drawing_.AddLayer(0x11, "Defpoints");
  const std::string document = Document();
  EXPECT_THAT(document, HasSubstr(R"("lw":"L","frozen":false,"plotted":true,)"
                                  R"("linetype":"Continuous","handle":"10"})"));
  EXPECT_THAT(document, HasSubstr(R"("plotted":false,"linetype":"Continuous","handle":"11")"));
}

TEST_F(CompleteSections, SheetsWhoseLayoutDoesNotTellItsBlock) {
  auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x20);
  block.name = drawing_.Text("*Paper_Space");
  block.layout = drawing_.Ref(0x21);
  auto& other = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x22);
  other.name = drawing_.Text("*Paper_Space0");
  other.layout = drawing_.Ref(0x20);
  auto& layout = drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x21);
  layout.layout_name = drawing_.Text("A3");
  layout.plotsettings.paper_size = drawing_.Text("plotter");
  layout.plotsettings.plot_type = 5;
  layout.INSBASE = {1, 2, 3};
  const std::string document = Document();
  EXPECT_THAT(document, HasSubstr(R"({"name":"A3","tabOrder":0,)"));
  EXPECT_THAT(document, HasSubstr(R"("plotDevice":"plotter")"));
  EXPECT_THAT(document, HasSubstr(R"("plotType":5,"plotWindow":[[0,0],[0,0]])"));
  EXPECT_THAT(document, HasSubstr(R"("insertionBase":[1,2,3])"));
  EXPECT_THAT(document, HasSubstr(R"({"name":"*Paper_Space0","entities":[],"block":"22",)"));
}

TEST_F(CompleteSections, BlocksTellOfTheirReference) {
  auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x20);
  block.name = drawing_.Text("Site");
  block.blkisxref = 1;
  block.xref_pname = drawing_.Text("..\\no such file.dwg");
  block.insert_units = 4;
  block.base_pt.z = 5;
  EXPECT_THAT(Document(), HasSubstr(R"("handle":"20","units":4,"baseZ":5,"explodable":false,)"
                                    R"("xref":{"path":"..\\no such file.dwg","overlay":false,)"
                                    R"("found":false}})"));
}
