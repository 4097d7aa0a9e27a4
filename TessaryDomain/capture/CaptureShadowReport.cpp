#include "TessaryDomain/capture/CaptureShadowReport.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryPlatform/time/Calendar.h"
#include "TessaryPlatform/time/ISO8601.h"

namespace tessary {
namespace {

using Report = CaptureShadowReport;
using Category = Report::Category;

/// The sum, or the end of the numbers beyond which it lies: a count that a file brings near the end stays there.
std::int64_t sum(std::int64_t one, std::int64_t other) {
  std::int64_t sum = 0;
  if (!__builtin_add_overflow(one, other, &sum)) return sum;
  return other > 0 ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
}

void raise(std::int64_t& count, std::int64_t by = 1) {
  count = sum(count, by);
}

void raise(std::optional<Report::Reasons>& reasons, std::string_view reason) {
  if (!reasons) reasons.emplace();
  raise((*reasons)[std::string(reason)]);
}

auto& countOf(auto& counts, Category category) {
  switch (category) {
    case Category::agree:
      return counts.agree;
    case Category::decisionMismatch:
      return counts.decisionMismatch;
    case Category::fieldMismatch:
      return counts.fieldMismatch;
    case Category::raced:
      return counts.raced;
    case Category::skipped:
      return counts.skipped;
  }
  std::unreachable();
}

auto& countOf(auto& replies, Report::Reply reply) {
  switch (reply) {
    case Report::Reply::busy:
      return replies.busy;
    case Report::Reply::invalid:
      return replies.invalid;
    case Report::Reply::failed:
      return replies.failed;
  }
  std::unreachable();
}

void agree(std::optional<Report::Streak>& streak, const std::string& now, const std::string& today) {
  if (!streak) {
    streak = Report::Streak{.since = now, .observations = 1, .days = 1, .lastAgreeDay = today};
    return;
  }
  raise(streak->observations);
  if (streak->lastAgreeDay == today) return;
  streak->days = sum(streak->days.value_or(0), 1);
  streak->lastAgreeDay = today;
}

/// All that a result changes in its stage.
void enter(Report::Stage& stage, const Report::Result& result, const std::string& now, const std::string& today) {
  raise(stage.counts[result.category]);
  switch (result.category) {
    case Category::agree:
      agree(stage.streak, now, today);
      break;
    case Category::decisionMismatch:
    case Category::fieldMismatch:
      stage.streak.reset();
      break;
    case Category::raced:
      raise(stage.racedReasons, result.reason ? *result.reason : Report::racedReason(result.fields));
      break;
    case Category::skipped:
      raise(stage.skippedReasons, result.fields.empty() ? "unknown" : std::string_view(result.fields.front()));
      break;
  }
}

}  // namespace

std::int64_t& CaptureShadow::Counts::operator[](Category category) {
  return countOf(*this, category);
}
std::int64_t CaptureShadow::Counts::operator[](Category category) const {
  return countOf(*this, category);
}
std::int64_t CaptureShadow::Counts::total() const {
  std::int64_t total = 0;
  for (const Category category : allCases<Category>())
    raise(total, (*this)[category]);
  return total;
}

std::int64_t& CaptureShadow::Replies::operator[](Reply reply) {
  return countOf(*this, reply);
}
std::int64_t CaptureShadow::Replies::operator[](Reply reply) const {
  return countOf(*this, reply);
}
std::int64_t CaptureShadow::Replies::total() const {
  std::int64_t total = 0;
  for (const Reply reply : allCases<Reply>())
    raise(total, (*this)[reply]);
  return total;
}

void CaptureShadowReport::record(std::string_view stage, std::string_view mode, std::span<const Result> results,
                                 Date at, const TimeZone& timeZone) {
  const std::string now = timestamp(at);
  const std::string today = day(at, timeZone);
  // A copy: `stage` may be the text of a sample, and samples move.
  const std::string name(stage);
  Stage& entry = stages[name];
  entry.mode = mode;
  entry.updatedAt = now;
  for (const Result& result : results) {
    enter(entry, result, now, today);
    if (result.category != Category::agree)
      samples.push_back({name, result.documentID, result.category, result.fields, now});
  }
  if (samples.size() > sampleLimit) samples.erase(samples.begin(), samples.end() - std::ptrdiff_t{sampleLimit});
}

void CaptureShadowReport::recordOutcome(std::string_view stage, std::string_view mode, std::optional<Reply> reply,
                                        std::int64_t rejected, bool deferred, Date at) {
  if (!reply && rejected <= 0 && !deferred) return;
  Stage& entry = stages[std::string(stage)];
  entry.mode = mode;
  entry.updatedAt = timestamp(at);
  if (reply) {
    if (!entry.replies) entry.replies.emplace();
    raise((*entry.replies)[*reply]);
  }
  if (rejected > 0) entry.rejected = sum(entry.rejected.value_or(0), rejected);
  if (deferred) entry.deferred = sum(entry.deferred.value_or(0), 1);
}

std::optional<std::int64_t> CaptureShadowReport::streakDays(std::string_view stage) const {
  const auto entry = stages.find(stage);
  if (entry == stages.end() || !entry->second.streak) return std::nullopt;
  return entry->second.streak->days;
}

std::string_view CaptureShadowReport::racedReason(std::span<const std::string> fields) {
  if (fields.empty()) return "changed";
  if (std::ranges::all_of(fields, isProvenanceField)) return "provenance";
  if (fields.size() > 1) return "changed";
  for (const std::string_view reason : {"token", "captured"}) {
    if (fields.front() == reason) return reason;
  }
  return "changed";
}

bool CaptureShadowReport::isProvenanceField(std::string_view text) {
  return text == "provenance" || text == "revisions.provenance" || text.starts_with("provenance.");
}

std::string CaptureShadowReport::timestamp(Date date) {
  // The platform rounds to the nearest millisecond. One that lies behind the date, by more than what counting from
  // another year does to the last bits, was rounded up and the one before it is meant: three quarters of a millisecond
  // earlier the nearest is that one.
  constexpr double microsecond = 0.000'001;
  constexpr double threeQuartersOfAMillisecond = 0.000'75;
  const auto nearest = ISO8601::text(date, ISO8601::Fraction::present);
  const auto nearestDate = nearest ? CaptureShadowReport::date(*nearest) : std::nullopt;
  if (nearestDate && *nearestDate - date < microsecond) return *nearest;
  return ISO8601::text(date - threeQuartersOfAMillisecond, ISO8601::Fraction::present).value_or(std::string());
}

std::optional<Date> CaptureShadowReport::date(std::string_view text) {
  return ISO8601::date(text, ISO8601::Fraction::present);
}

std::string CaptureShadowReport::day(Date date, const TimeZone& timeZone) {
  const auto day = Calendar::day(date, timeZone);
  return day ? Calendar::text(*day).value_or(std::string()) : std::string();
}

}  // namespace tessary
