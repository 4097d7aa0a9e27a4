#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "TessaryLocalization/LocalizationCatalogs.h"
#include "TessaryLocalization/MessagePattern.h"

namespace tessary {

/// The message that a stored sentence was made from.
struct KnownMessage {
  /// The text that filled one placeholder.
  struct Argument {
    /// The number of the placeholder.
    std::size_t index;
    std::string text;
    /// True where the text is itself the key of a message, and has to be translated too.
    bool isKey;

    bool operator==(const Argument&) const = default;
  };

  std::string key;
  /// In the order of the groups that held them. Of two with one index the last counts; an index below the highest that
  /// has none is empty.
  std::vector<Argument> arguments;
  std::optional<std::int64_t> count;

  /// The argument that counts of those with this index; null where there is none.
  [[nodiscard]] const Argument* argument(std::size_t index) const;

  bool operator==(const KnownMessage&) const = default;
};

/// Knows stored sentences again, in whatever language they were written. Never changes once it is made, and may be used
/// from any thread.
class StoredSentences {
 public:
  /// The catalogs must outlive it.
  explicit StoredSentences(const LocalizationCatalogs& catalogs);

  /// That of this process's catalogs, made at the first call.
  [[nodiscard]] static const StoredSentences& shared();

  /// The message of a sentence; absent where none is known.
  [[nodiscard]] std::optional<KnownMessage> recognized(std::string_view sentence) const;

  /// The sentence in `language`; unchanged where it is not known. The rule is that of `L10n::display`.
  [[nodiscard]] std::string display(std::string_view sentence, std::string_view language) const;

  [[nodiscard]] const std::vector<MessagePattern>& patterns() const { return patterns_; }

 private:
  std::optional<KnownMessage> matched(std::string_view sentence) const;
  KnownMessage::Argument argument(const std::string& key, std::size_t index, std::string_view text) const;
  std::string text(const KnownMessage& message, std::string_view language) const;

  const LocalizationCatalogs& catalogs_;
  std::unordered_map<std::string_view, std::string_view> reverseMessages_;
  std::vector<MessagePattern> patterns_;
};

}  // namespace tessary
