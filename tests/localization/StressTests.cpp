#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationController.h"
#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/LocalizedFormat.h"

// One thread changes the language while others translate and write numbers and times. To be run under ThreadSanitizer,
// which is what finds a race; without it the test shows that every answer is whole.

namespace tessary {
namespace {

constexpr std::string_view key = "{0}개를 ‘{1}’으로 분류했습니다";
constexpr int rounds = 2000;

/// Every right answer: the message in one of the languages.
std::unordered_set<std::string> answers() {
  std::unordered_set<std::string> all;
  for (const std::string& language : L10n::availableCatalogLanguages())
    all.insert(L10n::text(key, {"3", "x"}, 3, language));
  return all;
}

// The first use of all that is made once is part of what is tested, so nothing is translated before the threads run.
TEST(LocalizationStress, TranslatesWhileTheLanguageChanges) {
  std::atomic<bool> isDone = false;
  std::vector<std::vector<std::string>> seen(3);
  std::vector<std::thread> translators;
  for (std::vector<std::string>& answered : seen) {
    translators.emplace_back([&] {
      do {
        answered.push_back(L10n::text(key, {"3", "x"}, 3));
        answered.push_back(L10n::display(answered.back()));
        const LocalizationRuntime::Snapshot snapshot = LocalizationRuntime::shared().snapshot();
        EXPECT_FALSE(L10n::number(1234).empty());
        EXPECT_FALSE(L10n::shortRelative(Date(), Date() + 60).empty());
        EXPECT_EQ(snapshot.locale.language(), snapshot.language.substr(0, 2));
      } while (!isDone);
    });
  }

  LocalizationController& controller = LocalizationController::shared();
  int posted = 0;
  const auto observation = controller.observe([&] { ++posted; });
  for (int round = 0; round < rounds; ++round) {
    const std::vector<std::string> languages = L10n::availableCatalogLanguages();
    controller.apply(languages[static_cast<std::size_t>(round) % languages.size()], /*force=*/true);
  }
  isDone = true;
  for (std::thread& translator : translators)
    translator.join();

  EXPECT_EQ(posted, rounds);
  EXPECT_EQ(controller.revision(), rounds);
  const std::unordered_set<std::string> expected = answers();
  for (const std::vector<std::string>& answered : seen) {
    EXPECT_FALSE(answered.empty());
    for (const std::string& text : answered)
      EXPECT_TRUE(expected.contains(text)) << text;
  }
}

}  // namespace
}  // namespace tessary
