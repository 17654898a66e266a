// Typed, null-safe access to LibreDWG's objects.
//
// LibreDWG delivers null pointers together with counts, and references that
// point nowhere. Everything else in the conversion reaches the library's data
// through these functions, so that no other place tests for it.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <cstdint>
#include <span>

using Handle = std::uint64_t;

// The handle value a reference stands for; 0 when there is no reference.
inline Handle HandleOf(const Dwg_Object_Ref* reference) {
  return reference == nullptr ? 0 : reference->absolute_ref;
}

inline bool IsEntity(const Dwg_Object& object) {
  return object.supertype == DWG_SUPERTYPE_ENTITY;
}

// The data that entities of all types share; null when the object is no entity
// or has none.
inline Dwg_Object_Entity* EntityOf(const Dwg_Object& object) {
  return IsEntity(object) ? object.tio.entity : nullptr;
}

// Whether the object is a block reference, single or arrayed.
inline bool IsInsert(const Dwg_Object& object) {
  return object.fixedtype == DWG_TYPE_INSERT || object.fixedtype == DWG_TYPE_MINSERT;
}

// Whether the object is written with the polyline that it is a part of.
inline bool IsPolylinePart(const Dwg_Object& object) {
  switch (object.fixedtype) {
    case DWG_TYPE_SEQEND:
    case DWG_TYPE_VERTEX_2D:
    case DWG_TYPE_VERTEX_3D:
    case DWG_TYPE_VERTEX_MESH: return true;
    default: return false;
  }
}

// The type's own data of an entity, as in EntityData(object, &Tio::LINE); null
// when the object is no entity or has none.
using EntityTio = decltype(Dwg_Object_Entity::tio);
template <typename T>
T* EntityData(const Dwg_Object& object, T* EntityTio::*member) {
  const Dwg_Object_Entity* entity = EntityOf(object);
  return entity == nullptr ? nullptr : entity->tio.*member;
}

// The same of an entity that is known to have data, found by EntityData before.
template <typename T>
const T& KnownEntityData(const Dwg_Object& object, T* EntityTio::*member) {
  return *(object.tio.entity->tio.*member);
}

// As EntityData for table records and other objects that are not drawn.
using ObjectTio = decltype(Dwg_Object_Object::tio);
template <typename T>
T* ObjectData(const Dwg_Object& object, T* ObjectTio::*member) {
  if (object.supertype != DWG_SUPERTYPE_OBJECT || object.tio.object == nullptr) {
    return nullptr;
  }
  return object.tio.object->tio.*member;
}

// The data of a table record by its raw type. That decides which records are
// written, but only the fixed type tells what the data is.
template <typename T>
const T* TableRecord(const Dwg_Object& object, DWG_OBJECT_TYPE type, T* ObjectTio::*member) {
  return object.type == type && object.fixedtype == type ? ObjectData(object, member) : nullptr;
}

// An array with its count; empty when the pointer is null.
template <typename T>
std::span<const T> SpanOf(const T* data, std::size_t count) {
  return data == nullptr ? std::span<const T>{} : std::span<const T>{data, count};
}

// The drawing's objects in stored order; the second for the one step that
// changes them.
inline std::span<const Dwg_Object> Objects(const Dwg_Data& dwg) {
  return SpanOf<Dwg_Object>(dwg.object, dwg.num_objects);
}
inline std::span<Dwg_Object> MutableObjects(Dwg_Data& dwg) {
  return dwg.object == nullptr ? std::span<Dwg_Object>{}
                               : std::span<Dwg_Object>{dwg.object, dwg.num_objects};
}
