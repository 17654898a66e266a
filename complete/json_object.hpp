// A JSON object that is being written from names and values, of which some turn out
// to be nothing.
#pragma once

#include <cstddef>
#include <string_view>

#include "encode/json_out.hpp"

class JsonObject {
 public:
  // `opening` ends in its brace, as in `,"header":{`.
  explicit JsonObject(JsonOut& out, std::string_view opening = "{") : out_(out) { out_ += opening; }

  JsonOut& out() { return out_; }

  // `name` needs no escapes. `write` appends the value, or nothing: then there is no
  // such key.
  template <typename Write>
  void Item(std::string_view name, Write write) {
    const std::size_t end = out_.size();
    out_ += isEmpty_ ? "\"" : ",\"";
    out_ += name;
    out_ += "\":";
    const std::size_t start = out_.size();
    write();
    if (out_.size() == start) {
      out_.Truncate(end);
    } else {
      isEmpty_ = false;
    }
  }

  void Close() { out_ += '}'; }

 private:
  JsonOut& out_;
  bool isEmpty_ = true;
};
