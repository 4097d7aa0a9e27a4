// Asking preferences, and changing them.

#include <array>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"

namespace tessary {
namespace {

using enum ArtifactCategory;
using Texts = std::vector<std::string>;

ExtensionList list(const Texts& texts) {
  return ExtensionList(texts);
}

/// Nothing listed and every category off.
CapturePreferences nothing() {
  CapturePreferences value;
  value.extensions = {};
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    value.types[category] = false;
  return value;
}

/// `value` after `change`.
CapturePreferences changed(CapturePreferences value, const std::function<void(CapturePreferences&)>& change) {
  change(value);
  return value;
}

TEST(CapturePreferences, TheTablesHoldTheirExtensionsInOrder) {
  EXPECT_EQ(Texts(CapturePreferences::defaultExtensions.begin(), CapturePreferences::defaultExtensions.end()),
            (Texts{"md", "markdown", "html", "htm", "png", "jpg", "jpeg", "gif", "webp", "heic", "heif"}));
  EXPECT_EQ(Texts(CapturePreferences::officeExtensions.begin(), CapturePreferences::officeExtensions.end()),
            (Texts{"csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"}));
  EXPECT_EQ(CapturePreferences::currentCollectionDefaults, 1);
  for (const std::string_view extension : CapturePreferences::defaultExtensions)
    EXPECT_EQ(CapturePreferences::normalizedExtension(extension), extension);
  for (const std::string_view extension : CapturePreferences::officeExtensions)
    EXPECT_EQ(CapturePreferences::normalizedExtension(extension), extension);
}

TEST(CapturePreferences, AnExtensionIsTrimmedLowerCasedAndFreedOfOneDot) {
  struct Row {
    std::string_view text;
    std::optional<std::string_view> normal;
  };
  constexpr auto rows = std::to_array<Row>({
      {"md", "md"},
      {"MD", "md"},
      {".md", "md"},
      {"..md", std::nullopt},
      {" \t\r\n.MD\v\f ", "md"},
      // The other white space and line ends of Unicode: U+0085, U+00A0, U+1680, U+2003, U+2028, U+2029, U+202F, U+3000.
      {"\xC2\x85\xC2\xA0\xE1\x9A\x80.md\xE2\x80\x83\xE2\x80\xA8\xE2\x80\xA9\xE2\x80\xAF\xE3\x80\x80", "md"},
      // Python would also trim U+001C to U+001F.
      {"\x1Cmd", std::nullopt},
      {"md\x1F", std::nullopt},
      // No white space: U+200B and U+FEFF.
      {"md\xE2\x80\x8B", std::nullopt},
      {"\xEF\xBB\xBFmd", std::nullopt},
      // The blank behind the dot is not at the end of the text.
      {". md", std::nullopt},
      {"m d", std::nullopt},
      {"md\nx", std::nullopt},
      {"", std::nullopt},
      {" ", std::nullopt},
      {".", std::nullopt},
      {"x.y", std::nullopt},
      {"7z", "7z"},
      {"_a", std::nullopt},
      {"-a", std::nullopt},
      {"a_-", "a_-"},
      {"a+", std::nullopt},
      // The Kelvin sign's lower case is "k"; that of the dotted capital I is two scalars; a long s has no other.
      {"M\xE2\x84\xAAV", "mkv"},
      {"\xC4\xB0", std::nullopt},
      {"j\xC5\xBF", std::nullopt},
      {"\xC3\xA9", std::nullopt},
      {"abcdefghijklmnopqrs", "abcdefghijklmnopqrs"},
      {"abcdefghijklmnopqrst", "abcdefghijklmnopqrst"},
      {".abcdefghijklmnopqrst", "abcdefghijklmnopqrst"},
      {"abcdefghijklmnopqrstu", std::nullopt},
      {"m\xFF", std::nullopt},
      {std::string_view("m\0d", 3), std::nullopt},
      {std::string_view("md\0", 3), std::nullopt},
  });
  for (const Row& row : rows) {
    EXPECT_EQ(CapturePreferences::normalizedExtension(row.text), row.normal)
        << "row " << &row - rows.data() << ": " << row.text;
  }
}

TEST(CapturePreferences, ExtensionsAreListedOnceInAscendingOrder) {
  EXPECT_EQ(CapturePreferences::normalizedExtensions(Texts{"png", "MD", "a-b", "a_b", "ab", " .md", "a b", "", "7z"}),
            (Texts{"7z", "a-b", "a_b", "ab", "md", "png"}));
  EXPECT_EQ(CapturePreferences::normalizedExtensions({}), Texts());
}

TEST(CapturePreferences, ACategoryThatIsNotSaidIsOnForDocumentsPlansAndImages) {
  CapturePreferences value;
  value.types.clear();
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    EXPECT_EQ(value[category], category == documents || category == plans || category == images) << id(category);
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    for (const bool isOn : {true, false}) {
      value.set(category, isOn);
      EXPECT_EQ(value[category], isOn) << id(category);
      EXPECT_EQ(value.types.size(), 1);
    }
    value.types.clear();
  }
}

TEST(CapturePreferences, AnOutputThatIsNotSaidIsOnButForTheInbox) {
  CapturePreferences value;
  for (const CaptureOutput output : allCases<CaptureOutput>())
    EXPECT_EQ(value[output], output != CaptureOutput::downloadsInbox) << rawValue(output);
  for (const CaptureOutput output : allCases<CaptureOutput>()) {
    for (const bool isOn : {true, false}) {
      value.set(output, isOn);
      EXPECT_EQ(value[output], isOn) << rawValue(output);
      EXPECT_EQ(value.outputs, (CapturePreferences::Switches{{std::string(rawValue(output)), isOn}}));
    }
    value.outputs.clear();
  }
}

TEST(CapturePreferences, TheOutputsHaveTheirNamesAsRawValues) {
  Texts names;
  for (const CaptureOutput output : allCases<CaptureOutput>())
    names.emplace_back(rawValue(output));
  EXPECT_EQ(names, (Texts{"claudeCowork", "codexImages", "codexVisualizations", "manus", "downloadsInbox",
                          "downloadsDocuments", "downloadsPDFs", "downloadsOffice", "downloadsImages"}));
}

TEST(CapturePreferences, SettingASwitchChangesNothingElse) {
  CapturePreferences expected = nothing();
  expected.types[code] = true;
  EXPECT_EQ(changed(nothing(), [](auto& value) { value.set(code, true); }), expected);
}

TEST(CapturePreferences, AnExtensionIsEnabledThatIsListedAndOfACategoryThatIsOn) {
  CapturePreferences value = nothing();
  value.extensions = list({"md", "png", "py", "docx"});
  for (const std::string_view extension : {"md", "png", "py", "docx"})
    EXPECT_FALSE(value.isExtensionEnabled(extension)) << extension;
  value.types[code] = true;
  EXPECT_TRUE(value.isExtensionEnabled("py"));
  EXPECT_TRUE(value.isExtensionEnabled(" .PY\n"));
  EXPECT_FALSE(value.isExtensionEnabled("rb"));
  EXPECT_FALSE(value.isExtensionEnabled("md"));
  value.types[other] = true;
  EXPECT_TRUE(value.isExtensionEnabled("docx"));
  EXPECT_FALSE(value.isExtensionEnabled("xlsx"));
  for (const std::string_view none : {"", ".", "p y", "x.py"})
    EXPECT_FALSE(value.isExtensionEnabled(none)) << none;
}

TEST(CapturePreferences, ADocumentsExtensionIsEnabledThroughPlans) {
  CapturePreferences value = nothing();
  value.extensions = list({"md", "xhtml", "png"});
  value.types[plans] = true;
  EXPECT_TRUE(value.isExtensionEnabled("md"));
  EXPECT_TRUE(value.isExtensionEnabled("xhtml"));
  EXPECT_FALSE(value.isExtensionEnabled("png"));
  value.types[plans] = false;
  value.types[documents] = true;
  EXPECT_TRUE(value.isExtensionEnabled("md"));
  // Where a category is not said, its default holds.
  value.types = {{documents, false}};
  EXPECT_TRUE(value.isExtensionEnabled("md"));
  EXPECT_TRUE(value.isExtensionEnabled("png"));
  value.types = {{documents, false}, {plans, false}};
  EXPECT_FALSE(value.isExtensionEnabled("md"));
}

TEST(CapturePreferences, EnablingAnExtensionListsItAndTurnsItsCategoryOn) {
  struct Row {
    std::string_view text;
    std::string extension;
    std::vector<ArtifactCategory> categories;
  };
  const std::vector<Row> rows{{" .MD ", "md", {documents, plans}},
                              {"html", "html", {documents, plans}},
                              {"SVG", "svg", {images}},
                              {"mp4", "mp4", {videos}},
                              {"pdf", "pdf", {pdfs}},
                              {"csv", "csv", {code}},
                              {"docx", "docx", {other}},
                              {"unheard-of", "unheard-of", {other}}};
  for (const Row& row : rows) {
    CapturePreferences expected = nothing();
    expected.extensions = list({row.extension, "zz"});
    for (const ArtifactCategory category : row.categories)
      expected.types[category] = true;
    CapturePreferences value = nothing();
    value.extensions = list({"zz"});
    value.setExtension(row.text, true);
    EXPECT_EQ(value, expected) << row.text;
    value.setExtension(row.text, true);
    EXPECT_EQ(value, expected) << row.text;
  }
}

TEST(CapturePreferences, DisablingAnExtensionLeavesItsCategoryOn) {
  CapturePreferences value;
  value.extensions = list({"md", "png"});
  CapturePreferences expected = value;
  expected.extensions = list({"png"});
  value.setExtension(" .MD", false);
  EXPECT_EQ(value, expected);
  value.setExtension("md", false);
  EXPECT_EQ(value, expected);
}

TEST(CapturePreferences, WhatIsNoExtensionChangesNothing) {
  for (const std::string_view none : {"", ".", "a b", "x.y", "_md", "abcdefghijklmnopqrstu"}) {
    for (const bool isEnabled : {true, false})
      EXPECT_EQ(changed(CapturePreferences(), [&](auto& value) { value.setExtension(none, isEnabled); }),
                CapturePreferences())
          << none;
  }
}

TEST(CapturePreferences, TurningACategoryOnListsItsExtensionsWhereNoneIsListed) {
  const Texts documentTexts{"htm",  "html", "markdown", "md",  "mdown", "mdtext", "mdtxt",
                            "mdwn", "mkd",  "mkdn",     "qmd", "rmd",   "xhtml"};
  const auto codeSpan = fileExtensions(code);
  const std::vector<std::pair<ArtifactCategory, Texts>> rows{
      {documents, documentTexts},
      {plans, documentTexts},
      // Not "svg", nor "avif", "bmp", "ico", "tif" and "tiff".
      {images, {"png", "jpg", "jpeg", "gif", "webp", "heic", "heif"}},
      {videos, {"avi", "m4v", "mkv", "mov", "mp4", "mpeg", "mpg", "webm"}},
      {pdfs, {"pdf"}},
      {code, Texts(codeSpan.begin(), codeSpan.end())},
      {other, {}}};
  for (const auto& [category, extensions] : rows) {
    CapturePreferences value = nothing();
    value.extensions = list({"zz"});
    CapturePreferences expected = value;
    expected.types[category] = true;
    Texts all = extensions;
    all.emplace_back("zz");
    expected.extensions = list(all);
    value.setCategory(category, true);
    EXPECT_EQ(value, expected) << id(category);
  }
}

TEST(CapturePreferences, TurningACategoryOnLeavesAListThatHoldsOneOfItsExtensions) {
  const std::vector<std::pair<ArtifactCategory, std::string>> rows{{documents, "qmd"}, {plans, "html"}, {images, "svg"},
                                                                   {videos, "webm"},   {pdfs, "pdf"},   {code, "zsh"},
                                                                   {other, "docx"}};
  for (const auto& [category, extension] : rows) {
    CapturePreferences value = nothing();
    value.extensions = list({extension});
    CapturePreferences expected = value;
    expected.types[category] = true;
    value.setCategory(category, true);
    EXPECT_EQ(value, expected) << id(category);
  }
}

TEST(CapturePreferences, TurningACategoryOffLeavesTheList) {
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    CapturePreferences value;
    value.extensions = list({"md", "png", "mp4", "pdf", "py", "docx"});
    for (const ArtifactCategory each : allCases<ArtifactCategory>())
      value.types[each] = true;
    CapturePreferences expected = value;
    expected.types[category] = false;
    value.setCategory(category, false);
    EXPECT_EQ(value, expected) << id(category);
  }
}

