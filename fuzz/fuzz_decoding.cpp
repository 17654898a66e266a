// Text decoding, quoting and font names: no report, valid UTF-8 from all
// decoders, a grammatical literal from any bytes, linear time.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "complete/text_decoder.hpp"
#include "encode/font_mapping.hpp"
#include "encode/html.hpp"
#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"
#include "encode/utf8_check.hpp"
#include "fuzz/check.hpp"
#include "tests/support/json_grammar.hpp"

namespace {

// Whether the text is UTF-8 without surrogates and overlong forms.
bool IsUtf8(const std::string& text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || i + length > text.size()) {
      return false;
    }
    std::uint32_t codePoint = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t j = 1; j < length; ++j) {
      const auto next = static_cast<unsigned char>(text[i + j]);
      if ((next & 0xC0U) != 0x80) {
        return false;
      }
      codePoint = codePoint << 6U | (next & 0x3FU);
    }
    const std::uint32_t least = length == 1   ? 0
                                : length == 2 ? 0x80
                                : length == 3 ? 0x800
                                              : 0x10000;
    if (codePoint < least || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000)) {
      return false;
    }
    i += length;
  }
  return true;
}

// The units once more from an odd address, as the library hands some over.
std::string DecodeFromOddAddress(const std::vector<char16_t>& units) {
  std::string bytes(1, 'x');
  bytes.append(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t));
  return std::string(DecodeText(TextForm::kUtf16, bytes.data() + 1));
}

std::string Quoted(std::string_view text) {
  JsonOut out;
  AppendQuoted(out, text);
  return out.Text();
}

// By every kind of code page, that of the first byte among them, and by its own.
void CheckDecoder(TextForm form, const std::string& bytes, const char* text) {
  constexpr std::array<std::string_view, 8> kPages = {
      "ANSI_1251", "ANSI_1253", "ANSI_932", "gb2312", "ANSI_949", "big5", "johab", "mac-roman"};
  const std::size_t choice = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
  for (const std::string_view page : {kPages[choice % kPages.size()], std::string_view(bytes)}) {
    StoredText stored;
    stored.codePage = page;
    stored.hasCaretCodes = choice >= 0x80;
    const DrawingTextDecoder decoder(form, stored);
    const std::string decoded = decoder.Decode(text).Take();
    FUZZ_CHECK(IsUtf8(decoded));
    FUZZ_CHECK(IsGrammaticalJson(Quoted(decoded)));
  }
}

void CheckFontName(const std::string& name) {
  const std::string_view family = MapFontFamily(name);
  FUZZ_CHECK(family.empty() == name.empty());
  FUZZ_CHECK(family == name || family == "Arial" || family == "Times New Roman" ||
             family == "Courier New" || family == "Comic Sans MS");
}

void CheckHtml(const std::string& text) {
  JsonOut out;
  HtmlLiteral html(out);
  html.Text(text);
  FUZZ_CHECK(html.Finish() == (text.find('\0') == std::string::npos));
  const std::string literal = out.Text();
  FUZZ_CHECK(literal.find_first_of("<>") == std::string::npos && literal.size() <= 6 * text.size());
  FUZZ_CHECK(IsGrammaticalJson('"' + literal + '"'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const TimeBudget budget;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  CheckFontName(bytes);
  CheckHtml(bytes);
  const std::string decoded(DecodeText(TextForm::kWindows1252, bytes.c_str()));
  FUZZ_CHECK(IsUtf8(decoded));
  FUZZ_CHECK(IsGrammaticalJson(Quoted(decoded)));

  std::vector<char16_t> units;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    units.push_back(static_cast<char16_t>(data[i] | data[i + 1] << 8U));
  }
  units.push_back(0);
  const std::string wide(DecodeText(TextForm::kUtf16, reinterpret_cast<const char*>(units.data())));
  FUZZ_CHECK(IsUtf8(wide));
  FUZZ_CHECK(DecodeFromOddAddress(units) == wide);

  CheckDecoder(TextForm::kWindows1252, bytes, bytes.c_str());
  CheckDecoder(TextForm::kUtf8, bytes, bytes.c_str());
  CheckDecoder(TextForm::kUtf16, bytes, reinterpret_cast<const char*>(units.data()));
  FUZZ_CHECK(IsUtf8Text(bytes) == IsUtf8(bytes));

  FUZZ_CHECK(DecodeText(TextForm::kUtf8, bytes.c_str()).view() == bytes.c_str());
  FUZZ_CHECK(IsGrammaticalJson(Quoted(bytes)));
  budget.Check();
  return 0;
}
