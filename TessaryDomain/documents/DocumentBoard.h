#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/values/RawValue.h"

// A board is a canvas on which the user lays out documents, notes, people and events, and joins them with labelled
// edges. These are its values as they stand in the board file. Reading checks no more than their types; whether a file
// may reach the canvas is for `DocumentBoardArchive::validated` to say.

namespace tessary {

/// What a node stands for. It decides how the node is drawn and nothing else: a document's node need not name a
/// document, and any other may.
enum class BoardNodeKind : std::uint8_t { document, note, person, event };

template <>
struct RawValues<BoardNodeKind> {
  static constexpr auto table = std::to_array<RawValueRow<BoardNodeKind>>({
      {BoardNodeKind::document, "document"},
      {BoardNodeKind::note, "note"},
      {BoardNodeKind::person, "person"},
      {BoardNodeKind::event, "event"},
  });
};

/// The identity of a kind in lists: its raw value.
[[nodiscard]] constexpr std::string_view id(BoardNodeKind kind) {
  return rawValue(kind);
}

/// How much of itself a node shows.
enum class BoardNodeDisplay : std::uint8_t { icon, title, summary };

template <>
struct RawValues<BoardNodeDisplay> {
  static constexpr auto table = std::to_array<RawValueRow<BoardNodeDisplay>>({
      {BoardNodeDisplay::icon, "icon"},
      {BoardNodeDisplay::title, "title"},
      {BoardNodeDisplay::summary, "summary"},
  });
};

/// The identity of a display in lists: its raw value.
[[nodiscard]] constexpr std::string_view id(BoardNodeDisplay display) {
  return rawValue(display);
}

/// The colour of a node.
enum class BoardNodeColor : std::uint8_t { amber, blue, green, purple, rose, gray };

template <>
struct RawValues<BoardNodeColor> {
  static constexpr auto table = std::to_array<RawValueRow<BoardNodeColor>>({
      {BoardNodeColor::amber, "amber"},
      {BoardNodeColor::blue, "blue"},
      {BoardNodeColor::green, "green"},
      {BoardNodeColor::purple, "purple"},
      {BoardNodeColor::rose, "rose"},
      {BoardNodeColor::gray, "gray"},
  });
};

/// The identity of a colour in lists: its raw value.
[[nodiscard]] constexpr std::string_view id(BoardNodeColor color) {
  return rawValue(color);
}

/// Which ends of an edge have an arrow.
enum class BoardEdgeDirection : std::uint8_t { none, forward, bidirectional };

template <>
struct RawValues<BoardEdgeDirection> {
  static constexpr auto table = std::to_array<RawValueRow<BoardEdgeDirection>>({
      {BoardEdgeDirection::none, "none"},
      {BoardEdgeDirection::forward, "forward"},
      {BoardEdgeDirection::bidirectional, "bidirectional"},
  });
};

/// The identity of a direction in lists: its raw value.
[[nodiscard]] constexpr std::string_view id(BoardEdgeDirection direction) {
  return rawValue(direction);
}

/// A place on the canvas, in the host's unit of length.
struct BoardPoint {
  double x = 0;
  double y = 0;
  /// What lies above what.
  double z = 0;

  bool operator==(const BoardPoint&) const = default;
};

template <>
struct JSONForm<BoardPoint> {
  static constexpr std::tuple fields{
      required("x", &BoardPoint::x),
      required("y", &BoardPoint::y),
      required("z", &BoardPoint::z),
  };
};

/// Something that lies on a board. Identified by `id` among the nodes of its board.
struct DocumentBoardNode {
  std::string id;
  BoardNodeKind kind{};
  /// The document of the library that the node shows. The library may have it no longer.
  std::optional<std::string> documentID{};
  /// May be empty where the node shows a document.
  std::string title;
  /// The one text of a board that may have several lines.
  std::string note;
  BoardPoint position{};
  BoardNodeDisplay display{};
  BoardNodeColor color{};
  /// A calendar day, "2024-02-29".
  std::optional<std::string> date{};

  bool operator==(const DocumentBoardNode&) const = default;
};

template <>
struct JSONForm<DocumentBoardNode> {
  static constexpr std::tuple fields{
      required("id", &DocumentBoardNode::id),
      required("kind", &DocumentBoardNode::kind),
      optional("documentID", &DocumentBoardNode::documentID),
      required("title", &DocumentBoardNode::title),
      required("note", &DocumentBoardNode::note),
      required("position", &DocumentBoardNode::position),
      required("display", &DocumentBoardNode::display),
      required("color", &DocumentBoardNode::color),
      optional("date", &DocumentBoardNode::date),
  };
};

/// What joins two nodes of a board. Identified by `id` among the edges of its board.
struct DocumentBoardEdge {
  std::string id;
  std::string fromNodeID;
  std::string toNodeID;
  std::string label;
  BoardEdgeDirection direction{};

  bool operator==(const DocumentBoardEdge&) const = default;
};

template <>
struct JSONForm<DocumentBoardEdge> {
  static constexpr std::tuple fields{
      required("id", &DocumentBoardEdge::id),
      required("fromNodeID", &DocumentBoardEdge::fromNodeID),
      required("toNodeID", &DocumentBoardEdge::toNodeID),
      required("label", &DocumentBoardEdge::label),
      required("direction", &DocumentBoardEdge::direction),
  };
};

/// One canvas. Identified by `id` among the boards of its archive.
struct DocumentBoard {
  std::string id;
  std::string title;
  std::vector<DocumentBoardNode> nodes;
  std::vector<DocumentBoardEdge> edges;
  /// When the user last changed it. In the file in the form that the coder has for dates.
  Date updatedAt{};

  bool operator==(const DocumentBoard&) const = default;
};

template <>
struct JSONForm<DocumentBoard> {
  static constexpr std::tuple fields{
      required("id", &DocumentBoard::id),
      required("title", &DocumentBoard::title),
      required("nodes", &DocumentBoard::nodes),
      required("edges", &DocumentBoard::edges),
      required("updatedAt", &DocumentBoard::updatedAt),
  };
};

}  // namespace tessary
