// The document's `layers` array.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// Appends a record for every named layer, in object order, without the array's
// brackets. A layer's colour is always red, green and blue, never a tag, by a
// rule of its own that differs from the entities'; its frozen flag is not
// looked at. `debug` adds the stored colour fields.
void AppendLayers(JsonOut& out, const Dwg_Data& dwg, bool unicodeText, bool debug);
