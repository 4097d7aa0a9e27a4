#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonPath.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

std::vector<std::string> parentTexts(const PythonPath& path) {
  std::vector<std::string> texts;
  for (const PythonPath& parent : path.parents())
    texts.push_back(parent.string());
  return texts;
}

TEST(PythonPath, AnswersAsCPythonDoesForOnePath) {
  std::size_t rows = 0;
  for (const PythonVector& vector : readPythonVectors("path.tsv")) {
    SCOPED_TRACE("line " + std::to_string(vector.line));
    const std::string& operation = vector.fields.at(0);
    if (operation == "splitroot") {
      const auto [root, rest] = PythonPath::splitRoot(vector.fields.at(1));
      EXPECT_EQ(root, vector.fields.at(2));
      EXPECT_EQ(rest, vector.fields.at(3));
    } else if (operation == "path") {
      const PythonPath path(vector.fields.at(1));
      std::size_t index = 3;
      EXPECT_EQ(path.string(), vector.fields.at(2));
      EXPECT_EQ(path.parts(), vector.list(index));
      EXPECT_EQ(path.name(), vector.fields.at(index));
      EXPECT_EQ(PythonPath::nameOf(vector.fields.at(1)), vector.fields.at(index));
      EXPECT_EQ(path.suffix(), vector.fields.at(index + 1));
      EXPECT_EQ(path.parent().string(), vector.fields.at(index + 2));
      EXPECT_EQ(parentTexts(path), vector.list(index += 3));
      // What a path writes is read as the same path.
      EXPECT_EQ(PythonPath(path.string()), path);
    } else {
      continue;
    }
    ++rows;
  }
  EXPECT_GT(rows, 1000U);
}

TEST(PythonPath, AnswersAsCPythonDoesForTwoPaths) {
  std::size_t rows = 0;
  for (const PythonVector& vector : readPythonVectors("path.tsv")) {
    if (vector.fields.at(0) != "pair") continue;
    ++rows;
    SCOPED_TRACE("line " + std::to_string(vector.line));
    const PythonPath first(vector.fields.at(1));
    const PythonPath second(vector.fields.at(2));
    EXPECT_EQ(first.appending(vector.fields[2]).string(), vector.fields.at(3));
    EXPECT_EQ(first.equals(second), vector.fields.at(4) == "true");
    EXPECT_EQ(first.isParent(second), vector.fields.at(5) == "true");
    EXPECT_EQ(first.contains(second), vector.fields.at(6) == "true");
    std::size_t index = 8;
    const std::vector<std::string> relative = vector.list(index);
    if (vector.fields.at(7) == "true") {
      EXPECT_THAT(first.relativeParts(second), Optional(relative));
    } else {
      EXPECT_EQ(first.relativeParts(second), std::nullopt);
    }
  }
  EXPECT_GT(rows, 1000U);
}

TEST(PythonPath, DropsEmptyComponentsAndDotsAndKeepsDoubleDots) {
  EXPECT_EQ(PythonPath("").string(), ".");
  EXPECT_THAT(PythonPath("./a//b/.").tail(), ElementsAre("a", "b"));
  EXPECT_THAT(PythonPath("a/../b").tail(), ElementsAre("a", "..", "b"));
  EXPECT_THAT(PythonPath("/").parts(), ElementsAre("/"));
  EXPECT_THAT(PythonPath("a\\b").tail(), ElementsAre("a\\b"));
}

TEST(PythonPath, KeepsExactlyTwoLeadingSlashes) {
  EXPECT_EQ(PythonPath("//a").root(), "//");
  EXPECT_EQ(PythonPath("///a").root(), "/");
  EXPECT_EQ(PythonPath::splitRoot("///a").rest, "//a");
  EXPECT_EQ(PythonPath::splitRoot("//").root, "//");
  EXPECT_EQ(PythonPath("//a/b").string(), "//a/b");
}

