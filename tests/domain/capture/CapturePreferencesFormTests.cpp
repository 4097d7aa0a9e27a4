// The form of preferences in a file: its keys, their order, and what is refused.

#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONValue.h"
#include "support/JSONErrors.h"

#include "ReadPreferences.h"

namespace tessary {
namespace {

std::string errorOf(std::string_view json) {
  const auto read = readJSON<CapturePreferences>(json);
  return read ? "no error" : text(read.error());
}

std::string written(const CapturePreferences& value) {
  return writeJSON(value).value_or("an error");
}

/// Every field with a value of its own.
CapturePreferences everything() {
  CapturePreferences all;
  all.enabled = false;
  all.types = {{ArtifactCategory::documents, false}, {ArtifactCategory::plans, true}, {ArtifactCategory::images, false},
               {ArtifactCategory::videos, true},     {ArtifactCategory::pdfs, false}, {ArtifactCategory::code, true},
               {ArtifactCategory::other, false}};
  all.extensions = ExtensionList(std::array<std::string, 3>{"zsh", "md", "_"});
  all.includeExtensionless = true;
  all.includeUnlistedExtensions = false;
  all.includeAssistantResponses = true;
  all.assistantResponsesResumeSince = "a1";
  all.includeSubagentResponses = false;
  all.includeSubagentArtifacts = true;
  all.subagentArtifactsResumeSince = "a2";
  all.documentChangesReviewSince = "a3";
  all.captureTitleChanges = true;
  all.captureLocationChanges = false;
  all.showsAgentHomeFiles = true;
  all.includesUserFiles = false;
  all.includeTemporaryFolderDocuments = true;
  all.excludedDocumentIDs = {"z", "a", "Z"};
  all.resumeSince = "a4";
  all.typeResumeSince = {{"videos", "t1"}, {"code", "t2"}, {"music", "t3"}};
  all.extensionResumeSince = {{"png", "e1"}, {"md", "e2"}};
  all.extensionlessResumeSince = "a5";
  all.unlistedResumeSince = "a6";
  all.readsSessionRecords = false;
  all.agentStores = {{"hermes", true}, {"claude", false}};
  all.outputs = {{"manus", false}, {"downloadsInbox", true}, {"later", true}};
  all.outputResumeSince = {{"manus", "o1"}};
  all.collectionDefaultsVersion = 7;
  return all;
}

// Written by hand.
constexpr std::string_view everythingText =
    R"({"enabled":false,)"
    R"("types":{"documents":false,"plans":true,"images":false,"videos":true,"pdfs":false,"code":true,"other":false},)"
    R"("extensions":["md","zsh"],)"
    R"("includeExtensionless":true,)"
    R"("includeUnlistedExtensions":false,)"
    R"("includeSubagentResponses":false,)"
    R"("includeAssistantResponses":true,)"
    R"("assistantResponsesResumeSince":"a1",)"
    R"("includeSubagentArtifacts":true,)"
    R"("subagentArtifactsResumeSince":"a2",)"
    R"("documentChangesReviewSince":"a3",)"
    R"("showsAgentHomeFiles":true,)"
    R"("includesUserFiles":false,)"
    R"("includeTemporaryFolderDocuments":true,)"
    R"("captureTitleChanges":true,)"
    R"("captureLocationChanges":false,)"
    R"("excludedDocumentIDs":["Z","a","z"],)"
    R"("resumeSince":"a4",)"
    R"("typeResumeSince":{"code":"t2","music":"t3","videos":"t1"},)"
    R"("extensionResumeSince":{"md":"e2","png":"e1"},)"
    R"("extensionlessResumeSince":"a5",)"
    R"("unlistedResumeSince":"a6",)"
    R"("readsSessionRecords":false,)"
    R"("agentStores":{"claude":false,"hermes":true},)"
    R"("outputs":{"downloadsInbox":true,"later":true,"manus":false},)"
    R"("outputResumeSince":{"manus":"o1"},)"
    R"("collectionDefaultsVersion":7})";

// Written by hand: absent fields are left out, empty lists and maps are not.
constexpr std::string_view defaultsText =
    R"({"enabled":true,)"
    R"("types":{"documents":true,"plans":true,"images":true,"videos":false,"pdfs":false,"code":false,"other":false},)"
    R"("extensions":["gif","heic","heif","htm","html","jpeg","jpg","markdown","md","png","webp"],)"
    R"("includeExtensionless":false,"includeUnlistedExtensions":false,"includeSubagentResponses":false,)"
    R"("includeAssistantResponses":false,"includeSubagentArtifacts":false,"showsAgentHomeFiles":false,)"
    R"("includesUserFiles":false,"includeTemporaryFolderDocuments":false,"captureTitleChanges":false,)"
    R"("captureLocationChanges":false,"excludedDocumentIDs":[],"typeResumeSince":{},"extensionResumeSince":{},)"
    R"("agentStores":{},"outputs":{},"outputResumeSince":{}})";

TEST(CapturePreferencesForm, IsWrittenInItsOwnOrder) {
  EXPECT_EQ(written(everything()), everythingText);
}

TEST(CapturePreferencesForm, WhatIsWrittenReadsAsTheSame) {
  EXPECT_EQ(preferences(everythingText), everything());
  EXPECT_EQ(preferences(defaultsText), CapturePreferences());
}

TEST(CapturePreferencesForm, EmptyListsAndMapsAreWrittenAndAbsentFieldsAreNot) {
  EXPECT_EQ(written(CapturePreferences()), defaultsText);
}

TEST(CapturePreferencesForm, OrderAndSpellingOfTheKeysDoNotMatter) {
  // Backwards, and each key with an escape.
  const auto tree = JSONValue::parse(everythingText);
  ASSERT_TRUE(tree);
  std::string backwards = "{";
  for (auto member = tree->object()->rbegin(); member != tree->object()->rend(); ++member) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto first = static_cast<unsigned char>(member->key[0]);
    if (backwards.size() > 1) backwards += " ,\n";
    backwards += std::string("\"\\u00") + digits[first / 16] + digits[first % 16] + member->key.substr(1) +
                 "\" : " + member->value.text().value();
  }
  EXPECT_EQ(preferences(backwards + "}"), everything());
}

TEST(CapturePreferencesForm, UnknownKeysAreIgnored) {
  EXPECT_EQ(preferences(R"({"version":3,"Enabled":false,"capture_title_changes":true,"nested":{"enabled":false}})"),
            CapturePreferences());
}

TEST(CapturePreferencesForm, TheLastOfTwoEqualKeysCounts) {
  EXPECT_EQ(preferences(R"({"enabled":true,"enabled":false})").enabled, false);
  EXPECT_EQ(preferences(R"({"enabled":false,"enabled":null})").enabled, true);
  EXPECT_EQ(preferences(R"({"types":{"code":true,"code":false}})"), preferences(R"({"types":{"code":false}})"));
  EXPECT_EQ(preferences(R"({"types":{"code":true},"types":{"pdfs":true}})"), preferences(R"({"types":{"pdfs":true}})"));
}

TEST(CapturePreferencesForm, AWholeThatIsNoObjectIsRefused) {
  EXPECT_EQ(errorOf("null"), "nullValue at , object expected, byte 0");
  EXPECT_EQ(errorOf("true"), "wrongType at , object expected, byte 0");
  EXPECT_EQ(errorOf(R"([{}])"), "wrongType at , object expected, byte 0");
}

struct Key {
  std::string_view key;
  std::string_view expectation;
};

constexpr auto keys = std::to_array<Key>({
    {"enabled", "boolean"},
    {"types", "object"},
    {"extensions", "list"},
    {"includeExtensionless", "boolean"},
    {"includeUnlistedExtensions", "boolean"},
    {"includeAssistantResponses", "boolean"},
    {"assistantResponsesResumeSince", "text"},
    {"includeSubagentResponses", "boolean"},
    {"includeSubagentArtifacts", "boolean"},
    {"subagentArtifactsResumeSince", "text"},
    {"documentChangesReviewSince", "text"},
    {"captureTitleChanges", "boolean"},
    {"captureLocationChanges", "boolean"},
    {"showsAgentHomeFiles", "boolean"},
    {"includesUserFiles", "boolean"},
    {"includeTemporaryFolderDocuments", "boolean"},
    {"excludedDocumentIDs", "list"},
    {"resumeSince", "text"},
    {"typeResumeSince", "object"},
    {"extensionResumeSince", "object"},
    {"extensionlessResumeSince", "text"},
    {"unlistedResumeSince", "text"},
    {"readsSessionRecords", "boolean"},
    {"agentStores", "object"},
    {"outputs", "object"},
    {"outputResumeSince", "object"},
    {"collectionDefaultsVersion", "integer"},
});

struct Sample {
  std::string_view type;
  std::string_view json;
};

// Texts that look like other types are texts, and numbers that look like switches are numbers.
constexpr auto samples = std::to_array<Sample>({
    {"boolean", "true"},
    {"boolean", "false"},
    {"integer", "0"},
    {"integer", "1"},
    {"number", "1.0"},
    {"number", "1e0"},
    {"text", R"("")"},
    {"text", R"("true")"},
    {"list", "[]"},
    {"list", R"(["a"])"},
    {"object", "{}"},
    {"object", R"({"a":"b"})"},
});

TEST(CapturePreferencesForm, EveryKeyIsKnown) {
  ASSERT_EQ(keys.size(), 27);
  const auto tree = JSONValue::parse(everythingText);
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->object()->size(), keys.size());
  for (const Key& key : keys)
    EXPECT_NE(tree->find(key.key), nullptr) << key.key;
}

