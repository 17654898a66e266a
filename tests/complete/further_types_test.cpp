// Records of single types that only the complete form has.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "complete/compound_file.hpp"
#include "complete/ole_frame.hpp"
#include "complete/symbols.hpp"
#include "tests/support/byte_writer.hpp"
#include "tests/support/drawn_types.hpp"

namespace {

using Tio = EntityTio;
using Bytes = std::vector<unsigned char>;

class FurtherTypes : public testing::Test {
 protected:
  DrawnTypes drawing;
};

Dwg_MLINE_vertex MlineVertex(DrawnTypes& drawing, BITCODE_3BD at, const std::vector<double>& first,
                             const std::vector<double>& second) {
  std::vector<Dwg_MLINE_line> lines(2);
  lines[0].num_segparms = static_cast<BITCODE_BS>(first.size());
  lines[0].segparms = drawing.Array(first);
  lines[1].num_segparms = static_cast<BITCODE_BS>(second.size());
  lines[1].segparms = drawing.Array(second);
  Dwg_MLINE_vertex vertex{};
  vertex.vertex = at;
  vertex.vertex_direction = {1, 0, 0};
  vertex.miter_direction = {0, 1, 0};
  vertex.num_lines = 2;
  vertex.lines = drawing.Array(lines);
  return vertex;
}

}  // namespace

// Along the x axis from 0 to 10, elements at 0 and 2 above; the second is cut from 3 to 5.
TEST_F(FurtherTypes, MultilineElementsWithACut) {
  auto& style = drawing.AddObject(DWG_TYPE_MLINESTYLE, &ObjectTio::MLINESTYLE, 0x30);
  style.name = drawing.Text("Wall");
  style.flag = 2 + 16 + 1024;
  style.start_angle = 1.5;
  std::vector<Dwg_MLINESTYLE_line> elements(2);
  elements[0].color.index = 256;
  elements[0].lt_index = 32767;
  elements[1].offset = 2;
  elements[1].color.index = 7;
  style.num_lines = 2;
  style.lines = drawing.Array(elements);
  Dwg_Entity_MLINE multiline{};
  multiline.scale = 1;
  multiline.num_lines = 2;
  multiline.num_verts = 2;
  multiline.verts =
      drawing.Array<Dwg_MLINE_vertex>({MlineVertex(drawing, {0, 0, 0}, {0, 0}, {2, 0, 3, 5}),
                                       MlineVertex(drawing, {10, 0, 0}, {0, 0}, {2, 0})});
  multiline.mlinestyle = drawing.Ref(0x30);
  EXPECT_EQ(
      drawing.OwnKeys(DWG_TYPE_MLINE, &Tio::MLINE, multiline),
      R"("closed":false,"points":[[0,0,0],[10,0,0]],"directions":[[1,0,0],[1,0,0]],)"
      R"("miters":[[0,1,0],[0,1,0]],"scale":1,"justification":0,"base":[0,0,0],"style":"Wall",)"
      R"("showsMiters":true,)"
      R"("startCaps":{"line":true,"innerArcs":false,"outerArc":false,"angleRad":1.5},)"
      R"("endCaps":{"line":false,"innerArcs":false,"outerArc":true,"angleRad":0},)"
      R"("elements":[{"offset":0,"color":"L","linetype":"L","lines":[[[0,0,0],[10,0,0]]]},)"
      R"({"offset":2,"color":"W","linetype":"Continuous",)"
      R"("lines":[[[0,2,0],[3,2,0]],[[5,2,0],[10,2,0]]]}])");
}

TEST_F(FurtherTypes, MultilineElementBeginsBehindItsVertex) {
  Dwg_Entity_MLINE multiline{};
  multiline.num_lines = 2;
  multiline.num_verts = 2;
  multiline.verts =
      drawing.Array<Dwg_MLINE_vertex>({MlineVertex(drawing, {0, 0, 0}, {1, 0}, {2, 3}),
                                       MlineVertex(drawing, {10, 0, 0}, {1, 0}, {2, 0})});
  EXPECT_NE(drawing.OwnKeys(DWG_TYPE_MLINE, &Tio::MLINE, multiline)
                .find(R"("lines":[[[0,1,0],[10,1,0]]]},{)"),
            std::string::npos);
  EXPECT_NE(drawing.OwnKeys(DWG_TYPE_MLINE, &Tio::MLINE, multiline)
                .find(R"("lines":[[[3,2,0],[10,2,0]]]})"),
            std::string::npos);
}

