#include "dxf_plain_groups.h"

#include <math.h>
#include <stdlib.h>
#include <string.h>

#include "config.h"

#include "common.h"
#include "decode.h"
#include "dxf_scan.h"
#include "dynapi.h"
#include "encode.h"
#include "in_dxf.h"

/* Of in_dxf.c. */
void dxf_claim_handle (Dwg_Data *dwg, BITCODE_RLL handle, const Dwg_Object *obj);
void dxf_postpone_block (const Dwg_Object *obj, const char *name);
void dxf_set_CMC_index (BITCODE_CMC *color, int index);
int is_obj_absowner (Dwg_Object *obj);

/* Entities without counters that run from one group to the next. */
#define PLAIN_TYPES(X)                                                        \
  X (LINE)                                                                    \
  X (CIRCLE)                                                                  \
  X (ARC)                                                                     \
  X (POINT)                                                                   \
  X (SOLID)                                                                   \
  X (TRACE)                                                                   \
  X (_3DFACE)                                                                 \
  X (ELLIPSE)                                                                 \
  X (TEXT)                                                                    \
  X (ATTRIB)                                                                  \
  X (ATTDEF)                                                                  \
  X (MTEXT)                                                                   \
  X (INSERT)                                                                  \
  X (LWPOLYLINE)                                                              \
  X (HATCH)                                                                   \
  X (RAY)                                                                     \
  X (XLINE)                                                                   \
  X (POLYLINE_2D)                                                             \
  X (VERTEX_2D)                                                               \
  X (VERTEX_3D)                                                               \
  X (SEQEND)                                                                  \
  X (BLOCK)                                                                   \
  X (ENDBLK)                                                                  \
  X (SPLINE)                                                                  \
  X (DIMENSION_LINEAR)                                                        \
  X (DIMENSION_ALIGNED)                                                       \
  X (DIMENSION_RADIUS)                                                        \
  X (DIMENSION_DIAMETER)                                                      \
  X (DIMENSION_ANG3PT)                                                        \
  X (DIMENSION_ANG2LN)                                                        \
  X (DIMENSION_ORDINATE)

typedef enum
{
#define X(token) PLAIN_##token,
  PLAIN_TYPES (X)
#undef X
      PLAIN_COUNT
} Plain_Type;

enum
{
  NUM_CODES = 256, /* those that belong to a type; all others are common */
  NUM_SUBCLASSES = 18,
  NUM_NAMES = 512,
  MOST_NAME = 255
};

typedef enum
{
  SLOT_UNKNOWN,     /* not met yet */
  SLOT_LEFT,        /* for new_object() */
  SLOT_REAL,        /* the value as it is */
  SLOT_ANGLE,       /* degrees to radians; 0 says nothing */
  SLOT_PASSED_OVER, /* a number that has no field */
  SLOT_INTEGER,     /* its lowest bytes */
  SLOT_TEXT,
  SLOT_MTEXT, /* joined to what is there */
  SLOT_TEXT_Z,
  SLOT_SCALE_Z,
  SLOT_NAME,       /* the handle of a table's entry */
  SLOT_BLOCK_NAME, /* the same, which is looked up later */
  SLOT_HANDLE,
  SLOT_SUBCLASS,
  SLOT_LAYER,
  SLOT_LTYPE,
  SLOT_COLOR,
  SLOT_LTYPE_SCALE,
  SLOT_COMMON_INTEGER
} Slot_Kind;

typedef struct
{
  uint8_t kind;
  uint8_t size;
  uint16_t offset;
} Slot;

/* Where what a missing group says goes; 0: the type has no such field. */
typedef struct
{
  uint16_t scale_flag, width_factor, scale, extrusion;
  int is_known;
} Defaults;

typedef struct
{
  Slot slots[NUM_CODES];
  Defaults defaults;
  uint16_t dataflags;
  uint32_t subclasses_seen, subclasses; /* a bit for each */
} Plain_Table;

/* Like the rest of the reader's state these are not for several threads: 50 kB
   that each thread would begin with. The same for all drawings: what the library's
   own tables say. */
static Plain_Table tables[PLAIN_COUNT];

