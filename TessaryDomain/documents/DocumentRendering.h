#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "TessaryDomain/documents/DocumentRecord.h"
#include "TessaryDomain/documents/DocumentRevision.h"
#include "TessaryPlatform/addresses/URL.h"

namespace tessary {

/// How a document is shown: as source code, as Markdown or as HTML.
struct DocumentContentFormat {
  /// Source code, in the language of a highlighter.
  struct Code {
    /// The lower-case name of a highlighter ("python"), or an extension where no name is known for it; absent where
    /// nothing is known.
    std::optional<std::string> language;

    bool operator==(const Code&) const = default;
  };
  /// Markdown, which the renderer reads.
  struct Markdown {
    bool operator==(const Markdown&) const = default;
  };
  /// A page, which the renderer makes safe.
  struct HTML {
    bool operator==(const HTML&) const = default;
  };

  std::variant<Code, Markdown, HTML> value;

  bool operator==(const DocumentContentFormat&) const = default;

  /// The formats by name; `language` is that of `Code`.
  [[nodiscard]] static DocumentContentFormat code(std::optional<std::string_view> language);
  [[nodiscard]] static DocumentContentFormat markdown() { return {Markdown{}}; }
  [[nodiscard]] static DocumentContentFormat html() { return {HTML{}}; }

  /// The format of a document, by its kind, its category and the name of its file: that at its origin where the record
  /// knows it, else that of the stored copy of `revision`, and without a revision (null) the title. The extension of a
  /// name is a `pathExtension`; letter case makes no difference in names, and counts in kinds.
  ///
  /// Of two signs the first of these decides: the kind "html" or an extension of HTML; an extension of Markdown;
  /// "CMakeLists.txt"; an extension of plain text. Then documents of kind "text" or category `code` are code, in the
  /// language that their name tells ("Dockerfile.prod", "Makefile", "a.py"). All others are Markdown, which shows any
  /// text.
  [[nodiscard]] static DocumentContentFormat resolve(const DocumentRecord& document, const DocumentRevision* revision);

  /// True for a format of text that people read: Markdown, HTML, and code in a language of plain text.
  [[nodiscard]] bool isProse() const;
};

/// What the renderer process is asked to do. A request names all of its fields.
struct DocumentRenderRequest {
  /// The source of the document.
  std::string text;
  /// How to render it.
  DocumentContentFormat format;
  /// The caption of the document's front matter; absent for none.
  std::optional<std::string> frontmatterLabel;
  /// Whether images from other machines may load.
  bool allowsRemoteImages;

  bool operator==(const DocumentRenderRequest&) const = default;
};

/// What the renderer process makes of a request.
class RenderedDocument {
 public:
  /// Keeps as the origin what `DocumentWebsiteURL::validated` makes of it: an address that it refuses is absent.
  RenderedDocument(std::string body, std::string style, std::vector<std::string> remarks,
                   std::optional<std::string> resultLanguage, std::optional<std::string_view> origin);

  /// The rendered body.
  std::string html;
  /// The style sheet that goes with it.
  std::string styleSheet;
  /// Remarks for the reader.
  std::vector<std::string> notices;
  /// The language of the result; absent where it has none.
  std::optional<std::string> language;

  /// The address that the document names as its origin, always one that `DocumentWebsiteURL::validated` lets through.
  [[nodiscard]] const std::optional<URL>& sourceWebsiteURL() const { return sourceWebsiteURL_; }

  bool operator==(const RenderedDocument&) const = default;

 private:
  std::optional<URL> sourceWebsiteURL_;
};

/// The bounds of rendering, in bytes.
namespace DocumentRenderLimits {

/// The text of a request.
inline constexpr std::size_t sourceBytes = 524'288;
/// A whole request.
inline constexpr std::size_t requestBytes = 4'194'304;
/// A result.
inline constexpr std::size_t outputBytes = 6'291'456;
/// Text that is highlighted. Kept by the host and by the script of the renderer.
inline constexpr std::size_t highlightBytes = 65'536;
/// Text that is shown without the renderer's help. Kept by the host.
inline constexpr std::size_t fallbackBytes = 65'536;
/// The script of the renderer.
inline constexpr std::size_t resourceBytes = 4'194'304;

}  // namespace DocumentRenderLimits

/// Which documents are for reading.
namespace DocumentProse {

/// True for a document that people read as text: a candidate, a PDF, and what has a text in a format that `isProse`.
/// `revision` is the one to be shown; null for none.
[[nodiscard]] bool reads(const DocumentRecord& document, const DocumentRevision* revision);

}  // namespace DocumentProse

}  // namespace tessary

template <>
struct std::hash<tessary::DocumentContentFormat> {
  std::size_t operator()(const tessary::DocumentContentFormat& format) const noexcept;
};

template <>
struct std::hash<tessary::DocumentRenderRequest> {
  std::size_t operator()(const tessary::DocumentRenderRequest& request) const noexcept;
};
