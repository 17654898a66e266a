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
  constexpr std::size_t kBehind = 2;
  bytes_ = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size) + kBehind);
  size_ = std::fread(bytes_.get(), 1, static_cast<std::size_t>(size), file.get());
  isRead_ = size_ == size;
  if (size_ != 0 && bytes_[size_ - 1] != '\n') {
    bytes_[size_++] = '\n';
  }
  bytes_[size_] = '\0';
}