TEST(CapturePreferencesForm, AKeyOfAWrongTypeFailsTheReadingAndIsNamed) {
  for (const Key& key : keys) {
    const std::string head = "{\"" + std::string(key.key) + "\":";
    for (const Sample& sample : samples) {
      if (sample.type == key.expectation) continue;
      EXPECT_EQ(errorOf(head + std::string(sample.json) + ",\"enabled\":true}"),
                "wrongType at ." + std::string(key.key) + ", " + std::string(key.expectation) + " expected, byte " +
                    std::to_string(head.size()));
    }
  }
}

TEST(CapturePreferencesForm, NullUnderAnyKeyIsItsAbsence) {
  std::string all = "{";
  for (const Key& key : keys) {
    const std::string member = "\"" + std::string(key.key) + "\":null";
    EXPECT_EQ(preferences("{" + member + "}"), CapturePreferences()) << key.key;
    all += member + ",";
  }
  all.back() = '}';
  EXPECT_EQ(preferences(all), CapturePreferences());
}

TEST(CapturePreferencesForm, NullIsAbsenceAlsoForWhatIsInferred) {
  EXPECT_EQ(preferences(R"({"types":{"other":true},"extensions":null,"includeUnlistedExtensions":null,)"
                        R"("includeExtensionless":null})"),
            preferences(R"({"types":{"other":true}})"));
  EXPECT_EQ(preferences(R"({"extensions":["mp4"],"types":null})"), preferences(R"({"extensions":["mp4"]})"));
}

