#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureSignal.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using CaptureSignal::encode;

JSONValue json(std::string_view text) {
  auto value = JSONValue::parse(text);
  EXPECT_TRUE(value) << text;
  return value ? *std::move(value) : JSONValue();
}

/// The signal of "claude" without responses, its keys in their order.
std::optional<std::string> signalOf(std::string_view payload) {
  return encode("claude", json(payload), /*includesResponses=*/false, /*sortKeys=*/false);
}

/// What `signalOf` gives for a payload that is reduced to this text.
std::string signal(std::string_view payload) {
  return R"({"version": 1, "source": "claude", "payload": )" + std::string(payload) + "}";
}

/// The payload that reduces a tool's input to `input`.
std::string signalOfInput(std::string_view input) {
  return signal(R"({"tool_input": )" + std::string(input) + "}");
}

TEST(CaptureSignal, TellsItsConstants) {
  EXPECT_EQ(CaptureSignal::directory, "signals");
  EXPECT_EQ(CaptureSignal::maximumBytes, 65'536U);
  EXPECT_EQ(CaptureSignal::maximumPending, 512U);
  EXPECT_EQ(CaptureSignal::maximumInputBytes, 4'194'304U);
}

TEST(CaptureSignal, KnowsThirtyOneSourcesEachWithItsHome) {
  const std::vector<std::string_view> order = {
      "claude",   "codex", "zcode",        "gemini",    "antigravity", "cursor",    "trae",       "opencode",
      "mimocode", "droid", "qoder",        "qoderwork", "qwen",        "qwenwork",  "grok-build", "kimi-code",
      "deepseek", "dsh",   "mistral-vibe", "devin",     "copilot",     "codebuddy", "workbuddy",  "kiro",
      "hermes",   "amp",   "pi",           "oh-my-pi",  "gajae-code",  "kimi",      "windsurf"};
  ASSERT_EQ(order.size(), 31U);
  EXPECT_TRUE(std::ranges::equal(CaptureSignal::sources, order));
  EXPECT_TRUE(std::ranges::equal(CaptureSignal::homes, order, {}, &CaptureSignal::Home::source));
  std::set<std::string_view> names;
  std::set<std::string_view> folders;
  for (const auto& [source, home] : CaptureSignal::homes) {
    EXPECT_TRUE(names.insert(source).second) << source;
    EXPECT_TRUE(folders.insert(home).second) << home;
    EXPECT_TRUE(home.starts_with('.') && !home.ends_with('/')) << home;
  }
}

TEST(CaptureSignal, MostHomesAreTheSourcesNameBehindADot) {
  const std::vector<std::pair<std::string_view, std::string_view>> others = {{"opencode", ".config/opencode"},
                                                                             {"droid", ".factory"},
                                                                             {"grok-build", ".grok"},
                                                                             {"deepseek", ".codewhale"},
                                                                             {"mistral-vibe", ".vibe"},
                                                                             {"amp", ".config/amp"},
                                                                             {"pi", ".pi/agent"},
                                                                             {"oh-my-pi", ".omp/agent"},
                                                                             {"gajae-code", ".gajae"},
                                                                             {"windsurf", ".codeium/windsurf"}};
  for (const auto& [source, home] : CaptureSignal::homes) {
    const auto other = std::ranges::find(others, source, &std::pair<std::string_view, std::string_view>::first);
    EXPECT_EQ(home, other == others.end() ? "." + std::string(source) : other->second);
  }
}

TEST(CaptureSignal, EverySourceIsAcceptedAndNothingElse) {
  for (const std::string_view source : CaptureSignal::sources) {
    EXPECT_EQ(encode(source, json("{}"), false, false),
              R"({"version": 1, "source": ")" + std::string(source) + R"(", "payload": {}})");
  }
  for (const std::string_view source : {"", "Claude", "claude ", "grok", "qod", "claude\xFF"})
    EXPECT_EQ(encode(source, json("{}"), false, false), std::nullopt) << source;
}

TEST(CaptureSignal, APayloadThatIsNoObjectGivesNoSignal) {
  for (const std::string_view payload : {"null", "[]", "1", "\"{}\"", "true"})
    EXPECT_EQ(signalOf(payload), std::nullopt) << payload;
}

TEST(CaptureSignal, SixteenFieldsPassWithWhateverValueTheyHave) {
  EXPECT_EQ(CaptureSignal::fields.size(), 16U);
  const std::string all =
      R"({"hook_event_name": "Stop", "session_id": null, "cwd": "/a", "model": [1], "transcript_path": {"b": 1, "a": 2}, )"
      R"("tool_name": 5, "tool_use_id": 1.5, "timestamp": true, "turn_id": "t", "response_id": "r", "message_id": "m", )"
      R"("parent_session_id": "p", "isSidechain": false, "agent_id": "", "_tessaryProfile": {"id": "x"}, )"
      R"("_tessaryLocalIngress": 1})";
  EXPECT_EQ(signalOf(all), signal(all));
}

TEST(CaptureSignal, TheOrderOfTheKeysIsTheSignalsOwn) {
  EXPECT_EQ(signalOf(R"({"args": {"path": "p"}, "cwd": "/a", "x": 1, "tool_response": {}, "hook_event_name": "Stop"})"),
            signal(R"({"hook_event_name": "Stop", "cwd": "/a", "tool_input": {"path": "p"}, "tool_response": {}})"));
}

TEST(CaptureSignal, SortedKeysPutTheEnvelopeInOrderToo) {
  EXPECT_EQ(encode("kimi", json(R"({"cwd": {"b": 1, "a": 2}, "agent_id": "é"})"), false, /*sortKeys=*/true),
            R"({"payload": {"agent_id": "\u00e9", "cwd": {"a": 2, "b": 1}}, "source": "kimi", "version": 1})");
}

TEST(CaptureSignal, TheSamePayloadGivesTheSameTextInWhateverOrderItsKeysStand) {
  const JSONValue payload =
      json(R"({"cwd": "/a", "model": "m", "tool_input": {"path": "p", "file_path": "f"}, "tool_response":
                                     {"error": {"b": 1, "a": 2}, "success": true}, "agent_id": "i"})");
  const auto expected = encode("claude", payload, true, /*sortKeys=*/true);
  ASSERT_TRUE(expected);
  JSONValue::Object members = *payload.object();
  std::ranges::sort(members, {}, &JSONValue::Member::key);
  do {
    EXPECT_EQ(encode("claude", members, true, /*sortKeys=*/true), expected);
  } while (std::ranges::next_permutation(members, {}, &JSONValue::Member::key).found);
}

