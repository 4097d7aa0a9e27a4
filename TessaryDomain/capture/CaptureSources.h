#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// The agents whose signals are taken, and where each of them lives.
namespace tessary::CaptureSignal {

/// An agent's name on the wire, and its folder relative to the user's home folder.
struct Home {
  std::string_view source;
  std::string_view home;

  bool operator==(const Home&) const = default;
};

/// One row for each agent, in the fixed order of the agents.
inline constexpr std::array<Home, 31> homes = {{
    {"claude", ".claude"},
    {"codex", ".codex"},
    {"zcode", ".zcode"},
    {"gemini", ".gemini"},
    {"antigravity", ".antigravity"},
    {"cursor", ".cursor"},
    {"trae", ".trae"},
    {"opencode", ".config/opencode"},
    {"mimocode", ".mimocode"},
    {"droid", ".factory"},
    {"qoder", ".qoder"},
    {"qoderwork", ".qoderwork"},
    {"qwen", ".qwen"},
    {"qwenwork", ".qwenwork"},
    {"grok-build", ".grok"},
    {"kimi-code", ".kimi-code"},
    {"deepseek", ".codewhale"},
    {"dsh", ".dsh"},
    {"mistral-vibe", ".vibe"},
    {"devin", ".devin"},
    {"copilot", ".copilot"},
    {"codebuddy", ".codebuddy"},
    {"workbuddy", ".workbuddy"},
    {"kiro", ".kiro"},
    {"hermes", ".hermes"},
    {"amp", ".config/amp"},
    {"pi", ".pi/agent"},
    {"oh-my-pi", ".omp/agent"},
    {"gajae-code", ".gajae"},
    {"kimi", ".kimi"},
    {"windsurf", ".codeium/windsurf"},
}};

/// The names alone, in the same order.
inline constexpr std::array<std::string_view, homes.size()> sources = [] {
  std::array<std::string_view, homes.size()> names;
  for (std::size_t index = 0; index < names.size(); ++index)
    names[index] = homes[index].source;
  return names;
}();

}  // namespace tessary::CaptureSignal
