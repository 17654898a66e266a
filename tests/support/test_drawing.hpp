// A small drawing built in memory, with what tests of single writers need: the tables
// and the context that the document would give them.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "entities/drawing.hpp"
#include "entities/entity_context.hpp"
#include "entities/lookup_tables.hpp"
#include "entities/writer_memory.hpp"
#include "tests/support/memory_drawing.hpp"

class TestDrawing : public MemoryDrawing {
 public:
  static constexpr std::size_t kCapacity = 4096;

  TestDrawing() : MemoryDrawing(kCapacity) {}

  char* Utf16(const std::u16string& text);

  // A layer with a name, ready to be referred to.
  Handle AddLayer(Handle handle, const std::string& name);

  // The drawing as reading would give it, `textForm` being that of the strings.
  Drawing drawing() { return {.data = data(), .textForm = textForm, .folder = {}}; }

  // The context with `tables` and `findings` below.
  EntityContext Context(bool verbose = false);

  // The bare record of an entity with that data, which is added to the drawing,
  // on a layer of that name; "" when nothing is written.
  template <typename T>
  std::string RecordOf(DWG_OBJECT_TYPE type, T* EntityTio::*member, const T& data,
                       const std::string& layer = "0") {
    AddEntity(type, member) = data;
    return RecordOfLast(layer);
  }

  LookupTables tables;
  Findings findings;
  std::vector<std::string>& warnings = findings.warnings;
  std::map<std::string, std::size_t>& counts = findings.skippedTypes;
  TextForm textForm = TextForm::kWindows1252;

  // Fills `tables` by the real pre-pass.
  void Prepass();

 private:
  std::string RecordOfLast(const std::string& layer);

  // Of all contexts.
  std::deque<Drawing> drawings_;
  std::deque<WriterMemory> memories_;
};
