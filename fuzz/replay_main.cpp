// Runs a fuzz target over files, and over the files of folders, given on the
// command line: the fuzzer's findings in any build and with any compiler.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void Replay(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  const std::string bytes = content.str();
  std::fprintf(stderr, "replaying %s (%zu bytes)\n", path.string().c_str(), bytes.size());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    if (!fs::is_directory(argv[i])) {
      Replay(argv[i]);
      ++count;
      continue;
    }
    for (const auto& entry : fs::recursive_directory_iterator(argv[i])) {
      if (entry.is_regular_file()) {
        Replay(entry.path());
        ++count;
      }
    }
  }
  std::fprintf(stderr, "%zu inputs replayed\n", count);
  return count == 0 ? 1 : 0;
}
