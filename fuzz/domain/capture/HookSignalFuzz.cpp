// Any bytes as a hook event of every agent, and as the texts of one, on their way into a signal.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/CaptureSignal.h"
#include "TessaryDomain/capture/HookNormalizer.h"
#include "TessaryDomain/capture/PythonText.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

void checkText(const std::string& json, const JSONValue& value) {
  require(std::ranges::all_of(json, [](char byte) { return byte >= 0x20 && byte < 0x7F; }));
  const auto again = JSONValue::parse(json);
  if (!again) {
    require(again.error().reason == JSONSyntaxError::Reason::nestedTooDeep);
    return;
  }
  require(CaptureSignal::pythonJSON(*again, false) == json);
  require(CaptureSignal::pythonJSON(*again, true) == CaptureSignal::pythonJSON(value, true));
}

void checkSignal(std::string_view source, const JSONValue& payload) {
  for (const bool includesResponses : {false, true}) {
    const auto signal = CaptureSignal::encode(source, payload, includesResponses, false);
    const auto sorted = CaptureSignal::encode(source, payload, includesResponses, true);
    require(signal.has_value() == sorted.has_value());
    if (!signal) continue;
    require(signal->size() <= CaptureSignal::maximumBytes && signal->size() == sorted->size());
    if (const auto value = JSONValue::parse(*signal)) {
      checkText(*signal, *value);
      require(CaptureSignal::pythonJSON(*value, true) == sorted);
    }
  }
}

void checkNormal(const JSONValue& normal) {
  for (const std::string_view key : {"hook_event_name", "tool_name", "cwd"})
    require(normal.find(key)->string() != nullptr);
  for (const std::string_view key : {"tool_input", "tool_response"})
    require(normal.find(key)->object() != nullptr);
  for (const std::string_view key : {"session_id", "last_assistant_message"})
    require(normal.find(key)->isNull() || normal.find(key)->string() != nullptr);
  require(normal.find("cwd")->string()->starts_with('/'));
  require(std::ranges::count(HookNormalizer::lifecycle, *normal.find("hook_event_name")->string()) == 1);
}

void checkEvent(const JSONValue& event) {
  checkSignal("claude", event);
  for (const auto& [agent, names] : HookNormalizer::events) {
    const auto normal = HookNormalizer::normalize(agent, event);
    if (!normal) continue;
    checkNormal(*normal);
    checkSignal(agent, *normal);
    // The normal form is Claude's shape, so it is taken as it is. A turn is known in no agent of that shape.
    if (normal->find("turn_id") == nullptr) require(HookNormalizer::normalize("kimi", *normal) == normal);
  }
}

/// The bytes as text in every place, ill-formed as they may be.
void checkTexts(std::string_view text) {
  const JSONValue::Object files = {{"file_path", text}, {"patch", text}, {"input", text}, {std::string(text), text}};
  const JSONValue event = JSONValue::Object{{"hook_event_name", "PostToolUse"},
                                            {"cwd", "/" + std::string(text)},
                                            {"session_id", text},
                                            {"tool_name", text},
                                            {"tool_input", files},
                                            {"tool_response", text},
                                            {"last_assistant_message", text},
                                            {std::string(text), text}};
  checkSignal("claude", event);
  if (const auto normal = HookNormalizer::normalize("grok-build", event)) checkNormal(*normal);
  const auto signal = CaptureSignal::encode("claude", JSONValue::Object{{"args", files}}, false, false);
  if (!signal) return;
  const JSONValue value = *JSONValue::parse(*signal);
  const JSONValue* patch = value.find("payload")->find("tool_input")->find("patch");
  if (patch == nullptr) return;
  for (const std::string_view line : PythonText::splitlines(*patch->string()))
    require(line.starts_with("*** ") && !line.starts_with("*** Delete File:"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto event = JSONValue::parse(text)) {
    checkEvent(*event);
    if (const auto json = CaptureSignal::pythonJSON(*event, false)) checkText(*json, *event);
  }
  checkTexts(text);
  return 0;
}
