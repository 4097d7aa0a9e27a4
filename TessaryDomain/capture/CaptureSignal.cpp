#include "TessaryDomain/capture/CaptureSignal.h"

#include <algorithm>
#include <span>
#include <utility>

#include "TessaryDomain/capture/PythonText.h"

namespace tessary::CaptureSignal {

namespace {

/// What every marker of a patch begins with.
constexpr std::string_view patchMark = "*** ";
constexpr std::string_view patchStart = "*** Begin Patch";

/// What the lines of a patch begin with that name files or frame the patch. Lines that delete a file are not followed.
constexpr std::array<std::string_view, 5> fileMarkers = {
    patchStart, "*** End Patch", "*** Add File:", "*** Update File:", "*** Move to:",
};
static_assert(std::ranges::all_of(fileMarkers, [](std::string_view marker) { return marker.starts_with(patchMark); }));

/// True for a line that begins with one of the markers; `line` begins with their mark.
bool namesFile(std::string_view line) {
  return std::ranges::any_of(fileMarkers, [line](std::string_view marker) {
    // OPTIMIZATION: the letter behind the mark leaves at most one to be compared as a whole.
    return line.size() >= marker.size() && line[patchMark.size()] == marker[patchMark.size()] &&
           PythonText::hasPrefix(line, marker);
  });
}

/// The member of `value` named `key` if it is an object; null for everything else.
const JSONValue* objectAt(const JSONValue& value, std::string_view key) {
  const JSONValue* found = value.find(key);
  return found != nullptr && found->object() != nullptr ? found : nullptr;
}

const std::string* textAt(const JSONValue& value, std::string_view key) {
  const JSONValue* found = value.find(key);
  return found == nullptr ? nullptr : found->string();
}

/// The object `value` without all members but those of `keys`, in the order of `keys`.
JSONValue::Object restricted(const JSONValue& value, std::span<const std::string_view> keys) {
  JSONValue::Object kept;
  for (const std::string_view key : keys) {
    if (const JSONValue* found = value.find(key)) kept.push_back({std::string(key), *found});
  }
  return kept;
}

/// The lines of a patch that name files. The lines are those of the whole text, so the first is lost if it is indented.
/// Absent for a text that is no patch.
std::optional<std::string> fileLines(std::string_view text) {
  if (!PythonText::hasPrefix(PythonText::stripStart(text), patchStart)) return std::nullopt;
  std::string kept;
  bool isFirst = true;
  for (const std::string_view line : PythonText::linesBeginning(text, patchMark)) {
    if (!namesFile(line)) continue;
    if (!std::exchange(isFirst, false)) kept += '\n';
    kept += line;
  }
  return kept;
}

/// A tool's input without anything that may be content of a file.
JSONValue::Object reducedInput(const JSONValue& input) {
  JSONValue::Object kept;
  for (const std::string_view key : {"file_path", "path", "absolute_path"}) {
    if (const std::string* path = textAt(input, key)) kept.push_back({std::string(key), *path});
  }
  for (const std::string_view key : {"patch", "input", "command"}) {
    const std::string* text = textAt(input, key);
    if (text == nullptr) continue;
    if (auto lines = fileLines(*text)) kept.push_back({std::string(key), *std::move(lines)});
  }
  return kept;
}

/// What of a hook event passes; nothing but what is named here does.
JSONValue reducedPayload(const JSONValue& payload, bool includesResponses) {
  JSONValue::Object kept = restricted(payload, fields);
  const JSONValue* input = objectAt(payload, "tool_input");
  if (input == nullptr) input = objectAt(payload, "args");
  if (input != nullptr) kept.push_back({"tool_input", reducedInput(*input)});
  if (const JSONValue* response = objectAt(payload, "tool_response")) {
    static constexpr std::array<std::string_view, 2> outcome = {"success", "error"};
    kept.push_back({"tool_response", restricted(*response, outcome)});
  }
  if (includesResponses) {
    for (const std::string_view key : {"last_assistant_message", "assistant_response"}) {
      if (const std::string* text = textAt(payload, key)) kept.push_back({std::string(key), *text});
    }
  }
  return kept;
}

}  // namespace

std::optional<std::string> encode(std::string_view source, const JSONValue& payload, bool includesResponses,
                                  bool sortKeys) {
  if (std::ranges::find(sources, source) == sources.end() || payload.object() == nullptr) return std::nullopt;
  // A list of initial values would be copied, the payload with it.
  JSONValue::Object envelope = {{"version", 1}, {"source", source}};
  envelope.push_back({"payload", reducedPayload(payload, includesResponses)});
  std::optional<std::string> signal = pythonJSON(std::move(envelope), sortKeys);
  if (signal && signal->size() > maximumBytes) return std::nullopt;
  return signal;
}

std::optional<std::string> pythonJSON(const JSONValue& value, bool sortKeys) {
  auto json = value.text({.separators = JSONStyle::Separators::spaced,
                          .escapes = JSONStyle::Escapes::ascii,
                          .numbers = JSONStyle::Numbers::python,
                          .keys = sortKeys ? JSONStyle::Keys::ascending : JSONStyle::Keys::asGiven});
  if (!json) return std::nullopt;
  return *std::move(json);
}

}  // namespace tessary::CaptureSignal
