#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>

#include "TessaryPlatform/text/GraphemeBreak.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

Texts forwards(std::string_view text) {
  Texts pieces;
  for (const std::string_view character : CharacterView(text))
    pieces.emplace_back(character);
  return pieces;
}

Texts backwards(std::string_view text) {
  Texts pieces;
  const CharacterView view(text);
  for (auto character = view.end(); character != view.begin();)
    pieces.emplace_back(*--character);
  std::ranges::reverse(pieces);
  return pieces;
}

Texts backwardsWithoutMemory(std::string_view text) {
  Texts pieces;
  for (std::size_t end = text.size(); end > 0;) {
    const std::size_t start = previousCharacterStart(text, end);
    pieces.emplace_back(text.substr(start, end - start));
    end = start;
  }
  std::ranges::reverse(pieces);
  return pieces;
}

Texts oneByOne(std::string_view text) {
  Texts pieces;
  for (std::size_t index = 0; const auto character = characterAt(text, index); ++index)
    pieces.emplace_back(*character);
  return pieces;
}

/// Every road through the segmenter gives the same characters.
void expectCharacters(const std::string& text, const Texts& expected) {
  // An exactly sized copy on the heap, so that a sanitizer sees one byte too far.
  const std::vector<char> bytes(text.begin(), text.end());
  const std::string_view exact(bytes.data(), bytes.size());
  ASSERT_EQ(forwards(exact), expected);
  ASSERT_EQ(backwards(exact), expected);
  ASSERT_EQ(backwardsWithoutMemory(exact), expected);
  ASSERT_EQ(oneByOne(exact), expected);
  ASSERT_EQ(characterCount(exact), expected.size());
  for (std::size_t count = 0, end = 0; count <= expected.size() + 1; ++count) {
    ASSERT_EQ(characterOffset(exact, count), end);
    ASSERT_EQ(characterPrefix(exact, count), exact.substr(0, end));
    ASSERT_EQ(characterSuffix(exact, expected.size() - std::min(count, expected.size())), exact.substr(end));
    if (count < expected.size()) end += expected[count].size();
  }
}

struct BreakTest {
  std::string line;
  Texts characters;
};

std::vector<BreakTest> breakTests() {
  std::ifstream file(std::string(TESSARY_TEST_VECTORS) + "/text/GraphemeBreakTest.txt");
  std::vector<BreakTest> tests;
  for (std::string line; std::getline(file, line);) {
    const std::string rule = line.substr(0, line.find('#'));
    if (rule.empty()) continue;
    std::istringstream words(rule);
    BreakTest test{line, {}};
    for (std::string mark, number; words >> mark && words >> number;) {
      if (mark == "\u00F7") test.characters.emplace_back();
      appendScalar(test.characters.back(), static_cast<char32_t>(std::strtoul(number.c_str(), nullptr, 16)));
    }
    tests.push_back(test);
  }
  return tests;
}

std::string joined(const Texts& pieces) {
  std::string text;
  for (const std::string& piece : pieces)
    text += piece;
  return text;
}

TEST(GraphemeClusters, PassTheUnicodeBreakTestFile) {
  const std::vector<BreakTest> tests = breakTests();
  ASSERT_EQ(tests.size(), 602U);
  for (const BreakTest& test : tests) {
    SCOPED_TRACE(test.line);
    expectCharacters(joined(test.characters), test.characters);
  }
}

/// Each line of the file behind and before texts that it cannot join: the automaton carries nothing over.
TEST(GraphemeClusters, PassTheUnicodeBreakTestFileInTheMiddleOfText) {
  for (const BreakTest& test : breakTests()) {
    SCOPED_TRACE(test.line);
    Texts expected = {"a", "b", "c", "d", "e", "f", "g", "h", "\n"};
    expected.insert(expected.end(), test.characters.begin(), test.characters.end());
    for (const char* character : {"\n", "1", "2", "3", "4", "5", "6", "7", "8", "9"})
      expected.emplace_back(character);
    // A CR at the end would take the line feed.
    if (test.characters.back() == "\r") continue;
    expectCharacters(joined(expected), expected);
  }
}

