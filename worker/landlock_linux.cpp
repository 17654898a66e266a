#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>

#include "worker/landlock.hpp"

namespace {

// The kernel's structure and numbers by hand: headers are older than kernels, and
// each version has added some.
struct RulesetAttributes {
  std::uint64_t files;
  std::uint64_t net;
  std::uint64_t scoped;
};
constexpr std::size_t kSizeWithFiles = 8;
constexpr std::size_t kSizeWithNet = 16;

constexpr long kCreateRuleset = 444;  // the same on all machines
constexpr long kRestrictSelf = 446;
constexpr unsigned kAskVersion = 1;

// All rights of that version and below are 1.
constexpr std::uint64_t FirstBits(unsigned count) {
  return (std::uint64_t{1} << count) - 1;
}

std::uint64_t FileRights(int version) {
  if (version >= 5) {
    return FirstBits(16);  // up to commands for devices
  }
  if (version >= 3) {
    return FirstBits(15);  // up to truncation
  }
  return FirstBits(version == 2 ? 14 : 13);  // 2: moving between folders
}

std::size_t AttributesSize(int version) {
  if (version < 4) {
    return kSizeWithFiles;
  }
  return version < 6 ? kSizeWithNet : sizeof(RulesetAttributes);
}

}  // namespace

int RestrictByLandlock() {
  const auto version =
      static_cast<int>(syscall(kCreateRuleset, nullptr, std::size_t{0}, kAskVersion));
  if (version <= 0) {
    return 0;
  }
  // 2 and 2: binding and connecting; abstract Unix sockets and signals.
  const RulesetAttributes attributes = {
      .files = FileRights(version), .net = FirstBits(2), .scoped = FirstBits(2)};
  const auto ruleset =
      static_cast<int>(syscall(kCreateRuleset, &attributes, AttributesSize(version), 0U));
  if (ruleset < 0) {
    return 0;
  }
  const bool isRestricted = syscall(kRestrictSelf, ruleset, 0U) == 0;
  close(ruleset);
  return isRestricted ? version : 0;
}
