#include "dxf_pairs.h"

#include <stdlib.h>
#include <string.h>

#include "config.h"

#include "common.h"
#include "dxf_scan.h"

enum
{
  NUM_STORED = 16
};

static _Thread_local struct
{
  Dxf_Pair pairs[NUM_STORED];
  uint32_t used; /* a bit for each */
} store;

Dxf_Pair *
dxf_new_pair (void)
{
  for (unsigned i = 0; i < NUM_STORED; i++)
    {
      if (!(store.used & 1U << i))
        {
          store.used |= 1U << i;
          memset (&store.pairs[i], 0, sizeof (store.pairs[i]));
          return &store.pairs[i];
        }
    }
  return (Dxf_Pair *)calloc (1, sizeof (Dxf_Pair));
}

void
dxf_give_back_pair (Dxf_Pair *pair)
{
  const uintptr_t offset = (uintptr_t)pair - (uintptr_t)store.pairs;
  if (offset < sizeof (store.pairs))
    store.used &= ~(1U << offset / sizeof (store.pairs[0]));
  else
    free (pair);
}

static int
is_text_plain (const unsigned char *at, size_t size)
{
  const unsigned char *const end = at + size;
  if (*at == '$' || memchr (at, '^', size))
    return 0;
  while ((at = (const unsigned char *)memchr (at, '\\', (size_t)(end - at))))
    {
      if (end - at >= 3 && at[1] == 'M' && at[2] == '+')
        return 0;
      at++;
    }
  return 1;
}

/* From UTF-8 to a code page. */
static int
is_recoded (const Bit_Chain *dat)
{
  return dat->from_version >= R_2007 && dat->version >= R_11
         && dat->version < R_2007;
}

static const unsigned char *
read_text (const unsigned char *at, const Bit_Chain *dat, Dxf_Pair *pair)
{
  const unsigned char *const end = dat->chain + dat->size;
  const unsigned char *next = dxf_scan_line (at, end);
  size_t size;
  if (!next || end - next < DXF_SCAN_MOST || is_recoded (dat))
    return NULL;
  size = (size_t)(next - 1 - at);
  if (size && at[size - 1] == '\r')
    size--;
  if (!is_text_plain (at, size))
    return NULL;
  pair->value.s.ptr = (char *)malloc (size + 1);
  if (!pair->value.s.ptr)
    return NULL;
  memcpy (pair->value.s.ptr, at, size);
  pair->value.s.ptr[size] = '\0';
  return next;
}

static const unsigned char *
read_value (const unsigned char *at, const Bit_Chain *dat, Dxf_Pair *pair)
{
  const unsigned char *next;
  long number;
  switch (pair->type)
    {
    case DWG_VT_STRING:
      return read_text (at, dat, pair);
    case DWG_VT_REAL:
    case DWG_VT_POINT3D:
      return dxf_scan_real (at, &pair->value.d);
    case DWG_VT_INT16:
      next = dxf_scan_integer (at, &number);
      if (!next || number > UINT16_MAX)
        return NULL;
      pair->value.i = (BITCODE_RS)number;
      return next;
    case DWG_VT_INT32:
      next = dxf_scan_integer (at, &number);
      if (next)
        pair->value.l = (BITCODE_RL)number;
      return next;
    case DWG_VT_BOOL:
    case DWG_VT_INT8:
      next = dxf_scan_integer (at, &number);
      if (!next || number > UINT8_MAX)
        return NULL;
      pair->value.i = (BITCODE_RC)number;
      return next;
    case DWG_VT_HANDLE:
    case DWG_VT_OBJECTID:
      /* The text of a group 5 may be asked for later. */
      return pair->code == 5 ? NULL : dxf_scan_handle (at, &pair->value.u);
    default:
      return NULL;
    }
}

/* Behind the line ends that a number leaves. */
static const unsigned char *
line_at (const Bit_Chain *dat)
{
  const unsigned char *at = dat->chain + dat->byte;
  while (*at == '\n' || *at == '\r')
    at++;
  return at;
}

int
dxf_read_plain_pair (Bit_Chain *dat, Dxf_Pair *pair)
{
  const unsigned char *at, *const end = dat->chain + dat->size;
  int code;
  if (dat->opts & DWG_OPTS_DXFB || dat->byte >= dat->size)
    return 0;
  at = line_at (dat);
  if (end - at <= 2 * DXF_SCAN_MOST)
    return 0;
  at = dxf_scan_code (at, &code);
  if (!at)
    return 0;
  pair->code = (short)code;
  pair->type = dwg_resbuf_value_type (pair->code);
  at = read_value (at, dat, pair);
  if (!at)
    {
      memset (pair, 0, sizeof (*pair));
      return 0;
    }
  dat->byte = (size_t)(at - dat->chain);
  return 1;
}

void
dxf_pass_over_plain_pairs (Bit_Chain *dat)
{
  const unsigned char *const end = dat->chain + dat->size;
  const unsigned char *at;
  if (dat->opts & DWG_OPTS_DXFB || dat->byte >= dat->size)
    return;
  for (at = line_at (dat); end - at > 2 * DXF_SCAN_MOST;)
    {
      int code;
      const unsigned char *next = dxf_scan_code (at, &code);
      next = next && code ? dxf_scan_line (next, end) : NULL;
      if (!next || end - next <= 2 * DXF_SCAN_MOST)
        return;
      at = next;
      dat->byte = (size_t)(at - dat->chain);
    }
}

