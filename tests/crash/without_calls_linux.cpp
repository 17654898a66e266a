// Plays a kernel that forbids some system calls: starts a program for which, and for
// whose children, they fail with EPERM.
//
//   without_calls NAME[,NAME...] PROGRAM [ARGUMENT...]
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace {

struct Call {
  std::string_view name;
  long number;
};

constexpr Call kCalls[] = {{"process_vm_readv", SYS_process_vm_readv}, {"ptrace", SYS_ptrace}};

// The number, or a negative one for a name that is not listed.
long NumberOf(std::string_view name) {
  for (const Call& call : kCalls) {
    if (call.name == name) {
      return call.number;
    }
  }
  return -1;
}

sock_filter Statement(unsigned code, std::uint32_t operand, unsigned skippedIfNot = 0) {
  return {.code = static_cast<std::uint16_t>(code),
          .jt = 0,
          .jf = static_cast<std::uint8_t>(skippedIfNot),
          .k = operand};
}

bool Forbid(std::string_view names) {
  std::vector<sock_filter> filter = {
      Statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  while (!names.empty()) {
    const std::size_t comma = names.find(',');
    const long number = NumberOf(names.substr(0, comma));
    if (number < 0) {
      return false;
    }
    filter.push_back(Statement(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(number), 1));
    filter.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
    names.remove_prefix(comma == std::string_view::npos ? names.size() : comma + 1);
  }
  filter.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  sock_fprog program = {.len = static_cast<unsigned short>(filter.size()), .filter = filter.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3 || !Forbid(argv[1])) {
    return 125;
  }
  execv(argv[2], argv + 2);
  return 126;
}
