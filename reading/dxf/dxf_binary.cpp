#include "reading/dxf/dxf_binary.hpp"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
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

constexpr std::size_t kByteCount = 256;

// The two digits of each byte.
consteval std::array<std::array<char, 2>, kByteCount> HexDigits() {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::array<std::array<char, 2>, kByteCount> all{};
  for (std::size_t byte = 0; byte < all.size(); ++byte) {
    all.at(byte) = {kDigits[byte / kDigits.size()], kDigits[byte % kDigits.size()]};
  }
  return all;
}

constexpr auto kHexDigits = HexDigits();

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

  bool WriteText() {
    const std::size_t end = bytes_.find('\0', at_);
    if (end == std::string_view::npos) {
      return false;
    }
    const std::size_t begin = text_.size();
    text_ += bytes_.substr(at_, end - at_);
    at_ = end + 1;
    for (const char lineEnd : {'\n', '\r'}) {
      for (std::size_t at = begin; (at = text_.find(lineEnd, at)) != std::string::npos; ++at) {
        text_[at] = ' ';
      }
    }
    return true;
  }

  bool WriteChunk() {
    const auto size = ReadInteger(1);
    if (!size || !HasLeft(static_cast<std::size_t>(*size))) {
      return false;
    }
    const std::string_view chunk = bytes_.substr(at_, static_cast<std::size_t>(*size));
    text_.resize(text_.size() + 2 * chunk.size());
    char* to = text_.data() + text_.size() - 2 * chunk.size();
    for (const char byte : chunk) {
      const std::array<char, 2>& digits = kHexDigits[static_cast<unsigned char>(byte)];
      std::memcpy(to, digits.data(), digits.size());
      to += digits.size();
    }
    at_ += static_cast<std::size_t>(*size);
    return true;
  }

  template <typename Signed>
  bool WriteSigned() {
    const auto number = ReadInteger(sizeof(Signed));
    if (number) {
      WriteInteger(static_cast<Signed>(*number));
    }
    return number.has_value();
  }

  void WriteInteger(std::int64_t number) {
    constexpr std::size_t kLongest = 24;
    std::array<char, kLongest> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text_.append(digits.data(), end.ptr);
  }

  bool WriteReal() {
    const auto bits = ReadInteger(sizeof(double));
    if (bits) {
      AppendDxfReal(std::bit_cast<double>(*bits), text_);
    }
    return bits.has_value();
  }

  // Returns whether the file holds the whole value.
  bool WriteValue(int code) {
    constexpr int kFirstTrueByte = 290;
    switch (KindOfDxfCode(code)) {
      case DxfValueKind::kReal: return WriteReal();
      case DxfValueKind::kByte:
        // Those of 280 to 289 take two bytes.
        return code < kFirstTrueByte ? WriteSigned<std::int16_t>() : WriteSigned<std::int8_t>();
      case DxfValueKind::kShort: return WriteSigned<std::int16_t>();
      case DxfValueKind::kInteger: return WriteSigned<std::int32_t>();
      case DxfValueKind::kLong: return WriteSigned<std::int64_t>();
      case DxfValueKind::kChunk: return WriteChunk();
      default: return WriteText();
    }
  }

  void WritePair(int code) {
    const std::size_t begin = text_.size();
    WriteInteger(code);
    text_ += '\n';
    const std::size_t value = text_.size();
    if (!WriteValue(code)) {
      repairs_.Add(DxfRepair::kCutBinary, line_);
      text_.resize(begin);
      at_ = bytes_.size();
      return;
    }
    isEnd_ = code == 0 && std::string_view(text_).substr(value) == "EOF";
    text_ += '\n';
    line_ += 2;
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
