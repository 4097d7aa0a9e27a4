#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/LocalizationBundle.h"
#include "TessaryLocalization/LocalizationCatalogs.h"
#include "support/TemporaryFolder.h"

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

LocalizationCatalog catalog(std::string language, CatalogMap<std::string> messages,
                            CatalogMap<LocalizationCatalog::PluralForms> plurals = {}) {
  return {.language = std::move(language),
          .messages = std::move(messages),
          .plurals = std::move(plurals),
          .externalKeys = {}};
}

TEST(LocalizationCatalog, IsReadWithAllItsKeys) {
  const auto read = readJSON<LocalizationCatalog>(
      R"({"language":"en","messages":{"a":"b"},"plurals":{"a":{"one":"c"}},"externalKeys":["a"],"other":1})");
  LocalizationCatalog expected = catalog("en", {{"a", "b"}}, {{"a", {{"one", "c"}}}});
  expected.externalKeys = {"a"};
  EXPECT_EQ(read, expected);
}

TEST(LocalizationCatalog, LacksNoKey) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {R"({"messages":{},"plurals":{},"externalKeys":[]})", "language"},
      {R"({"language":"en","plurals":{},"externalKeys":[]})", "messages"},
      {R"({"language":"en","messages":{},"externalKeys":[]})", "plurals"},
      {R"({"language":"en","messages":{},"plurals":{}})", "externalKeys"},
  };
  for (const auto& [text, key] : rows) {
    const auto read = readJSON<LocalizationCatalog>(text);
    ASSERT_FALSE(read.has_value()) << key;
    EXPECT_EQ(read.error().kind, JSONDecodingError::Kind::missingKey);
    EXPECT_THAT(read.error().path, ElementsAre(JSONPathStep(key)));
  }
}

constexpr std::string_view emptyCatalog = R"({"language":"x","messages":{},"plurals":{},"externalKeys":[]})";

TEST(LocalizationCatalogs, AreTheFilesOfTheSupportedCodes) {
  const TemporaryFolder folder;
  folder.write("zh-Hans.json", emptyCatalog);
  folder.write("de.json", emptyCatalog);
  folder.write("pt.json", "not looked at");
  const auto loaded = LocalizationCatalogs::load(folder.path());
  ASSERT_TRUE(loaded.has_value());
  EXPECT_THAT(loaded->languages(), ElementsAre("de", "zh-Hans"));
  EXPECT_NE(loaded->find("de"), nullptr);
  EXPECT_EQ(loaded->find("en"), nullptr);
  EXPECT_EQ(loaded->fallback(), nullptr);
}

TEST(LocalizationCatalogs, MayBeNone) {
  const TemporaryFolder folder;
  EXPECT_THAT(LocalizationCatalogs::load(folder.path())->languages(), IsEmpty());
  EXPECT_THAT(LocalizationCatalogs::load(folder.path("none"))->languages(), IsEmpty());
}

TEST(LocalizationCatalogs, NameTheFileThatCannotBeRead) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path("ko.json"));
  EXPECT_EQ(LocalizationCatalogs::load(folder.path()).error(),
            "could not read catalog " + folder.path("ko.json") + ": Is a directory");
}

TEST(LocalizationCatalogs, NameTheFileThatIsNoCatalog) {
  const TemporaryFolder folder;
  const std::string path = folder.write("en.json", "");
  const std::string start = "could not read catalog " + path + ": ";
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", "no JSON at byte 0"},
      {R"({"language":"en",)", "no JSON at byte 17"},
      {"[]", "no catalog at byte 0, key \"\""},
      {R"({"language":"en","messages":{"a":1},"plurals":{},"externalKeys":[]})",
       "no catalog at byte 33, key \"messages.a\""},
      {R"({"language":"en","messages":{},"plurals":{},"externalKeys":["a",null]})",
       "no catalog at byte 64, key \"externalKeys.1\""},
  };
  for (const auto& [text, reason] : rows) {
    folder.write("en.json", text);
    EXPECT_EQ(LocalizationCatalogs::load(folder.path()).error(), start + reason) << text;
  }
}

TEST(LocalizationCatalogs, EndTheProcessWhenOneIsBroken) {
  const TemporaryFolder folder;
  const std::string path = folder.write("fr.json", "{");
  EXPECT_DEATH(LocalizationBundle::fail(LocalizationCatalogs::load(folder.path()).error()),
               "^could not read catalog .*/fr.json: no JSON at byte 1\n$");
}