TEST_F(FurtherTypes, ClosedMultilineComesBackToItsStart) {
  Dwg_Entity_MLINE multiline{};
  multiline.flags = 2;
  multiline.num_lines = 1;
  multiline.num_verts = 3;
  multiline.verts = drawing.Array<Dwg_MLINE_vertex>({MlineVertex(drawing, {0, 0, 0}, {1, 0}, {}),
                                                     MlineVertex(drawing, {4, 0, 0}, {1, 0}, {}),
                                                     MlineVertex(drawing, {4, 3, 0}, {1, 0}, {})});
  EXPECT_NE(drawing.OwnKeys(DWG_TYPE_MLINE, &Tio::MLINE, multiline)
                .find(R"("lines":[[[0,1,0],[4,1,0],[4,4,0],[0,1,0]]])"),
            std::string::npos);
}

TEST_F(FurtherTypes, MultilineOfMissingArrays) {
  Dwg_Entity_MLINE multiline{};
  multiline.num_verts = 3;
  multiline.num_lines = 2;
  EXPECT_EQ(drawing.CompleteRecord(DWG_TYPE_MLINE, &Tio::MLINE, multiline), "");
  multiline.num_verts = 1;
  multiline.verts = &drawing.New<Dwg_MLINE_vertex>();
  multiline.verts->num_lines = 9;
  EXPECT_NE(drawing.OwnKeys(DWG_TYPE_MLINE, &Tio::MLINE, multiline)
                .find(R"("elements":[{"offset":0,"color":"K","linetype":"K","lines":[]},)"),
            std::string::npos);
}

TEST(Tolerance, CellsAndSymbols) {
  using Cells = ToleranceCells;
  EXPECT_EQ(ParseTolerance("{\\Fgdt;j}%%v{\\Fgdt;n}0.08{\\Fgdt;m}%%v%%vA"),
            (Cells{{"\u2316", "\u23000.08\u24C2", "", "A"}}));
  EXPECT_EQ(ParseTolerance("1%%v2^J3\n4"), (Cells{{"1", "2"}, {"3"}, {"4"}}));
  EXPECT_EQ(ParseTolerance("5%%d%%p%%c"), (Cells{{"5°±\u2300"}}));
  EXPECT_EQ(ParseTolerance("a\\{b\\\\"), (Cells{{"a{b\\"}}));
  EXPECT_EQ(ParseTolerance("{\\Fromans;j}"), (Cells{{"j"}}));
  EXPECT_EQ(ParseTolerance(""), Cells{});
  EXPECT_EQ(ParseTolerance("{\\Fgdt"), Cells{});
}

TEST_F(FurtherTypes, ToleranceWithoutADirectionLiesAlongX) {
  Dwg_Entity_TOLERANCE tolerance{};
  tolerance.height = 2.5;
  tolerance.text_value = drawing.Text("A%%vB");
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_TOLERANCE, &Tio::TOLERANCE, tolerance),
            R"("x":0,"y":0,"rotationRad":0,"height":2.5,"rawText":"A%%vB","rows":[["A","B"]])");
  EXPECT_NE(drawing.FurtherKeys(DWG_TYPE_TOLERANCE, &Tio::TOLERANCE, tolerance)
                .find(R"("xDirection":[1,0,0])"),
            std::string::npos);
}

TEST_F(FurtherTypes, ShapeNamesItsFile) {
  auto& style = drawing.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x30);
  style.font_file = drawing.Text("marks.shx");
  Dwg_Entity_SHAPE shape{};
  shape.ins_pt = {1, 2, 3};
  shape.scale = 4;
  shape.style_id = 132;
  shape.style = drawing.Ref(0x30);
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_SHAPE, &Tio::SHAPE, shape),
            R"("x":1,"y":2,"size":4,"rotationRad":0,"widthFactor":0,"obliqueRad":0,)"
            R"("shapeNumber":132,"shapeFile":"marks.shx")");
}

