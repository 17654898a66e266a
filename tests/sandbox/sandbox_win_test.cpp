// What a process can no longer do behind RestrictProcess on Windows. Each child is
// this program again, with the attempt's name. What a system accepts without
// enforcing it, as wine does with some, is said and is no failure; what the
// process can still do although the system enforces it, is one.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>

#include "worker/sandbox.hpp"

namespace {

constexpr int kDone = 10;
constexpr int kRefused = 11;

int Outcome(bool isDone) {
  return isDone ? kDone : kRefused;
}

int RunAgain(const char* attempt, const char* place) {
  char program[MAX_PATH];
  GetModuleFileNameA(nullptr, program, MAX_PATH);
  std::string line = std::string("\"") + program + "\" " + attempt + " " + place;
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started = {};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started)) {
    return kRefused;
  }
  WaitForSingleObject(started.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(started.hProcess, &status);
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return static_cast<int>(status);
}

int StartProcess() {
  return Outcome(RunAgain("nothing", "outside") == kDone);
}

int MakeCode() {
  return Outcome(VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE) !=
                 nullptr);
}

// What the run needs is never refused.
int OpenAndWriteStreams() {
  return Outcome(std::printf("%s", "") == 0 && std::fflush(stdout) == 0 &&
                 VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE) != nullptr);
}

struct Attempt {
  const char* name;
  int (*make)();
  const char* restriction;  // what forbids it; null for what must go on
};

constexpr Attempt kAttempts[] = {{"nothing", [] { return kDone; }, nullptr},
                                 {"streams", OpenAndWriteStreams, nullptr},
                                 {"process", StartProcess, "no child processes"},
                                 {"code", MakeCode, "no dynamic code"}};

int RunOne(const char* name, bool isInside) {
  if (isInside) {
    RestrictProcess();
  }
  for (const Attempt& attempt : kAttempts) {
    if (std::strcmp(attempt.name, name) == 0) {
      return attempt.make();
    }
  }
  return 1;
}

bool IsEnforced(const char* name) {
  DWORD bits = 0;
  const PROCESS_MITIGATION_POLICY kind = std::strcmp(name, "no child processes") == 0
                                             ? ProcessChildProcessPolicy
                                             : ProcessDynamicCodePolicy;
  return GetProcessMitigationPolicy(GetCurrentProcess(), kind, &bits, sizeof bits) && bits != 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3) {
    return RunOne(argv[1], std::strcmp(argv[2], "inside") == 0);
  }
  int failures = 0;
  int outcomes[std::size(kAttempts)];
  for (std::size_t i = 0; i < std::size(kAttempts); ++i) {
    outcomes[i] = RunAgain(kAttempts[i].name, "inside");
    failures += RunAgain(kAttempts[i].name, "outside") == kDone ? 0 : 1;
  }
  const std::string names = RestrictProcess();
  std::printf("In force: %s\n", names.c_str());
  for (std::size_t i = 0; i < std::size(kAttempts); ++i) {
    const Attempt& attempt = kAttempts[i];
    const bool isWrong = attempt.restriction == nullptr
                             ? outcomes[i] != kDone
                             : outcomes[i] != kRefused && IsEnforced(attempt.restriction);
    failures += isWrong ? 1 : 0;
    std::printf("%s %s: %s\n", isWrong ? "FAILED" : "ok", attempt.name,
                outcomes[i] == kRefused ? "refused" : "done");
  }
  return failures == 0 && !names.empty() ? 0 : 1;
}
