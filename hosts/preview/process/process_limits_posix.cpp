#include "process/process_limits.hpp"

#include <sys/resource.h>

namespace preview {

// Only calls that are safe after a fork.
void LimitThisProcess(int megabytes, int seconds) {
  const rlim_t bytes = static_cast<rlim_t>(megabytes) << 20U;
  const rlimit memory{bytes, bytes};
  setrlimit(RLIMIT_AS, &memory);
  const rlimit time{static_cast<rlim_t>(seconds) + 5, static_cast<rlim_t>(seconds) + 5};
  setrlimit(RLIMIT_CPU, &time);
  const rlimit core{0, 0};
  setrlimit(RLIMIT_CORE, &core);
}

void LimitStartedProcess(std::int64_t /*processId*/, int /*megabytes*/) {}

}  // namespace preview
