#include "TessaryDomain/documents/DocumentFeedback.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

#include "TessaryPlatform/text/GraphemeClusters.h"

namespace tessary {
namespace {

bool hasAtMost(std::string_view text, std::size_t characters) {
  return characterOffset(text, characters) == text.size();
}

/// The lines exist and are not too many. The difference is taken only of positive numbers, so it cannot overflow.
bool coversValidLines(const DocumentFeedbackNote& note) {
  return note.startLine >= 1 && note.endLine >= note.startLine &&
         note.endLine - note.startLine < DocumentFeedbackNote::maximumLineSpan;
}

/// All that is asked of a note by itself.
bool isValid(const DocumentFeedbackNote& note) {
  return !note.id.empty() && !note.documentID.empty() && !note.revisionID.empty() && coversValidLines(note) &&
         hasAtMost(note.text, DocumentFeedbackNote::maximumTextLength) &&
         hasAtMost(note.anchor, DocumentFeedbackArchive::maximumAnchorLength);
}

std::vector<DocumentFeedbackNote> validNotes(const std::vector<DocumentFeedbackNote>& notes) {
  std::vector<const DocumentFeedbackNote*> kept;
  std::set<std::string_view> ids;
  for (const DocumentFeedbackNote& note : notes) {
    // Only a note that is kept takes its identifier, so a bad note does not stand in the way of a later good one.
    if (isValid(note) && ids.insert(note.id).second) kept.push_back(&note);
  }
  const std::size_t first = kept.size() - std::min(kept.size(), DocumentFeedbackArchive::maximumNotes);
  std::vector<DocumentFeedbackNote> last;
  last.reserve(kept.size() - first);
  for (std::size_t index = first; index < kept.size(); ++index)
    last.push_back(*kept[index]);
  return last;
}

/// An undefined time as the oldest of all: it has no order of its own, which a sort cannot do without.
double timeOf(const DocumentFeedbackRequest& request) {
  const double seconds = request.sentAt.secondsSince2001();
  return std::isnan(seconds) ? -std::numeric_limits<double>::infinity() : seconds;
}

DocumentFeedbackArchive::Requests validRequests(const DocumentFeedbackArchive::Requests& requests) {
  std::vector<const DocumentFeedbackArchive::Requests::value_type*> kept;
  for (const auto& entry : requests) {
    if (entry.first == entry.second.documentID && !entry.second.revisionID.empty()) kept.push_back(&entry);
  }
  // Newest first; a stable sort leaves those of one time in the order of their documents.
  std::ranges::stable_sort(kept, std::ranges::greater(), [](const auto* entry) { return timeOf(entry->second); });
  kept.resize(std::min(kept.size(), DocumentFeedbackArchive::maximumRequests));
  DocumentFeedbackArchive::Requests newest;
  for (const auto* entry : kept)
    newest.insert(*entry);
  return newest;
}

}  // namespace

DocumentFeedbackNote::DocumentFeedbackNote(std::string noteID, std::string document, std::string revision,
                                           std::int64_t start, std::int64_t end, std::string fingerprint,
                                           std::string words, bool stale, Date created, std::optional<Date> updated)
    : id(std::move(noteID)),
      documentID(std::move(document)),
      revisionID(std::move(revision)),
      startLine(start),
      endLine(end),
      anchor(std::move(fingerprint)),
      text(std::move(words)),
      isStale(stale),
      createdAt(created),
      updatedAt(updated.value_or(created)) {}

DocumentFeedbackArchive::DocumentFeedbackArchive(std::vector<DocumentFeedbackNote> allNotes, Requests openRequests)
    : notes(std::move(allNotes)), requests(std::move(openRequests)) {}

DocumentFeedbackArchive DocumentFeedbackArchive::validated() const {
  return {validNotes(notes), validRequests(requests)};
}

}  // namespace tessary
