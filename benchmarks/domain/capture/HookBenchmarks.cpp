// A hook event of 64 KiB on its way into a signal, against CPython, which reads the same event and writes it again.
//
// Ours is the whole way of the hook process: the event's text is read, normalised, reduced and written. The second
// number of ours is the peer's own task, reading and writing the whole event; its texts are compared before anything is
// timed. The peer is timed by the machine's own python3, in a loop over the same text, in the same run.

#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/HookNormalizer.h"

#include "CPythonPeer.h"

namespace tessary {
namespace {

constexpr std::size_t eventBytes = 64 * 1024;

struct Event {
  std::string name;
  std::string agent;
  std::string text;
};

/// `units` between `head` and `tail` as often as 64 KiB hold them, with `between` between them.
std::string filled(std::string_view head, std::string_view unit, std::string_view between, std::string_view tail,
                   std::size_t size = eventBytes) {
  std::string text(head);
  text += unit;
  while (text.size() + between.size() + unit.size() + tail.size() <= size)
    text.append(between).append(unit);
  return text.append(tail);
}

std::string native(std::string_view inputHead, std::string_view unit, std::string_view between = "") {
  return filled(
      R"({"session_id": "9f1c", "transcript_path": "/home/u/t.jsonl", "cwd": "/home/u/app", "hook_event_name": )"
      R"("PostToolUse", "tool_name": "Write", "tool_input": {"file_path": "/home/u/app/PLAN.md", )" +
          std::string(inputHead),
      unit, between, R"("}, "tool_response": {"success": true}, "tool_use_id": "t"})");
}

std::vector<Event> makeEvents() {
  return {
      {"a Markdown file", "qwen",
       native(R"("content": ")",
              R"(## Step\n\nThe quick brown fox jumps over the lazy dog, and \"sleeps\" for a while.\n)")},
      {"a Korean file", "qwen",
       native(R"("content": ")", R"(모든 국민은 인간으로서의 존엄과 가치를 가지며, 행복을 추구한다.\n)")},
      {"the same, escaped", "qwen",
       native(R"("content": ")", R"(\ubaa8\ub4e0 \uad6d\ubbfc\uc740 \uc778\uac04\uc73c\ub85c\uc11c\n)")},
      {"a patch of many files", "kimi",
       native(
           R"("input": "*** Begin Patch\n)",
           R"(*** Update File: docs/plan.md\n@@\n-old line of text that goes\n+new line of text that comes\n context\n)")},
      {"input as text", "copilot",
       filled(
           R"({"sessionId": "c1", "cwd": "/p", "toolName": "create", "toolResult": {"resultType": "success"}, "toolArgs": )"
           R"("{\"path\": \"/p/PLAN.md\", \"file_text\": \")",
           R"(## Step\\n\\nThe quick brown fox jumps over the lazy dog, and sleeps for a while.\\n)", "", R"(\"}"})")},
      {"many small edits", "cursor",
       filled(
           R"({"conversation_id": "c", "hook_event_name": "afterFileEdit", "workspace_roots": ["/p"], "file_path": "/p/a.md", )"
           R"("edits": [)",
           R"({"old_string": "a line", "new_string": "another line", "range": {"start": 17, "end": 23}, "replace_all": false})",
           ", ", "]}")},
      {"many small edits of a tool's input", "qwen",
       filled(
           R"({"cwd": "/p", "hook_event_name": "PostToolUse", "tool_input": {"file_path": "/p/a.md", "edits": [)",
           R"({"old_string": "a line", "new_string": "another line", "range": {"start": 17, "end": 23}, "replace_all": false})",
           ", ", "]}}")},
      {"a long response", "qwen",
       filled(R"({"cwd": "/p", "hook_event_name": "Stop", "last_assistant_message": ")",
              R"(I have written the plan, and this is what it says, \"in brief\".\n)", "", R"("})", eventBytes - 512)},
      {"worst: numbers", "qwen",
       filled(R"({"cwd": "/p", "hook_event_name": "PostToolUse", "tool_input": {"values": [)", "0.1, 7", ", ", "]}}")},
      {"worst: empty lists", "qwen",
       filled(R"({"cwd": "/p", "hook_event_name": "PostToolUse", "tool_input": {"values": [)", "[]", ", ", "]}}")},
  };
}

std::optional<std::string> signalOf(const Event& event, const JSONValue& value) {
  const auto normal = HookNormalizer::normalize(event.agent, value);
  if (!normal) return std::nullopt;
  return CaptureSignal::encode(event.agent, *normal, /*includesResponses=*/true, /*sortKeys=*/true);
}

std::optional<std::string> signalOf(const Event& event) {
  const auto value = JSONValue::parse(event.text);
  return value ? signalOf(event, *value) : std::nullopt;
}

std::string writtenAgain(std::string_view text) {
  const auto value = JSONValue::parse(text);
  return value ? CaptureSignal::pythonJSON(*value, /*sortKeys=*/false).value_or("") : "";
}

void runSignal(benchmark::State& state, const Event& event) {
  if (!signalOf(event)) state.SkipWithError("no signal");
  for (auto _ : state)
    benchmark::DoNotOptimize(signalOf(event));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(event.text.size()));
}

void runSignalOfValue(benchmark::State& state, const Event& event) {
  const auto value = JSONValue::parse(event.text);
  if (!value || !signalOf(event, *value)) state.SkipWithError("no signal");
  for (auto _ : state)
    benchmark::DoNotOptimize(signalOf(event, *value));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(event.text.size()));
}

void runAgain(benchmark::State& state, const Event& event) {
  for (auto _ : state)
    benchmark::DoNotOptimize(writtenAgain(event.text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(event.text.size()));
}

void registerAll() {
  static const std::vector<Event> events = makeEvents();
  for (const Event& event : events) {
    const std::string name = "hook/" + event.name + "/";
    benchmark::RegisterBenchmark((name + "Tessary, read, normalised, encoded").c_str(), runSignal, event);
    benchmark::RegisterBenchmark((name + "Tessary, normalised, encoded").c_str(), runSignalOfValue, event);
    benchmark::RegisterBenchmark((name + "Tessary, read and written").c_str(), runAgain, event);
    benchmark::RegisterBenchmark((name + "CPython, read and written").c_str(), runCPython,
                                 CPythonTask{"json", {event.text}, writtenAgain})
        ->UseManualTime()
        ->Iterations(1);
  }
}

[[maybe_unused]] const bool registered = (registerAll(), true);

}  // namespace
}  // namespace tessary
