#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/HookNormalizer.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using HookNormalizer::normalize;

JSONValue json(std::string_view text) {
  auto value = JSONValue::parse(text);
  EXPECT_TRUE(value) << text;
  return value ? *std::move(value) : JSONValue();
}

/// The normal form as text, or "absent".
std::string normal(std::string_view agent, std::string_view event) {
  const auto result = normalize(agent, json(event));
  return result ? *CaptureSignal::pythonJSON(*result, /*sortKeys=*/false) : "absent";
}

/// One value of the normal form as text; "absent" if there is no normal form, "missing" if it lacks the key.
std::string valueOf(std::string_view key, std::string_view agent, std::string_view event) {
  const auto result = normalize(agent, json(event));
  if (!result) return "absent";
  const JSONValue* value = result->find(key);
  return value == nullptr ? "missing" : *CaptureSignal::pythonJSON(*value, /*sortKeys=*/false);
}

/// An event that the agent's shape accepts, followed by `more` members, in front of its closing brace.
std::string accepted(std::string_view agent, std::string_view more = "") {
  const std::string tail = (more.empty() ? "" : ", ") + std::string(more) + "}";
  if (agent == "copilot") return R"({"toolResult": {"resultType": "success"})" + tail;
  if (agent == "cursor") return R"({"hook_event_name": "afterAgentResponse")" + tail;
  if (agent == "windsurf") return R"({"agent_action_name": "post_cascade_response")" + tail;
  if (agent == "opencode") return R"({"hook_event_name": "tool.execute.after")" + tail;
  return R"({"hook_event_name": "PostToolUse")" + tail;
}

TEST(HookNormalizer, AcceptsTheEventsOfThirteenAgents) {
  using Names = std::vector<std::string_view>;
  const Names lifecycle = {"SessionStart", "UserPromptSubmit", "PostToolUse", "Stop",
                           "SessionEnd",   "SubagentStart",    "SubagentStop"};
  const std::vector<std::pair<std::string_view, Names>> expected = {
      {"copilot", {"postToolUse"}},
      {"cursor", {"afterFileEdit", "afterAgentResponse"}},
      {"windsurf", {"post_write_code", "post_cascade_response"}},
      {"opencode", {"tool.execute.after"}},
      {"droid", {"SessionStart", "UserPromptSubmit", "PostToolUse", "Stop", "SessionEnd", "SubagentStop"}},
      {"qwen", lifecycle},
      {"codebuddy", lifecycle},
      {"qoder", lifecycle},
      {"qwenwork", lifecycle},
      {"qoderwork", lifecycle},
      {"kimi-code", lifecycle},
      {"kimi", lifecycle},
      {"grok-build", {"SessionStart", "PostToolUse"}},
  };
  ASSERT_EQ(HookNormalizer::events.size(), 13U);
  for (std::size_t index = 0; index < expected.size(); ++index) {
    EXPECT_EQ(HookNormalizer::events[index].agent, expected[index].first);
    EXPECT_TRUE(std::ranges::equal(HookNormalizer::events[index].names, expected[index].second))
        << expected[index].first;
  }
}

TEST(HookNormalizer, EveryAgentIsAKnownSourceAndStandsOnce) {
  std::set<std::string_view> agents;
  for (const auto& [agent, names] : HookNormalizer::events) {
    EXPECT_TRUE(agents.insert(agent).second) << agent;
    EXPECT_NE(std::ranges::find(CaptureSignal::sources, agent), CaptureSignal::sources.end()) << agent;
    EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), names.size()) << agent;
  }
  const std::set<std::string_view> native(HookNormalizer::nativeJSON.begin(), HookNormalizer::nativeJSON.end());
  EXPECT_EQ(native, (std::set<std::string_view>{"droid", "qwen", "codebuddy", "qoder", "qwenwork", "qoderwork",
                                                "kimi-code", "kimi"}));
  EXPECT_TRUE(std::ranges::includes(agents, native));
}

TEST(HookNormalizer, OtherAgentsAreNotFollowed) {
  for (const std::string_view agent : {"", "claude", "codex", "Kimi", "kimi ", "kim", "kimi\xFF"})
    EXPECT_EQ(normal(agent, R"({"hook_event_name": "PostToolUse", "cwd": "/a"})"), "absent") << agent;
}

TEST(HookNormalizer, AnEventThatIsNoObjectIsIgnored) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    for (const std::string_view event : {"null", "[]", "7", "\"{}\"", "{}", "true"})
      EXPECT_EQ(normal(agent, event), "absent") << agent << event;
  }
}

