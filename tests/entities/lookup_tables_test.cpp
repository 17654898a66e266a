#include "entities/lookup_tables.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

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

}  // namespace
