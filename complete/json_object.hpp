// A JSON object that is being written from names and values, of which some turn out
// to be nothing.
#pragma once

#include <cstddef>
#include <string_view>

#include "encode/json_list.hpp"

class JsonObject {
 public:
  // `opening` ends in its brace, as in `,"header":{`.
  explicit JsonObject(JsonOut& out, std::string_view opening = "{") : items_(out, opening) {}

  JsonOut& out() { return items_.out(); }

  // `name` needs no escapes. `write` appends the value, or nothing: then there is no
  // such key.
  template <typename Write>
  void Item(std::string_view name, Write write) {
    items_.Item([&] {
      const std::size_t start = out().size();
      out() += '"';
      out() += name;
      out() += "\":";
      const std::size_t value = out().size();
      write();
      if (out().size() == value) {
        out().Truncate(start);
      }
    });
  }

  void Close() { out() += '}'; }

 private:
  JsonList items_;  // which knows about commas
};
