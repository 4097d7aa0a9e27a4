#include <climits>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/paths/Paths.h"
#include "support/TemporaryFolder.h"

namespace tessary {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

/// A folder of its own for each test, which plays the root.
class PathLinks : public ::testing::Test {
 protected:
  void makeFolder(std::string_view path) const { fs::create_directories(at(path)); }
  void makeFile(std::string_view path) const { std::ofstream(at(path)).put('x'); }
  void makeLink(std::string_view path, std::string_view target) const { fs::create_symlink(target, at(path)); }

  [[nodiscard]] std::string resolved(std::string_view path) const { return Paths::resolvingLinks(path, root_); }
  [[nodiscard]] std::string at(std::string_view path) const { return root_ + std::string(path); }

  const TemporaryFolder folder_;
  const std::string root_ = folder_.path();
};

TEST_F(PathLinks, ReplacesLinksByWhatTheyLeadTo) {
  makeFolder("/a/b");
  makeFile("/a/b/file");
  makeLink("/relative", "a/b");
  makeLink("/absolute", "/a");
  makeLink("/a/up", "../a/b");
  makeLink("/chain", "relative/../up");
  makeLink("/dotted", "./a//b/.");
  EXPECT_EQ(resolved("/a/b/file"), "/a/b/file");
  EXPECT_EQ(resolved("/relative"), "/a/b");
  EXPECT_EQ(resolved("/relative/file"), "/a/b/file");
  EXPECT_EQ(resolved("/relative/"), "/a/b");
  EXPECT_EQ(resolved("/absolute/b/file"), "/a/b/file");
  EXPECT_EQ(resolved("/absolute/up/file"), "/a/b/file");
  EXPECT_EQ(resolved("/chain"), "/a/b");
  EXPECT_EQ(resolved("/dotted/file"), "/a/b/file");
}

TEST_F(PathLinks, StandardisesOnTheWay) {
  makeFolder("/a/b");
  EXPECT_EQ(resolved("//a/.//b/../b/"), "/a/b");
  EXPECT_EQ(resolved("/"), "/");
  EXPECT_EQ(resolved("//."), "/");
}

TEST_F(PathLinks, DotsBehindALinkLeadOutOfItsTarget) {
  makeFolder("/a/b");
  makeLink("/link", "a/b");
  EXPECT_EQ(resolved("/link/.."), "/a");
  EXPECT_EQ(Paths::standardized("/link/.."), "/");
}

TEST_F(PathLinks, KeepsWhatDoesNotExist) {
  makeFolder("/a");
  makeFile("/a/file");
  makeLink("/link", "a");
  makeLink("/broken", "a/missing");
  EXPECT_EQ(resolved("/link/missing/x/y"), "/a/missing/x/y");
  EXPECT_EQ(resolved("/broken/x"), "/a/missing/x");
  EXPECT_EQ(resolved("/missing/../link"), "/a");
  EXPECT_EQ(resolved("/a/file/x"), "/a/file/x");
}

TEST_F(PathLinks, NothingLeadsOutOfTheRoot) {
  makeFolder("/a");
  makeLink("/out", "../../../../../../../../etc");
  makeLink("/etc", "/a");
  EXPECT_EQ(resolved("/out"), "/a");
  EXPECT_EQ(resolved("/../../etc"), "/a");
  EXPECT_EQ(Paths::resolvingLinks("/etc", root_ + "//"), "/a");
}

TEST_F(PathLinks, FollowsAtMost40Links) {
  static_assert(Paths::maximumLinks == 40);
  makeFile("/0");
  for (int count = 1; count <= 42; ++count)
    makeLink("/" + std::to_string(count), std::to_string(count - 1));
  EXPECT_EQ(resolved("/39"), "/0");
  EXPECT_EQ(resolved("/40"), "/0");
  EXPECT_EQ(resolved("/41"), "/41");
  EXPECT_EQ(resolved("/./41/"), "/41");
  EXPECT_EQ(resolved("/42"), "/42");
  // As many as the kernel follows.
  EXPECT_TRUE(fs::exists(at("/40")));
  std::error_code error;
  EXPECT_FALSE(fs::exists(at("/41"), error));
  EXPECT_EQ(error, std::errc::too_many_symbolic_link_levels);
}

TEST_F(PathLinks, ACircleIsAnsweredWithThePathItself) {
  makeLink("/self", "self");
  makeLink("/one", "two");
  makeLink("/two", "/one");
  makeLink("/growing", "growing/growing/growing");
  EXPECT_EQ(resolved("/self/x"), "/self/x");
  EXPECT_EQ(resolved("/one//x/../y"), "/one/y");
  EXPECT_EQ(resolved("/growing"), "/growing");
}

TEST_F(PathLinks, LeavesOtherPathsAlone) {
  makeFolder("/a");
  makeLink("/link", "a");
  EXPECT_EQ(resolved("link/../x"), "link/../x");
  EXPECT_EQ(resolved(""), "");
  const std::string withZero("/link\0/x", 8);
  EXPECT_EQ(resolved(withZero), withZero);
  EXPECT_EQ(Paths::resolvingLinks("/link", std::string_view("/\0", 2)), "/link");
}

TEST_F(PathLinks, AnEndlesslyLongPathIsKept) {
  makeFolder("/a");
  makeLink("/link", "a");
  std::string below;
  while (below.size() < 2 * PATH_MAX)
    below += "/abcdefgh";
  EXPECT_EQ(resolved("/link" + below), "/a" + below);
  const std::string name(1'000'000, 'n');
  EXPECT_EQ(resolved("/link/" + name), "/a/" + name);
  std::string rises;
  for (int count = 0; count < 20'000; ++count)
    rises += "/a/..";
  EXPECT_EQ(resolved(rises + "/link"), "/a");
}

TEST_F(PathLinks, AgreesWithTheSystemInRandomTrees) {
  std::mt19937_64 random(40);
  const std::vector<std::string> names{"a", "b", "c", "d"};
  const auto randomPath = [&](std::size_t most) {
    std::string path;
    for (std::size_t count = 1 + random() % most; count > 0; --count) {
      const std::size_t choice = random() % 6;
      path += "/" + (choice < 4 ? names[choice] : choice == 4 ? std::string("..") : std::string("."));
    }
    return path;
  };
  int agreed = 0;
  for (int tree = 0; tree < 40; ++tree) {
    fs::remove_all(root_);
    fs::create_directories(root_);
    for (const std::string& one : names) {
      if (random() % 2 == 0) makeFolder("/" + one);
      for (const std::string& other : names) {
        const std::string path = "/" + one + "/" + other;
        if (!fs::is_directory(at("/" + one))) break;
        if (random() % 3 == 0) makeFolder(path);
      }
    }
    for (int link = 0; link < 8; ++link) {
      std::error_code ignored;
      // Inside the tree only, so that the system, to which the root is no root, sees the same.
      const std::string target = random() % 2 == 0 ? at("/" + names[random() % 4]) : names[random() % 4];
      fs::create_symlink(target, at("/" + names[random() % 4] + (random() % 2 == 0 ? "" : "/" + names[random() % 4])),
                         ignored);
    }
    for (int round = 0; round < 60; ++round) {
      const std::string path = at(randomPath(5));
      std::vector<char> buffer(PATH_MAX);
      if (::realpath(path.c_str(), buffer.data()) == nullptr) continue;
      ++agreed;
      ASSERT_EQ(Paths::resolvingLinks(path), std::string(buffer.data())) << path;
    }
  }
  EXPECT_GT(agreed, 400);
}

}  // namespace
}  // namespace tessary
