#include "TessaryDomain/capture/ResolvedCapturePolicy.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryPlatform/json/JSONValue.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {
namespace {

/// Python's view of the truth of a value. `value` is null where there is none.
bool isTruthy(const JSONValue* value) {
  if (value == nullptr) return false;
  switch (value->kind()) {
    case JSONKind::null:
      return false;
    case JSONKind::boolean:
      return *value->boolean();
    case JSONKind::number:
      // A number beyond 64 bits is not zero, and an undefined one, as in Python, is true.
      return value->number() != 0.0;
    case JSONKind::text:
      return !value->string()->empty();
    case JSONKind::array:
      return !value->array()->empty();
    case JSONKind::object:
      return !value->object()->empty();
  }
  std::unreachable();
}

std::optional<double> number(const JSONValue* value) {
  return value == nullptr ? std::nullopt : value->number();
}

/// The members of `json[key]`; none where it is no object.
const JSONValue::Object& members(const JSONValue& json, std::string_view key) {
  static const JSONValue::Object none;
  const JSONValue* value = json.find(key);
  const JSONValue::Object* object = value == nullptr ? nullptr : value->object();
  return object == nullptr ? none : *object;
}

std::map<std::string, double, std::less<>> times(const JSONValue& json, std::string_view key) {
  std::map<std::string, double, std::less<>> times;
  for (const auto& [name, value] : members(json, key)) {
    if (const std::optional<double> time = value.number()) times.emplace(name, *time);
  }
  return times;
}

}  // namespace

ResolvedCapturePolicy ResolvedCapturePolicy::fromJSON(const JSONValue& json) {
  ResolvedCapturePolicy policy;
  policy.enabled = isTruthy(json.find("enabled"));
  policy.includeExtensionless = isTruthy(json.find("includeExtensionless"));
  policy.includeUnlistedExtensions = isTruthy(json.find("includeUnlistedExtensions"));
  policy.includeAssistantResponses = isTruthy(json.find("includeAssistantResponses"));
  policy.captureTitleChanges = isTruthy(json.find("capture_title_changes"));
  policy.captureLocationChanges = isTruthy(json.find("capture_location_changes"));
  policy.resumeSince = number(json.find("resumeSince"));
  policy.extensionlessResumeSince = number(json.find("extensionlessResumeSince"));
  policy.unlistedResumeSince = number(json.find("unlistedResumeSince"));
  policy.assistantResponsesResumeSince = number(json.find("assistantResponsesResumeSince"));
  for (const auto& [name, value] : members(json, "types")) {
    if (const auto category = fromRawValue<ArtifactCategory>(name)) policy.types.emplace(*category, isTruthy(&value));
  }
  if (const JSONValue* extensions = json.find("extensions"); extensions != nullptr && extensions->array() != nullptr) {
    for (const JSONValue& extension : *extensions->array()) {
      if (const std::string* text = extension.string()) policy.extensions.insert(*text);
    }
  }
  for (const auto& [name, value] : members(json, "typeResumeSince")) {
    const auto category = fromRawValue<ArtifactCategory>(name);
    const std::optional<double> time = value.number();
    if (category && time) policy.typeResumeSince.emplace(*category, *time);
  }
  policy.extensionResumeSince = times(json, "extensionResumeSince");
  for (const auto& [name, value] : members(json, "outputs"))
    policy.outputs.emplace(name, isTruthy(&value));
  policy.outputResumeSince = times(json, "outputResumeSince");
  return policy;
}

}  // namespace tessary
