// What the HEADER section of a DXF text names.
#pragma once

#include <string_view>

#include "entities/drawing.hpp"

// The text must be one that LibreDWG's reader takes as it stands, with a NUL behind it.
DxfHeader HeaderOfDxf(std::string_view text);
