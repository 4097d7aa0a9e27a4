#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"

/// The string methods of Python that the capture rules are written in, and `posixpath.normpath`.
///
/// The authority is `str` of CPython 3.14, whose characters are Unicode scalars: no locale, no normalisation and no
/// grapheme segmentation enters here. Two operations differ from Python on purpose, and say so: `casefold`, `isMember`.
///
/// Text is UTF-8, and lengths count scalars unless a line says bytes. Operations whose answer is always a piece of
/// their argument give it as a view into the argument's own bytes, and allocate nothing for it: the text must outlive
/// the answer, so none of them may be given a temporary whose answer is kept.
///
/// Any bytes are taken. A maximal ill-formed subpart counts as one scalar that is neither white space nor a line end
/// nor in any table; its bytes are kept in whatever comes out, and it is equal only to the same bytes. What is looked
/// for in a text is compared byte by byte, so that an ill-formed prefix, suffix or needle may match a part of a scalar.
namespace tessary::PythonText {

/// A regular-expression character class, in ICU's syntax, of exactly the scalars for which `isSpace` holds: what
/// stands in a pattern where Python's has `\s`.
inline constexpr std::string_view spaceClass =
    R"([\t\n\x{0B}\f\r\x{1C}-\x{20}\x{85}\x{A0}\x{1680}\x{2000}-\x{200A}\x{2028}\x{2029}\x{202F}\x{205F}\x{3000}])";

/// `str.isspace` for one scalar. Neither the property White_Space nor the platform's trim set: the information
/// separators U+001C to U+001F are in it; U+180E, U+200B and U+FEFF are not.
[[nodiscard]] constexpr bool isSpace(char32_t scalar) noexcept {
  if (scalar <= 0x20) return (scalar >= 0x09 && scalar <= 0x0D) || scalar >= 0x1C;
  return scalar == 0x85 || scalar == 0xA0 || scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) ||
         scalar == 0x2028 || scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

/// `str.strip()`: the text without the `isSpace` scalars at its ends, as a view into it.
[[nodiscard]] std::string_view strip(std::string_view text) noexcept;

/// `str.lstrip()`: the text without the `isSpace` scalars at its start, as a view into it.
[[nodiscard]] std::string_view stripStart(std::string_view text) noexcept;

/// `str.split()`: the pieces between runs of `isSpace` scalars, none of them empty, as views into the text.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text);

/// `str.splitlines()`: the lines without their ends, as views into the text. Lines end at U+000A to U+000D, U+001C to
/// U+001E, U+0085, U+2028 and U+2029, and U+000D U+000A is one end. No line stands behind the last line end.
[[nodiscard]] std::vector<std::string_view> splitlines(std::string_view text);

/// The first line of a text that is not empty, as `splitlines` has it, taken off the text together with its end: for
/// who reads lines one after the other and needs no list of them.
[[nodiscard]] std::string_view takeLine(std::string_view& text) noexcept;

/// `splitlines` on scalars: slices that share the argument's storage.
[[nodiscard]] std::vector<std::u32string_view> splitlines(std::u32string_view scalars);

/// Those of the lines of `splitlines` that begin with `prefix`, which must be a text in ASCII without line ends. The
/// lines between them are passed over without being looked for.
[[nodiscard]] std::vector<std::string_view> linesBeginning(std::string_view text, std::string_view prefix);

/// The pieces between the places where `separator` stands, empty ones kept, as views into the text: always one more
/// than there are separators. A `separator` that is no Unicode scalar stands nowhere.
[[nodiscard]] std::vector<std::string_view> components(std::string_view text, char32_t separator);

/// The fold under which a text equals an ASCII word exactly where its `str.casefold()` does. "A" to "Z" become small,
/// the 19 scalars outside ASCII whose full fold holds an ASCII letter become that fold, and all else stays: "É", and
/// Greek and Cyrillic capitals, are not folded. Do not use it where both sides may be outside ASCII.
[[nodiscard]] std::string casefold(std::string_view text);

/// True for a text of which `casefold` changes "A" to "Z" and nothing else; nearly all texts are such. One pass over
/// the bytes.
[[nodiscard]] bool foldsWithinASCII(std::string_view text) noexcept;

/// The same without an allocation for ASCII text without capitals, which is most names: the answer is then `text`
/// itself, else a view into `storage`, which is overwritten. Both must outlive the answer, and `text` must not lie in
/// `storage`.
[[nodiscard]] std::string_view casefold(std::string_view text, std::string& storage);

/// `posixpath.normpath`: the path without empty components and ".", each ".." taken together with the component
/// before it, without asking the file system. Exactly two leading slashes stay, more become one; "" gives ".".
[[nodiscard]] std::string normpath(std::string_view text);

/// The same without an allocation for a path that is normal already: the answer is `text` itself where
/// `isNormalAbsolute` holds, else a view into `storage`, which is overwritten. Both must outlive the answer, and `text`
/// must not lie in `storage`.
[[nodiscard]] std::string_view normpath(std::string_view text, std::string& storage);

/// True for a text that begins with "/", does not end in it, and has no empty component, no "." and no "..": a path
/// that `normpath` gives back as it is. One pass over the bytes. False for some other such paths ("/", "a", "//a").
[[nodiscard]] bool isNormalAbsolute(std::string_view text) noexcept;

/// True if `set` holds `text` and `text` is ASCII: the sets that the rules ask about are ASCII words, and text outside
/// ASCII is in none of them, however it was folded or normalised. `set` has `contains(std::string_view)`.
template <typename Set>
  requires requires(const Set& set, std::string_view text) {
    { set.contains(text) } -> std::convertible_to<bool>;
  }
[[nodiscard]] bool isMember(std::string_view text, const Set& set) {
  return isASCII(text) && set.contains(text);
}

/// The same for a small table of words.
template <std::size_t count>
[[nodiscard]] bool isMember(std::string_view text, const std::array<std::string_view, count>& words) noexcept {
  for (const std::string_view word : words) {
    if (word == text) return isASCII(text);
  }
  return false;
}

/// `str.startswith`, exact on scalars.
[[nodiscard]] bool hasPrefix(std::string_view text, std::string_view prefix) noexcept;

/// `str.endswith`, exact on scalars.
[[nodiscard]] bool hasSuffix(std::string_view text, std::string_view suffix) noexcept;

/// `==` of two `str`, exact on scalars.
[[nodiscard]] bool equal(std::string_view a, std::string_view b) noexcept;

/// `needle in text`, exact on scalars. An empty needle is in every text. Linear in both lengths together.
[[nodiscard]] bool contains(std::string_view text, std::string_view needle) noexcept;

/// The same on scalars, by trying every position from the left: for needles that the caller's code chooses.
[[nodiscard]] bool contains(std::u32string_view scalars, std::u32string_view needle) noexcept;

/// `text[:count]`: the first `count` scalars, all of them if there are fewer, as a view into the text.
[[nodiscard]] std::string_view prefix(std::string_view text, std::size_t count) noexcept;

/// `"".join` of scalars. What is no Unicode scalar becomes U+FFFD.
[[nodiscard]] std::string string(std::u32string_view scalars);

/// `pattern` compiled as ICU's syntax has it, with no option set; one that does not compile matches nothing. Python's
/// `\s` is written `spaceClass`.
[[nodiscard]] RegularExpression expression(std::string_view pattern);

}  // namespace tessary::PythonText
