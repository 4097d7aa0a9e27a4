#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/LocalizedFormat.h"

// What many threads write at once is what one writes alone, with every formatter first asked for by all of them. Under
// ThreadSanitizer this also shows that nothing is shared without a lock.

namespace tessary {
namespace {

constexpr int threadCount = 8;
constexpr int rounds = 60;

struct Case {
  Locale locale;
  TimeZone zone;
  int number;
};

std::vector<Case> cases() {
  std::vector<Case> list;
  int number = 1;
  for (const char* locale : {"ko_KR", "de_DE", "th_TH", "ar_EG", "en-US-u-hc-h23", "ja-JP-u-ca-japanese"})
    for (const char* zone : {"UTC", "Asia/Seoul", "America/New_York"})
      list.push_back({Locale(locale), TimeZone::named(zone).value(), number *= 3});
  return list;
}

/// Everything that has a formatter, in one text.
std::string written(const Case& row) {
  const Date date = Date::fromSecondsSince1970(row.number);
  return L10n::number(row.number, row.locale) + '|' + L10n::decimal(row.number / 7.0, 2, row.locale) + '|' +
         L10n::date(date, row.locale, row.zone) + '|' + L10n::dateTime(date, row.locale, row.zone) + '|' +
         L10n::dateTime("2026-01-02T03:04:05Z", row.locale, row.zone) + '|' +
         L10n::shortRelative(date, date + row.number % 80'000, row.locale, row.zone) + '|' +
         L10n::duration(row.number / 4.0, "ko", row.locale);
}

TEST(LocalizationStress, FormatsAreTheSameFromManyThreadsAtOnce) {
  const std::vector<Case> list = cases();
  std::atomic<bool> start = false;
  std::vector<std::vector<std::string>> answers(threadCount);
  std::vector<std::thread> threads;
  for (std::size_t index = 0; index < threadCount; ++index) {
    threads.emplace_back([&, index] {
      while (!start)
        std::this_thread::yield();
      for (int round = 0; round < rounds; ++round)
        for (std::size_t row = 0; row < list.size(); ++row)
          answers[index].push_back(written(list[(row + index) % list.size()]));
    });
  }
  start = true;
  for (auto& thread : threads)
    thread.join();

  std::vector<std::string> expected;
  for (const Case& row : list)
    expected.push_back(written(row));
  for (std::size_t index = 0; index < threadCount; ++index)
    for (std::size_t position = 0; position < answers[index].size(); ++position)
      ASSERT_EQ(answers[index][position], expected[(position + index) % list.size()]) << index << " " << position;
}

TEST(LocalizationStress, FormatsFollowALocaleThatAnotherThreadChanges) {
  auto& runtime = LocalizationRuntime::shared();
  const auto before = runtime.snapshot();
  std::atomic<bool> isDone = false;
  std::thread changing([&] {
    for (bool isGerman = false; !isDone; isGerman = !isGerman)
      runtime.store({.language = "ko", .locale = Locale(isGerman ? "de_DE" : "ar_EG")});
  });
  runtime.store({.language = "ko", .locale = Locale("de_DE")});
  for (int round = 0; round < 2'000; ++round) {
    const std::string text = L10n::number(1'234'567);
    EXPECT_TRUE(text == "1.234.567" || text == "١٬٢٣٤٬٥٦٧") << text;
    const std::string argument = L10n::argument(0.5);
    EXPECT_TRUE(argument == "0,5" || argument == "٠٫٥") << argument;
  }
  isDone = true;
  changing.join();
  runtime.store(before);
}

}  // namespace
}  // namespace tessary
