#include "worker/reading_memory.hpp"

// Large pages need a privilege here that users do not have.
void ReserveReadingMemory() {}
