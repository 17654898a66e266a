#include "dxf_from_memory.h"

#include <stdlib.h>
#include <string.h>

#include "config.h"

#include "bits.h"
#include "decode.h"
#include "in_dxf.h"
#include "../programs/my_stat.h"

/* The library asks with it how large a file is, which may be beyond 2 GB. */
_Static_assert (sizeof (((struct_stat_t *)0)->st_size) == 8 || sizeof (size_t) < 8,
                "no size of large files");

/* A few objects are not in the text. No record of a whole drawing takes less
   than so many bytes. */
enum
{
  MADE_UP_OBJECTS = 64,
  SMALLEST_RECORD = 32
};

static void
make_room (Dwg_Data *dwg, size_t size, size_t records)
{
  const size_t most = size / SMALLEST_RECORD;
  const size_t count = (records < most ? records : most) + MADE_UP_OBJECTS;
  if (count > UINT32_MAX)
    return;
  dwg->object = (Dwg_Object *)malloc (count * sizeof (Dwg_Object));
  if (dwg->object)
    dwg->num_alloced_objects = (BITCODE_BL)count;
}

int
dxf_read_memory (const char *text, size_t size, size_t records, Dwg_Data *dwg)
{
  const unsigned int level = dwg->opts & DWG_OPTS_LOGLEVEL;
  const Dwg_Version_Type version = dwg->header.version;
  Bit_Chain dat;
  int error;

  memset (dwg, 0, sizeof (Dwg_Data));
  dwg->opts = level | DWG_OPTS_INDXF;
  dwg->header.version = version;
  if (records)
    make_room (dwg, size, records);

  memset (&dat, 0, sizeof (Bit_Chain));
  dat.chain = (unsigned char *)text;
  dat.size = size;
  dat.from_version = dwg->header.from_version;
  dat.version = version;
  dat.opts = dwg->opts;

  error = dwg_read_dxf (&dat, dwg);
  dwg->opts |= level | DWG_OPTS_INDXF;
  return error >= DWG_ERR_CRITICAL ? error : 0;
}
