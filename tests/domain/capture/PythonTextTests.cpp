#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonText.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

Texts owned(const std::vector<std::string_view>& views) {
  return {views.begin(), views.end()};
}

Texts owned(const std::vector<std::u32string_view>& views) {
  Texts texts;
  for (const std::u32string_view view : views)
    texts.push_back(PythonText::string(view));
  return texts;
}

/// True where the file's ranges, as first and last scalar, hold `scalar`.
std::vector<bool> readRanges(std::string_view fileName) {
  std::vector<bool> members(0x110000);
  for (const PythonVector& vector : readPythonVectors(fileName))
    std::fill(members.begin() + vector.number(0), members.begin() + vector.number(1) + 1, true);
  return members;
}

TEST(PythonText, TakesForWhiteSpaceWhatCPythonTakes) {
  const std::vector<bool> isSpace = readRanges("spaces.tsv");
  ASSERT_EQ(std::ranges::count(isSpace, true), 29);
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    ASSERT_EQ(PythonText::isSpace(scalar), isSpace[scalar]) << std::hex << static_cast<unsigned>(scalar);
    if (isSurrogate(scalar)) continue;
    const std::string text = PythonText::string(std::u32string(1, scalar));
    ASSERT_EQ(PythonText::strip(text).empty(), isSpace[scalar]) << std::hex << static_cast<unsigned>(scalar);
    ASSERT_EQ(PythonText::split(text).empty(), isSpace[scalar]) << std::hex << static_cast<unsigned>(scalar);
  }
  EXPECT_FALSE(PythonText::isSpace(0xFFFFFFFF));
}

TEST(PythonText, TakesForALineEndWhatCPythonTakes) {
  const std::vector<bool> isLineEnd = readRanges("line-ends.tsv");
  ASSERT_EQ(std::ranges::count(isLineEnd, true), 10);
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (isSurrogate(scalar)) continue;
    const std::u32string scalars = {'a', scalar, 'b'};
    const std::size_t lines = isLineEnd[scalar] ? 2 : 1;
    ASSERT_EQ(PythonText::splitlines(scalars).size(), lines) << std::hex << static_cast<unsigned>(scalar);
    ASSERT_EQ(PythonText::splitlines(toUTF8(scalars)).size(), lines) << std::hex << static_cast<unsigned>(scalar);
  }
}

TEST(PythonText, FoldsOutsideASCIIOnlyWhatCPythonFoldsIntoIt) {
  std::map<char32_t, std::string> folds;
  for (const PythonVector& vector : readPythonVectors("ascii-folds.tsv"))
    folds[static_cast<char32_t>(vector.number(0))] = vector.fields.at(1);
  ASSERT_EQ(folds.size(), 19U);
  for (char32_t scalar = 0x80; scalar <= 0x10FFFF; ++scalar) {
    if (isSurrogate(scalar)) continue;
    const std::string text = PythonText::string(std::u32string(1, scalar));
    const auto fold = folds.find(scalar);
    ASSERT_EQ(PythonText::casefold(text), fold == folds.end() ? text : fold->second)
        << std::hex << static_cast<unsigned>(scalar);
    // Long enough to be looked at in blocks.
    ASSERT_EQ(PythonText::foldsWithinASCII(text + "and some more text"), fold == folds.end())
        << std::hex << static_cast<unsigned>(scalar);
  }
}

