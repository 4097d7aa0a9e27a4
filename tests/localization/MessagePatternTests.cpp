#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/MessagePattern.h"

#include "MadeCatalogs.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

std::vector<std::string> expressions(const LocalizationCatalogs& catalogs) {
  std::vector<std::string> all;
  for (const MessagePattern& pattern : messagePatterns(catalogs))
    all.push_back(pattern.expression.pattern());
  return all;
}

TEST(MessagePatterns, AreMadeOfEveryWordingInTheOrderOfTheLanguages) {
  // The plural forms come by their own bytes, not by those of their categories.
  const LocalizationCatalogs catalogs(
      {{"en",
        madeCatalog({{"{0}개 삭제", "{0} deleted"}},
                    {{"{0}개 삭제", {{"one", "{0} thing deleted"}, {"other", "{0} items deleted"}}}}, {"{0}개 삭제"})},
       {"de", madeCatalog({{"{0}개 삭제", "{0} gelöscht"}})},
       {"ko", madeCatalog({{"{0}개 삭제", "{0}개를 삭제함"}})}});
  EXPECT_THAT(expressions(catalogs),
              ElementsAre("^(.{0,2048}?)개 삭제$", "^(.{0,2048}?)개를 삭제함$", "^(.{0,2048}?) deleted$",
                          "^(.{0,2048}?) items deleted$", "^(.{0,2048}?) thing deleted$", "^(.{0,2048}?) gelöscht$"));
}

TEST(MessagePatterns, NameThePlaceholderOfEachGroup) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"{1} 그리고 {0}", "both {0}, {1} and {0}"}}, {}, {"{1} 그리고 {0}"})}});
  const std::vector<MessagePattern> patterns = messagePatterns(catalogs);
  ASSERT_EQ(patterns.size(), 2U);
  EXPECT_THAT(patterns[0].arguments, ElementsAre(1, 0));
  EXPECT_THAT(patterns[1].arguments, ElementsAre(0, 1, 0));
  EXPECT_EQ(patterns[1].key, "{1} 그리고 {0}");
}

TEST(MessagePatterns, ComeFromTheExternalKeysOfEnglishAlone) {
  EXPECT_THAT(expressions(LocalizationCatalogs(
                  {{"en", madeCatalog({{"{0} 열기", "Open {0}"}})}, {"ko", madeCatalog({}, {}, {"{0} 열기"})}})),
              IsEmpty());
  EXPECT_THAT(expressions(LocalizationCatalogs({{"ko", madeCatalog({}, {}, {"{0} 열기"})}})), IsEmpty());
  EXPECT_THAT(expressions(LocalizationCatalogs()), IsEmpty());
}

TEST(MessagePatterns, LeaveOutWordingsWithoutAPlaceholder) {
  EXPECT_THAT(expressions(LocalizationCatalogs(
                  {{"en", madeCatalog({{"{0} 열기", "Open"}, {"닫기", "Close"}}, {}, {"{0} 열기", "닫기"})}})),
              ElementsAre("^(.{0,2048}?) 열기$"));
}

TEST(MessagePatterns, LeaveOutAWordingThatTheKeyHadBefore) {
  const LocalizationCatalogs catalogs({{"en", madeCatalog({{"{0} 열기", "{0}: xy"}}, {}, {"{0} 열기", "{0} 보기"})},
                                       {"de", madeCatalog({{"{0} 열기", "{0}: xy"}, {"{0} 보기", "{0}: xy"}})}});
  EXPECT_THAT(expressions(catalogs), ElementsAre("^(.{0,2048}?) 열기$", "^(.{0,2048}?): xy$",  //
                                                 "^(.{0,2048}?) 보기$", "^(.{0,2048}?): xy$"));
}

TEST(MessagePatterns, LeaveOutAWordingOfFewerThanTwoLetters) {
  const std::vector<std::pair<std::string, bool>> rows{
      {"{0}", false},
      {"{0}: {1}!?", false},
      {"{0} 12345", false},
      {"a {0}", false},
      {"{0} 한", false},
      {"a{0}b", true},
      {"{0} 한글", true},
      {"é {0} é", true},
      {"e\u0301 {0}", false},
      {"{0}ที่", false},
      {"{0} Ⅳ Ⅳ", false},
      {"{x} {0}", false},
      {"{xy} {0}", true},
      // What is left is one text: the mark joins the letter in front of it.
      {"a{0}\u0301", false}};
  for (const auto& [wording, isKept] : rows) {
    const LocalizationCatalogs catalogs({{"en", madeCatalog({{"{0} 열기", wording}}, {}, {"{0} 열기"})}});
    EXPECT_EQ(messagePatterns(catalogs).size(), isKept ? 2U : 1U) << wording;
  }
}

