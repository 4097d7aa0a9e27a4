#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureTemporaryScope.h"
#include "TessaryDomain/capture/PythonPath.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

using namespace CaptureRules;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

CaptureTemporaryScope scopeWithData(std::string dataFolderParent) {
  return {.temporaryDirectory = {}, .resolvedTemporaryDirectory = {}, .dataFolderParent = std::move(dataFolderParent)};
}

TEST(CaptureTemporaryScope, HasTheFoldersOfEverySystem) {
  EXPECT_THAT(scopeWithData("/home/u").roots(), ElementsAre("/tmp", "/private/tmp", "/var/tmp", "/private/var/tmp",
                                                            "/var/folders", "/private/var/folders"));
  EXPECT_THAT(temporaryDocumentRoots, ElementsAre("/tmp", "/private/tmp", "/var/tmp", "/private/var/tmp"));
}

TEST(CaptureTemporaryScope, AddsTheFolderOfTheProcess) {
  CaptureTemporaryScope scope = scopeWithData("/home/u");
  scope.temporaryDirectory = "/mnt//x/../t/";
  EXPECT_EQ(scope.roots().size(), 7U);
  EXPECT_EQ(scope.roots().back(), "/mnt/t");
  scope.resolvedTemporaryDirectory = "/real//t/";
  EXPECT_EQ(scope.roots().size(), 8U);
  EXPECT_EQ(scope.roots()[6], "/mnt/t");
  EXPECT_EQ(scope.roots()[7], "/real//t/") << "as it stands";
}

TEST(CaptureTemporaryScope, IgnoresAResolvedFolderWithoutAUsableOne) {
  CaptureTemporaryScope scope = scopeWithData("/home/u");
  scope.resolvedTemporaryDirectory = "/real/t";
  EXPECT_EQ(scope.roots().size(), 6U);
  EXPECT_FALSE(temporaryLocation("/real/t/a.md", scope));
  for (const std::string unusable : {"", "t", "./t", "~/t"}) {
    scope.temporaryDirectory = unusable;
    EXPECT_EQ(scope.roots().size(), 6U) << unusable;
  }
  scope.temporaryDirectory = "/t";
  EXPECT_TRUE(temporaryLocation("/real/t/a.md", scope));
}

TEST(TemporaryLocation, IsARootOrLiesInOne) {
  const CaptureTemporaryScope scope = scopeWithData("/home/u");
  for (const std::string path :
       {"/tmp", "/tmp/", "/tmp/a", "/private/var/folders/x/y", "///tmp/a", "/a/../tmp/b", "/var/tmp/.a"})
    EXPECT_TRUE(temporaryLocation(path, scope)) << path;
  for (const std::string path : {"", "/", "/tmpx", "tmp/a", "//tmp/a", "/var", "/tmp/../a", "/home/u/tmp", "/TMP/a"})
    EXPECT_FALSE(temporaryLocation(path, scope)) << path;
}

TEST(TemporaryLocation, LeavesOutTheProductsDataInATemporaryFolder) {
  const CaptureTemporaryScope scope = scopeWithData("/tmp/app");
  EXPECT_FALSE(temporaryLocation("/tmp/app/x.md", scope));
  EXPECT_FALSE(temporaryLocation("/tmp/app", scope));
  EXPECT_FALSE(temporaryLocation("/tmp/y/../app/x.md", scope)) << "the path is normalised";
  EXPECT_TRUE(temporaryLocation("/tmp/other.md", scope));
  EXPECT_TRUE(temporaryLocation("/tmp/apple/x.md", scope));
  EXPECT_TRUE(temporaryLocation("/tmp/app/../x.md", scope));
}

TEST(TemporaryLocation, TakesTheDataFolderAsItIsGiven) {
  EXPECT_TRUE(temporaryLocation("/tmp/app/x.md", scopeWithData("/x/../tmp/app"))) << "it lies in no root";
  EXPECT_TRUE(temporaryLocation("/tmp/app/x.md", scopeWithData("/tmp/app/")))
      << "no path begins with two slashes there";
  EXPECT_TRUE(temporaryLocation("/tmp/app/x.md", scopeWithData("/tmp/./app")));
  EXPECT_TRUE(temporaryLocation("/tmp/x.md", scopeWithData("/tmp"))) << "a root itself is no data folder";
  EXPECT_TRUE(temporaryLocation("/tmp/x.md", scopeWithData("/home/u")));
  EXPECT_TRUE(temporaryLocation("/tmp/x.md", scopeWithData("")));
}

TEST(TemporaryLocation, KnowsTheFolderOfTheProcessAsARootOfTheData) {
  CaptureTemporaryScope scope = scopeWithData("/mnt/t");
  scope.temporaryDirectory = "/mnt/t/";
  scope.resolvedTemporaryDirectory = "/real/t";
  EXPECT_TRUE(temporaryLocation("/mnt/t/a", scope)) << "the data folder is a root itself";
  scope.dataFolderParent = "/real/t";
  EXPECT_TRUE(temporaryLocation("/real/t/a", scope));
  scope.dataFolderParent = "/real/t/app";
  EXPECT_FALSE(temporaryLocation("/real/t/app/a", scope));
  EXPECT_TRUE(temporaryLocation("/mnt/t/app/a", scope));
}

