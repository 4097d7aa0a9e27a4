#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/LocalizationBundle.h"
#include "support/TemporaryFolder.h"

namespace tessary::LocalizationBundle {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

TEST(LocalizationBundle, IsLookedForBesideTheExecutableAndInTheShareFolder) {
  const Places found = places("/opt/host/program", "/usr/share/tessary");
  EXPECT_EQ(found.besideExecutable, "/opt/host/Tessary_TessaryLocalization.bundle");
  EXPECT_EQ(found.installed, "/usr/share/tessary/Tessary_TessaryLocalization.bundle");
}

TEST(LocalizationBundle, IsLookedForInTheShareFolderOfAnInstallationThatWasMoved) {
  const TemporaryFolder prefix;
  // A "bin" without a share folder next to it is no installation of ours.
  EXPECT_EQ(places(prefix.path("bin/host"), "/usr/share/tessary").installed,
            "/usr/share/tessary/Tessary_TessaryLocalization.bundle");
  std::filesystem::create_directories(prefix.path("share/tessary"));
  EXPECT_EQ(places(prefix.path("bin/host"), "/usr/share/tessary").installed,
            prefix.path("share/tessary/Tessary_TessaryLocalization.bundle"));
  // Nor is another folder that has one next to it.
  EXPECT_EQ(places(prefix.path("libexec/host"), "/usr/share/tessary").installed,
            "/usr/share/tessary/Tessary_TessaryLocalization.bundle");
}

TEST(LocalizationBundle, IsTakenFromTheFirstPlaceThatHasIt) {
  const TemporaryFolder folder;
  const Places two{.besideExecutable = folder.path("one"), .installed = folder.path("two")};
  EXPECT_EQ(resources(two), std::unexpected("could not load resource bundle: from " + folder.path("one") + " or " +
                                            folder.path("two")));
  folder.write("one", "a file is no bundle");
  std::filesystem::create_directory(folder.path("two"));
  EXPECT_EQ(resources(two), folder.path("two/Resources"));
  std::filesystem::remove(folder.path("one"));
  std::filesystem::create_directory(folder.path("one"));
  EXPECT_EQ(resources(two), folder.path("one/Resources"));
}

TEST(LocalizationBundle, LiesBesideEveryExecutableOfTheBuild) {
  EXPECT_EQ(sharedResources(), places().besideExecutable + "/Resources");
}

TEST(LocalizationBundle, EndsTheProcessWithATextOnStandardError) {
  EXPECT_DEATH(fail(resources({.besideExecutable = "/nowhere/a", .installed = "/nowhere/b"}).error()),
               "^could not load resource bundle: from /nowhere/a or /nowhere/b\n$");
}

TEST(LocalizationBundle, ReadsAFileWholeOrSaysWhyNot) {
  const TemporaryFolder folder;
  const std::string bytes("a\0\xFF\n", 4);
  EXPECT_EQ(readFile(folder.write("file", bytes)), bytes);
  EXPECT_EQ(readFile(folder.write("empty", "")), "");
  EXPECT_EQ(readFile(folder.path("none")).error().isMissing, true);
  EXPECT_EQ(readFile(folder.path()).error(), (FileError{.isMissing = false, .reason = "Is a directory"}));
}

TEST(LocalizationBundle, GivesTheJSONFilesOfAFolderInTheOrderOfTheirURLs) {
  const TemporaryFolder folder;
  folder.write("notes/b.json", "b");
  folder.write("notes/a.json", "a");
  folder.write("notes/B.json", "B");
  folder.write("notes/a.json.txt", "no");
  folder.write("notes/c.JSON", "no");
  folder.write("notes/inner/a.json", "no");
  std::filesystem::create_directory(folder.path("notes/d.json"));
  // "%C3%A9.json" comes before "A".
  folder.write("notes/é.json", "é");
  EXPECT_THAT(jsonFiles(folder.path("notes")), ElementsAre("é", "B", "a", "b"));
  EXPECT_THAT(jsonFiles(folder.path("none")), IsEmpty());
  EXPECT_THAT(jsonFiles(folder.path("notes/a.json")), IsEmpty());
}

}  // namespace
}  // namespace tessary::LocalizationBundle
