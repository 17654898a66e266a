// Texts for LibreDWG's objects, which the library frees.
#pragma once

#include <cstring>
#include <string_view>

#include "encode/library_memory.hpp"

// A copy of an 8-bit or 16-bit text with the zero that ends either; null when
// there is no memory.
inline char* LibraryCopy(std::string_view stored) {
  constexpr std::size_t kLongestEnd = 2;
  auto* copy = static_cast<char*>(LibraryAllocate(stored.size() + kLongestEnd));
  if (copy != nullptr) {
    std::memcpy(copy, stored.data(), stored.size());
  }
  return copy;
}
