#pragma once

#include <cstddef>

#ifdef DWG_MIMALLOC
#include <mimalloc.h>
#else
#include <cstdlib>
#endif

// Memory that LibreDWG will free, or that it allocated: from its own allocator.

// Zero-filled; null when there is none left.
inline void* LibraryAllocate(std::size_t bytes) {
#ifdef DWG_MIMALLOC
  return mi_calloc(bytes, 1);
#else
  return std::calloc(bytes, 1);
#endif
}

// The same with any content.
inline void* LibraryAllocateUnfilled(std::size_t bytes) {
#ifdef DWG_MIMALLOC
  return mi_malloc(bytes);
#else
  return std::malloc(bytes);
#endif
}

inline void LibraryFree(void* memory) {
#ifdef DWG_MIMALLOC
  mi_free(memory);
#else
  std::free(memory);
#endif
}
