#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/SentenceExpression.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "support/Texts.h"

namespace tessary {
namespace {

using ::testing::ElementsAre;
using testing::repeated;

using Groups = std::optional<std::vector<std::string>>;

Groups match(std::vector<std::string> literals, std::string_view text) {
  const SentenceExpression expression(std::move(literals));
  const StoredSentence sentence(text);
  const std::optional<std::vector<ByteRange>> ranges = expression.match(sentence);
  if (!ranges) return std::nullopt;
  std::vector<std::string> groups;
  for (const ByteRange& range : *ranges)
    groups.emplace_back(range.in(text));
  return groups;
}

/// The authority: ICU, run on the expression itself. A search that gave up fails the test.
Groups matchOfICU(const RegularExpression& expression, std::string_view text) {
  EXPECT_TRUE(expression.isValid());
  const RegexFind found = expression.find(text);
  EXPECT_TRUE(found.isComplete) << text.size();
  if (!found.match) return std::nullopt;
  std::vector<std::string> groups;
  for (std::size_t group = 1; group <= expression.groupCount(); ++group)
    groups.emplace_back(found.match->group(group)->in(text));
  return groups;
}

TEST(SentenceExpression, StandsForAnExpressionOfICU) {
  EXPECT_EQ(SentenceExpression({"Moved ", " to ", "."}).pattern(), R"(^Moved (.{0,2048}?) to (.{0,2048}?)\.$)");
  EXPECT_EQ(SentenceExpression({"", ""}).pattern(), "^(.{0,2048}?)$");
  EXPECT_EQ(SentenceExpression({"(a)"}).pattern(), R"(^\(a\)$)");
}

TEST(SentenceExpression, FindsTheTextsBetweenItsLiterals) {
  EXPECT_EQ(match({"Moved ", " to ", "."}, "Moved a to b."), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(match({"Moved ", " to ", "."}, "Moved  to ."), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(match({"Moved ", " to ", "."}, "Moved a to b"), std::nullopt);
  EXPECT_EQ(match({"Moved ", " to ", "."}, "Moved to."), std::nullopt);
}

TEST(SentenceExpression, GivesTheFirstGroupAsLittleAsItCan) {
  EXPECT_EQ(match({"a ", " to ", ""}, "a b to c to d"), (std::vector<std::string>{"b", "c to d"}));
  EXPECT_EQ(match({"", "", ""}, "ab"), (std::vector<std::string>{"", "ab"}));
}

TEST(SentenceExpression, LooksBehindTheNearestLiteralWhereTheRestIsOutOfReach) {
  // The first " to " leaves more than a group can hold.
  const std::string text = "a b to " + repeated("c", 1000) + " to " + repeated("d", 1045);
  EXPECT_EQ(match({"a ", " to ", ""}, text),
            (std::vector<std::string>{"b to " + repeated("c", 1000), repeated("d", 1045)}));
  EXPECT_EQ(match({"a ", " to ", ""}, "a b to " + repeated("c", 1000) + " to " + repeated("d", 1044)),
            (std::vector<std::string>{"b", repeated("c", 1000) + " to " + repeated("d", 1044)}));
}

TEST(SentenceExpression, LetsLiteralsNotOverlap) {
  EXPECT_EQ(match({"aba", "aba"}, "ababa"), std::nullopt);
  EXPECT_EQ(match({"aba", "aba"}, "abaaba"), std::vector<std::string>{""});
}

TEST(SentenceExpression, HoldsAtMost2048ScalarsInAGroup) {
  for (const std::string_view unit : {"x", "é", "한", "😀"}) {
    EXPECT_EQ(match({"<", ">"}, "<" + repeated(unit, 2047) + ">"), std::vector<std::string>{repeated(unit, 2047)});
    EXPECT_EQ(match({"<", ">"}, "<" + repeated(unit, 2048) + ">"), std::vector<std::string>{repeated(unit, 2048)});
    EXPECT_EQ(match({"<", ">"}, "<" + repeated(unit, 2049) + ">"), std::nullopt);
  }
}

TEST(SentenceExpression, HoldsNoLineEndInAGroup) {
  for (const std::string_view lineEnd : {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029", "\r\n"})
    EXPECT_EQ(match({"<", ">"}, "<a" + std::string(lineEnd) + "b>"), std::nullopt);
  EXPECT_EQ(match({"<", ">"}, "<\t\x1C\u2027>"), std::vector<std::string>{"\t\x1C\u2027"});
}

TEST(SentenceExpression, MayEndInFrontOfALineEnd) {
  for (const std::string_view lineEnd : {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029", "\r\n"}) {
    EXPECT_EQ(match({"<", ">"}, "<a>" + std::string(lineEnd)), std::vector<std::string>{"a"});
    EXPECT_EQ(match({"<", ""}, "<a" + std::string(lineEnd)), std::vector<std::string>{"a"});
    EXPECT_EQ(match({"a"}, "a" + std::string(lineEnd)), std::vector<std::string>{});
    EXPECT_EQ(match({"<", ">"}, "<a>" + std::string(lineEnd) + "\n\n"), std::nullopt);
  }
  EXPECT_EQ(match({"<", "\n"}, "<a\n"), std::vector<std::string>{"a"});
  EXPECT_EQ(match({"<", "\n"}, "<a\n\n"), std::vector<std::string>{"a"});
}

TEST(SentenceExpression, AnswersAsICUDoesOverAllShortSentences) {
  constexpr std::array<std::string_view, 4> literals{"", "a", "ab", "\n"};
  constexpr std::array<std::string_view, 4> units{"a", "b", "\n", "\r"};
  std::vector<std::string> sentences{""};
  for (std::size_t start = 0, length = 0; length < 5; ++length) {
    const std::size_t end = sentences.size();
    for (; start < end; ++start)
      for (const std::string_view unit : units)
        sentences.push_back(sentences[start] + std::string(unit));
  }
  for (const std::string_view first : literals) {
    for (const std::string_view second : literals) {
      for (const std::string_view third : literals) {
        const std::vector<std::string> three{std::string(first), std::string(second), std::string(third)};
        const RegularExpression expression(SentenceExpression(three).pattern());
        for (const std::string& sentence : sentences)
          ASSERT_EQ(match(three, sentence), matchOfICU(expression, sentence))
              << ::testing::PrintToString(three) << ::testing::PrintToString(sentence);
      }
    }
  }
}

TEST(SentenceExpression, AnswersAsICUDoesOverRandomSentences) {
  constexpr std::array<std::string_view, 16> units{"a",      "b",      " ", "한", "é",   "😀",  "\n", "\r",
                                                   "\u0085", "\u2028", ".", "(",  "\\E", "{0}", "$",  "\r\n"};
  constexpr std::uint32_t seed = 41;
  std::mt19937 random(seed);
  const auto text = [&](std::size_t longest) {
    std::string made;
    for (std::size_t count = random() % (longest + 1); count > 0; --count)
      made += units[random() % (random() % 2 == 0 ? 6 : units.size())];
    return made;
  };
  for (int round = 0; round < 4000; ++round) {
    std::vector<std::string> literals;
    for (std::size_t count = 1 + random() % 4; count > 0; --count)
      literals.push_back(text(2));
    const RegularExpression expression(SentenceExpression(literals).pattern());
    for (int each = 0; each < 6; ++each) {
      std::string sentence = random() % 8 == 0 ? text(3) : "";
      for (const std::string& literal : literals)
        sentence += literal + text(3);
      ASSERT_EQ(match(literals, sentence), matchOfICU(expression, sentence))
          << "round " << round << ::testing::PrintToString(literals) << ::testing::PrintToString(sentence);
    }
  }
}

TEST(SentenceExpression, AnswersAsICUDoesAroundTheReachOfAGroup) {
  constexpr std::uint32_t seed = 42;
  std::mt19937 random(seed);
  for (int round = 0; round < 200; ++round) {
    const std::vector<std::string> literals{random() % 2 == 0 ? "<" : "", "|", random() % 2 == 0 ? ">" : ""};
    std::string sentence = literals.front();
    for (std::size_t runs = 1 + random() % 4; runs > 0; --runs)
      sentence += repeated(random() % 2 == 0 ? "x" : "é", (random() % 3) * 1024 + random() % 5) + "|";
    sentence += literals.back();
    const RegularExpression expression(SentenceExpression(literals).pattern());
    ASSERT_EQ(match(literals, sentence), matchOfICU(expression, sentence)) << "round " << round;
  }
}

TEST(SentenceExpression, TakesLinearTimeWhereICUBacktracks) {
  const std::vector<std::vector<std::string>> expressions{{"a", "a", "a", "a", "a"},
                                                          {"", "", "", "", "b"},
                                                          {"", "a", "a", "a", "ab"},
                                                          {"", "aaaaaaaaaaaaaaab", "a", ""},
                                                          {"", "\n", "\n", "\n", "b"}};
  for (const auto& literals : expressions) {
    for (const std::string_view unit : {"a", "aaab", "\n", "a\n", "한a"})
      EXPECT_EQ(match(literals, repeated(unit, 200'000)), std::nullopt) << ::testing::PrintToString(literals) << unit;
  }
}

TEST(SentenceExpression, TakesLinearTimeWhereItMatches) {
  // Every second byte is a place of the literal, and each group holds as much as it can.
  std::vector<std::string> literals(40, "-");
  std::string sentence = "-";
  for (std::size_t group = 1; group < literals.size(); ++group)
    sentence += repeated("x-", 1024);
  const std::optional<std::vector<std::string>> groups = match(literals, sentence);
  ASSERT_TRUE(groups.has_value());
  EXPECT_EQ(groups->front(), repeated("x-", 1023) + "x");
}

}  // namespace
}  // namespace tessary