typedef struct
{
  const unsigned char *text; /* in the file */
  size_t size;
  int code;
  BITCODE_H ref;
} Known_Name;

static struct
{
  Known_Name names[NUM_NAMES];
  BITCODE_H owner;
  BITCODE_RLL owner_value;
} known;

static const char *const subclass_names[NUM_SUBCLASSES]
    = { "AcDbEntity",         "AcDbLine",      "AcDbCircle",
        "AcDbArc",            "AcDbPoint",     "AcDbTrace",
        "AcDbFace",           "AcDbEllipse",   "AcDbText",
        "AcDbMText",          "AcDbPolyline",  "AcDbHatch",
        "AcDbBlockReference", "AcDbAttribute", "AcDbAttributeDefinition",
        "AcDbSpline",
        "AcDbBlockBegin",     "AcDbBlockEnd" };

/* One line that is read. */
typedef struct
{
  const unsigned char *text;
  size_t size;
} Line;

void
dxf_begin_plain_groups (void)
{
  memset (&known, 0, sizeof (known));
}

static int
plain_type (Dwg_Object_Type type)
{
  switch (type)
    {
#define X(token)                                                              \
  case DWG_TYPE_##token:                                                      \
    return PLAIN_##token;
      PLAIN_TYPES (X)
#undef X
    default:
      return -1;
    }
}

static int
is_text_like (int type)
{
  return type == PLAIN_TEXT || type == PLAIN_ATTRIB || type == PLAIN_ATTDEF;
}

static int
is_dimension (int type)
{
  return type >= PLAIN_DIMENSION_LINEAR;
}

static Slot
slot (Slot_Kind kind, size_t offset, size_t size)
{
  const Slot made = { (uint8_t)kind, (uint8_t)size, (uint16_t)offset };
  return made;
}

static int
is_real_code (int code)
{
  return (code >= 10 && code <= 59) || (code >= 110 && code <= 149)
         || (code >= 210 && code <= 239);
}

static int
is_integer_code (int code)
{
  return (code >= 60 && code <= 99) || (code >= 170 && code <= 179);
}

static int
is_text_code (int code)
{
  return code <= 4 || (code >= 6 && code <= 9);
}

static int
is_point (const Dwg_DYNAPI_field *f)
{
  return *f->type == '2' || *f->type == '3' || strcmp (f->type, "BE") == 0;
}

static int
is_count (const Dwg_DYNAPI_field *f)
{
  return strncmp (f->name, "num_", 4) == 0;
}

/* What new_object() does with a code that is the field's own. */
static Slot
slot_of_field (const Dwg_DYNAPI_field *f, int code)
{
  const Slot left = slot (SLOT_LEFT, 0, 0);
  if (strcmp (f->type, "H") == 0)
    return code == 3 || code == 7 ? slot (SLOT_NAME, f->offset, 0) : left;
  if (is_count (f) || strcmp (f->type, "CMC") == 0
      || strcmp (f->type, "D2T") == 0 || strcmp (f->type, "TFv") == 0)
    return left;
  if (is_real_code (code))
    {
      if (f->size != sizeof (double) && !(f->size > 8 && is_point (f)))
        return left;
      if (code < 50 || code > 55)
        return slot (SLOT_REAL, f->offset, 0);
      return f->size == sizeof (double) ? slot (SLOT_ANGLE, f->offset, 0)
                                        : left;
    }
  if (is_text_code (code) && f->is_string)
    return slot (SLOT_TEXT, f->offset, 0);
  if (is_integer_code (code) && !f->is_malloc && !f->is_indirect
      && f->size <= 4)
    return slot (SLOT_INTEGER, f->offset, f->size);
  return left;
}

/* The same for a code that is that of a coordinate of the field's point. */
static Slot
slot_of_coordinate (const Dwg_DYNAPI_field *f, int code, int number)
{
  const size_t offset = f->offset + (size_t)number * sizeof (double);
  if (!is_real_code (code) || strcmp (f->type, "CMC") == 0)
    return slot (SLOT_LEFT, 0, 0);
  if (number == 2 && strcmp (f->name, "scale") == 0)
    return slot (SLOT_SCALE_Z, f->offset, 0);
  if (f->size >= ((size_t)number + 1) * sizeof (double))
    return slot (SLOT_REAL, offset, 0);
  return number == 2 && *f->type == '2' ? slot (SLOT_PASSED_OVER, 0, 0)
                                        : slot (SLOT_LEFT, 0, 0);
}

