#pragma once

#include <string>
#include <string_view>

namespace tessary::PythonHTMLTitle {

/// The text with its character references ("&amp;", "&#65;", "&#x41;") decoded, as CPython 3.14's `html.unescape` does:
/// by the rules of HTML for valid and invalid references, in one pass, so that what a reference gives is not read
/// again. One difference: a decimal number of any length is read, where CPython refuses more than 4,300 digits.
///
/// Text without "&" comes back as it is. In UTF-8, each maximal ill-formed subpart becomes U+FFFD. Linear time.
[[nodiscard]] std::u32string unescape(std::u32string_view scalars);
[[nodiscard]] std::string unescape(std::string_view text);

/// The same for the value of an attribute, as CPython 3.14's `html.parser` does: a named reference without ";" stays as
/// it is before "=" or an ASCII letter or digit, so that "?a=1&copy=2" stays an address.
[[nodiscard]] std::u32string unescapeAttribute(std::u32string_view scalars);
[[nodiscard]] std::string unescapeAttribute(std::string_view text);

}  // namespace tessary::PythonHTMLTitle