TEST(PythonPath, TakesTheSuffixFromTheLastDotBehindTheLeadingOnes) {
  EXPECT_EQ(PythonPath("/x/a.tar.gz").suffix(), ".gz");
  EXPECT_EQ(PythonPath(".bashrc").suffix(), "");
  EXPECT_EQ(PythonPath("..a.b").suffix(), ".b");
  EXPECT_EQ(PythonPath("...").suffix(), "");
  EXPECT_EQ(PythonPath("foo.").suffix(), ".");
  EXPECT_EQ(PythonPath("/").suffix(), "");
}

TEST(PythonPath, GoesUpToItsRootAndNoFurther) {
  EXPECT_EQ(PythonPath("/").parent(), PythonPath("/"));
  EXPECT_EQ(PythonPath("").parent(), PythonPath(""));
  const PythonPath path("//a/b");
  EXPECT_THAT(parentTexts(path), ElementsAre("//a", "//"));
  const PythonPath root("/");
  EXPECT_THAT(parentTexts(root), IsEmpty());
  EXPECT_EQ(path.parents()[1].string(), "//");
}

TEST(PythonPath, AppendsARelativePathAndIsReplacedByAnAbsoluteOne) {
  EXPECT_EQ(PythonPath("/a/b").appending("/c").string(), "/c");
  EXPECT_EQ(PythonPath("/a/b").appending("c/./d").string(), "/a/b/c/d");
  EXPECT_EQ(PythonPath("/a").appending("").string(), "/a");
  EXPECT_EQ(PythonPath("/a").appending("//c").string(), "//c");
}

TEST(PythonPath, ContainsItselfAndIsNoParentOfItself) {
  const PythonPath path("/a");
  EXPECT_TRUE(path.contains(PythonPath("/a")));
  EXPECT_FALSE(path.isParent(PythonPath("/a")));
  EXPECT_TRUE(path.isParent(PythonPath("/a/b")));
  EXPECT_FALSE(path.contains(PythonPath("//a/b")));
  EXPECT_FALSE(path.contains(PythonPath("/ab")));
  EXPECT_THAT(path.relativeParts(path), Optional(IsEmpty()));
}

TEST(PythonPath, ComparesScalarsWithoutNormalisation) {
  EXPECT_FALSE(PythonPath("/\u00E9").equals(PythonPath("/e\u0301")));
  EXPECT_FALSE(PythonPath("/A").equals(PythonPath("/a")));
}

TEST(PythonPath, KeepsBytesThatAreNoText) {
  const PythonPath path("/\xFF\xC3/a.\xE2\x80");
  EXPECT_EQ(path.string(), "/\xFF\xC3/a.\xE2\x80");
  EXPECT_EQ(path.suffix(), ".\xE2\x80");
}

TEST(PythonPath, GivesItsOwnTextOutOfATemporary) {
  const std::string name = PythonPath("/folder/a-name-too-long-to-be-held-inside-the-string.markdown").name();
  EXPECT_EQ(name, "a-name-too-long-to-be-held-inside-the-string.markdown");
  const std::string suffix = PythonPath("/a.a-suffix-too-long-to-be-held-inside-the-string").suffix();
  EXPECT_EQ(suffix, ".a-suffix-too-long-to-be-held-inside-the-string");
}

TEST(PythonPath, FindsTheNameOfATextWithoutParsingIt) {
  for (const std::string text :
       {"", "/", "//", "///", ".", "./.", "a", "a/", "a/.", "a//./", "/..", "a/.b", "/a/./", ".."})
    EXPECT_EQ(PythonPath::nameOf(text), PythonPath(text).name()) << text;
}

TEST(PythonPath, TakesAMillionComponents) {
  std::string text;
  for (int count = 0; count < 1'000'000; ++count)
    text += "/a";
  const PythonPath path(text);
  EXPECT_EQ(path.tail().size(), 1'000'000U);
  EXPECT_EQ(path.parents().size(), 1'000'000U);
  EXPECT_EQ(path.parents()[999'999].string(), "/");
  EXPECT_EQ(path.string(), text);
}

}  // namespace
}  // namespace tessary
