#include "TessaryRenderer/ResultConversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "TessaryRenderer/JSONText.h"
#include "TessaryRenderer/RendererLimits.h"

namespace tessary {

namespace {

/// The longest list whose text can stay within the limit: n elements take at least n bytes, n - 1 commas and two
/// brackets.
constexpr double longestList = (RendererLimits::resultBytes - 1) / 2;

constexpr double largestExactWhole = 9'007'199'254'740'992;

/// Built-in classes that keep their content out of their members, told by the prototype that an instance is born with.
/// Dates and typed arrays have checks of their own in the engine's interface, which a changed prototype does not
/// mislead.
constexpr const char* opaqueClasses[] = {"ArrayBuffer", "BigInt",  "Boolean", "DataView", "Map",
                                         "Number",      "Promise", "RegExp",  "Set",      "SharedArrayBuffer",
                                         "String",      "Symbol",  "WeakMap", "WeakRef",  "WeakSet"};

/// A member of a member of the global object of a context in which no script has run yet; undefined where the engine
/// lacks it.
JSValueRef intrinsic(JSGlobalContextRef context, const char* holder, const char* member) {
  const EngineText holderName(holder);
  const EngineText memberName(member);
  const JSValueRef object =
      JSObjectGetProperty(context, JSContextGetGlobalObject(context), holderName.handle(), nullptr);
  if (object == nullptr || !JSValueIsObject(context, object)) return JSValueMakeUndefined(context);
  return JSObjectGetProperty(context, asObject(object), memberName.handle(), nullptr);
}

}  // namespace

ResultConversion::ResultConversion(const ScriptContext& context)
    : context_(context.handle()),
      keys_(context_, intrinsic(context.handle(), "Object", "keys")),
      isArray_(context_, intrinsic(context.handle(), "Array", "isArray")),
      plainPrototype_(context_, intrinsic(context.handle(), "Object", "prototype")) {
  opaquePrototypes_.reserve(std::size(opaqueClasses));
  for (const char* name : opaqueClasses)
    opaquePrototypes_.emplace_back(context_, intrinsic(context.handle(), name, "prototype"));
}

/// One reading. A result is walked depth first with a stack of its own, and its text grows with the walk. Two things
/// can happen to it: something throws, which ends the reading at once, or something is found that dooms the result, and
/// then the text is dropped and the walk goes on for the sake of what else may throw.
class ResultConversion::Reader {
 public:
  explicit Reader(const ResultConversion& conversion) : conversion_(conversion), context_(conversion.context_) {}

  std::expected<std::string, RendererFailure> read(JSValueRef result);

 private:
  /// An object or a list that has been begun and not ended.
  struct Level {
    HeldValue container;
    JSObjectRef object;
    /// How many members or elements there are, and how many of them have been read.
    std::size_t count;
    std::size_t next = 0;
    /// Of an object: its keys as the engine lists them, and the order in which to take them.
    std::optional<HeldValue> keys = std::nullopt;
    std::vector<std::pair<std::u16string, unsigned>> order = {};
    bool hasWritten = false;

    [[nodiscard]] bool isList() const { return !keys.has_value(); }
  };

  void open(JSValueRef value);
  void openList(JSValueRef value, JSObjectRef object);
  void openObject(JSValueRef value, JSObjectRef object);
  void orderKeys(Level& level);
  void close();
  void readElement(Level& level);
  void readMember(Level& level);
  void readValue(JSValueRef value);
  void readNumber(JSValueRef value);
  void readText(JSValueRef value);

  [[nodiscard]] bool isLeftOut(JSValueRef value) const;
  [[nodiscard]] bool isList(JSValueRef value);
  [[nodiscard]] bool isOpaque(JSValueRef value) const;
  [[nodiscard]] bool hasPrototype(JSValueRef value, const HeldValue& prototype) const;
  [[nodiscard]] bool isOpen(JSObjectRef object) const;
  [[nodiscard]] double lengthOf(JSObjectRef object);
  [[nodiscard]] std::size_t room() const { return RendererLimits::resultBytes - text_.size(); }
  [[nodiscard]] bool isDoomed() const { return doom_.has_value(); }

  void write(std::string_view ascii);
  void writeText(std::u16string_view units);
  void separate(Level& level);
  void doom(RendererFailure reason);

