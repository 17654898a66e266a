/* Reads single lines of a text DXF in place: group codes, numbers, handles.

   Each function takes the first character of a line and returns the first of
   the next line, or null for a line that is not written in the plain way; the
   library's own functions read those. None looks further than DXF_SCAN_MOST
   characters ahead, which must be there. */
#ifndef DXF_SCAN_H
#define DXF_SCAN_H

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#ifdef __cplusplus
extern "C"
{
#endif

#define DXF_SCAN_MOST 128

static inline int
dxf_is_digit (unsigned char c)
{
  return (unsigned char)(c - '0') <= 9;
}

/* How many digits stand at that place, 8 at most. The eight characters there are
   written to `word`, the digits among them as numbers, the first lowest. */
static inline unsigned
dxf_scan_eight (const unsigned char *at, uint64_t *word)
{
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  uint64_t others;
  memcpy (word, at, sizeof (*word));
  *word ^= UINT64_C (0x3030303030303030);
  /* What a character that is no digit carries changes only those behind it. */
  others = ((*word + UINT64_C (0x7676767676767676)) | *word)
           & UINT64_C (0x8080808080808080);
  return others ? (unsigned)__builtin_ctzll (others) / 8 : 8;
#else
  unsigned count;
  *word = 0;
  for (count = 0; count < 8 && dxf_is_digit (at[count]); count++)
    *word |= (uint64_t)(at[count] - '0') << 8 * count;
  return count;
#endif
}

/* Behind the digits at that place, or behind `most` of them and up to seven more. */
static inline const unsigned char *
dxf_scan_digits (const unsigned char *at, unsigned most)
{
  const unsigned char *const end = at + most;
  uint64_t word;
  unsigned count;
  do
    {
      count = dxf_scan_eight (at, &word);
      at += count;
    }
  while (count == 8 && at < end);
  return at;
}

/* The end of a line: null when there is something else. */
static inline const unsigned char *
dxf_scan_end (const unsigned char *at)
{
  at += *at == '\r';
  return *at == '\n' ? at + 1 : NULL;
}

static inline const unsigned char *
dxf_scan_blanks (const unsigned char *at)
{
  const unsigned char *const most = at + 8;
  while (*at == ' ' && at != most)
    at++;
  return at;
}

/* A group code from 0 to 9999. */
static inline const unsigned char *
dxf_scan_code (const unsigned char *at, int *code)
{
  const unsigned char *first;
  int number = 0;
  at = dxf_scan_blanks (at);
  for (first = at; dxf_is_digit (*at) && at - first < 4; at++)
    number = number * 10 + (*at - '0');
  *code = number;
  return at == first ? NULL : dxf_scan_end (at);
}

/* An integer of up to nine digits. */
static inline const unsigned char *
dxf_scan_integer (const unsigned char *at, long *value)
{
  const unsigned char *first;
  long number = 0;
  int is_negative;
  at = dxf_scan_blanks (at);
  is_negative = *at == '-';
  at += is_negative;
  for (first = at; dxf_is_digit (*at) && at - first < 9; at++)
    number = number * 10 + (*at - '0');
  *value = is_negative ? -number : number;
  return at == first ? NULL : dxf_scan_end (at);
}

/* A handle of up to 16 hexadecimal digits. */
static inline const unsigned char *
dxf_scan_handle (const unsigned char *at, uint64_t *value)
{
  const unsigned char *first;
  uint64_t number = 0;
  at = dxf_scan_blanks (at);
  for (first = at; at - first < 16; at++)
    {
      const unsigned char letter = (unsigned char)((*at | 0x20) - 'a');
      if (dxf_is_digit (*at))
        number = number << 4 | (unsigned)(*at - '0');
      else if (letter < 6)
        number = number << 4 | (letter + 10U);
      else
        break;
    }
  *value = number;
  return at == first ? NULL : dxf_scan_end (at);
}

/* A decimal of up to 19 digits without an exponent, rounded as strtod does. */
const unsigned char *dxf_scan_real (const unsigned char *at, double *value);

/* The first character of the next line; null if the text ends before. */
static inline const unsigned char *
dxf_scan_line (const unsigned char *at, const unsigned char *end)
{
  const unsigned char *line
      = (const unsigned char *)memchr (at, '\n', (size_t)(end - at));
  return line ? line + 1 : NULL;
}

#ifdef __cplusplus
}
#endif

#endif
