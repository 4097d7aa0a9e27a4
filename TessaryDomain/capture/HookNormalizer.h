#pragma once

#include <optional>
#include <string_view>

#include "TessaryDomain/capture/HookEvents.h"
#include "TessaryPlatform/json/JSONValue.h"

/// Brings the hook events of every agent to one shape, that of Claude's hooks. Runs in the short-lived hook process and
/// keeps no state.
///
/// The normal form is an object with these keys, in this order; those without a mark are always there:
///
/// | Key | Value |
/// |---|---|
/// | `hook_event_name` | "PostToolUse", "Stop" or another name of `lifecycle` |
/// | `session_id` | text, or null |
/// | `tool_name` | text, "" if there is none |
/// | `tool_input`, `tool_response` | object, perhaps empty |
/// | `last_assistant_message` | text, or null |
/// | `cwd` | text, an absolute path |
/// | `model`, `timestamp` | text, if the event has it as text |
/// | `turn_id` | text, of cursor and windsurf, if the event has it as text |
/// | `agent_id`, `parent_session_id`, `transcript_path` | text, of agents with Claude's shape, if the event has it so |
/// | `sourceProfileID`, `sourceProfileLabel`, `sourceKind`, `agentHome` | text, if the event has it as text |
/// | `_tessaryProducer` | object, if the event has it as an object |
namespace tessary::HookNormalizer {

/// The normal form of `event`, the object that the hook of `agent` was given. Absent for what is not followed: another
/// agent, an event that `events` does not list, a tool whose name is no text, a tool of copilot that did not succeed,
/// an edit by cursor or windsurf whose file is no absolute path, a working folder that is none and that nothing stands
/// in for, and anything but an object. A hook then ends quietly.
///
/// An event of copilot may also have no name, or "PostToolUse". Where there is no absolute `cwd`, an edit by cursor or
/// windsurf has that of the file's folder, and an event in grok-build's own spelling has its "workspaceRoot".
///
/// Where several keys of an event mean the same, the first that is there counts, even with null or with a value of no
/// use: `{"session_id": 7, "sessionId": "a"}` has no session. An object may also be given as its JSON text, which is
/// read once: text inside it stays text. Text that is not JSON, as `JSONValue::parse` judges it, counts as `{}`.
[[nodiscard]] std::optional<JSONValue> normalize(std::string_view agent, const JSONValue& event);

}  // namespace tessary::HookNormalizer