static int
is_left_vector (const Dwg_DYNAPI_field *f, int code)
{
  if (!f->is_malloc || f->is_string || strcmp (f->name, "parent") == 0)
    return 0;
  return f->dxf == code || *f->type == '2' || *f->type == '3';
}

/* Searched in the order of new_object(). */
static Slot
slot_of_type (const Dwg_Object *obj, int code)
{
  const Dwg_DYNAPI_field *f = dwg_dynapi_entity_fields (obj->name);
  if (!f)
    return slot (SLOT_LEFT, 0, 0);
  for (; f->name; f++)
    {
      const int step = strstr (f->type, "_1") ? 1 : 10;
      if (is_left_vector (f, code) && (f->dxf == code || (code >= 10 && code <= 34)))
        return slot (SLOT_LEFT, 0, 0);
      if (f->is_malloc && !f->is_string)
        continue;
      if (f->dxf == code)
        return slot_of_field (f, code);
      if (!f->dxf || !is_point (f))
        continue;
      if (f->dxf + step == code)
        return slot_of_coordinate (f, code, 1);
      if (f->dxf + 2 * step == code)
        return slot_of_coordinate (f, code, 2);
    }
  return slot (SLOT_UNKNOWN, 0, 0);
}

static Slot
slot_of_common (int code)
{
  switch (code)
    {
    case 6:
      return slot (SLOT_LTYPE, 0, 0);
    case 48:
      return slot (SLOT_LTYPE_SCALE, 0, 0);
    case 60:
      return slot (SLOT_COMMON_INTEGER, offsetof (Dwg_Object_Entity, invisible),
                   sizeof (BITCODE_BS));
    case 62:
      return slot (SLOT_COLOR, 0, 0);
    case 67:
      return slot (SLOT_COMMON_INTEGER, offsetof (Dwg_Object_Entity, entmode),
                   sizeof (BITCODE_BB));
    default:
      return slot (SLOT_LEFT, 0, 0);
    }
}

/* Types for which group 100 may change the type. */
static int
is_type_open (int type)
{
  return type == PLAIN_POLYLINE_2D || type == PLAIN_VERTEX_2D
         || is_dimension (type);
}

static int
is_flag_plain (int type)
{
  return type == PLAIN_HATCH || is_text_like (type) || type == PLAIN__3DFACE
         || type == PLAIN_VERTEX_3D;
}

static Slot
find_slot (const Dwg_Object *obj, int type, int code)
{
  Slot found;
  switch (code)
    {
    case 0:
      return slot (SLOT_LEFT, 0, 0);
    case 5:
      return slot (SLOT_HANDLE, 0, 0);
    case 8:
      return slot (SLOT_LAYER, 0, 0);
    case 100:
      return slot (is_type_open (type) ? SLOT_LEFT : SLOT_SUBCLASS, 0, 0);
    default:
      break;
    }
  if ((code == 70 && !is_flag_plain (type))
      || (type == PLAIN_HATCH
          && (code == 10 || code == 20 || code == 78 || code == 91))
      || (type == PLAIN_LWPOLYLINE && (code == 10 || code == 90))
      || (type == PLAIN_MTEXT && code == 46)
      || (type == PLAIN__3DFACE && code == 30)
      || (type == PLAIN_SPLINE && code < 256 && code != 6 && code != 60
          && code != 62 && code != 67 && code != 48))
    return slot (SLOT_LEFT, 0, 0);
  if (type == PLAIN_INSERT && code == 2)
    return slot (SLOT_BLOCK_NAME, 0, 0);
  if (type == PLAIN_MTEXT && (code == 1 || code == 3))
    return slot (SLOT_MTEXT, 0, 0);
  found = slot_of_type (obj, code);
  if (found.kind == SLOT_UNKNOWN)
    found = slot_of_common (code);
  else if (code == 30 && found.kind == SLOT_REAL && is_text_like (type))
    found.kind = SLOT_TEXT_Z;
  return found;
}

