// Reads numbers and texts from bytes that a drawing stores, in the order of bytes that
// all drawings have (little-endian), and never beyond their end.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

using StoredBytes = std::span<const unsigned char>;

// Reads byte after byte. What is missing is 0, and `IsGood` false from then on.
class ByteReader {
 public:
  explicit ByteReader(StoredBytes bytes) : bytes_(bytes) {}

  bool IsGood() const { return isGood_; }
  std::size_t Left() const { return bytes_.size() - at_; }
  StoredBytes Rest() const { return bytes_.subspan(at_); }

  std::uint32_t Uint32() { return static_cast<std::uint32_t>(Unsigned(4)); }
  std::int32_t Int32() { return static_cast<std::int32_t>(Uint32()); }
  double Double() { return std::bit_cast<double>(Unsigned(8)); }

  // Up to a NUL, which is read with what fills the last four bytes.
  std::string Text() {
    std::string text;
    unsigned char byte = 0;
    while ((byte = static_cast<unsigned char>(Unsigned(1))) != 0) {
      text += static_cast<char>(byte);
    }
    Align();
    return text;
  }

  // The same of 16-bit units, with the zero that ends them.
  std::u16string WideText() {
    std::u16string text;
    do {
      text += static_cast<char16_t>(Unsigned(2));
    } while (text.back() != 0);
    Align();
    return text;
  }

 private:
  std::uint64_t Unsigned(std::size_t count) {
    if (Left() < count) {
      isGood_ = false;
      at_ = bytes_.size();
      return 0;
    }
    std::uint64_t value = 0;
    for (std::size_t i = count; i > 0; --i) {
      value = value << 8U | bytes_[at_ + i - 1];
    }
    at_ += count;
    return value;
  }

  void Align() {
    constexpr std::size_t kWord = 4;
    const std::size_t aligned = (at_ + kWord - 1) / kWord * kWord;
    at_ = aligned < bytes_.size() ? aligned : bytes_.size();
  }

  StoredBytes bytes_;
  std::size_t at_ = 0;
  bool isGood_ = true;
};

// Reads the bit codes of DWG files; the letters are those of their descriptions.
class BitReader {
 public:
  explicit BitReader(StoredBytes bytes) : bytes_(bytes) {}

  bool IsGood() const { return at_ <= bytes_.size() * 8; }
  std::size_t BitsLeft() const { return IsGood() ? bytes_.size() * 8 - at_ : 0; }

  // B, BB: the bits in the order of their places.
  unsigned Bits(unsigned count) {
    unsigned value = 0;
    for (unsigned i = 0; i < count; ++i) {
      value = value << 1U | Bit();
    }
    return value;
  }

  std::uint16_t BitShort() {
    switch (Bits(2)) {
      case 0: return static_cast<std::uint16_t>(Raw(2));
      case 1: return static_cast<std::uint16_t>(Raw(1));
      case 2: return 0;
      default: return 256;
    }
  }

  std::uint32_t BitLong() {
    switch (Bits(2)) {
      case 0: return static_cast<std::uint32_t>(Raw(4));
      case 1: return static_cast<std::uint32_t>(Raw(1));
      default: return 0;
    }
  }

  double RawDouble() { return std::bit_cast<double>(Raw(8)); }

  double BitDouble() {
    switch (Bits(2)) {
      case 0: return RawDouble();
      case 1: return 1;
      default: return 0;
    }
  }

  // DD: the bytes in which a number differs from the one before.
  double DefaultDouble(double before) {
    constexpr std::uint64_t kLow32 = 0xFFFFFFFF;
    constexpr std::uint64_t kLow48 = 0xFFFFFFFFFFFF;
    const auto bits = std::bit_cast<std::uint64_t>(before);
    switch (Bits(2)) {
      case 0: return before;
      case 1: return std::bit_cast<double>((bits & ~kLow32) | Raw(4));
      case 2: {
        const std::uint64_t upper = Raw(2) << 32U;
        return std::bit_cast<double>((bits & ~kLow48) | upper | Raw(4));
      }
      default: return RawDouble();
    }
  }

  // RS, RL, RD: whole bytes, which need not lie at bytes of the stream.
  std::uint64_t Raw(unsigned count) {
    std::uint64_t value = 0;
    for (unsigned i = 0; i < count; ++i) {
      value |= std::uint64_t{Bits(8)} << (8 * i);
    }
    return value;
  }

 private:
  unsigned Bit() {
    const std::size_t byte = at_ / 8;
    const unsigned place = 7 - static_cast<unsigned>(at_ % 8);
    ++at_;
    return byte < bytes_.size() ? unsigned{bytes_[byte]} >> place & 1U : 0;
  }

  StoredBytes bytes_;
  std::size_t at_ = 0;
};
