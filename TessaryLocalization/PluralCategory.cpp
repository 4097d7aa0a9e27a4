#include "TessaryLocalization/PluralCategory.h"

namespace tessary {

namespace {

/// Without overflow for the least number of all, which has no positive counterpart.
constexpr std::uint64_t magnitude(std::int64_t count) {
  const auto bits = static_cast<std::uint64_t>(count);
  return count < 0 ? 0 - bits : bits;
}

PluralCategory russian(std::uint64_t number) {
  const std::uint64_t lastDigit = number % 10;
  const std::uint64_t lastTwoDigits = number % 100;
  if (lastDigit == 1 && lastTwoDigits != 11) return PluralCategory::one;
  if (lastDigit >= 2 && lastDigit <= 4 && (lastTwoDigits < 12 || lastTwoDigits > 14)) return PluralCategory::few;
  return PluralCategory::many;
}

/// French and Spanish say "un million de", "un millón de": whole millions take a form of their own.
constexpr bool isWholeMillions(std::uint64_t number) {
  return number != 0 && number % 1'000'000 == 0;
}

}  // namespace

PluralCategory cardinal(std::int64_t count, std::string_view language) noexcept {
  const std::uint64_t number = magnitude(count);
  if (language == "ru") return russian(number);
  if (language == "fr") {
    if (number <= 1) return PluralCategory::one;
    return isWholeMillions(number) ? PluralCategory::many : PluralCategory::other;
  }
  if (language == "es") {
    if (number == 1) return PluralCategory::one;
    return isWholeMillions(number) ? PluralCategory::many : PluralCategory::other;
  }
  if (language == "en" || language == "de" || language == "mn")
    return number == 1 ? PluralCategory::one : PluralCategory::other;
  return PluralCategory::other;
}

}  // namespace tessary