TEST(HookNormalizer, TakesOfTheNativeAgentsTheListedEventsOnly) {
  for (const std::string_view agent : HookNormalizer::nativeJSON) {
    for (const std::string_view name : HookNormalizer::lifecycle) {
      const std::string event = R"({"cwd": "/a", "hook_event_name": ")" + std::string(name) + "\"}";
      const bool isListed = agent != "droid" || name != "SubagentStart";
      EXPECT_EQ(valueOf("hook_event_name", agent, event), isListed ? "\"" + std::string(name) + "\"" : "absent")
          << agent << name;
    }
    for (const std::string_view name : {"", "PreToolUse", "postToolUse", "stop", "Stop ", "afterFileEdit"})
      EXPECT_EQ(normal(agent, R"({"cwd": "/a", "hook_event_name": ")" + std::string(name) + "\"}"), "absent")
          << agent << name;
  }
}

TEST(HookNormalizer, AWorkingFolderMustBeAbsolute) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    EXPECT_EQ(valueOf("cwd", agent, accepted(agent, R"("cwd": "/")")), "\"/\"") << agent;
    EXPECT_EQ(valueOf("cwd", agent, accepted(agent, R"("cwd": "/a/../b//")")), "\"/a/../b//\"") << agent;
    EXPECT_EQ(normal(agent, accepted(agent)), "absent") << agent;
    for (const std::string_view cwd :
         {R"("a/b")", R"("")", R"(" /a")", R"("~/a")", "null", "7", R"(["/a"])", R"({"path": "/a"})", "true"})
      EXPECT_EQ(normal(agent, accepted(agent, R"("cwd": )" + std::string(cwd))), "absent") << agent << cwd;
  }
}

TEST(HookNormalizer, ANameThatIsNoTextEndsEveryEvent) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    const std::string name = R"(, "agent_action_name": ")" + std::string(names[0]) + "\"}";
    for (const std::string_view useless : {"5", "null", "[]", "{}", "false"}) {
      EXPECT_EQ(
          normal(agent, R"({"cwd": "/a", "toolResult": {"resultType": "success"}, "file_path": "/f", "tool_info": )"
                        R"({"file_path": "/f"}, "hookEventName": "PostToolUse", "hook_event_name": )" +
                            std::string(useless) + name),
          "absent")
          << agent << useless;
    }
    EXPECT_NE(normal(agent, R"({"cwd": "/a", "toolResult": {"resultType": "success"}, "file_path": "/f", "tool_info": )"
                            R"({"file_path": "/f"})" +
                                name),
              "absent")
        << agent;
  }
}

TEST(HookNormalizer, TheFirstKeyOfASessionThatIsThereCounts) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    const auto session = [agent](std::string_view keys) {
      return valueOf("session_id", agent, accepted(agent, R"("cwd": "/a")" + std::string(keys)));
    };
    EXPECT_EQ(session(""), "null");
    EXPECT_EQ(session(R"(, "trajectory_id": "d", "conversation_id": "c", "sessionId": "b", "session_id": "a")"),
              "\"a\"");
    EXPECT_EQ(session(R"(, "trajectory_id": "d", "conversation_id": "c", "sessionId": "b")"), "\"b\"");
    EXPECT_EQ(session(R"(, "trajectory_id": "d", "conversation_id": "c")"), "\"c\"");
    EXPECT_EQ(session(R"(, "trajectory_id": "d")"), "\"d\"");
    EXPECT_EQ(session(R"(, "session_id": 7, "sessionId": "b")"), "null");
    EXPECT_EQ(session(R"(, "session_id": null, "sessionId": "b")"), "null");
    EXPECT_EQ(session(R"(, "sessionId": {}, "conversation_id": "c")"), "null");
    EXPECT_EQ(session(R"(, "session_id": "")"), "\"\"");
  }
}

