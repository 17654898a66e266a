#include "complete/text_decoder.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

std::string Utf8(std::u8string_view text) {
  return {text.begin(), text.end()};
}

DrawingTextDecoder Decoder(std::string_view page, TextForm form = TextForm::kWindows1252) {
  return {form, StoredText{.codePage = std::string(page)}};
}

std::string Decoded(std::string_view page, const char* text) {
  return Decoder(page).Decode(text).Take();
}

std::string DecodedDxf(std::string_view page, const char* text) {
  const StoredText stored{.codePage = std::string(page), .hasCaretCodes = true};
  return DrawingTextDecoder(TextForm::kWindows1252, stored).Decode(text).Take();
}

TEST(DrawingTextDecoder, ShowsSignsForCodesOfMultiLineTexts) {
  const DrawingTextDecoder decoder = Decoder("ANSI_1252");
  std::string room;
  EXPECT_EQ(decoder.Shown("%%C80 mm", room),
            "\u2205"
            "80 mm");
  EXPECT_EQ(decoder.Shown("45%%d %%p1%%P2", room), "45\u00B0 \u00B11\u00B12");
  EXPECT_EQ(decoder.Shown("a%%c", room), "a\u2205");
}

TEST(DrawingTextDecoder, LeavesOtherPercentSignsOfMultiLineTexts) {
  const DrawingTextDecoder decoder = Decoder("ANSI_1252");
  for (const char* text : {"", "%", "%%", "5 % c", "%%x %%", "%%%c", "100%%%%%", "%%u A"}) {
    std::string room;
    EXPECT_EQ(decoder.Shown(text, room), text);
  }
}

}  // namespace

TEST(CodePage, NamesInAnySpelling) {
  EXPECT_EQ(CodePage("ANSI_1251").name(), "ANSI_1251");
  EXPECT_EQ(CodePage("ansi_1251").name(), "ANSI_1251");
  EXPECT_EQ(CodePage("windows-1251").name(), "ANSI_1251");
  EXPECT_EQ(CodePage("dos437").name(), "DOS437");
  EXPECT_EQ(CodePage("CP437").name(), "DOS437");
  EXPECT_EQ(CodePage("mac-roman").name(), "MAC-ROMAN");
  EXPECT_EQ(CodePage("MACINTOSH").name(), "MAC-ROMAN");
  EXPECT_EQ(CodePage("iso8859-5").name(), "ISO8859-5");
  EXPECT_EQ(CodePage("gb2312").name(), "ANSI_936");
  EXPECT_EQ(CodePage("big5").name(), "ANSI_950");
  EXPECT_EQ(CodePage("ksc5601").name(), "ANSI_949");
  EXPECT_EQ(CodePage("johab").name(), "ANSI_1361");
  EXPECT_EQ(CodePage("dos932").name(), "ANSI_932");
}

TEST(CodePage, UnknownNamesAreWindows1252) {
  for (const std::string_view name : {"", "undefined", "ANSI_9999", "\xFF"}) {
    EXPECT_FALSE(CodePage::IsKnown(name));
    EXPECT_EQ(CodePage(name).name(), "ANSI_1252");
  }
}

TEST(TextDecoder, NullAndAscii) {
  EXPECT_EQ(Decoder("ANSI_1251").Decode(nullptr).view(), "");
  const char* text = "plain text";
  EXPECT_EQ(Decoder("ANSI_1251").Decode(text).view().data(), text);
}

TEST(TextDecoder, SingleBytes) {
  EXPECT_EQ(Decoded("ANSI_1251", "\xCF\xEB\xE0\xED \xFF"), Utf8(u8"План я"));
  EXPECT_EQ(Decoded("ANSI_1253", "\xD3\xF7\xDD\xE4\xE9\xEF"), Utf8(u8"Σχέδιο"));
  EXPECT_EQ(Decoded("ANSI_1255", "\xF9\xEC\xE5\xED"), Utf8(u8"שלום"));
  EXPECT_EQ(Decoded("dos866", "\x8F\xAB\xA0\xAD"), Utf8(u8"План"));
  EXPECT_EQ(Decoded("mac-roman", "\x8A\xDB\xFF"), Utf8(u8"ä€ˇ"));
  // Nothing stands at 0xD2 of 1253, and 0x81 of 1252 is a control character.
  EXPECT_EQ(Decoded("ANSI_1253", "a\xD2z"), Utf8(u8"a\uFFFDz"));
  EXPECT_EQ(Decoded("ANSI_1252", "a\x81z"), "a\xC2\x81z");
}

