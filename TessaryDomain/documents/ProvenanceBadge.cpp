#include "TessaryDomain/documents/ProvenanceBadge.h"

#include <array>
#include <string_view>

#include "TessaryDomain/capture/WordSet.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {

namespace {

/// Names of terminals and of what stands for one, in lower case.
constexpr WordSet terminals(std::to_array<std::string_view>({
    "alacritty",  "apple_terminal",
    "cli",        "cmd",
    "ghostty",    "gnome-terminal",
    "hyper",      "iterm",
    "iterm.app",  "iterm2",
    "kitty",      "konsole",
    "powershell", "screen",
    "shell",      "terminal",
    "tmux",       "tty",
    "warp",       "warpterminal",
    "wezterm",    "windows terminal",
    "xterm",      "zellij",
}));

std::string folded(std::string_view text) {
  return lowercased(trimmed(text, isWhiteSpace));
}

/// True where `host`, folded, is the agent itself or comes from the same vendor.
bool isOwnHost(std::string_view host, const DocumentRevisionProvenance& provenance) {
  if (provenance.agentName && folded(*provenance.agentName) == host) return true;
  if (!provenance.agent) return false;
  if (folded(*provenance.agent) == host) return true;
  const std::optional<ModelVendor> vendor = ModelVendor::own(*provenance.agent);
  return vendor && ModelVendor::own(host) == vendor;
}

/// The name of a local badge, for the programs that have one.
std::optional<std::string> runnerName(const std::optional<std::string>& provider) {
  const std::string name = folded(provider.value_or(std::string()));
  if (name == "ollama") return "ollama";
  if (name == "lmstudio" || name == "lm-studio") return "lmstudio";
  return std::nullopt;
}

}  // namespace

std::optional<ModelVendor> modelVendor(const DocumentRevisionProvenance& provenance) {
  return ModelVendor::of(provenance.model, provenance.provider);
}

std::optional<std::string> hostApp(const DocumentRevisionProvenance& provenance) {
  if (!provenance.host) return std::nullopt;
  const std::string host = folded(*provenance.host);
  if (host.empty() || terminals.contains(host) || isOwnHost(host, provenance)) return std::nullopt;
  return std::string(trimmed(*provenance.host, isWhiteSpace));
}

bool runsLocally(const DocumentRevisionProvenance& provenance) {
  return provenance.local == true ||
         ModelVendor::isLocal(provenance.provider, /*baseURL=*/std::nullopt, provenance.model);
}

std::optional<ModelBadge> modelBadge(const DocumentRevisionProvenance& provenance) {
  // 1. Where it ran comes first.
  if (runsLocally(provenance)) return LocalBadge{.name = runnerName(provenance.provider)};
  // 2. Whose it is.
  const std::optional<ModelVendor> vendor = modelVendor(provenance);
  if (!vendor) return std::nullopt;
  // 3. The agent's own model is no news.
  if (provenance.agent && !hostApp(provenance) && ModelVendor::own(*provenance.agent) == vendor) return std::nullopt;
  // 4. And what it is called.
  return VendorBadge{.vendor = *vendor, .family = ModelVendor::family(*vendor, provenance.model)};
}

}  // namespace tessary
