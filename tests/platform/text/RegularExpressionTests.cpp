#include <random>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/regex.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

using testing::ElementsAre;

static_assert(!std::is_copy_constructible_v<RegularExpression>);
static_assert(std::is_nothrow_move_constructible_v<RegularExpression>);

std::vector<std::string> found(const RegularExpression& expression, std::string_view text) {
  std::vector<std::string> pieces;
  for (const RegexMatch& match : expression.findAll(text).matches)
    pieces.emplace_back(match.range().in(text));
  return pieces;
}

TEST(RegularExpression, FindsTheFirstMatchFromAPosition) {
  const RegularExpression digits(R"(\d+)");
  const RegexSubject subject("a12 b345");
  EXPECT_EQ(digits.find(subject).match->range(), (ByteRange{1, 3}));
  EXPECT_EQ(digits.find(subject, 2).match->range(), (ByteRange{2, 3}));
  EXPECT_EQ(digits.find(subject, 3).match->range(), (ByteRange{5, 8}));
  EXPECT_EQ(digits.find(subject, 8).match, std::nullopt);
  EXPECT_TRUE(digits.find(subject, 8).isComplete);
  EXPECT_EQ(digits.find(subject, 99).match, std::nullopt);
}

/// A caller that steps one byte on behind an empty match comes to an end.
TEST(RegularExpression, FindsNothingBehindTheEndAlsoNothingEmpty) {
  const RegularExpression any("a*");
  for (const std::string text : {"", "ba", "\uD55C"}) {
    EXPECT_EQ(any.find(text, text.size()).match->range(), (ByteRange{text.size(), text.size()}));
    EXPECT_EQ(any.matchPrefix(text, text.size()).match->range(), (ByteRange{text.size(), text.size()}));
    EXPECT_EQ(any.find(text, text.size() + 1).match, std::nullopt);
    EXPECT_EQ(any.matchPrefix(text, text.size() + 1).match, std::nullopt);
    EXPECT_TRUE(any.find(text, text.size() + 1).isComplete);
  }
}

TEST(RegularExpression, StartsBehindTheScalarThatThePositionLiesIn) {
  const RegularExpression any(".");
  for (std::size_t from = 1; from <= 4; ++from)
    EXPECT_EQ(any.find("\U0001F600b\u00E9", from).match->range(), (ByteRange{4, 5})) << from;
  EXPECT_EQ(any.find("\U0001F600b\u00E9", 6).match, std::nullopt);
}

TEST(RegularExpression, GivesRangesInBytesOfTheText) {
  const RegularExpression word(R"(b+)");
  EXPECT_EQ(word.find("한글 \U0001F600bb").match->range(), (ByteRange{11, 13}));
  EXPECT_EQ(word.find("한글 \U0001F600bb", 12).match->range(), (ByteRange{12, 13}));
  EXPECT_EQ(RegularExpression(".").find("\U0001F600").match->range(), (ByteRange{0, 4})) << "a scalar, not a unit";
}

TEST(RegularExpression, TellsGroupsThatTookPartFromOthers) {
  const RegularExpression either(R"((a)|(b)|(c*)$)");
  EXPECT_EQ(either.groupCount(), 3U);
  const RegexMatch match = *either.find("xb").match;
  EXPECT_EQ(match.group(0), (ByteRange{1, 2}));
  EXPECT_EQ(match.group(1), std::nullopt);
  EXPECT_EQ(match.group(2), (ByteRange{1, 2}));
  EXPECT_EQ(match.group(3), std::nullopt);
  EXPECT_EQ(match.group(4), std::nullopt);
  EXPECT_EQ(either.find("x").match->group(3), (ByteRange{1, 1})) << "empty, and yet it took part";
}

TEST(RegularExpression, SearchingFromAPositionKnowsTheTextBeforeIt) {
  EXPECT_EQ(RegularExpression("(?<!x)y").find("xyy", 1).match->range(), (ByteRange{2, 3}));
  EXPECT_EQ(RegularExpression("^y").find("xy", 1).match, std::nullopt);
  EXPECT_EQ(RegularExpression(R"(\by)").find("xy", 1).match, std::nullopt);
}

