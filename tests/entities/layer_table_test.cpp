#include "entities/layer_table.hpp"

#include <gtest/gtest.h>

namespace {

Dwg_Object_Ref Reference(Handle handle) {
  Dwg_Object_Ref reference{};
  reference.absolute_ref = handle;
  return reference;
}

}  // namespace

TEST(LayerTable, NamesAreKeptAsTheyAreAndAsLiterals) {
  const LayerEntry layer("a\"b");
  EXPECT_EQ(layer.name, "a\"b");
  EXPECT_EQ(layer.quoted, R"("a\"b")");
}

TEST(LayerTable, LayersStayInTheirOrder) {
  LayerTable layers;
  layers.Add(0x20, LayerEntry("Z"));
  layers.Add(0x10, LayerEntry("A"));
  ASSERT_EQ(layers.All().size(), 2U);
  EXPECT_EQ(layers.All()[0].name, "Z");
  EXPECT_EQ(layers.All()[1].name, "A");
}

TEST(LayerTable, LaterLayerOfAHandleIsFoundAndTheEarlierStays) {
  LayerTable layers;
  layers.Add(0x20, LayerEntry("first"));
  layers.Add(0x20, LayerEntry("second"));
  const Dwg_Object_Ref reference = Reference(0x20);
  ASSERT_NE(layers.Find(&reference), nullptr);
  EXPECT_EQ(layers.Find(&reference)->name, "second");
  EXPECT_EQ(layers.All().size(), 2U);
}

TEST(LayerTable, EntityWithoutALayerOrOnAnUnknownOneIsOnLayerZero) {
  LayerTable layers;
  layers.Add(0x20, LayerEntry("A"));
  Dwg_Object_Entity entity{};
  EXPECT_EQ(layers.Of(entity).quoted, R"("0")");
  Dwg_Object_Ref reference = Reference(0x21);
  entity.layer = &reference;
  EXPECT_EQ(layers.Of(entity).quoted, R"("0")");
  reference.absolute_ref = 0x20;
  EXPECT_EQ(layers.Of(entity).name, "A");
  EXPECT_EQ(layers.Find(nullptr), nullptr);
}
