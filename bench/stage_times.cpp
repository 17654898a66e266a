// stage_times FILE [RUNS]
//
// How long the stages of converting one drawing take, in microseconds, as one
// line of JSON with the minimum and the median of RUNS runs (5 by default).
//
// Every run reads the file afresh in this one process. From the second run on
// the heap is warm, so that page faults count less than in the worker; run the
// program with RUNS 1, repeatedly, for what a worker sees. `text` is what is
// left of building the document beside its sections, `write` the writing of it
// to the null device, `ours` everything from the end of the read to the start
// of freeing.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "document/document.hpp"
#include "encode/json_text.hpp"
#include "reading/drawing_file.hpp"

namespace {

using Clock = std::chrono::steady_clock;

enum Part { kRead, kPrepass, kLayers, kAssets, kEntities, kLayouts, kText, kWrite, kFree, kOurs };

constexpr std::array<std::string_view, kOurs + 1> kPartNames = {
    "read", "prepass", "layers", "assets", "entities", "layouts", "text", "write", "free", "ours"};

using Times = std::array<long long, kPartNames.size()>;

long long MicrosecondsSince(Clock::time_point start) {
  return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
}

// Takes the time of each section.
class Observer : public StageObserver {
 public:
  explicit Observer(Times& times) : times_(times) {}

  void Begin(Stage /*stage*/) override { start_ = Clock::now(); }
  void End(Stage stage) override {
    times_[kPrepass + static_cast<std::size_t>(stage)] = MicrosecondsSince(start_);
  }

 private:
  Times& times_;
  Clock::time_point start_;
};
static_assert(kPrepass + static_cast<int>(Stage::kLayouts) == kLayouts);

void Write(const JsonOut& out) {
#ifdef _WIN32
  std::FILE* file = std::fopen("NUL", "wb");
#else
  std::FILE* file = std::fopen("/dev/null", "wb");
#endif
  out.ForEachPiece(
      [file](std::string_view piece) { std::fwrite(piece.data(), 1, piece.size(), file); });
  std::fclose(file);
}

void Convert(const DrawingFile& file, Times& times, std::size_t& size) {
  const auto start = Clock::now();
  JsonOut out;
  Observer observer(times);
  AppendDocument(out, file.drawing(), {}, {}, observer);
  times[kText] = MicrosecondsSince(start);
  for (int part = kPrepass; part <= kLayouts; ++part) {
    times[kText] -= times[static_cast<std::size_t>(part)];
  }
  const auto written = Clock::now();
  Write(out);
  times[kWrite] = MicrosecondsSince(written);
  times[kOurs] = MicrosecondsSince(start);
  size = out.size();
}

bool Run(const char* path, Times& times, std::size_t& size) {
  DrawingFile file(path);
  auto start = Clock::now();
  file.Read();
  times[kRead] = MicrosecondsSince(start);
  if (file.HasFailed()) {
    return false;
  }
  Convert(file, times, size);
  start = Clock::now();
  file.Free();
  times[kFree] = MicrosecondsSince(start);
  return true;
}

// `pick` takes one of the sorted values.
template <typename Pick>
void Print(const char* name, const std::vector<Times>& runs, Pick pick) {
  std::printf(",\"%s\":{", name);
  for (std::size_t part = 0; part < kPartNames.size(); ++part) {
    std::vector<long long> values;
    values.reserve(runs.size());
    for (const Times& times : runs) {
      values.push_back(times[part]);
    }
    std::sort(values.begin(), values.end());
    std::printf("%s\"%s\":%lld", part == 0 ? "" : ",", kPartNames[part].data(),
                values.empty() ? 0 : pick(values));
  }
  std::printf("}");
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 2 ? std::atoi(argv[2]) : 5;
  if (argc < 2 || count < 1) {
    std::fprintf(stderr, "usage: stage_times FILE [RUNS]\n");
    return 2;
  }
  std::vector<Times> runs(static_cast<std::size_t>(count));
  std::size_t size = 0;
  for (Times& times : runs) {
    if (!Run(argv[1], times, size)) {
      std::fprintf(stderr, "stage_times: cannot read %s\n", argv[1]);
      return 1;
    }
  }
  JsonOut file;
  AppendQuoted(file, argv[1]);
  std::printf("{\"file\":%s,\"bytes\":%zu,\"runs\":%d", file.Text().c_str(), size, count);
  Print("min", runs, [](const auto& values) { return values.front(); });
  Print("median", runs, [](const auto& values) { return values[values.size() / 2]; });
  std::printf("}\n");
}
