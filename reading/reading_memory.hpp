// The memory that LibreDWG's allocator begins with: one variant for mimalloc on
// platforms other than Windows, one that leaves it to the allocator.
#pragma once

// Lays it out once for the process, before the first drawing is read. Without
// it, and when the system refuses, the allocator gets its memory by itself.
void ReserveReadingMemory();
