// What a process can no longer do behind RestrictProcess, and what it still can: in
// child processes, on this kernel and on older ones. Filters of system calls play
// those, by answering as a kernel that does not know a call.
#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "worker/sandbox.hpp"

namespace {

namespace fs = std::filesystem;

enum class Kernel { kThis, kWithoutLandlock, kWithoutSeccomp, kWithoutBoth };

constexpr std::uint32_t kCreateRuleset = 444;

void Refuse(std::vector<sock_filter>& program, std::uint32_t call, int error) {
  program.push_back({BPF_JMP | BPF_JEQ | BPF_K, 0, 1, call});
  program.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error)});
}

// The calls of prctl are told apart by their first argument.
void RefuseOldSeccomp(std::vector<sock_filter>& program) {
  program.push_back({BPF_JMP | BPF_JEQ | BPF_K, 0, 3, SYS_prctl});
  program.push_back({BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, args)});
  Refuse(program, PR_SET_SECCOMP, EINVAL);
}

// Ends the process when it cannot play that kernel.
void Play(Kernel kernel) {
  std::vector<sock_filter> program = {{BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)}};
  if (kernel == Kernel::kWithoutLandlock || kernel == Kernel::kWithoutBoth) {
    Refuse(program, kCreateRuleset, ENOSYS);
  }
  if (kernel == Kernel::kWithoutSeccomp || kernel == Kernel::kWithoutBoth) {
    Refuse(program, SYS_seccomp, ENOSYS);
    RefuseOldSeccomp(program);
  }
  program.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW});
  const sock_fprog all = {static_cast<unsigned short>(program.size()), program.data()};
  if (kernel != Kernel::kThis && (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
                                  prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &all, 0, 0) != 0)) {
    std::abort();
  }
}

// The status with which a child ends that does `work`, which gives its exit code.
template <typename Work>
int StatusOfChild(const Work& work) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(work());
  }
  int status = 0;
  EXPECT_EQ(child, waitpid(child, &status, 0));
  return status;
}

int ErrorOf(long result) {
  return result == -1 ? errno : 0;
}

struct Attempt {
  const char* name;
  // 0, or the error that it ends with.
  int (*make)();
  // What Landlock alone gives; 0 for what it does not know.
  int errorByLandlock = 0;
};

// Files of this test, made anew for each of its processes.
const char* Folder() {
  return "sandbox_test_folder";
}
const char* File() {
  return "sandbox_test_folder/file";
}
const char* OtherFile() {
  return "sandbox_test_folder/other";
}

int Connect() {
  const int made = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(9);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int error =
      made < 0 ? errno
               : ErrorOf(connect(made, reinterpret_cast<sockaddr*>(&address), sizeof address));
  // Nobody listens there.
  return error == ECONNREFUSED ? 0 : error;
}

int StartProgram() {
  char name[] = "/bin/true";
  std::array<char*, 2> words = {name, nullptr};
  return ErrorOf(execv(name, words.data()));
}

int ReadOtherMemory() {
  char from = 'a';
  char to = 0;
  const iovec local = {&to, 1};
  const iovec remote = {&from, 1};
  return ErrorOf(process_vm_readv(getpid(), &local, 1, &remote, 1, 0));
}

int MapCode() {
  return ErrorOf(mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC,
                      MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED
                     ? -1
                     : 0);
}

int MakeCode() {
  void* memory = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return ErrorOf(mprotect(memory, 4096, PROT_READ | PROT_EXEC));
}

int Fork() {
  const pid_t child = fork();
  if (child == 0) {
    _exit(0);
  }
  return ErrorOf(child);
}

