// The section of what people say about the drawing.
#pragma once

#include <cstdint>
#include <string>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `properties`: title, subject, author, keywords, comments, who saved it last, revision,
// the times of creation and of the last change, the time spent, and properties of the
// drawing's own. Each where the drawing has it.
void AppendProperties(JsonOut& out, const CompleteContext& context);

// A time as drawings keep it, in Julian days and milliseconds since midnight, as
// "YYYY-MM-DDThh:mm:ss"; empty for one outside the years 1 to 9999.
std::string TimeText(std::uint32_t julianDay, std::uint32_t milliseconds);
