#include "entities/handle_map.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

#include "tests/support/value_at.hpp"

using testing::ElementsAre;
using testing::Pair;

TEST(HandleMap, EmptyMapHoldsNothing) {
  const HandleMap<int> map;
  EXPECT_TRUE(map.empty());
  EXPECT_FALSE(map.contains(0));
  EXPECT_EQ(map.Find(0x10), nullptr);
}

TEST(HandleMap, LaterValueReplacesTheEarlierOne) {
  HandleMap<std::string> map;
  map[0x10] = "first";
  map[0x10] = "second";
  EXPECT_EQ(ValueAt(map, 0x10), "second");
  EXPECT_EQ(map.size(), 1U);
}

TEST(HandleMap, KeepsTheOrderOfFirstInsertions) {
  HandleMap<int> map = {{9, 1}, {3, 2}};
  map[7] = 3;
  map[9] = 4;
  EXPECT_THAT(map, ElementsAre(Pair(9, 4), Pair(3, 2), Pair(7, 3)));
}

TEST(HandleMap, ClearedMapCanBeFilledAgain) {
  HandleMap<int> map = {{1, 1}};
  map.clear();
  EXPECT_FALSE(map.contains(1));
  map[2] = 5;
  EXPECT_THAT(map, ElementsAre(Pair(2, 5)));
}

// Keys of one residue, of one high half, extremes and random ones, against the
// standard library's table.
TEST(HandleMap, AgreesWithTheStandardLibrary) {
  HandleMap<int> map;
  std::unordered_map<Handle, int> expected;
  std::mt19937_64 generator(20240229);
  for (int i = 0; i < 20'000; ++i) {
    const Handle random = generator();
    for (const Handle key : {random % 5000, random << 32U, random & ~Handle{0xFFFF}, ~random % 7}) {
      map[key] = i;
      expected[key] = i;
    }
  }
  ASSERT_EQ(map.size(), expected.size());
  for (const auto& [key, value] : expected) {
    ASSERT_TRUE(map.contains(key)) << key;
    const int* found = map.Find(key);
    ASSERT_EQ(found == nullptr ? -1 : *found, value) << key;
    ASSERT_EQ(map.contains(key + 1), expected.contains(key + 1)) << key;
  }
}
