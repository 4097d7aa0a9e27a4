#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/ArtifactAdmission.h"

namespace tessary::CaptureRules {
namespace {

using enum ArtifactCategory;
using testing::Optional;

constexpr std::nullopt_t absent = std::nullopt;

/// The number that comes right before `seconds`.
double before(double seconds) {
  return std::nextafter(seconds, -std::numeric_limits<double>::infinity());
}

/// Everything is on, and no time is set.
ResolvedCapturePolicy openPolicy() {
  ResolvedCapturePolicy policy;
  policy.enabled = true;
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    policy.types[category] = true;
  policy.extensions = {"md", "png", "zip", "a_b-1"};
  policy.includeExtensionless = true;
  policy.includeUnlistedExtensions = true;
  policy.includeAssistantResponses = true;
  return policy;
}

TEST(NormalizedExtension, IsStrippedLoweredAndWithoutOneDot) {
  for (const auto& [text, extension] : std::to_array<std::pair<std::string_view, std::string_view>>({
           {"md", "md"},
           {"MD", "md"},
           {".Md", "md"},
           {" \t.md\r\n", "md"},
           {"\x1C\x1F\u3000md\u0085", "md"},
           {"M\u212AD", "mkd"},
           {"7z", "7z"},
           {"a_b-1", "a_b-1"},
           {"a-", "a-"},
           {"0", "0"},
       }))
    EXPECT_THAT(normalizedExtension(text), Optional(std::string(extension))) << text;
  for (const std::string_view text : {"", " ", ".", "..md", ". md", "_a", "-a", "a b", "a.b", "é", "aé", "\u0130",
                                      "md\u200B", "\uFEFFmd", "md\xFF", "\xFF", "a/b", "\uFF41"})
    EXPECT_EQ(normalizedExtension(text), absent) << text;
  EXPECT_EQ(normalizedExtension(std::string_view("a\0", 2)), absent);
}

TEST(NormalizedExtension, HasAtMostTwentyCharacters) {
  EXPECT_THAT(normalizedExtension(std::string(19, 'A')), Optional(std::string(19, 'a')));
  EXPECT_THAT(normalizedExtension(std::string(20, 'a')), Optional(std::string(20, 'a')));
  EXPECT_THAT(normalizedExtension("." + std::string(20, 'a')), Optional(std::string(20, 'a')));
  EXPECT_EQ(normalizedExtension(std::string(21, 'a')), absent);
  EXPECT_EQ(normalizedExtension(std::string(1 << 20, 'a')), absent);
  EXPECT_THAT(normalizedExtension(std::string(1 << 20, ' ') + "md"), Optional(std::string("md")));
}

TEST(ArtifactAllowed, NeedsThePolicyAndTheCategoryToBeOn) {
  const ResolvedCapturePolicy open = openPolicy();
  EXPECT_TRUE(artifactAllowed(documents, 1.0, "md", open));
  ResolvedCapturePolicy policy = open;
  policy.enabled = false;
  EXPECT_FALSE(artifactAllowed(documents, 1.0, "md", policy));
  EXPECT_FALSE(artifactAllowed(documents, absent, absent, policy));
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    EXPECT_TRUE(artifactAllowed(category, absent, absent, open));
    policy = open;
    policy.types[category] = false;
    EXPECT_FALSE(artifactAllowed(category, absent, absent, policy));
    policy.types.erase(category);
    EXPECT_FALSE(artifactAllowed(category, absent, absent, policy));
  }
  EXPECT_FALSE(artifactAllowed(documents, absent, absent, ResolvedCapturePolicy()));
}

TEST(ArtifactAllowed, TakesAListedExtensionInAnySpelling) {
  const ResolvedCapturePolicy policy = openPolicy();
  for (const std::string_view extension : {"md", "MD", ".md", " .Md\n", "a_b-1", "zip"})
    EXPECT_TRUE(artifactAllowed(documents, 1.0, extension, policy)) << extension;
}

TEST(ArtifactAllowed, RefusesAnUnlistedExtensionButForOtherFiles) {
  ResolvedCapturePolicy policy = openPolicy();
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    EXPECT_EQ(artifactAllowed(category, 1.0, "py", policy), category == other) << id(category);
  policy.includeUnlistedExtensions = false;
  EXPECT_FALSE(artifactAllowed(other, 1.0, "py", policy));
  EXPECT_TRUE(artifactAllowed(other, 1.0, "zip", policy));
}

TEST(ArtifactAllowed, RefusesWhatHasNoNormalForm) {
  const ResolvedCapturePolicy policy = openPolicy();
  EXPECT_TRUE(artifactAllowed(other, 1.0, std::string(20, 'a'), policy));
  EXPECT_FALSE(artifactAllowed(other, 1.0, std::string(21, 'a'), policy));
  for (const std::string_view extension : {" ", ".", "é", "a b", "\xFF"})
    EXPECT_FALSE(artifactAllowed(other, 1.0, extension, policy)) << extension;
}

TEST(ArtifactAllowed, AsksOfAFileWithoutExtensionForItsSwitchAlone) {
  ResolvedCapturePolicy policy = openPolicy();
  policy.extensions.clear();
  policy.includeUnlistedExtensions = false;
  EXPECT_TRUE(artifactAllowed(code, 1.0, "", policy));
  EXPECT_TRUE(artifactAllowed(other, 1.0, "", policy));
  policy.includeExtensionless = false;
  policy.extensions = {""};
  policy.includeUnlistedExtensions = true;
  EXPECT_FALSE(artifactAllowed(code, 1.0, "", policy));
  EXPECT_FALSE(artifactAllowed(other, 1.0, "", policy));
}

TEST(ArtifactAllowed, AsksNothingAboutAnExtensionThatIsNotGiven) {
  ResolvedCapturePolicy policy = openPolicy();
  policy.extensions.clear();
  policy.includeExtensionless = false;
  policy.includeUnlistedExtensions = false;
  policy.extensionlessResumeSince = 50;
  policy.unlistedResumeSince = 50;
  policy.extensionResumeSince["md"] = 50;
  EXPECT_TRUE(artifactAllowed(documents, 1.0, absent, policy));
  // The times of the category go on to count.
  policy.typeResumeSince[documents] = 10;
  EXPECT_FALSE(artifactAllowed(documents, 9.0, absent, policy));
  EXPECT_TRUE(artifactAllowed(documents, 10.0, absent, policy));
}

TEST(ArtifactAllowed, CapturesFromTheVeryTimeOn) {
  static constexpr double since = 1767225600.5;
  struct Row {
    std::string_view what;
    void (*set)(ResolvedCapturePolicy& policy);
    std::optional<std::string_view> extension;
  };
  for (const Row& row : std::to_array<Row>({
           {"every file", [](ResolvedCapturePolicy& policy) { policy.resumeSince = since; }, "zip"},
           {"every file without extension", [](ResolvedCapturePolicy& policy) { policy.resumeSince = since; }, ""},
           {"the category", [](ResolvedCapturePolicy& policy) { policy.typeResumeSince[other] = since; }, absent},
           {"the extension", [](ResolvedCapturePolicy& policy) { policy.extensionResumeSince["zip"] = since; }, ".ZIP"},
           {"no extension", [](ResolvedCapturePolicy& policy) { policy.extensionlessResumeSince = since; }, ""},
           {"unlisted", [](ResolvedCapturePolicy& policy) { policy.unlistedResumeSince = since; }, "tgz"},
       })) {
    SCOPED_TRACE(row.what);
    ResolvedCapturePolicy policy = openPolicy();
    row.set(policy);
    EXPECT_FALSE(artifactAllowed(other, before(since), row.extension, policy));
    EXPECT_TRUE(artifactAllowed(other, since, row.extension, policy));
    EXPECT_TRUE(artifactAllowed(other, since + 1, row.extension, policy));
    // A file of an unknown time is never held back.
    EXPECT_TRUE(artifactAllowed(other, absent, row.extension, policy));
  }
}

TEST(ArtifactAllowed, IsNotHeldBackByTheTimesOfOtherFiles) {
  ResolvedCapturePolicy policy = openPolicy();
  policy.typeResumeSince[images] = 50;
  policy.extensionResumeSince["png"] = 50;
  policy.extensionlessResumeSince = 50;
  policy.unlistedResumeSince = 50;
  policy.assistantResponsesResumeSince = 50;
  policy.outputResumeSince["x"] = 50;
  EXPECT_TRUE(artifactAllowed(documents, 1.0, "md", policy));
  policy.unlistedResumeSince = absent;
  EXPECT_TRUE(artifactAllowed(other, 1.0, "tgz", policy));
  // An unlisted extension has no time of its own, even if one is there.
  policy.extensionResumeSince["tgz"] = 50;
  EXPECT_TRUE(artifactAllowed(other, 1.0, "tgz", policy));
}

TEST(ArtifactAllowed, IsGovernedByTheLatestTime) {
  for (const std::array<double, 3>& times : {std::array{1.0, 2.0, 3.0},
                                             {1.0, 3.0, 2.0},
                                             {2.0, 1.0, 3.0},
                                             {2.0, 3.0, 1.0},
                                             {3.0, 1.0, 2.0},
                                             {3.0, 2.0, 1.0}}) {
    ResolvedCapturePolicy policy = openPolicy();
    policy.resumeSince = times[0];
    policy.typeResumeSince[documents] = times[1];
    policy.extensionResumeSince["md"] = times[2];
    EXPECT_FALSE(artifactAllowed(documents, 2.5, "md", policy));
    EXPECT_TRUE(artifactAllowed(documents, 3.0, "md", policy));
  }
  // A time before 1970 is a time.
  ResolvedCapturePolicy policy = openPolicy();
  policy.resumeSince = -5;
  EXPECT_FALSE(artifactAllowed(documents, -6.0, "md", policy));
  EXPECT_TRUE(artifactAllowed(documents, -5.0, "md", policy));
}

/// A policy that captures no answers.
ResolvedCapturePolicy silentPolicy() {
  ResolvedCapturePolicy policy = openPolicy();
  policy.includeAssistantResponses = false;
  return policy;
}

TEST(AssistantResponseAllowed, LetsThroughWhatIsNoAnswer) {
  const ResolvedCapturePolicy policy = silentPolicy();
  EXPECT_FALSE(assistantResponseAllowed("candidate", /*hasSourcePath=*/false, documents, absent, 1.0, policy));
  EXPECT_FALSE(assistantResponseAllowed("candidate", /*hasSourcePath=*/false, absent, absent, absent, policy));
  EXPECT_TRUE(assistantResponseAllowed(absent, /*hasSourcePath=*/false, documents, absent, 1.0, policy));
  for (const std::string_view kind : {"", "Candidate", "candidate ", "markdown"})
    EXPECT_TRUE(assistantResponseAllowed(kind, /*hasSourcePath=*/false, documents, absent, 1.0, policy)) << kind;
  EXPECT_TRUE(assistantResponseAllowed("candidate", /*hasSourcePath=*/true, documents, absent, 1.0, policy));
}

TEST(AssistantResponseAllowed, LetsPlansThrough) {
  const ResolvedCapturePolicy policy = silentPolicy();
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    EXPECT_EQ(assistantResponseAllowed("candidate", /*hasSourcePath=*/false, category, absent, 1.0, policy),
              category == plans);
  for (const std::string_view event : {"codex-proposed-plan", "plan-file:", "plan-file:/a/b.md"})
    EXPECT_TRUE(assistantResponseAllowed("candidate", /*hasSourcePath=*/false, documents, event, 1.0, policy)) << event;
  for (const std::string_view event : {"", "codex-proposed-plans", "codex-proposed-pla", "Codex-proposed-plan",
                                       "plan-file", "plan-File:", " plan-file:"})
    EXPECT_FALSE(assistantResponseAllowed("candidate", /*hasSourcePath=*/false, documents, event, 1.0, policy))
        << event;
}

TEST(AssistantResponseAllowed, CapturesFromTheVeryTimeOnAndNothingOfUnknownTime) {
  ResolvedCapturePolicy policy = openPolicy();
  const auto isAllowed = [&](std::optional<double> observedAt) {
    return assistantResponseAllowed("candidate", /*hasSourcePath=*/false, documents, "stop", observedAt, policy);
  };
  EXPECT_TRUE(isAllowed(1.0));
  EXPECT_TRUE(isAllowed(absent));
  policy.assistantResponsesResumeSince = 10;
  EXPECT_FALSE(isAllowed(before(10)));
  EXPECT_TRUE(isAllowed(10.0));
  EXPECT_FALSE(isAllowed(absent));
  // The times of files say nothing here.
  policy.resumeSince = 50;
  policy.typeResumeSince[documents] = 50;
  EXPECT_TRUE(isAllowed(10.0));
  policy.includeAssistantResponses = false;
  EXPECT_FALSE(isAllowed(10.0));
  // A time does not hold back what is let through for another reason.
  EXPECT_TRUE(assistantResponseAllowed("candidate", /*hasSourcePath=*/true, documents, "stop", absent, policy));
}

TEST(SubagentArtifactAllowed, LetsThroughWhatIsNoSubagents) {
  const CapturePreferences closed;
  for (const bool isSubagentResponse : {false, true}) {
    for (const bool response : {false, true}) {
      EXPECT_TRUE(subagentArtifactAllowed(false, isSubagentResponse, response, absent, closed));
      EXPECT_FALSE(subagentArtifactAllowed(true, isSubagentResponse, response, absent, closed));
      // Only both together say that it is a subagent's where nothing else does.
      EXPECT_EQ(subagentArtifactAllowed(absent, isSubagentResponse, response, absent, closed),
                !(isSubagentResponse && response));
    }
  }
}

TEST(SubagentArtifactAllowed, LetsAnswersThroughWhereTheyAreWanted) {
  CapturePreferences preferences;
  preferences.includeSubagentResponses = true;
  preferences.subagentArtifactsResumeSince = "2026-01-01T00:00:00Z";
  EXPECT_TRUE(subagentArtifactAllowed(true, /*isSubagentResponse=*/false, /*response=*/true, absent, preferences));
  EXPECT_TRUE(subagentArtifactAllowed(absent, /*isSubagentResponse=*/true, /*response=*/true, 1.0, preferences));
  EXPECT_FALSE(subagentArtifactAllowed(true, /*isSubagentResponse=*/true, /*response=*/false, absent, preferences));
}

TEST(SubagentArtifactAllowed, CapturesFromTheVeryTimeOn) {
  CapturePreferences preferences;
  preferences.includeSubagentArtifacts = true;
  const auto isAllowed = [&](std::optional<double> observedAt) {
    return subagentArtifactAllowed(true, /*isSubagentResponse=*/false, /*response=*/false, observedAt, preferences);
  };
  EXPECT_TRUE(isAllowed(absent));
  preferences.subagentArtifactsResumeSince = "2026-01-01T00:00:00Z";
  EXPECT_FALSE(isAllowed(before(1767225600)));
  EXPECT_TRUE(isAllowed(1767225600.0));
  EXPECT_FALSE(isAllowed(absent));
  // Also answers, where not all answers are wanted.
  EXPECT_FALSE(subagentArtifactAllowed(true, /*isSubagentResponse=*/true, /*response=*/true, 1.0, preferences));
  EXPECT_TRUE(subagentArtifactAllowed(true, /*isSubagentResponse=*/true, /*response=*/true, 1767225600.0, preferences));
  preferences.includeSubagentArtifacts = false;
  EXPECT_FALSE(isAllowed(1767225600.0));
}

TEST(SubagentArtifactAllowed, LetsNothingInUnderATimeThatCannotBeRead) {
  CapturePreferences preferences;
  preferences.includeSubagentArtifacts = true;
  for (const std::string_view since : {"", "yesterday", "2026-01-01", "2026-01-01T00:00:00", "2026-01-01T00:00:00z"}) {
    preferences.subagentArtifactsResumeSince = since;
    EXPECT_FALSE(subagentArtifactAllowed(true, /*isSubagentResponse=*/false, /*response=*/false, 4e9, preferences))
        << since;
    EXPECT_FALSE(subagentArtifactAllowed(true, /*isSubagentResponse=*/false, /*response=*/false, absent, preferences));
  }
}

}  // namespace
}  // namespace tessary::CaptureRules
