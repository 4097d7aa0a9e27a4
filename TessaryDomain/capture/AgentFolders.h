#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/PythonPath.h"

/// What is an agent's own in its folders, and where documents may lie in hidden ones. All comparisons are exact and
/// keep the letter case; paths are of any bytes.
namespace tessary::CaptureRules {

/// A hidden folder, or a folder within one, whose content may be documents: one or two components.
struct HiddenContentFolder {
  /// The second is empty for a folder of one component.
  std::array<std::string_view, 2> names;

  /// The names that are not empty, in the order of the path.
  [[nodiscard]] constexpr std::span<const std::string_view> components() const noexcept {
    return std::span(names).first(names[1].empty() ? 1 : 2);
  }
};

/// In the order in which they are tried.
inline constexpr auto hiddenContentFolders = std::to_array<HiddenContentFolder>({
    {{".claude", "plans"}},
    {{".claude", "handoff"}},
    {{".codex", "plans"}},
    {{".omc", "plans"}},
    {{".github"}},
});

/// True if every component that begins with "." lies in one of `hiddenContentFolders`; a file name is a component like
/// any other, so that ".github/x/.y" is refused. With `prefix`, `parts` are folders on the way to a file, and may end
/// within such a folder's path: ".claude" alone is then on the way to ".claude/plans".
[[nodiscard]] bool hiddenFoldersAllowed(std::span<const std::string> parts, bool prefix);

/// True for a file that the agent Hermes keeps for itself: `isHermesRuntimeRelativePath` behind any component
/// ".hermes", or behind `hermesHome` where it is given and leads to the path.
[[nodiscard]] bool hermesRuntimeArtifact(const PythonPath& path, std::optional<std::string_view> hermesHome);
[[nodiscard]] bool hermesRuntimeArtifact(std::string_view path, std::optional<std::string_view> hermesHome);

/// True for a path of which some component is ".codex" and the next a `codexMemoryDirectory`.
[[nodiscard]] bool codexMemoryArtifact(std::span<const std::string> parts);
[[nodiscard]] bool codexMemoryArtifact(std::string_view path);

/// True for "memories", and for "memories_v" with ASCII digits behind it, at least one.
[[nodiscard]] bool codexMemoryDirectory(std::string_view name) noexcept;

}  // namespace tessary::CaptureRules
