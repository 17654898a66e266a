#include "worker/crash_reporting.hpp"

void StartCrashReporting(const char* /*component*/) {}

bool ReportsCrashes() {
  return false;
}

void TagCrashReports(const char* /*key*/, const char* /*value*/) {}

void StopCrashReporting() noexcept {}
