// Holds the catalogs together: what one of them has, all have, in a form that the code can use.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include "TessaryLocalization/PluralCategory.h"
#include "TessaryPlatform/json/JSONWriter.h"
#include "TessaryPlatform/text/UTF8.h"

#include "CatalogFiles.h"

namespace tessary {
namespace {

constexpr auto languages = std::to_array<std::string_view>(
    {"de", "en", "es", "fr", "ja", "ko", "mn", "ru", "th", "vi", "zh-HK", "zh-Hans", "zh-Hant"});

template <class Map>
std::set<std::string> keysOf(const Map& map) {
  std::set<std::string> keys;
  for (const auto& [key, value] : map)
    keys.insert(key);
  return keys;
}

/// Every category that a count can give: the rules look at the last two digits, at 0 and 1, and at whole millions.
std::set<std::string> categoriesOf(std::string_view language) {
  std::array<bool, allCases<PluralCategory>().size()> occurs{};
  const auto add = [&](std::int64_t count) { occurs[static_cast<std::size_t>(cardinal(count, language))] = true; };
  for (std::int64_t count = 0; count <= 1'000'000; ++count)
    add(count);
  for (std::int64_t count = 1'000'000; count <= 1'000'000'000; count += 1'000'000)
    add(count);
  std::set<std::string> categories;
  for (const PluralCategory category : allCases<PluralCategory>()) {
    if (occurs[static_cast<std::size_t>(category)]) categories.emplace(rawValue(category));
  }
  return categories;
}

void appendText(std::string& json, std::string_view text) {
  appendJSONText(json, text, JSONStyle::Escapes::minimal);
}

/// Appends the items in `brackets`, each by `appendItem` on a line of its own.
template <class Items, class AppendItem>
void appendLines(std::string& json, std::string_view brackets, std::size_t indentation, const Items& items,
                 AppendItem appendItem) {
  json += brackets.front();
  std::string_view separator;
  for (const auto& item : items) {
    json.append(separator).append("\n").append(indentation + 2, ' ');
    separator = ",";
    appendItem(item);
  }
  if (!items.empty()) json.append("\n").append(indentation, ' ');
  json += brackets.back();
}

template <class Map>
void appendTexts(std::string& json, std::size_t indentation, const Map& texts) {
  appendLines(json, "{}", indentation, texts, [&](const auto& entry) {
    appendText(json, entry.first);
    json += ": ";
    appendText(json, entry.second);
  });
}

/// The forms in the order of the categories, which is not that of their names.
std::vector<std::pair<std::string, std::string>> inOrder(const std::map<std::string, std::string>& forms) {
  std::vector<std::pair<std::string, std::string>> ordered(forms.begin(), forms.end());
  std::ranges::sort(ordered, {}, [](const auto& form) { return fromRawValue<PluralCategory>(form.first); });
  return ordered;
}

/// How a catalog is written: two blanks a level, keys ascending, nothing escaped that need not be.
std::string canonicalText(const CatalogFile& file) {
  std::string json = "{\n  \"language\": ";
  appendText(json, file.language);
  json += ",\n  \"messages\": ";
  appendTexts(json, 2, file.messages);
  json += ",\n  \"plurals\": ";
  appendLines(json, "{}", 2, file.plurals, [&](const auto& entry) {
    appendText(json, entry.first);
    json += ": ";
    appendTexts(json, 4, inOrder(entry.second));
  });
  json += ",\n  \"externalKeys\": ";
  appendLines(json, "[]", 2, file.externalKeys, [&](const std::string& key) { appendText(json, key); });
  return json += "\n}\n";
}

TEST(Catalogs, ExistForEveryLanguageAndForNoOther) {
  std::vector<std::string> codes;
  for (const CatalogFile& file : catalogFiles())
    codes.push_back(file.code);
  EXPECT_THAT(codes, testing::ElementsAreArray(languages));
}

TEST(Catalogs, SayTheLanguageOfTheirFile) {
  for (const CatalogFile& file : catalogFiles())
    EXPECT_EQ(file.language, file.code);
}

// One form makes a change readable as a difference, and a key written twice or an unknown field shows.
TEST(Catalogs, AreWrittenInOneForm) {
  for (const CatalogFile& file : catalogFiles())
    EXPECT_EQ(file.bytes, canonicalText(file)) << file.code;
}

TEST(Catalogs, HaveTheSameKeys) {
  const std::set<std::string> keys = keysOf(catalogFile("ko").messages);
  EXPECT_FALSE(keys.empty());
  for (const CatalogFile& file : catalogFiles())
    EXPECT_EQ(keysOf(file.messages), keys) << file.code;
}

TEST(Catalogs, CountTheSameMessages) {
  const std::set<std::string> keys = keysOf(catalogFile("ko").plurals);
  EXPECT_FALSE(keys.empty());
  for (const CatalogFile& file : catalogFiles()) {
    EXPECT_EQ(keysOf(file.plurals), keys) << file.code;
    for (const std::string& key : keys)
      EXPECT_TRUE(file.messages.contains(key)) << file.code << " " << key;
  }
}

TEST(Catalogs, HaveAFormForEachCategoryThatTheirLanguageCanProduceAndNoOther) {
  for (const CatalogFile& file : catalogFiles()) {
    const std::set<std::string> categories = categoriesOf(file.code);
    for (const auto& [key, forms] : file.plurals)
      EXPECT_EQ(keysOf(forms), categories) << file.code << " " << key;
  }
}

// Without a count the message stands for any number, so it is the form that most numbers take.
TEST(Catalogs, HaveTheFormOfMostNumbersAsTheMessage) {
  constexpr std::int64_t inNoWaySpecial = 100;
  for (const CatalogFile& file : catalogFiles()) {
    const std::string category(rawValue(cardinal(inNoWaySpecial, file.code)));
    for (const auto& [key, forms] : file.plurals)
      EXPECT_EQ(file.messages.at(key), forms.at(category)) << file.code << " " << key;
  }
}

TEST(Catalogs, KeepEveryPlaceholderInEveryForm) {
  for (const CatalogFile& file : catalogFiles()) {
    for (const auto& [key, message] : file.messages) {
      for (const std::string& text : file.texts(key)) {
        EXPECT_EQ(placeholders(text), placeholders(key)) << file.code << " " << text;
        EXPECT_EQ(withoutPlaceholders(text).find_first_of("{}%"), std::string::npos) << file.code << " " << text;
      }
    }
  }
}

TEST(Catalogs, HaveTheKoreanKeysAsKoreanTexts) {
  for (const auto& [key, message] : catalogFile("ko").messages)
    EXPECT_EQ(message, key);
}

// A stored text is turned back into its key whatever language it was written in. A text that two keys shared, be it in
// two languages, would come back as the wrong one.
TEST(Catalogs, NeverSayTheSameForTwoKeys) {
  std::map<std::string, std::string> keysByText;
  for (const CatalogFile& file : catalogFiles()) {
    for (const auto& [key, message] : file.messages) {
      for (const std::string& text : file.texts(key)) {
        const auto [known, isNew] = keysByText.emplace(text, key);
        EXPECT_EQ(known->second, key) << file.code << " " << text;
      }
    }
  }
}

// A stored text that is itself a key is taken for that key before anything else is tried.
TEST(Catalogs, TranslateNoKeyAsAnother) {
  const auto& keys = catalogFile("ko").messages;
  for (const CatalogFile& file : catalogFiles()) {
    for (const auto& [key, message] : file.messages) {
      for (const std::string& text : file.texts(key))
        EXPECT_TRUE(text == key || !keys.contains(text)) << file.code << " " << key;
    }
  }
}

TEST(Catalogs, NameStoredSentencesInEnglishAlone) {
  for (const CatalogFile& file : catalogFiles())
    EXPECT_EQ(file.externalKeys.empty(), file.code != "en") << file.code;
}

TEST(StoredSentences, AreKeysNamedOnceInAscendingOrder) {
  const CatalogFile& english = catalogFile("en");
  for (const std::string& key : english.externalKeys)
    EXPECT_TRUE(english.messages.contains(key)) << key;
  EXPECT_EQ(std::ranges::adjacent_find(english.externalKeys, std::ranges::greater_equal()), english.externalKeys.end());
}

TEST(StoredSentences, HoldEverySentenceThatCounts) {
  const CatalogFile& english = catalogFile("en");
  for (const auto& [key, forms] : english.plurals)
    EXPECT_THAT(english.externalKeys, testing::Contains(key));
}

// A count must read as a number, which tells a sentence well enough; another placeholder takes any text at all.
TEST(StoredSentences, HaveTwoLettersOfTheirOwn) {
  for (const CatalogFile& file : catalogFiles()) {
    for (const std::string& key : catalogFile("en").externalKeys) {
      if (file.plurals.contains(key)) continue;
      for (const std::string& text : file.texts(key)) {
        const std::u32string rest = toScalars(withoutPlaceholders(text));
        const auto isLetter = [](char32_t scalar) { return u_isalpha(static_cast<UChar32>(scalar)) != 0; };
        EXPECT_GE(std::ranges::count_if(rest, isLetter), 2) << file.code << " " << text;
      }
    }
  }
}

}  // namespace
}  // namespace tessary
