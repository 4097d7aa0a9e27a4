#pragma once

// Hashing of records by the rows of their tables, so that a hash counts every field that the JSON of a record has, and
// a new row cannot be forgotten:
//
//     template <>
//     struct std::hash<tessary::Note> : tessary::JSONRecordHash<tessary::Note> {};
//
// A field that has no key is added by the record's own `std::hash` with `combinedHash`.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <tuple>

#include "TessaryPlatform/json/JSONForm.h"

namespace tessary {

/// A hash of `seed` and `hash`, in this order.
[[nodiscard]] constexpr std::size_t combinedHash(std::size_t seed, std::size_t hash) noexcept {
  // Odd and without pattern: the golden ratio in 64 bits. Added first, it keeps small numbers, of which hashes of
  // Booleans and integers are made, from undoing each other. The shift brings high bits down to where tables look.
  constexpr std::uint64_t ratio = 0x9E37'79B9'7F4A'7C15;
  const std::uint64_t mixed = (seed ^ (hash + ratio)) * ratio;
  return static_cast<std::size_t>(mixed ^ mixed >> 29);
}

template <JSONRecord T>
struct JSONRecordHash;

namespace json {

/// A hash of any value that can be the member of a record; equal values have equal hashes.
template <class T>
[[nodiscard]] std::size_t hashOf(const T& value) {
  if constexpr (isOptional<T>) {
    return value ? combinedHash(1, hashOf(*value)) : 0;
  } else if constexpr (JSONRecord<T>) {
    return JSONRecordHash<T>()(value);
  } else if constexpr (isUnordered<T>) {
    // Equal containers may be walked in different orders, so the sum counts.
    std::size_t sum = value.size();
    for (const auto& element : value)
      sum += hashOf(element);
    return sum;
  } else if constexpr (isList<T> || isPairs<T> || isSet<T> || isMap<T>) {
    std::size_t hash = value.size();
    for (const auto& element : value)
      hash = combinedHash(hash, hashOf(element));
    return hash;
  } else if constexpr (requires { value.first; }) {
    return combinedHash(hashOf(value.first), hashOf(value.second));
  } else {
    return std::hash<T>()(value);
  }
}

}  // namespace json

/// Hashes a record over the fields of its table.
template <JSONRecord T>
struct JSONRecordHash {
  [[nodiscard]] std::size_t operator()(const T& record) const noexcept {
    std::size_t hash = 0;
    std::apply([&](const auto&... field) { ((hash = combinedHash(hash, json::hashOf(record.*field.member))), ...); },
               JSONForm<T>::fields);
    return hash;
  }
};

}  // namespace tessary
