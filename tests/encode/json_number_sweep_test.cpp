// The number text against the C library's over more than ten million values.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "encode/fast/number_text.hpp"

namespace {

// Counts values and mismatches, of which it reports the first few.
class Sweep {
 public:
  void Check(double value) {
    ++count_;
    std::array<char, 64> expected;
    const int length = std::isfinite(value)
                           ? std::snprintf(expected.data(), expected.size(), "%.10g", value)
                           : std::snprintf(expected.data(), expected.size(), "0");
    std::array<char, kNumberRoom> room;
    actual_.assign(room.data(), WriteNumber(room.data(), value));
    if (actual_.size() != static_cast<std::size_t>(length) ||
        std::memcmp(actual_.data(), expected.data(), actual_.size()) != 0) {
      Report(value, expected.data());
    }
  }

  void CheckWithNeighbours(double value) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double sign : {1.0, -1.0}) {
      Check(sign * value);
      Check(std::nextafter(sign * value, kInfinity));
      Check(std::nextafter(sign * value, -kInfinity));
    }
  }

  std::size_t count() const { return count_; }
  std::size_t mismatches() const { return mismatches_; }

 private:
  void Report(double value, const char* expected) {
    if (++mismatches_ <= 5) {
      ADD_FAILURE() << "bits " << std::hex << std::bit_cast<std::uint64_t>(value) << ": " << actual_
                    << " instead of " << expected;
    }
  }

  std::string actual_;
  std::size_t count_ = 0;
  std::size_t mismatches_ = 0;
};

// Fixed, so that every run checks the same values.
std::mt19937_64 Generator() {
  return std::mt19937_64(20240229);
}

}  // namespace

TEST(JsonNumberSweep, RandomBitPatterns) {
  Sweep sweep;
  auto generator = Generator();
  for (int i = 0; i < 2'000'000; ++i) {
    sweep.Check(std::bit_cast<double>(generator()));
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
  EXPECT_EQ(sweep.count(), 2'000'000U);
}

// What drawings hold: coordinates with a few decimals.
TEST(JsonNumberSweep, DecimalFractions) {
  Sweep sweep;
  auto generator = Generator();
  for (int i = 0; i < 3'500'000; ++i) {
    const std::uint64_t word = generator();
    const auto digits = static_cast<double>(static_cast<std::int64_t>(word) >> (word % 53));
    sweep.Check(digits / std::pow(10.0, static_cast<double>(word >> 32U & 15U)));
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}

// Halves of the tenth digit, where rounding decides.
TEST(JsonNumberSweep, TiesOfTheTenthDigit) {
  Sweep sweep;
  auto generator = Generator();
  for (int i = 0; i < 1'500'000; ++i) {
    const std::uint64_t word = generator();
    const auto tenDigits = static_cast<double>(1'000'000'000 + word % 9'000'000'000);
    sweep.Check((tenDigits + 0.5) * std::pow(10.0, static_cast<double>(word >> 40U & 31U) - 16));
    sweep.Check(tenDigits + 0.5);
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}

TEST(JsonNumberSweep, Integers) {
  Sweep sweep;
  for (int i = -300'000; i <= 300'000; ++i) {
    sweep.Check(i);
    sweep.Check(1e10 + i);
    sweep.Check(1e10 + i / 1024.0);
    sweep.Check(1e9 + i / 16.0);
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}

TEST(JsonNumberSweep, Denormals) {
  Sweep sweep;
  auto generator = Generator();
  for (int i = 0; i < 200'000; ++i) {
    const std::uint64_t word = generator();
    sweep.Check(std::bit_cast<double>(word & 0x800FFFFFFFFFFFFFU));
    sweep.Check(std::bit_cast<double>(static_cast<std::uint64_t>(i)));
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}

TEST(JsonNumberSweep, PowersOfTenAndTwoWithTheirNeighbours) {
  Sweep sweep;
  for (int exponent = -330; exponent <= 308; ++exponent) {
    const double power = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
    for (int digit = 1; digit <= 9; ++digit) {
      sweep.CheckWithNeighbours(digit * power);
      sweep.CheckWithNeighbours((digit + 0.99999999995) * power);
    }
  }
  for (int exponent = -1074; exponent <= 1023; ++exponent) {
    sweep.CheckWithNeighbours(std::ldexp(1.0, exponent));
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}

TEST(JsonNumberSweep, BoundariesWithTheirNeighbours) {
  Sweep sweep;
  for (const double value : {0.0,
                             9999999999.5,
                             999999999.95,
                             9999999999.0,
                             1e10,
                             99999.99999499999,
                             99999.999995,
                             1e-4,
                             0.00009999999999,
                             0.000099999999995,
                             9.9999999995,
                             0.99999999995,
                             2147483648.0,
                             4294967296.0,
                             9007199254740992.0,
                             9223372036854775808.0,
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    sweep.CheckWithNeighbours(value);
  }
  EXPECT_EQ(sweep.mismatches(), 0U);
}
