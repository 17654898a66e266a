// A file's bytes as the system keeps them, without a copy: one variant for
// POSIX systems, one that maps nothing.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

class FileMapping {
 public:
  // Maps the first bytes of an open file, which should not shrink as long as
  // this lives. Maps nothing if the system refuses, or if no NUL would stand
  // behind them.
  FileMapping(std::FILE* file, std::size_t size);
  // The variant that maps nothing has nothing to do here.
  // NOLINTNEXTLINE(performance-trivially-destructible)
  ~FileMapping();
  FileMapping(const FileMapping&) = delete;
  FileMapping& operator=(const FileMapping&) = delete;

  // Empty when nothing is mapped.
  std::string_view bytes() const { return bytes_; }

  // Gives back the memory of so many bytes; it comes again when they are looked
  // at.
  void Release(std::size_t size) const;

 private:
  std::string_view bytes_;
};
