#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include "worker/standard_streams.hpp"

void PrepareStandardStreams() {
  _setmode(_fileno(stdout), _O_BINARY);
}
