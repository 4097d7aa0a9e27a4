#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONSyntax.h"

#include "ReferenceJSON.h"

namespace tessary {

// Found by GoogleTest, so that a failing row shows its fault.
std::ostream& operator<<(std::ostream& stream, const JSONSyntaxError& error) {
  return stream << "reason " << static_cast<int>(error.reason) << " at " << error.position;
}

namespace {

using Reason = JSONSyntaxError::Reason;
using testing::ReferenceJSON;

std::string nested(std::size_t depth, std::string_view open, std::string_view inner, std::string_view close) {
  std::string text;
  for (std::size_t level = 0; level < depth; ++level)
    text += open;
  text += inner;
  for (std::size_t level = 0; level < depth; ++level)
    text += close;
  return text;
}

TEST(JSONSyntax, TellsTheKindOfTheValueOnTop) {
  const std::vector<std::pair<std::string_view, JSONKind>> rows = {
      {"null", JSONKind::null},
      {"true", JSONKind::boolean},
      {" false ", JSONKind::boolean},
      {"0", JSONKind::number},
      {"-0", JSONKind::number},
      {"-12.5e+3", JSONKind::number},
      {"1E400", JSONKind::number},
      {"0e0", JSONKind::number},
      {"0.0", JSONKind::number},
      {"\"\"", JSONKind::text},
      {"\t\r\n \"a\"", JSONKind::text},
      {"[]", JSONKind::array},
      {"[ ]", JSONKind::array},
      {"[1,[2,{}],{}]", JSONKind::array},
      {"{}", JSONKind::object},
      {"{ \"\" : [ ] }", JSONKind::object},
      {"\"\\u0000\"", JSONKind::text},
      {"123456789012345678901234567890123456789012345678901234567890", JSONKind::number},
      {"\"\\ud83d\\uDE00\"", JSONKind::text},
      {"\"\x7f\"", JSONKind::text},
      {"\"\xEF\xBB\xBF\"", JSONKind::text},
      {"\"\xF4\x8F\xBF\xBF\"", JSONKind::text},
      {"\"/\\/\"", JSONKind::text},
  };
  for (const auto& [text, kind] : rows) {
    const auto walked = walkJSON(text);
    ASSERT_TRUE(walked) << text << ": " << walked.error();
    EXPECT_EQ(*walked, kind) << text;
    EXPECT_TRUE(ReferenceJSON::accepts(text, maximumJSONNesting)) << text;
  }
}

TEST(JSONSyntax, TellsWhatIsWrongAndWhere) {
  const std::vector<std::tuple<std::string_view, Reason, std::size_t>> rows = {
      // Nothing there.
      {"", Reason::expectedValue, 0},
      {" \n", Reason::expectedValue, 2},
      {"\xEF\xBB\xBF{}", Reason::byteOrderMark, 0},
      {"\xEF\xBB\xBF", Reason::byteOrderMark, 0},
      // Bytes that are not UTF-8: overlong, surrogate, too large, cut off, stray; within texts, between, in escapes.
      {"\"\xC0\x80\"", Reason::invalidUTF8, 1},
      {"\"\xE0\x80\x80\"", Reason::invalidUTF8, 1},
      {"\"\xED\xA0\x80\"", Reason::invalidUTF8, 1},
      {"\"\xF4\x90\x80\x80\"", Reason::invalidUTF8, 1},
      {"\"\xE2\x82\"", Reason::invalidUTF8, 1},
      {"[\"a\", \xFF]", Reason::invalidUTF8, 6},
      {"\"\\\xC3\"", Reason::invalidUTF8, 2},
      {"[01, \"\x80\"]", Reason::invalidUTF8, 6},
      {"{} \xFF", Reason::invalidUTF8, 3},
      {"\xFF\xFE{\0", Reason::invalidUTF8, 0},
      // Structure.
      {"[", Reason::expectedValue, 1},
      {"[1", Reason::expectedCommaOrEnd, 2},
      {"[1,", Reason::expectedValue, 3},
      {"[1,]", Reason::expectedValue, 3},
      {"[,1]", Reason::expectedValue, 1},
      {"[1,,2]", Reason::expectedValue, 3},
      {"[1 2]", Reason::expectedCommaOrEnd, 3},
      {"[1}", Reason::expectedCommaOrEnd, 2},
      {"[\"a\"\"b\"]", Reason::expectedCommaOrEnd, 4},
      {"[\"a\"b]", Reason::expectedCommaOrEnd, 4},
      {"[\"a\":1]", Reason::expectedCommaOrEnd, 4},
      {"]", Reason::expectedValue, 0},
      {":", Reason::expectedValue, 0},
      {"{", Reason::expectedKey, 1},
      {"{,}", Reason::expectedKey, 1},
      {"{1:2}", Reason::expectedKey, 1},
      {"{a:2}", Reason::expectedKey, 1},
      {"{'a':2}", Reason::expectedKey, 1},
      {"{null:2}", Reason::expectedKey, 1},
      {"{\"a\"}", Reason::expectedColon, 4},
      {"{\"a\"", Reason::expectedColon, 4},
      {"{\"a\" 1}", Reason::expectedColon, 5},
      {"{\"a\",1}", Reason::expectedColon, 4},
      {"{\"a\":", Reason::expectedValue, 5},
      {"{\"a\":}", Reason::expectedValue, 5},
      {"{\"a\"::1}", Reason::expectedValue, 5},
      {"{\"a\":1", Reason::expectedCommaOrEnd, 6},
      {"{\"a\":1]", Reason::expectedCommaOrEnd, 6},
      {"{\"a\":1,}", Reason::expectedKey, 7},
      {"{\"a\":1 \"b\":2}", Reason::expectedCommaOrEnd, 7},
      {"{\"a\":{\"b\":[1,{\"c\":]}}}", Reason::expectedValue, 18},
      // Behind the value on top.
      {"{}{}", Reason::trailingContent, 2},
      {"1 2", Reason::trailingContent, 2},
      {"[] ]", Reason::trailingContent, 3},
      {"null,", Reason::trailingContent, 4},
      {"{}/**/", Reason::trailingContent, 2},
      {"\"a\"x", Reason::trailingContent, 3},
      // What other notations allow.
      {"// c\n1", Reason::expectedValue, 0},
      {"[1]//", Reason::trailingContent, 3},
      {"NaN", Reason::expectedValue, 0},
      {"Infinity", Reason::expectedValue, 0},
      {"undefined", Reason::expectedValue, 0},
      {"'a'", Reason::expectedValue, 0},
      {"True", Reason::expectedValue, 0},
      {"[\xC2\xA0]", Reason::expectedValue, 1},
      {"[\x0C]", Reason::expectedValue, 1},
      {"\x1A", Reason::expectedValue, 0},
      {"\x0B[]", Reason::expectedValue, 0},
      {std::string_view("\0", 1), Reason::expectedValue, 0},
      {std::string_view("[1]\0", 4), Reason::trailingContent, 3},
      {std::string_view("[\0]", 3), Reason::expectedValue, 1},
      {"\\u0022a\"", Reason::expectedValue, 0},
      // Words.
      {"nul", Reason::malformedWord, 0},
      {"n", Reason::malformedWord, 0},
      {"nulll", Reason::malformedWord, 0},
      {"[truE]", Reason::malformedWord, 1},
      {"[true\"\"]", Reason::malformedWord, 1},
      {"{\"a\":fals}", Reason::malformedWord, 5},
      {"true\x0C", Reason::malformedWord, 0},
      // Numbers.
      {"01", Reason::malformedNumber, 0},
      {"-01", Reason::malformedNumber, 0},
      {"00", Reason::malformedNumber, 0},
      {"-", Reason::malformedNumber, 0},
      {"[-]", Reason::malformedNumber, 1},
      {"--1", Reason::malformedNumber, 0},
      {"-a", Reason::malformedNumber, 0},
      {"+1", Reason::expectedValue, 0},
      {".5", Reason::expectedValue, 0},
      {"1.", Reason::malformedNumber, 0},
      {"1.e1", Reason::malformedNumber, 0},
      {"-.5", Reason::malformedNumber, 0},
      {"1e", Reason::malformedNumber, 0},
      {"1e+", Reason::malformedNumber, 0},
      {"1e1.5", Reason::malformedNumber, 0},
      {"1.2.3", Reason::malformedNumber, 0},
      {"0x10", Reason::malformedNumber, 0},
      {"1_000", Reason::malformedNumber, 0},
      {"[1\"a\"]", Reason::malformedNumber, 1},
      {"[ 12a]", Reason::malformedNumber, 2},
      {"-Infinity", Reason::malformedNumber, 0},
      {"1\x0C", Reason::malformedNumber, 0},
      {"[1\x1A]", Reason::malformedNumber, 1},
      {"\xEF\xBC\x91", Reason::expectedValue, 0},
      // Texts.
      {"\"", Reason::unclosedText, 0},
      {"\"abc", Reason::unclosedText, 0},
      {"[\"abc]", Reason::unclosedText, 1},
      {"\"\\\"", Reason::unclosedText, 0},
      {"\"\\", Reason::unclosedText, 0},
      {"{\"a", Reason::unclosedText, 1},
      {"\"a\nb\"", Reason::controlCharacter, 2},
      {"\"\t\"", Reason::controlCharacter, 1},
      {"\"\x1F\"", Reason::controlCharacter, 1},
      {std::string_view("\"\0\"", 3), Reason::controlCharacter, 1},
      {"{\"a\x01\":1}", Reason::controlCharacter, 3},
      {"[1 2, \"\n\"]", Reason::expectedCommaOrEnd, 3},
      {"\"\\x41\"", Reason::invalidEscape, 1},
      {"\"\\a\"", Reason::invalidEscape, 1},
      {"\"ab\\'\"", Reason::invalidEscape, 3},
      {"\"\\ \"", Reason::invalidEscape, 1},
      {"\"\\U0041\"", Reason::invalidEscape, 1},
      {"\"\\u\"", Reason::invalidEscape, 1},
      {"\"\\u004\"", Reason::invalidEscape, 1},
      {"\"\\u004g\"", Reason::invalidEscape, 1},
      {"\"\\u 041\"", Reason::invalidEscape, 1},
      {"\"\\u+041\"", Reason::invalidEscape, 1},
      {"\"\\\n\"", Reason::invalidEscape, 1},
      {"\"\\\xC3\xA9\"", Reason::invalidEscape, 1},
      {"\"\\ud800\"", Reason::loneSurrogate, 1},
      {"\"\\udc00\"", Reason::loneSurrogate, 1},
      {"\"\\udbff x\"", Reason::loneSurrogate, 1},
      {"\"\\ud800\\n\"", Reason::loneSurrogate, 1},
      {"\"\\ud800\\u\"", Reason::loneSurrogate, 1},
      {"\"\\ud800\\u0041\"", Reason::loneSurrogate, 1},
      {"\"\\ud800\\ud800\\udc00\"", Reason::loneSurrogate, 1},
      {"\"\\ude00\\ud83d\"", Reason::loneSurrogate, 1},
      {"{\"\\ud800\":1}", Reason::loneSurrogate, 2},
      {"{\"a\":[{\"b\":\"x\\ud800\"}]}", Reason::loneSurrogate, 13},
      // The earliest fault is told.
      {"[1 2, \"\\x\"]", Reason::expectedCommaOrEnd, 3},
      {"[\"\\x\", \"\n", Reason::invalidEscape, 2},
      {"[01, \"abc", Reason::malformedNumber, 1},
      {"[\"\n\", 01]", Reason::controlCharacter, 2},
      // A text that breaks off or holds a control character where no text may stand.
      {"{} \"", Reason::trailingContent, 3},
      {"[]\"a\n\"", Reason::trailingContent, 2},
      {"1 \"\\", Reason::trailingContent, 2},
      {"\"a\" \"b", Reason::trailingContent, 4},
      {"[1 \"a", Reason::expectedCommaOrEnd, 3},
      {"{\"a\" \"\n\"}", Reason::expectedColon, 5},
      {"{\"a\":1 \"b", Reason::expectedCommaOrEnd, 7},
      {"{\"a\":1,\"b", Reason::unclosedText, 7},
      {"{\"a\":\"\x02\"}", Reason::controlCharacter, 6},
      // A bad escape before a control character in the same text is the earlier fault, one behind it is not.
      {"[\"\\x\n\"]", Reason::invalidEscape, 2},
      {"[\"\\u12\n\"]", Reason::invalidEscape, 2},
      {"{\"\\ud800\n\":1}", Reason::loneSurrogate, 2},
      {"[\"\n\\x\"]", Reason::controlCharacter, 2},
  };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto& [text, reason, position] = rows[row];
    const auto walked = walkJSON(text);
    ASSERT_FALSE(walked) << "row " << row << ": " << text;
    EXPECT_EQ(walked.error(), (JSONSyntaxError{reason, position})) << "row " << row << ": " << text;
    EXPECT_FALSE(ReferenceJSON::accepts(text, maximumJSONNesting)) << "row " << row << ": " << text;
    // With a visitor the object on top takes another road.
    const auto visited = walkJSON(text, [](const JSONMember&) {});
    ASSERT_FALSE(visited) << "row " << row << ": " << text;
    EXPECT_EQ(visited.error(), walked.error()) << "row " << row << ": " << text;
  }
}

TEST(JSONSyntax, NestingIsRefusedOneLevelBeyondTheLimit) {
  for (const auto& [open, inner, close] : std::vector<std::tuple<std::string, std::string, std::string>>{
           {"[", "", "]"}, {"{\"k\":", "1", "}"}, {" [ ", "{}", " ] "}}) {
    const std::size_t own = inner == "{}" ? 1 : 0;
    for (const std::size_t depth : {maximumJSONNesting - 1, maximumJSONNesting, maximumJSONNesting + 1}) {
      const std::string text = nested(depth - own, open, inner, close);
      const auto walked = walkJSON(text);
      EXPECT_EQ(walked.has_value(), depth <= maximumJSONNesting) << open << depth;
      if (!walked) {
        EXPECT_EQ(walked.error().reason, Reason::nestedTooDeep);
      }
      const auto visited = walkJSON(text, [](const JSONMember&) {});
      EXPECT_EQ(visited, walked);
    }
  }
}

TEST(JSONSyntax, TheBracketThatIsOneTooManyIsThePlaceOfTheFault) {
  EXPECT_EQ(walkJSON(nested(10'000, "[", "", "]")).error(),
            (JSONSyntaxError{Reason::nestedTooDeep, maximumJSONNesting}));
  EXPECT_EQ(walkJSON(std::string(1'000'000, '[')).error(),
            (JSONSyntaxError{Reason::nestedTooDeep, maximumJSONNesting}));
  EXPECT_EQ(walkJSON("{\"a\":" + nested(10'000, "[", "", "]") + "}", [](const JSONMember&) {}).error(),
            (JSONSyntaxError{Reason::nestedTooDeep, 5 + maximumJSONNesting - 1}));
}

struct Visited {
  std::string key;
  JSONKind kind;
  std::optional<std::string> text;
  bool operator==(const Visited&) const = default;
};

std::vector<Visited> visitAll(std::string_view text) {
  std::vector<Visited> members;
  const auto walked = walkJSON(text, [&](const JSONMember& member) {
    members.push_back(
        {std::string(member.key), member.kind, member.text.transform([](auto view) { return std::string(view); })});
  });
  EXPECT_TRUE(walked) << text;
  return members;
}

TEST(JSONSyntax, MembersOfTheObjectOnTopAreVisitedDecodedAndInOrder) {
  EXPECT_EQ(visitAll(R"( {"a" : 1, "\u0074ext":"x\ny\ud83d\ude00", "o":{"text":"inner"}, "":[null], "t":true,
                          "n":null, "a":"again"} )"),
            (std::vector<Visited>{{"a", JSONKind::number, std::nullopt},
                                  {"text", JSONKind::text, "x\ny\xF0\x9F\x98\x80"},
                                  {"o", JSONKind::object, std::nullopt},
                                  {"", JSONKind::array, std::nullopt},
                                  {"t", JSONKind::boolean, std::nullopt},
                                  {"n", JSONKind::null, std::nullopt},
                                  {"a", JSONKind::text, "again"}}));
}

TEST(JSONSyntax, EveryEscapeIsDecoded) {
  const auto members = visitAll(R"({"k\"\\\/\b\f\n\r\t\u0000\u00e9\uFFFF\udbff\udfff":"\u0041\\u0041"})");
  ASSERT_EQ(members.size(), 1U);
  EXPECT_EQ(members[0].key, std::string("k\"\\/\b\f\n\r\t\0\xC3\xA9\xEF\xBF\xBF\xF4\x8F\xBF\xBF", 19));
  EXPECT_EQ(members[0].text, "A\\u0041");
}

TEST(JSONSyntax, AnEscapeIsDecodedWhereverItStands) {
  constexpr std::pair<std::string_view, std::string_view> escapes[] = {{R"(\\)", "\\"},     {R"(\n)", "\n"},
                                                                       {R"(\u0041)", "A"},  {R"(\u00E9)", "é"},
                                                                       {R"(\uac00)", "가"}, {R"(\ud83d\ude00)", "😀"}};
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t between = 0; between < 20; ++between) {
      for (const auto& [escape, meant] : escapes) {
        const auto text = [&](std::string_view piece) {
          return std::string(before, 'x') + std::string(piece) + std::string(between, 'y') + std::string(piece) + "zé";
        };
        const auto members = visitAll(R"({"a":")" + text(escape) + "\"}");
        ASSERT_EQ(members.size(), 1U);
        ASSERT_EQ(members[0].text, text(meant)) << escape;
      }
    }
  }
}

TEST(JSONSyntax, AnythingButAnObjectOnTopHasNoMembers) {
  EXPECT_TRUE(visitAll("{}").empty());
  EXPECT_TRUE(visitAll("[{\"a\":1}]").empty());
  EXPECT_TRUE(visitAll("\"a\"").empty());
}

TEST(JSONSyntax, AFaultBehindTheMembersIsStillAFault) {
  EXPECT_EQ(walkJSON("{\"a\":\"b\"} x", [](const JSONMember&) {}).error(),
            (JSONSyntaxError{Reason::trailingContent, 10}));
}

}  // namespace
}  // namespace tessary
