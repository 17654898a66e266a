// Included ahead of the two logging files of the dependency: the worker's
// standard error carries progress lines and nothing else.
#include <stdarg.h>
#include <stdio.h>
#define fprintf(stream, ...) ((void)0)
#define vfprintf(stream, format, arguments) ((void)(arguments))
