// How preferences are made from what is said of them, in a file of any version.
//
// A file of the first versions holds `types` alone. Then came `extensions`, with the two switches for what is not
// listed, and last the category of videos, which until then were "other" files. So of what a file does not hold, most
// can be inferred from what it does: whoever had "other" files on without a list was collecting videos, and goes on.

#include <algorithm>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryDomain/capture/CapturePreferences.h"

namespace tessary {
namespace {

using Choices = CapturePreferences::Choices;
using Times = CapturePreferences::Times;

/// What is said of categories and extensions, and what follows from it. It looks at what was said itself, so that no
/// answer depends on what has been inferred for another field, except where it asks for that.
class Inference {
 public:
  explicit Inference(const Choices& choices) : choices_(choices) {
    if (choices.extensions) listed_ = ExtensionList(*choices.extensions);
  }

  /// False for what is written since there are videos.
  [[nodiscard]] bool areVideosUnsaid() const { return !said(ArtifactCategory::videos); }

  [[nodiscard]] bool isOtherOn() const {
    return said(ArtifactCategory::other)
        .value_or(lists(ArtifactCategory::other) || (areVideosUnsaid() && lists(ArtifactCategory::videos)));
  }

  /// True for a user who collected videos as files whose extension is not listed.
  [[nodiscard]] bool hasLegacyVideos() const {
    if (!areVideosUnsaid() || !isOtherOn()) return false;
    if (choices_.includeUnlistedExtensions) return *choices_.includeUnlistedExtensions;
    return !choices_.extensions && said(ArtifactCategory::other).value_or(false);
  }

  [[nodiscard]] bool isOn(ArtifactCategory category) const {
    switch (category) {
      case ArtifactCategory::documents:
      case ArtifactCategory::plans:
      case ArtifactCategory::images:
        return said(category).value_or(true);
      case ArtifactCategory::pdfs:
      case ArtifactCategory::code:
        return said(category).value_or(lists(category));
      case ArtifactCategory::videos:
        return said(category).value_or(isOtherOn() && (lists(category) || hasLegacyVideos()));
      case ArtifactCategory::other:
        return isOtherOn();
    }
    std::unreachable();
  }

  [[nodiscard]] ExtensionList extensions() const {
    ExtensionList extensions = listed_;
    if (!choices_.extensions) {
      extensions.insert(CapturePreferences::defaultExtensions);
      for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
        if (said(category).value_or(false)) extensions.insert(fileExtensions(category));
      }
    }
    if (hasLegacyVideos()) extensions.insert(fileExtensions(ArtifactCategory::videos));
    return extensions;
  }

  /// Files without extension are code ("Makefile") or other. Before there was a list they were collected with either.
  [[nodiscard]] bool includesExtensionless() const {
    if (choices_.includeExtensionless) return *choices_.includeExtensionless;
    if (choices_.extensions) return false;
    return said(ArtifactCategory::other).value_or(false) || said(ArtifactCategory::code).value_or(false);
  }

  [[nodiscard]] bool includesUnlisted() const {
    if (choices_.includeUnlistedExtensions) return *choices_.includeUnlistedExtensions;
    return !choices_.extensions && said(ArtifactCategory::other).value_or(false);
  }

  /// True if the list that was given holds this extension.
  [[nodiscard]] bool lists(std::string_view extension) const { return listed_.contains(extension); }

 private:
  /// The switch of a category as it was given.
  [[nodiscard]] std::optional<bool> said(ArtifactCategory category) const {
    if (!choices_.types) return std::nullopt;
    for (const auto& [id, isOn] : std::views::reverse(*choices_.types)) {
      if (id == rawValue(category)) return isOn;
    }
    return std::nullopt;
  }

  /// True if the list that was given holds an extension of this category.
  [[nodiscard]] bool lists(ArtifactCategory category) const {
    return std::ranges::any_of(listed_.values(), [category](std::string_view extension) {
      return categoryForExtension(extension) == category;
    });
  }

  const Choices& choices_;
  ExtensionList listed_;
};

template <class T>
T orEmpty(std::optional<T>& given) {
  return given ? std::move(*given) : T();
}

/// Makes the time under `key` the later of `time` and what stands there.
void raise(Times& times, std::string_view key, const std::string& time) {
  std::string& slot = times[std::string(key)];
  slot = std::max(slot, time);
}

/// Videos that were "other" files go on from the moment that held for those.
Times typeTimes(const Inference& inference, Times given) {
  if (!inference.areVideosUnsaid()) return given;
  if (const auto other = given.find(rawValue(ArtifactCategory::other)); other != given.end())
    raise(given, rawValue(ArtifactCategory::videos), other->second);
  return given;
}

/// `unlisted` is the moment that held for files whose extension was not listed, which the videos of old are now.
Times extensionTimes(const Inference& inference, const Times& given, const std::optional<std::string>& unlisted) {
  Times times;
  for (const auto& [text, time] : given) {
    if (const auto extension = CapturePreferences::normalizedExtension(text)) raise(times, *extension, time);
  }
  if (!unlisted || !inference.hasLegacyVideos()) return times;
  for (const std::string_view extension : fileExtensions(ArtifactCategory::videos)) {
    if (!inference.lists(extension)) raise(times, extension, *unlisted);
  }
  return times;
}

}  // namespace

