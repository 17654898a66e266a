#include "worker/run.hpp"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "document/assets.hpp"
#include "document/layers.hpp"
#include "document/layouts.hpp"
#include "document/model_space.hpp"
#include "document/prepass.hpp"
#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"
#include "worker/crash_reporting.hpp"
#include "worker/drawing_file.hpp"
#include "worker/read_result.hpp"
#include "worker/standard_streams.hpp"

namespace {

constexpr std::size_t kReservedOutput = 0x80000;
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

// Cumulative, in milliseconds.
struct Timings {
  long long read = 0;
  long long prepass = 0;
  long long layers = 0;
  long long assets = 0;
  long long entities = 0;
  long long total = 0;
};

bool IsVerbose(int argc, const char* const* argv) {
  for (int i = 2; i < argc; ++i) {
    if (std::string_view(argv[i]) == "--verbose") {
      return true;
    }
  }
  return false;
}

// Types in byte order of their names.
void AddSkippedTypes(const std::map<std::string, std::size_t>& counts,
                     std::vector<std::string>& warnings) {
  for (const auto& [name, count] : counts) {
    warnings.push_back("Skipped " + std::to_string(count) + " " + name +
                       (count == 1 ? " entity" : " entities") + " (not yet supported)");
  }
}

void AppendWarnings(std::string& out, const std::vector<std::string>& warnings) {
  out += ",\"warnings\":[";
  ListCursor list{out};
  for (const std::string& warning : warnings) {
    AppendListQuoted(list, warning);
  }
  out += ']';
}

void AppendTimings(std::string& out, const Timings& timings) {
  AppendIntKey(out, ",\"timings\":{\"dwgReadMs\":", timings.read);
  AppendIntKey(out, ",\"prepassMs\":", timings.prepass);
  AppendIntKey(out, ",\"layersMs\":", timings.layers);
  AppendIntKey(out, ",\"assetsMs\":", timings.assets);
  AppendIntKey(out, ",\"entitiesMs\":", timings.entities);
  AppendIntKey(out, ",\"workerTotalMs\":", timings.total);
  out += "}}";
}

// The folder of the drawing; empty when the path has none.
std::filesystem::path FolderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path();
}

bool WriteLine(const std::string& text) {
  const bool isPrinted = std::printf("%s\n", text.c_str()) >= 0;
  return std::fflush(stdout) == 0 && isPrinted;
}

int ReportFailedRead(const DrawingFile& drawing) {
  const std::string message =
      "Failed to read " + drawing.path() + ": " + ErrorNames(drawing.result());
  WriteLine("{\"error\":" + JsonQuote(message.c_str()) + "}");
  return 1;
}

class Conversion {
 public:
  Conversion(DrawingFile& drawing, bool verbose, const Stopwatch& stopwatch, Timings timings)
      : drawing_(drawing), verbose_(verbose), stopwatch_(stopwatch), timings_(timings) {}

  const Timings& timings() const { return timings_; }

  std::string Document() {
    if (drawing_.result() != 0) {
      warnings_.push_back("LibreDWG parse warnings: " + ErrorNames(drawing_.result()));
    }
    Dwg_Data& dwg = drawing_.data();
    std::fprintf(stderr, "[DWG worker] Pre-pass: building lookup tables (%u objects)...\n",
                 static_cast<unsigned>(dwg.num_objects));
    const LookupTables tables =
        BuildLookupTables(dwg, drawing_.HasUnicodeText(), FolderOf(drawing_.path()));
    CloseStage("Pre-pass", timings_.prepass);

    EntityContext context{dwg, tables, drawing_.HasUnicodeText(), warnings_, skippedTypes_};
    std::string out;
    out.reserve(kReservedOutput);
    AppendSections(out, dwg, context);
    AddSkippedTypes(skippedTypes_, warnings_);
    AppendWarnings(out, warnings_);
    timings_.total = stopwatch_.Milliseconds();
    AppendTimings(out, timings_);
    return out;
  }

 private:
  void AppendSections(std::string& out, Dwg_Data& dwg, EntityContext& context) {
    AppendQuotedKey(out, "{\"dwgVersion\":", ReleaseWord(dwg.header.version));
    AppendIntKey(out, ",\"insunits\":", dwg.header_vars.INSUNITS);

    std::fputs("[DWG worker] Converting layers...\n", stderr);
    out += ",\"layers\":[";
    AppendLayers(out, dwg, context.unicodeText, verbose_);
    out += ']';
    CloseStage("Layers", timings_.layers);

    std::fputs("[DWG worker] Converting assets (block definitions)...\n", stderr);
    out += ",\"assets\":[";
    AppendAssets(out, context, verbose_);
    out += ']';
    CloseStage("Assets", timings_.assets);

    std::fputs("[DWG worker] Converting model-space entities...\n", stderr);
    out += ",\"entities\":[";
    AppendModelSpace(out, dwg, context, verbose_);
    out += ']';

    std::fputs("[DWG worker] Converting layouts (paper space)...\n", stderr);
    out += ",\"layouts\":[";
    AppendLayouts(out, context, verbose_);
    out += ']';
    CloseStage("Entities", timings_.entities);
  }

  void CloseStage(const char* name, long long& milliseconds) const {
    milliseconds = stopwatch_.Milliseconds();
    std::fprintf(stderr, "[DWG worker] %s done in %lld ms\n", name, milliseconds);
  }

  DrawingFile& drawing_;
  bool verbose_;
  const Stopwatch& stopwatch_;
  Timings timings_;
  std::vector<std::string> warnings_;
  std::map<std::string, std::size_t> skippedTypes_;
};

int Convert(const char* path, bool verbose) {
  const Stopwatch stopwatch;
  Timings timings;
  std::fprintf(stderr, "[DWG worker] Starting import of: %s\n", path);
  DrawingFile drawing(path);
  std::fprintf(stderr, "[DWG worker] Reading %s file...\n", drawing.isDxf() ? "DXF" : "DWG");
  drawing.Read();
  timings.read = stopwatch.Milliseconds();
  std::fprintf(stderr, "[DWG worker] %s done in %lld ms\n",
               drawing.isDxf() ? "dxf_read_file" : "dwg_read_file", timings.read);
  if (drawing.HasFailed()) {
    return ReportFailedRead(drawing);
  }

  Conversion conversion(drawing, verbose, stopwatch, timings);
  const std::string document = conversion.Document();
  std::fprintf(stderr, "[DWG worker] JSON output size: %zu bytes\n", document.size());
  const bool isWritten = WriteLine(document);
  drawing.Free();
  if (!isWritten) {
    std::fputs("[DWG worker] Could not write the document to standard output\n", stderr);
    return 1;
  }
  std::fprintf(stderr, "[DWG worker] Total time: %lld ms\n", conversion.timings().total);
  return 0;
}

int CheckAndConvert(int argc, const char* const* argv) {
  if (argc < 2) {
    std::fputs(kUsage, stdout);
    return 1;
  }
  return Convert(argv[1], IsVerbose(argc, argv));
}

}  // namespace

int RunWorker(int argc, const char* const* argv) {
  StartCrashReporting(kComponent);
  PrepareStandardStreams();
  const int status = CheckAndConvert(argc, argv);
  StopCrashReporting();
  return status;
}
