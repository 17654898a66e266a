// Puts what LibreDWG's DXF reader delivers into the form that its DWG reader
// delivers, so that the conversion knows one form only.
#pragma once

#include <dwg.h>

#include <cstdint>

// What becomes of the scale of a block reference that is its insertion point's coordinate.
// The reader once gave that to one without a scale; such a reference has the scale 1 by now,
// but hosts know the documents in which any such scale is 1.
enum class DxfScales : std::uint8_t { kStored, kSettled };

// Settles a drawing that was read from DXF with 8-bit strings:
//
// - Object 0 is a block that the reader makes up, with the handle 0x1F and the
//   name of model space. When the file brings its own model-space block, in any
//   letter case, the made-up one loses its name and the file's last one takes
//   over its entities; otherwise the made-up one is model space.
// - A layer's colour index goes into the low byte of an indexed colour word.
// - A layer is off when its colour index is negative, and locked by its group
//   70; the reader takes both from the bits of another format.
// - A block reference whose scale along Y or Z is the insertion point's coordinate has
//   the scale 1, if scales are settled.
// - A multi-line text without a height, whose frame the reader leaves shifted by
//   a field, has its height and width where they belong.
//
// To be called once: the last step would shift the fields again.
void SettleDxf(Dwg_Data& dwg, DxfScales scales);