CapturePreferences::CapturePreferences(Choices choices) {
  const Inference inference(choices);
  enabled = choices.enabled.value_or(true);
  for (const ArtifactCategory category : allCases<ArtifactCategory>())
    types[category] = inference.isOn(category);
  extensions = inference.extensions();
  includeExtensionless = inference.includesExtensionless();
  includeUnlistedExtensions = inference.includesUnlisted();
  includeAssistantResponses = choices.includeAssistantResponses.value_or(false);
  assistantResponsesResumeSince = std::move(choices.assistantResponsesResumeSince);
  includeSubagentResponses = choices.includeSubagentResponses.value_or(false);
  includeSubagentArtifacts = choices.includeSubagentArtifacts.value_or(false);
  subagentArtifactsResumeSince = std::move(choices.subagentArtifactsResumeSince);
  documentChangesReviewSince = std::move(choices.documentChangesReviewSince);
  captureTitleChanges = choices.captureTitleChanges.value_or(false);
  captureLocationChanges = choices.captureLocationChanges.value_or(false);
  showsAgentHomeFiles = choices.showsAgentHomeFiles.value_or(false);
  includesUserFiles = choices.includesUserFiles.value_or(false);
  includeTemporaryFolderDocuments = choices.includeTemporaryFolderDocuments.value_or(false);
  excludedDocumentIDs = orEmpty(choices.excludedDocumentIDs);
  resumeSince = std::move(choices.resumeSince);
  typeResumeSince = typeTimes(inference, orEmpty(choices.typeResumeSince));
  extensionResumeSince = extensionTimes(inference, orEmpty(choices.extensionResumeSince), choices.unlistedResumeSince);
  extensionlessResumeSince = std::move(choices.extensionlessResumeSince);
  unlistedResumeSince = std::move(choices.unlistedResumeSince);
  readsSessionRecords = choices.readsSessionRecords;
  agentStores = orEmpty(choices.agentStores);
  outputs = orEmpty(choices.outputs);
  outputResumeSince = orEmpty(choices.outputResumeSince);
}

std::expected<CapturePreferences, JSONRefusal> JSONForm<CapturePreferences>::fromWire(CapturePreferencesKeys keys) {
  const std::optional<std::int64_t> version = keys.collectionDefaultsVersion;
  CapturePreferences preferences(std::move(keys));
  preferences.collectionDefaultsVersion = version;
  return preferences;
}

CapturePreferencesKeys JSONForm<CapturePreferences>::toWire(const CapturePreferences& preferences) {
  CapturePreferencesKeys keys;
  keys.enabled = preferences.enabled;
  auto& types = keys.types.emplace();
  for (const auto& [category, isOn] : preferences.types)
    types.emplace_back(rawValue(category), isOn);
  const ExtensionList::Values& extensions = preferences.extensions.values();
  keys.extensions.emplace(extensions.begin(), extensions.end());
  keys.includeExtensionless = preferences.includeExtensionless;
  keys.includeUnlistedExtensions = preferences.includeUnlistedExtensions;
  keys.includeAssistantResponses = preferences.includeAssistantResponses;
  keys.assistantResponsesResumeSince = preferences.assistantResponsesResumeSince;
  keys.includeSubagentResponses = preferences.includeSubagentResponses;
  keys.includeSubagentArtifacts = preferences.includeSubagentArtifacts;
  keys.subagentArtifactsResumeSince = preferences.subagentArtifactsResumeSince;
  keys.documentChangesReviewSince = preferences.documentChangesReviewSince;
  keys.captureTitleChanges = preferences.captureTitleChanges;
  keys.captureLocationChanges = preferences.captureLocationChanges;
  keys.showsAgentHomeFiles = preferences.showsAgentHomeFiles;
  keys.includesUserFiles = preferences.includesUserFiles;
  keys.includeTemporaryFolderDocuments = preferences.includeTemporaryFolderDocuments;
  keys.excludedDocumentIDs = preferences.excludedDocumentIDs;
  keys.resumeSince = preferences.resumeSince;
  keys.typeResumeSince = preferences.typeResumeSince;
  keys.extensionResumeSince = preferences.extensionResumeSince;
  keys.extensionlessResumeSince = preferences.extensionlessResumeSince;
  keys.unlistedResumeSince = preferences.unlistedResumeSince;
  keys.readsSessionRecords = preferences.readsSessionRecords;
  keys.agentStores = preferences.agentStores;
  keys.outputs = preferences.outputs;
  keys.outputResumeSince = preferences.outputResumeSince;
  keys.collectionDefaultsVersion = preferences.collectionDefaultsVersion;
  return keys;
}

}  // namespace tessary
