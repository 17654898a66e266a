// Walks over many entities at the speed of the memory they lie in: what an
// entity's conversion will touch is asked for while those before it are
// converted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "entities/drawing_access.hpp"

#if !defined(__GNUC__) && defined(_M_X64)
#include <intrin.h>
#endif

inline void Prefetch(const void* address) {
#if defined(__GNUC__)
  __builtin_prefetch(address);
#elif defined(_M_X64)
  _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#else
  static_cast<void>(address);
#endif
}

// The common data of an object that is an entity.
inline void PrefetchEntity(const Dwg_Object& object) {
  const Dwg_Object_Entity* entity = object.tio.entity;
  Prefetch(&entity->tio);
  Prefetch(&entity->color);
  Prefetch(&entity->linewt);
  Prefetch(&entity->layer);
}

// What that data points to. Of the union's pointers any will do.
inline void PrefetchType(const Dwg_Object& object) {
  constexpr std::uintptr_t kCacheLine = 64;
  const Dwg_Object_Entity* entity = object.tio.entity;
  Prefetch(entity->tio.LINE);
  // Only hints: the addresses may lie anywhere. The texts of text records lie in
  // the third line.
  const auto data = reinterpret_cast<std::uintptr_t>(entity->tio.LINE);
  // NOLINTBEGIN(performance-no-int-to-ptr)
  Prefetch(reinterpret_cast<const void*>(data + kCacheLine));
  Prefetch(reinterpret_cast<const void*>(data + 2 * kCacheLine));
  // NOLINTEND(performance-no-int-to-ptr)
  Prefetch(entity->layer);
}

// Calls `each` with every entity in order. All of them have entity data.
template <typename Each>
void WalkEntities(std::span<const Dwg_Object* const> entities, Each each) {
  constexpr std::size_t kStep = 6;
  const std::size_t count = entities.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i + 3 * kStep < count) {
      Prefetch(&entities[i + 3 * kStep]->supertype);
    }
    if (i + 2 * kStep < count) {
      PrefetchEntity(*entities[i + 2 * kStep]);
    }
    if (i + kStep < count) {
      PrefetchType(*entities[i + kStep]);
    }
    each(*entities[i]);
  }
}

// Asks for what leads to the owners of the entities some way behind a position.
inline void PrefetchOwner(std::span<const Dwg_Object> objects, std::size_t position) {
  constexpr std::size_t kStep = 8;
  const auto entityAt = [objects](std::size_t i) {
    return i < objects.size() ? EntityOf(objects[i]) : nullptr;
  };
  if (const auto* entity = entityAt(position + 2 * kStep)) {
    Prefetch(&entity->ownerhandle);
  }
  if (const auto* entity = entityAt(position + kStep)) {
    Prefetch(entity->ownerhandle);
  }
}