TEST(TemporaryDocumentFolder, HasNoHiddenComponents) {
  for (const std::string path :
       {"/tmp", "/tmp/a/b.md", "/private/var/tmp/a", "/tmp/a.b/c", "/tmp/.a/../b", "/.a/../tmp/b"})
    EXPECT_TRUE(temporaryDocumentFolder(path)) << path;
  for (const std::string path :
       {"/tmp/a/.cache/b.md", "/tmp/.b.md", "/var/folders/x/a.md", "/tmp/...", "", "tmp", "//tmp/a"})
    EXPECT_FALSE(temporaryDocumentFolder(path)) << path;
}

TEST(NonDocumentText, IsTextThatNobodyWroteToBeRead) {
  for (const std::string path :
       {"CMakeLists.txt", "/a/ROBOTS.TXT", "/a/x.log.txt", "/a/.log.txt", "/a/requirements.txt",
        "/a/requirements-dev.txt", "/a/Constraints.txt", "/a/LICENSE.txt", "/a/copying.lesser.txt", "/a/logs/b.txt",
        "/a/LOG/c/b.txt", "log/b.txt", "/a/logs/../b.txt", "/tmp/LOGS/a.txt", "/a/\uFB01le.log.txt",
        "/a/log\u017F/b.txt"})
    EXPECT_TRUE(nonDocumentText(path)) << path;
  for (const std::string path :
       {"", "/a/b.txt", "/a/cmakelists.md", "/logs/b.md", "/a/logs.txt", "/a/xlogs/b.txt", "/a/log.txt",
        "/a/xrequirements.txt", "/a/x.log.txt.txt", "/a/robots.txt.md", "/a/robots.txt/b", "/a/txt", "/a/requirements"})
    EXPECT_FALSE(nonDocumentText(path)) << path;
}

TEST(TemporaryDocument, HasOneOfFifteenExtensions) {
  EXPECT_THAT(temporaryDocumentExtensions.sorted(),
              UnorderedElementsAre("md", "markdown", "mdown", "mkd", "mkdn", "mdwn", "mdtxt", "mdtext", "rmd", "qmd",
                                   "html", "htm", "xhtml", "pdf", "txt"));
  for (const std::string_view extension : temporaryDocumentExtensions)
    EXPECT_TRUE(temporaryDocument("/tmp/a/b." + std::string(extension))) << extension;
  EXPECT_TRUE(temporaryDocument("/tmp/b.MD"));
  EXPECT_TRUE(temporaryDocument("/tmp/b.ht\u1E3F.HTM"));
  for (const std::string path :
       {"/tmp/b", "/tmp/b.", "/tmp/.md", "/tmp/b.png", "/tmp/b.json", "/tmp/b.m\u0501", "/tmp/md"})
    EXPECT_FALSE(temporaryDocument(path)) << path;
}

TEST(TemporaryDocument, LiesInADocumentFolderAndIsNoOtherText) {
  EXPECT_FALSE(temporaryDocument("/var/folders/x/a.md"));
  EXPECT_FALSE(temporaryDocument("/tmp/a/.cache/b.md"));
  EXPECT_FALSE(temporaryDocument("/tmp/logs/b.txt"));
  EXPECT_TRUE(temporaryDocument("/tmp/logs/b.md"));
  EXPECT_FALSE(temporaryDocument("/tmp/requirements.txt"));
  EXPECT_FALSE(temporaryDocument("/home/a.md"));
}

// The rules give the same answer for a path as it stands and as it is written anew.

TEST(TemporaryRules, DoNotHangOnHowAPathIsWritten) {
  std::mt19937 random(20260319);
  const std::vector<std::string> units = {"/",   "/",   "/tmp", "tmp",   "var", ".",    "..",
                                          "/./", "app", "logs", "a.txt", ".x",  "b.md", "\xFF"};
  const CaptureTemporaryScope scope = scopeWithData("/tmp/app");
  int temporary = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = (random() % 2 == 0 ? "/tmp/" : "") + randomText(units, random() % 8, random);
    const std::string written = PythonPath(text).string();
    temporary += temporaryLocation(text, scope) ? 1 : 0;
    ASSERT_EQ(temporaryLocation(text, scope), temporaryLocation(written, scope)) << text;
    ASSERT_EQ(temporaryDocumentFolder(text), temporaryDocumentFolder(written)) << text;
    ASSERT_EQ(nonDocumentText(text), nonDocumentText(written)) << text;
    ASSERT_EQ(temporaryDocument(text), temporaryDocument(written)) << text;
  }
  EXPECT_GT(temporary, 1000);
}

}  // namespace
}  // namespace tessary
