#include <string_view>

#include "worker/sandbox.hpp"

SandboxMode SandboxModeFrom(const char* value) {
  const std::string_view wanted = value != nullptr ? value : "";
  if (wanted == "0") {
    return SandboxMode::kOff;
  }
  return wanted == "report" ? SandboxMode::kReported : SandboxMode::kSilent;
}
