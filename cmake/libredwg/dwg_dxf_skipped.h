/* What LibreDWG's DXF reader leaves out of a drawing: what it cannot read, told
   while it reads, and what a program does not want.

   One record (an entity, an object, an entry of a table) that cannot be read
   does not end the reading of a file: it is left out and reported here. */
#ifndef DWG_DXF_SKIPPED_H
#define DWG_DXF_SKIPPED_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
  DWG_DXF_UNKNOWN_TYPE, /* the library knows no record of that name */
  DWG_DXF_UNREADABLE    /* a known record with contents that cannot be read */
} Dwg_DXF_Skip_Reason;

typedef struct {
  const char* dxfname; /* as the file writes it; lives during the call only */
  size_t byte_offset;  /* into the bytes read: behind the record's first pair */
  int is_entity;       /* whether it stands where entities do: in BLOCKS or ENTITIES */
  Dwg_DXF_Skip_Reason reason;
} Dwg_DXF_Skipped;

typedef void (*Dwg_DXF_Skipped_Fn)(void* user, const Dwg_DXF_Skipped* skipped);

/* Sets what is called for each record left out by the reads that follow on this
   thread, in the order of the file; null for nothing, which is the default. */
void dwg_dxf_on_skipped(Dwg_DXF_Skipped_Fn fn, void* user);

/* Restricts the reads that follow on this thread to objects of these types, by
   the library's names for them ("LAYOUT"); those of other types in the OBJECTS
   section are passed over without a report. The names must outlive the reads.
   Null for all, which is the default. */
void dwg_dxf_want_objects(const char* const* names, size_t count);

/* Without them (0) the reads that follow on this thread leave out what only a
   program needs that writes a DWG: the lists of entities that a BLOCK_HEADER
   owns and the links from one entity to the next. Each entity still names its
   owner. 1 is the default. */
void dwg_dxf_want_entity_lists(int are_wanted);

typedef void (*Dwg_DXF_Read_Fn)(void* user, size_t size);

/* Sets what is told by the reads that follow on this thread, every few
   megabytes, how many bytes of the text were read; null for nothing, which is
   the default. The reader looks at them again now and then. */
void dwg_dxf_on_read(Dwg_DXF_Read_Fn fn, void* user);

/* For the reader itself: so many bytes were read. */
void dwg_dxf_report_read(size_t size);

/* For the reader itself: tells of one record left out. */
void dwg_dxf_report_skipped(const Dwg_DXF_Skipped* skipped);

/* For the reader itself: whether objects of that type are to be read. */
int dwg_dxf_is_wanted_object(const char* name);

/* For the reader itself: whether the lists are wanted. */
int dwg_dxf_are_entity_lists_wanted(void);

#ifdef __cplusplus
}
#endif

#endif
