// The colour-index palette as CAD programs show it.
#pragma once

#include "encode/palette.hpp"

// LibreDWG's table of the 256 colours, which is that of programs of today: older ones
// have other pastel and dark shades. Index 0 is black.
const Palette& ScreenPalette();
