// What older and partial files become, case by case. CapturePreferencesReferenceTests.cpp holds all combinations of
// keys against a reference.

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryPlatform/json/JSONRecord.h"

#include "ReadPreferences.h"

namespace tessary {
namespace {

using Texts = std::vector<std::string>;

Texts extensionsOf(const CapturePreferences& value) {
  return {value.extensions.values().begin(), value.extensions.values().end()};
}

std::set<ArtifactCategory> categoriesOf(const CapturePreferences& value) {
  std::set<ArtifactCategory> on;
  EXPECT_EQ(value.types.size(), 7);
  for (const auto& [category, isOn] : value.types) {
    if (isOn) on.insert(category);
  }
  return on;
}

using enum ArtifactCategory;
using Categories = std::set<ArtifactCategory>;

const Texts sortedDefaults{"gif", "heic", "heif", "htm", "html", "jpeg", "jpg", "markdown", "md", "png", "webp"};
const Texts videoList{"avi", "m4v", "mkv", "mov", "mp4", "mpeg", "mpg", "webm"};
const Texts documentList{"htm",  "html", "markdown", "md",  "mdown", "mdtext", "mdtxt",
                         "mdwn", "mkd",  "mkdn",     "qmd", "rmd",   "xhtml"};

Texts joined(Texts one, const Texts& other) {
  one.insert(one.end(), other.begin(), other.end());
  std::ranges::sort(one);
  one.erase(std::ranges::unique(one).begin(), one.end());
  return one;
}

TEST(CapturePreferencesMigration, AnEmptyFileHasDocumentsPlansAndImages) {
  const CapturePreferences read = preferences("{}");
  EXPECT_TRUE(read.enabled);
  EXPECT_EQ(categoriesOf(read), (Categories{documents, plans, images}));
  EXPECT_EQ(extensionsOf(read), sortedDefaults);
  for (const bool isOn : {read.includeExtensionless, read.includeUnlistedExtensions, read.includeAssistantResponses,
                          read.includeSubagentResponses, read.includeSubagentArtifacts, read.captureTitleChanges,
                          read.captureLocationChanges, read.showsAgentHomeFiles, read.includesUserFiles,
                          read.includeTemporaryFolderDocuments}) {
    EXPECT_FALSE(isOn);
  }
  for (const std::optional<std::string>& time :
       {read.assistantResponsesResumeSince, read.subagentArtifactsResumeSince, read.documentChangesReviewSince,
        read.resumeSince, read.extensionlessResumeSince, read.unlistedResumeSince}) {
    EXPECT_EQ(time, std::nullopt);
  }
  EXPECT_TRUE(read.excludedDocumentIDs.empty() && read.typeResumeSince.empty() && read.extensionResumeSince.empty());
  EXPECT_TRUE(read.agentStores.empty() && read.outputs.empty() && read.outputResumeSince.empty());
  EXPECT_EQ(read.readsSessionRecords, std::nullopt);
  EXPECT_EQ(read.collectionDefaultsVersion, std::nullopt);
}

TEST(CapturePreferencesMigration, OtherFilesOfAnOldFileBringVideos) {
  const CapturePreferences read = preferences(R"({"types":{"other":true}})");
  EXPECT_TRUE(read.includeExtensionless);
  EXPECT_TRUE(read.includeUnlistedExtensions);
  EXPECT_EQ(categoriesOf(read), (Categories{documents, plans, images, videos, other}));
  EXPECT_EQ(extensionsOf(read), joined(sortedDefaults, videoList));
}

TEST(CapturePreferencesMigration, VideosThatAreOffStayOff) {
  const CapturePreferences read = preferences(R"({"types":{"videos":false,"other":true}})");
  EXPECT_EQ(categoriesOf(read), (Categories{documents, plans, images, other}));
  EXPECT_EQ(extensionsOf(read), sortedDefaults);
}

TEST(CapturePreferencesMigration, CodeOfAnOldFileBringsItsExtensionsAndFilesWithout) {
  const CapturePreferences read = preferences(R"({"types":{"code":true}})");
  EXPECT_TRUE(read.includeExtensionless);
  EXPECT_FALSE(read.includeUnlistedExtensions);
  const auto code94 = fileExtensions(code);
  ASSERT_EQ(code94.size(), 94);
  EXPECT_EQ(extensionsOf(read), joined(sortedDefaults, Texts(code94.begin(), code94.end())));
}

TEST(CapturePreferencesMigration, ExtensionsAreNormalised) {
  EXPECT_EQ(extensionsOf(preferences(R"({"extensions":["MD",".Png","bad ext","x.y"]})")), (Texts{"md", "png"}));
  EXPECT_EQ(extensionsOf(preferences(R"({"extensions":[]})")), Texts());
}

TEST(CapturePreferencesMigration, AListInTheFileIsNotWidenedByItsCategories) {
  const CapturePreferences read = preferences(R"({"extensions":["md"],"types":{"code":true}})");
  EXPECT_EQ(extensionsOf(read), Texts{"md"});
  EXPECT_EQ(categoriesOf(read), (Categories{documents, plans, images, code}));
  EXPECT_FALSE(read.includeExtensionless);
}

TEST(CapturePreferencesMigration, TypesOfAnOldFileBringTheirExtensions) {
  EXPECT_EQ(extensionsOf(preferences(R"({"types":{"plans":true}})")), joined(sortedDefaults, documentList));
  EXPECT_EQ(extensionsOf(preferences(R"({"types":{"documents":true}})")), joined(sortedDefaults, documentList));
  EXPECT_EQ(extensionsOf(preferences(R"({"types":{"pdfs":true}})")), joined(sortedDefaults, {"pdf"}));
  EXPECT_EQ(extensionsOf(preferences(R"({"types":{"images":false}})")), sortedDefaults);
}

TEST(CapturePreferencesMigration, CategoriesFollowFromTheListWhereTheyAreNotSaid) {
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["PDF"]})")), (Categories{documents, plans, images, pdfs}));
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["py"]})")), (Categories{documents, plans, images, code}));
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["docx"]})")), (Categories{documents, plans, images, other}));
  // A listed video was an "other" file.
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["mp4"]})")),
            (Categories{documents, plans, images, videos, other}));
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["mp4"],"types":{"videos":true}})")),
            (Categories{documents, plans, images, videos}));
  EXPECT_EQ(categoriesOf(preferences(R"({"extensions":["mp4"],"types":{"other":false}})")),
            (Categories{documents, plans, images}));
}

