// Where crash reporting finds its handler and keeps its database: the part of
// it that differs between platforms.
#pragma once

#include <sentry.h>

// Names the handler, "crashpad_handler" (on Windows "crashpad_handler.exe")
// beside the running program, then the database folder: `database` in UTF-8,
// or "crashpad-db" beside the running program when it is null. A path that
// cannot be had or converted is set as it came out; sentry_init then fails.
void SetReportPaths(sentry_options_t* options, const char* database);
