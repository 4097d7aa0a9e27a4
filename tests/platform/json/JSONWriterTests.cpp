#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONWriter.h"
#include "TessaryPlatform/text/UTF8.h"

#include "ReferenceJSON.h"

namespace tessary {
namespace {

using Escapes = JSONStyle::Escapes;
using Numbers = JSONStyle::Numbers;

std::string textOf(std::string_view text, Escapes escapes = Escapes::minimal) {
  std::string json;
  appendJSONText(json, text, escapes);
  return json;
}

std::string numberOf(double value, Numbers numbers) {
  std::string json;
  appendJSONNumber(json, value, numbers);
  return json;
}

TEST(JSONWriter, LaysNumbersOutAsECMAScriptAndAsPython) {
  // What `String(x)` of ECMAScript and `repr(x)` of Python give; only negative zero departs from the former.
  const std::vector<std::tuple<double, std::string_view, std::string_view>> rows = {
      {0.0, "0", "0.0"},
      {-0.0, "-0", "-0.0"},
      {5.0, "5", "5.0"},
      {-1.5, "-1.5", "-1.5"},
      {0.1, "0.1", "0.1"},
      {100000.0, "100000", "100000.0"},
      {123456.789, "123456.789", "123456.789"},
      {2000000.0, "2000000", "2000000.0"},
      {1e15, "1000000000000000", "1000000000000000.0"},
      {9999999999999998.0, "9999999999999998", "9999999999999998.0"},
      {1e16, "10000000000000000", "1e+16"},
      {1.5e16, "15000000000000000", "1.5e+16"},
      {1e20, "100000000000000000000", "1e+20"},
      {123456789012345680000.0, "123456789012345680000", "1.2345678901234568e+20"},
      {1e21, "1e+21", "1e+21"},
      {1.5e21, "1.5e+21", "1.5e+21"},
      {1e22, "1e+22", "1e+22"},
      {0.001, "0.001", "0.001"},
      {0.0001, "0.0001", "0.0001"},
      {0.00012, "0.00012", "0.00012"},
      {0.00001, "0.00001", "1e-05"},
      {0.000015, "0.000015", "1.5e-05"},
      {0.000001, "0.000001", "1e-06"},
      {0.0000001, "1e-7", "1e-07"},
      {1.25e-7, "1.25e-7", "1.25e-07"},
      {1e-10, "1e-10", "1e-10"},
      {5e-324, "5e-324", "5e-324"},
      {2.2250738585072014e-308, "2.2250738585072014e-308", "2.2250738585072014e-308"},
      {1.7976931348623157e308, "1.7976931348623157e+308", "1.7976931348623157e+308"},
      {1e100, "1e+100", "1e+100"},
      {0.30000000000000004, "0.30000000000000004", "0.30000000000000004"},
      {1.0 / 3.0, "0.3333333333333333", "0.3333333333333333"},
  };
  for (const auto& [value, ecmaScript, python] : rows) {
    EXPECT_EQ(numberOf(value, Numbers::ecmaScript), ecmaScript);
    EXPECT_EQ(numberOf(value, Numbers::python), python);
    if (value > 0) {
      EXPECT_EQ(numberOf(-value, Numbers::ecmaScript), "-" + std::string(ecmaScript));
      EXPECT_EQ(numberOf(-value, Numbers::python), "-" + std::string(python));
    }
  }
}

TEST(JSONWriter, EveryNumberReadsBackBitForBit) {
  std::mt19937_64 random(20260214);
  for (int round = 0; round < 50'000; ++round) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    for (const Numbers numbers : {Numbers::ecmaScript, Numbers::python}) {
      const std::string text = numberOf(value, numbers);
      double back = 0;
      std::from_chars(text.data(), text.data() + text.size(), back);
      ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(value)) << text;
      ASSERT_TRUE(testing::ReferenceJSON::accepts(text, 0)) << text;
      ASSERT_EQ(text.find_first_of(".e") == std::string::npos && numbers == Numbers::python, false) << text;
    }
  }
}

TEST(JSONWriter, EscapesWhatJSONAsksForAndNothingMore) {
  EXPECT_EQ(textOf("\"\\/\b\f\n\r\t\x0B\x1F\x7F"), R"("\"\\/\b\f\n\r\t\u000b\u001f)"
                                                   "\x7F\"");
  EXPECT_EQ(textOf(std::string_view("\0", 1)), R"("\u0000")");
  EXPECT_EQ(textOf(""), "\"\"");
  EXPECT_EQ(textOf("é한😀\u2028\uFFFF"), "\"é한😀\u2028\uFFFF\"");
  EXPECT_EQ(textOf("é\"\n\\한\x01"), R"("é\"\n\\한\u0001")");
}

TEST(JSONWriter, ASCIITextEscapesEverythingBeyondPrintableASCII) {
  EXPECT_EQ(textOf(" ~\"\\/\b\f\n\r\t\x0B\x7F", Escapes::ascii), R"(" ~\"\\/\b\f\n\r\t\u000b\u007f")");
  EXPECT_EQ(textOf("é", Escapes::ascii), R"("\u00e9")");
  EXPECT_EQ(textOf("\uFFFF", Escapes::ascii), R"("\uffff")");
  EXPECT_EQ(textOf("😀", Escapes::ascii), R"("\ud83d\ude00")");
  EXPECT_EQ(textOf("\U00010000\U0010FFFF", Escapes::ascii), R"("\ud800\udc00\udbff\udfff")");
}

