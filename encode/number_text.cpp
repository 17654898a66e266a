#include "encode/number_text.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "encode/wide_multiply.hpp"

namespace {

constexpr int kPrecision = 10;
constexpr std::uint64_t kTenDigits = 10'000'000'000;  // the least number with more
constexpr double kIntegerLimit = 1e10;
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63U;

// Between this limit and kIntegerLimit ten digits take a multiplication by a
// power of ten whose power of five fits into 64 bits, so that nothing is lost.
constexpr double kExactLimit = 1e-18;
constexpr int kMinExponent = -18;  // decimal exponents in that range
constexpr int kMaxExponent = 9;
constexpr int kMinBinaryExponent = -60;  // and binary ones
constexpr int kMaxBinaryExponent = 33;

// 10^kMinExponent to 10^(kMaxExponent + 1), as near as a double comes. A number
// that lies between one of these and the true power rounds up to the power.
constexpr std::array<double, 29> kPowersOfTen = {
    1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9,
    1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,
    1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10};

constexpr double PowerOfTen(int exponent) {
  return kPowersOfTen[static_cast<std::size_t>(exponent - kMinExponent)];
}

// The decimal exponent of 2^exponent.
constexpr int DecimalExponent(int exponent) {
  return (exponent * 1233) >> 12;
}

constexpr bool DecimalExponentsFit() {
  double power = 1;
  for (int i = 0; i <= kMaxBinaryExponent; ++i, power *= 2) {
    if (power < PowerOfTen(DecimalExponent(i)) || power >= PowerOfTen(DecimalExponent(i) + 1)) {
      return false;
    }
  }
  power = 0.5;
  for (int i = -1; i > kMinBinaryExponent; --i, power /= 2) {
    if (power < PowerOfTen(DecimalExponent(i)) || power >= PowerOfTen(DecimalExponent(i) + 1)) {
      return false;
    }
  }
  return DecimalExponent(kMinBinaryExponent) == kMinExponent - 1;
}
static_assert(DecimalExponentsFit());

// 5^n, moved up until its highest bit is set, and the shift that takes the high
// word of its product with a number's mantissa to a number times 10^n, short of
// the number's own binary exponent.
struct PowerOfFive {
  std::uint64_t mantissa = 0;
  int shift = 0;
};

constexpr std::array<PowerOfFive, kMaxExponent - kMinExponent + 1> MakePowersOfFive() {
  std::array<PowerOfFive, kMaxExponent - kMinExponent + 1> powers{};
  std::uint64_t power = 1;
  for (int n = 0; n <= kMaxExponent - kMinExponent; ++n, power *= 5) {
    const int zeros = std::countl_zero(power);
    powers[static_cast<std::size_t>(n)] = {power << zeros, zeros - n - 1};
  }
  return powers;
}

constexpr auto kPowersOfFive = MakePowersOfFive();
static_assert(kPowersOfFive[27].mantissa >> 1U == 7450580596923828125U);

// How the numbers of one binary exponent are taken to ten digits: those from
// `nextPower` on have a decimal exponent more than those below it.
struct Scale {
  double nextPower = 0;
  int exponent = 0;
  std::array<PowerOfFive, 2> powers;  // below `nextPower` and from it on
};

constexpr std::size_t kScaleCount = kMaxBinaryExponent - kMinBinaryExponent + 1;

constexpr std::array<Scale, kScaleCount> MakeScales() {
  std::array<Scale, kScaleCount> scales{};
  for (std::size_t n = 0; n < kScaleCount; ++n) {
    Scale& scale = scales[n];
    const int binary = kMinBinaryExponent + static_cast<int>(n);
    scale.exponent = DecimalExponent(binary);
    scale.nextPower = PowerOfTen(scale.exponent + 1);
    for (int i = 0; i < 2; ++i) {
      const int exponent = scale.exponent + i;
      if (exponent >= kMinExponent && exponent <= kMaxExponent) {
        PowerOfFive& power = scale.powers[static_cast<std::size_t>(i)];
        power = kPowersOfFive[static_cast<std::size_t>(kMaxExponent - exponent)];
        power.shift -= binary;
      }
    }
  }
  return scales;
}

constexpr auto kScales = MakeScales();

// Eight decimal digits as bytes, the first in the lowest byte. Each step parts
// all values into quotient and remainder, which goes into the upper half: with
// the quotient q of v by d, q + (v - q * d) * 2^k is v * 2^k - q * (d * 2^k - 1).
constexpr std::uint64_t EightDigits(std::uint32_t value) {
  const std::uint64_t four = value / 10000;
  const std::uint64_t fours = (std::uint64_t{value} << 32U) - four * ((10000ULL << 32U) - 1);
  const std::uint64_t hundreds = ((fours * 10486) >> 20U) & 0x0000007F0000007FU;
  const std::uint64_t twos = (fours << 16U) - hundreds * ((100U << 16U) - 1);
  const std::uint64_t tens = ((twos * 103) >> 10U) & 0x000F000F000F000FU;
  return (twos << 8U) - tens * ((10U << 8U) - 1);
}
static_assert(EightDigits(12345678) == 0x0807060504030201U);
static_assert(EightDigits(99999999) == 0x0909090909090909U);
static_assert(EightDigits(1020099) == 0x0909000002000100U);

// The characters of 00 to 99, the first in the lower byte.
constexpr std::array<std::uint16_t, 100> MakeTwoDigits() {
  std::array<std::uint16_t, 100> texts{};
  for (unsigned i = 0; i < texts.size(); ++i) {
    texts[i] = static_cast<std::uint16_t>(0x3030U | i / 10 | (i % 10) << 8U);
  }
  return texts;
}

constexpr std::array<std::uint16_t, 100> kTwoDigits = MakeTwoDigits();

constexpr std::uint64_t kEightZeros = 0x3030303030303030U;

// The words below hold their first character in the lowest byte.
constexpr bool kIsLittleEndian = std::endian::native == std::endian::little;

template <typename Word>
void Store(char* at, Word word) {
  std::memcpy(at, &word, sizeof word);
}

char* WriteLong(char* at, std::uint64_t value) {
  return std::to_chars(at, at + kNumberRoom / 2, value).ptr;
}

// Below kTenDigits.
char* WriteDigits(char* at, std::uint64_t value) {
  if (value < 10) {
    *at = static_cast<char>('0' + value);
    return at + 1;
  }
  if (!kIsLittleEndian) {
    return WriteLong(at, value);
  }
  if (value >= 100'000'000) {
    at = WriteDigits(at, value / 100'000'000);
    Store(at, EightDigits(static_cast<std::uint32_t>(value % 100'000'000)) | kEightZeros);
    return at + 8;
  }
  const std::uint64_t digits = EightDigits(static_cast<std::uint32_t>(value));
  // A lone zero keeps its digit.
  const int zeros = std::min(std::countr_zero(digits) / 8, 7);
  Store(at, (digits | kEightZeros) >> (8 * zeros));
  return at + 8 - zeros;
}

// Ten significant digits as characters, the first in the lowest byte of `head`,
// and how many of them are left without trailing zeros.
struct Digits {
  std::uint64_t head;
  std::uint16_t tail;
  int count;
  int exponent;  // of the first digit
};

Digits DigitsOf(std::uint64_t value, int exponent) {
  const auto eight = static_cast<std::uint32_t>(value / 100);
  const std::uint32_t two = static_cast<std::uint32_t>(value) - eight * 100;
  const std::uint64_t head = EightDigits(eight);
  const std::uint16_t tail = kTwoDigits[two];
  const int count = two == 0 ? 8 - std::countl_zero(head) / 8 : 10 - (tail < 0x3100 ? 1 : 0);
  return {head | kEightZeros, tail, count, exponent};
}

// The magnitude lies within the exact range. The product is exact, so that a
// tie is seen as one; it goes to the even digit.
Digits TenDigits(double magnitude) {
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const Scale& scale = kScales[(bits >> 52U) - (1023 + kMinBinaryExponent)];
  const std::size_t reachesNext = magnitude >= scale.nextPower ? 1 : 0;
  int exponent = scale.exponent + static_cast<int>(reachesNext);
  const PowerOfFive& power = scale.powers[reachesNext];
  const WideProduct product = MultiplyWide(bits << 11U | kSignBit, power.mantissa);
  std::uint64_t value = product.high >> power.shift;
  const std::uint64_t fraction = product.high << (64 - power.shift) | (product.low != 0 ? 1 : 0);
  value += fraction + (value & 1U) > kSignBit ? 1 : 0;
  if (value == kTenDigits) {
    value /= 10;
    ++exponent;
  }
  return DigitsOf(value, exponent);
}

// 1.234567: the point falls into the first eight characters.
char* WriteShortFixed(char* at, const Digits& digits) {
  const int whole = digits.exponent + 1;
  const int shift = 8 * whole;
  const std::uint64_t before = digits.head & ((std::uint64_t{1} << shift) - 1);
  const std::uint64_t after = (digits.head ^ before) << 8U;
  Store(at, before | std::uint64_t{'.'} << shift | after);
  Store(at + 8, static_cast<std::uint32_t>(digits.head >> 56U | std::uint32_t{digits.tail} << 8U));
  return at + (digits.count <= whole ? whole : digits.count + 1);
}

// 12345678.9: the point falls behind them.
char* WriteLongFixed(char* at, const Digits& digits) {
  const int whole = digits.exponent + 1;
  const int shift = 8 * (whole - 8);
  const std::uint32_t before = digits.tail & ((std::uint32_t{1} << shift) - 1);
  const std::uint32_t after = (digits.tail ^ before) << 8U;
  Store(at, digits.head);
  Store(at + 8, before | std::uint32_t{'.'} << shift | after);
  return at + (digits.count <= whole ? whole : digits.count + 1);
}

// 0.00123.
char* WriteSmallFixed(char* at, const Digits& digits) {
  // NOLINTNEXTLINE(bugprone-not-null-terminated-result)
  std::memcpy(at, "0.000000", 8);
  at += 1 - digits.exponent;
  Store(at, digits.head);
  Store(at + 8, digits.tail);
  return at + digits.count;
}

// 1.23e-05; the exponent has two digits here.
char* WriteExponential(char* at, const Digits& digits) {
  Store(at + 1, digits.head);
  Store(at + 9, digits.tail);
  at[0] = at[1];
  at[1] = '.';
  at += digits.count == 1 ? 1 : digits.count + 1;
  const int magnitude = digits.exponent < 0 ? -digits.exponent : digits.exponent;
  at[0] = 'e';
  at[1] = digits.exponent < 0 ? '-' : '+';
  at[2] = static_cast<char>('0' + magnitude / 10);
  at[3] = static_cast<char>('0' + magnitude % 10);
  return at + 4;
}

char* WriteDigits(char* at, const Digits& digits) {
  if (digits.exponent < -4 || digits.exponent >= kPrecision) {
    return WriteExponential(at, digits);
  }
  if (digits.exponent < 0) {
    return WriteSmallFixed(at, digits);
  }
  return digits.exponent < 7 ? WriteShortFixed(at, digits) : WriteLongFixed(at, digits);
}

// Numbers so large or small that the exact product would not fit.
char* WriteRare(char* at, double value) {
  if (!(std::fabs(value) <= std::numeric_limits<double>::max())) {
    *at = '0';
    return at + 1;
  }
  return std::to_chars(at, at + kNumberRoom, value, std::chars_format::general, kPrecision).ptr;
}

}  // namespace

char* WriteNumber(char* at, double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto magnitude = std::bit_cast<double>(bits & ~kSignBit);
  if (!(magnitude < kIntegerLimit)) {
    return WriteRare(at, value);
  }
  const auto whole = static_cast<std::int64_t>(magnitude);
  const bool isWhole = static_cast<double>(whole) == magnitude;
  if (!isWhole && (!kIsLittleEndian || magnitude < kExactLimit)) {
    return WriteRare(at, value);
  }
  *at = '-';
  at += bits >> 63U;
  return isWhole ? WriteDigits(at, static_cast<std::uint64_t>(whole))
                 : WriteDigits(at, TenDigits(magnitude));
}

char* WriteInt(char* at, std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  const std::uint64_t magnitude = value < 0 ? 0U - bits : bits;
  *at = '-';
  at += value < 0 ? 1 : 0;
  return magnitude < kTenDigits ? WriteDigits(at, magnitude) : WriteLong(at, magnitude);
}
