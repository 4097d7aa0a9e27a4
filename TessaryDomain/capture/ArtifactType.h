#pragma once

#include <string_view>

#include "TessaryDomain/capture/ArtifactCategory.h"

namespace tessary::CaptureRules {

/// What a file is, by its path.
struct ArtifactType {
  ArtifactCategory category;
  /// How it is read: "html", "markdown", "image", "video", "pdf", "text" or "file".
  std::string_view kind;

  bool operator==(const ArtifactType&) const = default;
};

/// The type of the file at `path`: by its extension and, where that says nothing, by its whole name ("Makefile" is
/// code, "Makefile.bak" is not). Letter case does not matter. `isPlan` says that the maker calls it a plan, which makes
/// a plan of a document and of nothing else: a plan that is a picture stays an image.
[[nodiscard]] ArtifactType artifactType(std::string_view path, bool isPlan);

}  // namespace tessary::CaptureRules
