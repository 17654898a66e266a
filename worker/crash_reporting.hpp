// Crash reporting, configured by the host through environment variables.
//
// Three variants stand behind this header: one for Windows, one for other
// platforms and one that does nothing, for builds without sentry-native.
// No function here ever prints, and no failure in them shows or changes the
// run: it only leaves the worker without crash reporting.
#pragma once

// Starts crash reporting when KVT_SENTRY_DSN is set and not empty, and tags
// every report with `component`. Called once, before anything else of the run.
void StartCrashReporting(const char* component);

// Whether it was started.
bool ReportsCrashes();

// Adds a tag to the reports. It is written to a file for the handler, so it has to
// come before the sandbox. Nothing of a drawing's name or contents may be in it.
void TagCrashReports(const char* key, const char* value);

// Stops crash reporting when it was started; harmless otherwise and when
// called again. Called on every way out of the run.
void StopCrashReporting() noexcept;
