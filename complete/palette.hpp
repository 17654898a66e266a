// The colour-index palette as CAD programs show it.
#pragma once

#include "encode/palette.hpp"

// LibreDWG's table of the 256 colours; index 0 is black.
const Palette& ScreenPalette();
