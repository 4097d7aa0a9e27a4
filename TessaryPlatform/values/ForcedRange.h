#pragma once

#include <cmath>

namespace tessary {

/// A range into which a setting is forced, with the value that stands in for a number that is none.
struct ForcedRange {
  double low;
  double high;
  /// For an infinite or undefined number, and where nothing is set; need not be an end of the range.
  double otherwise;

  /// `low` at or below the low end, `high` at or above the high end, `otherwise` if `value` is not finite.
  [[nodiscard]] double forced(double value) const {
    if (!std::isfinite(value)) return otherwise;
    if (value <= low) return low;
    return value >= high ? high : value;
  }
};

}  // namespace tessary
