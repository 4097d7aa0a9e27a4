#include "TessaryRenderer/Landlock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tessary::Landlock {

namespace {

/// A ruleset as the newest kernels take it; an older one is told a shorter size and sees only its beginning. Named
/// here because the system's headers may be older than its kernel.
struct Ruleset {
  std::uint64_t files;
  std::uint64_t network;
  std::uint64_t scopes;
};

/// What a version of Landlock knows of: every right of each kind up to the one numbered highest, so that all of a kind
/// are the bits below the next. The size is that of the ruleset in that version.
struct Abilities {
  unsigned files;
  unsigned network;
  unsigned scopes;
  std::size_t rulesetBytes;
};

constexpr std::size_t filesAlone = offsetof(Ruleset, network);
constexpr std::size_t withNetwork = offsetof(Ruleset, scopes);
constexpr std::size_t withScopes = sizeof(Ruleset);

/// Versions 1 to 6 (linux/landlock.h). Version 2 added moving between folders, 3 truncation, 4 binding and connecting
/// of TCP ports, 5 device control, 6 abstract sockets and signals. Later versions keep these.
constexpr std::array<Abilities, 6> versions{{
    {13, 0, 0, filesAlone},
    {14, 0, 0, filesAlone},
    {15, 0, 0, filesAlone},
    {15, 2, 0, withNetwork},
    {16, 2, 0, withNetwork},
    {16, 2, 2, withScopes},
}};

constexpr std::uint64_t lowestBits(unsigned count) {
  return (std::uint64_t{1} << count) - 1;
}

}  // namespace

bool forbidFiles() {
  const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
  if (version < 1) return false;
  const auto known =
      static_cast<std::size_t>(version) < versions.size() ? static_cast<std::size_t>(version) : versions.size();
  const Abilities& abilities = versions[known - 1];
  // Rights that a ruleset handles and no rule grants are refused: without a rule, all of them.
  const Ruleset rules{.files = lowestBits(abilities.files),
                      .network = lowestBits(abilities.network),
                      .scopes = lowestBits(abilities.scopes)};
  const long descriptor = ::syscall(SYS_landlock_create_ruleset, &rules, abilities.rulesetBytes, 0);
  if (descriptor < 0) return false;
  const bool isRestricted = ::syscall(SYS_landlock_restrict_self, descriptor, 0) == 0;
  ::close(static_cast<int>(descriptor));
  return isRestricted;
}

}  // namespace tessary::Landlock
