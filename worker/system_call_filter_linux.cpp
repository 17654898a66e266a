#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

#include "worker/system_call_filter.hpp"

namespace {

constexpr std::uint32_t kRefuse = SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(EPERM);
constexpr std::uint32_t kAllBits = 0xFFFFFFFF;

constexpr std::array kCalls = {
    // Reading the drawing, writing the document, and memory for both.
    SYS_read, SYS_write, SYS_munmap, SYS_madvise, SYS_brk, SYS_mremap, SYS_lseek, SYS_pread64,
    SYS_readv, SYS_writev, SYS_close, SYS_fstat, SYS_futex, SYS_getrandom, SYS_getcpu,
    // Whether a PDF lies beside the drawing. Neither opens anything.
    SYS_newfstatat, SYS_statx,
    // Times. Most systems have them without a call.
    SYS_clock_gettime, SYS_clock_getres, SYS_gettimeofday, SYS_nanosleep, SYS_clock_nanosleep,
    // A crash: the handler is told through a socket that is open, answers with a
    // signal, and the process ends of the signal that it had.
    SYS_sendmsg, SYS_recvmsg, SYS_rt_sigaction, SYS_rt_sigprocmask, SYS_rt_sigreturn,
    SYS_rt_sigtimedwait, SYS_sigaltstack, SYS_sched_yield, SYS_restart_syscall, SYS_getpid,
    SYS_gettid, SYS_getppid, SYS_getuid, SYS_geteuid, SYS_getgid, SYS_getegid,
    // The end.
    SYS_exit_group, SYS_exit};

// Signals to itself, as abort and a crash send them.
void AllowOwnSignals(FilterProgram& program) {
  const auto self = static_cast<std::uint32_t>(getpid());
  for (const long call : {SYS_kill, SYS_tgkill, SYS_rt_sigqueueinfo, SYS_rt_tgsigqueueinfo}) {
    program.AllowIf(call, 0, kAllBits, self);
  }
}

// Memory, but none to execute.
void AllowData(FilterProgram& program) {
  constexpr unsigned kProtection = 2;
  program.AllowIf(SYS_mmap, kProtection, PROT_EXEC, 0);
  program.AllowIf(SYS_mprotect, kProtection, PROT_EXEC, 0);
}

// Who may look into this process after a crash, and names of its memory.
void AllowOwnProperties(FilterProgram& program) {
  for (const int property : {PR_SET_PTRACER, PR_GET_DUMPABLE, PR_SET_DUMPABLE, PR_SET_VMA}) {
    program.AllowIf(SYS_prctl, 0, kAllBits, static_cast<std::uint32_t>(property));
  }
}

// How standard streams ask whether they are a terminal.
void AllowTerminalQuestion(FilterProgram& program) {
  program.AllowIf(SYS_ioctl, 1, kAllBits, TCGETS);
}

bool Install(std::span<sock_filter> instructions) {
  sock_fprog program = {.len = static_cast<unsigned short>(instructions.size()),
                        .filter = instructions.data()};
  // Kernels before 5.16 slow a filtered process down, against attacks on what it
  // shares its memory with; it shares none.
  for (const unsigned long flags :
       {SECCOMP_FILTER_FLAG_TSYNC | SECCOMP_FILTER_FLAG_SPEC_ALLOW, SECCOMP_FILTER_FLAG_TSYNC}) {
    if (syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, flags, &program) == 0) {
      return true;
    }
  }
  return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

}  // namespace

bool FilterSystemCalls() {
  const MachineCalls machine = CallsOfMachine();
  if (machine.auditArchitecture == 0) {
    return false;
  }
  FilterProgram program(machine.auditArchitecture);
  std::vector<long> calls(kCalls.begin(), kCalls.end());
  calls.insert(calls.end(), machine.further.begin(), machine.further.end());
  program.Allow(std::move(calls));
  AllowData(program);
  AllowOwnSignals(program);
  AllowOwnProperties(program);
  AllowTerminalQuestion(program);
  return Install(program.Finish());
}

namespace {

sock_filter Statement(unsigned code, std::uint32_t operand) {
  return {.code = static_cast<std::uint16_t>(code), .jt = 0, .jf = 0, .k = operand};
}

sock_filter Load(std::size_t offset) {
  return Statement(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
}

sock_filter Return(std::uint32_t verdict) {
  return Statement(BPF_RET | BPF_K, verdict);
}

// Goes on with the next instruction if it is equal, else skips some.
sock_filter UnlessEqualSkip(std::uint32_t operand, unsigned skipped) {
  return {.code = BPF_JMP | BPF_JEQ | BPF_K,
          .jt = 0,
          .jf = static_cast<std::uint8_t>(skipped),
          .k = operand};
}

// The lower half of an argument: all machines listed are little-endian.
std::size_t ArgumentOffset(unsigned argument) {
  return offsetof(seccomp_data, args) + sizeof(std::uint64_t) * argument;
}

}  // namespace

FilterProgram::FilterProgram(std::uint32_t auditArchitecture) {
  instructions_ = {Load(offsetof(seccomp_data, arch)),
                   // The next but one is the first of the calls.
                   {.code = BPF_JMP | BPF_JEQ | BPF_K, .jt = 1, .jf = 0, .k = auditArchitecture},
                   Return(kRefuse),
                   Load(offsetof(seccomp_data, nr))};
}

void FilterProgram::Allow(std::vector<long> calls) {
  constexpr std::size_t kGroup = 8;
  std::sort(calls.begin(), calls.end());
  for (std::size_t i = 0; i < calls.size(); i += kGroup) {
    AllowGroup(std::span<const long>(calls).subspan(i, std::min(kGroup, calls.size() - i)));
  }
}

// A larger number skips the group; an equal one jumps to its end, which lets it through.
void FilterProgram::AllowGroup(std::span<const long> sorted) {
  instructions_.push_back({.code = BPF_JMP | BPF_JGT | BPF_K,
                           .jt = static_cast<std::uint8_t>(sorted.size() + 1),
                           .jf = 0,
                           .k = static_cast<std::uint32_t>(sorted.back())});
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const std::size_t left = sorted.size() - 1 - i;
    instructions_.push_back({.code = BPF_JMP | BPF_JEQ | BPF_K,
                             .jt = static_cast<std::uint8_t>(left),
                             .jf = static_cast<std::uint8_t>(left == 0 ? 1 : 0),
                             .k = static_cast<std::uint32_t>(sorted[i])});
  }
  instructions_.push_back(Return(SECCOMP_RET_ALLOW));
}

void FilterProgram::AllowIf(long call, unsigned argument, std::uint32_t mask, std::uint32_t value) {
  const sock_filter test[] = {UnlessEqualSkip(static_cast<std::uint32_t>(call), 5),
                              Load(ArgumentOffset(argument)),
                              Statement(BPF_ALU | BPF_AND | BPF_K, mask),
                              UnlessEqualSkip(value, 1),
                              Return(SECCOMP_RET_ALLOW),
                              Load(offsetof(seccomp_data, nr))};
  instructions_.insert(instructions_.end(), std::begin(test), std::end(test));
}

std::span<sock_filter> FilterProgram::Finish() {
  instructions_.push_back(Return(kRefuse));
  return instructions_;
}
