#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/MessagePattern.h"
#include "TessaryLocalization/MessageText.h"
#include "TessaryLocalization/StoredSentences.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Texts.h"

// Every sentence that may be stored, in every language, and back out in every other: over the catalogs of the product.

namespace tessary {
namespace {

using testing::repeated;

/// The counts that choose each form of every language, and how numbers are written in several scripts.
const std::vector<std::string> quantities{"0",
                                          "1",
                                          "2",
                                          "5",
                                          "11",
                                          "21",
                                          "22",
                                          "1,234",
                                          "1.234",
                                          "1\u202F234",
                                          "1\u00A0000\u00A0000",
                                          "١٬٢٣٤",
                                          "३",
                                          "๑๒",
                                          "１２",
                                          "1’000’000",
                                          "𝟙",
                                          "၂၂",
                                          "9223372036854775807"};

/// Texts that a file name or a title might be.
const std::vector<std::string> texts{"",
                                     "a",
                                     "한글 문서.md",
                                     "{0}",
                                     "{1} {0} {x} {",
                                     R"(a.b*c(d)[e]\Q$1^|?+)",
                                     "٣ १२ ๑๒ １２",
                                     "e\u0301\u200D😀",
                                     "\t\u00A0",
                                     repeated("x", 2048),
                                     repeated("ж", 2048),
                                     repeated("한", 2048)};

const std::vector<std::string_view> sounds{"잔잔한 유리", "부드러운 완료", "가벼운 알림", "투명한 울림", "또렷한 신호"};

/// Which placeholder of a key is a word of the catalogs, and which words.
std::optional<std::pair<std::size_t, std::vector<std::string_view>>> words(std::string_view key) {
  if (key == "{0}개를 ‘{1}’으로 분류했습니다") return {{1, {"나중에 볼 것"}}};
  if (key == "{0} 사운드를 재생했습니다") return {{0, sounds}};
  return std::nullopt;
}

std::size_t placeholderCount(std::string_view key) {
  std::size_t count = 0;
  for (std::size_t from = 0; const std::optional<MessagePlaceholder> placeholder = nextPlaceholder(key, from);) {
    count = std::max(count, placeholder->index + 1);
    from = placeholder->end;
  }
  return count;
}

std::optional<std::size_t> countArgument(std::string_view key) {
  for (const MessagePattern& pattern : StoredSentences::shared().patterns())
    if (pattern.key == key) return pattern.countArgument;
  return std::nullopt;
}

/// One way to fill a key: the arguments, of which one may be the key of a word that each language writes its own way.
struct Filling {
  std::vector<std::string> arguments;
  std::optional<std::size_t> word = {};
  std::optional<std::int64_t> count = {};
};

std::vector<Filling> fillings(std::string_view key) {
  const std::size_t placeholders = placeholderCount(key);
  const std::optional<std::size_t> counting = countArgument(key);
  std::vector<Filling> all;
  for (const std::string& quantity : counting ? quantities : std::vector<std::string>{""}) {
    Filling filling{.arguments = std::vector<std::string>(placeholders, "x")};
    if (counting) {
      filling.arguments.at(*counting) = quantity;
      filling.count = integerQuantity(quantity);
      EXPECT_TRUE(filling.count.has_value()) << quantity;
    }
    for (std::size_t index = 0; index < placeholders; ++index) {
      if (index == counting) continue;
      const std::string before = filling.arguments[index];
      for (const std::string& text : texts) {
        filling.arguments[index] = text;
        all.push_back(filling);
      }
      filling.arguments[index] = before;
      const auto choice = words(key);
      if (!choice || choice->first != index) continue;
      filling.word = index;
      for (const std::string_view word : choice->second) {
        filling.arguments[index] = word;
        all.push_back(filling);
      }
      filling.word = {};
      filling.arguments[index] = before;
    }
    if (placeholders <= (counting ? 1U : 0U)) all.push_back(filling);
  }
  return all;
}

std::string written(std::string_view key, Filling filling, std::string_view language) {
  if (filling.word) {
    std::string& word = filling.arguments[*filling.word];
    word = L10n::text(word, {}, {}, language);
  }
  return L10n::text(key, filling.arguments, filling.count, language);
}

TEST(RoundTrip, OfEverySentenceFromEveryLanguageToEveryOther) {
  ASSERT_NE(L10n::catalog("en"), nullptr);
  const std::vector<std::string> languages = L10n::availableCatalogLanguages();
  ASSERT_GE(languages.size(), 2U);
  for (const std::string& key : L10n::catalog("en")->externalKeys)
    for (const Filling& filling : fillings(key))
      for (const std::string& from : languages) {
        const std::string stored = written(key, filling, from);
        ASSERT_LE(stored.size(), L10n::maximumSentenceBytes);
        for (const std::string& to : languages)
          ASSERT_EQ(L10n::display(stored, to), written(key, filling, to)) << key << "\n" << from << " to " << to;
      }
}

TEST(RoundTrip, OfEveryPatternAtTheLongestSentence) {
  // Arguments of four-byte characters fill a sentence up to the limit, and one byte past it.
  for (const MessagePattern& pattern : StoredSentences::shared().patterns()) {
    if (pattern.countArgument || placeholderCount(pattern.key) == 0) continue;
    const std::size_t placeholders = placeholderCount(pattern.key);
    for (const std::string& from : L10n::availableCatalogLanguages()) {
      Filling filling{.arguments = std::vector<std::string>(placeholders)};
      const std::size_t around = written(pattern.key, filling, from).size();
      const std::size_t room = L10n::maximumSentenceBytes - around;
      filling.arguments.back() = repeated("😀", room / 4) + std::string(room % 4, 'x');
      if (scalarCount(filling.arguments.back()) > maximumArgumentScalars) continue;
      const std::string longest = written(pattern.key, filling, from);
      ASSERT_EQ(longest.size(), L10n::maximumSentenceBytes);
      EXPECT_EQ(L10n::display(longest, "ko"), written(pattern.key, filling, "ko")) << pattern.key;
      filling.arguments.back() += "x";
      const std::string tooLong = written(pattern.key, filling, from);
      EXPECT_EQ(L10n::display(tooLong, "ko"), tooLong) << pattern.key;
    }
  }
}

/// `display` as the rule tells it: every pattern in turn, each a regular expression, without any condition in front.
class SlowRoad {
 public:
  SlowRoad() {
    for (const MessagePattern& pattern : StoredSentences::shared().patterns())
      expressions_.emplace_back(pattern.expression.pattern());
  }

