#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessary {

/// The whole number that a formatted text shows, in whatever script and with whatever separators its locale has:
/// "1,234", "1 234" and "١٬٢٣٤" are 1,234. It is how the count is found again in a sentence that was stored with its
/// numbers filled in. The text is not checked to be well grouped, and a "." or "," never begins a fraction.
///
/// Every character (extended grapheme cluster) of `text` must be a single scalar whose Numeric_Value in the Unicode
/// Character Database is a whole number, or one of the separators ".", ",", " ", "'", U+2019, U+00A0, U+202F, U+2009
/// and U+066C; so a sign is no part of a quantity, and a digit with a mark on it is no digit. The values are joined as
/// decimal texts: "三五" is 35, and "十", whose value is 10, puts two digits in.
///
/// Absent where another character occurs, without any digit, and above 9,223,372,036,854,775,807. Linear in the length.
[[nodiscard]] std::optional<std::int64_t> integerQuantity(std::string_view text) noexcept;

}  // namespace tessary
