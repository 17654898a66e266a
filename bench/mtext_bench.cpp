// Throughput of the text converters in bytes of input a second, for plain and
// for code-heavy text of three sizes.
//
// Run with --benchmark_repetitions=5 for a minimum and a median. `Reference`
// copies the same bytes one by one: the ratio to it does not depend on the
// machine.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "text/mtext_to_html.hpp"
#include "text/text_codes.hpp"

namespace {

constexpr std::string_view kPlain = "All dimensions in millimetres unless noted otherwise. ";
constexpr std::string_view kScripts = "План этажа 平面図 평면도 Größe ";
constexpr std::string_view kCodes =
    "{\\fArial|b1|i0|c0|p34;\\C1;Note} \\H2.5x;a\\P\\pi-3,l3,t3,6,qc;\\W0.8;\\S1/2;\\U+00B0\\T1.1;"
    "{\\Fromans.shx;\\c16711680;b\\L<&>\\l}\\~\\A1;";
constexpr std::string_view kPercentCodes = "%%c50 %%p0.1 45%%d %%uA%%u %%176 <&> ";

std::string Repeated(std::string_view part, std::size_t size) {
  std::string text;
  while (text.size() < size) {
    text += part;
  }
  return text;
}

void CountBytes(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Mtext(benchmark::State& state, std::string_view part) {
  const std::string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    JsonOut out;
    MtextLayout layout;
    AppendMtextHtml(out, text, 2.5, layout);
    benchmark::DoNotOptimize(out.size());
  }
  CountBytes(state, text);
}

void SingleLine(benchmark::State& state, std::string_view part) {
  const std::string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    JsonOut out;
    AppendTextCodes(out, text);
    benchmark::DoNotOptimize(out.size());
  }
  CountBytes(state, text);
}

void Reference(benchmark::State& state) {
  const std::string text = Repeated(kPlain, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::string out;
    for (const char byte : text) {
      out += byte;
    }
    benchmark::DoNotOptimize(out);
  }
  CountBytes(state, text);
}

constexpr std::int64_t kSmall = 200;
constexpr std::int64_t kLarge = 1000000;
constexpr std::int64_t kHuge = 10000000;

}  // namespace

BENCHMARK(Reference)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
BENCHMARK_CAPTURE(Mtext, plain, kPlain)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
BENCHMARK_CAPTURE(Mtext, scripts, kScripts)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
BENCHMARK_CAPTURE(Mtext, codes, kCodes)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
BENCHMARK_CAPTURE(SingleLine, plain, kPlain)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
BENCHMARK_CAPTURE(SingleLine, codes, kPercentCodes)->Arg(kSmall)->Arg(kLarge)->Arg(kHuge);
