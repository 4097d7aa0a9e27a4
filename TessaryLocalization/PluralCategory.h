#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// The forms that a counted message can take in the languages of the product. The names are CLDR's, and so are the
/// rules for whole numbers.
enum class PluralCategory : std::uint8_t { one, few, many, other };

template <>
struct RawValues<PluralCategory> {
  static constexpr auto table = std::to_array<RawValueRow<PluralCategory>>({
      {PluralCategory::one, "one"},
      {PluralCategory::few, "few"},
      {PluralCategory::many, "many"},
      {PluralCategory::other, "other"},
  });
};

/// The form in which `language` counts `count` things; the sign does not matter. `language` is a code such as "ru",
/// compared exactly; a language that counts everything alike, and one that is not known, gives `other`.
[[nodiscard]] PluralCategory cardinal(std::int64_t count, std::string_view language) noexcept;

}  // namespace tessary