TEST(CaptureSignal, OfTheToolsInputOnlyTextsThatNameAFileRemain) {
  EXPECT_EQ(signalOf(R"({"tool_input": {"content": "secret"}})"), signalOfInput("{}"));
  EXPECT_EQ(signalOf(R"({"tool_input": {}})"), signalOfInput("{}"));
  EXPECT_EQ(signalOf(R"({"tool_input": {"absolute_path": "/c", "content": "x", "path": "b", "file_path": ""}})"),
            signalOfInput(R"({"file_path": "", "path": "b", "absolute_path": "/c"})"));
  EXPECT_EQ(signalOf(R"({"tool_input": {"file_path": 1, "path": null, "absolute_path": ["/c"], "filePath": "/d"}})"),
            signalOfInput("{}"));
}

TEST(CaptureSignal, ArgumentsStandInForAnInputThatIsNoObject) {
  EXPECT_EQ(signalOf(R"({"args": {"path": "a"}})"), signalOfInput(R"({"path": "a"})"));
  EXPECT_EQ(signalOf(R"({"tool_input": "{\"path\": \"b\"}", "args": {"path": "a"}})"),
            signalOfInput(R"({"path": "a"})"));
  EXPECT_EQ(signalOf(R"({"tool_input": null, "args": {"path": "a"}})"), signalOfInput(R"({"path": "a"})"));
  EXPECT_EQ(signalOf(R"({"tool_input": {}, "args": {"path": "a"}})"), signalOfInput("{}"));
  EXPECT_EQ(signalOf(R"({"tool_input": "x", "args": "{}"})"), signal("{}"));
}

TEST(CaptureSignal, APatchKeepsTheLinesThatNameFiles) {
  EXPECT_EQ(
      signalOf(R"({"tool_input": {"patch": "*** Begin Patch\n*** Add File: /a.md\n+secret\n*** Update File: b\n@@\n)"
               R"(-old\n*** Move to: c\n*** Delete File: d\n*** End of File\n*** End Patch\ntrailing"}})"),
      signalOfInput(
          R"({"patch": "*** Begin Patch\n*** Add File: /a.md\n*** Update File: b\n*** Move to: c\n*** End Patch"})"));
}

TEST(CaptureSignal, APatchMayStandInThreeKeys) {
  EXPECT_EQ(
      signalOf(
          R"({"tool_input": {"command": "*** Begin Patch\nx", "input": "*** Begin Patch\ny", "text": "*** Begin Patch",
                         "patch": "*** Begin Patch\nz", "path": "p"}})"),
      signalOfInput(
          R"({"path": "p", "patch": "*** Begin Patch", "input": "*** Begin Patch", "command": "*** Begin Patch"})"));
}

