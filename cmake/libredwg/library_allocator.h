/* Included before each of LibreDWG's sources: the system's headers declare
   their functions first, and config.h takes some names back; then the names
   stand for mimalloc's. */
#include "config.h"

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>
#if defined(_WIN32) || defined(__GLIBC__)
#include <malloc.h>
#endif

#include <mimalloc-override.h>
