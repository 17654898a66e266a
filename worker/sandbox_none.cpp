#include "worker/sandbox.hpp"

// For other systems, and for builds whose tools work inside the process: sanitizers
// open files and start a symbolizer, coverage writes a file at the end.
std::string RestrictProcess() {
  return {};
}
