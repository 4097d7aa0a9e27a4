#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/AppLanguage.h"

namespace tessary {
namespace {

using testing::ElementsAre;

TEST(AppLanguage, ListsItsCasesInOrder) {
  EXPECT_THAT(allCases<AppLanguage::Case>(),
              ElementsAre(AppLanguage::system, AppLanguage::ko, AppLanguage::en, AppLanguage::ja, AppLanguage::es,
                          AppLanguage::de, AppLanguage::fr, AppLanguage::th, AppLanguage::ru, AppLanguage::mn,
                          AppLanguage::vi, AppLanguage::zhHans, AppLanguage::zhHant, AppLanguage::zhHK));
}

TEST(AppLanguage, SupportsEveryCodeButThatOfTheSystem) {
  EXPECT_THAT(AppLanguage::supportedCodes,
              ElementsAre("ko", "en", "ja", "es", "de", "fr", "th", "ru", "mn", "vi", "zh-Hans", "zh-Hant", "zh-HK"));
}

TEST(AppLanguage, IsKnownByItsCode) {
  EXPECT_EQ(AppLanguage(AppLanguage::system).id(), "");
  EXPECT_EQ(AppLanguage(AppLanguage::zhHK).id(), "zh-HK");
  EXPECT_EQ(fromRawValue<AppLanguage::Case>("zh-Hant"), AppLanguage::zhHant);
  EXPECT_EQ(fromRawValue<AppLanguage::Case>("zh"), std::nullopt);
}

TEST(AppLanguage, HasTheNameThatItGivesItself) {
  const std::vector<std::pair<AppLanguage, std::string_view>> names{{AppLanguage::ko, "한국어"},
                                                                    {AppLanguage::en, "English"},
                                                                    {AppLanguage::ja, "日本語"},
                                                                    {AppLanguage::es, "Español"},
                                                                    {AppLanguage::de, "Deutsch"},
                                                                    {AppLanguage::fr, "Français"},
                                                                    {AppLanguage::th, "ไทย"},
                                                                    {AppLanguage::ru, "Русский"},
                                                                    {AppLanguage::mn, "Монгол"},
                                                                    {AppLanguage::vi, "Tiếng Việt"},
                                                                    {AppLanguage::zhHans, "简体中文"},
                                                                    {AppLanguage::zhHant, "繁體中文（台灣）"},
                                                                    {AppLanguage::zhHK, "繁體中文（香港）"}};
  for (const auto& [language, name] : names)
    EXPECT_EQ(language.nativeName(), name) << language.id();
}

struct Resolution {
  std::string selection;
  std::vector<std::string> preferredLanguages;
  std::string language;
};

TEST(AppLanguage, ResolvesASelectionAndTheLanguagesOfTheSystem) {
  const std::vector<Resolution> rows{
      // A selection decides alone.
      {"ko", {"de"}, "ko"},
      {"zh-HK", {}, "zh-HK"},
      {"xx", {"de"}, "en"},
      {"KO", {"de"}, "en"},
      {"zh", {"de"}, "en"},
      {" ", {"de"}, "en"},
      // Else the first language that the product speaks.
      {"", {"pt-BR", "de-DE"}, "de"},
      {"", {"de-DE", "fr"}, "de"},
      {"", {"DE_de"}, "de"},
      {"", {"en-US"}, "en"},
      {"", {}, "en"},
      {"", {"pt"}, "en"},
      {"", {"", "-", "__", "vi"}, "vi"},
      {"", {"-ja"}, "ja"},
      {"", {"deu", "mn"}, "mn"},
      // Upper case of other scripts is lowered too: U+212A KELVIN SIGN is no letter of "ko" in bytes.
      {"", {"\u212AO"}, "ko"},
      {"", {"\xFF", "th"}, "th"},
      // Chinese.
      {"", {"zh_TW"}, "zh-Hant"},
      {"", {"zh-Hant-HK"}, "zh-HK"},
      {"", {"zh-Hans-HK"}, "zh-Hans"},
      {"", {"yue-Hant"}, "zh-HK"},
      {"", {"yue"}, "zh-HK"},
      {"", {"yue-Hans"}, "zh-Hans"},
      {"", {"zh"}, "zh-Hans"},
      {"", {"zh-MO"}, "zh-HK"},
      {"", {"zh-SG"}, "zh-Hans"},
      {"", {"ZH-HANT"}, "zh-Hant"},
      {"", {"zh-TW-Hans"}, "zh-Hans"},
      {"", {"zh", "zh-TW"}, "zh-Hans"},
      {"", {"pt", "zh-TW", "ko"}, "zh-Hant"},
      {"", {"zhx", "fr"}, "fr"},
  };
  for (std::size_t row = 0; row < rows.size(); ++row)
    EXPECT_EQ(AppLanguage::resolve(rows[row].selection, rows[row].preferredLanguages), rows[row].language)
        << "row " << row;
}

TEST(AppLanguage, KeepsTheRegionOfTheSystemUnderAnotherLanguage) {
  const Locale german("de_DE");
  EXPECT_EQ(AppLanguage::locale("ja", german).language(), "ja");
  EXPECT_EQ(AppLanguage::locale("ja", german).region(), "DE");
  EXPECT_EQ(AppLanguage::locale("zh-HK", german), Locale("zh-Hant-DE"));
  EXPECT_EQ(AppLanguage::locale("zh-Hans", german), Locale("zh-Hans-DE"));
  EXPECT_EQ(AppLanguage::locale("ko", Locale("ar-EG-u-nu-latn")), Locale("ko-EG-u-nu-latn"));
}

}  // namespace
}  // namespace tessary
