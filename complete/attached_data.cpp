#include "complete/attached_data.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

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

// The units lie unaligned in the packed structure. A text ends where its length or a zero
// says so.
std::string WideText(const Dwg_Eed_Data& value, const Drawing& drawing) {
  const auto& text = value.u.eed_0_r2007;
  std::vector<std::uint16_t> units;
  for (std::size_t i = 0; i < text.length && text.string[i] != 0; ++i) {
    const std::uint16_t unit = text.string[i];
    units.push_back(unit);
  }
  units.push_back(0);
  const auto* stored = reinterpret_cast<const char*>(units.data());
  return std::string(drawing.textForm == TextForm::kUtf16 ? drawing.Decode(stored)
                                                          : DecodeText(TextForm::kUtf16, stored));
}

std::string NarrowText(const Dwg_Eed_Data& value, const Drawing& drawing) {
  const std::string_view stored(value.u.eed_0.string, value.u.eed_0.length);
  const std::string text(stored.substr(0, stored.find('\0')));
  return std::string(drawing.textForm == TextForm::kUtf16
                         ? DecodeText(TextForm::kWindows1252, text.c_str())
                         : drawing.Decode(text.c_str()));
}

}  // namespace

bool IsAttachedText(const Dwg_Eed_Data& value, std::string_view text) {
  if (value.code != kAttachedText || value.u.eed_0.length != text.size()) {
    return false;
  }
  return value.u.eed_0.is_tu != 0 ? IsWideText(value, text)
                                  : std::string_view(value.u.eed_0.string, text.size()) == text;
}

std::string AttachedText(const Dwg_Eed_Data& value, const Drawing& drawing) {
  if (value.code != kAttachedText) {
    return {};
  }
  return value.u.eed_0.is_tu != 0 ? WideText(value, drawing) : NarrowText(value, drawing);
}
