#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/InternalArtifact.h"

namespace tessary {
namespace {

using CaptureRules::internalArtifact;
using CaptureRules::internalArtifactByteLimit;

const std::string marker = "<!-- tessary:internal -->";

bool isInternalAnywhere(std::string_view content) {
  return internalArtifact(content, std::nullopt, std::nullopt, std::nullopt);
}

bool isInternalFile(std::string_view content, std::string_view path) {
  return internalArtifact(content, path, std::nullopt, std::nullopt);
}

bool isInternalSummary(std::string_view content) {
  return internalArtifact(content, std::nullopt, "codex", "candidate");
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t position = text.find(from);
  EXPECT_NE(position, std::string::npos) << from;
  return text.replace(position, from.size(), to);
}

TEST(InternalArtifact, SaysSoOfItself) {
  EXPECT_TRUE(isInternalAnywhere(marker));
  EXPECT_TRUE(isInternalAnywhere("\uFEFF\n  " + marker + " text"));
  EXPECT_TRUE(isInternalAnywhere("\uFEFF\uFEFF\r\n\t \uFEFF" + marker));
  EXPECT_TRUE(isInternalFile(marker, "/a/b.png")) << "whatever the path is";
  EXPECT_TRUE(internalArtifact(marker, std::nullopt, "claude", "file"));
  for (const std::string before : {"\u00A0", "a", "\v", "\u2028", "<!-- -->", "\xEF\xBB", "\f"})
    EXPECT_FALSE(isInternalAnywhere(before + marker)) << before;
  EXPECT_FALSE(isInternalAnywhere(marker.substr(0, marker.size() - 1)));
  EXPECT_FALSE(isInternalAnywhere("<!-- Tessary:internal -->"));
  EXPECT_FALSE(isInternalAnywhere(""));
}

TEST(InternalArtifact, IsNothingThatIsAbsentOrHoldsANullCharacter) {
  EXPECT_FALSE(internalArtifact(std::nullopt, std::nullopt, "codex", "candidate"));
  EXPECT_FALSE(isInternalAnywhere(marker + std::string(1, '\0')));
  EXPECT_FALSE(isInternalAnywhere(std::string(1, '\0') + marker));
}

TEST(InternalArtifact, IsNothingThatIsTooLong) {
  EXPECT_EQ(internalArtifactByteLimit, 524288U);
  for (const std::string filler : {"a", "\u00E9"}) {
    std::string content = marker;
    while (content.size() + filler.size() <= internalArtifactByteLimit)
      content += filler;
    content.resize(internalArtifactByteLimit - 1, 'x');
    EXPECT_TRUE(isInternalAnywhere(content));
    EXPECT_TRUE(isInternalAnywhere(content + "x"));
    EXPECT_FALSE(isInternalAnywhere(content + "xx"));
    EXPECT_FALSE(isInternalAnywhere(content + "\u00E9")) << "bytes are counted";
  }
}

const std::string contract = R"(# Capture Contract

## Project scope
What `reviewEligible` means.
## Documents and versions
Where `originEvent` comes from.
## Integrations and failures
)";

TEST(CaptureContract, HasItsFourHeadingsAndTwoNames) {
  EXPECT_TRUE(isInternalFile(contract, "/p/docs/capture_contract.md"));
  for (const std::string part : {"Capture Contract", "Project scope", "Documents and versions",
                                 "Integrations and failures", "reviewEligible", "originEvent"})
    EXPECT_FALSE(isInternalFile(replaced(contract, part, "Something"), "/p/docs/capture_contract.md")) << part;
  EXPECT_FALSE(isInternalFile(replaced(contract, "reviewEligible", "revieweligible"), "/p/docs/capture_contract.md"));
  EXPECT_FALSE(isInternalFile(replaced(contract, "originEvent", "OriginEvent"), "/p/docs/capture_contract.md"));
  EXPECT_TRUE(
      isInternalFile(replaced(contract, "Project scope", "PROJECT \u017Fcope ##"), "/p/docs/capture_contract.md"));
}

TEST(CaptureContract, IsKnownByItsFoldedPath) {
  for (const std::string path : {"DOCS/CAPTURE_CONTRACT.MD", "docs/capture_contract.md", "/docs/capture_contract.md",
                                 "/a/Docs//./Capture_Contract.md/", "/a/doc\u017F/capture_contract.md"})
    EXPECT_TRUE(isInternalFile(contract, path)) << path;
  for (const std::string path : {"", "capture_contract.md", "/docs/x/capture_contract.md", "/doc/capture_contract.md",
                                 "/docs/capture_contract.txt", "/docs/capture_contract.markdown", "/docs/code_map.md",
                                 "/docs/", "/docs/../capture_contract.md", "/docs/xcapture_contract.md"})
    EXPECT_FALSE(isInternalFile(contract, path)) << path;
}

TEST(CaptureContract, MustNotBeShownInAFence) {
  EXPECT_FALSE(
      isInternalFile(replaced(contract, "## Project scope", "```\n## Project scope\n```"), "docs/capture_contract.md"));
  EXPECT_TRUE(
      isInternalFile(replaced(contract, "reviewEligible", "x\n```\nreviewEligible\n```\n"), "docs/capture_contract.md"))
      << "the names are sought in all the text";
}

TEST(CaptureContract, HoldsNoNullCharacter) {
  EXPECT_FALSE(isInternalFile(contract + std::string(1, '\0'), "docs/capture_contract.md"));
}

TEST(CaptureContract, IsLookedAtUpToTheLimit) {
  std::string content = contract;
  content.resize(internalArtifactByteLimit, 'x');
  EXPECT_TRUE(isInternalFile(content, "docs/capture_contract.md"));
  EXPECT_FALSE(isInternalFile(content + "x", "docs/capture_contract.md"));
}

const std::string codeMap = R"(# Tessary code map

Generated file. Do not edit; run generate-code-map.py.

- `Sources/a.cpp` one
- `Projects/b` two
  - `Scripts/c` three
- `Tests/d` four
- `Sources/e` five
)";