TEST_F(FurtherTypes, PolyfaceMeshFacesCountFromZero) {
  drawing.AddEntity(DWG_TYPE_POLYLINE_PFACE, &Tio::POLYLINE_PFACE, 0x40);
  for (const double x : {0.0, 1.0, 2.0}) {
    drawing.AddEntity(DWG_TYPE_VERTEX_PFACE, &Tio::VERTEX_PFACE, 0, 0x40).point = {x, 5, 6};
  }
  auto& face = drawing.AddEntity(DWG_TYPE_VERTEX_PFACE_FACE, &Tio::VERTEX_PFACE_FACE, 0, 0x40);
  face.vertind[0] = 1;
  face.vertind[1] = -2;
  face.vertind[2] = 3;
  drawing.lastEntity().color.index = 256;
  const std::string record = drawing.RecordOf(drawing.objects().front());
  EXPECT_NE(record.find(R"("points":[[0,5,6],[1,5,6],[2,5,6]],)"
                        R"("faces":[{"vertices":[0,1,2],"edges":[true,false,true],"color":"L"}])"),
            std::string::npos)
      << record;
}

TEST_F(FurtherTypes, PartsOfAPolyfaceMeshAreNotSaidToBeSkipped) {
  for (const auto& part : {DWG_TYPE_VERTEX_PFACE, DWG_TYPE_VERTEX_PFACE_FACE}) {
    drawing.AddEntity(part, &Tio::VERTEX_PFACE, 0x40);
    EXPECT_EQ(drawing.RecordOf(drawing.last()), "");
  }
  EXPECT_TRUE(drawing.counts.empty());
}

TEST_F(FurtherTypes, HelixHasItsCurve) {
  Dwg_Entity_HELIX helix{};
  helix.degree = 1;
  helix.num_ctrl_pts = 2;
  helix.ctrl_pts =
      drawing.Array<Dwg_SPLINE_control_point>({{nullptr, 0, 0, 0, 1}, {nullptr, 1, 2, 3, 1}});
  helix.num_knots = 4;
  helix.knots = drawing.Array<BITCODE_BD>({0, 0, 1, 1});
  helix.radius = 5;
  const std::string record = drawing.CompleteRecord(DWG_TYPE_HELIX, &Tio::HELIX, helix);
  EXPECT_NE(record.find(R"("degree":1,"knots":[0,0,1,1],"controlPoints":[[0,0,0],[1,2,3]],)"),
            std::string::npos)
      << record;
  EXPECT_NE(record.find(R"("radius":5)"), std::string::npos) << record;
}

TEST_F(FurtherTypes, SmoothedPolygonMeshKeepsItsControlPointsApart) {
  auto& mesh = drawing.AddEntity(DWG_TYPE_POLYLINE_MESH, &Tio::POLYLINE_MESH, 0x40);
  mesh.flag = 1 + 4;
  mesh.num_m_verts = 1;
  mesh.num_n_verts = 1;
  mesh.m_density = 1;
  mesh.n_density = 2;
  mesh.curve_type = 6;
  const auto add = [&](double x, BITCODE_RC flag) {
    auto& vertex = drawing.AddEntity(DWG_TYPE_VERTEX_MESH, &Tio::VERTEX_MESH, 0, 0x40);
    vertex.point = {x, 0, 0};
    vertex.flag = flag;
  };
  add(9, 64 + 16);
  add(1, 64 + 8);
  add(2, 64 + 8);
  const std::string record = drawing.RecordOf(drawing.objects().front());
  EXPECT_NE(record.find(R"("m":1,"n":2,"closedM":true,"closedN":false,"points":[[1,0,0],[2,0,0]],)"
                        R"("curveType":6,"controlM":1,"controlN":1,"controlPoints":[[9,0,0]])"),
            std::string::npos)
      << record;
}

TEST_F(FurtherTypes, SubdivisionMeshFacesAreALengthAndItsPoints) {
  Dwg_Entity_MESH mesh{};
  mesh.num_vertex = 3;
  mesh.vertex = drawing.Array<BITCODE_3DPOINT>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  mesh.num_faces = 6;
  mesh.faces = drawing.Array<BITCODE_BL>({3, 0, 1, 2, 9, 1});
  mesh.num_edges = 1;
  Dwg_MESH_edge edge{};
  edge.idxto = 2;
  mesh.edges = drawing.Array<Dwg_MESH_edge>({edge});
  mesh.num_crease = 1;
  mesh.crease = drawing.Array<BITCODE_BD>({0.5});
  mesh.num_subdiv_vertex = 2;
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_MESH, &Tio::MESH, mesh),
            R"("points":[[0,0,0],[1,0,0],[0,1,0]],"faces":[[0,1,2],[1]],"edges":[[0,2]],)"
            R"("creases":[0.5],"subdivisionLevel":2,"blendsCreases":false)");
}

