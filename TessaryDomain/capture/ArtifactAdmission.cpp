#include "TessaryDomain/capture/ArtifactAdmission.h"

#include <algorithm>

#include "TessaryDomain/capture/EventTimes.h"
#include "TessaryDomain/capture/NormalExtension.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary::CaptureRules {
namespace {

/// The latest of the times from which a file is captured; absent while there is none.
class Threshold {
 public:
  void raise(std::optional<double> since) {
    if (since) since_ = since_ ? std::max(*since_, *since) : *since;
  }

  template <class Times, class Key>
  void raise(const Times& times, const Key& key) {
    if (const auto found = times.find(key); found != times.end()) raise(found->second);
  }

  [[nodiscard]] std::optional<double> since() const { return since_; }

 private:
  std::optional<double> since_;
};

/// Whether the policy lets in a file with this extension, "" for none; the time from which it does raises `threshold`.
bool extensionAllowed(std::string_view extension, ArtifactCategory category, const ResolvedCapturePolicy& policy,
                      Threshold& threshold) {
  if (extension.empty()) {
    threshold.raise(policy.extensionlessResumeSince);
    return policy.includeExtensionless;
  }
  const std::optional<std::string> normal = normalizedExtension(extension);
  if (!normal) return false;
  if (policy.extensions.contains(*normal)) {
    threshold.raise(policy.extensionResumeSince, *normal);
    return true;
  }
  threshold.raise(policy.unlistedResumeSince);
  return category == ArtifactCategory::other && policy.includeUnlistedExtensions;
}

}  // namespace

std::optional<std::string> normalizedExtension(std::string_view text) {
  return normalExtension(PythonText::strip(text));
}

bool artifactAllowed(ArtifactCategory category, std::optional<double> modifiedAt,
                     std::optional<std::string_view> extension, const ResolvedCapturePolicy& policy) {
  // What is switched off as a whole.
  if (!policy.enabled) return false;
  const auto type = policy.types.find(category);
  if (type == policy.types.end() || !type->second) return false;
  // The times that concern every file, and those of the category.
  Threshold threshold;
  threshold.raise(policy.resumeSince);
  threshold.raise(policy.typeResumeSince, category);
  // The extension, where it matters.
  if (extension && !extensionAllowed(*extension, category, policy, threshold)) return false;
  // The latest time governs, for files that have one.
  const std::optional<double> since = threshold.since();
  return !since || !modifiedAt || *since <= *modifiedAt;
}

bool assistantResponseAllowed(std::optional<std::string_view> kind, bool hasSourcePath,
                              std::optional<ArtifactCategory> artifactCategory,
                              std::optional<std::string_view> originEvent, std::optional<double> observedAt,
                              const ResolvedCapturePolicy& policy) {
  // What is no answer, or is a file, or a plan.
  if (!kind || *kind != "candidate") return true;
  if (hasSourcePath) return true;
  if (artifactCategory == ArtifactCategory::plans) return true;
  if (originEvent && (*originEvent == "codex-proposed-plan" || originEvent->starts_with("plan-file:"))) return true;
  // The user's choice about the rest, and its time.
  if (!policy.includeAssistantResponses) return false;
  if (!policy.assistantResponsesResumeSince) return true;
  return observedAt && *policy.assistantResponsesResumeSince <= *observedAt;
}

bool subagentArtifactAllowed(std::optional<bool> isSubagent, bool isSubagentResponse, bool response,
                             std::optional<double> observedAt, const CapturePreferences& preferences) {
  // Who made it.
  if (!isSubagent.value_or(response && isSubagentResponse)) return true;
  // The user's choice about answers, then about all that subagents make.
  if (response && preferences.includeSubagentResponses) return true;
  if (!preferences.includeSubagentArtifacts) return false;
  // Its time.
  if (!preferences.subagentArtifactsResumeSince) return true;
  const std::optional<double> since = eventSeconds(*preferences.subagentArtifactsResumeSince);
  return since && observedAt && *since <= *observedAt;
}

}  // namespace tessary::CaptureRules
