#include "encode/json_text.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

// Integral values of at most ten digits need no floating-point formatting.
constexpr double kShortIntegerLimit = 1e10;

// What a byte becomes inside a string literal: 0 copies it, 'u' asks for a
// \u escape, any other value follows a backslash.
constexpr std::array<char, 256> MakeEscapeTable() {
  std::array<char, 256> table{};
  for (std::size_t i = 0; i < 0x20; ++i) {
    table[i] = 'u';
  }
  table['\t'] = 't';
  table['\n'] = 'n';
  table['\r'] = 'r';
  table['"'] = '"';
  table['\\'] = '\\';
  return table;
}

constexpr std::array<char, 256> kEscapes = MakeEscapeTable();
static_assert(kEscapes[0x0C] == 'u' && kEscapes[0x08] == 'u' && kEscapes[0x7F] == 0);

void AppendEscape(std::string& out, unsigned char byte) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  out += '\\';
  out += kEscapes[byte];
  if (kEscapes[byte] == 'u') {
    out += "00";
    out += kHexDigits[byte >> 4U];
    out += kHexDigits[byte & 0xFU];
  }
}

void AppendSeparator(std::string& out, bool& first) {
  if (!first) {
    out += ',';
  }
  first = false;
}

}  // namespace

void AppendNumber(std::string& out, double value) {
  if (!(std::fabs(value) <= std::numeric_limits<double>::max())) {
    out += '0';
    return;
  }
  std::array<char, 32> buffer;
  std::to_chars_result result{};
  const bool isShortInteger = std::fabs(value) < kShortIntegerLimit && value == std::trunc(value) &&
                              !(value == 0 && std::signbit(value));
  if (isShortInteger) {
    result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                           static_cast<std::int64_t>(value));
  } else {
    result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                           std::chars_format::general, 10);
  }
  out.append(buffer.data(), result.ptr);
}

std::string JsonNumber(double value) {
  std::string out;
  AppendNumber(out, value);
  return out;
}

void AppendInt(std::string& out, std::int64_t value) {
  std::array<char, 24> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  out.append(buffer.data(), result.ptr);
}

std::string JsonInt(std::int32_t value) {
  std::string out;
  AppendInt(out, value);
  return out;
}

void AppendQuoted(std::string& out, std::string_view text) {
  text = text.substr(0, text.find('\0'));
  out += '"';
  std::size_t runStart = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (kEscapes[byte] == 0) {
      continue;
    }
    out.append(text, runStart, i - runStart);
    AppendEscape(out, byte);
    runStart = i + 1;
  }
  out.append(text, runStart, text.size() - runStart);
  out += '"';
}

std::string JsonQuote(const char* text) {
  std::string out;
  AppendQuoted(out, text == nullptr ? std::string_view{} : std::string_view{text});
  return out;
}

std::string_view JsonBool(bool value) {
  return value ? "true" : "false";
}

void AppendNumberKey(std::string& out, std::string_view key, double value) {
  out += key;
  AppendNumber(out, value);
}

void AppendIntKey(std::string& out, std::string_view key, std::int64_t value) {
  out += key;
  AppendInt(out, value);
}

void AppendBoolKey(std::string& out, std::string_view key, bool value) {
  out += key;
  out += JsonBool(value);
}

void AppendQuotedKey(std::string& out, std::string_view key, std::string_view text) {
  out += key;
  AppendQuoted(out, text);
}

void AppendCoordinatePair(CoordinateCursor& cursor, double x, double y) {
  AppendSeparator(cursor.out, cursor.first);
  AppendNumber(cursor.out, x);
  cursor.out += ',';
  AppendNumber(cursor.out, y);
}

void AppendBracketedItem(BracketCursor& cursor, std::string_view text) {
  if (cursor.count > 0) {
    cursor.out += ',';
  }
  cursor.out += '[';
  cursor.out += text;
  cursor.out += ']';
  ++cursor.count;
}

void AppendPoint(ListCursor& cursor, double x, double y) {
  AppendSeparator(cursor.out, cursor.first);
  cursor.out += '[';
  AppendNumber(cursor.out, x);
  cursor.out += ',';
  AppendNumber(cursor.out, y);
  cursor.out += ']';
}

void AppendPoint(ListCursor& cursor, double x, double y, double z) {
  AppendSeparator(cursor.out, cursor.first);
  cursor.out += '[';
  AppendNumber(cursor.out, x);
  cursor.out += ',';
  AppendNumber(cursor.out, y);
  cursor.out += ',';
  AppendNumber(cursor.out, z);
  cursor.out += ']';
}

void AppendListNumber(ListCursor& cursor, double value) {
  AppendSeparator(cursor.out, cursor.first);
  AppendNumber(cursor.out, value);
}

void AppendListQuoted(ListCursor& cursor, std::string_view text) {
  AppendSeparator(cursor.out, cursor.first);
  AppendQuoted(cursor.out, text);
}
