// Single-line text codes: no report, balanced ends, the same twice, in linear
// time.

#include <cstdint>
#include <string>

#include "fuzz/check.hpp"
#include "tests/support/html_text.hpp"
#include "tests/support/json_grammar.hpp"

namespace {

std::size_t Count(const std::string& text, const std::string& word) {
  std::size_t count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos;
       at = text.find(word, at + word.size())) {
    ++count;
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const TimeBudget budget;
  JsonOut out;
  const bool isWhole = AppendTextCodes(out, text);
  budget.Check();
  const std::string literal = out.Text();
  FUZZ_CHECK(IsGrammaticalJson('"' + literal + '"'));
  const std::string html = Unescaped(literal);
  // The longest element stands for a code of three bytes, and closes once.
  FUZZ_CHECK(html.size() <= 20 * (text.size() + 1));
  FUZZ_CHECK(html == TextCodesToHtml(text));
  FUZZ_CHECK(!isWhole || Count(html, "<u>") == Count(html, "</u>"));
  FUZZ_CHECK(!isWhole || Count(html, "<span ") == Count(html, "</span>"));
  return 0;
}
