#include "reading/dxf_settling.hpp"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "encode/ascii.hpp"
#include "encode/library_memory.hpp"
#include "entities/block_names.hpp"
#include "entities/color.hpp"
#include "entities/drawing_access.hpp"
#include "reading/library_copy.hpp"

namespace {

constexpr Handle kPlaceholderHandle = 0x1F;
constexpr unsigned kLockedFlag = 4;

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
        LowerAscii(std::string_view(block->name)) == LowerAscii(kModelSpaceName)) {
      found = &object;
    }
  }
  return found;
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
    Dwg_Object_Entity* entity = EntityOf(object);
    if (entity == nullptr || HandleOf(entity->ownerhandle) != kPlaceholderHandle) {
      continue;
    }
    if (owner == nullptr) {
      owner = dwg_add_handleref(&dwg, DWG_HDL_SOFTPTR, modelSpace.handle.value, nullptr);
    }
    entity->ownerhandle = owner;
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
    SetName(*placeholder, LibraryCopy(kModelSpaceName));
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

// A scale of 1 for one that is the insertion point's coordinate.
template <typename Insert>
void SettleInsert(Insert& insert) {
  if (insert.scale.y == insert.ins_pt.y) {
    insert.scale.y = 1;
  }
  if (insert.scale.z == insert.ins_pt.z) {
    insert.scale.z = 1;
  }
}

// The reader leaves the frame's fields shifted when there is no text height.
void SettleMtext(Dwg_Entity_MTEXT& mtext) {
  if (mtext.text_height == 0) {
    mtext.text_height = mtext.rect_width;
    mtext.rect_width = mtext.rect_height;
  }
}

// The reader takes it for a hatch, whose group 70 is the release here and whose group 71
// is the other's 70.
void SettleMpolygon(Dwg_Object& object) {
  if (Dwg_Entity_HATCH* polygon = EntityData(object, &EntityTio::HATCH)) {
    polygon->is_solid_fill = polygon->is_associative;
    polygon->is_associative = 0;
    object.fixedtype = DWG_TYPE_MPOLYGON;
    // The library takes names that may be written to, and frees none of them.
    static std::array name = std::to_array("MPOLYGON");
    object.name = name.data();
  }
}

template <typename T, typename Settle>
void SettleData(T* data, Settle settle) {
  if (data != nullptr) {
    settle(*data);
  }
}

bool IsMpolygon(const Dwg_Object& object) {
  return object.fixedtype == DWG_TYPE_HATCH && object.dxfname != nullptr &&
         std::string_view(object.dxfname) == "MPOLYGON";
}

void SettleReference(Dwg_Object& object) {
  if (object.fixedtype == DWG_TYPE_INSERT) {
    SettleData(EntityData(object, &EntityTio::INSERT), SettleInsert<Dwg_Entity_INSERT>);
  } else {
    SettleData(EntityData(object, &EntityTio::MINSERT), SettleInsert<Dwg_Entity_MINSERT>);
  }
}

void SettleObject(Dwg_Object& object, DxfScales scales) {
  switch (object.fixedtype) {
    case DWG_TYPE_LAYER: return SettleData(ObjectData(object, &ObjectTio::LAYER), SettleLayer);
    case DWG_TYPE_INSERT:
    case DWG_TYPE_MINSERT: return scales == DxfScales::kSettled ? SettleReference(object) : void();
    case DWG_TYPE_MTEXT: return SettleData(EntityData(object, &EntityTio::MTEXT), SettleMtext);
    case DWG_TYPE_HATCH: return IsMpolygon(object) ? SettleMpolygon(object) : void();
    default: return;
  }
}

}  // namespace

void SettleDxf(Dwg_Data& dwg, DxfScales scales) {
  SettlePlaceholder(dwg);
  for (Dwg_Object& object : MutableObjects(dwg)) {
    SettleObject(object, scales);
  }
}