TEST(TextDecoder, DoubleBytes) {
  EXPECT_EQ(Decoded("gb2312", "\xD6\xD0\xCE\xC4"), Utf8(u8"中文"));
  EXPECT_EQ(Decoded("ANSI_936", "\x81\x40\xFE\x4F\x80"), Utf8(u8"丂﨩€"));
  EXPECT_EQ(Decoded("ANSI_950", "\xA4\xA4\xA4\xE5"), Utf8(u8"中文"));
  EXPECT_EQ(Decoded("ANSI_932", "\x93\xFA\x96{ \xB1\xDD"), Utf8(u8"日本 ｱﾝ"));
  EXPECT_EQ(Decoded("ANSI_949", "\xC7\xD1\xB1\xDB\x81\x41"), Utf8(u8"한글갂"));
  EXPECT_EQ(Decoded("johab", "\xD0\x65\x8B\x69\x84\x42"), Utf8(u8"한글ㄱ"));
}

TEST(TextDecoder, SecondBytesAreNoCodes) {
  // The second bytes are a backslash, a caret and a brace.
  EXPECT_EQ(DecodedDxf("ANSI_932", "\x95\x5CU+0041"), Utf8(u8"表U+0041"));
  EXPECT_EQ(DecodedDxf("ANSI_932", "\x83\x5EJ"), Utf8(u8"タJ"));
  EXPECT_EQ(DecodedDxf("ANSI_932", "\x83\x7BP"), Utf8(u8"ボP"));
}

TEST(TextDecoder, BrokenDoubleBytesLoseNothingElse) {
  EXPECT_EQ(Decoded("ANSI_936", "a\xD6"), Utf8(u8"a\uFFFD"));
  EXPECT_EQ(Decoded("ANSI_936", "\xD6 b"), Utf8(u8"\uFFFD b"));
  EXPECT_EQ(Decoded("ANSI_950", "\x81\x30z"), Utf8(u8"\uFFFD0z"));
  EXPECT_EQ(Decoded("ANSI_932", "\xFF!"), Utf8(u8"\uFFFD!"));
}

TEST(TextDecoder, UnicodeCodes) {
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+2205 12\\U+00b0"), Utf8(u8"∅ 12°"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+22051"), Utf8(u8"∅1"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+220"), "\\U+220");
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+22G5 \\u+2205"), "\\U+22G5 \\u+2205");
  EXPECT_EQ(Decoded("ANSI_1252", "\\\\U+2205"), "\\\\U+2205");
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+D83D\\U+DE00"), Utf8(u8"\U0001F600"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+D83D!\\U+DE00"), Utf8(u8"\uFFFD!\uFFFD"));
}

TEST(TextDecoder, CodesOfCharactersWithAMeaningStay) {
  for (const char* text : {"\\U+005C", "\\U+007B", "\\U+007D", "\\U+0025", "\\U+005E", "\\U+0000",
                           "\\U+000A", "\\U+007F", "\\M+5005C"}) {
    EXPECT_EQ(Decoded("ANSI_1252", text), text);
  }
  EXPECT_EQ(Decoded("ANSI_1252", "\\U+0041"), "A");
}