TEST(HookNormalizer, CopiesWhatEveryAgentMayHaveInTheOrderOfTheNormalForm) {
  const std::string extras =
      R"("cwd": "/a", "_tessaryProducer": {"b": 1, "a": [true]}, "agentHome": "/h", "sourceKind": "k", "sourceProfileLabel": )"
      R"("l", "sourceProfileID": "i", "timestamp": "t", "model": "m", "unknown": "u")";
  for (const auto& [agent, names] : HookNormalizer::events) {
    const std::string name = agent == "cursor" || agent == "windsurf" ? "Stop" : "PostToolUse";
    EXPECT_EQ(
        normal(agent, accepted(agent, extras)),
        R"({"hook_event_name": ")" + name +
            R"(", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {}, )"
            R"("last_assistant_message": null, "cwd": "/a", "model": "m", "timestamp": "t", "sourceProfileID": "i", )"
            R"("sourceProfileLabel": "l", "sourceKind": "k", "agentHome": "/h", "_tessaryProducer": {"b": 1, "a": [true]}})")
        << agent;
  }
}

TEST(HookNormalizer, TakesOfTheOtherKeysOnlyThoseOfTheAgentsShape) {
  const std::string all =
      R"("cwd": "/a", "turn_id": "never", "generation_id": "g", "execution_id": "e", "agent_id": "i", )"
      R"("parent_session_id": "p", "transcript_path": "t")";
  const std::string always = R"(, "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {}, )"
                             R"("last_assistant_message": null, "cwd": "/a")";
  const std::string ofClaudesShape = R"(, "agent_id": "i", "parent_session_id": "p", "transcript_path": "t"})";
  const auto expected = [&](std::string_view agent) {
    if (agent == "cursor") return R"({"hook_event_name": "Stop")" + always + R"(, "turn_id": "g"})";
    if (agent == "windsurf") return R"({"hook_event_name": "Stop")" + always + R"(, "turn_id": "e"})";
    const bool isOwnShape = agent == "copilot" || agent == "opencode";
    return R"({"hook_event_name": "PostToolUse")" + always + (isOwnShape ? "}" : ofClaudesShape);
  };
  for (const auto& [agent, names] : HookNormalizer::events)
    EXPECT_EQ(normal(agent, accepted(agent, all)), expected(agent)) << agent;
  EXPECT_EQ(normal("grok-build", R"({"hookEventName": "PostToolUse", )" + all + "}"),
            R"({"hook_event_name": "PostToolUse")" + always + "}")
      << "its own spelling is another shape";
}

TEST(HookNormalizer, LeavesOutWhatHasTheWrongType) {
  const std::string extras =
      R"("cwd": "/a", "_tessaryProducer": "{}", "agentHome": 1, "sourceKind": null, "sourceProfileLabel": ["l"], )"
      R"("sourceProfileID": {}, "timestamp": 1767323045, "model": {"name": "m"}, "agent_id": 1, "parent_session_id": null, )"
      R"("transcript_path": [], "generation_id": 1, "execution_id": null)";
  for (const auto& [agent, names] : HookNormalizer::events) {
    const std::string name = agent == "cursor" || agent == "windsurf" ? "Stop" : "PostToolUse";
    EXPECT_EQ(normal(agent, accepted(agent, extras)),
              R"({"hook_event_name": ")" + name +
                  R"(", "session_id": null, "tool_name": "", "tool_input": {}, "tool_response": {}, )"
                  R"("last_assistant_message": null, "cwd": "/a"})")
        << agent;
  }
}

TEST(HookNormalizer, AToolNameThatIsNoTextEndsTheEvent) {
  for (const auto& [agent, names] : HookNormalizer::events) {
    const bool hasTool = agent != "cursor" && agent != "windsurf";
    for (const std::string_view useless : {"null", "5", "[]", "{}"}) {
      const std::string event = accepted(agent, R"("cwd": "/a", "tool_name": )" + std::string(useless));
      EXPECT_EQ(valueOf("tool_name", agent, event), hasTool ? "absent" : "\"\"") << agent << useless;
    }
  }
}

TEST(HookNormalizer, NamesTheFileOfAnInputThatNamesItInItsOwnWay) {
  const auto input = [](std::string_view value) {
    return valueOf("tool_input", "kimi", accepted("kimi", R"("cwd": "/a", "tool_input": )" + std::string(value)));
  };
  EXPECT_EQ(input(R"({"filePath": "/f", "x": 1})"), R"({"filePath": "/f", "x": 1, "file_path": "/f"})");
  EXPECT_EQ(input(R"({"filePath": ""})"), R"({"filePath": "", "file_path": ""})");
  EXPECT_EQ(input(R"({"filePath": "/f", "file_path": "/g"})"), R"({"filePath": "/f", "file_path": "/g"})");
  EXPECT_EQ(input(R"({"filePath": "/f", "file_path": null})"), R"({"filePath": "/f", "file_path": null})");
  EXPECT_EQ(input(R"({"filePath": "/f", "file_path": 5})"), R"({"filePath": "/f", "file_path": 5})");
  EXPECT_EQ(input(R"({"filePath": 5})"), R"({"filePath": 5})");
  EXPECT_EQ(input(R"({"filepath": "/f"})"), R"({"filepath": "/f"})");
}

