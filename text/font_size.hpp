// The size of a font as text.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

inline constexpr std::size_t kFontSizeRoom = 64;

// `points`, which are positive or an infinity, in C's "%.4f" form, of which the
// first 63 bytes are taken.
std::string_view FontSizeText(double points, std::array<char, kFontSizeRoom>& room);
