#include "text/text_codes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

#include "encode/text_decoding.hpp"
#include "tests/support/html_text.hpp"

namespace {

struct Case {
  std::string rule;
  std::string text;
  std::string html;
};

void Check(const std::vector<Case>& cases) {
  for (const Case& row : cases) {
    EXPECT_EQ(TextCodesToHtml(row.text), row.html) << row.rule << ": " << row.text;
  }
}

}  // namespace

TEST(TextCodesToHtml, PlainTextIsEscaped) {
  Check({
      {"an empty text", "", ""},
      {"letters", "Room 1", "Room 1"},
      {"less-than, greater-than, ampersand", "<a>&b", "&lt;a&gt;&amp;b"},
      {"quotes stay", "\"'", "\"'"},
      {"other letters stay", "Ж文😀", "Ж文😀"},
      {"backslash codes are none of this language", "\\P{\\C1;a}", "\\P{\\C1;a}"},
      {"\\U+ is not read", "\\U+00B0", "\\U+00B0"},
      {"bytes that are no UTF-8 stay", "\xFF\x80", "\xFF\x80"},
  });
}

TEST(TextCodesToHtml, LetterCodes) {
  Check({
      {"diameter", "%%c10", "∅10"},
      {"diameter in upper case", "%%C10", "∅10"},
      {"degree", "45%%d", "45°"},
      {"degree in upper case", "45%%D", "45°"},
      {"plus-minus", "%%p0.1", "±0.1"},
      {"plus-minus in upper case", "%%P0.1", "±0.1"},
      {"percent", "%%%", "%"},
      {"percent, then text", "50%%%a", "50%a"},
      {"two codes", "%%c%%d", "∅°"},
      {"six percent signs are two codes", "%%%%%%", "%%"},
      {"a percent code and a rest", "%%%%%", "%%%"},
  });
}

TEST(TextCodesToHtml, UnknownAndUnfinishedCodesStay) {
  Check({
      {"one percent sign", "100%", "100%"},
      {"a percent sign before text", "5%c", "5%c"},
      {"two at the very end", "a%%", "a%%"},
      {"two alone", "%%", "%%"},
      {"one alone", "%", "%"},
      {"an unknown letter", "%%x", "%%x"},
      {"the third byte is ordinary text", "%%<", "%%&lt;"},
      {"a blank", "%% c", "%% c"},
      {"an unknown code before a code", "%%x%%d", "%%x°"},
      {"a letter of other scripts", "%%Ж", "%%Ж"},
      {"%%k and %%o are told apart", "%%k", "%%k"},
  });
}

TEST(TextCodesToHtml, UnderlineAndOverline) {
  const std::string over = "<span style=\"text-decoration:overline\">";
  Check({
      {"underline on and off", "%%uA%%uB", "<u>A</u>B"},
      {"in upper case", "%%UA%%uB", "<u>A</u>B"},
      {"an underline left on is closed", "%%uA", "<u>A</u>"},
      {"an underline alone", "%%u", "<u></u>"},
      {"on again", "%%uA%%uB%%uC", "<u>A</u>B<u>C</u>"},
      {"overline on and off", "%%oA%%oB", over + "A</span>B"},
      {"overline in upper case", "%%OA", over + "A</span>"},
      {"an overline left on is closed", "%%oA", over + "A</span>"},
      {"both are closed, the underline first", "%%o%%uA", over + "<u>A</u></span>"},
      {"in that order even when they cross", "%%u%%oA", "<u>" + over + "A</u></span>"},
      {"they may cross", "%%uA%%oB%%uC%%oD", "<u>A" + over + "B</u>C</span>D"},
  });
}

TEST(TextCodesToHtml, CharacterNumbers) {
  Check({
      {"three digits", "%%065", "A"},
      {"two digits", "%%65x", "Ax"},
      {"two digits at the end", "%%65", "A"},
      {"one digit", "%%9x", "\tx"},
      {"a fourth digit is text", "%%0651", "A1"},
      {"the byte is escaped", "%%060%%062%%038", "&lt;&gt;&amp;"},
      {"two digits are escaped", "%%60x", "&lt;x"},
      {"the degree sign", "%%176", "°"},
      {"128 is the euro sign", "%%128", "€"},
      {"129 is unassigned and stands for itself", "%%129", "\xC2\x81"},
      {"159", "%%159", "Ÿ"},
      {"160", "%%160", "\xC2\xA0"},
      {"255", "%%255", "ÿ"},
      {"127 is a byte", "%%127", "\x7F"},
      {"only the low eight bits count", "%%321", "A"},
      {"also above 128", "%%432", "°"},
      {"256 is 0", "a%%256b", "a"},
      {"999", "%%999", "ç"},
      {"0 with one digit ends the HTML", "a%%0b%%u", "a"},
      {"37 is a percent sign that starts no code", "%%037%c", "%%c"},
  });
}

TEST(TextCodesToHtml, TimeGrowsInProportionToTheText) {
  // Processor time, so that a busy machine does not decide; a converter that
  // looked at everything twice would need minutes for the larger text.
  const auto secondsFor = [](const std::string& shape, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
      text += shape;
    }
    const std::clock_t start = std::clock();
    TextCodesToHtml(text);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  };
  for (const std::string shape : {"%", "%%", "%%%", "%%u", "%%o", "%%1", "%%176", "a", "<"}) {
    EXPECT_LT(secondsFor(shape, 2000000), 60 * std::max(secondsFor(shape, 200000), 0.005)) << shape;
  }
}
