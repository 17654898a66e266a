// The streams of a compound file, the container of embedded objects (the public
// description is [MS-CFB]).
#pragma once

#include <vector>

#include "complete/stored_bytes.hpp"

// The contents of every stream, in the order of the directory; none when the bytes are
// no compound file. Chains that run in a circle or out of the file end there. All
// streams together are no longer than the file.
std::vector<std::vector<unsigned char>> StreamsOf(StoredBytes file);
