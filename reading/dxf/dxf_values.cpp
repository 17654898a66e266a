#include "reading/dxf/dxf_values.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "encode/ascii.hpp"

namespace {

constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\0';
}

constexpr bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

constexpr std::size_t kMostHandleDigits = 16;

struct IntegerRange {
  std::int64_t lowest;
  std::int64_t highest;
};

// Unsigned values are found in all of them, and the reader takes them.
constexpr IntegerRange RangeOf(DxfValueKind kind) {
  switch (kind) {
    case DxfValueKind::kByte: return {-128, 255};
    case DxfValueKind::kShort: return {-32768, 65535};
    case DxfValueKind::kInteger: return {-2147483648LL, 4294967295LL};
    default:
      return {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
  }
}

bool IsProperInteger(DxfValueKind kind, std::string_view value) {
  std::size_t at = 0;
  while (at < value.size() && value[at] == ' ') {
    ++at;
  }
  const std::size_t sign = at < value.size() && (value[at] == '-' || value[at] == '+') ? 1 : 0;
  const std::string_view digits = value.substr(at + sign);
  constexpr std::size_t kNeverOutside = 2;
  if (digits.empty() || !std::all_of(digits.begin(), digits.end(), IsDigit)) {
    return false;
  }
  if (digits.size() <= kNeverOutside) {
    return true;
  }
  std::int64_t number = 0;
  const std::string_view text = value[at] == '+' ? digits : value.substr(at);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const IntegerRange range = RangeOf(kind);
  return result.ec == std::errc{} && number >= range.lowest && number <= range.highest;
}

// Digits of a plain decimal are never so many that it leaves the range.
constexpr std::size_t kMostPlainDigits = 300;

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) {
    ++at;
  }
  return at;
}

bool IsInsideDoubleRange(std::string_view text) {
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc{} && std::isfinite(number) &&
         (number == 0 || std::isnormal(number));
}

bool IsProperReal(std::string_view value) {
  std::size_t at = 0;
  while (at < value.size() && (value[at] == ' ' || value[at] == '\t')) {
    ++at;
  }
  if (at < value.size() && (value[at] == '-' || value[at] == '+')) {
    ++at;
  }
  const std::size_t begin = at;
  at = SkipDigits(value, at);
  std::size_t digits = at - begin;
  if (at < value.size() && value[at] == '.') {
    const std::size_t fraction = at + 1;
    at = SkipDigits(value, fraction);
    digits += at - fraction;
  }
  if (digits == 0) {
    return false;
  }
  bool isPlain = digits <= kMostPlainDigits;
  if (at < value.size() && (value[at] == 'e' || value[at] == 'E')) {
    isPlain = false;
    ++at;
    if (at < value.size() && (value[at] == '-' || value[at] == '+')) {
      ++at;
    }
    const std::size_t exponent = at;
    at = SkipDigits(value, at);
    if (at == exponent) {
      return false;
    }
  }
  if (!isPlain && !IsInsideDoubleRange(value.substr(begin, at - begin))) {
    return false;
  }
  return std::all_of(value.begin() + static_cast<std::ptrdiff_t>(at), value.end(), IsBlank);
}

// Up to 16 digits and nothing else.
std::optional<std::uint64_t> ParsePlainHandle(std::string_view value) {
  if (value.empty() || value.size() > kMostHandleDigits) {
    return std::nullopt;
  }
  constexpr unsigned kBase = 16;
  constexpr unsigned kTen = 10;
  constexpr unsigned kLowerCase = 0x20;
  std::uint64_t handle = 0;
  for (const char c : value) {
    const auto letter = (static_cast<unsigned char>(c) | kLowerCase) - unsigned{'a'};
    if (!IsDigit(c) && letter >= kBase - kTen) {
      return std::nullopt;
    }
    handle = handle * kBase + (IsDigit(c) ? static_cast<unsigned>(c - '0') : letter + kTen);
  }
  return handle;
}

// Without a branch for each character, so that compilers look at many at once.
bool IsProperChunk(std::string_view value) {
  constexpr unsigned kLowerCase = 0x20;
  constexpr unsigned char kLastDigit = 9;
  constexpr unsigned char kLastLetter = 5;
  unsigned char others = 0;
  for (const char c : value) {
    const auto digit = static_cast<unsigned char>(c - '0');
    const auto letter =
        static_cast<unsigned char>((static_cast<unsigned char>(c) | kLowerCase) - 'a');
    others |= static_cast<unsigned char>((digit > kLastDigit ? 1U : 0U) &
                                         (letter > kLastLetter ? 1U : 0U));
  }
  return others == 0;
}

