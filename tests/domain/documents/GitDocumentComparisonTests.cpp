#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/GitDocumentComparison.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using enum testing::SweepRule;
using enum JSONExpectation;

TEST(GitDocumentComparison, IsReadAndWrittenByItsTable) {
  const GitDocumentComparison comparison{.status = GitDocumentComparison::Status::sessionPatch,
                                         .repositoryRoot = "/home/u/p",
                                         .relativePath = "docs/a.md",
                                         .commit = "0a1b",
                                         .baseline = "# A\nb",
                                         .githubFileURL = "https://github.com/o/p/blob/0a1b/docs/a.md",
                                         .githubCommitURL = "https://github.com/o/p/commit/0a1b",
                                         .patch = "-a\n+b",
                                         .agent = "claude",
                                         .session = "s1"};
  testing::sweepRecord<GitDocumentComparison>(testing::goldenText("documents/GitDocumentComparison.json"), comparison,
                                              {{"status", required, text, {.words = testing::SweepRow::Words::closed}},
                                               {"repositoryRoot", optional, text},
                                               {"relativePath", optional, text},
                                               {"commit", optional, text},
                                               {"baseline", optional, text},
                                               {"githubFileURL", optional, text},
                                               {"githubCommitURL", optional, text},
                                               {"patch", optional, text},
                                               {"agent", optional, text},
                                               {"session", optional, text}});
}

TEST(GitDocumentComparison, WritesBackARecordOfItsStatusAlone) {
  for (const auto status : allCases<GitDocumentComparison::Status>()) {
    const std::string text = R"({"status":")" + std::string(rawValue(status)) + R"("})";
    const auto read = readJSON<GitDocumentComparison>(text);
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(*read, GitDocumentComparison{.status = status});
    EXPECT_EQ(writeJSON(*read), text);
  }
}

TEST(GitDocumentComparison, HasItsStatesInOrder) {
  std::string names;
  for (const auto status : allCases<GitDocumentComparison::Status>())
    names.append(rawValue(status)).append(" ");
  EXPECT_EQ(names, "available noRepository noCommit untracked nonText tooLarge unavailable sessionPatch ");
}

std::string gitHubURL(std::optional<std::string_view> text) {
  const auto url = GitDocumentComparison::validatedGitHubURL(text);
  return url ? url->text() : "absent";
}

TEST(ValidatedGitHubURL, LetsLinksToTheHostItselfPassAsTheyAre) {
  for (const char* text : {"https://github.com", "https://github.com/", "https://github.com/o/p/blob/0a1b/a.md#L1-L2",
                           "https://github.com/o/p?a=b:c", "https://github.com?a:b", "https://github.com#a:b",
                           "HTTPS://GitHub.COM/o/p", "https://github.com/a:443"})
    EXPECT_EQ(gitHubURL(text), text);
  // What the address names, not how it is written, is the host.
  EXPECT_EQ(gitHubURL("https://%67ithub.com/o"), "https://github.com/o");
}

TEST(ValidatedGitHubURL, RefusesEverythingElse) {
  EXPECT_EQ(gitHubURL(std::nullopt), "absent");
  for (const char* text : {"",
                           "github.com/o/p",
                           "//github.com/o",
                           "http://github.com/o",
                           "ftp://github.com/o",
                           "https:///github.com",
                           "https://gist.github.com/o",
                           "https://www.github.com/o",
                           "https://github.com.",
                           "https://github.com.example.test",
                           "https://notgithub.com/",
                           "https://github.co",
                           "https://github.com@example.test",
                           "https://u@github.com/",
                           "https://u:p@github.com/",
                           "https://@github.com/",
                           "https://github.com%2fexample.test/",
                           "https://github.com:443/o",
                           "https://github.com:8443/o",
                           "https://github.com:/o",
                           "https://github.com:",
                           "https://github.com:?a",
                           "https://github.com%3A443/o",
                           "https://github.com:0443",
                           "https://github.com/a b",
                           "https://github.com\\o",
                           "https://gıthub.com/",
                           "https://xn--gthub-n4a.com/",
                           "https://[::1]/github.com"})
    EXPECT_EQ(gitHubURL(text), "absent") << text;
}

TEST(ValidatedGitHubURL, HoldsTheLimitOfAddresses) {
  const std::string start = "https://github.com/";
  EXPECT_NE(gitHubURL(start + std::string(2'048 - start.size(), 'a')), "absent");
  EXPECT_EQ(gitHubURL(start + std::string(2'049 - start.size(), 'a')), "absent");
}

}  // namespace
}  // namespace tessary