TEST(HookNormalizer, ReadsAnObjectFromItsTextOnce) {
  const auto input = [](const JSONValue& value) {
    const auto result =
        normalize("kimi", JSONValue::Object{{"hook_event_name", "PostToolUse"}, {"cwd", "/a"}, {"tool_input", value}});
    return *CaptureSignal::pythonJSON(*result->find("tool_input"), /*sortKeys=*/false);
  };
  EXPECT_EQ(input(R"( {"filePath": "/a", "filePath": "/b", "n": 1.0} )"),
            R"({"filePath": "/b", "n": 1.0, "file_path": "/b"})");
  EXPECT_EQ(input(R"("{\"file_path\": \"/a\"}")"), "{}");
  EXPECT_EQ(input(R"({"inner": "{\"a\": 1}"})"), R"({"inner": "{\"a\": 1}"})");
  for (const std::string_view text :
       {"", " ", "7", "null", "true", "\"x\"", "[{}]", "{", "{\"a\": 1", "{} {}", "{a: 1}", "{\"a\": NaN}",
        "{\"a\": \"\\ud800\"}", "\xEF\xBB\xBF{}", "{\"\xFF\": 1}"})
    EXPECT_EQ(input(text), "{}") << text;
  for (const JSONValue& value : {JSONValue(), JSONValue(7), JSONValue(true), JSONValue(JSONValue::Array{1})})
    EXPECT_EQ(input(value), "{}");
}

TEST(HookNormalizer, TextNestedTooDeepIsNoObject) {
  const auto isRead = [](std::size_t depth) {
    const std::string text = R"({"a": )" + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
    const auto result =
        normalize("kimi", JSONValue::Object{{"hook_event_name", "PostToolUse"}, {"cwd", "/a"}, {"tool_input", text}});
    return !result->find("tool_input")->object()->empty();
  };
  EXPECT_TRUE(isRead(maximumJSONNesting - 1));
  EXPECT_TRUE(isRead(maximumJSONNesting));
  EXPECT_FALSE(isRead(maximumJSONNesting + 1));
  EXPECT_FALSE(isRead(2'000'000));
}

TEST(HookNormalizer, AMessageThatIsNoTextIsNull) {
  for (const std::string_view useless : {"null", "5", "{}", R"(["m"])"}) {
    const std::string value(useless);
    EXPECT_EQ(valueOf("last_assistant_message", "qwen",
                      accepted("qwen", R"("cwd": "/a", "last_assistant_message": )" + value)),
              "null");
    EXPECT_EQ(valueOf("last_assistant_message", "cursor", accepted("cursor", R"("cwd": "/a", "text": )" + value)),
              "null");
    EXPECT_EQ(valueOf("last_assistant_message", "windsurf",
                      accepted("windsurf", R"("cwd": "/a", "tool_info": {"response": )" + value + "}")),
              "null");
  }
}

TEST(HookNormalizer, TheNormalFormOfANativeEventIsItsOwnNormalForm) {
  for (const PythonVector& vector : readPythonVectors("normalize.tsv", "capture")) {
    if (vector.fields.at(0) != "kimi" && vector.fields.at(0) != "droid") continue;
    const auto once = normalize(vector.fields.at(0), json(vector.fields.at(1)));
    if (once) {
      EXPECT_EQ(normalize(vector.fields.at(0), *once), *once) << vector.line;
    }
  }
}

TEST(HookNormalizer, EqualsTheRulesAsPythonRunsThem) {
  const auto vectors = readPythonVectors("normalize.tsv", "capture");
  ASSERT_GT(vectors.size(), 1000U);
  std::size_t present = 0;
  for (const PythonVector& vector : vectors) {
    SCOPED_TRACE("normalize.tsv:" + std::to_string(vector.line));
    const auto result = normalize(vector.fields.at(0), json(vector.fields.at(1)));
    EXPECT_EQ(result ? *CaptureSignal::pythonJSON(*result, /*sortKeys=*/true) : "absent", vector.fields.at(2));
    if (result) ++present;
  }
  EXPECT_GT(present, 400U);
}

}  // namespace
}  // namespace tessary
