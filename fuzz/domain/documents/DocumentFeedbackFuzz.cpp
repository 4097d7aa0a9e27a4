// Any bytes as a feedback file, in every date form, and what a validated archive promises.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "TessaryDomain/documents/DocumentFeedback.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "support/RecordRoundTrip.h"

using namespace tessary;
using tessary::testing::require;

namespace {

void checkNotes(const DocumentFeedbackArchive& given, const DocumentFeedbackArchive& validated) {
  require(validated.notes.size() <= 5'000);
  std::set<std::string> ids;
  auto next = given.notes.begin();
  for (const DocumentFeedbackNote& note : validated.notes) {
    require(!note.id.empty() && !note.documentID.empty() && !note.revisionID.empty());
    require(note.startLine >= 1 && note.endLine >= note.startLine && note.endLine - note.startLine <= 399);
    require(characterCount(note.text) <= 2'000 && characterCount(note.anchor) <= 32);
    require(ids.insert(note.id).second);
    // Each is one of the archive's notes, and they stand in its order.
    next = std::find(next, given.notes.end(), note);
    require(next != given.notes.end());
    ++next;
  }
}

void checkRequests(const DocumentFeedbackArchive& given, const DocumentFeedbackArchive& validated) {
  std::size_t count = 0;
  for (const auto& [document, request] : given.requests) {
    const bool isGood = document == request.documentID && !request.revisionID.empty();
    count += isGood ? 1 : 0;
    const auto kept = validated.requests.find(document);
    require(kept == validated.requests.end() || (isGood && kept->second == request));
  }
  require(validated.requests.size() == std::min<std::size_t>(count, 5'000));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const JSONDateForm form : {JSONDateForm::secondsSince1970, JSONDateForm::secondsSince2001, JSONDateForm::iso8601,
                                  JSONDateForm::iso8601WithFractions}) {
    const auto archive = testing::requireRoundTrip<DocumentFeedbackArchive>(text, {.dates = form});
    if (!archive) continue;
    const DocumentFeedbackArchive validated = archive->validated();
    require(validated.version == 1);
    checkNotes(*archive, validated);
    checkRequests(*archive, validated);
    require(validated.validated() == validated);
  }
  return 0;
}
