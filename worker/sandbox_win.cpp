#include <windows.h>

#include <string>

#include "worker/sandbox.hpp"

namespace {

struct Policy {
  const char* name;
  PROCESS_MITIGATION_POLICY kind;
  DWORD bits;
};

constexpr Policy kPolicies[] = {
    {"no child processes", ProcessChildProcessPolicy, 1},
    {"no dynamic code", ProcessDynamicCodePolicy, 1},
    {"no remote or low-label images", ProcessImageLoadPolicy, 3},
    // A wrong handle raises an exception, for good.
    {"strict handles", ProcessStrictHandleCheckPolicy, 3},
    {"no extension points", ProcessExtensionPointDisablePolicy, 1},
};

using SetPolicy = BOOL(WINAPI*)(PROCESS_MITIGATION_POLICY, void*, SIZE_T);

// Null on systems before Windows 8.
SetPolicy PolicySetter() {
  HMODULE library = GetModuleHandleW(L"kernel32.dll");
  return reinterpret_cast<SetPolicy>(
      reinterpret_cast<void*>(GetProcAddress(library, "SetProcessMitigationPolicy")));
}

void Append(std::string& names, const char* name) {
  if (!names.empty()) {
    names += ", ";
  }
  names += name;
}

// A job in which this process is alone and keeps away from the user's desktop.
// Assigning it starts nothing and ends nothing; the crash handler runs already,
// outside.
bool EnterJob() {
  BOOL isInJob = TRUE;
  if (!IsProcessInJob(GetCurrentProcess(), nullptr, &isInJob) || isInJob) {
    return false;  // the host's own job says what holds
  }
  HANDLE job = CreateJobObjectW(nullptr, nullptr);
  if (job == nullptr) {
    return false;
  }
  JOBOBJECT_BASIC_LIMIT_INFORMATION limits = {};
  limits.LimitFlags = JOB_OBJECT_LIMIT_ACTIVE_PROCESS;
  limits.ActiveProcessLimit = 1;
  JOBOBJECT_BASIC_UI_RESTRICTIONS desktop = {};
  desktop.UIRestrictionsClass = JOB_OBJECT_UILIMIT_DESKTOP | JOB_OBJECT_UILIMIT_DISPLAYSETTINGS |
                                JOB_OBJECT_UILIMIT_EXITWINDOWS | JOB_OBJECT_UILIMIT_GLOBALATOMS |
                                JOB_OBJECT_UILIMIT_HANDLES | JOB_OBJECT_UILIMIT_READCLIPBOARD |
                                JOB_OBJECT_UILIMIT_SYSTEMPARAMETERS |
                                JOB_OBJECT_UILIMIT_WRITECLIPBOARD;
  const bool isIn =
      SetInformationJobObject(job, JobObjectBasicLimitInformation, &limits, sizeof limits) &&
      SetInformationJobObject(job, JobObjectBasicUIRestrictions, &desktop, sizeof desktop) &&
      AssignProcessToJobObject(job, GetCurrentProcess());
  // The job lives as long as its process.
  CloseHandle(job);
  return isIn;
}

}  // namespace

std::string RestrictProcess() {
  std::string names;
  if (SetPolicy set = PolicySetter(); set != nullptr) {
    for (const Policy& policy : kPolicies) {
      DWORD bits = policy.bits;
      if (set(policy.kind, &bits, sizeof bits)) {
        Append(names, policy.name);
      }
    }
  }
  if (EnterJob()) {
    Append(names, "a job of its own");
  }
  return names;
}
