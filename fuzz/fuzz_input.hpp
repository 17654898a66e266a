// Reads values from fuzz bytes; when they are used up, everything reads as
// zero. The same bytes always give the same values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>

class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  bool IsEmpty() const { return rest_.empty(); }

  std::uint8_t Byte() {
    if (rest_.empty()) {
      return 0;
    }
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
  }

  // Uniform enough below `limit`, which must not be 0.
  std::uint32_t Below(std::uint32_t limit) { return Word() % limit; }

  bool OneIn(unsigned count) { return Byte() % count == 0; }

  std::uint32_t Word() {
    const std::uint32_t low = Byte();
    const std::uint32_t high = Byte();
    return low | high << 8U;
  }

  // Small integers, fractions, the special values and any bit pattern.
  double Double() {
    switch (Byte() % 8) {
      case 0: return 0;
      case 1: return static_cast<double>(Byte()) - 128;
      case 2: return (static_cast<double>(Word()) - 32768) / 64;
      case 3: return std::numeric_limits<double>::quiet_NaN();
      case 4: return std::numeric_limits<double>::infinity() * (OneIn(2) ? 1 : -1);
      case 5: return std::numeric_limits<double>::max() * (OneIn(2) ? 1 : -1);
      case 6: return static_cast<double>(Byte()) / 40;
      default: return AnyDouble();
    }
  }

  std::string Bytes(std::size_t maxSize) {
    std::string bytes;
    const std::size_t size = Byte() % (maxSize + 1);
    for (std::size_t i = 0; i < size && !rest_.empty(); ++i) {
      bytes += static_cast<char>(Byte());
    }
    return bytes;
  }

  std::string Rest() {
    std::string bytes(rest_.begin(), rest_.end());
    rest_ = {};
    return bytes;
  }

 private:
  double AnyDouble() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) {
      bits = bits << 8U | Byte();
    }
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }

  std::span<const std::uint8_t> rest_;
};
