#pragma once

#include <optional>
#include <string>

namespace tessary {

/// How many characters a token has: two UUIDs of 32 hexadecimal digits.
inline constexpr std::size_t renderTokenLength = 64;

/// A text that no document can guess: two random UUIDs (RFC 9562, version 4) in uppercase hexadecimal without their
/// hyphens, fresh at every call from the system's random source. Absent where the system has no random numbers.
[[nodiscard]] std::optional<std::string> makeRenderToken();

}  // namespace tessary