class Messages : public ::testing::Test {
 protected:
  static std::vector<std::pair<std::string, LocalizationCatalog>> byCode() {
    return {
        {"en", catalog("en", {{"{0}개", "{0} things"}, {"문서", "Document"}},
                       {{"{0}개", {{"one", "{0} thing"}, {"other", "{0} things!"}}}, {"파일", {{"one", "a file"}}}})},
        {"ru", catalog("ru", {{"{0}개", "{0} вещей?"}},
                       {{"{0}개", {{"one", "{0} вещь"}, {"few", "{0} вещи"}, {"many", "{0} вещей"}}}})},
        {"fr", catalog("fr", {})}};
  }

  const LocalizationCatalogs catalogs{byCode()};
};

TEST_F(Messages, AreThoseOfTheLanguage) {
  EXPECT_EQ(catalogs.message("문서", {}, "en"), "Document");
  EXPECT_EQ(catalogs.message("{0}개", {}, "ru"), "{0} вещей?");
}

TEST_F(Messages, ComeFromEnglishWhereTheLanguageLacksThem) {
  EXPECT_EQ(catalogs.message("문서", {}, "ru"), "Document");
  EXPECT_EQ(catalogs.message("문서", {}, "fr"), "Document");
  EXPECT_EQ(catalogs.message("문서", {}, "ko"), "Document");
  EXPECT_EQ(catalogs.message("문서", {}, ""), "Document");
}

TEST_F(Messages, AreAtLastTheKey) {
  EXPECT_EQ(catalogs.message("없음", {}, "ru"), "없음");
  EXPECT_EQ(catalogs.message("없음", 1, "en"), "없음");
  EXPECT_EQ(LocalizationCatalogs().message("문서", 1, "en"), "문서");
  EXPECT_EQ(LocalizationCatalogs({{"ru", catalog("ru", {})}}).message("문서", {}, "de"), "문서");
}

TEST_F(Messages, TakeTheFormOfTheCount) {
  EXPECT_EQ(catalogs.message("{0}개", 21, "ru"), "{0} вещь");
  EXPECT_EQ(catalogs.message("{0}개", -2, "ru"), "{0} вещи");
  EXPECT_EQ(catalogs.message("{0}개", 11, "ru"), "{0} вещей");
  EXPECT_EQ(catalogs.message("{0}개", 1, "en"), "{0} thing");
  EXPECT_EQ(catalogs.message("{0}개", 2, "en"), "{0} things!");
}

TEST_F(Messages, TakeTheFormOfAllOthersWhereTheCountHasNone) {
  // Spanish has no catalog here, and counts a million by a form that English has not.
  EXPECT_EQ(catalogs.message("{0}개", 1'000'000, "es"), "{0} things!");
}

TEST_F(Messages, TakeTheCategoryOfTheLanguageThatWasAskedForFromTheEnglishForms) {
  EXPECT_EQ(catalogs.message("{0}개", 1, "es"), "{0} thing");
  EXPECT_EQ(catalogs.message("{0}개", 1, "ja"), "{0} things!");
  EXPECT_EQ(catalogs.message("{0}개", 1, "xx"), "{0} things!");
}

TEST_F(Messages, DoNotTakePluralFormsOfEnglishForALanguageThatHasNone) {
  EXPECT_EQ(catalogs.message("{0}개", 1, "fr"), "{0} things");
}

TEST_F(Messages, ArePlainWhereThereIsNoFormForTheCount) {
  EXPECT_EQ(catalogs.message("파일", 1, "en"), "a file");
  EXPECT_EQ(catalogs.message("파일", 2, "en"), "파일");
}

TEST_F(Messages, ArePlainWithoutACount) {
  EXPECT_EQ(catalogs.message("{0}개", {}, "en"), "{0} things");
}

TEST(LocalizationCatalogs, KeepTheFirstOfTwoWithOneCode) {
  const LocalizationCatalogs catalogs({{"en", catalog("en", {{"a", "first"}})}, {"en", catalog("en", {})}});
  EXPECT_EQ(catalogs.message("a", {}, "en"), "first");
  EXPECT_THAT(catalogs.languages(), ElementsAre("en"));
}

TEST(LocalizationCatalogs, OfTheProcessAreThoseOfTheBundle) {
  const auto loaded = LocalizationCatalogs::load(LocalizationBundle::sharedResources());
  ASSERT_TRUE(loaded.has_value()) << loaded.error();
  EXPECT_EQ(LocalizationCatalogs::shared().languages(), loaded->languages());
  ASSERT_NE(LocalizationCatalogs::shared().fallback(), nullptr);
  EXPECT_EQ(*LocalizationCatalogs::shared().fallback(), *loaded->fallback());
}

}  // namespace
}  // namespace tessary
