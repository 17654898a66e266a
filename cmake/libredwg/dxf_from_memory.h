/* Reads a DXF that is in memory already. Compiled into LibreDWG, whose own
   entry reads files only. */
#ifndef DXF_FROM_MEMORY_H
#define DXF_FROM_MEMORY_H

#include <dwg.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C"
{
#endif

  /* As dxf_read_file does: everything in `dwg` but the options and the target
     version is overwritten. The text must end with a line feed and have a NUL
     behind its `size` bytes; it is not written to, and not needed afterwards.
     `records` is about how many the text has: there is room for as many objects
     from the beginning. It may be 0. */
  int dxf_read_memory (const char *text, size_t size, size_t records,
                       Dwg_Data *dwg);

#ifdef __cplusplus
}
#endif

#endif
