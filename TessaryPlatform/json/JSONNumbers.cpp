#include "TessaryPlatform/json/JSONNumbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace tessary {

namespace {

/// Whether the first digit that is not zero stands before the point, once the exponent has moved it. A number that no
/// double holds is either above 1e308 or below 1e-323, so this tells the two apart.
bool isLarge(std::string_view spelling) {
  const std::size_t exponentAt = std::min(spelling.find_first_of("eE"), spelling.size());
  const std::string_view mantissa = spelling.substr(0, exponentAt);
  const std::size_t pointAt = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t digitAt = mantissa.find_first_of("123456789");
  if (digitAt == std::string_view::npos) return false;
  // How many places the digit stands before the point; negative behind it. Both are below 2^32.
  const auto places = static_cast<std::int64_t>(pointAt) - static_cast<std::int64_t>(digitAt);
  std::string_view exponent = spelling.substr(std::min(exponentAt + 1, spelling.size()));
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int64_t shift = 0;
  const auto parsed = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
  if (parsed.ec == std::errc::result_out_of_range) return !exponent.starts_with('-');
  return shift > -places;
}

}  // namespace

std::optional<std::int64_t> jsonInteger(std::string_view spelling) {
  std::int64_t value = 0;
  const auto parsed = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
  if (parsed.ec != std::errc()) return std::nullopt;
  return value;
}

double jsonDouble(std::string_view spelling) {
  double value = 0;
  const auto parsed = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
  if (parsed.ec != std::errc::result_out_of_range) return value;
  const double size = isLarge(spelling) ? std::numeric_limits<double>::infinity() : 0.0;
  return spelling.starts_with('-') ? -size : size;
}

}  // namespace tessary
