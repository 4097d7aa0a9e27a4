#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// How one document came to point at another.
enum class DocumentLinkKind : std::uint8_t {
  /// By a wiki link in its text.
  wiki,
  /// By a Markdown link in its text.
  markdown,
  /// By belonging to the same project.
  project,
};

template <>
struct RawValues<DocumentLinkKind> {
  static constexpr auto table = std::to_array<RawValueRow<DocumentLinkKind>>({
      {DocumentLinkKind::wiki, "wiki"},
      {DocumentLinkKind::markdown, "markdown"},
      {DocumentLinkKind::project, "project"},
  });
};

/// A link between two documents, by their identifiers.
struct DocumentLink {
  std::string sourceID;
  std::string targetID;
  std::string label;
  DocumentLinkKind kind{};

  bool operator==(const DocumentLink&) const = default;
};

template <>
struct JSONForm<DocumentLink> {
  static constexpr std::tuple fields{
      required("sourceID", &DocumentLink::sourceID),
      required("targetID", &DocumentLink::targetID),
      required("label", &DocumentLink::label),
      required("kind", &DocumentLink::kind),
  };
};

/// The links between the documents of a library.
struct DocumentLinkGraph {
  std::vector<DocumentLink> links;
  /// Whether links of the kind `project` were looked for. Files from before that question read as true.
  bool projectSuggestionsIncluded = true;

  bool operator==(const DocumentLinkGraph&) const = default;
};

template <>
struct JSONForm<DocumentLinkGraph> {
  static constexpr std::tuple fields{
      required("links", &DocumentLinkGraph::links),
      defaulted("projectSuggestionsIncluded", &DocumentLinkGraph::projectSuggestionsIncluded, true),
  };
};

}  // namespace tessary
