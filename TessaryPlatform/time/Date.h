#pragma once

#include <cmath>
#include <compare>
#include <cstddef>
#include <functional>

namespace tessary {

/// A point in time, as a double of seconds. It knows no calendar and no time zone; `Calendar` and `ISO8601` do.
///
/// Seconds count as POSIX counts them, 86,400 to a day and none for leap seconds. The number kept is that of the
/// seconds since 2001-01-01T00:00:00Z. For every date between 2001 and 2038 that number is at least as finely grained
/// as the seconds since 1970, so files of either form are read and written again without the change of a bit; counted
/// from 1970, the last bit of a file that counts from 2001 would be lost.
///
/// Any double is a date. An infinite or undefined one has no calendar day and no written form, and an undefined one
/// equals nothing and has no order, as IEEE 754 has it.
class Date {
 public:
  /// The seconds from 1970-01-01T00:00:00Z to 2001-01-01T00:00:00Z.
  static constexpr double secondsBetween1970And2001 = 978'307'200.0;

  /// 2001-01-01T00:00:00Z.
  constexpr Date() = default;

  /// The date that many seconds after 1970-01-01T00:00:00Z, or after 2001-01-01T00:00:00Z; before it for a negative
  /// number.
  [[nodiscard]] static constexpr Date fromSecondsSince1970(double seconds) {
    return Date(seconds - secondsBetween1970And2001);
  }
  [[nodiscard]] static constexpr Date fromSecondsSince2001(double seconds) { return Date(seconds); }

  /// The seconds from either moment to the date.
  [[nodiscard]] constexpr double secondsSince1970() const { return seconds_ + secondsBetween1970And2001; }
  [[nodiscard]] constexpr double secondsSince2001() const { return seconds_; }

  /// False for an infinite or undefined date.
  [[nodiscard]] bool isFinite() const { return std::isfinite(seconds_); }

  /// The date that many seconds later; earlier for a negative number.
  [[nodiscard]] friend constexpr Date operator+(Date date, double seconds) { return Date(date.seconds_ + seconds); }
  [[nodiscard]] friend constexpr Date operator-(Date date, double seconds) { return Date(date.seconds_ - seconds); }
  /// The seconds from `earlier` to `later`; negative where they stand the other way round.
  [[nodiscard]] friend constexpr double operator-(Date later, Date earlier) {
    return later.seconds_ - earlier.seconds_;
  }

  bool operator==(const Date&) const = default;
  std::partial_ordering operator<=>(const Date&) const = default;

 private:
  explicit constexpr Date(double seconds) : seconds_(seconds) {}

  double seconds_ = 0;
};

}  // namespace tessary

/// Equal dates hash alike, 0.0 and -0.0 included.
template <>
struct std::hash<tessary::Date> {
  std::size_t operator()(tessary::Date date) const noexcept { return std::hash<double>{}(date.secondsSince2001()); }
};
