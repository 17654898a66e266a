#include "worker/drawing_file.hpp"

#include <filesystem>
#include <utility>

#include "encode/ascii.hpp"
#include "encode/text_decoding.hpp"
#include "entities/entity_context.hpp"
#include "worker/dxf_settling.hpp"
#include "worker/read_result.hpp"
#include "worker/reading_memory.hpp"

namespace {

constexpr unsigned kReadOptions = 0x10;

// An extension as the file-system library sees it: a file named just ".dxf"
// has none.
bool HasDxfExtension(const std::string& path) {
  return LowerAscii(std::filesystem::path(path).extension().string()) == ".dxf";
}

}  // namespace

DrawingFile::DrawingFile(std::string path)
    : path_(std::move(path)), isDxf_(HasDxfExtension(path_)), data_(std::make_unique<Dwg_Data>()) {}

DrawingFile::~DrawingFile() {
  Free();
}

void DrawingFile::Read() {
  ReserveReadingMemory();
  data_->opts = kReadOptions;
  if (isDxf_) {
    // With any later target version the DXF reader recodes strings and then
    // loses its own layer and block references.
    data_->header.version = R_10;
    result_ = dxf_read_file(path_.c_str(), data_.get());
  } else {
    result_ = dwg_read_file(path_.c_str(), data_.get());
  }
  if (HasFailed()) {
    return;
  }
  if (isDxf_) {
    data_->header.version = data_->header.from_version;
    SettleDxf(*data_);
  }
  SetInputIsDxf(isDxf_);
  SetEightBitIsUtf8(isDxf_ && data_->header.from_version >= R_2007);
}

void DrawingFile::Free() {
  if (!isFreed_) {
    isFreed_ = true;
    dwg_free(data_.get());
  }
}

bool DrawingFile::HasFailed() const {
  return IsFatalResult(result_);
}

bool DrawingFile::HasUnicodeText() const {
  return !isDxf_ && data_->header.version >= R_2007;
}