TEST(CapturePreferencesForm, AWrongValueInsideAMapOrListFailsTheReading) {
  struct Row {
    std::string_view key;
    std::string_view value;
    std::string_view expectation;
  };
  constexpr auto rows = std::to_array<Row>({
      {"types", "1", "boolean"},
      {"types", R"("true")", "boolean"},
      {"typeResumeSince", "true", "text"},
      {"typeResumeSince", "1767225600", "text"},
      {"extensionResumeSince", "1.5", "text"},
      {"agentStores", R"("")", "boolean"},
      {"outputs", "0", "boolean"},
      {"outputResumeSince", "{}", "text"},
  });
  for (const Row& row : rows) {
    // Under a key that is known, one that is not, and the empty one.
    for (const std::string_view key : {"code", "md", "downloadsInbox", "unheard of", ""}) {
      const std::string head = "{\"" + std::string(row.key) + "\":{\"" + std::string(key) + "\":";
      const std::string place = " at ." + std::string(row.key) + "." + std::string(key) + ", " +
                                std::string(row.expectation) + " expected, byte " + std::to_string(head.size());
      EXPECT_EQ(errorOf(head + std::string(row.value) + "}}"), "wrongType" + place);
      EXPECT_EQ(errorOf(head + "null}}"), "nullValue" + place);
    }
  }
  EXPECT_EQ(errorOf(R"({"extensions":["md",null]})"), "nullValue at .extensions[1], text expected, byte 20");
  EXPECT_EQ(errorOf(R"({"extensions":[1]})"), "wrongType at .extensions[0], text expected, byte 15");
  EXPECT_EQ(errorOf(R"({"excludedDocumentIDs":["a","b",["c"]]})"),
            "wrongType at .excludedDocumentIDs[2], text expected, byte 32");
  EXPECT_EQ(errorOf(R"({"excludedDocumentIDs":[null]})"),
            "nullValue at .excludedDocumentIDs[0], text expected, byte 24");
}

