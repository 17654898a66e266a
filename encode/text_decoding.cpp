#include "encode/text_decoding.hpp"

#include <array>
#include <cstdint>
#include <cstring>

#include "encode/fast/byte_search.hpp"
#include "encode/utf8.hpp"

namespace {

// Windows-1252 from 0x80 to 0x9F; the five bytes that it leaves unassigned
// stand for themselves.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(kWindows1252[0x8D - 0x80] == 0x8D && kWindows1252[0x9F - 0x80] == 0x178);

constexpr std::uint32_t kReplacement = 0xFFFD;

void AppendWindows1252(std::string& out, unsigned char byte) {
  if (byte < 0x80) {
    out += static_cast<char>(byte);
  } else if (byte < 0xA0) {
    AppendUtf8(out, kWindows1252[byte - 0x80U]);
  } else {
    AppendUtf8(out, byte);
  }
}

std::size_t AsciiLength(std::string_view text) {
  return CountWithout(
      text, [](ByteWord word) { return word & AllBytes(0x80); },
      [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

std::string DecodeWindows1252(std::string_view text) {
  std::string out;
  out.reserve(2 * text.size());
  while (!text.empty()) {
    const std::size_t ascii = AsciiLength(text);
    out += text.substr(0, ascii);
    text.remove_prefix(ascii);
    if (!text.empty()) {
      AppendWindows1252(out, static_cast<unsigned char>(text.front()));
      text.remove_prefix(1);
    }
  }
  return out;
}

// Four ASCII units as their four bytes.
constexpr std::uint32_t Narrow(ByteWord units) {
  const ByteWord pairs = (units | units >> 8U) & 0x0000FFFF0000FFFFU;
  return static_cast<std::uint32_t>(pairs | pairs >> 16U);
}
static_assert(Narrow(0x0064006300620061) == 0x64636261);

// Copies units from the start, four at a time, as long as all are ASCII; returns
// how many it copied.
std::size_t CopyAsciiUnits(char* at, const char* bytes, std::size_t count) {
  constexpr std::size_t kUnits = sizeof(ByteWord) / 2;
  constexpr ByteWord kNonAscii = 0xFF80FF80FF80FF80U;
  std::size_t copied = 0;
  for (; count - copied >= kUnits; copied += kUnits) {
    const ByteWord units = LoadBytes(bytes + 2 * copied);
    if ((units & kNonAscii) != 0) {
      break;
    }
    const std::uint32_t four = Narrow(units);
    for (unsigned i = 0; i < kUnits; ++i) {
      at[copied + i] = static_cast<char>(four >> (8 * i));
    }
  }
  return copied;
}

constexpr bool IsHighSurrogate(std::uint32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(std::uint32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::string DecodeUtf16(const char* bytes) {
  // The library may hand over odd addresses, so units are copied out.
  const auto unitAt = [bytes](std::size_t i) {
    std::uint16_t unit = 0;
    std::memcpy(&unit, bytes + 2 * i, sizeof unit);
    return std::uint32_t{unit};
  };
  std::size_t count = 0;
  while (unitAt(count) != 0) {
    ++count;
  }
  std::string out(count, '\0');
  out.resize(CopyAsciiUnits(out.data(), bytes, count));
  for (std::size_t i = out.size(); i < count; ++i) {
    const std::uint32_t unit = unitAt(i);
    if (IsHighSurrogate(unit) && IsLowSurrogate(unitAt(i + 1))) {
      ++i;
      AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10U | (unitAt(i) - 0xDC00)));
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      AppendUtf8(out, kReplacement);
    } else {
      AppendUtf8(out, unit);
    }
  }
  return out;
}

}  // namespace

std::string DecodeWindows1252Byte(unsigned char byte) {
  std::string out;
  AppendWindows1252(out, byte);
  return out;
}

DecodedText DecodeText(TextForm form, const char* text) {
  if (text == nullptr) {
    return DecodedText(std::string_view{});
  }
  if (form == TextForm::kUtf16) {
    return DecodedText(DecodeUtf16(text));
  }
  const std::string_view bytes(text);
  if (form == TextForm::kUtf8 || AsciiLength(bytes) == bytes.size()) {
    return DecodedText(bytes);
  }
  return DecodedText(DecodeWindows1252(bytes));
}
