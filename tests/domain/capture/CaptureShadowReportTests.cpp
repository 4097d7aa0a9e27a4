// The bookkeeping of the report.

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureShadowReport.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {
namespace {

using Report = CaptureShadowReport;
using Category = Report::Category;
using Reply = Report::Reply;
using Texts = std::vector<std::string>;

/// 2026-01-02T03:04:05Z.
constexpr double start = 1767323045;

Date at(double seconds) {
  return Date::fromSecondsSince1970(start + seconds);
}

Report::Result result(Category category, Texts fields = {}, std::optional<std::string> reason = std::nullopt) {
  return {.documentID = "id", .category = category, .fields = std::move(fields), .reason = std::move(reason)};
}

void record(Report& report, std::string_view stage, std::vector<Report::Result> results, double seconds = 0) {
  report.record(stage, "swift", results, at(seconds), TimeZone::utc());
}

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

TEST(CaptureShadowReport, TheEmptyReportHasTheVersionAndNothingElse) {
  const Report report;
  EXPECT_EQ(report.version, 1);
  EXPECT_TRUE(report.stages.empty() && report.samples.empty());
  EXPECT_EQ(Report::fileName, "capture-shadow.json");
  EXPECT_EQ(Report::currentVersion, 1);
  EXPECT_EQ(Report::sampleLimit, 20);
}

TEST(CaptureShadowReport, OnlyMismatchesAreMismatches) {
  std::string text;
  for (const Category category : allCases<Category>())
    text += std::string(rawValue(category)) + (Report::isMismatch(category) ? "! " : " ");
  EXPECT_EQ(text, "agree decisionMismatch! fieldMismatch! raced skipped ");
}

TEST(CaptureShadowReport, CountsAreReachedByCategoryAndAddUp) {
  Report::Counts counts{1, 20, 300, 4000, 50000};
  EXPECT_EQ(counts.total(), 54321);
  ++counts[Category::raced];
  EXPECT_EQ(counts.raced, 4001);
  const Report::Counts& constant = counts;
  EXPECT_EQ(constant[Category::agree], 1);
  EXPECT_EQ(constant[Category::decisionMismatch], 20);
  EXPECT_EQ(constant[Category::fieldMismatch], 300);
  EXPECT_EQ(constant[Category::skipped], 50000);
  Report::Replies replies{1, 20, 300};
  EXPECT_EQ(replies.total(), 321);
  ++replies[Reply::invalid];
  EXPECT_EQ(replies, (Report::Replies{1, 21, 300}));
  EXPECT_EQ((Report::Counts{greatest, 1, 0, 0, 0}).total(), greatest);
}

TEST(CaptureShadowReport, AnAgreementBeginsAStreakAndLeavesNoSample) {
  Report report;
  record(report, "merge", {result(Category::agree)}, 0.678);
  Report expected;
  expected.stages["merge"] = {.mode = "swift",
                              .counts = {1, 0, 0, 0, 0},
                              .streak = Report::Streak{"2026-01-02T03:04:05.678Z", 1, 1, "2026-01-02"},
                              .updatedAt = "2026-01-02T03:04:05.678Z"};
  EXPECT_EQ(report, expected);
  EXPECT_EQ(report.streakDays("merge"), 1);
}

TEST(CaptureShadowReport, TwoAgreementsOnOneDayAreOneDay) {
  Report report;
  record(report, "merge", {result(Category::agree), result(Category::agree)});
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"2026-01-02T03:04:05.000Z", 2, 1, "2026-01-02"}));
  record(report, "merge", {result(Category::agree)}, 86'400);
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"2026-01-02T03:04:05.000Z", 3, 2, "2026-01-03"}));
}