// Widening.

TEST(CapturePreferences, WideningNewPreferencesAddsOfficeFilesAndWhatSubagentsMake) {
  CapturePreferences expected;
  expected.types[code] = expected.types[pdfs] = expected.types[other] = true;
  expected.extensions = list({"gif", "heic", "heif", "htm", "html", "jpeg", "jpg", "markdown", "md", "png", "webp",
                              "csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"});
  expected.includeSubagentArtifacts = true;
  expected.subagentArtifactsResumeSince = "2026-01-01T00:00:00Z";
  expected.collectionDefaultsVersion = 1;
  CapturePreferences value;
  value.applyCollectionDefaults("2026-01-01T00:00:00Z");
  EXPECT_EQ(value, expected);
  value.applyCollectionDefaults("2026-02-02T00:00:00Z");
  EXPECT_EQ(value, expected);
}

TEST(CapturePreferences, WideningHappensOnceWhateverTheVersion) {
  for (const std::int64_t version : {std::int64_t{0}, std::int64_t{1}, std::int64_t{2}, std::int64_t{-1},
                                     std::numeric_limits<std::int64_t>::max()}) {
    CapturePreferences value;
    value.collectionDefaultsVersion = version;
    const CapturePreferences before = value;
    value.applyCollectionDefaults("2026-01-01T00:00:00Z");
    EXPECT_EQ(value, before) << version;
  }
}

