// Reading and writing of dynamic JSON: one loop each, with the open containers on a stack of their own.

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONCursor.h"
#include "TessaryPlatform/json/JSONNumbers.h"
#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {

namespace {

JSONValue numberValue(const JSONNumber& number) {
  if (!number.isInteger) return jsonDouble(number.spelling);
  if (const auto integer = jsonInteger(number.spelling)) return *integer;
  return JSONValue::BigInteger{std::string(number.spelling)};
}

/// Reads a value that is neither array nor object.
bool readScalar(JSONCursor& cursor, JSONValue& value, std::string& storage) {
  JSONKind kind{};
  if (!cursor.peekKind(kind)) return false;
  switch (kind) {
    case JSONKind::text: {
      std::string_view text;
      if (!cursor.readText(text, storage)) return false;
      value = text;
      return true;
    }
    case JSONKind::number: {
      JSONNumber number{};
      if (!cursor.readNumber(number)) return false;
      value = numberValue(number);
      return true;
    }
    case JSONKind::boolean: {
      bool boolean = false;
      if (!cursor.readBoolean(boolean)) return false;
      value = boolean;
      return true;
    }
    default:
      value = nullptr;
      return cursor.skipNull();
  }
}

/// A container that is being written, and the next of its elements or members.
struct Open {
  const JSONValue* value;
  /// The members in ascending order, where that is wanted.
  std::vector<const JSONValue::Member*> sorted;
  std::size_t next = 0;

  [[nodiscard]] std::size_t count() const {
    return value->array() != nullptr ? value->array()->size() : value->object()->size();
  }
  [[nodiscard]] const JSONValue::Member& member(std::size_t index) const {
    return sorted.empty() ? (*value->object())[index] : *sorted[index];
  }
};

JSONPath pathTo(const std::vector<Open>& open) {
  JSONPath path;
  for (const Open& container : open) {
    const std::size_t index = container.next - 1;
    if (container.value->array() != nullptr) {
      path.emplace_back(index);
    } else {
      path.emplace_back(container.member(index).key);
    }
  }
  return path;
}

/// Appends a value that is neither array nor object. False for a number without a form.
bool appendScalar(std::string& json, const JSONValue& value, const JSONStyle& style) {
  if (const std::string* text = value.string()) {
    appendJSONText(json, *text, style.escapes);
  } else if (const std::int64_t* integer = value.integer()) {
    appendJSONInteger(json, *integer);
  } else if (const double* real = value.floatingPoint()) {
    if (!std::isfinite(*real)) return false;
    appendJSONNumber(json, *real, style.numbers);
  } else if (const JSONValue::BigInteger* big = value.bigInteger()) {
    json += big->digits;
  } else if (const bool* boolean = value.boolean()) {
    json += *boolean ? "true" : "false";
  } else {
    json += "null";
  }
  return true;
}

Open opened(const JSONValue& value, const JSONStyle& style) {
  Open open{&value, {}};
  if (value.object() != nullptr && style.keys == JSONStyle::Keys::ascending) {
    for (const JSONValue::Member& member : *value.object())
      open.sorted.push_back(&member);
    // UTF-8 sorts by bytes as its scalars sort.
    std::ranges::sort(open.sorted, {}, [](const auto* member) -> const std::string& { return member->key; });
  }
  return open;
}

}  // namespace

bool JSONValue::read(JSONCursor& cursor, JSONValue& value) {
  std::string storage;
  // The containers that are open. A container stands still while one inside it is open, since it grows only between.
  std::vector<JSONValue*> open;
  JSONValue* next = &value;
  while (true) {
    // A value is due, at `next`.
    const char opening = cursor.peek();
    const bool isObject = opening == '{';
    bool isOpened = false;
    if (isObject || opening == '[') {
      if (!cursor.enter()) return false;
      if (isObject) {
        next->value_.emplace<Object>();
      } else {
        next->value_.emplace<Array>();
      }
      isOpened = !cursor.leaveIfEmpty(isObject ? '}' : ']');
      if (isOpened) open.push_back(next);
    } else if (!readScalar(cursor, *next, storage)) {
      return false;
    }
    // A value has ended, and with it perhaps the containers that it was the last of.
    while (!isOpened && !open.empty()) {
      bool more = false;
      JSONValue& container = *open.back();
      if (!cursor.continueOrLeave(container.object() != nullptr ? '}' : ']', more)) return false;
      if (more) break;
      if (Object* members = container.object()) container = JSONValue(std::move(*members));
      open.pop_back();
    }
    if (open.empty()) return true;
    if (Array* elements = open.back()->array()) {
      next = &elements->emplace_back();
    } else {
      std::string_view key;
      if (!cursor.readKey(key, storage)) return false;
      next = &open.back()->object()->emplace_back(std::string(key), JSONValue()).value;
    }
  }
}

std::expected<std::string, JSONEncodingError> JSONValue::text(const JSONStyle& style) const {
  std::string json;
  if (const auto written = append(json, style); !written) return std::unexpected(written.error());
  return json;
}

std::expected<void, JSONEncodingError> JSONValue::append(std::string& json, const JSONStyle& style) const {
  const bool isSpaced = style.separators == JSONStyle::Separators::spaced;
  std::vector<Open> open;
  const JSONValue* next = this;
  while (true) {
    if (next->array() != nullptr || next->object() != nullptr) {
      json += next->array() != nullptr ? '[' : '{';
      open.push_back(opened(*next, style));
    } else if (!tessary::appendScalar(json, *next, style)) {
      return std::unexpected(JSONEncodingError{JSONEncodingError::Kind::nonFiniteNumber, pathTo(open)});
    }
    while (!open.empty() && open.back().next == open.back().count()) {
      json += open.back().value->array() != nullptr ? ']' : '}';
      open.pop_back();
    }
    if (open.empty()) return {};
    Open& container = open.back();
    if (container.next > 0) json += isSpaced ? ", " : ",";
    const std::size_t index = container.next++;
    if (container.value->array() != nullptr) {
      next = &(*container.value->array())[index];
    } else {
      const Member& member = container.member(index);
      appendJSONText(json, member.key, style.escapes);
      json += isSpaced ? ": " : ":";
      next = &member.value;
    }
  }
}

}  // namespace tessary
