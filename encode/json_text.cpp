#include "encode/json_text.hpp"

#include <algorithm>
#include <array>

#include "encode/byte_search.hpp"

namespace {

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

constexpr std::size_t kLongestEscape = 6;

char* WriteEscape(char* at, unsigned char byte) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  *at++ = '\\';
  *at++ = kEscapes[byte];
  if (kEscapes[byte] == 'u') {
    *at++ = '0';
    *at++ = '0';
    *at++ = kHexDigits[byte >> 4U];
    *at++ = kHexDigits[byte & 0xFU];
  }
  return at;
}

// How many bytes of a text are escaped at once: room for the worst of them is
// asked for beforehand.
constexpr std::size_t kEscapedAtOnce = 1024;
static_assert(kEscapedAtOnce * kLongestEscape + sizeof(ByteWord) <= JsonOut::kMaxReserve);

// `text` comes to begin at its first NUL, or is empty at the end.
char* WriteEscaped(char* at, std::string_view& text) {
  while (true) {
    const std::size_t plain = CopyWithout(at, text, [](ByteWord word) {
      return Found(word, BytesBelow(word, 0x20) | BytesEqual(word, '"') | BytesEqual(word, '\\'));
    });
    at += plain;
    text.remove_prefix(plain);
    if (text.empty() || text.front() == '\0') {
      return at;
    }
    at = WriteEscape(at, static_cast<unsigned char>(text.front()));
    text.remove_prefix(1);
  }
}

// Writes a comma unless the element is the first; the caller has room for it.
char* WriteSeparator(char* at, bool& first) {
  *at = ',';
  at += first ? 0 : 1;
  first = false;
  return at;
}

}  // namespace

std::string JsonNumber(double value) {
  std::array<char, kNumberRoom> buffer;
  return {buffer.data(), WriteNumber(buffer.data(), value)};
}

std::string JsonInt(std::int32_t value) {
  std::array<char, kNumberRoom> buffer;
  return {buffer.data(), WriteInt(buffer.data(), value)};
}

bool AppendEscaped(JsonOut& out, std::string_view text) {
  while (!text.empty()) {
    std::string_view part = text.substr(0, kEscapedAtOnce);
    text.remove_prefix(part.size());
    out.Commit(WriteEscaped(out.Reserve(part.size() * kLongestEscape + sizeof(ByteWord)), part));
    if (!part.empty()) {
      return false;
    }
  }
  return true;
}

void AppendQuoted(JsonOut& out, std::string_view text) {
  out += '"';
  AppendEscaped(out, text);
  out += '"';
}

std::string JsonQuote(const char* text) {
  JsonOut out;
  AppendQuoted(out, text == nullptr ? std::string_view{} : std::string_view{text});
  return out.Text();
}

void AppendCoordinatePair(CoordinateCursor& cursor, double x, double y) {
  char* at = cursor.out.Reserve(2 * kNumberRoom + 2);
  at = WriteNumber(WriteSeparator(at, cursor.first), x);
  *at++ = ',';
  cursor.out.Commit(WriteNumber(at, y));
}

CoordinateCursor BeginBracketedItem(BracketCursor& cursor) {
  if (cursor.count > 0) {
    cursor.out += ',';
  }
  cursor.out += '[';
  return {cursor.out};
}

void EndBracketedItem(BracketCursor& cursor) {
  cursor.out += ']';
  ++cursor.count;
}

void AppendPoint(ListCursor& cursor, double x, double y) {
  char* at = cursor.out.Reserve(2 * kNumberRoom + 4);
  at = WriteSeparator(at, cursor.first);
  *at++ = '[';
  at = WriteNumber(at, x);
  *at++ = ',';
  at = WriteNumber(at, y);
  *at++ = ']';
  cursor.out.Commit(at);
}

void AppendPoint(ListCursor& cursor, double x, double y, double z) {
  char* at = cursor.out.Reserve(3 * kNumberRoom + 5);
  at = WriteSeparator(at, cursor.first);
  *at++ = '[';
  at = WriteNumber(at, x);
  *at++ = ',';
  at = WriteNumber(at, y);
  *at++ = ',';
  at = WriteNumber(at, z);
  *at++ = ']';
  cursor.out.Commit(at);
}

void AppendListNumber(ListCursor& cursor, double value) {
  char* at = cursor.out.Reserve(kNumberRoom + 1);
  cursor.out.Commit(WriteNumber(WriteSeparator(at, cursor.first), value));
}

void AppendListQuoted(ListCursor& cursor, std::string_view text) {
  char* at = cursor.out.Reserve(1);
  cursor.out.Commit(WriteSeparator(at, cursor.first));
  AppendQuoted(cursor.out, text);
}
