/* Reads what most of a text DXF consists of, groups that say one plain value of
   a common entity, straight into the entity.

   What is read is what new_object() in in_dxf.c reads, with the same result. It
   looks for the field of a group among all fields of the type, by name and by
   code. Here the first group of its kind is looked for, in the same way; from
   then on a table says where its value goes. Whatever takes more than that is
   left to new_object(). */
#ifndef DXF_PLAIN_GROUPS_H
#define DXF_PLAIN_GROUPS_H

#include <dwg.h>
#include "bits.h"

/* Forgets the names and owners of the groups before. To be called where a
   section begins: within one no table changes. */
void dxf_begin_plain_groups (void);

/* Reads groups of that object, whose data is `data`, up to the first that is
   not plain. `subclass` is what the last group 100 said, of up to 79 bytes. */
void dxf_read_plain_groups (Bit_Chain *dat, Dwg_Object *obj, void *data,
                            char *subclass);

/* is_dwg_entity(), faster for common types. */
int dxf_is_entity (const char *name);

/* The style of that name; null if there is none. */
BITCODE_H dxf_standard_style (Dwg_Data *dwg);

/* Sets what a TEXT, an ATTRIB or an ATTDEF says by other fields, and the style
   if none is named. */
void dxf_finish_text (const Dwg_Object *obj);

/* What the new entity is to be, by the library's name for it: allocates its
   data, as the macro ADD_ENTITY does. Null for types that are not common. */
void *dxf_add_plain_entity (Dwg_Object *obj, const char *name, char *dxfname);

/* Sets what a group that is missing says, for entities of the types above.
   Returns 0 for others. */
int dxf_set_plain_defaults (const Dwg_Object *obj, void *data);

#endif