static Slot
slot_of (const Dwg_Object *obj, int type, int code)
{
  Slot *known_slot = &tables[type].slots[code];
  if (known_slot->kind == SLOT_UNKNOWN)
    *known_slot = find_slot (obj, type, code);
  return *known_slot;
}

/* A value that stands for itself: nothing in it is an escape. Returns the
   first character of the next line. */
static const unsigned char *
scan_text (const unsigned char *at, const unsigned char *end, Line *line)
{
  const unsigned char *next = dxf_scan_line (at, end);
  if (!next || end - next < DXF_SCAN_MOST)
    return NULL;
  line->text = at;
  line->size = (size_t)(next - 1 - at);
  if (line->size && at[line->size - 1] == '\r')
    line->size--;
  return *at == '$' || memchr (at, '^', line->size) ? NULL : next;
}

static int
has_multibyte (const Line *line)
{
  const unsigned char *at = line->text, *const end = at + line->size;
  while ((at = (const unsigned char *)memchr (at, '\\', (size_t)(end - at))))
    {
      if (end - at >= 3 && at[1] == 'M' && at[2] == '+')
        return 1;
      at++;
    }
  return 0;
}

/* A copy, behind what is there, if anything is. */
static int
join_text (char **text, const Line *line)
{
  const size_t old = *text ? strlen (*text) : 0;
  char *joined = (char *)realloc (*text, old + line->size + 1);
  if (!joined)
    return 0;
  memcpy (joined + old, line->text, line->size);
  joined[old + line->size] = '\0';
  *text = joined;
  return 1;
}

static int
set_text (char **text, const Line *line)
{
  char *copy = (char *)malloc (line->size + 1);
  if (!copy)
    return 0;
  memcpy (copy, line->text, line->size);
  copy[line->size] = '\0';
  free (*text);
  *text = copy;
  return 1;
}

static Known_Name *
known_name (const Line *line, int code)
{
  uint64_t begin = 0, end = 0, hash;
  const size_t part = line->size < sizeof (begin) ? line->size : sizeof (begin);
  memcpy (&begin, line->text, part);
  memcpy (&end, line->text + line->size - part, part);
  hash = (begin ^ (uint64_t)code) * UINT64_C (0x9E3779B97F4A7C15);
  hash = (hash ^ end ^ line->size ^ hash >> 32) * UINT64_C (0xD6E8FEB86659FD93);
  return &known.names[(hash >> 32) % NUM_NAMES];
}

/* The handle of the entry that a group of that code names, null if there is
   none. */
static BITCODE_H
find_name (Dwg_Data *dwg, const Line *line, int code)
{
  char name[MOST_NAME + 1];
  Dxf_Pair pair = { 0, DWG_VT_STRING, { 0 } };
  Known_Name *at = known_name (line, code);
  if (at->ref && at->code == code && at->size == line->size
      && memcmp (at->text, line->text, line->size) == 0)
    return at->ref;
  if (line->size > MOST_NAME || has_multibyte (line))
    return NULL;
  memcpy (name, line->text, line->size);
  name[line->size] = '\0';
  pair.code = (short)code;
  pair.value.s.ptr = name;
  at->ref = find_tablehandle (dwg, &pair);
  at->code = code;
  at->text = line->text;
  at->size = line->size;
  return at->ref;
}

static int
postpone_block (const Dwg_Object *obj, const Line *line)
{
  char name[MOST_NAME + 1];
  if (line->size > MOST_NAME || has_multibyte (line))
    return 0;
  memcpy (name, line->text, line->size);
  name[line->size] = '\0';
  dxf_postpone_block (obj, name);
  return 1;
}

static int
is_entity_subclass (const char *subclass)
{
  return strcmp (subclass, "AcDbEntity") == 0;
}

