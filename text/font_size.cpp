#include "text/font_size.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "encode/fast/number_text.hpp"
#include "encode/fast/wide_multiply.hpp"

namespace {

constexpr std::size_t kMaxText = kFontSizeRoom - 1;
constexpr std::uint64_t kScale = 10000;
static_assert(kNumberRoom <= kFontSizeRoom);

// Sizes whose whole part and whose fraction, in units of 2^-64, are integers.
constexpr double kLeastExact = 0x1p-11;
constexpr double kMostExact = 0x1p53;

struct Decimal {
  std::int64_t whole;
  std::uint64_t tenThousandths;
};

// The nearest one, of two the even one.
Decimal Rounded(double value) {
  const auto whole = static_cast<std::int64_t>(value);
  const auto fraction = static_cast<std::uint64_t>((value - static_cast<double>(whole)) * 0x1p64);
  auto [count, rest] = MultiplyWide(fraction, kScale);
  constexpr std::uint64_t kHalf = std::uint64_t{1} << 63U;
  if (rest > kHalf || (rest == kHalf && count % 2 != 0)) {
    ++count;
  }
  return count == kScale ? Decimal{whole + 1, 0} : Decimal{whole, count};
}

}  // namespace

std::string_view FontSizeText(double points, std::array<char, kFontSizeRoom>& room) {
  if (points >= kLeastExact && points < kMostExact) {
    const Decimal decimal = Rounded(points);
    char* at = WriteInt(room.data(), decimal.whole);
    *at++ = '.';
    for (std::uint64_t scale = kScale / 10; scale != 0; scale /= 10) {
      *at++ = static_cast<char>('0' + decimal.tenThousandths / scale % 10);
    }
    return {room.data(), static_cast<std::size_t>(at - room.data())};
  }
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text;
  const char* end =
      std::to_chars(text.data(), text.data() + text.size(), points, std::chars_format::fixed, 4)
          .ptr;
  const auto size = std::min(static_cast<std::size_t>(end - text.data()), kMaxText);
  std::copy_n(text.data(), size, room.data());
  return {room.data(), size};
}
