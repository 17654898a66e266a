// Multi-line text codes: no report, well-formed positions, bounded output, the
// same twice, in linear time.

#include <cstdint>
#include <string>

#include "fuzz/check.hpp"
#include "fuzz/fuzz_input.hpp"
#include "tests/support/html_text.hpp"
#include "tests/support/json_grammar.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const double baseHeight = input.Double();
  const std::string text = input.Rest();
  const TimeBudget budget;
  MtextLayout layout;
  JsonOut out;
  const bool isWhole = AppendMtextHtml(out, text, baseHeight, layout);
  budget.Check();
  const std::string literal = out.Text();
  FUZZ_CHECK(IsGrammaticalJson('"' + literal + '"'));
  const std::string html = Unescaped(literal);
  FUZZ_CHECK(html.starts_with("<p>") && html.ends_with("</p>") == isWhole);
  // Every code opens at most one element of bounded length.
  FUZZ_CHECK(html.size() <= 128 * (text.size() + 1));
  for (const TextRun& run : layout.runs) {
    FUZZ_CHECK(run.start >= 0 && run.length > 0);
    // No byte of the text stands for more than two characters.
    FUZZ_CHECK(static_cast<std::size_t>(run.start) + static_cast<std::size_t>(run.length) <=
               2 * text.size());
    FUZZ_CHECK(run.stretch == 0 || (run.stretch >= 50 && run.stretch <= 200));
    FUZZ_CHECK(run.stretch != 0 || run.tracking != 0 || run.fixedPitch);
  }
  for (const ParagraphBlock& block : layout.blocks) {
    FUZZ_CHECK(block.index >= 0 && static_cast<std::size_t>(block.index) <= text.size());
    FUZZ_CHECK(block.alignment.size() <= text.size());
  }
  FUZZ_CHECK(layout.obliqueCount >= 0);

  MtextLayout again;
  FUZZ_CHECK(MtextToHtml(text, baseHeight, again) == html);
  FUZZ_CHECK(again.runs == layout.runs);
  FUZZ_CHECK(again.blocks.size() == layout.blocks.size());
  return 0;
}
