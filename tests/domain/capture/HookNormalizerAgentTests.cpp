// Events as the agents send them, each with its exact normal form, keys in their order.

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/HookNormalizer.h"

namespace tessary {
namespace {

struct Row {
  std::string_view what;
  std::string_view agent;
  std::string_view event;
  /// "" for an event that is ignored.
  std::string_view normal;
};

constexpr Row rows[] = {
    // Agents with Claude's shape.
    {"a tool that wrote a file", "qwen",
     R"({"session_id": "9f1c", "transcript_path": "/home/u/.qwen/t.jsonl", "cwd": "/home/u/app", "hook_event_name": "PostToolUse",
         "tool_name": "write_file", "tool_input": {"file_path": "/home/u/app/PLAN.md", "content": "# Plan"},
         "tool_response": {"success": true, "filePath": "/home/u/app/PLAN.md"}, "tool_use_id": "toolu_1"})",
     R"({"hook_event_name": "PostToolUse", "session_id": "9f1c", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/u/app/PLAN.md", "content": "# Plan"},
         "tool_response": {"success": true, "filePath": "/home/u/app/PLAN.md"}, "last_assistant_message": null,
         "cwd": "/home/u/app", "transcript_path": "/home/u/.qwen/t.jsonl"})"},
    {"a tool that failed is an event here", "codebuddy",
     R"({"session_id": "s", "cwd": "/p", "hook_event_name": "PostToolUse", "tool_name": "Edit", "tool_input": {"file_path": "/p/a"},
         "tool_response": {"success": false, "error": "no match"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": "s", "tool_name": "Edit", "tool_input": {"file_path": "/p/a"},
         "tool_response": {"success": false, "error": "no match"}, "last_assistant_message": null, "cwd": "/p"})"},
    {"the end of a turn", "kimi-code",
     R"({"hook_event_name": "Stop", "session_id": "s", "cwd": "/p", "last_assistant_message": "Done.", "model": "k2",
         "timestamp": "2026-01-02T03:04:05Z", "stop_hook_active": false})",
     R"({"hook_event_name": "Stop", "session_id": "s", "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": "Done.", "cwd": "/p", "model": "k2", "timestamp": "2026-01-02T03:04:05Z"})"},
    {"a subagent", "qoder",
     R"({"hook_event_name": "SubagentStart", "session_id": "s", "cwd": "/p", "agent_id": "a7", "parent_session_id": "p3"})",
     R"({"hook_event_name": "SubagentStart", "session_id": "s", "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p", "agent_id": "a7", "parent_session_id": "p3"})"},
    {"the start of a subagent of kimi", "kimi", R"({"hook_event_name": "SubagentStart", "cwd": "/p"})",
     R"({"hook_event_name": "SubagentStart", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"the start of a subagent of droid", "droid", R"({"hook_event_name": "SubagentStart", "cwd": "/p"})", ""},
    {"the end of a subagent of droid", "droid",
     R"({"hook_event_name": "SubagentStop", "cwd": "/p", "sourceKind": "cli"})",
     R"({"hook_event_name": "SubagentStop", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p", "sourceKind": "cli"})"},
    {"an input and an answer of the wrong type", "qwenwork",
     R"({"hook_event_name": "PostToolUse", "cwd": "/p", "tool_name": "Bash", "tool_input": ["ls"], "tool_response": "file.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "Bash", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"an input and an answer as texts", "qoderwork",
     R"({"hook_event_name": "PostToolUse", "cwd": "/p", "tool_name": "w", "tool_input": "{\"filePath\": \"/p/a\"}",
         "tool_response": "{\"success\": true}"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "w",
         "tool_input": {"filePath": "/p/a", "file_path": "/p/a"}, "tool_response": {"success": true},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"the other key of the name", "kimi", R"({"agent_action_name": "SessionStart", "cwd": "/p"})",
     R"({"hook_event_name": "SessionStart", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"no name", "kimi", R"({"cwd": "/p", "tool_name": "w"})", ""},
    {"no turn of another agent's", "kimi",
     R"({"hook_event_name": "Stop", "cwd": "/p", "generation_id": "g", "execution_id": "e"})",
     R"({"hook_event_name": "Stop", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},

    // copilot
    {"a tool that wrote a file", "copilot",
     R"({"timestamp": 1767323045123, "sessionId": "c1", "cwd": "/p", "toolName": "create",
         "toolArgs": "{\"path\": \"/p/PLAN.md\", \"file_text\": \"# Plan\"}",
         "toolResult": {"resultType": "success", "textResultForLlm": "Created"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": "c1", "tool_name": "create",
         "tool_input": {"path": "/p/PLAN.md", "file_text": "# Plan"}, "tool_response": {}, "last_assistant_message": null,
         "cwd": "/p"})"},
    {"the same in the other spelling", "copilot",
     R"({"timestamp": "2026-01-02T03:04:05Z", "session_id": "c1", "cwd": "/p", "hook_event_name": "PostToolUse", "tool_name": "edit",
         "tool_input": {"path": "/p/a"}, "tool_result": {"result_type": "success"}, "tool_response": {"success": true}})",
     R"({"hook_event_name": "PostToolUse", "session_id": "c1", "tool_name": "edit", "tool_input": {"path": "/p/a"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/p", "timestamp": "2026-01-02T03:04:05Z"})"},
    {"an input as text that names its file in its own way", "copilot",
     R"({"cwd": "/p", "hook_event_name": "postToolUse", "toolName": "w", "toolArgs": "{\"filePath\": \"/a\"}",
         "toolResult": "{\"resultType\": \"success\"}"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "w", "tool_input": {"filePath": "/a", "file_path": "/a"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/p"})"},
    {"a name of nothing", "copilot", R"({"cwd": "/p", "hook_event_name": "", "toolResult": {"resultType": "success"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"a tool that failed", "copilot", R"({"cwd": "/p", "toolName": "w", "toolResult": {"resultType": "failure"}})", ""},
    {"a tool that was denied", "copilot", R"({"cwd": "/p", "toolName": "w", "toolResult": {"resultType": "denied"}})",
     ""},
    {"no result", "copilot", R"({"cwd": "/p", "toolName": "w"})", ""},
    {"a result that is no object", "copilot", R"({"cwd": "/p", "toolResult": "success"})", ""},
    {"a result without a type", "copilot", R"({"cwd": "/p", "toolResult": {}})", ""},
    {"a type that is no text", "copilot", R"({"cwd": "/p", "toolResult": {"resultType": true}})", ""},
    {"a useless result in front of a good one", "copilot",
     R"({"cwd": "/p", "toolResult": null, "tool_result": {"resultType": "success"}})", ""},
    {"a useless type in front of a good one", "copilot",
     R"({"cwd": "/p", "toolResult": {"result_type": "success", "resultType": null}})", ""},
    {"a useless tool in front of a good one", "copilot",
     R"({"cwd": "/p", "toolName": null, "tool_name": "w", "toolResult": {"resultType": "success"}})", ""},
    {"a useless input in front of a good one", "copilot",
     R"({"cwd": "/p", "toolArgs": 5, "tool_input": {"path": "/a"}, "toolResult": {"resultType": "success"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"another event", "copilot",
     R"({"cwd": "/p", "hook_event_name": "preToolUse", "toolResult": {"resultType": "success"}})", ""},
    {"the end of a session", "copilot",
     R"({"cwd": "/p", "hook_event_name": "sessionEnd", "toolResult": {"resultType": "success"}})", ""},

    // cursor
    {"an edit", "cursor",
     R"({"conversation_id": "c", "generation_id": "g", "model": "m", "hook_event_name": "afterFileEdit",
         "workspace_roots": ["/home/u/app"], "file_path": "/home/u/app/docs/plan.md", "edits": [{"old_string": "a", "new_string": "b"}]})",
     R"({"hook_event_name": "PostToolUse", "session_id": "c", "tool_name": "edit",
         "tool_input": {"file_path": "/home/u/app/docs/plan.md"}, "tool_response": {}, "last_assistant_message": null,
         "cwd": "/home/u/app", "model": "m", "turn_id": "g"})"},
    {"an edit without a folder", "cursor",
     R"({"hook_event_name": "afterFileEdit", "file_path": "/home/u//app/./docs/plan.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit",
         "tool_input": {"file_path": "/home/u//app/./docs/plan.md"}, "tool_response": {}, "last_assistant_message": null,
         "cwd": "/home/u/app/docs"})"},
    {"an edit at the root with a relative folder", "cursor",
     R"({"hook_event_name": "afterFileEdit", "cwd": "app", "file_path": "/plan.md", "filePath": "/other"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit", "tool_input": {"file_path": "/plan.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/"})"},
    {"one root takes the place of the folder", "cursor",
     R"({"hook_event_name": "afterFileEdit", "cwd": "/elsewhere", "workspace_roots": ["/root"], "file_path": "/p/a.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit", "tool_input": {"file_path": "/p/a.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/root"})"},
    {"two roots do not", "cursor",
     R"({"hook_event_name": "afterFileEdit", "cwd": "/elsewhere", "workspace_roots": ["/root", "/b"], "file_path": "/p/a.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit", "tool_input": {"file_path": "/p/a.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/elsewhere"})"},
    {"nor does a relative root", "cursor",
     R"({"hook_event_name": "afterFileEdit", "workspace_roots": ["root"], "file_path": "/p/a.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit", "tool_input": {"file_path": "/p/a.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/p"})"},
    {"nor a root outside a list", "cursor",
     R"({"hook_event_name": "afterFileEdit", "workspace_roots": "/root", "file_path": "/p/a.md"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "edit", "tool_input": {"file_path": "/p/a.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/p"})"},
    {"an edit of a relative file", "cursor",
     R"({"hook_event_name": "afterFileEdit", "cwd": "/p", "file_path": "a.md"})", ""},
    {"an edit of no file", "cursor", R"({"hook_event_name": "afterFileEdit", "cwd": "/p"})", ""},
    {"an edit of a list of files", "cursor",
     R"({"hook_event_name": "afterFileEdit", "cwd": "/p", "file_path": ["/a"]})", ""},
    {"a response", "cursor",
     R"({"hook_event_name": "afterAgentResponse", "workspace_roots": ["/root"], "text": "Done.", "generation_id": "g",
         "file_path": "/p/a.md"})",
     R"({"hook_event_name": "Stop", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": "Done.", "cwd": "/root", "turn_id": "g"})"},
    {"a response without a folder", "cursor",
     R"({"hook_event_name": "afterAgentResponse", "text": "Done.", "file_path": "/p/a.md"})", ""},
    {"another event", "cursor", R"({"hook_event_name": "beforeReadFile", "cwd": "/p", "file_path": "/p/a.md"})", ""},
    {"an event of another agent", "cursor",
     R"({"hook_event_name": "PostToolUse", "cwd": "/p", "file_path": "/p/a.md"})", ""},

    // windsurf
    {"a written file", "windsurf",
     R"({"agent_action_name": "post_write_code", "trajectory_id": "t", "execution_id": "e", "timestamp": "2026-01-02T03:04:05Z",
         "tool_info": {"file_path": "/home/u/app/plan.md", "edits": [{"old_string": "a", "new_string": "b"}]}})",
     R"({"hook_event_name": "PostToolUse", "session_id": "t", "tool_name": "write", "tool_input": {"file_path": "/home/u/app/plan.md"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/home/u/app", "timestamp": "2026-01-02T03:04:05Z",
         "turn_id": "e"})"},
    {"a written file in a known folder", "windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": "/home/u", "tool_info": "{\"file_path\": \"/home/u/app/plan.md\"}"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "write",
         "tool_input": {"file_path": "/home/u/app/plan.md"}, "tool_response": {}, "last_assistant_message": null, "cwd": "/home/u"})"},
    {"roots are cursor's alone", "windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": "/c", "workspace_roots": ["/root"], "tool_info": {"file_path": "//net/a"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "write", "tool_input": {"file_path": "//net/a"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "/c"})"},
    {"two slashes stay", "windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": 5, "tool_info": {"file_path": "//net/a"}})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "write", "tool_input": {"file_path": "//net/a"},
         "tool_response": {}, "last_assistant_message": null, "cwd": "//net"})"},
    {"a response", "windsurf",
     R"({"agent_action_name": "post_cascade_response", "cwd": "/p", "execution_id": "e", "tool_info": {"response": "Done."}})",
     R"({"hook_event_name": "Stop", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": "Done.", "cwd": "/p", "turn_id": "e"})"},
    {"a response without a text", "windsurf", R"({"agent_action_name": "post_cascade_response", "cwd": "/p"})",
     R"({"hook_event_name": "Stop", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"a file outside the tool's own facts", "windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": "/p", "file_path": "/p/a.md", "tool_info": {}})", ""},
    {"a relative file", "windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": "/p", "tool_info": {"file_path": "a.md"}})", ""},
    {"a useless name in front of a good one", "windsurf",
     R"({"hook_event_name": 5, "agent_action_name": "post_write_code", "cwd": "/p", "tool_info": {"file_path": "/p/a.md"}})",
     ""},
    {"another event", "windsurf",
     R"({"agent_action_name": "post_read_code", "cwd": "/p", "tool_info": {"file_path": "/p/a.md"}})", ""},

    // opencode
    {"a tool that ran", "opencode",
     R"({"hook_event_name": "tool.execute.after", "sessionId": "o", "cwd": "/p", "tool_name": "write",
         "tool_input": {"filePath": "/p/plan.md", "content": "x"}, "tool_response": {"title": "plan.md", "output": ""},
         "last_assistant_message": "never", "agent_id": "never"})",
     R"({"hook_event_name": "PostToolUse", "session_id": "o", "tool_name": "write",
         "tool_input": {"filePath": "/p/plan.md", "content": "x", "file_path": "/p/plan.md"},
         "tool_response": {"title": "plan.md", "output": ""}, "last_assistant_message": null, "cwd": "/p"})"},
    {"texts that are no objects", "opencode",
     R"({"hook_event_name": "tool.execute.after", "cwd": "/p", "tool_input": "{", "tool_response": "7"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"another event", "opencode", R"({"hook_event_name": "tool.execute.before", "cwd": "/p"})", ""},
    {"no name", "opencode", R"({"cwd": "/p"})", ""},

    // grok-build
    {"a tool in its own spelling", "grok-build",
     R"({"hookEventName": "PostToolUse", "sessionId": "g", "workspaceRoot": "/home/u/app", "toolName": "write",
         "toolInput": {"filePath": "/home/u/app/plan.md"}, "tool_name": "never", "tool_response": {"never": 1}})",
     R"({"hook_event_name": "PostToolUse", "session_id": "g", "tool_name": "write",
         "tool_input": {"filePath": "/home/u/app/plan.md", "file_path": "/home/u/app/plan.md"}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/home/u/app"})"},
    {"a folder that is known stays", "grok-build",
     R"({"hookEventName": "SessionStart", "cwd": "/p", "workspaceRoot": "/w"})",
     R"({"hook_event_name": "SessionStart", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"a relative folder does not", "grok-build",
     R"({"hookEventName": "SessionStart", "cwd": "p", "workspaceRoot": "/w"})",
     R"({"hook_event_name": "SessionStart", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/w"})"},
    {"two relative folders", "grok-build", R"({"hookEventName": "SessionStart", "cwd": "p", "workspaceRoot": "w"})",
     ""},
    {"a root that is no text", "grok-build", R"({"hookEventName": "SessionStart", "workspaceRoot": ["/w"]})", ""},
    {"its own spelling comes first", "grok-build",
     R"({"hookEventName": "SessionStart", "hook_event_name": "Stop", "cwd": "/p"})",
     R"({"hook_event_name": "SessionStart", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {},
         "last_assistant_message": null, "cwd": "/p"})"},
    {"even if it is useless", "grok-build",
     R"({"hookEventName": null, "hook_event_name": "SessionStart", "cwd": "/p"})", ""},
    {"another event in its own spelling", "grok-build", R"({"hookEventName": "Stop", "cwd": "/p"})", ""},
    {"a useless tool", "grok-build",
     R"({"hookEventName": "PostToolUse", "cwd": "/p", "toolName": 5, "tool_name": "w"})", ""},
    {"Claude's shape", "grok-build",
     R"({"hook_event_name": "PostToolUse", "cwd": "/p", "tool_name": "w", "tool_input": "{\"a\": 1}", "tool_response": {"b": 2},
         "last_assistant_message": "m", "agent_id": "a", "toolName": "never"})",
     R"({"hook_event_name": "PostToolUse", "session_id": null, "tool_name": "w", "tool_input": {"a": 1}, "tool_response": {"b": 2},
         "last_assistant_message": "m", "cwd": "/p", "agent_id": "a"})"},
    {"Claude's shape has no root", "grok-build", R"({"hook_event_name": "SessionStart", "workspaceRoot": "/w"})", ""},
    {"an event of Claude's shape that it does not have", "grok-build", R"({"hook_event_name": "Stop", "cwd": "/p"})",
     ""},
};

TEST(HookNormalizerAgents, EventsHaveTheirNormalForm) {
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.agent) + ": " + std::string(row.what));
    const auto event = JSONValue::parse(row.event);
    ASSERT_TRUE(event);
    const auto result = HookNormalizer::normalize(row.agent, *event);
    ASSERT_EQ(result.has_value(), !row.normal.empty());
    if (!result) continue;
    const auto expected = JSONValue::parse(row.normal);
    ASSERT_TRUE(expected);
    EXPECT_EQ(CaptureSignal::pythonJSON(*result, /*sortKeys=*/false),
              CaptureSignal::pythonJSON(*expected, /*sortKeys=*/false));
    EXPECT_TRUE(*result == *expected);
  }
}

TEST(HookNormalizerAgents, TheTableHasAnEventOfEveryAgentThatPasses) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    bool passes = false;
    for (const Row& row : rows)
      passes = passes || (row.agent == agent && !row.normal.empty());
    EXPECT_TRUE(passes) << agent;
  }
}

}  // namespace
}  // namespace tessary
