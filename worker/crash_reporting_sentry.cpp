// Crash reporting through sentry-native: the order of the steps, the same on
// every platform.
#include <sentry.h>

#include <cstdlib>

#include "worker/crash_reporting.hpp"
#include "worker/crash_reporting_paths.hpp"

namespace {

bool active = false;

// Null when the variable is unset or empty.
const char* EnvironmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : nullptr;
}

}  // namespace

void StartCrashReporting(const char* component) {
  const char* dsn = EnvironmentValue("KVT_SENTRY_DSN");
  if (dsn == nullptr)
    return;
  sentry_options_t* options = sentry_options_new();
  if (options == nullptr)
    return;
  sentry_options_set_dsn(options, dsn);
  SetReportPaths(options, EnvironmentValue("KVT_SENTRY_DB"));
  if (const char* release = EnvironmentValue("KVT_SENTRY_RELEASE")) {
    sentry_options_set_release(options, release);
  }
  if (const char* environment = EnvironmentValue("KVT_SENTRY_ENV")) {
    sentry_options_set_environment(options, environment);
  }
  if (sentry_init(options) != 0)
    return;
  active = true;
  TagCrashReports("component", component);
  TagCrashReports("libredwg.version", DWG_LIBREDWG_VERSION);
  TagCrashReports("libredwg.patches", DWG_LIBREDWG_PATCH_LEVEL);
}

bool ReportsCrashes() {
  return active;
}

void TagCrashReports(const char* key, const char* value) {
  if (active) {
    sentry_set_tag(key, value);
  }
}

void StopCrashReporting() noexcept {
  if (!active)
    return;
  sentry_close();
  active = false;
}
