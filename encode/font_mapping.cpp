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

// Sorted by name. Symbol and Gothic shape fonts stand for Arial on purpose.
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
static_assert(std::ranges::is_sorted(kShapeFonts, {}, &ShapeFont::name));

constexpr std::string_view kExtension = ".shx";

}  // namespace

std::string MapFontFamily(std::string_view name) {
  std::string key = LowerAscii(name);
  const bool isShapeFont = key.size() > kExtension.size() && key.ends_with(kExtension);
  if (isShapeFont) {
    key.resize(key.size() - kExtension.size());
  }
  const auto found = std::ranges::lower_bound(kShapeFonts, key, {}, &ShapeFont::name);
  if (found != kShapeFonts.end() && found->name == key) {
    return std::string(found->family);
  }
  return std::string(isShapeFont ? kArial : name);
}