TEST(RegularExpression, MatchingAPrefixTakesThePositionForTheBeginning) {
  EXPECT_EQ(RegularExpression("^y").matchPrefix("xy", 1).match->range(), (ByteRange{1, 2}));
  EXPECT_EQ(RegularExpression(R"(\by)").matchPrefix("xy", 1).match->range(), (ByteRange{1, 2}));
  EXPECT_EQ(RegularExpression("^y").matchPrefix("xy").match, std::nullopt);
  EXPECT_EQ(RegularExpression("y").matchPrefix("xy").match, std::nullopt);
  EXPECT_EQ(RegularExpression("y*").matchPrefix("xy", 2).match->range(), (ByteRange{2, 2}));
  EXPECT_EQ(RegularExpression("(?<!x)y").matchPrefix("xyy", 1).match, std::nullopt)
      << "ICU's look-behind reads across the bounds of a region, opaque or not";
}

TEST(RegularExpression, MatchesTheWholeTextOrNothing) {
  const RegularExpression date("[0-9]{4}|[0-9]{4}-[0-9]{2}");
  EXPECT_EQ(date.matchWhole("2024-05").match->range(), (ByteRange{0, 7})) << "the second alternative is tried too";
  EXPECT_EQ(date.matchWhole("2024-05\n").match, std::nullopt);
  EXPECT_EQ(date.matchWhole("").match, std::nullopt);
}

TEST(RegularExpression, FindsAllMatchesAlsoEmptyOnesAndAtMostTheLimit) {
  EXPECT_THAT(found(RegularExpression("a*"), "aab"), ElementsAre("aa", "", ""));
  EXPECT_THAT(found(RegularExpression("[ㄱ-힣]+"), "한글 and 글"), ElementsAre("한글", "글"));
  const RegularExpression any(".");
  EXPECT_EQ(any.findAll("abc", 2).matches.size(), 2U);
  EXPECT_EQ(any.findAll("abc", 3).matches.size(), 3U);
  EXPECT_EQ(any.findAll("abc", 4).matches.size(), 3U);
  EXPECT_EQ(any.findAll("abc", 0).matches.size(), 0U);
}

TEST(RegularExpression, TakesOptions) {
  EXPECT_EQ(RegularExpression("^b$").find("a\nb\nc").match, std::nullopt);
  EXPECT_EQ(RegularExpression("^b$", RegularExpression::anchorsMatchLines).find("a\nb\nc").match->range(),
            (ByteRange{2, 3}));
  EXPECT_EQ(RegularExpression("a.b").find("a\nb").match, std::nullopt);
  EXPECT_TRUE(RegularExpression("a.b", RegularExpression::dotMatchesLineEnds).find("a\nb").match);
  EXPECT_TRUE(RegularExpression("^a.b$", RegularExpression::dotMatchesLineEnds | RegularExpression::anchorsMatchLines)
                  .find("x\na\nb\nx")
                  .match);
}

TEST(RegularExpression, ThatDoesNotCompileFindsNothing) {
  for (const char* pattern :
       {"(", "[", "a{2,1}", "\\", "(?<n>a)(?<n>b)", "*", "(?<=a*)b", "\\2(a)", "[[:nonsense:]]"}) {
    const RegularExpression broken(pattern);
    EXPECT_FALSE(broken.isValid()) << pattern;
    EXPECT_EQ(broken.groupCount(), 0U);
    EXPECT_EQ(broken.find("(").match, std::nullopt);
    EXPECT_TRUE(broken.find("(").isComplete);
    EXPECT_EQ(broken.matchPrefix("(").match, std::nullopt);
    EXPECT_EQ(broken.matchWhole("(").match, std::nullopt);
    EXPECT_TRUE(broken.findAll("(").matches.empty());
    EXPECT_EQ(broken.replaceAll("text", "x").text, "text");
  }
}

TEST(RegularExpression, MayBeMoved) {
  RegularExpression first("a");
  RegularExpression second(std::move(first));
  EXPECT_TRUE(second.find("ba").match);
  RegularExpression third("b");
  third = std::move(second);
  EXPECT_EQ(third.find("ba").match->range(), (ByteRange{1, 2}));
}

