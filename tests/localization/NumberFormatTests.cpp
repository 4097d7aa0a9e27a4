#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>

#include <gtest/gtest.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/LocalizedFormat.h"
#include "TessaryLocalization/PluralCategory.h"

#include "FormatLocales.h"

namespace tessary {
namespace {

constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

/// What ICU's classic formatter writes, which shares no object with the product's.
class ClassicFormat {
 public:
  explicit ClassicFormat(const std::string& identifier) {
    UErrorCode status = U_ZERO_ERROR;
    format_.reset(icu::NumberFormat::createInstance(icu::Locale(identifier.c_str()), status));
    EXPECT_TRUE(U_SUCCESS(status)) << identifier;
    // Unless told to follow the locale here as well, it sets apart a group of four digits where Spanish does not.
    if (auto* const decimal = dynamic_cast<icu::DecimalFormat*>(format_.get()))
      decimal->setMinimumGroupingDigits(UNUM_MINIMUM_GROUPING_DIGITS_AUTO);
  }

  void setFractionDigits(int count) const {
    format_->setMinimumFractionDigits(count);
    format_->setMaximumFractionDigits(count);
  }
  void setGrouped(bool isGrouped) const { format_->setGroupingUsed(static_cast<UBool>(isGrouped)); }

  template <typename Number>
  [[nodiscard]] std::string text(Number value) const {
    icu::UnicodeString units;
    std::string text;
    return format_->format(value, units).toUTF8String(text);
  }

