#include "entities/handle_map.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

#include "tests/support/value_at.hpp"

TEST(HandleMap, EmptyMapHoldsNothing) {
  const HandleMap<int> map;
  EXPECT_EQ(map.Find(0), nullptr);
  EXPECT_EQ(map.Find(0x10), nullptr);
}

TEST(HandleMap, LaterValueReplacesTheEarlierOne) {
  HandleMap<std::string> map;
  map[0x10] = "first";
  map[0x10] = "second";
  EXPECT_EQ(ValueAt(map, 0x10), "second");
}

TEST(HandleMap, ValueIsMadeWhereThereIsNone) {
  HandleMap<int> map;
  EXPECT_EQ(map[0x10], 0);
  EXPECT_EQ(ValueAt(map, 0x10), 0);
  EXPECT_EQ(map.Find(0x11), nullptr);
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
  for (const auto& [key, value] : expected) {
    const int* found = map.Find(key);
    ASSERT_NE(found, nullptr) << key;
    ASSERT_EQ(*found, value) << key;
    ASSERT_EQ(map.Find(key + 1) != nullptr, expected.contains(key + 1)) << key;
  }
}