/* Where the value of a point's group goes; null: nowhere yet. */
static double *
point_value (Dwg_Entity_LWPOLYLINE *polyline, int code, BITCODE_BL room,
             BITCODE_BL *point)
{
  if (code == 10)
    {
      if (polyline->num_points >= room)
        return NULL;
      *point = polyline->num_points++;
      return &polyline->points[*point].x;
    }
  if (!polyline->num_points)
    return NULL;
  switch (code)
    {
    case 20:
      return &polyline->points[*point].y;
    case 40:
      return polyline->widths ? &polyline->widths[*point].start : NULL;
    case 41:
      return polyline->widths ? &polyline->widths[*point].end : NULL;
    case 42:
      return polyline->bulges ? &polyline->bulges[*point] : NULL;
    default:
      return NULL;
    }
}

void
dxf_read_plain_points (Bit_Chain *dat, Dwg_Entity_LWPOLYLINE *polyline,
                       BITCODE_BL room, BITCODE_BL *point)
{
  const unsigned char *const end = dat->chain + dat->size;
  if (dat->opts & DWG_OPTS_DXFB || dat->byte >= dat->size)
    return;
  for (;;)
    {
      int code;
      double value, *to;
      const unsigned char *at = line_at (dat);
      if (end - at <= 2 * DXF_SCAN_MOST)
        return;
      at = dxf_scan_code (at, &code);
      if (!at || code < 10 || code > 42)
        return;
      at = dxf_scan_real (at, &value);
      to = at ? point_value (polyline, code, room, point) : NULL;
      if (!to)
        return;
      *to = value;
      dat->byte = (size_t)(at - dat->chain);
    }
}

/* Where a number of a path goes; null: it is left. */
static double *
polyline_value (Dwg_HATCH_Path *path, int code, int *part, int *seen)
{
  if (!path->polyline_paths)
    return NULL;
  if (code == 10)
    {
      if (*part < -1 || *part + 1 >= (int)path->num_segs_or_paths)
        return NULL;
      *seen = ++*part + 1;
      return &path->polyline_paths[*part].point.x;
    }
  if (*part < 0 || *part >= (int)path->num_segs_or_paths)
    return NULL;
  return code == 20   ? &path->polyline_paths[*part].point.y
         : code == 42 ? &path->polyline_paths[*part].bulge
                      : NULL;
}

enum
{
  STRAIGHT = 1
};

static double *
segment_value (Dwg_HATCH_Path *path, int code, int part)
{
  Dwg_HATCH_PathSeg *segment;
  if (!path->segs || part < 0 || part >= (int)path->num_segs_or_paths
      || path->segs[part].curve_type != STRAIGHT)
    return NULL;
  segment = &path->segs[part];
  switch (code)
    {
    case 10:
      return &segment->first_endpoint.x;
    case 20:
      return &segment->first_endpoint.y;
    case 11:
      return &segment->second_endpoint.x;
    case 21:
      return &segment->second_endpoint.y;
    default:
      return NULL;
    }
}

/* The next part of a path that is no polyline. */
static const unsigned char *
begin_segment (const unsigned char *at, Dwg_HATCH_Path *path, int *part,
               int *seen)
{
  long curve;
  at = dxf_scan_integer (at, &curve);
  if (!at || curve != STRAIGHT || !path->segs || *part < -1
      || *part + 1 >= (int)path->num_segs_or_paths)
    return NULL;
  *seen = ++*part + 1;
  path->segs[*part].curve_type = STRAIGHT;
  return at;
}

static const unsigned char *
read_path_value (const unsigned char *at, Dwg_HATCH_Path *path, int code,
                 int is_polyline, int *part, int *seen)
{
  double value, *to;
  at = dxf_scan_real (at, &value);
  if (!at)
    return NULL;
  to = is_polyline ? polyline_value (path, code, part, seen)
                   : segment_value (path, code, *part);
  if (!to)
    return NULL;
  *to = value;
  return at;
}

void
dxf_read_plain_path (Bit_Chain *dat, Dwg_HATCH_Path *path, int is_polyline,
                     int *part, int *seen)
{
  const unsigned char *const end = dat->chain + dat->size;
  if (dat->opts & DWG_OPTS_DXFB || dat->byte >= dat->size)
    return;
  for (;;)
    {
      int code;
      const unsigned char *at = line_at (dat);
      if (end - at <= 2 * DXF_SCAN_MOST)
        return;
      at = dxf_scan_code (at, &code);
      if (!at)
        return;
      if (code == 72 && !is_polyline)
        at = begin_segment (at, path, part, seen);
      else if (code >= 10 && code <= 42)
        at = read_path_value (at, path, code, is_polyline, part, seen);
      else
        return;
      if (!at)
        return;
      dat->byte = (size_t)(at - dat->chain);
    }
}