TEST(CaptureShadowReport, TheDayIsThatOfTheZone) {
  const TimeZone seoul = TimeZone::named("Asia/Seoul").value();
  const TimeZone losAngeles = TimeZone::named("America/Los_Angeles").value();
  // 14:59:59 and 15:00:00 UTC are the two sides of midnight in Seoul.
  const Date before = Date::fromSecondsSince1970(1767279600 + 86'399);
  const std::vector<Report::Result> agreement{result(Category::agree)};
  Report report;
  report.record("merge", "swift", agreement, before, seoul);
  EXPECT_EQ(report.stages["merge"].streak->lastAgreeDay, "2026-01-02");
  report.record("merge", "swift", agreement, before + 1, seoul);
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"2026-01-02T14:59:59.000Z", 2, 2, "2026-01-03"}));
  // Elsewhere it is still the day before: another day than the last one.
  report.record("merge", "swift", agreement, before + 1, losAngeles);
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"2026-01-02T14:59:59.000Z", 3, 3, "2026-01-02"}));
}

TEST(CaptureShadowReport, AMismatchEndsTheStreak) {
  for (const Category category : {Category::decisionMismatch, Category::fieldMismatch}) {
    Report report;
    record(report, "merge", {result(Category::agree), result(category, {"title"}), result(Category::raced)});
    EXPECT_EQ(report.stages["merge"].streak, std::nullopt);
    EXPECT_EQ(report.streakDays("merge"), std::nullopt);
    EXPECT_EQ(report.stages["merge"].counts[category], 1);
    record(report, "merge", {result(Category::agree)}, 100);
    EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"2026-01-02T03:05:45.000Z", 1, 1, "2026-01-02"}));
  }
}

TEST(CaptureShadowReport, RacedAndSkippedComparisonsLeaveTheStreak) {
  Report report;
  record(report, "merge", {result(Category::agree)});
  const auto streak = report.stages["merge"].streak;
  record(report, "merge", {result(Category::raced), result(Category::skipped)}, 86'400);
  EXPECT_EQ(report.stages["merge"].streak, streak);
  EXPECT_EQ(report.stages["merge"].counts, (Report::Counts{1, 0, 0, 1, 1}));
}

TEST(CaptureShadowReport, AStreakWithoutDaysCountsFromNone) {
  Report report;
  report.stages["merge"].streak = Report::Streak{.since = "s", .observations = 4};
  EXPECT_EQ(report.streakDays("merge"), std::nullopt);
  record(report, "merge", {result(Category::agree)});
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"s", 5, 1, "2026-01-02"}));
  // Where the day is the last one, the number stays absent.
  report.stages["merge"].streak->days.reset();
  record(report, "merge", {result(Category::agree)});
  EXPECT_EQ(report.stages["merge"].streak, (Report::Streak{"s", 6, std::nullopt, "2026-01-02"}));
}

TEST(CaptureShadowReport, WhatRacedIsCountedByItsReason) {
  Report report;
  record(report, "merge",
         {result(Category::raced, {"token"}, "given"), result(Category::raced, {"token"}),
          result(Category::raced, {"token"}), result(Category::raced), result(Category::raced, {}, "")});
  EXPECT_EQ(report.stages["merge"].racedReasons,
            (Report::Reasons{{"", 1}, {"changed", 1}, {"given", 1}, {"token", 2}}));
  EXPECT_EQ(report.stages["merge"].skippedReasons, std::nullopt);
}

TEST(CaptureShadowReport, WhatWasSkippedIsCountedByItsFirstField) {
  Report report;
  record(report, "merge",
         {result(Category::skipped, {"busy", "other"}, "unused"), result(Category::skipped, {"busy"}),
          result(Category::skipped, {}, "unused"), result(Category::skipped, {""})});
  EXPECT_EQ(report.stages["merge"].skippedReasons, (Report::Reasons{{"", 1}, {"busy", 2}, {"unknown", 1}}));
  EXPECT_EQ(report.stages["merge"].racedReasons, std::nullopt);
}

TEST(CaptureShadowReport, AllButAgreementsLeaveASample) {
  Report report;
  record(report, "policy",
         {result(Category::agree), result(Category::fieldMismatch, {"a", "b"}, "r"), result(Category::decisionMismatch),
          result(Category::raced), result(Category::skipped, {"s"})},
         1);
  const std::string now = "2026-01-02T03:04:06.000Z";
  EXPECT_EQ(report.samples, (std::vector<Report::Sample>{{"policy", "id", Category::fieldMismatch, {"a", "b"}, now},
                                                         {"policy", "id", Category::decisionMismatch, {}, now},
                                                         {"policy", "id", Category::raced, {}, now},
                                                         {"policy", "id", Category::skipped, {"s"}, now}}));
}

