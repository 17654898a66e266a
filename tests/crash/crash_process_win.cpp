// Makes another process crash, as a signal does elsewhere: starts a thread in it
// that runs into a breakpoint.
//
//   crash_process PROGRAM: the full path of the process's program
#include <windows.h>

#include <tlhelp32.h>

#include <cwchar>

namespace {

// The process that runs the program, or null.
HANDLE FindProcess(const wchar_t* program) {
  HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W entry = {};
  entry.dwSize = sizeof entry;
  HANDLE found = nullptr;
  for (BOOL more = Process32FirstW(snapshot, &entry); more && found == nullptr;
       more = Process32NextW(snapshot, &entry)) {
    HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, entry.th32ProcessID);
    if (process == nullptr)
      continue;
    wchar_t path[1024];
    DWORD length = 1024;
    if (QueryFullProcessImageNameW(process, 0, path, &length) && _wcsicmp(path, program) == 0) {
      found = process;
    } else {
      CloseHandle(process);
    }
  }
  CloseHandle(snapshot);
  return found;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc != 2)
    return 2;
  HANDLE process = FindProcess(argv[1]);
  if (process == nullptr)
    return 3;
  // The same address in every process.
  auto* breakpoint = reinterpret_cast<LPTHREAD_START_ROUTINE>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "DebugBreak")));
  return CreateRemoteThread(process, nullptr, 0, breakpoint, nullptr, 0, nullptr) ? 0 : 4;
}
