// A file in memory.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "reading/file_mapping.hpp"

class FileBytes {
 public:
  // Reads a regular file.
  explicit FileBytes(const std::string& path);

  // False for a file that is none, or cannot be opened or read to its end.
  bool IsRead() const { return isRead_; }

  // The bytes, and a line feed if they do not end with one. A NUL stands behind
  // them.
  std::string_view bytes() const { return bytes_; }

  // So many bytes are not needed for now: takes less memory, if the file allows.
  void Release(std::size_t size) const;

 private:
  bool Map(std::FILE* file, std::size_t size);
  void Copy(std::FILE* file, std::size_t size);

  bool isRead_ = false;
  std::string_view bytes_;
  std::optional<FileMapping> mapping_;
  std::unique_ptr<char[]> copy_;
};
