#include "encode/fast/number_text.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "encode/fast/wide_multiply.hpp"

namespace {

constexpr int kPrecision = 10;
constexpr std::uint64_t kTenDigits = 10'000'000'000;  // the least number with more
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63U;

// Numbers of these binary exponents take ten digits by one multiplication with a
// power of five, which together with the fraction's bits fits into 64 bits, so
// that nothing is lost.
constexpr int kMinBinaryExponent = -56;
constexpr int kMaxBinaryExponent = 32;
constexpr int kMinExponent = -17;  // the decimal exponents of such numbers
constexpr int kMaxExponent = 9;

// 10^kMinExponent to 10^(kMaxExponent + 1), as near as a double comes. A number
// that lies between one of these and the true power rounds up to the power.
constexpr std::array<double, 28> kPowersOfTen = {
    1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4,
    1e-3,  1e-2,  1e-1,  1e0,   1e1,   1e2,   1e3,   1e4,   1e5,  1e6,  1e7,  1e8,  1e9,  1e10};

constexpr double PowerOfTen(int exponent) {
  return kPowersOfTen[static_cast<std::size_t>(exponent - kMinExponent)];
}

// The decimal exponent of 2^exponent.
constexpr int DecimalExponent(int exponent) {
  return (exponent * 1233) >> 12;
}

constexpr int kExponentBias = 1023;

constexpr double PowerOfTwo(int exponent) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(kExponentBias + exponent) << 52U);
}

constexpr bool DecimalExponentsFit() {
  for (int i = kMinBinaryExponent; i <= kMaxBinaryExponent; ++i) {
    const int exponent = DecimalExponent(i);
    if (PowerOfTwo(i) < PowerOfTen(exponent) || PowerOfTwo(i) >= PowerOfTen(exponent + 1)) {
      return false;
    }
  }
  return DecimalExponent(kMinBinaryExponent) == kMinExponent;
}
static_assert(DecimalExponentsFit());

// A number of ten digits is kept with so many bits of its fraction: as many as
// leave room for the largest.
constexpr unsigned kFractionBits = 29;

// How the numbers of one binary exponent are taken to ten digits: those from
// `nextPower` on have a decimal exponent more than those below it. The high word
// of the product of a mantissa, its highest bit set, with a power is the number.
struct Scale {
  double nextPower = 0;
  std::array<std::uint64_t, 2> powers{};  // of five and two; below `nextPower` and from it on
  int exponent = 0;
};

// 5^n times the power of two for numbers from 2^binary on; 0 when that would
// not be a whole number of 64 bits, which no such number needs.
constexpr std::uint64_t ScalingPower(int n, int binary) {
  std::uint64_t power = 1;
  for (int i = 0; i < n; ++i) {
    power *= 5;
  }
  const int shift = static_cast<int>(kFractionBits) + 1 + binary + n;
  return n >= 0 && shift >= 0 && shift <= std::countl_zero(power) ? power << shift : 0;
}

constexpr std::size_t kScaleCount = kMaxBinaryExponent - kMinBinaryExponent + 1;

constexpr std::array<Scale, kScaleCount> MakeScales() {
  std::array<Scale, kScaleCount> scales{};
  for (std::size_t n = 0; n < kScaleCount; ++n) {
    const int binary = kMinBinaryExponent + static_cast<int>(n);
    const int exponent = DecimalExponent(binary);
    scales[n] = {PowerOfTen(exponent + 1),
                 {ScalingPower(kMaxExponent - exponent, binary),
                  ScalingPower(kMaxExponent - exponent - 1, binary)},
                 exponent};
  }
  return scales;
}

constexpr auto kScales = MakeScales();

constexpr bool ScalesFit() {
  for (std::size_t n = 0; n < kScaleCount; ++n) {
    const Scale& scale = kScales[n];
    const double end = PowerOfTwo(kMinBinaryExponent + static_cast<int>(n) + 1);
    if (scale.powers[0] == 0 || (scale.nextPower < end && scale.powers[1] == 0)) {
      return false;
    }
  }
  return true;
}
static_assert(ScalesFit());

// The characters of 0000 to 9999 and 00 to 99, the first in the lowest byte.
template <typename Word, std::size_t kCount>
constexpr std::array<Word, kCount> MakeDigits() {
  std::array<Word, kCount> texts{};
  for (std::size_t i = 0; i < kCount; ++i) {
    std::size_t rest = i;
    for (std::size_t byte = sizeof(Word); byte-- > 0; rest /= 10) {
      texts[i] |= static_cast<Word>(static_cast<Word>('0' + rest % 10) << (8 * byte));
    }
  }
  return texts;
}

constexpr auto kFourDigits = MakeDigits<std::uint32_t, 10'000>();
constexpr auto kTwoDigits = MakeDigits<std::uint16_t, 100>();
static_assert(kFourDigits[1230] == 0x30333231U && kTwoDigits[12] == 0x3231U);

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

