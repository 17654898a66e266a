#include "complete/dimensions.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <numbers>
#include <string>
#include <vector>

#include "complete/dimension_measure.hpp"
#include "tests/support/drawn_types.hpp"

namespace {

using testing::Test;

constexpr double kPi = std::numbers::pi;
constexpr Handle kStyle = 0x20;
constexpr Handle kBlock = 0x21;

class CompleteDimensions : public Test {
 protected:
  CompleteDimensions() {
    auto& style = drawing.AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, kStyle);
    style.name = drawing.Text("Site");
    style.DIMLUNIT = 2;
    style.DIMDEC = 1;
    style.DIMLFAC = 1;
    style.DIMDSEP = '.';
    style.DIMTXT = 3;
    drawing.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, kBlock).name =
        drawing.Text("*D7");
  }

  template <typename Dimension>
  void Fill(Dimension& dimension) {
    dimension.dimstyle = drawing.Ref(kStyle);
    dimension.block = drawing.Ref(kBlock);
    dimension.extrusion = {0, 0, 1};
    dimension.attachment = 5;
  }

  // Extended data as the library holds them: one structure a value.
  Dwg_Eed Value(BITCODE_RC code) {
    Dwg_Eed value{};
    value.data = &drawing.New<Dwg_Eed_Data>();
    value.data->code = code;
    return value;
  }
  Dwg_Eed Text(const std::string& text) {
    // The text lies behind the structure's fixed part.
    auto& bytes = drawing.New<std::vector<char>>();
    bytes.resize(sizeof(Dwg_Eed_Data) + text.size() + 1);
    auto* data = reinterpret_cast<Dwg_Eed_Data*>(bytes.data());
    data->code = 0;
    data->u.eed_0.length = static_cast<BITCODE_RS>(text.size());
    std::memcpy(data->u.eed_0.string, text.data(), text.size());
    Dwg_Eed value{};
    value.data = data;
    return value;
  }
  Dwg_Eed Short(BITCODE_RS number) {
    Dwg_Eed value = Value(70);
    value.data->u.eed_70.rs = number;
    return value;
  }
  Dwg_Eed Real(double number) {
    Dwg_Eed value = Value(40);
    value.data->u.eed_40.real = number;
    return value;
  }

  DrawnTypes drawing;
};

}  // namespace

TEST_F(CompleteDimensions, AlignedDimensionHasWhatItShows) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  Fill(dimension);
  dimension.xline1_pt = {1, 2, 9};
  dimension.xline2_pt = {4, 6, 9};
  dimension.def_pt = {0, 8, 0};
  dimension.user_text = drawing.Text("L=<>");
  EXPECT_EQ(
      drawing.FurtherKeys(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, dimension),
      R"("definitionPoint":[0,8,0],"extensionPoint1":[1,2,9],"extensionPoint2":[4,6,9],)"
      R"("measured":5,"measuredText":"5.0","text":"L=5.0","html":"<p>L=5.0</p>",)"
      R"("attachment":5,"textRotationRad":0,"textIsPlacedByUser":false,)"
      R"("dimensionStyle":"Site","blockName":"*D7")");
}

TEST_F(CompleteDimensions, StoredMeasureComesFirst) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  Fill(dimension);
  dimension.xline2_pt = {3, 4, 0};
  dimension.act_measurement = 7;
  EXPECT_NE(
      drawing.FurtherKeys(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, dimension)
          .find(R"("measured":7,"measuredText":"7.0")"),
      std::string::npos);
}

// As programs store it that do not measure.
TEST_F(CompleteDimensions, AStoredMeasureOfMinusOneIsNone) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  Fill(dimension);
  dimension.xline1_pt = {0, 0, 0};
  dimension.xline2_pt = {3, 4, 0};
  dimension.act_measurement = -1;
  EXPECT_NE(
      drawing.FurtherKeys(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, dimension)
          .find(R"("measured":5,"measuredText":"5.0")"),
      std::string::npos);
}

TEST_F(CompleteDimensions, DimensionsOwnVariablesReplaceTheStyles) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  Fill(dimension);
  dimension.act_measurement = 5;
  drawing.AddEntity(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, 0x78) = dimension;
  const std::vector<Dwg_Eed> values = {Text("DSTYLE"), Value(2),     Short(271), Short(3),
                                       Short(3),       Text("<> m"), Short(144), Real(0.01),
                                       Short(0x7FFF),  Short(1),     Value(2)};
  Dwg_Object_Entity& entity = drawing.lastEntity();
  entity.num_eed = static_cast<BITCODE_BL>(values.size());
  entity.eed = drawing.Array(values);
  const std::string record = drawing.RecordOf(drawing.last());
  EXPECT_NE(record.find(R"("measuredText":"0.050 m")"), std::string::npos) << record;
  EXPECT_NE(record.find(R"("styleOverrides":{"DIMPOST":"<> m","DIMLFAC":0.01,"DIMDEC":3})"),
            std::string::npos)
      << record;
}

TEST_F(CompleteDimensions, ExtendedDataMayEndAnywhere) {
  const std::vector<Dwg_Eed> all = {Text("DSTYLE"), Value(2), Short(271), Short(3)};
  for (std::size_t count = 0; count <= all.size(); ++count) {
    Dwg_Entity_DIMENSION_ALIGNED dimension{};
    Fill(dimension);
    drawing.AddEntity(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, 0x80 + count) =
        dimension;
    drawing.lastEntity().num_eed = static_cast<BITCODE_BL>(count);
    drawing.lastEntity().eed =
        drawing.Array(std::vector<Dwg_Eed>(all.begin(), all.begin() + static_cast<long>(count)));
    const std::string record = drawing.RecordOf(drawing.last());
    EXPECT_EQ(record.find("styleOverrides") != std::string::npos, count == all.size());
  }
}

