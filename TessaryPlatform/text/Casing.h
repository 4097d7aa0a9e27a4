#pragma once

#include <string>
#include <string_view>

namespace tessary {

/// Full lower-casing of the root locale (The Unicode Standard, section 3.13, rule R2, with SpecialCasing.txt; the
/// authority is ICU). A scalar may become several (U+0130 becomes "i" and U+0307), and a capital sigma at the end of a
/// word becomes U+03C2, elsewhere U+03C3; no other rule looks at the surroundings, and none at a language. A broken
/// sequence becomes U+FFFD.
[[nodiscard]] std::string lowercased(std::string_view text);

}  // namespace tessary
