#include "reading/reading_memory.hpp"

// For the C library's allocator, which has its own way, and for Windows, where
// large pages need a privilege that users do not have.
void ReserveReadingMemory() {}
