#include "TessaryPlatform/json/JSONEncoding.h"

#include <cmath>
#include <optional>

#include "TessaryPlatform/time/ISO8601.h"

namespace tessary::json {

using Kind = JSONEncodingError::Kind;

bool ValueWriter::fail(Kind kind) {
  error_ = {kind, {}};
  return false;
}

bool ValueWriter::within(std::string_view key) {
  error_.path.insert(error_.path.begin(), std::string(key));
  return false;
}

bool ValueWriter::within(std::size_t index) {
  error_.path.insert(error_.path.begin(), index);
  return false;
}

bool ValueWriter::write(double value) {
  if (!std::isfinite(value)) return fail(Kind::nonFiniteNumber);
  appendJSONNumber(text_, value, JSONStyle::Numbers::ecmaScript);
  return true;
}

bool ValueWriter::write(Date value) {
  if (!value.isFinite()) return fail(Kind::nonFiniteNumber);
  switch (coder_.dates) {
    case JSONDateForm::secondsSince1970:
      return write(value.secondsSince1970());
    case JSONDateForm::secondsSince2001:
      return write(value.secondsSince2001());
    default:
      break;
  }
  const auto fraction = coder_.dates == JSONDateForm::iso8601 ? ISO8601::Fraction::none : ISO8601::Fraction::present;
  const std::optional<std::string> date = ISO8601::text(value, fraction);
  return date ? write(std::string_view(*date)) : fail(Kind::dateOutOfRange);
}

bool ValueWriter::writeTree(const JSONValue& value) {
  // Python's layout keeps a floating-point number from being read again as an integer.
  auto written = value.append(text_, {.numbers = JSONStyle::Numbers::python});
  if (!written) error_ = std::move(written.error());
  return written.has_value();
}

}  // namespace tessary::json
