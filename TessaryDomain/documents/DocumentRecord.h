#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "TessaryDomain/agents/AgentSourceProfile.h"
#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/documents/DocumentRevision.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/json/JSONRecordHash.h"

namespace tessary {

/// One document as the user sees it, one file or response, across time. Identified by `id`; paths are absolute POSIX
/// paths, timestamps ISO 8601 text. All texts are kept as they were given.
///
/// `revisions` stand in the order of capture, which nothing here changes: the last is the current one. There may be
/// none; every operation has an answer then too.
///
/// The members stand in the order in which a record is made, `DocumentRecord{.id = …, .title = …}`. There
/// `sourcePathIsCurrent` comes last of those that reach the file, and in the file it comes sixth.
struct DocumentRecord {
  std::string id;
  /// The name shown to the user.
  std::string title;
  /// The name of the project.
  std::string project;
  /// The agent or other source. Once there are revisions, `sourceProfile` asks the latest of them instead.
  std::string source;
  /// The file's location at its origin.
  std::optional<std::string> sourcePath{};
  /// The agent session it came from.
  std::optional<std::string> sourceSession{};
  /// "file", "image", "video", "pdf", "text", "markdown", "html", "candidate" or another word.
  std::string kind;
  std::string createdAt;
  std::string updatedAt;
  std::vector<DocumentRevision> revisions;
  std::optional<std::string> projectRoot{};
  std::optional<std::string> model{};
  /// The hash of the content last captured.
  std::optional<std::string> lastCapturedHash{};
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
  /// Whether `sourcePath` still holds this document.
  std::optional<bool> sourcePathIsCurrent{};

  /// Titles of sessions by their identifiers, for showing. They never reach the file, and two records that differ in
  /// them are different values.
  std::map<std::string, std::string> sessionTitles{};

  bool operator==(const DocumentRecord&) const = default;

  /// The last of `revisions`; null if there is none. It lives as long as `revisions` is not changed.
  [[nodiscard]] const DocumentRevision* latestRevision() const {
    return revisions.empty() ? nullptr : &revisions.back();
  }

  /// What the document is: by its stored category, and by kind and extension where there is none, or where an older
  /// version knew no better than "other". Where the stored text names no category, the kind alone decides. Of kind
  /// "text" it is code; of an unknown kind a document.
  [[nodiscard]] ArtifactCategory category() const;

  /// True for a document with more than one revision.
  [[nodiscard]] bool isUpdated() const { return revisions.size() > 1; }

  /// True for a document with at most one revision, unless that one says that the file existed before capture began.
  [[nodiscard]] bool isNewDocument() const;

  /// True where the content can be read as text: by the kind, or as a file that is text by its extension.
  [[nodiscard]] bool supportsTextContent() const;

  /// Where the document came from. With at least one revision the latest tells all six parts: what it leaves out is
  /// absent, and its source is "unknown", whatever the record itself says. Without one the record tells them.
  [[nodiscard]] AgentSourceProfile sourceProfile() const;

  /// The source line: `displayName` of `sourceProfile`, in the language in use.
  [[nodiscard]] std::string sourceProfileDisplayName() const { return sourceProfile().displayName(); }

  /// A text that is the same for documents of one source and profile: `AgentSourceProfile::key` of `sourceProfile`.
  [[nodiscard]] std::string sourceProfileGroupingKey() const { return sourceProfile().id(); }

  /// The name of the symbol shown beside the document: that of its category, and one of its own for a candidate.
  [[nodiscard]] std::string_view symbol() const;

  /// What the document is, in words: the format of an office file ("Excel"), else the title of its category in the
  /// language in use.
  [[nodiscard]] std::string categoryTitle() const;

 private:
  [[nodiscard]] std::string_view effectiveExtension() const;
  [[nodiscard]] const std::optional<std::string>& storedCategory() const;
  [[nodiscard]] std::optional<ArtifactCategory> legacyTextCategory() const;
};

template <>
struct JSONForm<DocumentRecord> {
  static constexpr std::tuple fields{
      required("id", &DocumentRecord::id),
      required("title", &DocumentRecord::title),
      required("project", &DocumentRecord::project),
      required("source", &DocumentRecord::source),
      optional("sourcePath", &DocumentRecord::sourcePath),
      optional("sourcePathIsCurrent", &DocumentRecord::sourcePathIsCurrent),
      optional("sourceSession", &DocumentRecord::sourceSession),
      required("kind", &DocumentRecord::kind),
      required("createdAt", &DocumentRecord::createdAt),
      required("updatedAt", &DocumentRecord::updatedAt),
      required("revisions", &DocumentRecord::revisions),
      optional("projectRoot", &DocumentRecord::projectRoot),
      optional("model", &DocumentRecord::model),
      optional("lastCapturedHash", &DocumentRecord::lastCapturedHash),
      optional("artifactCategory", &DocumentRecord::artifactCategory),
      optional("byteSize", &DocumentRecord::byteSize),
      optional("sourceProfileID", &DocumentRecord::sourceProfileID),
      optional("sourceProfileLabel", &DocumentRecord::sourceProfileLabel),
      optional("sourceKind", &DocumentRecord::sourceKind),
      optional("profileIdentityOrigin", &DocumentRecord::profileIdentityOrigin),
      optional("profileIdentityVerified", &DocumentRecord::profileIdentityVerified),
      optional("isSubagentResponse", &DocumentRecord::isSubagentResponse),
      optional("parentSessionID", &DocumentRecord::parentSessionID),
      optional("mainProjectRoot", &DocumentRecord::mainProjectRoot),
      optional("isSubagent", &DocumentRecord::isSubagent),
  };
};

/// The library file. One bad record fails the whole file, so that no document is lost unseen when it is written back.
struct CaptureLibrary {
  /// The version of the format, kept as it stands.
  std::int64_t version = 0;
  std::vector<DocumentRecord> documents;

  bool operator==(const CaptureLibrary&) const = default;
};

template <>
struct JSONForm<CaptureLibrary> {
  static constexpr std::tuple fields{
      required("version", &CaptureLibrary::version),
      required("documents", &CaptureLibrary::documents),
  };
};

}  // namespace tessary

template <>
struct std::hash<tessary::DocumentRecord> {
  std::size_t operator()(const tessary::DocumentRecord& record) const noexcept {
    return tessary::combinedHash(tessary::JSONRecordHash<tessary::DocumentRecord>()(record),
                                 tessary::json::hashOf(record.sessionTitles));
  }
};