icu::UnicodeSet scripts(const char* pattern) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeSet set(icu::UnicodeString::fromUTF8(pattern), status);
  EXPECT_TRUE(U_SUCCESS(status));
  return set;
}

GraphemeBreakClass classByICU(UChar32 scalar) {
  using enum GraphemeBreakClass;
  static const std::vector<std::pair<int, GraphemeBreakClass>> classes = {{U_GCB_OTHER, other},
                                                                          {U_GCB_CONTROL, control},
                                                                          {U_GCB_CR, carriageReturn},
                                                                          {U_GCB_LF, lineFeed},
                                                                          {U_GCB_EXTEND, extend},
                                                                          {U_GCB_ZWJ, zeroWidthJoiner},
                                                                          {U_GCB_REGIONAL_INDICATOR, regionalIndicator},
                                                                          {U_GCB_PREPEND, prepend},
                                                                          {U_GCB_SPACING_MARK, spacingMark},
                                                                          {U_GCB_L, hangulL},
                                                                          {U_GCB_V, hangulV},
                                                                          {U_GCB_T, hangulT},
                                                                          {U_GCB_LV, hangulLV},
                                                                          {U_GCB_LVT, hangulLVT}};
  const int value = u_getIntPropertyValue(scalar, UCHAR_GRAPHEME_CLUSTER_BREAK);
  const int syllabicCategory = u_getIntPropertyValue(scalar, UCHAR_INDIC_SYLLABIC_CATEGORY);
  static const icu::UnicodeSet conjunctScripts = scripts("[[:Beng:][:Deva:][:Gujr:][:Mlym:][:Orya:][:Telu:]]");
  if (conjunctScripts.contains(scalar) && syllabicCategory == U_INSC_CONSONANT) {
    EXPECT_EQ(value, U_GCB_OTHER) << "one scalar has two classes: " << scalar;
    return linkingConsonant;
  }
  if (conjunctScripts.contains(scalar) && syllabicCategory == U_INSC_VIRAMA) {
    EXPECT_EQ(value, U_GCB_EXTEND) << scalar;
    EXPECT_NE(u_getCombiningClass(scalar), 0) << scalar;
    return virama;
  }
  if (value == U_GCB_EXTEND && u_getCombiningClass(scalar) != 0) return combiningExtend;
  if (u_hasBinaryProperty(scalar, UCHAR_EXTENDED_PICTOGRAPHIC)) {
    EXPECT_EQ(value, U_GCB_OTHER) << "one scalar has two classes: " << scalar;
    return pictographic;
  }
  return std::ranges::find(classes, value, &std::pair<int, GraphemeBreakClass>::first)->second;
}

TEST(GraphemeClusters, KnowTheBreakClassOfEveryScalar) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar)
    ASSERT_EQ(graphemeBreakClass(scalar), classByICU(static_cast<UChar32>(scalar))) << static_cast<unsigned>(scalar);
}

Texts charactersByICU(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  const std::u16string units = toUTF16(text);
  const icu::UnicodeString string(units.data(), static_cast<int32_t>(units.size()));
  iterator->setText(string);
  Texts pieces;
  for (int32_t start = iterator->first(), end = iterator->next(); end != icu::BreakIterator::DONE;
       start = end, end = iterator->next())
    pieces.push_back(toUTF8(
        std::u16string_view(units).substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start))));
  return pieces;
}

/// One or more scalars of every class, those that ASCII paths look at, and malformed bytes among them.
std::string randomText(std::mt19937& random, std::size_t pieces) {
  static const Texts alphabet = {
      "a",      " ",          "\r",     "\n",     "\r\n",       "\t",         "abcdefgh",
      "\u0301", "\u20E3",     "\u200D", "\u0600", "\u0903",     "\u1100",     "\u1161",
      "\u11A8", "\uAC00",     "\uAC01", "\u00E9", "\u4E2D",     "\U0001F1E6", "\U0001F1FF",
      "\u2764", "\U0001F469", "\uFE0F", "\u200B", "\U0001F3FD", "\U000E0041", "0123456789012345",
      "\u094D", "\u094D",     "\u0915", "\u0915", "\u09CD",     "\u0B15",     "\u0BCD",
      "\u0300", "\u093C",     "\u0941"};
  std::string text;
  for (std::size_t index = 0; index < pieces; ++index)
    text += alphabet[random() % alphabet.size()];
  return text;
}