TEST(CaptureShadowReport, TheOldestSamplesOfAllStagesMakeRoom) {
  for (const int count : {19, 20, 21, 22, 50}) {
    Report report;
    for (int index = 0; index < count; ++index) {
      Report::Result mismatch = result(Category::fieldMismatch);
      mismatch.documentID = std::to_string(index);
      record(report, index % 2 == 0 ? "merge" : "policy", {mismatch});
    }
    const int kept = std::min(count, 20);
    ASSERT_EQ(report.samples.size(), static_cast<std::size_t>(kept));
    for (int index = 0; index < kept; ++index)
      EXPECT_EQ(report.samples[static_cast<std::size_t>(index)].documentID, std::to_string(count - kept + index));
  }
}

TEST(CaptureShadowReport, ACallWithoutResultsStillTellsModeAndTime) {
  Report report;
  report.record("merge", "swiftOnly", {}, at(2), TimeZone::utc());
  Report expected;
  expected.stages["merge"] = {.mode = "swiftOnly", .updatedAt = "2026-01-02T03:04:07.000Z"};
  EXPECT_EQ(report, expected);
}

TEST(CaptureShadowReport, AStageMayBeNamedByASampleOfTheReport) {
  Report report;
  const std::string name = "a name that does not fit into a text's own room";
  record(report, name, {result(Category::raced)});
  record(report, report.samples[0].stage, std::vector(30, result(Category::raced)));
  EXPECT_EQ(report.stages.size(), 1);
  EXPECT_EQ(report.stages[name].counts.raced, 31);
  for (const Report::Sample& sample : report.samples)
    EXPECT_EQ(sample.stage, name);
}

TEST(CaptureShadowReport, AnOutcomeWithNothingToEnterChangesNothing) {
  Report report;
  for (const std::int64_t rejected : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()})
    report.recordOutcome("merge", "swift", std::nullopt, rejected, false, at(0));
  EXPECT_EQ(report, Report());
  record(report, "merge", {result(Category::agree)});
  const Report before = report;
  report.recordOutcome("merge", "python", std::nullopt, 0, false, at(9));
  EXPECT_EQ(report, before);
}

TEST(CaptureShadowReport, AnOutcomeIsEnteredAndLeavesCountsAndStreak) {
  Report report;
  record(report, "merge", {result(Category::agree)});
  Report expected = report;
  Report::Stage& stage = expected.stages["merge"];
  stage.mode = "swiftOnly";

  report.recordOutcome("merge", "swiftOnly", Reply::invalid, -3, false, at(1));
  stage.updatedAt = "2026-01-02T03:04:06.000Z";
  stage.replies = Report::Replies{0, 1, 0};
  EXPECT_EQ(report, expected);

  report.recordOutcome("merge", "swiftOnly", std::nullopt, 4, false, at(2));
  stage.updatedAt = "2026-01-02T03:04:07.000Z";
  stage.rejected = 4;
  EXPECT_EQ(report, expected);

  report.recordOutcome("merge", "swiftOnly", std::nullopt, 0, true, at(3));
  stage.updatedAt = "2026-01-02T03:04:08.000Z";
  stage.deferred = 1;
  EXPECT_EQ(report, expected);

  report.recordOutcome("merge", "swiftOnly", Reply::busy, 2, true, at(4));
  stage.updatedAt = "2026-01-02T03:04:09.000Z";
  stage.replies = Report::Replies{1, 1, 0};
  stage.rejected = 6;
  stage.deferred = 2;
  EXPECT_EQ(report, expected);

  report.recordOutcome("new", "swift", Reply::failed, 0, false, at(5));
  expected.stages["new"] = {.mode = "swift", .updatedAt = "2026-01-02T03:04:10.000Z", .replies = {{0, 0, 1}}};
  EXPECT_EQ(report, expected);
}