bool BeginsExponent(std::string_view text) {
  const std::size_t at = text.find_first_not_of(' ');
  return at != std::string_view::npos &&
         std::string_view("dDeE").find(text[at]) != std::string_view::npos;
}

// Puts an `e` before an exponent that has none: behind a number with a point, a sign
// and up to three digits, as Fortran writes those of three, or a blank and two.
void PutExponentLetter(std::string& text) {
  const std::size_t point = text.find('.');
  if (point == std::string::npos) {
    return;
  }
  const std::size_t at = SkipDigits(text, point + 1);
  const std::size_t digits = text.size() - std::min(text.size(), at + 1);
  constexpr std::size_t kMostBehindASign = 3;
  constexpr std::size_t kBehindABlank = 2;
  if (digits == 0 || SkipDigits(text, at + 1) != text.size()) {
    return;
  }
  if ((text[at] == '+' || text[at] == '-') && digits <= kMostBehindASign) {
    text.insert(at, 1, 'e');
  } else if (text[at] == ' ' && digits == kBehindABlank) {
    text[at] = 'e';
  }
}

// A decimal as some writer may have meant it, in the form that from_chars
// reads: a point for a comma, `e` for `D`, no blanks before an exponent's
// digits.
std::string UsualDecimal(std::string_view value) {
  std::string text;
  bool inExponent = false;
  std::string_view trimmed = TrimmedDxf(value);
  if (trimmed.starts_with('+')) {
    trimmed.remove_prefix(1);
  }
  for (std::size_t i = 0; i < trimmed.size(); ++i) {
    const char c = trimmed[i];
    if (c == ',') {
      text += '.';
    } else if (c == 'd' || c == 'D' || c == 'e' || c == 'E') {
      text += 'e';
      inExponent = true;
    } else if (c == ' ' && (inExponent || BeginsExponent(trimmed.substr(i)))) {
      continue;
    } else {
      text += c;
    }
  }
  PutExponentLetter(text);
  // from_chars wants no plus sign behind the `e`.
  if (const std::size_t plus = text.find("e+"); plus != std::string::npos) {
    text.erase(plus + 1, 1);
  }
  return text;
}

struct ReadReal {
  double number = 0;
  bool isWhole = false;    // the whole text was read
  bool isOutside = false;  // too large
};

ReadReal ReadDecimal(std::string_view value) {
  const std::string text = UsualDecimal(value);
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = result.ptr == text.data() + text.size() && !text.empty();
  if (result.ec == std::errc::result_out_of_range) {
    const bool isTiny = text.find("e-") != std::string::npos || text.find("0.0") < 2;
    const double largest = text.front() == '-' ? std::numeric_limits<double>::lowest()
                                               : std::numeric_limits<double>::max();
    return {.number = isTiny ? 0 : largest, .isWhole = isWhole, .isOutside = true};
  }
  // "1.#QNAN" and its kin begin with a digit.
  const bool isNumber =
      result.ec == std::errc{} && std::isfinite(number) && text.find('#') == std::string::npos;
  if (!isNumber) {
    return {};
  }
  const bool isInside = number == 0 || std::isnormal(number);
  return {.number = isInside ? number : 0, .isWhole = isWhole, .isOutside = !isInside};
}

MendedDxfValue MendReal(std::string_view value) {
  const ReadReal read = ReadDecimal(value);
  if (read.isOutside) {
    return {.text = DxfRealText(read.number), .flaw = DxfValueFlaw::kOutside};
  }
  return {.text = DxfRealText(read.number),
          .flaw = read.isWhole ? DxfValueFlaw::kOdd : DxfValueFlaw::kBad};
}

MendedDxfValue MendInteger(DxfValueKind kind, std::string_view value) {
  const IntegerRange range = RangeOf(kind);
  std::string_view text = TrimmedDxf(value);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
  }
  std::int64_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc{} && result.ptr == text.data() + text.size()) {
    const std::int64_t inside = std::clamp(number, range.lowest, range.highest);
    return {.text = std::to_string(inside),
            .flaw = inside == number ? DxfValueFlaw::kNone : DxfValueFlaw::kOutside};
  }
  const ReadReal read = ReadDecimal(value);
  // The largest integer that both a double and the range hold.
  constexpr double kMostExact = 9007199254740992.0;
  const double limited =
      std::clamp(read.number, std::max(static_cast<double>(range.lowest), -kMostExact),
                 std::min(static_cast<double>(range.highest), kMostExact));
  const auto truncated = static_cast<std::int64_t>(limited);
  const bool isOutside = read.isWhole && std::trunc(read.number) != std::trunc(limited);
  return {.text = std::to_string(truncated),
          .flaw = isOutside || read.isOutside ? DxfValueFlaw::kOutside : DxfValueFlaw::kBad};
}

