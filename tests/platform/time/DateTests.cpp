#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "TessaryPlatform/time/Date.h"

namespace tessary {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

TEST(Date, CountsFromBothReferenceDates) {
  EXPECT_EQ(Date().secondsSince2001(), 0);
  EXPECT_EQ(Date().secondsSince1970(), 978'307'200);
  EXPECT_EQ(Date::fromSecondsSince1970(0).secondsSince1970(), 0);
  EXPECT_EQ(Date::fromSecondsSince1970(0).secondsSince2001(), -978'307'200);
  EXPECT_EQ(Date::fromSecondsSince2001(-978'307'200), Date::fromSecondsSince1970(0));
}

TEST(Date, KeepsEveryBitOfBothFormsFrom2001To2038) {
  std::mt19937_64 random(2001);
  std::uniform_real_distribution<double> since1970(Date::secondsBetween1970And2001, 2'147'483'648.0);
  std::uniform_real_distribution<double> since2001(0, 2'147'483'648.0 - Date::secondsBetween1970And2001);
  for (int round = 0; round < 100'000; ++round) {
    const double from1970 = since1970(random);
    const double from2001 = since2001(random);
    ASSERT_EQ(Date::fromSecondsSince1970(from1970).secondsSince1970(), from1970);
    ASSERT_EQ(Date::fromSecondsSince2001(from2001).secondsSince2001(), from2001);
  }
}

TEST(Date, AddsAndSubtractsSeconds) {
  const Date date = Date::fromSecondsSince1970(1'000);
  EXPECT_EQ(date + 0.5, Date::fromSecondsSince1970(1'000.5));
  EXPECT_EQ(date - 1'000, Date::fromSecondsSince1970(0));
  EXPECT_EQ(date - Date::fromSecondsSince1970(400), 600);
  EXPECT_EQ(Date::fromSecondsSince1970(400) - date, -600);
}

TEST(Date, IsOrderedInTime) {
  EXPECT_LT(Date::fromSecondsSince1970(1), Date::fromSecondsSince1970(2));
  EXPECT_LE(Date::fromSecondsSince1970(2), Date::fromSecondsSince1970(2));
  EXPECT_LT(Date::fromSecondsSince2001(-infinity), Date::fromSecondsSince1970(2));
  EXPECT_FALSE(Date::fromSecondsSince2001(undefined) < Date());
  EXPECT_FALSE(Date::fromSecondsSince2001(undefined) >= Date());
  EXPECT_NE(Date::fromSecondsSince2001(undefined), Date::fromSecondsSince2001(undefined));
}

TEST(Date, IsFiniteUnlessInfiniteOrUndefined) {
  EXPECT_TRUE(Date::fromSecondsSince1970(1e300).isFinite());
  EXPECT_FALSE(Date::fromSecondsSince1970(infinity).isFinite());
  EXPECT_FALSE(Date::fromSecondsSince1970(-infinity).isFinite());
  EXPECT_FALSE(Date::fromSecondsSince1970(undefined).isFinite());
}

TEST(Date, EqualDatesHashAlike) {
  const std::hash<Date> hash;
  EXPECT_EQ(hash(Date::fromSecondsSince2001(0.0)), hash(Date::fromSecondsSince2001(-0.0)));
  EXPECT_EQ(hash(Date::fromSecondsSince1970(978'307'200)), hash(Date()));
  EXPECT_NE(hash(Date::fromSecondsSince1970(1)), hash(Date::fromSecondsSince1970(2)));
}

}  // namespace
}  // namespace tessary
