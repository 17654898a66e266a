#include "encode/fast/wide_multiply.hpp"

#include <gtest/gtest.h>

#include <random>

namespace {

// The highest bit of one factor at a time, added up.
WideProduct ByAddition(std::uint64_t a, std::uint64_t b) {
  WideProduct sum{0, 0};
  for (int bit = 63; bit >= 0; --bit) {
    sum.high = sum.high << 1U | sum.low >> 63U;
    sum.low <<= 1U;
    if ((a >> static_cast<unsigned>(bit) & 1U) != 0) {
      sum.low += b;
      sum.high += sum.low < b ? 1 : 0;
    }
  }
  return sum;
}

void Check(std::uint64_t a, std::uint64_t b) {
  const WideProduct expected = ByAddition(a, b);
  EXPECT_EQ(MultiplyHalves(a, b).high, expected.high) << a << " * " << b;
  EXPECT_EQ(MultiplyHalves(a, b).low, expected.low) << a << " * " << b;
  EXPECT_EQ(MultiplyWide(a, b).high, expected.high) << a << " * " << b;
  EXPECT_EQ(MultiplyWide(a, b).low, expected.low) << a << " * " << b;
}

}  // namespace

TEST(WideMultiply, CarriesBetweenAllHalves) {
  for (const std::uint64_t a : {0ULL, 1ULL, 0xFFFFFFFFULL, 0x100000000ULL, ~0ULL, 1ULL << 63U}) {
    for (const std::uint64_t b : {0ULL, 1ULL, 0xFFFFFFFFULL, 0x100000000ULL, ~0ULL, 1ULL << 63U}) {
      Check(a, b);
    }
  }
}

TEST(WideMultiply, RandomFactors) {
  std::mt19937_64 generator(20240229);
  for (int i = 0; i < 100'000; ++i) {
    const std::uint64_t a = generator();
    Check(a >> (a & 31U), generator());
  }
}
