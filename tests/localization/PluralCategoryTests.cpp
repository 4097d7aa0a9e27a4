#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/plurrule.h>
#include <unicode/strenum.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/PluralCategory.h"

namespace tessary {
namespace {

/// What CLDR's rules, as ICU holds them, say.
class ICURules {
 public:
  explicit ICURules(const char* language)
      : formatter_(icu::number::NumberFormatter::withLocale(icu::Locale(language))) {
    UErrorCode status = U_ZERO_ERROR;
    rules_.reset(icu::PluralRules::forLocale(icu::Locale(language), status));
    EXPECT_TRUE(U_SUCCESS(status)) << language;
  }

  [[nodiscard]] std::string category(std::int64_t count) const {
    UErrorCode status = U_ZERO_ERROR;
    std::string name;
    rules_->select(formatter_.formatInt(count, status), status).toUTF8String(name);
    EXPECT_TRUE(U_SUCCESS(status)) << count;
    return name;
  }

  /// The whole numbers among the samples that CLDR gives of each category, with the category's name.
  [[nodiscard]] std::vector<std::pair<std::int64_t, std::string>> samples() const {
    constexpr std::int32_t most = 1'000;
    std::vector<std::pair<std::int64_t, std::string>> list;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::StringEnumeration> names(rules_->getKeywords(status));
    while (const icu::UnicodeString* const name = names->snext(status)) {
      std::array<double, most> values{};
      std::string text;
      name->toUTF8String(text);
      const std::int32_t count = rules_->getSamples(*name, values.data(), most, status);
      for (const double value : std::span(values).first(static_cast<std::size_t>(std::min(count, most))))
        if (value == std::floor(value)) list.emplace_back(static_cast<std::int64_t>(value), text);
    }
    EXPECT_TRUE(U_SUCCESS(status));
    return list;
  }

 private:
  icu::number::LocalizedNumberFormatter formatter_;
  std::unique_ptr<icu::PluralRules> rules_;
};

constexpr auto languages = std::to_array<const char*>(
    {"ko", "en", "ja", "es", "de", "fr", "th", "ru", "mn", "vi", "zh-Hans", "zh-Hant", "zh-HK"});

TEST(PluralCategory, HasTheNamesThatCatalogsUse) {
  EXPECT_EQ(rawValue(PluralCategory::one), "one");
  EXPECT_EQ(rawValue(PluralCategory::few), "few");
  EXPECT_EQ(rawValue(PluralCategory::many), "many");
  EXPECT_EQ(rawValue(PluralCategory::other), "other");
  EXPECT_EQ(allCases<PluralCategory>().size(), 4U);
}

TEST(PluralCategory, CountsAsCLDRDoesInEveryLanguage) {
  for (const char* language : languages) {
    const ICURules rules(language);
    for (std::int64_t count = 0; count <= 10'000; ++count)
      ASSERT_EQ(rawValue(cardinal(count, language)), rules.category(count)) << language << " " << count;
  }
}

TEST(PluralCategory, CountsLargeNumbersAsCLDRDoes) {
  std::mt19937_64 random(8'101);
  for (const char* language : languages) {
    const ICURules rules(language);
    // Around every power of ten, and anywhere. ICU reckons in doubles, so the numbers stay below 2^53.
    for (std::int64_t power = 10'000; power <= 100'000'000'000'000; power *= 10)
      for (const std::int64_t count : {power - 1, power, power + 1, power + 2, power + 5, power + 11, power + 21,
                                       2 * power, 5 * power, 9 * power, power + power / 10})
        ASSERT_EQ(rawValue(cardinal(count, language)), rules.category(count)) << language << " " << count;
    for (int round = 0; round < 1'000; ++round) {
      const auto count = static_cast<std::int64_t>(random() >> (11 + random() % 50));
      ASSERT_EQ(rawValue(cardinal(count, language)), rules.category(count)) << language << " " << count;
      const std::int64_t millions = count % 1'000'000'000 * 1'000'000;
      ASSERT_EQ(rawValue(cardinal(millions, language)), rules.category(millions)) << language << " " << millions;
      ASSERT_EQ(cardinal(-count, language), cardinal(count, language)) << language << " " << count;
    }
  }
}

TEST(PluralCategory, CountsNumbersOfNineteenDigits) {
  EXPECT_EQ(cardinal(1'000'000'000'000'000'001, "en"), PluralCategory::other);
  EXPECT_EQ(cardinal(1'000'000'000'000'000'001, "ru"), PluralCategory::one);
  EXPECT_EQ(cardinal(1'000'000'000'000'000'011, "ru"), PluralCategory::many);
  EXPECT_EQ(cardinal(9'000'000'000'000'000'000, "fr"), PluralCategory::many);
  EXPECT_EQ(cardinal(9'000'000'000'000'000'000, "es"), PluralCategory::many);
  EXPECT_EQ(cardinal(std::numeric_limits<std::int64_t>::max(), "ru"), PluralCategory::many);
  EXPECT_EQ(cardinal(std::numeric_limits<std::int64_t>::max(), "fr"), PluralCategory::other);
}

TEST(PluralCategory, CountsTheSamplesOfCLDR) {
  for (const char* language : languages) {
    const auto samples = ICURules(language).samples();
    ASSERT_GE(samples.size(), 15U) << language;
    for (const auto& [count, category] : samples)
      EXPECT_EQ(rawValue(cardinal(count, language)), category) << language << " " << count;
  }
}

TEST(PluralCategory, CountsByTheAbsoluteValue) {
  EXPECT_EQ(cardinal(-1, "en"), PluralCategory::one);
  EXPECT_EQ(cardinal(-21, "ru"), PluralCategory::one);
  EXPECT_EQ(cardinal(-11, "ru"), PluralCategory::many);
  // 9,223,372,036,854,775,808 ends in 08.
  EXPECT_EQ(cardinal(std::numeric_limits<std::int64_t>::min(), "ru"), PluralCategory::many);
}

TEST(PluralCategory, TakesNothingForNoMillions) {
  EXPECT_EQ(cardinal(0, "es"), PluralCategory::other);
  EXPECT_EQ(cardinal(0, "fr"), PluralCategory::one);
  EXPECT_EQ(cardinal(1'000'000, "es"), PluralCategory::many);
}

TEST(PluralCategory, CountsAlikeInALanguageThatItDoesNotKnow) {
  EXPECT_EQ(cardinal(1, "xx"), PluralCategory::other);
  EXPECT_EQ(cardinal(1, ""), PluralCategory::other);
  EXPECT_EQ(cardinal(1, "EN"), PluralCategory::other);
  EXPECT_EQ(cardinal(1, "zh-Hant"), PluralCategory::other);
}

}  // namespace
}  // namespace tessary
