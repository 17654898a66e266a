// Drawing font names to desktop font families.
#pragma once

#include <string_view>

// The family that stands for a compiled shape font (with or without ".shx",
// in any letter case): a family of similar character for the well-known ones,
// "Arial" for any other name that ends in ".shx". Every other name, folders
// and extensions included, is returned as it is given: a view of `name`.
std::string_view MapFontFamily(std::string_view name);
