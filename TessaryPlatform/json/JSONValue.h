#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "TessaryPlatform/json/JSONErrors.h"
#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryPlatform/json/JSONWriter.h"

namespace tessary {

class JSONCursor;

/// Any JSON value, held as a tree: for JSON whose shape is not known beforehand. Records are read without one.
///
/// A tree keeps what a text says: the order of keys, a Boolean apart from a number, an integer apart from a
/// floating-point number, an integer beyond 64 bits digit by digit. It may be nested to any depth in memory: nothing
/// here, destruction included, recurses.
class JSONValue {
 public:
  struct Member;
  using Array = std::vector<JSONValue>;
  /// The members in their order. A key occurs once.
  using Object = std::vector<Member>;

  /// An integer that does not fit in a signed 64-bit number, spelled as JSON spells it.
  struct BigInteger {
    std::string digits;
    bool operator==(const BigInteger&) const = default;
  };

  /// Null.
  JSONValue() noexcept;
  JSONValue(std::nullptr_t) noexcept;
  /// No pointer turns into a Boolean.
  template <std::same_as<bool> Boolean>
  JSONValue(Boolean value) noexcept;
  template <std::signed_integral Integer>
  JSONValue(Integer value) noexcept;
  /// An unsigned integer would turn into a floating-point number unseen; the caller says which signed one it means.
  template <std::unsigned_integral Integer>
    requires(!std::same_as<Integer, bool>)
  JSONValue(Integer value) = delete;
  JSONValue(double value) noexcept;
  JSONValue(BigInteger value) noexcept;
  JSONValue(std::string value) noexcept;
  JSONValue(std::string_view value);
  JSONValue(const char* value);
  JSONValue(Array value) noexcept;
  /// Of members with the same key the last counts, in the place of the first.
  JSONValue(Object value);

  JSONValue(const JSONValue& other);
  JSONValue(JSONValue&& other) noexcept;
  JSONValue& operator=(const JSONValue& other);
  JSONValue& operator=(JSONValue&& other) noexcept;
  ~JSONValue();

  /// Reads a whole text, which may hold any value. Of members with the same key the last counts, in the place of the
  /// first. The integer "-0" is 0, "-0.0" is negative zero; a number with fraction or exponent that is too large for a
  /// double is infinite, as in Python and JavaScript, and one that is too small is zero.
  [[nodiscard]] static std::expected<JSONValue, JSONSyntaxError> parse(std::string_view text);

  /// The text of the value; an infinite or undefined number anywhere in it is an error.
  [[nodiscard]] std::expected<std::string, JSONEncodingError> text(const JSONStyle& style = {}) const;

  /// Integers of either size and floating-point numbers are all of kind `number`.
  [[nodiscard]] JSONKind kind() const noexcept;

  [[nodiscard]] bool isNull() const noexcept { return kind() == JSONKind::null; }

  /// What the value is; null where it is something else.
  [[nodiscard]] const bool* boolean() const noexcept { return std::get_if<bool>(&value_); }
  [[nodiscard]] const std::int64_t* integer() const noexcept { return std::get_if<std::int64_t>(&value_); }
  [[nodiscard]] const BigInteger* bigInteger() const noexcept { return std::get_if<BigInteger>(&value_); }
  [[nodiscard]] const double* floatingPoint() const noexcept { return std::get_if<double>(&value_); }
  [[nodiscard]] const std::string* string() const noexcept { return std::get_if<std::string>(&value_); }
  [[nodiscard]] const Array* array() const noexcept { return std::get_if<Array>(&value_); }
  [[nodiscard]] const Object* object() const noexcept { return std::get_if<Object>(&value_); }
  [[nodiscard]] Array* array() noexcept { return std::get_if<Array>(&value_); }
  [[nodiscard]] Object* object() noexcept { return std::get_if<Object>(&value_); }

  /// Any number as a double, the nearest where it is an integer of many digits; absent for all other kinds, Booleans
  /// included.
  [[nodiscard]] std::optional<double> number() const;

  /// The value of the member `key`; null if the value is no object or has no such member. Takes linear time.
  [[nodiscard]] const JSONValue* find(std::string_view key) const noexcept;

  /// Gives the member `key` of an object that value, in its place, or behind the other members if it is new. A value
  /// that is no object becomes one first.
  void set(std::string_view key, JSONValue value);

  /// True where both write the same text: the order of keys counts, and 1 is not 1.0. An undefined number equals
  /// nothing; the two zeros of floating point are equal.
  bool operator==(const JSONValue& other) const;

  /// Reads the value at which `cursor` stands; false as the cursor's operations.
  [[nodiscard]] static bool read(JSONCursor& cursor, JSONValue& value);

  /// Appends the text of the value to `json`, which is unfinished text after an error.
  [[nodiscard]] std::expected<void, JSONEncodingError> append(std::string& json, const JSONStyle& style) const;

 private:
  std::variant<std::monostate, bool, std::int64_t, BigInteger, double, std::string, Array, Object> value_;
};

struct JSONValue::Member {
  std::string key;
  JSONValue value;

  bool operator==(const Member&) const = default;
};

// Behind `Member`: a constructor can destroy the value, and clang asks for the whole type where one is defined.
template <std::same_as<bool> Boolean>
JSONValue::JSONValue(Boolean value) noexcept : value_(value) {}

template <std::signed_integral Integer>
JSONValue::JSONValue(Integer value) noexcept : value_(std::int64_t{value}) {}

}  // namespace tessary
