#pragma once

// Writing of values by their type. JSONRecord.h tells the rules.

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONCoder.h"
#include "TessaryPlatform/json/JSONErrors.h"
#include "TessaryPlatform/json/JSONForm.h"
#include "TessaryPlatform/json/JSONPlainText.h"
#include "TessaryPlatform/json/JSONWriter.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary::json {

/// One writing of a value: the text so far, the coder's choices and the error, if there was one.
class ValueWriter {
 public:
  ValueWriter(std::string& text, const JSONCoder& coder) : text_(text), coder_(coder) {}

  [[nodiscard]] std::string& text() { return text_; }
  [[nodiscard]] JSONEncodingError takeError() { return std::move(error_); }

  [[nodiscard]] bool write(bool value) {
    text_ += value ? std::string_view("true") : std::string_view("false");
    return true;
  }
  [[nodiscard]] bool write(std::int32_t value) { return write(std::int64_t{value}); }
  [[nodiscard]] bool write(std::int64_t value) {
    appendJSONInteger(text_, value);
    return true;
  }
  [[nodiscard]] bool write(double value);
  [[nodiscard]] bool write(Date value);
  [[nodiscard]] bool write(std::string_view value) {
    appendJSONText(text_, value, JSONStyle::Escapes::minimal);
    return true;
  }
  [[nodiscard]] bool writeTree(const JSONValue& value);

  /// Puts a step in front of the path of the error, and answers false.
  bool within(std::string_view key);
  bool within(std::size_t index);

 private:
  bool fail(JSONEncodingError::Kind kind);

  std::string& text_;
  const JSONCoder& coder_;
  JSONEncodingError error_;
};

/// Appends `introduction`, and behind it `value` as a text, of which the quote before it stands in `introduction`.
///
/// OPTIMIZATION: the string is lengthened once for key and text, and the text is copied while it is looked through.
template <std::size_t size>
void appendTextMember(std::string& json, const std::array<char, size>& introduction, std::string_view value) {
  const std::size_t start = json.size();
  std::size_t copied = 0;
  json.resize_and_overwrite(start + size + value.size() + 1, [&](char* bytes, std::size_t) {
    std::memcpy(bytes + start, introduction.data(), size);
    char* const text = bytes + start + size;
    copied = copyPlain(value, text);
    text[copied] = '"';
    return start + size + copied + (copied == value.size() ? 1 : 0);
  });
  if (copied != value.size()) appendRestOfJSONText(json, value, copied, JSONStyle::Escapes::minimal);
}

/// The same for a number or a Boolean.
template <std::size_t size, class Scalar>
void appendScalarMember(std::string& json, const std::array<char, size>& introduction, Scalar value) {
  constexpr std::size_t longest = 20;
  const std::size_t start = json.size();
  json.resize_and_overwrite(start + size + longest, [&](char* bytes, std::size_t) {
    std::memcpy(bytes + start, introduction.data(), size);
    char* const text = bytes + start + size;
    if constexpr (std::same_as<Scalar, bool>) {
      std::memcpy(text, value ? "true " : "false", 5);
      return start + size + (value ? 4 : 5);
    } else {
      return static_cast<std::size_t>(std::to_chars(text, text + longest, value).ptr - bytes);
    }
  });
}

/// Appends the text of `value`.
template <class T>
[[nodiscard]] bool writeValue(ValueWriter& writer, const T& value);

/// The elements of a range in ascending order of what `projection` makes of them.
template <class Range, class Projection = std::identity>
[[nodiscard]] auto ascending(const Range& range, Projection projection = {}) {
  using Element = typename Range::value_type;
  std::vector<std::reference_wrapper<const Element>> sorted(range.begin(), range.end());
  std::ranges::sort(sorted, {},
                    [&](const Element& element) -> const auto& { return std::invoke(projection, element); });
  return sorted;
}

/// Makes room for the rest of a long list, as the elements that are written let expect: they took the text behind
/// `start`, and are `written` of `all`.
void reserveForRest(std::string& text, std::size_t start, std::size_t written, std::size_t all);

/// `T` is the type of the elements.
template <class T, class Elements>
[[nodiscard]] bool writeElements(ValueWriter& writer, const Elements& elements) {
  constexpr std::size_t firstLook = 64;
  const std::size_t start = writer.text().size();
  std::size_t index = 0;
  writer.text() += '[';
  for (const T& element : elements) {
    if (index > 0) writer.text() += ',';
    if (!writeValue(writer, element)) return writer.within(index);
    ++index;
    if (index >= firstLook && std::has_single_bit(index)) {
      reserveForRest(writer.text(), start, index, elements.size());
    }
  }
  writer.text() += ']';
  return true;
}

