// Part of crashpad_handler: lets go of the standard streams that it inherits
// from the worker. Without this a host that reads the worker's output to its
// end would wait for the handler as well, which may still be uploading.
#ifdef _WIN32
#include <windows.h>

#include <initializer_list>

namespace {

const bool kReleased = [] {
  for (DWORD stream : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    HANDLE handle = GetStdHandle(stream);
    SetStdHandle(stream, nullptr);
    if (handle != nullptr && handle != INVALID_HANDLE_VALUE)
      CloseHandle(handle);
  }
  return true;
}();

}  // namespace

#else
#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace {

const bool kReleased = [] {
  const int null = open("/dev/null", O_RDWR);
  if (null < 0)
    return false;
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, stream);
  if (null > STDERR_FILENO)
    close(null);
  return true;
}();

}  // namespace

#endif
