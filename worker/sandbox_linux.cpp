#include <sys/prctl.h>

#include <string>

#include "worker/landlock.hpp"
#include "worker/sandbox.hpp"
#include "worker/system_call_filter.hpp"

namespace {

void Append(std::string& names, const std::string& name) {
  if (!name.empty()) {
    names += names.empty() ? name : ", " + name;
  }
}

}  // namespace

std::string RestrictProcess() {
  // Without it an unprivileged process may do neither of the others.
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
    return {};
  }
  std::string names = "no_new_privs";
  // The filter does not let the calls through that Landlock is made of.
  if (const int version = RestrictByLandlock(); version > 0) {
    Append(names, "Landlock " + std::to_string(version));
  }
  if (FilterSystemCalls()) {
    Append(names, "seccomp");
  }
  return names;
}