  /// The first pattern whose expression matches, and whose count is one, with what the groups hold.
  [[nodiscard]] std::optional<std::pair<std::size_t, std::vector<std::string>>> matched(std::string_view text) const {
    for (std::size_t index = 0; index < expressions_.size(); ++index) {
      const RegexFind found = expressions_[index].find(text);
      EXPECT_TRUE(found.isComplete);
      if (!found.match) continue;
      const MessagePattern& pattern = StoredSentences::shared().patterns()[index];
      std::vector<std::string> groups;
      std::string quantity;
      for (std::size_t group = 0; group < pattern.arguments.size(); ++group) {
        groups.emplace_back(found.match->group(group + 1)->in(text));
        if (pattern.arguments[group] == pattern.countArgument) quantity = groups.back();
      }
      if (pattern.countArgument && !integerQuantity(quantity)) continue;
      return std::pair(index, groups);
    }
    return std::nullopt;
  }

 private:
  std::vector<RegularExpression> expressions_;
};

TEST(RoundTrip, OfRandomSentencesIsThatOfEveryPatternInTurn) {
  const SlowRoad slow;
  const std::vector<MessagePattern>& patterns = StoredSentences::shared().patterns();
  const std::vector<std::string> languages = L10n::availableCatalogLanguages();
  const std::vector<std::string> pieces{"1", "٢", "x", "한", " ", "’", "\n", "”", "{0}", "1,000", "\u2028"};
  constexpr std::uint32_t seed = 77;
  std::mt19937 random(seed);
  const auto text = [&](std::size_t longest) {
    std::string made;
    for (std::size_t count = random() % (longest + 1); count > 0; --count)
      made += pieces[random() % pieces.size()];
    return made;
  };
  std::size_t matches = 0;
  for (int round = 0; round < 3000; ++round) {
    const std::string& key = patterns[random() % patterns.size()].key;
    std::string sentence =
        L10n::text(key, std::vector<std::string>{text(2), text(2)}, 2, languages[random() % languages.size()]);
    // A sentence, or one with something in front, behind or in the middle, or with a piece cut out.
    switch (random() % 5) {
      case 0:
        sentence += text(2);
        break;
      case 1:
        sentence.insert(0, text(2));
        break;
      case 2:
        sentence.insert(sentence.size() / 2, text(2));
        break;
      case 3:
        sentence.erase(random() % (sentence.size() + 1), random() % 4);
        break;
      default:
        break;
    }
    if (!isWellFormedUTF8(sentence)) sentence = repairedUTF8(sentence);
    const std::optional<KnownMessage> known = StoredSentences::shared().recognized(sentence);
    if (L10n::catalog("en")->messages.contains(sentence) || (known && known->arguments.empty())) continue;
    const auto expected = slow.matched(sentence);
    ASSERT_EQ(known.has_value(), expected.has_value()) << sentence;
    if (!known) continue;
    ++matches;
    ASSERT_EQ(known->key, patterns[expected->first].key) << sentence;
    for (std::size_t group = 0; group < expected->second.size(); ++group)
      if (!known->arguments[group].isKey) {
        ASSERT_EQ(known->arguments[group].text, expected->second[group]) << sentence;
      }
  }
  EXPECT_GT(matches, 300U);
}

TEST(Display, FindsASentenceOfAnotherLanguageInTheOneAskedFor) {
  const std::vector<std::string> languages = L10n::availableCatalogLanguages();
  for (const std::string& from : languages)
    EXPECT_EQ(L10n::display(L10n::text("나중에 볼 것", {}, {}, from), "ko"), "나중에 볼 것") << from;
}

TEST(Display, GivesFreeTextsBackUnchanged) {
  for (const std::string text : {"", "free text", "\xFF\xFE", "{0}", "\n", "{0}{1}"})
    EXPECT_EQ(L10n::display(text, "ko"), text);
}

TEST(Display, GivesTextsOfAnyBytesBackInLinearTime) {
  for (const std::string_view unit : {"\xFF", "{0}", "‘", "1", "\n", "한"}) {
    const std::string longText = repeated(unit, 1'000'000);
    EXPECT_EQ(L10n::display(longText, "ko"), longText);
    const std::string text = repeated(unit, L10n::maximumSentenceBytes / unit.size());
    EXPECT_EQ(L10n::display(text, "ko"), text);
  }
}

}  // namespace
}  // namespace tessary