TEST(CaptureSignal, TextThatIsNoPatchIsDroppedWithItsKey) {
  for (const std::string_view text :
       {"rm -rf build", "", " ", "apply_patch <<'EOF'\\n*** Begin Patch\\n*** Add File: a\\n", "*** begin patch",
        "***Begin Patch", "** Begin Patch", "*** Begin  Patch", "\\u200b*** Begin Patch", "\\ufeff*** Begin Patch"}) {
    const std::string quoted = "\"" + std::string(text) + "\"";
    EXPECT_EQ(signalOf(R"({"tool_input": {"command": )" + quoted + R"(, "patch": )" + quoted + "}}"),
              signalOfInput("{}"))
        << text;
  }
  EXPECT_EQ(signalOf(R"({"tool_input": {"patch": ["*** Begin Patch"], "input": 1, "command": null}})"),
            signalOfInput("{}"));
}

TEST(CaptureSignal, AnIndentedFirstLineMakesAPatchAndIsLost) {
  EXPECT_EQ(
      signalOf(R"({"tool_input": {"patch": "  *** Begin Patch\n*** Add File: a\n *** Add File: b\n*** End Patch"}})"),
      signalOfInput(R"({"patch": "*** Add File: a\n*** End Patch"})"));
  EXPECT_EQ(signalOf(R"({"tool_input": {"patch": "\u3000\u001f*** Begin Patch\n+a"}})"),
            signalOfInput(R"({"patch": ""})"));
  EXPECT_EQ(signalOf(R"({"tool_input": {"patch": " \n\u001c*** Begin Patch\n+a"}})"),
            signalOfInput(R"({"patch": "*** Begin Patch"})"));
}

TEST(CaptureSignal, LinesOfAPatchEndWherePythonEndsThem) {
  for (const std::string_view end :
       {"\\n", "\\r", "\\r\\n", "\\u000b", "\\f", "\\u001c", "\\u001d", "\\u001e", "\\u0085", "\\u2028", "\\u2029"}) {
    EXPECT_EQ(signalOf(R"({"tool_input": {"patch": "*** Begin Patch)" + std::string(end) + "+x" + std::string(end) +
                       "*** Move to: a" + std::string(end) + R"("}})"),
              signalOfInput(R"({"patch": "*** Begin Patch\n*** Move to: a"})"))
        << end;
  }
  for (const std::string_view noEnd : {"\\u001f", "\\t", "\\u0000"}) {
    EXPECT_EQ(
        signalOf(R"({"tool_input": {"patch": "*** Begin Patch\n+x)" + std::string(noEnd) + R"(*** Move to: a"}})"),
        signalOfInput(R"({"patch": "*** Begin Patch"})"))
        << noEnd;
  }
}

TEST(CaptureSignal, AKeptLinePassesWhole) {
  EXPECT_EQ(signalOf(R"({"tool_input": {"patch": "*** Begin Patch of mine\n*** Add File:é\t*** \n*** End Patch."}})"),
            signalOfInput(R"({"patch": "*** Begin Patch of mine\n*** Add File:\u00e9\t*** \n*** End Patch."})"));
}

TEST(CaptureSignal, ALineThatIsNearlyAMarkerIsDropped) {
  for (const std::string_view line :
       {"*** Add File a", "*** Update File b", "*** Move to c", "*** Add Files: a", "*** Update Files: b",
        "*** Move to : c", "*** add file: a", "*** Update file: b", "*** Move To: c", "***  Add File: a",
        "*** End patch", "*** End Patc", "*** Begin patch", "***\\tMove to: c", "** Move to: c", "**** Move to: c",
        "+*** Add File: a", "*** ", "***"}) {
    EXPECT_EQ(signalOf(R"({"tool_input": {"patch": "*** Begin Patch\n)" + std::string(line) + R"("}})"),
              signalOfInput(R"({"patch": "*** Begin Patch"})"))
        << line;
  }
  EXPECT_EQ(signalOf(R"({"tool_input": {"patch": "*** Begin Patch\n*** Add File:\n*** Update File:\n*** Move to:"}})"),
            signalOfInput(R"({"patch": "*** Begin Patch\n*** Add File:\n*** Update File:\n*** Move to:"})"))
      << "a marker needs nothing behind it";
}

