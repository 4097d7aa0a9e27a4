#include "TessaryDomain/capture/HookNormalizer.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>

#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary::HookNormalizer {

namespace {

/// An event on its way to the normal form.
struct Hook {
  const JSONValue& event;
  /// The names that the agent's events may have.
  std::span<const std::string_view> accepted;
  std::string_view name;
  /// The working folder, "" as long as no absolute path is known for it.
  std::string cwd;
  JSONValue result;
  JSONValue input;
};

/// The value of the first key that is there, of whatever type: a useless one hides the keys behind it.
const JSONValue* firstOf(const JSONValue& event, std::initializer_list<std::string_view> keys) {
  for (const std::string_view key : keys) {
    if (const JSONValue* value = event.find(key)) return value;
  }
  return nullptr;
}

const std::string* text(const JSONValue* value) {
  return value == nullptr ? nullptr : value->string();
}

/// The text of an absolute path; null for everything else.
const std::string* absolute(const JSONValue* value) {
  const std::string* path = text(value);
  return path != nullptr && PythonText::hasPrefix(*path, "/") ? path : nullptr;
}

std::string absoluteOrNone(const JSONValue* value) {
  const std::string* path = absolute(value);
  return path == nullptr ? std::string() : *path;
}

/// An object as it is, or read from its text; everything else gives an empty one.
JSONValue object(const JSONValue* value) {
  if (value != nullptr && value->object() != nullptr) return *value;
  if (const std::string* json = text(value)) {
    if (auto read = JSONValue::parse(*json); read && read->object() != nullptr) return *std::move(read);
  }
  return JSONValue::Object();
}

bool contains(std::span<const std::string_view> names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

void copyText(JSONValue& result, std::string_view key, const JSONValue* value) {
  if (const std::string* found = text(value)) result.set(key, *found);
}

/// The tool's name of the first key that is there; one that is no text is kept, and refused with the whole event.
void setToolName(Hook& hook, std::initializer_list<std::string_view> keys) {
  if (const JSONValue* name = firstOf(hook.event, keys)) hook.result.set("tool_name", *name);
}

void setEdit(Hook& hook, std::string_view tool, const std::string& file) {
  if (hook.cwd.empty()) hook.cwd = PythonPath(file).parent().string();
  hook.result.set("hook_event_name", "PostToolUse");
  hook.result.set("tool_name", tool);
  hook.input = JSONValue::Object{{"file_path", file}};
}

void setStop(Hook& hook, const JSONValue* message) {
  hook.result.set("hook_event_name", "Stop");
  copyText(hook.result, "last_assistant_message", message);
}

// The shapes of the agents. Each fills in what the agent calls by names of its own; false for an event to be ignored.

bool readNative(Hook& hook) {
  if (!contains(hook.accepted, hook.name)) return false;
  hook.result.set("hook_event_name", hook.name);
  setToolName(hook, {"tool_name"});
  hook.input = object(hook.event.find("tool_input"));
  hook.result.set("tool_response", object(hook.event.find("tool_response")));
  for (const std::string_view key : {"last_assistant_message", "agent_id", "parent_session_id", "transcript_path"})
    copyText(hook.result, key, hook.event.find(key));
  return true;
}

bool readCopilot(Hook& hook) {
  // Events of some of its versions have no name at all.
  if (!contains(std::array<std::string_view, 3>{"", "postToolUse", "PostToolUse"}, hook.name)) return false;
  const JSONValue outcome = object(firstOf(hook.event, {"toolResult", "tool_result"}));
  const std::string* type = text(firstOf(outcome, {"resultType", "result_type"}));
  if (type == nullptr || *type != "success") return false;
  hook.result.set("hook_event_name", "PostToolUse");
  setToolName(hook, {"toolName", "tool_name"});
  hook.input = object(firstOf(hook.event, {"toolArgs", "tool_input"}));
  return true;
}

bool readCursor(Hook& hook) {
  const JSONValue* roots = hook.event.find("workspace_roots");
  if (roots != nullptr && roots->array() != nullptr && roots->array()->size() == 1) {
    if (const std::string* root = absolute(&roots->array()->front())) hook.cwd = *root;
  }
  if (hook.name == "afterFileEdit") {
    const std::string* file = absolute(hook.event.find("file_path"));
    if (file == nullptr) return false;
    setEdit(hook, "edit", *file);
  } else if (hook.name == "afterAgentResponse") {
    setStop(hook, hook.event.find("text"));
  } else {
    return false;
  }
  copyText(hook.result, "turn_id", hook.event.find("generation_id"));
  return true;
}

bool readWindsurf(Hook& hook) {
  const JSONValue info = object(hook.event.find("tool_info"));
  if (hook.name == "post_write_code") {
    const std::string* file = absolute(info.find("file_path"));
    if (file == nullptr) return false;
    setEdit(hook, "write", *file);
  } else if (hook.name == "post_cascade_response") {
    setStop(hook, info.find("response"));
  } else {
    return false;
  }
  copyText(hook.result, "turn_id", hook.event.find("execution_id"));
  return true;
}

bool readOpenCode(Hook& hook) {
  if (hook.name != "tool.execute.after") return false;
  hook.result.set("hook_event_name", "PostToolUse");
  setToolName(hook, {"tool_name"});
  hook.input = object(hook.event.find("tool_input"));
  hook.result.set("tool_response", object(hook.event.find("tool_response")));
  return true;
}

bool readGrokBuild(Hook& hook) {
  const JSONValue* ownName = hook.event.find("hookEventName");
  if (ownName == nullptr) return readNative(hook);
  const std::string* name = ownName->string();
  if (name == nullptr || !contains(hook.accepted, *name)) return false;
  if (hook.cwd.empty()) hook.cwd = absoluteOrNone(hook.event.find("workspaceRoot"));
  hook.result.set("hook_event_name", *name);
  setToolName(hook, {"toolName"});
  hook.input = object(hook.event.find("toolInput"));
  return true;
}

bool readShape(std::string_view agent, Hook& hook) {
  if (contains(nativeJSON, agent)) return readNative(hook);
  if (agent == "copilot") return readCopilot(hook);
  if (agent == "cursor") return readCursor(hook);
  if (agent == "windsurf") return readWindsurf(hook);
  if (agent == "opencode") return readOpenCode(hook);
  return agent == "grok-build" && readGrokBuild(hook);
}

/// Adds to a tool's input the name of the file under the key that all later steps look for.
void nameFile(JSONValue& input) {
  const std::string* path = text(input.find("filePath"));
  if (path != nullptr && input.find("file_path") == nullptr) input.set("file_path", *path);
}

}  // namespace

std::optional<JSONValue> normalize(std::string_view agent, const JSONValue& event) {
  const auto row = std::ranges::find(events, agent, &AgentEvents::agent);
  if (row == events.end()) return std::nullopt;
  // A name that is no text ends every event; one that is missing is "", which copilot and grok-build may do without.
  const JSONValue* nameValue = firstOf(event, {"hook_event_name", "agent_action_name"});
  if (nameValue != nullptr && nameValue->string() == nullptr) return std::nullopt;
  Hook hook{event,
            row->names,
            nameValue == nullptr ? std::string_view() : *nameValue->string(),
            absoluteOrNone(event.find("cwd")),
            JSONValue(),
            JSONValue::Object()};
  JSONValue& result = hook.result;
  // All keys that are always there, in the order of the normal form; what follows fills them in or adds to them.
  result = JSONValue::Object{{"hook_event_name", ""},
                             {"session_id", nullptr},
                             {"tool_name", ""},
                             {"tool_input", JSONValue::Object()},
                             {"tool_response", JSONValue::Object()},
                             {"last_assistant_message", nullptr},
                             {"cwd", ""}};
  copyText(result, "session_id", firstOf(event, {"session_id", "sessionId", "conversation_id", "trajectory_id"}));
  copyText(result, "model", event.find("model"));
  copyText(result, "timestamp", event.find("timestamp"));
  if (!readShape(agent, hook)) return std::nullopt;
  nameFile(hook.input);
  result.set("tool_input", std::move(hook.input));
  if (hook.cwd.empty() || result.find("tool_name")->string() == nullptr) return std::nullopt;
  result.set("cwd", std::move(hook.cwd));
  for (const std::string_view key : {"sourceProfileID", "sourceProfileLabel", "sourceKind", "agentHome"})
    copyText(result, key, event.find(key));
  const JSONValue* producer = event.find("_tessaryProducer");
  if (producer != nullptr && producer->object() != nullptr) result.set("_tessaryProducer", *producer);
  return std::move(result);
}

}  // namespace tessary::HookNormalizer
