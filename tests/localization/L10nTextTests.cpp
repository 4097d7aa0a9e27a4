#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationRuntime.h"

namespace tessary {
namespace {

using testing::Contains;

constexpr std::string_view marked = "{0}개를 ‘{1}’으로 분류했습니다";

TEST(L10nText, IsTheMessageOfTheLanguage) {
  EXPECT_EQ(L10n::text("나중에 볼 것", {}, {}, "en"), L10n::catalog("en")->messages.at("나중에 볼 것"));
  EXPECT_EQ(L10n::text("나중에 볼 것", {}, {}, "ko"), "나중에 볼 것");
}

TEST(L10nText, FillsTheArgumentsIn) {
  const std::vector<std::string> arguments{"3", "‘{0}’"};
  EXPECT_EQ(L10n::text(marked, arguments, {}, "ko"), "3개를 ‘‘{0}’’으로 분류했습니다");
  EXPECT_EQ(L10n::text(marked, {"3", "x"}, {}, "ko"), "3개를 ‘x’으로 분류했습니다");
  EXPECT_EQ(L10n::text(marked, {"3"}, {}, "ko"), "3개를 ‘{1}’으로 분류했습니다");
}

TEST(L10nText, TakesThePluralForm) {
  const auto& forms = L10n::catalog("en")->plurals.at(std::string(marked));
  EXPECT_EQ(L10n::text(marked, {"{0}", "{1}"}, 1, "en"), forms.at("one"));
  EXPECT_EQ(L10n::text(marked, {"{0}", "{1}"}, 2, "en"), forms.at("other"));
  EXPECT_NE(forms.at("one"), forms.at("other"));
}

TEST(L10nText, OfAnUnknownKeyIsTheKeyWithItsPlaceholdersFilled) {
  EXPECT_EQ(L10n::text("모르는 {0} {5} {x}", {"A"}, {}, "fr"), "모르는 A {5} {x}");
  EXPECT_EQ(L10n::text("", {}, {}, "fr"), "");
  EXPECT_EQ(L10n::text("\xFF{0}\xC3", {"A"}, {}, "fr"),
            "\xFF"
            "A\xC3");
}

TEST(L10nText, WithoutALanguageIsThatOfTheSelectedOne) {
  const std::string selected = LocalizationRuntime::shared().language();
  EXPECT_EQ(L10n::text("나중에 볼 것"), L10n::text("나중에 볼 것", {}, {}, selected));
}

TEST(L10nText, GivesTheLanguageOfTheSystemItsNameAsAMessage) {
  EXPECT_EQ(AppLanguage(AppLanguage::system).nativeName(), L10n::text("시스템 언어"));
}

TEST(L10nCatalogs, AreKnownByTheirCodes) {
  EXPECT_THAT(L10n::availableCatalogLanguages(), Contains("en"));
  EXPECT_THAT(L10n::availableCatalogLanguages(), Contains("ko"));
  EXPECT_TRUE(std::ranges::is_sorted(L10n::availableCatalogLanguages()));
  EXPECT_EQ(L10n::catalog("xx"), nullptr);
  EXPECT_EQ(L10n::catalog(""), nullptr);
  EXPECT_EQ(L10n::catalog("en")->language, "en");
}

TEST(L10nResourceFiles, OfTheTopFolderAreTheCatalogs) {
  EXPECT_EQ(L10n::resourceFiles("").size(), L10n::availableCatalogLanguages().size());
  EXPECT_TRUE(L10n::resourceFiles("there is no such folder").empty());
}

}  // namespace
}  // namespace tessary
