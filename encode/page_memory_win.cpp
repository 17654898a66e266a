#include <new>

#include "encode/page_memory.hpp"

char* AllocateLargePage() {
  return static_cast<char*>(::operator new(kLargePage));
}

void FreeLargePage(char* page) noexcept {
  ::operator delete(page);
}
