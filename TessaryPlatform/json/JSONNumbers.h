#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessary {

/// The values of numbers that are spelled as JSON's grammar has them.

/// The integer that `spelling` stands for; absent if it does not fit.
[[nodiscard]] std::optional<std::int64_t> jsonInteger(std::string_view spelling);

/// The double nearest to `spelling`: infinite where that is too large, zero where it is too small, with its sign.
[[nodiscard]] double jsonDouble(std::string_view spelling);

}  // namespace tessary
