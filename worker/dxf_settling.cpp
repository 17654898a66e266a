#include "worker/dxf_settling.hpp"

#include <cstdint>
#include <span>
#include <string_view>

#include "encode/ascii.hpp"
#include "encode/color.hpp"
#include "encode/library_memory.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr std::string_view kModelSpace = "*Model_Space";
constexpr Handle kPlaceholderHandle = 0x1F;
constexpr unsigned kLockedFlag = 4;

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

char* LibraryCopy(std::string_view text) {
  auto* copy = static_cast<char*>(LibraryAllocate(text.size() + 1));
  if (copy != nullptr) {
    text.copy(copy, text.size());
  }
  return copy;
}

void SetName(Dwg_Object_BLOCK_HEADER& block, char* name) {
  LibraryFree(block.name);
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
    SetName(*placeholder, LibraryCopy(kModelSpace));
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

}  // namespace

void SettleDxf(Dwg_Data& dwg) {
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
