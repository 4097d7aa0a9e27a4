#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/StoredSentences.h"

#include "MadeCatalogs.h"

namespace tessary {
namespace {

class Stored : public testing::Test {
 protected:
  static std::vector<std::pair<std::string, LocalizationCatalog>> byCode() {
    const std::string marked = "{0}개를 ‘{1}’으로 분류했습니다";
    const std::string played = "{0} 사운드를 재생했습니다";
    return {
        {"en", madeCatalog({{"열기", "Open"},
                            {"Open", "a key in English"},
                            {"닫기", "Close"},
                            {marked, "Marked {0} as “{1}”"},
                            {"나중에 볼 것", "Review later"},
                            {played, "Played {0}"},
                            {"잔잔한 유리", "Calm glass"},
                            {"또렷한 신호", "Clear signal"},
                            {"{0}에서 {1}로 이동", "Moved {0} to {1}"},
                            {"{0}에서 이동", "Moved {0}"}},
                           {{marked, {{"one", "Marked {0} item as “{1}”"}, {"other", "Marked {0} items as “{1}”"}}}},
                           {marked, played, "{0}에서 이동", "{0}에서 {1}로 이동"})},
        {"de", madeCatalog(
                   {{"열기", "Öffnen"},
                    {"닫기", "Open"},
                    {marked, "{0} als „{1}“ markiert"},
                    {"나중에 볼 것", "Später"},
                    {played, "{0} abgespielt"},
                    {"잔잔한 유리", "Stilles Glas"},
                    {"{0}에서 {1}로 이동", "Nach {1} verschoben, von {0}"},
                    {"{0}에서 이동", "Von {0} verschoben"}},
                   {{marked, {{"one", "{0} Stück als „{1}“ markiert"}, {"other", "{0} Stücke als „{1}“ markiert"}}}})},
    };
  }

  [[nodiscard]] std::string display(std::string_view text, std::string_view language) const {
    return sentences.display(text, language);
  }

