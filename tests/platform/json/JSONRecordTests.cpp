#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONRecord.h"
#include "support/JSONErrors.h"

#include "TestRecord.h"

namespace tessary {

namespace {

using Kind = JSONDecodingError::Kind;
using Expected = std::optional<JSONExpectation>;

/// The least record with `members` in front of its own.
std::string with(std::string_view members) {
  return "{" + std::string(members) + "," + std::string(leastTestRecord.substr(1));
}

/// The least record with one piece replaced.
std::string replaced(std::string_view piece, std::string_view by) {
  std::string text(leastTestRecord);
  return text.replace(text.find(piece), piece.size(), by);
}

TestRecord readRecord(std::string_view text) {
  const auto read = readJSON<TestRecord>(text);
  EXPECT_TRUE(read) << text << ": " << read.error();
  return read.value_or(TestRecord());
}

std::string written(const auto& value, const JSONCoder& coder = {}) {
  return writeJSON(value, coder).value_or("an error");
}

TestRecord fullRecord() {
  return {.id = "doc \"1\"\n\xC3\xA9",
          .flag = true,
          .small = -5,
          .large = std::numeric_limits<std::int64_t>::min(),
          .ratio = 0.1,
          .when = Date::fromSecondsSince2001(12.5),
          .color = TestColor::darkGreen,
          .point = {7, "p"},
          .version = {"1.2", 3},
          .note = "n",
          .answer = false,
          .size = 9'223'372'036'854'775'807,
          .due = Date::fromSecondsSince2001(-1),
          .corner = TestPoint{-1, std::nullopt},
          .paths = std::vector<std::string>{},
          .edge = "left",
          .roots = {},
          .shown = false,
          .origin = {1, "o"},
          .volume = 1.5,
          .shade = TestColor::red,
          .tint = TestColor::darkGreen,
          .palette = {TestColor::darkGreen, TestColor::red},
          .minutes = 1439,
          .grid = {{{1, std::nullopt}, {2, "b"}}, {}},
          .tags = {"b", "a"},
          .favorites = {"z", "\xC3\xA9", "y"},
          .links = {{"k2", "v"}, {"k1", ""}},
          .places = {{"q", {2, std::nullopt}}, {"p", {1, std::nullopt}}},
          .states = {{"s", std::nullopt}, {"r", TestColor::red}},
          .switches = {{"z", true}, {"a", false}},
          .any = JSONValue::Object{{"k", JSONValue::Array{1, 1.5, nullptr}}}};
}

constexpr std::string_view fullText =
    R"({"id":"doc \"1\"\né","flag":true,"small":-5,"large":-9223372036854775808,"ratio":0.1,"when":12.5,)"
    R"("color":"dark-green","point":{"x":7,"label":"p"},"version":{"version":"1.2","build":3},"note":"n",)"
    R"("answer":false,"size":9223372036854775807,"due":-1,"corner":{"x":-1},"paths":[],"edge":"left","roots":[],)"
    R"("isShown":false,"origin":{"x":1,"label":"o"},"volume":1.5,"shade":"red","tint":"dark-green",)"
    R"("palette":["dark-green","red"],"minutes":1439,"grid":[[{"x":1},{"x":2,"label":"b"}],[]],"tags":["a","b"],)"
    R"("favorites":["y","z","é"],"links":{"k1":"","k2":"v"},"places":{"p":{"x":1},"q":{"x":2}},)"
    R"("states":{"r":"red","s":null},"switches":{"z":true,"a":false},"any":{"k":[1,1.5,null]}})";

TEST(JSONRecord, IsWrittenInTheOrderOfItsTable) {
  EXPECT_EQ(written(fullRecord()), fullText);
}

TEST(JSONRecord, WhatIsWrittenReadsAsTheSame) {
  EXPECT_EQ(readRecord(fullText), fullRecord());
}

TEST(JSONRecord, KeysAreReadInAnyOrderAndThroughEscapes) {
  EXPECT_EQ(readRecord(R"( {"version" : {"build":4,"version":"1"}, "point":{"x":3},"c\u006flor":"r\u0065d","when":0,
                            "ratio":5e-1,"large":2,"small":1,"flag":true,"\u0069d":"\u0061"} )"),
            readRecord(leastTestRecord));
}