/* Whether that subclass is one of the type's, and says nothing more. */
static int
set_subclass (const Dwg_Object *obj, int type, const Line *line,
              char *subclass)
{
  Plain_Table *table = &tables[type];
  for (unsigned i = 0; i < NUM_SUBCLASSES; i++)
    {
      const char *name = subclass_names[i];
      if (strlen (name) != line->size
          || memcmp (name, line->text, line->size) != 0)
        continue;
      if (!(table->subclasses_seen & 1U << i))
        {
          table->subclasses_seen |= 1U << i;
          if (dwg_has_subclass (obj->name, name))
            table->subclasses |= 1U << i;
        }
      if (!(table->subclasses & 1U << i))
        return 0;
      memcpy (subclass, name, line->size + 1);
      return 1;
    }
  return 0;
}

static void
set_handle (Dwg_Object *obj, BITCODE_RLL value)
{
  dxf_claim_handle (obj->parent, value, obj);
  obj->handle.value = value;
  dwg_add_handle (&obj->handle, 0, value, obj);
}

static void
set_owner (Dwg_Object *obj, BITCODE_RLL value)
{
  if (!is_obj_absowner (obj))
    {
      obj->tio.entity->ownerhandle
          = dwg_add_handleref (obj->parent, 4, value, obj);
      return;
    }
  if (!known.owner || known.owner_value != value)
    {
      known.owner = dwg_add_handleref (obj->parent, 4, value, NULL);
      known.owner_value = value;
    }
  obj->tio.entity->ownerhandle = known.owner;
}

static void
set_color (BITCODE_CMC *color, int index)
{
  if (!(color->flag & 0x80))
    dxf_set_CMC_index (color, index);
  else if (index != 0 && index != 256) /* the true color before it stays */
    color->index = (BITCODE_BSd)index;
}

static void
set_integer (void *field, size_t size, long value)
{
  const uint32_t number = (uint32_t)value;
  const uint16_t low = (uint16_t)number;
  const uint8_t lowest = (uint8_t)number;
  if (size == sizeof (number))
    memcpy (field, &number, size);
  else if (size == sizeof (low))
    memcpy (field, &low, size);
  else
    memcpy (field, &lowest, sizeof (lowest));
}

/* What a number may be for a code: the library gives up on others. */
static int
is_in_range (int code, long value)
{
  return (code >= 90 && code <= 99) || value <= UINT16_MAX;
}

static long
as_read (int code, long value)
{
  return code >= 90 && code <= 99 ? value : (long)(uint16_t)value;
}

static void
set_text_z (const Dwg_Object *obj, int type, char *data, size_t offset,
            double value)
{
  Plain_Table *table = &tables[type];
  if (value != 0.0)
    {
      memcpy (data + offset, &value, sizeof (value));
      return;
    }
  if (!table->dataflags)
    {
      const Dwg_DYNAPI_field *f
          = dwg_dynapi_entity_field (obj->name, "dataflags");
      table->dataflags = f ? f->offset : 0;
    }
  if (table->dataflags)
    data[table->dataflags] |= 1;
}

static void
set_scale_z (const Dwg_Object *obj, char *data, size_t offset, double z)
{
  Dwg_Entity_INSERT *insert = (Dwg_Entity_INSERT *)data;
  memcpy (data + offset + 2 * sizeof (z), &z, sizeof (z));
  if (obj->fixedtype != DWG_TYPE_INSERT
      || obj->parent->header.version < R_2000)
    return;
  if (insert->scale.x == 1.0 && insert->scale.y == 1.0 && z == 1.0)
    insert->scale_flag = 3;
  else if (insert->scale.x == 1.0)
    insert->scale_flag = 1;
  else if (insert->scale.x == insert->scale.y && insert->scale.x == z)
    insert->scale_flag = 2;
  else
    insert->scale_flag = 0;
}

static int
is_called (const Line *line, const char *name)
{
  return strlen (name) == line->size
         && strncasecmp ((const char *)line->text, name, line->size) == 0;
}

static void
set_ltype (const Dwg_Object *obj, BITCODE_H ref, const Line *line)
{
  Dwg_Object_Entity *entity = obj->tio.entity;
  entity->ltype = ref;
  entity->ltype_flags = is_called (line, "BYLAYER")      ? 0
                        : is_called (line, "BYBLOCK")    ? 1
                        : is_called (line, "CONTINUOUS") ? 2
                                                         : 3;
}

