// Multi-line text codes: no report, well-formed positions, the same twice.

#include <cstdint>
#include <string>

#include "encode/json_text.hpp"
#include "fuzz/check.hpp"
#include "fuzz/fuzz_input.hpp"
#include "tests/support/json_grammar.hpp"
#include "text/mtext_to_html.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const double baseHeight = input.Double();
  const std::string text = input.Rest();
  MtextLayout layout;
  const std::string html = MtextToHtml(text, baseHeight, layout);
  FUZZ_CHECK(html.starts_with("<p>") && html.ends_with("</p>"));
  // Every code opens at most one element of bounded length.
  FUZZ_CHECK(html.size() <= 128 * (text.size() + 1));
  for (const TextRun& run : layout.runs) {
    FUZZ_CHECK(run.start >= 0 && run.length > 0);
    FUZZ_CHECK(run.stretch == 0 || (run.stretch >= 50 && run.stretch <= 200));
    FUZZ_CHECK(run.stretch != 0 || run.tracking != 0 || run.fixedPitch);
  }
  FUZZ_CHECK(layout.obliqueCount >= 0);
  FUZZ_CHECK(IsGrammaticalJson(JsonQuote(html.c_str())));

  MtextLayout again;
  FUZZ_CHECK(MtextToHtml(text, baseHeight, again) == html);
  FUZZ_CHECK(again.runs == layout.runs);
  return 0;
}