TEST(JSONRecord, AbsentFieldsTakeWhatTheirRulesSay) {
  const TestRecord record = readRecord(leastTestRecord);
  EXPECT_EQ(record.note, std::nullopt);
  EXPECT_EQ(record.answer, std::nullopt);
  EXPECT_EQ(record.paths, std::nullopt);
  EXPECT_EQ(record.edge, "right");
  EXPECT_EQ(record.roots, (std::vector<std::string>{"~/a", "~/b"}));
  EXPECT_TRUE(record.shown);
  EXPECT_EQ(record.origin, TestPoint());
  EXPECT_EQ(record.volume, 0.5);
  EXPECT_EQ(record.shade, TestColor::darkGreen);
  EXPECT_EQ(record.tint, std::nullopt);
  EXPECT_TRUE(record.palette.empty());
  EXPECT_TRUE(record.grid.empty());
  EXPECT_TRUE(record.any.isNull());
}

TEST(JSONRecord, NullIsAbsence) {
  EXPECT_EQ(readRecord(with(R"("note":null,"answer":null,"size":null,"due":null,"corner":null,"paths":null,"edge":null,
                               "roots":null,"isShown":null,"origin":null,"volume":null,"shade":null,"tint":null,
                               "palette":null,"minutes":null,"grid":null,"tags":null,"favorites":null,"links":null,
                               "places":null,"states":null,"switches":null,"any":null)")),
            readRecord(leastTestRecord));
}

TEST(JSONRecord, AbsentOptionalFieldsAreNotWrittenAndAllOthersAre) {
  EXPECT_EQ(
      written(readRecord(leastTestRecord)),
      R"({"id":"a","flag":true,"small":1,"large":2,"ratio":0.5,"when":0,"color":"red","point":{"x":3},)"
      R"("version":{"version":"1","build":4},"edge":"right","roots":["~/a","~/b"],"isShown":true,"origin":{"x":0},)"
      R"("volume":0.5,"shade":"dark-green","palette":[],"minutes":0,"grid":[],"tags":[],"favorites":[],"links":{},)"
      R"("places":{},"states":{},"switches":{},"any":null})");
}

TEST(JSONRecord, AnOptionalBooleanHasThreeStates) {
  EXPECT_EQ(readRecord(with(R"("answer":true)")).answer, true);
  EXPECT_EQ(readRecord(with(R"("answer":false)")).answer, false);
  EXPECT_EQ(readRecord(with(R"("answer":null)")).answer, std::nullopt);
}

TEST(JSONRecord, AClampedNumberIsForcedIntoItsRange) {
  for (const auto& [given, held] : std::vector<std::pair<std::string, double>>{
           {"-0.1", 0}, {"0", 0}, {"0.1", 0.1}, {"1.9", 1.9}, {"2", 2}, {"2.1", 2}, {"-1e300", 0}, {"1e-400", 0}}) {
    EXPECT_EQ(readRecord(with("\"volume\":" + given)).volume, held) << given;
  }
}

TEST(JSONRecord, TolerantFieldsForgiveUnknownTextsAndNothingElse) {
  EXPECT_EQ(readRecord(with(R"("shade":"red")")).shade, TestColor::red);
  EXPECT_EQ(readRecord(with(R"("shade":"Red")")).shade, TestColor::darkGreen);
  EXPECT_EQ(readRecord(with(R"("tint":"red")")).tint, TestColor::red);
  EXPECT_EQ(readRecord(with(R"("tint":"")")).tint, std::nullopt);
  EXPECT_EQ(readRecord(with(R"("palette":["red","x","dark-green","red"])")).palette,
            (std::vector<TestColor>{TestColor::red, TestColor::darkGreen, TestColor::red}));
}

TEST(JSONRecord, ARepairIsAppliedToWhatWasRead) {
  EXPECT_EQ(readRecord(with(R"("minutes":1439)")).minutes, 1439);
  EXPECT_EQ(readRecord(with(R"("minutes":1440)")).minutes, 0);
  EXPECT_EQ(readRecord(with(R"("minutes":-1)")).minutes, 0);
}

TEST(JSONRecord, ARepairComesBehindTheRuleAndLeavesAloneWhatStandsInForAMissingKey) {
  EXPECT_EQ(readJSON<TestShift>(R"({"minutes":5000,"share":8})"), (TestShift{1439, 0.5}));
  for (const char* text :
       {"{}", R"({"minutes":null,"share":null})", R"({"minutes":1,"share":1,"minutes":null,"share":null})"})
    EXPECT_EQ(readJSON<TestShift>(text), (TestShift{5000, 0.25})) << text;
}

TEST(JSONRecord, AWireFormMigrates) {
  EXPECT_EQ(readRecord(replaced(R"("build":4)", R"("buildNumber":5)")).version, (TestVersion{"1", 5}));
  EXPECT_EQ(readRecord(replaced(R"("build":4)", R"("buildNumber":5,"build":6)")).version, (TestVersion{"1", 6}));
}

TEST(JSONRecord, OfARepeatedKeyTheLastValueCountsWhole) {
  EXPECT_EQ(readRecord(with(R"("id":"first")")).id, "a");
  EXPECT_EQ(readRecord(with(R"("note":"x","note":null)")).note, std::nullopt);
  EXPECT_EQ(readRecord(with(R"("edge":"x","edge":null)")).edge, "right");
  EXPECT_EQ(readRecord(with(R"("corner":{"x":1,"label":"l"},"corner":{"x":2})")).corner, (TestPoint{2, std::nullopt}));
  EXPECT_EQ(readRecord(with(R"("origin":{"x":1,"label":"l"},"origin":{"x":2})")).origin, (TestPoint{2, std::nullopt}));
  EXPECT_EQ(readRecord(with(R"("roots":["a"],"roots":["b"])")).roots, (std::vector<std::string>{"b"}));
  EXPECT_EQ(readRecord(with(R"("links":{"a":"1"},"links":{"b":"2","b":"3"})")).links,
            (std::map<std::string, std::string>{{"b", "3"}}));
  EXPECT_EQ(readRecord(with(R"("places":{"p":{"x":1,"label":"l"},"p":{"x":2}})")).places,
            (std::unordered_map<std::string, TestPoint>{{"p", {2, std::nullopt}}}));
  EXPECT_EQ(readRecord(with(R"("switches":{"b":true,"a":true,"b":false})")).switches,
            (JSONPairs<bool>{{"b", false}, {"a", true}}));
  EXPECT_EQ(readRecord(with(R"("tags":["a","b","a"])")).tags, (std::set<std::string>{"a", "b"}));
}

TEST(JSONRecord, ANullBehindAValueTakesTheValueAway) {
  EXPECT_EQ(readRecord(with(R"("note":"n","answer":true,"size":1,"due":1,"corner":{"x":1},"paths":["a"],"edge":"left",
                               "roots":["a"],"isShown":false,"origin":{"x":1,"label":"l"},"volume":1,"shade":"red",
                               "tint":"red","palette":["red"],"minutes":5,"grid":[[{"x":1}]],"tags":["a"],
                               "favorites":["a"],"links":{"a":"b"},"places":{"a":{"x":1}},"states":{"a":"red"},
                               "switches":{"a":true},"any":1,
                               "note":null,"answer":null,"size":null,"due":null,"corner":null,"paths":null,"edge":null,
                               "roots":null,"isShown":null,"origin":null,"volume":null,"shade":null,"tint":null,
                               "palette":null,"minutes":null,"grid":null,"tags":null,"favorites":null,"links":null,
                               "places":null,"states":null,"switches":null,"any":null)")),
            readRecord(leastTestRecord));
}

TEST(JSONRecord, ManyRepeatedKeysOfPairsUniteInOrder) {
  std::string text = R"("switches":{)";
  for (int index = 0; index < 100; ++index) {
    text += "\"k" + std::to_string(index % 10) + "\":" + (index >= 95 ? "true," : "false,");
  }
  text.back() = '}';
  JSONPairs<bool> expected;
  for (int index = 0; index < 10; ++index)
    expected.emplace_back("k" + std::to_string(index), index >= 5);
  EXPECT_EQ(readRecord(with(text)).switches, expected);
}

TEST(JSONRecord, UnknownKeysAreIgnoredWhateverTheyHold) {
  EXPECT_EQ(
      readRecord(
          with(R"("x":1e999,"":{"a":[1,{"b":null}]},"ID":5,"i":5,"id ":5,"y":123456789012345678901234567890,"\n":"")")),
      readRecord(leastTestRecord));
}

TEST(JSONRecord, ARecordMayKeepTheKeysThatItDoesNotKnow) {
  const auto notes = readJSON<TestNotes>(R"({"ko":["가"],"en":["a"],"fr":[],"ko":["나"]})");
  ASSERT_TRUE(notes);
  EXPECT_EQ(*notes, (TestNotes{{"a"}, {{"fr", {}}, {"ko", {"나"}}}}));
  EXPECT_EQ(written(*notes), R"({"en":["a"],"fr":[],"ko":["나"]})");
  EXPECT_EQ(written(TestNotes{}), R"({"en":[]})");
  EXPECT_EQ(readJSON<TestNotes>(R"({"en":["a"],"fr":"b"})").error(),
            (JSONDecodingError{Kind::wrongType, {"fr"}, JSONExpectation::list, "", 17, std::nullopt}));
}

TEST(JSONRecord, OfARepeatedKeyTheFirstValueLeavesNoUnknownKeysBehind) {
  const std::string first = R"({"en":["a"],"ko":["b"]})";
  const std::string last = R"({"en":["c"],"fr":["d"]})";
  const TestNotes notes{{"c"}, {{"fr", {"d"}}}};
  TestShelf atTop;
  atTop.top = notes;
  EXPECT_EQ(readJSON<TestShelf>(R"({"top":)" + first + R"(,"top":)" + last + "}"), atTop);
  TestShelf inMap;
  inMap.rest["r"] = notes;
  EXPECT_EQ(readJSON<TestShelf>(R"({"rest":{"r":)" + first + R"(,"r":)" + last + "}}"), inMap);
  TestShelf inOthers;
  inOthers.others["o"] = notes;
  EXPECT_EQ(readJSON<TestShelf>(R"({"o":)" + first + R"(,"o":)" + last + "}"), inOthers);
}

TEST(JSONRecord, TellsAsManyKeysApartAsARecordMayHave) {
  const auto keyOf = [](int index) { return std::string(index < 10 ? "k0" : "k") + std::to_string(index); };
  const auto textWithout = [&](int left) {
    std::string text;
    for (int index = 0; index < 64; ++index) {
      if (index != left) text += (text.empty() ? "{\"" : ",\"") + keyOf(index) + "\":" + std::to_string(index + 1);
    }
    return text + "}";
  };
  const std::string text = textWithout(-1);
  const auto read = readJSON<TestWide>(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(static_cast<const TestCell<63>&>(*read).value, 64);
  EXPECT_EQ(writeJSON(*read), text);
  for (int left = 0; left < 64; ++left) {
    EXPECT_EQ(readJSON<TestWide>(textWithout(left)).error(),
              (JSONDecodingError{Kind::missingKey, {keyOf(left)}, std::nullopt, "", 0, std::nullopt}))
        << left;
  }
}

TEST(JSONRecord, TellsWhatIsWrongWithAValueAndWhere) {
  // The position is that of the marked byte.
  struct Row {
    std::string text;
    Kind kind;
    JSONPath path;
    Expected expected;
    std::string description;
  };
  using enum JSONExpectation;
  const std::vector<Row> rows = {
      {"^[]", Kind::wrongType, {}, object, ""},
      {"^null", Kind::nullValue, {}, object, ""},
      {"^5", Kind::wrongType, {}, object, ""},
      {"^{}", Kind::missingKey, {"id"}, std::nullopt, ""},
      {"^" + replaced(R"("flag":true,)", ""), Kind::missingKey, {"flag"}, std::nullopt, ""},
      {"^" + replaced(R"("id":"a","flag":true,)", ""), Kind::missingKey, {"id"}, std::nullopt, ""},
      {replaced(R"({"x":3})", R"(^{"y":3})"), Kind::missingKey, {"point", "x"}, std::nullopt, ""},
      {replaced(R"("id":"a")", R"("id":^null)"), Kind::nullValue, {"id"}, text, ""},
      {replaced(R"({"x":3})", R"({"x":^null})"), Kind::nullValue, {"point", "x"}, integer, ""},
      {replaced(R"({"x":3})", "^null"), Kind::nullValue, {"point"}, object, ""},
      {replaced(R"("id":"a")", R"("id":^5)"), Kind::wrongType, {"id"}, text, ""},
      {replaced(R"("id":"a")", R"("id":^["a"])"), Kind::wrongType, {"id"}, text, ""},
      {replaced("true", "^1"), Kind::wrongType, {"flag"}, boolean, ""},
      {replaced("true", R"(^"true")"), Kind::wrongType, {"flag"}, boolean, ""},
      {replaced(R"("small":1)", R"("small":^true)"), Kind::wrongType, {"small"}, integer, ""},
      {replaced(R"("small":1)", R"("small":^"1")"), Kind::wrongType, {"small"}, integer, ""},
      {replaced(R"("small":1)", R"("small":^1.0)"), Kind::wrongType, {"small"}, integer, ""},
      {replaced(R"("small":1)", R"("small":^1e0)"), Kind::wrongType, {"small"}, integer, ""},
      {replaced(R"("small":1)", R"("small":^2147483648)"), Kind::outOfRange, {"small"}, integer, ""},
      {replaced(R"("small":1)", R"("small":^-2147483649)"), Kind::outOfRange, {"small"}, integer, ""},
      {replaced(R"("large":2)", R"("large":^9223372036854775808)"), Kind::outOfRange, {"large"}, integer, ""},
      {replaced(R"("large":2)", R"("large":^-9223372036854775809)"), Kind::outOfRange, {"large"}, integer, ""},
      {replaced(R"("large":2)", R"("large":^123456789012345678901234567890)"),
       Kind::outOfRange,
       {"large"},
       integer,
       ""},
      {replaced("0.5", "^1e309"), Kind::outOfRange, {"ratio"}, number, ""},
      {replaced("0.5", "^-1e999999999999999999999"), Kind::outOfRange, {"ratio"}, number, ""},
      {replaced("0.5", R"(^"0.5")"), Kind::wrongType, {"ratio"}, number, ""},
      {replaced("0.5", "^false"), Kind::wrongType, {"ratio"}, number, ""},
      {replaced(R"("when":0)", R"("when":^"2001-01-01T00:00:00Z")"), Kind::wrongType, {"when"}, number, ""},
      {replaced(R"("red")", R"(^"blue")"), Kind::unknownRawValue, {"color"}, text, ""},
      {replaced(R"("red")", "^0"), Kind::wrongType, {"color"}, text, ""},
      {replaced(R"({"version":"1","build":4})", R"(^{"version":"","build":4})"),
       Kind::corrupted,
       {"version", "version"},
       std::nullopt,
       "a version has digits"},
      {replaced(R"({"version":"1","build":4})", R"(^{"version":"1","build":-4})"),
       Kind::corrupted,
       {"version"},
       std::nullopt,
       "a build is not negative"},
      {with(R"("note":^1)"), Kind::wrongType, {"note"}, text, ""},
      {with(R"("answer":^"yes")"), Kind::wrongType, {"answer"}, boolean, ""},
      {with(R"("paths":["a",^1])"), Kind::wrongType, {"paths", 1U}, text, ""},
      {with(R"("paths":["a",^null])"), Kind::nullValue, {"paths", 1U}, text, ""},
      {with(R"("paths":^{})"), Kind::wrongType, {"paths"}, list, ""},
      {with(R"("edge":^1)"), Kind::wrongType, {"edge"}, text, ""},
      {with(R"("volume":^"1")"), Kind::wrongType, {"volume"}, number, ""},
      {with(R"("volume":^1e400)"), Kind::outOfRange, {"volume"}, number, ""},
      {with(R"("shade":^1)"), Kind::wrongType, {"shade"}, text, ""},
      {with(R"("tint":^[])"), Kind::wrongType, {"tint"}, text, ""},
      {with(R"("palette":["red",^1])"), Kind::wrongType, {"palette", 1U}, text, ""},
      {with(R"("palette":^"red")"), Kind::wrongType, {"palette"}, list, ""},
      {with(R"("minutes":^5.5)"), Kind::wrongType, {"minutes"}, integer, ""},
      {with(R"("grid":[[],[{"x":1},{"x":^"2"}]])"), Kind::wrongType, {"grid", 1U, 1U, "x"}, integer, ""},
      {with(R"("grid":[[],^1])"), Kind::wrongType, {"grid", 1U}, list, ""},
      {with(R"("tags":["a",^2])"), Kind::wrongType, {"tags", 1U}, text, ""},
      {with(R"("links":{"a":"b","c\n":^null})"), Kind::nullValue, {"links", "c\n"}, text, ""},
      {with(R"("links":^["a"])"), Kind::wrongType, {"links"}, object, ""},
      {with(R"("places":{"p":^{}})"), Kind::missingKey, {"places", "p", "x"}, std::nullopt, ""},
      {with(R"("states":{"a":null,"b":^"blue"})"), Kind::unknownRawValue, {"states", "b"}, text, ""},
      {with(R"("switches":{"a":true,"b":^0})"), Kind::wrongType, {"switches", "b"}, boolean, ""},
      // Each value of a repeated key is held to the rule.
      {with(R"("note":^1,"note":"x")"), Kind::wrongType, {"note"}, text, ""},
      {replaced(R"("id":"a")", R"("id":^null,"id":"a")"), Kind::nullValue, {"id"}, text, ""},
      // The first error in the text is told.
      {replaced(R"("flag":true,"small":1)", R"("flag":^1,"small":"x")"), Kind::wrongType, {"flag"}, boolean, ""},
  };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::string json = rows[row].text;
    const std::size_t position = json.find('^');
    json.erase(position, 1);
    const auto read = readJSON<TestRecord>(json);
    ASSERT_FALSE(read) << "row " << row << ": " << json;
    EXPECT_EQ(read.error(), (JSONDecodingError{rows[row].kind, rows[row].path, rows[row].expected,
                                               rows[row].description, position, std::nullopt}))
        << "row " << row << ": " << json;
  }
}

TEST(JSONRecord, AtTheEndsOfTheirRangesIntegersAreRead) {
  EXPECT_EQ(readRecord(replaced(R"("small":1)", R"("small":2147483647)")).small, 2147483647);
  EXPECT_EQ(readRecord(replaced(R"("small":1)", R"("small":-2147483648)")).small, -2147483647 - 1);
  EXPECT_EQ(readRecord(replaced(R"("large":2)", R"("large":9223372036854775807)")).large,
            std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(readRecord(replaced(R"("large":2)", R"("large":-0)")).large, 0);
  EXPECT_EQ(readRecord(replaced("0.5", "1.7976931348623157e308")).ratio, std::numeric_limits<double>::max());
  EXPECT_EQ(readRecord(replaced("0.5", "5e-324")).ratio, std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(readRecord(replaced("0.5", "7")).ratio, 7);
  EXPECT_TRUE(std::signbit(readRecord(replaced("0.5", "-1e-400")).ratio));
}

TEST(JSONRecord, MalformedTextIsToldBeforeAnythingElse) {
  using Reason = JSONSyntaxError::Reason;
  const std::vector<std::tuple<std::string, Reason, std::size_t>> rows = {
      {"", Reason::expectedValue, 0},
      {std::string(leastTestRecord) + "x", Reason::trailingContent, leastTestRecord.size()},
      {std::string(leastTestRecord) + "{}", Reason::trailingContent, leastTestRecord.size()},
      {with(R"("unknown":01)"), Reason::malformedNumber, 11},
      {with(R"("unknown":["\x"])"), Reason::invalidEscape, 13},
      {with(R"("unknown":{"\ud800":1})"), Reason::loneSurrogate, 13},
      {with("\"unknown\":\"\n\""), Reason::controlCharacter, 12},
      {with("\"unknown\":\"\xFF\""), Reason::invalidUTF8, 12},
      {with(R"("unknown":[tru])"), Reason::malformedWord, 12},
      {with(R"("unknown":[1,])"), Reason::expectedValue, 14},
      {with("\"unknown\":" + std::string(10'000, '[') + std::string(10'000, ']')), Reason::nestedTooDeep,
       11 + maximumJSONNesting - 1},
      {with("\"any\":" + std::string(10'000, '[') + std::string(10'000, ']')), Reason::nestedTooDeep,
       7 + maximumJSONNesting - 1},
      {with(R"("note":"\ud800")"), Reason::loneSurrogate, 9},
      {with(R"("\ud800":1)"), Reason::loneSurrogate, 2},
      // A value of the wrong type stands before the fault, and behind it.
      {R"({"id":5,"flag":tru})", Reason::malformedWord, 15},
      {R"([{"id":5},])", Reason::expectedValue, 10},
      {R"({"flag":})", Reason::expectedValue, 8},
      {R"({"id":nul})", Reason::malformedWord, 6},
      {R"({"small":1x})", Reason::malformedNumber, 9},
      {R"({"when":-})", Reason::malformedNumber, 8},
      {R"({"palette":["red",})", Reason::expectedValue, 18},
  };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto& [text, reason, position] = rows[row];
    const auto read = readJSON<TestRecord>(text);
    ASSERT_FALSE(read) << "row " << row << ": " << text;
    EXPECT_EQ(read.error(),
              (JSONDecodingError{Kind::malformed, {}, std::nullopt, "", position, JSONSyntaxError{reason, position}}))
        << "row " << row << ": " << text;
  }
}

TEST(JSONRecord, NestingCountsFromTheTop) {
  // The record is one level, the key `any` holds the rest.
  for (const std::size_t depth : {maximumJSONNesting - 1, maximumJSONNesting, maximumJSONNesting + 1}) {
    const std::string text = with("\"any\":" + std::string(depth - 1, '[') + std::string(depth - 1, ']'));
    EXPECT_EQ(readJSON<TestRecord>(text).has_value(), depth <= maximumJSONNesting) << depth;
  }
}

TEST(JSONRecord, EveryCutOfATextIsRefusedAsMalformed) {
  for (std::size_t length = 0; length < fullText.size(); ++length) {
    const auto read = readJSON<TestRecord>(fullText.substr(0, length));
    ASSERT_FALSE(read) << length;
    EXPECT_EQ(read.error().kind, Kind::malformed) << length;
  }
}

TEST(JSONRecord, DatesTakeTheFormOfTheCoder) {
  struct Row {
    JSONDateForm form;
    Date date;
    std::string text;
  };
  const std::vector<Row> rows = {
      {JSONDateForm::secondsSince1970, Date::fromSecondsSince1970(1.5), "1.5"},
      {JSONDateForm::secondsSince1970, Date::fromSecondsSince1970(-1), "-1"},
      {JSONDateForm::secondsSince2001, Date::fromSecondsSince2001(789012345.678901), "789012345.678901"},
      {JSONDateForm::secondsSince2001, Date::fromSecondsSince1970(0), "-978307200"},
      {JSONDateForm::iso8601, Date::fromSecondsSince1970(0), "\"1970-01-01T00:00:00Z\""},
      {JSONDateForm::iso8601, Date::fromSecondsSince2001(86399), "\"2001-01-01T23:59:59Z\""},
      {JSONDateForm::iso8601WithFractions, Date::fromSecondsSince2001(0.25), "\"2001-01-01T00:00:00.250Z\""},
  };
  for (const Row& row : rows) {
    const JSONCoder coder{.dates = row.form};
    EXPECT_EQ(written(row.date, coder), row.text);
    EXPECT_EQ(readJSON<Date>(row.text, coder), row.date) << row.text;
  }
}

TEST(JSONRecord, ADateInAnotherFormThanTheCodersIsRefused) {
  const auto errorOf = [](std::string_view text, JSONDateForm form) {
    return readJSON<Date>(text, {.dates = form}).error();
  };
  for (const auto form : {JSONDateForm::secondsSince1970, JSONDateForm::secondsSince2001}) {
    EXPECT_EQ(errorOf("\"2001-01-01T00:00:00Z\"", form),
              (JSONDecodingError{Kind::wrongType, {}, JSONExpectation::number, "", 0, std::nullopt}));
    EXPECT_EQ(errorOf("1e999", form),
              (JSONDecodingError{Kind::outOfRange, {}, JSONExpectation::number, "", 0, std::nullopt}));
  }
  for (const auto form : {JSONDateForm::iso8601, JSONDateForm::iso8601WithFractions}) {
    EXPECT_EQ(errorOf("0", form), (JSONDecodingError{Kind::wrongType, {}, JSONExpectation::date, "", 0, std::nullopt}));
    EXPECT_EQ(errorOf("null", form),
              (JSONDecodingError{Kind::nullValue, {}, JSONExpectation::date, "", 0, std::nullopt}));
    for (const std::string_view text : {"\"\"", "\"2001-02-29T00:00:00Z\"", "\"2001-01-01\""}) {
      EXPECT_EQ(errorOf(text, form),
                (JSONDecodingError{
                    Kind::corrupted, {}, std::nullopt, "not a date in the form of the file", 0, std::nullopt}));
    }
  }
  EXPECT_FALSE(readJSON<Date>("\"2001-01-01T00:00:00.5Z\"", {.dates = JSONDateForm::iso8601}));
  EXPECT_FALSE(readJSON<Date>("\"2001-01-01T00:00:00Z\"", {.dates = JSONDateForm::iso8601WithFractions}));
}

TEST(JSONRecord, ANumberThatIsNoneCannotBeWritten) {
  using WriteKind = JSONEncodingError::Kind;
  for (const double value : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    TestRecord record = fullRecord();
    record.ratio = value;
    EXPECT_EQ(writeJSON(record).error(), (JSONEncodingError{WriteKind::nonFiniteNumber, {"ratio"}}));
    record = fullRecord();
    record.due = Date::fromSecondsSince2001(value);
    for (const auto form : {JSONDateForm::secondsSince1970, JSONDateForm::iso8601}) {
      EXPECT_EQ(writeJSON(record, {.dates = form}).error(), (JSONEncodingError{WriteKind::nonFiniteNumber, {"due"}}));
    }
    record = fullRecord();
    record.any = JSONValue::Object{{"k", JSONValue::Array{0, value}}};
    EXPECT_EQ(writeJSON(record).error(), (JSONEncodingError{WriteKind::nonFiniteNumber, {"any", "k", 1U}}));
  }
  const std::vector<std::map<std::string, std::vector<double>>> nested = {{}, {{"a", {0, 1.0 / 0.0}}}};
  EXPECT_EQ(writeJSON(nested).error(), (JSONEncodingError{WriteKind::nonFiniteNumber, {1U, "a", 1U}}));
}

TEST(JSONRecord, ADateBeyondTheYearsOfItsFormCannotBeWritten) {
  TestRecord record = fullRecord();
  record.when = Date::fromSecondsSince1970(1e12);
  EXPECT_EQ(writeJSON(record, {.dates = JSONDateForm::iso8601}).error(),
            (JSONEncodingError{JSONEncodingError::Kind::dateOutOfRange, {"when"}}));
  EXPECT_TRUE(writeJSON(record, {.dates = JSONDateForm::secondsSince1970}));
}

TEST(JSONRecord, MapsAndSetsAreWrittenInAscendingOrderOfScalars) {
  // U+FF5E sorts below U+1F600, though its UTF-16 unit is the greater.
  EXPECT_EQ(
      written(std::unordered_map<std::string, bool>{{"\U0001F600", true}, {"\uFF5E", true}, {"a", true}, {"Z", true}}),
      "{\"Z\":true,\"a\":true,\"\uFF5E\":true,\"\U0001F600\":true}");
  EXPECT_EQ(written(std::unordered_set<std::string>{"b", "", "a"}), R"(["","a","b"])");
  EXPECT_EQ(written(std::set<std::string>{"b", "a"}), R"(["a","b"])");
}

TEST(JSONRecord, AnyTypeWithAFormMayStandOnTop) {
  EXPECT_EQ(readJSON<std::int64_t>(" 5 "), 5);
  EXPECT_EQ(readJSON<TestColor>("\"dark-green\""), TestColor::darkGreen);
  EXPECT_EQ(readJSON<std::optional<bool>>("null").value(), std::nullopt);
  EXPECT_EQ(written(std::vector<std::optional<TestColor>>{TestColor::red, std::nullopt}), R"(["red",null])");
}

}  // namespace
}  // namespace tessary
