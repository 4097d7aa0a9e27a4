#pragma once

// Boards that pass, for tests to spoil, and the answer to a check in words.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryDomain/documents/DocumentBoardArchive.h"

namespace tessary::testing {

inline DocumentBoardNode freeNode(std::string id) {
  return {.id = std::move(id), .kind = BoardNodeKind::note, .title = "t", .note = "n"};
}

inline DocumentBoardEdge edgeBetween(std::string id, std::string from, std::string to) {
  return {.id = std::move(id), .fromNodeID = std::move(from), .toNodeID = std::move(to), .label = "l"};
}

/// With the nodes n0, n1 and n2 and the edges e0 and e1.
inline DocumentBoard boardOf(std::string id) {
  return {.id = std::move(id),
          .title = "Board",
          .nodes = {freeNode("n0"), freeNode("n1"), freeNode("n2")},
          .edges = {edgeBetween("e0", "n0", "n1"), edgeBetween("e1", "n1", "n2")}};
}

inline DocumentBoardArchive archiveOf(DocumentBoard board) {
  DocumentBoardArchive archive;
  archive.boards.push_back(std::move(board));
  return archive;
}

inline std::string_view nameOf(DocumentBoardValidationError error) {
  switch (error) {
    using enum DocumentBoardValidationError;
    case unsupportedSchema:
      return "unsupportedSchema";
    case tooManyBoards:
      return "tooManyBoards";
    case tooManyNodes:
      return "tooManyNodes";
    case tooManyEdges:
      return "tooManyEdges";
    case invalidID:
      return "invalidID";
    case duplicateID:
      return "duplicateID";
    case invalidBoard:
      return "invalidBoard";
    case invalidNode:
      return "invalidNode";
    case invalidPosition:
      return "invalidPosition";
    case invalidDate:
      return "invalidDate";
    case invalidEdge:
      return "invalidEdge";
  }
  return "an error without a name";
}

/// "valid" for what comes back as it was; else the name of the error, or what went wrong.
inline std::string_view outcome(const DocumentBoardArchive& archive) {
  const auto checked = archive.validated();
  auto moved = archive;
  const auto alsoChecked = std::move(moved).validated();
  if (checked.has_value() != alsoChecked.has_value()) return "two answers";
  if (!checked) return checked.error() == alsoChecked.error() ? nameOf(checked.error()) : "two errors";
  return *checked == archive && *alsoChecked == archive ? "valid" : "changed";
}

inline std::string_view outcome(DocumentBoard board) {
  return outcome(archiveOf(std::move(board)));
}

}  // namespace tessary::testing
