// The section of the text styles.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `textStyles`: name, font files, fixed height, width factor, slant and flags. A style
// without a name that loads a file of shapes is one of them.
void AppendTextStyles(JsonOut& out, const CompleteContext& context);
