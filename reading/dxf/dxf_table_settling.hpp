// What LibreDWG's reader makes of layers and blocks of a DXF file, put right from the
// file's text.
#pragma once

#include <dwg.h>

#include <string_view>

// Layers that the text does not tell about are plotted, and of the default lineweight:
// the reader takes what is missing for 0. Blocks get the units, the description and the
// height of the base point that the reader passes over. The text must be the one that
// the drawing was read from.
void SettleDxfTables(Dwg_Data& dwg, std::string_view text);
