#include "worker/standard_streams.hpp"

// Streams write bytes as they are here.
void PrepareStandardStreams() {}