/// `Pair` is the type of the members: a key and a value. `isFirst` tells whether nothing stands before them.
template <class Pair, class Members>
[[nodiscard]] bool writeMembers(ValueWriter& writer, const Members& members, bool isFirst) {
  for (const Pair& member : members) {
    if (!isFirst) writer.text() += ',';
    isFirst = false;
    appendJSONText(writer.text(), member.first, JSONStyle::Escapes::minimal);
    writer.text() += ':';
    if (!writeValue(writer, member.second)) return writer.within(member.first);
  }
  return true;
}

template <class Map>
[[nodiscard]] bool writeMap(ValueWriter& writer, const Map& map, bool isFirst) {
  using Pair = typename Map::value_type;
  if constexpr (isUnordered<Map>) {
    return writeMembers<Pair>(writer, ascending(map, &Pair::first), isFirst);
  } else {
    return writeMembers<Pair>(writer, map, isFirst);
  }
}

/// Writes records of one type by the rows of its table.
template <JSONRecord T>
class RecordWriter {
 public:
  [[nodiscard]] static bool write(ValueWriter& writer, const T& record) {
    const std::size_t start = writer.text().size();
    const bool isWritten = [&]<std::size_t... index>(std::index_sequence<index...>) {
      return (writeField<index>(writer, record) && ...);
    }(std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<decltype(fields)>>>());
    if (!isWritten) return false;
    const bool isEmpty = writer.text().size() == start;
    if (isEmpty) writer.text() += '{';
    if constexpr (requires { JSONForm<T>::otherKeys; }) {
      if (!writeMap(writer, record.*JSONForm<T>::otherKeys, isEmpty)) return false;
    }
    writer.text() += '}';
    // Each field was written with a comma before it; before the first belongs the brace.
    writer.text()[start] = '{';
    return true;
  }

 private:
  static constexpr const auto& fields = JSONForm<T>::fields;

  /// `,"key":`, and for a text `,"key":"`.
  template <std::size_t index, bool isText>
  static constexpr auto introduction = [] {
    constexpr std::string_view key = std::get<index>(fields).key.text;
    std::array<char, key.size() + (isText ? 5 : 4)> text{',', '"'};
    std::ranges::copy(key, text.begin() + 2);
    text[key.size() + 2] = '"';
    text[key.size() + 3] = ':';
    if (isText) text.back() = '"';
    return text;
  }();

  template <std::size_t index>
  static bool writeField(ValueWriter& writer, const T& record) {
    const auto& field = std::get<index>(fields);
    const auto& member = record.*field.member;
    if constexpr (isOptional<std::remove_cvref_t<decltype(member)>>) {
      return !member || writeMember<index>(writer, *member);
    } else {
      return writeMember<index>(writer, member);
    }
  }

  template <std::size_t index, class Value>
  static bool writeMember(ValueWriter& writer, const Value& value) {
    if constexpr (std::same_as<Value, std::string>) {
      appendTextMember(writer.text(), introduction<index, true>, value);
    } else if constexpr (RawRepresentable<Value>) {
      appendTextMember(writer.text(), introduction<index, true>, rawValue(value));
    } else if constexpr (std::integral<Value>) {
      appendScalarMember(writer.text(), introduction<index, false>, value);
    } else {
      writer.text().append(introduction<index, false>.data(), introduction<index, false>.size());
      return writeValue(writer, value) || writer.within(std::get<index>(fields).key.text);
    }
    return true;
  }
};

template <class T>
bool writeValue(ValueWriter& writer, const T& value) {
  if constexpr (JSONScalar<T>) {
    return writer.write(value);
  } else if constexpr (std::same_as<T, JSONValue>) {
    return writer.writeTree(value);
  } else if constexpr (isOptional<T>) {
    if (value) return writeValue(writer, *value);
    writer.text() += "null";
    return true;
  } else if constexpr (JSONRecord<T>) {
    return RecordWriter<T>::write(writer, value);
  } else if constexpr (JSONWired<T>) {
    return writeValue(writer, JSONForm<T>::toWire(value));
  } else if constexpr (isPairs<T> || isMap<T>) {
    writer.text() += '{';
    if (!writeMap(writer, value, /*isFirst=*/true)) return false;
    writer.text() += '}';
    return true;
  } else if constexpr (isUnordered<T>) {
    return writeElements<typename T::value_type>(writer, ascending(value));
  } else if constexpr (isSet<T> || isList<T>) {
    return writeElements<typename T::value_type>(writer, value);
  } else {
    return writer.write(rawValue(value));
  }
}

}  // namespace tessary::json
