#include <linux/audit.h>
#include <sys/syscall.h>

#include <array>

#include "worker/system_call_filter.hpp"

namespace {

constexpr std::array<long, 3> kFurther = {SYS_stat, SYS_lstat, SYS_time};

}  // namespace

// Calls of the x32 interface have numbers of their own, which are not listed.
MachineCalls CallsOfMachine() {
  return {.auditArchitecture = AUDIT_ARCH_X86_64, .further = kFurther};
}