TEST_F(FurtherTypes, TableOfTheOldForm) {
  drawing.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x30).name =
      drawing.Text("*T1");
  Dwg_Entity_TABLE table{};
  table.block_header = drawing.Ref(0x30);
  table.ins_pt = {1, 2, 0};
  table.num_cols = 2;
  table.num_rows = 1;
  table.num_cells = 2;
  table.col_widths = drawing.Array<BITCODE_BD>({5, 6});
  table.row_heights = drawing.Array<BITCODE_BD>({7});
  std::vector<Dwg_TABLE_Cell> cells(2);
  cells[0].type = 1;
  cells[0].text_value = drawing.Text("Door");
  cells[0].merged_width_flag = 2;
  cells[0].merged_height_flag = 1;
  cells[1].type = 2;
  cells[1].block_handle = drawing.Ref(0x30);
  cells[1].block_scale = 3;
  table.cells = drawing.Array(cells);
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_TABLE, &Tio::TABLE, table),
            R"("blockName":"*T1","x":1,"y":2,"rotationRad":0,"columnWidths":[5,6],)"
            R"("rowHeights":[7],"cells":[{"row":0,"column":0,"text":"Door"},)"
            R"({"row":0,"column":1,"blockName":"*T1","blockScale":3}],)"
            R"("merged":[{"row":0,"column":0,"lastRow":0,"lastColumn":1}])");
}

TEST_F(FurtherTypes, TableOfTheNewForm) {
  Dwg_Entity_TABLE table{};
  Dwg_TableCellContent content{};
  content.type = 1;
  content.value.data_string = drawing.Text("Door");
  Dwg_TableCell cell{};
  cell.num_cell_contents = 1;
  cell.cell_contents = drawing.Array<Dwg_TableCellContent>({content});
  Dwg_TableRow row{};
  row.num_cells = 1;
  row.cells = drawing.Array<Dwg_TableCell>({cell});
  row.height = 7;
  table.tdata.num_rows = 1;
  table.tdata.rows = drawing.Array<Dwg_TableRow>({row});
  Dwg_TableDataColumn column{};
  column.width = 5;
  table.tdata.num_cols = 1;
  table.tdata.cols = drawing.Array<Dwg_TableDataColumn>({column});
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_TABLE, &Tio::TABLE, table),
            R"("x":0,"y":0,"rotationRad":0,"columnWidths":[5],"rowHeights":[7],)"
            R"("cells":[{"row":0,"column":0,"text":"Door"}],"merged":[])");
}

TEST_F(FurtherTypes, BlockArrayIsAnInsertWithRowsAndColumns) {
  drawing.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x30).name =
      drawing.Text("Chair");
  Dwg_Entity_MINSERT insert{};
  insert.block_header = drawing.Ref(0x30);
  insert.num_cols = 2;
  insert.num_rows = 3;
  insert.col_spacing = 4;
  insert.row_spacing = 5;
  const std::string record = drawing.CompleteRecord(DWG_TYPE_MINSERT, &Tio::MINSERT, insert);
  EXPECT_TRUE(record.starts_with(R"({"type":"INSERT","layer":"0","blockName":"Chair",)")) << record;
  EXPECT_NE(record.find(R"("columns":2,"rows":3,"columnSpacing":4,"rowSpacing":5)"),
            std::string::npos);
  EXPECT_TRUE(drawing.warnings.empty());
}

TEST_F(FurtherTypes, SolidsHaveTheirWiresOrAReason) {
  Dwg_Entity_3DSOLID solid{};
  solid.version = 1;
  solid.num_wires = 1;
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE__3DSOLID, &Tio::_3DSOLID, solid),
            R"("hasModelerData":true,"modelerVersion":1,)"
            R"("reason":"the drawing stores no lines for it")");
  Dwg_3DSOLID_wire wire{};
  wire.num_points = 2;
  wire.points = drawing.Array<BITCODE_3BD>({{0, 0, 0}, {1, 2, 3}});
  solid.wires = &wire;
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE__3DSOLID, &Tio::_3DSOLID, solid),
            R"("hasModelerData":true,"modelerVersion":1,"wires":[{"points":[[0,0,0],[1,2,3]]}],)"
            R"("silhouettes":[])");
}

