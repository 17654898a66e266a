#include "reading/stored_release.hpp"

#include <dwg.h>

namespace {

constexpr std::size_t kShortestCode = 5;  // "AC1.2"

// The known code that a text begins with.
std::string KnownCode(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  for (std::size_t size = kStoredReleaseBytes; size >= kShortestCode; --size) {
    std::string code(text.substr(0, size));
    if (code.size() == size && dwg_version_hdr_type(code.c_str()) != R_INVALID) {
      return code;
    }
  }
  return {};
}

}  // namespace

std::string StoredReleaseOfDwg(std::string_view beginning) {
  return KnownCode(beginning);
}

std::string StoredReleaseOfDxf(std::string_view bytes) {
  // It is the first variable; comments may stand before it.
  constexpr std::size_t kSearched = 1 << 16;
  constexpr std::string_view kVariable = "$ACADVER";
  // What lies between the name and the value: the line with the group code.
  constexpr std::size_t kLongestGap = 16;
  const std::size_t at = bytes.substr(0, kSearched).find(kVariable);
  if (at == std::string_view::npos) {
    return {};
  }
  bytes.remove_prefix(at + kVariable.size());
  for (std::size_t gap = 0; gap <= kLongestGap && gap < bytes.size(); ++gap) {
    if (std::string code = KnownCode(bytes.substr(gap)); !code.empty()) {
      return code;
    }
  }
  return {};
}
