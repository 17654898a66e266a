// Runs a program and prints the most memory that it had resident, in kilobytes.
// (A child of a large process starts with that process's memory on its account.)
//
//   peak_memory PROGRAM [ARGUMENT...]
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("Usage: peak_memory PROGRAM [ARGUMENT...]\n", stderr);
    return 2;
  }
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execv(argv[1], argv + 1);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status)) {
    std::fputs("the program did not end by itself\n", stderr);
    return 1;
  }
  std::printf("%ld\n", usage.ru_maxrss);
  return 0;
}
