#include "worker/drawing_file.hpp"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string_view>
#include <utility>

#include "encode/ascii.hpp"
#include "encode/color.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"

namespace {

constexpr unsigned kReadOptions = 0x10;
constexpr int kFatalBits =
    DWG_ERR_PAGENOTFOUND | DWG_ERR_INVALIDDWG | DWG_ERR_IOERROR | DWG_ERR_OUTOFMEM;
static_assert(kFatalBits == 0x3A00);

constexpr std::array<std::string_view, 14> kErrorNames = {
    "WRONGCRC",      "NOTYETSUPPORTED",  "UNHANDLEDCLASS",  "INVALIDTYPE",     "INVALIDHANDLE",
    "INVALIDEED",    "VALUEOUTOFBOUNDS", "CLASSESNOTFOUND", "SECTIONNOTFOUND", "PAGENOTFOUND",
    "INTERNALERROR", "INVALIDDWG",       "IOERROR",         "OUTOFMEM"};
static_assert(1 << (kErrorNames.size() - 1) == DWG_ERR_OUTOFMEM);

constexpr std::string_view kModelSpace = "*Model_Space";
constexpr Handle kPlaceholderHandle = 0x1F;
constexpr unsigned kLockedFlag = 4;

// An extension as the file-system library sees it: a file named just ".dxf"
// has none.
bool HasDxfExtension(const std::string& path) {
  return LowerAscii(std::filesystem::path(path).extension().string()) == ".dxf";
}

std::span<Dwg_Object> MutableObjects(Dwg_Data& dwg) {
  return dwg.object == nullptr ? std::span<Dwg_Object>{}
                               : std::span<Dwg_Object>{dwg.object, dwg.num_objects};
}

// The BLOCK_HEADER that LibreDWG's DXF reader starts every drawing with.
Dwg_Object_BLOCK_HEADER* Placeholder(Dwg_Data& dwg) {
  const auto objects = MutableObjects(dwg);
  if (objects.empty() || objects[0].fixedtype != DWG_TYPE_BLOCK_HEADER ||
      objects[0].handle.value != kPlaceholderHandle) {
    return nullptr;
  }
  return ObjectData(objects[0], &ObjectTio::BLOCK_HEADER);
}

// The last other block of that name in any letter case.
Dwg_Object* ModelSpaceBlock(Dwg_Data& dwg) {
  Dwg_Object* found = nullptr;
  for (Dwg_Object& object : MutableObjects(dwg).subspan(1)) {
    if (object.fixedtype != DWG_TYPE_BLOCK_HEADER) {
      continue;
    }
    const auto* block = ObjectData(object, &ObjectTio::BLOCK_HEADER);
    if (block != nullptr && block->name != nullptr &&
        LowerAscii(std::string_view(block->name)) == LowerAscii(kModelSpace)) {
      found = &object;
    }
  }
  return found;
}

// The library frees names with free().
char* MallocedCopy(std::string_view text) {
  auto* copy = static_cast<char*>(std::calloc(text.size() + 1, 1));
  if (copy != nullptr) {
    text.copy(copy, text.size());
  }
  return copy;
}

void SetName(Dwg_Object_BLOCK_HEADER& block, char* name) {
  std::free(block.name);
  block.name = name;
}

void ReplacePlaceholder(Dwg_Data& dwg, Dwg_Object_BLOCK_HEADER& placeholder,
                        const Dwg_Object& modelSpace) {
  SetName(placeholder, nullptr);
  Dwg_Object_Ref* owner = nullptr;
  for (Dwg_Object& object : MutableObjects(dwg)) {
    if (!IsEntity(object) || object.tio.entity == nullptr ||
        HandleOf(object.tio.entity->ownerhandle) != kPlaceholderHandle) {
      continue;
    }
    if (owner == nullptr) {
      owner = dwg_add_handleref(&dwg, DWG_HDL_SOFTPTR, modelSpace.handle.value, nullptr);
    }
    object.tio.entity->ownerhandle = owner;
  }
}

void SettlePlaceholder(Dwg_Data& dwg) {
  Dwg_Object_BLOCK_HEADER* placeholder = Placeholder(dwg);
  if (placeholder == nullptr) {
    return;
  }
  if (const Dwg_Object* modelSpace = ModelSpaceBlock(dwg)) {
    ReplacePlaceholder(dwg, *placeholder, *modelSpace);
  } else if (placeholder->name != nullptr && std::string_view(placeholder->name) == "*") {
    // The 16-bit form of the name, of which 8-bit readers see one byte.
    SetName(*placeholder, MallocedCopy(kModelSpace));
  }
}

constexpr bool IsOffIndex(int index) {
  return index >= -255 && index <= -1;
}

// A layer's colour index belongs into the low byte of the word, and its flags
// come from the group code that carries them.
void SettleLayer(Dwg_Object_LAYER& layer) {
  constexpr std::uint32_t kIndexedWord = kMethodIndexed << 24U;
  Dwg_Color& color = layer.color;
  // The index of a colour-book layer was never written.
  if (color.rgb == kIndexedWord && !IsOffIndex(color.index)) {
    color.index = 0;
  }
  if (ColorMethod(color) == kMethodIndexed && color.index >= 1 && color.index <= 255) {
    color.rgb = kIndexedWord + static_cast<std::uint32_t>(color.index);
  }
  layer.off = IsOffIndex(color.index) ? 1 : 0;
  layer.locked = (layer.flag & kLockedFlag) != 0 ? 1 : 0;
}

void SettleDxf(Dwg_Data& dwg) {
  dwg.header.version = dwg.header.from_version;
  SettlePlaceholder(dwg);
  for (Dwg_Object& object : MutableObjects(dwg)) {
    if (object.fixedtype != DWG_TYPE_LAYER) {
      continue;
    }
    if (Dwg_Object_LAYER* layer = ObjectData(object, &ObjectTio::LAYER)) {
      SettleLayer(*layer);
    }
  }
}

}  // namespace

DrawingFile::DrawingFile(std::string path)
    : path_(std::move(path)), isDxf_(HasDxfExtension(path_)), data_(std::make_unique<Dwg_Data>()) {}

DrawingFile::~DrawingFile() {
  Free();
}

void DrawingFile::Read() {
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
  return (result_ & kFatalBits) != 0;
}

bool DrawingFile::HasUnicodeText() const {
  return !isDxf_ && data_->header.version >= R_2007;
}

std::string ErrorNames(int result) {
  std::string names;
  for (std::size_t bit = 0; bit < kErrorNames.size(); ++bit) {
    if ((static_cast<unsigned>(result) >> bit & 1U) == 0) {
      continue;
    }
    if (!names.empty()) {
      names += ", ";
    }
    names += kErrorNames[bit];
  }
  return names;
}