const std::vector<Attempt>& Attempts() {
  static const std::vector<Attempt> attempts = {
      {"OpenFile", [] { return ErrorOf(open(File(), O_RDONLY)); }, EACCES},
      {"OpenFileOfSystem", [] { return ErrorOf(open("/etc/passwd", O_RDONLY)); }, EACCES},
      {"OpenFolder", [] { return ErrorOf(open("/", O_RDONLY | O_DIRECTORY)); }, EACCES},
      {"OpenFileToWrite", [] { return ErrorOf(open(File(), O_WRONLY)); }, EACCES},
      {"CreateFile", [] { return ErrorOf(open(OtherFile(), O_WRONLY | O_CREAT, 0600)); }, EACCES},
      {"RemoveFile", [] { return ErrorOf(unlink(File())); }, EACCES},
      {"RenameFile", [] { return ErrorOf(rename(File(), OtherFile())); }, EACCES},
      {"MakeFolder", [] { return ErrorOf(mkdir(OtherFile(), 0700)); }, EACCES},
      {"MakeLink", [] { return ErrorOf(symlink("/etc/passwd", OtherFile())); }, EACCES},
      {"ChangeMode", [] { return ErrorOf(chmod(File(), 0600)); }},
      {"ReadLink",
       [] {
         char to[8];
         return ErrorOf(readlink("/proc/self/exe", to, sizeof to));
       }},
      {"Connect", Connect, EACCES},
      {"OpenUnixSocket", [] { return ErrorOf(socket(AF_UNIX, SOCK_STREAM, 0)); }},
      {"StartProgram", StartProgram, EACCES},
      {"Fork", Fork},
      {"Trace", [] { return ErrorOf(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr)); }},
      {"ReadOtherMemory", ReadOtherMemory},
      {"SignalParent", [] { return ErrorOf(kill(getppid(), 0)); }, EPERM},
      {"MapCode", MapCode},
      {"MakeCode", MakeCode},
      {"LeaveNamespace", [] { return ErrorOf(unshare(CLONE_FILES)); }},
      {"LimitResources", [] { return ErrorOf(syscall(SYS_prlimit64, 0, 0, nullptr, nullptr)); }},
      {"AskForPrivileges", [] { return ErrorOf(prctl(PR_GET_SECCOMP, 0, 0, 0, 0)); }},
  };
  return attempts;
}

class SandboxTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(Folder());
    ASSERT_TRUE(fs::create_directory(Folder()));
    ASSERT_TRUE(std::ofstream(File()).is_open());
  }
  void TearDown() override { fs::remove_all(Folder()); }
};

// What RestrictProcess says on such a kernel.
std::string NamesOn(Kernel kernel) {
  int ends[2];
  EXPECT_EQ(0, pipe(ends));
  const int status = StatusOfChild([&] {
    Play(kernel);
    const std::string names = RestrictProcess();
    return write(ends[1], names.data(), names.size()) < 0 ? errno : 0;
  });
  EXPECT_EQ(0, status);
  close(ends[1]);
  char names[256];
  const ssize_t size = read(ends[0], names, sizeof names);
  close(ends[0]);
  return {names, size < 0 ? 0 : static_cast<std::size_t>(size)};
}

int LandlockOfThisKernel() {
  return static_cast<int>(syscall(kCreateRuleset, nullptr, 0, 1));
}

