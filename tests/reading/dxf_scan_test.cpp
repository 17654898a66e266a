#include <dxf_scan.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>

namespace {

// A line with what must stand behind it, and where its end is expected.
class Text {
 public:
  explicit Text(const std::string& line)
      : text_(line + std::string(DXF_SCAN_MOST, '7')), end_(line.size()) {}

  const unsigned char* begin() const {
    return reinterpret_cast<const unsigned char*>(text_.data());
  }
  bool IsEnd(const unsigned char* at) const { return at == begin() + end_; }

 private:
  std::string text_;
  std::size_t end_;
};

std::optional<double> Real(const std::string& line) {
  const Text text(line);
  double value = 0;
  const unsigned char* end = dxf_scan_real(text.begin(), &value);
  EXPECT_TRUE(end == nullptr || text.IsEnd(end)) << line;
  return end == nullptr ? std::nullopt : std::optional(value);
}

std::optional<long> Integer(const std::string& line) {
  const Text text(line);
  long value = 0;
  const unsigned char* end = dxf_scan_integer(text.begin(), &value);
  EXPECT_TRUE(end == nullptr || text.IsEnd(end)) << line;
  return end == nullptr ? std::nullopt : std::optional(value);
}

std::optional<std::uint64_t> Handle(const std::string& line) {
  const Text text(line);
  std::uint64_t value = 0;
  const unsigned char* end = dxf_scan_handle(text.begin(), &value);
  EXPECT_TRUE(end == nullptr || text.IsEnd(end)) << line;
  return end == nullptr ? std::nullopt : std::optional(value);
}

std::optional<int> Code(const std::string& line) {
  const Text text(line);
  int value = 0;
  const unsigned char* end = dxf_scan_code(text.begin(), &value);
  EXPECT_TRUE(end == nullptr || text.IsEnd(end)) << line;
  return end == nullptr ? std::nullopt : std::optional(value);
}

std::string Digits(std::mt19937& random, unsigned most) {
  std::string digits;
  for (auto left = random() % (most + 1); left != 0; --left) {
    digits += static_cast<char>('0' + random() % 10);
  }
  return digits;
}

}  // namespace

TEST(DxfScanReal, ReadsWhatStrtodReads) {
  std::mt19937 random(1);
  int read = 0;
  for (int i = 0; i < 200000; ++i) {
    std::string number = random() % 2 == 0 ? "-" : "";
    number += Digits(random, 12);
    if (random() % 8 != 0) {
      number += '.' + std::string(random() % 4 == 0 ? random() % 20 : 0, '0') + Digits(random, 19);
    }
    const auto value = Real(number + (random() % 2 == 0 ? "\n" : "\r\n"));
    if (value) {
      ++read;
      const double expected = std::strtod(number.c_str(), nullptr);
      ASSERT_EQ(std::bit_cast<std::uint64_t>(*value), std::bit_cast<std::uint64_t>(expected))
          << number;
    }
  }
  EXPECT_GT(read, 100000);
}

TEST(DxfScanReal, ReadsPlainDecimals) {
  EXPECT_EQ(Real("0\n"), 0.0);
  EXPECT_EQ(Real("  1.5\r\n"), 1.5);
  EXPECT_EQ(Real("+2.\n"), 2.0);
  EXPECT_EQ(Real(".25\n"), 0.25);
  EXPECT_EQ(Real("-0.0\n"), 0.0);
  EXPECT_EQ(Real("1234567890123456789\n"), 1234567890123456789.0);
  EXPECT_EQ(Real("0.000000000000000000000000001\n"), 1e-27);
  EXPECT_EQ(Real("323.83276483316237\n"), 323.83276483316237);
}

TEST(DxfScanReal, LeavesTheRest) {
  for (const char* line :
       {"\n", "-\n", ".\n", "-.\n", "1e5\n", "1 \n", "1,5\n", "nan\n", "0x1\n", "1.5.2\n",
        "12345678901234567890\n", "0.0000000000000000000000000001\n", "1\r2\n"}) {
    EXPECT_FALSE(Real(line)) << line;
  }
}

TEST(DxfScanInteger, ReadsUpToNineDigits) {
  EXPECT_EQ(Integer("0\n"), 0);
  EXPECT_EQ(Integer("     7\r\n"), 7);
  EXPECT_EQ(Integer("-32768\n"), -32768);
  EXPECT_EQ(Integer("999999999\n"), 999999999);
  for (const char* line : {"\n", "-\n", "+1\n", "1.0\n", "1 \n", "1000000000\n", "1\r"}) {
    EXPECT_FALSE(Integer(line)) << line;
  }
}

TEST(DxfScanHandle, ReadsHexadecimalDigits) {
  EXPECT_EQ(Handle("1f\n"), 0x1FU);
  EXPECT_EQ(Handle(" ABCDEF0123456789\r\n"), 0xABCDEF0123456789U);
  for (const char* line :
       {"\n", "0x1F\n", "1G\n", "-1\n", "1 \n", "ABCDEF01234567890\n", "@\n", "`\n"}) {
    EXPECT_FALSE(Handle(line)) << line;
  }
}

TEST(DxfScanCode, ReadsUpToFourDigits) {
  EXPECT_EQ(Code("  0\n"), 0);
  EXPECT_EQ(Code("1071\r\n"), 1071);
  for (const char* line : {"\n", "-1\n", "10000\n", "5 \n", "         5\n", "a\n"}) {
    EXPECT_FALSE(Code(line)) << line;
  }
}
