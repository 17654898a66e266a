#include "encode/utf8_check.hpp"

#include "encode/fast/byte_search.hpp"

namespace {

unsigned ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// By the first byte; 0 when it begins no character.
std::size_t LengthByLead(unsigned lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead < 0xC2 || lead > 0xF4) {
    return 0;
  }
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// What the second byte may be goes by the first.
bool IsSecond(unsigned lead, unsigned second) {
  const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  return second >= least && second <= most;
}

// 0 when the text begins with no character.
std::size_t LengthOrNone(std::string_view text) {
  const unsigned lead = ByteAt(text, 0);
  const std::size_t length = LengthByLead(lead);
  if (length < 2) {
    return length;
  }
  if (length > text.size() || !IsSecond(lead, ByteAt(text, 1))) {
    return 0;
  }
  for (std::size_t i = 2; i < length; ++i) {
    if ((ByteAt(text, i) & 0xC0U) != 0x80) {
      return 0;
    }
  }
  return length;
}

std::size_t AsciiLength(std::string_view text) {
  return CountWithout(
      text, [](ByteWord word) { return word & AllBytes(0x80); },
      [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

}  // namespace

std::size_t Utf8CharacterLength(std::string_view text) {
  const std::size_t length = LengthOrNone(text);
  return length == 0 ? 1 : length;
}

Utf8Findings CheckUtf8(std::string_view text) {
  Utf8Findings findings;
  text.remove_prefix(AsciiLength(text));
  findings.isAscii = text.empty();
  while (!text.empty() && findings.isUtf8) {
    const std::size_t length = LengthOrNone(text);
    findings.isUtf8 = length != 0;
    findings.hasLong = findings.hasLong || length > 2;
    text.remove_prefix(length);
    text.remove_prefix(AsciiLength(text));
  }
  return findings;
}
