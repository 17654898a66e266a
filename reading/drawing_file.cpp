#include "reading/drawing_file.hpp"

#include <dwg_dxf_skipped.h>
#include <dwg_dxf_text.h>
#include <dxf_from_memory.h>

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "encode/ascii.hpp"
#include "reading/dwg_settling.hpp"
#include "reading/dxf/dxf_front_end.hpp"
#include "reading/dxf/dxf_header.hpp"
#include "reading/dxf/dxf_table_settling.hpp"
#include "reading/dxf_losses.hpp"
#include "reading/dxf_settling.hpp"
#include "reading/read_result.hpp"
#include "reading/reading_memory.hpp"
#include "reading/stored_release.hpp"
#include "reading/stored_text.hpp"

namespace {

// An extension as the file-system library sees it: a file named just ".dxf"
// has none.
bool HasDxfExtension(const std::string& path) {
  return LowerAscii(std::filesystem::path(path).extension().string()) == ".dxf";
}

// Gives back the memory of what was read of a file, of which the survey has seen
// all. Does nothing without a file.
class ReleaseWhileReading {
 public:
  explicit ReleaseWhileReading(const FileBytes* file) {
    if (file != nullptr) {
      file->Release(file->bytes().size());
      dwg_dxf_on_read(
          [](void* user, std::size_t size) { static_cast<const FileBytes*>(user)->Release(size); },
          // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
          const_cast<FileBytes*>(file));
    }
  }
  ~ReleaseWhileReading() { dwg_dxf_on_read(nullptr, nullptr); }
  ReleaseWhileReading(const ReleaseWhileReading&) = delete;
  ReleaseWhileReading& operator=(const ReleaseWhileReading&) = delete;
};

TextForm TextFormOf(const Dwg_Data& dwg, bool isDxf) {
  if (isDxf) {
    return dwg.header.from_version >= R_2007 ? TextForm::kUtf8 : TextForm::kWindows1252;
  }
  return dwg.header.version >= R_2007 ? TextForm::kUtf16 : TextForm::kWindows1252;
}

}  // namespace

DrawingFile::DrawingFile(std::string path, ReadingScope scope)
    : path_(std::move(path)),
      isDxf_(HasDxfExtension(path_)),
      scope_(scope),
      data_(std::make_unique<Dwg_Data>()) {}

DrawingFile::~DrawingFile() {
  Free();
}

void DrawingFile::Open() {
  isOpened_ = true;
  std::error_code error;
  if (isDxf_) {
    dxf_ = std::make_unique<FileBytes>(path_);
  } else if (std::filesystem::is_regular_file(path_, error)) {
    dwg_.reset(std::fopen(path_.c_str(), "rb"));
  }
}

void DrawingFile::Read() {
  if (!isOpened_) {
    Open();
  }
  ReserveReadingMemory();
  data_->opts = DWG_OPTS_MINIMAL;
  if (isDxf_) {
    result_ = ReadDxf();
  } else {
    result_ = ReadDwg();
  }
  if (HasFailed()) {
    return;
  }
  if (isDxf_) {
    data_->header.version = data_->header.from_version;
    SettleDxf(*data_, scope_ == ReadingScope::kAll ? DxfScales::kStored : DxfScales::kSettled);
  } else {
    SettleDwg(*data_, TextFormOf(*data_, isDxf_));
    storedText_ = StoredTextOfDwg(*data_);
  }
}

std::string DrawingFile::StoredRelease() const {
  if (dxf_ != nullptr) {
    return StoredReleaseOfDxf(dxf_->bytes());
  }
  if (dwg_ == nullptr) {
    return {};
  }
  std::array<char, kStoredReleaseBytes> beginning = {};
  const std::size_t size = std::fread(beginning.data(), 1, beginning.size(), dwg_.get());
  std::rewind(dwg_.get());
  return StoredReleaseOfDwg(std::string_view(beginning.data(), size));
}

int DrawingFile::ReadDwg() {
  // LibreDWG reads standard input by this name, and closes what it is given.
  std::FILE* const stream = path_ == "-" ? stdin : dwg_.release();
  return dwg_read_open_file(stream, path_.c_str(), data_.get());
}

int DrawingFile::ReadDxf() {
  const std::unique_ptr<const FileBytes> file = std::move(dxf_);
  if (!file->IsRead() || file->bytes().empty()) {
    return DWG_ERR_IOERROR;
  }
  const PreparedDxf prepared(file->bytes());
  switch (prepared.outcome()) {
    // What LibreDWG's own reader says of such files.
    case PreparedDxf::Outcome::kNoDxf: return DWG_ERR_IOERROR;
    case PreparedDxf::Outcome::kBrokenOff: return DWG_ERR_WRONGCRC | DWG_ERR_IOERROR;
    default: break;
  }
  if (scope_ == ReadingScope::kAll) {
    ReadAllObjects();
  } else {
    ReadNeededObjectsOnly();
  }
  dwg_dxf_keep_text_codes(scope_ == ReadingScope::kAll ? 1 : 0);
  const DxfLosses losses;
  // With any later target version the DXF reader recodes strings and then
  // loses its own layer and block references.
  data_->header.version = R_10;
  // The complete form looks at the file's text once more behind the read.
  const bool isReleased =
      prepared.outcome() == PreparedDxf::Outcome::kPassedOn && scope_ == ReadingScope::kPlainForm;
  const ReleaseWhileReading release(isReleased ? file.get() : nullptr);
  const int result = dxf_read_memory(prepared.text().data(), prepared.text().size(),
                                     prepared.recordCount(), data_.get());
  if (scope_ == ReadingScope::kAll && !IsFatalResult(result)) {
    storedText_ = StoredTextOfDxf(*data_, prepared.text());
    dxfHeader_ = HeaderOfDxf(prepared.text());
    SettleDxfTables(*data_, prepared.text());
  }
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

void DrawingFile::Leave() {
  // A place that is never forgotten, so that nothing looks lost.
  [[maybe_unused]] static Dwg_Data* volatile left = nullptr;
  if (!isFreed_) {
    isFreed_ = true;
    left = data_.release();
  }
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
          .storedText = storedText_,
          .dxfHeader = isDxf_ ? &dxfHeader_ : nullptr,
          .folder = std::filesystem::path(path_).parent_path(),
          .unknownEntities = unknownEntities_};
}
