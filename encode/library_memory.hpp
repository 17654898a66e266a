// Memory that LibreDWG will free, or that it allocated: from its own allocator.
// Two variants stand behind this header, one for mimalloc and one for the C
// library's.
#pragma once

#include <cstddef>

// Zero-filled; null when there is none left.
void* LibraryAllocate(std::size_t bytes);

// The same with any content.
void* LibraryAllocateUnfilled(std::size_t bytes);

void LibraryFree(void* memory);
