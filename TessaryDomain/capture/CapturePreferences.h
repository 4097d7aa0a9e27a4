#pragma once

#include <array>
#include <cstdint>
#include <expected>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/capture/CaptureOutput.h"
#include "TessaryDomain/capture/ExtensionList.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// What the user has chosen to have captured, as the settings file keeps it. `ResolvedCapturePolicy` is the same in the
/// form that the capture rules evaluate.
///
/// The settings have grown: at first there was no list of extensions, and later no category of videos. What a file of
/// those days leaves open is inferred from what it says, and what is built or read is always canonical: every category
/// has its switch, and every list is normalised. So what was written is read as the same value.
///
/// The fields that end in "Since" are ISO 8601 texts, each the first moment from which a class of things is captured:
/// who turns a class on does not want its whole history. They are kept as text, and of two the later is the one that
/// is greater scalar by scalar.
struct CapturePreferences {
  /// What is on and what is off, by key.
  using Switches = std::map<std::string, bool, std::less<>>;
  /// ISO 8601 texts by key.
  using Times = std::map<std::string, std::string, std::less<>>;

  /// The extensions that are listed where the user has chosen nothing.
  static constexpr auto defaultExtensions = std::to_array<std::string_view>(
      {"md", "markdown", "html", "htm", "png", "jpg", "jpeg", "gif", "webp", "heic", "heif"});
  /// The extensions that `applyCollectionDefaults` adds, in this order.
  static constexpr auto officeExtensions =
      std::to_array<std::string_view>({"csv", "doc", "docx", "pdf", "ppt", "pptx", "xls", "xlsx"});
  /// The number of the widening that `applyCollectionDefaults` makes.
  static constexpr std::int64_t currentCollectionDefaults = 1;

  /// Values for the fields of the same names, each absent where nothing is chosen: what a settings file says, and what
  /// preferences are built from.
  struct Choices {
    std::optional<bool> enabled{};
    /// Keyed by the raw values of `ArtifactCategory`; other keys say nothing. Of a key that occurs twice the last
    /// counts.
    std::optional<JSONPairs<bool>> types{};
    /// In any order and any spelling.
    std::optional<std::vector<std::string>> extensions{};
    std::optional<bool> includeExtensionless{};
    std::optional<bool> includeUnlistedExtensions{};
    std::optional<bool> includeAssistantResponses{};
    std::optional<std::string> assistantResponsesResumeSince{};
    std::optional<bool> includeSubagentResponses{};
    std::optional<bool> includeSubagentArtifacts{};
    std::optional<std::string> subagentArtifactsResumeSince{};
    std::optional<std::string> documentChangesReviewSince{};
    std::optional<bool> captureTitleChanges{};
    std::optional<bool> captureLocationChanges{};
    std::optional<bool> showsAgentHomeFiles{};
    std::optional<bool> includesUserFiles{};
    std::optional<bool> includeTemporaryFolderDocuments{};
    std::optional<std::set<std::string>> excludedDocumentIDs{};
    std::optional<std::string> resumeSince{};
    std::optional<Times> typeResumeSince{};
    /// Keys in any spelling.
    std::optional<Times> extensionResumeSince{};
    std::optional<std::string> extensionlessResumeSince{};
    std::optional<std::string> unlistedResumeSince{};
    std::optional<bool> readsSessionRecords{};
    std::optional<Switches> agentStores{};
    std::optional<Switches> outputs{};
    std::optional<Times> outputResumeSince{};
  };

  /// Nothing chosen: documents, plans and images with the default extensions.
  CapturePreferences() : CapturePreferences(Choices()) {}
  /// What `choices` say, and of the rest what follows from them, as for a file with these keys.
  explicit CapturePreferences(Choices choices);

  /// Nothing at all is captured where this is false.
  bool enabled = true;
  /// A category that is missing is on or off as `operator[]` says; preferences that are built or read miss none.
  std::map<ArtifactCategory, bool> types;
  ExtensionList extensions;
  /// Files without extension.
  bool includeExtensionless = false;
  /// Files of the category `other` whose extension is not listed.
  bool includeUnlistedExtensions = false;
  /// What an agent answered without writing a file.
  bool includeAssistantResponses = false;
  /// For answers without a file.
  std::optional<std::string> assistantResponsesResumeSince;
  /// What a subagent answered without writing a file.
  bool includeSubagentResponses = false;
  /// All that subagents make.
  bool includeSubagentArtifacts = false;
  /// For what subagents make.
  std::optional<std::string> subagentArtifactsResumeSince;
  /// The moment from which changes of documents are put up for review; no rule of capture looks at it.
  std::optional<std::string> documentChangesReviewSince;
  bool captureTitleChanges = false;
  bool captureLocationChanges = false;
  /// The shelf shows the files that agents keep in their own homes.
  bool showsAgentHomeFiles = false;
  bool includesUserFiles = false;
  /// Documents in folders for temporary files.
  bool includeTemporaryFolderDocuments = false;
  /// The documents that the user never wants to see, by their identity.
  std::set<std::string> excludedDocumentIDs;
  /// For every file: the moment at which capture as a whole was last turned on.
  std::optional<std::string> resumeSince;
  /// For the files of a category, keyed by its raw value; keys that are none are kept.
  Times typeResumeSince;
  /// For the files with a listed extension, keyed by its normal form.
  Times extensionResumeSince;
  /// For files without extension.
  std::optional<std::string> extensionlessResumeSince;
  /// For files of the category `other` whose extension is not listed.
  std::optional<std::string> unlistedResumeSince;
  /// Absent where the user has not been asked.
  std::optional<bool> readsSessionRecords;
  /// Which agents' stores are read, by agent.
  Switches agentStores;
  /// Keyed by the raw values of `CaptureOutput`; keys that are none are kept. A missing one is on or off as
  /// `operator[]` says.
  Switches outputs;
  /// For what comes through an output, keyed as `outputs`.
  Times outputResumeSince;
  /// The number of the last widening that was applied; absent where none was.
  std::optional<std::int64_t> collectionDefaultsVersion;

