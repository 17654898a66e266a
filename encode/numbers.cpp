#include "encode/numbers.hpp"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "encode/ascii.hpp"

namespace {

// The white space of the C locale, which the process never leaves.
constexpr bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

struct Magnitude {
  std::uint64_t value = 0;
  bool negative = false;
};

// The integer at the start of `text`, its magnitude held at 2^32 when larger.
std::optional<Magnitude> ParseMagnitude(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) {
    ++i;
  }
  Magnitude result;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
    result.negative = text[i] == '-';
    ++i;
  }
  if (i == text.size() || !IsDigit(text[i])) {
    return std::nullopt;
  }
  constexpr std::uint64_t kLimit = std::uint64_t{1} << 32;
  for (; i < text.size() && IsDigit(text[i]); ++i) {
    result.value = result.value * 10 + static_cast<std::uint64_t>(text[i] - '0');
    if (result.value > kLimit) {
      result.value = kLimit;
    }
  }
  return result;
}

constexpr std::size_t kMaxExactDigits = 15;
constexpr std::array<double, kMaxExactDigits + 1> kPowersOfTen = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The common case of a number of few digits, without an exponent. These and the
// power of ten are exact, so that their quotient is the nearest number (W. D.
// Clinger, "How to Read Floating Point Numbers Accurately"). No value when the
// text is anything else.
std::optional<double> ParseShortDecimal(std::string_view text) {
  const bool negative = text.starts_with('-');
  std::int64_t digits = 0;
  std::size_t count = 0;
  std::size_t decimals = 0;
  bool inDecimals = false;
  for (const char c : text.substr(negative ? 1 : 0)) {
    if (IsDigit(c)) {
      digits = digits * 10 + (c - '0');
      decimals += inDecimals ? 1 : 0;
      if (++count > kMaxExactDigits) {
        return std::nullopt;
      }
    } else if (c == '.' && !inDecimals) {
      inDecimals = true;
    } else if (LowerAscii(c) == 'e' || LowerAscii(c) == 'x') {
      return std::nullopt;
    } else {
      break;
    }
  }
  if (count == 0) {
    return std::nullopt;
  }
  const double value = static_cast<double>(digits) / kPowersOfTen[decimals];
  return negative ? -value : value;
}

// By the C library, which wants a terminated text.
std::optional<double> ParseAnyDouble(std::string_view text) {
  const std::string terminated(text);
  char* end = nullptr;
  const int savedErrno = errno;
  errno = 0;
  const double value = std::strtod(terminated.c_str(), &end);
  const bool outOfRange = errno == ERANGE;
  errno = savedErrno;
  if (end == terminated.c_str() || outOfRange || std::fpclassify(value) == FP_SUBNORMAL) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::optional<double> ParseDouble(std::string_view text) {
  const auto value = ParseShortDecimal(text);
  return value ? value : ParseAnyDouble(text);
}

std::optional<std::int32_t> ParseInt32(std::string_view text) {
  const auto magnitude = ParseMagnitude(text);
  if (!magnitude) {
    return std::nullopt;
  }
  const auto value = magnitude->negative ? -static_cast<std::int64_t>(magnitude->value)
                                         : static_cast<std::int64_t>(magnitude->value);
  if (value < std::numeric_limits<std::int32_t>::min() ||
      value > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(value);
}

std::optional<std::uint32_t> ParseUint32(std::string_view text) {
  const auto magnitude = ParseMagnitude(text);
  if (!magnitude || magnitude->value > std::numeric_limits<std::uint32_t>::max()) {
    return std::nullopt;
  }
  const auto value = static_cast<std::uint32_t>(magnitude->value);
  return magnitude->negative ? 0U - value : value;
}

std::optional<std::int32_t> TruncateToInt32(double value) {
  if (std::isnan(value)) {
    return std::nullopt;
  }
  constexpr double kMin = std::numeric_limits<std::int32_t>::min();
  constexpr double kMax = std::numeric_limits<std::int32_t>::max();
  if (value <= kMin) {
    return std::numeric_limits<std::int32_t>::min();
  }
  if (value >= kMax) {
    return std::numeric_limits<std::int32_t>::max();
  }
  return static_cast<std::int32_t>(value);
}
