// The names of the blocks that are no definitions: model space and the sheets.
#pragma once

#include <string_view>

#include "encode/ascii.hpp"

inline constexpr std::string_view kModelSpaceName = "*Model_Space";
inline constexpr std::string_view kPaperSpaceName = "*Paper_Space";  // and a number

// Whether the name, in any letter case, belongs to model space or to a sheet,
// whose blocks are neither assets nor referenced.
inline bool IsLayoutBlockName(std::string_view name) {
  return StartsWithIgnoringCase(name, "*model_space") ||
         StartsWithIgnoringCase(name, "*paper_space");
}
