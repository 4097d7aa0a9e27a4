#include <string>
#include <unordered_set>

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include "TessaryLocalization/Locale.h"

namespace tessary {
namespace {

struct IdentifierRow {
  const char* text;
  const char* identifier;
};

TEST(Locale, ReadsTagsIdentifiersAndThePOSIXForm) {
  for (const auto& [text, identifier] : {
           IdentifierRow{"ko", "ko"},
           {"ko-KR", "ko_KR"},
           {"ko_KR", "ko_KR"},
           {"ko_KR.UTF-8", "ko_KR"},
           {"ko_KR.utf8", "ko_KR"},
           {"EN-us", "en_US"},
           {"zh-Hant-HK", "zh_Hant_HK"},
           {"zh_TW.UTF-8", "zh_TW"},
           {"de_DE@euro", "de_DE"},
           {"de_DE.ISO-8859-15@euro", "de_DE"},
           {"sr_RS.UTF-8@latin", "sr_Latn_RS"},
           {"sr_RS@latin", "sr_Latn_RS"},
           {"uz@cyrillic", "uz_Cyrl"},
           {"ar-EG-u-ca-islamic-nu-latn", "ar_EG@calendar=islamic;numbers=latn"},
           {"ar_EG@numbers=latn;calendar=islamic", "ar_EG@calendar=islamic;numbers=latn"},
           {"en-US-u-rg-dezzzz", "en_US@rg=dezzzz"},
           {"iw_IL", "he_IL"},
           {"und-US", "_US"},
           {"en-US-x-private", "en_US"},
           {"ar-EGin-cic-nu-nu0", "ar_Egin"},
           {"", ""},
       })
    EXPECT_EQ(Locale(text).identifier(), identifier) << text;
}

TEST(Locale, TakesTheLocaleOfProgramsForEnglishOfNoRegion) {
  for (const char* text : {"C", "POSIX", "C.UTF-8", "C.utf8"})
    EXPECT_EQ(Locale(text).identifier(), "en") << text;
}

TEST(Locale, IsThatOfNoLanguageWhereTheTextCannotBeRead) {
  for (const std::string& text : {std::string("garbage!!"), std::string("ko\0KR", 5), std::string("\xFF\xFE"),
                                  std::string("한국"), std::string("de DE"), std::string("de@=;x=;")})
    EXPECT_EQ(Locale(text), Locale()) << text;
}

TEST(Locale, ReadsNoTextAboveItsLimit) {
  const auto ofSize = [](std::size_t size) { return "de_DE." + std::string(size - 6, 'x'); };
  EXPECT_EQ(Locale(ofSize(Locale::maximumTextBytes - 1)).identifier(), "de_DE");
  EXPECT_EQ(Locale(ofSize(Locale::maximumTextBytes)).identifier(), "de_DE");
  EXPECT_EQ(Locale(ofSize(Locale::maximumTextBytes + 1)).identifier(), "");
}

TEST(Locale, IsStableWhenItsIdentifierIsReadAgain) {
  std::int32_t count = 0;
  const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
  ASSERT_GT(count, 500);
  for (std::int32_t index = 0; index < count; ++index) {
    const Locale locale(all[index].getName());
    EXPECT_EQ(Locale(locale.identifier()), locale) << all[index].getName();
  }
}

TEST(Locale, NamesItsParts) {
  const Locale locale("zh-Hant-HK-u-nu-hanidec");
  EXPECT_EQ(locale.language(), "zh");
  EXPECT_EQ(locale.script(), "Hant");
  EXPECT_EQ(locale.region(), "HK");
  EXPECT_EQ(Locale("es-419").region(), "419");
  EXPECT_EQ(Locale("ko").region(), "");
  EXPECT_EQ(Locale().language(), "");
}

TEST(Locale, ReadsTheRegionInForceFromItsKeyword) {
  EXPECT_EQ(Locale("en-US-u-rg-dezzzz").region(), "DE");
  EXPECT_EQ(Locale("en-US-u-rg-gbsct").region(), "GB");
  EXPECT_EQ(Locale("en-u-rg-150zzzz").region(), "150");
  EXPECT_EQ(Locale("en-US-u-rg-t32").region(), "US");
}

TEST(Locale, IsAKeyOfHashedContainers) {
  const std::unordered_set<Locale> set = {Locale("de-DE"), Locale("de_DE.UTF-8"), Locale("de_AT")};
  EXPECT_EQ(set.size(), 2U);
}

struct LanguageRow {
  const char* system;
  const char* language;
  const char* identifier;
};

TEST(Locale, KeepsRegionAndConventionsUnderAnotherLanguage) {
  for (const auto& [system, language, identifier] : {
           LanguageRow{"de_DE", "ko", "ko_DE"},
           {"en_US", "zh-Hant-HK", "zh_Hant_US"},
           {"zh-Hant-TW", "en", "en_TW"},
           {"zh-Hant-TW", "zh-Hans", "zh_Hans_TW"},
           {"ar-EG-u-ca-islamic-hc-h23-nu-latn", "ja", "ja_EG@calendar=islamic;hours=h23;numbers=latn"},
           {"th_TH@calendar=gregorian", "mn", "mn_TH@calendar=gregorian"},
           {"es-419", "fr", "fr_419"},
           {"en_US_POSIX", "de", "de_US_POSIX"},
       })
    EXPECT_EQ(Locale(system).withLanguage(language).identifier(), identifier) << system << " " << language;
}

TEST(Locale, KeepsItsRegionWhereItsKeywordsCannotBeKept) {
  EXPECT_EQ(Locale("ar-EG-u-20").withLanguage("ko").identifier(), "ko_EG");
  EXPECT_EQ(Locale("ar-EG-u-20").withLanguage("zh-Hant-HK").identifier(), "zh_Hant_EG");
}

TEST(Locale, PutsTheRegionInForceIntoBothPlaces) {
  const Locale locale = Locale("en-US-u-nu-latn-rg-dezzzz").withLanguage("ko");
  EXPECT_EQ(locale.identifier(), "ko_DE@numbers=latn");
  EXPECT_EQ(locale.region(), "DE");
}

TEST(Locale, LeavesTheLanguageItsRegionWhereItHasNone) {
  EXPECT_EQ(Locale("en").withLanguage("zh-Hant-HK").identifier(), "zh_Hant_HK");
  EXPECT_EQ(Locale("C").withLanguage("ko").identifier(), "ko");
}

TEST(Locale, TakesAnyBytesForALanguage) {
  EXPECT_EQ(Locale("de_DE@numbers=latn").withLanguage("\xFF").identifier(), "_DE@numbers=latn");
  EXPECT_EQ(Locale("de_DE").withLanguage("").identifier(), "_DE");
}

TEST(Locale, RanksTheVariablesAsPOSIXDoes) {
  EXPECT_EQ(Locale::fromVariables({.all = "fr_FR.UTF-8", .messages = "de_DE", .time = "ko_KR", .language = "ja_JP"}),
            Locale("fr_FR"));
  EXPECT_EQ(Locale::fromVariables({.language = "ja_JP.UTF-8"}), Locale("ja_JP"));
  EXPECT_EQ(Locale::fromVariables({.all = "", .messages = "", .time = "", .language = "ja_JP.UTF-8"}), Locale("ja_JP"));
  EXPECT_EQ(Locale::fromVariables({.all = "C.UTF-8", .language = "ja_JP.UTF-8"}), Locale("en"));
  EXPECT_EQ(Locale::fromVariables({}), Locale("en"));
  EXPECT_EQ(Locale::fromVariables({.all = "", .language = ""}), Locale("en"));
}

TEST(Locale, TakesTheLanguageFromMessagesAndTheRegionFromTime) {
  EXPECT_EQ(Locale::fromVariables({.time = "de_DE.UTF-8", .language = "en_US.UTF-8"}), Locale("en_DE"));
  EXPECT_EQ(Locale::fromVariables({.messages = "zh_CN.UTF-8", .language = "ko_KR.UTF-8"}), Locale("zh_KR"));
  EXPECT_EQ(Locale::fromVariables({.messages = "sr_RS@latin", .time = "de_AT"}), Locale("sr_Latn_AT"));
  // Programs that sort dates set the time to "C"; it names no region to follow.
  EXPECT_EQ(Locale::fromVariables({.time = "C", .language = "de_DE.UTF-8"}), Locale("de_DE"));
}

}  // namespace
}  // namespace tessary
