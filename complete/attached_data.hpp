// Reads extended data (groups 1000 to 1071), which applications attach to objects.
#pragma once

#include <dwg.h>

#include <span>
#include <string_view>

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

// Calls `each` with every value that the application has there, in order.
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
// the text `name`: dimension variables that differ from their style's.
template <typename Each>
void ForEachOverride(std::span<const Dwg_Eed> data, Handle application, std::string_view name,
                     Each each) {
  bool isIn = false;
  const Dwg_Eed_Data* group = nullptr;
  ForEachAttached(data, application, [&](const Dwg_Eed_Data& value) {
    if (value.code == kAttachedText && group == nullptr) {
      isIn = IsAttachedText(value, name);
    } else if (value.code == kAttachedBracket) {
      isIn = isIn && value.u.eed_2.close == 0;
      group = nullptr;
    } else if (isIn && group == nullptr) {
      group = value.code == kAttachedShort ? &value : nullptr;
    } else if (isIn) {
      each(group->u.eed_70.rs, value);
      group = nullptr;
    }
  });
}