TEST(CapturePreferencesForm, TheVersionIsAnIntegerOf64Bits) {
  EXPECT_EQ(preferences(R"({"collectionDefaultsVersion":9223372036854775807})").collectionDefaultsVersion,
            std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(preferences(R"({"collectionDefaultsVersion":-9223372036854775808})").collectionDefaultsVersion,
            std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(errorOf(R"({"collectionDefaultsVersion":9223372036854775808})"),
            "outOfRange at .collectionDefaultsVersion, integer expected, byte 29");
}

TEST(CapturePreferencesForm, TextThatIsNotJSONIsRefusedWhereverItStands) {
  for (const std::string_view json :
       {"", "{", R"({"enabled":tru})", R"({"unknown":[1,]})", R"({} {})", "{\"enabled\":\"\xff\"}"}) {
    const auto read = readJSON<CapturePreferences>(json);
    ASSERT_FALSE(read) << json;
    EXPECT_EQ(read.error().kind, JSONDecodingError::Kind::malformed) << json;
    EXPECT_TRUE(read.error().syntax) << json;
  }
}

TEST(CapturePreferencesForm, UnknownIdsAreDroppedFromTypesAndKeptInTheOtherMaps) {
  const CapturePreferences read =
      preferences(R"({"types":{"music":true,"code":true},"typeResumeSince":{"music":"m"},"agentStores":{"new":true},)"
                  R"("outputs":{"printer":false},"outputResumeSince":{"printer":"p"}})");
  EXPECT_EQ(read.types.size(), 7);
  EXPECT_EQ(read.typeResumeSince, (CapturePreferences::Times{{"music", "m"}}));
  EXPECT_EQ(read.agentStores, (CapturePreferences::Switches{{"new", true}}));
  EXPECT_EQ(read.outputs, (CapturePreferences::Switches{{"printer", false}}));
  EXPECT_EQ(read.outputResumeSince, (CapturePreferences::Times{{"printer", "p"}}));
  EXPECT_EQ(preferences(written(read)), read);
}

TEST(CapturePreferencesForm, MapsAreWrittenInAscendingOrderOfScalars) {
  CapturePreferences value;
  // U+FF5E is less than U+1F600 by scalar, and greater by UTF-16 unit.
  value.agentStores = {{"\U0001F600", true}, {"\uFF5E", true}, {"b", true}, {"B", true}, {"", true}};
  EXPECT_NE(
      written(value).find("\"agentStores\":{\"\":true,\"B\":true,\"b\":true,\"\uFF5E\":true,\"\U0001F600\":true}"),
      std::string::npos);
}

TEST(CapturePreferencesForm, ACategoryWithoutASwitchIsNotWritten) {
  CapturePreferences value;
  value.types = {{ArtifactCategory::other, true}, {ArtifactCategory::plans, false}};
  EXPECT_NE(written(value).find(R"("types":{"plans":false,"other":true},)"), std::string::npos);
}

TEST(CapturePreferencesForm, PreferencesAreAFieldOfOtherRecords) {
  const auto map = readJSON<std::map<std::string, CapturePreferences>>(R"({"a":{"enabled":false},"b":{}})");
  ASSERT_TRUE(map);
  EXPECT_FALSE(map->at("a").enabled);
  EXPECT_EQ(map->at("b"), CapturePreferences());
  const auto wrong = readJSON<std::map<std::string, CapturePreferences>>(R"({"a":{"types":{"code":null}}})");
  ASSERT_FALSE(wrong);
  EXPECT_EQ(text(wrong.error()), "nullValue at .a.types.code, boolean expected, byte 22");
}

}  // namespace
}  // namespace tessary