TEST(JSONWriter, MalformedUTF8IsWrittenAsTheReplacementCharacter) {
  EXPECT_EQ(textOf("a\xFF\xE2\x82z"), "\"a\uFFFD\uFFFDz\"");
  EXPECT_EQ(textOf("é\xED\xA0\x80é"), "\"é\uFFFD\uFFFD\uFFFDé\"");
  EXPECT_EQ(textOf("\xC0\x80\"", Escapes::ascii), R"("\ufffd\ufffd\"")");
  EXPECT_EQ(textOf("é\x7F\xF0\x9F\x98"), "\"é\x7F\uFFFD\"");
}

/// The rule, scalar by scalar.
std::string plainTextOf(std::string_view text, Escapes escapes) {
  std::string json = "\"";
  const auto unit = [&](unsigned value) {
    constexpr std::string_view digits = "0123456789abcdef";
    json += "\\u";
    for (const int shift : {12, 8, 4, 0})
      json += digits[value >> shift & 15];
  };
  for (const char32_t scalar : toScalars(text)) {
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    const std::size_t name = scalar < 0x80 ? named.find(static_cast<char>(scalar)) : std::string_view::npos;
    if (name != std::string_view::npos) {
      json += '\\';
      json += "\"\\bfnrt"[name];
    } else if (scalar < 0x20 || (escapes == Escapes::ascii && scalar > 0x7E)) {
      for (const char16_t half : toUTF16(toUTF8(std::u32string_view(&scalar, 1))))
        unit(half);
    } else {
      appendScalar(json, scalar);
    }
  }
  return json + '"';
}

TEST(JSONWriter, EveryByteInEveryPlaceOfAWordIsWrittenAsByThePlainRule) {
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t place = 0; place < 20; ++place) {
      for (const std::string_view tail : {"", "\xC3\xA9 tail of some length", "\xFF\""}) {
        std::string text(20, 'x');
        text[place] = static_cast<char>(byte);
        text += tail;
        for (const Escapes escapes : {Escapes::minimal, Escapes::ascii}) {
          ASSERT_EQ(textOf(text, escapes), plainTextOf(text, escapes)) << byte << " at " << place;
        }
      }
    }
  }
}

TEST(JSONWriter, RandomTextsAreWrittenAsByThePlainRule) {
  std::mt19937 random(20260214);
  static constexpr std::string_view pieces[] = {"a",    "plain text ", "\"",   "\\", "\n",   "\x01",
                                                "\x7F", "é",           "한국", "😀", "\xFF", "\xE2\x82"};
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (std::size_t count = random() % 12; count > 0; --count)
      text += pieces[random() % std::size(pieces)];
    for (const Escapes escapes : {Escapes::minimal, Escapes::ascii}) {
      ASSERT_EQ(textOf(text, escapes), plainTextOf(text, escapes)) << "round " << round;
      ASSERT_TRUE(testing::ReferenceJSON::accepts(textOf(text, escapes), 0));
    }
  }
}

TEST(JSONWriter, LongTextsAreWrittenAsByThePlainRuleWhereverTheyAreCut) {
  // Long texts are written in pieces of a fixed length, so that what is escaped must stand at every place around a cut.
  for (const std::string_view special : {"\n", "\x01", "é", "한", "😀", "\xFF", "\xF0\x9F\x98", "\"x\""}) {
    for (const std::string_view filler : {"x", "한", "\\", "a\n"}) {
      for (std::size_t before = 1024 - 24; before < 1024 + 24; ++before) {
        std::string text;
        while (text.size() + filler.size() <= before)
          text += filler;
        text.append(before - text.size(), 'y');
        text.append(special).append(3, 'z').append(special);
        for (const Escapes escapes : {Escapes::minimal, Escapes::ascii})
          ASSERT_EQ(textOf(text, escapes), plainTextOf(text, escapes)) << special << " at " << before;
      }
    }
  }
}

TEST(JSONWriter, LongRandomTextsAreWrittenAsByThePlainRule) {
  std::mt19937 random(20260215);
  static constexpr std::string_view pieces[] = {
      "a", " ", "some plain text that is long", "\"", "\\", "\n", "\x01", "\x7F", "é", "한국", "한", "😀", "\xFF"};
  for (int round = 0; round < 300; ++round) {
    // Half of the texts are well-formed.
    const std::size_t kinds = std::size(pieces) - static_cast<std::size_t>(round % 2);
    std::string text;
    for (std::size_t count = random() % 3000; count > 0; --count)
      text += pieces[random() % kinds];
    for (const Escapes escapes : {Escapes::minimal, Escapes::ascii})
      ASSERT_EQ(textOf(text, escapes), plainTextOf(text, escapes)) << "round " << round;
  }
}

TEST(JSONWriter, TextsWithOneFlawAtTheEndAreWrittenInLinearTime) {
  std::string text;
  for (int count = 0; count < 300'000; ++count)
    text += "é";
  const std::string good = text;
  text += '\xFF';
  EXPECT_EQ(textOf(text), "\"" + good + "\uFFFD\"");
}

TEST(JSONWriter, IntegersAreWrittenToTheEndsOfTheirRange) {
  std::string json;
  appendJSONInteger(json, std::numeric_limits<std::int64_t>::min());
  json += ' ';
  appendJSONInteger(json, std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(json, "-9223372036854775808 9223372036854775807");
}

}  // namespace
}  // namespace tessary
