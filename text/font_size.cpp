#include "text/font_size.hpp"

#include <algorithm>
#include <charconv>
#include <limits>

std::string_view FontSizeText(double points, std::array<char, kFontSizeRoom>& room) {
  constexpr std::size_t kMaxText = kFontSizeRoom - 1;
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text;
  const char* end =
      std::to_chars(text.data(), text.data() + text.size(), points, std::chars_format::fixed, 4)
          .ptr;
  const auto size = std::min(static_cast<std::size_t>(end - text.data()), kMaxText);
  std::copy_n(text.data(), size, room.data());
  return {room.data(), size};
}
