// A drawing built in memory, object by object, for tests that need no file.
//
// The structs live as long as the TestDrawing; their pointers are what
// LibreDWG's own would be. Nothing is ever handed to dwg_free.
#pragma once

#include <dwg.h>

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"
#include "entities/lookup_tables.hpp"

class TestDrawing {
 public:
  static constexpr std::size_t kCapacity = 4096;

  TestDrawing();
  ~TestDrawing();
  TestDrawing(const TestDrawing&) = delete;
  TestDrawing& operator=(const TestDrawing&) = delete;

  // Adds an entity with zeroed data of its type and returns the data. `owner`
  // 0 leaves it without an owner reference.
  template <typename T>
  T& AddEntity(DWG_OBJECT_TYPE type, T* EntityTio::*member, Handle handle = 0, Handle owner = 0) {
    T& data = Allocate<T>();
    AddBareEntity(type, handle, owner).tio.entity->tio.*member = &data;
    return data;
  }

  // Adds a table record or other object that is not drawn.
  template <typename T>
  T& AddObject(DWG_OBJECT_TYPE type, T* ObjectTio::*member, Handle handle = 0) {
    T& data = Allocate<T>();
    AddBareObject(type, handle).tio.object->tio.*member = &data;
    return data;
  }

  // Without the type's own data.
  Dwg_Object& AddBareEntity(DWG_OBJECT_TYPE type, Handle handle = 0, Handle owner = 0);
  Dwg_Object& AddBareObject(DWG_OBJECT_TYPE type, Handle handle = 0);

  // The object added last, and the entity part of it.
  Dwg_Object& last() { return objects_.back(); }
  Dwg_Object_Entity& lastEntity() { return *objects_.back().tio.entity; }

  // A reference to a handle.
  Dwg_Object_Ref* Ref(Handle handle);

  // A text that lives as long as the drawing, typed as LibreDWG types it.
  char* Text(const std::string& text);
  char* Utf16(const std::u16string& text);

  // An array that lives as long as the drawing.
  template <typename T>
  T* Array(const std::vector<T>& values) {
    auto holder = std::make_shared<std::vector<T>>(values);
    owned_.push_back(holder);
    return holder->data();
  }

  // A layer with a name, ready to be referred to.
  Handle AddLayer(Handle handle, const std::string& name);

  Dwg_Data& data() { return data_; }

  // The context with `tables`, `warnings` and `counts` below. `unicodeText`
  // is what the strings are at the time of the call.
  EntityContext Context();

  LookupTables tables;
  std::vector<std::string> warnings;
  std::map<std::string, std::size_t> counts;
  bool unicodeText = false;

  // Fills `tables` by the real pre-pass.
  void Prepass();

 private:
  template <typename T>
  T& Allocate() {
    auto holder = std::make_shared<T>();
    owned_.push_back(holder);
    return *holder;
  }
  Dwg_Object& Add(DWG_OBJECT_TYPE type, Handle handle);

  Dwg_Data data_{};
  std::vector<Dwg_Object> objects_;
  std::vector<std::shared_ptr<void>> owned_;
};