TEST_F(CompleteDimensions, EveryNewKindHasARecord) {
  EXPECT_TRUE(drawing
                  .CompleteRecord(DWG_TYPE_DIMENSION_ANG2LN, &EntityTio::DIMENSION_ANG2LN,
                                  Dwg_Entity_DIMENSION_ANG2LN{})
                  .starts_with(R"({"type":"DIMENSION_ANG2LN","layer":"0","measurement":0,)"));
  EXPECT_TRUE(drawing
                  .CompleteRecord(DWG_TYPE_DIMENSION_ANG3PT, &EntityTio::DIMENSION_ANG3PT,
                                  Dwg_Entity_DIMENSION_ANG3PT{})
                  .starts_with(R"({"type":"DIMENSION_ANG3PT","layer":"0","measurement":0,)"));
  EXPECT_TRUE(drawing
                  .CompleteRecord(DWG_TYPE_ARC_DIMENSION, &EntityTio::ARC_DIMENSION,
                                  Dwg_Entity_ARC_DIMENSION{})
                  .starts_with(R"({"type":"ARC_DIMENSION","layer":"0","measurement":0,)"));
  EXPECT_TRUE(drawing
                  .CompleteRecord(DWG_TYPE_LARGE_RADIAL_DIMENSION,
                                  &EntityTio::LARGE_RADIAL_DIMENSION,
                                  Dwg_Entity_LARGE_RADIAL_DIMENSION{})
                  .starts_with(R"({"type":"LARGE_RADIAL_DIMENSION","layer":"0","measurement":0,)"));
}

TEST_F(CompleteDimensions, OrdinateNamesItsAxis) {
  Dwg_Entity_DIMENSION_ORDINATE dimension{};
  Fill(dimension);
  dimension.def_pt = {1, 1, 0};
  dimension.feature_location_pt = {4, 8, 0};
  dimension.leader_endpt = {9, 8, 0};
  const auto keys = [&] {
    return drawing.FurtherKeys(DWG_TYPE_DIMENSION_ORDINATE, &EntityTio::DIMENSION_ORDINATE,
                               dimension);
  };
  EXPECT_TRUE(keys().starts_with(
      R"("origin":[1,1,0],"featurePoint":[4,8,0],"leaderEnd":[9,8,0],"axis":"y","measured":7,)"));
  dimension.flag = 64;
  EXPECT_NE(keys().find(R"("axis":"x","measured":3,)"), std::string::npos);
}

TEST(DimensionMeasure, LinearIsAlongTheDimensionLine) {
  Dwg_Entity_DIMENSION_LINEAR dimension{};
  dimension.xline2_pt = {3, 4, 0};
  EXPECT_DOUBLE_EQ(MeasureOf(dimension), 3);
  dimension.dim_rotation = kPi / 2;
  EXPECT_DOUBLE_EQ(MeasureOf(dimension), 4);
}

// Two lines that cross at the origin at 60 degrees: the sectors are 60 and 120.
TEST(DimensionMeasure, TwoLinesMeasureTheSectorOfTheArcPoint) {
  Dwg_Entity_DIMENSION_ANG2LN dimension{};
  dimension.xline1start_pt = {1, 0, 0};
  dimension.xline1end_pt = {5, 0, 0};
  dimension.xline2start_pt = {0.5, 0.8660254037844386, 0};
  dimension.def_pt = {1, 1.7320508075688772, 0};
  dimension.xline2end_pt = {2, 1, 0};
  EXPECT_NEAR(MeasureOf(dimension), kPi / 3, 1e-12);
  dimension.xline2end_pt = {0, 2, 0};
  EXPECT_NEAR(MeasureOf(dimension), 2 * kPi / 3, 1e-12);
  dimension.xline2end_pt = {-2, -1, 0};
  EXPECT_NEAR(MeasureOf(dimension), kPi / 3, 1e-12);
  dimension.def_pt = {1.5, 0.8660254037844386, 0};
  EXPECT_EQ(MeasureOf(dimension), 0) << "parallel lines";
}

TEST(DimensionMeasure, ThreePointsMeasureTheSideOfTheArcPoint) {
  Dwg_Entity_DIMENSION_ANG3PT dimension{};
  dimension.xline1_pt = {1, 0, 0};
  dimension.xline2_pt = {0, 1, 0};
  dimension.def_pt = {1, 1, 0};
  EXPECT_NEAR(MeasureOf(dimension), kPi / 2, 1e-12);
  dimension.def_pt = {-1, -1, 0};
  EXPECT_NEAR(MeasureOf(dimension), 3 * kPi / 2, 1e-12);
}

TEST(DimensionMeasure, ArcLengthIsRadiusTimesAngle) {
  Dwg_Entity_ARC_DIMENSION dimension{};
  dimension.xline1_pt = {2, 0, 0};
  dimension.xline2_pt = {0, 2, 0};
  dimension.def_pt = {3, 3, 0};
  EXPECT_NEAR(MeasureOf(dimension), kPi, 1e-12);
}