TEST_F(FurtherTypes, UnderlayThatIsNotFoundHasItsDeclaredPath) {
  auto& definition = drawing.AddObject(DWG_TYPE_DWFDEFINITION, &ObjectTio::DWFDEFINITION, 0x30);
  definition.filename = drawing.Text("no/such.dwf");
  definition.name = drawing.Text("Plan");
  Dwg_Entity_DWFUNDERLAY underlay{};
  underlay.definition_id = drawing.Ref(0x30);
  underlay.flag = 2;
  underlay.scale = {3, 4, 5};
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_DWFUNDERLAY, &Tio::DWFUNDERLAY, underlay),
            R"("path":"no/such.dwf","page":1,"ix":0,"iy":0,"sx":3,"sy":4,"angle":0,)"
            R"("sheet":"Plan","found":false)");
}

TEST_F(FurtherTypes, UnderlayThatIsTurnedOffSaysIt) {
  drawing.AddObject(DWG_TYPE_DWFDEFINITION, &ObjectTio::DWFDEFINITION, 0x30);
  Dwg_Entity_DWFUNDERLAY underlay{};
  underlay.definition_id = drawing.Ref(0x30);
  const std::string hidden =
      drawing.CompleteRecord(DWG_TYPE_DWFUNDERLAY, &Tio::DWFUNDERLAY, underlay);
  EXPECT_NE(hidden.find(R"("shown":false)"), std::string::npos) << hidden;
  underlay.definition_id = nullptr;
  EXPECT_EQ(drawing.CompleteRecord(DWG_TYPE_DWFUNDERLAY, &Tio::DWFUNDERLAY, underlay), "");
}

namespace {

Bytes Bitmap(std::uint32_t extra) {
  ByteWriter writer;
  Bytes head = {'B', 'M'};
  Bytes bytes = ByteWriter().Bytes(head).Long(54 + extra).Long(0).Long(54).bytes();
  bytes.resize(54 + extra, 7);
  return bytes;
}

}  // namespace

TEST(Ole, PictureAtTheStartOfTheBytes) {
  EXPECT_EQ(FindPicture(Bytes{}).kind, "");
  EXPECT_EQ(FindPicture(Bytes{'B', 'M'}).kind, "");
  EXPECT_EQ(FindPicture(Bytes{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}).kind, "png");
  EXPECT_EQ(FindPicture(Bytes{0xFF, 0xD8, 0xFF}).base64, "/9j/");
  EXPECT_EQ(FindPicture(Bytes{'G', 'I', 'F', '8'}).base64, "R0lGOA==");
  EXPECT_EQ(FindPicture(Bitmap(0)).kind, "bmp");
  Bytes longer = Bitmap(0);
  longer.push_back(1);
  EXPECT_EQ(FindPicture(longer).base64, FindPicture(Bitmap(0)).base64);
}

namespace {

constexpr std::uint32_t kEnd = 0xFFFFFFFE;
constexpr std::uint32_t kFree = 0xFFFFFFFF;

// A compound file of sectors of 512 bytes: sector 0 is the table, 1 the directory with
// the root and one stream, which lies in sectors 2 to 2 + ceil(length / 512) - 1.
Bytes CompoundFile(const Bytes& stream, std::uint32_t afterLast = kEnd) {
  const auto sectors = static_cast<std::uint32_t>((stream.size() + 511) / 512);
  ByteWriter header;
  header.Bytes({0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1});
  header.Bytes(Bytes(16, 0)).Long(0x0003003E).Bytes({0xFE, 0xFF, 9, 0, 6, 0});
  header.Bytes(Bytes(10, 0)).Long(1).Long(1).Long(0).Long(16).Long(kEnd).Long(0).Long(kEnd);
  header.Long(0).Long(0);
  while (header.bytes().size() < 512) {
    header.Long(kFree);
  }
  header.Long(0xFFFFFFFD).Long(kEnd);
  for (std::uint32_t i = 0; i < sectors; ++i) {
    header.Long(i + 1 == sectors ? afterLast : i + 3);
  }
  while (header.bytes().size() < 1024) {
    header.Long(kFree);
  }
  const auto entry = [&](unsigned char kind, std::uint32_t start, std::uint32_t length) {
    header.Bytes(Bytes(66, 0))
        .Bytes({kind, 1})
        .Bytes(Bytes(48, 0))
        .Long(start)
        .Long(length)
        .Long(0);
  };
  entry(5, kEnd, 0);
  entry(2, 2, static_cast<std::uint32_t>(stream.size()));
  header.Bytes(Bytes(256, 0)).Bytes(stream);
  return header.bytes();
}

}  // namespace

