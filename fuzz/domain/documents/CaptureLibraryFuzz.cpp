// Any bytes as a library file, and every question that a record answers.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "TessaryDomain/documents/DocumentRecord.h"
#include "support/RecordRoundTrip.h"

using tessary::ArtifactCategory;
using tessary::CaptureLibrary;
using tessary::DocumentRecord;
using tessary::testing::require;

namespace {

void checkAnswers(const DocumentRecord& record) {
  const ArtifactCategory category = record.category();
  require(record.symbol() == (record.kind == "candidate" ? "text.bubble" : tessary::symbol(category)));
  require(!record.categoryTitle().empty());
  require(!(record.isUpdated() && record.isNewDocument()));
  require((record.latestRevision() == nullptr) == record.revisions.empty());
  require(record.sourceProfileGroupingKey() == record.sourceProfile().id());
  // Only a revision that says so is of a source without a name.
  require(record.sourceProfile().source == record.source || !record.revisions.empty());
  if (category == ArtifactCategory::plans && record.kind == "file")
    require(!record.revisions.empty() || record.artifactCategory);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto library = tessary::testing::requireRoundTrip<CaptureLibrary>({reinterpret_cast<const char*>(data), size});
  if (!library) return 0;
  for (const DocumentRecord& record : library->documents) {
    checkAnswers(record);
    require(std::hash<DocumentRecord>()(record) == std::hash<DocumentRecord>()(DocumentRecord(record)));
  }
  return 0;
}
