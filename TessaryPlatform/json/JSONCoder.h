#pragma once

#include <cstdint>

namespace tessary {

/// How dates stand in a JSON text. A text in another form than the chosen one is no date: each file has one form.
enum class JSONDateForm : std::uint8_t {
  /// A number of seconds since 1970-01-01T00:00:00Z.
  secondsSince1970,
  /// A number of seconds since 2001-01-01T00:00:00Z.
  secondsSince2001,
  /// "2026-01-02T03:04:05Z". What lies below the second is lost in writing.
  iso8601,
  /// "2026-01-02T03:04:05.678Z". What lies below the millisecond is lost in writing.
  iso8601WithFractions,
};

/// What a caller chooses when a record is read or written. Every operation takes it as an argument.
struct JSONCoder {
  JSONDateForm dates = JSONDateForm::secondsSince2001;
};

}  // namespace tessary
