// That no content of a file gets into a signal. What is put into the places that may hold content is chosen twice, at
// random: the signals must not differ, and a mark that stands in all of it must be in neither.
//
// What is true, and no more than that, is this: the values of the whitelisted keys pass, and of a patch every line that
// begins with one of five markers passes whole. Lines end where Python's `splitlines` ends them, so a line of a file
// that holds U+2028 or U+000B with a marker behind it does show what follows; the content made here has none of that.

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/HookNormalizer.h"

namespace tessary {
namespace {

constexpr std::string_view mark = "C0NTENT";

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t end) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

template <std::size_t count>
std::string pick(Random& random, const std::array<std::string_view, count>& texts) {
  return std::string(texts[below(random, count)]);
}

/// The frame of an event, drawn from `shape`, with contents drawn from `content`: two events of one shape differ in
/// nothing but their contents.
class EventMaker {
 public:
  EventMaker(std::uint64_t shape, std::uint64_t content) : shape_(shape), content_(content) {}

  JSONValue event() {
    JSONValue::Object members;
    for (const std::string_view key : {"cwd", "hook_event_name", "session_id"})
      members.push_back({std::string(key), pick<3>(shape_, {"/home/someone", "PostToolUse", "s"})});
    addContents(members, {"content", "prompt", "file_text", "diff", "toolCalls", "last_assistant_message"});
    if (below(shape_, 4) > 0) members.push_back({"tool_input", below(shape_, 5) > 0 ? input() : anyContent()});
    if (below(shape_, 2) > 0) members.push_back({"args", input()});
    if (below(shape_, 2) > 0) members.push_back({"tool_response", response()});
    return members;
  }

 private:
  /// Text that holds the mark and no line end with a patch's marker behind it.
  std::string contentText() {
    constexpr std::array<std::string_view, 14> pieces = {
        "a",    "\n", "\r\n+",          "\u2028", "\x0B ", "*** Delete File: ", "한국어", "\"\\}", "\n *** Add File: ",
        "\xFF", "😀", "+*** End Patch", "\x1C-",  "\t"};
    std::string text = "+";
    for (std::size_t count = below(content_, 6); count > 0; --count)
      text += pick(content_, pieces) + std::string(mark);
    return text + std::string(mark);
  }

  JSONValue anyContent() {
    const JSONValue text = contentText();
    switch (below(shape_, 4)) {
      case 0:
        return JSONValue::Array{text, 1, JSONValue::Array{text}};
      case 1:
        return R"({"file_path": "/a.md", "content": ")" + std::string(mark) + "\"}";
      default:
        return text;
    }
  }

  void addContents(JSONValue::Object& members, std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) {
      if (below(shape_, 3) == 0) members.push_back({std::string(key), anyContent()});
    }
    if (below(shape_, 3) == 0) members.push_back({"key of " + contentText(), anyContent()});
  }

  std::string patch() {
    constexpr std::array<std::string_view, 4> kept = {"*** Add File: /a.md", "*** Update File: b", "*** Move to: /c",
                                                      "*** End Patch"};
    std::string text = below(shape_, 3) == 0 ? " \n*** Begin Patch" : "*** Begin Patch";
    for (std::size_t count = below(shape_, 5); count > 0; --count) {
      text += "\n" + pick(shape_, kept) + pick<4>(shape_, {"\n", "\r", "\u2029", "\x1D"});
      text += pick<5>(shape_, {"", " ", "-", "@@ ", "*** Delete File: "}) + contentText();
    }
    return text;
  }

  JSONValue input() {
    JSONValue::Object members;
    addContents(members, {"content", "old_string", "new_string", "edits", "file_text", "description"});
    for (const std::string_view key : {"file_path", "path", "absolute_path"}) {
      if (below(shape_, 3) == 0)
        members.push_back({std::string(key), "/home/someone/plan.md"});
      else if (below(shape_, 3) == 0)
        members.push_back({std::string(key), JSONValue::Array{contentText()}});
    }
    for (const std::string_view key : {"patch", "input", "command"}) {
      if (below(shape_, 2) == 0)
        members.push_back({std::string(key), patch()});
      else if (below(shape_, 2) == 0)
        members.push_back({std::string(key), anyContent()});
    }
    return members;
  }

  JSONValue response() {
    JSONValue::Object members = {{"success", true}};
    addContents(members, {"output", "content", "stdout", "originalFile"});
    return members;
  }

  Random shape_;
  Random content_;
};

TEST(CaptureSignalContent, NothingOfItPassesWhateverItIs) {
  std::size_t withPatch = 0;
  for (std::uint64_t shape = 0; shape < 1500; ++shape) {
    SCOPED_TRACE("shape " + std::to_string(shape));
    const JSONValue one = EventMaker(shape, 1).event();
    const JSONValue two = EventMaker(shape, shape + 2).event();
    const bool sorted = shape % 2 == 0;
    const auto signal = CaptureSignal::encode("claude", one, /*includesResponses=*/false, sorted);
    ASSERT_TRUE(signal);
    EXPECT_EQ(signal->find(mark), std::string::npos) << *signal;
    EXPECT_EQ(CaptureSignal::encode("claude", two, /*includesResponses=*/false, sorted), signal);
    if (signal->find("*** ") != std::string::npos) ++withPatch;
  }
  EXPECT_GT(withPatch, 500U);
}

TEST(CaptureSignalContent, NothingOfItPassesByWayOfTheNormalForm) {
  std::size_t normalised = 0;
  for (std::uint64_t shape = 0; shape < 1500; ++shape) {
    SCOPED_TRACE("shape " + std::to_string(shape));
    const auto one = HookNormalizer::normalize("kimi", EventMaker(shape, 1).event());
    const auto two = HookNormalizer::normalize("kimi", EventMaker(shape, shape + 2).event());
    ASSERT_EQ(one.has_value(), two.has_value());
    if (!one) continue;
    ++normalised;
    const auto signal = CaptureSignal::encode("kimi", *one, /*includesResponses=*/false, /*sortKeys=*/true);
    ASSERT_TRUE(signal);
    EXPECT_EQ(signal->find(mark), std::string::npos) << *signal;
    EXPECT_EQ(CaptureSignal::encode("kimi", *two, /*includesResponses=*/false, /*sortKeys=*/true), signal);
  }
  EXPECT_GT(normalised, 100U);
}

/// The other side of the rule, so that nobody reads more into the property than is true.
TEST(CaptureSignalContent, AMarkerBehindALineEndOfPythonsShowsItsLine) {
  const JSONValue payload = JSONValue::Object{
      {"tool_input", JSONValue::Object{{"patch", "*** Begin Patch\n+text\u2028*** Add File: C0NTENT"}}}};
  EXPECT_EQ(
      CaptureSignal::encode("claude", payload, false, true),
      R"({"payload": {"tool_input": {"patch": "*** Begin Patch\n*** Add File: C0NTENT"}}, "source": "claude", "version": 1})");
}

}  // namespace
}  // namespace tessary