TEST(CapturePreferencesMigration, UnlistedVideosOfAnOldListAreListed) {
  EXPECT_EQ(extensionsOf(preferences(R"({"extensions":["docx"],"includeUnlistedExtensions":true})")),
            joined({"docx"}, videoList));
  EXPECT_EQ(extensionsOf(preferences(R"({"extensions":["docx"],"includeUnlistedExtensions":false})")), Texts{"docx"});
  EXPECT_EQ(extensionsOf(preferences(R"({"extensions":["docx"]})")), Texts{"docx"});
}

TEST(CapturePreferencesMigration, VideosTakeOverTheTimeOfOtherFiles) {
  using Times = CapturePreferences::Times;
  const auto times = [](std::string_view json) { return preferences(json).typeResumeSince; };
  EXPECT_EQ(times(R"({"typeResumeSince":{"other":"2026-02-01"}})"),
            (Times{{"other", "2026-02-01"}, {"videos", "2026-02-01"}}));
  EXPECT_EQ(times(R"({"typeResumeSince":{"other":"2026-02-01","videos":"2026-01-31"}})"),
            (Times{{"other", "2026-02-01"}, {"videos", "2026-02-01"}}));
  EXPECT_EQ(times(R"({"typeResumeSince":{"other":"2026-02-01","videos":"2026-02-02"}})"),
            (Times{{"other", "2026-02-01"}, {"videos", "2026-02-02"}}));
  EXPECT_EQ(times(R"({"typeResumeSince":{"other":""}})"), (Times{{"other", ""}, {"videos", ""}}));
  EXPECT_EQ(times(R"({"typeResumeSince":{"videos":"2026-02-02"}})"), (Times{{"videos", "2026-02-02"}}));
  EXPECT_EQ(times(R"({"types":{"videos":false},"typeResumeSince":{"other":"2026-02-01"}})"),
            (Times{{"other", "2026-02-01"}}));
}

TEST(CapturePreferencesMigration, OfTwoKeysThatNormaliseAlikeTheLaterTimeStays) {
  using Times = CapturePreferences::Times;
  EXPECT_EQ(preferences(R"({"extensionResumeSince":{"MD":"2026-01-01","md":"2026-01-03"," .Md ":"2026-01-02",)"
                        R"("a b":"2027","":"2027","PNG":""}})")
                .extensionResumeSince,
            (Times{{"md", "2026-01-03"}, {"png", ""}}));
  // By scalars, not by UTF-16 units.
  EXPECT_EQ(preferences("{\"extensionResumeSince\":{\"MD\":\"\U0001F600\",\"md\":\"\uFF5E\"}}").extensionResumeSince,
            (Times{{"md", "\U0001F600"}}));
}