TEST(CapturePreferences, SubagentsThatAreOnKeepTheirTime) {
  for (const std::optional<std::string>& time : {std::optional<std::string>(), std::optional<std::string>("old")}) {
    CapturePreferences value;
    value.includeSubagentArtifacts = true;
    value.subagentArtifactsResumeSince = time;
    value.applyCollectionDefaults("new");
    EXPECT_TRUE(value.includeSubagentArtifacts);
    EXPECT_EQ(value.subagentArtifactsResumeSince, time);
  }
}

TEST(CapturePreferences, SubagentsThatWereOffTakeTheTimeGivenAlsoWhenItIsAbsent) {
  for (const std::optional<std::string>& time : {std::optional<std::string>(), std::optional<std::string>("new")}) {
    CapturePreferences value;
    value.subagentArtifactsResumeSince = "old";
    value.applyCollectionDefaults(time);
    EXPECT_TRUE(value.includeSubagentArtifacts);
    EXPECT_EQ(value.subagentArtifactsResumeSince, time);
  }
}

TEST(CapturePreferences, WideningCleansACategoryThatWasOff) {
  CapturePreferences value = nothing();
  value.extensions = list({"md", "py", "zsh", "pdf", "dwg", "docx", "mp4"});
  value.includeExtensionless = true;
  value.includeUnlistedExtensions = true;
  value.applyCollectionDefaults(std::nullopt);
  // Of the categories that were off, code and other lose what they listed; videos have no office files.
  EXPECT_EQ(value.extensions, list({"md", "mp4", "csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"}));
  EXPECT_FALSE(value.includeExtensionless);
  EXPECT_FALSE(value.includeUnlistedExtensions);
  EXPECT_EQ(value.types, (std::map<ArtifactCategory, bool>{{documents, false},
                                                           {plans, false},
                                                           {images, false},
                                                           {videos, false},
                                                           {pdfs, true},
                                                           {code, true},
                                                           {other, true}}));
}