TEST(MessagePatterns, KeepAVagueWordingThatCounts) {
  EXPECT_EQ(messagePatterns(LocalizationCatalogs({{"en", madeCatalog({{"{0}개", "{0}"}}, {}, {"{0}개"})}})).size(), 2U);
  EXPECT_EQ(messagePatterns(LocalizationCatalogs({{"en", madeCatalog({{"총 {0}", "{0}"}},
                                                                     {{"총 {0}", {{"other", "={0}"}}}}, {"총 {0}"})}}))
                .size(),
            3U);
}

TEST(MessagePatterns, CountByTheFirstQuantityOfTheKey) {
  const std::vector<std::pair<std::string, std::optional<std::size_t>>> rows{
      {"{0}개 파일", 0},
      {"{1}의 {0}명", 0},
      {"{0} 파일 {1}일 전", 1},
      {"{1}명 {0}개", 1},
      {"{12}개 파일", 12},
      {"{0} 개 파일", std::nullopt},
      {"{0}건 파일", std::nullopt},
      {"{0}번 파일", std::nullopt},
      // A number that nobody can read counts nothing.
      {"{٣}개 파일 {0}", std::nullopt}};
  for (const auto& [key, count] : rows) {
    const LocalizationCatalogs catalogs({{"en", madeCatalog({}, {}, {key})}});
    ASSERT_EQ(messagePatterns(catalogs).size(), 1U) << key;
    EXPECT_EQ(messagePatterns(catalogs)[0].countArgument, count) << key;
  }
}

TEST(MessagePatterns, CountByTheFirstPlaceholderWhereEnglishHasPluralForms) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({}, {{"{1}에 파일 {0}건", {}}}, {"{1}에 파일 {0}건", "{0}에 폴더 {1}건"})},
       {"de", madeCatalog({}, {{"{0}에 폴더 {1}건", {{"other", "x"}}}})}});
  const std::vector<MessagePattern> patterns = messagePatterns(catalogs);
  ASSERT_EQ(patterns.size(), 2U);
  EXPECT_EQ(patterns[0].countArgument, 0U);
  EXPECT_EQ(patterns[1].countArgument, std::nullopt);
}

TEST(MessagePatterns, TakeAPlaceholderWithoutAReadableNumberAsText) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"{0} 열기", "{٣} open {99999999999999999999} {0} {-0}"}}, {}, {"{0} 열기"})}});
  EXPECT_THAT(expressions(catalogs),
              ElementsAre("^(.{0,2048}?) 열기$", R"(^\{٣\} open \{99999999999999999999\} (.{0,2048}?) \{\-0\}$)"));
  const LocalizationCatalogs all({{"en", madeCatalog({}, {}, {"열기 {٣}"})}});
  EXPECT_THAT(expressions(all), ElementsAre(R"(^열기 \{٣\}$)"));
}

TEST(MessagePatterns, AreTriedFromTheLongestKeyToTheShortest) {
  // Lengths in characters: é of two scalars is one.
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({}, {}, {"{0} ab", "{0} abcd", "{0} e\u0301e\u0301", "{0} abc", "{0} 한글"})}});
  std::vector<std::string> keys;
  for (const MessagePattern& pattern : messagePatterns(catalogs))
    keys.push_back(pattern.key);
  EXPECT_THAT(keys, ElementsAre("{0} abcd", "{0} abc", "{0} ab", "{0} e\u0301e\u0301", "{0} 한글"));
}

TEST(ReverseMessages, PointFromEachWordingToItsKey) {
  const LocalizationCatalogs catalogs(
      {{"en", madeCatalog({{"a", "A"}, {"b", "B"}}, {{"a", {{"one", "A1"}}}})}, {"de", madeCatalog({{"a", "Ä"}})}});
  EXPECT_THAT(reverseMessages(catalogs),
              UnorderedElementsAre(Pair("A", "a"), Pair("A1", "a"), Pair("B", "b"), Pair("Ä", "a")));
}

TEST(ReverseMessages, PointToTheLastOfSeveralKeys) {
  // Within a language by the key's bytes; of languages the later supported code.
  EXPECT_THAT(reverseMessages(LocalizationCatalogs({{"en", madeCatalog({{"b", "same"}, {"a", "same"}, {"c", "x"}})}})),
              UnorderedElementsAre(Pair("same", "b"), Pair("x", "c")));
  EXPECT_THAT(reverseMessages(
                  LocalizationCatalogs({{"de", madeCatalog({{"a", "same"}})}, {"en", madeCatalog({{"b", "same"}})}})),
              UnorderedElementsAre(Pair("same", "a")));
  EXPECT_THAT(reverseMessages(
                  LocalizationCatalogs({{"en", madeCatalog({{"a", "x"}, {"b", "same"}}, {{"a", {{"one", "same"}}}})}})),
              UnorderedElementsAre(Pair("x", "a"), Pair("same", "b")));
}

TEST(ReverseMessages, TakePluralFormsOnlyOfKeysThatHaveAMessage) {
  EXPECT_THAT(reverseMessages(LocalizationCatalogs({{"en", madeCatalog({}, {{"a", {{"one", "A1"}}}})}})), IsEmpty());
}

}  // namespace
}  // namespace tessary
