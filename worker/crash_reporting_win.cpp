#include <windows.h>

#include <string>

#include "worker/crash_reporting_paths.hpp"

namespace {

// The running program's folder without a separator at its end; empty when its
// name holds no separator.
std::wstring ExecutableDirectory() {
  wchar_t path[260];
  const DWORD length = GetModuleFileNameW(nullptr, path, 260);
  const std::wstring file(path, length);
  const std::size_t separator = file.find_last_of(L"\\/");
  return separator == std::wstring::npos ? std::wstring() : file.substr(0, separator);
}

// Empty when the text cannot be converted.
std::wstring WideFromUtf8(const char* text) {
  const int length = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
  if (length <= 0)
    return {};
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), length);
  wide.pop_back();  // the terminator
  return wide;
}

}  // namespace

void SetReportPaths(sentry_options_t* options, const char* database) {
  const std::wstring directory = ExecutableDirectory();
  sentry_options_set_handler_pathw(options, (directory + L"\\crashpad_handler.exe").c_str());
  const std::wstring path =
      database != nullptr ? WideFromUtf8(database) : directory + L"\\crashpad-db";
  sentry_options_set_database_pathw(options, path.c_str());
}
