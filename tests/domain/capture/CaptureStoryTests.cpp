// The way of a file from the hook of an agent to a captured document: the event is brought to the common form, reduced
// to its signal, and read back; its path and its content then go through exclusion, the path through typing and the
// user's choices, and the content gives the title.

#include <array>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureRules.h"
#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/ExcludedArtifact.h"
#include "TessaryDomain/capture/HookNormalizer.h"
#include "TessaryDomain/capture/InternalArtifact.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {
namespace {

/// What comes of a file.
enum class End { excluded, refused, internal, captured };

std::ostream& operator<<(std::ostream& stream, End end) {
  return stream << std::array{"excluded", "refused", "internal", "captured"}[static_cast<std::size_t>(end)];
}

struct Outcome {
  End end;
  std::string_view kind = "";
  std::string title = "";

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  return stream << outcome.end << " " << outcome.kind << " \"" << outcome.title << "\"";
}

/// The user collects documents and images, code in Python, and what is unlisted, from the new year on; CSV only later.
ResolvedCapturePolicy makePolicy() {
  return ResolvedCapturePolicy::fromJSON(*JSONValue::parse(R"({
    "enabled": true,
    "types": {"documents": true, "plans": true, "images": true, "videos": false, "pdfs": true, "code": true, "other": true},
    "extensions": ["md", "html", "png", "pdf", "py", "csv"],
    "includeUnlistedExtensions": true,
    "resumeSince": 1767225600,
    "extensionResumeSince": {"csv": 1767312000}
  })"));
}

const CaptureTemporaryScope scope{.temporaryDirectory = "/tmp",
                                  .resolvedTemporaryDirectory = std::nullopt,
                                  .dataFolderParent = "/home/mina/.local/share/tessary"};

/// What the hook process leaves behind: the signal of the event in the form that all agents share.
std::optional<std::string> signalOf(std::string_view agent, std::string_view event) {
  const auto parsed = JSONValue::parse(event);
  if (!parsed) return std::nullopt;
  const std::optional<JSONValue> normal = HookNormalizer::normalize(agent, *parsed);
  if (!normal) return std::nullopt;
  return CaptureSignal::encode(agent, *normal, /*includesResponses=*/false, /*sortKeys=*/false);
}

/// The text at the end of a path of keys; "" if there is none.
std::string textAt(const JSONValue& object, std::initializer_list<std::string_view> keys) {
  const JSONValue* value = &object;
  for (const std::string_view key : keys) {
    value = value->find(key);
    if (value == nullptr) return "";
  }
  return value->string() != nullptr ? *value->string() : "";
}

/// The file that the signal names, below the working folder where it is relative.
std::string pathIn(const JSONValue& signal) {
  for (const std::string_view key : {"file_path", "path"}) {
    const std::string path = textAt(signal, {"payload", "tool_input", key});
    if (!path.empty()) return PythonPath(textAt(signal, {"payload", "cwd"})).appending(path).string();
  }
  return "";
}

/// What the capture service then does with the file.
Outcome judge(const std::string& path, std::string_view content, double modifiedAt) {
  if (CaptureRules::excludedArtifact(path, scope, /*temporaryDocuments=*/true)) return {.end = End::excluded};
  // The kind and the agent tell only about an answer that is no file.
  if (CaptureRules::internalArtifact(content, path, std::nullopt, std::nullopt)) return {.end = End::internal};
  const bool isPlan = path.contains("/.claude/plans/");
  const CaptureRules::ArtifactType type = CaptureRules::artifactType(path, isPlan);
  const PythonPath file(path);
  const std::string_view suffix = file.suffix();
  const std::string_view extension = suffix.substr(suffix.empty() ? 0 : 1);
  if (!CaptureRules::artifactAllowed(type.category, modifiedAt, extension, makePolicy()))
    return {.end = End::refused, .kind = type.kind};
  return {
      .end = End::captured, .kind = type.kind, .title = CaptureRules::contentTitle(content, file.name(), type.kind)};
}

// The moments of the story.
constexpr double newYear = 1767225600;
constexpr double lastYear = newYear - 1;
constexpr double tomorrow = newYear + 86400;

struct Step {
  std::string_view agent;
  std::string_view event;
  std::string_view path;
  std::string_view content;
  double modifiedAt;
  Outcome outcome;
};

/// What no signal may hold; every event puts it into the file.
constexpr std::string_view insideTheFile = "for my eyes only";

const std::vector<Step> story = {
    // Documents, wherever they lie.
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "session_id": "s", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/docs/launch.md", "content": "for my eyes only"}, "tool_response": {}})",
     "/home/mina/app/docs/launch.md",
     "intro\n\n## Launch plan ##\n",
     newYear,
     {End::captured, "markdown", "Launch plan"}},
    {"droid",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina", "tool_name": "Create",
         "tool_input": {"file_path": "/home/mina/.claude/plans/quiet-river.md", "content": "for my eyes only"}})",
     "/home/mina/.claude/plans/quiet-river.md",
     "# Quiet river",
     newYear,
     {End::captured, "markdown", "Quiet river"}},
    {"windsurf",
     R"({"agent_action_name": "post_write_code", "cwd": "/home/mina/app/.worktrees/fix", "tool_info":
         {"file_path": "/home/mina/app/.worktrees/fix/README.MD", "edits": [{"old_string": "", "new_string": "for my eyes only"}]}})",
     "/home/mina/app/.worktrees/fix/README.MD",
     "no heading",
     newYear,
     {End::captured, "markdown", "README.MD"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/site", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/site/prices.html", "content": "for my eyes only"}})",
     "/home/mina/site/prices.html",
     "<title>Price&nbsp;\n list</title>",
     newYear,
     {End::captured, "html", "Price list"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/notes/secrets.md", "content": "for my eyes only"}})",
     "/home/mina/notes/secrets.md",
     "# On secrets",
     newYear,
     {End::captured, "markdown", "On secrets"}},
    {"kimi",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/Downloads", "tool_name": "Shell",
         "tool_input": {"path": "report.docx", "content": "for my eyes only"}})",
     "/home/mina/Downloads/report.docx",
     "",
     newYear,
     {End::captured, "file", "report.docx"}},
    {"opencode",
     R"({"hook_event_name": "tool.execute.after", "cwd": "/tmp/agent-7", "tool_name": "write",
         "tool_input": {"filePath": "/tmp/agent-7/notes.md", "content": "for my eyes only"}})",
     "/tmp/agent-7/notes.md",
     "# Notes",
     newYear,
     {End::captured, "markdown", "Notes"}},
    // Secrets, and what lies in the wrong place.
    {"cursor",
     R"({"hook_event_name": "afterFileEdit", "workspace_roots": ["/home/mina/app"], "file_path": "/home/mina/app/.ENV.local",
         "edits": [{"old_string": "for my eyes only", "new_string": ""}]})",
     "/home/mina/app/.ENV.local",
     "KEY=1",
     newYear,
     {End::excluded}},
    {"copilot",
     R"({"sessionId": "c", "cwd": "/home/mina/app", "toolName": "create",
         "toolArgs": "{\"path\": \"config/prod-token.yaml\", \"file_text\": \"for my eyes only\"}",
         "toolResult": {"resultType": "success"}})",
     "/home/mina/app/config/prod-token.yaml",
     "a: 1",
     newYear,
     {End::excluded}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/.ssh/id_ed25519.pub", "content": "for my eyes only"}})",
     "/home/mina/.ssh/id_ed25519.pub",
     "ssh-ed25519",
     newYear,
     {End::excluded}},
    {"opencode",
     R"({"hook_event_name": "tool.execute.after", "cwd": "/tmp/agent-7", "tool_name": "write",
         "tool_input": {"filePath": "/tmp/agent-7/.cache/notes.md", "content": "for my eyes only"}})",
     "/tmp/agent-7/.cache/notes.md",
     "# Notes",
     newYear,
     {End::excluded}},
    // What agents keep for themselves.
    {"grok-build",
     R"({"hookEventName": "PostToolUse", "workspaceRoot": "/home/mina", "toolName": "write",
         "toolInput": {"filePath": "/home/mina/.codex/memories/summary.md", "content": "for my eyes only"}})",
     "/home/mina/.codex/memories/summary.md",
     "# Memory",
     newYear,
     {End::excluded}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/.hermes/profiles/office/sessions/a.md", "content": "for my eyes only"}})",
     "/home/mina/.hermes/profiles/office/sessions/a.md",
     "# Session",
     newYear,
     {End::excluded}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/status.md", "content": "for my eyes only"}})",
     "/home/mina/app/status.md",
     "\n<!-- tessary:internal -->\n# Status",
     newYear,
     {End::internal}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/status.ts", "content": "for my eyes only"}})",
     "/home/mina/app/status.ts",
     "<!-- tessary:internal -->",
     newYear,
     {End::internal}},  // although the user has not chosen it either
    // What the user has not chosen.
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/main.ts", "content": "for my eyes only"}})",
     "/home/mina/app/main.ts",
     "# x",
     newYear,
     {End::refused, "text"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/demo.MOV", "content": "for my eyes only"}})",
     "/home/mina/app/demo.MOV",
     "",
     newYear,
     {End::refused, "video"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/old.md", "content": "for my eyes only"}})",
     "/home/mina/app/old.md",
     "# Old",
     lastYear,
     {End::refused, "markdown"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/table.csv", "content": "for my eyes only"}})",
     "/home/mina/app/table.csv",
     "a,b",
     newYear,
     {End::refused, "text"}},
    {"qwen",
     R"({"hook_event_name": "PostToolUse", "cwd": "/home/mina/app", "tool_name": "write_file",
         "tool_input": {"file_path": "/home/mina/app/table.csv", "content": "for my eyes only"}})",
     "/home/mina/app/table.csv",
     "a,b",
     tomorrow,
     {End::captured, "text", "table.csv"}},
};

TEST(CaptureStory, LeadsFromTheHookOfAnAgentToADocumentOrNowhere) {
  for (const Step& step : story) {
    SCOPED_TRACE(step.path);
    ASSERT_TRUE(step.event.contains(insideTheFile));
    const std::optional<std::string> signal = signalOf(step.agent, step.event);
    ASSERT_TRUE(signal.has_value());
    EXPECT_FALSE(signal->contains(insideTheFile)) << *signal;
    const auto read = JSONValue::parse(*signal);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(textAt(*read, {"source"}), step.agent);
    EXPECT_EQ(textAt(*read, {"payload", "hook_event_name"}), "PostToolUse");
    const std::string path = pathIn(*read);
    EXPECT_EQ(path, step.path);
    EXPECT_EQ(judge(path, step.content, step.modifiedAt), step.outcome);
  }
}

TEST(CaptureStory, EndsBeforeItBeginsWhereTheToolFailed) {
  EXPECT_EQ(signalOf("copilot", R"({"sessionId": "c", "cwd": "/p", "toolName": "create", "toolArgs": {"path": "a.md"},
                                    "toolResult": {"resultType": "failure"}})"),
            std::nullopt);
}

}  // namespace
}  // namespace tessary
