#pragma once

#include <cstddef>
#include <string_view>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

// White space by Unicode's properties. Python has a set of its own, which also holds U+001C to U+001F: see
// `PythonText::isSpace`. None of them holds U+180E, U+200B or U+FEFF.

/// Line ends: U+000A to U+000D, U+0085, U+2028, U+2029.
[[nodiscard]] constexpr bool isNewline(char32_t scalar) noexcept {
  return (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

/// White space within a line: the tab and general category Zs. This is what trimming "white space" takes away.
[[nodiscard]] constexpr bool isInlineSpace(char32_t scalar) noexcept {
  return scalar == 0x09 || scalar == 0x20 || scalar == 0xA0 || scalar == 0x1680 ||
         (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

/// The property White_Space, which is both of them together: what trimming "white space and newlines" takes away.
[[nodiscard]] constexpr bool isWhiteSpace(char32_t scalar) noexcept {
  return isInlineSpace(scalar) || isNewline(scalar);
}

/// True for a character (an extended grapheme cluster) that counts as white space: the first of its scalars decides, so
/// CR LF does, and so does a blank that carries an accent. `character` is not empty.
[[nodiscard]] inline bool isWhiteSpaceCharacter(std::string_view character) noexcept {
  return isWhiteSpace(decodeScalar(character, 0).scalar);
}

/// True for a character that counts as a line end, CR LF among them. `character` is not empty.
[[nodiscard]] inline bool isNewlineCharacter(std::string_view character) noexcept {
  return isNewline(decodeScalar(character, 0).scalar);
}

/// The text without the scalars of a set at its beginning: `trimmedStart(text, isInlineSpace)`. Scalar by scalar: a
/// blank goes and leaves the accent that it carried.
[[nodiscard]] std::string_view trimmedStart(std::string_view text, auto isInSet) {
  while (!text.empty()) {
    const DecodedScalar first = decodeScalar(text, 0);
    if (!isInSet(first.scalar)) break;
    text.remove_prefix(first.byteCount);
  }
  return text;
}

/// The text without the scalars of a set at its end.
[[nodiscard]] std::string_view trimmedEnd(std::string_view text, auto isInSet) {
  while (!text.empty()) {
    const std::size_t start = previousScalarStart(text, text.size());
    if (!isInSet(decodeScalar(text, start).scalar)) break;
    text = text.substr(0, start);
  }
  return text;
}

/// The text without the scalars of a set at both ends: `trimmed(text, isWhiteSpace)`.
[[nodiscard]] std::string_view trimmed(std::string_view text, auto isInSet) {
  return trimmedEnd(trimmedStart(text, isInSet), isInSet);
}

}  // namespace tessary
