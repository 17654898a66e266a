#include "encode/json_text.hpp"

#include <algorithm>
#include <array>

#include "encode/fast/byte_search.hpp"

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

}  // namespace

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
