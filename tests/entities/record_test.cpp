#include "entities/record.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/written.hpp"

namespace {

Dwg_Object_Entity Entity(int index, int lineweight) {
  Dwg_Object_Entity entity{};
  entity.color.index = static_cast<BITCODE_BSd>(index);
  entity.linewt = static_cast<BITCODE_RC>(lineweight);
  return entity;
}

std::string CommonKeys(const Dwg_Object_Entity& entity, bool verbose = false) {
  JsonOut out;
  AppendCommonKeys(out, entity, verbose);
  return out.Text();
}

}  // namespace

TEST(Record, BeginsWithItsTypeAndItsLayerAsGiven) {
  EXPECT_EQ(Written(BeginRecord, "LINE", R"("a\"b")"), R"({"type":"LINE","layer":"a\"b")");
}

TEST(Record, EndsWithABrace) {
  EXPECT_EQ(Written(EndRecord), "}");
}

TEST(CommonKeys, ColourAndLineweightMayBothComeFromTheLayer) {
  EXPECT_EQ(CommonKeys(Entity(256, 29)), R"(,"color":"L","lw":"L")");
}

TEST(CommonKeys, ByBlockLineweightIsReportedAsByLayer) {
  EXPECT_EQ(CommonKeys(Entity(0, 30)), R"(,"color":"K","lw":"L")");
}

TEST(CommonKeys, EitherMayComeFromTheLayerAlone) {
  EXPECT_EQ(CommonKeys(Entity(256, 7)), R"(,"color":"L","lw":25)");
  EXPECT_EQ(CommonKeys(Entity(7, 29)), R"(,"color":"W","lw":"L")");
}

TEST(CommonKeys, VerboseAddsTheStoredFieldsByLayerToo) {
  EXPECT_EQ(CommonKeys(Entity(256, 29), true),
            R"(,"color":"L","lw":"L","_dbg":{"color_index":256,"color_alpha_type":0,)"
            R"("color_alpha":0,"color_alpha_raw":0})");
}

TEST(CommonKeys, VerboseAddsTheStoredFields) {
  Dwg_Object_Entity entity = Entity(-3, 7);
  entity.color.alpha_type = 3;
  entity.color.alpha = 255;
  entity.color.alpha_raw = 0xFFFFFFFF;
  EXPECT_EQ(CommonKeys(entity, true),
            R"(,"color":{"r":0,"g":0,"b":0},"lw":25,)"
            R"("_dbg":{"color_index":-3,"color_alpha_type":3,"color_alpha":255,)"
            R"("color_alpha_raw":4294967295})");
}