 private:
  std::unique_ptr<icu::NumberFormat> format_;
};

TEST(LocalizedNumber, IsWrittenInTheGroupsAndDigitsOfItsLocale) {
  EXPECT_EQ(L10n::number(1'234'567, Locale("ko_KR")), "1,234,567");
  EXPECT_EQ(L10n::number(1'234'567, Locale("de_DE")), "1.234.567");
  EXPECT_EQ(L10n::number(1'234'567, Locale("fr_FR")), "1\u202F234\u202F567");
  EXPECT_EQ(L10n::number(1'234'567, Locale("de_CH")), "1\u2019234\u2019567");
  EXPECT_EQ(L10n::number(1'234'567, Locale("en_IN")), "12,34,567");
  EXPECT_EQ(L10n::number(1'234'567, Locale("ar_EG")), "١٬٢٣٤٬٥٦٧");
  EXPECT_EQ(L10n::number(1'234'567, Locale("ko-u-nu-arab")), "١٬٢٣٤٬٥٦٧");
  // Spanish sets groups apart from five digits on.
  EXPECT_EQ(L10n::number(1'234, Locale("es_ES")), "1234");
  EXPECT_EQ(L10n::number(12'345, Locale("es_ES")), "12.345");
  EXPECT_EQ(L10n::number(-5, Locale("en_US")), "-5");
}

TEST(LocalizedNumber, IsThatOfICUForEveryReader) {
  std::mt19937_64 random(8'202);
  for (const Locale& locale : test::readersLocales()) {
    const ClassicFormat classic(locale.identifier());
    for (const std::int64_t value : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{999}, std::int64_t{1'000},
                                     std::int64_t{9'999}, std::int64_t{10'000}, least, greatest})
      ASSERT_EQ(L10n::number(value, locale), classic.text(value)) << locale.identifier();
    for (int round = 0; round < 20; ++round) {
      const auto value = static_cast<std::int64_t>(random()) >> (random() % 64);
      ASSERT_EQ(L10n::number(value, locale), classic.text(value)) << locale.identifier();
    }
  }
}

/// The sign between groups of digits.
std::string groupingSign(const Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(icu::Locale(locale.identifier().c_str()), status);
  std::string text;
  return symbols.getSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol).toUTF8String(text);
}

TEST(LocalizedNumber, IsReadBackAsAQuantityInEveryLocale) {
  std::mt19937_64 random(8'205);
  std::int32_t count = 0;
  const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
  ASSERT_GT(count, 500);
  int localesOfOwnSign = 0;
  for (std::int32_t index = 0; index < count; ++index) {
    const Locale locale(all[index].getName());
    const std::string sign = groupingSign(locale);
    // Adlam sets groups apart with a comma of its own, which no quantity has.
    const bool isKnownSign = sign != "\u2E41";
    if (!isKnownSign) ++localesOfOwnSign;
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{7}, std::int64_t{1'234}, std::int64_t{98'765}, std::int64_t{1'000'000},
          greatest, greatest - 1, static_cast<std::int64_t>(random() >> 1),
          static_cast<std::int64_t>(random() >> 40)}) {
      const std::string text = L10n::number(value, locale);
      const bool isReadable = isKnownSign || !text.contains(sign);
      ASSERT_EQ(integerQuantity(text), isReadable ? std::optional(value) : std::nullopt)
          << locale.identifier() << " " << text;
    }
  }
  EXPECT_LT(localesOfOwnSign, count / 20);
}

TEST(LocalizedNumber, HasDigitsWhereTheNumberingSystemHasNone) {
  EXPECT_EQ(L10n::number(12'345, Locale("en-u-nu-roman")), "12,345");
  EXPECT_EQ(L10n::number(12'345, Locale("ja-u-nu-jpan")), "12,345");
}

TEST(LocalizedNumber, PassesOverKeywordsThatICUDoesNotKnow) {
  EXPECT_EQ(L10n::number(12'345, Locale("de_DE@numbers=foobar")), "12.345");
  EXPECT_EQ(L10n::number(12'345, Locale("@numbers=foobar")), L10n::number(12'345, Locale()));
  EXPECT_FALSE(L10n::number(12'345, Locale("xx_YY")).empty());
}

TEST(LocalizedDecimal, HasExactlyThePrecisionAskedFor) {
  const Locale german("de_DE");
  EXPECT_EQ(L10n::decimal(1'234.5, 0, german), "1.234");
  EXPECT_EQ(L10n::decimal(1'235.5, 0, german), "1.236");
  EXPECT_EQ(L10n::decimal(1'234.5, 1, german), "1.234,5");
  EXPECT_EQ(L10n::decimal(1'234.5, 3, german), "1.234,500");
  EXPECT_EQ(L10n::decimal(-0.125, 2, german), "-0,12");
  EXPECT_EQ(L10n::decimal(2.675, 2, Locale("en")), "2.68");
  EXPECT_EQ(L10n::decimal(1.5, 1, Locale("ar_EG")), "١٫٥");
  EXPECT_EQ(L10n::decimal(infinity, 2, german), "∞");
  EXPECT_EQ(L10n::decimal(-infinity, 2, german), "-∞");
  EXPECT_EQ(L10n::decimal(undefined, 2, german), "NaN");
  EXPECT_EQ(L10n::decimal(undefined, 2, Locale("ru_RU")), "не\u00A0число");
}

TEST(LocalizedDecimal, ForcesThePrecisionIntoItsRange) {
  const auto digitsOf = [](int precision) {
    const std::string text = L10n::decimal(0.5, precision, Locale("en"));
    return text.size() < 2 ? 0 : text.size() - 2;
  };
  EXPECT_EQ(digitsOf(std::numeric_limits<int>::min()), 0U);
  EXPECT_EQ(digitsOf(-1), 0U);
  EXPECT_EQ(digitsOf(0), 0U);
  EXPECT_EQ(digitsOf(1), 1U);
  EXPECT_EQ(digitsOf(L10n::maximumPrecision - 1), 998U);
  EXPECT_EQ(digitsOf(L10n::maximumPrecision), 999U);
  EXPECT_EQ(digitsOf(L10n::maximumPrecision + 1), 999U);
  EXPECT_EQ(digitsOf(std::numeric_limits<int>::max()), 999U);
}

TEST(LocalizedDecimal, IsThatOfICUForEveryReader) {
  std::mt19937_64 random(8'203);
  std::uniform_real_distribution<double> exponents(-8, 12);
  for (const Locale& locale : test::readersLocales()) {
    const ClassicFormat classic(locale.identifier());
    for (int precision = 0; precision <= 4; ++precision) {
      classic.setFractionDigits(precision);
      for (const double value : {0.0, -0.0, 0.5, 1.005, -1'234.5, 1e21, std::pow(10, exponents(random)),
                                 -std::pow(10, exponents(random)), infinity, -infinity, undefined})
        ASSERT_EQ(L10n::decimal(value, precision, locale), classic.text(value))
            << locale.identifier() << " " << precision << " " << value;
    }
  }
}

/// Puts the locale in force, and back what was.
class LocaleInForce {
 public:
  explicit LocaleInForce(const char* language, const Locale& locale)
      : before_(LocalizationRuntime::shared().snapshot()) {
    LocalizationRuntime::shared().store({.language = language, .locale = locale});
  }
  ~LocaleInForce() { LocalizationRuntime::shared().store(before_); }
  LocaleInForce(const LocaleInForce&) = delete;
  LocaleInForce& operator=(const LocaleInForce&) = delete;

 private:
  LocalizationRuntime::Snapshot before_;
};

TEST(MessageArgument, WritesNumbersInTheLocaleInForce) {
  const LocaleInForce german("de", Locale("de_DE"));
  EXPECT_EQ(L10n::argument(1'234'567), "1.234.567");
  EXPECT_EQ(L10n::argument(-1'234), "-1.234");
  EXPECT_EQ(L10n::argument(std::int8_t{-128}), "-128");
  EXPECT_EQ(L10n::argument(std::uint8_t{255}), "255");
  EXPECT_EQ(L10n::argument(std::uint16_t{65'535}), "65.535");
  EXPECT_EQ(L10n::argument(1'234'567LL), "1.234.567");
  EXPECT_EQ(L10n::argument(std::size_t{12'345}), "12.345");
  EXPECT_EQ(L10n::argument(least), "-9.223.372.036.854.775.808");
  EXPECT_EQ(L10n::argument(std::numeric_limits<std::uint64_t>::max()), "18.446.744.073.709.551.615");
  EXPECT_EQ(L10n::argument(1'234.5), "1.234,5");
  EXPECT_EQ(L10n::argument(0.12345), "0,123");
  EXPECT_EQ(L10n::argument(3.0), "3");
  EXPECT_EQ(L10n::argument(infinity), "∞");
}

TEST(MessageArgument, GivesAllElseInPlainText) {
  const LocaleInForce german("de", Locale("de_DE"));
  EXPECT_EQ(L10n::argument("1234.5"), "1234.5");
  EXPECT_EQ(L10n::argument(std::string("\xFF{0}")), "\xFF{0}");
  EXPECT_EQ(L10n::argument(std::string_view()), "");
  EXPECT_EQ(L10n::argument(true), "true");
  EXPECT_EQ(L10n::argument(false), "false");
  EXPECT_EQ(L10n::argument('x'), "x");
  EXPECT_EQ(L10n::argument(1234.5F), "1234.5");
  EXPECT_EQ(L10n::argument(1234.5L), "1234.5");
  EXPECT_EQ(L10n::argument(PluralCategory::few), "few");
}

TEST(MessageArgument, WritesDecimalsAsICUDoesInEveryLocale) {
  std::int32_t count = 0;
  const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
  for (std::int32_t index = 0; index < count; ++index) {
    const Locale locale(all[index].getName());
    // ICU's own pattern of this locale for programs has another form of its own.
    if (locale.identifier() == "en_US_POSIX") continue;
    const LocaleInForce inForce("en", locale);
    const ClassicFormat classic(locale.identifier());
    for (const double value : {0.0, 0.5, 1'234.5678, -98'765.4321, 1e15})
      ASSERT_EQ(L10n::argument(value), classic.text(value)) << locale.identifier();
  }
}

TEST(LocalizedNumber, FollowsTheLocaleInForceWhereNoneIsNamed) {
  const LocaleInForce arabic("en", Locale("en-EG-u-nu-arab"));
  EXPECT_EQ(L10n::number(42), "٤٢");
  EXPECT_EQ(L10n::decimal(4.25, 1), "٤٫٢");
}

TEST(LocalizedDuration, IsWholeSecondsOrHasTwoDigits) {
  const Locale korean("ko_KR");
  EXPECT_EQ(L10n::duration(12.0, "ko", korean), "12초");
  EXPECT_EQ(L10n::duration(1.0, "ko", korean), "1초");
  EXPECT_EQ(L10n::duration(12.5, "ko", korean), "12.50초");
  EXPECT_EQ(L10n::duration(0.0, "ko", korean), "0.00초");
  EXPECT_EQ(L10n::duration(0.5, "ko", korean), "0.50초");
  EXPECT_EQ(L10n::duration(std::nextafter(1.0, 0.0), "ko", korean), "1.00초");
  EXPECT_EQ(L10n::duration(std::nextafter(1.0, 2.0), "ko", korean), "1.00초");
  EXPECT_EQ(L10n::duration(-3.0, "ko", korean), "-3.00초");
  EXPECT_EQ(L10n::duration(undefined, "ko", korean), "NaN초");
  EXPECT_EQ(L10n::duration(infinity, "ko", korean), "∞초");
  EXPECT_EQ(L10n::duration(-infinity, "ko", korean), "-∞초");
}

TEST(LocalizedDuration, IsNotGrouped) {
  EXPECT_EQ(L10n::duration(1'234'567.0, "ko", Locale("ko_KR")), "1234567초");
  EXPECT_EQ(L10n::duration(1'234.5, "ko", Locale("de_DE")), "1234,50초");
}

TEST(LocalizedDuration, TakesItsWordFromTheLanguageAndItsSignsFromTheLocale) {
  EXPECT_EQ(L10n::duration(12.5, "ko", Locale("de_DE")), "12,50초");
  EXPECT_EQ(L10n::duration(12.5, "ko", Locale("ar_EG")), "١٢٫٥٠초");
  for (const std::string_view language : AppLanguage::supportedCodes) {
    for (const Locale& locale : {Locale(language), Locale("de_DE"), Locale("ar_EG")}) {
      const ClassicFormat classic(locale.identifier());
      classic.setGrouped(false);
      const auto expected = [&](const char* key, const char* place, int digits, double value) {
        classic.setFractionDigits(digits);
        std::string text = L10n::text(key, std::span<const std::string>(), {}, language);
        const std::size_t position = text.find(place);
        EXPECT_NE(position, std::string::npos) << text;
        return text.replace(position, 4, classic.text(value));
      };
      EXPECT_EQ(L10n::duration(1'200.0, language, locale), expected("%.0f초", "%.0f", 0, 1'200.0));
      EXPECT_EQ(L10n::duration(1'200.25, language, locale), expected("%.2f초", "%.2f", 2, 1'200.25));
    }
  }
}

TEST(LocalizedDuration, FollowsTheLanguageAndTheLocaleInForceWhereNoneIsNamed) {
  const LocaleInForce mixed("ko", Locale("de_DE"));
  EXPECT_EQ(L10n::duration(0.5), "0,50초");
}

}  // namespace
}  // namespace tessary
