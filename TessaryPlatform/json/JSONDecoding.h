#pragma once

// Reading of values by their type, straight from the tokens of a text. The recursion follows the types of a program,
// not the depth of its input. JSONRecord.h tells the rules.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "TessaryPlatform/json/JSONForm.h"
#include "TessaryPlatform/json/JSONReader.h"
#include "TessaryPlatform/json/JSONUniqueKeys.h"

namespace tessary::json {

/// Reads the value at the reader's cursor into `value`, which is as its type makes it: `T()`.
template <class T>
[[nodiscard]] bool readValue(JSONReader& reader, T& value);

/// Steps through an array. `readElement` reads one element.
template <class ReadElement>
[[nodiscard]] bool readElements(JSONReader& reader, ReadElement readElement) {
  if (reader.cursor().peek() != '[') return reader.failType(JSONExpectation::list);
  if (!reader.cursor().enter()) return false;
  std::size_t index = 0;
  for (bool more = !reader.cursor().leaveIfEmpty(']'); more; ++index) {
    if (!readElement()) return reader.within(index);
    if (!reader.cursor().continueOrLeave(']', more)) return false;
  }
  return true;
}

/// The size of elements, in bytes, from which on it pays to count them before they are read.
inline constexpr std::size_t worthReserving = 128;

/// Makes room for exactly the elements of a short list.
///
/// OPTIMIZATION: a list that grows by doubling moves each large element about twice and keeps room for as many again;
/// counting them costs a look at the tokens. No more are counted than `mostCounted`, so that a text of commas does not
/// claim memory a thousand times its size, and the look at a long list costs next to nothing.
template <class T>
void reserveElements(JSONReader& reader, T& list) {
  constexpr std::size_t mostCounted = 64;
  if (reader.cursor().peek() == '[') list.reserve(reader.cursor().elementCount(mostCounted));
}

/// Steps through an object. `readMember` reads one member, its key first.
template <class ReadMember>
[[nodiscard]] bool stepThroughObject(JSONReader& reader, ReadMember readMember) {
  if (reader.cursor().peek() != '{') return reader.failType(JSONExpectation::object);
  if (!reader.cursor().enter()) return false;
  for (bool more = !reader.cursor().leaveIfEmpty('}'); more;) {
    if (!readMember() || !reader.cursor().continueOrLeave('}', more)) return false;
  }
  return true;
}

/// Steps through an object. `readMember` is given a key and reads the value behind it.
template <class ReadMember>
[[nodiscard]] bool readMembers(JSONReader& reader, ReadMember readMember) {
  return stepThroughObject(reader, [&] {
    std::string_view key;
    return reader.readKey(key) && readMember(key);
  });
}

template <class E>
[[nodiscard]] bool readRawValue(JSONReader& reader, E& value) {
  const std::size_t position = reader.cursor().position();
  std::string_view text;
  if (!reader.readText(text)) return false;
  const std::optional<E> found = fromRawValue<E>(text);
  if (!found) return reader.fail(JSONDecodingError::Kind::unknownRawValue, JSONExpectation::text, position);
  value = *found;
  return true;
}

template <class T>
[[nodiscard]] bool readMap(JSONReader& reader, T& map) {
  map.clear();
  return readMembers(reader, [&](std::string_view key) {
    const std::string name(key);
    auto& slot = map[name];
    slot = {};
    return readValue(reader, slot) || reader.within(name);
  });
}

template <class T>
[[nodiscard]] bool readPairs(JSONReader& reader, T& pairs) {
  pairs.clear();
  const bool isRead = readMembers(reader, [&](std::string_view key) {
    auto& pair = pairs.emplace_back();
    pair.first = key;
    return readValue(reader, pair.second) || reader.within(pair.first);
  });
  if (!isRead) return false;
  using Pair = typename T::value_type;
  uniteRepeatedKeys(pairs, &Pair::first, &Pair::second);
  return true;
}

template <class T>
[[nodiscard]] bool readWired(JSONReader& reader, T& value) {
  const std::size_t position = reader.cursor().position();
  typename JSONForm<T>::Wire wire{};
  if (!readValue(reader, wire)) return false;
  std::expected<T, JSONRefusal> made = JSONForm<T>::fromWire(std::move(wire));
  if (made) {
    value = std::move(*made);
    return true;
  }
  reader.failCorrupted(std::move(made.error().description), position);
  return made.error().key.empty() ? false : reader.within(made.error().key);
}

/// Reads records of one type by the rows of its table.
template <JSONRecord T>
class RecordReader {
 public:
  [[nodiscard]] static bool read(JSONReader& reader, T& record) {
    const std::size_t position = reader.cursor().position();
    std::uint64_t seen = 0;
    // Files are mostly written in the order of the table, so the search goes on from the last hit.
    std::size_t next = 0;
    const bool isRead = stepThroughObject(reader, [&] {
      // OPTIMIZATION: no key of a table has anything to escape, so one that is spelled as it stands there is that key;
      // others are looked for again by what they spell.
      std::size_t index = find(reader.cursor().spelledKey(), next);
      std::string_view key;
      if (index != count) {
        if (!reader.cursor().skipSpelledKey()) return false;
      } else {
        if (!reader.readKey(key)) return false;
        index = find(key, next);
        if (index == count) return readUnknown(reader, record, key);
      }
      const std::uint64_t bit = std::uint64_t{1} << index;
      const bool isRepeated = (seen & bit) != 0;
      seen |= bit;
      next = index + 1;
      return readers[index](reader, record, isRepeated) || reader.within(keys[index]);
    });
    if (!isRead) return false;
    const std::size_t missing = settleAbsent(record, seen);
    if (missing == count) return true;
    reader.fail(JSONDecodingError::Kind::missingKey, position);
    return reader.within(keys[missing]);
  }

