#include "encode/text_decoding.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

std::string Windows1252(const char* text) {
  return std::string(DecodeText(TextForm::kWindows1252, text));
}

std::string Utf16(const void* text) {
  return std::string(DecodeText(TextForm::kUtf16, static_cast<const char*>(text)));
}

std::string DecodeUnits(std::vector<char16_t> units) {
  units.push_back(0);
  return Utf16(units.data());
}

std::string Utf8(std::u8string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace

TEST(TextDecoding, NullIsAnEmptyText) {
  for (const TextForm form : {TextForm::kWindows1252, TextForm::kUtf8, TextForm::kUtf16}) {
    EXPECT_EQ(DecodeText(form, nullptr).view(), "");
  }
}

TEST(TextDecoding, AsciiIsCopied) {
  std::string ascii;
  for (int byte = 1; byte < 0x80; ++byte) {
    ascii += static_cast<char>(byte);
  }
  EXPECT_EQ(Windows1252(ascii.c_str()), ascii);
}

TEST(TextDecoding, UpperControlsAreWindows1252) {
  EXPECT_EQ(Windows1252("\x80\x82\x83\x84\x85\x86\x87"),
            Utf8(u8"\u20AC\u201A\u0192\u201E\u2026\u2020\u2021"));
  EXPECT_EQ(Windows1252("\x88\x89\x8A\x8B\x8C\x8E"),
            Utf8(u8"\u02C6\u2030\u0160\u2039\u0152\u017D"));
  EXPECT_EQ(Windows1252("\x91\x92\x93\x94\x95\x96\x97"),
            Utf8(u8"\u2018\u2019\u201C\u201D\u2022\u2013\u2014"));
  EXPECT_EQ(Windows1252("\x98\x99\x9A\x9B\x9C\x9E\x9F"),
            Utf8(u8"\u02DC\u2122\u0161\u203A\u0153\u017E\u0178"));
}

TEST(TextDecoding, FiveUnassignedBytesStandForThemselves) {
  EXPECT_EQ(Windows1252("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(TextDecoding, UpperHalfIsLatin1) {
  EXPECT_EQ(Windows1252("\xA0"), "\xC2\xA0");
  EXPECT_EQ(Windows1252("\xBF\xC0"), "\xC2\xBF\xC3\x80");
  EXPECT_EQ(Windows1252("\xFF"), "\xC3\xBF");
}

TEST(TextDecoding, Utf8InAnOldDrawingIsReadAsWindows1252) {
  EXPECT_EQ(Windows1252("\xC3\xBC"), Utf8(u8"\u00C3\u00BC"));
}

TEST(TextDecoding, Utf8OfANewDxfIsCopiedUnchanged) {
  EXPECT_EQ(DecodeText(TextForm::kUtf8, "\xC3\xBC\xFF").view(), "\xC3\xBC\xFF");
  EXPECT_EQ(DecodeText(TextForm::kUtf8, "\xE6\x97\xA5").view(), "\xE6\x97\xA5");
}

// Every position in texts of several lengths: both decoders take several
// characters at once.
TEST(TextDecoding, OtherCharactersAreFoundAtEveryPosition) {
  for (std::size_t length = 1; length <= 20; ++length) {
    for (std::size_t position = 0; position < length; ++position) {
      std::string ascii(length, 'a');
      std::string bytes = ascii;
      bytes[position] = '\xFC';
      std::u16string units(length, u'a');
      units[position] = u'\u00FC';
      const std::string expected = ascii.replace(position, 1, "\xC3\xBC");
      EXPECT_EQ(Windows1252(bytes.c_str()), expected);
      EXPECT_EQ(Utf16(units.c_str()), expected);
      units[position] = u'\u0180';
      EXPECT_EQ(Utf16(units.c_str()), ascii.replace(position, 2, "\xC6\x80"));
    }
  }
}

TEST(TextDecoding, SingleBytesAreWindows1252) {
  EXPECT_EQ(DecodeWindows1252Byte(0x80), Utf8(u8"\u20AC"));
  EXPECT_EQ(DecodeWindows1252Byte(0xFF), Utf8(u8"\u00FF"));
  EXPECT_EQ(DecodeWindows1252Byte('A'), "A");
}

TEST(TextDecoding, FormattingCodesAreLeftAlone) {
  EXPECT_EQ(Windows1252(R"(\U+00FC %%d \M+5xxxx)"), R"(\U+00FC %%d \M+5xxxx)");
}

TEST(TextDecoding, UnitsTakeOneTwoOrThreeBytes) {
  EXPECT_EQ(DecodeUnits({0x01, 0x41, 0x7F}), "\x01\x41\x7F");
  EXPECT_EQ(DecodeUnits({0x80, 0xFC, 0x7FF}), "\xC2\x80\xC3\xBC\xDF\xBF");
  EXPECT_EQ(DecodeUnits({0x800, 0x65E5, 0xD7FF, 0xE000, 0xFFFF}),
            "\xE0\xA0\x80\xE6\x97\xA5\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF");
}

TEST(TextDecoding, SurrogatePairIsOneCodePoint) {
  EXPECT_EQ(DecodeUnits({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");
  EXPECT_EQ(DecodeUnits({0xD800, 0xDC00}), "\xF0\x90\x80\x80");
  EXPECT_EQ(DecodeUnits({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF");
}

TEST(TextDecoding, ReversedPairIsTwoReplacements) {
  EXPECT_EQ(DecodeUnits({0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(TextDecoding, LoneSurrogateTakesNoNeighbourWithIt) {
  EXPECT_EQ(DecodeUnits({0xD83D, 'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(DecodeUnits({0xDE00, 'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(DecodeUnits({0xD83D, 0xD83D, 0xDE00}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(TextDecoding, HighSurrogateAtTheEndEndsTheText) {
  EXPECT_EQ(DecodeUnits({'a', 0xD83D}), "a\xEF\xBF\xBD");
}

TEST(TextDecoding, SixteenBitTextEndsAtItsFirstZeroUnit) {
  EXPECT_EQ(DecodeUnits({'a', 0, 'b'}), "a");
  EXPECT_EQ(DecodeUnits({}), "");
}

TEST(TextDecoding, UnitWithAZeroByteDoesNotEndTheText) {
  EXPECT_EQ(DecodeUnits({0x0100, 0x0041}),
            "\xC4\x80"
            "A");
}

TEST(TextDecoding, SixteenBitTextMayStartAtAnOddAddress) {
  const std::vector<char16_t> units = {'o', 0xFC, 0};
  std::vector<char> bytes(1 + sizeof(char16_t) * units.size());
  std::memcpy(bytes.data() + 1, units.data(), sizeof(char16_t) * units.size());
  EXPECT_EQ(Utf16(bytes.data() + 1), "o\xC3\xBC");
}

TEST(TextDecoding, TextThatNeedsNoDecodingIsTheDrawingsOwn) {
  const char* ascii = "abc";
  const char* utf8 = "\xC3\xBC";
  EXPECT_EQ(DecodeText(TextForm::kWindows1252, ascii).view().data(), ascii);
  EXPECT_EQ(DecodeText(TextForm::kUtf8, utf8).view().data(), utf8);
}
