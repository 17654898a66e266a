// Arguments of text codes that are lists of fields.
#pragma once

#include <cstddef>
#include <string_view>

// Calls `handle` with every field, an empty text being one empty field.
template <typename Handle>
void ForEachField(std::string_view text, char separator, Handle handle) {
  std::size_t start = 0;
  while (true) {
    // Fields are a few bytes long, for which a search by call does not pay.
    std::size_t end = start;
    while (end < text.size() && text[end] != separator) {
      ++end;
    }
    handle(text.substr(start, end - start));
    if (end == text.size()) {
      return;
    }
    start = end + 1;
  }
}
