#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

/// The rule with an output list, and without the shortcut for clean paths.
std::string slowNormpath(std::string_view text) {
  if (text.empty()) return ".";
  const auto [root, rest] = PythonPath::splitRoot(text);
  std::vector<std::string_view> output;
  for (const std::string_view piece : PythonText::components(rest, '/')) {
    if (piece.empty() || piece == ".") continue;
    if (piece != "..") {
      output.push_back(piece);
    } else if ((root.empty() && output.empty()) || (!output.empty() && output.back() == "..")) {
      output.push_back(piece);
    } else if (!output.empty()) {
      output.pop_back();
    }
  }
  std::string result(root);
  for (std::size_t index = 0; index < output.size(); ++index) {
    if (index > 0) result += '/';
    result += output[index];
  }
  return result.empty() ? "." : result;
}

bool slowIsNormalAbsolute(std::string_view text) {
  if (text.empty() || text.front() != '/') return false;
  for (const std::string_view component : PythonText::components(text.substr(1), '/')) {
    if (component.empty() || component == "." || component == "..") return false;
  }
  return true;
}

void checkAgainstTheRules(const std::string& text) {
  const std::string expected = slowNormpath(text);
  ASSERT_EQ(PythonText::normpath(text), expected) << testing::PrintToString(text);
  ASSERT_EQ(PythonText::normpath(expected), expected) << testing::PrintToString(text);
  ASSERT_EQ(PythonText::isNormalAbsolute(text), slowIsNormalAbsolute(text)) << testing::PrintToString(text);

  std::string storage = "left over";
  const std::string_view normal = PythonText::normpath(text, storage);
  ASSERT_EQ(normal, expected) << testing::PrintToString(text);
  if (PythonText::isNormalAbsolute(text)) {
    // The shortcut gives back the text itself.
    ASSERT_EQ(expected, text);
    ASSERT_EQ(normal.data(), text.data());
  }
}

TEST(PythonNormpath, AnswersAsCPythonDoes) {
  std::size_t rows = 0;
  for (const PythonVector& vector : readPythonVectors("path.tsv")) {
    if (vector.fields.at(0) != "normpath") continue;
    ++rows;
    EXPECT_EQ(PythonText::normpath(vector.fields.at(1)), vector.fields.at(2))
        << "line " << vector.line << ": " << testing::PrintToString(vector.fields[1]);
  }
  EXPECT_GT(rows, 2000U);
}

TEST(PythonNormpath, FollowsItsRulesForEveryShortPath) {
  std::string text;
  const std::string_view alphabet = "/.a";
  for (std::size_t length = 0; length <= 9; ++length) {
    std::size_t count = 1;
    for (std::size_t place = 0; place < length; ++place)
      count *= alphabet.size();
    for (std::size_t number = 0; number < count; ++number) {
      text.clear();
      for (std::size_t rest = number; text.size() < length; rest /= alphabet.size())
        text.push_back(alphabet[rest % alphabet.size()]);
      ASSERT_NO_FATAL_FAILURE(checkAgainstTheRules(text));
    }
  }
}

TEST(PythonNormpath, TakesDotsAndDoubleDotsOut) {
  EXPECT_EQ(PythonText::normpath("//a/../b"), "//b");
  EXPECT_EQ(PythonText::normpath("/.."), "/");
  EXPECT_EQ(PythonText::normpath("../a/.."), "..");
  EXPECT_EQ(PythonText::normpath("../../a/../.."), "../../..");
  EXPECT_EQ(PythonText::normpath("a/.."), ".");
  EXPECT_EQ(PythonText::normpath("a/../../b"), "../b");
  EXPECT_EQ(PythonText::normpath("///a/./b/"), "/a/b");
  EXPECT_EQ(PythonText::normpath("//a//b"), "//a/b");
  EXPECT_EQ(PythonText::normpath(""), ".");
}

TEST(PythonNormpath, KnowsACleanAbsolutePath) {
  EXPECT_TRUE(PythonText::isNormalAbsolute("/a"));
  EXPECT_TRUE(PythonText::isNormalAbsolute("/..."));
  EXPECT_TRUE(PythonText::isNormalAbsolute("/.a/b../\xFF"));
  for (const char* const text :
       {"", "/", "a", "//a", "/a/", "/a//b", "/.", "/..", "/a/./b", "/a/../b", "/a/.", "/a/.."})
    EXPECT_FALSE(PythonText::isNormalAbsolute(text)) << text;
}

TEST(PythonNormpath, TakesAMillionComponentsAndTakesThemBack) {
  std::string down;
  std::string up;
  for (int count = 0; count < 500'000; ++count) {
    down += "a/";
    up += "../";
  }
  EXPECT_EQ(PythonText::normpath(down + up), ".");
  EXPECT_EQ(PythonText::normpath("/" + down + up + up), "/");
  EXPECT_EQ(PythonText::normpath(up).size(), up.size() - 1);
  EXPECT_EQ(PythonText::normpath(std::string(1'000'000, '/')), "/");
}

}  // namespace
}  // namespace tessary
