// Numbers against the standard library: the formatter against "%.10g", the
// parsers against std::stod and its kin, our own trigonometry against the C
// library's where that is exact to a unit in the last place.

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

#include "encode/fast/exact_math.hpp"
#include "encode/json_text.hpp"
#include "encode/numbers.hpp"
#include "fuzz/check.hpp"
#include "tests/support/json_grammar.hpp"

namespace {

void CheckNumber(double value) {
  char expected[64] = "0";
  if (std::isfinite(value)) {
    std::snprintf(expected, sizeof expected, "%.10g", value);
  }
  JsonOut out;
  AppendNumber(out, value);
  const std::string text = out.Text();
  FUZZ_CHECK(text == expected);
  FUZZ_CHECK(IsGrammaticalJson(text));
}

void CheckTruncation(double value) {
  const auto truncated = TruncateToInt32(value);
  if (truncated) {
    JsonOut out;
    AppendInt(out, *truncated);
    FUZZ_CHECK(out.Text() == std::to_string(*truncated));
  }
  FUZZ_CHECK(truncated.has_value() == !std::isnan(value));
  if (truncated && std::fabs(value) < 2e9) {
    FUZZ_CHECK(*truncated == static_cast<std::int32_t>(value));
  }
  if (truncated && std::fabs(value) > 3e9) {
    FUZZ_CHECK(*truncated == (value > 0 ? INT32_MAX : INT32_MIN));
  }
}

#ifdef _WIN32
void CheckTrigonometry(double /*x*/, double /*y*/) {}
#else
// Equal, neighbours, or both no number.
bool AreClose(double a, double b) {
  return a == b || std::nextafter(a, b) == b || (std::isnan(a) && std::isnan(b));
}

void CheckTrigonometry(double x, double y) {
  FUZZ_CHECK(AreClose(ExactSin(x), std::sin(x)));
  FUZZ_CHECK(AreClose(ExactCos(x), std::cos(x)));
  FUZZ_CHECK(AreClose(ExactAtan(x), std::atan(x)));
  FUZZ_CHECK(AreClose(ExactAtan2(y, x), std::atan2(y, x)));
}
#endif

// What a throwing conversion of the standard library gives, none for a throw.
template <typename Convert>
auto Converted(Convert convert) -> std::optional<decltype(convert())> {
  try {
    return convert();
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

template <typename Integer>
std::optional<Integer> InRange(std::optional<long long> value, long long min, long long max) {
  return value && *value >= min && *value <= max
             ? std::optional<Integer>(static_cast<Integer>(*value))
             : std::nullopt;
}

void CheckParsers(const std::string& text) {
  const auto expected = Converted([&text] { return std::stod(text); });
  const bool isExpected = expected && std::fpclassify(*expected) != FP_SUBNORMAL;
  const auto parsed = ParseDouble(text);
  FUZZ_CHECK(parsed.has_value() == isExpected);
  FUZZ_CHECK(!parsed || *parsed == *expected || std::isnan(*parsed));
  const auto integer = Converted([&text] { return std::stoll(text); });
  FUZZ_CHECK(ParseInt32(text) == InRange<std::int32_t>(integer, INT32_MIN, INT32_MAX));
  FUZZ_CHECK(ParseUint32(text) == InRange<std::uint32_t>(integer, -0xFFFFFFFFLL, 0xFFFFFFFFLL));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const TimeBudget budget;
  double previous = 0;
  for (std::size_t i = 0; i + sizeof(double) <= size; i += sizeof(double)) {
    double value = 0;
    std::memcpy(&value, data + i, sizeof value);
    CheckNumber(value);
    CheckTruncation(value);
    CheckTrigonometry(value, previous);
    previous = value;
  }
  // A NUL ends the text for both sides.
  CheckParsers(std::string(reinterpret_cast<const char*>(data), size).c_str());
  budget.Check();
  return 0;
}
