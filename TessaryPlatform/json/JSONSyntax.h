#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <string_view>

namespace tessary {

/// JSON text as RFC 8259 defines it, read strictly: UTF-8 without a byte order mark, one value of any kind on top,
/// nothing but white space behind it. What the grammar permits and a reader must still refuse: an escaped lone
/// surrogate is an error everywhere, in keys, in values and in parts that nobody asked for, because it spells no
/// Unicode text and so has no decoded value and no length.

/// How deep objects and arrays may stand in one another. `[[1]]` nests 2 deep.
inline constexpr std::size_t maximumJSONNesting = 1024;

/// The longest text that is read, in bytes: positions are kept in 32 bits.
inline constexpr std::size_t maximumJSONByteCount = 0xFFFF'FFFF;

/// What stands at one place of a JSON text.
enum class JSONKind : std::uint8_t { null, boolean, number, text, array, object };

/// Why a text is not JSON. Of several faults the earliest in the text is told, except that a text that is too long,
/// begins with a byte order mark or is not UTF-8 is refused for that alone, in this order.
struct JSONSyntaxError {
  enum class Reason : std::uint8_t {
    /// More than `maximumJSONByteCount` bytes.
    tooLong,
    /// U+FEFF at the beginning.
    byteOrderMark,
    /// Bytes that are not UTF-8, wherever they stand.
    invalidUTF8,
    /// Something else, or the end, where a value must begin.
    expectedValue,
    /// Something else, or the end, where a key must begin.
    expectedKey,
    /// Something else, or the end, behind a key.
    expectedColon,
    /// Something else, or the end, behind an element or a member.
    expectedCommaOrEnd,
    /// A value that begins like a number and is none, such as "01", "1.", "-" or "1x".
    malformedNumber,
    /// A value that begins like "true", "false" or "null" and is none of them.
    malformedWord,
    /// A backslash with anything behind it that is no escape.
    invalidEscape,
    /// An escaped half of a surrogate pair without the other half.
    loneSurrogate,
    /// A byte below 0x20 inside a text.
    controlCharacter,
    /// A text without its closing quote.
    unclosedText,
    /// More than `maximumJSONNesting` objects and arrays in one another.
    nestedTooDeep,
    /// Anything but white space behind the value on top.
    trailingContent,
  };

  Reason reason{};
  /// The byte at which the fault stands: the backslash of an escape, the opening quote of an unclosed text, the bracket
  /// that is one too many, otherwise the first byte of what is wrong. The number of bytes of the text where it is the
  /// end that comes too soon.
  std::size_t position = 0;

  bool operator==(const JSONSyntaxError&) const = default;
};

/// One member of the object on top.
struct JSONMember {
  /// The key, decoded.
  std::string_view key;
  /// What the value is.
  JSONKind kind;
  /// The value, decoded, where it is a text.
  std::optional<std::string_view> text;
};

/// Checks a whole JSON text in one pass and gives the kind of the value on top; a scalar there is as good as any.
///
/// Where the top is an object, `visit` is called for each of its members, in order, as soon as the member has been
/// walked; both views of the member live for the length of the call. Members may have been visited before a fault
/// further on is found. A key that occurs twice is visited twice. Numbers are held to their grammar and to nothing
/// else, so an integer may have any size.
[[nodiscard]] std::expected<JSONKind, JSONSyntaxError> walkJSON(
    std::string_view text, const std::function<void(const JSONMember&)>& visit = nullptr);

}  // namespace tessary
