// A JSON list that is being written: the one place that knows about commas, and
// about items that turn out to be nothing.
#pragma once

#include <cstddef>
#include <string_view>

#include "encode/json_out.hpp"

class JsonList {
 public:
  // Begins the list: `opening` ends in its bracket, as in `,"points":[`.
  explicit JsonList(JsonOut& out, std::string_view opening = "[") : out_(out) { out_ += opening; }

  JsonOut& out() { return out_; }
  bool IsEmpty() const { return isEmpty_; }

  void Number(double value);

  // Two numbers of a flat list: x0,y0,x1,y1 and so on.
  void Pair(double x, double y);

  // `[x,y]` and `[x,y,z]`.
  void Point(double x, double y);
  void Point(double x, double y, double z);

  void Quoted(std::string_view text);

  // Calls `write`, which appends one item to the text. When it appends nothing,
  // or takes back what it did, the list is as it was before.
  template <typename Write>
  void Item(Write write) {
    const std::size_t end = out_.size();
    if (!isEmpty_) {
      out_ += ',';
    }
    const std::size_t start = out_.size();
    write();
    if (out_.size() == start) {
      out_.Truncate(end);
    } else {
      isEmpty_ = false;
    }
  }

  void Close() { out_ += ']'; }

 private:
  JsonOut& out_;
  bool isEmpty_ = true;
};
