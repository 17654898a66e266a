#include "complete/thumbnail.hpp"

#include <algorithm>
#include <cstdint>

#include "encode/json_text.hpp"

namespace {

// The bytes at a place as a number, the lowest first; 0 beyond the end.
std::uint32_t NumberAt(Bytes bytes, std::size_t at, unsigned count) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < count && at + i < bytes.size(); ++i) {
    value |= std::uint32_t{bytes[at + i]} << (8 * i);
  }
  return value;
}

std::string_view KindOf(std::uint32_t code) {
  constexpr std::uint32_t kBmp = 2;
  constexpr std::uint32_t kWmf = 3;
  constexpr std::uint32_t kPng = 6;
  switch (code) {
    case kBmp: return "BMP";
    case kWmf: return "WMF";
    case kPng: return "PNG";
    default: return {};
  }
}

void AppendLowFirst(std::string& out, std::size_t value) {
  for (unsigned i = 0; i < 4; ++i) {
    out += static_cast<char>(value >> (8 * i) & 0xFFU);
  }
}

Bytes StoredThumbnail(const Dwg_Data& dwg) {
  const Dwg_Chain& chain = dwg.thumbnail;
  return chain.chain == nullptr ? Bytes{} : Bytes{chain.chain, chain.size};
}

// A DXF file has the bare bitmap, a DWG the preview section.
Picture PictureOf(const CompleteContext& context) {
  const Bytes stored = StoredThumbnail(context.dwg());
  if (context.base.drawing.dxfHeader != nullptr) {
    return {stored.empty() ? "" : "BMP", stored};
  }
  return PictureOfPreview(stored.subspan(std::min(context.dwg().thumbnail.byte, stored.size())));
}

}  // namespace

Picture PictureOfPreview(Bytes preview) {
  constexpr std::size_t kDirectory = 5;
  constexpr std::size_t kEntry = 9;
  const std::size_t count = NumberAt(preview, kDirectory - 1, 1);
  std::size_t at = kDirectory + count * kEntry;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = kDirectory + i * kEntry;
    const std::size_t size = NumberAt(preview, entry + 1 + 4, 4);
    const std::string_view kind = KindOf(NumberAt(preview, entry, 1));
    if (at > preview.size() || size > preview.size() - at) {
      return {};
    }
    if (!kind.empty() && size != 0) {
      return {kind, preview.subspan(at, size)};
    }
    at += size;
  }
  return {};
}

std::string BitmapFileHeader(Bytes bitmap) {
  constexpr std::size_t kFileHeader = 14;
  constexpr std::size_t kBitCount = 14;
  constexpr std::size_t kCompression = 16;
  constexpr std::size_t kColorsUsed = 32;
  constexpr std::uint32_t kMostIndexedBits = 8;
  constexpr std::uint32_t kBitFields = 3;
  constexpr std::size_t kMasks = 12;
  const std::uint32_t bits = NumberAt(bitmap, kBitCount, 2);
  const std::uint32_t used = NumberAt(bitmap, kColorsUsed, 4);
  const std::size_t colors = used != 0 ? used : bits <= kMostIndexedBits ? 1U << bits : 0;
  const std::size_t masks = NumberAt(bitmap, kCompression, 4) == kBitFields ? kMasks : 0;
  std::string header = "BM";
  AppendLowFirst(header, kFileHeader + bitmap.size());
  AppendLowFirst(header, 0);
  AppendLowFirst(header, kFileHeader + NumberAt(bitmap, 0, 4) + masks + 4 * colors);
  return header;
}

std::string Base64(Bytes bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kGroup = 3;
  std::string text;
  text.reserve((bytes.size() + 2) / kGroup * 4);
  for (std::size_t at = 0; at < bytes.size(); at += kGroup) {
    const std::size_t count = std::min(kGroup, bytes.size() - at);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < kGroup; ++i) {
      group = group << 8U | (i < count ? bytes[at + i] : 0U);
    }
    for (std::size_t i = 0; i <= kGroup; ++i) {
      text += i <= count ? kDigits[group >> (6 * (kGroup - i)) & 0x3FU] : '=';
    }
  }
  return text;
}

void AppendThumbnail(JsonOut& out, const CompleteContext& context) {
  const Picture picture = PictureOf(context);
  if (picture.kind.empty()) {
    return;
  }
  std::string file = picture.kind == "BMP" ? BitmapFileHeader(picture.bytes) : std::string{};
  file.append(picture.bytes.begin(), picture.bytes.end());
  AppendQuotedKey(out, ",\"thumbnail\":{\"kind\":", picture.kind);
  AppendQuotedKey(out, ",\"base64\":",
                  Base64({reinterpret_cast<const unsigned char*>(file.data()), file.size()}));
  out += '}';
}
