#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessary {

/// How JSON text is laid out. There are never line breaks or indentation.
struct JSONStyle {
  /// What stands between the parts of an object or array.
  enum class Separators : std::uint8_t {
    /// "," and ":".
    tight,
    /// ", " and ": ", as CPython's `json.dumps` has them.
    spaced,
  };
  /// What is escaped in a text. A quote, a backslash and the bytes below 0x20 always are, by the two-character escapes
  /// where JSON has one and else by "\u" and four lower-case digits; "/" never is.
  enum class Escapes : std::uint8_t {
    /// Nothing more.
    minimal,
    /// Everything but U+0020 to U+007E, by UTF-16 unit, as `json.dumps` has it with `ensure_ascii`.
    ascii,
  };
  /// How floating-point numbers are laid out. Both write the shortest digits that read back as the same double.
  enum class Numbers : std::uint8_t {
    /// As ECMAScript's Number::toString: 5, 0.1, 1e+21, 1e-7. Negative zero is "-0", so that its sign is not lost.
    ecmaScript,
    /// As Python's `repr`: 5.0, 0.1, 1e+16, 1e-05, -0.0. The text always shows that the number is no integer.
    python,
  };
  /// In which order the members of a dynamic object are written.
  enum class Keys : std::uint8_t { asGiven, ascending };

  Separators separators = Separators::tight;
  Escapes escapes = Escapes::minimal;
  Numbers numbers = Numbers::ecmaScript;
  /// Ascending is by Unicode scalar value, at every level. Records keep the order of their table.
  Keys keys = Keys::asGiven;
};

/// Appends `value`, which must be finite, as `numbers` lays it out.
void appendJSONNumber(std::string& json, double value, JSONStyle::Numbers numbers);

/// Appends `text` in quotes. Malformed UTF-8 is written as U+FFFD, one for each maximal subpart.
void appendJSONText(std::string& json, std::string_view text, JSONStyle::Escapes escapes);

/// Appends `text` from byte `position` on, at which a scalar begins, and the quote behind it.
void appendRestOfJSONText(std::string& json, std::string_view text, std::size_t position, JSONStyle::Escapes escapes);

/// Appends a decimal integer.
void appendJSONInteger(std::string& json, std::int64_t value);

}  // namespace tessary
