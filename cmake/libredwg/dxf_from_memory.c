#include "dxf_from_memory.h"

#include <string.h>

#include "config.h"

#include "bits.h"
#include "decode.h"
#include "in_dxf.h"

int
dxf_read_memory (const char *text, size_t size, Dwg_Data *dwg)
{
  const unsigned int level = dwg->opts & DWG_OPTS_LOGLEVEL;
  const Dwg_Version_Type version = dwg->header.version;
  Bit_Chain dat;
  int error;

  memset (dwg, 0, sizeof (Dwg_Data));
  dwg->opts = level | DWG_OPTS_INDXF;
  dwg->header.version = version;

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
