// Puts what LibreDWG's DWG reader delivers into the form that the conversion
// expects.
#pragma once

#include <dwg.h>

#include "encode/text_decoding.hpp"

// Settles a drawing that was read from DWG:
//
// - Anonymous blocks get their whole names. A DWG stores them twice: the block's
//   header holds "*U", its BLOCK entity "*U18". A header whose name begins with
//   "*", layout blocks excepted, takes the name of the BLOCK that it refers to,
//   provided that this name begins with the header's own. Of several BLOCKs that
//   bear one handle the first counts.
// - Paper space of a drawing before R13, which the reader makes up as
//   "*PAPER_SPACE", bears the name that newer drawings give it.
//
// `form` is how the drawing's strings are stored.
void SettleDwg(Dwg_Data& dwg, TextForm form);
