// Linear time on a mebibyte of every unit from which a scan could start anew again and again: a quadratic one would run
// into the limit of the test.

#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CodeMapEntries.h"
#include "TessaryDomain/capture/ExcludedArtifact.h"
#include "TessaryDomain/capture/Headings.h"
#include "TessaryDomain/capture/InternalArtifact.h"
#include "TessaryDomain/capture/SecretNames.h"
#include "TessaryDomain/capture/StructuralText.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

/// Where the last heading ends. Every heading must stand behind the one before.
std::size_t lastHeadingEnd(std::string_view text) {
  std::size_t position = 0;
  bool isInOrder = true;
  for (const std::string_view heading : Headings::matches(text)) {
    const auto start = static_cast<std::size_t>(heading.data() - text.data());
    isInOrder &= position < start;
    position = start + heading.size();
  }
  EXPECT_TRUE(isInOrder);
  return position;
}

class HostileHeadings : public testing::TestWithParam<const char*> {};

TEST_P(HostileHeadings, AreFoundInLinearTime) {
  const std::string run = repeated(GetParam(), mebibyte);
  for (const std::string before : {"", "# ", "# a", "#\n"}) {
    EXPECT_LE(lastHeadingEnd(before + run), before.size() + run.size());
    EXPECT_LE(lastHeadingEnd(before + run + "x"), before.size() + run.size() + 1);
    const std::string closed = before + run + "\n# z";
    EXPECT_EQ(lastHeadingEnd(closed), closed.size()) << "whatever stands before";
  }
}

INSTANTIATE_TEST_SUITE_P(Units, HostileHeadings,
                         testing::Values("#", "# ", "#\n", "\n#", "# #\n", "# a\n", "# a\n#", "#\n\n", "# a \n", "\n",
                                         " ", "a", "# a # ", "###### \n", "#######\n", "# \u2003", "\u2003\n#", "# a\r",
                                         "\xE2\x80"));

class HostileNames : public testing::TestWithParam<const char*> {};

TEST_P(HostileNames, AreJudgedInLinearTime) {
  const std::string run = repeated(GetParam(), mebibyte);
  const CaptureTemporaryScope scope = {
      .temporaryDirectory = run, .resolvedTemporaryDirectory = {}, .dataFolderParent = "/home/u"};
  for (const std::string before : {"", "/u/", "/tmp/", "id_rsa-"}) {
    for (const std::string behind : {"\n", "-token", ".txt"}) {
      const std::string path = before + run + behind;
      const bool isExcluded = CaptureRules::excludedArtifact(path, scope, /*temporaryDocuments=*/true);
      // To want no temporary documents excludes no less.
      EXPECT_LE(isExcluded, CaptureRules::excludedArtifact(path, scope, /*temporaryDocuments=*/false));
    }
  }
  EXPECT_EQ(SecretNames::isCredentialName(run + "-token"), run.find('\n') == std::string::npos);
  EXPECT_FALSE(SecretNames::isCredentialName(run + "-token-x"));
  EXPECT_FALSE(SecretNames::isCredentialName("\n" + run + "-token"));
  EXPECT_EQ(SecretNames::isSSHKeyName("id_rsa." + run), run.find('\n') == std::string::npos);
  EXPECT_FALSE(SecretNames::isSSHKeyName("id_rsa." + run + "\n"));
}

INSTANTIATE_TEST_SUITE_P(Units, HostileNames,
                         testing::Values("-", "_.", "a-", "token-", "token-prod.", "secret", "api-key", "id_", "\n",
                                         "a", "/", "/.", "/a", "../", ".", ".hermes/", ".codex/", "/.hermes/skills",
                                         ".claude/", "\xE2\x80", "\u212A", "A", ".env"));

class HostileContents : public testing::TestWithParam<const char*> {};

TEST_P(HostileContents, AreJudgedInLinearTime) {
  using CaptureRules::internalArtifact;
  const std::string reminders = "do not redo, do not reset\n";
  const std::string warning = "generate-code-map.py generated file. do not edit\n";
  const std::string names = "reviewEligible originEvent\n";
  const std::string run = repeated(GetParam(), CaptureRules::internalArtifactByteLimit - 100);
  for (const std::string& before : {std::string(), std::string("# a\n"), std::string("- `Tests/a")}) {
    EXPECT_FALSE(internalArtifact(reminders + before + run, std::nullopt, "codex", "candidate"));
    EXPECT_FALSE(internalArtifact(warning + before + run, "docs/CODE_MAP.md", std::nullopt, std::nullopt));
    EXPECT_FALSE(internalArtifact(names + before + run, "docs/CAPTURE_CONTRACT.md", std::nullopt, std::nullopt));
  }
  EXPECT_LE(structuralText(run + run).size(), 2 * run.size());
  EXPECT_LE(CodeMapEntries::count(run + run, mebibyte), run.size());
}

INSTANTIATE_TEST_SUITE_P(Units, HostileContents,
                         testing::Values("#", "# ", "#\n", "# #\n", "# agents\n", "\n", " ", "\uFEFF", "`", "```\n",
                                         "~", "~~~\n", "```\n~~~\n", "   ", "\t\t\t`", "- `", "- `Tests/",
                                         "- `Tests/\n", "- `Tests/`\n", "- `Tests/a\n", "- `Tests/a` ", " \n- ",
                                         "do not re", "already ", "final needs exactly one memory ", "generated file. ",
                                         "\u212A", "\xE2\x80", "\u2028", "# \u2028"));

}  // namespace
}  // namespace tessary
