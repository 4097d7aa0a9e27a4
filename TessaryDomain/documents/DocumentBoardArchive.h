#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <tuple>
#include <vector>

#include "TessaryDomain/documents/DocumentBoard.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// Why an archive of boards is refused.
enum class DocumentBoardValidationError : std::uint8_t {
  /// The file is of a version that is not known here.
  unsupportedSchema,
  tooManyBoards,
  tooManyNodes,
  tooManyEdges,
  /// An identifier is empty, too long, or holds something beside ASCII letters, digits, "_" and "-".
  invalidID,
  /// Two boards, two nodes of a board, or two edges of a board have one identifier.
  duplicateID,
  /// A board's title or time.
  invalidBoard,
  /// A node's title or note.
  invalidNode,
  /// A coordinate is undefined, or too far out.
  invalidPosition,
  /// A node's date is no day of the calendar.
  invalidDate,
  /// An edge's label, or an edge that does not join two different nodes of its board.
  invalidEdge,
};

/// The board file: every board that the user has.
///
///     const auto archive = readJSON<DocumentBoardArchive>(file, coder);
///     if (archive) auto checked = std::move(*archive).validated();
struct DocumentBoardArchive {
  /// The version that is written, and the only one that is accepted.
  static constexpr std::int64_t currentSchemaVersion = 1;

  // The most that an archive may hold.
  static constexpr std::size_t maximumBoards = 100;
  static constexpr std::size_t maximumNodesPerBoard = 2'000;
  static constexpr std::size_t maximumEdgesPerBoard = 8'000;
  /// In bytes; the least is one.
  static constexpr std::size_t maximumIDBytes = 128;
  // In characters (extended grapheme clusters).
  static constexpr std::size_t maximumBoardTitleCharacters = 128;
  static constexpr std::size_t maximumNodeTitleCharacters = 256;
  static constexpr std::size_t maximumNodeNoteCharacters = 8'192;
  static constexpr std::size_t maximumEdgeLabelCharacters = 256;
  /// In either direction of each axis; itself allowed.
  static constexpr double maximumCoordinate = 100'000.0;

  /// What a user without a board file has.
  static const DocumentBoardArchive empty;

  std::int64_t schemaVersion = currentSchemaVersion;
  /// In the user's order.
  std::vector<DocumentBoard> boards{};

  /// The archive itself, if everything in it may reach the canvas; else the first fault. Nothing is repaired: one bad
  /// field refuses the archive. A host asks after reading a file and before writing one.
  ///
  /// "First" is a promise. The version comes before the number of boards, and both before any board. The boards are
  /// taken in their order, and of each in turn: identifier; title and time; the number of nodes, then that of edges;
  /// the nodes, each by identifier, document's identifier, title, note, position, date; the edges, each by its three
  /// identifiers, whether its own was met before, label, ends.
  ///
  /// An identifier is 1 to `maximumIDBytes` bytes of ASCII letters, digits, "_" and "-". Boards, nodes of a board and
  /// edges of a board are told apart by theirs; a node and an edge may share one, and so may nodes of two boards.
  /// Texts have no control characters below U+0020 and no U+007F but the tab, and in a node's note the line feed.
  /// Titles of boards, and of nodes without a document, hold more than white space. A day stands as "2024-02-29", in
  /// the Gregorian calendar from year 1 on. An edge joins two different nodes of its board.
  ///
  /// Takes linear time, and of a text that is too long it reads no more than shows that it is.
  [[nodiscard]] std::expected<DocumentBoardArchive, DocumentBoardValidationError> validated() const&;

  /// The same without a copy: the boards are moved into the answer. A refused archive keeps them.
  [[nodiscard]] std::expected<DocumentBoardArchive, DocumentBoardValidationError> validated() &&;

  bool operator==(const DocumentBoardArchive&) const = default;
};

inline constinit const DocumentBoardArchive DocumentBoardArchive::empty{};

template <>
struct JSONForm<DocumentBoardArchive> {
  static constexpr std::tuple fields{
      required("schemaVersion", &DocumentBoardArchive::schemaVersion),
      required("boards", &DocumentBoardArchive::boards),
  };
};

}  // namespace tessary
