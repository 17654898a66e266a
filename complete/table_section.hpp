// A section that lists the records of a table.
#pragma once

#include <dwg.h>

#include <string_view>
#include <vector>

#include "complete/complete_context.hpp"
#include "encode/json_list.hpp"
#include "entities/drawing_access.hpp"

// Has `write` append each object with data of that type; `opening` ends in its bracket.
template <typename T, typename Write>
void AppendTableSection(JsonOut& out, std::string_view opening,
                        const std::vector<const Dwg_Object*>& objects, T* ObjectTio::*member,
                        Write write, const CompleteContext& context) {
  JsonList list(out, opening);
  for (const Dwg_Object* object : objects) {
    if (const T* data = ObjectData(*object, member)) {
      list.Item([&] { write(out, *object, *data, context); });
    }
  }
  list.Close();
}
