#include "entities/lookup_tables.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::size_t LargestBucket(const HandleSet& set) {
  std::size_t largest = 0;
  for (std::size_t i = 0; i < set.bucket_count(); ++i) {
    largest = std::max(largest, set.bucket_size(i));
  }
  return largest;
}

// What a drawing made to hurt does: its handles are multiples of the number of
// buckets that the table will have, and would all lie in the first one.
TEST(HandleHashTest, HandlesChosenForOneBucketSpreadOverAll) {
  constexpr std::size_t kCount = 50'000;
  HandleSet sizes;
  for (Handle handle = 1; handle <= kCount; ++handle) {
    sizes.insert(handle);
  }
  HandleSet chosen;
  for (Handle factor = 1; factor <= kCount; ++factor) {
    chosen.insert(factor * sizes.bucket_count());
  }
  ASSERT_EQ(chosen.bucket_count(), sizes.bucket_count());
  EXPECT_LE(LargestBucket(chosen), 30U);
  EXPECT_LE(LargestBucket(sizes), 30U);
}

TEST(HandleHashTest, HandlesThatDifferOnlyInHighBitsSpread) {
  HandleSet set;
  for (Handle handle = 1; handle <= 20'000; ++handle) {
    set.insert(handle << 48U);
  }
  EXPECT_LE(LargestBucket(set), 30U);
}

TEST(LookupTablesTest, ObjectWithoutHandleOwnsNothing) {
  LookupTables tables;
  const Dwg_Object object{};
  tables.entitiesByOwner.Add(0, object);
  tables.entitiesByOwner.Finish();
  EXPECT_TRUE(tables.OwnedBy(object).empty());
  EXPECT_EQ(tables.OwnedBy(Handle{0}).size(), 1U);
}

class EntitiesByOwnerTest : public testing::Test {
 protected:
  // Adds an entity for each of the owners.
  void Add(const std::vector<Handle>& owners) {
    objects_.resize(owners.size());
    for (std::size_t i = 0; i < owners.size(); ++i) {
      entities_.Add(owners[i], objects_[i]);
    }
    entities_.Finish();
  }

  // Which of the entities the owner has, by the order in which they were added.
  std::vector<std::ptrdiff_t> Of(Handle owner) const {
    std::vector<std::ptrdiff_t> positions;
    for (const Dwg_Object* entity : entities_.Of(owner)) {
      positions.push_back(entity - objects_.data());
    }
    return positions;
  }

  EntitiesByOwner entities_;
  std::vector<Dwg_Object> objects_;
};

TEST_F(EntitiesByOwnerTest, NoEntitiesFormNoGroups) {
  Add({});
  EXPECT_THAT(Of(0), IsEmpty());
}

TEST_F(EntitiesByOwnerTest, GroupsThatStandTogetherStayInOrder) {
  Add({9, 9, 4, 7, 7, 7});
  EXPECT_THAT(Of(9), ElementsAre(0, 1));
  EXPECT_THAT(Of(4), ElementsAre(2));
  EXPECT_THAT(Of(7), ElementsAre(3, 4, 5));
  EXPECT_THAT(Of(5), IsEmpty());
}

TEST_F(EntitiesByOwnerTest, ScatteredGroupsKeepTheirOrder) {
  Add({9, 9, 4, 9, 0, 4, 4, 0, 9});
  EXPECT_THAT(Of(9), ElementsAre(0, 1, 3, 8));
  EXPECT_THAT(Of(4), ElementsAre(2, 5, 6));
  EXPECT_THAT(Of(0), ElementsAre(4, 7));
}

TEST_F(EntitiesByOwnerTest, FirstEntityMayHaveNoOwner) {
  Add({0, 3, 0});
  EXPECT_THAT(Of(0), ElementsAre(0, 2));
  EXPECT_THAT(Of(3), ElementsAre(1));
}

}  // namespace
