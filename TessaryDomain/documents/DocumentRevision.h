#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "TessaryDomain/documents/DocumentRevisionProvenance.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONRecordHash.h"
#include "TessaryPlatform/values/OptionalBox.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// How the content of a revision is kept.
enum class DocumentStorageKind : std::uint8_t {
  /// As a copy in the library.
  snapshot,
  /// As nothing but the file at its origin.
  sourceReference,
  /// Not any more.
  released,
};

template <>
struct RawValues<DocumentStorageKind> {
  static constexpr auto table = std::to_array<RawValueRow<DocumentStorageKind>>({
      {DocumentStorageKind::snapshot, "snapshot"},
      {DocumentStorageKind::sourceReference, "sourceReference"},
      {DocumentStorageKind::released, "released"},
  });
};

/// The content of a document as it was captured once. Identified by `id`; timestamps are ISO 8601 text.
///
/// The members stand in the order in which a revision is made, `DocumentRevision{.id = …, .contentHash = …}`. The keys
/// of the file have an order of their own: that of the table below.
struct DocumentRevision {
  std::string id;
  std::string contentHash;
  /// Where the stored copy lies.
  std::string snapshotPath;
  std::string capturedAt;
  /// The event that caused the capture; prefixes such as "plan-file:" and "output:" carry meaning.
  std::string originEvent;
  /// The agent or other source.
  std::optional<std::string> source{};
  std::optional<std::string> model{};
  std::optional<std::string> sourceSession{};
  /// Whether this revision asks for review.
  bool reviewEligible = true;
  /// The raw value of an `ArtifactCategory`. A text that names none is kept and counts as no category.
  std::optional<std::string> artifactCategory{};
  std::optional<std::int64_t> byteSize{};
  // The profile of the source, as in `AgentSourceProfile`.
  std::optional<std::string> sourceProfileID{};
  std::optional<std::string> sourceProfileLabel{};
  std::optional<std::string> sourceKind{};
  std::optional<std::string> profileIdentityOrigin{};
  std::optional<bool> profileIdentityVerified{};
  std::optional<bool> isSubagentResponse{};
  /// The session of the parent agent.
  std::optional<std::string> parentSessionID{};
  /// The root of the main project of a worktree or subagent.
  std::optional<std::string> mainProjectRoot{};
  /// The writer was a subagent.
  std::optional<bool> isSubagent{};
  /// The verdict of the detection of preview helpers, and the version of the policy behind it.
  std::optional<bool> isPreviewHelper{};
  std::optional<std::int64_t> previewHelperPolicyVersion{};
  /// The times of the source file.
  std::optional<std::string> sourceCreatedAt{};
  std::optional<std::string> sourceModifiedAt{};
  /// The names of metadata that changed.
  std::vector<std::string> sourceMetadataChanges{};
  /// The verdict on internal artifacts, and the version of the policy behind it.
  std::optional<bool> isInternalArtifact{};
  std::optional<std::int64_t> internalArtifactPolicyVersion{};
  /// The verdict on machine data.
  std::optional<bool> isIgnoredMachineData{};
  /// The file existed before capture began, and was ignored for that reason.
  std::optional<bool> isPreexistingFile{};
  std::optional<bool> isIgnoredPreexistingFile{};
  std::optional<DocumentStorageKind> storageKind{};
  std::optional<std::int64_t> storagePolicyVersion{};
  /// In memory of its own: it is as large as all the rest, and most revisions of a library are without one.
  OptionalBox<DocumentRevisionProvenance> provenance{};

  bool operator==(const DocumentRevision&) const = default;
};

template <>
struct JSONForm<DocumentRevision> {
  static constexpr std::tuple fields{
      required("id", &DocumentRevision::id),
      required("contentHash", &DocumentRevision::contentHash),
      required("snapshotPath", &DocumentRevision::snapshotPath),
      required("capturedAt", &DocumentRevision::capturedAt),
      required("originEvent", &DocumentRevision::originEvent),
      optional("source", &DocumentRevision::source),
      optional("model", &DocumentRevision::model),
      optional("sourceSession", &DocumentRevision::sourceSession),
      defaulted("reviewEligible", &DocumentRevision::reviewEligible, true),
      optional("artifactCategory", &DocumentRevision::artifactCategory),
      optional("byteSize", &DocumentRevision::byteSize),
      optional("sourceProfileID", &DocumentRevision::sourceProfileID),
      optional("sourceProfileLabel", &DocumentRevision::sourceProfileLabel),
      optional("sourceKind", &DocumentRevision::sourceKind),
      optional("profileIdentityOrigin", &DocumentRevision::profileIdentityOrigin),
      optional("profileIdentityVerified", &DocumentRevision::profileIdentityVerified),
      optional("isSubagentResponse", &DocumentRevision::isSubagentResponse),
      optional("parentSessionID", &DocumentRevision::parentSessionID),
      optional("mainProjectRoot", &DocumentRevision::mainProjectRoot),
      optional("isSubagent", &DocumentRevision::isSubagent),
      optional("isPreviewHelper", &DocumentRevision::isPreviewHelper),
      optional("previewHelperPolicyVersion", &DocumentRevision::previewHelperPolicyVersion),
      optional("isInternalArtifact", &DocumentRevision::isInternalArtifact),
      optional("internalArtifactPolicyVersion", &DocumentRevision::internalArtifactPolicyVersion),
      optional("isIgnoredMachineData", &DocumentRevision::isIgnoredMachineData),
      optional("sourceCreatedAt", &DocumentRevision::sourceCreatedAt),
      optional("sourceModifiedAt", &DocumentRevision::sourceModifiedAt),
      defaulted("sourceMetadataChanges", &DocumentRevision::sourceMetadataChanges),
      optional("isPreexistingFile", &DocumentRevision::isPreexistingFile),
      optional("isIgnoredPreexistingFile", &DocumentRevision::isIgnoredPreexistingFile),
      optional("storageKind", &DocumentRevision::storageKind),
      optional("storagePolicyVersion", &DocumentRevision::storagePolicyVersion),
      optional("provenance", &DocumentRevision::provenance),
  };
};

}  // namespace tessary

template <>
struct std::hash<tessary::DocumentRevision> : tessary::JSONRecordHash<tessary::DocumentRevision> {};