/* Each reads one value and returns the first character of the next line, null
   if it is left. */

static const unsigned char *
read_real (const unsigned char *at, const Dwg_Object *obj, int type,
           const Slot *to, char *data, const char *subclass)
{
  double value;
  const unsigned char *next = dxf_scan_real (at, &value);
  if (!next)
    return NULL;
  /* new_object() takes it for the elevation */
  if (to->kind == SLOT_PASSED_OVER && value != 0.0
      && (type == PLAIN_SOLID || type == PLAIN_TRACE
          || type == PLAIN_POLYLINE_2D))
    return NULL;
  switch (to->kind)
    {
    case SLOT_REAL:
      memcpy (data + to->offset, &value, sizeof (value));
      break;
    case SLOT_ANGLE:
      if (value != 0.0)
        {
          value = deg2rad (value);
          memcpy (data + to->offset, &value, sizeof (value));
        }
      break;
    case SLOT_TEXT_Z:
      set_text_z (obj, type, data, to->offset, value);
      break;
    case SLOT_SCALE_Z:
      set_scale_z (obj, data, to->offset, value);
      break;
    case SLOT_LTYPE_SCALE:
      if (!is_entity_subclass (subclass))
        return NULL;
      obj->tio.entity->ltype_scale = value;
      break;
    default:
      break;
    }
  return next;
}

/* Whether these groups stand where they say something else than of a text. */
static int
is_of_attribute (const Dwg_Object *obj, int type, int code,
                 const char *subclass)
{
  return (code == 71 || code == 72)
         && (type == PLAIN_ATTRIB || type == PLAIN_ATTDEF)
         && obj->parent->header.from_version >= R_2018
         && strncmp (subclass, "AcDbAttribute", 13) == 0;
}

static const unsigned char *
read_integer (const unsigned char *at, const Dwg_Object *obj, int code,
              const Slot *to, char *data)
{
  long value;
  const unsigned char *next = dxf_scan_integer (at, &value);
  if (!next || !is_in_range (code, value))
    return NULL;
  value = as_read (code, value);
  if (to->kind == SLOT_COLOR)
    set_color (&obj->tio.entity->color, (int)value);
  else if (to->kind == SLOT_COMMON_INTEGER)
    set_integer ((char *)obj->tio.entity + to->offset, to->size, value);
  else
    set_integer (data + to->offset, to->size, value);
  return next;
}

static const unsigned char *
read_text (const unsigned char *at, const unsigned char *end, Dwg_Object *obj,
           int type, int code, const Slot *to, char *data, char *subclass)
{
  Line line;
  BITCODE_H ref;
  const unsigned char *next = scan_text (at, end, &line);
  if (!next)
    return NULL;
  switch (to->kind)
    {
    case SLOT_SUBCLASS:
      return set_subclass (obj, type, &line, subclass) ? next : NULL;
    case SLOT_BLOCK_NAME:
      return postpone_block (obj, &line) ? next : NULL;
    case SLOT_TEXT:
    case SLOT_MTEXT:
      if (has_multibyte (&line))
        return NULL;
      if (to->kind == SLOT_TEXT)
        return set_text ((char **)(data + to->offset), &line) ? next : NULL;
      return join_text (&((Dwg_Entity_MTEXT *)data)->text, &line) ? next
                                                                  : NULL;
    default:
      break;
    }
  ref = find_name (obj->parent, &line, code);
  if (!ref)
    return NULL;
  if (to->kind == SLOT_LAYER)
    obj->tio.entity->layer = ref;
  else if (to->kind == SLOT_LTYPE)
    set_ltype (obj, ref, &line);
  else
    memcpy (data + to->offset, &ref, sizeof (ref));
  return next;
}

static const unsigned char *
read_far (const unsigned char *at, Dwg_Object *obj, int code,
          const char *subclass)
{
  const unsigned char *next = NULL;
  uint64_t handle;
  long value;
  if (code == 330)
    {
      next = dxf_scan_handle (at, &handle);
      if (next)
        set_owner (obj, handle);
    }
  else if (code == 370 && is_entity_subclass (subclass))
    {
      next = dxf_scan_integer (at, &value);
      if (next && value > UINT16_MAX)
        return NULL;
      if (next)
        obj->tio.entity->linewt = dxf_find_lweight ((int16_t)value);
    }
  return next;
}

