#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessary {

// Placeholders in messages. A message is walked by characters (extended grapheme clusters): a "{" or "}" that carries a
// combining mark, or stands behind a character that joins itself to it, is a character of its own kind and no brace.

/// A placeholder of a message: a whole number between braces.
struct MessagePlaceholder {
  /// The byte of the "{", and the byte behind the "}".
  std::size_t start;
  std::size_t end;
  std::size_t index;

  bool operator==(const MessagePlaceholder&) const = default;
};

/// The number that stands in a placeholder: ASCII digits, as many as there are, with or without one sign in front, as
/// reading an integer goes everywhere; so "007" is 7, and "+0" and "-0" are 0. Absent for every other text, for a
/// negative number and for one above 9,223,372,036,854,775,807. Digits of other scripts are read by nobody who writes
/// a catalog, and stay text.
[[nodiscard]] std::optional<std::size_t> placeholderIndex(std::string_view text) noexcept;

/// The first placeholder that begins at byte `from` or behind it. `from` is 0 or the end of the one before.
[[nodiscard]] std::optional<MessagePlaceholder> nextPlaceholder(std::string_view message, std::size_t from) noexcept;

/// `message` with its placeholders filled: `argument(index)` is the text for one, as an optional view; absent leaves
/// the placeholder as it stands. Texts filled in are not looked at again. Linear in what is read and written.
[[nodiscard]] std::string filledMessage(std::string_view message, const auto& argument) {
  std::string text;
  std::size_t done = 0;
  for (std::size_t from = 0; const std::optional<MessagePlaceholder> placeholder = nextPlaceholder(message, from);) {
    from = placeholder->end;
    const std::optional<std::string_view> filling = argument(placeholder->index);
    if (!filling) continue;
    text.append(message, done, placeholder->start - done).append(*filling);
    done = placeholder->end;
  }
  return text.append(message, done);
}

}  // namespace tessary
