#include <linux/audit.h>

#include "worker/system_call_filter.hpp"

MachineCalls CallsOfMachine() {
  return {.auditArchitecture = AUDIT_ARCH_AARCH64, .further = {}};
}