/// Holds one row of text.tsv against the operation that it names.
void check(const PythonVector& vector) {
  const std::string& operation = vector.fields.at(0);
  // A buffer of exactly the text's size lets a sanitizer see every byte read beyond it.
  const auto buffer = std::make_unique<char[]>(vector.fields.at(1).size());
  std::ranges::copy(vector.fields[1], buffer.get());
  const std::string_view text(buffer.get(), vector.fields[1].size());
  const std::string& argument = vector.fields.at(2);
  std::size_t index = 2;
  if (operation == "strip") {
    EXPECT_EQ(PythonText::strip(text), argument);
  } else if (operation == "lstrip") {
    EXPECT_EQ(PythonText::stripStart(text), argument);
  } else if (operation == "split") {
    EXPECT_EQ(owned(PythonText::split(text)), vector.list(index));
  } else if (operation == "splitlines") {
    const Texts expected = vector.list(index);
    EXPECT_EQ(owned(PythonText::splitlines(text)), expected);
    EXPECT_EQ(owned(PythonText::splitlines(toScalars(text))), expected);
  } else if (operation == "prefix") {
    EXPECT_EQ(PythonText::prefix(text, static_cast<std::size_t>(vector.number(2))), vector.fields.at(3));
  } else if (operation == "components") {
    EXPECT_EQ(owned(PythonText::components(text, static_cast<char32_t>(vector.number(2)))), vector.list(++index));
  } else if (operation == "contains") {
    EXPECT_EQ(PythonText::contains(text, argument), vector.fields.at(3) == "true");
    EXPECT_EQ(PythonText::contains(toScalars(text), toScalars(argument)), vector.fields[3] == "true");
  } else if (operation == "startswith") {
    EXPECT_EQ(PythonText::hasPrefix(text, argument), vector.fields.at(3) == "true");
  } else if (operation == "endswith") {
    EXPECT_EQ(PythonText::hasSuffix(text, argument), vector.fields.at(3) == "true");
  } else if (operation == "casefold") {
    // The fold departs from Python's where that leaves ASCII, and there it leaves ASCII as well.
    const std::string folded = PythonText::casefold(text);
    EXPECT_EQ(isASCII(folded), isASCII(argument));
    EXPECT_EQ(isASCII(argument) ? folded : "", isASCII(argument) ? argument : "");
  } else {
    ADD_FAILURE() << "unknown operation " << operation;
  }
}

TEST(PythonText, AnswersAsCPythonDoes) {
  const std::vector<PythonVector> vectors = readPythonVectors("text.tsv");
  ASSERT_GT(vectors.size(), 5000U);
  for (const PythonVector& vector : vectors) {
    SCOPED_TRACE("line " + std::to_string(vector.line) + ", " + testing::PrintToString(vector.fields));
    check(vector);
  }
}

TEST(PythonText, StripsItsOwnWhiteSpaceAndNotTheByteOrderMark) {
  EXPECT_EQ(PythonText::strip("\u001Ca\u0085"), "a");
  EXPECT_EQ(PythonText::strip("\uFEFFa"), "\uFEFFa");
  EXPECT_EQ(PythonText::strip("\u3000\t a b \u2029"), "a b");
  EXPECT_EQ(PythonText::strip(" \u2003\n"), "");
  EXPECT_EQ(PythonText::strip(""), "");
  EXPECT_EQ(PythonText::stripStart("\u3000\x1F a \n"), "a \n");
}

TEST(PythonText, SplitsOnRunsOfWhiteSpace) {
  EXPECT_THAT(PythonText::split(" a\u2003\u001Fb\tc\u200Bd "), ElementsAre("a", "b", "c\u200Bd"));
  EXPECT_THAT(PythonText::split(""), IsEmpty());
  EXPECT_THAT(PythonText::split("\u00A0\n"), IsEmpty());
}

