#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SourceLiterals.h"

namespace tessary {
namespace {

std::vector<std::string> texts(std::string_view source) {
  std::vector<std::string> all;
  for (const SourceLiteral& literal : sourceLiterals(source))
    all.push_back(literal.text);
  return all;
}

TEST(SourceLiterals, AreFoundInTheirOrderWithTheirLines) {
  const auto literals = sourceLiterals("a(\"one\");\n\nb(\"둘\", \"\");");
  ASSERT_EQ(literals.size(), 3U);
  EXPECT_EQ(literals[0], (SourceLiteral{.text = "one", .line = 1}));
  EXPECT_EQ(literals[1], (SourceLiteral{.text = "둘", .line = 3}));
  EXPECT_EQ(literals[2], (SourceLiteral{.text = "", .line = 3}));
}

TEST(SourceLiterals, AreNotFoundInComments) {
  EXPECT_THAT(texts("// \"no\"\n/* \"no\"\n\"no\" */ x = \"yes\"; // \"no\""), testing::ElementsAre("yes"));
  EXPECT_THAT(texts("x = \"http://y\"; /* \"no\""), testing::ElementsAre("http://y"));
}

TEST(SourceLiterals, AreNotOpenedByCharactersOrDigitSeparators) {
  EXPECT_THAT(texts(R"(a = '"'; b = '\''; c = 1'000; d = "yes";)"), testing::ElementsAre("yes"));
}

TEST(SourceLiterals, HaveTheirEscapesResolved) {
  EXPECT_THAT(texts(R"(a = "\"\\\n\t\0" "";)"), testing::ElementsAre(std::string("\"\\\n\t\0", 5)));
  EXPECT_THAT(texts(R"(a = "\u2018x\u00b7\xEA\xB0\x80")"), testing::ElementsAre("‘x·가"));
}

TEST(SourceLiterals, MayBeRawOrHaveAPrefix) {
  EXPECT_THAT(texts("R\"(a\\n\")\" + R\"x(b)\")x\""), testing::ElementsAre("a\\n\"", "b)\""));
  EXPECT_THAT(texts("u8\"a\" + U\"b\" + u8R\"(c)\" + \"d\"sv"), testing::ElementsAre("a", "b", "c", "d"));
}

TEST(SourceLiterals, NextToEachOtherAreOne) {
  EXPECT_THAT(texts("f(\"가 \"  // and\n  \"나\", \"다\")"), testing::ElementsAre("가 나", "다"));
}

TEST(SourceLiterals, KnowWhatTheyStandBehind) {
  const auto literals = sourceLiterals("#include \"a.h\"\n#include \"b.h\"\nx = L10n::text(\n  \"가\", {\"나\"});");
  ASSERT_EQ(literals.size(), 4U);
  EXPECT_TRUE(literals[0].isInclude);
  EXPECT_TRUE(literals[1].isInclude);
  EXPECT_TRUE(literals[2].isTranslated);
  EXPECT_FALSE(literals[2].isInclude);
  EXPECT_FALSE(literals[3].isTranslated);
}

TEST(SourceLiterals, EndWithTheSource) {
  for (const std::string_view source : {"\"a", "\"a\\", "R\"(a", "R\"", "'", "u8", "/*", "1'", "\"\\u", "\"\\x"})
    EXPECT_LE(sourceLiterals(source).size(), 1U) << source;
}

}  // namespace
}  // namespace tessary
