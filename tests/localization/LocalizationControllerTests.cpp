#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationController.h"
#include "TessaryLocalization/LocalizationRuntime.h"

namespace tessary {
namespace {

using testing::ElementsAre;

class Controller : public testing::Test {
 protected:
  LocalizationController::System system{.preferredLanguages = {"de_DE"}, .locale = Locale("de_DE")};
  LocalizationRuntime runtime{LocalizationRuntime::resolved("", {"de_DE"}, Locale("de_DE"))};
  LocalizationController controller{runtime, [this] { return system; }};
};

TEST_F(Controller, BeginsWithTheSnapshot) {
  EXPECT_EQ(controller.revision(), 0);
  EXPECT_EQ(controller.selection(), "");
  EXPECT_EQ(controller.language(), "de");
  EXPECT_EQ(controller.locale(), Locale("de_DE"));
}

TEST_F(Controller, AppliesASelection) {
  controller.apply("ja");
  EXPECT_EQ(controller.revision(), 1);
  EXPECT_EQ(controller.selection(), "ja");
  EXPECT_EQ(controller.language(), "ja");
  EXPECT_EQ(controller.locale(), Locale("ja_DE"));
  EXPECT_EQ(runtime.snapshot(), (LocalizationRuntime::Snapshot{.language = "ja", .locale = Locale("ja_DE")}));
}

TEST_F(Controller, KeepsASelectionThatItDoesNotKnow) {
  controller.apply("xx");
  EXPECT_EQ(controller.selection(), "xx");
  EXPECT_EQ(controller.language(), "en");
}

TEST_F(Controller, PostsOnceForTheSameSelectionAndEachTimeByForce) {
  int posted = 0;
  const auto observation = controller.observe([&] { ++posted; });
  controller.apply("ja");
  controller.apply("ja");
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(controller.revision(), 1);
  controller.apply("ja", /*force=*/true);
  controller.apply("ja", /*force=*/true);
  EXPECT_EQ(posted, 3);
  EXPECT_EQ(controller.revision(), 3);
}

TEST_F(Controller, DoesNothingWhereTheSystemsLanguageHoldsAlready) {
  controller.apply("");
  EXPECT_EQ(controller.revision(), 0);
}

TEST_F(Controller, CountsAnotherSelectionOfTheSameLanguageAsAChange) {
  controller.apply("de");
  EXPECT_EQ(controller.revision(), 1);
  EXPECT_EQ(controller.language(), "de");
}

TEST_F(Controller, CountsAnotherLocaleOfTheSystemAsAChange) {
  system.locale = Locale("de_CH");
  controller.apply("");
  EXPECT_EQ(controller.revision(), 1);
  EXPECT_EQ(controller.locale(), Locale("de_CH"));
}

TEST_F(Controller, CountsAnotherLanguageOfTheSystemAsAChange) {
  system.preferredLanguages = {"ko"};
  controller.apply("");
  EXPECT_EQ(controller.revision(), 1);
  EXPECT_EQ(controller.language(), "ko");
  EXPECT_EQ(runtime.language(), "ko");
}

TEST_F(Controller, HasStoredTheChangeWhenItPosts) {
  std::vector<std::string> seen;
  const auto observation = controller.observe([&] {
    seen = {controller.selection(), controller.language(), runtime.language(), std::to_string(controller.revision())};
  });
  controller.apply("fr");
  EXPECT_THAT(seen, ElementsAre("fr", "fr", "fr", "1"));
}

TEST_F(Controller, FollowsTheSystemOnlyOnceItObservesIt) {
  int posted = 0;
  const auto observation = controller.observe([&] { ++posted; });
  controller.systemLocaleChanged();
  EXPECT_EQ(posted, 0);
  controller.startObservingSystemLocale();
  controller.startObservingSystemLocale();
  EXPECT_EQ(posted, 0);
  controller.systemLocaleChanged();
  EXPECT_EQ(posted, 1);
}

TEST_F(Controller, AppliesThePresentSelectionWhenTheSystemChanges) {
  controller.startObservingSystemLocale();
  controller.apply("th");
  system = {.preferredLanguages = {"ko"}, .locale = Locale("ko_KR")};
  controller.systemLocaleChanged();
  EXPECT_EQ(controller.selection(), "th");
  EXPECT_EQ(controller.language(), "th");
  EXPECT_EQ(controller.locale(), Locale("th_KR"));
  EXPECT_EQ(controller.revision(), 2);
}

TEST_F(Controller, CallsObserversInTheOrderOfTheirRegistration) {
  std::vector<int> called;
  const auto first = controller.observe([&] { called.push_back(1); });
  auto second = controller.observe([&] { called.push_back(2); });
  const auto third = controller.observe([&] { called.push_back(3); });
  controller.apply("ja");
  EXPECT_THAT(called, ElementsAre(1, 2, 3));
  second.end();
  controller.apply("ko");
  EXPECT_THAT(called, ElementsAre(1, 2, 3, 1, 3));
}

TEST_F(Controller, ForgetsAnObserverWithItsObservation) {
  int posted = 0;
  {
    auto observation = controller.observe([&] { ++posted; });
    const auto moved = std::move(observation);
    controller.apply("ja");
  }
  controller.apply("ko");
  EXPECT_EQ(posted, 1);
}

TEST_F(Controller, LetsAnObserverEndItselfAndOthers) {
  std::vector<int> called;
  LocalizationController::Observation own;
  LocalizationController::Observation other;
  own = controller.observe([&] {
    called.push_back(1);
    own.end();
    other.end();
  });
  other = controller.observe([&] { called.push_back(2); });
  controller.apply("ja");
  controller.apply("ko");
  EXPECT_THAT(called, ElementsAre(1));
}

TEST_F(Controller, LetsAnObserverThatIsRegisteredMeanwhileWait) {
  std::vector<LocalizationController::Observation> observations;
  int late = 0;
  observations.push_back(controller.observe([&] {
    if (observations.size() == 1) observations.push_back(controller.observe([&] { ++late; }));
  }));
  controller.apply("ja");
  EXPECT_EQ(late, 0);
  controller.apply("ko");
  EXPECT_EQ(late, 1);
}

TEST(LocalizationController, LeavesObservationsThatOutliveItAlone) {
  const auto token = std::make_shared<int>(0);
  LocalizationController::Observation observation;
  LocalizationRuntime runtime({.language = "en", .locale = Locale("en")});
  {
    LocalizationController controller(runtime, [] { return LocalizationController::System{}; });
    observation = controller.observe([kept = token] {});
  }
  EXPECT_EQ(token.use_count(), 2) << "the observer lives as long as its observation";
  observation.end();
  EXPECT_EQ(token.use_count(), 1);
}

TEST(LocalizationController, OfTheProcessChangesWhatHoldsEverywhere) {
  LocalizationController& controller = LocalizationController::shared();
  EXPECT_EQ(controller.language(), LocalizationRuntime::shared().language());
  controller.apply("ko");
  EXPECT_EQ(L10n::text("나중에 볼 것"), "나중에 볼 것");
  EXPECT_EQ(L10n::display(L10n::text("나중에 볼 것", {}, {}, "en")), "나중에 볼 것");
  controller.apply("en");
  EXPECT_EQ(L10n::text("나중에 볼 것"), L10n::catalog("en")->messages.at("나중에 볼 것"));
  EXPECT_EQ(LocalizationRuntime::shared().language(), "en");
}

TEST(LocalizationController, NamesItsNotification) {
  EXPECT_EQ(tessaryLanguageChanged, "com.kelvane.tessary.languageChanged");
}

}  // namespace
}  // namespace tessary
