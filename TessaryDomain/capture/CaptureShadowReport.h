#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/time/TimeZone.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// The types of `CaptureShadowReport`, under whose name they are used. They stand outside of it because a class's own
/// default values are not known before its end, where optional fields of these types need them.
namespace CaptureShadow {

/// The outcome of one comparison.
enum class Category : std::uint8_t {
  agree,
  /// The engines chose differently.
  decisionMismatch,
  /// They chose alike and made different fields of it.
  fieldMismatch,
  /// The input changed between the two runs.
  raced,
  /// No comparison was possible.
  skipped,
};

/// How many comparisons had each outcome.
struct Counts {
  std::int64_t agree = 0;
  std::int64_t decisionMismatch = 0;
  std::int64_t fieldMismatch = 0;
  std::int64_t raced = 0;
  std::int64_t skipped = 0;

  /// The count of one outcome.
  [[nodiscard]] std::int64_t& operator[](Category category);
  [[nodiscard]] std::int64_t operator[](Category category) const;
  /// All counts together, at most the greatest number there is.
  [[nodiscard]] std::int64_t total() const;
  bool operator==(const Counts&) const = default;
};

/// Agreement without interruption. Comparisons that raced or were skipped do not interrupt it.
struct Streak {
  /// The timestamp of its first agreement.
  std::string since{};
  std::int64_t observations = 0;
  /// The days with an agreement, by the clocks of the observer.
  std::optional<std::int64_t> days{};
  std::optional<std::string> lastAgreeDay{};

  bool operator==(const Streak&) const = default;
};

/// How the native engine failed to answer.
enum class Reply : std::uint8_t { busy, invalid, failed };

/// How often it failed in each way.
struct Replies {
  std::int64_t busy = 0;
  std::int64_t invalid = 0;
  std::int64_t failed = 0;

  /// The count of one way.
  [[nodiscard]] std::int64_t& operator[](Reply reply);
  [[nodiscard]] std::int64_t operator[](Reply reply) const;
  /// All counts together, at most the greatest number there is.
  [[nodiscard]] std::int64_t total() const;
  bool operator==(const Replies&) const = default;
};

/// How often each reason was given.
using Reasons = std::map<std::string, std::int64_t, std::less<>>;

/// What is known of one stage of capture.
struct Stage {
  /// The mode of the last comparison.
  std::string mode{};
  Counts counts{};
  std::optional<Streak> streak{};
  /// The timestamp of the last change.
  std::optional<std::string> updatedAt{};
  std::optional<Replies> replies{};
  std::optional<std::int64_t> rejected{};
  std::optional<std::int64_t> deferred{};
  std::optional<Reasons> skippedReasons{};
  std::optional<Reasons> racedReasons{};

  bool operator==(const Stage&) const = default;
};

/// What one comparison gave.
struct Result {
  std::string documentID{};
  Category category = Category::agree;
  /// The fields that differed, or words for the reason.
  std::vector<std::string> fields{};
  /// Why it raced; looked at for nothing else.
  std::optional<std::string> reason{};

  bool operator==(const Result&) const = default;
};

/// A comparison without agreement.
struct Sample {
  std::string stage{};
  std::string documentID{};
  Category category = Category::skipped;
  std::vector<std::string> fields{};
  /// A timestamp.
  std::string at{};

  bool operator==(const Sample&) const = default;
};

}  // namespace CaptureShadow

/// How the two engines of capture compared while both ran: for each stage how often they agreed, since when they have
/// agreed without interruption, and the last cases in which they did not. A stage is promoted by hand, by its streak.
///
/// A plain value with the form of its file. All counts are of 64 bits and stay at the greatest number there is.
struct CaptureShadowReport {
  /// The name of the file that hosts keep it in.
  static constexpr std::string_view fileName = "capture-shadow.json";
  /// The version of the form that is written.
  static constexpr std::int64_t currentVersion = 1;
  /// The samples that are kept, of all stages together.
  static constexpr std::size_t sampleLimit = 20;

  using Category = CaptureShadow::Category;
  using Counts = CaptureShadow::Counts;
  using Streak = CaptureShadow::Streak;
  using Reply = CaptureShadow::Reply;
  using Replies = CaptureShadow::Replies;
  using Reasons = CaptureShadow::Reasons;
  using Stage = CaptureShadow::Stage;
  using Result = CaptureShadow::Result;
  using Sample = CaptureShadow::Sample;

  /// True for a mismatch of decisions or fields.
  [[nodiscard]] static constexpr bool isMismatch(Category category) {
    return category == Category::decisionMismatch || category == Category::fieldMismatch;
  }

  std::int64_t version = currentVersion;
  std::map<std::string, Stage, std::less<>> stages;
  /// The oldest first.
  std::vector<Sample> samples;

  bool operator==(const CaptureShadowReport&) const = default;

  /// Enters the comparisons of a stage, in their order, all made at the moment `at`. A mismatch ends the streak; an
  /// agreement begins or continues it, and belongs to the day that the clocks of `timeZone` show. All that is no
  /// agreement leaves a sample, for which the oldest samples make room.
  void record(std::string_view stage, std::string_view mode, std::span<const Result> results, Date at,
              const TimeZone& timeZone);

