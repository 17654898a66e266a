#include <mimalloc.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdint>

#include "reading/reading_memory.hpp"

namespace {

constexpr std::size_t kMebibyte = std::size_t{1} << 20U;

// The allocator takes memory in segments of this size and alignment.
constexpr std::size_t kSegmentSize = 32 * kMebibyte;
constexpr std::size_t kReserved = 2 * kSegmentSize;

// Pages of 2 MiB cost a fifth of the time that as much memory takes in pages of
// 4 KiB, but the allocator leaves gaps, and most drawings would have twice the
// memory resident that they need. So a small drawing gets small pages, and what
// a larger one needs beyond them comes in large ones.
constexpr std::size_t kSmallPages = 8 * kMebibyte;

void Unmap(char* begin, const char* end) {
  if (begin != end) {
    munmap(begin, static_cast<std::size_t>(end - begin));
  }
}

// Null when the system refuses.
char* MapSegments() {
  constexpr std::size_t kMapped = kReserved + kSegmentSize;
  void* mapped = mmap(nullptr, kMapped, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (mapped == MAP_FAILED) {
    return nullptr;
  }
  auto* const begin = static_cast<char*>(mapped);
  const std::size_t excess = reinterpret_cast<std::uintptr_t>(begin) % kSegmentSize;
  char* const aligned = begin + (excess == 0 ? 0 : kSegmentSize - excess);
  Unmap(begin, aligned);
  Unmap(aligned + kReserved, begin + kMapped);
  return aligned;
}

bool Reserve() {
  char* const memory = MapSegments();
  if (memory == nullptr) {
    return false;
  }
#ifdef MADV_HUGEPAGE
  madvise(memory + kSmallPages, kReserved - kSmallPages, MADV_HUGEPAGE);
#endif
  constexpr bool kIsCommitted = true;
  constexpr bool kIsLarge = false;
  constexpr bool kIsZero = true;
  constexpr int kAnyNode = -1;
  return mi_manage_os_memory(memory, kReserved, kIsCommitted, kIsLarge, kIsZero, kAnyNode);
}

}  // namespace

void ReserveReadingMemory() {
  [[maybe_unused]] static const bool isReserved = Reserve();
}
