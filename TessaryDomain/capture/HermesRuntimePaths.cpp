#include "TessaryDomain/capture/HermesRuntimePaths.h"

#include <array>
#include <string_view>

#include "TessaryDomain/capture/WordSet.h"

namespace tessary {

namespace {

constexpr WordSet hermesRuntimeDirectories(std::to_array<std::string_view>(
    {"cache", "web_cache", "image_cache", "logs", "sessions", "runtime", "state", "state-snapshots", "telemetry",
     "browser-profile", "pending_messages", "locks", "mcp-tokens", ".curator_backups"}));

constexpr WordSet hermesSkillRuntimeEntries(
    std::to_array<std::string_view>({".archive", ".curator_backups", ".curator_state.json", ".locks", ".hub.json"}));

}  // namespace

bool isHermesRuntimeRelativePath(std::span<const std::string> components) noexcept {
  // A profile with something in it is looked at as a home.
  if (components.size() > 2 && components.front() == "profiles") components = components.subspan(2);
  if (components.empty()) return false;
  if (hermesRuntimeDirectories.contains(components[0])) return true;
  // Skills are documents, but for a few entries at their top.
  return components.size() >= 2 && components[0] == "skills" && hermesSkillRuntimeEntries.contains(components[1]);
}

}  // namespace tessary
