// Drawing files from fuzz bytes through the library's reader and the whole
// conversion, in both forms. DWG_FUZZ_EXTENSION, set by the build, chooses the format.

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include "complete/document.hpp"
#include "document/document.hpp"
#include "fuzz/check.hpp"
#include "reading/drawing_file.hpp"
#include "tests/support/json_grammar.hpp"

namespace {

std::string InputPath() {
  const auto folder = std::filesystem::temp_directory_path();
  return (folder / ("dwg_fuzz_" + std::to_string(getpid()) + DWG_FUZZ_EXTENSION)).string();
}

std::string Convert(const DrawingFile& file, ReadingScope scope) {
  StageObserver observer;
  JsonOut out;
  JsonOut further;
  Drawing drawing = file.drawing();
  drawing.folder.clear();  // whose files are none of the input
  if (scope == ReadingScope::kAll) {
    AppendCompleteDocument(out, further, drawing, {.verbose = true}, {}, observer);
  } else {
    AppendDocument(out, drawing, {.verbose = true}, {}, observer);
  }
  return out.Text() + further.Text();
}

void ReadAndConvert(const std::string& path, ReadingScope scope) {
  DrawingFile drawing(path, scope);
  drawing.Read();
  if (!drawing.HasFailed()) {
    const std::string document = Convert(drawing, scope);
    FUZZ_CHECK(IsGrammaticalJson(document + "}"));
    FUZZ_CHECK(Convert(drawing, scope) == document);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = InputPath();
  std::FILE* file = std::fopen(path.c_str(), "wb");
  FUZZ_CHECK(file != nullptr);
  std::fwrite(data, 1, size, file);
  std::fclose(file);
  ReadAndConvert(path, ReadingScope::kPlainForm);
  ReadAndConvert(path, ReadingScope::kAll);
  return 0;
}