TEST(CodeMap, HasAHeadingAWarningItsToolAndFiveEntries) {
  EXPECT_TRUE(isInternalFile(codeMap, "docs/CODE_MAP.md"));
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "code map", "code maps"), "docs/code_map.md"));
  EXPECT_TRUE(isInternalFile(replaced(codeMap, "Tessary code map", "CODE MAP"), "docs/code_map.md"));
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "Generated file", "Made file"), "docs/code_map.md"));
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "generate-code-map.py", "Generate-code-map.py"), "docs/code_map.md"));
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "- `Tests/d`", "- Tests/d"), "docs/code_map.md")) << "four entries";
  EXPECT_TRUE(isInternalFile(codeMap + "- `Tests/f`\n", "docs/code_map.md")) << "six";
}

TEST(CodeMap, WarnsInEitherLanguage) {
  EXPECT_TRUE(isInternalFile(replaced(codeMap, "Generated file. Do not edit", "생성 파일입니다. 직접 고치지 말고"),
                             "docs/code_map.md"));
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "Generated file. Do not edit", "생성 파일입니다. 직접 고치지"),
                              "docs/code_map.md"));
  EXPECT_TRUE(isInternalFile(replaced(codeMap, "Generated file. Do not edit", "GENERATED \uFB01LE. DO NOT EDI\u1E97"),
                             "docs/code_map.md"))
      << "what folds into the words counts";
}

TEST(CodeMap, HasItsEntriesAndHeadingOutsideFences) {
  EXPECT_FALSE(isInternalFile(replaced(codeMap, "- `Tests/d` four\n", "~~~~\n- `Tests/d`\n~~~\n````\n~~~~\n"),
                              "docs/code_map.md"));
  EXPECT_FALSE(isInternalFile("```\n" + replaced(codeMap, "\n\n", "\n```\n\n"), "docs/code_map.md"));
  EXPECT_TRUE(isInternalFile("```\nx\n```\n" + codeMap, "docs/code_map.md"));
}

const std::string summary = R"(# Active request
Build it.
## Running agents
None.
### Next steps
Do not redo the first; do not reset it.
## Memory
)";

TEST(MemorySummary, HasFourKindsOfHeadingsAndTwoReminders) {
  EXPECT_TRUE(isInternalSummary(summary));
  for (const std::string heading : {"Active request", "Running agents", "Next steps", "Memory"})
    EXPECT_FALSE(isInternalSummary(replaced(summary, heading, "Something"))) << heading;
  EXPECT_FALSE(isInternalSummary(replaced(summary, "Do not redo", "Redo")));
  EXPECT_FALSE(isInternalSummary(replaced(summary, "do not reset", "do not re-set")));
}

