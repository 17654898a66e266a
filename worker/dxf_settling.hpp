// Puts what LibreDWG's DXF reader delivers into the form that its DWG reader
// delivers, so that the conversion knows one form only.
#pragma once

#include <dwg.h>

// Settles a drawing that was read from DXF with 8-bit strings:
//
// - Object 0 is a block that the reader makes up, with the handle 0x1F and the
//   name of model space. When the file brings its own model-space block, in any
//   letter case, the made-up one loses its name and the file's last one takes
//   over its entities; otherwise the made-up one is model space.
// - A layer's colour index goes into the low byte of an indexed colour word.
// - A layer is off when its colour index is negative, and locked by its group
//   70; the reader takes both from the bits of another format.
void SettleDxf(Dwg_Data& dwg);
