#include <mimalloc.h>

#include "encode/library_memory.hpp"

void* LibraryAllocate(std::size_t bytes) {
  return mi_calloc(bytes, 1);
}

void* LibraryAllocateUnfilled(std::size_t bytes) {
  return mi_malloc(bytes);
}

void LibraryFree(void* memory) {
  mi_free(memory);
}
