#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {
namespace {

using Object = JSONValue::Object;
using Array = JSONValue::Array;

constexpr JSONStyle pythonStyle = {.separators = JSONStyle::Separators::spaced,
                                   .escapes = JSONStyle::Escapes::ascii,
                                   .numbers = JSONStyle::Numbers::python};

JSONValue parsed(std::string_view text) {
  const auto value = JSONValue::parse(text);
  EXPECT_TRUE(value) << text;
  return value.value_or(JSONValue());
}

JSONValue nestedArrays(std::size_t depth) {
  JSONValue value = 1;
  for (std::size_t level = 0; level < depth; ++level) {
    Array outer;
    outer.push_back(std::move(value));
    value = std::move(outer);
  }
  return value;
}

TEST(JSONValue, ReadsEveryKind) {
  EXPECT_EQ(parsed(" null "), JSONValue(nullptr));
  EXPECT_EQ(parsed("true"), JSONValue(true));
  EXPECT_EQ(parsed("-5"), JSONValue(-5));
  EXPECT_EQ(parsed("1.5"), JSONValue(1.5));
  EXPECT_EQ(parsed("\"a\\u00e9\""), JSONValue("a\xC3\xA9"));
  EXPECT_EQ(parsed("[]"), JSONValue(Array{}));
  EXPECT_EQ(parsed("{}"), JSONValue(Object{}));
  EXPECT_EQ(parsed(R"({"b":[1,[],{"x":null}],"a":{}})"),
            JSONValue(Object{{"b", Array{1, Array{}, Object{{"x", nullptr}}}}, {"a", Object{}}}));
}

TEST(JSONValue, TellsBooleansIntegersAndFloatingPointApart) {
  EXPECT_NE(parsed("true"), parsed("1"));
  EXPECT_NE(parsed("1"), parsed("1.0"));
  EXPECT_NE(parsed("1"), parsed("1e0"));
  EXPECT_NE(parsed("null"), parsed("false"));
  EXPECT_EQ(parsed("[true]").array()->front().number(), std::nullopt);
  EXPECT_EQ(parsed("7").number(), 7.0);
  EXPECT_EQ(parsed("7.5").number(), 7.5);
  EXPECT_EQ(parsed("1e2").floatingPoint() != nullptr, true);
}

TEST(JSONValue, IntegersBeyondSixtyFourBitsKeepTheirDigits) {
  EXPECT_EQ(*parsed("9223372036854775807").integer(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(*parsed("-9223372036854775808").integer(), std::numeric_limits<std::int64_t>::min());
  for (const std::string_view text :
       {"9223372036854775808", "-9223372036854775809", "18446744073709551615", "123456789012345678901234567890"}) {
    ASSERT_NE(parsed(text).bigInteger(), nullptr) << text;
    EXPECT_EQ(parsed(text).bigInteger()->digits, text);
    EXPECT_EQ(parsed(text).text(), text);
  }
  EXPECT_EQ(parsed("18446744073709551616").number(), 18446744073709551616.0);
}

TEST(JSONValue, TheIntegerMinusZeroIsZeroAndTheFloatingPointOneKeepsItsSign) {
  EXPECT_EQ(*parsed("-0").integer(), 0);
  EXPECT_EQ(parsed("-0").text(pythonStyle), "0");
  EXPECT_TRUE(std::signbit(*parsed("-0.0").floatingPoint()));
  EXPECT_EQ(parsed("-0.0").text(pythonStyle), "-0.0");
}

TEST(JSONValue, NumbersBeyondTheRangeOfADoubleAreInfiniteOrZero) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(*parsed("1e309").floatingPoint(), infinity);
  EXPECT_EQ(*parsed("-1e309").floatingPoint(), -infinity);
  EXPECT_EQ(*parsed("1e99999999999999999999").floatingPoint(), infinity);
  EXPECT_EQ(*parsed("1" + std::string(400, '0') + ".0").floatingPoint(), infinity);
  EXPECT_EQ(*parsed("0." + std::string(10, '0') + "1e400").floatingPoint(), infinity);
  EXPECT_EQ(*parsed("1e-400").floatingPoint(), 0);
  EXPECT_EQ(*parsed("1e-99999999999999999999").floatingPoint(), 0);
  EXPECT_EQ(*parsed("0." + std::string(400, '0') + "1").floatingPoint(), 0);
  EXPECT_EQ(*parsed("1" + std::string(400, '0') + "e-900").floatingPoint(), 0);
  EXPECT_EQ(*parsed("0e99999999999999999999").floatingPoint(), 0);
  EXPECT_EQ(*parsed("1" + std::string(400, '0') + "e-400").floatingPoint(), 1);
  EXPECT_EQ(parsed(std::string(400, '9')).number(), infinity);
}

TEST(JSONValue, KeepsTheOrderOfKeysAndOfARepeatedKeyTheLastValue) {
  EXPECT_EQ(parsed(R"({"b":1,"a":2,"b":3,"\u0061":4})").text(), R"({"b":3,"a":4})");
  std::string text = "{";
  std::string expected = "{";
  for (int index = 0; index < 1000; ++index)
    text += "\"k" + std::to_string(index % 100) + "\":" + std::to_string(index) + ",";
  for (int index = 0; index < 100; ++index)
    expected += "\"k" + std::to_string(index) + "\":" + std::to_string(900 + index) + ",";
  text.back() = '}';
  expected.back() = '}';
  EXPECT_EQ(parsed(text).text(), expected);
}

TEST(JSONValue, ManyRepeatedAndManyDifferentKeysTakeNoQuadraticTime) {
  std::string repeated = "{";
  std::string different = "{";
  for (int index = 0; index < 200'000; ++index) {
    repeated += "\"k\":0,";
    different += "\"" + std::to_string(index) + "\":0,";
  }
  repeated.back() = '}';
  different.back() = '}';
  EXPECT_EQ(parsed(repeated).object()->size(), 1U);
  EXPECT_EQ(parsed(different).object()->size(), 200'000U);
}

TEST(JSONValue, FaultsAreToldAsByTheWalker) {
  for (const std::string_view text : {"", "[", "{\"a\":}", "[1,]", "01", "\"\\ud800\"", "[\"\n\"]", "\xFF", "1 2",
                                      "nul", "{\"a\" 1}", "{1:2}", "[1}"}) {
    const auto value = JSONValue::parse(text);
    ASSERT_FALSE(value) << text;
    EXPECT_EQ(value.error(), walkJSON(text).error()) << text;
  }
  for (const std::size_t depth :
       {maximumJSONNesting - 1, maximumJSONNesting, maximumJSONNesting + 1, std::size_t{10'000}}) {
    const std::string text = std::string(depth, '[') + std::string(depth, ']');
    EXPECT_EQ(JSONValue::parse(text).has_value(), depth <= maximumJSONNesting) << depth;
  }
}

TEST(JSONValue, ATreeOfAnyDepthIsCopiedComparedWrittenAndDestroyed) {
  constexpr std::size_t depth = 100'000;
  JSONValue tree = nestedArrays(depth);
  for (std::size_t level = 0; level < depth; ++level) {
    Object outer;
    outer.emplace_back("k", std::move(tree));
    tree = std::move(outer);
  }
  JSONValue copy = tree;
  EXPECT_TRUE(copy == tree);
  const std::string text = tree.text().value();
  EXPECT_TRUE(text.starts_with("{\"k\":{\"k\":"));
  EXPECT_EQ(text.size(), depth * 6 + depth * 2 + 1);
  copy = JSONValue();
  EXPECT_FALSE(copy == tree);
  EXPECT_EQ(nestedArrays(3) == nestedArrays(4), false);
}

TEST(JSONValue, AssignsAPartOfItselfToItself) {
  JSONValue value = Object{{"a", Array{1, Object{{"b", "c"}}}}};
  value = JSONValue(*value.find("a"));
  EXPECT_EQ(value, JSONValue(Array{1, Object{{"b", "c"}}}));
  value = std::move((*value.array())[1]);
  EXPECT_EQ(value, JSONValue(Object{{"b", "c"}}));
  const JSONValue& self = value;
  value = self;
  EXPECT_EQ(value, JSONValue(Object{{"b", "c"}}));
}

TEST(JSONValue, MembersAreFoundSetAndReplacedInPlace) {
  JSONValue value = parsed(R"({"b":1,"a":null})");
  EXPECT_EQ(*value.find("b"), JSONValue(1));
  EXPECT_EQ(*value.find("a"), JSONValue(nullptr));
  EXPECT_EQ(value.find("c"), nullptr);
  EXPECT_EQ(JSONValue(1).find("a"), nullptr);
  value.set("b", "x");
  value.set("c", false);
  EXPECT_EQ(value.text(), R"({"b":"x","a":null,"c":false})");
  JSONValue text = "t";
  text.set("k", 1);
  EXPECT_EQ(text.text(), R"({"k":1})");
}

TEST(JSONValue, EqualityCountsOrderAndKind) {
  EXPECT_NE(parsed(R"({"a":1,"b":2})"), parsed(R"({"b":2,"a":1})"));
  EXPECT_NE(parsed("[1,2]"), parsed("[2,1]"));
  EXPECT_NE(parsed("[1]"), parsed("[1,1]"));
  EXPECT_NE(parsed("[]"), parsed("{}"));
  EXPECT_NE(parsed(R"({"a":[1,{"b":2}]})"), parsed(R"({"a":[1,{"b":3}]})"));
}

TEST(JSONValue, ItsPartsAreWrittenAsTheStyleSays) {
  const JSONValue value =
      Object{{"z", Array{1, 2.0, "\xC3\xA9/"}}, {"a", Object{{"y", nullptr}, {"x", Array{}}}}, {"e", Object{}}};
  EXPECT_EQ(value.text(), "{\"z\":[1,2,\"\xC3\xA9/\"],\"a\":{\"y\":null,\"x\":[]},\"e\":{}}");
  EXPECT_EQ(value.text(pythonStyle), R"({"z": [1, 2.0, "\u00e9/"], "a": {"y": null, "x": []}, "e": {}})");
  JSONStyle sorted = pythonStyle;
  sorted.keys = JSONStyle::Keys::ascending;
  EXPECT_EQ(value.text(sorted), R"({"a": {"x": [], "y": null}, "e": {}, "z": [1, 2.0, "\u00e9/"]})");
}

TEST(JSONValue, AscendingKeysFollowScalarsAndNotUnits) {
  const JSONValue value = Object{{"\U0001F600", 1}, {"\uFF5E", 2}, {"a", 3}, {"", 4}};
  EXPECT_EQ(value.text({.keys = JSONStyle::Keys::ascending}), "{\"\":4,\"a\":3,\"\uFF5E\":2,\"\U0001F600\":1}");
}

TEST(JSONValue, ANumberThatIsNoneFailsTheWritingWithItsPath) {
  const JSONValue value = Object{{"b", 1}, {"a", Array{0, Object{{"n", std::numeric_limits<double>::quiet_NaN()}}}}};
  const JSONEncodingError error = {JSONEncodingError::Kind::nonFiniteNumber, {"a", 1U, "n"}};
  EXPECT_EQ(value.text().error(), error);
  EXPECT_EQ(value.text({.keys = JSONStyle::Keys::ascending}).error(), error);
  EXPECT_EQ(parsed("1e999").text().error(), (JSONEncodingError{JSONEncodingError::Kind::nonFiniteNumber, {}}));
}

TEST(JSONValue, TheTextThatAValueIsMayNameItsFirstMember) {
  // Long enough to stand on the heap, where a sanitizer sees it go.
  const std::string key(100, 'k');
  JSONValue value(key);
  value.set(*value.string(), 1);
  EXPECT_EQ(value, JSONValue(JSONValue::Object{{key, 1}}));
}

}  // namespace
}  // namespace tessary
