#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/NativeCaptureFeature.h"

namespace tessary {
namespace {

namespace Feature = NativeCaptureFeature;
using Feature::Mode;
using Feature::Modes;
using Feature::Stage;

Modes everywhere(Mode mode) {
  return {{Stage::merge, mode},  {Stage::policy, mode}, {Stage::claude, mode}, {Stage::codex, mode},
          {Stage::hermes, mode}, {Stage::gemini, mode}, {Stage::folders, mode}};
}

Modes modes(const std::string& value) {
  return Feature::modes({{"PATH", "/bin"}, {"TESSARY_NATIVE_CAPTURE", value}});
}

TEST(NativeCaptureFeature, TheVocabulariesHaveTheirRawValuesInOrder) {
  std::vector<std::string_view> stages;
  for (const Stage stage : allCases<Stage>())
    stages.push_back(rawValue(stage));
  EXPECT_EQ(stages,
            (std::vector<std::string_view>{"merge", "policy", "claude", "codex", "hermes", "gemini", "folders"}));
  std::vector<std::string_view> names;
  for (const Mode mode : allCases<Mode>())
    names.push_back(rawValue(mode));
  EXPECT_EQ(names, (std::vector<std::string_view>{"python", "swift", "swiftOnly"}));
  EXPECT_EQ(Feature::environmentKey, "TESSARY_NATIVE_CAPTURE");
}

TEST(NativeCaptureFeature, TheApplicationUsesTheNativeEngineAlone) {
  EXPECT_EQ(Feature::app(), everywhere(Mode::swiftOnly));
}

TEST(NativeCaptureFeature, ATextOfEntriesIsParsed) {
  EXPECT_EQ(Feature::parse(""), Modes());
  EXPECT_EQ(Feature::parse("merge=swift,policy=swift,folders=swiftOnly"),
            (Modes{{Stage::merge, Mode::swift}, {Stage::policy, Mode::swift}, {Stage::folders, Mode::swiftOnly}}));
  EXPECT_EQ(Feature::parse("codex=python"), (Modes{{Stage::codex, Mode::python}}));
  EXPECT_EQ(Feature::parse("merge=swift,merge=python,codex=swift,merge=swiftOnly"),
            (Modes{{Stage::merge, Mode::swiftOnly}, {Stage::codex, Mode::swift}}));
}

TEST(NativeCaptureFeature, OneWrongEntryMakesTheWholeTextWrong) {
  for (const std::string_view text : {"merge=swift,",
                                      ",merge=swift",
                                      ",",
                                      "merge=swift,,policy=swift",
                                      "merge",
                                      "=",
                                      "merge=",
                                      "=swift",
                                      "==",
                                      "merge==swift",
                                      "merge=swift=",
                                      "merge=swift=x",
                                      "merge=Swift",
                                      "Merge=swift",
                                      "merge=swiftonly",
                                      " merge=swift",
                                      "merge =swift",
                                      "merge= swift",
                                      "merge=swift ",
                                      "merge=swift, policy=swift",
                                      "merge=swift\n",
                                      "merge=swift;policy=swift",
                                      "folder=swift",
                                      "shadow=swift",
                                      "merge=native",
                                      " ",
                                      "\xff",
                                      "merge=swift,policy=swift,folders=on"}) {
    EXPECT_EQ(Feature::parse(text), std::nullopt) << text;
  }
  EXPECT_EQ(Feature::parse(std::string_view("merge=swift\0", 12)), std::nullopt);
}

TEST(NativeCaptureFeature, EveryStageTakesEveryMode) {
  for (const Stage stage : allCases<Stage>()) {
    for (const Mode mode : allCases<Mode>()) {
      EXPECT_EQ(Feature::parse(std::string(rawValue(stage)) + "=" + std::string(rawValue(mode))),
                (Modes{{stage, mode}}));
    }
  }
}

TEST(NativeCaptureFeature, TheEnvironmentReplacesWhatItNames) {
  EXPECT_EQ(Feature::modes({}), everywhere(Mode::python));
  EXPECT_EQ(Feature::modes({{"tessary_native_capture", "merge=swift"}}), everywhere(Mode::python));
  EXPECT_EQ(modes(""), everywhere(Mode::python));
  Modes expected = everywhere(Mode::python);
  expected[Stage::merge] = Mode::swift;
  expected[Stage::gemini] = Mode::swiftOnly;
  EXPECT_EQ(modes("merge=swift,gemini=swiftOnly"), expected);
}

TEST(NativeCaptureFeature, AMistakeTurnsNothingOn) {
  EXPECT_EQ(modes("merge=swift,policy=swift,"), everywhere(Mode::python));
  EXPECT_EQ(modes("merge=swiftOnly,polcy=swiftOnly"), everywhere(Mode::python));
}

TEST(NativeCaptureFeature, RecordsAreNativeOnlyWhereTheCommonStagesAre) {
  const std::vector<std::optional<Mode>> choices{std::nullopt, Mode::python, Mode::swift, Mode::swiftOnly};
  for (const auto& merge : choices) {
    for (const auto& policy : choices) {
      for (const auto& folders : choices) {
        Modes modes;
        if (merge) modes[Stage::merge] = *merge;
        if (policy) modes[Stage::policy] = *policy;
        if (folders) modes[Stage::folders] = *folders;
        const bool isCommon = merge && merge != Mode::python && policy && policy != Mode::python;
        const Mode expected = isCommon && folders ? *folders : Mode::python;
        EXPECT_EQ(Feature::recordMode(Stage::folders, modes), expected);
        EXPECT_EQ(Feature::folders(modes), expected);
        EXPECT_EQ(Feature::recordMode(Stage::merge, modes), isCommon ? *merge : Mode::python);
        EXPECT_EQ(Feature::recordMode(Stage::claude, modes), Mode::python);
      }
    }
  }
}

TEST(NativeCaptureFeature, ALongTextIsParsedInOnePass) {
  std::string text = "merge=swift";
  for (int index = 0; index < 100'000; ++index)
    text += ",policy=python";
  EXPECT_EQ(Feature::parse(text), (Modes{{Stage::merge, Mode::swift}, {Stage::policy, Mode::python}}));
  EXPECT_EQ(Feature::parse(text + ","), std::nullopt);
}

}  // namespace
}  // namespace tessary
