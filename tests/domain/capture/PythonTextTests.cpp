#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonText.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PythonText, StripsItsOwnWhiteSpaceAndNotTheByteOrderMark) {
  EXPECT_EQ(PythonText::strip("\u001Ca\u0085"), "a");
  EXPECT_EQ(PythonText::strip("\uFEFFa"), "\uFEFFa");
  EXPECT_EQ(PythonText::strip("\u3000\t a b \u2029"), "a b");
  EXPECT_EQ(PythonText::strip(" \u2003\n"), "");
  EXPECT_EQ(PythonText::strip(""), "");
}

TEST(PythonText, StripsOnlyTheStart) {
  EXPECT_EQ(PythonText::stripStart("\u3000\x1F a \n"), "a \n");
  EXPECT_EQ(PythonText::stripStart("\u2003 "), "");
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
  EXPECT_THAT(PythonText::splitlines(""), IsEmpty());
}

TEST(PythonText, NormalisesPaths) {
  EXPECT_EQ(PythonText::normpath("//a/../b"), "//b");
  EXPECT_EQ(PythonText::normpath("/.."), "/");
  EXPECT_EQ(PythonText::normpath("../a/.."), "..");
  EXPECT_EQ(PythonText::normpath("a/.."), ".");
  EXPECT_EQ(PythonText::normpath("///a/./b/"), "/a/b");
  EXPECT_EQ(PythonText::normpath("//a//b"), "//a/b");
  EXPECT_EQ(PythonText::normpath(""), ".");
}

}  // namespace
}  // namespace tessary
