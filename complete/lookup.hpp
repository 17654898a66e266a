// Objects of the drawing by handle.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "entities/drawing_access.hpp"

// The object that the handle stands for; null for 0 and for a dangling one.
inline const Dwg_Object* ObjectAt(Handle handle, const CompleteContext& context) {
  return handle == 0 || context.dwg().object_map == nullptr
             ? nullptr
             : dwg_resolve_handle_silent(&context.dwg(), handle);
}

// The data of the table record or other object of that type that is referred to;
// null when it is none.
template <typename T>
const T* ReferencedObject(const Dwg_Object_Ref* reference, DWG_OBJECT_TYPE type,
                          T* ObjectTio::*member, const CompleteContext& context) {
  const Dwg_Object* object = ObjectAt(HandleOf(reference), context);
  return object == nullptr || object->fixedtype != type ? nullptr : ObjectData(*object, member);
}

// The name of the block that is referred to; null when it is unknown.
inline const std::string* BlockName(const Dwg_Object_Ref* reference,
                                    const CompleteContext& context) {
  return context.base.tables.blockNames.Find(HandleOf(reference));
}