TEST(CaptureShadowReport, CountsStayAtTheGreatestNumber) {
  Report report;
  Report::Stage& stage = report.stages["merge"];
  stage.counts = {greatest, 0, 0, greatest - 1, 0};
  stage.streak = Report::Streak{"s", greatest, greatest, "never"};
  stage.rejected = greatest - 1;
  stage.deferred = greatest;
  stage.replies = Report::Replies{greatest, 0, 0};
  record(report, "merge", {result(Category::agree), result(Category::raced), result(Category::raced)});
  report.recordOutcome("merge", "swift", Reply::busy, 5, true, at(0));
  const Report::Stage& after = report.stages["merge"];
  EXPECT_EQ(after.counts, (Report::Counts{greatest, 0, 0, greatest, 0}));
  EXPECT_EQ(after.streak, (Report::Streak{"s", greatest, greatest, "2026-01-02"}));
  EXPECT_EQ(after.rejected, greatest);
  EXPECT_EQ(after.deferred, greatest);
  EXPECT_EQ(after.replies, (Report::Replies{greatest, 0, 0}));
}

TEST(CaptureShadowReport, ProvenanceIsToldByName) {
  for (const std::string_view yes : {"provenance", "provenance.", "provenance.tool", "revisions.provenance"})
    EXPECT_TRUE(Report::isProvenanceField(yes)) << yes;
  for (const std::string_view no : {"", "provenances", "Provenance", "revisions.provenance.tool", "revisions",
                                    "a.provenance", " provenance", "provenanc"}) {
    EXPECT_FALSE(Report::isProvenanceField(no)) << no;
  }
}

TEST(CaptureShadowReport, TheReasonForARaceFollowsFromItsFields) {
  const std::vector<std::pair<Texts, std::string_view>> rows{
      {{}, "changed"},
      {{"provenance"}, "provenance"},
      {{"provenance.tool", "revisions.provenance"}, "provenance"},
      {{"provenance", "title"}, "changed"},
      {{"token"}, "token"},
      {{"captured"}, "captured"},
      {{"token", "token"}, "changed"},
      {{"token", "captured"}, "changed"},
      {{"token", "provenance"}, "changed"},
      {{"Token"}, "changed"},
      {{""}, "changed"},
      {{"title"}, "changed"},
  };
  for (const auto& [fields, reason] : rows)
    EXPECT_EQ(Report::racedReason(fields), reason) << (fields.empty() ? "none" : fields[0]);
}

TEST(CaptureShadowReport, TimestampsAreCutBelowTheMillisecond) {
  EXPECT_EQ(Report::timestamp(at(0)), "2026-01-02T03:04:05.000Z");
  EXPECT_EQ(Report::timestamp(at(0.0004)), "2026-01-02T03:04:05.000Z");
  EXPECT_EQ(Report::timestamp(at(0.0005)), "2026-01-02T03:04:05.000Z");
  EXPECT_EQ(Report::timestamp(at(0.0009)), "2026-01-02T03:04:05.000Z");
  EXPECT_EQ(Report::timestamp(at(0.6786)), "2026-01-02T03:04:05.678Z");
  EXPECT_EQ(Report::timestamp(at(0.9999)), "2026-01-02T03:04:05.999Z");
  EXPECT_EQ(Report::timestamp(at(-0.0001)), "2026-01-02T03:04:04.999Z");
  EXPECT_EQ(Report::timestamp(at(0.999998)), "2026-01-02T03:04:05.999Z");
  // Before 1970 and 2001 too, cutting goes to the earlier millisecond.
  EXPECT_EQ(Report::timestamp(Date::fromSecondsSince1970(-0.0001)), "1969-12-31T23:59:59.999Z");
}

TEST(CaptureShadowReport, ATimestampThatWasReadIsWrittenAgain) {
  std::mt19937_64 random(20260102);
  for (int millisecond = 0; millisecond < 1000; ++millisecond) {
    for (const std::string_view second : {"2026-01-02T03:04:05", "1999-12-31T23:59:59", "0001-01-01T00:00:00",
                                          "9999-12-31T23:59:59", "1969-12-31T23:59:59"}) {
      const std::string digits = std::to_string(1000 + millisecond).substr(1);
      const std::string text = std::string(second) + "." + digits + "Z";
      const auto date = Report::date(text);
      ASSERT_TRUE(date) << text;
      ASSERT_EQ(Report::timestamp(*date), text);
      // Counted from another year, its last bits are others.
      ASSERT_EQ(Report::timestamp(Date::fromSecondsSince1970(date->secondsSince1970())), text);
      // What lies behind it and before the next millisecond has this timestamp as well.
      const double fraction = std::uniform_real_distribution(0.00005, 0.00095)(random);
      ASSERT_EQ(Report::timestamp(*date + fraction), text) << fraction;
    }
  }
}

