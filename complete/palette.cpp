#include "complete/palette.hpp"

#include <dwg.h>

#include <cstddef>

namespace {

Palette LibraryPalette() {
  Palette palette{};
  const Dwg_RGB_Palette* colors = dwg_rgb_palette();
  for (std::size_t i = 0; i < palette.size(); ++i) {
    palette[i] = {colors[i].r, colors[i].g, colors[i].b};
  }
  return palette;
}

}  // namespace

const Palette& ScreenPalette() {
  static const Palette palette = LibraryPalette();
  return palette;
}
