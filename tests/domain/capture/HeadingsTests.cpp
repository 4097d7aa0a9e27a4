#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/Headings.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/RegularExpression.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

using Texts = std::vector<std::string>;

Texts headings(std::string_view text) {
  const std::vector<std::string_view> views = Headings::matches(text);
  return {views.begin(), views.end()};
}

TEST(Headings, AreLinesWithOneToSixMarks) {
  EXPECT_EQ(headings("# a\n## b\n### c\n#### d\n##### e\n###### f\n"), (Texts{"a", "b", "c", "d", "e", "f"}));
  EXPECT_EQ(headings("####### g"), Texts{});
  EXPECT_EQ(headings("#a"), Texts{});
  EXPECT_EQ(headings(" # a"), Texts{});
  EXPECT_EQ(headings("x # a"), Texts{});
  EXPECT_EQ(headings(""), Texts{});
}

TEST(Headings, LoseTheirClosingMarks) {
  EXPECT_EQ(headings("## a b ##  "), Texts{"a b"});
  EXPECT_EQ(headings("# a#"), Texts{"a"}) << "no white space is needed before them";
  EXPECT_EQ(headings("# a # #"), Texts{"a #"}) << "only the last run of marks closes";
  EXPECT_EQ(headings("# ###"), Texts{"#"}) << "one scalar of text must remain";
}

TEST(Headings, EndOnlyAtALineFeed) {
  EXPECT_EQ(headings("# a\r# b\n# c"), (Texts{"a\r# b", "c"}));
  EXPECT_EQ(headings("# a\u2028# b"), Texts{"a\u2028# b"});
  EXPECT_EQ(headings("# a\r\nb"), Texts{"a"});
}

TEST(Headings, MayBeginOnALaterLineThanTheirMarks) {
  EXPECT_EQ(headings("#\n\nTitle\n"), Texts{"Title"});
  EXPECT_EQ(headings("##\n# a"), Texts{"# a"});
}

TEST(Headings, TakeClosingMarksFromLaterLines) {
  EXPECT_EQ(headings("# a\n#\nb"), Texts{"a"}) << "the second mark closes the first heading";
  EXPECT_EQ(headings("# a\n## b"), (Texts{"a", "b"})) << "it does not where more stands on its line";
}

TEST(Headings, OfBlanksOnlyAreOneBlank) {
  EXPECT_EQ(headings("# "), Texts{});
  EXPECT_EQ(headings("#  "), Texts{" "});
  EXPECT_EQ(headings("# \t\n\n"), Texts{"\t"});
  EXPECT_EQ(headings("#\n\n"), Texts{});
}

TEST(Headings, AreFoundFromAnyByteOn) {
  const std::string text = "# a\n# b\n";
  EXPECT_EQ(Headings::find(text, 0)->whole, (ByteRange{0, 3}));
  EXPECT_EQ(Headings::find(text, 1)->whole.start, 4U);
  EXPECT_EQ(Headings::find(text, 4)->text, (ByteRange{6, 7}));
  EXPECT_EQ(Headings::find(text, 5), std::nullopt);
  EXPECT_EQ(Headings::find(text, text.size() + 1), std::nullopt);
}

TEST(Headings, StopAtTheLimit) {
  const std::string text = "# a\n# b\n# c\n";
  EXPECT_EQ(Headings::matches(text, 0).size(), 0U);
  EXPECT_EQ(Headings::matches(text, 2).size(), 2U);
  EXPECT_EQ(Headings::matches(text, 4).size(), 3U);
}

// The scanner against the expression.

const RegularExpression& expression() {
  static const RegularExpression expression = PythonText::expression(Headings::pattern());
  return expression;
}

std::vector<Headings::Match> scannedMatches(std::string_view text) {
  std::vector<Headings::Match> matches;
  for (auto match = Headings::find(text); match; match = Headings::find(text, match->whole.end))
    matches.push_back(*match);
  return matches;
}

void checkAgainstTheExpression(const std::string& text) {
  const RegexFindAll found = expression().findAll(text);
  ASSERT_TRUE(found.isComplete);
  std::vector<Headings::Match> expected;
  Texts expectedTexts;
  for (const RegexMatch& match : found.matches) {
    expected.push_back({.whole = match.range(), .text = *match.group(1)});
    expectedTexts.emplace_back(match.group(1)->in(text));
  }
  ASSERT_EQ(scannedMatches(text) == expected, true) << testing::PrintToString(text);
  ASSERT_EQ(headings(text), expectedTexts) << testing::PrintToString(text);
}

TEST(Headings, AreThoseOfTheExpressionInEveryShortText) {
  ASSERT_TRUE(expression().isValid());
  ASSERT_EQ(expression().groupCount(), 1U);
  forEveryText({"#", " ", "\n", "a"}, 7, checkAgainstTheExpression);
  forEveryText({"#", "\t", "\n", "\r", "\u2003", "\u00E9", "\xE2\x80"}, 4, checkAgainstTheExpression);
}

TEST(Headings, AreThoseOfTheExpressionInRandomTexts) {
  std::mt19937 random(20260312);
  const Texts often = {"#", "#", " ", " ", "\n", "\n", "a", "\n# "};
  const Texts various = {"#",      "##",     "# ",     "\n",   "\n#",  "\n## ",  " ",    "\t",     "\r",   "\x1C",
                         "\u0085", "\u00A0", "\u2028", "word", "\xE2", "\uD55C", "\xF0", "\u3000", "#\n#", {"\0", 1}};
  for (int round = 0; round < 3000; ++round) {
    ASSERT_NO_FATAL_FAILURE(checkAgainstTheExpression(randomText(often, random() % 40, random))) << "round " << round;
    ASSERT_NO_FATAL_FAILURE(checkAgainstTheExpression(randomText(various, random() % 60, random))) << "round " << round;
  }
}

TEST(Headings, AreFoundFromAnyByteOnAsByTheExpression) {
  std::mt19937 random(20260313);
  const Texts units = {"#", "# ", "\n", " ", "a", "\u2003"};
  for (int round = 0; round < 300; ++round) {
    const std::string text = randomText(units, random() % 20, random);
    for (std::size_t from = 0; from <= text.size(); ++from) {
      if (from < text.size() && (static_cast<unsigned char>(text[from]) & 0xC0) == 0x80) continue;
      const RegexFind found = expression().find(text, from);
      const auto match = Headings::find(text, from);
      ASSERT_EQ(match.has_value(), found.match.has_value()) << testing::PrintToString(text) << " from " << from;
      if (!match) continue;
      ASSERT_EQ(match->whole, found.match->range()) << testing::PrintToString(text) << " from " << from;
    }
  }
}

}  // namespace
}  // namespace tessary
