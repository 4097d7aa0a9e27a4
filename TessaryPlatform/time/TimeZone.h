#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryPlatform/time/Date.h"

namespace tessary {

/// The rule by which the clocks of a region show the time: its offsets from UTC and the moments at which they change.
/// The authority is the IANA time zone database in the edition that ICU holds.
///
/// A value that is cheap to copy (a shared pointer to rules that nobody changes) and may be used from any thread.
/// Finding one by name takes longer than using it, so a caller keeps the one that it works with.
class TimeZone {
 public:
  /// The longest name that is looked up, in bytes.
  static constexpr std::size_t maximumIdentifierBytes = 64;

  /// The zone of an IANA name ("Europe/Berlin", older names included), or with a fixed offset ("GMT+9", "GMT-03:30").
  /// Absent for a name that stands for no zone; letters must have their right case.
  [[nodiscard]] static std::optional<TimeZone> named(std::string_view identifier);

  /// The zone "UTC", which is there whatever ICU's database holds.
  [[nodiscard]] static TimeZone utc();

  /// The name, with a fixed offset written in full ("GMT+09:00").
  [[nodiscard]] const std::string& identifier() const;

  /// How far the clocks run ahead of UTC at `date`. Absent for a date that is not finite or lies more than
  /// 10,000,000 days from 1970.
  [[nodiscard]] std::optional<std::chrono::seconds> offset(Date date) const;

  /// The first moment at which the clocks show `clock` or, where they never do because they skip it, the moment of
  /// that skip: the next time that they show. Of a time that occurs twice it is the first. Absent more than
  /// 10,000,000 days from 1970.
  [[nodiscard]] std::optional<Date> firstMoment(std::chrono::local_seconds clock) const;

  /// Zones of one name are equal. Two names of one zone are not.
  friend bool operator==(const TimeZone& one, const TimeZone& other) { return one.identifier() == other.identifier(); }

 private:
  struct Rules;
  explicit TimeZone(std::shared_ptr<const Rules> rules) : rules_(std::move(rules)) {}

  std::shared_ptr<const Rules> rules_;
};

}  // namespace tessary
