#include "document/pdf_files.hpp"

#include <algorithm>
#include <exception>
#include <system_error>

#include "encode/numbers.hpp"

namespace {

namespace fs = std::filesystem;

// A text that is no valid path on this platform gives an empty one.
fs::path PathOf(std::string_view utf8) try {
  return {std::u8string(utf8.begin(), utf8.end())};
} catch (const std::exception&) {
  return {};
}

std::string Utf8Of(const fs::path& path) try {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
} catch (const std::exception&) {
  return {};
}

bool Exists(const fs::path& path) {
  std::error_code error;
  return !path.empty() && fs::exists(path, error);
}

}  // namespace

std::string ResolvePdf(const std::string& declaredPath, const fs::path& folder) {
  if (Exists(PathOf(declaredPath))) {
    return declaredPath;
  }
  const fs::path fileName = PathOf(FileNameComponent(declaredPath));
  if (folder.empty() || fileName.empty()) {
    return {};
  }
  const fs::path beside = folder / fileName;
  return Exists(beside) ? Utf8Of(beside) : std::string{};
}

std::string FileNameComponent(std::string_view declaredPath) {
  const std::size_t separator = declaredPath.find_last_of("/\\");
  if (separator != std::string_view::npos) {
    return std::string(declaredPath.substr(separator + 1));
  }
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  if (declaredPath.size() >= 2 && isLetter(declaredPath[0]) && declaredPath[1] == ':') {
    declaredPath.remove_prefix(2);
  }
  return std::string(declaredPath);
}

std::int32_t PdfPage(std::string_view name) {
  return std::max(ParseInt32(name).value_or(1), 1);
}