  const ResultConversion& conversion_;
  const JSContextRef context_;
  const EngineText lengthName_{"length"};
  std::vector<Level> levels_;
  std::string text_;
  /// What the engine's calls report a throw in; not null ends the reading.
  JSValueRef exception_ = nullptr;
  std::optional<RendererFailure> doom_;
  /// Objects met since the result was doomed. Without it an object that stands twice in each of thirty levels would be
  /// read a thousand million times.
  std::unordered_set<JSObjectRef> met_;
};

std::expected<std::string, RendererFailure> ResultConversion::convert(JSValueRef result) const {
  return Reader(*this).read(result);
}

std::expected<std::string, RendererFailure> ResultConversion::Reader::read(JSValueRef result) {
  if (!JSValueIsObject(context_, result) || isLeftOut(result) || isList(result))
    return std::unexpected(RendererFailures::unsafeDocument);
  open(result);
  while (exception_ == nullptr && !levels_.empty()) {
    Level& level = levels_.back();
    if (level.next == level.count) {
      close();
    } else if (level.isList()) {
      readElement(level);
    } else {
      readMember(level);
    }
  }
  if (exception_ != nullptr) return std::unexpected(RendererFailures::unsafeDocument);
  if (isDoomed()) return std::unexpected(*doom_);
  return std::move(text_);
}

void ResultConversion::Reader::open(JSValueRef value) {
  const JSObjectRef object = asObject(value);
  if (isOpaque(value) || isOpen(object) || levels_.size() == RendererLimits::resultDepth)
    return doom(RendererFailures::other);
  if (isDoomed() && !met_.insert(object).second) return;
  const bool list = isList(value);
  if (exception_ != nullptr) return;
  return list ? openList(value, object) : openObject(value, object);
}

void ResultConversion::Reader::openList(JSValueRef value, JSObjectRef object) {
  const double length = lengthOf(object);
  if (exception_ != nullptr) return;
  if (length > longestList) return doom(RendererFailures::resultTooLarge);
  levels_.push_back({.container = {context_, value}, .object = object, .count = static_cast<std::size_t>(length)});
  write("[");
}

void ResultConversion::Reader::openObject(JSValueRef value, JSObjectRef object) {
  const JSObjectRef function = asObject(conversion_.keys_.get());
  const JSValueRef keys = JSObjectCallAsFunction(context_, function, nullptr, 1, &value, &exception_);
  if (exception_ != nullptr) return;
  const double count = lengthOf(asObject(keys));
  if (exception_ != nullptr) return;
  levels_.push_back({.container = {context_, value},
                     .object = object,
                     .count = static_cast<std::size_t>(count),
                     .keys = HeldValue(context_, keys)});
  orderKeys(levels_.back());
  write("{");
}

void ResultConversion::Reader::orderKeys(Level& level) {
  if (isDoomed()) return;
  const JSObjectRef keys = asObject(level.keys->get());
  level.order.reserve(level.count);
  for (unsigned index = 0; index < level.count; ++index) {
    const JSValueRef key = JSObjectGetPropertyAtIndex(context_, keys, index, &exception_);
    const EngineText name(JSValueToStringCopy(context_, key, &exception_));
    level.order.emplace_back(JSONText::withoutLoneSurrogates(name.units()), index);
  }
  std::ranges::sort(level.order, [](const auto& left, const auto& right) {
    return JSONText::isOrderedByScalar(left.first, right.first);
  });
  const auto sameName = [](const auto& left, const auto& right) { return left.first == right.first; };
  if (std::ranges::adjacent_find(level.order, sameName) != level.order.end()) doom(RendererFailures::other);
}

void ResultConversion::Reader::close() {
  write(levels_.back().isList() ? "]" : "}");
  levels_.pop_back();
}

void ResultConversion::Reader::readElement(Level& level) {
  const auto index = static_cast<unsigned>(level.next++);
  const JSValueRef value = JSObjectGetPropertyAtIndex(context_, level.object, index, &exception_);
  if (exception_ != nullptr) return;
  separate(level);
  if (isLeftOut(value)) return write("null");
  readValue(value);
}

void ResultConversion::Reader::readMember(Level& level) {
  const std::size_t place = level.next++;
  const unsigned index = level.order.empty() ? static_cast<unsigned>(place) : level.order[place].second;
  const JSObjectRef keys = asObject(level.keys->get());
  const JSValueRef key = JSObjectGetPropertyAtIndex(context_, keys, index, &exception_);
  if (exception_ != nullptr) return;
  const JSValueRef value = JSObjectGetPropertyForKey(context_, level.object, key, &exception_);
  if (exception_ != nullptr || isLeftOut(value)) return;
  separate(level);
  if (!isDoomed()) writeText(level.order[place].first);
  write(":");
  readValue(value);
}

void ResultConversion::Reader::readValue(JSValueRef value) {
  switch (JSValueGetType(context_, value)) {
    case kJSTypeNull:
      return write("null");
    case kJSTypeBoolean:
      return write(JSValueToBoolean(context_, value) ? "true" : "false");
    case kJSTypeNumber:
      return readNumber(value);
    case kJSTypeString:
      return readText(value);
    case kJSTypeObject:
      return open(value);
    case kJSTypeUndefined:
    case kJSTypeSymbol:
    case kJSTypeBigInt:
      break;
  }
  doom(RendererFailures::other);
}

void ResultConversion::Reader::readNumber(JSValueRef value) {
  const double number = JSValueToNumber(context_, value, &exception_);
  if (!std::isfinite(number)) return doom(RendererFailures::other);
  if (isDoomed()) return;
  // OPTIMIZATION: whole numbers up to 2^53 have the same form everywhere, and asking the engine takes four times as
  // long.
  if (std::abs(number) <= largestExactWhole && number == std::trunc(number)) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), static_cast<std::int64_t>(number)).ptr;
    return write({digits.begin(), end});
  }
  const EngineText form(JSValueToStringCopy(context_, value, &exception_));
  std::string ascii;
  for (const char16_t unit : form.units())
    ascii.push_back(static_cast<char>(unit));
  write(ascii);
}

