#include "encode/font_mapping.hpp"

#include <algorithm>
#include <array>

#include "encode/ascii.hpp"

namespace {

constexpr std::string_view kArial = "Arial";
constexpr std::string_view kTimes = "Times New Roman";
constexpr std::string_view kCourier = "Courier New";
constexpr std::string_view kComic = "Comic Sans MS";

struct ShapeFont {
  std::string_view name;
  std::string_view family;
};

// In lower case. Symbol and Gothic shape fonts stand for Arial on purpose.
constexpr std::array<ShapeFont, 29> kShapeFonts = {{
    {"complex", kArial},   {"complexc", kArial}, {"complexs", kArial}, {"gothice", kArial},
    {"gothicg", kArial},   {"gothici", kArial},  {"greeks", kArial},   {"iso", kArial},
    {"isocp", kArial},     {"isocp2", kArial},   {"isocp3", kArial},   {"isocpeur", kArial},
    {"isocpeur2", kArial}, {"italic", kArial},   {"italiccs", kArial}, {"italics", kArial},
    {"monotxt", kCourier}, {"romanc", kTimes},   {"romand", kTimes},   {"romans", kTimes},
    {"romant", kTimes},    {"scriptc", kComic},  {"scripts", kComic},  {"simplex", kArial},
    {"standard", kArial},  {"symap", kArial},    {"symusic", kArial},  {"txt", kArial},
    {"txt2", kArial},
}};

constexpr std::string_view kExtension = ".shx";

// Empty for a name that is not in the table.
std::string_view FamilyOfShapeFont(std::string_view name) {
  const auto found = std::ranges::find_if(kShapeFonts, [name](const ShapeFont& font) {
    return font.name.size() == name.size() && StartsWithIgnoringCase(name, font.name);
  });
  return found == kShapeFonts.end() ? std::string_view{} : found->family;
}

}  // namespace

std::string_view MapFontFamily(std::string_view name) {
  std::string_view base = name;
  const bool isShapeFont =
      name.size() > kExtension.size() &&
      StartsWithIgnoringCase(name.substr(name.size() - kExtension.size()), kExtension);
  if (isShapeFont) {
    base.remove_suffix(kExtension.size());
  }
  const std::string_view family = FamilyOfShapeFont(base);
  if (!family.empty()) {
    return family;
  }
  return isShapeFont ? kArial : name;
}
