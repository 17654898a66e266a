#include <sys/mman.h>
#include <unistd.h>

#include "reading/file_mapping.hpp"

namespace {

std::size_t PageSize() {
  return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

FileMapping::FileMapping(std::FILE* file, std::size_t size) {
  // The rest of the last page is zero.
  if (size % PageSize() == 0) {
    return;
  }
  void* mapped = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fileno(file), 0);
  if (mapped != MAP_FAILED) {
    bytes_ = {static_cast<const char*>(mapped), size};
  }
}

FileMapping::~FileMapping() {
  if (!bytes_.empty()) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    munmap(const_cast<char*>(bytes_.data()), bytes_.size());
  }
}

void FileMapping::Release(std::size_t size) const {
  const std::size_t whole = size / PageSize() * PageSize();
  if (!bytes_.empty() && whole != 0) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    madvise(const_cast<char*>(bytes_.data()), whole, MADV_DONTNEED);
  }
}
