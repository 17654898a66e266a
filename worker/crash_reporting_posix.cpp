#include <unistd.h>

#include <climits>
#include <string>

#include "worker/crash_reporting_paths.hpp"

namespace {

// The running program's folder without a separator at its end.
std::string ExecutableDirectory() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0)
    return {};
  const std::string file(path, static_cast<std::size_t>(length));
  return file.substr(0, file.find_last_of('/'));
}

}  // namespace

void SetReportPaths(sentry_options_t* options, const char* database) {
  const std::string directory = ExecutableDirectory();
  sentry_options_set_handler_path(options, (directory + "/crashpad_handler").c_str());
  const std::string fallback = directory + "/crashpad-db";
  sentry_options_set_database_path(options, database != nullptr ? database : fallback.c_str());
}
