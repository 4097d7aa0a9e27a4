#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryPlatform/json/JSONRecord.h"
#include "support/Require.h"

namespace tessary::testing {

/// Reads any bytes as a `T` and requires what holds for every reader: what is not JSON, and nothing else, is called
/// malformed; an error lies within the text; and a value that was read is written, read as the same and written as the
/// same again. The value that was read, for further properties.
template <class T>
std::optional<T> requireRoundTrip(std::string_view text, const JSONCoder& coder = {}) {
  const std::expected<T, JSONDecodingError> value = readJSON<T>(text, coder);
  const bool isJSON = walkJSON(text).has_value();
  if (!value) {
    require((value.error().kind == JSONDecodingError::Kind::malformed) == !isJSON);
    require(value.error().position <= text.size());
    return std::nullopt;
  }
  require(isJSON);
  const std::expected<std::string, JSONEncodingError> written = writeJSON(*value, coder);
  // Only a date may have no text: one that a number can tell and a calendar cannot.
  if (!written) return *value;
  const std::expected<T, JSONDecodingError> again = readJSON<T>(*written, coder);
  require(again.has_value() && *again == *value);
  require(writeJSON(*again, coder) == written);
  return *value;
}

}  // namespace tessary::testing