TEST(CapturePreferences, WideningLeavesWhatACategoryThatIsOnHolds) {
  struct Row {
    bool isCode;
    bool isOther;
    bool keepsExtensionless;
    bool keepsUnlisted;
    Texts kept;
  };
  // Code is turned on by its "csv" before "doc" comes to other files, so only code's own cleaning reaches the switch
  // for files without extension.
  const std::vector<Row> rows{{true, true, true, true, {"py", "dwg"}},
                              {true, false, true, false, {"py"}},
                              {false, true, false, true, {"dwg"}},
                              {false, false, false, false, {}}};
  for (const Row& row : rows) {
    CapturePreferences value = nothing();
    value.types[code] = row.isCode;
    value.types[other] = row.isOther;
    value.extensions = list({"py", "dwg"});
    value.includeExtensionless = true;
    value.includeUnlistedExtensions = true;
    value.applyCollectionDefaults(std::nullopt);
    Texts expected{"csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"};
    expected.insert(expected.end(), row.kept.begin(), row.kept.end());
    EXPECT_EQ(value.extensions, list(expected)) << row.isCode << row.isOther;
    EXPECT_EQ(value.includeExtensionless, row.keepsExtensionless) << row.isCode << row.isOther;
    EXPECT_EQ(value.includeUnlistedExtensions, row.keepsUnlisted) << row.isCode << row.isOther;
  }
}

