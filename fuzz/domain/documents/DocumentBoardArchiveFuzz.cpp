// Any bytes as a board file: what was read is written and read again as the same, and what passed the check passes it
// again, in every way of asking, as does each of its boards alone.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "TessaryDomain/documents/DocumentBoardArchive.h"
#include "support/RecordRoundTrip.h"

using namespace tessary;
using tessary::testing::require;

namespace {

void checkValid(const DocumentBoardArchive& archive) {
  require(archive.schemaVersion == DocumentBoardArchive::currentSchemaVersion);
  require(archive.boards.size() <= DocumentBoardArchive::maximumBoards);
  const auto again = archive.validated();
  require(again && *again == archive);
  for (const DocumentBoard& board : archive.boards) {
    require(board.updatedAt.isFinite());
    DocumentBoardArchive alone;
    alone.boards.push_back(board);
    require(std::move(alone).validated().has_value());
  }
  // A board that stands there twice is refused for its identifier, before anything else in it is looked at.
  if (!archive.boards.empty() && archive.boards.size() < DocumentBoardArchive::maximumBoards) {
    DocumentBoardArchive twice = archive;
    twice.boards.emplace_back().id = archive.boards[0].id;
    const auto refused = std::move(twice).validated();
    require(!refused && refused.error() == DocumentBoardValidationError::duplicateID);
  }
}

void check(std::string_view text, JSONDateForm form) {
  const auto archive = tessary::testing::requireRoundTrip<DocumentBoardArchive>(text, {.dates = form});
  if (!archive) return;
  const auto checked = archive->validated();
  DocumentBoardArchive given = *archive;
  const auto alsoChecked = std::move(given).validated();
  require(checked == alsoChecked);
  if (checked) {
    require(*checked == *archive);
    checkValid(*checked);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  check(text, JSONDateForm::secondsSince2001);
  check(text, JSONDateForm::iso8601);
  return 0;
}