void ResultConversion::Reader::readText(JSValueRef value) {
  if (isDoomed()) return;
  // Its length is asked for first, since a text that is too long may not even stand in memory yet: the engine joins the
  // pieces of a text when they are first looked at.
  const double length = lengthOf(JSValueToObject(context_, value, &exception_));
  if (exception_ != nullptr) return;
  if (length > static_cast<double>(room())) return doom(RendererFailures::resultTooLarge);
  const EngineText text(JSValueToStringCopy(context_, value, &exception_));
  if (exception_ == nullptr) writeText(text.units());
}

/// True for what an object does not list and a list shows as null.
bool ResultConversion::Reader::isLeftOut(JSValueRef value) const {
  const JSType type = JSValueGetType(context_, value);
  if (type == kJSTypeUndefined || type == kJSTypeSymbol) return true;
  return type == kJSTypeObject && JSObjectIsFunction(context_, asObject(value));
}

/// ECMAScript's `Array.isArray`. The engine's own question does not see through a Proxy, and is asked first because it
/// is the shorter road.
bool ResultConversion::Reader::isList(JSValueRef value) {
  if (JSValueIsArray(context_, value)) return true;
  // OPTIMIZATION: an object that is born plain is no Proxy, whose prototype cannot be had this way.
  if (hasPrototype(value, conversion_.plainPrototype_)) return false;
  const JSObjectRef function = asObject(conversion_.isArray_.get());
  const JSValueRef answer = JSObjectCallAsFunction(context_, function, nullptr, 1, &value, &exception_);
  return exception_ == nullptr && JSValueToBoolean(context_, answer);
}

bool ResultConversion::Reader::isOpaque(JSValueRef value) const {
  if (JSValueIsDate(context_, value)) return true;
  if (JSValueGetTypedArrayType(context_, value, nullptr) != kJSTypedArrayTypeNone) return true;
  if (hasPrototype(value, conversion_.plainPrototype_)) return false;
  return std::ranges::any_of(conversion_.opaquePrototypes_,
                             [&](const HeldValue& opaque) { return hasPrototype(value, opaque); });
}

/// True if `prototype` is what `value` takes its members from; asks no Proxy.
bool ResultConversion::Reader::hasPrototype(JSValueRef value, const HeldValue& prototype) const {
  // One object is one pointer.
  return JSObjectGetPrototype(context_, asObject(value)) == prototype.get();
}

bool ResultConversion::Reader::isOpen(JSObjectRef object) const {
  return std::ranges::any_of(levels_, [object](const Level& level) { return level.object == object; });
}

/// The `length` of a list or a text as a whole number, as ECMAScript's LengthOfArrayLike takes it.
double ResultConversion::Reader::lengthOf(JSObjectRef object) {
  if (exception_ != nullptr) return 0;
  const JSValueRef length = JSObjectGetProperty(context_, object, lengthName_.handle(), &exception_);
  if (exception_ != nullptr) return 0;
  const double number = JSValueToNumber(context_, length, &exception_);
  return number > 0 ? std::trunc(number) : 0;  // Not-a-number is not above 0 either.
}

void ResultConversion::Reader::write(std::string_view ascii) {
  if (isDoomed()) return;
  if (ascii.size() > room()) return doom(RendererFailures::resultTooLarge);
  text_.append(ascii);
}

void ResultConversion::Reader::writeText(std::u16string_view units) {
  if (isDoomed()) return;
  if (!JSONText::append(text_, units, RendererLimits::resultBytes)) doom(RendererFailures::resultTooLarge);
}

void ResultConversion::Reader::separate(Level& level) {
  if (std::exchange(level.hasWritten, true)) write(",");
}

void ResultConversion::Reader::doom(RendererFailure reason) {
  if (!isDoomed() || reason == RendererFailures::other) doom_ = reason;
  text_ = {};
}

}  // namespace tessary
