// The sections that only the complete form has.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// Appends each with its comma and key.
void AppendFurtherSections(JsonOut& out, const CompleteContext& context);