TEST(GraphemeClusters, AgreeWithICUOnRandomText) {
  std::mt19937 random(20230101);
  for (int round = 0; round < 6000; ++round) {
    const std::string text = randomText(random, random() % 24);
    SCOPED_TRACE(testing::PrintToString(text));
    expectCharacters(text, charactersByICU(text));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(GraphemeClusters, AgreeWithICUOnAnyScalarBetweenTwoOthers) {
  std::mt19937 random(5);
  for (char32_t scalar = 0; scalar <= 0x10FFFF; scalar += static_cast<char32_t>(1 + random() % 40)) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    std::string text = randomText(random, 2);
    appendScalar(text, scalar);
    text += randomText(random, 2);
    ASSERT_EQ(forwards(text), charactersByICU(text)) << testing::PrintToString(text);
    ASSERT_EQ(backwards(text), forwards(text)) << testing::PrintToString(text);
  }
}

/// ICU's rules name the scalars that take part in conjuncts by properties, so its answers decide which those are.
TEST(GraphemeClusters, KeepTogetherTheConjunctsThatICUKeepsTogether) {
  const std::vector<std::pair<std::string, std::string>> frames = {{"\u0915", "\u0915"},
                                                                   {"\u0915\u094D", ""},
                                                                   {"", "\u094D\u0915"},
                                                                   {"\u0915\u094D", "\u0915"},
                                                                   {"\u0C15", "\u094D\u0915"}};
  for (char32_t scalar = 0; scalar <= 0x1FFFF; ++scalar) {
    const auto category = u_charType(static_cast<UChar32>(scalar));
    if (category == U_UNASSIGNED || category == U_PRIVATE_USE_CHAR || category == U_SURROGATE) continue;
    if (scalar >= 0x3400 && scalar <= 0xA000) continue;
    if (scalar >= 0xAC00 && scalar <= 0xD7A3) continue;
    for (const auto& [before, behind] : frames) {
      std::string text = before;
      appendScalar(text, scalar);
      text += behind;
      ASSERT_EQ(forwards(text), charactersByICU(text)) << testing::PrintToString(text);
    }
  }
}

TEST(GraphemeClusters, ReadBrokenSequencesAsReplacementCharacters) {
  expectCharacters("a\xFF\xCC\x81z", {"a", "\xFF\xCC\x81", "z"});
  expectCharacters("\xE1\x80\xE1\x80\x80\xF0\x9F", {"\xE1\x80", "\xE1\x80\x80", "\xF0\x9F"});
  std::mt19937 random(17);
  for (int round = 0; round < 3000; ++round) {
    std::string text = randomText(random, 6);
    for (int cut = 0; cut < 3 && !text.empty(); ++cut)
      text.erase(random() % text.size(), 1);
    Texts repaired = forwards(text);
    for (std::string& piece : repaired)
      piece = repairedUTF8(piece);
    ASSERT_EQ(repaired, forwards(repairedUTF8(text))) << testing::PrintToString(text);
    expectCharacters(text, forwards(text));
  }
}

TEST(GraphemeClusters, CountWhatAReaderTakesForOneCharacter) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("\r\n"), 1U);
  EXPECT_EQ(characterCount("12345678\r\n12345678\r\n\r\r\n"), 20U);
  EXPECT_EQ(characterCount("\U0001F1F0\U0001F1F7\U0001F1E9\U0001F1EA\U0001F1EB"), 3U) << "two flags and a half";
  EXPECT_EQ(characterCount("\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466!"), 2U) << "a family";
  EXPECT_EQ(characterCount("\u1112\u1161\u11AB\u1100\u1173\u11AF"), 2U) << "Hangul in jamo";
  EXPECT_EQ(characterCount(" \u0301 "), 2U) << "a blank with an accent is not the blank";
  EXPECT_EQ(characterCount("\u0600"
                           "12345678"),
            8U)
      << "an Arabic number sign holds the digit behind it";
}