TEST(MemorySummary, KnowsEveryHeadingOfAKind) {
  for (const std::string heading : {"active request", "ACTIVE TASK", "Current task ##"})
    EXPECT_TRUE(isInternalSummary(replaced(summary, "Active request", heading))) << heading;
  for (const std::string heading :
       {"Running Agents", "Delegation / Review", "agents / delegation", "agents", "Delegation"})
    EXPECT_TRUE(isInternalSummary(replaced(summary, "Running agents", heading))) << heading;
  for (const std::string heading : {"Next actions", "next steps", "Suggested next steps"})
    EXPECT_TRUE(isInternalSummary(replaced(summary, "Next steps", heading))) << heading;
  for (const std::string heading : {"memories", "the memory", "agent", "next"})
    EXPECT_FALSE(isInternalSummary(replaced(summary, "Memory", heading))) << heading;
}

TEST(MemorySummary, KnowsEveryReminder) {
  const std::string without = replaced(summary, "Do not redo the first; do not reset it.", "REMINDERS");
  const std::vector<std::string> reminders = {"already told user",
                                              "do not redo",
                                              "do not reset",
                                              "do not edit memory",
                                              "final needs exactly one memory citation",
                                              "no implementation/test/install completed"};
  for (const std::string& first : reminders) {
    EXPECT_FALSE(isInternalSummary(replaced(without, "REMINDERS", first + " " + first))) << first << " is one";
    for (const std::string& second : reminders) {
      if (first == second) continue;
      EXPECT_TRUE(isInternalSummary(replaced(without, "REMINDERS", first + " " + second))) << first << ", " << second;
    }
  }
  EXPECT_TRUE(isInternalSummary(
      replaced(without, "REMINDERS", "```\nALREADY TOLD U\u017FER\ndo not re\u1E9E\nDo Not Redo\n```")))
      << "in fences too";
}

TEST(MemorySummary, NeedsNoMemoryHeadingBesideTheCitation) {
  const std::string without = replaced(summary, "## Memory\n", "");
  EXPECT_FALSE(isInternalSummary(without));
  EXPECT_TRUE(isInternalSummary(without + "Final needs exactly one memory citation."));
  EXPECT_FALSE(isInternalSummary(without + "Final needs exactly two memory citations."));
  const std::string onlyOne = replaced(without, "Do not redo the first; do not reset it.", "");
  EXPECT_FALSE(isInternalSummary(onlyOne + "Final needs exactly one memory citation."));
}

TEST(MemorySummary, HasItsHeadingsOutsideFences) {
  EXPECT_FALSE(isInternalSummary(replaced(summary, "## Memory", "```\n## Memory\n```")));
  EXPECT_TRUE(isInternalSummary(replaced(summary, "## Memory", "```\n```\n## Memory\n```")));
  EXPECT_TRUE(isInternalSummary(replaced(summary, "Build it.\n", "Build it.\r"))) << "other line ends end lines";
}

TEST(MemorySummary, IsACandidateOfOneAgent) {
  EXPECT_FALSE(internalArtifact(summary, std::nullopt, "claude", "candidate"));
  EXPECT_FALSE(internalArtifact(summary, std::nullopt, "Codex", "candidate"));
  EXPECT_FALSE(internalArtifact(summary, std::nullopt, "codex", "file"));
  EXPECT_FALSE(internalArtifact(summary, std::nullopt, "codex", std::nullopt));
  EXPECT_FALSE(internalArtifact(summary, std::nullopt, std::nullopt, "candidate"));
  EXPECT_FALSE(internalArtifact(summary, "/docs/summary.md", "codex", "candidate"));
  EXPECT_FALSE(internalArtifact(summary, "", "codex", "candidate")) << "an empty path is a path";
  EXPECT_FALSE(isInternalSummary(summary + std::string(1, '\0')));
}

TEST(InternalArtifact, TakesContentOfAnyBytes) {
  EXPECT_TRUE(isInternalSummary("\xFF\n" + summary + "\xE2\x80"));
  EXPECT_TRUE(isInternalFile("\xC3\n" + contract, "docs/capture_contract.md"));
  EXPECT_FALSE(isInternalFile("\xC3\n" + contract, std::string_view("docs\0/capture_contract.md", 25)));
  EXPECT_FALSE(isInternalFile("\xFF", "docs/code_map.md"));
}

}  // namespace
}  // namespace tessary
