#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "TessaryLocalization/Locale.h"

namespace tessary {

/// How the digits of a number are laid out.
struct NumberLayout {
  /// The digits behind the decimal sign: at least `leastFractionDigits`, 0 to `mostFractionDigits`.
  int leastFractionDigits = 0;
  /// At most this many, 0 to `greatest`; what is left is rounded, half to even.
  int mostFractionDigits = 0;
  /// Whether the groups of the locale ("1,234") are set apart.
  bool isGrouped = true;

  /// The most digits behind the decimal sign that ICU writes.
  static constexpr int greatest = 999;
  /// CLDR's decimal format, whose pattern is "#,##0.###" in every locale but for its grouping.
  static constexpr int fractionDigitsOfDecimals = 3;

  auto operator<=>(const NumberLayout&) const = default;
};

/// Numbers in the digits and with the signs of a locale: its standard decimal format. A numbering system that writes
/// numbers in other ways than by digits ("roman") is not followed. Text that ICU could not write (it can, short of
/// memory) is plain ASCII.
[[nodiscard]] std::string numberText(std::int64_t value, const Locale& locale);
[[nodiscard]] std::string numberText(std::uint64_t value, const Locale& locale);
/// Any double, also "∞" and the locale's text for what is not a number.
[[nodiscard]] std::string numberText(double value, const NumberLayout& layout, const Locale& locale);

}  // namespace tessary