TEST(RegularExpression, ReplacesByATemplate) {
  const RegularExpression link(R"(\[([^\]]*)\]\(([^)]*)\))");
  EXPECT_EQ(link.replaceAll("a [b](c) [é](d)!", "$1").text, "a b é!");
  EXPECT_EQ(link.replaceAll("[b](c)", "$2-$1-$0").text, "c-b-[b](c)");
  EXPECT_EQ(link.replaceAll("[b](c)", "$12").text, "b2") << "there is no group 12";
  EXPECT_EQ(link.replaceAll("[b](c)", "<$9>").text, "<>");
  EXPECT_EQ(link.replaceAll("[b](c)", "$01$00").text, "b[b](c)") << "a leading zero does not end the number";
  EXPECT_EQ(link.replaceAll("[b](c)", R"(\$1\\ $ $x \é)").text, R"($1\ $ $x é)");
  EXPECT_EQ(link.replaceAll("[b](c)", "\\").text, "\\");
  EXPECT_EQ(link.replaceAll("[b](c)", "$").text, "$");
  EXPECT_EQ(link.replaceAll("none", "$1").text, "none");
  EXPECT_EQ(RegularExpression("(a)|b").replaceAll("ab", "<$1>").text, "<a><>") << "a group without a part is empty";
  EXPECT_EQ(RegularExpression("").replaceAll("ab", "-").text, "-a-b-");
}

TEST(RegularExpression, LeavesMalformedBytesAroundAMatchAsTheyWere) {
  EXPECT_EQ(RegularExpression("a")
                .replaceAll("\xFF"
                            "a\xE1\x80"
                            "a",
                            "b")
                .text,
            "\xFF"
            "b\xE1\x80"
            "b");
  EXPECT_EQ(RegularExpression("\\x{FFFD}").find("a\xE1\x80z").match->range(), (ByteRange{1, 3}));
}

TEST(RegularExpression, EscapesALiteral) {
  std::string ascii;
  for (char byte = 1; byte < 0x7F; ++byte)
    ascii.push_back(byte);
  for (const std::string& literal :
       {ascii, std::string("a.b*[c]"), std::string("é\U0001F600$"), std::string("\\Q\\E")}) {
    const RegularExpression expression(RegularExpression::escaped(literal));
    ASSERT_TRUE(expression.isValid());
    EXPECT_EQ(expression.matchWhole(literal).match->range(), (ByteRange{0, literal.size()}));
    EXPECT_FALSE(expression.matchWhole(literal + "x").match);
  }
  for (char byte = 1; byte < 0x7F; ++byte) {
    const RegularExpression expression("x" + RegularExpression::escaped(std::string(1, byte)) + "z");
    EXPECT_TRUE(expression.matchWhole(std::string("x") + byte + "z").match) << static_cast<int>(byte);
    EXPECT_FALSE(expression.matchWhole("xz").match) << static_cast<int>(byte);
  }
}

