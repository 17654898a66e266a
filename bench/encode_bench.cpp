// Throughput of the encoders: numbers in items a second against snprintf,
// quoting and decoding in bytes a second against a plain copy.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"

namespace {

constexpr std::size_t kCount = 4096;

// What a drawing holds: full-length coordinates, a few decimals, whole numbers.
double FullLength(std::mt19937_64& generator) {
  return static_cast<double>(generator() >> 11U) * 0x1p-53 * 10000;
}

double ThreeDecimals(std::mt19937_64& generator) {
  return static_cast<double>(generator() % 10'000'000) / 1000;
}

double Whole(std::mt19937_64& generator) {
  return static_cast<double>(generator() % 100'000);
}

double Mixed(std::mt19937_64& generator) {
  switch (generator() % 4) {
    case 0: return FullLength(generator);
    case 1: return ThreeDecimals(generator);
    case 2: return Whole(generator);
    default: return static_cast<double>(generator() % 2);
  }
}

// Outside the range of the fast path.
double Extreme(std::mt19937_64& generator) {
  return std::ldexp(FullLength(generator), static_cast<int>(generator() % 1000) + 40);
}

using Value = double (*)(std::mt19937_64&);

std::vector<double> Values(Value value) {
  std::mt19937_64 generator(1);
  std::vector<double> values(kCount);
  std::ranges::generate(values, [&] { return value(generator); });
  return values;
}

template <typename Format>
void Format4096(benchmark::State& state, Value value, Format format) {
  const std::vector<double> values = Values(value);
  std::array<char, 64> buffer;
  for (auto _ : state) {
    for (const double number : values) {
      benchmark::DoNotOptimize(format(buffer.data(), number));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

void Number(benchmark::State& state, Value value) {
  Format4096(state, value, WriteNumber);
}

void Snprintf(benchmark::State& state, Value value) {
  Format4096(state, value,
             [](char* at, double number) { return std::snprintf(at, 64, "%.10g", number); });
}

void ToChars(benchmark::State& state, Value value) {
  Format4096(state, value, [](char* at, double number) {
    return std::to_chars(at, at + 64, number, std::chars_format::general, 10).ptr;
  });
}

std::string Repeated(std::string_view part, std::size_t size) {
  std::string text;
  while (text.size() < size) {
    text += part;
  }
  return text;
}

void Quote(benchmark::State& state, std::string_view part) {
  const std::string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    JsonOut out;
    AppendQuoted(out, text);
    benchmark::DoNotOptimize(out.size());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Copy(benchmark::State& state) {
  const std::string text = Repeated("x", static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    JsonOut out;
    out += text;
    benchmark::DoNotOptimize(out.size());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void DecodeCodePage(benchmark::State& state, std::string_view part) {
  const std::string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(DecodeText(TextForm::kWindows1252, text.c_str()).view());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void DecodeUtf16(benchmark::State& state, std::u16string_view part) {
  std::u16string text;
  while (text.size() < static_cast<std::size_t>(state.range(0))) {
    text += part;
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        DecodeText(TextForm::kUtf16, reinterpret_cast<const char*>(text.c_str())).view());
  }
  state.SetBytesProcessed(state.iterations() * 2 * static_cast<std::int64_t>(text.size()));
}

constexpr std::string_view kPlain = "All dimensions in millimetres unless noted otherwise. ";
constexpr std::string_view kEscapes = "C:\\plans\\\"site\".dwg\t";
constexpr std::string_view kWindows1252 =
    "Gr\xF6\xDF"
    "e und L\xE4nge ";

}  // namespace

BENCHMARK_CAPTURE(Number, mixed, Mixed);
BENCHMARK_CAPTURE(ToChars, mixed, Mixed);
BENCHMARK_CAPTURE(Snprintf, mixed, Mixed);
BENCHMARK_CAPTURE(Number, full_length, FullLength);
BENCHMARK_CAPTURE(ToChars, full_length, FullLength);
BENCHMARK_CAPTURE(Snprintf, full_length, FullLength);
BENCHMARK_CAPTURE(Number, three_decimals, ThreeDecimals);
BENCHMARK_CAPTURE(Snprintf, three_decimals, ThreeDecimals);
BENCHMARK_CAPTURE(Number, whole, Whole);
BENCHMARK_CAPTURE(Snprintf, whole, Whole);
BENCHMARK_CAPTURE(Number, extreme, Extreme);
BENCHMARK_CAPTURE(Snprintf, extreme, Extreme);
BENCHMARK(Copy)->Arg(20)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(Quote, plain, kPlain)->Arg(20)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(Quote, escapes, kEscapes)->Arg(20)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(DecodeCodePage, plain, kPlain)->Arg(20)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(DecodeCodePage, windows_1252, kWindows1252)->Arg(20)->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(DecodeUtf16, plain, u"All dimensions in millimetres. ")->Arg(20)->Arg(1000000);
BENCHMARK_CAPTURE(DecodeUtf16, scripts, u"План этажа 平面図 ")->Arg(20)->Arg(1000000);
