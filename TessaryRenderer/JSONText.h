#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts of the script engine, UTF-16 units of any kind, as JSON strings in UTF-8.
namespace tessary::JSONText {

/// Appends `units` to `json` as a quoted JSON string: `"`, `\` and the control characters up to U+001F escaped, with
/// the short escape where there is one; everything else as it is; a lone surrogate as U+FFFD. False, with a part of it
/// appended, where `json` would come to hold more than `limit` bytes. What is appended never goes far above the limit.
[[nodiscard]] bool append(std::string& json, std::u16string_view units, std::size_t limit);

/// `units` with each lone surrogate replaced by U+FFFD.
[[nodiscard]] std::u16string withoutLoneSurrogates(std::u16string_view units);

/// True if `left` comes before `right` when both are compared scalar by scalar, which is also the order of their UTF-8
/// bytes. It is not that of their units: U+FF5E stands below U+1F600, whose first unit is 0xD83D. Neither text may hold
/// a lone surrogate.
[[nodiscard]] bool isOrderedByScalar(std::u16string_view left, std::u16string_view right);

}  // namespace tessary::JSONText
