#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/plurrule.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/PluralCategory.h"

namespace tessary {
namespace {

/// What CLDR's rules, as ICU holds them, say.
class ICURules {
 public:
  explicit ICURules(const char* language) {
    UErrorCode status = U_ZERO_ERROR;
    rules_.reset(icu::PluralRules::forLocale(icu::Locale(language), status));
    EXPECT_TRUE(U_SUCCESS(status)) << language;
  }

  [[nodiscard]] std::string category(std::int32_t count) const {
    std::string name;
    return rules_->select(count).toUTF8String(name);
  }

 private:
  std::unique_ptr<icu::PluralRules> rules_;
};

TEST(PluralCategory, HasTheNamesThatCatalogsUse) {
  EXPECT_EQ(rawValue(PluralCategory::one), "one");
  EXPECT_EQ(rawValue(PluralCategory::few), "few");
  EXPECT_EQ(rawValue(PluralCategory::many), "many");
  EXPECT_EQ(rawValue(PluralCategory::other), "other");
  EXPECT_EQ(allCases<PluralCategory>().size(), 4U);
}

TEST(PluralCategory, CountsAsCLDRDoesInEveryLanguage) {
  for (const char* language : {"ko", "en", "ja", "es", "de", "fr", "th", "ru", "mn", "vi", "zh"}) {
    const ICURules rules(language);
    for (std::int32_t count = 0; count <= 10'000; ++count)
      ASSERT_EQ(rawValue(cardinal(count, language)), rules.category(count)) << language << " " << count;
    for (const std::int32_t count : {100'000, 999'999, 1'000'000, 1'000'001, 2'000'000, 1'000'000'000, 2'147'483'647})
      EXPECT_EQ(rawValue(cardinal(count, language)), rules.category(count)) << language << " " << count;
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