TEST(CaptureSignal, OfTheToolsAnswerOnlyItsOutcomeRemains) {
  EXPECT_EQ(signalOf(R"({"tool_response": {"output": "x", "error": {"a": [1]}, "success": "no"}})"),
            signal(R"({"tool_response": {"success": "no", "error": {"a": [1]}}})"));
  EXPECT_EQ(signalOf(R"({"tool_response": {}})"), signal(R"({"tool_response": {}})"));
  EXPECT_EQ(signalOf(R"({"tool_response": "{\"success\": true}"})"), signal("{}"));
  EXPECT_EQ(signalOf(R"({"tool_response": [{"success": true}]})"), signal("{}"));
}

TEST(CaptureSignal, ResponsesPassOnlyWhereTheyAreAskedForAndText) {
  const JSONValue payload = json(R"({"assistant_response": "b", "last_assistant_message": "a"})");
  EXPECT_EQ(encode("claude", payload, /*includesResponses=*/true, false),
            signal(R"({"last_assistant_message": "a", "assistant_response": "b"})"));
  EXPECT_EQ(encode("claude", payload, /*includesResponses=*/false, false), signal("{}"));
  EXPECT_EQ(encode("claude", json(R"({"assistant_response": null, "last_assistant_message": ["a"]})"), true, false),
            signal("{}"));
}

TEST(CaptureSignal, ANumberThatCannotBeWrittenDropsTheSignalOnlyWhereItPasses) {
  EXPECT_EQ(signalOf(R"({"model": 1e400})"), std::nullopt);
  EXPECT_EQ(signalOf(R"({"tool_response": {"error": [1e400]}})"), std::nullopt);
  EXPECT_EQ(signalOf(R"({"other": 1e400, "tool_input": {"content": 1e400}})"), signalOfInput("{}"));
}

TEST(CaptureSignal, ASignalIsAsLongAsTheLimitAtMost) {
  const std::size_t frame = signal(R"({"cwd": ""})").size();
  const auto sized = [&](std::size_t size) {
    return encode("claude", JSONValue::Object{{"cwd", std::string(size - frame, 'x')}}, false, true);
  };
  for (const std::size_t size : {CaptureSignal::maximumBytes - 1, CaptureSignal::maximumBytes}) {
    const auto written = sized(size);
    ASSERT_TRUE(written) << size;
    EXPECT_EQ(written->size(), size);
  }
  EXPECT_EQ(sized(CaptureSignal::maximumBytes + 1), std::nullopt);
}

TEST(CaptureSignal, TheLimitCountsTheBytesOfTheEscapedText) {
  const std::size_t room = CaptureSignal::maximumBytes - signal(R"({"cwd": ""})").size();
  std::string text(room % 6, 'x');
  for (std::size_t count = 0; count < room / 6; ++count)
    text += "é";
  const auto written = encode("claude", JSONValue::Object{{"cwd", text}}, false, false);
  ASSERT_TRUE(written);
  EXPECT_EQ(written->size(), CaptureSignal::maximumBytes);
  EXPECT_EQ(encode("claude", JSONValue::Object{{"cwd", text + "x"}}, false, false), std::nullopt);
}

TEST(CaptureSignal, AnEventOfAnySizeIsReducedBeforeItIsMeasured) {
  const std::string content(CaptureSignal::maximumInputBytes / 8, '\n');
  const JSONValue payload = JSONValue::Object{
      {"tool_input", JSONValue::Object{{"content", content}, {"patch", content + "*** Begin Patch" + content}}}};
  EXPECT_EQ(encode("claude", payload, true, true),
            R"({"payload": {"tool_input": {"patch": "*** Begin Patch"}}, "source": "claude", "version": 1})");
}

TEST(CaptureSignal, EqualsTheRulesAsPythonRunsThem) {
  const auto vectors = readPythonVectors("encode.tsv", "capture");
  ASSERT_EQ(vectors.size(), 700U);
  for (const PythonVector& vector : vectors) {
    SCOPED_TRACE("encode.tsv:" + std::to_string(vector.line));
    const JSONValue payload = json(vector.fields.at(1));
    const bool includesResponses = vector.fields.at(2) == "true";
    const std::string& expected = vector.fields.at(3);
    EXPECT_EQ(encode(vector.fields.at(0), payload, includesResponses, /*sortKeys=*/true).value_or("absent"), expected);
    // In its own order it is the same signal.
    const auto unsorted = encode(vector.fields.at(0), payload, includesResponses, /*sortKeys=*/false);
    ASSERT_EQ(unsorted.has_value(), expected != "absent");
    if (unsorted) {
      EXPECT_EQ(CaptureSignal::pythonJSON(json(*unsorted), /*sortKeys=*/true), expected);
    }
  }
}

}  // namespace
}  // namespace tessary