  const LocalizationCatalogs catalogs{byCode()};
  const StoredSentences sentences{catalogs};
};

TEST_F(Stored, KeysComeFirst) {
  // "Open" is a key, and also English for one key and German for another.
  EXPECT_EQ(display("Open", "en"), "a key in English");
  EXPECT_EQ(display("Open", "de"), "a key in English");
  EXPECT_EQ(display("열기", "de"), "Öffnen");
}

TEST_F(Stored, WordingsOfEveryLanguageComeSecond) {
  EXPECT_EQ(display("Öffnen", "en"), "Open");
  EXPECT_EQ(display("Close", "de"), "Open");
  EXPECT_EQ(display("Später", "ko"), "Review later");
  EXPECT_EQ(display("Marked {0} item as “{1}”", "de"), "{0} als „{1}“ markiert");
}

TEST_F(Stored, WordingsWithArgumentsComeThird) {
  EXPECT_EQ(display("Moved a to b", "de"), "Nach b verschoben, von a");
  EXPECT_EQ(display("Nach b verschoben, von a", "en"), "Moved a to b");
  EXPECT_EQ(display("Moved a", "de"), "Von a verschoben");
  EXPECT_EQ(display("a에서 b로 이동", "en"), "Moved a to b");
}

TEST_F(Stored, AllElseComesBackUnchanged) {
  for (const std::string text : {"", "a free text", "Moved", "moved a", "Moved a\nb", "\xFF\xFE", "Geöffnet"})
    EXPECT_EQ(display(text, "de"), text);
}

TEST_F(Stored, TheLongestKeyIsTriedFirst) {
  // The shorter key stands first in the catalog and its wording matches too.
  EXPECT_EQ(sentences.recognized("Moved a to b")->key, "{0}에서 {1}로 이동");
}

TEST_F(Stored, ArgumentsAreNotLookedIntoForPlaceholders) {
  EXPECT_EQ(display("Moved {1} to {0}", "de"), "Nach {0} verschoben, von {1}");
}

TEST_F(Stored, ACountChoosesTheFormOfTheNewLanguage) {
  EXPECT_EQ(display("Marked 1 item as “x”", "de"), "1 Stück als „x“ markiert");
  EXPECT_EQ(display("Marked 3 items as “x”", "de"), "3 Stücke als „x“ markiert");
  EXPECT_EQ(display("1개를 ‘x’으로 분류했습니다", "en"), "Marked 1 item as “x”");
  EXPECT_EQ(display("١٬٢٣٤개를 ‘x’으로 분류했습니다", "en"), "Marked ١٬٢٣٤ items as “x”");
}

TEST_F(Stored, WhatShouldCountAndIsNoNumberIsLeftToOtherPatterns) {
  EXPECT_EQ(display("Marked many items as “x”", "de"), "Marked many items as “x”");
  EXPECT_EQ(display("Marked -1 items as “x”", "de"), "Marked -1 items as “x”");
  EXPECT_EQ(display("Marked  items as “x”", "de"), "Marked  items as “x”");
  EXPECT_EQ(display("Marked 9223372036854775808 items as “x”", "de"), "Marked 9223372036854775808 items as “x”");
  // "1 item" is no number for "Marked {0} as", but the number of "Marked {0} item as".
  EXPECT_EQ(display("Marked 1 item as “x”", "de"), "1 Stück als „x“ markiert");
}

TEST_F(Stored, AnArgumentThatIsAWordOfTheCatalogsIsTranslatedToo) {
  EXPECT_EQ(display("Played Calm glass", "de"), "Stilles Glas abgespielt");
  EXPECT_EQ(display("Stilles Glas abgespielt", "en"), "Played Calm glass");
  EXPECT_EQ(display("Stilles Glas abgespielt", "ko"), "Played Calm glass");
  EXPECT_EQ(display("잔잔한 유리 사운드를 재생했습니다", "de"), "Stilles Glas abgespielt");
  EXPECT_EQ(display("Marked 2 items as “Später”", "en"), "Marked 2 items as “Review later”");
  EXPECT_EQ(display("Marked 2 items as “나중에 볼 것”", "de"), "2 Stücke als „Später“ markiert");
  // A word that a language lacks is written in English by it.
  EXPECT_EQ(display("Clear signal abgespielt", "de"), "Clear signal abgespielt");
  EXPECT_EQ(sentences.recognized("Clear signal abgespielt")->arguments[0].text, "또렷한 신호");
}

TEST_F(Stored, AnotherArgumentThatLooksLikeAWordIsNot) {
  EXPECT_EQ(display("Moved Später to Calm glass", "de"), "Nach Calm glass verschoben, von Später");
  EXPECT_EQ(display("Played Später", "de"), "Später abgespielt");
  EXPECT_EQ(display("Played stilles Glas", "de"), "stilles Glas abgespielt");
}

TEST_F(Stored, SentencesOfMoreThan8192BytesAreKnownWholeOnly) {
  // Two arguments of 2,048 characters at most, the second filled up with characters of four bytes.
  const auto sentence = [](std::size_t bytes) {
    std::string text = "Moved ";
    while (text.size() + 4 <= 4000)
      text += "😀";
    text += " to ";
    while (text.size() + 4 <= bytes)
      text += "😀";
    return text + std::string(bytes - text.size(), 'x');
  };
  for (const std::size_t bytes : {L10n::maximumSentenceBytes - 1, L10n::maximumSentenceBytes}) {
    EXPECT_EQ(sentence(bytes).size(), bytes);
    EXPECT_EQ(sentences.recognized(sentence(bytes))->key, "{0}에서 {1}로 이동");
    EXPECT_TRUE(display(sentence(bytes), "de").starts_with("Nach "));
  }
  const std::string tooLong = sentence(L10n::maximumSentenceBytes + 1);
  EXPECT_EQ(display(tooLong, "de"), tooLong);
}

TEST(StoredSentences, KnowALongSentenceByItsWholeText) {
  const std::string longKey = std::string(9000, 'k');
  const std::string longWording = std::string(9000, 'w');
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{longKey, "short"}, {"x", longWording}})}, {"de", madeCatalog({{"x", "kurz"}})}});
  const StoredSentences sentences(catalogs);
  EXPECT_EQ(sentences.display(longKey, "en"), "short");
  EXPECT_EQ(sentences.display(longWording, "de"), "kurz");
}

