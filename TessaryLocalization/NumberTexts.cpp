#include "TessaryLocalization/NumberTexts.h"

#include <array>
#include <charconv>
#include <memory>
#include <utility>

#include <unicode/numberformatter.h>
#include <unicode/stringpiece.h>
#include <unicode/unistr.h>
#include <unicode/unumberformatter.h>

#include "TessaryLocalization/FormatterCache.h"

namespace tessary {
namespace {

/// ICU's newer formatter, which is immutable and may be shared among threads; `icu::DecimalFormat` may not.
using Formatter = icu::number::LocalizedNumberFormatter;
using Key = std::pair<std::string, NumberLayout>;

std::unique_ptr<const Formatter> makeFormatter(const NumberLayout& layout, const icu::Locale& locale,
                                               UErrorCode& status) {
  auto formatter = std::make_unique<const Formatter>(
      icu::number::NumberFormatter::withLocale(locale)
          .precision(icu::number::Precision::minMaxFraction(layout.leastFractionDigits, layout.mostFractionDigits))
          .grouping(layout.isGrouped ? UNUM_GROUPING_AUTO : UNUM_GROUPING_OFF));
  // It reads its data, and says what is wrong with them, at the first number.
  for (int use = 0; use < usesBeforeSharing; ++use)
    formatter->formatInt(0, status);
  return formatter;
}

const Formatter* formatterFor(const NumberLayout& layout, const Locale& locale) {
  static auto& cache = *new FormatterCache<Key, Formatter>;
  return cache.formatter({locale.identifier(), layout}, [&] {
    return madeForLocale(locale, [&](const icu::Locale& candidate, UErrorCode& status) {
      return makeFormatter(layout, candidate, status);
    });
  });
}

template <typename Number>
std::string plainText(Number value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return std::string(text.data(), end.ptr);
}

/// The text of what `format(formatter, status)` gives, and `plain` where it fails.
template <typename Format>
std::string textOf(const Formatter* formatter, std::string plain, const Format& format) {
  if (formatter == nullptr) return plain;
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString units = format(*formatter, status).toTempString(status);
  if (U_FAILURE(status)) return plain;
  std::string text;
  return units.toUTF8String(text);
}

}  // namespace

std::string numberText(std::int64_t value, const Locale& locale) {
  return textOf(formatterFor({}, locale), plainText(value),
                [&](const Formatter& formatter, UErrorCode& status) { return formatter.formatInt(value, status); });
}

std::string numberText(std::uint64_t value, const Locale& locale) {
  const std::string digits = plainText(value);
  const icu::StringPiece piece(digits.data(), static_cast<std::int32_t>(digits.size()));
  return textOf(formatterFor({}, locale), digits,
                [&](const Formatter& formatter, UErrorCode& status) { return formatter.formatDecimal(piece, status); });
}

std::string numberText(double value, const NumberLayout& layout, const Locale& locale) {
  return textOf(formatterFor(layout, locale), plainText(value),
                [&](const Formatter& formatter, UErrorCode& status) { return formatter.formatDouble(value, status); });
}

}  // namespace tessary