TEST(Ole, PictureInAStreamOfACompoundFile) {
  const Bytes bitmap = Bitmap(1000);
  const auto streams = StreamsOf(CompoundFile(bitmap));
  ASSERT_EQ(streams.size(), 1U);
  EXPECT_EQ(streams[0], bitmap);
  EXPECT_EQ(FindPicture(CompoundFile(bitmap)).kind, "bmp");
}

TEST(Ole, StreamInACircleEnds) {
  const Bytes bitmap = Bitmap(1000);
  Bytes file = CompoundFile(bitmap, 2);
  // The entry says more than there is.
  file[1024 + 128 + 120 + 2] = 0xFF;
  const auto streams = StreamsOf(file);
  ASSERT_EQ(streams.size(), 1U);
  EXPECT_LE(streams[0].size(), file.size());
}

TEST(Ole, CompoundFileMayEndAnywhere) {
  const Bytes whole = CompoundFile(Bitmap(1000));
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    const auto streams = StreamsOf(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
    for (const auto& stream : streams) {
      EXPECT_LE(stream.size(), size);
    }
  }
}

TEST_F(FurtherTypes, OleFrameCornersStandBeforeTheObject) {
  ByteWriter writer;
  writer.Bytes({0x80, 0x55}).Doubles({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
  Bytes data = writer.bytes();
  data.resize(128);
  Dwg_Entity_OLE2FRAME frame{};
  frame.type = 2;
  frame.data_size = static_cast<BITCODE_BL>(data.size());
  frame.data = data.data();
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_OLE2FRAME, &Tio::OLE2FRAME, frame),
            R"("kind":"embedded","corners":[[1,2,3],[4,5,6],[7,8,9],[10,11,12]],)"
            R"("reason":"what is embedded is no bitmap")");
}

TEST_F(FurtherTypes, ObsoleteTypes) {
  Dwg_Entity__3DLINE line{};
  line.start = {1, 2, 3};
  line.end = {4, 5, 6};
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE__3DLINE, &Tio::_3DLINE, line),
            R"("startX":1,"startY":2,"startZ":3,"endX":4,"endY":5,"endZ":6)");
  Dwg_Entity_ENDREP repeat{};
  repeat.numcols = 2;
  repeat.numrows = 3;
  EXPECT_EQ(drawing.OwnKeys(DWG_TYPE_ENDREP, &Tio::ENDREP, repeat),
            R"("columns":2,"rows":3,"columnSpacing":0,"rowSpacing":0)");
}

TEST_F(FurtherTypes, LightsAndSections) {
  Dwg_Entity_LIGHT light{};
  light.name = drawing.Text("Lamp");
  light.type = 2;
  light.position = {1, 2, 3};
  light.light_color.rgb = 0xC20000FF;
  light.light_color.index = 256;
  EXPECT_TRUE(drawing.OwnKeys(DWG_TYPE_LIGHT, &Tio::LIGHT, light)
                  .starts_with(R"("name":"Lamp","kind":"point","on":false,"position":[1,2,3],)"
                               R"("target":[0,0,0],"intensity":0,)"
                               R"("lightColor":{"r":0,"g":0,"b":255},)"));
  Dwg_Entity_SECTIONOBJECT section{};
  section.num_verts = 2;
  section.verts = drawing.Array<BITCODE_3BD>({{1, 2, 3}, {4, 5, 6}});
  EXPECT_NE(drawing.OwnKeys(DWG_TYPE_SECTIONOBJECT, &Tio::SECTIONOBJECT, section)
                .find(R"("points":[[1,2,3],[4,5,6]],"backPoints":[])"),
            std::string::npos);
}