TEST(CaptureShadowReport, ADateWithoutWrittenFormHasAnEmptyTimestampAndDay) {
  for (const double seconds : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN(), 1e18, -1e18}) {
    const Date date = Date::fromSecondsSince1970(seconds);
    EXPECT_EQ(Report::timestamp(date), "");
    EXPECT_EQ(Report::day(date, TimeZone::utc()), "");
    Report report;
    report.record("merge", "swift", std::vector{result(Category::agree)}, date, TimeZone::utc());
    EXPECT_EQ(report.stages["merge"].counts.agree, 1);
  }
}

TEST(CaptureShadowReport, OnlyTheFormWithAFractionIsADate) {
  EXPECT_EQ(Report::date("2026-01-02T03:04:05.678Z"), at(0.678));
  for (const std::string_view text : {"", "2026-01-02", "2026-01-02T03:04:05Z", "2026-01-02 03:04:05.678Z",
                                      "2026-01-02T03:04:05.678", "2026-02-30T03:04:05.678Z"}) {
    EXPECT_EQ(Report::date(text), std::nullopt) << text;
  }
}

TEST(CaptureShadowReport, TheDayHasFourDigitsOfYear) {
  EXPECT_EQ(Report::day(at(0), TimeZone::utc()), "2026-01-02");
  EXPECT_EQ(Report::day(Date::fromSecondsSince1970(-62135596800.0), TimeZone::utc()), "0001-01-01");
  EXPECT_EQ(Report::day(at(0), TimeZone::named("America/Los_Angeles").value()), "2026-01-01");
}

TEST(CaptureShadowReport, NoStageHasNoDays) {
  EXPECT_EQ(Report().streakDays("merge"), std::nullopt);
}

// A long sequence against a model that knows nothing but the whole history.

struct Event {
  std::string stage;
  Report::Result result;
  std::string now;
  std::string today;
};

/// What the history says of one stage.
Report::Stage modelled(const std::vector<Event>& history, const std::string& name, Report::Stage stage) {
  std::vector<const Event*> events;
  for (const Event& event : history) {
    if (event.stage == name) events.push_back(&event);
  }
  stage.counts = {};
  for (const Event* event : events) {
    stage.counts.agree += event->result.category == Category::agree;
    stage.counts.decisionMismatch += event->result.category == Category::decisionMismatch;
    stage.counts.fieldMismatch += event->result.category == Category::fieldMismatch;
    stage.counts.raced += event->result.category == Category::raced;
    stage.counts.skipped += event->result.category == Category::skipped;
  }
  // The agreements behind the last mismatch.
  std::vector<const Event*> agreements;
  for (const Event* event : events) {
    const Category category = event->result.category;
    if (category == Category::decisionMismatch || category == Category::fieldMismatch) agreements.clear();
    if (category == Category::agree) agreements.push_back(event);
  }
  stage.streak.reset();
  if (!agreements.empty()) {
    std::int64_t days = 1;
    for (std::size_t index = 1; index < agreements.size(); ++index)
      days += agreements[index]->today != agreements[index - 1]->today;
    stage.streak = Report::Streak{agreements.front()->now, std::ssize(agreements), days, agreements.back()->today};
  }
  std::map<std::string, std::int64_t> skipped;
  std::map<std::string, std::int64_t> raced;
  for (const Event* event : events) {
    const Texts& fields = event->result.fields;
    if (event->result.category == Category::skipped) ++skipped[fields.empty() ? "unknown" : fields[0]];
    if (event->result.category != Category::raced) continue;
    if (event->result.reason) {
      ++raced[*event->result.reason];
    } else if (fields == Texts{"token"} || fields == Texts{"captured"}) {
      ++raced[fields[0]];
    } else if (fields == Texts{"provenance.a", "revisions.provenance"}) {
      ++raced["provenance"];
    } else {
      ++raced["changed"];
    }
  }
  stage.skippedReasons.reset();
  stage.racedReasons.reset();
  if (!skipped.empty()) stage.skippedReasons.emplace(skipped.begin(), skipped.end());
  if (!raced.empty()) stage.racedReasons.emplace(raced.begin(), raced.end());
  return stage;
}

