#include "encode/text_decoding.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string FromUtf16(const std::u16string& text) {
  return DecodeUtf16Text(text.c_str());
}

}  // namespace

TEST(TextDecoding, NullIsAnEmptyText) {
  EXPECT_EQ(DecodeCodePageText(nullptr), "");
  EXPECT_EQ(DecodeUtf16Text(nullptr), "");
  EXPECT_EQ(DecodeText(true, nullptr), "");
  EXPECT_EQ(DecodeText(false, nullptr), "");
}

TEST(TextDecoding, AsciiBytesStay) {
  std::string all;
  for (int byte = 1; byte < 0x80; ++byte) {
    all += static_cast<char>(byte);
  }
  EXPECT_EQ(DecodeCodePageText(all.c_str()), all);
}

// The published table of Windows-1252, as UTF-8 characters.
TEST(TextDecoding, UpperControlRangeIsWindows1252) {
  const std::vector<std::string> expected = {
      "€", "\xC2\x81", "‚",        "ƒ", "„",        "…",        "†", "‡",        "ˆ", "‰", "Š",
      "‹", "Œ",        "\xC2\x8D", "Ž", "\xC2\x8F", "\xC2\x90", "‘", "’",        "“", "”", "•",
      "–", "—",        "˜",        "™", "š",        "›",        "œ", "\xC2\x9D", "ž", "Ÿ"};
  ASSERT_EQ(expected.size(), 32U);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string text(1, static_cast<char>(0x80 + i));
    EXPECT_EQ(DecodeCodePageText(text.c_str()), expected[i]) << i;
    EXPECT_EQ(DecodeWindows1252Byte(static_cast<unsigned char>(0x80 + i)), expected[i]) << i;
  }
}

TEST(TextDecoding, BytesFromA0AreLatin1) {
  EXPECT_EQ(DecodeCodePageText("\xA0"), "\xC2\xA0");
  EXPECT_EQ(DecodeCodePageText("\xBF\xC0"), "\xC2\xBF\xC3\x80");
  EXPECT_EQ(DecodeCodePageText("\xE9\xFF"), "é\xC3\xBF");
}

TEST(TextDecoding, TextOfAnotherCodePageIsStillReadAsWindows1252) {
  EXPECT_EQ(DecodeCodePageText("\xCF\xF0\xE8"), "Ïðè");  // Cyrillic in the drawing
}

TEST(TextDecoding, FormattingCodesAreLeftAlone) {
  EXPECT_EQ(DecodeCodePageText("\\U+00B0 %%d \\M+C5FF8"), "\\U+00B0 %%d \\M+C5FF8");
  EXPECT_EQ(FromUtf16(u"\\U+00B0 %%d"), "\\U+00B0 %%d");
}

TEST(TextDecoding, Utf8StaysWhenTheDrawingHoldsIt) {
  EXPECT_EQ(DecodeCodePageText("Ж"), "Ð–");
  SetEightBitIsUtf8(true);
  EXPECT_EQ(DecodeCodePageText("Ж\xFF"), "Ж\xFF");
  EXPECT_EQ(DecodeText(false, "Ж"), "Ж");
  EXPECT_EQ(DecodeCodePageText(nullptr), "");
  EXPECT_EQ(DecodeWindows1252Byte(0xE9), "é");
  SetEightBitIsUtf8(false);
}

TEST(TextDecoding, Utf16UnitsBecomeOneToThreeBytes) {
  EXPECT_EQ(FromUtf16(u""), "");
  EXPECT_EQ(FromUtf16({0x01, 0x7F}), "\x01\x7F");
  EXPECT_EQ(FromUtf16({0x80, 0x7FF}), "\xC2\x80\xDF\xBF");
  EXPECT_EQ(FromUtf16({0x800, 0xD7FF}), "\xE0\xA0\x80\xED\x9F\xBF");
  EXPECT_EQ(FromUtf16({0xE000, 0xFFFF}), "\xEE\x80\x80\xEF\xBF\xBF");
  EXPECT_EQ(FromUtf16(u"AЖ文"), "AЖ文");
}

TEST(TextDecoding, SurrogatePairsBecomeFourBytes) {
  EXPECT_EQ(FromUtf16({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf16({0xD800, 0xDC00}), "\xF0\x90\x80\x80");
  EXPECT_EQ(FromUtf16({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF");
}

TEST(TextDecoding, BrokenSurrogatesBecomeReplacementCharacters) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(FromUtf16({0xD83D}), replacement);
  EXPECT_EQ(FromUtf16({0xDE00}), replacement);
  EXPECT_EQ(FromUtf16({0xDE00, 0xD83D}), replacement + replacement);
  EXPECT_EQ(FromUtf16({0xD83D, u'a'}), replacement + "a");
  EXPECT_EQ(FromUtf16({0xD83D, 0xD83D, 0xDE00}), replacement + "\xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf16({u'a', 0xDFFF, u'b'}), "a" + replacement + "b");
}

TEST(TextDecoding, Utf16NeedsNoAlignment) {
  const char bytes[] = {'x', 'A', 0, 0x16, 0x04, 0, 0};
  EXPECT_EQ(DecodeUtf16Text(bytes + 1), "AЖ");
}

TEST(TextDecoding, TheSwitchChoosesTheDecoder) {
  const std::u16string text = u"é";
  EXPECT_EQ(DecodeText(true, reinterpret_cast<const char*>(text.c_str())), "é");
  EXPECT_EQ(DecodeText(false, "\xE9"), "é");
}
