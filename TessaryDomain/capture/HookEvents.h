#pragma once

#include <array>
#include <span>
#include <string_view>

/// Which hook events are followed, agent by agent.
namespace tessary::HookNormalizer {

/// The life of a session, as agents with Claude's hooks tell it.
inline constexpr std::array<std::string_view, 7> lifecycle = {
    "SessionStart", "UserPromptSubmit", "PostToolUse", "Stop", "SessionEnd", "SubagentStart", "SubagentStop",
};

inline constexpr std::array<std::string_view, 1> copilotEvents = {"postToolUse"};
inline constexpr std::array<std::string_view, 2> cursorEvents = {"afterFileEdit", "afterAgentResponse"};
inline constexpr std::array<std::string_view, 2> windsurfEvents = {"post_write_code", "post_cascade_response"};
inline constexpr std::array<std::string_view, 1> opencodeEvents = {"tool.execute.after"};
/// The start of a subagent is left out, its end is not.
inline constexpr std::array<std::string_view, 6> droidEvents = {
    "SessionStart", "UserPromptSubmit", "PostToolUse", "Stop", "SessionEnd", "SubagentStop",
};
inline constexpr std::array<std::string_view, 2> grokBuildEvents = {"SessionStart", "PostToolUse"};

/// An agent's name on the wire, and the names of the events that are taken from it, as the agent writes them.
struct AgentEvents {
  std::string_view agent;
  std::span<const std::string_view> names;
};

inline constexpr std::array<AgentEvents, 13> events = {{
    {"copilot", copilotEvents},
    {"cursor", cursorEvents},
    {"windsurf", windsurfEvents},
    {"opencode", opencodeEvents},
    {"droid", droidEvents},
    {"qwen", lifecycle},
    {"codebuddy", lifecycle},
    {"qoder", lifecycle},
    {"qwenwork", lifecycle},
    {"qoderwork", lifecycle},
    {"kimi-code", lifecycle},
    {"kimi", lifecycle},
    {"grok-build", grokBuildEvents},
}};

/// The agents whose hooks have Claude's shape to begin with.
inline constexpr std::array<std::string_view, 8> nativeJSON = {
    "droid", "qwen", "codebuddy", "qoder", "qwenwork", "qoderwork", "kimi-code", "kimi",
};

}  // namespace tessary::HookNormalizer
