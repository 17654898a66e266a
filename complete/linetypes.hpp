// The section of the line types.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `linetypes`: name, description, total length and dashes with their shapes and texts.
void AppendLinetypes(JsonOut& out, const CompleteContext& context);
