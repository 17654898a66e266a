// Arguments of text codes that are lists of fields.
#pragma once

#include <cstddef>
#include <string_view>

// Calls `handle` with every field, an empty text being one empty field.
template <typename Handle>
void ForEachField(std::string_view text, char separator, Handle handle) {
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find(separator, start);
    if (end == std::string_view::npos) {
      handle(text.substr(start));
      return;
    }
    handle(text.substr(start, end - start));
    start = end + 1;
  }
}
