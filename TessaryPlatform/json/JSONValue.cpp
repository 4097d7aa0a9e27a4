#include "TessaryPlatform/json/JSONValue.h"

#include <algorithm>

#include "TessaryPlatform/json/JSONCursor.h"
#include "TessaryPlatform/json/JSONNumbers.h"
#include "TessaryPlatform/json/JSONTokens.h"
#include "TessaryPlatform/json/JSONUniqueKeys.h"

namespace tessary {

namespace {

bool isNested(const JSONValue& value) {
  return (value.array() != nullptr && !value.array()->empty()) ||
         (value.object() != nullptr && !value.object()->empty());
}

}  // namespace

JSONValue::JSONValue() noexcept = default;
JSONValue::JSONValue(std::nullptr_t) noexcept {}
JSONValue::JSONValue(double value) noexcept : value_(value) {}
JSONValue::JSONValue(BigInteger value) noexcept : value_(std::move(value)) {}
JSONValue::JSONValue(std::string value) noexcept : value_(std::move(value)) {}
JSONValue::JSONValue(std::string_view value) : value_(std::string(value)) {}
JSONValue::JSONValue(const char* value) : value_(std::string(value)) {}
JSONValue::JSONValue(Array value) noexcept : value_(std::move(value)) {}
JSONValue::JSONValue(Object value) : value_(std::move(value)) {
  uniteRepeatedKeys(*object(), &Member::key, &Member::value);
}

JSONValue::JSONValue(JSONValue&& other) noexcept = default;

JSONValue& JSONValue::operator=(JSONValue&& other) noexcept {
  // Through a third value: `other` may stand inside this one.
  JSONValue taken(std::move(other));
  value_.swap(taken.value_);
  return *this;
}

JSONValue& JSONValue::operator=(const JSONValue& other) {
  return *this = JSONValue(other);
}

JSONValue::JSONValue(const JSONValue& other) {
  struct Copy {
    const JSONValue* from;
    JSONValue* to;
  };
  std::vector<Copy> pending = {{&other, this}};
  while (!pending.empty()) {
    const auto [from, to] = pending.back();
    pending.pop_back();
    if (const Array* elements = from->array()) {
      Array& copies = to->value_.emplace<Array>(elements->size());
      for (std::size_t index = 0; index < copies.size(); ++index)
        pending.push_back({&(*elements)[index], &copies[index]});
    } else if (const Object* members = from->object()) {
      Object& copies = to->value_.emplace<Object>(members->size());
      for (std::size_t index = 0; index < copies.size(); ++index) {
        copies[index].key = (*members)[index].key;
        pending.push_back({&(*members)[index].value, &copies[index].value});
      }
    } else {
      to->value_ = from->value_;
    }
  }
}

JSONValue::~JSONValue() {
  if (!isNested(*this)) return;
  // Nested values are taken out before their parent goes, so that no destructor meets another container with contents.
  std::vector<JSONValue> pending;
  const auto takeNested = [&pending](JSONValue& value) {
    if (Array* elements = value.array()) {
      for (JSONValue& element : *elements) {
        if (isNested(element)) pending.push_back(std::move(element));
      }
    } else if (Object* members = value.object()) {
      for (Member& member : *members) {
        if (isNested(member.value)) pending.push_back(std::move(member.value));
      }
    }
  };
  takeNested(*this);
  while (!pending.empty()) {
    JSONValue value = std::move(pending.back());
    pending.pop_back();
    takeNested(value);
    // What is left in it is flat.
    value.value_.emplace<std::monostate>();
  }
}

JSONKind JSONValue::kind() const noexcept {
  constexpr JSONKind kinds[] = {JSONKind::null,   JSONKind::boolean, JSONKind::number, JSONKind::number,
                                JSONKind::number, JSONKind::text,    JSONKind::array,  JSONKind::object};
  return kinds[value_.index()];
}

std::optional<double> JSONValue::number() const {
  if (const std::int64_t* whole = integer()) return static_cast<double>(*whole);
  if (const BigInteger* big = bigInteger()) return jsonDouble(big->digits);
  if (const double* real = floatingPoint()) return *real;
  return std::nullopt;
}

const JSONValue* JSONValue::find(std::string_view key) const noexcept {
  if (object() == nullptr) return nullptr;
  const auto found = std::ranges::find(*object(), key, &Member::key);
  return found == object()->end() ? nullptr : &found->value;
}

void JSONValue::set(std::string_view key, JSONValue value) {
  // `key` may be the text that this value is, which ends here, so it is copied first.
  if (object() == nullptr) {
    *this = Object{{std::string(key), std::move(value)}};
    return;
  }
  const auto found = std::ranges::find(*object(), key, &Member::key);
  if (found == object()->end()) {
    object()->push_back({std::string(key), std::move(value)});
  } else {
    found->value = std::move(value);
  }
}

bool JSONValue::operator==(const JSONValue& other) const {
  std::vector<std::pair<const JSONValue*, const JSONValue*>> pending = {{this, &other}};
  while (!pending.empty()) {
    const auto [one, two] = pending.back();
    pending.pop_back();
    if (one->value_.index() != two->value_.index()) return false;
    if (const Array* elements = one->array()) {
      const Array& others = *two->array();
      if (elements->size() != others.size()) return false;
      for (std::size_t index = 0; index < others.size(); ++index)
        pending.emplace_back(&(*elements)[index], &others[index]);
    } else if (const Object* members = one->object()) {
      const Object& others = *two->object();
      if (!std::ranges::equal(*members, others, {}, &Member::key, &Member::key)) return false;
      for (std::size_t index = 0; index < others.size(); ++index) {
        pending.emplace_back(&(*members)[index].value, &others[index].value);
      }
    } else if (one->value_ != two->value_) {
      return false;
    }
  }
  return true;
}

std::expected<JSONValue, JSONSyntaxError> JSONValue::parse(std::string_view text) {
  if (const auto tokens = JSONTokens::indexed(text)) {
    JSONCursor cursor(*tokens);
    JSONValue value;
    if (read(cursor, value) && cursor.finish()) return value;
  }
  // The slow road refuses what the fast one refuses, so there is a fault to be found.
  return std::unexpected(findJSONFault(text).value_or(JSONSyntaxError{}));
}

}  // namespace tessary
