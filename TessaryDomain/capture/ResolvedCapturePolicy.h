#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "TessaryDomain/capture/ArtifactCategory.h"

namespace tessary {

class JSONValue;

/// The user's choice of what is captured, in the form in which the capture rules evaluate it: what `CapturePreferences`
/// says, with times as numbers. `CaptureRules::artifactAllowed` and `CaptureRules::assistantResponseAllowed` say what
/// the fields mean together.
///
/// Every time is in seconds since 1970-01-01T00:00:00Z and the first at which something is captured.
struct ResolvedCapturePolicy {
  /// Nothing at all is captured where this is false.
  bool enabled = false;
  /// A category that is missing is off.
  std::map<ArtifactCategory, bool> types{};
  /// The extensions that are listed, in their normal form: lower case, without dot.
  std::set<std::string, std::less<>> extensions{};
  /// Files without extension.
  bool includeExtensionless = false;
  /// Files of the category `other` whose extension is not listed.
  bool includeUnlistedExtensions = false;
  /// What an agent answered without writing a file.
  bool includeAssistantResponses = false;
  bool captureTitleChanges = false;
  bool captureLocationChanges = false;
  /// For every file.
  std::optional<double> resumeSince{};
  /// For the files of a category.
  std::map<ArtifactCategory, double> typeResumeSince{};
  /// For the files with a listed extension.
  std::map<std::string, double, std::less<>> extensionResumeSince{};
  /// For files without extension.
  std::optional<double> extensionlessResumeSince{};
  /// For files of the category `other` whose extension is not listed.
  std::optional<double> unlistedResumeSince{};
  /// For answers without a file.
  std::optional<double> assistantResponsesResumeSince{};
  /// Keyed by the raw values of `CaptureOutput`; keys that are none are kept.
  std::map<std::string, bool, std::less<>> outputs{};
  /// For what comes through an output, keyed as `outputs`.
  std::map<std::string, double, std::less<>> outputResumeSince{};

  bool operator==(const ResolvedCapturePolicy&) const = default;

  /// Reads the object that the capture engine is given: the keys are the names of the fields, except
  /// "capture_title_changes" and "capture_location_changes".
  ///
  /// Never fails. A switch is on where Python would take its value for true: "no", 0.5 and [false] are on; null, 0,
  /// -0.0, "", [] and {} are off, as is a key that is missing. A time is any number; anything else, a Boolean included,
  /// is no time. A list or map of another type is empty; an extension that is no text, a category that is unknown and a
  /// time that is no number are left out. Nothing is normalised. A `json` that is no object has no keys.
  [[nodiscard]] static ResolvedCapturePolicy fromJSON(const JSONValue& json);
};

}  // namespace tessary