TEST(PythonText, SplitsLinesOnPythonsLineEnds) {
  EXPECT_THAT(PythonText::splitlines("a\r\nb\rc\u2028d"), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(PythonText::splitlines("a\u001Fb"), ElementsAre("a\u001Fb"));
  EXPECT_THAT(PythonText::splitlines("\n"), ElementsAre(""));
  EXPECT_THAT(PythonText::splitlines("a\n\nb"), ElementsAre("a", "", "b"));
  EXPECT_THAT(PythonText::splitlines("a\n"), ElementsAre("a"));
  EXPECT_THAT(PythonText::splitlines(""), IsEmpty());
}

TEST(PythonText, PicksTheLinesThatBeginWithAPrefix) {
  const auto picked = [](std::string_view text, std::string_view prefix) {
    std::vector<std::string_view> lines = PythonText::splitlines(text);
    std::erase_if(lines, [prefix](std::string_view line) { return !line.starts_with(prefix); });
    return lines;
  };
  EXPECT_THAT(PythonText::linesBeginning("*a\nb*\u2028**c\xE2\x80*\r\n*", "*"), ElementsAre("*a", "**c\xE2\x80*", "*"));
  EXPECT_THAT(PythonText::linesBeginning("", "*"), IsEmpty());
  // Line ends, what is nearly one, and broken halves of them, in every order, around the prefixes.
  std::mt19937 random(20260308);
  constexpr std::array<std::string_view, 20> pieces = {
      "*",    "**",   "* ",       "a",      "\n",     "\r",       "\r\n", "\x0B",   "\x1C",       "\x1F",
      "\x85", "\xC2", "\xC2\x85", "\u2028", "\u2029", "\xE2\x80", "\xA8", "\u20A8", "\U00010085", "\xF0\x90"};
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (std::size_t count = random() % 12; count > 0; --count)
      text += pieces[random() % pieces.size()];
    for (const std::string_view prefix : {"*", "**", "* "})
      ASSERT_EQ(PythonText::linesBeginning(text, prefix), picked(text, prefix)) << testing::PrintToString(text);
  }
}

TEST(PythonText, SlicesLinesOutOfTheScalarsThemselves) {
  const std::u32string scalars = U"ab\r\nc";
  const std::vector<std::u32string_view> lines = PythonText::splitlines(scalars);
  ASSERT_THAT(lines, ElementsAre(U"ab", U"c"));
  EXPECT_EQ(lines[1].data(), scalars.data() + 4);
}

TEST(PythonText, KeepsEmptyComponents) {
  EXPECT_THAT(PythonText::components("", '/'), ElementsAre(""));
  EXPECT_THAT(PythonText::components("/a//b/", '/'), ElementsAre("", "a", "", "b", ""));
  EXPECT_THAT(PythonText::components("a\uD55Cb", U'\uD55C'), ElementsAre("a", "b"));
  // What is no scalar stands in no text, also not as the U+FFFD that stands in for it elsewhere.
  EXPECT_THAT(PythonText::components("a\uFFFDb", 0xD800), ElementsAre("a\uFFFDb"));
  EXPECT_THAT(PythonText::components("a\uFFFDb", 0x110000), ElementsAre("a\uFFFDb"));
  EXPECT_THAT(PythonText::components("a\uFFFD\xFF", 0xFFFD), ElementsAre("a", "\xFF"));
}

TEST(PythonText, FoldsOnlyTowardsASCII) {
  EXPECT_EQ(PythonText::casefold("MAKEFILE"), "makefile");
  EXPECT_EQ(PythonText::casefold("@[`{"), "@[`{");
  EXPECT_EQ(PythonText::casefold("\u017F"), "s");
  EXPECT_EQ(PythonText::casefold("\u212A"), "k");
  EXPECT_EQ(PythonText::casefold("\u00C4"), "\u00C4");
  EXPECT_EQ(PythonText::casefold("\u0414\u03A3"), "\u0414\u03A3");
  EXPECT_TRUE(PythonText::foldsWithinASCII("MAKEFILE \u00C4"));
  EXPECT_TRUE(PythonText::foldsWithinASCII(""));
  EXPECT_FALSE(PythonText::foldsWithinASCII("stra\u00DFe"));
}

