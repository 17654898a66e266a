// Numbers as text, written to where the caller has room for them.
#pragma once

#include <cstddef>
#include <cstdint>

// Room that the functions below need, which is more than their text takes: they
// write whole words.
inline constexpr std::size_t kNumberRoom = 40;

// C's "%.10g", correctly rounded; an infinity or a NaN is "0". Returns the end
// of the text.
char* WriteNumber(char* at, double value);

// Plain decimal digits with a leading "-" for negative values.
char* WriteInt(char* at, std::int64_t value);
