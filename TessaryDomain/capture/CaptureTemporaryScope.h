#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/ArtifactExtensions.h"

namespace tessary {

/// What counts as temporary on this machine. Paths are of any bytes.
struct CaptureTemporaryScope {
  /// The process's folder for temporary files; used only if it begins with "/".
  std::optional<std::string> temporaryDirectory;
  /// The same with links resolved, used as it stands, and only beside a usable `temporaryDirectory`.
  std::optional<std::string> resolvedTemporaryDirectory;
  /// The folder that holds the product's data. It may lie in a temporary folder itself, and is then none.
  std::string dataFolderParent;

  /// The temporary folders: those of every system, then the process's, normalised, and the same with links resolved.
  [[nodiscard]] std::vector<std::string> roots() const;

  bool operator==(const CaptureTemporaryScope&) const = default;
};

namespace CaptureRules {

/// The temporary folders in which documents may be made.
inline constexpr auto temporaryDocumentRoots =
    std::to_array<std::string_view>({"/tmp", "/private/tmp", "/var/tmp", "/private/var/tmp"});

/// The folded extensions of documents that may be shown out of a temporary folder.
inline constexpr WordSet temporaryDocumentExtensions =
    documentExtensions.joined(WordSet(std::to_array<std::string_view>({"pdf", "txt"})));

/// True for a path that, normalised, is one of the scope's `roots` or lies in one. Where `dataFolderParent` lies in
/// one, but is none, the paths in it are no temporary ones.
[[nodiscard]] bool temporaryLocation(std::string_view path, const CaptureTemporaryScope& scope);

/// True for a path that, normalised, is one of `temporaryDocumentRoots` or lies in one, with no component behind it
/// that begins with ".".
[[nodiscard]] bool temporaryDocumentFolder(std::string_view path);

/// True for text files that are no documents: ".txt" files that steer a build or a crawler, that list requirements or
/// state a licence, that are logs by their name, or that lie in a folder of logs. The folders are those of the path as
/// given, ".." not taken back.
[[nodiscard]] bool nonDocumentText(std::string_view path);

/// True for a path of which `temporaryDocumentFolder` holds, with one of `temporaryDocumentExtensions`, that is no
/// `nonDocumentText`.
[[nodiscard]] bool temporaryDocument(std::string_view path);

}  // namespace CaptureRules

}  // namespace tessary
