// The 128-bit product of two 64-bit numbers.
#pragma once

#include <cstdint>

#if !defined(__SIZEOF_INT128__) && defined(_M_X64)
#include <intrin.h>
#endif

struct WideProduct {
  std::uint64_t high;
  std::uint64_t low;
};

// By 32-bit halves, for compilers that offer nothing wider.
constexpr WideProduct MultiplyHalves(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t kLowHalf = 0xFFFFFFFFU;
  const std::uint64_t lowLow = (a & kLowHalf) * (b & kLowHalf);
  const std::uint64_t highLow = (a >> 32U) * (b & kLowHalf);
  const std::uint64_t lowHigh = (a & kLowHalf) * (b >> 32U);
  const std::uint64_t middle = (lowLow >> 32U) + (highLow & kLowHalf) + lowHigh;
  return {(a >> 32U) * (b >> 32U) + (highLow >> 32U) + (middle >> 32U),
          (middle << 32U) | (lowLow & kLowHalf)};
}

inline WideProduct MultiplyWide(std::uint64_t a, std::uint64_t b) {
#if defined(__SIZEOF_INT128__)
  // NOLINTNEXTLINE(modernize-use-using): an alias cannot be marked as an extension
  __extension__ typedef unsigned __int128 Wide;
  const Wide product = static_cast<Wide>(a) * b;
  return {static_cast<std::uint64_t>(product >> 64U), static_cast<std::uint64_t>(product)};
#elif defined(_M_X64)
  WideProduct product{};
  product.low = _umul128(a, b, &product.high);
  return product;
#else
  return MultiplyHalves(a, b);
#endif
}
