// The `entities` and `layouts` arrays of the complete form: model space and the sheets.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// As the plain form's, without the contents of the active sheet.
void AppendCompleteModelSpace(JsonOut& out, const CompleteContext& context);

// As the plain form's, with the contents of the active sheet, and with the sheets that
// have a layout but no entities.
void AppendCompleteLayouts(JsonOut& out, const CompleteContext& context);
