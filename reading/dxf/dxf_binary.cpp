#include "reading/dxf/dxf_binary.hpp"

#include <bit>
#include <cstdint>
#include <optional>

#include "reading/dxf/dxf_values.hpp"

namespace {

constexpr std::string_view kSentinel = "AutoCAD Binary DXF";

// How long it is with the CR, LF, ^Z and NUL behind it, of which some are lost when
// the file was sent as text. 0: it is none.
std::size_t SentinelSize(std::string_view bytes) {
  if (!bytes.starts_with(kSentinel)) {
    return 0;
  }
  const std::size_t end = bytes.find_first_not_of("\r\n\x1A", kSentinel.size());
  return end != std::string_view::npos && bytes[end] == '\0' ? end + 1 : 0;
}

class BinaryReader {
 public:
  BinaryReader(std::string_view bytes, DxfRepairs& repairs)
      : bytes_(bytes), repairs_(repairs), at_(SentinelSize(bytes)) {
    // A first record, or a comment before it, has a code of two bytes when its
    // other byte follows.
    const std::string_view first = bytes_.substr(at_, 2);
    hasWideCodes_ = first == std::string_view("\0\0", 2) || first == "\xE7\x03";
  }

  std::string Run() {
    constexpr std::size_t kUsualGrowth = 2;
    text_.reserve(kUsualGrowth * bytes_.size());
    while (!isEnd_) {
      const auto code = ReadCode();
      if (!code) {
        break;
      }
      WritePair(*code);
    }
    return std::move(text_);
  }

 private:
  std::uint64_t Integer(std::size_t size) const {
    constexpr unsigned kByte = 8;
    std::uint64_t number = 0;
    for (std::size_t i = size; i-- > 0;) {
      number = number << kByte | static_cast<unsigned char>(bytes_[at_ + i]);
    }
    return number;
  }

  bool HasLeft(std::size_t size) const { return bytes_.size() - at_ >= size; }

  std::optional<std::uint64_t> ReadInteger(std::size_t size) {
    if (!HasLeft(size)) {
      return std::nullopt;
    }
    const std::uint64_t number = Integer(size);
    at_ += size;
    return number;
  }

  std::optional<int> ReadCode() {
    constexpr std::uint64_t kWideFollows = 0xFF;
    auto code = ReadInteger(hasWideCodes_ ? 2 : 1);
    if (code && !hasWideCodes_ && *code == kWideFollows) {
      code = ReadInteger(2);
    }
    return code ? std::optional(static_cast<int>(static_cast<std::int16_t>(*code))) : std::nullopt;
  }

  std::optional<std::string> ReadText() {
    const std::size_t end = bytes_.find('\0', at_);
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
    std::string text(bytes_.substr(at_, end - at_));
    at_ = end + 1;
    for (char& c : text) {
      // They would end the line.
      c = c == '\n' || c == '\r' ? ' ' : c;
    }
    return text;
  }

  std::optional<std::string> ReadChunk() {
    const auto size = ReadInteger(1);
    if (!size || !HasLeft(static_cast<std::size_t>(*size))) {
      return std::nullopt;
    }
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr unsigned kHalf = 4;
    constexpr unsigned kMask = 15;
    std::string text;
    for (const char c : bytes_.substr(at_, static_cast<std::size_t>(*size))) {
      const auto byte = static_cast<unsigned char>(c);
      text += kDigits[byte >> kHalf];
      text += kDigits[byte & kMask];
    }
    at_ += static_cast<std::size_t>(*size);
    return text;
  }

  template <typename Signed>
  std::optional<std::string> ReadSigned() {
    const auto number = ReadInteger(sizeof(Signed));
    return number ? std::optional(std::to_string(static_cast<Signed>(*number))) : std::nullopt;
  }

  std::optional<std::string> ReadReal() {
    const auto bits = ReadInteger(sizeof(double));
    return bits ? std::optional(DxfRealText(std::bit_cast<double>(*bits))) : std::nullopt;
  }

  std::optional<std::string> ReadValue(int code) {
    constexpr int kFirstTrueByte = 290;
    switch (KindOfDxfCode(code)) {
      case DxfValueKind::kReal: return ReadReal();
      case DxfValueKind::kByte:
        // Those of 280 to 289 take two bytes.
        return code < kFirstTrueByte ? ReadSigned<std::int16_t>() : ReadSigned<std::int8_t>();
      case DxfValueKind::kShort: return ReadSigned<std::int16_t>();
      case DxfValueKind::kInteger: return ReadSigned<std::int32_t>();
      case DxfValueKind::kLong: return ReadSigned<std::int64_t>();
      case DxfValueKind::kChunk: return ReadChunk();
      default: return ReadText();
    }
  }

  void WritePair(int code) {
    const auto value = ReadValue(code);
    if (!value) {
      repairs_.Add(DxfRepair::kCutBinary, line_);
      at_ = bytes_.size();
      return;
    }
    text_ += std::to_string(code);
    text_ += '\n';
    text_ += *value;
    text_ += '\n';
    line_ += 2;
    isEnd_ = code == 0 && *value == "EOF";
  }

  std::string_view bytes_;
  DxfRepairs& repairs_;
  std::size_t at_;
  std::size_t line_ = 1;
  bool hasWideCodes_ = false;
  bool isEnd_ = false;
  std::string text_;
};

}  // namespace

bool IsBinaryDxf(std::string_view bytes) {
  return SentinelSize(bytes) != 0;
}

std::string TextFromBinaryDxf(std::string_view bytes, DxfRepairs& repairs) {
  return BinaryReader(bytes, repairs).Run();
}
