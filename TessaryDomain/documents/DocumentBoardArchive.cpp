#include "TessaryDomain/documents/DocumentBoardArchive.h"

#include <chrono>
#include <cmath>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include <boost/unordered/unordered_flat_set.hpp>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {

namespace {

using enum DocumentBoardValidationError;
using Fault = std::optional<DocumentBoardValidationError>;
using Archive = DocumentBoardArchive;

/// The identifiers met in one scope; the archive that they stand in outlives it. How many there can be is bounded by
/// the limits, which are checked before.
///
/// OPTIMIZATION: a flat table asks for memory once, and its look-ups miss the cache less often: a fifth of the time of
/// a check at all limits. Boost's own hash takes identifiers byte by byte, and would lose more than the table gains.
using Identifiers = boost::unordered_flat_set<std::string_view, std::hash<std::string_view>>;

/// What a text may hold beside the tab.
enum class Lines { one, several };

// OPTIMIZATION: the two loops over bytes below have no way out before their end, and gather in a byte, so that the
// compiler makes vectors of them: 20 bytes a nanosecond, and less than one where they gather in a bool. No scalar is
// decoded: one below U+0080 is one byte of UTF-8, and its byte is a part of no other.

bool isIdentifier(std::string_view text) {
  if (text.empty() || text.size() > Archive::maximumIDBytes) return false;
  std::uint8_t others = 0;
  for (const char character : text) {
    const auto byte = static_cast<std::uint8_t>(character);
    const auto letter = static_cast<std::uint8_t>((byte | 0x20) - 'a');
    const auto digit = static_cast<std::uint8_t>(byte - '0');
    others |= static_cast<std::uint8_t>((letter >= 26) & (digit >= 10) & (byte != '_') & (byte != '-'));
  }
  return others == 0;
}

bool hasRefusedControl(std::string_view text, Lines lines) {
  const std::uint8_t allowedToo = lines == Lines::several ? '\n' : '\t';
  std::uint8_t refused = 0;
  for (const char character : text) {
    const auto byte = static_cast<std::uint8_t>(character);
    refused |= static_cast<std::uint8_t>(((byte < 0x20) & (byte != '\t') & (byte != allowedToo)) | (byte == 0x7F));
  }
  return refused != 0;
}

/// Whether the text has at most `maximum` characters, none of them refused. The count comes first: a text of any size
/// is read no further than its character behind the maximum.
bool isText(std::string_view text, std::size_t maximum, Lines lines) {
  // OPTIMIZATION: a character is at least one byte, so that a text of few bytes is not counted.
  if (text.size() > maximum && characterOffset(text, maximum) < text.size()) return false;
  return !hasRefusedControl(text, lines);
}

bool isBlank(std::string_view text) {
  return trimmedStart(text, isWhiteSpace).empty();
}

bool isCoordinate(double number) {
  // False for a number that is undefined or infinite.
  return std::abs(number) <= Archive::maximumCoordinate;
}

/// True for what "\A[0-9]{4}-[0-9]{2}-[0-9]{2}\z" matches, if the calendar has that day.
bool isDay(std::string_view text) {
  constexpr std::string_view shape = "dddd-dd-dd";
  if (text.size() != shape.size()) return false;
  int numbers[] = {0, 0, 0};
  int* number = numbers;
  for (std::size_t index = 0; index < shape.size(); ++index) {
    const char character = text[index];
    if (shape[index] == '-') {
      if (character != '-') return false;
      ++number;
    } else {
      if (!isASCIIDigit(character)) return false;
      *number = *number * 10 + (character - '0');
    }
  }
  const auto [year, month, day] = numbers;
  // The calendar of <chrono> is the Gregorian one, before 1582 too, and has a year 0.
  return year >= 1 && (std::chrono::year(year) / month / day).ok();
}

Fault faultOf(const DocumentBoardNode& node, Identifiers& met) {
  if (!isIdentifier(node.id)) return invalidID;
  if (!met.insert(node.id).second) return duplicateID;
  if (node.documentID && !isIdentifier(*node.documentID)) return invalidID;
  if (!isText(node.title, Archive::maximumNodeTitleCharacters, Lines::one)) return invalidNode;
  // A document has a title of its own to show.
  if (!node.documentID && isBlank(node.title)) return invalidNode;
  if (!isText(node.note, Archive::maximumNodeNoteCharacters, Lines::several)) return invalidNode;
  const auto& [x, y, z] = node.position;
  if (!isCoordinate(x) || !isCoordinate(y) || !isCoordinate(z)) return invalidPosition;
  if (node.date && !isDay(*node.date)) return invalidDate;
  return std::nullopt;
}

/// A text that is too long is not hashed.
bool isAmong(const Identifiers& nodes, std::string_view text) {
  return text.size() <= Archive::maximumIDBytes && nodes.contains(text);
}

Fault faultOf(const DocumentBoardEdge& edge, const Identifiers& nodes, Identifiers& met) {
  if (!isIdentifier(edge.id)) return invalidID;
  // OPTIMIZATION: a node's identifier has been checked, so an edge's end that is one needs no check of its own: three
  // quarters of the time on a board whose identifiers are as long as can be.
  const bool isFromNode = isAmong(nodes, edge.fromNodeID);
  if (!isFromNode && !isIdentifier(edge.fromNodeID)) return invalidID;
  const bool isToNode = isAmong(nodes, edge.toNodeID);
  if (!isToNode && !isIdentifier(edge.toNodeID)) return invalidID;
  if (!met.insert(edge.id).second) return duplicateID;
  if (!isText(edge.label, Archive::maximumEdgeLabelCharacters, Lines::one)) return invalidEdge;
  if (edge.fromNodeID == edge.toNodeID) return invalidEdge;
  if (!isFromNode || !isToNode) return invalidEdge;
  return std::nullopt;
}

Fault faultOf(const DocumentBoard& board, Identifiers& met) {
  if (!isIdentifier(board.id)) return invalidID;
  if (!met.insert(board.id).second) return duplicateID;

  if (!isText(board.title, Archive::maximumBoardTitleCharacters, Lines::one)) return invalidBoard;
  if (isBlank(board.title) || !board.updatedAt.isFinite()) return invalidBoard;

  // Both numbers before any node, so that the work below is bounded.
  if (board.nodes.size() > Archive::maximumNodesPerBoard) return tooManyNodes;
  if (board.edges.size() > Archive::maximumEdgesPerBoard) return tooManyEdges;

  Identifiers nodes(board.nodes.size());
  for (const DocumentBoardNode& node : board.nodes) {
    if (const Fault fault = faultOf(node, nodes)) return fault;
  }
  Identifiers edges(board.edges.size());
  for (const DocumentBoardEdge& edge : board.edges) {
    if (const Fault fault = faultOf(edge, nodes, edges)) return fault;
  }
  return std::nullopt;
}

Fault faultOf(const DocumentBoardArchive& archive) {
  if (archive.schemaVersion != Archive::currentSchemaVersion) return unsupportedSchema;
  if (archive.boards.size() > Archive::maximumBoards) return tooManyBoards;
  Identifiers met(archive.boards.size());
  for (const DocumentBoard& board : archive.boards) {
    if (const Fault fault = faultOf(board, met)) return fault;
  }
  return std::nullopt;
}

}  // namespace

std::expected<DocumentBoardArchive, DocumentBoardValidationError> DocumentBoardArchive::validated() const& {
  if (const Fault fault = faultOf(*this)) return std::unexpected(*fault);
  return *this;
}

std::expected<DocumentBoardArchive, DocumentBoardValidationError> DocumentBoardArchive::validated() && {
  if (const Fault fault = faultOf(*this)) return std::unexpected(*fault);
  return std::move(*this);
}

}  // namespace tessary
