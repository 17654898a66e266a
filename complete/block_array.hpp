// Records of MINSERT: a block reference in rows and columns.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The first cell, as an INSERT.
void AppendBlockArray(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                      const CompleteContext& context);

// The numbers of columns and rows and their distances along the rotated axes.
void AppendBlockArrayFurtherKeys(JsonOut& out, const Dwg_Entity_MINSERT& insert);
