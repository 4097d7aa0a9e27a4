#include "TessaryLocalization/StoredSentences.h"

#include <algorithm>
#include <array>
#include <span>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/MessageText.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

/// A message with an argument that is a word of the catalogs.
struct WordArgument {
  std::string_view key;
  std::size_t index;
  std::span<const std::string_view> words;
};

constexpr std::array<std::string_view, 1> marks{"나중에 볼 것"};
constexpr std::array<std::string_view, 5> sounds{"잔잔한 유리", "부드러운 완료", "가벼운 알림", "투명한 울림",
                                                 "또렷한 신호"};
constexpr auto wordArguments = std::to_array<WordArgument>({
    {"{0}개를 ‘{1}’으로 분류했습니다", 1, marks},
    {"{0} 사운드를 재생했습니다", 0, sounds},
});

}  // namespace

const KnownMessage::Argument* KnownMessage::argument(std::size_t index) const {
  const Argument* found = nullptr;
  for (const Argument& each : arguments)
    if (each.index == index) found = &each;
  return found;
}

StoredSentences::StoredSentences(const LocalizationCatalogs& catalogs)
    : catalogs_(catalogs), reverseMessages_(reverseMessages(catalogs)), patterns_(messagePatterns(catalogs)) {}

const StoredSentences& StoredSentences::shared() {
  static const StoredSentences sentences(LocalizationCatalogs::shared());
  return sentences;
}

std::optional<KnownMessage> StoredSentences::recognized(std::string_view sentence) const {
  // A key itself, and a wording without arguments.
  if (const LocalizationCatalog* const english = catalogs_.fallback())
    if (english->messages.contains(sentence))
      return KnownMessage{.key = std::string(sentence), .arguments = {}, .count = {}};
  if (const auto found = reverseMessages_.find(sentence); found != reverseMessages_.end())
    return KnownMessage{.key = std::string(found->second), .arguments = {}, .count = {}};

  // A wording with arguments.
  if (sentence.size() > L10n::maximumSentenceBytes) return std::nullopt;
  if (isWellFormedUTF8(sentence)) return matched(sentence);
  return matched(repairedUTF8(sentence));
}

std::optional<KnownMessage> StoredSentences::matched(std::string_view text) const {
  const StoredSentence sentence(text);
  for (const MessagePattern& pattern : patterns_) {
    const std::optional<std::vector<ByteRange>> groups = pattern.expression.match(sentence);
    if (!groups) continue;
    KnownMessage message{.key = pattern.key, .arguments = {}, .count = {}};
    for (std::size_t group = 0; group < groups->size(); ++group)
      message.arguments.push_back(
          {.index = pattern.arguments[group], .text = std::string((*groups)[group].in(text)), .isKey = false});

    // What should be a count and is none gives the pattern away.
    if (pattern.countArgument) {
      const KnownMessage::Argument* const quantity = message.argument(*pattern.countArgument);
      if (quantity != nullptr) message.count = integerQuantity(quantity->text);
      if (!message.count) continue;
    }
    for (KnownMessage::Argument& each : message.arguments)
      each = argument(message.key, each.index, each.text);
    return message;
  }
  return std::nullopt;
}

/// An argument as it was found, or, where it is a word of the catalogs in some language, the word's key.
KnownMessage::Argument StoredSentences::argument(const std::string& key, std::size_t index,
                                                 std::string_view text) const {
  for (const WordArgument& row : wordArguments) {
    if (row.key != key || row.index != index) continue;
    for (const std::string_view word : row.words) {
      const auto isTranslation = [&](std::string_view code) { return catalogs_.message(word, {}, code) == text; };
      if (word == text || std::ranges::any_of(AppLanguage::supportedCodes, isTranslation))
        return {.index = index, .text = std::string(word), .isKey = true};
    }
  }
  return {.index = index, .text = std::string(text), .isKey = false};
}

std::string StoredSentences::text(const KnownMessage& message, std::string_view language) const {
  std::size_t argumentCount = 0;
  for (const KnownMessage::Argument& argument : message.arguments)
    argumentCount = std::max(argumentCount, argument.index + 1);
  const auto filling = [&](std::size_t index) -> std::optional<std::string_view> {
    if (index >= argumentCount) return std::nullopt;
    const KnownMessage::Argument* const argument = message.argument(index);
    if (argument == nullptr) return "";
    return argument->isKey ? catalogs_.message(argument->text, {}, language) : std::string_view(argument->text);
  };
  return filledMessage(catalogs_.message(message.key, message.count, language), filling);
}

std::string StoredSentences::display(std::string_view sentence, std::string_view language) const {
  const std::optional<KnownMessage> message = recognized(sentence);
  return message ? text(*message, language) : std::string(sentence);
}

}  // namespace tessary