static const unsigned char *
read_value (const unsigned char *at, const unsigned char *end, Dwg_Object *obj,
            int type, int code, char *data, char *subclass)
{
  Slot to;
  uint64_t handle;
  const unsigned char *next;
  if (code >= NUM_CODES)
    return read_far (at, obj, code, subclass);
  to = slot_of (obj, type, code);
  switch (to.kind)
    {
    case SLOT_LEFT:
      return NULL;
    case SLOT_REAL:
    case SLOT_ANGLE:
    case SLOT_PASSED_OVER:
    case SLOT_TEXT_Z:
    case SLOT_SCALE_Z:
    case SLOT_LTYPE_SCALE:
      return read_real (at, obj, type, &to, data, subclass);
    case SLOT_INTEGER:
      if (is_of_attribute (obj, type, code, subclass))
        return NULL;
      return read_integer (at, obj, code, &to, data);
    case SLOT_COLOR:
    case SLOT_COMMON_INTEGER:
      return read_integer (at, obj, code, &to, data);
    case SLOT_HANDLE:
      next = dxf_scan_handle (at, &handle);
      if (next)
        set_handle (obj, handle);
      return next;
    default:
      return read_text (at, end, obj, type, code, &to, data, subclass);
    }
}

/* Texts are kept as they are, unless they come from UTF-8 and go to a code page,
   or go to UTF-16. */
static int
are_texts_plain (const Bit_Chain *dat, const Dwg_Data *dwg)
{
  return dwg->header.version <= R_2000
         && (dat->from_version < R_2007 || dat->version < R_11);
}

void
dxf_read_plain_groups (Bit_Chain *dat, Dwg_Object *obj, void *data,
                       char *subclass)
{
  const int type = plain_type (obj->fixedtype);
  const unsigned char *at = dat->chain + dat->byte;
  const unsigned char *const end = dat->chain + dat->size;
  if (type < 0 || dat->opts & DWG_OPTS_DXFB
      || !are_texts_plain (dat, obj->parent))
    return;
  while (end - at > 2 * DXF_SCAN_MOST)
    {
      int code;
      const unsigned char *next;
      while (*at == '\n' || *at == '\r') /* behind a number */
        at++;
      next = dxf_scan_code (at, &code);
      if (next && code)
        next = read_value (next, end, obj, type, code, (char *)data, subclass);
      if (!next || !code)
        break;
      at = next;
      dat->byte = (size_t)(at - dat->chain);
    }
}

typedef struct
{
  const char *name;
  Dwg_Object_Type type;
  size_t size;
} Entity_Type;

#define X(token) { #token, DWG_TYPE_##token, sizeof (Dwg_Entity_##token) },
static const Entity_Type entity_types[] = { PLAIN_TYPES (X) };
#undef X

/* The type found last, of which there are mostly more; null if there is none of
   that name. */
static const Entity_Type *
find_type (const char *name)
{
  static unsigned last;
  if (strcmp (entity_types[last].name, name) == 0)
    return &entity_types[last];
  for (unsigned i = 0; i < PLAIN_COUNT; i++)
    {
      if (entity_types[i].name[0] == name[0]
          && strcmp (entity_types[i].name, name) == 0)
        {
          last = i;
          return &entity_types[i];
        }
    }
  return NULL;
}

int
dxf_is_entity (const char *name)
{
  return find_type (name) != NULL || is_dwg_entity (name);
}

void *
dxf_add_plain_entity (Dwg_Object *obj, const char *name, char *dxfname)
{
  const Entity_Type *type = find_type (name);
  Dwg_Entity_LINE *data;
  if (!type)
    return NULL;
  obj->type = (BITCODE_BS)type->type;
  obj->fixedtype = type->type;
  obj->name = (char *)type->name + (type->type == DWG_TYPE__3DFACE);
  obj->dxfname = dxfname;
  if (obj->type >= DWG_TYPE_GROUP)
    (void)dwg_encode_get_class (obj->parent, obj);
  data = (Dwg_Entity_LINE *)calloc (1, type->size);
  if (!data)
    return NULL;
  obj->tio.entity->tio.LINE = data;
  data->parent = obj->tio.entity;
  obj->tio.entity->objid = obj->index;
  return data;
}

