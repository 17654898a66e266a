// Crashes in ways that the worker cannot be made to, with the worker's crash
// reporting and, when "sandbox" follows, in its sandbox.
//
//   crash_program KIND [sandbox]
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

#include "worker/crash_reporting.hpp"
#include "worker/sandbox.hpp"

namespace {

bool isSandboxed = false;

// The last thing before the crash.
void EnterSandbox() {
  if (isSandboxed && RestrictProcess().empty()) {
    std::exit(3);
  }
}

[[gnu::noinline]] void WriteToNowhere() {
  volatile int* volatile nowhere = nullptr;
  *nowhere = 1;
}

// Each call keeps its frame, so the stack runs out.
[[gnu::noinline]] int Recurse(int depth) {
  volatile char frame[1024];
  frame[depth % 1024] = 1;
  return depth < 0 ? 0 : Recurse(depth + 1) + frame[0];
}

void Overflow() {
  EnterSandbox();
  std::exit(Recurse(0));
}

void InThread() {
  // The sandbox allows no new thread, so this one enters it.
  std::thread thread([] {
    EnterSandbox();
    WriteToNowhere();
  });
  thread.join();
}

// Where another part of the program has a signal stack of its own.
void OnAlternateStack() {
  static char memory[1 << 16];
  stack_t stack = {};
  stack.ss_sp = memory;
  stack.ss_size = sizeof memory;
  sigaltstack(&stack, nullptr);
  struct sigaction action = {};
  action.sa_handler = [](int) { WriteToNowhere(); };
  action.sa_flags = SA_ONSTACK;
  sigaction(SIGUSR1, &action, nullptr);
  EnterSandbox();
  raise(SIGUSR1);
}

// The allocator follows a broken list while it holds its lock.
void InMalloc() {
  constexpr std::size_t kSize = 4096;         // kept in no cache of the thread's
  void* volatile first = std::malloc(kSize);  // volatile: so that nobody sees what follows
  void* const barrier = std::malloc(kSize);
  std::free(first);
  // A free block begins with its neighbours in the list. This one is none: it does not
  // name the block, so the C library aborts.
  static std::uintptr_t stranger[8] = {};
  auto* const neighbours = static_cast<volatile std::uintptr_t*>(first);
  neighbours[0] = reinterpret_cast<std::uintptr_t>(stranger);
  neighbours[1] = reinterpret_cast<std::uintptr_t>(stranger);
  EnterSandbox();
  void* const second = std::malloc(2 * kSize);
  std::printf("%p %p", barrier, second);
}

void Abort() {
  EnterSandbox();
  std::abort();
}

struct Kind {
  std::string_view name;
  void (*crash)();
};

constexpr Kind kKinds[] = {{"overflow", Overflow},
                           {"thread", InThread},
                           {"alternate", OnAlternateStack},
                           {"malloc", InMalloc},
                           {"abort", Abort}};

}  // namespace

int main(int argc, char** argv) {
  StartCrashReporting("crash_program");
  isSandboxed = argc > 2 && std::string_view(argv[2]) == "sandbox";
  for (const Kind& kind : kKinds) {
    if (argc > 1 && kind.name == argv[1]) {
      kind.crash();
    }
  }
  StopCrashReporting();
  return 2;
}
