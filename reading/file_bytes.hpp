// A file in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class FileBytes {
 public:
  // Reads a regular file.
  explicit FileBytes(const std::string& path);

  // False for a file that is none, or cannot be opened or read to its end.
  bool IsRead() const { return isRead_; }

  // The bytes, and a line feed if they do not end with one. A NUL stands behind
  // them.
  std::string_view bytes() const { return {bytes_.get(), size_}; }

 private:
  bool isRead_ = false;
  std::size_t size_ = 0;
  std::unique_ptr<char[]> bytes_;
};
