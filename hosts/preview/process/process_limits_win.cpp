#include "process/process_limits.hpp"

#include <windows.h>

namespace preview {
namespace {

HANDLE NewJob(int megabytes) {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags =
      JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  limits.ProcessMemoryLimit = static_cast<SIZE_T>(megabytes) << 20U;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

}  // namespace

void LimitThisProcess(int /*megabytes*/, int /*seconds*/) {}

// The job's handle is kept for as long as this program runs, so that a worker
// never outlives it.
void LimitStartedProcess(std::int64_t processId, int megabytes) {
  const HANDLE process =
      OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(processId));
  if (process != nullptr) {
    AssignProcessToJobObject(NewJob(megabytes), process);
    CloseHandle(process);
  }
}

}  // namespace preview
