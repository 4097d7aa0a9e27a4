#include "TessaryPlatform/json/JSONEncoding.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "TessaryPlatform/json/JSONMemory.h"
#include "TessaryPlatform/time/ISO8601.h"

namespace tessary::json {

using Kind = JSONEncodingError::Kind;

// OPTIMIZATION: a text that grows by doubling is copied once more as a whole and touches twice the memory. So that a
// few long elements at the front do not claim memory without measure for all, the text is made at most eight times as
// long once it is long.
void reserveForRest(std::string& text, std::size_t start, std::size_t written, std::size_t all) {
  constexpr std::size_t longText = std::size_t{256} << 20;
  const double perElement = static_cast<double>(text.size() - start) / static_cast<double>(written);
  const double expected = static_cast<double>(start) + perElement * static_cast<double>(all) * 1.1;
  const std::size_t most = std::max(longText, text.size() * 8);
  const std::size_t room = expected < static_cast<double>(most) ? static_cast<std::size_t>(expected) : most;
  if (room <= text.capacity()) return;
  text.reserve(room);
  adviseHugePages(text.data() + text.size(), text.capacity() - text.size());
}

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
