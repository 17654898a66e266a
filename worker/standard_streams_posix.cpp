#include "worker/standard_streams.hpp"

void PrepareStandardStreams() {}
