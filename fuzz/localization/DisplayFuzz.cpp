// Stored sentences of any bytes. The first byte chooses the language; the rest is the sentence, either as it is or as
// the arguments of a message that may be stored. A sentence that is not known comes back as it was; one that is known
// is what the expression of its pattern, run by ICU, takes it for.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryLocalization/AppLanguage.h"
#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/StoredSentences.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

/// The message that the patterns find, each tried in turn as a regular expression; absent also where one gave up.
std::optional<std::string> keyByExpressions(const std::string& sentence, bool& isComplete) {
  static const std::vector<RegularExpression> expressions = [] {
    std::vector<RegularExpression> all;
    for (const MessagePattern& pattern : StoredSentences::shared().patterns())
      all.emplace_back(pattern.expression.pattern());
    return all;
  }();
  const RegexSubject subject(sentence);
  for (std::size_t index = 0; index < expressions.size(); ++index) {
    const RegexFind found = expressions[index].find(subject);
    isComplete = isComplete && found.isComplete;
    if (!found.match) continue;
    const MessagePattern& pattern = StoredSentences::shared().patterns()[index];
    std::string_view quantity;
    for (std::size_t group = 0; group < pattern.arguments.size(); ++group)
      if (pattern.arguments[group] == pattern.countArgument) quantity = found.match->group(group + 1)->in(sentence);
    if (!pattern.countArgument || integerQuantity(quantity)) return pattern.key;
  }
  return std::nullopt;
}

void checkPatterns(const std::string& sentence) {
  if (sentence.size() > L10n::maximumSentenceBytes) return;
  const std::optional<KnownMessage> known = StoredSentences::shared().recognized(sentence);
  if (known && known->arguments.empty()) return;
  bool isComplete = true;
  const std::optional<std::string> key = keyByExpressions(sentence, isComplete);
  if (!isComplete) return;
  require(known.has_value() == key.has_value());
  require(!known || known->key == *key);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view language = AppLanguage::supportedCodes[data[0] % AppLanguage::supportedCodes.size()];
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

  // As it is.
  const bool isKnown = StoredSentences::shared().recognized(text).has_value();
  const std::string shown = L10n::display(text, language);
  require(isKnown || shown == text);
  checkPatterns(repairedUTF8(text));

  // As arguments, cut at the first "|".
  const std::size_t cut = std::min(text.find('|'), text.size());
  const std::string first(text.substr(0, cut));
  const std::string second(text.substr(std::min(cut + 1, text.size())));
  for (const std::string& key : L10n::catalog("en")->externalKeys) {
    const std::string sentence = L10n::text(key, {first, second}, integerQuantity(first), language);
    if (isWellFormedUTF8(sentence)) checkPatterns(sentence);
    static_cast<void>(L10n::display(sentence, "en"));
  }
  return 0;
}