TEST(TextDecoder, MultibyteCodes) {
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+193FA"), Utf8(u8"日"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+2A4A4"), Utf8(u8"中"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+3C7D1"), Utf8(u8"한"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+4D065"), Utf8(u8"한"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+5D6D0\\M+5CEC4"), Utf8(u8"中文"));
  EXPECT_EQ(Decoded("ANSI_1252", "\\M+100B1"), Utf8(u8"ｱ"));
  for (const char* text :
       {"\\M+6D6D0", "\\M+0D6D0", "\\M+5D6D", "\\M+5D6DX", "\\M+5FFFF", "\\\\M+5D6D0"}) {
    EXPECT_EQ(Decoded("ANSI_1252", text), text);
  }
}

TEST(TextDecoder, CharacterNumbers) {
  EXPECT_EQ(Decoded("ANSI_1251", "%%207"), Utf8(u8"П"));
  EXPECT_EQ(Decoded("ANSI_936", "%%214%%208"), Utf8(u8"中"));
  EXPECT_EQ(Decoded("ANSI_932", "%%149%%092"), Utf8(u8"表"));
  // The low byte counts: 463 is 207.
  EXPECT_EQ(Decoded("ANSI_1251", "%%463"), Utf8(u8"П"));
  for (const char* text : {"%%065", "%%%207", "%%20", "%207", "%%c", "%%"}) {
    EXPECT_EQ(Decoded("ANSI_1251", text), text);
  }
  // Half a character is left to whoever reads the codes.
  EXPECT_EQ(Decoded("ANSI_936", "%%176"), "%%176");
}

TEST(TextDecoder, LineEndsOfDxf) {
  EXPECT_EQ(DecodedDxf("", "a^Jb^Mc^Id^"), "a\nb\rc^Id^");
  EXPECT_EQ(Decoded("", "a^Jb"), "a^Jb");
}

TEST(TextDecoder, FilesInUtf8) {
  const StoredText stored{.codePage = "ANSI_1251", .isUtf8 = true};
  const DrawingTextDecoder decoder(TextForm::kWindows1252, stored);
  EXPECT_EQ(decoder.Decode("\xC3\xA9").view(), "\xC3\xA9");
  EXPECT_EQ(decoder.reading().form, "UTF-8");
  EXPECT_EQ(decoder.reading().by, "content");
}

TEST(TextDecoder, ShortUtf8MayBeDoubleBytes) {
  // Both "é" in UTF-8 and a character of GBK.
  StoredText stored{.codePage = "ANSI_936", .isUtf8 = true};
  EXPECT_EQ(DrawingTextDecoder(TextForm::kWindows1252, stored).Decode("\xC3\xA9").view(),
            Utf8(u8"茅"));
  stored.hasLongUtf8 = true;
  EXPECT_EQ(DrawingTextDecoder(TextForm::kWindows1252, stored).Decode("\xC3\xA9").view(),
            "\xC3\xA9");
}

TEST(TextDecoder, StringsOfUtf8DrawingsThatAreNone) {
  const DrawingTextDecoder decoder = Decoder("ANSI_1251", TextForm::kUtf8);
  EXPECT_EQ(decoder.Decode("\xD0\x9F\\U+2205").view(), Utf8(u8"П∅"));
  EXPECT_EQ(decoder.Decode("\xCF\xEB").view(), Utf8(u8"Пл"));
  EXPECT_EQ(decoder.reading().by, "release");
}

TEST(TextDecoder, CodesInUtf16) {
  const DrawingTextDecoder decoder = Decoder("ANSI_1251", TextForm::kUtf16);
  const std::u16string text = u"\u4E2D\\U+2205 %%207 \\M+5CEC4";
  EXPECT_EQ(decoder.Decode(reinterpret_cast<const char*>(text.c_str())).view(), Utf8(u8"中∅ П 文"));
  EXPECT_EQ(decoder.reading().form, "UTF-16");
}

TEST(TextDecoder, TellsThePageAndWhereItIsFrom) {
  EXPECT_EQ(Decoder("dos850").reading().form, "DOS850");
  EXPECT_EQ(Decoder("dos850").reading().by, "drawing");
  EXPECT_EQ(Decoder("dos850").reading().named, "dos850");
  EXPECT_EQ(Decoder("").reading().by, "default");
}
