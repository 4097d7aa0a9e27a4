#pragma once

#include <concepts>
#include <cstdint>
#include <expected>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONErrors.h"
#include "TessaryPlatform/json/JSONValue.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/values/OptionalBox.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// How `T` stands in JSON: specialised with a table `fields`, or with a type `Wire` and the roads `fromWire` and
/// `toWire`. See JSONRecord.h.
template <class T>
struct JSONForm {};

/// Why a wire form makes no value.
struct JSONRefusal {
  /// The key of the wire form at which the error is told; empty for the value as a whole.
  std::string key;
  /// The rule that was broken.
  std::string description;
};

/// An object with text keys in the order of the pairs. Of a key that occurs twice the last value counts, in the place
/// of the first.
template <class T>
using JSONPairs = std::vector<std::pair<std::string, T>>;

/// The types that are written as one token.
template <class T>
concept JSONScalar = std::same_as<T, bool> || std::same_as<T, std::int32_t> || std::same_as<T, std::int64_t> ||
                     std::same_as<T, double> || std::same_as<T, std::string> || std::same_as<T, Date>;

/// The types with a table of fields.
template <class T>
concept JSONRecord = requires { JSONForm<T>::fields; };

/// The types that are read and written by way of another.
template <class T>
concept JSONWired = requires { typename JSONForm<T>::Wire; };

namespace json {

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;
template <class T>
inline constexpr bool isOptional<OptionalBox<T>> = true;

template <class T>
inline constexpr bool isList = false;
template <class T>
inline constexpr bool isList<std::vector<T>> = true;

template <class T>
inline constexpr bool isPairs = false;
template <class T>
inline constexpr bool isPairs<std::vector<std::pair<std::string, T>>> = true;

template <class T>
inline constexpr bool isSet = false;
template <class T, class... Rest>
inline constexpr bool isSet<std::set<T, Rest...>> = true;
template <class T, class... Rest>
inline constexpr bool isSet<std::unordered_set<T, Rest...>> = true;

template <class T>
inline constexpr bool isMap = false;
template <class T, class... Rest>
inline constexpr bool isMap<std::map<std::string, T, Rest...>> = true;
template <class T, class... Rest>
inline constexpr bool isMap<std::unordered_map<std::string, T, Rest...>> = true;

template <class T>
inline constexpr bool isUnordered = false;
template <class... Arguments>
inline constexpr bool isUnordered<std::unordered_map<Arguments...>> = true;
template <class... Arguments>
inline constexpr bool isUnordered<std::unordered_set<Arguments...>> = true;

/// What stands in a text for a value of type `T`.
template <class T>
consteval JSONExpectation expectation() {
  if constexpr (std::same_as<T, bool>) {
    return JSONExpectation::boolean;
  } else if constexpr (std::same_as<T, double>) {
    return JSONExpectation::number;
  } else if constexpr (std::integral<T>) {
    return JSONExpectation::integer;
  } else if constexpr (std::same_as<T, Date>) {
    return JSONExpectation::date;
  } else if constexpr (isOptional<T>) {
    return expectation<typename T::value_type>();
  } else if constexpr (JSONWired<T>) {
    return expectation<typename JSONForm<T>::Wire>();
  } else if constexpr (JSONRecord<T> || isPairs<T> || isMap<T>) {
    return JSONExpectation::object;
  } else if constexpr (isList<T> || isSet<T>) {
    return JSONExpectation::list;
  } else {
    return JSONExpectation::text;
  }
}

}  // namespace json
}  // namespace tessary
