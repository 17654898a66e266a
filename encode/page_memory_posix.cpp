#include <sys/mman.h>

#include <new>

#include "encode/page_memory.hpp"

char* AllocateLargePage() {
  void* page = ::operator new (kLargePage, std::align_val_t{kLargePage});
#ifdef MADV_HUGEPAGE
  madvise(page, kLargePage, MADV_HUGEPAGE);  // a hint: failure changes nothing
#endif
  return static_cast<char*>(page);
}

void FreeLargePage(char* page) noexcept {
  ::operator delete (page, std::align_val_t{kLargePage});
}
