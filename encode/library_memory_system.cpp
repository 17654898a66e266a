#include <cstdlib>

#include "encode/library_memory.hpp"

void* LibraryAllocate(std::size_t bytes) {
  return std::calloc(bytes, 1);
}

void* LibraryAllocateUnfilled(std::size_t bytes) {
  return std::malloc(bytes);
}

void LibraryFree(void* memory) {
  std::free(memory);
}
