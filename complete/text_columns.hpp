// The columns of multi-line text.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <vector>

#include "complete/complete_context.hpp"

struct TextColumns {
  unsigned type = 0;  // 1 static, 2 dynamic, else none
  std::uint32_t count = 0;
  double width = 0;
  double gutter = 0;
  bool hasAutoHeight = false;
  bool isReversed = false;
  std::vector<double> heights;
  std::vector<Handle> linked;  // the texts of the further columns
};

// From the text's own fields since release 2018; before, a CAD program attaches them as
// extended data, and the text of each further column is an entity of its own.
TextColumns TextColumnsOf(const Dwg_Entity_MTEXT& mtext, const Dwg_Object& object,
                          const CompleteContext& context);
