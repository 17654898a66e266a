#include "encode/palette.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

struct PaletteCase {
  int index;
  Rgb rgb;
};

void PrintTo(const PaletteCase& one, std::ostream* out) {
  *out << "index " << one.index;
}

class PaletteColors : public testing::TestWithParam<PaletteCase> {};

}  // namespace

TEST_P(PaletteColors, HasTheColorThatConsumersKnow) {
  EXPECT_EQ(AciToRgb(GetParam().index), GetParam().rgb);
}

INSTANTIATE_TEST_SUITE_P(Basic, PaletteColors,
                         testing::Values(PaletteCase{0, {0, 0, 0}}, PaletteCase{1, {255, 0, 0}},
                                         PaletteCase{2, {255, 255, 0}}, PaletteCase{3, {0, 255, 0}},
                                         PaletteCase{4, {0, 255, 255}}, PaletteCase{5, {0, 0, 255}},
                                         PaletteCase{6, {255, 0, 255}},
                                         PaletteCase{7, {255, 255, 255}},
                                         PaletteCase{8, {65, 65, 65}},
                                         PaletteCase{9, {128, 128, 128}}));

INSTANTIATE_TEST_SUITE_P(
    Greys, PaletteColors,
    testing::Values(PaletteCase{250, {51, 51, 51}}, PaletteCase{251, {102, 102, 102}},
                    PaletteCase{252, {153, 153, 153}}, PaletteCase{253, {204, 204, 204}},
                    PaletteCase{254, {255, 255, 255}}, PaletteCase{255, {0, 0, 0}}));

INSTANTIATE_TEST_SUITE_P(
    Truncated, PaletteColors,
    testing::Values(PaletteCase{10, {255, 0, 0}}, PaletteCase{11, {255, 50, 50}},
                    PaletteCase{15, {191, 0, 0}}, PaletteCase{16, {127, 0, 0}},
                    PaletteCase{17, {63, 0, 0}}, PaletteCase{20, {255, 63, 0}},
                    PaletteCase{21, {255, 101, 50}}, PaletteCase{30, {255, 127, 0}},
                    PaletteCase{50, {255, 255, 0}}, PaletteCase{90, {0, 255, 0}},
                    PaletteCase{130, {0, 255, 255}}, PaletteCase{170, {0, 0, 255}},
                    PaletteCase{210, {255, 0, 255}}, PaletteCase{240, {255, 0, 63}}));

INSTANTIATE_TEST_SUITE_P(Outside, PaletteColors,
                         testing::Values(PaletteCase{-1, {0, 0, 0}}, PaletteCase{-32768, {0, 0, 0}},
                                         PaletteCase{256, {0, 0, 0}}, PaletteCase{257, {0, 0, 0}},
                                         PaletteCase{258, {0, 0, 0}},
                                         PaletteCase{32767, {0, 0, 0}}));

TEST(AciToRgb, LastTwoShadesOfEveryHueAreGrey) {
  for (int hue = 10; hue < 250; hue += 10) {
    EXPECT_EQ(AciToRgb(hue + 8), (Rgb{191, 191, 191})) << hue;
    EXPECT_EQ(AciToRgb(hue + 9), (Rgb{127, 127, 127})) << hue;
  }
}

TEST(AciToRgb, EveryHueHasAPureColorOfFullBrightness) {
  for (int hue = 10; hue < 250; hue += 10) {
    const Rgb rgb = AciToRgb(hue);
    const std::array<int, 3> channels = {rgb.red, rgb.green, rgb.blue};
    EXPECT_EQ(*std::max_element(channels.begin(), channels.end()), 255) << hue;
    EXPECT_EQ(*std::min_element(channels.begin(), channels.end()), 0) << hue;
  }
}

TEST(RgbOfWord, TakesTheLowerThreeBytes) {
  EXPECT_EQ(RgbOfWord(0xC2102030), (Rgb{0x10, 0x20, 0x30}));
  EXPECT_EQ(RgbOfWord(0), (Rgb{}));
}
