#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// A note that the user pinned to lines of a document. It is known by `id`; `id`, `documentID` and `createdAt` stay as
/// they are for the note's life. DocumentFeedbackAnchor.h says how a note finds its lines again in a later revision.
///
/// Nothing is checked when a note is made or read: `DocumentFeedbackArchive::validated` drops what is no good.
struct DocumentFeedbackNote {
  /// The most characters of `text`.
  static constexpr std::size_t maximumTextLength = 2'000;
  /// The most lines that a note may cover.
  static constexpr std::int64_t maximumLineSpan = 400;

  std::string id;
  /// The `DocumentRecord`.
  std::string documentID;
  /// The `DocumentRevision` that the lines refer to.
  std::string revisionID;
  /// The first line, counted from 1.
  std::int64_t startLine = 0;
  /// The last line, which the note covers too.
  std::int64_t endLine = 0;
  /// The fingerprint of the lines: 16 lowercase hexadecimal digits.
  std::string anchor;
  /// What the user wrote.
  std::string text;
  /// The lines were not found again; `revisionID` and the lines are those of the revision that last held them.
  bool isStale = false;
  Date createdAt;
  Date updatedAt;

  DocumentFeedbackNote() = default;
  /// Without `updatedAt` the note was updated when it was created.
  DocumentFeedbackNote(std::string id, std::string documentID, std::string revisionID, std::int64_t startLine,
                       std::int64_t endLine, std::string anchor, std::string text, bool isStale, Date createdAt,
                       std::optional<Date> updatedAt = std::nullopt);

  bool operator==(const DocumentFeedbackNote&) const = default;
};

template <>
struct JSONForm<DocumentFeedbackNote> {
  static constexpr std::tuple fields{
      required("id", &DocumentFeedbackNote::id),
      required("documentID", &DocumentFeedbackNote::documentID),
      required("revisionID", &DocumentFeedbackNote::revisionID),
      required("startLine", &DocumentFeedbackNote::startLine),
      required("endLine", &DocumentFeedbackNote::endLine),
      required("anchor", &DocumentFeedbackNote::anchor),
      required("text", &DocumentFeedbackNote::text),
      required("isStale", &DocumentFeedbackNote::isStale),
      required("createdAt", &DocumentFeedbackNote::createdAt),
      required("updatedAt", &DocumentFeedbackNote::updatedAt),
  };
};

/// What an agent is asked to do with a document and its notes.
enum class DocumentFeedbackRequestKind : std::uint8_t { revise, question, confirm };

template <>
struct RawValues<DocumentFeedbackRequestKind> {
  using enum DocumentFeedbackRequestKind;
  static constexpr auto table = std::to_array<RawValueRow<DocumentFeedbackRequestKind>>({
      {revise, "revise"},
      {question, "question"},
      {confirm, "confirm"},
  });
};

/// The raw value.
[[nodiscard]] constexpr std::string_view id(DocumentFeedbackRequestKind kind) {
  return rawValue(kind);
}

/// A request that was sent to an agent and is still open.
struct DocumentFeedbackRequest {
  std::string documentID;
  /// The revision that the request was made on.
  std::string revisionID;
  DocumentFeedbackRequestKind kind{};
  Date sentAt;

  bool operator==(const DocumentFeedbackRequest&) const = default;
};

template <>
struct JSONForm<DocumentFeedbackRequest> {
  static constexpr std::tuple fields{
      required("documentID", &DocumentFeedbackRequest::documentID),
      required("revisionID", &DocumentFeedbackRequest::revisionID),
      required("kind", &DocumentFeedbackRequest::kind),
      required("sentAt", &DocumentFeedbackRequest::sentAt),
  };
};

/// The file of all notes and open requests. Dates stand in it in the form of the coder with which it is read and
/// written. Reading is strict: one bad note or request fails the whole file, with the error of the JSON reader.
struct DocumentFeedbackArchive {
  /// The version that is written.
  static constexpr std::int64_t currentVersion = 1;
  /// The most that `validated` leaves.
  static constexpr std::size_t maximumNotes = 5'000;
  static constexpr std::size_t maximumRequests = 5'000;
  /// The most characters of an anchor in a validated archive.
  static constexpr std::size_t maximumAnchorLength = 32;

  /// By `documentID`, so that a document has at most one open request.
  using Requests = std::map<std::string, DocumentFeedbackRequest>;

  /// No notes and no requests.
  static const DocumentFeedbackArchive empty;

  std::int64_t version = currentVersion;
  std::vector<DocumentFeedbackNote> notes;
  Requests requests;

  DocumentFeedbackArchive() = default;
  DocumentFeedbackArchive(std::vector<DocumentFeedbackNote> notes, Requests requests);

  /// The archive without what is no good, in the current version whatever this one says. It never fails.
  ///
  /// Dropped are notes with an empty identifier, with lines that do not exist or are more than
  /// `DocumentFeedbackNote::maximumLineSpan`, with too long a text or anchor, and with the identifier of a note kept
  /// before, which are compared exactly; then, of too many notes, the first ones. Dropped are requests under another
  /// key than their `documentID` and without a `revisionID`; then, of too many, the oldest. Of requests sent at the
  /// same time those with the lower `documentID` stay, and one without a defined time counts as older than any.
  [[nodiscard]] DocumentFeedbackArchive validated() const;

  bool operator==(const DocumentFeedbackArchive&) const = default;
};

inline const DocumentFeedbackArchive DocumentFeedbackArchive::empty{};

template <>
struct JSONForm<DocumentFeedbackArchive> {
  static constexpr std::tuple fields{
      required("version", &DocumentFeedbackArchive::version),
      required("notes", &DocumentFeedbackArchive::notes),
      required("requests", &DocumentFeedbackArchive::requests),
  };
};

}  // namespace tessary
