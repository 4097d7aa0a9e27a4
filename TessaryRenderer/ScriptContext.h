#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

#include <JavaScriptCore/JavaScript.h>

namespace tessary {

/// A script context of its own, with nothing of the host in it.
///
/// The operations are those of the engine's Objective-C binding (`JSContext`, `JSValue`) under the C interface: an
/// exception does not interrupt the caller, but is held by the context until it is asked for, and is never cleared.
///
/// Values that an operation returns live as long as something the engine can see holds them: a variable on the stack
/// does, memory from the heap does not, and needs `HeldValue`.
class ScriptContext {
 public:
  /// Absent where the engine has no context to give.
  [[nodiscard]] static std::optional<ScriptContext> make();

  ScriptContext(ScriptContext&& other) noexcept
      : context_(std::exchange(other.context_, nullptr)), hasException_(other.hasException_) {}
  ScriptContext& operator=(ScriptContext&& other) noexcept {
    std::swap(context_, other.context_);
    std::swap(hasException_, other.hasException_);
    return *this;
  }
  ScriptContext(const ScriptContext&) = delete;
  ScriptContext& operator=(const ScriptContext&) = delete;
  ~ScriptContext();

  /// Makes the engine load what it would otherwise load at first use from files, which a sandbox will forbid: the local
  /// time zone. Changes nothing that a script could see. Call before `evaluate`.
  void loadLazyParts();

  /// Runs `script` as a classic script, at the top level. Its value is dropped.
  /// - `sourceURL`: what the engine calls the script in a stack trace; empty for none.
  void evaluate(std::u16string_view script, std::u16string_view sourceURL = {});

  /// True once anything that this context ran has thrown.
  [[nodiscard]] bool hasException() const { return hasException_; }

  /// The member `name` of the global object; undefined where there is none or where reading it throws.
  [[nodiscard]] JSValueRef global(const char* name);

  /// Calls the method `name` of `object`, as `object.name(arguments...)` would. Null where there is no result:
  /// something threw, or the member is not a function.
  [[nodiscard]] JSValueRef invoke(JSValueRef object, const char* name, std::initializer_list<JSValueRef> arguments);

  /// A text of the script's world.
  [[nodiscard]] JSValueRef makeText(std::u16string_view text) const;

  /// The engine's own handle.
  [[nodiscard]] JSGlobalContextRef handle() const { return context_; }

 private:
  explicit ScriptContext(JSGlobalContextRef context) : context_(context) {}

  /// Takes note of an exception, and says whether there was one.
  bool note(JSValueRef exception);

  JSGlobalContextRef context_;
  bool hasException_ = false;
};

/// The same value as an object; it must be one. In the C interface both are the same pointer.
inline JSObjectRef asObject(JSValueRef value) {
  return const_cast<JSObjectRef>(value);
}

/// A text in the engine's form, released with its block. The units are taken as they are, lone surrogates too.
class EngineText {
 public:
  explicit EngineText(std::u16string_view units);
  /// - `ascii`: a name of the host's own.
  explicit EngineText(const char* ascii) : text_(JSStringCreateWithUTF8CString(ascii)) {}
  /// Takes over a text that the engine returned; null is allowed.
  explicit EngineText(JSStringRef owned) : text_(owned) {}
  EngineText(const EngineText&) = delete;
  EngineText& operator=(const EngineText&) = delete;
  ~EngineText() {
    if (text_ != nullptr) JSStringRelease(text_);
  }

  [[nodiscard]] JSStringRef handle() const { return text_; }
  /// The UTF-16 units; empty for null. Valid as long as this object.
  [[nodiscard]] std::u16string_view units() const;

 private:
  JSStringRef text_;
};

/// A value kept alive from memory that the engine does not look into.
class HeldValue {
 public:
  HeldValue(JSContextRef context, JSValueRef value) : context_(context), value_(value) {
    JSValueProtect(context, value);
  }
  HeldValue(HeldValue&& other) noexcept : context_(other.context_), value_(other.value_) { other.value_ = nullptr; }
  HeldValue(const HeldValue&) = delete;
  HeldValue& operator=(const HeldValue&) = delete;
  HeldValue& operator=(HeldValue&&) = delete;
  ~HeldValue() {
    if (value_ != nullptr) JSValueUnprotect(context_, value_);
  }

  [[nodiscard]] JSValueRef get() const { return value_; }

 private:
  JSContextRef context_;
  JSValueRef value_;
};

}  // namespace tessary
