// How a dispatcher has a writer append a record.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <string_view>

#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"
#include "entities/layer_table.hpp"
#include "entities/record.hpp"

// What a record is written from; `Context` is what the writers look things up in.
template <typename Context>
struct RecordSource {
  JsonOut& out;
  const Dwg_Object& object;
  const LayerEntry& layer;
  const Context& context;
};

// Calls the writer with the type's data and whichever of context and origin it takes.
template <typename T, typename Context, typename Writer>
void CallWriter(const RecordSource<Context>& source, const T& data, Writer writer) {
  if constexpr (requires { writer(source.out, data); }) {
    writer(source.out, data);
  } else if constexpr (requires { writer(source.out, data, source.context); }) {
    writer(source.out, data, source.context);
  } else {
    writer(source.out, data, source.context, EntityOrigin{source.object, source.layer.name});
  }
}

// Begins a record of that type and has the writer append its keys. Nothing is
// written when the type's data is missing or the writer appends nothing.
template <typename T, typename Context, typename Writer>
void WriteRecord(const RecordSource<Context>& source, std::string_view type, T* EntityTio::*member,
                 Writer writer) {
  const T* data = EntityData(source.object, member);
  if (data == nullptr) {
    return;
  }
  JsonOut& out = source.out;
  const std::size_t start = out.size();
  BeginRecord(out, type, source.layer.quoted);
  const std::size_t keys = out.size();
  CallWriter(source, *data, writer);
  if (out.size() == keys) {
    out.Truncate(start);
  }
}
