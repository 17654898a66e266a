// A small drawing in memory, and the records that the complete form makes of its
// entities, by the real tables.
#pragma once

#include <string>

#include "complete/complete_context.hpp"
#include "complete/convert_entity.hpp"
#include "document/prepass.hpp"
#include "encode/json_list.hpp"
#include "entities/writer_memory.hpp"
#include "tests/support/memory_drawing.hpp"

class CompleteDrawing : public MemoryDrawing {
 public:
  static constexpr std::size_t kCapacity = 256;

  CompleteDrawing() : MemoryDrawing(kCapacity) {
    data().header.version = R_2018;
    data().header.from_version = R_2018;
  }

  // The complete record of an object; "" when nothing is written.
  std::string Record(const Dwg_Object& object) {
    const Drawing drawing{.data = data()};
    LookupTables base = BuildLookupTables(drawing);
    const CompleteTables tables = BuildCompleteTables(drawing, base);
    WriterMemory memory;
    const EntityContext context{.drawing = drawing,
                                .tables = base,
                                .verbose = false,
                                .findings = findings,
                                .memory = memory};
    JsonOut out;
    JsonList list(out);
    AppendCompleteEntity(list, object, CompleteContext{.base = context, .tables = tables});
    return out.Text().substr(1);
  }
  std::string RecordOfLast() { return Record(last()); }

  // The record of an entity with that data, which is added.
  template <typename T>
  std::string RecordOf(DWG_OBJECT_TYPE type, T* EntityTio::*member, const T& entity,
                       Handle handle = 0, Handle owner = 0) {
    AddEntity(type, member, handle, owner) = entity;
    return RecordOfLast();
  }

  // A block with a name.
  Dwg_Object_BLOCK_HEADER& AddBlock(Handle handle, const std::string& name) {
    auto& block = AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle);
    block.name = Text(name);
    return block;
  }

  // Gives the object added last an owner.
  void OwnLast(Handle owner) { last().tio.object->ownerhandle = Ref(owner); }

  Findings findings;
};