TEST(PythonText, FindsOnlyASCIIInASet) {
  const std::set<std::string, std::less<>> words = {"makefile", "\u212A"};
  EXPECT_TRUE(PythonText::isMember("makefile", words));
  EXPECT_FALSE(PythonText::isMember("ma\u212Aefile", words));
  EXPECT_FALSE(PythonText::isMember("\u212A", words));
  constexpr std::array<std::string_view, 3> table = {"makefile", "\u212A", ""};
  EXPECT_TRUE(PythonText::isMember("makefile", table));
  EXPECT_TRUE(PythonText::isMember("", table));
  EXPECT_FALSE(PythonText::isMember("\u212A", table));
  EXPECT_FALSE(PythonText::isMember("Makefile", table));
}

TEST(PythonText, ComparesScalarsWithoutNormalisation) {
  EXPECT_FALSE(PythonText::equal("\u00E9", "e\u0301"));
  EXPECT_TRUE(PythonText::equal("\u00E9", "\u00E9"));
  EXPECT_TRUE(PythonText::hasPrefix("e\u0301", "e"));
  EXPECT_FALSE(PythonText::hasSuffix("\u00E9", "\u0301"));
  EXPECT_TRUE(PythonText::contains("", ""));
  EXPECT_TRUE(PythonText::contains(U"", U""));
  EXPECT_FALSE(PythonText::contains("", "a"));
}

TEST(PythonText, FindsOnlyTheEmptyNeedleInATextWithoutBytes) {
  // A default view points to nothing, which the sanitizer minds where it is handed to the C library.
  constexpr std::string_view nothing;
  EXPECT_FALSE(PythonText::contains(nothing, "a"));
  EXPECT_TRUE(PythonText::contains(nothing, nothing));
  EXPECT_TRUE(PythonText::contains("a", nothing));
}

TEST(PythonText, CountsScalarsInAPrefix) {
  EXPECT_EQ(PythonText::prefix("\U0001F468\u200D\U0001F469", 2), "\U0001F468\u200D");
  EXPECT_EQ(PythonText::prefix("\uD55C\uAE00", 3), "\uD55C\uAE00");
  EXPECT_EQ(PythonText::prefix("ab", 0), "");
  EXPECT_EQ(PythonText::prefix("", 5), "");
}

TEST(PythonText, WritesWhatIsNoScalarAsTheReplacementCharacter) {
  EXPECT_EQ(PythonText::string(U"a\uD55C"), "a\uD55C");
  EXPECT_EQ(PythonText::string(std::u32string{0xD800, 0x110000}), "\uFFFD\uFFFD");
}

TEST(PythonText, WritesItsWhiteSpaceAsAClassWhoseBackslashesStand) {
  EXPECT_EQ(PythonText::spaceClass,
            "[\\t\\n\\x{0B}\\f\\r\\x{1C}-\\x{20}\\x{85}\\x{A0}\\x{1680}\\x{2000}-\\x{200A}\\x{2028}\\x{2029}\\x{202F}"
            "\\x{205F}\\x{3000}]");
}

TEST(PythonText, MatchesExactlyItsWhiteSpaceByTheClass) {
  const RegularExpression space = PythonText::expression(PythonText::spaceClass);
  ASSERT_TRUE(space.isValid());
  std::string text;
  std::vector<std::size_t> spaces;
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    if (PythonText::isSpace(scalar)) spaces.push_back(text.size());
    appendScalar(text, scalar);
  }
  const RegexFindAll found = space.findAll(text);
  ASSERT_TRUE(found.isComplete);
  std::vector<std::size_t> matches;
  for (const RegexMatch& match : found.matches)
    matches.push_back(match.range().start);
  EXPECT_EQ(matches, spaces);
}

TEST(PythonText, FindsNothingByAPatternThatDoesNotCompile) {
  EXPECT_FALSE(PythonText::expression("(").find(RegexSubject("(")).match);
}

TEST(PythonText, SearchesALongNeedleThatNearlyOccursEverywhere) {
  const std::string text(1'000'000, 'a');
  EXPECT_FALSE(PythonText::contains(text, std::string(300'000, 'a') + "b"));
  EXPECT_TRUE(PythonText::contains(text, std::string(300'000, 'a')));
}

}  // namespace
}  // namespace tessary