TEST(StoredSentences, WithoutACatalogKnowNothing) {
  const LocalizationCatalogs catalogs;
  const StoredSentences sentences(catalogs);
  EXPECT_EQ(sentences.display("열기", "en"), "열기");
  EXPECT_EQ(sentences.recognized("열기"), std::nullopt);
}

TEST(StoredSentences, WithoutEnglishKnowWordingsButNoKeysAndNoPatterns) {
  const LocalizationCatalogs catalogs(
      {{"de", madeCatalog({{"열기", "Öffnen"}}, {}, {"{0} 열기"})}, {"fr", madeCatalog({{"열기", "Ouvrir"}})}});
  const StoredSentences sentences(catalogs);
  EXPECT_EQ(sentences.display("Öffnen", "fr"), "Ouvrir");
  EXPECT_EQ(sentences.display("열기", "fr"), "열기");
}

TEST_F(Stored, BrokenBytesInAnArgumentBecomeReplacementCharacters) {
  EXPECT_EQ(display("Moved \xFF to b", "de"), "Nach b verschoben, von \uFFFD");
  EXPECT_EQ(display("Moved \xFF too b", "de"), "Von \uFFFD too b verschoben");
  EXPECT_EQ(display("\xFFMoved a to b", "de"), "\xFFMoved a to b");
}

TEST(StoredSentences, APlaceholderWithoutAGroupIsEmptyAndOneBehindTheLastStays) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"{0} {1} {2} 정리", "Tidied {1} up"}}, {}, {"{0} {1} {2} 정리"})},
       {"de", madeCatalog({{"{0} {1} {2} 정리", "[{0}|{1}|{2}]"}})}});
  EXPECT_EQ(StoredSentences(catalogs).display("Tidied x up", "de"), "[|x|{2}]");
}

TEST(StoredSentences, OfAPlaceholderThatStandsTwiceTheLastCounts) {
  const LocalizationCatalogs catalogs({{"en", madeCatalog({{"{0} 정리", "{0} and {0}"}}, {}, {"{0} 정리"})},
                                       {"de", madeCatalog({{"{0} 정리", "<{0}>"}})}});
  EXPECT_EQ(StoredSentences(catalogs).display("x and y", "de"), "<y>");
}

TEST(StoredSentences, AHugePlaceholderTakesNoMemory) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"정리 {9223372036854775807}", "Tidied {9223372036854775807}"}}, {},
                          {"정리 {9223372036854775807}"})},
       {"de", madeCatalog({{"정리 {9223372036854775807}", "{0}{9223372036854775807}!"}})}});
  EXPECT_EQ(StoredSentences(catalogs).display("Tidied x", "de"), "x!");
}

TEST(StoredSentences, AWordIsOneInItsOwnPlaceholderAlone) {
  const std::string played = "{0} 사운드를 재생했습니다";
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{played, "Played {0} from {1}"}, {"잔잔한 유리", "Calm glass"}}, {}, {played})},
       {"de", madeCatalog({{played, "{0} aus {1} abgespielt"}, {"잔잔한 유리", "Stilles Glas"}})}});
  EXPECT_EQ(StoredSentences(catalogs).display("Played Calm glass from Calm glass", "de"),
            "Stilles Glas aus Calm glass abgespielt");
}

TEST(StoredSentences, AFormThatLeavesTheCountOutIsNotKnownByItsArguments) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"{1}에 {0}개", "{0} in {1}"}}, {{"{1}에 {0}개", {{"one", "One thing in {1}"}}}},
                          {"{1}에 {0}개"})},
       {"de", madeCatalog({{"{1}에 {0}개", "{0} Dinge in {1}"}})}});
  EXPECT_EQ(StoredSentences(catalogs).display("One thing in x", "de"), "One thing in x");
  EXPECT_EQ(StoredSentences(catalogs).display("3 in x", "de"), "3 Dinge in x");
}

}  // namespace
}  // namespace tessary
