#include "TessaryRenderer/ScriptContext.h"

namespace tessary {

static_assert(sizeof(JSChar) == sizeof(char16_t));

EngineText::EngineText(std::u16string_view units)
    : text_(JSStringCreateWithCharacters(reinterpret_cast<const JSChar*>(units.data()), units.size())) {}

std::u16string_view EngineText::units() const {
  if (text_ == nullptr) return {};
  return {reinterpret_cast<const char16_t*>(JSStringGetCharactersPtr(text_)), JSStringGetLength(text_)};
}

std::optional<ScriptContext> ScriptContext::make() {
  const JSGlobalContextRef context = JSGlobalContextCreate(nullptr);
  if (context == nullptr) return std::nullopt;
  return ScriptContext(context);
}

ScriptContext::~ScriptContext() {
  if (context_ != nullptr) JSGlobalContextRelease(context_);
}

bool ScriptContext::note(JSValueRef exception) {
  if (exception == nullptr) return false;
  hasException_ = true;
  return true;
}

void ScriptContext::loadLazyParts() {
  // Only a date in local time makes the engine look for the zone; formatting one with a name takes its tables too.
  JSValueRef exception = nullptr;
  const JSObjectRef date = JSObjectMakeDate(context_, 0, nullptr, &exception);
  if (date != nullptr) EngineText(JSValueToStringCopy(context_, date, &exception));
}

void ScriptContext::evaluate(std::u16string_view script, std::u16string_view sourceURL) {
  const EngineText source(script);
  const EngineText location(sourceURL);
  JSValueRef exception = nullptr;
  JSEvaluateScript(context_, source.handle(), nullptr, sourceURL.empty() ? nullptr : location.handle(), 1, &exception);
  note(exception);
}

JSValueRef ScriptContext::global(const char* name) {
  const EngineText key(name);
  JSValueRef exception = nullptr;
  const JSValueRef value = JSObjectGetProperty(context_, JSContextGetGlobalObject(context_), key.handle(), &exception);
  return note(exception) ? JSValueMakeUndefined(context_) : value;
}

JSValueRef ScriptContext::invoke(JSValueRef object, const char* name, std::initializer_list<JSValueRef> arguments) {
  JSValueRef exception = nullptr;
  const JSObjectRef receiver = JSValueToObject(context_, object, &exception);
  if (note(exception)) return nullptr;
  const EngineText key(name);
  const JSValueRef member = JSObjectGetProperty(context_, receiver, key.handle(), &exception);
  if (note(exception)) return nullptr;
  const JSObjectRef function = JSValueToObject(context_, member, &exception);
  if (note(exception)) return nullptr;
  const JSValueRef result =
      JSObjectCallAsFunction(context_, function, receiver, arguments.size(), arguments.begin(), &exception);
  return note(exception) ? nullptr : result;
}

JSValueRef ScriptContext::makeText(std::u16string_view text) const {
  return JSValueMakeString(context_, EngineText(text).handle());
}

}  // namespace tessary
