#include "complete/viewport_ids.hpp"

#include <algorithm>
#include <vector>

namespace {

using Viewports = std::vector<const Dwg_Object*>;

std::int32_t StoredId(const Dwg_Object& object) {
  return KnownEntityData(object, &EntityTio::VIEWPORT).id;
}

Viewports ViewportsOf(std::span<const Dwg_Object* const> entities) {
  Viewports viewports;
  for (const Dwg_Object* entity : entities) {
    if (entity->fixedtype == DWG_TYPE_VIEWPORT &&
        EntityData(*entity, &EntityTio::VIEWPORT) != nullptr) {
      viewports.push_back(entity);
    }
  }
  return viewports;
}

void SortByPlace(Viewports& viewports, const DrawOrder& drawOrder) {
  const auto place = [&](const Dwg_Object* object) {
    const std::uint32_t* found = drawOrder.Find(*object);
    return found == nullptr ? 0 : *found;
  };
  std::stable_sort(viewports.begin(), viewports.end(),
                   [&](const Dwg_Object* a, const Dwg_Object* b) { return place(a) < place(b); });
}

// The first of the list that a layout has.
Handle ListedFirst(Handle sheet, const LookupTables& base) {
  const auto* const* layout = base.layoutsByBlock.Find(sheet);
  if (layout == nullptr || *layout == nullptr) {
    return 0;
  }
  const auto list = SpanOf((*layout)->viewports, (*layout)->num_viewports);
  return list.empty() ? 0 : HandleOf(list.front());
}

void MoveToFront(Viewports& viewports, Handle handle) {
  const auto found = std::find_if(
      viewports.begin(), viewports.end(),
      [&](const Dwg_Object* viewport) { return handle != 0 && viewport->handle.value == handle; });
  if (found != viewports.end()) {
    std::rotate(viewports.begin(), found, found + 1);
  }
}

void AddStored(ViewportIds& numbers, Handle sheet, const Viewports& viewports) {
  for (const Dwg_Object* viewport : viewports) {
    numbers.ids[viewport->handle.value] = StoredId(*viewport);
    if (StoredId(*viewport) == 1) {
      numbers.overall[sheet] = viewport;
    }
  }
}

void AddNumbered(ViewportIds& numbers, Handle sheet, const Viewports& viewports) {
  std::int32_t next = 1;
  for (const Dwg_Object* viewport : viewports) {
    numbers.ids[viewport->handle.value] = next++;
  }
  numbers.overall[sheet] = viewports.front();
}

}  // namespace

ViewportIds NumberViewports(const LookupTables& base, const DrawOrder& drawOrder) {
  ViewportIds numbers;
  for (const Handle sheet : base.paperSpaces) {
    Viewports viewports = sheet == 0 ? Viewports{} : ViewportsOf(base.entitiesByOwner.Of(sheet));
    if (viewports.empty()) {
      continue;
    }
    if (std::any_of(viewports.begin(), viewports.end(),
                    [](const Dwg_Object* viewport) { return StoredId(*viewport) > 0; })) {
      AddStored(numbers, sheet, viewports);
    } else {
      SortByPlace(viewports, drawOrder);
      MoveToFront(viewports, ListedFirst(sheet, base));
      AddNumbered(numbers, sheet, viewports);
    }
  }
  return numbers;
}
