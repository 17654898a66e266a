// Bytes as drawings store them, for tests: little-endian.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

class ByteWriter {
 public:
  ByteWriter& Long(std::uint32_t value) { return Unsigned(value, 4); }
  ByteWriter& Double(double value) { return Unsigned(std::bit_cast<std::uint64_t>(value), 8); }
  ByteWriter& Doubles(std::initializer_list<double> values) {
    for (const double value : values) {
      Double(value);
    }
    return *this;
  }

  // With a NUL, up to a multiple of four.
  ByteWriter& Text(std::string_view text) {
    for (const char c : text) {
      Unsigned(static_cast<unsigned char>(c), 1);
    }
    return Fill();
  }
  ByteWriter& WideText(std::u16string_view text) {
    for (const char16_t unit : text) {
      Unsigned(unit, 2);
    }
    Unsigned(0, 2);
    return bytes_.size() % 4 == 0 ? *this : Unsigned(0, 2);
  }
  ByteWriter& Bytes(const std::vector<unsigned char>& bytes) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
  }

  const std::vector<unsigned char>& bytes() const { return bytes_; }

 private:
  ByteWriter& Unsigned(std::uint64_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      bytes_.push_back(static_cast<unsigned char>(value >> (8 * i)));
    }
    return *this;
  }
  ByteWriter& Fill() {
    do {
      bytes_.push_back(0);
    } while (bytes_.size() % 4 != 0);
    return *this;
  }

  std::vector<unsigned char> bytes_;
};
