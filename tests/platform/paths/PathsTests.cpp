#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/paths/Paths.h"

namespace tessary {
namespace {

struct Row {
  std::string_view path;
  std::string_view answer;
};

TEST(Paths, ATildeInFrontStandsForTheHomeFolder) {
  for (const auto& [path, answer] : {
           Row{"~", "/home/me"},
           Row{"~/", "/home/me/"},
           Row{"~/.codex", "/home/me/.codex"},
           Row{"~//a", "/home/me//a"},
           Row{"~other/a", "~other/a"},
           Row{"~~", "~~"},
           Row{"/~", "/~"},
           Row{"a/~", "a/~"},
           Row{" ~", " ~"},
           Row{"/a", "/a"},
           Row{"a", "a"},
           Row{"", ""},
       }) {
    EXPECT_EQ(Paths::expandingTilde(path, "/home/me"), answer) << path;
  }
  EXPECT_EQ(Paths::expandingTilde("~", "/home/me/"), "/home/me/");
  EXPECT_EQ(Paths::expandingTilde("~/a", "/home/me/"), "/home/me/a");
  EXPECT_EQ(Paths::expandingTilde("~/a", "/"), "/a");
  EXPECT_EQ(Paths::expandingTilde("~", ""), "");
}

TEST(Paths, AppendsANameWithOneSlash) {
  EXPECT_EQ(Paths::appending("/home/me", ".codex"), "/home/me/.codex");
  EXPECT_EQ(Paths::appending("/home/me//", ".codex"), "/home/me/.codex");
  EXPECT_EQ(Paths::appending("/", "tmp"), "/tmp");
  EXPECT_EQ(Paths::appending("a", "b/c"), "a/b/c");
  EXPECT_EQ(Paths::appending("", "a"), "a");
}

TEST(Paths, StandardisesByTheTextAlone) {
  for (const auto& [path, answer] : {
           Row{"/", "/"},
           Row{"//", "/"},
           Row{"///", "/"},
           Row{"/.", "/"},
           Row{"/..", "/"},
           Row{"/../..", "/"},
           Row{"/../a", "/a"},
           Row{"/a", "/a"},
           Row{"/a/", "/a"},
           Row{"/a//", "/a"},
           Row{"//a///b", "/a/b"},
           Row{"/a/./b/.", "/a/b"},
           Row{"/a/../b", "/b"},
           Row{"/a/..", "/"},
           Row{"/a/b/..", "/a"},
           Row{"/a/b/../../../c", "/c"},
           Row{"/a/.../b", "/a/.../b"},
           Row{"/a/..b/.c/d..", "/a/..b/.c/d.."},
           Row{"/a b/\xFF", "/a b/\xFF"},
           Row{"/한/../글", "/글"},
           // The operating system's aliases are not its business.
           Row{"/private/var/x/", "/private/var/x"},
       }) {
    EXPECT_EQ(Paths::standardized(path), answer) << path;
  }
  EXPECT_EQ(Paths::standardized(std::string_view("/a\0/../b\0", 9)), std::string("/b\0", 3));
}

TEST(Paths, OnlyAnAbsolutePathCanBeStandardised) {
  for (const std::string_view path : {"", "a", "./a", "../a", "~", "~/a", " /a"}) {
    EXPECT_EQ(Paths::standardized(path), std::nullopt) << path;
  }
}

/// The definition, on a list of components.
std::string standardizedByComponents(const std::string& path) {
  std::vector<std::string> components;
  std::string component;
  for (const char byte : path + "/") {
    if (byte != '/') {
      component += byte;
      continue;
    }
    if (component == "..") {
      if (!components.empty()) components.pop_back();
    } else if (!component.empty() && component != ".") {
      components.push_back(component);
    }
    component.clear();
  }
  std::string result;
  for (const std::string& kept : components)
    result += "/" + kept;
  return result.empty() ? "/" : result;
}

TEST(Paths, StandardisesEveryShortPathAsItsComponentsSay) {
  constexpr std::string_view alphabet = "/.a";
  for (std::size_t length = 0; length <= 9; ++length) {
    std::vector<std::size_t> letters(length, 0);
    while (true) {
      std::string path = "/";
      for (const std::size_t letter : letters)
        path += alphabet[letter];
      const std::string expected = standardizedByComponents(path);
      ASSERT_EQ(Paths::standardized(path), expected) << path;
      ASSERT_EQ(Paths::standardized(expected), expected);
      std::size_t position = 0;
      while (position < length && ++letters[position] == alphabet.size())
        letters[position++] = 0;
      if (position == length) break;
    }
  }
}

TEST(Paths, StandardisesAMillionOfAnyComponent) {
  for (const std::string_view unit : {"/", "/.", "/..", "/a", "/a/..", "/./"}) {
    std::string path;
    while (path.size() < 1'000'000)
      path += unit;
    EXPECT_EQ(Paths::standardized(path), standardizedByComponents(path));
  }
  const std::string deep = [] {
    std::string path;
    for (int count = 0; count < 100'000; ++count)
      path += "/a";
    for (int count = 0; count < 99'999; ++count)
      path += "/..";
    return path;
  }();
  EXPECT_EQ(Paths::standardized(deep), "/a");
}

TEST(Paths, TheHomeFolderComesFromItsVariable) {
  EXPECT_EQ(Paths::homeFolder("/home/me"), "/home/me");
  EXPECT_EQ(Paths::homeFolder("/home/me//"), "/home/me");
  EXPECT_EQ(Paths::homeFolder("/"), "/");
  EXPECT_EQ(Paths::homeFolder("//"), "/");
  EXPECT_EQ(Paths::homeFolder("home"), std::nullopt);
  EXPECT_EQ(Paths::homeFolder(""), std::nullopt);
  EXPECT_EQ(Paths::homeFolder(std::nullopt), std::nullopt);
}

TEST(Paths, TheTemporaryFolderComesFromItsVariable) {
  EXPECT_EQ(Paths::temporaryFolder("/var/folders/ab/T/"), "/var/folders/ab/T");
  EXPECT_EQ(Paths::temporaryFolder("/"), "/");
  EXPECT_EQ(Paths::temporaryFolder("tmp"), "/tmp");
  EXPECT_EQ(Paths::temporaryFolder(""), "/tmp");
  EXPECT_EQ(Paths::temporaryFolder(std::nullopt), "/tmp");
}

TEST(Paths, ReadsTheEnvironment) {
  EXPECT_EQ(Paths::environmentValue("TESSARY_NO_SUCH_VARIABLE"), std::nullopt);
  ASSERT_EQ(::setenv("TESSARY_TEST_VARIABLE", "", 1), 0);
  EXPECT_EQ(Paths::environmentValue("TESSARY_TEST_VARIABLE"), "");
  ASSERT_EQ(::setenv("TESSARY_TEST_VARIABLE", "a b", 1), 0);
  EXPECT_EQ(Paths::environmentValue("TESSARY_TEST_VARIABLE"), "a b");
  ::unsetenv("TESSARY_TEST_VARIABLE");
  EXPECT_EQ(Paths::temporaryFolder(), Paths::temporaryFolder(Paths::environmentValue("TMPDIR")));
  EXPECT_EQ(Paths::homeFolder(), Paths::homeFolder(Paths::environmentValue("HOME")));
}

TEST(Paths, HasALastComponent) {
  for (const auto& [path, answer] : {
           Row{"/a/b", "b"},
           Row{"/a/b//", "b"},
           Row{"a", "a"},
           Row{"a/", "a"},
           Row{"/a", "a"},
           Row{"/", "/"},
           Row{"///", "/"},
           Row{"", ""},
           Row{"/a/.", "."},
           Row{"/a/..", ".."},
           Row{"/a/한글.md", "한글.md"},
       }) {
    EXPECT_EQ(Paths::lastComponent(path), answer) << path;
  }
}

TEST(Paths, HasTheExtensionOfItsLastComponent) {
  for (const auto& [path, answer] : {
           Row{"/a/b.md", "md"},
           Row{"b.txt.MD", "MD"},
           Row{"/a/b.md/", "md"},
           Row{"/a.b/c", ""},
           Row{"/a/.profile", ""},
           Row{".profile.md", "md"},
           Row{"b.", ""},
           Row{"b..", ""},
           Row{"b..md", "md"},
           Row{"..md", ""},
           Row{".", ""},
           Row{"..", ""},
           Row{"/", ""},
           Row{"", ""},
           Row{"b", ""},
           Row{"b.한", "한"},
       }) {
    EXPECT_EQ(Paths::extension(path), answer) << path;
  }
}

}  // namespace
}  // namespace tessary
