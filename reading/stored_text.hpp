// How a drawing's strings are stored, for those who read them by its code page.
#pragma once

#include <dwg.h>

#include <string_view>

#include "encode/text_decoding.hpp"

// Of a DXF file that was read from this text.
StoredText StoredTextOfDxf(const Dwg_Data& dwg, std::string_view text);

StoredText StoredTextOfDwg(const Dwg_Data& dwg);
