#include "reading/dwg_settling.hpp"

#include <cstddef>
#include <string>
#include <string_view>

#include "encode/library_memory.hpp"
#include "encode/text_decoding.hpp"
#include "entities/block_names.hpp"
#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"
#include "reading/library_copy.hpp"

namespace {

using BlockNames = HandleMap<const char*>;

// A name as it is stored, without the zero that ends it.
std::string_view StoredName(const char* name, TextForm form) {
  if (form != TextForm::kUtf16) {
    return name;
  }
  std::size_t size = 0;
  while (name[size] != 0 || name[size + 1] != 0) {
    size += 2;
  }
  return {name, size};
}

bool IsAnonymous(const char* name, TextForm form) {
  const DecodedText text = DecodeText(form, name);
  return text.view().starts_with('*') && !IsLayoutBlockName(text.view());
}

// By the handles of the BLOCK entities.
BlockNames NamesOfBlocks(const Dwg_Data& dwg) {
  BlockNames names;
  for (const Dwg_Object& object : Objects(dwg)) {
    const Handle handle = object.handle.value;
    if (object.fixedtype != DWG_TYPE_BLOCK || handle == 0) {
      continue;
    }
    const auto* block = EntityData(object, &EntityTio::BLOCK);
    if (block != nullptr && block->name != nullptr && names.Find(handle) == nullptr) {
      names[handle] = block->name;
    }
  }
  return names;
}

void SetName(Dwg_Object_BLOCK_HEADER& header, std::string_view stored) {
  if (char* copy = LibraryCopy(stored)) {
    LibraryFree(header.name);
    header.name = copy;
  }
}

void TakeWholeName(Dwg_Object_BLOCK_HEADER& header, const BlockNames& names, TextForm form) {
  const char* const* whole = names.Find(HandleOf(header.block_entity));
  if (whole == nullptr) {
    return;
  }
  const std::string_view stored = StoredName(*whole, form);
  if (stored.starts_with(StoredName(header.name, form))) {
    SetName(header, stored);
  }
}

void Settle(Dwg_Object_BLOCK_HEADER& header, const BlockNames& names, const Dwg_Data& dwg,
            TextForm form) {
  if (IsAnonymous(header.name, form)) {
    TakeWholeName(header, names, form);
  } else if (dwg.header.from_version < R_13b1 && std::string_view(header.name) == "*PAPER_SPACE") {
    SetName(header, "*Paper_Space");
  }
}

}  // namespace

void SettleDwg(Dwg_Data& dwg, TextForm form) {
  const BlockNames names = NamesOfBlocks(dwg);
  for (const Dwg_Object& object : Objects(dwg)) {
    if (object.fixedtype != DWG_TYPE_BLOCK_HEADER) {
      continue;
    }
    auto* header = ObjectData(object, &ObjectTio::BLOCK_HEADER);
    if (header != nullptr && header->name != nullptr) {
      Settle(*header, names, dwg, form);
    }
  }
}