 private:
  static constexpr const auto& fields = JSONForm<T>::fields;
  static constexpr std::size_t count = std::tuple_size_v<std::remove_cvref_t<decltype(fields)>>;
  static_assert(count <= 64, "one bit for each key");

  using ReadField = bool (*)(JSONReader&, T&, bool isRepeated);

  template <std::size_t index>
  static bool readField(JSONReader& reader, T& record, bool isRepeated) {
    const auto& field = std::get<index>(fields);
    auto& member = record.*field.member;
    using Member = std::remove_reference_t<decltype(member)>;
    if (reader.cursor().peek() == 'n') {
      const std::size_t position = reader.cursor().position();
      if (!reader.cursor().skipNull()) return false;
      if (field.rule.settleAbsent(member)) return true;
      return reader.fail(JSONDecodingError::Kind::nullValue, expectation<Member>(), position);
    }
    if (isRepeated) member = Member();
    return field.rule.read(reader, member);
  }

  static constexpr auto keys =
      std::apply([](const auto&... field) { return std::array<std::string_view, count>{field.key.text...}; }, fields);

  static constexpr auto readers = []<std::size_t... index>(std::index_sequence<index...>) {
    return std::array<ReadField, count>{&readField<index>...};
  }(std::make_index_sequence<count>());

  /// The row of `key`, looked for from row `from` on and then from the first; `count` if there is none.
  static std::size_t find(std::string_view key, std::size_t from) {
    for (std::size_t index = from; index < count; ++index) {
      if (keys[index] == key) return index;
    }
    for (std::size_t index = 0; index < from; ++index) {
      if (keys[index] == key) return index;
    }
    return count;
  }

  /// Gives the fields whose keys were not there what their rules say. The first that has to be there, or `count`.
  static std::size_t settleAbsent(T& record, std::uint64_t seen) {
    std::size_t missing = count;
    const auto settle = [&]<std::size_t index>(std::integral_constant<std::size_t, index>) {
      const auto& field = std::get<index>(fields);
      if ((seen >> index & 1) != 0 || field.rule.settleAbsent(record.*field.member)) return true;
      missing = index;
      return false;
    };
    [&]<std::size_t... index>(std::index_sequence<index...>) {
      (settle(std::integral_constant<std::size_t, index>()) && ...);
    }(std::make_index_sequence<count>());
    return missing;
  }

  static bool readUnknown(JSONReader& reader, T& record, std::string_view key) {
    if constexpr (requires { JSONForm<T>::otherKeys; }) {
      const std::string name(key);
      auto& slot = (record.*JSONForm<T>::otherKeys)[name];
      slot = {};
      return readValue(reader, slot) || reader.within(name);
    } else {
      return reader.cursor().skipValue();
    }
  }
};

template <class T>
bool readValue(JSONReader& reader, T& value) {
  if constexpr (JSONScalar<T>) {
    return reader.read(value);
  } else if constexpr (std::same_as<T, JSONValue>) {
    return JSONValue::read(reader.cursor(), value);
  } else if constexpr (isOptional<T>) {
    if (reader.cursor().peek() != 'n') return readValue(reader, value.emplace());
    value.reset();
    return reader.cursor().skipNull();
  } else if constexpr (JSONRecord<T>) {
    return RecordReader<T>::read(reader, value);
  } else if constexpr (JSONWired<T>) {
    return readWired(reader, value);
  } else if constexpr (isPairs<T>) {
    return readPairs(reader, value);
  } else if constexpr (isMap<T>) {
    return readMap(reader, value);
  } else if constexpr (isSet<T>) {
    value.clear();
    return readElements(reader, [&] {
      typename T::value_type element{};
      if (!readValue(reader, element)) return false;
      value.insert(std::move(element));
      return true;
    });
  } else if constexpr (isList<T>) {
    value.clear();
    if constexpr (sizeof(typename T::value_type) >= worthReserving) reserveElements(reader, value);
    return readElements(reader, [&] { return readValue(reader, value.emplace_back()); });
  } else {
    static_assert(RawRepresentable<T>, "a type that has a form in JSON");
    return readRawValue(reader, value);
  }
}

}  // namespace tessary::json
