#include "scene/color.hpp"

#include <gtest/gtest.h>

#include "document.hpp"

namespace preview {
namespace {

constexpr Ink kRed{.foreground = false, .rgba = qRgba(255, 0, 0, 255)};
constexpr Ink kGreen{.foreground = false, .rgba = qRgba(0, 255, 0, 255)};

class Colors : public testing::Test {
 protected:
  Drawing drawing_ = DrawingOf("", "", kLayers);
  LayerTable layers_{drawing_.layers};

  Ink Resolve(const char* record, int layer, const Inherited& from = {}) {
    return ResolveColor(Json(record)["color"], layer, from, layers_);
  }
};

TEST_F(Colors, TakesTheLayersColorByLayer) {
  EXPECT_EQ(Resolve("{'color':'L'}", 1), kRed);
}

TEST_F(Colors, TakesTheReferencesColorByBlock) {
  EXPECT_EQ(Resolve("{'color':'K'}", 1, {.layer = 0, .insideBlock = true, .byBlock = kGreen}),
            kGreen);
}

TEST_F(Colors, UsesTheForegroundByBlockOutsideOfBlocks) {
  EXPECT_TRUE(Resolve("{'color':'K'}", 1).foreground);
}

TEST_F(Colors, UsesTheForegroundForWhiteOrBlack) {
  EXPECT_TRUE(Resolve("{'color':'W'}", 1).foreground);
}

TEST_F(Colors, TakesAnExplicitColorWithItsOpacity) {
  EXPECT_EQ(Resolve("{'color':{'r':1,'g':2,'b':3,'a':64}}", 1),
            (Ink{.foreground = false, .rgba = qRgba(1, 2, 3, 64)}));
}

TEST_F(Colors, LimitsChannelsToAByte) {
  EXPECT_EQ(Resolve("{'color':{'r':999,'g':-5,'b':3}}", 1).rgba, qRgba(255, 0, 3, 255));
}

TEST_F(Colors, SeesABlackLayerAsTheForeground) {
  EXPECT_TRUE(Resolve("{'color':'L'}", 0).foreground);
}

TEST_F(Colors, SeesAnUnknownLayerAsTheForeground) {
  EXPECT_TRUE(Resolve("{'color':'L'}", -1).foreground);
}

TEST_F(Colors, KeepsTheLayersOpacity) {
  drawing_.layers[1].alpha = 100;
  EXPECT_EQ(qAlpha(Resolve("{'color':'L'}", 1).rgba), 100);
}

TEST_F(Colors, PutsPartsOnLayer0OnTheReferencesLayer) {
  const Inherited inside{.layer = 1, .insideBlock = true, .byBlock = {}};
  EXPECT_EQ(EffectiveLayer(Json("{'layer':'0'}"), inside, layers_), 1);
  EXPECT_EQ(EffectiveLayer(Json("{'layer':'Off'}"), inside, layers_), 2);
  EXPECT_EQ(EffectiveLayer(Json("{'layer':'0'}"), {}, layers_), 0);
}

TEST_F(Colors, TakesAnExplicitLineweightOrTheLayers) {
  EXPECT_EQ(ResolveLineweight(Json("{'lw':13}")["lw"], 1, {}, layers_), 13);
  EXPECT_EQ(ResolveLineweight(Json("{'lw':'L'}")["lw"], 1, {}, layers_), 50);
  EXPECT_EQ(ResolveLineweight(Json("{'lw':'L'}")["lw"], 0, {}, layers_), kDefaultLineweight);
  EXPECT_EQ(ResolveLineweight(Json("{'lw':'L'}")["lw"], -1, {}, layers_), kDefaultLineweight);
}

constexpr char kNested[] =
    "{'name':'Inner','entities':["
    "{'type':'LINE','layer':'0','endX':1,'color':'K','lw':'L'},"
    "{'type':'LINE','layer':'0','endX':1,'color':'L','lw':'L'},"
    "{'type':'LINE','layer':'Off','endX':1,'color':'L','lw':'L'}]},"
    "{'name':'Outer','entities':["
    "{'type':'INSERT','layer':'0','blockName':'Inner','color':'K','lw':'L'}]}";

TEST(NestedReferences, HandColorsByBlockThrough) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','layer':'Red','blockName':'Outer','color':{'r':0,'g':255,'b':0},'lw':'L'}",
      kNested, kLayers);
  EXPECT_EQ(scene.sheets[0].items[0].ink, kGreen);
}

TEST(NestedReferences, HandTheLayerOfPartsOnLayer0Through) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','layer':'Red','blockName':'Outer','color':'L','lw':'L'}", kNested, kLayers);
  const std::vector<Item>& items = scene.sheets[0].items;
  EXPECT_EQ(items[1].layer, 1);
  EXPECT_EQ(items[1].ink, kRed);
  EXPECT_EQ(items[1].lineweight, 50);
  EXPECT_EQ(items[2].layer, 2);
}

TEST(NestedReferences, ResolveByBlockOfAReferenceByLayerToItsLayer) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','layer':'Red','blockName':'Outer','color':'L','lw':'L'}", kNested, kLayers);
  EXPECT_EQ(scene.sheets[0].items[0].ink, kRed);
}

TEST(NestedReferences, RememberTheLayersAroundForFreezing) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','layer':'Red','blockName':'Outer','color':'L','lw':'L'}", kNested, kLayers);
  const Item& item = scene.sheets[0].items[2];
  EXPECT_EQ(scene.ownerSets[static_cast<std::size_t>(item.owners)], (std::vector<int>{1, 1}));
}

}  // namespace
}  // namespace preview
