// A drawing in memory whose entities become complete records.
#pragma once

#include <string>
#include <utility>

#include "complete/complete_context.hpp"
#include "complete/complete_tables.hpp"
#include "complete/convert_entity.hpp"
#include "encode/json_list.hpp"
#include "tests/support/test_drawing.hpp"

class DrawnTypes : public TestDrawing {
 public:
  // The complete record of an entity with that data, which is added to the drawing
  // under the handle 0x77.
  template <typename T>
  std::string CompleteRecord(DWG_OBJECT_TYPE type, T* EntityTio::*member, const T& entity) {
    AddEntity(type, member, kEntity) = entity;
    return RecordOf(last());
  }

  // What stands in such a record between the layer and the colour, without the first
  // comma.
  template <typename T>
  std::string OwnKeys(DWG_OBJECT_TYPE type, T* EntityTio::*member, const T& entity) {
    return Between(CompleteRecord(type, member, entity), "\"layer\":\"0\",", ",\"color\":\"K\"");
  }

  // What stands behind the keys of all records.
  template <typename T>
  std::string FurtherKeys(DWG_OBJECT_TYPE type, T* EntityTio::*member, const T& entity) {
    return Between(CompleteRecord(type, member, entity), "\"linetypeScale\":0,", "}");
  }

  std::string RecordOf(const Dwg_Object& object) {
    Prepass();
    Drawing drawn = drawing();
    const CompleteTables complete = BuildCompleteTables(drawn, tables);
    const EntityContext base = Context();
    JsonOut out;
    JsonList list(out, "");
    AppendCompleteEntity(list, object, CompleteContext{.base = base, .tables = complete});
    return out.Text();
  }

 private:
  static constexpr Handle kEntity = 0x77;

  // Between the first place of one and the last place of the other; the whole text
  // when one of them is missing, which no test expects.
  static std::string Between(const std::string& text, const std::string& start,
                             const std::string& end) {
    const std::size_t from = text.find(start);
    const std::size_t to = text.rfind(end);
    return from == std::string::npos || to == std::string::npos || to < from + start.size()
               ? text
               : text.substr(from + start.size(), to - from - start.size());
  }
};