TEST(CaptureShadowReport, ALongSequenceIsWhatItsHistorySays) {
  const std::vector<Texts> fieldLists{
      {}, {"token"}, {"captured"}, {"provenance.a", "revisions.provenance"}, {"title"}, {"token", "title"}};
  const std::array<std::string, 3> names{"merge", "policy", "codex"};
  const TimeZone zone = TimeZone::named("Asia/Seoul").value();
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    std::mt19937_64 random(seed);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    Report report;
    std::vector<Event> history;
    std::map<std::string, Report::Stage, std::less<>> stages;
    std::int64_t milliseconds = 1767323045000 + static_cast<std::int64_t>(below(86'400'000));
    for (int step = 0; step < 200; ++step) {
      milliseconds += static_cast<std::int64_t>(below(8 * 3'600'000));
      const Date date = Date::fromSecondsSince1970(static_cast<double>(milliseconds) / 1000);
      // Of the platform, whose rounding a whole number of milliseconds does not meet, and the offset of Seoul.
      const std::string now = writeJSON(date, {JSONDateForm::iso8601WithFractions}).value().substr(1, 24);
      const std::string today = writeJSON(date + 9 * 3600, {JSONDateForm::iso8601}).value().substr(1, 10);
      const std::string& name = names[below(3)];
      const std::string mode = below(2) == 0 ? "swift" : "swiftOnly";
      Report::Stage& stage = stages[name];
      if (below(4) > 0) {
        std::vector<Report::Result> results(below(5));
        for (Report::Result& each : results) {
          // Mostly agreements, so that streaks last.
          each.category = allCases<Category>()[below(3) > 0 ? 0 : below(5)];
          each.documentID = std::to_string(history.size());
          each.fields = fieldLists[below(fieldLists.size())];
          if (below(4) == 0) each.reason = "reason";
          history.push_back({name, each, now, today});
        }
        report.record(name, mode, results, date, zone);
        stage.mode = mode;
        stage.updatedAt = now;
      } else {
        const auto reply = below(2) == 0 ? std::optional(allCases<Reply>()[below(3)]) : std::nullopt;
        const auto rejected = static_cast<std::int64_t>(below(4)) - 1;
        const bool isDeferred = below(3) == 0;
        report.recordOutcome(name, mode, reply, rejected, isDeferred, date);
        if (!reply && rejected <= 0 && !isDeferred) {
          if (stage == Report::Stage()) stages.erase(name);
        } else {
          stage.mode = mode;
          stage.updatedAt = now;
          if (reply) {
            Report::Replies replies = stage.replies.value_or(Report::Replies());
            replies.busy += *reply == Reply::busy;
            replies.invalid += *reply == Reply::invalid;
            replies.failed += *reply == Reply::failed;
            stage.replies = replies;
          }
          if (rejected > 0) stage.rejected = stage.rejected.value_or(0) + rejected;
          if (isDeferred) stage.deferred = stage.deferred.value_or(0) + 1;
        }
      }
      Report expected;
      for (const auto& [each, kept] : stages)
        expected.stages[each] = modelled(history, each, kept);
      for (const Event& event : history) {
        if (event.result.category == Category::agree) continue;
        expected.samples.push_back(
            {event.stage, event.result.documentID, event.result.category, event.result.fields, event.now});
      }
      if (expected.samples.size() > 20) expected.samples.erase(expected.samples.begin(), expected.samples.end() - 20);
      ASSERT_EQ(writeJSON(report).value(), writeJSON(expected).value()) << "seed " << seed << ", step " << step;
      ASSERT_EQ(report, expected) << "seed " << seed << ", step " << step;
      if (step % 50 == 0) {
        ASSERT_EQ(readJSON<Report>(writeJSON(report).value()), report) << "seed " << seed;
      }
    }
  }
}

}  // namespace
}  // namespace tessary
