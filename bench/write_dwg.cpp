// Reads a DXF drawing and writes it as a DWG of 2000 with LibreDWG's own
// writer, for benchmarks that need large DWG files.
//
//   write_dwg FROM.dxf TO.dwg
#include <cstdio>
#include <memory>

#include "entities/drawing_access.hpp"

namespace {

constexpr int kFirstFatalResult = DWG_ERR_CLASSESNOTFOUND;

int Write(const char* from, const char* to) {
  const auto drawing = std::make_unique<Dwg_Data>();
  drawing->header.version = R_2000;
  if (dxf_read_file(from, drawing.get()) >= kFirstFatalResult) {
    std::fprintf(stderr, "cannot read %s\n", from);
    return 1;
  }
  drawing->header.version = R_2000;
  const int result = dwg_write_file(to, drawing.get());
  dwg_free(drawing.get());
  if (result >= kFirstFatalResult) {
    std::fprintf(stderr, "cannot write %s\n", to);
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: write_dwg FROM.dxf TO.dwg\n", stderr);
    return 2;
  }
  return Write(argv[1], argv[2]);
}
