#include "complete/draw_order.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>

#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"

namespace {

using Entities = std::span<const Dwg_Object* const>;
using References = std::span<const BITCODE_H>;

constexpr std::uint32_t kAsStored = std::numeric_limits<std::uint32_t>::max();

// Where the object stands; as many as there are when it is none of them.
std::size_t IndexOf(std::span<const Dwg_Object> objects, const Dwg_Object* object) {
  const bool isOneOfThem = !std::less<>{}(object, objects.data()) &&
                           std::less<>{}(object, objects.data() + objects.size());
  return isOneOfThem ? static_cast<std::size_t>(object - objects.data()) : objects.size();
}

// What is known of each object, 0 for nothing: an array, since hash tables cost more than
// all else here where a drawing has many entities.
class ObjectValues {
 public:
  explicit ObjectValues(const Dwg_Data& dwg) : objects_(Objects(dwg)) {}

  Handle Of(const Dwg_Object& object) const {
    return values_.empty() ? 0 : values_[IndexOf(objects_, &object)];
  }

  // The last value of an object counts.
  void Set(const Dwg_Object_Ref* reference, Handle value) {
    const std::size_t target = TargetOf(reference);
    if (target < objects_.size()) {
      values_.resize(objects_.size());
      values_[target] = value;
    }
  }

  void Forget(References references) {
    for (const Dwg_Object_Ref* reference : references) {
      Set(reference, 0);
    }
  }

 private:
  // The library notes at a reference what it leads to; a note from before the objects
  // moved leads elsewhere, and in some drawings there is none.
  std::size_t TargetOf(const Dwg_Object_Ref* reference) {
    const Handle handle = HandleOf(reference);
    if (handle == 0) {
      return objects_.size();
    }
    const std::size_t noted = IndexOf(objects_, reference->obj);
    return noted < objects_.size() && objects_[noted].handle.value == handle ? noted
                                                                             : Search(handle);
  }

  std::size_t Search(Handle handle) {
    if (!isIndexed_) {
      isIndexed_ = true;
      for (std::size_t i = 0; i < objects_.size(); ++i) {
        indexOf_[objects_[i].handle.value] = i;
      }
    }
    const std::size_t* found = indexOf_.Find(handle);
    return found == nullptr ? objects_.size() : *found;
  }

  std::span<const Dwg_Object> objects_;
  std::vector<Handle> values_;
  HandleMap<std::size_t> indexOf_;  // only once a note is missing
  bool isIndexed_ = false;
};

void NumberPlaces(DrawOrder& order, Entities stored, Entities drawn) {
  if (std::equal(stored.begin(), stored.end(), drawn.begin(), drawn.end())) {
    return;
  }
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    order.Set(*drawn[i], static_cast<std::uint32_t>(i));
  }
}

void AddSortTable(DrawOrder& order, ObjectValues& keyOf, const Dwg_Object_SORTENTSTABLE& table,
                  Entities entities) {
  const auto sorted = SpanOf(table.ents, table.num_ents);
  const auto keys = SpanOf(table.sort_ents, table.num_ents);
  if (sorted.empty() || keys.empty()) {
    return;
  }
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    if (const Handle key = HandleOf(keys[i])) {
      keyOf.Set(sorted[i], key);
    }
  }
  const auto key = [&](const Dwg_Object* entity) {
    const Handle own = keyOf.Of(*entity);
    return own == 0 ? entity->handle.value : own;
  };
  std::vector<const Dwg_Object*> drawn(entities.begin(), entities.end());
  std::stable_sort(drawn.begin(), drawn.end(),
                   [&](const Dwg_Object* a, const Dwg_Object* b) { return key(a) < key(b); });
  NumberPlaces(order, entities, drawn);
  keyOf.Forget(sorted);
}

// Whether the block lists its entities in their stored order.
bool IsInStoredOrder(References list, Entities entities) {
  std::size_t next = 0;
  for (const Dwg_Object_Ref* reference : list) {
    if (next < entities.size() && HandleOf(reference) == entities[next]->handle.value) {
      ++next;
    }
  }
  return next == entities.size();
}

// The entities as the list has them, behind them those that it leaves out. `placeOf` are
// the places in the list, from 1.
std::vector<const Dwg_Object*> AsListed(const ObjectValues& placeOf, std::size_t listed,
                                        Entities entities) {
  std::vector<const Dwg_Object*> drawn(listed + 1);
  for (const Dwg_Object* entity : entities) {
    drawn[placeOf.Of(*entity)] = entity;
  }
  drawn.front() = nullptr;
  std::erase(drawn, nullptr);
  std::copy_if(entities.begin(), entities.end(), std::back_inserter(drawn),
               [&](const Dwg_Object* entity) { return placeOf.Of(*entity) == 0; });
  return drawn;
}

void AddBlockList(DrawOrder& order, ObjectValues& placeOf, const Dwg_Object_BLOCK_HEADER& block,
                  Entities entities) {
  const auto list = SpanOf(block.entities, block.num_owned);
  if (list.empty() || IsInStoredOrder(list, entities)) {
    return;
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    placeOf.Set(list[i], i + 1);
  }
  NumberPlaces(order, entities, AsListed(placeOf, list.size(), entities));
  placeOf.Forget(list);
}

using SortTables = HandleMap<const Dwg_Object_SORTENTSTABLE*>;

SortTables SortTablesOf(std::span<const Dwg_Object* const> objects) {
  SortTables tables;
  for (const Dwg_Object* object : objects) {
    const auto* table = object->fixedtype == DWG_TYPE_SORTENTSTABLE
                            ? ObjectData(*object, &ObjectTio::SORTENTSTABLE)
                            : nullptr;
    const Handle block = table == nullptr ? 0 : HandleOf(table->block_owner);
    if (block != 0) {
      tables[block] = table;
    }
  }
  return tables;
}

}  // namespace

const std::uint32_t* DrawOrder::Find(const Dwg_Object& object) const {
  const std::size_t index = places_.empty() ? 0 : IndexOf(objects_, &object);
  return index >= places_.size() || places_[index] == kAsStored ? nullptr : &places_[index];
}

void DrawOrder::Set(const Dwg_Object& object, std::uint32_t place) {
  places_.resize(objects_.size(), kAsStored);
  places_[IndexOf(objects_, &object)] = place;
}

DrawOrder BuildDrawOrder(const Dwg_Data& dwg, std::span<const Dwg_Object* const> others,
                         const EntitiesByOwner& entities, bool isDxf) {
  DrawOrder order(Objects(dwg));
  ObjectValues values(dwg);
  const SortTables tables = SortTablesOf(others);
  HandleSet done;
  for (const Dwg_Object* object : others) {
    const Handle handle = object->handle.value;
    const auto* block = object->fixedtype == DWG_TYPE_BLOCK_HEADER
                            ? ObjectData(*object, &ObjectTio::BLOCK_HEADER)
                            : nullptr;
    if (block == nullptr || handle == 0 || !done.insert(handle).second) {
      continue;
    }
    if (const auto* const* table = tables.Find(handle)) {
      AddSortTable(order, values, **table, entities.Of(handle));
    } else if (!isDxf) {
      AddBlockList(order, values, *block, entities.Of(handle));
    }
  }
  return order;
}