std::uint64_t EightDigits(std::uint32_t value) {
  const std::uint32_t four = value / 10'000;
  return kFourDigits[four] | std::uint64_t{kFourDigits[value - four * 10'000]} << 32U;
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
    Store(at, EightDigits(static_cast<std::uint32_t>(value % 100'000'000)));
    return at + 8;
  }
  const std::uint64_t digits = EightDigits(static_cast<std::uint32_t>(value));
  // Six at most, since there are two digits; analyzers do not see that.
  const int zeros = std::min(std::countr_zero(digits ^ kEightZeros) / 8, 7);
  Store(at, digits >> (8 * zeros));
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
  const auto first = static_cast<std::uint32_t>(value / 1'000'000);
  const auto rest = static_cast<std::uint32_t>(value - std::uint64_t{first} * 1'000'000);
  const std::uint32_t second = rest / 100;
  const std::uint32_t two = rest - second * 100;
  const std::uint64_t head = kFourDigits[first] | std::uint64_t{kFourDigits[second]} << 32U;
  const std::uint16_t tail = kTwoDigits[two];
  const int count =
      two == 0 ? 8 - std::countl_zero(head ^ kEightZeros) / 8 : 10 - (tail < 0x3100 ? 1 : 0);
  return {head, tail, count, exponent};
}

// `bits` are those of a magnitude of `scale`. The product is exact, so that a tie
// is seen as one; it goes to the even digit.
Digits TenDigits(std::uint64_t bits, const Scale& scale) {
  const std::size_t reachesNext = std::bit_cast<double>(bits) >= scale.nextPower ? 1 : 0;
  int exponent = scale.exponent + static_cast<int>(reachesNext);
  const WideProduct product = MultiplyWide(bits << 11U | kSignBit, scale.powers[reachesNext]);
  constexpr std::uint64_t kBelowHalf = (std::uint64_t{1} << (kFractionBits - 1)) - 1;
  const std::uint64_t tieGoesUp = (product.high >> kFractionBits & 1U) | (product.low != 0 ? 1 : 0);
  std::uint64_t value = (product.high + kBelowHalf + tieGoesUp) >> kFractionBits;
  if (value == kTenDigits) {
    value /= 10;
    ++exponent;
  }
  return DigitsOf(value, exponent);
}

// 1.234567: the point falls into the first eight characters.
char* WriteShortFixed(char* at, const Digits& digits) {
  const int whole = digits.exponent + 1;
  Store(at, digits.head);
  Store(at + whole, digits.head >> (8 * whole) << 8U | std::uint64_t{'.'});
  Store(at + 9, digits.tail);
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

// 1.23e-05; the exponent is negative and has two digits here.
char* WriteExponential(char* at, const Digits& digits) {
  Store(at + 1, digits.head);
  Store(at + 9, digits.tail);
  at[0] = at[1];
  at[1] = '.';
  at += digits.count == 1 ? 1 : digits.count + 1;
  at[0] = 'e';
  at[1] = '-';
  Store(at + 2, kTwoDigits[static_cast<std::size_t>(-digits.exponent)]);
  return at + 4;
}

// Those that are not 1.234567.
char* WriteOtherDigits(char* at, const Digits& digits) {
  if (digits.exponent < -4) {
    return WriteExponential(at, digits);
  }
  return digits.exponent < 0 ? WriteSmallFixed(at, digits) : WriteLongFixed(at, digits);
}

// Zero and numbers so large or small that the exact product would not fit.
char* WriteRare(char* at, double value) {
  if (value == 0) {
    *at = '-';
    at += std::signbit(value) ? 1 : 0;
    *at = '0';
    return at + 1;
  }
  if (!(std::fabs(value) <= std::numeric_limits<double>::max())) {
    *at = '0';
    return at + 1;
  }
  return std::to_chars(at, at + kNumberRoom, value, std::chars_format::general, kPrecision).ptr;
}

}  // namespace

char* WriteNumber(char* at, double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value) & ~kSignBit;
  // Below the least exponent it wraps to a large one.
  const std::uint64_t exponent = (bits >> 52U) - (kExponentBias + kMinBinaryExponent);
  if (exponent >= kScaleCount || !kIsLittleEndian) {
    return WriteRare(at, value);
  }
  const auto magnitude = std::bit_cast<double>(bits);
  *at = '-';
  at += std::signbit(value) ? 1 : 0;
  const auto whole = static_cast<std::int64_t>(magnitude);
  if (static_cast<double>(whole) == magnitude) {
    return WriteDigits(at, static_cast<std::uint64_t>(whole));
  }
  const Digits digits = TenDigits(bits, kScales[exponent]);
  return digits.exponent >= 0 && digits.exponent < 7 ? WriteShortFixed(at, digits)
                                                     : WriteOtherDigits(at, digits);
}

char* WriteInt(char* at, std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  const std::uint64_t magnitude = value < 0 ? 0U - bits : bits;
  *at = '-';
  at += value < 0 ? 1 : 0;
  return magnitude < kTenDigits ? WriteDigits(at, magnitude) : WriteLong(at, magnitude);
}
