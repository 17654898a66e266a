#include "worker/run.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "complete/document.hpp"
#include "document/document.hpp"
#include "encode/json_text.hpp"
#include "reading/drawing_file.hpp"
#include "reading/read_result.hpp"
#include "worker/crash_reporting.hpp"
#include "worker/sandbox.hpp"
#include "worker/standard_streams.hpp"

namespace {

constexpr const char* kComponent = "dwg_import_worker";
constexpr const char* kUsage = "{\"error\":\"Usage: dwg_import_worker <file.dwg> [--verbose]\"}\n";

class Stopwatch {
 public:
  long long Milliseconds() const {
    const auto elapsed = std::chrono::steady_clock::now() - start_;
    return std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Cumulative, in milliseconds. The layouts count into the entities.
struct Timings {
  long long read = 0;
  long long prepass = 0;
  long long layers = 0;
  long long assets = 0;
  long long entities = 0;
  long long total = 0;
};

// Prints the progress lines and takes the stage times.
class Progress : public StageObserver {
 public:
  Progress(const Stopwatch& stopwatch, Timings& timings, unsigned objectCount)
      : stopwatch_(stopwatch), timings_(timings), objectCount_(objectCount) {}

  void Begin(Stage stage) override {
    switch (stage) {
      case Stage::kPrepass:
        std::fprintf(stderr, "[DWG worker] Pre-pass: building lookup tables (%u objects)...\n",
                     objectCount_);
        break;
      case Stage::kLayers: std::fputs("[DWG worker] Converting layers...\n", stderr); break;
      case Stage::kAssets:
        std::fputs("[DWG worker] Converting assets (block definitions)...\n", stderr);
        break;
      case Stage::kModelSpace:
        std::fputs("[DWG worker] Converting model-space entities...\n", stderr);
        break;
      case Stage::kLayouts:
        std::fputs("[DWG worker] Converting layouts (paper space)...\n", stderr);
        break;
    }
  }

  void End(Stage stage) override {
    switch (stage) {
      case Stage::kPrepass: Close("Pre-pass", timings_.prepass); break;
      case Stage::kLayers: Close("Layers", timings_.layers); break;
      case Stage::kAssets: Close("Assets", timings_.assets); break;
      case Stage::kModelSpace: break;
      case Stage::kLayouts: Close("Entities", timings_.entities); break;
    }
  }

 private:
  void Close(const char* name, long long& milliseconds) {
    milliseconds = stopwatch_.Milliseconds();
    std::fprintf(stderr, "[DWG worker] %s done in %lld ms\n", name, milliseconds);
  }

  const Stopwatch& stopwatch_;
  Timings& timings_;
  unsigned objectCount_;
};

// What stands behind the path, in any order; what is unknown has no effect.
struct Options {
  bool isVerbose = false;
  bool isComplete = false;
};

Options OptionsOf(int argc, const char* const* argv) {
  Options options;
  for (int i = 2; i < argc; ++i) {
    const std::string_view argument(argv[i]);
    options.isVerbose = options.isVerbose || argument == "--verbose";
    options.isComplete = options.isComplete || argument == "--complete";
  }
  return options;
}

void AppendTimings(JsonOut& out, const Timings& timings) {
  AppendIntKey(out, ",\"timings\":{\"dwgReadMs\":", timings.read);
  AppendIntKey(out, ",\"prepassMs\":", timings.prepass);
  AppendIntKey(out, ",\"layersMs\":", timings.layers);
  AppendIntKey(out, ",\"assetsMs\":", timings.assets);
  AppendIntKey(out, ",\"entitiesMs\":", timings.entities);
  AppendIntKey(out, ",\"workerTotalMs\":", timings.total);
  out += '}';
}

// The whole text is there before its first byte is written.
bool WriteLine(JsonOut& text) {
  text += '\n';
  bool isWritten = true;
  text.ForEachPiece([&isWritten](std::string_view piece) {
    isWritten = isWritten && std::fwrite(piece.data(), 1, piece.size(), stdout) == piece.size();
  });
  return std::fflush(stdout) == 0 && isWritten;
}

int ReportFailedRead(const DrawingFile& file) {
  const std::string message = "Failed to read " + file.path() + ": " + ErrorNames(file.result());
  JsonOut line;
  AppendQuotedKey(line, "{\"error\":", message);
  line += '}';
  WriteLine(line);
  return 1;
}

void AppendTimedDocument(JsonOut& out, const DrawingFile& file, const Options& options,
                         const Stopwatch& stopwatch, Timings& timings) {
  std::vector<std::string> warnings;
  if (file.result() != 0) {
    warnings.push_back("LibreDWG parse warnings: " + ErrorNames(file.result()));
  }
  warnings.insert(warnings.end(), file.warnings().begin(), file.warnings().end());
  const Drawing drawing = file.drawing();
  Progress progress(stopwatch, timings, static_cast<unsigned>(drawing.data.num_objects));
  const DocumentOptions documentOptions{.verbose = options.isVerbose};
  JsonOut further;
  if (options.isComplete) {
    AppendCompleteDocument(out, further, drawing, documentOptions, std::move(warnings), progress);
  } else {
    AppendDocument(out, drawing, documentOptions, std::move(warnings), progress);
  }
  timings.total = stopwatch.Milliseconds();
  AppendTimings(out, timings);
  further.ForEachPiece([&out](std::string_view piece) { out += piece; });
  out += '}';
}

// What a report of a crash says of the drawing.
void TagDrawing(const DrawingFile& file) {
  if (!ReportsCrashes()) {
    return;
  }
  TagCrashReports("drawing.format", file.isDxf() ? "DXF" : "DWG");
  if (const std::string release = file.StoredRelease(); !release.empty()) {
    TagCrashReports("drawing.release", release.c_str());
  }
}

// From here on the process can do nothing but what a conversion needs.
void EnterSandbox() {
  const SandboxMode mode = SandboxModeFrom(std::getenv("KVT_DWG_SANDBOX"));
  if (mode == SandboxMode::kOff) {
    return;
  }
  const std::string inForce = RestrictProcess();
  if (mode == SandboxMode::kReported) {
    std::fprintf(stderr, "[DWG worker] Sandbox: %s\n",
                 inForce.empty() ? "nothing" : inForce.c_str());
  }
}

int Convert(const char* path, const Options& options) {
  const Stopwatch stopwatch;
  Timings timings;
  std::fprintf(stderr, "[DWG worker] Starting import of: %s\n", path);
  DrawingFile file(path, options.isComplete ? ReadingScope::kAll : ReadingScope::kPlainForm);
  file.Open();
  TagDrawing(file);
  EnterSandbox();
  std::fprintf(stderr, "[DWG worker] Reading %s file...\n", file.isDxf() ? "DXF" : "DWG");
  file.Read();
  timings.read = stopwatch.Milliseconds();
  std::fprintf(stderr, "[DWG worker] %s done in %lld ms\n",
               file.isDxf() ? "dxf_read_file" : "dwg_read_file", timings.read);
  if (file.HasFailed()) {
    return ReportFailedRead(file);
  }

  JsonOut document;
  AppendTimedDocument(document, file, options, stopwatch, timings);
  std::fprintf(stderr, "[DWG worker] JSON output size: %zu bytes\n", document.size());
  const bool isWritten = WriteLine(document);
  file.Leave();
  if (!isWritten) {
    std::fputs("[DWG worker] Could not write the document to standard output\n", stderr);
    return 1;
  }
  std::fprintf(stderr, "[DWG worker] Total time: %lld ms\n", timings.total);
  return 0;
}

int CheckAndConvert(int argc, const char* const* argv) {
  if (argc < 2) {
    std::fputs(kUsage, stdout);
    return 1;
  }
  return Convert(argv[1], OptionsOf(argc, argv));
}

}  // namespace

int RunWorker(int argc, const char* const* argv) {
  StartCrashReporting(kComponent);
  PrepareStandardStreams();
  const int status = CheckAndConvert(argc, argv);
  StopCrashReporting();
  return status;
}
