#include "encode/json_list.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/written.hpp"

TEST(JsonList, PairsAreOneFlatSequence) {
  JsonOut out;
  JsonList list(out);
  EXPECT_TRUE(list.IsEmpty());
  list.Pair(1, 2.5);
  list.Pair(-0.0, std::numeric_limits<double>::infinity());
  list.Close();
  EXPECT_FALSE(list.IsEmpty());
  EXPECT_EQ(out, "[1,2.5,-0,0]");
}

TEST(JsonList, PointsHaveBracketsOfTheirOwn) {
  JsonOut out;
  JsonList list(out);
  list.Point(1, 2);
  list.Point(3, 4, 5);
  list.Close();
  EXPECT_EQ(out, "[[1,2],[3,4,5]]");
}

TEST(JsonList, NumbersAndTextsAreJoinedByCommas) {
  JsonOut out;
  JsonList list(out, ",\"key\":[");
  list.Number(0.5);
  list.Quoted("a\"b");
  list.Number(2);
  list.Close();
  EXPECT_EQ(out, R"(,"key":[0.5,"a\"b",2])");
}

TEST(JsonList, EmptyListIsItsBrackets) {
  JsonOut out;
  JsonList(out).Close();
  EXPECT_EQ(out, "[]");
}

TEST(JsonList, ItemsMayBeListsThemselves) {
  JsonOut out;
  JsonList list(out);
  for (const int x : {1, 2}) {
    list.Item([&] {
      JsonList inner(out);
      inner.Pair(x, 0);
      inner.Close();
    });
  }
  list.Close();
  EXPECT_EQ(out, "[[1,0],[2,0]]");
}

TEST(JsonList, ItemThatWritesNothingLeavesNoComma) {
  JsonOut out;
  JsonList list(out);
  const auto nothing = [] {};
  list.Item(nothing);
  EXPECT_TRUE(list.IsEmpty());
  list.Number(1);
  list.Item(nothing);
  list.Number(2);
  list.Item(nothing);
  list.Close();
  EXPECT_EQ(out, "[1,2]");
}

TEST(JsonList, ItemMayBeTakenBack) {
  JsonOut out;
  JsonList list(out);
  const auto takenBack = [&out] {
    const std::size_t start = out.size();
    out += "[1,2,3";
    out.Truncate(start);
  };
  list.Item(takenBack);
  list.Quoted("a");
  list.Item(takenBack);
  list.Close();
  EXPECT_EQ(out, R"(["a"])");
}