MendedDxfValue MendChunk(std::string_view value) {
  MendedDxfValue mended;
  for (const char c : TrimmedDxf(value)) {
    if (IsHexDigit(c)) {
      mended.text += c;
    } else if (!IsBlank(c)) {
      mended.flaw = DxfValueFlaw::kBad;
    }
  }
  return mended;
}

}  // namespace

std::string_view TrimmedDxfEnd(std::string_view value) {
  while (!value.empty() && IsBlank(value.back())) {
    value.remove_suffix(1);
  }
  return value;
}

std::string_view TrimmedDxf(std::string_view value) {
  while (!value.empty() && IsBlank(value.front())) {
    value.remove_prefix(1);
  }
  return TrimmedDxfEnd(value);
}

std::optional<int> ParseDxfCode(std::string_view line) {
  std::string_view text = TrimmedDxf(line);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
  }
  constexpr std::size_t kMostCharacters = 12;
  if (text.empty() || text.size() > kMostCharacters) {
    return std::nullopt;
  }
  int code = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, code);
  if (result.ec != std::errc{}) {
    return std::nullopt;
  }
  const std::string_view rest(result.ptr, static_cast<std::size_t>(end - result.ptr));
  const bool isWhole = rest.empty() || ((rest[0] == '.' || rest[0] == ',') &&
                                        rest.find_first_not_of('0', 1) == std::string_view::npos);
  return isWhole ? std::optional(code) : std::nullopt;
}

bool IsProperDxfValue(DxfValueKind kind, std::string_view value) {
  switch (kind) {
    case DxfValueKind::kNone: return false;
    case DxfValueKind::kText: return true;
    case DxfValueKind::kReal: return IsProperReal(value);
    case DxfValueKind::kByte:
    case DxfValueKind::kShort:
    case DxfValueKind::kInteger:
    case DxfValueKind::kLong: return IsProperInteger(kind, value);
    case DxfValueKind::kHandle: return ParseDxfHandle(value).has_value();
    case DxfValueKind::kChunk: return IsProperChunk(value);
  }
  return false;
}

std::optional<std::uint64_t> ParseDxfHandle(std::string_view value) {
  if (const auto handle = ParsePlainHandle(value)) {
    return handle;
  }
  const std::string_view text = TrimmedDxf(value);
  if (text.empty()) {
    return 0;
  }
  constexpr int kBase = 16;
  std::uint64_t handle = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, handle, kBase);
  if (text.size() > kMostHandleDigits || result.ec != std::errc{} || result.ptr != end) {
    return std::nullopt;
  }
  return handle;
}

std::string DxfHandleText(std::uint64_t handle) {
  constexpr int kBase = 16;
  std::array<char, kMostHandleDigits> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), handle, kBase);
  std::string text(digits.data(), result.ptr);
  for (char& c : text) {
    c = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return text;
}

MendedDxfValue MendDxfValue(DxfValueKind kind, std::string_view value) {
  if (IsProperDxfValue(kind, value)) {
    // A NUL at the end would end the whole text.
    const bool hasNul = value.find('\0') != std::string_view::npos;
    return {.text = std::string(hasNul ? TrimmedDxf(value) : value)};
  }
  switch (kind) {
    case DxfValueKind::kNone:
    case DxfValueKind::kText: return {.text = std::string(value)};
    case DxfValueKind::kReal: return MendReal(value);
    case DxfValueKind::kHandle: return {.text = "0", .flaw = DxfValueFlaw::kBad};
    case DxfValueKind::kChunk: return MendChunk(value);
    default: return MendInteger(kind, value);
  }
}

void AppendDxfReal(double value, std::string& text) {
  constexpr std::size_t kLongest = 32;
  std::array<char, kLongest> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  const std::string_view written(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
  text += written;
  if (written.find_first_of(".en") == std::string_view::npos) {
    text += ".0";
  }
}

std::string DxfRealText(double value) {
  std::string text;
  AppendDxfReal(value, text);
  return text;
}
