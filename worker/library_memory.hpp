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

inline void LibraryFree(void* memory) {
#ifdef DWG_MIMALLOC
  mi_free(memory);
#else
  std::free(memory);
#endif
}

// Gives back to the system what the library has freed: the file, for one thing,
// which must not add to the output's memory.
inline void ReturnFreeLibraryMemory() {
#ifdef DWG_MIMALLOC
  mi_collect(true);
#endif
}
