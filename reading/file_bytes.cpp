#include "reading/file_bytes.hpp"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

FileBytes::FileBytes(const std::string& path) {
  std::error_code error;
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr || !std::filesystem::is_regular_file(path, error)) {
    return;
  }
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) {
    return;
  }
  if (!Map(file.get(), static_cast<std::size_t>(size))) {
    Copy(file.get(), static_cast<std::size_t>(size));
  }
}

bool FileBytes::Map(std::FILE* file, std::size_t size) {
  mapping_.emplace(file, size);
  if (!mapping_->bytes().ends_with('\n')) {
    mapping_.reset();
    return false;
  }
  bytes_ = mapping_->bytes();
  isRead_ = true;
  return true;
}

void FileBytes::Copy(std::FILE* file, std::size_t size) {
  constexpr std::size_t kBehind = 2;
  copy_ = std::make_unique_for_overwrite<char[]>(size + kBehind);
  std::size_t end = std::fread(copy_.get(), 1, size, file);
  isRead_ = end == size;
  if (end != 0 && copy_[end - 1] != '\n') {
    copy_[end++] = '\n';
  }
  copy_[end] = '\0';
  bytes_ = {copy_.get(), end};
}

void FileBytes::Release(std::size_t size) const {
  if (mapping_) {
    mapping_->Release(size);
  }
}