BITCODE_H
dxf_standard_style (Dwg_Data *dwg)
{
  static const char name[] = "Standard";
  const Line line = { (const unsigned char *)name, sizeof (name) - 1 };
  return find_name (dwg, &line, 7);
}

/* What a text says beside its defaults. */
#define FINISH_TEXT(text)                                                     \
  do                                                                          \
    {                                                                         \
      BITCODE_RC flags = (text)->dataflags;                                   \
      flags |= (text)->elevation != 0.0 ? 1 : 0;                              \
      flags |= (text)->alignment_pt.x != (text)->ins_pt.x                     \
                       || (text)->alignment_pt.y != (text)->ins_pt.y          \
                   ? 2                                                        \
                   : 0;                                                       \
      flags |= (text)->oblique_angle != 0.0 ? 4 : 0;                          \
      flags |= (text)->rotation != 0.0 ? 8 : 0;                               \
      flags |= (text)->width_factor != 1.0 ? 0x10 : 0;                        \
      flags |= (text)->generation != 0 ? 0x20 : 0;                            \
      flags |= (text)->horiz_alignment != 0 ? 0x40 : 0;                       \
      flags |= (text)->vert_alignment != 0 ? 0x80 : 0;                        \
      (text)->dataflags = flags;                                              \
      if (!(text)->style)                                                     \
        (text)->style = dxf_standard_style (obj->parent);                     \
    }                                                                         \
  while (0)

void
dxf_finish_text (const Dwg_Object *obj)
{
  const Dwg_Object_Entity *entity = obj->tio.entity;
  if (obj->fixedtype == DWG_TYPE_TEXT)
    FINISH_TEXT (entity->tio.TEXT);
  else if (obj->fixedtype == DWG_TYPE_ATTRIB)
    FINISH_TEXT (entity->tio.ATTRIB);
  else if (obj->fixedtype == DWG_TYPE_ATTDEF)
    FINISH_TEXT (entity->tio.ATTDEF);
}

/* 0 for a field of another type, too. No field that is asked for lies at the
   beginning. */
static uint16_t
offset_of (const Dwg_Object *obj, const char *field, const char *type,
           const char *other_type)
{
  const Dwg_DYNAPI_field *f = dwg_dynapi_entity_field (obj->name, field);
  return f
                 && (strncmp (f->type, type, strlen (type)) == 0
                     || strncmp (f->type, other_type, strlen (other_type))
                            == 0)
             ? f->offset
             : 0;
}

static const Defaults *
defaults_of (const Dwg_Object *obj, int type)
{
  Defaults *defaults = &tables[type].defaults;
  if (!defaults->is_known)
    {
      defaults->is_known = 1;
      defaults->scale_flag = offset_of (obj, "scale_flag", "BB", "BB");
      defaults->width_factor = offset_of (obj, "width_factor", "RD", "BD");
      defaults->scale = offset_of (obj, "scale", "3BD", "3BD");
      defaults->extrusion = offset_of (obj, "extrusion", "BE", "3BD");
    }
  return defaults;
}

int
dxf_set_plain_defaults (const Dwg_Object *obj, void *data)
{
  const int type = plain_type (obj->fixedtype);
  const Defaults *defaults;
  const double upright[3] = { 0.0, 0.0, 1.0 };
  const double ones[3] = { 1.0, 1.0, 1.0 };
  char *at = (char *)data;
  if (type < 0)
    return 0;
  defaults = defaults_of (obj, type);
  if (defaults->scale_flag)
    at[defaults->scale_flag] = 3;
  if (defaults->width_factor)
    memcpy (at + defaults->width_factor, ones, sizeof (ones[0]));
  if (defaults->scale)
    memcpy (at + defaults->scale, ones, sizeof (ones));
  if (defaults->extrusion)
    memcpy (at + defaults->extrusion, upright, sizeof (upright));
  return 1;
}
