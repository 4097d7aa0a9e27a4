#include "TessaryPlatform/json/JSONReader.h"

#include <cmath>
#include <optional>

#include "TessaryPlatform/json/JSONNumbers.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/time/ISO8601.h"

namespace tessary {

using Kind = JSONDecodingError::Kind;

bool JSONReader::fail(Kind kind, std::size_t position) {
  error_ = {.kind = kind, .path = {}, .expected = {}, .description = {}, .position = position, .syntax = {}};
  return false;
}

bool JSONReader::fail(Kind kind, JSONExpectation expected, std::size_t position) {
  fail(kind, position);
  error_.expected = expected;
  return false;
}

bool JSONReader::failCorrupted(std::string description, std::size_t position) {
  fail(Kind::corrupted, position);
  error_.description = std::move(description);
  return false;
}

bool JSONReader::failType(JSONExpectation expected) {
  const Kind kind = cursor_.peek() == 'n' ? Kind::nullValue : Kind::wrongType;
  return fail(kind, expected, cursor_.position());
}

bool JSONReader::within(std::string_view key) {
  error_.path.insert(error_.path.begin(), std::string(key));
  return false;
}

bool JSONReader::within(std::size_t index) {
  error_.path.insert(error_.path.begin(), index);
  return false;
}

JSONDecodingError malformedJSON(std::string_view text) {
  // The slow road refuses what the fast one refuses, so there is a fault to be found.
  const JSONSyntaxError fault = findJSONFault(text).value_or(JSONSyntaxError{});
  return {.kind = Kind::malformed,
          .path = {},
          .expected = {},
          .description = {},
          .position = fault.position,
          .syntax = fault};
}

JSONDecodingError JSONReader::takeError() {
  if (findJSONFault(text_)) return malformedJSON(text_);
  return std::move(error_);
}

bool JSONReader::read(bool& value) {
  const char first = cursor_.peek();
  if (first != 't' && first != 'f') return failType(JSONExpectation::boolean);
  return cursor_.readBoolean(value);
}

bool JSONReader::readNumber(JSONNumber& number, JSONExpectation expected) {
  const char first = cursor_.peek();
  if (first != '-' && !isASCIIDigit(first)) return failType(expected);
  return cursor_.readNumber(number);
}

template <class Integer>
bool JSONReader::readInteger(Integer& value) {
  const std::size_t position = cursor_.position();
  JSONNumber number{};
  if (!readNumber(number, JSONExpectation::integer)) return false;
  if (!number.isInteger) return fail(Kind::wrongType, JSONExpectation::integer, position);
  const std::optional<std::int64_t> integer = jsonInteger(number.spelling);
  if (!integer || !std::in_range<Integer>(*integer)) {
    return fail(Kind::outOfRange, JSONExpectation::integer, position);
  }
  value = static_cast<Integer>(*integer);
  return true;
}

bool JSONReader::read(std::int32_t& value) {
  return readInteger(value);
}

bool JSONReader::read(std::int64_t& value) {
  return readInteger(value);
}

bool JSONReader::read(double& value) {
  const std::size_t position = cursor_.position();
  JSONNumber number{};
  if (!readNumber(number, JSONExpectation::number)) return false;
  value = jsonDouble(number.spelling);
  return std::isfinite(value) || fail(Kind::outOfRange, JSONExpectation::number, position);
}

bool JSONReader::read(Date& value) {
  const std::size_t position = cursor_.position();
  const JSONDateForm form = coder_.dates;
  if (form == JSONDateForm::secondsSince1970 || form == JSONDateForm::secondsSince2001) {
    double seconds = 0;
    if (!read(seconds)) return false;
    const bool is1970 = form == JSONDateForm::secondsSince1970;
    value = is1970 ? Date::fromSecondsSince1970(seconds) : Date::fromSecondsSince2001(seconds);
    return true;
  }
  if (cursor_.peek() != '"') return failType(JSONExpectation::date);
  std::string_view text;
  if (!readText(text)) return false;
  const auto fraction = form == JSONDateForm::iso8601 ? ISO8601::Fraction::none : ISO8601::Fraction::present;
  const std::optional<Date> date = ISO8601::date(text, fraction);
  if (!date) return failCorrupted("not a date in the form of the file", position);
  value = *date;
  return true;
}

}  // namespace tessary
