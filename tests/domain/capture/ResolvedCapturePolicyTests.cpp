#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/ResolvedCapturePolicy.h"
#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {
namespace {

ResolvedCapturePolicy policy(std::string_view json) {
  const auto value = JSONValue::parse(json);
  EXPECT_TRUE(value) << json;
  return ResolvedCapturePolicy::fromJSON(value.value_or(JSONValue()));
}

struct Truth {
  std::string_view json;
  bool isTrue;
};

// As `bool()` of what Python's `json.loads` makes of the text.
constexpr auto truths = std::to_array<Truth>({
    {"null", false},
    {"false", false},
    {"true", true},
    {"0", false},
    {"-0", false},
    {"0.0", false},
    {"-0.0", false},
    {"0e5", false},
    {"1", true},
    {"-1", true},
    {"0.5", true},
    {"5e-324", true},
    {"1e999", true},
    {"-1e999", true},
    {"9223372036854775807", true},
    {"9223372036854775808", true},
    {"-9223372036854775809", true},
    {"100000000000000000000000000000000000000000", true},
    {R"("")", false},
    {R"("no")", true},
    {R"("0")", true},
    {R"("false")", true},
    {R"(" ")", true},
    {R"("\u0000")", true},
    {"[]", false},
    {"[false]", true},
    {"[[]]", true},
    {"{}", false},
    {R"({"":null})", true},
});

TEST(ResolvedCapturePolicy, ASwitchIsOnWherePythonTakesItsValueForTrue) {
  const std::vector<std::pair<std::string, bool ResolvedCapturePolicy::*>> switches{
      {"enabled", &ResolvedCapturePolicy::enabled},
      {"includeExtensionless", &ResolvedCapturePolicy::includeExtensionless},
      {"includeUnlistedExtensions", &ResolvedCapturePolicy::includeUnlistedExtensions},
      {"includeAssistantResponses", &ResolvedCapturePolicy::includeAssistantResponses},
      {"capture_title_changes", &ResolvedCapturePolicy::captureTitleChanges},
      {"capture_location_changes", &ResolvedCapturePolicy::captureLocationChanges},
  };
  for (const auto& [key, member] : switches) {
    for (const Truth& truth : truths) {
      // Nothing else may change with it.
      ResolvedCapturePolicy expected;
      expected.*member = truth.isTrue;
      EXPECT_EQ(policy("{\"" + key + "\":" + std::string(truth.json) + "}"), expected) << key << ": " << truth.json;
    }
  }
}

TEST(ResolvedCapturePolicy, TheSwitchesOfMapsHaveTheSameTruth) {
  for (const Truth& truth : truths) {
    const std::string value(truth.json);
    EXPECT_EQ(policy("{\"types\":{\"code\":" + value + "}}").types,
              (std::map<ArtifactCategory, bool>{{ArtifactCategory::code, truth.isTrue}}))
        << value;
    const ResolvedCapturePolicy outputs = policy("{\"outputs\":{\"manus\":" + value + "}}");
    EXPECT_EQ(outputs.outputs.size(), 1) << value;
    EXPECT_EQ(outputs.outputs.at("manus"), truth.isTrue) << value;
  }
}

TEST(ResolvedCapturePolicy, AnUndefinedNumberIsTrue) {
  JSONValue json;
  json.set("enabled", std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(ResolvedCapturePolicy::fromJSON(json).enabled);
}

struct Time {
  std::string_view json;
  std::optional<double> seconds;
};

const std::vector<Time>& times() {
  static const std::vector<Time> rows{
      {"null", std::nullopt},
      {"true", std::nullopt},
      {"false", std::nullopt},
      {"0", 0.0},
      {"-0.0", 0.0},
      {"1767225600", 1767225600.0},
      {"1767225600.25", 1767225600.25},
      {"-1", -1.0},
      {"9007199254740993", 9007199254740992.0},
      {"18446744073709551616", 18446744073709551616.0},
      {"1e999", std::numeric_limits<double>::infinity()},
      {R"("1767225600")", std::nullopt},
      {R"("")", std::nullopt},
      {"[1]", std::nullopt},
      {"[]", std::nullopt},
      {R"({"a":1})", std::nullopt},
  };
  return rows;
}

TEST(ResolvedCapturePolicy, ATimeIsAnyNumberAndABooleanIsNone) {
  const std::vector<std::pair<std::string, std::optional<double> ResolvedCapturePolicy::*>> fields{
      {"resumeSince", &ResolvedCapturePolicy::resumeSince},
      {"extensionlessResumeSince", &ResolvedCapturePolicy::extensionlessResumeSince},
      {"unlistedResumeSince", &ResolvedCapturePolicy::unlistedResumeSince},
      {"assistantResponsesResumeSince", &ResolvedCapturePolicy::assistantResponsesResumeSince},
  };
  for (const auto& [key, member] : fields) {
    for (const Time& time : times()) {
      ResolvedCapturePolicy expected;
      expected.*member = time.seconds;
      EXPECT_EQ(policy("{\"" + key + "\":" + std::string(time.json) + "}"), expected) << key << ": " << time.json;
    }
  }
}

TEST(ResolvedCapturePolicy, WhatIsNoTimeIsLeftOutOfAMap) {
  for (const Time& time : times()) {
    const std::string value(time.json);
    ResolvedCapturePolicy expected;
    if (time.seconds) {
      expected.typeResumeSince = {{ArtifactCategory::plans, *time.seconds}};
      expected.extensionResumeSince = {{"MD", *time.seconds}};
      expected.outputResumeSince = {{"unknown", *time.seconds}};
    }
    EXPECT_EQ(policy("{\"typeResumeSince\":{\"plans\":" + value + "},\"extensionResumeSince\":{\"MD\":" + value +
                     "},\"outputResumeSince\":{\"unknown\":" + value + "}}"),
              expected)
        << value;
  }
}

TEST(ResolvedCapturePolicy, UnknownCategoriesAreDroppedAndOtherKeysKept) {
  const ResolvedCapturePolicy read = policy(R"({
      "types": {"other": 1, "Documents": true, "documents": 0, "": true, "spreadsheets": true},
      "typeResumeSince": {"videos": 3, "music": 4},
      "extensionResumeSince": {" .Md": 1, "": 2},
      "outputs": {"manus": 0, "later": 1},
      "outputResumeSince": {"downloadsInbox": 5, "later": 6}})");
  EXPECT_EQ(read.types,
            (std::map<ArtifactCategory, bool>{{ArtifactCategory::documents, false}, {ArtifactCategory::other, true}}));
  EXPECT_EQ(read.typeResumeSince, (std::map<ArtifactCategory, double>{{ArtifactCategory::videos, 3}}));
  EXPECT_EQ(read.extensionResumeSince, (decltype(read.extensionResumeSince){{" .Md", 1}, {"", 2}}));
  EXPECT_EQ(read.outputs, (decltype(read.outputs){{"manus", false}, {"later", true}}));
  EXPECT_EQ(read.outputResumeSince, (decltype(read.outputResumeSince){{"downloadsInbox", 5}, {"later", 6}}));
}

TEST(ResolvedCapturePolicy, ExtensionsAreKeptAsTheyStandAndWhatIsNoTextIsDropped) {
  EXPECT_EQ(policy(R"({"extensions":["MD"," .png","","md",null,true,1,["md"],{"a":"b"},"md"]})").extensions,
            (decltype(ResolvedCapturePolicy::extensions){"", " .png", "MD", "md"}));
}

TEST(ResolvedCapturePolicy, AListOrMapOfAnotherTypeIsEmpty) {
  for (const std::string_view other : {"null", "true", "1", R"("md")", R"({"0":"md"})"})
    EXPECT_EQ(policy("{\"extensions\":" + std::string(other) + "}"), ResolvedCapturePolicy()) << other;
  for (const std::string_view key :
       {"types", "typeResumeSince", "extensionResumeSince", "outputs", "outputResumeSince"}) {
    for (const std::string_view other : {"null", "true", "1", R"("code")", R"(["code"])", "[]"}) {
      EXPECT_EQ(policy("{\"" + std::string(key) + "\":" + std::string(other) + "}"), ResolvedCapturePolicy())
          << key << ": " << other;
    }
  }
}

TEST(ResolvedCapturePolicy, WhatIsNoObjectHasNoKeys) {
  for (const std::string_view json : {"null", "true", "1", R"("enabled")", R"(["enabled"])", "{}"})
    EXPECT_EQ(policy(json), ResolvedCapturePolicy()) << json;
}

TEST(ResolvedCapturePolicy, TheNamesOfTheFieldsForChangesAreNoKeys) {
  EXPECT_EQ(policy(R"({"captureTitleChanges":true,"captureLocationChanges":true,"Enabled":true})"),
            ResolvedCapturePolicy());
}

TEST(ResolvedCapturePolicy, ReadsAWholeObject) {
  const ResolvedCapturePolicy expected{
      .enabled = true,
      .types = {{ArtifactCategory::documents, true}, {ArtifactCategory::code, false}},
      .extensions = {"md", "png"},
      .includeExtensionless = true,
      .includeUnlistedExtensions = false,
      .includeAssistantResponses = true,
      .captureTitleChanges = false,
      .captureLocationChanges = true,
      .resumeSince = 1,
      .typeResumeSince = {{ArtifactCategory::documents, 2}},
      .extensionResumeSince = {{"md", 3}},
      .extensionlessResumeSince = 4,
      .unlistedResumeSince = 5,
      .assistantResponsesResumeSince = 6,
      .outputs = {{"manus", true}},
      .outputResumeSince = {{"manus", 7}},
  };
  EXPECT_EQ(policy(R"({"enabled":true,"types":{"documents":true,"code":false},"extensions":["png","md"],
      "includeExtensionless":true,"includeUnlistedExtensions":false,"includeAssistantResponses":true,
      "capture_title_changes":false,"capture_location_changes":true,"resumeSince":1,
      "typeResumeSince":{"documents":2},"extensionResumeSince":{"md":3},"extensionlessResumeSince":4,
      "unlistedResumeSince":5,"assistantResponsesResumeSince":6,"outputs":{"manus":true},
      "outputResumeSince":{"manus":7},"unknown":{"enabled":false}})"),
            expected);
}

}  // namespace
}  // namespace tessary