TEST(GraphemeClusters, GivePrefixesSuffixesAndSingleCharacters) {
  const std::string text = "e\u0301a\r\nb";
  EXPECT_EQ(characterPrefix(text, 2), "e\u0301a");
  EXPECT_EQ(characterPrefix(text, 0), "");
  EXPECT_EQ(characterPrefix(text, 4), text);
  EXPECT_EQ(characterPrefix(text, 5), text);
  EXPECT_EQ(characterSuffix(text, 2), "\r\nb");
  EXPECT_EQ(characterSuffix(text, 9), text);
  EXPECT_EQ(characterAt(text, 2), "\r\n");
  EXPECT_EQ(characterAt(text, 4), std::nullopt);
  EXPECT_THAT(characters(text), ElementsAre("e\u0301", "a", "\r\n", "b"));
}

TEST(GraphemeClusters, WalkBothWaysFromAnywhere) {
  std::mt19937 random(99);
  for (int round = 0; round < 400; ++round) {
    std::string text;
    for (std::size_t flags = random() % 9; flags > 0; --flags)
      text += "\U0001F1E6";
    text = randomText(random, 2) + text + randomText(random, 2);
    const Texts expected = forwards(text);
    const CharacterView view(text);
    auto character = view.begin();
    for (std::size_t index = 0, step = 0; step < 40; ++step) {
      if (random() % 2 == 0 && index < expected.size()) {
        ++character;
        ++index;
      } else if (index > 0) {
        --character;
        --index;
      }
      ASSERT_EQ(index == expected.size(), character == view.end());
      if (index < expected.size()) {
        ASSERT_EQ(*character, expected[index]) << testing::PrintToString(text);
      }
    }
  }
}

/// A hundred thousand repetitions of each unit that a careless segmenter reads again and again: quadratic time would
/// not end.
TEST(GraphemeClusters, TakeLinearTimeInBothDirections) {
  const std::size_t repetitions = 100'000;
  struct Row {
    std::string head, unit, tail;
    std::size_t characters;
  };
  const std::vector<Row> rows = {{"a", "\u0301", "", 1},
                                 {"", "\U0001F1E6", "", repetitions / 2},
                                 {"x", "\U0001F1E6", "y", repetitions / 2 + 2},
                                 {"\U0001F469", "\u200D\U0001F469", "", 1},
                                 {"\U0001F469", "\u0301", "\u200D\U0001F469", 1},
                                 {"a", "\u200D", "\U0001F469", 2},
                                 {"a", "\u0301\u200D", "\U0001F469", 2},
                                 {"", "\u0600", "a", 1},
                                 {"\u0915", "\u094D", "\u0915", 1},
                                 {"\u0915", "\u094D\u0915", "", 1},
                                 {"a", "\u094D", "\u0915", 2},
                                 {"", "\u0915\u0300", "", repetitions},
                                 {"", "\u1100", "", 1},
                                 {"", "\r\n", "", repetitions},
                                 {"", "\x80", "", repetitions},
                                 {"", "\xF0\x9F", "", repetitions}};
  for (const Row& row : rows) {
    std::string text = row.head;
    for (std::size_t count = 0; count < repetitions; ++count)
      text += row.unit;
    text += row.tail;
    EXPECT_EQ(characterCount(text), row.characters);
    const CharacterView view(text);
    std::size_t steps = 0;
    for (auto character = view.end(); character != view.begin(); ++steps)
      --character;
    EXPECT_EQ(steps, row.characters);
    EXPECT_EQ(std::ranges::distance(std::make_reverse_iterator(view.end()), std::make_reverse_iterator(view.begin())),
              static_cast<std::ptrdiff_t>(row.characters));
    // To and fro at the end of the run.
    auto character = view.end();
    for (std::size_t step = 0; step < repetitions && row.characters > 10; ++step)
      step % 2 == 0 ? --character : ++character;
  }
}

}  // namespace
}  // namespace tessary
