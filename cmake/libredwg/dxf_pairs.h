/* Group pairs of a text DXF for LibreDWG's DXF reader, faster than by its own
   functions and with the same result. */
#ifndef DXF_PAIRS_H
#define DXF_PAIRS_H

#include <dwg.h>
#include "bits.h"
#include "decode.h"
#include "in_dxf.h"

/* An empty pair, null if there is no memory. The few that are in use at a time
   come from a store. */
Dxf_Pair *dxf_new_pair (void);

/* Gives back a pair of dxf_new_pair() without its value. */
void dxf_give_back_pair (Dxf_Pair *pair);

/* Reads a pair that is written in the plain way. Returns 0 and reads nothing
   if the next is another, or in a binary DXF. */
int dxf_read_plain_pair (Bit_Chain *dat, Dxf_Pair *pair);

/* Passes over pairs up to the first of code 0 or that is not written in the plain
   way. */
void dxf_pass_over_plain_pairs (Bit_Chain *dat);

/* Reads the points of a polyline, which has room for so many, and what some of
   its points have, as far as the polyline has room for these. `point` is the
   index of the last one. */
void dxf_read_plain_points (Bit_Chain *dat, Dwg_Entity_LWPOLYLINE *polyline,
                            BITCODE_BL room, BITCODE_BL *point);

/* Reads the parts of a hatch's path that are straight, or the points of its
   polyline. `part` is the index of the last one, `seen` how many there were. */
void dxf_read_plain_path (Bit_Chain *dat, Dwg_HATCH_Path *path,
                          int is_polyline, int *part, int *seen);

#endif
