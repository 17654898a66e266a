// Only reads a drawing with LibreDWG and frees it again: what the worker's time
// and memory are measured against. Linked to LibreDWG built with plain flags,
// our mends but no performance patches, and the system's allocator.
//
//   bare_reader FILE
//
// Prints the milliseconds of the read and of the freeing as JSON.
#include <chrono>
#include <cstdio>
#include <memory>
#include <string_view>

#include "entities/drawing_access.hpp"

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// As the worker does: see DrawingFile::Read.
int Read(const char* path, Dwg_Data& drawing) {
  drawing.opts = DWG_OPTS_MINIMAL;
  if (!std::string_view(path).ends_with(".dxf")) {
    return dwg_read_file(path, &drawing);
  }
  drawing.header.version = R_10;
  return dxf_read_file(path, &drawing);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: bare_reader FILE\n", stderr);
    return 2;
  }
  const auto drawing = std::make_unique<Dwg_Data>();
  const auto start = Clock::now();
  const int result = Read(argv[1], *drawing);
  const double read = MillisecondsSince(start);
  const auto freeing = Clock::now();
  dwg_free(drawing.get());
  std::printf("{\"result\":%d,\"read\":%.3f,\"free\":%.3f}\n", result, read,
              MillisecondsSince(freeing));
  return 0;
}
