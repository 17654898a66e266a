// What a DXF file leaves out of its layers. LibreDWG's reader takes what is missing for
// 0: not plotted, and a lineweight of 0.
#pragma once

#include <dwg.h>

#include <string_view>

// Has the layers that the text does not tell about be plotted, and of the default
// lineweight. The text must be the one that the drawing was read from.
void SettleLayerDefaults(Dwg_Data& dwg, std::string_view text);