TEST(CapturePreferencesMigration, VideosThatWereNotListedTakeOverTheTimeOfUnlistedFiles) {
  using Times = CapturePreferences::Times;
  EXPECT_EQ(preferences(R"({"extensions":["docx",".MP4","mov"],"includeUnlistedExtensions":true,)"
                        R"("unlistedResumeSince":"2026-02-01",)"
                        R"("extensionResumeSince":{"mov":"2026-01-01","AVI":"2026-01-01","mkv":"2026-03-01"}})")
                .extensionResumeSince,
            (Times{{"avi", "2026-02-01"},
                   {"m4v", "2026-02-01"},
                   {"mkv", "2026-03-01"},
                   {"mov", "2026-01-01"},
                   {"mpeg", "2026-02-01"},
                   {"mpg", "2026-02-01"},
                   {"webm", "2026-02-01"}}));
  EXPECT_EQ(preferences(R"({"extensions":["docx"],"unlistedResumeSince":"2026-02-01"})").extensionResumeSince, Times());
}

TEST(CapturePreferencesMigration, ExcludedDocumentsAreSortedAndUnique) {
  EXPECT_EQ(preferences(R"({"excludedDocumentIDs":["b","a","b","B",""]})").excludedDocumentIDs,
            (std::set<std::string>{"", "B", "a", "b"}));
}

TEST(CapturePreferencesMigration, PreferencesAreBuiltByTheRulesOfReading) {
  CapturePreferences::Choices choices;
  choices.enabled = false;
  // Of a key that occurs twice the last counts.
  choices.types = JSONPairs<bool>{{"other", false}, {"music", true}, {"other", true}};
  choices.resumeSince = "2026-01-01T00:00:00Z";
  choices.typeResumeSince = CapturePreferences::Times{{"other", "2026-02-01"}};
  choices.extensionResumeSince = CapturePreferences::Times{{" .MD", "2026-02-02"}, {"?", "2026-02-03"}};
  choices.excludedDocumentIDs = std::set<std::string>{"b", "a"};
  choices.readsSessionRecords = true;
  const CapturePreferences expected = preferences(
      R"({"enabled":false,"types":{"music":true,"other":true},"resumeSince":"2026-01-01T00:00:00Z",)"
      R"("typeResumeSince":{"other":"2026-02-01"},"extensionResumeSince":{" .MD":"2026-02-02","?":"2026-02-03"},)"
      R"("excludedDocumentIDs":["a","b"],"readsSessionRecords":true})");
  EXPECT_EQ(CapturePreferences(choices), expected);
  EXPECT_EQ(expected.typeResumeSince.at("videos"), "2026-02-01");
  EXPECT_EQ(expected.extensionResumeSince, (CapturePreferences::Times{{"md", "2026-02-02"}}));
  EXPECT_EQ(CapturePreferences(CapturePreferences::Choices()), preferences("{}"));
  EXPECT_EQ(CapturePreferences(), preferences("{}"));
}

TEST(CapturePreferencesMigration, EveryChoiceReachesItsField) {
  CapturePreferences::Choices choices;
  choices.includeAssistantResponses = true;
  choices.assistantResponsesResumeSince = "1";
  choices.includeSubagentResponses = true;
  choices.includeSubagentArtifacts = true;
  choices.subagentArtifactsResumeSince = "2";
  choices.documentChangesReviewSince = "3";
  choices.captureTitleChanges = true;
  choices.captureLocationChanges = true;
  choices.showsAgentHomeFiles = true;
  choices.includesUserFiles = true;
  choices.includeTemporaryFolderDocuments = true;
  choices.resumeSince = "4";
  choices.extensionlessResumeSince = "5";
  choices.unlistedResumeSince = "6";
  choices.agentStores = CapturePreferences::Switches{{"claude", true}};
  choices.outputs = CapturePreferences::Switches{{"manus", false}};
  choices.outputResumeSince = CapturePreferences::Times{{"manus", "7"}};
  CapturePreferences expected;
  expected.includeAssistantResponses = true;
  expected.assistantResponsesResumeSince = "1";
  expected.includeSubagentResponses = true;
  expected.includeSubagentArtifacts = true;
  expected.subagentArtifactsResumeSince = "2";
  expected.documentChangesReviewSince = "3";
  expected.captureTitleChanges = true;
  expected.captureLocationChanges = true;
  expected.showsAgentHomeFiles = true;
  expected.includesUserFiles = true;
  expected.includeTemporaryFolderDocuments = true;
  expected.resumeSince = "4";
  expected.extensionlessResumeSince = "5";
  expected.unlistedResumeSince = "6";
  expected.agentStores = {{"claude", true}};
  expected.outputs = {{"manus", false}};
  expected.outputResumeSince = {{"manus", "7"}};
  EXPECT_EQ(CapturePreferences(choices), expected);
}

}  // namespace
}  // namespace tessary