  /// Enters how the native engine fared otherwise: a reply that was none, how many records it rejected, and whether it
  /// put its work off. Neither counts nor streak change. Where there is nothing to enter (no reply, `rejected` not
  /// above 0, not deferred) nothing changes at all.
  void recordOutcome(std::string_view stage, std::string_view mode, std::optional<Reply> reply, std::int64_t rejected,
                     bool deferred, Date at);

  /// The days of the stage's streak; absent where there is no such stage, streak or number.
  [[nodiscard]] std::optional<std::int64_t> streakDays(std::string_view stage) const;

  /// Why a comparison raced, by the fields that differed: "provenance" where all of them are of provenance, "token" or
  /// "captured" where that is the only one, else "changed".
  [[nodiscard]] static std::string_view racedReason(std::span<const std::string> fields);

  /// True for "provenance", what begins with "provenance.", and "revisions.provenance".
  [[nodiscard]] static bool isProvenanceField(std::string_view text);

  /// "2026-01-02T03:04:05.678Z": UTC, cut below the millisecond. A date less than a microsecond before a millisecond is
  /// taken for it, for a double seldom holds one exactly: so the date that `date` reads from a timestamp has that
  /// timestamp again. Empty for a date that is not finite or not in the years 0000 to 9999.
  [[nodiscard]] static std::string timestamp(Date date);

  /// The date that a timestamp tells, read as `ISO8601::date` reads a text with a fraction; absent for other text.
  [[nodiscard]] static std::optional<Date> date(std::string_view text);

  /// The day that the clocks of `timeZone` show, "2026-01-02". Empty for a date that is out of the calendar's reach.
  [[nodiscard]] static std::string day(Date date, const TimeZone& timeZone);
};

template <>
struct RawValues<CaptureShadowReport::Category> {
  using Category = CaptureShadowReport::Category;
  static constexpr auto table = std::to_array<RawValueRow<Category>>({
      {Category::agree, "agree"},
      {Category::decisionMismatch, "decisionMismatch"},
      {Category::fieldMismatch, "fieldMismatch"},
      {Category::raced, "raced"},
      {Category::skipped, "skipped"},
  });
};

template <>
struct RawValues<CaptureShadowReport::Reply> {
  using Reply = CaptureShadowReport::Reply;
  static constexpr auto table = std::to_array<RawValueRow<Reply>>({
      {Reply::busy, "busy"},
      {Reply::invalid, "invalid"},
      {Reply::failed, "failed"},
  });
};

template <>
struct JSONForm<CaptureShadowReport::Counts> {
  using Counts = CaptureShadowReport::Counts;
  static constexpr std::tuple fields{
      required("agree", &Counts::agree),
      required("decisionMismatch", &Counts::decisionMismatch),
      required("fieldMismatch", &Counts::fieldMismatch),
      required("raced", &Counts::raced),
      required("skipped", &Counts::skipped),
  };
};

template <>
struct JSONForm<CaptureShadowReport::Streak> {
  using Streak = CaptureShadowReport::Streak;
  static constexpr std::tuple fields{
      required("since", &Streak::since),
      required("observations", &Streak::observations),
      optional("days", &Streak::days),
      optional("lastAgreeDay", &Streak::lastAgreeDay),
  };
};

template <>
struct JSONForm<CaptureShadowReport::Replies> {
  using Replies = CaptureShadowReport::Replies;
  static constexpr std::tuple fields{
      required("busy", &Replies::busy),
      required("invalid", &Replies::invalid),
      required("failed", &Replies::failed),
  };
};

template <>
struct JSONForm<CaptureShadowReport::Stage> {
  using Stage = CaptureShadowReport::Stage;
  static constexpr std::tuple fields{
      required("mode", &Stage::mode),
      required("counts", &Stage::counts),
      optional("streak", &Stage::streak),
      optional("updatedAt", &Stage::updatedAt),
      optional("replies", &Stage::replies),
      optional("rejected", &Stage::rejected),
      optional("deferred", &Stage::deferred),
      optional("skippedReasons", &Stage::skippedReasons),
      optional("racedReasons", &Stage::racedReasons),
  };
};

template <>
struct JSONForm<CaptureShadowReport::Sample> {
  using Sample = CaptureShadowReport::Sample;
  static constexpr std::tuple fields{
      required("stage", &Sample::stage),
      required("documentID", &Sample::documentID),
      required("category", &Sample::category),
      required("fields", &Sample::fields),
      required("at", &Sample::at),
  };
};

/// Stages are written in ascending order of their names, and so are reasons.
template <>
struct JSONForm<CaptureShadowReport> {
  static constexpr std::tuple fields{
      required("version", &CaptureShadowReport::version),
      required("stages", &CaptureShadowReport::stages),
      required("samples", &CaptureShadowReport::samples),
  };
};

}  // namespace tessary
