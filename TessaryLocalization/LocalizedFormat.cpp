#include "TessaryLocalization/LocalizedFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

#include "TessaryLocalization/DateTexts.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/NumberTexts.h"
#include "TessaryLocalization/RelativeTimeFormatters.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/SystemTimeZone.h"

namespace tessary::L10n {

static_assert(maximumPrecision == NumberLayout::greatest);

namespace {

constexpr std::string_view wholeSecondsKey = "%.0f초";
constexpr std::string_view secondsKey = "%.2f초";

Locale inForce(const std::optional<Locale>& locale) {
  return locale ? *locale : LocalizationRuntime::shared().locale();
}

std::string zoneName(const std::optional<TimeZone>& zone) {
  return zone ? zone->identifier() : systemTimeZoneIdentifier();
}

/// True for the text of a date and time that ends in an offset as "+09:00".
bool hasSeparatedOffset(std::string_view text) {
  constexpr std::size_t offsetBytes = 6;
  if (text.size() < offsetBytes) return false;
  const std::string_view offset = text.substr(text.size() - offsetBytes);
  return (offset[0] == '+' || offset[0] == '-') && offset[3] == ':';
}

/// The template with `value` in the place of "%.nf", n being one digit. It is laid out as the C library does, without
/// groups, but in the digits and with the decimal sign of the locale, and rounded as all numbers here. "%%" is a "%",
/// and one that begins nothing else stands for itself.
std::string filled(std::string_view format, double value, const Locale& locale) {
  std::string text;
  while (!format.empty()) {
    const std::size_t sign = format.find('%');
    text += format.substr(0, sign);
    if (sign == std::string_view::npos) break;
    format.remove_prefix(sign);
    if (format.size() >= 4 && format[1] == '.' && isASCIIDigit(format[2]) && format[3] == 'f') {
      const int digits = format[2] - '0';
      text +=
          numberText(value, {.leastFractionDigits = digits, .mostFractionDigits = digits, .isGrouped = false}, locale);
      format.remove_prefix(4);
    } else {
      text += '%';
      format.remove_prefix(format.starts_with("%%") ? 2 : 1);
    }
  }
  return text;
}

template <typename Number>
std::string shortestText(Number value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return std::string(text.data(), end.ptr);
}

}  // namespace

std::string number(std::int64_t value, const std::optional<Locale>& locale) {
  return numberText(value, inForce(locale));
}

std::string decimal(double value, int precision, const std::optional<Locale>& locale) {
  const int digits = std::clamp(precision, 0, maximumPrecision);
  return numberText(value, {.leastFractionDigits = digits, .mostFractionDigits = digits}, inForce(locale));
}

std::string date(Date date, const std::optional<Locale>& locale, const std::optional<TimeZone>& zone) {
  return dateText(date, DateLayout::abbreviatedDate, inForce(locale), zoneName(zone));
}

std::string dateTime(Date date, const std::optional<Locale>& locale, const std::optional<TimeZone>& zone) {
  return dateText(date, DateLayout::abbreviatedDateAndShortTime, inForce(locale), zoneName(zone));
}

std::string dateTime(std::string_view text, const std::optional<Locale>& locale, const std::optional<TimeZone>& zone) {
  const auto read = timestamp(text);
  return read ? dateTime(*read, locale, zone) : std::string(text);
}

std::optional<Date> timestamp(std::string_view text) {
  if (text.size() > maximumTimestampBytes || hasSeparatedOffset(text)) return std::nullopt;
  for (const auto fraction : {ISO8601::Fraction::present, ISO8601::Fraction::none})
    if (const auto date = ISO8601::date(text, fraction, ISO8601::MissingZone::meansUTC)) return date;
  return std::nullopt;
}

std::string shortRelative(Date date, Date now, const std::optional<Locale>& locale,
                          const std::optional<TimeZone>& zone) {
  // Asked this way round, a date without a distance is told as a date.
  if (!(std::abs(date - now) < relativeTimeLimit)) return L10n::date(date, locale, zone);
  const Date shown = std::min(date, now);
  return RelativeTimeFormatters::shared().formatter(inForce(locale)).textForSecondsAgo(now - shown);
}

std::string duration(double seconds, std::optional<std::string_view> language, const std::optional<Locale>& locale) {
  const bool isWhole = std::isfinite(seconds) && seconds >= 1 && std::trunc(seconds) == seconds;
  return filled(text(isWhole ? wholeSecondsKey : secondsKey, std::span<const std::string>(), {}, language), seconds,
                inForce(locale));
}

std::string argument(std::int64_t value) {
  return numberText(value, inForce({}));
}

std::string argument(std::uint64_t value) {
  return numberText(value, inForce({}));
}

std::string argument(double value) {
  return numberText(value, {.mostFractionDigits = NumberLayout::fractionDigitsOfDecimals}, inForce({}));
}

std::string argument(float value) {
  return shortestText(value);
}

std::string argument(long double value) {
  return shortestText(value);
}

std::string argument(std::string_view value) {
  return std::string(value);
}

}  // namespace tessary::L10n
