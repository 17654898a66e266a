// The worker's own restrictions. A drawing comes from a stranger and is parsed by
// a library in C: what takes over the process by way of it finds a process that
// can do nothing but read what is open already, compute, and write to its
// standard streams. docs/threat-model.md says what that is worth.
//
// One variant stands behind this header for each system, and one that does
// nothing. All work without privileges.
#pragma once

#include <string>

// What KVT_DWG_SANDBOX asks for.
enum class SandboxMode { kOff, kSilent, kReported };

// "0" is kOff, "report" is kReported; everything else, and null, is kSilent.
SandboxMode SandboxModeFrom(const char* value);

// Restricts the process for the rest of its life: afterwards it opens no file,
// starts no process, makes no connection and makes no memory executable. Whether a
// file exists can still be asked. Descriptors that are open stay usable. Each
// restriction that the system lacks or refuses is left out. Returns the names of
// those that are in force, separated by commas; empty when there are none. Called
// once, while the process has one thread.
std::string RestrictProcess();
