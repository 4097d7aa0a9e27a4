#include "TessaryLocalization/MessageText.h"

#include <charconv>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr bool isASCII(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

constexpr bool isSignOrDigit(char byte) {
  return byte == '+' || byte == '-' || isASCIIDigit(byte);
}

/// True where a character begins at the brace at `position`. Only the scalar before it can take a brace in, so it is
/// enough to look at the two.
bool beginsCharacter(std::string_view text, std::size_t position) {
  if (position == 0 || isASCII(text[position - 1])) return true;
  return characterEnd(text, previousScalarStart(text, position)) == position;
}

/// True where the character that begins at the brace at `position` is the brace alone.
bool endsCharacter(std::string_view text, std::size_t position) {
  if (position + 1 == text.size() || isASCII(text[position + 1])) return true;
  return characterEnd(text, position) == position + 1;
}

}  // namespace

std::optional<std::size_t> placeholderIndex(std::string_view text) noexcept {
  // from_chars takes a minus sign but no plus sign.
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
  return static_cast<std::size_t>(number);
}

// OPTIMIZATION: the message is not cut into characters. What stands between the braces of a placeholder is ASCII, and
// so a boundary stands behind its "{" and before its "}"; what joins to the braces from outside is looked at only where
// the bytes in between are a number. The plain road stands in the tests.
std::optional<MessagePlaceholder> nextPlaceholder(std::string_view message, std::size_t from) noexcept {
  for (std::size_t open = message.find('{', from); open != std::string_view::npos; open = message.find('{', from)) {
    std::size_t close = open + 1;
    while (close < message.size() && isSignOrDigit(message[close]))
      ++close;
    // What was a number without a brace behind it holds no brace either.
    from = close;
    if (close == message.size() || message[close] != '}') continue;
    const std::optional<std::size_t> index = placeholderIndex(message.substr(open + 1, close - open - 1));
    if (!index || !beginsCharacter(message, open) || !endsCharacter(message, close)) continue;
    return MessagePlaceholder{.start = open, .end = close + 1, .index = *index};
  }
  return std::nullopt;
}

}  // namespace tessary
