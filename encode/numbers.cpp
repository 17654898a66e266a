#include "encode/numbers.hpp"

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

}  // namespace

std::optional<double> ParseDouble(std::string_view text) {
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
