#pragma once

// How types stand in JSON.
//
// A record has one table, a specialisation of JSONForm, with a row for each key in the order in which the keys are
// written:
//
//     template <>
//     struct JSONForm<Note> {
//       static constexpr std::tuple fields{
//           required("id", &Note::id),
//           optional("author", &Note::author),
//           defaulted("isStale", &Note::isStale, false),
//           clamped("volume", &Note::volume, {.low = 0, .high = 1, .otherwise = 0.6}),
//       };
//     };
//
//     std::expected<Note, JSONDecodingError> note = readJSON<Note>(text, coder);
//     std::expected<std::string, JSONEncodingError> text = writeJSON(note, coder);
//
// JSONFields.h has the rules. What holds for all records:
//
// - A missing key and null are the same; a required key may be neither.
// - Unknown keys are ignored, but what stands under them must be JSON. A record that keeps them names a map for them
//   beside its table: `static constexpr auto otherKeys = &Note::translations;`. They are written behind the others.
// - Of a key that occurs twice the last value counts; each is held to the key's rule.
// - Keys are compared by what they spell, so an escaped spelling of a key is that key.
// - An integer with fraction or exponent is a wrong type, whatever its value.
//
// Types that can be members, elements or whole files: `bool`, `std::int32_t`, `std::int64_t`, `double`, `std::string`,
// `Date`, `JSONValue`, enumerations with raw values (an unknown text is an error), records, types with a wire form, and
// of these: `std::vector`, `std::set` and `std::unordered_set` as lists (sets are written in ascending order, repeated
// elements unite); `std::map` and `std::unordered_map` with text keys as objects, written in ascending order of their
// keys by scalar value; `JSONPairs` as objects in the order given. A `std::optional` element of a list or map is null
// where it is absent.
//
// A type whose JSON is not its fields has a wire form instead of a table: another type that has a form, and the two
// roads between them. Migrations of older files are written so: the wire form is a record of every key that ever was,
// each absent where it is absent.
//
//     template <>
//     struct JSONForm<Version> {
//       using Wire = VersionKeys;
//       static std::expected<Version, JSONRefusal> fromWire(VersionKeys keys);
//       static VersionKeys toWire(const Version& version);
//     };

#include <expected>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryPlatform/json/JSONCoder.h"
#include "TessaryPlatform/json/JSONDecoding.h"
#include "TessaryPlatform/json/JSONEncoding.h"
#include "TessaryPlatform/json/JSONErrors.h"
#include "TessaryPlatform/json/JSONFields.h"
#include "TessaryPlatform/json/JSONForm.h"
#include "TessaryPlatform/json/JSONReader.h"
#include "TessaryPlatform/json/JSONTokens.h"

namespace tessary {

/// Reads a whole text as a `T`, in one pass. A text that is not JSON anywhere, also in parts that `T` ignores, is an
/// error.
template <class T>
[[nodiscard]] std::expected<T, JSONDecodingError> readJSON(std::string_view text, const JSONCoder& coder = {}) {
  const std::optional<JSONTokens> tokens = JSONTokens::indexed(text);
  if (!tokens) return std::unexpected(malformedJSON(text));
  JSONReader reader(*tokens, coder);
  std::expected<T, JSONDecodingError> value;
  if (!json::readValue(reader, *value) || !reader.cursor().finish()) value = std::unexpected(reader.takeError());
  return value;
}

/// The text of `value`: compact, keys in the order of the tables, numbers as ECMAScript lays them out, but in a
/// JSONValue as Python does, so that 1.0 stays apart from 1; malformed UTF-8 in texts as U+FFFD. An infinite or
/// undefined number or date is an error.
template <class T>
[[nodiscard]] std::expected<std::string, JSONEncodingError> writeJSON(const T& value, const JSONCoder& coder = {}) {
  std::expected<std::string, JSONEncodingError> text;
  json::ValueWriter writer(*text, coder);
  if (!json::writeValue(writer, value)) text = std::unexpected(writer.takeError());
  return text;
}

}  // namespace tessary