template <typename Work>
int ErrorInside(Kernel kernel, const Work& work) {
  const int status = StatusOfChild([&] {
    Play(kernel);
    RestrictProcess();
    return work();
  });
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST_F(SandboxTest, EveryAttemptSucceedsOutside) {
  for (const Attempt& attempt : Attempts()) {
    SetUp();
    const int status = StatusOfChild(attempt.make);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << attempt.name << ": " << status;
  }
}

TEST_F(SandboxTest, EveryAttemptFailsInside) {
  for (const Kernel kernel : {Kernel::kThis, Kernel::kWithoutLandlock}) {
    for (const Attempt& attempt : Attempts()) {
      EXPECT_EQ(EPERM, ErrorInside(kernel, attempt.make)) << attempt.name;
    }
  }
}

TEST_F(SandboxTest, LandlockAloneKeepsFilesNetAndSignals) {
  constexpr int kWithSignals = 6;
  if (LandlockOfThisKernel() < kWithSignals) {
    GTEST_SKIP() << "this kernel's Landlock is of version " << LandlockOfThisKernel();
  }
  for (const Attempt& attempt : Attempts()) {
    SetUp();
    EXPECT_EQ(attempt.errorByLandlock, ErrorInside(Kernel::kWithoutSeccomp, attempt.make))
        << attempt.name;
  }
}

TEST_F(SandboxTest, WithoutBothEveryAttemptSucceeds) {
  for (const Attempt& attempt : Attempts()) {
    SetUp();
    EXPECT_EQ(0, ErrorInside(Kernel::kWithoutBoth, attempt.make)) << attempt.name;
  }
}

TEST_F(SandboxTest, NamesWhatIsInForce) {
  std::string landlock;
  if (LandlockOfThisKernel() > 0) {
    landlock = ", Landlock " + std::to_string(LandlockOfThisKernel());
  }
  EXPECT_EQ("no_new_privs" + landlock + ", seccomp", NamesOn(Kernel::kThis));
  EXPECT_EQ("no_new_privs, seccomp", NamesOn(Kernel::kWithoutLandlock));
  EXPECT_EQ("no_new_privs" + landlock, NamesOn(Kernel::kWithoutSeccomp));
  EXPECT_EQ("no_new_privs", NamesOn(Kernel::kWithoutBoth));
}

#ifdef __x86_64__
TEST_F(SandboxTest, CallsOfOtherInterfacesFailInside) {
  constexpr long kX32 = 0x40000000;
  EXPECT_EQ(EPERM, ErrorInside(Kernel::kThis, [] { return ErrorOf(syscall(kX32 + SYS_getpid)); }));
  constexpr long kGetpidOf32Bits = 20;
  EXPECT_EQ(EPERM, ErrorInside(Kernel::kThis, [] {
              long result = kGetpidOf32Bits;
              asm volatile("int $0x80" : "+a"(result) : : "memory");
              return static_cast<int>(-result);
            }));
}
#endif

TEST_F(SandboxTest, WhatTheRunNeedsGoesOn) {
  const int file = open(File(), O_RDWR);
  ASSERT_GE(file, 0);
  EXPECT_EQ(0, ErrorInside(Kernel::kThis, [file] { return ErrorOf(write(file, "a", 1)); }));
  EXPECT_EQ(0, ErrorInside(Kernel::kThis, [file] {
              void* bytes = mmap(nullptr, 1, PROT_READ, MAP_PRIVATE, file, 0);
              return bytes != MAP_FAILED && *static_cast<char*>(bytes) == 'a' ? 0 : 1;
            }));
  EXPECT_EQ(0, ErrorInside(Kernel::kThis, [] { return fs::exists(File()) ? 0 : 1; }));
  EXPECT_EQ(0, ErrorInside(Kernel::kThis, [] { return fs::exists(OtherFile()) ? 1 : 0; }));
  EXPECT_EQ(0, ErrorInside(Kernel::kThis, [] {
              constexpr std::size_t kLarge = std::size_t{64} << 20U;
              return std::vector<char>(kLarge, 'a').back() == 'a' ? 0 : 1;
            }));
  close(file);
}

TEST_F(SandboxTest, CrashesKeepTheirSignals) {
  EXPECT_EQ(-SIGABRT, ErrorInside(Kernel::kThis, []() -> int { std::abort(); }));
  EXPECT_EQ(-SIGSEGV, ErrorInside(Kernel::kThis, [] { return raise(SIGSEGV); }));
}

TEST_F(SandboxTest, AHandlerMayBeLetIn) {
  // Answers EINVAL where no module restricts who may trace.
  EXPECT_NE(EPERM, ErrorInside(Kernel::kThis,
                               [] { return ErrorOf(prctl(PR_SET_PTRACER, getppid(), 0, 0, 0)); }));
}

TEST(SandboxMode, GoesByTheWholeWord) {
  EXPECT_EQ(SandboxMode::kSilent, SandboxModeFrom(nullptr));
  EXPECT_EQ(SandboxMode::kOff, SandboxModeFrom("0"));
  EXPECT_EQ(SandboxMode::kReported, SandboxModeFrom("report"));
  for (const char* other : {"", "1", "00", "off", "Report", "report "}) {
    EXPECT_EQ(SandboxMode::kSilent, SandboxModeFrom(other)) << other;
  }
}

}  // namespace
