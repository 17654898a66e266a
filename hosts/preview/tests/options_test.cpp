#include "app/options.hpp"

#include <gtest/gtest.h>

namespace preview {
namespace {

TEST(Options, TakeSeveralDrawingsForAWindow) {
  const Options options = ParseOptions({"dwg_preview", "a.dwg", "--plain", "b.dxf"});
  EXPECT_EQ(options.drawings, QStringList({"a.dwg", "b.dxf"}));
  EXPECT_FALSE(options.Headless());
}

TEST(OptionsDeathTest, RefuseSeveralDrawingsWithoutAWindow) {
  EXPECT_EXIT(ParseOptions({"dwg_preview", "a.dwg", "b.dxf", "--list"}), testing::ExitedWithCode(2),
              "only one drawing");
}

}  // namespace
}  // namespace preview
