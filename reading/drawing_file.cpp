#include "reading/drawing_file.hpp"

#include <dxf_from_memory.h>

#include <filesystem>
#include <utility>

#include "encode/ascii.hpp"
#include "reading/dwg_settling.hpp"
#include "reading/dxf/dxf_front_end.hpp"
#include "reading/dxf_losses.hpp"
#include "reading/dxf_settling.hpp"
#include "reading/file_bytes.hpp"
#include "reading/read_result.hpp"
#include "reading/reading_memory.hpp"

namespace {

// An extension as the file-system library sees it: a file named just ".dxf"
// has none.
bool HasDxfExtension(const std::string& path) {
  return LowerAscii(std::filesystem::path(path).extension().string()) == ".dxf";
}

TextForm TextFormOf(const Dwg_Data& dwg, bool isDxf) {
  if (isDxf) {
    return dwg.header.from_version >= R_2007 ? TextForm::kUtf8 : TextForm::kWindows1252;
  }
  return dwg.header.version >= R_2007 ? TextForm::kUtf16 : TextForm::kWindows1252;
}

}  // namespace

DrawingFile::DrawingFile(std::string path)
    : path_(std::move(path)), isDxf_(HasDxfExtension(path_)), data_(std::make_unique<Dwg_Data>()) {}

DrawingFile::~DrawingFile() {
  Free();
}

void DrawingFile::Read() {
  ReserveReadingMemory();
  data_->opts = DWG_OPTS_MINIMAL;
  if (isDxf_) {
    result_ = ReadDxf();
  } else {
    result_ = dwg_read_file(path_.c_str(), data_.get());
  }
  if (HasFailed()) {
    return;
  }
  if (isDxf_) {
    data_->header.version = data_->header.from_version;
    SettleDxf(*data_);
  } else {
    SettleDwg(*data_, TextFormOf(*data_, isDxf_));
  }
}

int DrawingFile::ReadDxf() {
  const FileBytes file(path_);
  if (!file.IsRead() || file.bytes().empty()) {
    return DWG_ERR_IOERROR;
  }
  const PreparedDxf prepared(file.bytes());
  switch (prepared.outcome()) {
    // What LibreDWG's own reader says of such files.
    case PreparedDxf::Outcome::kNoDxf: return DWG_ERR_IOERROR;
    case PreparedDxf::Outcome::kBrokenOff: return DWG_ERR_WRONGCRC | DWG_ERR_IOERROR;
    default: break;
  }
  ReadNeededObjectsOnly();
  const DxfLosses losses;
  // With any later target version the DXF reader recodes strings and then
  // loses its own layer and block references.
  data_->header.version = R_10;
  const int result = dxf_read_memory(prepared.text().data(), prepared.text().size(), data_.get());
  unknownEntities_ = losses.unknownEntities();
  DxfRepairs repairs = prepared.repairs();
  repairs.AddAll(losses.unreadable(),
                 [&prepared](std::size_t offset) { return prepared.LineAt(offset); });
  warnings_ = repairs.Lines();
  if (prepared.IsReleaseMadeUp() && data_->header.from_version < R_2007) {
    data_->header.from_version = R_INVALID;
  }
  return result;
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

Drawing DrawingFile::drawing() const {
  return {.data = *data_,
          .textForm = TextFormOf(*data_, isDxf_),
          .folder = std::filesystem::path(path_).parent_path(),
          .unknownEntities = unknownEntities_};
}