TEST(CapturePreferences, WideningTakesACategoryThatIsNotSaidForOff) {
  CapturePreferences value;
  value.types.clear();
  value.extensions = list({"py", "png"});
  value.applyCollectionDefaults(std::nullopt);
  EXPECT_EQ(value.extensions, list({"png", "csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"}));
  EXPECT_EQ(value.types, (std::map<ArtifactCategory, bool>{{pdfs, true}, {code, true}, {other, true}}));
}

TEST(CapturePreferences, AllFieldsCountInEquality) {
  using Value = CapturePreferences;
  const std::vector<std::function<void(Value&)>> changes{
      [](Value& v) { v.enabled = false; },
      [](Value& v) { v.types[code] = true; },
      [](Value& v) { v.types.erase(code); },
      [](Value& v) { v.extensions = {}; },
      [](Value& v) { v.includeExtensionless = true; },
      [](Value& v) { v.includeUnlistedExtensions = true; },
      [](Value& v) { v.includeAssistantResponses = true; },
      [](Value& v) { v.assistantResponsesResumeSince = ""; },
      [](Value& v) { v.includeSubagentResponses = true; },
      [](Value& v) { v.includeSubagentArtifacts = true; },
      [](Value& v) { v.subagentArtifactsResumeSince = ""; },
      [](Value& v) { v.documentChangesReviewSince = ""; },
      [](Value& v) { v.captureTitleChanges = true; },
      [](Value& v) { v.captureLocationChanges = true; },
      [](Value& v) { v.showsAgentHomeFiles = true; },
      [](Value& v) { v.includesUserFiles = true; },
      [](Value& v) { v.includeTemporaryFolderDocuments = true; },
      [](Value& v) { v.excludedDocumentIDs = {""}; },
      [](Value& v) { v.resumeSince = ""; },
      [](Value& v) { v.typeResumeSince[""] = ""; },
      [](Value& v) { v.extensionResumeSince[""] = ""; },
      [](Value& v) { v.extensionlessResumeSince = ""; },
      [](Value& v) { v.unlistedResumeSince = ""; },
      [](Value& v) { v.readsSessionRecords = false; },
      [](Value& v) { v.agentStores[""] = false; },
      [](Value& v) { v.outputs[""] = false; },
      [](Value& v) { v.outputResumeSince[""] = ""; },
      [](Value& v) { v.collectionDefaultsVersion = 0; },
  };
  for (std::size_t one = 0; one < changes.size(); ++one) {
    const Value value = changed(Value(), changes[one]);
    EXPECT_NE(value, Value()) << one;
    EXPECT_EQ(value, changed(Value(), changes[one])) << one;
    for (std::size_t another = 0; another < one; ++another)
      EXPECT_NE(value, changed(Value(), changes[another])) << one << " and " << another;
  }
}

}  // namespace
}  // namespace tessary