TEST(RegularExpression, SaysWhenItGaveUp) {
  // Exponential: each "a" doubles the ways to cut the run.
  const RegularExpression exponential("(a+)+$");
  const std::string hostile = std::string(40, 'a') + "b";
  const RegexFind find = exponential.find(hostile);
  EXPECT_FALSE(find.isComplete);
  EXPECT_EQ(find.match, std::nullopt);
  const RegexReplacement replaced = RegularExpression("x|(a+)+$").replaceAll("x" + hostile, "y");
  EXPECT_FALSE(replaced.isComplete);
  EXPECT_EQ(replaced.text, "y" + hostile) << "what was found before is replaced, the rest stands";
  // Too much to remember: one place to come back to for each character.
  const RegularExpression deep("(?:a|b)*c");
  EXPECT_FALSE(deep.matchPrefix(std::string(4'000'000, 'a')).isComplete);
  EXPECT_TRUE(deep.matchPrefix(std::string(10'000, 'a')).isComplete);
}

/// Each of these would take its text to the square or worse, and some forever: all end, and say so.
TEST(RegularExpression, SaysThatItGaveUpOnEveryKindOfBacktracking) {
  const std::string run(65'536, 'a');
  for (const char* pattern : {"(a+)+$", "(a|a)*$", "(?:a|b)*c", "a[^b]*b", "a[^b]*+b", "a.*b", ".*.*=.*", "(?=.*+b)a",
                              "([a-z]+)*=", "(?:a*)*c"}) {
    const RegularExpression expression(pattern);
    ASSERT_TRUE(expression.isValid()) << pattern;
    const RegexFind find = expression.find(run + "-");
    EXPECT_FALSE(find.isComplete) << pattern;
    EXPECT_EQ(find.match, std::nullopt) << pattern;
    EXPECT_FALSE(expression.findAll(run + "-").isComplete) << pattern;
  }
}

TEST(RegularExpression, GivesLongTextTheTimeThatItNeeds) {
  const RegularExpression word(R"((?<!\w)\w{2,5}+(?!\w))");
  std::string text;
  for (int index = 0; index < 300'000; ++index)
    text += "word ";
  const RegexFindAll all = word.findAll(text);
  EXPECT_TRUE(all.isComplete);
  EXPECT_EQ(all.matches.size(), 300'000U);
}

TEST(RegularExpression, IsSharedBetweenThreads) {
  const RegularExpression shared(R"((\w+)@(\w+))");
  const RegexSubject subject("mail to someone@example now");
  std::vector<std::thread> threads;
  std::vector<int> wrong(8);
  for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
    threads.emplace_back([&, thread] {
      for (int round = 0; round < 2000; ++round)
        wrong[thread] += shared.find(subject).match->group(2) == ByteRange{16, 23} ? 0 : 1;
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(wrong, std::vector<int>(wrong.size()));
}

std::string randomText(std::mt19937& random) {
  static const std::vector<std::string> alphabet = {
      "a",      "b",          "1",    "22",       " ",
      "\n",     "\r",         "é",    "\u4E2D",   "\uD55C",
      "\u0301", "\U0001F600", "\xFF", "\xE1\x80", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"};
  std::string text;
  for (std::size_t pieces = random() % 60; pieces > 0; --pieces)
    text += alphabet[random() % alphabet.size()];
  return text;
}

/// ICU itself on the repaired text, and positions turned into bytes by counting.
TEST(RegularExpression, AgreesWithICUOnRandomText) {
  const std::vector<std::string> patterns = {
      "a+", "(a)|(\\d+)(?=\\s|$)", "\\b\\w",   "[^a-z]*", "(?<=a)b*", "\\X", "\\s+", "(?m)^.*$",
      ".",  "(\\p{L})\\1",         "\\x{FFFD}"};
  std::mt19937 random(77);
  for (int round = 0; round < 400; ++round) {
    const std::string text = randomText(random);
    const RegexSubject subject(text);
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(repairedUTF8(text));
    for (const std::string& pattern : patterns) {
      UErrorCode status = U_ZERO_ERROR;
      icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(pattern), units, 0, status);
      std::vector<std::string> expected;
      while (matcher.find(status)) {
        std::string piece;
        matcher.group(status).toUTF8String(piece);
        expected.push_back(piece);
      }
      std::vector<std::string> pieces = found(RegularExpression(pattern), text);
      for (std::string& piece : pieces)
        piece = repairedUTF8(piece);
      ASSERT_EQ(pieces, expected) << pattern << " in " << testing::PrintToString(text);
      if (pattern.find('(') == 0) continue;
      std::string replaced;
      matcher.replaceAll(u"<$0\\$>", status).toUTF8String(replaced);
      ASSERT_EQ(repairedUTF8(RegularExpression(pattern).replaceAll(subject, "<$0\\$>").text), replaced) << pattern;
    }
  }
}

TEST(RegexSubject, TurnsUnitsIntoBytesAndBack) {
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    const std::string text = randomText(random);
    const RegexSubject subject(text);
    ASSERT_EQ(subject.units(), toUTF16(text));
    std::size_t unit = 0;
    const ScalarView scalars(text);
    for (auto scalar = scalars.begin(); scalar != scalars.end(); ++scalar) {
      ASSERT_EQ(subject.byteOffset(unit), scalar.position());
      ASSERT_EQ(subject.unitOffset(scalar.position()), unit);
      unit += *scalar < 0x10000 ? 1U : 2U;
    }
    ASSERT_EQ(subject.byteOffset(unit), text.size());
    ASSERT_EQ(subject.unitOffset(text.size()), unit);
    ASSERT_EQ(subject.unitOffset(text.size() + 9), unit);
  }
}

}  // namespace
}  // namespace tessary
