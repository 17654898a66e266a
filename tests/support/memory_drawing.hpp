// A drawing built in memory, object by object, in LibreDWG's own structs: for unit
// tests, growth tests and fuzzing, which need no file, and can build what no reader
// lets through.
//
// The structs live as long as the MemoryDrawing; their pointers are what
// LibreDWG's own would be. Nothing is ever handed to dwg_free.
#pragma once

#include <dwg.h>

extern "C" {
#include <hash.h>
}

#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"

class MemoryDrawing {
 public:
  // `room` is the largest number of objects, which never move.
  explicit MemoryDrawing(std::size_t room) : room_(room), handles_(hash_new(room)) {
    objects_.reserve(room);
    data_.object_map = handles_;
  }
  ~MemoryDrawing() { hash_free(handles_); }
  MemoryDrawing(const MemoryDrawing&) = delete;
  MemoryDrawing& operator=(const MemoryDrawing&) = delete;

  Dwg_Data& data() { return data_; }
  std::vector<Dwg_Object>& objects() { return objects_; }

  // The object added last, and the entity part of it.
  Dwg_Object& last() { return objects_.back(); }
  Dwg_Object_Entity& lastEntity() { return *objects_.back().tio.entity; }

  // A zeroed struct.
  template <typename T>
  T& New() {
    auto holder = std::make_shared<T>();
    owned_.push_back(holder);
    return *holder;
  }

  template <typename T>
  T* Array(std::vector<T> values) {
    auto& holder = New<std::vector<T>>();
    holder = std::move(values);
    return holder.data();
  }

  // A text, typed as LibreDWG types it.
  char* Text(const std::string& text) {
    auto& stored = New<std::string>();
    stored = text;
    return stored.data();
  }

  // A reference to a handle.
  Dwg_Object_Ref* Ref(Handle handle) {
    auto& reference = New<Dwg_Object_Ref>();
    reference.absolute_ref = handle;
    return &reference;
  }

  // An object without any part, which its handle finds when it is not 0.
  Dwg_Object& Add(DWG_OBJECT_TYPE type, Handle handle) {
    if (objects_.size() == room_) {
      throw std::length_error("the drawing has no room for another object");
    }
    Dwg_Object object{};
    object.type = static_cast<BITCODE_BS>(type);
    object.fixedtype = type;
    object.index = static_cast<BITCODE_RL>(objects_.size());
    object.handle.value = handle;
    object.parent = &data_;
    objects_.push_back(object);
    data_.object = objects_.data();
    data_.num_objects = static_cast<BITCODE_BL>(objects_.size());
    EnterHandle(objects_.size() - 1);
    return objects_.back();
  }

  // For an object whose handle was set later.
  void EnterHandle(std::size_t index) {
    if (objects_[index].handle.value != 0) {
      hash_set(handles_, objects_[index].handle.value, index);
    }
  }

  // With their common part, and without the type's own data. `owner` 0 leaves an
  // entity without an owner reference.
  Dwg_Object& AddBareEntity(DWG_OBJECT_TYPE type, Handle handle = 0, Handle owner = 0) {
    Dwg_Object& object = Add(type, handle);
    object.supertype = DWG_SUPERTYPE_ENTITY;
    object.tio.entity = &New<Dwg_Object_Entity>();
    object.tio.entity->ownerhandle = owner == 0 ? nullptr : Ref(owner);
    return object;
  }
  Dwg_Object& AddBareObject(DWG_OBJECT_TYPE type, Handle handle = 0) {
    Dwg_Object& object = Add(type, handle);
    object.supertype = DWG_SUPERTYPE_OBJECT;
    object.tio.object = &New<Dwg_Object_Object>();
    return object;
  }

  // Adds an entity with zeroed data of its type and returns the data.
  template <typename T>
  T& AddEntity(DWG_OBJECT_TYPE type, T* EntityTio::*member, Handle handle = 0, Handle owner = 0) {
    T& data = New<T>();
    AddBareEntity(type, handle, owner).tio.entity->tio.*member = &data;
    return data;
  }

  // Adds a table record or other object that is not drawn.
  template <typename T>
  T& AddObject(DWG_OBJECT_TYPE type, T* ObjectTio::*member, Handle handle = 0) {
    T& data = New<T>();
    AddBareObject(type, handle).tio.object->tio.*member = &data;
    return data;
  }

 private:
  std::size_t room_;
  dwg_inthash* handles_;
  Dwg_Data data_{};
  std::vector<Dwg_Object> objects_;
  std::deque<std::shared_ptr<void>> owned_;
};
