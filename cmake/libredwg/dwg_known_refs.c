#include "dwg_known_refs.h"

#include <stdlib.h>

#include "config.h"

/* Of dwg.c: searches all references while there are few in the table. */
const Dwg_Object_Ref *ordered_ref_find (Dwg_Data *dwg, const BITCODE_RC code,
                                        const BITCODE_RLL absref);

enum
{
  FEWEST_SLOTS = 64,
  FEW = 4,
  RUN_BITS = 3 /* handles in a row share a cache line */
};

/* Of a table of so many references: at most half full. */
static size_t
slots_of (size_t count)
{
  size_t slots = FEWEST_SLOTS;
  while (slots < 2 * count)
    slots *= 2;
  return slots;
}

static size_t
first_slot (BITCODE_RC code, BITCODE_RLL handle, size_t slots)
{
  uint64_t run = (handle >> RUN_BITS) * UINT64_C (8) + code;
  run *= UINT64_C (0x9E3779B97F4A7C15);
  run ^= run >> 32;
  run *= UINT64_C (0xD6E8FEB86659FD93);
  run ^= run >> 32;
  return (size_t)((run << RUN_BITS) + (handle & ((1U << RUN_BITS) - 1)))
         & (slots - 1);
}

/* Where that reference is, or where it belongs. */
static Dwg_Object_Ref **
find_slot (Dwg_Object_Ref **table, size_t slots, BITCODE_RC code,
           BITCODE_RLL handle)
{
  size_t slot = first_slot (code, handle, slots);
  while (table[slot]
         && (table[slot]->absolute_ref != handle
             || table[slot]->handleref.code != code))
    slot = (slot + 1) & (slots - 1);
  return &table[slot];
}

Dwg_Object_Ref *
dwg_known_ref (Dwg_Data *dwg, BITCODE_RC code, BITCODE_RLL handle)
{
  const size_t count = dwg->num_object_ordered_refs;
  if (count <= FEW || !dwg->object_ordered_ref)
    return (Dwg_Object_Ref *)ordered_ref_find (dwg, code, handle);
  return *find_slot (dwg->object_ordered_ref, slots_of (count), code, handle);
}

/* Without memory all are forgotten, and references are made anew. */
static int
make_room (Dwg_Data *dwg, size_t count)
{
  Dwg_Object_Ref **const old = dwg->object_ordered_ref;
  const size_t old_slots = old ? slots_of (count) : 0;
  const size_t slots = slots_of (count + 1);
  if (old_slots == slots)
    return 1;
  dwg->object_ordered_ref
      = (Dwg_Object_Ref **)calloc (slots, sizeof (Dwg_Object_Ref *));
  if (!dwg->object_ordered_ref)
    dwg->num_object_ordered_refs = 0;
  else
    for (size_t i = 0; i < old_slots; i++)
      if (old[i])
        *find_slot (dwg->object_ordered_ref, slots, old[i]->handleref.code,
                    old[i]->absolute_ref)
            = old[i];
  free (old);
  return dwg->object_ordered_ref != NULL;
}

void
dwg_remember_ref (Dwg_Data *dwg, Dwg_Object_Ref *ref)
{
  const BITCODE_RC code = ref->handleref.code;
  Dwg_Object_Ref **slot;
  if (code == 1 || code > 5
      || !make_room (dwg, dwg->num_object_ordered_refs))
    return;
  slot = find_slot (dwg->object_ordered_ref,
                    slots_of (dwg->num_object_ordered_refs + 1), code,
                    ref->absolute_ref);
  if (*slot)
    return;
  *slot = ref;
  dwg->num_object_ordered_refs++;
}
