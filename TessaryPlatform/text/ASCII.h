#pragma once

namespace tessary {

// Classes of ASCII characters, for formats that are written in ASCII: no locale has a say in them, and no byte of a
// longer UTF-8 sequence is in any. A `Character` is a byte (`char`), a UTF-16 unit or a scalar.

/// "0" to "9".
template <class Character>
[[nodiscard]] constexpr bool isASCIIDigit(Character character) noexcept {
  return character >= '0' && character <= '9';
}

/// "A" to "Z".
template <class Character>
[[nodiscard]] constexpr bool isASCIIUppercase(Character character) noexcept {
  return character >= 'A' && character <= 'Z';
}

/// "a" to "z".
template <class Character>
[[nodiscard]] constexpr bool isASCIILowercase(Character character) noexcept {
  return character >= 'a' && character <= 'z';
}

/// A letter of either case.
template <class Character>
[[nodiscard]] constexpr bool isASCIILetter(Character character) noexcept {
  return isASCIILowercase(character) || isASCIIUppercase(character);
}

/// A letter or a digit.
template <class Character>
[[nodiscard]] constexpr bool isASCIIAlphanumeric(Character character) noexcept {
  return isASCIILetter(character) || isASCIIDigit(character);
}

/// The small letter for a capital one; everything else is itself.
template <class Character>
[[nodiscard]] constexpr Character lowercasedASCII(Character character) noexcept {
  return isASCIIUppercase(character) ? static_cast<Character>(character | 0x20) : character;
}

}  // namespace tessary
