#include "tests/support/test_drawing.hpp"

extern "C" {
#include <hash.h>
}

#include <stdexcept>

#include "document/prepass.hpp"

TestDrawing::TestDrawing() {
  objects_.reserve(kCapacity);
  data_.object_map = hash_new(kCapacity);
}

TestDrawing::~TestDrawing() {
  hash_free(data_.object_map);
}

Dwg_Object& TestDrawing::Add(DWG_OBJECT_TYPE type, Handle handle) {
  if (objects_.size() == kCapacity) {
    throw std::length_error("a test drawing has room for 4096 objects");
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
  if (handle != 0) {
    hash_set(data_.object_map, handle, objects_.size() - 1);
  }
  return objects_.back();
}

Dwg_Object& TestDrawing::AddBareEntity(DWG_OBJECT_TYPE type, Handle handle, Handle owner) {
  Dwg_Object& object = Add(type, handle);
  object.supertype = DWG_SUPERTYPE_ENTITY;
  object.tio.entity = &Allocate<Dwg_Object_Entity>();
  if (owner != 0) {
    object.tio.entity->ownerhandle = Ref(owner);
  }
  return object;
}

Dwg_Object& TestDrawing::AddBareObject(DWG_OBJECT_TYPE type, Handle handle) {
  Dwg_Object& object = Add(type, handle);
  object.supertype = DWG_SUPERTYPE_OBJECT;
  object.tio.object = &Allocate<Dwg_Object_Object>();
  return object;
}

Dwg_Object_Ref* TestDrawing::Ref(Handle handle) {
  auto& reference = Allocate<Dwg_Object_Ref>();
  reference.absolute_ref = handle;
  return &reference;
}

char* TestDrawing::Text(const std::string& text) {
  std::vector<char> bytes(text.begin(), text.end());
  bytes.push_back('\0');
  return Array(bytes);
}

char* TestDrawing::Utf16(const std::u16string& text) {
  std::vector<char16_t> units(text.begin(), text.end());
  units.push_back(0);
  return reinterpret_cast<char*>(Array(units));
}

Handle TestDrawing::AddLayer(Handle handle, const std::string& name) {
  AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, handle).name = Text(name);
  return handle;
}

EntityContext TestDrawing::Context() {
  return EntityContext{data_, tables, unicodeText, warnings, counts};
}

void TestDrawing::Prepass() {
  tables = BuildLookupTables(data_, unicodeText, {});
}
