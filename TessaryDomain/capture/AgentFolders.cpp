#include "TessaryDomain/capture/AgentFolders.h"

#include <algorithm>
#include <vector>

#include "TessaryDomain/capture/HermesRuntimePaths.h"
#include "TessaryPlatform/text/ASCII.h"

namespace tessary::CaptureRules {

namespace {

/// How many of `parts` a hidden folder at their front takes up; 0 if none of `hiddenContentFolders` fits.
std::size_t hiddenFolderPartCount(std::span<const std::string> parts, bool prefix) {
  for (const HiddenContentFolder& folder : hiddenContentFolders) {
    const std::span<const std::string_view> names = folder.components();
    const std::size_t count = std::min(parts.size(), names.size());
    // A path that ends on the way to the folder fits only where it is a way.
    if (count < names.size() && !prefix) continue;
    if (std::ranges::equal(parts.first(count), names.first(count))) return count;
  }
  return 0;
}

/// True if `folder`, which begins with ".", stands anywhere in the path. Most paths hold one or two dots, so that this
/// takes half the time of a search for the whole.
bool mentions(std::string_view path, std::string_view folder) noexcept {
  for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.', dot + 1)) {
    if (path.substr(dot).starts_with(folder)) return true;
  }
  return false;
}

}  // namespace

bool hiddenFoldersAllowed(std::span<const std::string> parts, bool prefix) {
  while (!parts.empty()) {
    const std::size_t count = parts.front().starts_with('.') ? hiddenFolderPartCount(parts, prefix) : 1;
    if (count == 0) return false;
    parts = parts.subspan(count);
  }
  return true;
}

bool hermesRuntimeArtifact(const PythonPath& path, std::optional<std::string_view> hermesHome) {
  // The root is never ".hermes", so that the components behind it are all that need be looked at.
  const std::span<const std::string> components = path.tail();
  for (std::size_t index = 0; index < components.size(); ++index) {
    if (components[index] == ".hermes" && isHermesRuntimeRelativePath(components.subspan(index + 1))) return true;
  }
  if (!hermesHome) return false;
  const std::optional<std::vector<std::string>> relative = path.relativeParts(PythonPath(*hermesHome));
  return relative && isHermesRuntimeRelativePath(*relative);
}

bool hermesRuntimeArtifact(std::string_view path, std::optional<std::string_view> hermesHome) {
  // OPTIMIZATION: nearly no path names the folder, and need not be taken apart.
  if (!hermesHome && !mentions(path, ".hermes")) return false;
  return hermesRuntimeArtifact(PythonPath(path), hermesHome);
}

bool codexMemoryDirectory(std::string_view name) noexcept {
  constexpr std::string_view plain = "memories";
  constexpr std::string_view versioned = "memories_v";
  if (name == plain) return true;
  if (!name.starts_with(versioned) || name.size() == versioned.size()) return false;
  return std::ranges::all_of(name.substr(versioned.size()), isASCIIDigit<char>);
}

bool codexMemoryArtifact(std::span<const std::string> parts) {
  const auto isMemory = [](const std::string& folder, const std::string& next) {
    return folder == ".codex" && codexMemoryDirectory(next);
  };
  return std::ranges::adjacent_find(parts, isMemory) != parts.end();
}

bool codexMemoryArtifact(std::string_view path) {
  // OPTIMIZATION: nearly no path names the folder, and need not be taken apart.
  return mentions(path, ".codex") && codexMemoryArtifact(PythonPath(path).parts());
}

}  // namespace tessary::CaptureRules
