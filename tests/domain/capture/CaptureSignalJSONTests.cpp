#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureSignal.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using CaptureSignal::pythonJSON;
using std::string_literals::operator""s;

JSONValue nested(std::size_t depth) {
  JSONValue value = JSONValue::Array();
  for (std::size_t level = 1; level < depth; ++level) {
    JSONValue::Array outer;
    outer.push_back(std::move(value));
    value = std::move(outer);
  }
  return value;
}

TEST(CaptureSignalJSON, EqualsJSONDumpsOfCPython) {
  const auto vectors = readPythonVectors("json.tsv", "capture");
  ASSERT_GT(vectors.size(), 1000U);
  for (const PythonVector& vector : vectors) {
    SCOPED_TRACE("json.tsv:" + std::to_string(vector.line));
    const auto value = JSONValue::parse(vector.fields.at(0));
    ASSERT_TRUE(value);
    EXPECT_EQ(pythonJSON(*value, /*sortKeys=*/false), vector.fields.at(1));
    EXPECT_EQ(pythonJSON(*value, /*sortKeys=*/true), vector.fields.at(2));
  }
}

TEST(CaptureSignalJSON, ReadsBackAsTheSameValueAndWritesTheSameTextAgain) {
  for (const PythonVector& vector : readPythonVectors("json.tsv", "capture")) {
    SCOPED_TRACE("json.tsv:" + std::to_string(vector.line));
    const auto value = JSONValue::parse(vector.fields.at(0));
    ASSERT_TRUE(value);
    const auto again = JSONValue::parse(*pythonJSON(*value, /*sortKeys=*/false));
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, *value);
    EXPECT_EQ(pythonJSON(*again, /*sortKeys=*/true), vector.fields.at(2));
  }
}

TEST(CaptureSignalJSON, WritesEveryKindOfValue) {
  const JSONValue value = JSONValue::Array{nullptr,
                                           true,
                                           false,
                                           0,
                                           1,
                                           0.0,
                                           1.0,
                                           std::numeric_limits<std::int64_t>::min(),
                                           JSONValue::BigInteger{"18446744073709551616"},
                                           "/",
                                           JSONValue::Array(),
                                           JSONValue::Object(),
                                           JSONValue::Object{{"b", 1}, {"a", JSONValue::Array{2, "x"}}}};
  EXPECT_EQ(pythonJSON(value, /*sortKeys=*/false),
            R"([null, true, false, 0, 1, 0.0, 1.0, -9223372036854775808, 18446744073709551616, "/", [], {}, )"
            R"({"b": 1, "a": [2, "x"]}])");
  EXPECT_EQ(pythonJSON(value, /*sortKeys=*/true),
            R"([null, true, false, 0, 1, 0.0, 1.0, -9223372036854775808, 18446744073709551616, "/", [], {}, )"
            R"({"a": [2, "x"], "b": 1}])");
}

TEST(CaptureSignalJSON, EscapesByUTF16Unit) {
  EXPECT_EQ(pythonJSON("é", false), R"("\u00e9")");
  EXPECT_EQ(pythonJSON("😀", false), R"("\ud83d\ude00")");
  EXPECT_EQ(pythonJSON("\x7F", false), R"("\u007f")");
  EXPECT_EQ(pythonJSON("\0\x1F"s, false), R"("\u0000\u001f")");
  EXPECT_EQ(pythonJSON("\"\\\b\t\n\f\r/ ~", false), R"("\"\\\b\t\n\f\r/ ~")");
}

TEST(CaptureSignalJSON, TellsZeroesApart) {
  EXPECT_EQ(pythonJSON(*JSONValue::parse("-0"), false), "0");
  EXPECT_EQ(pythonJSON(*JSONValue::parse("-0.0"), false), "-0.0");
  EXPECT_EQ(pythonJSON(false, false), "false");
}

TEST(CaptureSignalJSON, SortsByScalarAtEveryLevelAndNotByUTF16Unit) {
  const JSONValue inner = JSONValue::Object{{"\U00010000", 1}, {"\uFFFF", 2}, {"\uD7FF", 3}, {"", 4}};
  const JSONValue value = JSONValue::Object{{"b", JSONValue::Array{inner}}, {"a", inner}, {"aa", 0}, {"A", 0}};
  const std::string sorted = R"({"": 4, "\ud7ff": 3, "\uffff": 2, "\ud800\udc00": 1})";
  EXPECT_EQ(pythonJSON(value, /*sortKeys=*/true),
            R"({"A": 0, "a": )" + sorted + R"(, "aa": 0, "b": [)" + sorted + "]}");
}

TEST(CaptureSignalJSON, ANumberThatIsNotFiniteFailsTheWholeText) {
  for (const double number : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(pythonJSON(number, false), std::nullopt);
    EXPECT_EQ(pythonJSON(JSONValue::Array{1, JSONValue::Object{{"a", number}}, 2}, true), std::nullopt);
  }
  EXPECT_EQ(pythonJSON(*JSONValue::parse("1e400"), false), std::nullopt);
  EXPECT_EQ(pythonJSON(std::numeric_limits<double>::max(), false), "1.7976931348623157e+308");
}

TEST(CaptureSignalJSON, ABrokenSequenceReadsAsAReplacementCharacter) {
  EXPECT_EQ(pythonJSON("a\xFFz", false), R"("a\ufffdz")");
  // One for each maximal subpart: a truncated sequence of three, and the three bytes of an encoded surrogate.
  EXPECT_EQ(pythonJSON("\xE2\x82", false), R"("\ufffd")");
  EXPECT_EQ(pythonJSON("\xED\xA0\x80", false), R"("\ufffd\ufffd\ufffd")");
  EXPECT_EQ(pythonJSON(JSONValue::Object{{"\x80", "\xC0"}}, true), R"({"\ufffd": "\ufffd"})");
}

TEST(CaptureSignalJSON, NestingIsWrittenToAnyDepth) {
  constexpr std::size_t depth = 200'000;
  EXPECT_EQ(pythonJSON(nested(depth), true), std::string(depth, '[') + std::string(depth, ']'));
}

TEST(CaptureSignalJSON, WhatIsNestedTooDeepForTheReaderIsStillWritten) {
  for (const std::size_t depth : {maximumJSONNesting - 1, maximumJSONNesting, maximumJSONNesting + 1}) {
    const auto text = pythonJSON(nested(depth), false);
    ASSERT_TRUE(text);
    EXPECT_EQ(JSONValue::parse(*text).has_value(), depth <= maximumJSONNesting) << depth;
  }
}

}  // namespace
}  // namespace tessary
