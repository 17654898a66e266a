// Limits of a child process, by the platform's means.
#pragma once

#include <cstdint>

namespace preview {

// In the child, between fork and exec. Does nothing on Windows.
void LimitThisProcess(int megabytes, int seconds);

// In the parent, after the start. Does nothing but on Windows, where the
// process becomes part of a job of its own.
void LimitStartedProcess(std::int64_t processId, int megabytes);

}  // namespace preview
