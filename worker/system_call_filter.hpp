// A filter of system calls (seccomp): those that a conversion and a crash report
// need go through, every other fails with EPERM and ends nothing.
#pragma once

#include <linux/filter.h>

#include <cstdint>
#include <span>
#include <vector>

// Filters this process's system calls for the rest of its life. False when the
// kernel lacks seccomp or refuses, or the machine is one whose calls are not
// listed. Needs no_new_privs.
bool FilterSystemCalls();

// The program of such a filter, which grows call by call. The kernel runs it for every
// number that a call can have, once, when it is installed: so it should decide early.
class FilterProgram {
 public:
  // Calls made for another machine's interface are refused. `auditArchitecture` is one of
  // the kernel's AUDIT_ARCH_ constants.
  explicit FilterProgram(std::uint32_t auditArchitecture);

  // Lets calls through whatever their arguments are.
  void Allow(std::vector<long> calls);

  // Lets a call through when the lower half of an argument, counted from 0, is
  // `value` in the bits of `mask`. Meant for arguments of which the kernel takes
  // no more.
  void AllowIf(long call, unsigned argument, std::uint32_t mask, std::uint32_t value);

  // All other calls fail with EPERM. Ends the program.
  std::span<sock_filter> Finish();

 private:
  void AllowGroup(std::span<const long> sorted);

  std::vector<sock_filter> instructions_;
};

// What depends on the machine.
struct MachineCalls {
  // 0 for a machine whose calls are not listed.
  std::uint32_t auditArchitecture;
  // The calls of old that newer machines do not have.
  std::span<const long> further;
};
MachineCalls CallsOfMachine();
