// Included ahead of the two logging files of the dependency: the worker's
// standard error carries progress lines and nothing else.
#include <stdarg.h>
#include <stdio.h>
#ifdef __cplusplus
#include <cstdio>  // undefines the macros below, unless it has been there before
#endif
#define fprintf(stream, ...) ((void)0)
#define vfprintf(stream, format, arguments) ((void)(arguments))
