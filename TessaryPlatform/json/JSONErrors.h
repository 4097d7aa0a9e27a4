#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "TessaryPlatform/json/JSONSyntax.h"

namespace tessary {

/// One step from a value to a value inside it: the key of a member, or the index of an element, from 0.
using JSONPathStep = std::variant<std::string, std::size_t>;

/// The way from the value on top to another; empty for the value on top.
using JSONPath = std::vector<JSONPathStep>;

/// What a place of a record asks for.
enum class JSONExpectation : std::uint8_t { boolean, integer, number, text, date, list, object };

/// Why a text could not be read as a value of some type.
///
/// Whether the text is JSON comes first: `malformed` is told before anything that is wrong with the value, wherever
/// either stands. Of several things wrong with the value, the first in the text is told; keys that are missing from an
/// object are noticed at its end, the first of them in the order of the record's table.
struct JSONDecodingError {
  enum class Kind : std::uint8_t {
    /// The text is not JSON; `syntax` says why. The path is empty.
    malformed,
    /// A required key is not there. The path ends with the key.
    missingKey,
    /// Null where a value is required.
    nullValue,
    /// A value of another JSON type than `expected`; also a number with fraction or exponent for an integer.
    wrongType,
    /// A number that the field's type cannot hold.
    outOfRange,
    /// A text that is no raw value of the field's vocabulary.
    unknownRawValue,
    /// A value of the right type that breaks a rule of its own; `description` says which.
    corrupted,
  };

  Kind kind{};
  /// The offending value or missing key.
  JSONPath path;
  /// What should have stood there. Absent for `malformed`, `missingKey` and `corrupted`.
  std::optional<JSONExpectation> expected;
  /// The rule that was broken, in the words of the type that holds it; empty except for `corrupted`.
  std::string description;
  /// The byte at which the offending value begins; for `missingKey` the opening brace of the object that lacks it.
  std::size_t position = 0;
  /// For `malformed`, what is wrong with the text.
  std::optional<JSONSyntaxError> syntax;

  bool operator==(const JSONDecodingError&) const = default;
};

/// Why a value could not be written.
struct JSONEncodingError {
  enum class Kind : std::uint8_t {
    /// JSON has no form for an infinite or undefined number, nor for such a date.
    nonFiniteNumber,
    /// The date lies outside the years that the coder's date form can write.
    dateOutOfRange,
  };

  Kind kind{};
  JSONPath path;

  bool operator==(const JSONEncodingError&) const = default;
};

}  // namespace tessary
