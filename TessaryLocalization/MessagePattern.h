#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "TessaryLocalization/LocalizationCatalogs.h"
#include "TessaryLocalization/SentenceExpression.h"

namespace tessary {

/// One wording of a message with placeholders, turned round: it finds the arguments in a sentence that was written by
/// it.
struct MessagePattern {
  std::string key;
  SentenceExpression expression;
  /// For each group of the expression, in order, the number of the placeholder that it fills.
  std::vector<std::size_t> arguments;
  /// The placeholder whose text is the count that chose the plural form; absent for a message that counts nothing.
  std::optional<std::size_t> countArgument;
};

/// The patterns of all sentences that may be stored: for each external key of the English catalog, each wording in each
/// supported language. The longest key comes first (in characters; among equals the first of the catalog), so that the
/// most specific sentence is tried first.
///
/// The count of a key is the placeholder in front of one of the Korean counters 개, 명 and 일; without one it is
/// placeholder 0 where English has plural forms. A key that counts nothing has nothing but its words to be known by,
/// so that a wording of fewer than two letters is left out: it would take any text for its own. Letters are characters
/// that begin with a scalar of general category L.
///
/// A placeholder is a run of decimal digits of any script between braces; but only one that `placeholderIndex` can read
/// is filled by `L10n::text`, and all others are matched as the text that they are.
[[nodiscard]] std::vector<MessagePattern> messagePatterns(const LocalizationCatalogs& catalogs);

/// The key of each message and plural form in each language, by its wording. Where one wording belongs to several keys,
/// the last in the order of the supported codes, then of the keys' bytes, then of the forms' bytes has it; a plural
/// form comes behind its plain message. The views live as long as the catalogs.
[[nodiscard]] std::unordered_map<std::string_view, std::string_view> reverseMessages(
    const LocalizationCatalogs& catalogs);

}  // namespace tessary
