#include "complete/draw_order.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"

namespace {

using Entities = std::span<const Dwg_Object* const>;

// What an entity is sorted by, and the entity.
using Place = std::pair<Handle, const Dwg_Object*>;

// Numbers the places when sorting changes their order.
void AddOrder(HandleMap<std::uint32_t>& order, std::vector<Place> places) {
  const auto isBefore = [](const Place& a, const Place& b) { return a.first < b.first; };
  if (std::is_sorted(places.begin(), places.end(), isBefore)) {
    return;
  }
  std::stable_sort(places.begin(), places.end(), isBefore);
  for (std::size_t i = 0; i < places.size(); ++i) {
    order[places[i].second->handle.value] = static_cast<std::uint32_t>(i);
  }
}

void AddSortTable(HandleMap<std::uint32_t>& order, const Dwg_Object_SORTENTSTABLE& table,
                  Entities entities) {
  const auto sorted = SpanOf(table.ents, table.num_ents);
  const auto keys = SpanOf(table.sort_ents, table.num_ents);
  if (sorted.empty() || keys.empty()) {
    return;
  }
  HandleMap<Handle> keyOf;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    if (const Handle key = HandleOf(keys[i])) {
      keyOf[HandleOf(sorted[i])] = key;
    }
  }
  std::vector<Place> places;
  places.reserve(entities.size());
  for (const Dwg_Object* entity : entities) {
    const Handle handle = entity->handle.value;
    const Handle* key = keyOf.Find(handle);
    places.emplace_back(key == nullptr ? handle : *key, entity);
  }
  AddOrder(order, std::move(places));
}

// Whether the block lists its entities in their stored order.
bool IsInStoredOrder(std::span<const BITCODE_H> list, Entities entities) {
  std::size_t next = 0;
  for (const Dwg_Object_Ref* reference : list) {
    if (next < entities.size() && HandleOf(reference) == entities[next]->handle.value) {
      ++next;
    }
  }
  return next == entities.size();
}

void AddBlockList(HandleMap<std::uint32_t>& order, const Dwg_Object_BLOCK_HEADER& block,
                  Entities entities) {
  const auto list = SpanOf(block.entities, block.num_owned);
  if (list.empty() || IsInStoredOrder(list, entities)) {
    return;
  }
  HandleMap<Handle> placeOf;
  for (std::size_t i = 0; i < list.size(); ++i) {
    placeOf[HandleOf(list[i])] = i;
  }
  std::vector<Place> places;
  places.reserve(entities.size());
  for (const Dwg_Object* entity : entities) {
    const Handle* place = placeOf.Find(entity->handle.value);
    places.emplace_back(place == nullptr ? list.size() : *place, entity);
  }
  AddOrder(order, std::move(places));
}

}  // namespace

HandleMap<std::uint32_t> BuildDrawOrder(std::span<const Dwg_Object* const> objects,
                                        const EntitiesByOwner& entities, bool isDxf) {
  HandleMap<std::uint32_t> order;
  HandleMap<const Dwg_Object_SORTENTSTABLE*> tables;
  for (const Dwg_Object* const each : objects) {
    const Dwg_Object& object = *each;
    if (object.fixedtype != DWG_TYPE_SORTENTSTABLE) {
      continue;
    }
    const auto* table = ObjectData(object, &ObjectTio::SORTENTSTABLE);
    const Handle block = table == nullptr ? 0 : HandleOf(table->block_owner);
    if (block != 0) {
      tables[block] = table;
    }
  }
  HandleSet done;
  for (const Dwg_Object* const each : objects) {
    const Dwg_Object& object = *each;
    const Handle handle = object.handle.value;
    const auto* block = object.fixedtype == DWG_TYPE_BLOCK_HEADER
                            ? ObjectData(object, &ObjectTio::BLOCK_HEADER)
                            : nullptr;
    if (block == nullptr || handle == 0 || !done.insert(handle).second) {
      continue;
    }
    if (const auto* const* table = tables.Find(handle)) {
      AddSortTable(order, **table, entities.Of(handle));
    } else if (!isDxf) {
      AddBlockList(order, *block, entities.Of(handle));
    }
  }
  return order;
}
