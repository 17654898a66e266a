#include "dxf_scan.h"

enum
{
  MOST_DIGITS = 19,   /* of which each number fits into 64 bits */
  MOST_DECIMALS = 27, /* 5^27 is the largest power that does */
  MOST_EXACT = 22     /* 10^22 is the largest power that a double holds */
};

static const double powers_of_ten[MOST_EXACT + 1]
    = { 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };

#ifdef __SIZEOF_INT128__
/* 2^exponent, for those of normal doubles. */
static double
power_of_two (int exponent)
{
  const uint64_t bits = (uint64_t)(exponent + 1023) << 52;
  double value;
  memcpy (&value, &bits, sizeof (value));
  return value;
}

/* digits / 10^decimals: the quotient by a power of five has 63 bits or more, a
   last one says whether there is a remainder, and it is rounded once; the power
   of two is exact. */
static int
divide (uint64_t digits, int decimals, double *value)
{
  static const uint64_t powers_of_five[MOST_DECIMALS + 1] = {
    UINT64_C (1), UINT64_C (5), UINT64_C (25), UINT64_C (125), UINT64_C (625),
    UINT64_C (3125), UINT64_C (15625), UINT64_C (78125), UINT64_C (390625),
    UINT64_C (1953125), UINT64_C (9765625), UINT64_C (48828125),
    UINT64_C (244140625), UINT64_C (1220703125), UINT64_C (6103515625),
    UINT64_C (30517578125), UINT64_C (152587890625), UINT64_C (762939453125),
    UINT64_C (3814697265625), UINT64_C (19073486328125),
    UINT64_C (95367431640625), UINT64_C (476837158203125),
    UINT64_C (2384185791015625), UINT64_C (11920928955078125),
    UINT64_C (59604644775390625), UINT64_C (298023223876953125),
    UINT64_C (1490116119384765625), UINT64_C (7450580596923828125)
  };
  const uint64_t five = powers_of_five[decimals];
  const int up = __builtin_clzll (five);
  const int up_digits = __builtin_clzll (digits);
  const uint64_t divisor = five << up;
  const unsigned __int128 dividend
      = (unsigned __int128)(digits << up_digits) << 63;
  uint64_t quotient = (uint64_t)(dividend / divisor);
  if ((unsigned __int128)quotient * divisor != dividend)
    quotient |= 1;
  *value = (double)quotient
           * power_of_two (up - up_digits - decimals - 63);
  return 1;
}
#else
static int
divide (uint64_t digits, int decimals, double *value)
{
  (void)digits;
  (void)decimals;
  (void)value;
  return 0;
}
#endif

/* The number of the first digits of a word, by neighbours: of one, two and four
   digits. Zeros take the place of those before them. */
static uint32_t
number_of (uint64_t word, unsigned count)
{
  word <<= 64 - 8 * count;
  word = word * 10 + (word >> 8);
  return (uint32_t)(((word & UINT64_C (0x000000FF000000FF))
                         * UINT64_C (0x000F424000000064)
                     + ((word >> 16) & UINT64_C (0x000000FF000000FF))
                           * UINT64_C (0x0000271000000001))
                    >> 32);
}

/* The digits at that place, behind those before. Stops some way behind the first
   that are too many. */
static const unsigned char *
scan_digits (const unsigned char *at, uint64_t *digits)
{
  static const uint32_t tens[9] = { 1,      10,      100,      1000,     10000,
                                    100000, 1000000, 10000000, 100000000 };
  const unsigned char *const first = at;
  unsigned count;
  do
    {
      uint64_t word;
      count = dxf_scan_eight (at, &word);
      if (count)
        *digits = *digits * tens[count] + number_of (word, count);
      at += count;
    }
  while (count == 8 && at - first <= MOST_DIGITS);
  return at;
}

const unsigned char *
dxf_scan_real (const unsigned char *at, double *value)
{
  uint64_t digits = 0;
  const unsigned char *start, *first, *point = NULL;
  double result;
  int decimals, count, is_negative;
  at = dxf_scan_blanks (at);
  is_negative = *at == '-';
  at += is_negative || *at == '+';
  start = at;
  for (first = at; *at == '0' && at - first < 8; at++)
    ; /* not among the digits that count */
  first = at;
  at = scan_digits (at, &digits);
  count = (int)(at - first);
  if (*at == '.')
    {
      point = ++at;
      if (!digits)
        {
          while (*at == '0' && at - point <= MOST_DECIMALS)
            at++;
          count = 0;
        }
      first = at;
      at = scan_digits (at, &digits);
      count += (int)(at - first);
    }
  decimals = point ? (int)(at - point) : 0;
  if (count > MOST_DIGITS || decimals > MOST_DECIMALS
      || at - (point == at) == start)
    return NULL;
  at = dxf_scan_end (at);
  if (!at)
    return NULL;
  if (!digits)
    result = 0.0;
  else if (digits <= UINT64_C (1) << 53 && decimals <= MOST_EXACT)
    /* both are exact, their quotient is rounded once */
    result = (double)digits / powers_of_ten[decimals];
  else if (!divide (digits, decimals, &result))
    return NULL;
  *value = is_negative ? -result : result;
  return at;
}
