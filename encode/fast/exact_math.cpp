#include "encode/fast/exact_math.hpp"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

// A number as the unevaluated sum of two doubles; hi is the sum's nearest double.
struct Double2 {
  double hi;
  double lo;
};

constexpr Double2 kOne = {1, 0};
constexpr Double2 kPi = {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53};
constexpr Double2 kHalfPi = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};

// hi + lo is exactly a + b; |a| must not be smaller than |b|.
Double2 QuickSum(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

// hi + lo is exactly a + b.
Double2 Sum(double a, double b) {
  const double sum = a + b;
  const double bPart = sum - a;
  return {sum, (a - (sum - bPart)) + (b - bPart)};
}

// hi + lo is exactly a; each half has at most 26 bits.
Double2 Split(double a) {
  const double scaled = a * 134217729.0;  // 2^27 + 1
  const double hi = scaled - (scaled - a);
  return {hi, a - hi};
}

// hi + lo is exactly a * b, short of overflow and underflow.
Double2 Product(double a, double b) {
  const double product = a * b;
  const Double2 x = Split(a);
  const Double2 y = Split(b);
  return {product, ((x.hi * y.hi - product) + x.hi * y.lo + x.lo * y.hi) + x.lo * y.lo};
}

Double2 Negate(Double2 a) {
  return {-a.hi, -a.lo};
}

Double2 Add(Double2 a, Double2 b) {
  const Double2 high = Sum(a.hi, b.hi);
  const Double2 low = Sum(a.lo, b.lo);
  const Double2 first = QuickSum(high.hi, high.lo + low.hi);
  return QuickSum(first.hi, first.lo + low.lo);
}

Double2 Multiply(Double2 a, Double2 b) {
  const Double2 product = Product(a.hi, b.hi);
  return QuickSum(product.hi, product.lo + (a.hi * b.lo + a.lo * b.hi));
}

Double2 Divide(Double2 a, Double2 b) {
  const double first = a.hi / b.hi;
  const Double2 rest = Add(a, Negate(Multiply(b, {first, 0})));
  const double second = rest.hi / b.hi;
  const Double2 rest2 = Add(rest, Negate(Multiply(b, {second, 0})));
  const Double2 quotient = QuickSum(first, second);
  return Add(quotient, {rest2.hi / b.hi, 0});
}

// 2/pi in binary, 32 bits a word, the first word right after the point.
constexpr std::array<std::uint32_t, 40> kTwoOverPi = {
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB, 0xDEBBC561,
    0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C, 0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484,
    0xE99C7026, 0xB45F7E41, 0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D, 0x7527BAC7, 0xEBE5F17B,
    0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08, 0x56033046, 0xFC7B6BAB, 0xF0CFBC20, 0x9AF4361D,
};

struct ReducedAngle {
  unsigned quarter;  // of a turn, 0 to 3
  Double2 rest;      // within a quarter of pi around it
};

constexpr std::size_t Index(int i) {
  return static_cast<std::size_t>(i);
}

// The finite, non-negative angle x as a whole number of quarter turns and a rest.
// x is m * 2^exponent; m times a window of 2/pi, as an integer, has the whole
// quarters above its point and the rest below. Words of 2/pi in front of the
// window would only add whole turns; those behind it count for less than 2^-200.
ReducedAngle ReduceAngle(double x) {
  if (x <= kHalfPi.hi / 2) {
    return {0, {x, 0}};
  }
  constexpr int kWindow = 9;
  int exponent = 0;
  const double fraction = std::frexp(x, &exponent);
  const auto m = static_cast<std::uint64_t>(std::ldexp(fraction, 53));
  exponent -= 53;
  const int start = exponent > 2 ? (exponent - 2) / 32 : 0;

  // The product, least significant word first, padded for the shift below.
  std::array<std::uint32_t, kWindow + 3> product = {};
  for (int half = 0; half < 2; ++half) {
    const std::uint64_t factor = (m >> (32 * half)) & 0xFFFFFFFF;
    std::uint64_t carry = 0;
    for (int i = 0; i < kWindow; ++i) {
      const std::uint64_t word = kTwoOverPi[Index(start + kWindow - 1 - i)];
      std::uint32_t& sum = product[Index(i + half)];
      carry += word * factor + sum;
      sum = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    product[Index(kWindow + half)] = static_cast<std::uint32_t>(carry);
  }

  const int point = 32 * (start + kWindow) - exponent;  // bits below the point
  const auto bit = [&product](int position) {
    return (product[Index(position / 32)] >> (position % 32)) & 1U;
  };
  unsigned quarter = bit(point) + 2 * bit(point + 1);
  const bool roundUp = bit(point - 1) != 0;
  if (roundUp) {
    // Above one half: one quarter more, and a negative rest.
    quarter = (quarter + 1) % 4;
    std::uint64_t carry = 1;
    for (std::uint32_t& word : product) {
      carry += static_cast<std::uint32_t>(~word);
      word = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }
  Double2 rest = {0, 0};
  for (int i = point / 32; i >= 0; --i) {
    std::uint32_t word = product[Index(i)];
    if (i == point / 32) {
      word &= (1U << (point % 32)) - 1;
    }
    rest = Add(rest, {std::ldexp(static_cast<double>(word), 32 * i - point), 0});
  }
  rest = Multiply(rest, kHalfPi);
  return {quarter, roundUp ? Negate(rest) : rest};
}

// 1 - z/(a(a+1)) * (1 - z/((a+2)(a+3)) * (1 - ...)): the power series of the
// sine over r (a = 2) and of the cosine (a = 1) for z = r * r and |r| <= pi/4.
Double2 NestedSeries(Double2 z, double a) {
  Double2 sum = kOne;
  for (int term = 14; term >= 0; --term) {
    const double n = a + 2 * term;
    sum = Add(kOne, Negate(Divide(Multiply(z, sum), {n * (n + 1), 0})));
  }
  return sum;
}

// The sine of an angle `quarters` quarter turns after x.
double SineOf(double x, unsigned quarters) {
  const ReducedAngle angle = ReduceAngle(std::fabs(x));
  const unsigned quarter = (quarters + (std::signbit(x) ? 4 - angle.quarter : angle.quarter)) % 4;
  const Double2 rest = std::signbit(x) ? Negate(angle.rest) : angle.rest;
  const Double2 square = Multiply(rest, rest);
  const double value =
      quarter % 2 == 0 ? Multiply(rest, NestedSeries(square, 2)).hi : NestedSeries(square, 1).hi;
  return quarter < 2 ? value : -value;
}

// atan(i / 16)
constexpr std::array<Double2, 17> kArcTangents = {{
    {0, 0},
    {0x1.ff55bb72cfdeap-5, -0x1.c934d86d23f1dp-60},
    {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},
    {0x1.7b97b4bce5b02p-3, 0x1.347b0b4f881cap-58},
    {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},
    {0x1.362773707ebccp-2, -0x1.963a544b672d8p-57},
    {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},
    {0x1.a64eec3cc23fdp-2, -0x1.24dec1b50b7ffp-56},
    {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},
    {0x1.0657e94db30d0p-1, -0x1.d5b495f6349e6p-56},
    {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},
    {0x1.345f01cce37bbp-1, 0x1.1021137c71102p-55},
    {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},
    {0x1.5d58987169b18p-1, 0x1.0028e4bc5e7cap-57},
    {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},
    {0x1.819d0b7158a4dp-1, -0x1.bf76229d3b917p-56},
    {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},
}};

// The arc tangent of x in 0 to 1: that of the nearest sixteenth c, and the power
// series of the rest, atan((x - c) / (1 + c * x)).
Double2 ArcTangent(Double2 x) {
  const double index = std::floor(x.hi * 16 + 0.5);
  const Double2 c = {index / 16, 0};
  const Double2 rest = Divide(Add(x, Negate(c)), Add(kOne, Multiply(x, c)));
  const Double2 square = Multiply(rest, rest);
  Double2 sum = {0, 0};
  for (int n = 25; n >= 1; n -= 2) {
    sum = Add(Divide(kOne, {static_cast<double>(n), 0}), Negate(Multiply(square, sum)));
  }
  return Add(kArcTangents[static_cast<std::size_t>(index)], Multiply(rest, sum));
}

}  // namespace

double ExactSin(double x) {
  if (!std::isfinite(x)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  return x == 0 ? x : SineOf(x, 0);
}

double ExactCos(double x) {
  if (!std::isfinite(x)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  return SineOf(std::fabs(x), 1);
}

double ExactAtan(double x) {
  return ExactAtan2(x, 1);
}

double ExactAtan2(double y, double x) {
  if (std::isnan(x) || std::isnan(y)) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (y == 0) {
    return std::copysign(std::signbit(x) ? kPi.hi : 0, y);
  }
  if (x == 0) {
    return std::copysign(kHalfPi.hi, y);
  }
  if (std::isinf(x) || std::isinf(y)) {
    // Quarters of pi: 1 and 3 on the diagonals, 0 and 4 along x, 2 along y.
    double quarters = 2;
    if (std::isinf(x)) {
      quarters = x > 0 ? 0 : 4;
    }
    if (std::isinf(x) && std::isinf(y)) {
      quarters = x > 0 ? 1 : 3;
    }
    return std::copysign(Multiply(kPi, {quarters / 4, 0}).hi, y);
  }

  int exponent = 0;
  int exponentOfY = 0;
  const double across = std::frexp(std::fabs(x), &exponent);
  const double up = std::frexp(std::fabs(y), &exponentOfY);
  // So far from the diagonal that the quotient's part in the sum is lost.
  if (exponentOfY - exponent > 80) {
    return std::copysign(kHalfPi.hi, y);
  }
  if (exponentOfY - exponent < -80) {
    return x > 0 ? y / x : std::copysign(kPi.hi, y);
  }

  const Double2 a = {std::ldexp(up, exponentOfY - exponent), 0};
  const Double2 b = {across, 0};
  Double2 angle =
      a.hi <= b.hi ? ArcTangent(Divide(a, b)) : Add(kHalfPi, Negate(ArcTangent(Divide(b, a))));
  if (x < 0) {
    angle = Add(kPi, Negate(angle));
  }
  return std::copysign(angle.hi, y);
}
