#include "worker/crash_reporting.hpp"

void StartCrashReporting(const char* /*component*/) {}

void StopCrashReporting() noexcept {}
