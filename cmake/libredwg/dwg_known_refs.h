/* References by their code and handle: what ordered_ref_find() and
   ordered_ref_add() in dwg.c do with an ordered array, by a table that is looked
   up at once. It takes the array's place in the drawing. */
#ifndef DWG_KNOWN_REFS_H
#define DWG_KNOWN_REFS_H

#include <dwg.h>

/* Null if there is none. */
Dwg_Object_Ref *dwg_known_ref (Dwg_Data *dwg, BITCODE_RC code,
                               BITCODE_RLL handle);

/* Remembers a reference, unless its code says that it is relative, or there is
   another of the same code and handle already. The drawing keeps it as long as
   the table. */
void dwg_remember_ref (Dwg_Data *dwg, Dwg_Object_Ref *ref);

#endif
