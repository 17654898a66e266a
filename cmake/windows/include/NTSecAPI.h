// crashpad's sources spell this header as Windows does; MinGW-w64 spells it in
// lower case, which matters where file names are case-sensitive.
#include <ntsecapi.h>
