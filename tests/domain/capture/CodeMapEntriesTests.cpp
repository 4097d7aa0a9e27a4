#include <algorithm>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CodeMapEntries.h"
#include "TessaryPlatform/text/RegularExpression.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

std::size_t countAll(std::string_view text) {
  return CodeMapEntries::count(text, noLimit);
}

TEST(CodeMapEntries, AreListItemsThatBeginWithAPathToASource) {
  for (const std::string folder : {"Projects", "Sources", "Scripts", "Tests"})
    EXPECT_EQ(countAll("- `" + folder + "/a.cpp` does it"), 1U) << folder;
  EXPECT_EQ(countAll("- `Sources/a`\n  - `Tests/b`\n"), 2U);
  EXPECT_EQ(countAll("- `Sources/a` and - `Tests/b`"), 1U) << "an item begins its line";
  for (const std::string text : {"- `Sources/`", "- `Sources/a", "- `sources/a`", "- `Source/a`", "* `Sources/a`",
                                 "-  `Sources/a`", "x - `Sources/a`", "- Sources/a", "- `Sources`", ""})
    EXPECT_EQ(countAll(text), 0U) << text;
}

TEST(CodeMapEntries, StopAtTheLimit) {
  const std::string text = "- `Sources/a`\n- `Sources/b`\n- `Sources/c`\n";
  EXPECT_EQ(CodeMapEntries::count(text, 0), 0U);
  EXPECT_EQ(CodeMapEntries::count(text, 2), 2U);
  EXPECT_EQ(CodeMapEntries::count(text, 3), 3U);
  EXPECT_EQ(CodeMapEntries::count(text, 4), 3U);
}

void checkAgainstTheExpression(const std::string& text) {
  static const RegularExpression expression = PythonText::expression(CodeMapEntries::pattern());
  ASSERT_TRUE(expression.isValid());
  const RegexFindAll found = expression.findAll(text);
  ASSERT_TRUE(found.isComplete);
  ASSERT_EQ(countAll(text), found.matches.size()) << testing::PrintToString(text);
  for (std::size_t limit = 0; limit < 3; ++limit)
    ASSERT_EQ(CodeMapEntries::count(text, limit), std::min(limit, found.matches.size()))
        << testing::PrintToString(text);
}

TEST(CodeMapEntries, AreThoseOfTheExpressionInEveryShortText) {
  forEveryText({"- `Tests/", "`", "\n", " ", "a", "- `"}, 6, checkAgainstTheExpression);
}

TEST(CodeMapEntries, AreThoseOfTheExpressionInRandomTexts) {
  std::mt19937 random(20260321);
  const std::vector<std::string> units = {
      "- `", "Projects/", "Sources/", "Scripts/", "Tests/", "- `Sources/", "`",    "`\n",  "\n",           "\n  ",
      " ",   "\t",        "\u2028",   "\u00A0",   "- ",     "a",           "\r\n", "\xFF", "- `Tests/a`\n"};
  for (int round = 0; round < 10000; ++round)
    ASSERT_NO_FATAL_FAILURE(checkAgainstTheExpression(randomText(units, random() % 30, random))) << "round " << round;
}

}  // namespace
}  // namespace tessary
