// Numbers that come from drawings: text read as numbers with the rules of the
// C++ standard library's string conversions, and floating-point values turned
// into integers without ever leaving the integer's range.
//
// The conversions accept leading white space and a sign, take the longest
// numeric prefix and ignore what follows it. No digits, or a value out of the
// type's range, gives no value; nothing here throws.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Decimal, hexadecimal, infinity and NaN texts as strtod reads them. Overflow,
// underflow to zero and subnormal results count as out of range.
std::optional<double> ParseDouble(std::string_view text);

// Base 10, 32-bit signed.
std::optional<std::int32_t> ParseInt32(std::string_view text);

// Base 10, 32-bit unsigned on every platform. A minus sign negates modulo
// 2^32; a magnitude above 4294967295 is out of range.
std::optional<std::uint32_t> ParseUint32(std::string_view text);

// Truncates toward zero after limiting the value to the type's range. NaN
// gives no value.
std::optional<std::int32_t> TruncateToInt32(double value);
