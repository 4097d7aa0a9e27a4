#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessary {

/// The longest normal form of an extension, in characters.
inline constexpr std::size_t longestNormalExtension = 20;

/// The form in which extensions are listed and compared, of a text whose ends are trimmed already: in lower case, then
/// without one "." at its beginning. Absent where that is not 1 to `longestNormalExtension` of the characters a-z, 0-9,
/// "_" and "-", the first of them a letter or digit.
///
/// What "trimmed" means is the caller's: `CapturePreferences::normalizedExtension` and
/// `CaptureRules::normalizedExtension` differ in it.
[[nodiscard]] std::optional<std::string> normalExtension(std::string_view trimmed);

}  // namespace tessary
