#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessary {

/// Unicode normalization form C (Unicode Standard Annex #15; the authority is ICU). A broken sequence becomes U+FFFD.
[[nodiscard]] std::string normalizedToFormC(std::string_view text);

/// The transform "Latin-ASCII" of ICU and CLDR: Latin letters lose their marks or are spelled out ("ß" becomes "ss"),
/// typographic marks become plain ones, and all else stays. A broken sequence becomes U+FFFD. Absent where ICU has no
/// such transform. One text is transformed at a time, whatever the thread.
[[nodiscard]] std::optional<std::string> latinToASCII(std::string_view text);

}  // namespace tessary
