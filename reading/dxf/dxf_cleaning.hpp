// Brings the lines of a DXF text into the form that LibreDWG's reader takes:
// one line for the group code, one for a value of the code's kind.
//
// What stands between two pairs, and what its code's kind does not allow, is
// judged by what follows: a line is the code of a pair when it and the next
// pairs read as such.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reading/dxf/dxf_repairs.hpp"

// Which line of the text a pair comes from.
class DxfLineMap {
 public:
  // Pairs are added in order; `line` counts from 1.
  void Add(std::size_t pair, std::size_t line);

  // Of a line of the cleaned text, which has two a pair.
  std::size_t LineOf(std::size_t cleanLine) const;

 private:
  struct Step {
    std::size_t pair;
    std::size_t line;
  };
  std::vector<Step> steps_;  // where the distance changes
};

struct CleanedDxf {
  std::string text;
  DxfLineMap lines;
  DxfRepairs repairs;  // by line of the text that it was made from
};

CleanedDxf CleanDxf(std::string_view text);
