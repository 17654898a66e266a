#include "complete/attached_data.hpp"

#include <cstddef>

namespace {

// Texts of 2007 and later are 16 bits wide.
bool IsWideText(const Dwg_Eed_Data& value, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (value.u.eed_0_r2007.string[i] != static_cast<unsigned char>(text[i])) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool IsAttachedText(const Dwg_Eed_Data& value, std::string_view text) {
  if (value.code != kAttachedText || value.u.eed_0.length != text.size()) {
    return false;
  }
  return value.u.eed_0.is_tu != 0 ? IsWideText(value, text)
                                  : std::string_view(value.u.eed_0.string, text.size()) == text;
}