  bool operator==(const CapturePreferences&) const = default;

  /// The normal form of an extension: without white space (the property White_Space) at its ends, in lower case, and
  /// then without one "." at its beginning. Absent where that is not 1 to 20 of the characters a-z, 0-9, "_" and "-",
  /// the first a letter or digit. `CaptureRules::normalizedExtension` differs in what it trims: Python's white space.
  [[nodiscard]] static std::optional<std::string> normalizedExtension(std::string_view text);

  /// The normal forms of those of `texts` that have one, each once, ascending by scalars.
  [[nodiscard]] static std::vector<std::string> normalizedExtensions(std::span<const std::string> texts);

  /// Whether files of this category are captured. Where `types` does not say, documents, plans and images are.
  [[nodiscard]] bool operator[](ArtifactCategory category) const;
  /// Whether this output is captured. Where `outputs` does not say, all are but `downloadsInbox`.
  [[nodiscard]] bool operator[](CaptureOutput output) const;

  /// Sets the switch of a category or an output, and nothing else.
  void set(ArtifactCategory category, bool isEnabled);
  void set(CaptureOutput output, bool isEnabled);

  /// Whether files with this extension, in any spelling, are captured: it is listed and its category is on. For a
  /// document's extension it does that plans are on.
  [[nodiscard]] bool isExtensionEnabled(std::string_view text) const;

  /// Lists an extension, in any spelling, and turns its category on, plans together with documents; or takes it off the
  /// list. Does nothing for a text that is no extension.
  void setExtension(std::string_view text, bool isEnabled);

  /// Sets the switch of a category. Where it is turned on and none of its extensions is listed, they are listed: of
  /// images only those of `defaultExtensions`, of the others all. Turning it off leaves the list alone.
  void setCategory(ArtifactCategory category, bool isEnabled);

  /// Widens the collection of a user of an older version to what a new user is offered: what subagents make, from
  /// `since` on, and office files. A category that was off until now collects its office files alone, and nothing that
  /// its list or switches still held. Does something once: the second time `collectionDefaultsVersion` is there.
  void applyCollectionDefaults(std::optional<std::string> since);
};

/// The keys of preferences in a file, in the order in which they are written.
struct CapturePreferencesKeys : CapturePreferences::Choices {
  std::optional<std::int64_t> collectionDefaultsVersion;
};

template <>
struct JSONForm<CapturePreferencesKeys> {
  using Keys = CapturePreferencesKeys;
  static constexpr std::tuple fields{
      optional("enabled", &Keys::enabled),
      optional("types", &Keys::types),
      optional("extensions", &Keys::extensions),
      optional("includeExtensionless", &Keys::includeExtensionless),
      optional("includeUnlistedExtensions", &Keys::includeUnlistedExtensions),
      optional("includeSubagentResponses", &Keys::includeSubagentResponses),
      optional("includeAssistantResponses", &Keys::includeAssistantResponses),
      optional("assistantResponsesResumeSince", &Keys::assistantResponsesResumeSince),
      optional("includeSubagentArtifacts", &Keys::includeSubagentArtifacts),
      optional("subagentArtifactsResumeSince", &Keys::subagentArtifactsResumeSince),
      optional("documentChangesReviewSince", &Keys::documentChangesReviewSince),
      optional("showsAgentHomeFiles", &Keys::showsAgentHomeFiles),
      optional("includesUserFiles", &Keys::includesUserFiles),
      optional("includeTemporaryFolderDocuments", &Keys::includeTemporaryFolderDocuments),
      optional("captureTitleChanges", &Keys::captureTitleChanges),
      optional("captureLocationChanges", &Keys::captureLocationChanges),
      optional("excludedDocumentIDs", &Keys::excludedDocumentIDs),
      optional("resumeSince", &Keys::resumeSince),
      optional("typeResumeSince", &Keys::typeResumeSince),
      optional("extensionResumeSince", &Keys::extensionResumeSince),
      optional("extensionlessResumeSince", &Keys::extensionlessResumeSince),
      optional("unlistedResumeSince", &Keys::unlistedResumeSince),
      optional("readsSessionRecords", &Keys::readsSessionRecords),
      optional("agentStores", &Keys::agentStores),
      optional("outputs", &Keys::outputs),
      optional("outputResumeSince", &Keys::outputResumeSince),
      optional("collectionDefaultsVersion", &Keys::collectionDefaultsVersion),
  };
};

/// A key of a wrong type, and null or a wrong type inside a list or map, fails the reading; null under a key is its
/// absence. Everything is written, empty lists and maps too, but what is absent. The order of keys and that of `types`,
/// the categories' own, are fixed; the other maps are written in ascending order of their keys.
template <>
struct JSONForm<CapturePreferences> {
  using Wire = CapturePreferencesKeys;
  [[nodiscard]] static std::expected<CapturePreferences, JSONRefusal> fromWire(CapturePreferencesKeys keys);
  [[nodiscard]] static CapturePreferencesKeys toWire(const CapturePreferences& preferences);
};

}  // namespace tessary
