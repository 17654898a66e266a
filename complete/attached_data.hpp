// Reads extended data (groups 1000 to 1071), which applications attach to objects.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "entities/drawing.hpp"
#include "entities/drawing_access.hpp"

// The groups of the values, less 1000.
inline constexpr unsigned kAttachedText = 0;
inline constexpr unsigned kAttachedBracket = 2;
inline constexpr unsigned kAttachedLayer = 3;
inline constexpr unsigned kAttachedHandle = 5;
inline constexpr unsigned kAttachedPoint = 10;
inline constexpr unsigned kAttachedReal = 40;
inline constexpr unsigned kAttachedShort = 70;
inline constexpr unsigned kAttachedLong = 71;

// What stands before a list of dimension variables.
inline constexpr std::string_view kOverridesMark = "DSTYLE";

inline std::span<const Dwg_Eed> AttachedDataOf(const Dwg_Object_Entity& entity) {
  return SpanOf(entity.eed, entity.num_eed);
}
inline std::span<const Dwg_Eed> AttachedDataOf(const Dwg_Object& object) {
  // Both kinds of objects keep it in a part of their own.
  if (object.supertype == DWG_SUPERTYPE_ENTITY) {
    const Dwg_Object_Entity* entity = EntityOf(object);
    return entity == nullptr ? std::span<const Dwg_Eed>{} : AttachedDataOf(*entity);
  }
  const Dwg_Object_Object* data = object.tio.object;
  return data == nullptr ? std::span<const Dwg_Eed>{} : SpanOf(data->eed, data->num_eed);
}

// Whether the value is that ASCII text.
bool IsAttachedText(const Dwg_Eed_Data& value, std::string_view text);

// The value as the text that it is; empty for any other.
std::string AttachedText(const Dwg_Eed_Data& value, const Drawing& drawing);

// Calls `each` with every value that the application has there, in order; with none for
// the application 0.
template <typename Each>
void ForEachAttached(std::span<const Dwg_Eed> data, Handle application, Each each) {
  Handle current = 0;
  for (const Dwg_Eed& item : data) {
    // A text names the application before its first value only.
    if (item.handle.value != 0) {
      current = item.handle.value;
    }
    if (current == application && application != 0 && item.data != nullptr) {
      each(*item.data);
    }
  }
}

// Calls `each(group, value)` with the pairs of the list that stands in brackets behind
// its mark: dimension variables that differ from their style's. The mark is the CAD
// program's own, which old drawings and those without tables do not name.
template <typename Each>
void ForEachOverride(std::span<const Dwg_Eed> data, Each each) {
  bool isIn = false;
  const Dwg_Eed_Data* group = nullptr;
  for (const Dwg_Eed& item : data) {
    if (item.data == nullptr) {
      continue;
    }
    const Dwg_Eed_Data& value = *item.data;
    if (value.code == kAttachedText && group == nullptr) {
      isIn = IsAttachedText(value, kOverridesMark);
    } else if (value.code == kAttachedBracket) {
      isIn = isIn && value.u.eed_2.close == 0;
      group = nullptr;
    } else if (isIn && group == nullptr) {
      group = value.code == kAttachedShort ? &value : nullptr;
    } else if (isIn) {
      each(std::int32_t{group->u.eed_70.rs}, value);
      group = nullptr;
    }
  }
}
